#include "comm/HelperThread.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "fakes/ThreadStartFault.h"
#include "support/ThreadCount.h"

namespace {

using comm::HelperThread;

TEST(HelperThreadTest, RunsEachWorkOnOneThreadOfItsOwn) {
  HelperThread helper;
  const auto first = helper.launch([] { return std::this_thread::get_id(); }).get();
  const auto second = helper.launch([] { return std::this_thread::get_id(); }).get();

  EXPECT_EQ(first, second);
  EXPECT_NE(first, std::this_thread::get_id());
}

TEST(HelperThreadTest, IsStartedByTheFirstLaunchAndGoneAfterJoin) {
  const auto hasThreads = [](int count) {
    return support::waitForThreadCount(count, std::chrono::steady_clock::now() + std::chrono::seconds(20));
  };
  ASSERT_TRUE(hasThreads(1));
  HelperThread helper;
  EXPECT_EQ(support::threadCount(), 1);
  helper.launch([] {}).wait();
  EXPECT_EQ(support::threadCount(), 2);

  helper.join();

  EXPECT_TRUE(hasThreads(1));
}

TEST(HelperThreadTest, JoinWithoutAThreadDoesNothing) {
  HelperThread helper;
  helper.join();
  helper.launch([] {}).wait();
  helper.join();
  helper.join();
}

TEST(HelperThreadTest, WhatTheWorkThrowsComesOutOfTheFuture) {
  HelperThread helper;
  auto failed = helper.launch([]() -> int { throw std::runtime_error("paper jam"); });
  EXPECT_THROW(failed.get(), std::runtime_error);

  EXPECT_THROW(helper.launch(std::function<int()>()).get(), std::bad_function_call);
  EXPECT_EQ(helper.launch([] { return 7; }).get(), 7) << "it goes on after an exception";
}

// Or the helper could drop the last reference to the list that owns it, and join itself.
TEST(HelperThreadTest, WorkIsDestroyedBeforeItsFutureIsReady) {
  HelperThread helper;
  for (int round = 0; round < 500; ++round) {
    auto held = std::make_shared<int>(round);
    const std::weak_ptr<int> watched = held;
    helper.launch([held = std::move(held)] { return *held; }).wait();
    ASSERT_TRUE(watched.expired());
  }
}

TEST(HelperThreadTest, WorkIsDestroyedBeforeItsFutureIsReadyAlsoWhenItThrows) {
  HelperThread helper;
  for (int round = 0; round < 500; ++round) {
    auto held = std::make_shared<int>(round);
    const std::weak_ptr<int> watched = held;
    helper.launch([held = std::move(held)] { throw *held; }).wait();
    ASSERT_TRUE(watched.expired());
  }
}

// Or the end of the first run would pass for that of the second, which has no result yet.
TEST(HelperThreadTest, DroppedFutureLeavesTheNextLaunchItsOwnResult) {
  HelperThread helper;
  for (int round = 1; round <= 200; ++round) {
    std::promise<void> begun;
    std::promise<void> released;
    static_cast<void>(helper.launch([&begun, gate = released.get_future().share()] {
      begun.set_value();
      gate.wait();
    }));
    begun.get_future().wait();
    std::thread releasing([&released] { released.set_value(); });
    auto second = helper.launch([round] { return round; });
    ASSERT_EQ(second.get(), round);
    releasing.join();
  }
}

TEST(HelperThreadTest, FailureToStartReachesTheCallerAndTheNextLaunchTriesAgain) {
  HelperThread helper;
  {
    const fakes::ThreadStartFault fault;
    EXPECT_THROW(helper.launch([] { return 1; }), std::system_error);
  }
  EXPECT_EQ(helper.launch([] { return 2; }).get(), 2);
}

}  // namespace
