#pragma once

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <map>
#include <mutex>
#include <vector>

#include "comm/CNode.h"

namespace fakes {

/// What the scheduler runs in tests: stands in for the table of the real handlers.
///
/// Every run of any type is recorded by the code of its task, then the type's action decides the result; without one the run
/// keeps its NPA mark and returns 0. One at a time; it outlives every list.
class ScriptedHandlers {
 public:
  using Action = std::function<int(comm::CNode&)>;

  ScriptedHandlers();
  ~ScriptedHandlers();
  ScriptedHandlers(const ScriptedHandlers&) = delete;
  ScriptedHandlers& operator=(const ScriptedHandlers&) = delete;

  void on(AppComm::Type type, Action action);
  /// For the types without an action of their own.
  void onAny(Action action);

  /// The codes of the tasks that ran, in order, those still running included.
  std::vector<long> runs();
  /// Waits until `count` runs have begun, and returns the codes of all; fails the test after 20 s.
  std::vector<long> awaitRuns(std::size_t count);

  /// Waits until every list that took its handlers from here is destroyed; fails the test after 20 s. Whatever a list's worker
  /// did before has then happened before what the caller does next.
  void awaitNoLists();

  int run(comm::CNode& entry);

  /// What each of a list's handlers holds, so that the end of the list is seen.
  class ListLife;

 private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  std::map<AppComm::Type, Action> m_actions;
  Action m_anyAction;
  std::vector<long> m_runs;
  int m_lists = 0;
};

/// A run that keeps no NPA mark, as one that exchanged nothing with the printer.
int withoutNPA(comm::CNode& entry);

}  // namespace fakes
