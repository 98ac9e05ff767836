#include "fakes/InMemoryWindows.h"

#include <algorithm>
#include <utility>

#include "fakes/InMemoryObjects.h"
#include "fakes/IniText.h"

/// What is neither a file nor a semaphore, and what tests arrange and look at.
namespace fakes {

InMemoryWindows::InMemoryWindows() : m_localTime{2024, 3, 4, 7, 9, 5, 3, 42} {}
InMemoryWindows::~InMemoryWindows() = default;

void InMemoryWindows::makeFolder(const std::wstring& path) {
  std::lock_guard lock(m_mutex);
  m_folders.insert(withoutCase(path));
}

void InMemoryWindows::removeFolder(const std::wstring& path) {
  std::lock_guard lock(m_mutex);
  m_folders.erase(withoutCase(path));
  const std::wstring prefix = withoutCase(path) + L'\\';
  std::erase_if(m_files, [&](const auto& file) { return file.first.starts_with(prefix); });
}

void InMemoryWindows::writeFile(const std::wstring& path, std::string bytes) {
  std::lock_guard lock(m_mutex);
  const std::uint64_t time = nextTimeLocked();
  m_files[withoutCase(path)] = std::make_shared<File>(File{path, std::move(bytes), time, time});
}

void InMemoryWindows::setCreationTime(const std::wstring& path, std::uint64_t time) {
  std::lock_guard lock(m_mutex);
  m_files.at(withoutCase(path))->creationTime = time;
}

void InMemoryWindows::setWriteTime(const std::wstring& path, std::uint64_t time) {
  std::lock_guard lock(m_mutex);
  m_files.at(withoutCase(path))->writeTime = time;
}

void InMemoryWindows::setLocalTime(const SYSTEMTIME& time) {
  std::lock_guard lock(m_mutex);
  m_localTime = time;
}

void InMemoryWindows::setTickCount(std::uint64_t milliseconds) {
  std::lock_guard lock(m_mutex);
  m_tickCount = milliseconds;
}

void InMemoryWindows::expireWaits() {
  std::lock_guard lock(m_mutex);
  m_waitsExpire = true;
}

void InMemoryWindows::listenToWrites(std::function<void()> listener) {
  std::lock_guard lock(m_mutex);
  m_writeListener = std::move(listener);
}

bool InMemoryWindows::exists(const std::wstring& path) const {
  std::lock_guard lock(m_mutex);
  return findFileLocked(withoutCase(path)) != nullptr;
}

std::optional<std::string> InMemoryWindows::fileBytes(const std::wstring& path) const {
  std::lock_guard lock(m_mutex);
  const auto file = findFileLocked(withoutCase(path));
  return file == nullptr ? std::nullopt : std::optional(file->bytes);
}

std::vector<std::wstring> InMemoryWindows::filesIn(const std::wstring& folder) const {
  std::lock_guard lock(m_mutex);
  const std::wstring prefix = withoutCase(folder) + L'\\';
  std::vector<std::wstring> names;
  for (const auto& [key, file] : m_files) {
    if (key.starts_with(prefix)) names.push_back(file->path.substr(prefix.size()));
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::optional<LONG> InMemoryWindows::semaphoreCount(const std::wstring& name) const {
  std::lock_guard lock(m_mutex);
  const auto found = m_namedSemaphores.find(name);
  const auto semaphore = found == m_namedSemaphores.end() ? nullptr : found->second.lock();
  return semaphore == nullptr ? std::nullopt : std::optional(semaphore->count);
}

std::size_t InMemoryWindows::openFileHandles() const {
  std::lock_guard lock(m_mutex);
  return m_openFiles.size();
}

std::size_t InMemoryWindows::openSemaphoreHandles() const {
  std::lock_guard lock(m_mutex);
  return m_openSemaphores.size();
}

std::vector<std::string_view> InMemoryWindows::calls() const {
  std::lock_guard lock(m_mutex);
  return m_calls;
}

std::size_t InMemoryWindows::countCalls(std::string_view name) const {
  std::lock_guard lock(m_mutex);
  return static_cast<std::size_t>(std::count(m_calls.begin(), m_calls.end(), name));
}

std::uint64_t InMemoryWindows::writeCount() const {
  std::lock_guard lock(m_mutex);
  return m_writes;
}

bool InMemoryWindows::waitForWriteAfter(std::uint64_t writeCount, Clock::time_point deadline) const {
  std::unique_lock lock(m_mutex);
  return m_changed.wait_until(lock, deadline, [&] { return m_writes > writeCount; });
}

bool InMemoryWindows::waitUntilIdle(Clock::time_point deadline) const {
  std::unique_lock lock(m_mutex);
  return m_changed.wait_until(lock, deadline, [&] { return isIdleLocked(); });
}

bool InMemoryWindows::isIdleLocked() const {
  return m_openFiles.empty() && std::all_of(m_openSemaphores.begin(), m_openSemaphores.end(),
                                            [](const auto& open) { return open.second->count == open.second->maximum; });
}

std::uint64_t InMemoryWindows::nextTimeLocked() { return ++m_time; }

HANDLE InMemoryWindows::nextHandleLocked() {
  m_lastHandle += 4;  // never reused, so that a stale handle is noticed
  return reinterpret_cast<HANDLE>(m_lastHandle);
}

BOOL InMemoryWindows::DisableThreadLibraryCalls(HMODULE) {
  std::lock_guard lock(m_mutex);
  recordLocked("DisableThreadLibraryCalls");
  return TRUE;
}

ULONGLONG InMemoryWindows::GetTickCount64() {
  std::lock_guard lock(m_mutex);
  recordLocked("GetTickCount64");
  return m_tickCount;
}

void InMemoryWindows::GetLocalTime(SYSTEMTIME* time) {
  std::lock_guard lock(m_mutex);
  recordLocked("GetLocalTime");
  *time = m_localTime;
}

DWORD InMemoryWindows::GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR fallback, LPWSTR buffer, DWORD size,
                                                LPCWSTR file) {
  std::lock_guard lock(m_mutex);
  recordLocked("GetPrivateProfileStringW");
  if (size == 0) return 0;
  const auto ini = findFileLocked(withoutCase(file));
  auto value = ini == nullptr ? std::nullopt : iniValue(ini->bytes, section, key);
  if (!value) value = fallback == nullptr ? L"" : fallback;
  const std::size_t copied = std::min<std::size_t>(value->size(), size - 1);
  std::wmemcpy(buffer, value->data(), copied);
  buffer[copied] = L'\0';
  return static_cast<DWORD>(copied);
}

int InMemoryWindows::MultiByteToWideChar(UINT, DWORD, LPCSTR source, int sourceBytes, LPWSTR target, int targetUnits) {
  std::lock_guard lock(m_mutex);
  recordLocked("MultiByteToWideChar");
  if (source == nullptr || sourceBytes == 0 || sourceBytes < -1) return 0;
  const std::string_view text =
      sourceBytes == -1 ? std::string_view(source, std::string_view(source).size() + 1)  // the terminating zero counts
                        : std::string_view(source, static_cast<std::size_t>(sourceBytes));
  if (targetUnits == 0) return static_cast<int>(text.size());
  if (text.size() > static_cast<std::size_t>(targetUnits)) return 0;
  std::transform(text.begin(), text.end(), target,
                 [](char unit) { return static_cast<wchar_t>(static_cast<unsigned char>(unit)); });
  return static_cast<int>(text.size());
}

}  // namespace fakes
