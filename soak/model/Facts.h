#pragma once

#include <map>
#include <optional>
#include <vector>

#include "model/Event.h"

/// What is known of the tasks' flags, whatever else the module may have done.
namespace soak {

/// A task as the calls on it and its window's answers show it. Between begin and end of a call its effect may or may not have
/// come.
struct TaskFacts {
  TaskTraits traits{};
  Moment addBegin{};
  std::optional<Moment> addEnd{};
  std::optional<Moment> deleteBegin{};
  std::optional<Moment> deleteEnd{};
  bool refused = false;  ///< its window answered false
  bool once = true;      ///< as the last change wants it
  bool changing = false;
  std::optional<Moment> changeEnd{};
};

class Facts {
 public:
  /// Null for a task that was never added, or that the module has let go of.
  const TaskFacts* find(TaskId task) const;
  const TaskTraits& traitsOf(TaskId task) const;  ///< the task must be known
  void note(const Event& event);
  void forget(TaskId task) { m_tasks.erase(task); }
  std::vector<TaskId> known() const;

  bool mayBeDeleted(TaskId task) const;
  /// Whoever finds the task marked looks no earlier: the epoch when its window refused, as its list's last run came later.
  Moment deletedFrom(TaskId task) const;
  /// Whoever looks at `since` or later finds the task in its list and marked.
  bool isDeletedSince(TaskId task, Moment since) const;

  /// What one who looks at `since` or later may find.
  bool mayBeOnce(TaskId task, Moment since) const;
  bool mayRepeat(TaskId task, Moment since) const;

 private:
  std::map<TaskId, TaskFacts> m_tasks;
};

}  // namespace soak
