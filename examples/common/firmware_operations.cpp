#include <atomic>

#include "Records.h"
#include "common/Operations.h"

namespace examples {
namespace {

using AppComm::FirmUp;
using AppComm::Type;

Report versionsReport(const FirmUp& record) {
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
  CheckOperation() : RecordOperation(Type::FirmNewCheck, {}, nullptr) {}

  bool repeats() const override { return true; }

 protected:
  bool onNotice() override {
    if (record().ok) m_started = true;
    return record().ok && !record().done;
  }

  Report reportRecord(const qzstd::PrinterInfo& /*printer*/) const override {
    if (record().ok && record().done) return versionsReport(record());
    if (record().ok) return failure(L"the check was not finished");
    if (record().done) return failure(L"the check ended without a result");
    return failure(m_started ? L"the check broke off"
                             : L"the check did not start: the upgrade service refused it, or did not answer");
  }

 private:
  bool m_started = false;
};

// What the module makes of a complete transfer is 85; with some sizes single precision rounds it down.
constexpr std::int32_t kComplete = 84;

/// The record does not hold whether the start succeeded: the first progress that could be read shows it.
class UpgradeOperation : public RecordOperation<FirmUp> {
 public:
  explicit UpgradeOperation(FirmUp record) : RecordOperation(Type::FirmUpgrade, std::move(record), nullptr) {}

 protected:
  bool onNotice() override {
    if (record().ok) m_started = true;
    return true;
  }

  Report reportRecord(const qzstd::PrinterInfo& /*printer*/) const override {
    const auto reason = whyItFailed();
    return {.outcome = reason.empty() ? Outcome::Succeeded : Outcome::Failed,
            .reason = reason,
            .results = {number(L"percent", record().percent)},
            .percent = record().percent};
  }

 private:
  std::wstring whyItFailed() const {
    if (!record().done) return L"the transfer was not finished";
    if (!record().ok) {
      return m_started ? L"the transfer broke off" : L"the transfer could not be started, or broke off at once";
    }
    if (record().percent >= kComplete) return {};
    return L"the transfer is said to be over, but not to be complete";
  }

  bool m_started = false;
};

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

std::unique_ptr<Operation> newFirmwareRegister(const Request& /*request*/) {
  return newRegistration(Type::RegUpgrade, &AppComm::State::upgradeRegistered);
}

std::unique_ptr<Operation> newFirmwareCheck(const Request& /*request*/) { return std::make_unique<CheckOperation>(); }

std::unique_ptr<Operation> newFirmwareUpgrade(const Request& request) {
  FirmUp record;
  record.firmware = request.operands[0];
  return std::make_unique<UpgradeOperation>(std::move(record));
}

std::unique_ptr<Operation> newFirmwareWatch(const Request& /*request*/) { return std::make_unique<WatchOperation>(); }

}  // namespace examples
