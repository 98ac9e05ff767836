#pragma once

#include <atomic>
#include <cstdint>

namespace platform {

/// One word through which two threads wait for each other, by the platform's own call for it: `WaitOnAddress`, or a futex on
/// the host. A mutex with a condition variable does the same at several times the price, most of all where the C++ library
/// builds them upon other objects of the system.
///
/// Any thread may call; what was written before `set` is seen after a wait that it ended. The word outlives every call.
class Word {
 public:
  /// Stores `value` and wakes one thread that waits.
  void set(std::uint32_t value);
  /// Waits until the word is something else than `value`, and returns it. At once, when it is so already.
  std::uint32_t waitWhile(std::uint32_t value);

 private:
  std::atomic<std::uint32_t> m_value{0};
};

}  // namespace platform
