#pragma once

#include <cstdint>

#include "platform/WindowsApi.h"

/// The diagnostic log: one line per call into a UTF-16 file that several processes share.
///
/// It is off unless the ini file switches a level on; a call then costs one AND. It never fails its caller, throws nothing and
/// allocates nothing: a line that cannot be written is lost. The three variables are written while the module is attached and
/// detached, when none of its threads log, and only read in between.

inline constexpr std::uint32_t LOG_ERROR = 1;
inline constexpr std::uint32_t LOG_WARNING = 2;
inline constexpr std::uint32_t LOG_DEBUG = 4;
inline constexpr std::uint32_t LOG_INFO = 8;

inline constexpr std::size_t LOG_PATH_UNITS = 260;  ///< MAX_PATH of the platform, terminating zero included

extern std::uint32_t g_logMask;            ///< enabled levels; 0: off
extern wchar_t g_logPath[LOG_PATH_UNITS];  ///< the current log file; all zero: off
extern HANDLE g_logSemaphore;              ///< serialises the processes; null: off, or it could not be made

/// Reads the four switches of `section` and, when one is on, takes `path` and opens the semaphore "OrvaQZ_" + `section`. Called
/// once, at attach, after the three variables were reset; the switches are not read again. `reserved` is not used. `path` ends
/// in ".log": rotated files have a number in place of its last four units. Nothing happens when `path` or `section` is null, or
/// longer than 259 and 252 UTF-16 units.
void LogInit(const wchar_t* path, int reserved, const wchar_t* section);

/// True when the value in "C:\log\orva_config.ini" is exactly "1", as the platform hands it out: without the blanks around it
/// and without one pair of quotes.
bool LogSwitchOn(const wchar_t* section, const wchar_t* key);

/// Writes one line when `level`, exactly one of the four values, is enabled. `function` is the caller's own name, cut to 127
/// units; `format` is a wide printf format with `%ws` for wide strings, `%d` for `int` and `%ld` for `long`. A line whose
/// message is empty or ends at unit 1022 or later is dropped whole. Any thread.
void WriteLog(std::uint32_t level, const char* function, std::int32_t line, const wchar_t* format, ...);

/// Appends `byteCount` bytes of a finished line to the file, and rotates the file when it has become larger than 20 MiB. Waits
/// for the semaphore, 2000 ms at most, and then goes on without it. Only for `WriteLog`.
void LogAppend(const wchar_t* buffer, std::uint32_t byteCount);
