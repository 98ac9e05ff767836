#pragma once

#include <array>
#include <chrono>
#include <string_view>

/// Ends a test program that hangs: a hang becomes a failure that names its test, not a stuck run.
///
/// A thread of its own watches from the first static constructor to the end of the process. When one step (a test with its
/// set-up and tear-down, a suite's own set-up, the start, the end) takes longer than the limit, the line
/// "hung: Suite.Name after N ms" goes to the standard error, on Linux with the stacks of all threads, and the process ends at
/// once with a failure code and without running destructors.
///
/// The limit is 60 s, twice that under a sanitizer. The environment variable APPCOMM_TEST_LIMIT_MS replaces it; 0 switches the
/// watchdog off, for work with a debugger. On Windows a hang in a DLL's own detach is out of reach, as the system has ended all
/// other threads by then: it is left to ctest's time limit.
namespace support {

using WatchdogClock = std::chrono::steady_clock;

/// The step that the program is in, and how long it may take. Not synchronised.
class WatchedStep {
 public:
  WatchedStep(std::chrono::milliseconds limit, WatchdogClock::time_point now);

  /// Begins another step, which has the whole limit. A name is cut to the room there is: nothing is allocated, as the watchdog
  /// reads it in a process whose heap may be what hangs.
  void enter(std::string_view name, WatchdogClock::time_point now);

  [[nodiscard]] bool overdue(WatchdogClock::time_point now) const { return now >= m_deadline; }
  [[nodiscard]] WatchdogClock::time_point deadline() const { return m_deadline; }
  [[nodiscard]] const char* name() const { return m_name.data(); }
  [[nodiscard]] std::chrono::milliseconds limit() const { return m_limit; }

 private:
  const std::chrono::milliseconds m_limit;
  WatchdogClock::time_point m_deadline;
  std::array<char, 200> m_name{};
};

/// Starts the watchdog. Once, from the first static constructor; before any other thread is started.
void startWatchdog();

/// The thread that runs the tests has come to another step. Before `startWatchdog` it does nothing.
void enterWatchedStep(std::string_view name);

}  // namespace support
