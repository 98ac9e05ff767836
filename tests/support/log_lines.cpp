#include "support/LogLines.h"

#include <algorithm>
#include <utility>

namespace support {
namespace {

std::size_t counted(const std::vector<LogLine>& lines, std::string_view function, int number) {
  return static_cast<std::size_t>(std::count_if(
      lines.begin(), lines.end(), [&](const LogLine& line) { return line.function == function && line.number == number; }));
}

}  // namespace

LogLines::LogLines(const fakes::InMemoryWindows& windows, std::wstring path) : m_windows(windows), m_path(std::move(path)) {}

std::vector<LogLine> LogLines::all() const { return parsedLog(m_windows.fileBytes(m_path).value_or("")); }

std::size_t LogLines::count(std::string_view function, int number) const { return counted(all(), function, number); }

bool LogLines::waitFor(const Predicate& predicate, Clock::time_point deadline) const {
  for (;;) {
    const std::uint64_t seen = m_windows.writeCount();
    if (predicate(all())) return true;
    if (!m_windows.waitForWriteAfter(seen, deadline)) return false;
  }
}

bool LogLines::waitFor(std::string_view function, int number, std::size_t wanted, Clock::time_point deadline) const {
  return waitFor([&](const auto& lines) { return counted(lines, function, number) >= wanted; }, deadline);
}

}  // namespace support
