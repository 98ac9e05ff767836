#include "AppSdk.h"

#include "simulator/LibraryFunctions.h"

bool AppSdk_PrintBmp(const wchar_t* managerId, AppComm::QRCode* record) { return simulator::printBmp(managerId, record); }

bool AppSdk_SetPrinterUpgradeInfo(qzstd::PrinterInfo* printer) { return simulator::setPrinterUpgradeInfo(printer); }

bool AppSdk_TriggerFwUpgradeStart(qzstd::PrinterInfo* printer) { return simulator::triggerFwUpgradeStart(printer); }

bool AppSdk_TriggerFwUpgradeProcess(bool* done) { return simulator::triggerFwUpgradeProcess(done); }

bool AppSdk_TriggerFwUpgradeResult(bool* ok, std::wstring* fourTexts) {
  return simulator::triggerFwUpgradeResult(ok, fourTexts);
}
