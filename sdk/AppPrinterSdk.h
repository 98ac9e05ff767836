#pragma once

/// What the maker's printer library promises. Declarations only: the library, or its stand-in, is linked.

#include "PrinterInfo.h"
#include "Records.h"

#if !defined(APPPRINTERSDK_API)
#define APPPRINTERSDK_API
#endif

extern "C" {

/// Reads the printer's state into the state members of `printer`. Returns 0 on success.
APPPRINTERSDK_API int AppPrinterSdk_GetState(qzstd::PrinterInfo* printer);

/// Whether the USB printer supports push scanning. The third p is the library's own.
APPPRINTERSDK_API bool AppPrinterSdk_IsSuppportPushScan(qzstd::PrinterInfo* printer);
}
