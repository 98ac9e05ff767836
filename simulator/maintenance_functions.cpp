#include "simulator/Call.h"
#include "simulator/LibraryFunctions.h"

namespace simulator {

int setAlignPage(const qzstd::PrinterInfo* printer) {
  return answer(Function::setAlignPage, byUid(printer), [](const Call& call) {
    const auto print = [](PrinterState& state, milliseconds at) { state.printAlignmentPage(at); };
    if (!call.garbage()) call.onState(print);
    return success;
  });
}

int setClean(const qzstd::PrinterInfo* printer) {
  return answer(Function::setClean, byUid(printer), [](const Call& call) {
    const auto clean = [](PrinterState& state, milliseconds at) { state.clean(at); };
    if (!call.garbage()) call.onState(clean);
    return success;
  });
}

int setAlignCmd(const qzstd::PrinterInfo* printer, const AppComm::SetAdjust* record) {
  return answer(Function::setAlignCmd, with(byUid(printer), record), [record](const Call& call) {
    const auto keep = [record](PrinterState& state, milliseconds) { state.contents.alignment = record->values; };
    if (!call.garbage()) call.onState(keep);
    return success;
  });
}

bool printBmp(const wchar_t* managerId, const AppComm::QRCode* record) {
  return answerYesNo(Function::printBmp, with(byManagerId(managerId), record), [record](const Call& call) {
    call.onState([record](PrinterState& state, milliseconds at) { state.printImage(record->image, at); });
    return !call.garbage();
  });
}

}  // namespace simulator
