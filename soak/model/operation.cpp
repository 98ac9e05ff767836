#include "model/Operation.h"

#include <algorithm>
#include <initializer_list>
#include <tuple>

namespace soak {
namespace {

using namespace std::chrono_literals;
using Npa = Progress::Npa;

// In the order in which they are read.
constexpr std::array<std::string_view, std::tuple_size_v<Selection>> kGetters{
    "AppPrinterSdk_GetSleepTime", "AppPrinterSdk_GetSuppliesAlarm", "AppPrinterSdk_GetPaperAlarm",
    "AppPrinterSdk_GetTimedClear", "AppPrinterSdk_GetSilentMode"};

constexpr std::array<std::string_view, 3> kExits{"AppPrinterSdk_UpgradeFwExit", "AppMgr_GetPrinterWifiExit",
                                                 "AppMgr_PrinterWifiConfigExit"};

constexpr std::string_view kTransferProgress = "AppPrinterSdk_UpgradeFwProgress";
constexpr std::string_view kSearchStart = "AppMgr_GetPrinterWifiStart", kSearchProgress = "AppMgr_GetPrinterWifiProgress";
constexpr std::string_view kJoinStart = "AppMgr_PrinterWifiConfigStart", kJoinProgress = "AppMgr_PrinterWifiConfigProgress";
constexpr std::string_view kCheckStart = "AppSdk_TriggerFwUpgradeStart", kCheckProcess = "AppSdk_TriggerFwUpgradeProcess",
                           kCheckResult = "AppSdk_TriggerFwUpgradeResult";

struct TypeRow {
  std::string_view name;
  std::string_view change{};  ///< what an operation calls that changes the printer, and has no other call but for the jobs
};
// By the number of the type.
constexpr std::array kRows{TypeRow{"State"},
                           TypeRow{"GetAlarm"},
                           TypeRow{"GetDevParam"},
                           TypeRow{"SetSupplyAlarm", "AppPrinterSdk_SetSuppliesAlarm"},
                           TypeRow{"SetSleepTime", "AppPrinterSdk_SetSleepTime"},
                           TypeRow{"SetPaperAlarm", "AppPrinterSdk_SetPaperAlarm"},
                           TypeRow{"SetSilentMode", "AppPrinterSdk_SetSilentMode"},
                           TypeRow{"SetTimedClear", "AppPrinterSdk_SetTimedClear"},
                           TypeRow{"GetPushscan"},
                           TypeRow{"RegPushscan"},
                           TypeRow{"RegUpgrade"},
                           TypeRow{"PrintAdjust", "AppPrinterSdk_SetAlignPage"},
                           TypeRow{"PrintClean", "AppPrinterSdk_SetClean"},
                           TypeRow{"PrintQRcode", "AppSdk_PrintBmp"},
                           TypeRow{"GetNetwork"},
                           TypeRow{"SetNetwork", "AppPrinterSdk_SetNetWork"},
                           TypeRow{"SetAdjust", "AppPrinterSdk_SetAlignCmd"},
                           TypeRow{"FirmNewCheck"},
                           TypeRow{"FirmUpgrade"},
                           TypeRow{"FirmUpCheck"},
                           TypeRow{"GetWifiList"},
                           TypeRow{"SetWifiList"}};
static_assert(kRows.size() == kTypes);

const TypeRow& rowOf(Type type) { return kRows.at(static_cast<std::size_t>(type)); }

Next calls(std::initializer_list<std::string_view> functions) {
  Next next;
  std::ranges::copy(functions, next.calls.begin());
  return next;
}
Next call(std::string_view function) { return calls({function}); }
Next round() { return {.round = true}; }
Next done() { return {.done = true}; }

// The exchange that reads the state is left out when nothing asks for it.
Next stateNext(const Progress& at, const Surroundings& in) {
  constexpr std::string_view jobs = "AppMgr_GetPrintingJob", address = "AppMgr_CheckIpChange",
                             scan = "AppPrinterSdk_IsSuppportPushScan", read = "AppPrinterSdk_GetState";
  if (at.afterRound) return done();
  if (at.function.empty()) return call(jobs);
  if (at.function == read) return round();
  if (at.function == scan) return at.result != 0 ? call(read) : round();
  if (in.printer.network) {
    if (at.function == jobs) return call(address);
    if (at.npa == Npa::unread) return {.readsNpa = true};
    return at.npa == Npa::yes || at.jobs >= 1 ? call(read) : round();
  }
  if (at.jobs != 0) return in.printer.ctrlPort ? call(read) : round();
  if (at.npa == Npa::unread) return {.readsNpa = true};
  return call(at.npa == Npa::yes ? read : scan);
}

Next alarmNext(const Progress& at) {
  if (at.function.empty()) return call("AppPrinterSdk_IsSuppportSuppliesAlarm");
  const bool supported = at.function == "AppPrinterSdk_IsSuppportSuppliesAlarm" && at.result != 0;
  return supported ? call("AppPrinterSdk_GetSuppliesAlarm") : done();
}

std::size_t getterOf(std::string_view function) {
  return static_cast<std::size_t>(std::ranges::find(kGetters, function) - kGetters.begin());
}

Next parametersNext(const Progress& at) {
  if (at.afterRound) return done();
  for (std::size_t one = at.function.empty() ? 0 : getterOf(at.function) + 1; one < kGetters.size(); ++one) {
    if (at.record.selected[one]) return call(kGetters[one]);
  }
  return round();
}

// Operations that change the printer ask it first.
Next changeNext(const Progress& at, const Surroundings& in, std::string_view function) {
  if (at.afterRound) return done();
  if (at.function.empty()) return call("AppMgr_GetPrintingJob");
  const auto status = in.task.status;
  const bool accepts = in.task.type == Type::PrintQRcode ? status != 1 : status == 0 || status == 11;
  return at.function != function && at.jobs <= 0 && accepts ? call(function) : round();
}

Next oneCallNext(const Progress& at, std::string_view function, const Next& after) {
  if (at.afterRound) return done();
  return at.function.empty() ? call(function) : after;
}

// One step in each run: a start or process call that fails was the record's last.
Next checkNext(const Progress& at) {
  if (at.afterRound || at.function == kCheckResult) return at.afterRound ? done() : round();
  if (at.function.empty() && !at.record.triggered) return call(kCheckStart);
  if (at.function.empty()) return at.record.ok ? call(kCheckProcess) : round();
  return at.record.ok && at.record.done ? call(kCheckResult) : round();
}

// The last notice of a long job is left out once the task is deleted.
Next afterExit(const Progress& at, const Surroundings& in) {
  if (at.afterRound || in.isDeleted) return done();
  return {.round = true, .done = in.mayBeDeleted};
}

// Before it asks how far its job is, an operation looks whether its task is deleted.
Next poll(const Surroundings& in, std::string_view progress, std::string_view exit) {
  if (in.isDeleted) return call(exit);
  return in.mayBeDeleted ? calls({progress, exit}) : call(progress);
}

// With the record of an earlier transfer it ends as it begins.
Next transferNext(const Progress& at, const Surroundings& in) {
  constexpr std::string_view start = "AppPrinterSdk_UpgradeFwStart", exit = "AppPrinterSdk_UpgradeFwExit";
  if (at.exited) return afterExit(at, in);
  if (at.function.empty()) return call(start);
  if (at.function == kTransferProgress && !at.afterRound) return at.result == 0 ? round() : call(exit);
  return at.record.done ? call(exit) : poll(in, kTransferProgress, exit);
}

Next watchNext(const Progress& at, const Surroundings& in) {
  constexpr std::string_view read = "AppPrinterSdk_GetState";
  if (at.function == read && !at.afterRound) return round();
  if (in.isDeleted) return done();
  Next next = call(read);
  next.done = in.mayBeDeleted;
  return next;
}

Next searchNext(const Progress& at, const Surroundings& in) {
  constexpr std::string_view connected = "AppPrinterSdk_IsNetConnected", result = "AppMgr_GetPrinterWifiResult",
                             exit = "AppMgr_GetPrinterWifiExit";
  if (at.function.empty()) return call(connected);
  if (at.function == connected) {
    if (at.afterRound) return done();
    return at.result != 0 ? round() : call(kSearchStart);
  }
  if (at.exited) return afterExit(at, in);
  if (at.function == result) return call(exit);
  if (at.function == kSearchProgress && !at.afterRound) return at.over ? call(result) : round();
  return poll(in, kSearchProgress, exit);
}

Next joinNext(const Progress& at, const Surroundings& in) {
  constexpr std::string_view exit = "AppMgr_PrinterWifiConfigExit";
  if (at.function.empty()) return call(kJoinStart);
  if (at.exited) return afterExit(at, in);
  if (at.function == kJoinProgress && !at.afterRound) return at.over ? call(exit) : round();
  return poll(in, kJoinProgress, exit);
}

Next pushScanNext(const Progress& at) {
  if (at.function.empty()) return call("AppPrinterSdk_GetPushScanPara");
  if (at.result == 0 && !at.afterRound) return {.ownNotice = true};
  return done();
}

void noteChecked(RecordFields& record, const Event& event) {
  record.triggered = true;
  record.ok = (event.function == kCheckResult ? event.told[0] : event.value) != 0;
  if (event.function == kCheckProcess) record.done = event.told[0] != 0;
}

Next operationNext(const Progress& at, const Surroundings& in) {
  if (const auto change = rowOf(in.task.type).change; !change.empty()) return changeNext(at, in, change);
  switch (in.task.type) {
    case Type::State:
      return stateNext(at, in);
    case Type::GetAlarm:
      return alarmNext(at);
    case Type::GetDevParam:
      return parametersNext(at);
    case Type::GetPushscan:
      return pushScanNext(at);
    case Type::RegPushscan:
      return oneCallNext(at, "AppPrinterSdk_RegisterPushScanUSB", done());
    case Type::RegUpgrade:
      return oneCallNext(at, "AppSdk_SetPrinterUpgradeInfo", done());
    case Type::GetNetwork:
      return oneCallNext(at, "AppPrinterSdk_GetNetWork", round());
    case Type::FirmNewCheck:
      return checkNext(at);
    case Type::FirmUpgrade:
      return transferNext(at, in);
    case Type::FirmUpCheck:
      return watchNext(at, in);
    case Type::GetWifiList:
      return searchNext(at, in);
    case Type::SetWifiList:
      return joinNext(at, in);
    default:
      return {};
  }
}

// Where the alarms or the silent mode are still to be read. The timed clear mode alone brings no pause.
std::chrono::milliseconds pauseBetweenReads(const Progress& at) {
  constexpr std::array<std::size_t, 3> bringPauses{1, 2, 4};
  if (at.function.empty() || at.afterRound) return 0ms;
  const auto isDue = [&](std::size_t one) { return one > getterOf(at.function) && at.record.selected[one]; };
  return std::ranges::any_of(bringPauses, isDue) ? 1'000ms : 0ms;
}

// A watch sleeps a hundred ticks; half a millisecond is the shortest that a system is set to.
std::chrono::milliseconds pauseAfter(const Progress& at, Type type) {
  if (type == Type::GetDevParam) return pauseBetweenReads(at);
  if (!at.afterRound) return 0ms;
  if (type == Type::FirmUpCheck) return 50ms;
  if (at.function == kTransferProgress) return 100ms;
  return at.function == kSearchProgress || at.function == kJoinProgress ? 500ms : 0ms;
}

}  // namespace

RecordFields newRecord(const TaskTraits& task) { return {.selected = task.selected}; }

bool Next::calling(std::string_view function) const {
  return !function.empty() && std::ranges::find(calls, function) != calls.end();
}

Next nextOf(const Progress& at, const Surroundings& in) {
  if (at.refused) return done();
  if (in.task.wrongRecord && in.task.type != Type::GetAlarm) return {.ownRecord = true};
  Next next = operationNext(at, in);
  next.pause = pauseAfter(at, in.task.type);
  return next;
}

void noteReturn(Progress& at, Type type, const Event& event) {
  at.result = event.value;
  if (event.function == "AppMgr_GetPrintingJob") at.jobs = event.value;
  if (std::ranges::find(kExits, event.function) != kExits.end()) at.exited = true;
  if (type == Type::GetDevParam) at.record.selected.at(getterOf(event.function)) = event.value == 0;
  if (type == Type::FirmNewCheck) noteChecked(at.record, event);
  if (event.function == kTransferProgress) at.record.done = event.value != 0 || event.told[0] >= event.told[1];
  if (event.function == kSearchStart || event.function == kJoinStart) at.total = event.told[0];
  if (event.function == kSearchProgress || event.function == kJoinProgress) at.over = event.told[0] >= at.total;
}

bool sharesRecords(Type type) { return type == Type::State || type == Type::RegPushscan || type == Type::RegUpgrade; }

std::string_view nameOf(Type type) { return rowOf(type).name; }

}  // namespace soak
