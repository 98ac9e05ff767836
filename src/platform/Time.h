#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

/// Everything the module knows of time. A test links another definition of these three functions and drives them.
namespace platform {

using Clock = std::chrono::system_clock;

/// The system clock. It may step, back as well.
Clock::time_point now();

/// Waits on `condition` until it is notified or `deadline` has passed; spurious wake-ups count as notified.
std::cv_status waitUntil(std::condition_variable& condition, std::unique_lock<std::mutex>& lock, Clock::time_point deadline);

/// Sleeps at least `duration`. Any positive time is rounded up to whole milliseconds, the platform's shortest tick: a loop of
/// shorter sleeps would otherwise only yield, and hammer a printer.
void sleepFor(std::chrono::microseconds duration);

}  // namespace platform
