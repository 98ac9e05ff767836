#pragma once

namespace fakes {

/// While one lives, no thread of the process can be started: the system answers EAGAIN, and `std::thread` throws
/// `std::system_error` with `std::errc::resource_unavailable_try_again`. Host only; any thread may make one, several may live.
class ThreadStartFault {
 public:
  ThreadStartFault();
  ~ThreadStartFault();
  ThreadStartFault(const ThreadStartFault&) = delete;
  ThreadStartFault& operator=(const ThreadStartFault&) = delete;
};

}  // namespace fakes
