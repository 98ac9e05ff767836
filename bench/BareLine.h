#pragma once

#include <cstdint>

#include "platform/WindowsApi.h"

namespace bench {

/// One line to the file at `path` with the platform calls that the log makes for it, in its order, and nothing else: the line
/// is there already.
void writeBareLine(const wchar_t* path, HANDLE semaphore, const char* function, const wchar_t* line, std::uint32_t bytes);

/// The same, with the calls of the runtime that format the pieces of a line.
void formatAndWriteBareLine(const wchar_t* path, HANDLE semaphore, const char* function, const wchar_t* uid);

}  // namespace bench
