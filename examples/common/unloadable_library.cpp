#include "common/UnloadableLibrary.h"

#include <tlhelp32.h>

#include <algorithm>
#include <system_error>
#include <utility>
#include <vector>

namespace examples {
namespace {

constexpr DWORD kPause = 2;  // ms between two looks: the system tells nobody that a thread has ended

[[noreturn]] void fail(const std::string& what) {
  throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), what);
}

std::vector<DWORD> threadsOfThisProcess() {
  const Handle snapshot(::CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
  if (!snapshot.valid()) fail("the process's threads cannot be listed");
  std::vector<DWORD> ids;
  THREADENTRY32 thread{};
  thread.dwSize = sizeof(thread);
  for (BOOL more = ::Thread32First(snapshot.get(), &thread); more != FALSE; more = ::Thread32Next(snapshot.get(), &thread)) {
    if (thread.th32OwnerProcessID == ::GetCurrentProcessId()) ids.push_back(thread.th32ThreadID);
  }
  // What a list lacks that was cut short counts as gone, and the code is unmapped under it.
  if (::GetLastError() != ERROR_NO_MORE_FILES || ids.empty()) fail("the process's threads cannot be listed");
  return ids;
}

std::map<DWORD, Handle> openThreadsOfThisProcess() {
  std::map<DWORD, Handle> threads;
  for (const DWORD id : threadsOfThisProcess()) threads.try_emplace(id, ::OpenThread(SYNCHRONIZE, FALSE, id));
  std::erase_if(threads, [](const auto& thread) { return !thread.second.valid(); });  // has ended: the id is free again
  return threads;
}

// Whoever sends a message to a window of this thread waits until it is answered. Posted messages are not taken.
void pauseAndAnswer() {
  ::MsgWaitForMultipleObjects(0, nullptr, FALSE, kPause, QS_SENDMESSAGE);
  MSG message;
  ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
}

}  // namespace

UnloadableLibrary::UnloadableLibrary(const std::wstring& path)
    : m_threadsBefore(openThreadsOfThisProcess()), m_library(::LoadLibraryW(path.c_str())) {
  if (m_library == nullptr) fail("the library cannot be loaded");
  try {
    m_endTasks = function<void()>("endTasks");
    m_dropObjects = reinterpret_cast<void (*)()>(reinterpret_cast<void*>(::GetProcAddress(m_library, "dropObjects")));
  } catch (...) {
    ::FreeLibrary(m_library);  // it has been given nothing to do yet
    throw;
  }
}

FARPROC UnloadableLibrary::find(const char* name) const {
  const auto address = ::GetProcAddress(m_library, name);
  if (address == nullptr) fail("the library does not export " + std::string(name));
  return address;
}

bool UnloadableLibrary::unload(std::chrono::milliseconds limit) {
  if (m_library == nullptr) return true;
  m_endTasks();
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!threadsAreGone()) {
    if (std::chrono::steady_clock::now() >= deadline) return false;
    pauseAndAnswer();
  }
  if (m_dropObjects != nullptr) std::exchange(m_dropObjects, nullptr)();
  if (::FreeLibrary(m_library) == 0) fail("the library cannot be unloaded");
  m_library = nullptr;
  return true;
}

bool UnloadableLibrary::threadsAreGone() const {
  return std::ranges::all_of(threadsOfThisProcess(), [this](DWORD id) { return m_threadsBefore.contains(id); });
}

}  // namespace examples
