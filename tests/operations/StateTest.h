#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Records.h"
#include "operations/Handlers.h"
#include "operations/OperationTest.h"

using AppComm::State;

inline constexpr std::int32_t kUsb = 0;
inline constexpr std::int32_t kNetwork = 1;

inline constexpr const char* kReadsState = "AppPrinterSdk_GetState(printer-1)";
inline constexpr const char* kAsksPushScan = "AppPrinterSdk_IsSuppportPushScan(printer-1)";
inline constexpr const char* kChecksAddress = "AppMgr_CheckIpChange(printer-1, false)";
inline constexpr const char* kNoticeLine = "DBG  notice caller the state information has been captured.";

/// Runs of `comm_thread_state` for an idle USB printer, until a test says otherwise.
class StateTest : public OperationTest {
 protected:
  StateTest() : OperationTest("comm_thread_state") { current->setNPAFlag(); }  // as the worker does before each run

  int run() { return comm_thread_state(entryOf({current})); }
  int runWith(const std::vector<std::shared_ptr<AppComm::Node>>& observers) {
    std::vector<std::shared_ptr<AppComm::Node>> tasks{current};
    tasks.insert(tasks.end(), observers.begin(), observers.end());
    return comm_thread_state(entryOf(tasks));
  }

  const std::shared_ptr<State> record = std::make_shared<State>();
  const std::shared_ptr<AppComm::Node> current = task(7, record);
};
