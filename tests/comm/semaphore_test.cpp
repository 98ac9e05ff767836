#include "comm/Semaphore.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>

namespace {

TEST(SemaphoreTest, EveryPostLetsOneLaterWaitReturn) {
  comm::Semaphore semaphore;
  semaphore.post();
  semaphore.post();

  semaphore.wait();
  semaphore.wait();
  auto third = std::async(std::launch::async, [&] { semaphore.wait(); });
  EXPECT_EQ(third.wait_for(std::chrono::milliseconds(20)), std::future_status::timeout);
  semaphore.post();
  EXPECT_EQ(third.wait_for(std::chrono::seconds(20)), std::future_status::ready);
}

TEST(SemaphoreTest, NoPostIsLostBetweenManyThreads) {
  comm::Semaphore semaphore;
  constexpr int kThreads = 4;
  constexpr int kPosts = 5000;
  std::atomic<int> waits{0};
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      for (int n = 0; n < kPosts; ++n) semaphore.post();
    });
    threads.emplace_back([&] {
      for (int n = 0; n < kPosts; ++n, ++waits) semaphore.wait();
    });
  }
  for (auto& thread : threads) thread.join();

  EXPECT_EQ(waits, kThreads * kPosts);
}

// The waiter may destroy the semaphore as soon as its wait returns.
TEST(SemaphoreTest, MayBeDestroyedByTheWaiterItReleased) {
  for (int round = 0; round < 2000; ++round) {
    auto semaphore = std::make_unique<comm::Semaphore>();
    std::thread poster([shared = semaphore.get()] { shared->post(); });
    semaphore->wait();
    semaphore.reset();
    poster.join();
  }
}

}  // namespace
