#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>

#include "module/Application.h"
#include "simulator/SimulatedPrinters.h"
#include "support/ThreadCount.h"

/// The module as an application has it: the real DLL, with simulated printers, real threads and the real clock.
///
/// Every task made here is deleted at the end, the module is stopped, and no thread of it may be left.
class ModuleTest : public testing::Test {
 protected:
  ModuleTest() { simulator::reset(); }

  ~ModuleTest() override {
    endAll();
    simulator::reset();
  }

  application::StateTask& stateTask(
      const std::wstring& uid, long code, application::StateTask::Answer answer = [](std::size_t) { return true; }) {
    return m_tasks.emplace_back(uid, code, std::move(answer));
  }

  /// Ends every list. Calls that hang are let go.
  void endAll() {
    for (const auto& task : m_tasks) {
      if (task.node() != nullptr) task.node()->setDelete();
    }
    Stop();
    simulator::releaseCalls();
    EXPECT_TRUE(threadsEnd());
  }

  bool threadsEnd() const {
    return support::waitForThreadCount(m_threadsBefore, std::chrono::steady_clock::now() + application::kPatience);
  }

  static std::size_t begun(std::string_view function, std::wstring_view printer) {
    return static_cast<std::size_t>(std::ranges::count_if(simulator::calls(), [&](const simulator::CallRecord& call) {
      return call.function == function && call.printer == printer;
    }));
  }

  const int m_threadsBefore = support::threadCount();

 private:
  std::deque<application::StateTask> m_tasks;  // a test keeps references
};
