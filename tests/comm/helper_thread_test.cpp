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
  const auto first = helper.run([] { return std::this_thread::get_id(); });
  const auto second = helper.run([] { return std::this_thread::get_id(); });

  EXPECT_EQ(first, second);
  EXPECT_NE(first, std::this_thread::get_id());
}

TEST(HelperThreadTest, IsStartedByTheFirstRunAndGoneAfterJoin) {
  const auto hasThreads = [](int count) {
    return support::waitForThreadCount(count, std::chrono::steady_clock::now() + std::chrono::seconds(20));
  };
  ASSERT_TRUE(hasThreads(1));
  HelperThread helper;
  EXPECT_EQ(support::threadCount(), 1);
  helper.run([] {});
  EXPECT_EQ(support::threadCount(), 2);

  helper.join();

  EXPECT_TRUE(hasThreads(1));
}

TEST(HelperThreadTest, JoinWithoutAThreadDoesNothing) {
  HelperThread helper;
  helper.join();
  helper.run([] {});
  helper.join();
  helper.join();
}

TEST(HelperThreadTest, JoinWaitsForTheRunInHand) {
  for (int round = 0; round < 200; ++round) {
    HelperThread helper;
    bool done = false;
    static_cast<void>(helper.launch([&done] { done = true; }));
    helper.join();
    ASSERT_TRUE(done);
  }
}

TEST(HelperThreadTest, GoesOnAfterJoin) {
  HelperThread helper;
  EXPECT_EQ(helper.run([] { return 1; }), 1);
  helper.join();
  EXPECT_EQ(helper.run([] { return 2; }), 2);
}

TEST(HelperThreadTest, WhatTheWorkThrowsComesOutOfTheRun) {
  HelperThread helper;
  EXPECT_THROW(helper.run([]() -> int { throw std::runtime_error("paper jam"); }), std::runtime_error);
  EXPECT_THROW(helper.run(std::function<int()>()), std::bad_function_call);
  EXPECT_EQ(helper.run([] { return 7; }), 7) << "it goes on after an exception";
}

TEST(HelperThreadTest, WhatTheWorkThrowsComesOutOfTheFuture) {
  HelperThread helper;
  auto failed = helper.launch([]() -> int { throw std::runtime_error("paper jam"); });
  EXPECT_THROW(failed.get(), std::runtime_error);

  EXPECT_THROW(helper.launch(std::function<int()>()).get(), std::bad_function_call);
  EXPECT_EQ(helper.launch([] { return 7; }).get(), 7) << "it goes on after an exception";
}

// Or the helper could drop the last reference to the list that owns it, and join itself.
TEST(HelperThreadTest, WorkIsDestroyedBeforeItsRunReturns) {
  HelperThread helper;
  for (int round = 0; round < 500; ++round) {
    auto held = std::make_shared<int>(round);
    const std::weak_ptr<int> watched = held;
    ASSERT_EQ(helper.run([held = std::move(held)] { return *held; }), round);
    ASSERT_TRUE(watched.expired());
  }
}

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

TEST(HelperThreadTest, FailureToStartReachesTheCallerAndTheNextRunTriesAgain) {
  HelperThread helper;
  {
    const fakes::ThreadStartFault fault;
    EXPECT_THROW(helper.launch([] { return 1; }), std::system_error);
    EXPECT_THROW(helper.run([] { return 1; }), std::system_error);
  }
  EXPECT_EQ(helper.run([] { return 2; }), 2);
}

}  // namespace
