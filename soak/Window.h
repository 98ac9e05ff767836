#pragma once

#include <any>
#include <cstdint>
#include <memory>

#include "Node.h"
#include "Records.h"
#include "model/Event.h"
#include "support/PlainWindow.h"

namespace soak {

/// The window of one task: takes down what it is told, takes a little time now and then, and refuses at random.
class Window : public support::PlainWindow {
 public:
  Window(std::uint64_t seed, PrinterId printer, TaskId task, Type type, bool slow, const std::any& record);

  /// The task whose window it is; before the task is added.
  void belongsTo(const std::shared_ptr<AppComm::Node>& task) { m_node = task; }

  bool Notice(long code) const override;

 private:
  const std::uint64_t m_seed;
  const PrinterId m_printer;
  const TaskId m_task;
  std::weak_ptr<AppComm::Node> m_node;  // which holds this window
  const Type m_type;
  const bool m_slow;                              // for printers without a pause between runs
  const std::shared_ptr<AppComm::State> m_state;  // of a state task
  mutable std::uint64_t m_notices = 0;            // they come one after the other
};

}  // namespace soak
