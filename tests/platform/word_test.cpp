#include "platform/Word.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using platform::Word;

TEST(WordTest, WaitReturnsAtOnceWhenTheWordIsSomethingElse) {
  Word word;
  EXPECT_EQ(word.waitWhile(7), 0U);
  word.set(7);
  EXPECT_EQ(word.waitWhile(0), 7U);
}

TEST(WordTest, SetEndsTheWaitAndShowsWhatWasWrittenBefore) {
  for (int round = 1; round <= 500; ++round) {
    Word word;
    int written = 0;
    std::thread writer([&] {
      written = round;
      word.set(1);
    });
    ASSERT_EQ(word.waitWhile(0), 1U);
    ASSERT_EQ(written, round);
    writer.join();
  }
}

TEST(WordTest, TwoThreadsTakeTurnsAndMissNone) {
  constexpr int kTurns = 5000;
  Word word;
  int turns = 0;  // whose turn it is may write
  std::thread other([&] {
    for (int turn = 0; turn < kTurns; ++turn) {
      word.waitWhile(0);
      ++turns;
      word.set(0);
    }
  });
  for (int turn = 0; turn < kTurns; ++turn) {
    ++turns;
    word.set(1);
    word.waitWhile(1);
  }
  other.join();
  EXPECT_EQ(turns, 2 * kTurns);
}

// Whoever waits is woken for nothing again and again.
TEST(WordTest, WakeWithoutAChangeDoesNotEndTheWait) {
  Word word;
  std::thread setter([&] {
    for (int again = 0; again < 2000; ++again) word.set(0);
    word.set(1);
  });
  EXPECT_EQ(word.waitWhile(0), 1U);
  setter.join();
}

}  // namespace
