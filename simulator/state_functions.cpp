#include <utility>

#include "simulator/Call.h"
#include "simulator/Garbage.h"
#include "simulator/LibraryFunctions.h"

namespace simulator {
namespace {

struct Shown {
  Readings readings;
  std::wstring firmwareVersion;
};

Shown shownBy(const Call& call) {
  return call.onState([](const PrinterState& state, milliseconds at) {
    return Shown{state.readings(at), state.contents.firmwareVersion};
  });
}

void fillState(qzstd::PrinterInfo& info, const Printer& printer, Shown shown) {
  info.model = printer.model;
  info.serialNumber = printer.serialNumber;
  info.firmwareVersion = std::move(shown.firmwareVersion);
  info.address = std::move(shown.readings.address);
  info.deviceId = printer.deviceId;
  info.deviceStatus = shown.readings.status;
  info.supplies = std::move(shown.readings.supplies);
  info.alerts = std::move(shown.readings.alerts);
}

}  // namespace

int getState(qzstd::PrinterInfo* printer) {
  return answer(Function::getState, byUid(printer), [printer](const Call& call) {
    if (call.garbage()) {
      garbage::fillState(*printer);
    } else {
      fillState(*printer, call.printer(), shownBy(call));
    }
    return success;
  });
}

int getPrintingJob(const wchar_t* managerId) {
  return answer(Function::getPrintingJob, byManagerId(managerId),
                [](const Call& call) { return call.garbage() ? garbage::jobs : shownBy(call).readings.jobs; });
}

int checkIpChange(const qzstd::PrinterInfo* printer, bool* changed) {
  if (changed != nullptr) *changed = false;
  return answer(Function::checkIpChange, with(byManagerId(printer), changed), [changed](const Call& call) {
    const auto check = [](PrinterState& state, milliseconds at) { return state.checkAddress(at); };
    *changed = call.garbage() || call.onState(check);
    return success;
  });
}

}  // namespace simulator
