#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <iterator>
#include <memory>
#include <mutex>
#include <vector>

#include "Node.h"
#include "platform/ThreadAnnotations.h"

namespace comm {

using Task = std::shared_ptr<AppComm::Node>;

/// One entry of a list: the current task and the observers, tasks of the same type that came while the entry existed. The
/// handler works on the current task; all of them are told.
///
/// Edits are made under the list's `m_backendLock`, reads without it. The latch makes each single step safe; it is innermost
/// and held for the copy or the edit alone.
class CNode {
 public:
  explicit CNode(Task task);
  CNode(const CNode&) = delete;
  CNode& operator=(const CNode&) = delete;

  AppComm::Type type() const { return m_type; }

  Task current() const;
  /// The observer at `index`, null beyond the last. Walking by index also meets those that join during the walk.
  Task observer(std::size_t index) const;
  /// The current task and all observers, as of now.
  std::vector<Task> tasks() const;

  void addObserver(Task task);

  /// The first observer becomes the current task, and the former one is returned, for release outside the locks. Null: there
  /// was no observer, and nothing changed.
  Task promoteObserver();

  /// Takes the observer at `index`, which must exist, out and returns it, for release outside the locks.
  Task takeObserver(std::size_t index);
  /// Takes out all observers for which `leaves` is true and returns them, for release outside the locks.
  template <class Predicate>
  std::vector<Task> takeObservers(Predicate leaves);

 private:
  Task m_node GUARDED_BY(m_latch);
  std::deque<Task> m_observers GUARDED_BY(m_latch);

  const AppComm::Type m_type;  // that of every task in the entry
  mutable std::mutex m_latch;
};

template <class Predicate>
std::vector<Task> CNode::takeObservers(Predicate leaves) {
  const std::lock_guard latch(m_latch);
  const auto gone =
      std::stable_partition(m_observers.begin(), m_observers.end(), [&](const Task& task) { return !leaves(*task); });
  std::vector<Task> taken(std::make_move_iterator(gone), std::make_move_iterator(m_observers.end()));
  m_observers.erase(gone, m_observers.end());
  return taken;
}

}  // namespace comm
