#pragma once

#include <windows.h>

/// The platform as one object: a test overrides the calls that it expects.
namespace fakes {

/// One virtual per platform function, of the same name. Each default fails the running test with "unscripted call: NAME" and
/// returns what the platform returns for a failed call.
///
/// Any thread may call. An installed object outlives every thread that may still call the platform.
class Windows {
 public:
  Windows() = default;
  virtual ~Windows();
  Windows(const Windows&) = delete;
  Windows& operator=(const Windows&) = delete;

#define FAKES_WINDOWS_CALL(result, name, parameters, arguments, failure) virtual result name parameters;
#include "platform/windows_calls.inc"
#undef FAKES_WINDOWS_CALL
};

/// Makes one object the platform until the end of the scope, then the previous one again. While none is installed, every call
/// is unscripted.
class Installed {
 public:
  explicit Installed(Windows& windows);
  ~Installed();
  Installed(const Installed&) = delete;
  Installed& operator=(const Installed&) = delete;

 private:
  Windows* const m_previous;
};

}  // namespace fakes
