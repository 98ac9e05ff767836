#pragma once

#include <cstddef>
#include <string_view>

#include "fakes/InMemoryWindows.h"

namespace fakes {

/// The in-memory platform with one call that fails, chosen by its number. For one thread.
///
/// A failed call does nothing and returns what the platform returns for failure. Two differ: `GetLocalTime` cannot fail and is
/// not counted; a `CloseHandle` that fails has closed the handle, since its caller could not close it a second time.
class FaultyWindows : public InMemoryWindows {
 public:
  /// The `nth` call from now on fails (1: the next), once; 0: none.
  void failCall(std::size_t nth) {
    m_callsLeft = nth;
    m_failed = {};
  }
  /// The name of the call that failed since; empty when none has.
  std::string_view failedCall() const { return m_failed; }

// The parameters are for overriders; not every call uses all of them here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-parameter"
#define FAKES_WINDOWS_CALL(result, name, parameters, arguments, failure)                 \
  result name parameters override {                                                      \
    if (!failsNow(#name)) return InMemoryWindows::name arguments;                        \
    if (std::string_view(#name) == "CloseHandle") (void)InMemoryWindows::name arguments; \
    return failure;                                                                      \
  }
#include "platform/windows_calls.inc"
#undef FAKES_WINDOWS_CALL
#pragma GCC diagnostic pop

 private:
  bool failsNow(std::string_view name) {
    if (name == "GetLocalTime" || m_callsLeft == 0 || --m_callsLeft > 0) return false;
    m_failed = name;
    return true;
  }

  std::size_t m_callsLeft = 0;
  std::string_view m_failed;
};

}  // namespace fakes
