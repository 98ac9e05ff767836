#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "examples/panel/Task.h"
#include "fakes/MakerLibraries.h"
#include "fakes/MessageWindows.h"
#include "fakes/ThreadStartFault.h"

namespace paneltest {

/// Holds up who passes, while it is closed. Any thread.
class Gate {
 public:
  void close();
  void open();
  void pass();
  /// Waits until somebody is held up; false when nobody comes.
  [[nodiscard]] bool awaitHeld();

 private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  bool m_isClosed = false;
  int m_held = 0;
};

/// A printer whose state reads succeed, as soon as the gate lets them.
class HeldPrinter : public fakes::MakerLibraries {
 public:
  explicit HeldPrinter(Gate& gate) : m_gate(gate) {}
  int AppMgr_GetPrintingJob(const wchar_t* managerId) override;
  int AppPrinterSdk_GetState(qzstd::PrinterInfo* printer) override;

 private:
  Gate& m_gate;
};

/// What a test looks at of an operation, and where it comes in between. Outlives every task of the test.
struct Steps {
  std::function<bool()> noticed = [] { return true; };  ///< in a notice, before it is passed on
  std::function<void()> gone = [] {};                   ///< in the operation's destructor
  std::atomic<int> reports{0};                          ///< how often the record was read
};

/// What a test's operation is like.
struct Kind {
  bool repeats = false;
  bool isSkipped = false;  ///< the module runs it without a notice
  AppComm::Type type = AppComm::Type::State;
};

/// Tasks on a platform whose messages the test takes, with the module's own lists and handlers and a scripted printer.
class TaskTest : public testing::Test {
 protected:
  struct Told {
    examples::Report report;
    bool isOver;
    std::thread::id on;
  };

  TaskTest();
  /// Every list ends, and no thread may be left.
  ~TaskTest() override;

  /// A new printer description for the printer: after `Stop` the former one is not to be used again.
  static std::shared_ptr<qzstd::PrinterInfo> newPrinter();
  std::unique_ptr<examples::Operation> newOperation(Kind kind);
  std::unique_ptr<panel::Task> newTask(Kind kind, const std::shared_ptr<qzstd::PrinterInfo>& printer);
  void start(Kind kind = {}) { task = newTask(kind, newPrinter()); }

  /// Takes messages until it comes true. False when it does not in time.
  bool eventually(const std::function<bool()>& isSo);
  bool becomesOver() {
    return eventually([this] { return task->isOver(); });
  }
  bool becomesFree() {
    return eventually([this] { return task->mayGo(); });
  }
  /// Only these threads beside the test's own are left, that of each list and its helper included.
  static bool threadsLeft(int count);
  /// The window of the task that the only list holds; null when it holds none.
  static std::weak_ptr<AppWnd::CWnd> listedWindow();
  std::size_t ends() const;

  Gate gate;     ///< in the printer's state read
  Gate endGate;  ///< for a test's own use
  std::optional<fakes::ThreadStartFault> fault;
  Steps steps;
  fakes::MessageWindows windows;
  const fakes::Installed installed{windows};
  HeldPrinter printer{gate};
  const fakes::InstalledMaker installedMaker{printer};
  std::vector<Told> told;
  std::unique_ptr<panel::Task> task;
};

}  // namespace paneltest
