#include "AppMgr.h"

#include "simulator/LibraryFunctions.h"

int AppMgr_GetPrintingJob(const wchar_t* managerId) { return simulator::getPrintingJob(managerId); }

int AppMgr_CheckIpChange(qzstd::PrinterInfo* printer, bool* changed) { return simulator::checkIpChange(printer, changed); }

int AppMgr_GetPrinterWifiStart(qzstd::PrinterInfo* printer, std::int32_t* total) {
  return simulator::getPrinterWifiStart(printer, total);
}

int AppMgr_GetPrinterWifiProgress(std::int32_t* segment) { return simulator::getPrinterWifiProgress(segment); }

int AppMgr_GetPrinterWifiResult(std::vector<AppMgr::WifiNetwork>* networks) {
  return simulator::getPrinterWifiResult(networks);
}

void AppMgr_GetPrinterWifiExit() { simulator::getPrinterWifiExit(); }

int AppMgr_PrinterWifiConfigStart(qzstd::PrinterInfo* printer, AppMgr::WifiNetwork* network, std::int32_t* total) {
  return simulator::printerWifiConfigStart(printer, network, total);
}

int AppMgr_PrinterWifiConfigProgress(std::int32_t* segment) { return simulator::printerWifiConfigProgress(segment); }

void AppMgr_PrinterWifiConfigExit() { simulator::printerWifiConfigExit(); }
