#pragma once

#include <cstdint>

#include "platform/WindowsApi.h"

namespace bench {

/// One line to the file at `path` with the calls of the platform and of its runtime that the log makes for it, in its order,
/// and nothing else.
void writeBareLine(const wchar_t* path, HANDLE semaphore, const char* function, const wchar_t* uid);

/// The same with a text that is there already: without the calls that format its pieces.
void writeReadyLine(const wchar_t* path, HANDLE semaphore, const char* function, const wchar_t* line, std::uint32_t bytes);

}  // namespace bench
