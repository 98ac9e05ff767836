#if !defined(WIN32_LEAN_AND_MEAN)
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <cstring>

#include "support/HangReport.h"

namespace support {

void prepareHangReport() {}

void reportHangAndEnd(const char* line) {
  // Not through stdio, whose lock may be what hangs.
  DWORD written = 0;
  ::WriteFile(::GetStdHandle(STD_ERROR_HANDLE), line, static_cast<DWORD>(std::strlen(line)), &written, nullptr);
  for (;;) ::TerminateProcess(::GetCurrentProcess(), 3);
}

}  // namespace support
