#include <atomic>
#include <source_location>
#include <utility>

#include "AppMgr.h"
#include "AppPrinterSdk.h"
#include "Records.h"
#include "operations/Frame.h"
#include "operations/Handlers.h"

namespace {

using AppComm::State;
using StateRun = operations::Run<State>;

constexpr int kSkipped = 1;
constexpr std::int32_t kUsb = 0;
constexpr std::int32_t kNetwork = 1;

// `format` takes the result; `where` is the place of the call, for the log.
void readState(const StateRun& run, const wchar_t* format, std::source_location where = std::source_location::current()) {
  run.record.result = AppPrinterSdk_GetState(&run.printer);
  run.task.setNPAFlag();
  WriteLog(LOG_DEBUG, run.name, static_cast<std::int32_t>(where.line()), format, run.record.result);
}

void pollUsb(const StateRun& run, int jobs) {
  if (jobs != 0) {  // a negative count may be a printing printer too
    if (run.printer.hasCtrlPort) readState(run, L"get usb printer (ctrl port) state result: %d");
  } else if (run.task.getReqNPA()) {
    readState(run, L"get usb printer (request) state result: %d");
  } else if (AppPrinterSdk_IsSuppportPushScan(&run.printer)) {
    readState(run, L"get usb printer (push scan) state result: %d");
  }
}

void pollNetwork(const StateRun& run, int jobs) {
  AppMgr_CheckIpChange(&run.printer, &run.record.ipChanged);
  if (run.record.ipChanged) WriteLog(LOG_DEBUG, run.name, __LINE__, L"net printer ip changed.");
  if (run.task.getReqNPA()) {
    readState(run, L"get net printer (request) state result: %d");
  } else if (jobs >= 1) {
    WriteLog(LOG_DEBUG, run.name, __LINE__, L"new job: %d, old job: %d", jobs, run.record.jobs);
    readState(run, L"get net printer (printing) state result: %d");
  }
}

void copyReadState(const qzstd::PrinterInfo& from, qzstd::PrinterInfo& to) {
  to.model = from.model;
  to.serialNumber = from.serialNumber;
  to.firmwareVersion = from.firmwareVersion;
  to.address = from.address;
  to.deviceId = from.deviceId;
  to.deviceStatus = from.deviceStatus;
  to.supplies = from.supplies;
  to.alerts = from.alerts;
}

void shareWith(const AppComm::Node& observer, State& record, const StateRun& run) {
  record.result = run.record.result;
  record.jobs = run.record.jobs;
  record.queried = run.record.queried;
  record.ipChanged = run.record.ipChanged;
  const auto printer = observer.getInfo();
  if (printer->name != run.printer.name) copyReadState(run.printer, *printer);
}

int pollState(const StateRun& run) {
  // The caller may write this flag at any time.
  if (std::atomic_ref(run.record.busy).load()) {
    WriteLog(LOG_DEBUG, run.name, __LINE__, L"printer is busy, skip state query.");
    run.task.resetNPAFlag();
    return kSkipped;
  }

  const int jobs = AppMgr_GetPrintingJob(run.printer.managerId.c_str());
  run.task.resetNPAFlag();
  // Not looked at again after a read, which may change it.
  if (run.printer.connectionKind == kUsb) {
    pollUsb(run, jobs);
  } else if (run.printer.connectionKind == kNetwork) {
    pollNetwork(run, jobs);
  }
  run.record.jobs = jobs;
  run.record.queried = run.task.getNPAFlag();

  operations::forEachObserver<State>(run.entry,
                                     [&run](const auto& observer, State& record) { shareWith(observer, record, run); });
  return operations::finish(run, __LINE__, L" notice caller the state information has been captured.");
}

}  // namespace

int comm_thread_state(std::shared_ptr<comm::CNode> entry) {
  return operations::inFrame<State>(std::move(entry), __func__, __LINE__, L"resource type is NOT state", pollState);
}
