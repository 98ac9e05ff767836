#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace support {

/// One line of the log, taken apart.
struct LogLine {
  std::string time;  ///< "2024-03-07 09:05:03.042"
  std::string tag;   ///< "ERR", "WRN", "DBG" or "INF"
  std::string function;
  int number = 0;
  std::wstring message;  ///< without the line end
};

/// The text of a log file as units; fails the running test when the bytes end within a unit.
std::wstring decodedUnits(const std::string& bytes);

/// A log file's lines. One that is not whole fails the running test and ends them.
std::vector<LogLine> parsedLog(const std::string& bytes);

/// For the messages of failed assertions.
void PrintTo(const LogLine& line, std::ostream* out);

}  // namespace support
