#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include "AppCommunication.h"
#include "Checker.h"
#include "Printers.h"
#include "Random.h"

namespace soak {

/// One task of the soak, as an application has it. The module gets a handle of its own, whose end shows when the module has let
/// go of it; the task itself may live on here, for calls on a task that has left.
class Task {
 public:
  /// Draws everything from `random`. `code` names the task. `plan` and `checker` have to outlive its window.
  static std::shared_ptr<Task> draw(std::uint64_t seed, Random& random, PrinterId printer, const PrinterPlan& plan, TaskId code,
                                    const Checker& checker);

  Task(PrinterId printer, TaskId code, const TaskTraits& traits, std::shared_ptr<AppComm::Node> node);

  const TaskTraits& traits() const { return m_traits; }
  bool released() const { return m_released.load(std::memory_order_relaxed); }

  /// @name Calls, each taken down before and after
  /// @{
  /// The begin of `add`, which follows on the same thread. From here on other threads may make the other calls.
  void announce();
  void add(const std::shared_ptr<Task>& self);  ///< once
  void setDelete();
  /// One thread at a time: false when another is at it.
  bool setOnce(bool once);
  /// @}

 private:
  Event event(What what, std::int32_t value = 0) const;

  const PrinterId m_printer;
  const TaskId m_code;
  const TaskTraits m_traits;
  const std::shared_ptr<AppComm::Node> m_node;
  std::atomic<bool> m_released{false};  // relaxed: it orders the worker with nobody
  std::atomic<bool> m_changing{false};
};

/// `StartNPA` or `PauseNPA` for a type of the printer, mostly `State`, with a task that nobody has added.
void requestNpa(Random& random, PrinterId printer, const PrinterPlan& plan);

/// `Stop`.
void stopAll();

}  // namespace soak
