#pragma once

#include <chrono>
#include <map>
#include <string>

#include "AppCommunication.h"  // brings in windows.h
#include "common/Handle.h"

namespace examples {

/// The part of a program that talks to printers, as a library of its own that can be unloaded while the program goes on. The
/// library is linked with the module, which comes and goes with it; the program is not.
///
/// Code that still runs when it is unloaded ends the process, and neither `Stop` nor the last line in the log says that the
/// module's threads are gone: only the system knows. So this class looks which threads the process has that it had not before.
/// From its construction until it has unloaded the library, the program starts no other thread. Threads that the system itself
/// adds meanwhile, such as those of its thread pools, cannot be told from the module's, and are waited for too.
///
/// The library exports `extern "C" void endTasks()`, which deletes all of its tasks and calls `Stop` (`AddedTasks::end`).
/// It may be called more than once. One that has windows or other objects of the module's classes also exports
/// `extern "C" void dropObjects()`, which destroys them: it is called once, when nothing of the module runs any more.
///
/// One thread uses an object: that of the library's windows, if it has any.
class UnloadableLibrary {
 public:
  /// Loads it. Throws `std::system_error` when there is no such library, or when it cannot be ended; it is then not loaded.
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

  /// Ends all tasks, waits until their threads are gone, and unloads the library. Messages that are sent to windows of the
  /// calling thread meanwhile are answered, as those who send them (`ThreadToSelf`) are waited for; posted ones stay where they
  /// are, and those to windows that `dropObjects` destroys are lost.
  ///
  /// False when a thread is left after `limit`; the library is then still loaded, and another call goes on waiting. That is so
  /// when a printer hangs, but also with healthy ones when `limit` is too short: a worker first ends the run that is under way,
  /// or waits until an interval has passed since its last NPA run, and threads that the system has added take their own time,
  /// often half a minute. So `limit` exceeds the longest run plus the longest interval, and a minute. Where a printer's task
  /// was added after a `Stop`, it exceeds the run plus ten intervals: the old worker may have unregistered the new list, which
  /// `Stop` then does not reach, and whose worker ends only because it is idle.
  ///
  /// Throws `std::system_error` when the system does not tell which threads there are, or does not unload the library.
  [[nodiscard]] bool unload(std::chrono::milliseconds limit);

  /// Whether the process has no thread that it had not before. Throws `std::system_error` when the system does not tell.
  bool threadsAreGone() const;

 private:
  FARPROC find(const char* name) const;

  const std::map<DWORD, Handle> m_threadsBefore;  // by id; open, because the id of an open thread is given to no other
  HMODULE m_library;
  void (*m_endTasks)();
  void (*m_dropObjects)();  // null: it exports none
};

}  // namespace examples
