#pragma once

#include <cstdint>

namespace bench {

extern std::uint32_t g_bareMask;  ///< 0

/// The least that a log call with levels can be: a variadic function that looks at a mask first.
void bareCall(std::uint32_t level, const char* function, std::int32_t line, const wchar_t* format, ...);

}  // namespace bench
