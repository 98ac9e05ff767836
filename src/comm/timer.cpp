#include "comm/Timer.h"

#include <utility>

#include "comm/HelperThread.h"
#include "platform/Time.h"

namespace comm {

Timer::Timer(HelperThread* helper) : m_helper(helper) {}

// NOLINTNEXTLINE(bugprone-exception-escape): a timer that is active without a task is a defect, and ends the process
Timer::~Timer() { stop(); }

void Timer::start(std::chrono::milliseconds period, Callback callback) {
  if (active.exchange(true)) return;
  try {
    m_task = m_helper->launch([this, period, callback = std::move(callback)] { run(period, callback); });
  } catch (...) {
    active.exchange(false);  // or the next stop would wait for a task that never was
    throw;
  }
}

void Timer::stop() {
  if (!active.load()) return;
  {
    const std::lock_guard lock(m_mutex);
    active.exchange(false);
  }
  m_condition.notify_one();
  if (!m_task.valid()) throw std::future_error(std::future_errc::no_state);
  m_task.wait();  // not get: what the callback threw stays in the future
}

void Timer::run(std::chrono::milliseconds period, const Callback& callback) {
  while (active.load()) {
    std::unique_lock lock(m_mutex);
    // Again, now that stop cannot come in between: its notice would be over before the wait begins, and the wait then lasts.
    if (!active.load()) return;
    const auto deadline = platform::now() + period;
    // The callback runs under the mutex: once stop has it, no callback is under way or follows.
    if (platform::waitUntil(m_condition, lock, deadline) == std::cv_status::timeout) callback();
  }
}

}  // namespace comm
