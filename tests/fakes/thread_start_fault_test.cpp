#include "fakes/ThreadStartFault.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace {

bool threadStarts() {
  try {
    bool ran = false;
    std::thread([&ran] { ran = true; }).join();
    return ran;
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code(), std::errc::resource_unavailable_try_again);
    return false;
  }
}

TEST(ThreadStartFault, FailsEveryStartWhileOneLives) {
  EXPECT_TRUE(threadStarts());
  {
    const fakes::ThreadStartFault outer;
    EXPECT_FALSE(threadStarts());
    { const fakes::ThreadStartFault inner; }
    EXPECT_FALSE(threadStarts());
  }
  EXPECT_TRUE(threadStarts());
}

TEST(ThreadStartFault, ConcernsEveryThread) {
  bool started = true;
  bool faulty = false;
  std::mutex mutex;
  std::condition_variable changed;
  std::thread starter([&] {
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return faulty; });
    started = threadStarts();
  });
  {
    const fakes::ThreadStartFault fault;
    {
      const std::lock_guard lock(mutex);
      faulty = true;
      changed.notify_all();
    }
    starter.join();
  }
  EXPECT_FALSE(started);
}

}  // namespace
