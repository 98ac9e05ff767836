#include "support/ThreadCount.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

TEST(ThreadCountTest, HarnessThreadsAreNotCounted) { EXPECT_EQ(support::threadCount(), 1); }

TEST(ThreadCountTest, RunningThreadsAreCounted) {
  std::promise<void> letGo;
  auto mayEnd = letGo.get_future().share();
  std::thread first([mayEnd] { mayEnd.wait(); });
  std::thread second([mayEnd] { mayEnd.wait(); });
  EXPECT_EQ(support::threadCount(), 3);
  letGo.set_value();
  first.join();
  second.join();
}

TEST(ThreadCountTest, WaitSeesDetachedThreadsEnd) {
  std::promise<void> letGo;
  std::thread([mayEnd = letGo.get_future()] { mayEnd.wait(); }).detach();
  EXPECT_EQ(support::threadCount(), 2);
  letGo.set_value();
  EXPECT_TRUE(support::waitForThreadCount(1, steady_clock::now() + 30s));
}

TEST(ThreadCountTest, WaitEndsAtItsDeadline) { EXPECT_FALSE(support::waitForThreadCount(2, steady_clock::now() + 20ms)); }

}  // namespace
