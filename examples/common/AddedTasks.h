#pragma once

#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "AppCommunication.h"

namespace examples {

/// The tasks that a program has given to the module, to end them all. It keeps none of them alive: a task is over when the
/// module lets go of it. Any thread may call, also from within a `Notice`.
class AddedTasks {
 public:
  /// Adds it to the module. Once the end has come, it does nothing: who adds from a notice may be late.
  void add(std::shared_ptr<AppComm::Node> task) {
    const std::lock_guard lock(m_mutex);
    if (m_isEnded) return;
    std::erase_if(m_tasks, [](const auto& added) { return added.expired(); });
    m_tasks.push_back(task);
    Add(task);  // the last reference goes when nothing is locked any more
  }

  /// Deletes every task, without which long operations go on, and stops the module. It waits for nothing: library calls that
  /// are under way run to their end, and their windows may still be told.
  void end() {
    std::vector<std::shared_ptr<AppComm::Node>> tasks;  // as in `add`
    const std::lock_guard lock(m_mutex);
    m_isEnded = true;
    for (const auto& added : m_tasks) {
      if (const auto& task = tasks.emplace_back(added.lock())) task->setDelete();
    }
    Stop();
  }

 private:
  std::mutex m_mutex;
  std::vector<std::weak_ptr<AppComm::Node>> m_tasks;  // guarded by m_mutex, as is the next
  bool m_isEnded = false;
};

}  // namespace examples
