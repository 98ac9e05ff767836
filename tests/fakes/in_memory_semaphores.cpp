#include <algorithm>

#include "fakes/InMemoryObjects.h"

namespace fakes {

HANDLE InMemoryWindows::CreateSemaphoreW(SECURITY_ATTRIBUTES*, LONG initial, LONG maximum, LPCWSTR name) {
  std::lock_guard lock(m_mutex);
  recordLocked("CreateSemaphoreW");
  if (maximum <= 0 || initial < 0 || initial > maximum) return nullptr;
  std::shared_ptr<Semaphore> semaphore = name == nullptr ? nullptr : m_namedSemaphores[name].lock();
  if (semaphore == nullptr) {
    semaphore = std::make_shared<Semaphore>(Semaphore{initial, maximum});
    if (name != nullptr) m_namedSemaphores[name] = semaphore;
  }
  const HANDLE handle = nextHandleLocked();
  m_openSemaphores.emplace(handle, std::move(semaphore));
  return handle;
}

DWORD InMemoryWindows::WaitForSingleObject(HANDLE handle, DWORD milliseconds) {
  std::unique_lock lock(m_mutex);
  recordLocked("WaitForSingleObject");
  const auto open = m_openSemaphores.find(handle);
  if (open == m_openSemaphores.end()) return WAIT_FAILED;
  const auto semaphore = open->second;  // survives a `CloseHandle` during the wait
  const auto free = [&] { return semaphore->count > 0; };
  if (!free() && m_waitsExpire) return WAIT_TIMEOUT;
  if (milliseconds == INFINITE) {
    m_changed.wait(lock, free);
  } else if (!m_changed.wait_until(lock, Clock::now() + std::chrono::milliseconds(milliseconds), free)) {
    return WAIT_TIMEOUT;
  }
  --semaphore->count;
  return WAIT_OBJECT_0;
}

BOOL InMemoryWindows::ReleaseSemaphore(HANDLE handle, LONG count, LPLONG previous) {
  std::lock_guard lock(m_mutex);
  recordLocked("ReleaseSemaphore");
  const auto open = m_openSemaphores.find(handle);
  if (open == m_openSemaphores.end() || count <= 0) return FALSE;
  Semaphore& semaphore = *open->second;
  if (count > semaphore.maximum - semaphore.count) return FALSE;
  if (previous != nullptr) *previous = semaphore.count;
  semaphore.count += count;
  m_changed.notify_all();
  return TRUE;
}

}  // namespace fakes
