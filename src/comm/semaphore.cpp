#include "comm/Semaphore.h"

namespace comm {

void Semaphore::post() {
  const std::lock_guard lock(m_mutex);
  ++m_count;
  // Under the lock: the waiter may end the list, and this object with it, as soon as it can return.
  m_condition.notify_one();
}

void Semaphore::wait() {
  std::unique_lock lock(m_mutex);
  while (m_count <= 0) m_condition.wait(lock);
  --m_count;
}

}  // namespace comm
