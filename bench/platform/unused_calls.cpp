/// The host's platform for the benchmarks. What no benchmark needs ends the process with its name; what one does is defined,
/// with the host's own calls, in the files beside this one, and takes the place of the weak definition here.

#include <cstdio>
#include <cstdlib>

#include "platform/WindowsApi.h"

namespace {

[[noreturn]] void fail(const char* name) {
  std::fprintf(stderr, "this benchmark calls %s, which bench/platform does not have\n", name);
  std::abort();
}

}  // namespace

#pragma GCC diagnostic ignored "-Wunused-parameter"
#define FAKES_WINDOWS_CALL(result, name, parameters, arguments, failure) \
  __attribute__((weak)) result name parameters { fail(#name); }
#include "tests/fakes/platform/windows_calls.inc"
#undef FAKES_WINDOWS_CALL
