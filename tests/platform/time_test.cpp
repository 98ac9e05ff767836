#include "platform/Time.h"

#include <gtest/gtest.h>

#include <thread>

using namespace std::chrono_literals;
using Steady = std::chrono::steady_clock;

namespace {

TEST(TimeTest, NowIsTheSystemClock) {
  const auto before = std::chrono::system_clock::now();
  const auto now = platform::now();
  const auto after = std::chrono::system_clock::now();

  EXPECT_LE(before, now);
  EXPECT_LE(now, after);
}

TEST(TimeTest, WaitTimesOutAtItsDeadlineAndNotBefore) {
  std::mutex mutex;
  std::condition_variable condition;
  std::unique_lock lock(mutex);
  const auto deadline = platform::now() + 30ms;

  while (platform::waitUntil(condition, lock, deadline) == std::cv_status::no_timeout) continue;

  EXPECT_GE(platform::now(), deadline);
  EXPECT_TRUE(lock.owns_lock());
}

TEST(TimeTest, WaitUntilAPastDeadlineTimesOut) {
  std::mutex mutex;
  std::condition_variable condition;
  std::unique_lock lock(mutex);

  EXPECT_EQ(platform::waitUntil(condition, lock, platform::now() - 1h), std::cv_status::timeout);
}

TEST(TimeTest, NoticeEndsTheWait) {
  std::mutex mutex;
  std::condition_variable condition;
  bool noticed = false;
  std::unique_lock lock(mutex);
  std::thread notifier([&] {
    const std::lock_guard guard(mutex);
    noticed = true;
    condition.notify_one();
  });

  auto status = std::cv_status::no_timeout;
  while (!noticed && status == std::cv_status::no_timeout) status = platform::waitUntil(condition, lock, platform::now() + 1h);
  lock.unlock();
  notifier.join();

  EXPECT_EQ(status, std::cv_status::no_timeout);
}

TEST(TimeTest, AnyPositiveSleepLastsAWholeMillisecondOrMore) {
  for (const auto& [asked, least] : {std::pair{10us, 1ms}, {1us, 1ms}, {1000us, 1ms}, {1001us, 2ms}, {15000us, 15ms}}) {
    const auto start = Steady::now();
    platform::sleepFor(asked);
    EXPECT_GE(Steady::now() - start, least) << asked.count() << " us";
  }
}

TEST(TimeTest, NoSleepForZeroOrLess) {
  const auto start = Steady::now();
  for (int round = 0; round < 1000; ++round) {
    platform::sleepFor(0us);
    platform::sleepFor(-1h);
  }
  EXPECT_LT(Steady::now() - start, 1s) << "a thousand sleeps of a millisecond last longer";
}

}  // namespace
