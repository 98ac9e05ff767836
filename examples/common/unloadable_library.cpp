#include "common/UnloadableLibrary.h"

#include <tlhelp32.h>

#include <system_error>
#include <thread>

#include "common/Handle.h"

namespace examples {
namespace {

constexpr auto kPause = std::chrono::milliseconds(2);  // between two looks: the system tells nobody that a thread has ended

[[noreturn]] void fail(const std::string& what) {
  throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), what);
}

int threadsOfThisProcess() {
  const Handle snapshot(::CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
  if (!snapshot.valid()) fail("the process's threads cannot be counted");
  int count = 0;
  THREADENTRY32 thread{};
  thread.dwSize = sizeof(thread);
  for (BOOL more = ::Thread32First(snapshot.get(), &thread); more != FALSE; more = ::Thread32Next(snapshot.get(), &thread)) {
    if (thread.th32OwnerProcessID == ::GetCurrentProcessId()) ++count;
  }
  return count;
}

}  // namespace

UnloadableLibrary::UnloadableLibrary(const std::wstring& path)
    : m_threadsBefore(threadsOfThisProcess()), m_library(::LoadLibraryW(path.c_str())) {
  if (m_library == nullptr) fail("the library cannot be loaded");
  m_endTasks = function<void()>("endTasks");
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
    std::this_thread::sleep_for(kPause);
  }
  if (::FreeLibrary(m_library) == 0) fail("the library cannot be unloaded");
  m_library = nullptr;
  return true;
}

bool UnloadableLibrary::threadsAreGone() const { return threadsOfThisProcess() <= m_threadsBefore; }

}  // namespace examples
