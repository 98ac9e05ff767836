/// Files and the local time, with the host's own calls. Each takes one, but for the paths, which are narrowed first.

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "bench/platform/Handles.h"
#include "platform/WindowsApi.h"

namespace {

using Path = std::array<char, 1024>;

Path narrow(LPCWSTR path) {
  Path bytes{};
  if (std::wcstombs(bytes.data(), path, bytes.size() - 1) == static_cast<std::size_t>(-1)) bytes[0] = '\0';
  return bytes;
}

}  // namespace

HANDLE CreateFileW(LPCWSTR path, DWORD /*access*/, DWORD, SECURITY_ATTRIBUTES*, DWORD /*disposition*/, DWORD, HANDLE) {
  const int file = ::open(narrow(path).data(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
  return file < 0 ? INVALID_HANDLE_VALUE : bench::handleOf(file);
}

DWORD SetFilePointer(HANDLE file, LONG distance, PLONG /*distanceHigh*/, DWORD method) {
  const int whence = method == FILE_END ? SEEK_END : method == FILE_CURRENT ? SEEK_CUR : SEEK_SET;
  return static_cast<DWORD>(::lseek(bench::descriptorOf(file), distance, whence));
}

BOOL WriteFile(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD written, OVERLAPPED*) {
  const auto done = ::write(bench::descriptorOf(file), bytes, count);
  if (done < 0) return FALSE;
  *written = static_cast<DWORD>(done);
  return TRUE;
}

BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size) {
  struct stat status {};
  if (::fstat(bench::descriptorOf(file), &status) != 0) return FALSE;
  size->QuadPart = status.st_size;
  return TRUE;
}

BOOL DeleteFileW(LPCWSTR path) { return ::unlink(narrow(path).data()) == 0 ? TRUE : FALSE; }

BOOL MoveFileW(LPCWSTR from, LPCWSTR to) {
  if (::access(narrow(to).data(), F_OK) == 0) return FALSE;
  return std::rename(narrow(from).data(), narrow(to).data()) == 0 ? TRUE : FALSE;
}

BOOL CloseHandle(HANDLE handle) {
  if (bench::isFile(handle)) return ::close(bench::descriptorOf(handle)) == 0 ? TRUE : FALSE;
  return bench::closeSemaphore(handle) ? TRUE : FALSE;
}

void GetLocalTime(SYSTEMTIME* time) {
  timeval now{};
  ::gettimeofday(&now, nullptr);
  std::tm local{};
  ::localtime_r(&now.tv_sec, &local);
  const auto word = [](auto value) { return static_cast<WORD>(value); };
  *time = {word(local.tm_year + 1900), word(local.tm_mon + 1), word(local.tm_wday), word(local.tm_mday),
           word(local.tm_hour),        word(local.tm_min),     word(local.tm_sec),  word(now.tv_usec / 1000)};
}

// The benchmarks' names are plain ASCII.
int MultiByteToWideChar(UINT, DWORD, LPCSTR source, int sourceBytes, LPWSTR target, int targetUnits) {
  if (targetUnits == 0) return sourceBytes;
  for (int index = 0; index < sourceBytes; ++index) target[index] = static_cast<unsigned char>(source[index]);
  return sourceBytes;
}
