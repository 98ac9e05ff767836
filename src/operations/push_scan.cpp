#include <utility>

#include "AppPrinterSdk.h"
#include "Records.h"
#include "operations/Frame.h"
#include "operations/Handlers.h"
#include "operations/Registration.h"

namespace {

using AppComm::State;
using AppPrinterSdk::PushScanPara;

int registerComputer(const operations::Run<State>& run) {
  const int result = AppPrinterSdk_RegisterPushScanUSB(&run.printer);
  run.record.pushScanRegistered = result == 0;
  WriteLog(LOG_DEBUG, run.name, __LINE__, L"register push scan result: %d", result);
  return operations::shareRegistration(run, &State::pushScanRegistered);
}

int readParameters(const operations::Run<PushScanPara>& run) {
  const int result = AppPrinterSdk_GetPushScanPara(&run.printer, &run.record);
  WriteLog(LOG_DEBUG, run.name, __LINE__, L"get push scan parameter result: %d", result);
  if (result == 0) {
    // The parameters are for the task alone: observers are dropped, not served.
    operations::tellWindow(run.task);
    for (std::size_t index = 0; const auto observer = run.entry.observer(index); ++index) observer->setDelete();
  }
  return result;
}

}  // namespace

int comm_thread_regPushscan(std::shared_ptr<comm::CNode> entry) {
  return operations::inFrame<State>(std::move(entry), __func__, __LINE__, L"resource type is NOT state", registerComputer);
}

int comm_thread_getPushscan(std::shared_ptr<comm::CNode> entry) {
  return operations::inFrame<PushScanPara>(std::move(entry), __func__, __LINE__, L"resource type is NOT push scan parameter.",
                                           readParameters);
}
