#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// The numbered lines of the writing processes, found in the bytes of log files.
struct WrittenLines {
  std::map<std::wstring, std::vector<std::uint32_t>> numbers;  ///< of each writer, in file order
  std::vector<std::string> damaged;                            ///< stretches of bytes that are no whole line

  /// Files come in the order in which they were written. A line's end may come at an odd byte, after half a unit.
  void add(std::string_view bytes);

  /// Whether `bytes` could be the beginning of the writer's line `number`, short of its end. Nothing is one as well.
  static bool isBeginning(std::string_view bytes, const std::wstring& writer, std::uint32_t number);
};
