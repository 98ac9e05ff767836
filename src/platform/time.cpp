#include "platform/Time.h"

#include <thread>

namespace platform {

Clock::time_point now() { return Clock::now(); }

std::cv_status waitUntil(std::condition_variable& condition, std::unique_lock<std::mutex>& lock, Clock::time_point deadline) {
  return condition.wait_until(lock, deadline);
}

void sleepFor(std::chrono::microseconds duration) {
  using Steady = std::chrono::steady_clock;
  using std::chrono::milliseconds;
  if (duration.count() <= 0) return;
  const auto deadline = Steady::now() + std::chrono::ceil<milliseconds>(duration);
  // In a loop: the platform's sleep was seen to come back up to 0.9 ms early.
  for (auto left = deadline - Steady::now(); left.count() > 0; left = deadline - Steady::now()) {
    std::this_thread::sleep_for(std::chrono::ceil<milliseconds>(left));
  }
}

}  // namespace platform
