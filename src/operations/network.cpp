#include <utility>

#include "AppPrinterSdk.h"
#include "Records.h"
#include "operations/Handlers.h"
#include "operations/SendCommand.h"

namespace {

using AppComm::NetWork;

constexpr const wchar_t* kMismatch = L"resource type is NOT network";

constexpr operations::Command<NetWork> kSet{
    kMismatch, [](qzstd::PrinterInfo* printer, NetWork& record) { return AppPrinterSdk_SetNetWork(printer, &record.settings); },
    L" notice caller the result of set device network."};

// Changes nothing, so a printer that prints is asked too.
int readSettings(const operations::Run<NetWork>& run) {
  run.record.result = AppPrinterSdk_GetNetWork(&run.printer, &run.record.settings);
  return operations::finish(run, __LINE__, L" notice caller the result of get device network.");
}

}  // namespace

int comm_thread_getNetwork(std::shared_ptr<comm::CNode> entry) {
  return operations::inFrame<NetWork>(std::move(entry), __func__, __LINE__, kMismatch, readSettings);
}

int comm_thread_setNetwork(std::shared_ptr<comm::CNode> entry) {
  return operations::sendCommand(std::move(entry), __func__, kSet);
}
