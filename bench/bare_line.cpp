#include "bench/BareLine.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace bench {
namespace {

void append(const wchar_t* path, HANDLE semaphore, const wchar_t* line, std::uint32_t bytes) {
  ::WaitForSingleObject(semaphore, 2000);
  const HANDLE file = ::CreateFileW(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  ::SetFilePointer(file, 0, nullptr, FILE_END);
  DWORD written = 0;
  ::WriteFile(file, line, bytes, &written, nullptr);
  LARGE_INTEGER size{};
  ::GetFileSizeEx(file, &size);
  ::CloseHandle(file);
  ::ReleaseSemaphore(semaphore, 1, nullptr);
}

void widen(const char* function, wchar_t (&name)[128]) {
  const int length = static_cast<int>(std::strlen(function));
  const int units = ::MultiByteToWideChar(CP_ACP, 0, function, length, nullptr, 0);
  name[::MultiByteToWideChar(CP_ACP, 0, function, length, name, units)] = L'\0';
}

}  // namespace

void writeReadyLine(const wchar_t* path, HANDLE semaphore, const char* function, const wchar_t* line, std::uint32_t bytes) {
  SYSTEMTIME time{};
  ::GetLocalTime(&time);
  wchar_t name[128];
  widen(function, name);
  append(path, semaphore, line, bytes);
}

void writeBareLine(const wchar_t* path, HANDLE semaphore, const char* function, const wchar_t* uid) {
  SYSTEMTIME time{};
  ::GetLocalTime(&time);
  wchar_t name[128];
  widen(function, name);
  wchar_t line[1024];
  int end = ::_snwprintf_s(line, std::size(line), _TRUNCATE, L"%u-%02u-%02u %02u:%02u:%02u.%03u ", time.wYear, time.wMonth,
                           time.wDay, time.wHour, time.wMinute, time.wSecond, time.wMilliseconds);
  const auto piece = [&](const wchar_t* format, auto... values) {
    end += ::_snwprintf_s(line + end, std::size(line) - static_cast<std::size_t>(end), _TRUNCATE, format, values...);
  };
  piece(L"[%ws] ", L"DBG");
  piece(L"[%ws] ", name);
  piece(L"[%d] ", 163);
  piece(L"Communication end, uid: %ws, result: %d\r\n", uid, 0);
  append(path, semaphore, line, static_cast<std::uint32_t>(static_cast<std::size_t>(end) * sizeof(wchar_t)));
}

}  // namespace bench
