#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/InMemoryWindows.h"
#include "support/LogLine.h"

namespace support {

/// What the log file of an in-memory platform holds. Any thread may call; the platform outlives this object.
class LogLines {
 public:
  using Clock = fakes::InMemoryWindows::Clock;
  using Predicate = std::function<bool(const std::vector<LogLine>&)>;

  explicit LogLines(const fakes::InMemoryWindows& windows, std::wstring path = L"C:\\log\\Corvane.log");

  /// All lines so far; none when there is no file. A line that is not whole fails the running test.
  std::vector<LogLine> all() const;
  /// How many lines `function` wrote under `number` so far.
  std::size_t count(std::string_view function, int number) const;

  /// Waits until the predicate holds for the lines, tested after each write; false when `deadline` passed first.
  [[nodiscard]] bool waitFor(const Predicate& predicate, Clock::time_point deadline) const;
  /// Waits until `function` has written `count` lines under `number`.
  [[nodiscard]] bool waitFor(std::string_view function, int number, std::size_t count = 1,
                             Clock::time_point deadline = Clock::now() + std::chrono::seconds(30)) const;

 private:
  const fakes::InMemoryWindows& m_windows;
  const std::wstring m_path;
};

}  // namespace support
