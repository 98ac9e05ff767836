#include "panel/Sight.h"

#include <utility>

#include "Records.h"
#include "common/Operations.h"

namespace panel {
namespace {

using AppComm::State;

// Not without end: the texts are cut for the eye anyway, and a printer may report thousands.
void append(std::wstring& list, const std::wstring& text) {
  if (list.size() <= examples::kMostTextInLine) list += (list.empty() ? L"" : L", ") + text;
}

examples::Report look(const State& record, const qzstd::PrinterInfo& printer, SightBoard& board) {
  Sight sight{.queried = record.queried,
              .result = record.result,
              .jobs = record.jobs,
              .deviceStatus = printer.deviceStatus,
              .supplies = printer.supplies,
              .alerts = printer.alerts};
  sight.fields = {examples::text(L"Status", statusText(sight)),
                  examples::count(L"Jobs", record.jobs),
                  examples::number(L"Device status", printer.deviceStatus),
                  examples::text(L"Model", printer.model),
                  examples::text(L"Serial number", printer.serialNumber),
                  examples::text(L"Firmware", printer.firmwareVersion),
                  examples::text(L"Address", printer.address)};
  std::wstring supplies;
  for (const auto& supply : printer.supplies) append(supplies, supply.color + L' ' + std::to_wstring(supply.percent) + L" %");
  sight.fields.push_back(examples::text(L"Supplies", supplies.empty() ? L"none" : supplies));
  std::wstring alerts;
  for (const auto alert : printer.alerts) append(alerts, std::to_wstring(alert));
  sight.fields.push_back(examples::text(L"Alerts", alerts.empty() ? L"none" : alerts));
  board.put(std::move(sight));
  return {};
}

std::wstring deviceText(std::int32_t deviceStatus) {
  switch (deviceStatus) {
    case 0:
      return L"ready";
    case 1:
      return L"takes no changes just now";
    case 11:
      return L"takes changes";
    default:
      return L"busy (status " + std::to_wstring(deviceStatus) + L")";
  }
}

class Watch : public examples::RecordOperation<State> {
 public:
  explicit Watch(std::shared_ptr<SightBoard> board)
      : RecordOperation(AppComm::Type::State, State{},
                        [board = std::move(board)](const State& record, const qzstd::PrinterInfo& printer) {
                          return look(record, printer, *board);
                        }) {}

  bool repeats() const override { return true; }
};

}  // namespace

std::unique_ptr<examples::Operation> newWatch(std::shared_ptr<SightBoard> board) {
  return std::make_unique<Watch>(std::move(board));
}

std::wstring statusText(const std::optional<Sight>& sight) {
  if (!sight) return L"no answer yet";
  if (sight->result != 0) return L"no answer (code " + std::to_wstring(sight->result) + L")";
  if (sight->jobs > 0) return L"prints";
  return deviceText(sight->deviceStatus) + (sight->jobs < 0 ? L", jobs unknown" : L"");
}

}  // namespace panel
