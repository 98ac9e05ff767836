#include "Options.h"

#include <gtest/gtest.h>

#include <vector>

namespace soak::test {
namespace {

using namespace std::chrono_literals;
using Arguments = std::vector<std::string_view>;

TEST(Options, WithoutAnyAreAMinuteAndFiftyPrintersAndASeedFromTheClock) {
  const auto options = readOptions({}, 77);
  EXPECT_EQ(options.length, 60s);
  EXPECT_EQ(options.printers, 50);
  EXPECT_EQ(options.seed, 77U);
}

TEST(Options, AreTakenAsGiven) {
  const auto options = readOptions(Arguments{"--minutes", "15", "--printers", "200", "--seed", "18446744073709551615"}, 77);
  EXPECT_EQ(options.length, 15min);
  EXPECT_EQ(options.printers, 200);
  EXPECT_EQ(options.seed, UINT64_MAX);
  EXPECT_EQ(readOptions(Arguments{"--seconds", "20"}, 0).length, 20s);
}

TEST(Options, WithAMistakeAreRefusedInOneLineThatNamesIt) {
  struct Case {
    Arguments arguments;
    std::string_view error;
  };
  const Case cases[] = {
      {{"--minute", "1"}, "unknown option '--minute'; known are --minutes, --seconds, --printers, --seed, --help"},
      {{"5"}, "unknown option '5'; known are --minutes, --seconds, --printers, --seed, --help"},
      {{"--minutes"}, "--minutes takes a number"},
      {{"--minutes", ""}, "--minutes takes a whole number from 1 to 1440, not ''"},
      {{"--minutes", "0"}, "--minutes takes a whole number from 1 to 1440, not '0'"},
      {{"--minutes", "1.5"}, "--minutes takes a whole number from 1 to 1440, not '1.5'"},
      {{"--minutes", "-1"}, "--minutes takes a whole number from 1 to 1440, not '-1'"},
      {{"--printers", "257"}, "--printers takes a whole number from 1 to 256, not '257'"},
      {{"--seed", "18446744073709551616"},
       "--seed takes a whole number from 0 to 18446744073709551615, not '18446744073709551616'"},
      {{"--minutes", "1", "--seconds", "1"}, "--minutes and --seconds exclude each other"}};
  for (const Case& one : cases) {
    try {
      readOptions(one.arguments, 0);
      ADD_FAILURE() << "accepted, expected: " << one.error;
    } catch (const OptionsError& mistake) {
      EXPECT_EQ(mistake.what(), one.error);
    }
  }
}

}  // namespace
}  // namespace soak::test
