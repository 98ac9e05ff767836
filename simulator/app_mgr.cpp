#include "AppMgr.h"

#include "simulator/LibraryFunctions.h"

int AppMgr_GetPrintingJob(const wchar_t* managerId) { return simulator::getPrintingJob(managerId); }

int AppMgr_CheckIpChange(qzstd::PrinterInfo* printer, bool* changed) { return simulator::checkIpChange(printer, changed); }
