#include "log/Log.h"

#include <cstring>
#include <iterator>

#if defined(_MSC_VER)
#define NOT_INLINED __declspec(noinline)
#define WITHOUT_STACK_PROTECTOR
#else
#define NOT_INLINED [[gnu::noinline]]
#define WITHOUT_STACK_PROTECTOR [[gnu::no_stack_protector]]
#endif

std::uint32_t g_logMask = 0;
wchar_t g_logPath[LOG_PATH_UNITS] = {};
HANDLE g_logSemaphore = nullptr;

namespace {

constexpr const wchar_t* kIniFile = L"C:\\log\\orva_config.ini";
constexpr std::size_t kIniValueUnits = 20;
constexpr const wchar_t* kSemaphorePrefix = L"OrvaQZ_";
constexpr std::size_t kSemaphorePrefixUnits = 7;
constexpr DWORD kSemaphoreWaitMs = 2000;
constexpr std::size_t kLineUnits = 1024;
constexpr std::size_t kLineEndUnits = 2;
constexpr int kNameUnits = 128;               // of a function, terminating zero included
constexpr LONGLONG kLargestFile = 0x1400000;  // bytes, 20 MiB
constexpr std::size_t kExtensionUnits = 4;    // of ".log"
constexpr std::size_t kSuffixUnits = 8;       // "10.log" and its zero
constexpr int kRotatedFiles = 10;

const wchar_t* tagOf(std::uint32_t level) {
  switch (level) {
    case LOG_ERROR:
      return L"ERR";
    case LOG_WARNING:
      return L"WRN";
    case LOG_DEBUG:
      return L"DBG";
    case LOG_INFO:
      return L"INF";
    default:
      return nullptr;
  }
}

// Appends a piece of the line and moves `pos` behind it; false when it is empty or does not fit. `_TRUNCATE`, here and below,
// because the runtime ends the process over a longer piece without it.
bool appendPiece(wchar_t* line, std::size_t& pos, const wchar_t* format, std::va_list arguments) {
  const int length = ::_vsnwprintf_s(line + pos, kLineUnits - pos, _TRUNCATE, format, arguments);
  if (length < 1) return false;
  pos += static_cast<std::size_t>(length);
  return pos < kLineUnits;
}

bool appendPrefix(wchar_t* line, std::size_t& pos, const wchar_t* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const bool appended = appendPiece(line, pos, format, arguments);
  va_end(arguments);
  return appended;
}

bool appendTime(wchar_t* line, std::size_t& pos) {
  SYSTEMTIME time{};
  ::GetLocalTime(&time);
  return appendPrefix(line, pos, L"%u-%02u-%02u %02u:%02u:%02u.%03u ", time.wYear, time.wMonth, time.wDay, time.wHour,
                      time.wMinute, time.wSecond, time.wMilliseconds);
}

// `name` comes zeroed. The length is measured, not -1: that would ask for a unit more, for the zero.
void widenFunction(const char* function, wchar_t (&name)[kNameUnits]) {
  int bytes = static_cast<int>(std::strlen(function));
  int units = ::MultiByteToWideChar(CP_ACP, 0, function, bytes, nullptr, 0);
  if (units >= kNameUnits) bytes = units = kNameUnits - 1;  // a unit comes from at least one byte
  if (units > 0) ::MultiByteToWideChar(CP_ACP, 0, function, bytes, name, units);
}

void endLine(wchar_t* line, std::size_t& end) {
  if (line[end - 2] == L'\r' && line[end - 1] == L'\n') return;
  line[end++] = L'\r';
  line[end++] = L'\n';
}

// The log path with `number` before its extension; false when it cannot be made, or is too long for a path.
bool rotatedName(int number, wchar_t (&name)[LOG_PATH_UNITS]) {
  wchar_t suffix[kSuffixUnits] = {};
  // Without it the file would go to the bare stem, which no later rotation looks at.
  if (::_snwprintf_s(suffix, std::size(suffix), _TRUNCATE, L"%d.log", number) < 1) return false;
  const std::size_t stem = std::wcslen(g_logPath) - kExtensionUnits;
  if (stem + std::wcslen(suffix) >= std::size(name)) return false;
  return ::wcsncpy_s(name, std::size(name), g_logPath, stem) == 0 && ::wcscat_s(name, std::size(name), suffix) == 0;
}

// Zero, the oldest, when it cannot be read.
std::uint64_t creationTime(const wchar_t* path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  ::GetFileAttributesExW(path, GetFileExInfoStandard, &data);
  return (std::uint64_t{data.ftCreationTime.dwHighDateTime} << 32) | data.ftCreationTime.dwLowDateTime;
}

// Under the first free number, or else in place of the oldest file. The numbers say nothing about age.
void rotate() {
  if (std::wcslen(g_logPath) < kExtensionUnits) return;
  int oldest = 0;
  std::uint64_t oldestTime = 0;
  wchar_t name[LOG_PATH_UNITS] = {};
  for (int number = 1; number <= kRotatedFiles && rotatedName(number, name); ++number) {
    if (::MoveFileW(g_logPath, name) != 0) return;
    const std::uint64_t time = creationTime(name);
    if (oldest != 0 && time >= oldestTime) continue;
    oldest = number;
    oldestTime = time;
  }
  if (oldest == 0 || !rotatedName(oldest, name)) return;
  ::DeleteFileW(name);
  ::MoveFileW(g_logPath, name);
}

// The size of the file with the line in it; 0 when the file cannot be opened. Write access and the move to the end are the
// contract: with append access alone, the moment of the append would be the system's.
LONGLONG appendToFile(const wchar_t* buffer, std::uint32_t byteCount) {
  const HANDLE file = ::CreateFileW(g_logPath, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 0;
  // Where the end cannot be reached the line is lost: written at the start of the file, it would destroy others.
  DWORD written = 0;
  if (::SetFilePointer(file, 0, nullptr, FILE_END) != INVALID_SET_FILE_POINTER) {
    ::WriteFile(file, buffer, byteCount, &written, nullptr);
  }
  LARGE_INTEGER size{};
  ::GetFileSizeEx(file, &size);
  ::CloseHandle(file);
  return size.QuadPart;
}

// Inlined into WriteLog, a call that is switched off would touch the far end of a frame with room for a line, and so keep up
// to two more pages of each thread's stack in memory.
NOT_INLINED void writeLine(std::uint32_t level, const char* function, std::int32_t line, const wchar_t* format,
                           std::va_list arguments) {
  wchar_t buffer[kLineUnits];
  std::size_t end = 0;
  if (!appendTime(buffer, end)) return;
  const wchar_t* tag = tagOf(level);
  if (tag == nullptr || !appendPrefix(buffer, end, L"[%ws] ", tag)) return;
  wchar_t name[kNameUnits] = {};
  widenFunction(function, name);
  if (!appendPrefix(buffer, end, L"[%ws] ", name) || !appendPrefix(buffer, end, L"[%d] ", line)) return;

  // Dropped even when it brings its own line end: what counts is where the message ends.
  if (!appendPiece(buffer, end, format, arguments) || end >= kLineUnits - kLineEndUnits) return;
  endLine(buffer, end);
  LogAppend(buffer, static_cast<std::uint32_t>(end * sizeof(wchar_t)));
}

}  // namespace

bool LogSwitchOn(const wchar_t* section, const wchar_t* key) {
  wchar_t value[kIniValueUnits] = {};
  ::GetPrivateProfileStringW(section, key, nullptr, value, static_cast<DWORD>(std::size(value)), kIniFile);
  return std::wcscmp(value, L"1") == 0;
}

void LogInit(const wchar_t* path, int /*reserved*/, const wchar_t* section) {
  if (path == nullptr || section == nullptr) return;
  wchar_t name[LOG_PATH_UNITS] = {};
  // Longer ones would make the bounded copies below end the process.
  if (std::wcslen(path) >= std::size(g_logPath) || kSemaphorePrefixUnits + std::wcslen(section) >= std::size(name)) return;

  if (LogSwitchOn(section, L"Error")) g_logMask |= LOG_ERROR;
  if (LogSwitchOn(section, L"Warning")) g_logMask |= LOG_WARNING;
  if (LogSwitchOn(section, L"Debug")) g_logMask |= LOG_DEBUG;
  if (LogSwitchOn(section, L"Info")) g_logMask |= LOG_INFO;
  if (g_logMask == 0) return;

  ::wcscpy_s(g_logPath, std::size(g_logPath), path);
  ::wcscpy_s(name, std::size(name), kSemaphorePrefix);
  ::wcscat_s(name, std::size(name), section);
  g_logSemaphore = ::CreateSemaphoreW(nullptr, 1, 1, name);
}

// It has no array, only the address of its arguments: a guard would be all that a call costs that is switched off.
WITHOUT_STACK_PROTECTOR void WriteLog(std::uint32_t level, const char* function, std::int32_t line, const wchar_t* format,
                                      ...) {
  if ((level & g_logMask) == 0) return;
  std::va_list arguments;
  va_start(arguments, format);
  writeLine(level, function, line, format, arguments);
  va_end(arguments);
}

void LogAppend(const wchar_t* buffer, std::uint32_t byteCount) {
  // Not granted in time: another process was lost while it wrote, or hangs. The line is worth more than its neighbour.
  if (g_logSemaphore != nullptr) ::WaitForSingleObject(g_logSemaphore, kSemaphoreWaitMs);
  if (appendToFile(buffer, byteCount) > kLargestFile) rotate();
  if (g_logSemaphore != nullptr) ::ReleaseSemaphore(g_logSemaphore, 1, nullptr);
}
