#include "fakes/Windows.h"

#include <gtest/gtest.h>

#include <atomic>

namespace fakes {
namespace {

std::atomic<Windows*> installed{nullptr};

Windows& current() {
  static Windows unscripted;
  Windows* windows = installed.load();
  return windows == nullptr ? unscripted : *windows;
}

void failUnscripted(const char* name) { ADD_FAILURE() << "unscripted call: " << name; }

}  // namespace

Windows::~Windows() = default;

Installed::Installed(Windows& windows) : m_previous(installed.exchange(&windows)) {}
Installed::~Installed() { installed.exchange(m_previous); }

// The parameters are for overriders; only a call that fails through an out parameter uses one here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-parameter"
#define FAKES_WINDOWS_CALL(result, name, parameters, arguments, failure) \
  result Windows::name parameters {                                      \
    failUnscripted(#name);                                               \
    return failure;                                                      \
  }
#include "platform/windows_calls.inc"
#undef FAKES_WINDOWS_CALL
#pragma GCC diagnostic pop

}  // namespace fakes

#define FAKES_WINDOWS_CALL(result, name, parameters, arguments, failure) \
  result name parameters { return fakes::current().name arguments; }
#include "platform/windows_calls.inc"
#undef FAKES_WINDOWS_CALL
