#include <algorithm>

#include "fakes/InMemoryObjects.h"
#include "fakes/IniText.h"

namespace fakes {
namespace {

FILETIME asFileTime(std::uint64_t time) {
  return FILETIME{static_cast<DWORD>(time & 0xFFFFFFFFU), static_cast<DWORD>(time >> 32)};
}

constexpr DWORD kReads = GENERIC_READ;
constexpr DWORD kWrites = GENERIC_WRITE | FILE_APPEND_DATA;

bool admits(DWORD share, DWORD access) {
  return ((access & kReads) == 0 || (share & FILE_SHARE_READ) != 0) &&
         ((access & kWrites) == 0 || (share & FILE_SHARE_WRITE) != 0);
}

}  // namespace

bool InMemoryWindows::folderOfExistsLocked(const std::wstring& key) const {
  const auto separator = key.rfind(L'\\');
  return separator != std::wstring::npos && m_folders.contains(key.substr(0, separator));
}

std::shared_ptr<InMemoryWindows::File> InMemoryWindows::findFileLocked(const std::wstring& key) const {
  const auto found = m_files.find(key);
  return found == m_files.end() ? nullptr : found->second;
}

std::shared_ptr<InMemoryWindows::File> InMemoryWindows::openedFileLocked(const std::wstring& path, DWORD disposition) {
  const std::wstring key = withoutCase(path);
  if (m_folders.contains(key) || !folderOfExistsLocked(key)) return nullptr;
  auto file = findFileLocked(key);
  if (file != nullptr || disposition == OPEN_EXISTING) return disposition == CREATE_NEW ? nullptr : file;
  const std::uint64_t time = nextTimeLocked();
  file = std::make_shared<File>(File{path, "", time, time});
  m_files[key] = file;
  return file;
}

bool InMemoryWindows::shareAllowsLocked(const File& file, DWORD access, DWORD share) const {
  return std::all_of(m_openFiles.begin(), m_openFiles.end(), [&](const auto& entry) {
    const OpenFile& open = entry.second;
    return open.file.get() != &file || (admits(open.share, access) && admits(share, open.access));
  });
}

// Moving and deleting need everyone's leave; the module never gives `FILE_SHARE_DELETE`.
bool InMemoryWindows::isOpenLocked(const File& file) const {
  return std::any_of(m_openFiles.begin(), m_openFiles.end(), [&](const auto& entry) {
    return entry.second.file.get() == &file && (entry.second.share & FILE_SHARE_DELETE) == 0;
  });
}

HANDLE InMemoryWindows::CreateFileW(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES*, DWORD disposition, DWORD,
                                    HANDLE) {
  std::lock_guard lock(m_mutex);
  recordLocked("CreateFileW");
  const auto file = openedFileLocked(path, disposition);
  if (file == nullptr || !shareAllowsLocked(*file, access, share)) return INVALID_HANDLE_VALUE;
  if (disposition == CREATE_ALWAYS) file->bytes.clear();
  const HANDLE handle = nextHandleLocked();
  m_openFiles.emplace(handle, OpenFile{file, access, share, 0});
  return handle;
}

DWORD InMemoryWindows::SetFilePointer(HANDLE handle, LONG distance, PLONG distanceHigh, DWORD method) {
  std::lock_guard lock(m_mutex);
  recordLocked("SetFilePointer");
  const auto open = m_openFiles.find(handle);
  if (open == m_openFiles.end()) return INVALID_SET_FILE_POINTER;
  auto target = static_cast<std::int64_t>(distance);
  if (distanceHigh != nullptr) target = (static_cast<std::int64_t>(*distanceHigh) << 32) | static_cast<DWORD>(distance);
  if (method == FILE_CURRENT) target += static_cast<std::int64_t>(open->second.position);
  if (method == FILE_END) target += static_cast<std::int64_t>(open->second.file->bytes.size());
  if (target < 0) return INVALID_SET_FILE_POINTER;
  open->second.position = static_cast<std::size_t>(target);
  if (distanceHigh != nullptr) *distanceHigh = static_cast<LONG>(target >> 32);
  return static_cast<DWORD>(target & 0xFFFFFFFF);
}

bool InMemoryWindows::writeLocked(HANDLE handle, std::string_view bytes) {
  const auto open = m_openFiles.find(handle);
  if (open == m_openFiles.end() || (open->second.access & kWrites) == 0) return false;
  File& file = *open->second.file;
  const bool appends = (open->second.access & GENERIC_WRITE) == 0;
  std::size_t& position = open->second.position;
  if (appends) position = file.bytes.size();
  if (file.bytes.size() < position + bytes.size()) file.bytes.resize(position + bytes.size());
  std::copy(bytes.begin(), bytes.end(), file.bytes.begin() + static_cast<std::ptrdiff_t>(position));
  position += bytes.size();
  file.writeTime = nextTimeLocked();
  return true;
}

BOOL InMemoryWindows::WriteFile(HANDLE handle, LPCVOID bytes, DWORD count, LPDWORD written, OVERLAPPED*) {
  std::function<void()> listener;
  {
    std::lock_guard lock(m_mutex);
    recordLocked("WriteFile");
    ++m_writes;
    m_changed.notify_all();
    const bool wrote = writeLocked(handle, {static_cast<const char*>(bytes), count});
    if (written != nullptr) *written = wrote ? count : 0;
    if (!wrote) return FALSE;
    listener = m_writeListener;
  }
  if (listener) listener();
  return TRUE;
}

BOOL InMemoryWindows::GetFileSizeEx(HANDLE handle, LARGE_INTEGER* size) {
  std::lock_guard lock(m_mutex);
  recordLocked("GetFileSizeEx");
  const auto open = m_openFiles.find(handle);
  if (open == m_openFiles.end()) return FALSE;
  size->QuadPart = static_cast<LONGLONG>(open->second.file->bytes.size());
  return TRUE;
}

BOOL InMemoryWindows::GetFileAttributesExW(LPCWSTR path, GET_FILEEX_INFO_LEVELS, LPVOID data) {
  std::lock_guard lock(m_mutex);
  recordLocked("GetFileAttributesExW");
  const auto file = findFileLocked(withoutCase(path));
  if (file == nullptr) return FALSE;
  const auto size = static_cast<std::uint64_t>(file->bytes.size());
  *static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(data) = WIN32_FILE_ATTRIBUTE_DATA{
      FILE_ATTRIBUTE_NORMAL,       asFileTime(file->creationTime), asFileTime(file->writeTime),
      asFileTime(file->writeTime), static_cast<DWORD>(size >> 32), static_cast<DWORD>(size & 0xFFFFFFFFU)};
  return TRUE;
}

BOOL InMemoryWindows::MoveFileW(LPCWSTR from, LPCWSTR to) {
  std::lock_guard lock(m_mutex);
  recordLocked("MoveFileW");
  const auto source = m_files.find(withoutCase(from));
  const std::wstring target = withoutCase(to);
  if (source == m_files.end() || isOpenLocked(*source->second)) return FALSE;
  if (m_files.contains(target) || m_folders.contains(target) || !folderOfExistsLocked(target)) return FALSE;
  const auto file = source->second;
  m_files.erase(source);
  file->path = to;
  m_files[target] = file;
  return TRUE;
}

BOOL InMemoryWindows::DeleteFileW(LPCWSTR path) {
  std::lock_guard lock(m_mutex);
  recordLocked("DeleteFileW");
  const auto found = m_files.find(withoutCase(path));
  if (found == m_files.end() || isOpenLocked(*found->second)) return FALSE;
  m_files.erase(found);
  return TRUE;
}

BOOL InMemoryWindows::CloseHandle(HANDLE handle) {
  std::lock_guard lock(m_mutex);
  recordLocked("CloseHandle");
  const bool closed = m_openFiles.erase(handle) + m_openSemaphores.erase(handle) == 1;
  m_changed.notify_all();
  return closed ? TRUE : FALSE;
}

}  // namespace fakes
