#include "support/Watchdog.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <new>
#include <string>
#include <system_error>
#include <thread>

#include "platform/ThreadAnnotations.h"
#include "support/HangReport.h"
#include "support/ThreadCount.h"

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define UNDER_SANITIZER 1
#endif
#elif defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define UNDER_SANITIZER 1
#endif

namespace support {
namespace {

using std::chrono::milliseconds;

#if defined(UNDER_SANITIZER)
constexpr milliseconds defaultLimit = std::chrono::seconds(120);
#else
constexpr milliseconds defaultLimit = std::chrono::seconds(60);
#endif

class Watchdog {
 public:
  explicit Watchdog(milliseconds limit) : m_step(limit, WatchdogClock::now()) {}

  void enter(std::string_view name) {
    std::lock_guard lock(m_mutex);
    m_step.enter(name, WatchdogClock::now());
  }

  [[noreturn]] void run() {
    for (auto deadline = check();; deadline = check()) std::this_thread::sleep_until(deadline);
  }

 private:
  WatchdogClock::time_point check() {
    std::lock_guard lock(m_mutex);  // held for the report too: the step that hung must not move on meanwhile
    if (m_step.overdue(WatchdogClock::now())) report();
    return m_step.deadline();
  }

  [[noreturn]] void report() const REQUIRES(m_mutex) {
    std::array<char, 300> line{};
    std::snprintf(line.data(), line.size(), "hung: %s after %lld ms\n", m_step.name(),
                  static_cast<long long>(m_step.limit().count()));
    reportHangAndEnd(line.data());
  }

  std::mutex m_mutex;
  WatchedStep m_step GUARDED_BY(m_mutex);
};

// Set once, before there is a second thread. Never deleted: the watchdog outlives every static object.
Watchdog* watchdog = nullptr;

milliseconds configuredLimit() {
  const char* const text = std::getenv("APPCOMM_TEST_LIMIT_MS");
  if (text == nullptr) return defaultLimit;
  const std::string_view digits(text);
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end != digits.data() + digits.size() || value < 0) {
    std::fprintf(stderr, "APPCOMM_TEST_LIMIT_MS is \"%s\"; it takes whole milliseconds, or 0 for no limit.\n", text);
    std::_Exit(2);
  }
  return milliseconds(value);
}

}  // namespace

WatchedStep::WatchedStep(milliseconds limit, WatchdogClock::time_point now) : m_limit(limit) {
  enter("start of the program", now);
}

void WatchedStep::enter(std::string_view name, WatchdogClock::time_point now) {
  const std::size_t length = name.copy(m_name.data(), m_name.size() - 1);
  m_name[length] = '\0';
  m_deadline = now + m_limit;
}

void startWatchdog() {
  const milliseconds limit = configuredLimit();
  if (limit == milliseconds::zero()) return;
  prepareHangReport();
  watchdog = new Watchdog(limit);
  std::thread([] { watchdog->run(); }).detach();
  countThreadsFromHere();
}

void enterWatchedStep(std::string_view name) {
  if (watchdog != nullptr) watchdog->enter(name);
}

}  // namespace support
