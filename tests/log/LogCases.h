#pragma once

#include <cstddef>
#include <string>

/// What the host and the Windows tests of the log both go through.
namespace logcases {

/// A value in the ini file and whether it switches its level on. What counts is the value as the platform hands it out.
struct Switch {
  const char* name;
  const char* value;
  bool on;
};

inline constexpr Switch kSwitches[] = {
    {"One", "1", true},
    {"TrailingBlank", "1 ", true},
    {"LeadingBlank", " 1", true},
    {"Quoted", "\"1\"", true},
    {"QuotedTrailingBlank", "\"1 \"", false},
    {"QuotedLeadingBlank", "\" 1\"", false},
    {"LeadingZero", "01", false},
    {"Ten", "10", false},
    {"TwentyOnes", "11111111111111111111", false},
    {"Zero", "0", false},
    {"Minus", "-1", false},
    {"Plus", "+1", false},
    {"True", "true", false},
    {"Yes", "yes", false},
    {"Empty", "", false},
};

/// Where the message ends in the line, in units, and whether the line is written. Up to 1023 units fit the buffer with its
/// zero.
struct End {
  std::size_t units;
  bool written;
};

inline constexpr End kEnds[] = {{39, true},    {1020, true},  {1021, true}, {1022, false},
                                {1023, false}, {1024, false}, {5000, false}};

/// A message that ends at unit `end` of a line from function "f", line 1.
inline std::wstring messageTo(std::size_t end, const std::wstring& tail = L"") {
  const std::size_t prefix = std::wstring(L"2024-03-07 09:05:03.042 [DBG] [f] [1] ").size();
  return std::wstring(end - prefix - tail.size(), L'm') + tail;
}

inline constexpr std::size_t kLargestFile = 20971520;  ///< bytes; a larger one is rotated

}  // namespace logcases
