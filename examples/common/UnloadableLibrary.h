#pragma once

#include <chrono>
#include <string>

#include "AppCommunication.h"  // brings in windows.h

namespace examples {

/// The part of a program that talks to printers, as a library of its own that can be unloaded while the program goes on. The
/// library is linked with the module, which comes and goes with it; the program is not.
///
/// Code that still runs when it is unloaded ends the process, and neither `Stop` nor the last line in the log says that the
/// module's threads are gone: only the system knows. So this class counts the threads of the process. From its construction
/// until it has unloaded the library, the program starts and ends no other thread.
///
/// The library exports `extern "C" void endTasks()`, which deletes all of its tasks and calls `Stop` (`AddedTasks::end`).
/// It may be called more than once. One thread at a time may use an object.
class UnloadableLibrary {
 public:
  /// Loads it. Throws `std::system_error` when there is no such library, or when it cannot be ended.
  explicit UnloadableLibrary(const std::wstring& path);
  /// A library that is not unloaded by now stays loaded: whether it still works is not known.
  ~UnloadableLibrary() = default;
  UnloadableLibrary(const UnloadableLibrary&) = delete;
  UnloadableLibrary& operator=(const UnloadableLibrary&) = delete;

  /// What the library exports under this name. Throws `std::system_error` when there is no such thing. Not after `unload`.
  template <class Function>
  Function* function(const char* name) const {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(find(name)));
  }

  /// Ends all tasks, waits until their threads are gone, and unloads the library. False when a thread is left after `limit`, as
  /// it is when a printer hangs; the library is then still loaded, and another call goes on waiting.
  [[nodiscard]] bool unload(std::chrono::milliseconds limit);

  /// Whether the process has the threads again that it had before.
  bool threadsAreGone() const;

 private:
  FARPROC find(const char* name) const;

  const int m_threadsBefore;
  HMODULE m_library;
  void (*m_endTasks)();
};

}  // namespace examples
