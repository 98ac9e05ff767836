#include "platform/WindowsApi.h"
#include "platform/Word.h"

namespace platform {

void Word::set(std::uint32_t value) {
  m_value.store(value);
  ::WakeByAddressSingle(&m_value);
}

std::uint32_t Word::waitWhile(std::uint32_t value) {
  auto now = m_value.load();
  for (; now == value; now = m_value.load()) ::WaitOnAddress(&m_value, &value, sizeof(value), INFINITE);
  return now;
}

}  // namespace platform
