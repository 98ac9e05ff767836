/// The module's time with a count of its timed waits, in place of the real one.

#include "bench/WaitCount.h"

#include <atomic>
#include <cstdlib>

#include "platform/Time.h"
#include "platform/Word.h"

namespace {

constexpr std::uint32_t kNotYet = 0;
constexpr std::uint32_t kCounted = 1;

std::atomic<std::uint64_t> g_waits{0};
std::atomic<bool> g_awaited{false};
platform::Word g_counted;

}  // namespace

std::uint64_t bench::waitCount() { return g_waits.load(); }

void bench::countWait() {
  ++g_waits;
  if (g_awaited.load() && g_awaited.exchange(false)) g_counted.set(kCounted);
}

void bench::awaitCountOtherThan(std::uint64_t count) {
  while (waitCount() == count) {
    g_counted.set(kNotYet);
    g_awaited.store(true);
    if (waitCount() == count) g_counted.waitWhile(kNotYet);
    g_awaited.store(false);
  }
}

namespace platform {

Clock::time_point now() { return Clock::now(); }

std::cv_status waitUntil(std::condition_variable& condition, std::unique_lock<std::mutex>& lock, Clock::time_point deadline) {
  bench::countWait();
  return condition.wait_until(lock, deadline);
}

// Only operations sleep, and none is run beside this.
void sleepFor(std::chrono::microseconds /*duration*/) { std::abort(); }

}  // namespace platform
