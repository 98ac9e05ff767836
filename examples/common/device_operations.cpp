#include <algorithm>
#include <array>
#include <limits>
#include <vector>

#include "Records.h"
#include "common/Operations.h"
#include "common/Text.h"

namespace examples {
namespace {

using AppComm::DevParam;
using AppComm::State;
using AppComm::Type;

Value suppliesValue(const std::vector<qzstd::Supply>& supplies) {
  Values values;
  for (const auto& supply : supplies)
    values.push_back({Fields{text(L"color", supply.color), number(L"percent", supply.percent)}});
  return {std::move(values)};
}

Value alertsValue(const std::vector<std::int32_t>& alerts) {
  Values values;
  for (const auto alert : alerts) values.push_back(integer(alert));
  return {std::move(values)};
}

Report stateReport(const State& record, const qzstd::PrinterInfo& printer) {
  if (!record.queried) {
    auto report =
        failure(std::wstring(L"the printer was not asked: ") +
                (record.jobs < 0 ? L"its jobs could not be counted" : L"it prints") + L", and it has no control port");
    report.results = {count(L"jobs", record.jobs)};
    return report;
  }
  if (record.result != 0) return failure(record.result);
  return {.results = {number(L"device status", printer.deviceStatus),
                      count(L"jobs", record.jobs),
                      text(L"model", printer.model),
                      text(L"serial number", printer.serialNumber),
                      text(L"firmware", printer.firmwareVersion),
                      text(L"address", printer.address),
                      yesOrNo(L"address changed", record.ipChanged),
                      {L"supplies", suppliesValue(printer.supplies)},
                      {L"alerts", alertsValue(printer.alerts)}}};
}

/// Takes no record and tells no window: its answer is in the printer description.
class AlarmOperation : public Operation {
 public:
  AlarmOperation() : Operation(Type::GetAlarm, Notifies::Not) {}

  std::any resource(std::shared_ptr<Operation> self) override { return self; }

