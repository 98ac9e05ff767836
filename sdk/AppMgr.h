#pragma once

/// What the maker's manager library promises. Declarations only: the library, or its stand-in, is linked.

#include "PrinterInfo.h"
#include "Records.h"

#if !defined(APPMGR_API)
#define APPMGR_API
#endif

extern "C" {

/// Jobs that the printer has in progress; greater than 0 while it prints, negative when that cannot be told.
/// `managerId` is the printer's `PrinterInfo::managerId`.
APPMGR_API int AppMgr_GetPrintingJob(const wchar_t* managerId);

/// Writes to `changed` whether the address of the network printer changed. The returned code is of no use to the module.
APPMGR_API int AppMgr_CheckIpChange(qzstd::PrinterInfo* printer, bool* changed);
}
