/// A platform for host programs that need none of it, or little: every call ends the process with its name. What a program does
/// need it defines elsewhere, in place of the weak definition here.

#include <windows.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#define APPCOMM_WEAK __attribute__((weak))

namespace {

[[noreturn]] void fail(const char* name) {
  std::fprintf(stderr, "this program calls %s, which its platform does not have\n", name);
  std::abort();
}

}  // namespace

#pragma GCC diagnostic ignored "-Wunused-parameter"
#define FAKES_WINDOWS_CALL(result, name, parameters, arguments, failure) \
  APPCOMM_WEAK result name parameters { fail(#name); }
#include "tests/fakes/platform/windows_calls.inc"
#undef FAKES_WINDOWS_CALL

APPCOMM_WEAK int _vsnwprintf_s(wchar_t*, std::size_t, std::size_t, const wchar_t*, std::va_list) { fail("_vsnwprintf_s"); }
APPCOMM_WEAK int _snwprintf_s(wchar_t*, std::size_t, std::size_t, const wchar_t*, ...) { fail("_snwprintf_s"); }
APPCOMM_WEAK errno_t wcsncpy_s(wchar_t*, std::size_t, const wchar_t*, std::size_t) { fail("wcsncpy_s"); }
APPCOMM_WEAK errno_t wcscpy_s(wchar_t*, std::size_t, const wchar_t*) { fail("wcscpy_s"); }
APPCOMM_WEAK errno_t wcscat_s(wchar_t*, std::size_t, const wchar_t*) { fail("wcscat_s"); }
