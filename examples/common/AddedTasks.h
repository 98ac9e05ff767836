#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "AppCommunication.h"

namespace examples {

/// The tasks that a program has given to the module, to end them all. It keeps none of them alive: a task is over when the
/// module lets go of it. One thread at a time may call.
class AddedTasks {
 public:
  /// Adds it to the module.
  void add(std::shared_ptr<AppComm::Node> task) {
    std::erase_if(m_tasks, [](const auto& added) { return added.expired(); });
    m_tasks.push_back(task);
    Add(std::move(task));
  }

  /// Deletes every task, without which long operations go on, and stops the module. It waits for nothing: library calls that
  /// are under way run to their end, and their windows may still be told.
  void end() {
    for (const auto& added : m_tasks) {
      if (const auto task = added.lock()) task->setDelete();
    }
    Stop();
  }

 private:
  std::vector<std::weak_ptr<AppComm::Node>> m_tasks;
};

}  // namespace examples
