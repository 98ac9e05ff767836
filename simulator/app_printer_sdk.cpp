#include "AppPrinterSdk.h"

#include "simulator/LibraryFunctions.h"

using simulator::Function;

int AppPrinterSdk_GetState(qzstd::PrinterInfo* printer) { return simulator::getState(printer); }

bool AppPrinterSdk_IsSuppportSuppliesAlarm(qzstd::PrinterInfo* printer) { return simulator::isSupportSuppliesAlarm(printer); }

int AppPrinterSdk_GetSleepTime(qzstd::PrinterInfo* printer, std::int32_t* value) {
  return simulator::getSleepTime(printer, value);
}

int AppPrinterSdk_SetSleepTime(qzstd::PrinterInfo* printer, std::int32_t* value) {
  return simulator::setSleepTime(printer, value);
}

int AppPrinterSdk_GetSuppliesAlarm(qzstd::PrinterInfo* printer, std::uint8_t* value) {
  return simulator::getParameter(Function::getSuppliesAlarm, printer, value);
}

int AppPrinterSdk_GetPaperAlarm(qzstd::PrinterInfo* printer, std::uint8_t* value) {
  return simulator::getParameter(Function::getPaperAlarm, printer, value);
}

int AppPrinterSdk_GetTimedClear(qzstd::PrinterInfo* printer, std::uint8_t* value) {
  return simulator::getParameter(Function::getTimedClear, printer, value);
}

int AppPrinterSdk_GetSilentMode(qzstd::PrinterInfo* printer, std::uint8_t* value) {
  return simulator::getParameter(Function::getSilentMode, printer, value);
}

int AppPrinterSdk_SetSuppliesAlarm(qzstd::PrinterInfo* printer, std::uint8_t* value) {
  return simulator::setParameter(Function::setSuppliesAlarm, printer, value);
}

int AppPrinterSdk_SetPaperAlarm(qzstd::PrinterInfo* printer, std::uint8_t* value) {
  return simulator::setParameter(Function::setPaperAlarm, printer, value);
}

int AppPrinterSdk_SetTimedClear(qzstd::PrinterInfo* printer, std::uint8_t* value) {
  return simulator::setParameter(Function::setTimedClear, printer, value);
}

int AppPrinterSdk_SetSilentMode(qzstd::PrinterInfo* printer, std::uint8_t* value) {
  return simulator::setParameter(Function::setSilentMode, printer, value);
}

int AppPrinterSdk_SetAlignPage(qzstd::PrinterInfo* printer) { return simulator::setAlignPage(printer); }

int AppPrinterSdk_SetClean(qzstd::PrinterInfo* printer) { return simulator::setClean(printer); }

int AppPrinterSdk_SetAlignCmd(qzstd::PrinterInfo* printer, AppComm::SetAdjust* record) {
  return simulator::setAlignCmd(printer, record);
}

int AppPrinterSdk_GetNetWork(qzstd::PrinterInfo* printer, AppPrinterSdk::NetworkSettings* settings) {
  return simulator::getNetWork(printer, settings);
}

int AppPrinterSdk_SetNetWork(qzstd::PrinterInfo* printer, AppPrinterSdk::NetworkSettings* settings) {
  return simulator::setNetWork(printer, settings);
}

bool AppPrinterSdk_IsNetConnected(qzstd::PrinterInfo* printer, int) { return simulator::isNetConnected(printer); }

bool AppPrinterSdk_IsSuppportPushScan(qzstd::PrinterInfo* printer) { return simulator::isSupportPushScan(printer); }

int AppPrinterSdk_RegisterPushScanUSB(qzstd::PrinterInfo* printer) { return simulator::registerPushScanUsb(printer); }

int AppPrinterSdk_GetPushScanPara(qzstd::PrinterInfo* printer, AppPrinterSdk::PushScanPara* parameters) {
  return simulator::getPushScanPara(printer, parameters);
}

int AppPrinterSdk_UpgradeFwStart(qzstd::PrinterInfo* printer, std::wstring* firmware) {
  return simulator::upgradeFwStart(printer, firmware);
}

int AppPrinterSdk_UpgradeFwProgress(std::int32_t* current, std::int32_t* total) {
  return simulator::upgradeFwProgress(current, total);
}

void AppPrinterSdk_UpgradeFwExit() { simulator::upgradeFwExit(); }
