/// The host's platform for the soak: none of it is called while the log is off. A call ends the program with its name.

#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void fail(const char* name) {
  std::fprintf(stderr, "the soak calls %s, which the host does not have\n", name);
  std::abort();
}

}  // namespace

#pragma GCC diagnostic ignored "-Wunused-parameter"
#define FAKES_WINDOWS_CALL(result, name, parameters, arguments, failure) \
  result name parameters { fail(#name); }
#include "tests/fakes/platform/windows_calls.inc"
#undef FAKES_WINDOWS_CALL

int _vsnwprintf_s(wchar_t*, std::size_t, std::size_t, const wchar_t*, std::va_list) { fail("_vsnwprintf_s"); }
int _snwprintf_s(wchar_t*, std::size_t, std::size_t, const wchar_t*, ...) { fail("_snwprintf_s"); }
errno_t wcsncpy_s(wchar_t*, std::size_t, const wchar_t*, std::size_t) { fail("wcsncpy_s"); }
errno_t wcscpy_s(wchar_t*, std::size_t, const wchar_t*) { fail("wcscpy_s"); }
errno_t wcscat_s(wchar_t*, std::size_t, const wchar_t*) { fail("wcscat_s"); }
