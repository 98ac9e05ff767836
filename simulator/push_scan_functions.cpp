#include "simulator/Call.h"
#include "simulator/Garbage.h"
#include "simulator/LibraryFunctions.h"

namespace simulator {

bool isSupportPushScan(const qzstd::PrinterInfo* printer) {
  return answerYesNo(Function::isSupportPushScan, byUid(printer),
                     [](const Call& call) { return call.printer().pushScan != call.garbage(); });
}

int registerPushScanUsb(const qzstd::PrinterInfo* printer) {
  return answer(Function::registerPushScanUsb, byUid(printer), [](const Call& call) {
    if (call.garbage()) return success;
    if (!call.printer().pushScan) return notSupported;
    call.onState([](PrinterState& state, milliseconds) { state.contents.pushScanRegistered = true; });
    return success;
  });
}

int getPushScanPara(const qzstd::PrinterInfo* printer, AppPrinterSdk::PushScanPara* parameters) {
  return answer(Function::getPushScanPara, with(byUid(printer), parameters), [parameters](const Call& call) {
    if (!call.garbage() && !call.printer().pushScan) return notSupported;
    *parameters = call.garbage() ? garbage::pushScanParameters() : call.printer().pushScanParameters;
    return success;
  });
}

}  // namespace simulator
