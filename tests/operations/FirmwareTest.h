#pragma once

#include <string>
#include <vector>

#include "Records.h"
#include "operations/Handlers.h"
#include "operations/LongOperationTest.h"

/// A printer that takes firmware, and is watched while it restarts.
class FirmwarePrinter : public PolledPrinter {
 public:
  using PolledPrinter::PolledPrinter;

  struct Progress {
    int result;
    std::int32_t current;
    std::int32_t total;
  };

  int startResult = 0;
  std::vector<Progress> progress;  ///< the answers in order
  std::vector<int> states;         ///< the answers in order
  const std::wstring* firmware = nullptr;

  int AppPrinterSdk_UpgradeFwStart(qzstd::PrinterInfo* /*printer*/, std::wstring* text) override {
    firmware = text;
    return startResult;
  }
  int AppPrinterSdk_UpgradeFwProgress(std::int32_t* current, std::int32_t* total) override {
    const auto answer = next(progress);
    *current = answer.current;
    *total = answer.total;
    return answer.result;
  }
  void AppPrinterSdk_UpgradeFwExit() override {}
  int AppPrinterSdk_GetState(qzstd::PrinterInfo* /*printer*/) override { return states.empty() ? 0 : next(states); }
};

using FirmwareTest = LongOperationTest<AppComm::FirmUp, FirmwarePrinter>;

/// The members that the operations write, the true ones by name.
inline std::string shownFlags(const AppComm::FirmUp& record) {
  return std::string(record.triggered ? "triggered " : "") + (record.done ? "done " : "") + (record.ok ? "ok " : "") +
         (record.newFirmware ? "new " : "") + std::to_string(record.percent);
}

/// A record with something in every member that only another operation, or the caller, writes.
inline void fillForeignMembers(AppComm::FirmUp& record) {
  record.triggered = record.newFirmware = true;
  record.firmware = L"firmware";
  record.versionText1 = L"first";
  record.versionText2 = L"second";
}

inline void expectForeignMembers(const AppComm::FirmUp& record) {
  EXPECT_TRUE(record.triggered && record.newFirmware);
  EXPECT_EQ(record.firmware, L"firmware");
  EXPECT_EQ(record.versionText1, L"first");
  EXPECT_EQ(record.versionText2, L"second");
}
