#if !defined(WIN32_LEAN_AND_MEAN)
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <tlhelp32.h>

#include "support/AllThreads.h"

namespace support {

int countAllThreads() {
  const HANDLE snapshot = ::CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  if (snapshot == INVALID_HANDLE_VALUE) return -1;
  const DWORD process = ::GetCurrentProcessId();
  int count = 0;
  THREADENTRY32 entry{};
  entry.dwSize = sizeof entry;
  for (BOOL more = ::Thread32First(snapshot, &entry); more != FALSE; more = ::Thread32Next(snapshot, &entry)) {
    if (entry.th32OwnerProcessID == process) ++count;
  }
  const bool complete = ::GetLastError() == ERROR_NO_MORE_FILES;  // a list that was cut short has too few
  ::CloseHandle(snapshot);
  return complete ? count : -1;
}

}  // namespace support
