#include <utility>

#include "simulator/Call.h"
#include "simulator/Garbage.h"
#include "simulator/LibraryFunctions.h"

namespace simulator {
namespace {

bool finished(const Call& call) { return call.job().age >= call.printer().upgradeService.checkTime; }

/// Fills the texts when there is new firmware.
bool versionsOf(const Call& call, std::wstring* fourTexts) {
  const UpgradeService& service = call.printer().upgradeService;
  std::wstring version = call.onState([](const PrinterState& state, milliseconds) { return state.contents.firmwareVersion; });
  if (!service.newVersion || *service.newVersion == version) return false;
  fourTexts[0] = std::move(version);
  fourTexts[1] = *service.newVersion;
  fourTexts[2] = service.notes;
  fourTexts[3] = call.printer().description.upgradeKey;
  return true;
}

}  // namespace

bool setPrinterUpgradeInfo(const qzstd::PrinterInfo* printer) {
  return answerYesNo(Function::setPrinterUpgradeInfo, byUid(printer), [printer](const Call& call) {
    const bool registers = call.printer().upgradeService.registers;
    call.onState([&](PrinterState& state, milliseconds) {
      if (!registers) return;
      state.contents.upgradeRegistered = true;
      state.contents.upgradeKey = printer->upgradeKey;
    });
    return registers != call.garbage();
  });
}

bool triggerFwUpgradeStart(const qzstd::PrinterInfo* printer) {
  return answerYesNo(Function::triggerFwUpgradeStart, byUid(printer), [](const Call& call) {
    const bool starts = call.printer().upgradeService.starts;
    if (starts) call.startJob(JobKind::upgradeCheck);
    return starts != call.garbage();
  });
}

bool triggerFwUpgradeProcess(bool* done) {
  const Target target = telling(with(ofThread(JobKind::upgradeCheck), done), done);
  return answerYesNo(Function::triggerFwUpgradeProcess, target, [done](const Call& call) {
    if (call.garbage()) {
      *done = !finished(call);
    } else if (finished(call)) {
      *done = true;
    }
    return true;
  });
}

bool triggerFwUpgradeResult(bool* ok, std::wstring* fourTexts) {
  const Target target = telling(with(ofThread(JobKind::upgradeCheck), ok, fourTexts), ok);
  return answerYesNo(Function::triggerFwUpgradeResult, target, [=](const Call& call) {
    if (call.garbage()) {
      *ok = true;
      garbage::fillTexts(fourTexts);
      return true;
    }
    if (!finished(call)) return false;
    *ok = call.printer().upgradeService.result;
    return *ok && versionsOf(call, fourTexts);
  });
}

}  // namespace simulator
