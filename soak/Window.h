#pragma once

#include <any>
#include <cstdint>
#include <memory>

#include "Checker.h"
#include "Node.h"
#include "Printers.h"
#include "Records.h"
#include "model/Event.h"
#include "support/PlainWindow.h"

namespace soak {

/// The window of one task: takes down what it is told, takes a little time now and then, calls the module, and refuses at
/// random.
class Window : public support::PlainWindow {
 public:
  /// `plan` and `checker` have to outlive it.
  Window(std::uint64_t seed, PrinterId printer, const PrinterPlan& plan, TaskId task, Type type, const std::any& record,
         const Checker& checker);

  /// The task whose window it is; before the task is added.
  void belongsTo(const std::shared_ptr<AppComm::Node>& task) { m_node = task; }

  bool Notice(long code) const override;

 private:
  const std::uint64_t m_seed;
  const PrinterId m_printer;
  const PrinterPlan& m_plan;
  const TaskId m_task;
  std::weak_ptr<AppComm::Node> m_node;  // which holds this window
  const Type m_type;
  const std::shared_ptr<AppComm::State> m_state;  // of a state task
  const Checker& m_checker;
  mutable std::uint64_t m_notices = 0;  // they come one after the other
};

}  // namespace soak
