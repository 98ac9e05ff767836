#pragma once

/// What the maker's manager library promises. Declarations only: the library, or its stand-in, is linked.

#include <cstdint>
#include <vector>

#include "PrinterInfo.h"
#include "Records.h"

#if !defined(APPMGR_API)
#define APPMGR_API
#endif

extern "C" {

/// Jobs that the printer has in progress; greater than 0 while it prints. A negative count is a failure.
/// `managerId` is the printer's `PrinterInfo::managerId`.
APPMGR_API int AppMgr_GetPrintingJob(const wchar_t* managerId);

/// Writes to `changed` whether the address of the network printer changed. The returned code is of no use to the module.
APPMGR_API int AppMgr_CheckIpChange(qzstd::PrinterInfo* printer, bool* changed);

/// @name Looking for wireless networks
/// Start begins the job and tells in how many segments; progress tells how many are done; then result gives the list; exit ends
/// the job, complete or not. All four are called on one thread: the later ones name no printer. 0 is success.
/// @{
APPMGR_API int AppMgr_GetPrinterWifiStart(qzstd::PrinterInfo* printer, std::int32_t* total);
APPMGR_API int AppMgr_GetPrinterWifiProgress(std::int32_t* segment);
/// Fills the list.
APPMGR_API int AppMgr_GetPrinterWifiResult(std::vector<AppMgr::WifiNetwork>* networks);
APPMGR_API void AppMgr_GetPrinterWifiExit();
/// @}

/// @name Joining a wireless network
/// The same, without a list: the result of the progress call that reports the last segment tells whether the printer joined.
/// @{
/// `network` is null when the caller has none.
APPMGR_API int AppMgr_PrinterWifiConfigStart(qzstd::PrinterInfo* printer, AppMgr::WifiNetwork* network, std::int32_t* total);
APPMGR_API int AppMgr_PrinterWifiConfigProgress(std::int32_t* segment);
APPMGR_API void AppMgr_PrinterWifiConfigExit();
/// @}
}
