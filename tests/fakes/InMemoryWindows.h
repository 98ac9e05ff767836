#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/Windows.h"

namespace fakes {

/// A platform that lives in memory: folders and files with share modes and times, ini files, named semaphores, a local time
/// that stands still. A test makes one call fail by overriding it in a derived class, which may call this one's function.
///
/// Any thread may call. Paths and ini names are compared without regard to case. Window functions stay unscripted.
class InMemoryWindows : public Windows {
 public:
  using Clock = std::chrono::steady_clock;

  InMemoryWindows();
  ~InMemoryWindows() override;

  // What a test arranges.
  void makeFolder(const std::wstring& path);
  /// The folder and all files in it vanish; handles open on them stay usable.
  void removeFolder(const std::wstring& path);
  /// Makes or replaces a file; the folder must exist. An ini file is such a file, in the ANSI code page.
  void writeFile(const std::wstring& path, std::string bytes);
  void setCreationTime(const std::wstring& path, std::uint64_t time);
  void setWriteTime(const std::wstring& path, std::uint64_t time);
  void setLocalTime(const SYSTEMTIME& time);
  void setTickCount(std::uint64_t milliseconds);
  /// From now on a wait that is not granted at once has timed out at once.
  void expireWaits();
  /// From now on `listener` is run at the end of each `WriteFile` that wrote, on the writing thread: the bytes are in the file,
  /// the call has not returned. No lock of this object is held, so the listener may call it. Null: nobody listens.
  void listenToWrites(std::function<void()> listener);

  // What a test looks at.
  bool exists(const std::wstring& path) const;
  std::optional<std::string> fileBytes(const std::wstring& path) const;
  std::vector<std::wstring> filesIn(const std::wstring& folder) const;  ///< names without the folder, sorted
  std::optional<LONG> semaphoreCount(const std::wstring& name) const;   ///< none when no handle is open on it
  std::size_t openFileHandles() const;
  std::size_t openSemaphoreHandles() const;
  /// The names of all calls so far, in order.
  std::vector<std::string_view> calls() const;
  std::size_t countCalls(std::string_view name) const;
  /// How many `WriteFile` calls have been made.
  std::uint64_t writeCount() const;

  // What a test waits for; false when `deadline` passed first.
  bool waitForWriteAfter(std::uint64_t writeCount, Clock::time_point deadline) const;
  /// No file is open and no semaphore is taken.
  bool waitUntilIdle(Clock::time_point deadline) const;

  BOOL DisableThreadLibraryCalls(HMODULE module) override;
  ULONGLONG GetTickCount64() override;
  void GetLocalTime(SYSTEMTIME* time) override;
  DWORD GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR fallback, LPWSTR buffer, DWORD size,
                                 LPCWSTR file) override;
  /// One unit per byte, as in Latin-1.
  int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR source, int sourceBytes, LPWSTR target, int targetUnits) override;
  HANDLE CreateSemaphoreW(SECURITY_ATTRIBUTES* security, LONG initial, LONG maximum, LPCWSTR name) override;
  DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds) override;
  BOOL ReleaseSemaphore(HANDLE handle, LONG count, LPLONG previous) override;
  HANDLE CreateFileW(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security, DWORD disposition,
                     DWORD attributes, HANDLE pattern) override;
  DWORD SetFilePointer(HANDLE file, LONG distance, PLONG distanceHigh, DWORD method) override;
  BOOL WriteFile(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD written, OVERLAPPED* overlapped) override;
  BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size) override;
  BOOL GetFileAttributesExW(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data) override;
  BOOL MoveFileW(LPCWSTR from, LPCWSTR to) override;
  BOOL DeleteFileW(LPCWSTR path) override;
  BOOL CloseHandle(HANDLE handle) override;

 private:
  struct File;
  struct Semaphore;
  struct OpenFile;

  std::uint64_t nextTimeLocked();
  void recordLocked(std::string_view call) { m_calls.push_back(call); }
  HANDLE nextHandleLocked();
  bool folderOfExistsLocked(const std::wstring& key) const;
  std::shared_ptr<File> findFileLocked(const std::wstring& key) const;
  std::shared_ptr<File> openedFileLocked(const std::wstring& key, DWORD disposition);
  bool shareAllowsLocked(const File& file, DWORD access, DWORD share) const;
  bool isOpenLocked(const File& file) const;
  bool writeLocked(HANDLE handle, std::string_view bytes);
  bool isIdleLocked() const;

  mutable std::mutex m_mutex;  // guards all below
  mutable std::condition_variable m_changed;
  std::set<std::wstring> m_folders;
  std::map<std::wstring, std::shared_ptr<File>> m_files;
  std::map<std::wstring, std::weak_ptr<Semaphore>> m_namedSemaphores;
  std::map<HANDLE, OpenFile> m_openFiles;
  std::map<HANDLE, std::shared_ptr<Semaphore>> m_openSemaphores;
  std::vector<std::string_view> m_calls;
  std::uintptr_t m_lastHandle = 0;
  std::uint64_t m_time = 0;
  std::uint64_t m_writes = 0;
  std::uint64_t m_tickCount = 0;
  SYSTEMTIME m_localTime;
  bool m_waitsExpire = false;
  std::function<void()> m_writeListener;
};

}  // namespace fakes
