// What the compiler's stack protector refers to, for mingw-w64. The runtime library that comes with the compiler would do too,
// but it asks a crypto provider while the loader's lock is held, and it ends the process by an exception that a handler may
// take.

#include <cstdint>

#include "platform/WindowsApi.h"

extern "C" {

extern std::uintptr_t __stack_chk_guard;
[[noreturn]] void __stack_chk_fail();

// What lies between a function's arrays and its return address. The value holds for the moments before the constructor below.
std::uintptr_t __stack_chk_guard = 0x5F8B36D2E41A0000;

// The stack cannot be trusted any more: the kernel ends the process, no handler is asked. The report is the exit code,
// STATUS_STACK_BUFFER_OVERRUN.
void __stack_chk_fail() {
  asm volatile("int $0x29" : : "c"(FAST_FAIL_STACK_COOKIE_CHECK_FAILURE));
  __builtin_unreachable();
}
}

namespace {

std::uint64_t mixed(std::uint64_t value) {
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EB;
  return value ^ (value >> 31);
}

// Another guard in every process. The last two bytes stay zero: no text, narrow or wide, that runs over its array writes the
// guard as it was. Before all other constructors; this file is compiled without the protector, for the guard changes in here.
[[gnu::constructor(101)]] void chooseGuard() {
  FILETIME time{};
  ::GetSystemTimeAsFileTime(&time);
  LARGE_INTEGER counter{};
  ::QueryPerformanceCounter(&counter);
  std::uint64_t guard = (std::uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime;
  guard = mixed(guard ^ static_cast<std::uint64_t>(counter.QuadPart));
  guard = mixed(guard ^ (std::uint64_t{::GetCurrentProcessId()} << 32) ^ ::GetCurrentThreadId());
  guard = mixed(guard ^ reinterpret_cast<std::uintptr_t>(&time));
  __stack_chk_guard = guard & ~std::uint64_t{0xFFFF};
}

}  // namespace
