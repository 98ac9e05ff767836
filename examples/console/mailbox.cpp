#include "console/Mailbox.h"

#include <system_error>
#include <utility>

namespace examples {

Mailbox::Mailbox() : m_changed(::CreateEventW(nullptr, FALSE, FALSE, nullptr)) {
  if (!m_changed.valid()) throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), "no event");
}

void Mailbox::put(Report report, bool isLast) {
  const std::lock_guard lock(m_mutex);
  m_state.last = std::move(report);
  m_state.isFinal = isLast;
  ::SetEvent(m_changed.get());
}

void Mailbox::close(Report report) {
  const std::lock_guard lock(m_mutex);
  m_state.last = std::move(report);
  m_state.isFinal = true;
  m_state.closed = true;
  ::SetEvent(m_changed.get());
}

Mailbox::State Mailbox::state() const {
  const std::lock_guard lock(m_mutex);
  return m_state;
}

}  // namespace examples
