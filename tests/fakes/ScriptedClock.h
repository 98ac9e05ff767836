#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <vector>

#include "platform/Time.h"

namespace fakes {

/// The clock that `platform::now`, `waitUntil` and `sleepFor` use in tests that link it: time stands still until the test moves
/// it, and the clock knows which threads are parked on it.
///
/// One at a time; the whole test runs under it. A test moves time only when all threads that should be parked are: it waits
/// for that with `awaitParkings`, or it waits for the event that precedes the parking (a log line, say) and then for
/// `awaitParked`. A waiting that lasts longer than `kPatience` of real time is a failure of the test.
class ScriptedClock {
 public:
  using TimePoint = platform::Clock::time_point;
  static constexpr std::chrono::seconds kPatience{20};

  ScriptedClock();
  ~ScriptedClock();
  ScriptedClock(const ScriptedClock&) = delete;
  ScriptedClock& operator=(const ScriptedClock&) = delete;

  /// Moves time on and lets every thread go whose deadline is reached; returns when they have gone.
  void advance(std::chrono::microseconds by);
  /// Puts the clock back, as an administrator or a time server may.
  void stepBack(std::chrono::microseconds by);

  /// Wakes every parked thread without a time-out, as a notice for another reason does; returns when they have gone.
  void wakeParked();

  /// Waits until exactly `count` threads are parked.
  void awaitParked(std::size_t count);
  /// Waits until threads have parked `count` times in all.
  void awaitParkings(std::size_t count);
  std::size_t parkings();

  /// At the `nth` reading of the clock from now on (1: the next), `action` runs on the reading thread before it is answered.
  void atReading(std::size_t nth, std::function<void()> action);

  // What the seam calls.
  TimePoint read();
  TimePoint present();  // without counting as a reading
  std::cv_status waitUntil(std::condition_variable& condition, std::unique_lock<std::mutex>& lock, TimePoint deadline);

 private:
  struct Parked {
    std::condition_variable* condition;
    TimePoint deadline;
    std::size_t serial;  // of all parkings, from 1
  };

  // Wakes the threads for which this is true until they have gone.
  void release(std::unique_lock<std::mutex>& lock, const std::function<bool(const Parked&)>& chosen);

  std::mutex m_mutex;
  std::condition_variable m_changed;
  TimePoint m_now;
  std::vector<const Parked*> m_parked;
  std::size_t m_parkings = 0;
  std::size_t m_readingsToAction = 0;  // 0: none is due
  std::function<void()> m_action;
};

}  // namespace fakes
