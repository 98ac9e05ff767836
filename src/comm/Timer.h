#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <future>
#include <mutex>

#include "platform/ThreadAnnotations.h"

namespace comm {

class HelperThread;

/// Calls back once per period until it is stopped. `start` and `stop` are for the thread that owns the helper.
class Timer {
 public:
  using Callback = std::function<void()>;

  /// `helper` runs the timer's task; it must be free whenever `start` is called, and outlive the timer's use.
  explicit Timer(HelperThread* helper);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  /// Each `period` from now on (a deadline on the system clock, taken anew for each) calls `callback` under the timer's mutex,
  /// on the helper thread. Dropped without effect when the timer is running already. The callback is destroyed before `stop`
  /// returns. What it throws ends the task and is not reported; an empty one throws `std::bad_function_call` there. Throws what
  /// starting the helper throws, and is then not running.
  void start(std::chrono::milliseconds period, Callback callback);

  /// Ends the task and waits for it. Nothing when the timer is not running. Throws `std::future_error` (no state) when it is
  /// marked running without a task.
  void stop();

 private:
  void run(std::chrono::milliseconds period, const Callback& callback) NO_THREAD_SAFETY_ANALYSIS;  // waits with unique_lock

  std::atomic<bool> active{false};
  std::mutex m_mutex;  // guards the way from the test of `active` to the wait
  std::condition_variable m_condition;
  std::future<void> m_task;
  HelperThread* const m_helper;
};

}  // namespace comm
