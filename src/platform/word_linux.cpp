#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdint>

#include "platform/Word.h"

namespace platform {

void Word::set(std::uint32_t value) {
  m_value.store(value);
  ::syscall(SYS_futex, &m_value, FUTEX_WAKE_PRIVATE, 1, nullptr, nullptr, 0);
}

std::uint32_t Word::waitWhile(std::uint32_t value) {
  auto now = m_value.load();
  for (; now == value; now = m_value.load()) ::syscall(SYS_futex, &m_value, FUTEX_WAIT_PRIVATE, value, nullptr, nullptr, 0);
  return now;
}

}  // namespace platform
