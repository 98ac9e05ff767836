#include "simulator/Call.h"
#include "simulator/Garbage.h"
#include "simulator/LibraryFunctions.h"

namespace simulator {

int getNetWork(const qzstd::PrinterInfo* printer, AppPrinterSdk::NetworkSettings* settings) {
  return answer(Function::getNetWork, with(byUid(printer), settings), [settings](const Call& call) {
    const auto read = [](const PrinterState& state, milliseconds) { return state.contents.network; };
    *settings = call.garbage() ? garbage::networkSettings() : call.onState(read);
    return success;
  });
}

int setNetWork(const qzstd::PrinterInfo* printer, const AppPrinterSdk::NetworkSettings* settings) {
  return answer(Function::setNetWork, with(byUid(printer), settings), [settings](const Call& call) {
    const auto keep = [settings](PrinterState& state, milliseconds) { state.contents.network = *settings; };
    if (!call.garbage()) call.onState(keep);
    return success;
  });
}

bool isNetConnected(const qzstd::PrinterInfo* printer) {
  return answerYesNo(Function::isNetConnected, byUid(printer), [](const Call& call) {
    const auto read = [](const PrinterState& state, milliseconds) { return state.contents.netConnected; };
    return call.onState(read) != call.garbage();
  });
}

}  // namespace simulator
