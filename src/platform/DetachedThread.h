#pragma once

#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace platform {

/// Starts `work` on a thread that nobody joins. Throws `std::system_error` when there is none to be had; nothing has run then.
///
/// The work begins when the thread has been detached, not before. With the threads of mingw-w64 (g++ 12) a thread that ended
/// while it was being detached took the process down, or `detach` threw: seen under Wine once in some ten thousand starts.
template <class Work>
void startDetached(Work work) {
  const auto gate = std::make_shared<std::mutex>();
  const std::lock_guard detaching(*gate);
  std::thread([gate, work = std::move(work)]() mutable {
    { const std::lock_guard detached(*gate); }
    work();
  }).detach();
}

}  // namespace platform
