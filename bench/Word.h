#pragma once

#include <atomic>
#include <cstdint>

namespace bench {

/// One word by which two threads wait and wake each other with the platform's cheapest call: a futex, or `WaitOnAddress`. What
/// a hand-over between threads costs at least.
class Word {
 public:
  /// Stores `value` and wakes one thread that waits.
  void set(std::uint32_t value);
  /// Waits until the word is something else than `value`, and returns it.
  std::uint32_t waitWhile(std::uint32_t value);

 private:
  std::atomic<std::uint32_t> m_value{0};
};

}  // namespace bench
