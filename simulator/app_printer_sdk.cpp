#include "AppPrinterSdk.h"

#include "simulator/LibraryFunctions.h"

int AppPrinterSdk_GetState(qzstd::PrinterInfo* printer) { return simulator::getState(printer); }

bool AppPrinterSdk_IsSuppportPushScan(qzstd::PrinterInfo* printer) { return simulator::isSupportPushScan(printer); }
