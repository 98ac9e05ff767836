#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

#include "PrinterInfo.h"

/// Answers that no printer should give and that nobody may fall over: valid objects, hostile contents.
namespace simulator::garbage {

inline constexpr std::size_t textLength = 100'000;  // wide characters
inline constexpr std::size_t entries = 10'000;
inline constexpr std::int32_t jobs = std::numeric_limits<std::int32_t>::min();

/// Fills every state member: a very long text, one that a printf-like function would take for a format, one with line breaks
/// and a zero character, percentages out of range, more entries than any printer has.
void fillState(qzstd::PrinterInfo& printer);

}  // namespace simulator::garbage
