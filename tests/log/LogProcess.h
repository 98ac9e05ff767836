#pragma once

#include "platform/WindowsApi.h"

/// The other processes of the log's Windows tests: what `log_writer.exe` does, by its first argument.
namespace logprocess {

/// NAME COUNT: waits for the start, writes the lines, ends with how many were slow.
inline constexpr const char* kWrite = "write";
/// Takes the semaphore, tells so, and keeps it until it is ended.
inline constexpr const char* kHold = "hold";

inline constexpr const wchar_t* kStartEvent = L"AppCommLogTestStart";
inline constexpr const wchar_t* kHeldEvent = L"AppCommLogTestHeld";
inline constexpr DWORD kDeadlineMs = 50000;  ///< no wait of the tests is longer
/// A line that took this long may have been written without the semaphore: the limit of the wait, 2000 ms, less what the
/// system's tick count (10 to 16 ms a step) and its timers may be short of it.
inline constexpr DWORD kSlowMs = 1900;
inline constexpr DWORD kFailed = 1000000;  ///< end code of a process that could not do its work; a crash's is larger

}  // namespace logprocess
