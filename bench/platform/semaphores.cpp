/// Named semaphores that processes share.

#include <fcntl.h>
#include <semaphore.h>

#include <array>
#include <cstdlib>
#include <ctime>

#include "bench/platform/Handles.h"
#include "platform/WindowsApi.h"

namespace bench {

bool closeSemaphore(HANDLE handle) { return ::sem_close(static_cast<sem_t*>(handle)) == 0; }

}  // namespace bench

// Unlinked at once: no run meets one that a killed run has left taken.
HANDLE CreateSemaphoreW(SECURITY_ATTRIBUTES*, LONG initial, LONG /*maximum*/, LPCWSTR name) {
  std::array<char, 256> bytes{'/'};
  std::wcstombs(bytes.data() + 1, name, bytes.size() - 2);
  sem_t* semaphore = ::sem_open(bytes.data(), O_CREAT, 0600, static_cast<unsigned>(initial));
  if (semaphore == SEM_FAILED) return nullptr;
  ::sem_unlink(bytes.data());
  return semaphore;
}

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds) {
  timespec deadline{};
  ::clock_gettime(CLOCK_REALTIME, &deadline);
  deadline.tv_sec += milliseconds / 1000;
  return ::sem_timedwait(static_cast<sem_t*>(handle), &deadline) == 0 ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}

BOOL ReleaseSemaphore(HANDLE handle, LONG /*count*/, LPLONG) {
  return ::sem_post(static_cast<sem_t*>(handle)) == 0 ? TRUE : FALSE;
}
