#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "AppCommunication.h"
#include "common/Operation.h"
#include "console/Progress.h"
#include "console/Terminal.h"

namespace examples {

/// Runs operations through the module, one after another, for the main thread, which waits for each.
class Runner {
 public:
  using Clock = std::chrono::steady_clock;
  /// Told about once a second, and at each notice.
  using ShowProgress = std::function<void(Percent, std::chrono::milliseconds elapsed)>;

  Runner(Terminal& terminal, ShowProgress showProgress) : m_terminal(terminal), m_showProgress(std::move(showProgress)) {}

  /// The operation, and before it what it wants to be run first, all within `limit`. A task that is not let go soon after that,
  /// or after Ctrl-C, is left to the end of the process.
  Report run(std::unique_ptr<Operation> operation, const std::shared_ptr<qzstd::PrinterInfo>& printer,
             std::chrono::seconds limit);

 private:
  class Task;

  Report runBy(std::unique_ptr<Operation> operation, const std::shared_ptr<qzstd::PrinterInfo>& printer,
               Clock::time_point start, Clock::time_point deadline);
  /// None: it is over by itself.
  std::optional<Outcome> waitForEnd(const Task& task, Clock::time_point start, Clock::time_point deadline);
  void waitForRelease(const Task& task);

  Terminal& m_terminal;
  const ShowProgress m_showProgress;
};

}  // namespace examples
