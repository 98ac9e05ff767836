#include <array>
#include <atomic>
#include <chrono>
#include <utility>

#include "AppPrinterSdk.h"
#include "AppSdk.h"
#include "Records.h"
#include "operations/FirmwarePercent.h"
#include "operations/Frame.h"
#include "operations/Handlers.h"
#include "operations/Registration.h"
#include "platform/Time.h"

namespace {

using namespace std::chrono_literals;
using AppComm::FirmUp;
using AppComm::State;
using FirmwareRun = operations::Run<FirmUp>;

constexpr const wchar_t* kMismatch = L"resource type is NOT firmware upgrade";
constexpr auto kBetweenProgressCalls = 100ms;
constexpr auto kBetweenDeletionTests = 10us;
constexpr int kDeletionTestsPerPause = 100;

// The caller writes this flag at any time, to end the watch.
bool isDone(FirmUp& record) { return std::atomic_ref(record.done).load(); }
void setDone(FirmUp& record, bool done) { std::atomic_ref(record.done).store(done); }

int registerPrinter(const operations::Run<State>& run) {
  const bool registered = AppSdk_SetPrinterUpgradeInfo(&run.printer);
  run.record.upgradeRegistered = registered;
  WriteLog(LOG_DEBUG, run.name, __LINE__, L"register firmware upgrade (key: %ws) result: %d", run.printer.upgradeKey.c_str(),
           registered);
  return operations::shareRegistration(run, &State::upgradeRegistered);
}

void fetchVersions(const FirmwareRun& run) {
  auto& record = run.record;
  std::array<std::wstring, 4> texts;
  const bool available = AppSdk_TriggerFwUpgradeResult(&record.ok, texts.data());
  WriteLog(LOG_DEBUG, run.name, __LINE__, L"get firmware version result: %d, succeed: %d", available, record.ok);
  if (!available) return;
  record.newFirmware = true;
  record.versionText1 = texts[0];
  record.versionText2 = texts[1];
}

// One step per run. A start or a poll that failed was the last: only a fresh record begins again.
int stepCheck(const FirmwareRun& run) {
  auto& record = run.record;
  if (!record.triggered) {
    record.triggered = true;
    record.ok = AppSdk_TriggerFwUpgradeStart(&run.printer);
  } else if (record.ok) {
    setDone(record, false);
    record.ok = AppSdk_TriggerFwUpgradeProcess(&record.done);
  }
  if (record.ok && isDone(record)) fetchVersions(run);
  return operations::finish(run, __LINE__, L" notice caller the result of check new firmware.");
}

void pollTransfer(const FirmwareRun& run) {
  auto& record = run.record;
  std::int32_t current = 0;
  std::int32_t total = 0;
  const int result = AppPrinterSdk_UpgradeFwProgress(&current, &total);
  WriteLog(LOG_DEBUG, run.name, __LINE__, L"firmware upgrade progress: %d %d", current, total);
  record.ok = result == 0;
  if (result != 0) {
    setDone(record, true);
    return;
  }
  setDone(record, current >= total);
  record.percent = operations::firmwarePercent(current, total);
  notice_caller(run.entry);
  platform::sleepFor(kBetweenProgressCalls);
}

int transfer(const FirmwareRun& run) {
  AppPrinterSdk_UpgradeFwStart(&run.printer, &run.record.firmware);  // the progress calls tell whether it went well
  while (!run.task.getDelete() && !isDone(run.record)) pollTransfer(run);
  AppPrinterSdk_UpgradeFwExit();
  if (!run.task.getDelete()) notice_caller(run.entry);
  return operations::kDone;
}

int watch(const FirmwareRun& run) {
  while (!run.task.getDelete() && !isDone(run.record)) {
    run.record.ok = AppPrinterSdk_GetState(&run.printer) == 0;
    notice_caller(run.entry);
    // In short sleeps, so that a deletion is seen soon.
    for (int test = 0; test < kDeletionTestsPerPause && !run.task.getDelete(); ++test) {
      platform::sleepFor(kBetweenDeletionTests);
    }
  }
  return operations::kDone;
}

}  // namespace

int comm_thread_regUpgrade(std::shared_ptr<comm::CNode> entry) {
  return operations::inFrame<State>(std::move(entry), __func__, __LINE__, L"resource type is NOT state", registerPrinter);
}

int comm_thread_firmNewCheck(std::shared_ptr<comm::CNode> entry) {
  return operations::inFrame<FirmUp>(std::move(entry), __func__, __LINE__, kMismatch, stepCheck);
}

int comm_thread_firmUpgrade(std::shared_ptr<comm::CNode> entry) {
  return operations::inFrame<FirmUp>(std::move(entry), __func__, __LINE__, kMismatch, transfer);
}

int comm_thread_firmUpCheck(std::shared_ptr<comm::CNode> entry) {
  return operations::inFrame<FirmUp>(std::move(entry), __func__, __LINE__, kMismatch, watch);
}
