#include "platform/DetachedThread.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <vector>

namespace {

using namespace std::chrono_literals;

/// Counts what is under way, and holds up what would be too much.
class Room {
 public:
  explicit Room(int most) : m_most(most) {}

  void enter() {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_inside < m_most; });
    ++m_inside;
  }
  void leave() {
    const std::lock_guard lock(m_mutex);
    --m_inside;
    ++m_left;
    m_changed.notify_all();
  }
  bool waitUntilLeft(int count) {
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, 60s, [&] { return m_left == count; });
  }

 private:
  const int m_most;
  std::mutex m_mutex;
  std::condition_variable m_changed;
  int m_inside = 0;
  int m_left = 0;
};

TEST(DetachedThread, ThreadsThatEndAtOnceAllRunAndHarmNobody) {
  constexpr int starters = 8;
  constexpr int starts = 1'250;  // each
  const auto room = std::make_shared<Room>(64);

  std::vector<std::thread> threads;
  for (int i = 0; i < starters; ++i) {
    threads.emplace_back([room] {
      for (int start = 0; start < starts; ++start) {
        room->enter();
        platform::startDetached([room] { room->leave(); });
      }
    });
  }
  for (auto& thread : threads) thread.join();

  EXPECT_TRUE(room->waitUntilLeft(starters * starts));
}

TEST(DetachedThread, WorkAndWhatItHoldsAreGoneWhenTheThreadHasEnded) {
  auto held = std::make_shared<int>(0);
  const std::weak_ptr<int> gone = held;
  platform::startDetached([held = std::move(held)] {});
  const auto deadline = std::chrono::steady_clock::now() + 20s;
  while (!gone.expired() && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
  EXPECT_TRUE(gone.expired());
}

}  // namespace