 protected:
  Report reportRecord(const qzstd::PrinterInfo& printer) const override {
    if (printer.suppliesAlarmState == 0) return failure(L"the printer did not tell");
    return {.results = {number(L"supplies alarm state", printer.suppliesAlarmState)}};
  }
};

struct Parameter {
  const wchar_t* word;
  const wchar_t* name;
  Type setType;
  bool DevParam::*ok;
  std::int64_t least;
  std::int64_t most;
  std::int64_t (*value)(const DevParam&);
  void (*put)(DevParam&, std::int64_t);
};

template <auto member>
std::int64_t valueOf(const DevParam& record) {
  return record.*member;
}

template <auto member>
void putValue(DevParam& record, std::int64_t value) {
  record.*member = static_cast<std::remove_reference_t<decltype(record.*member)>>(value);
}

constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
constexpr const wchar_t* kSuppliesAlarm = L"supplies-alarm";

constexpr std::array<Parameter, 5> kParameters{{
    {L"sleep-time", L"sleep time", Type::SetSleepTime, &DevParam::sleepTimeOk, kLeast, kMost, valueOf<&DevParam::sleepTime>,
     putValue<&DevParam::sleepTime>},
    {kSuppliesAlarm, L"supplies alarm", Type::SetSupplyAlarm, &DevParam::supplyAlarmOk, 0, 0, valueOf<&DevParam::supplyAlarm>,
     putValue<&DevParam::supplyAlarm>},
    {L"paper-alarm", L"paper alarm", Type::SetPaperAlarm, &DevParam::paperAlarmOk, 0, 255, valueOf<&DevParam::paperAlarm>,
     putValue<&DevParam::paperAlarm>},
    {L"timed-clear", L"timed clear", Type::SetTimedClear, &DevParam::timedClearOk, 0, 255, valueOf<&DevParam::timedClear>,
     putValue<&DevParam::timedClear>},
    {L"silent-mode", L"silent mode", Type::SetSilentMode, &DevParam::silentModeOk, 0, 255, valueOf<&DevParam::silentMode>,
     putValue<&DevParam::silentMode>},
}};

bool isOnlyZero(const Parameter& parameter) { return parameter.word == kSuppliesAlarm; }  // the module sends no other

const Parameter& parameterNamed(const std::wstring& word) {
  const auto* found = std::ranges::find(kParameters, word, &Parameter::word);
  if (found != kParameters.end()) return *found;
  std::wstring words;
  for (const auto& parameter : kParameters) words += (words.empty() ? L"" : L", ") + std::wstring(parameter.word);
  throw OptionsError("unknown parameter \"" + plain(word) + "\"; known are " + plain(words));
}

Report getReport(const std::vector<const Parameter*>& asked, const DevParam& record) {
  Report report;
  std::wstring missing;
  for (const auto* parameter : asked) {
    if (record.*parameter->ok) {
      report.results.push_back(number(parameter->name, parameter->value(record)));
    } else {
      missing += (missing.empty() ? L"" : L", ") + std::wstring(parameter->name);
    }
  }
  if (missing.empty()) return report;
  report.outcome = Outcome::Failed;
  report.reason = L"the printer did not tell: " + missing;
  return report;
}

std::unique_ptr<Operation> newSetOf(const Parameter& parameter, std::int64_t value) {
  DevParam record;
  parameter.put(record, value);
  return std::make_unique<ChangeOperation<DevParam>>(
      parameter.setType, record, [&parameter](const DevParam& sent, const qzstd::PrinterInfo&) -> Report {
        if (!(sent.*parameter.ok)) return failure(L"the printer did not take the " + std::wstring(parameter.name));
        return {.results = {number(parameter.name, parameter.value(sent))}};
      });
}

}  // namespace

std::unique_ptr<Operation> newStateOperation() {
  return std::make_unique<RecordOperation<State>>(Type::State, State{}, stateReport);
}

std::unique_ptr<Operation> newState(const Request& /*request*/) { return newStateOperation(); }

std::unique_ptr<Operation> newAlarm(const Request& /*request*/) { return std::make_unique<AlarmOperation>(); }

std::unique_ptr<Operation> newGet(const Request& request) {
  std::vector<const Parameter*> asked;
  for (const auto& parameter : kParameters) {
    if (request.operands.empty()) asked.push_back(&parameter);
  }
  for (const auto& word : request.operands) {
    const auto* parameter = &parameterNamed(word);
    if (std::ranges::find(asked, parameter) == asked.end()) asked.push_back(parameter);
  }
  DevParam record;
  for (const auto* parameter : asked) record.*parameter->ok = true;
  return std::make_unique<RecordOperation<DevParam>>(
      Type::GetDevParam, record, [asked](const DevParam& read, const qzstd::PrinterInfo&) { return getReport(asked, read); });
}

std::vector<OperandHelp> helpOfSet() {
  std::vector<OperandHelp> help;
  for (const auto& parameter : kParameters) {
    if (isOnlyZero(parameter)) {
      help.push_back({parameter.word, L"takes no value; is set to 0"});
    } else {
      const auto range = rangeText(parameter.least, parameter.most);
      help.push_back({std::wstring(parameter.word) + L" VALUE", {range.begin(), range.end()}});
    }
  }
  return help;
}

std::unique_ptr<Operation> newSet(const Request& request) {
  const auto& parameter = parameterNamed(request.operands[0]);
  const bool hasValue = request.operands.size() > 1;
  if (isOnlyZero(parameter) && hasValue) throw OptionsError("supplies-alarm takes no value: it can only be set to 0");
  if (!isOnlyZero(parameter) && !hasValue) {
    throw OptionsError(plain(parameter.word) + " needs a value; it takes " + rangeText(parameter.least, parameter.most));
  }
  return newSetOf(parameter, hasValue ? parseNumber(parameter.word, request.operands[1], parameter.least, parameter.most) : 0);
}

}  // namespace examples
