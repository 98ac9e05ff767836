#include "simulator/LibraryFunctions.h"

#include "simulator/Call.h"
#include "simulator/Garbage.h"

namespace simulator {
namespace {

void fillState(qzstd::PrinterInfo& info, const Printer& printer, Readings readings) {
  info.model = printer.model;
  info.serialNumber = printer.serialNumber;
  info.firmwareVersion = printer.firmwareVersion;
  info.address = std::move(readings.address);
  info.deviceId = printer.deviceId;
  info.deviceStatus = readings.status;
  info.supplies = std::move(readings.supplies);
  info.alerts = std::move(readings.alerts);
}

}  // namespace

int getState(qzstd::PrinterInfo* printer) {
  Call call(Function::getState, byUid(printer));
  if (const auto code = call.refusal()) return call.end(*code);
  if (call.garbage()) {
    garbage::fillState(*printer);
  } else {
    fillState(*printer, call.printer(), call.readings());
  }
  return call.end(success);
}

bool isSupportPushScan(const qzstd::PrinterInfo* printer) {
  Call call(Function::isSupportPushScan, byUid(printer));
  if (const auto no = call.refusal()) return call.end(*no) != 0;
  return call.end(call.printer().pushScan != call.garbage() ? 1 : 0) != 0;  // the only lie that a yes or no can tell
}

int getPrintingJob(const wchar_t* managerId) {
  Call call(Function::getPrintingJob, byManagerId(managerId));
  if (const auto code = call.refusal()) return call.end(*code);
  return call.end(call.garbage() ? garbage::jobs : call.readings().jobs);
}

int checkIpChange(const qzstd::PrinterInfo* printer, bool* changed) {
  Call call(Function::checkIpChange, changed == nullptr ? Target{} : byManagerId(printer));
  if (changed != nullptr) *changed = false;
  if (const auto code = call.refusal()) return call.end(*code);
  *changed = call.garbage() || call.checkAddress();
  return call.end(success);
}

}  // namespace simulator
