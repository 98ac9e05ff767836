#include "common/Operation.h"

#include <string>

namespace examples {

bool Operation::noticed() {
  m_noticed = true;
  return onNotice();
}

Report Operation::report(const qzstd::PrinterInfo& printer) const {
  if (m_noticed || m_notifies == Notifies::Not) return reportRecord(printer);
  if (m_notifies == Notifies::OnSuccess) {
    return failure(L"it did not succeed: the printer did not answer, or does not support it");
  }
  return failure(L"the module let the task go without running it; try again");  // its list was just ending
}

Report failure(std::wstring reason) { return {.outcome = Outcome::Failed, .reason = std::move(reason)}; }

Report failure(std::int32_t code) { return failure(L"the printer library answered " + std::to_wstring(code)); }

std::unique_ptr<Operation> newRegistration(AppComm::Type type, bool AppComm::State::*registered) {
  return std::make_unique<RecordOperation<AppComm::State>>(
      type, AppComm::State{},
      [registered](const AppComm::State& record, const qzstd::PrinterInfo&) {
        return record.*registered ? Report{} : failure(L"the registration did not succeed");
      },
      Operation::Notifies::Not);
}

// The record does not tell the printer's two kinds of being busy apart; most statuses do.
Report refusal(const qzstd::PrinterInfo& printer, bool statusOne) {
  if (statusOne) return {.outcome = Outcome::Refused, .reason = L"the printer's device status is 1, which allows no changes"};
  const auto status = printer.deviceStatus;
  if (status == 0 || status == 1 || status == 11) return {.outcome = Outcome::Refused, .reason = L"the printer is printing"};
  return {
      .outcome = Outcome::Refused,
      .reason = L"the printer is busy: it prints, or its device status (" + std::to_wstring(status) + L") allows no changes"};
}

}  // namespace examples
