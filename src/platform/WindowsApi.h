#pragma once

/// The one way in for the platform: the kernel and window services, and the runtime's bounded string functions
/// (`wcscpy_s`, `wcsncpy_s`, `wcscat_s`, `_snwprintf_s`, `_vsnwprintf_s`). API functions are called with `::`.

#if !defined(WIN32_LEAN_AND_MEAN)
#define WIN32_LEAN_AND_MEAN
#endif
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#include <windows.h>

#include <cstdarg>
#include <cstdio>
#include <cwchar>
