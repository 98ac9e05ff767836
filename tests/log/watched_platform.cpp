#include "log/WatchedPlatform.h"

#include <algorithm>

namespace logwriter {
namespace {

WriterLedger* g_ledger = nullptr;
HANDLE g_progress = nullptr;
std::uint32_t g_line = 0;  // 0: between two lines
std::uint32_t g_waits = 0;
ULONGLONG g_begin = 0;

template <class Function>
Function* platformFunction(const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"kernel32.dll"), name)));
}

/// The functions themselves. Looked up at the first call, which may come from a static constructor.
struct Platform {
  decltype(&::WaitForSingleObject) waitForSingleObject =
      platformFunction<decltype(::WaitForSingleObject)>("WaitForSingleObject");
  decltype(&::CreateFileW) createFile = platformFunction<decltype(::CreateFileW)>("CreateFileW");
  decltype(&::WriteFile) writeFile = platformFunction<decltype(::WriteFile)>("WriteFile");
  decltype(&::CloseHandle) closeHandle = platformFunction<decltype(::CloseHandle)>("CloseHandle");
  decltype(&::MoveFileW) moveFile = platformFunction<decltype(::MoveFileW)>("MoveFileW");
  decltype(&::ReleaseSemaphore) releaseSemaphore = platformFunction<decltype(::ReleaseSemaphore)>("ReleaseSemaphore");
};

const Platform& platform() {
  static const Platform functions;
  return functions;
}

bool isDueAt(Moment moment) { return g_line != 0 && g_ledger->standStill == moment; }

void standStillAt(Moment moment) {
  if (!isDueAt(moment)) return;
  g_ledger->standsStill = true;
  ::SetEvent(g_progress);
  platform().waitForSingleObject(::GetCurrentProcess(), kDeadlineMs);  // which ends by being killed
}

void note(Trouble trouble) {
  if (g_line != 0) g_ledger->trouble[g_line] |= trouble;
}

DWORD WINAPI watchedWait(HANDLE object, DWORD limitMs) {
  standStillAt(Moment::BeforeWait);
  const DWORD result = platform().waitForSingleObject(object, limitMs);
  if (g_line == 0) return result;
  if (result != WAIT_OBJECT_0) note(kTimedOut);
  g_ledger->mostWaits = std::max<std::uint32_t>(g_ledger->mostWaits, ++g_waits);
  g_ledger->longestWaitMs = std::max<std::uint32_t>(g_ledger->longestWaitMs, limitMs);
  return result;
}

HANDLE WINAPI watchedCreateFile(const wchar_t* path, DWORD access, DWORD sharing, SECURITY_ATTRIBUTES* security,
                                DWORD disposition, DWORD attributes, HANDLE like) {
  standStillAt(Moment::BeforeOpen);
  const HANDLE file = platform().createFile(path, access, sharing, security, disposition, attributes, like);
  if (file == INVALID_HANDLE_VALUE) note(kNotOpened);
  return file;
}

BOOL WINAPI watchedWriteFile(HANDLE file, const void* bytes, DWORD count, DWORD* written, OVERLAPPED* overlapped) {
  if (isDueAt(Moment::HalfWritten)) {
    platform().writeFile(file, bytes, count / 2 | 1, written, overlapped);  // in the middle of a unit
    standStillAt(Moment::HalfWritten);
  }
  const BOOL result = platform().writeFile(file, bytes, count, written, overlapped);
  if (result == 0 || *written != count) note(kShort);
  return result;
}

BOOL WINAPI watchedCloseHandle(HANDLE handle) {
  standStillAt(Moment::BeforeClose);
  return platform().closeHandle(handle);
}

BOOL WINAPI watchedMoveFile(const wchar_t* from, const wchar_t* to) {
  standStillAt(Moment::BeforeMove);
  return platform().moveFile(from, to);
}

BOOL WINAPI watchedRelease(HANDLE semaphore, LONG count, LONG* previous) {
  standStillAt(Moment::BeforeRelease);
  return platform().releaseSemaphore(semaphore, count, previous);
}

}  // namespace

// The pointers through which this program calls the platform, in place of the import library's.
#define REPLACE_IMPORT(function, replacement)                                         \
  extern const decltype(&::function) replacement##Import __asm__("__imp_" #function); \
  constinit const decltype(&::function) replacement##Import = &(replacement)

REPLACE_IMPORT(WaitForSingleObject, watchedWait);
REPLACE_IMPORT(CreateFileW, watchedCreateFile);
REPLACE_IMPORT(WriteFile, watchedWriteFile);
REPLACE_IMPORT(CloseHandle, watchedCloseHandle);
REPLACE_IMPORT(MoveFileW, watchedMoveFile);
REPLACE_IMPORT(ReleaseSemaphore, watchedRelease);

void watchLines(WriterLedger& ledger, HANDLE progress) {
  g_ledger = &ledger;
  g_progress = progress;
}

void beginLine(std::uint32_t number) {
  g_waits = 0;
  g_begin = ::GetTickCount64();
  g_line = number;
  g_ledger->begun = number;
}

void endLine() {
  g_ledger->completed = g_line;
  g_line = 0;
  g_ledger->longestLineMs = std::max<std::uint64_t>(g_ledger->longestLineMs, ::GetTickCount64() - g_begin);
  ::SetEvent(g_progress);
}

}  // namespace logwriter
