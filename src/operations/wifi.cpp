#include <chrono>
#include <utility>

#include "AppMgr.h"
#include "AppPrinterSdk.h"
#include "Records.h"
#include "operations/Frame.h"
#include "operations/Handlers.h"
#include "platform/Time.h"

namespace {

using namespace std::chrono_literals;
using AppComm::WIFI;
using WifiRun = operations::Run<WIFI>;

constexpr const wchar_t* kMismatch = L"resource type is NOT WIFI";
constexpr auto kBetweenProgressCalls = 500ms;

/// A job of the manager library that has been started.
struct Job {
  int (*progress)(std::int32_t* segment);
  const wchar_t* progressText;                           // takes the result and the segment
  void (*complete)(const WifiRun& run, int lastResult);  // at the last segment
  void (*exit)();
};

// Until the job is done or the task deleted, however long that takes. `total` in segments.
int pollJob(const WifiRun& run, std::int32_t total, const Job& job) {
  while (!run.task.getDelete() && !run.record.finished) {
    std::int32_t segment = 0;
    const int result = job.progress(&segment);
    WriteLog(LOG_DEBUG, run.name, __LINE__, job.progressText, result, segment);
    if (segment < total) {
      notice_caller(run.entry);
      platform::sleepFor(kBetweenProgressCalls);
    } else {
      job.complete(run, result);
    }
  }
  job.exit();
  if (!run.task.getDelete()) notice_caller(run.entry);
  return operations::kDone;
}

void takeList(const WifiRun& run, int /*lastResult*/) {
  auto& record = run.record;
  const int result = AppMgr_GetPrinterWifiResult(&record.networks);
  WriteLog(LOG_DEBUG, run.name, __LINE__, L"Get Wifi List result: %d, wifi size: %d", result,
           static_cast<int>(record.networks.size()));
  record.finished = true;
  record.succeeded = result == 0 && !record.networks.empty();
}

void takeOutcome(const WifiRun& run, int lastResult) {
  run.record.succeeded = lastResult == 0;
  run.record.finished = true;
}

constexpr Job kFetch{AppMgr_GetPrinterWifiProgress, L"Get Wifi progress, ret: %d, segment: %d", takeList,
                     AppMgr_GetPrinterWifiExit};
constexpr Job kConfigure{AppMgr_PrinterWifiConfigProgress, L"Set wifi progress, ret: %d, segment: %d.", takeOutcome,
                         AppMgr_PrinterWifiConfigExit};

int fetchNetworks(const WifiRun& run) {
  auto& record = run.record;
  record.connected = false;
  record.finished = false;
  record.succeeded = false;
  const bool connected = AppPrinterSdk_IsNetConnected(&run.printer, 0);
  record.connected = connected;
  if (connected) {
    notice_caller(run.entry);
    return operations::kDone;
  }
  std::int32_t total = 0;
  const int started = AppMgr_GetPrinterWifiStart(&run.printer, &total);
  WriteLog(LOG_DEBUG, run.name, __LINE__, L"Get printer wifi start, ret: %d, total: %d", started, total);
  return pollJob(run, total, kFetch);
}

int configureNetwork(const WifiRun& run) {
  auto& record = run.record;
  record.finished = false;
  record.succeeded = false;
  std::int32_t total = 0;
  auto* const network = record.networks.empty() ? nullptr : record.networks.data();
  const int started = AppMgr_PrinterWifiConfigStart(&run.printer, network, &total);
  WriteLog(LOG_DEBUG, run.name, __LINE__, L"Set wifi by start, ret: %d, total: %d.", started, total);
  return pollJob(run, total, kConfigure);
}

}  // namespace

int comm_thread_getWifiList(std::shared_ptr<comm::CNode> entry) {
  return operations::inFrame<WIFI>(std::move(entry), __func__, __LINE__, kMismatch, fetchNetworks);
}

int comm_thread_setWifiList(std::shared_ptr<comm::CNode> entry) {
  return operations::inFrame<WIFI>(std::move(entry), __func__, __LINE__, kMismatch, configureNetwork);
}
