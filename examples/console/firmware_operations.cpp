#include <atomic>

#include "Records.h"
#include "console/Operations.h"

namespace console {
namespace {

using AppComm::FirmUp;
using AppComm::Type;

Report checkReport(const FirmUp& record, const qzstd::PrinterInfo& /*printer*/) {
  if (!record.ok || !record.done) return failure(L"the upgrade service did not answer");
  Report report{.results = {yesOrNo(L"new firmware", record.newFirmware)}};
  if (record.newFirmware) {
    report.results.push_back(text(L"version text 1", record.versionText1));
    report.results.push_back(text(L"version text 2", record.versionText2));
  }
  return report;
}

/// One step in each run of a repeating task.
class CheckOperation : public RecordOperation<FirmUp> {
 public:
  CheckOperation() : RecordOperation(Type::FirmNewCheck, {}, checkReport) {}

  bool repeats() const override { return true; }

 protected:
  bool onNotice() override { return record().ok && !record().done; }
};

Report upgradeReport(const FirmUp& record, const qzstd::PrinterInfo& /*printer*/) {
  Report report{.results = {number(L"percent", record.percent)}, .percent = record.percent};
  if (record.done && record.ok) return report;
  report.outcome = Outcome::Failed;
  report.reason = L"the transfer broke off";
  return report;
}

/// Goes on until the printer has been away and is back.
class WatchOperation : public RecordOperation<FirmUp> {
 public:
  WatchOperation() : RecordOperation(Type::FirmUpCheck, {}, nullptr) {}

  bool endsAtLimit() const override { return true; }
  void end() override { std::atomic_ref(record().done).store(true); }

 protected:
  bool onNotice() override {
    if (!record().ok) m_wasAway = true;
    if (record().ok && m_wasAway) end();
    return true;
  }

  Report reportRecord(const qzstd::PrinterInfo& printer) const override {
    Report report{.results = {yesOrNo(L"was away", m_wasAway), yesOrNo(L"answers", record().ok)}};
    if (record().ok) {
      report.results.push_back(text(L"firmware", printer.firmwareVersion));
    } else {
      report.outcome = Outcome::Failed;
      report.reason = L"the printer does not answer";
    }
    return report;
  }

 private:
  bool m_wasAway = false;
};

}  // namespace

std::unique_ptr<Operation> newFirmwareCheck(const Request& /*request*/) { return std::make_unique<CheckOperation>(); }

std::unique_ptr<Operation> newFirmwareUpgrade(const Request& request) {
  FirmUp record;
  record.firmware = request.operands[0];
  return std::make_unique<RecordOperation<FirmUp>>(Type::FirmUpgrade, std::move(record), upgradeReport);
}

std::unique_ptr<Operation> newFirmwareWatch(const Request& /*request*/) { return std::make_unique<WatchOperation>(); }

}  // namespace console
