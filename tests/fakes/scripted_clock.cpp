#include "fakes/ScriptedClock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iostream>
#include <utility>

namespace fakes {
namespace {

using namespace std::chrono_literals;

std::atomic<ScriptedClock*> g_clock{nullptr};

ScriptedClock& installed() {
  auto* clock = g_clock.load();
  if (clock == nullptr) {
    std::cerr << "the time was asked for while no ScriptedClock exists\n";
    std::abort();
  }
  return *clock;
}

}  // namespace

// 2024-03-07 09:05:03 UTC: any fixed time far from the epoch does.
ScriptedClock::ScriptedClock() : m_now(TimePoint(1709802303s)) { g_clock.store(this); }

ScriptedClock::~ScriptedClock() {
  g_clock.store(nullptr);
  const std::lock_guard lock(m_mutex);
  if (m_parked.empty()) return;
  std::cerr << m_parked.size() << " threads are still parked on a clock that goes away\n";
  std::abort();
}

void ScriptedClock::advance(std::chrono::microseconds by) {
  std::unique_lock lock(m_mutex);
  m_now += by;
  release(lock, [this](const Parked& parked) { return parked.deadline <= m_now; });
}

void ScriptedClock::stepBack(std::chrono::microseconds by) {
  const std::lock_guard lock(m_mutex);
  m_now -= by;
}

void ScriptedClock::wakeParked() {
  std::unique_lock lock(m_mutex);
  release(lock, [last = m_parkings](const Parked& parked) { return parked.serial <= last; });
}

void ScriptedClock::release(std::unique_lock<std::mutex>& lock, const std::function<bool(const Parked&)>& chosen) {
  const auto isChosen = [&](const Parked* parked) { return chosen(*parked); };
  while (std::ranges::any_of(m_parked, isChosen)) {
    // A thread is in the list from before it sleeps, so a notice may come too early: again until all are gone. (Its own mutex
    // cannot be taken here: it holds that while it comes for ours.)
    for (const auto* parked : m_parked) {
      if (isChosen(parked)) parked->condition->notify_all();
    }
    m_changed.wait_for(lock, 200us);
  }
}

void ScriptedClock::awaitParked(std::size_t count) {
  std::unique_lock lock(m_mutex);
  const bool reached = m_changed.wait_for(lock, kPatience, [&] { return m_parked.size() == count; });
  ASSERT_TRUE(reached) << m_parked.size() << " threads are parked, not " << count;
}

void ScriptedClock::awaitParkings(std::size_t count) {
  std::unique_lock lock(m_mutex);
  const bool reached = m_changed.wait_for(lock, kPatience, [&] { return m_parkings >= count; });
  ASSERT_TRUE(reached) << "threads have parked " << m_parkings << " times, not " << count;
}

std::size_t ScriptedClock::parkings() {
  const std::lock_guard lock(m_mutex);
  return m_parkings;
}

void ScriptedClock::atReading(std::size_t nth, std::function<void()> action) {
  const std::lock_guard lock(m_mutex);
  m_readingsToAction = nth;
  m_action = std::move(action);
}

ScriptedClock::TimePoint ScriptedClock::read() {
  std::unique_lock lock(m_mutex);
  if (m_readingsToAction > 0 && --m_readingsToAction == 0) {
    const auto action = std::exchange(m_action, nullptr);
    lock.unlock();
    action();
    lock.lock();
  }
  return m_now;
}

ScriptedClock::TimePoint ScriptedClock::present() {
  const std::lock_guard lock(m_mutex);
  return m_now;
}

std::cv_status ScriptedClock::waitUntil(std::condition_variable& condition, std::unique_lock<std::mutex>& lock,
                                        TimePoint deadline) {
  Parked self{&condition, deadline, 0};
  {
    const std::lock_guard clock(m_mutex);
    if (m_now >= deadline) return std::cv_status::timeout;
    self.serial = ++m_parkings;
    m_parked.push_back(&self);
    m_changed.notify_all();
  }
  condition.wait(lock);
  const std::lock_guard clock(m_mutex);
  std::erase(m_parked, &self);
  m_changed.notify_all();
  return m_now >= deadline ? std::cv_status::timeout : std::cv_status::no_timeout;
}

}  // namespace fakes

namespace platform {

Clock::time_point now() { return fakes::installed().read(); }

std::cv_status waitUntil(std::condition_variable& condition, std::unique_lock<std::mutex>& lock, Clock::time_point deadline) {
  return fakes::installed().waitUntil(condition, lock, deadline);
}

void sleepFor(std::chrono::microseconds duration) {
  std::mutex mutex;
  std::condition_variable condition;
  std::unique_lock lock(mutex);
  const auto deadline = fakes::installed().present() + duration;
  while (fakes::installed().waitUntil(condition, lock, deadline) == std::cv_status::no_timeout) continue;
}

}  // namespace platform
