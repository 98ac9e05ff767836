#pragma once

/// What the maker's printer library promises. Declarations only: the library, or its stand-in, is linked. Functions that
/// return `int` return 0 on success.

#include <cstdint>
#include <string>

#include "PrinterInfo.h"
#include "Records.h"

#if !defined(APPPRINTERSDK_API)
#define APPPRINTERSDK_API
#endif

extern "C" {

/// Reads the printer's state into the state members of `printer`.
APPPRINTERSDK_API int AppPrinterSdk_GetState(qzstd::PrinterInfo* printer);

/// @name Device parameters
/// Units and ranges are the library's. What a failed read leaves in the value is undefined.
/// @{
APPPRINTERSDK_API bool AppPrinterSdk_IsSuppportSuppliesAlarm(qzstd::PrinterInfo* printer);  // the third p is the library's own

APPPRINTERSDK_API int AppPrinterSdk_GetSleepTime(qzstd::PrinterInfo* printer, std::int32_t* value);
APPPRINTERSDK_API int AppPrinterSdk_GetSuppliesAlarm(qzstd::PrinterInfo* printer, std::uint8_t* value);
APPPRINTERSDK_API int AppPrinterSdk_GetPaperAlarm(qzstd::PrinterInfo* printer, std::uint8_t* value);
APPPRINTERSDK_API int AppPrinterSdk_GetTimedClear(qzstd::PrinterInfo* printer, std::uint8_t* value);
APPPRINTERSDK_API int AppPrinterSdk_GetSilentMode(qzstd::PrinterInfo* printer, std::uint8_t* value);

APPPRINTERSDK_API int AppPrinterSdk_SetSleepTime(qzstd::PrinterInfo* printer, std::int32_t* value);
APPPRINTERSDK_API int AppPrinterSdk_SetSuppliesAlarm(qzstd::PrinterInfo* printer, std::uint8_t* value);
APPPRINTERSDK_API int AppPrinterSdk_SetPaperAlarm(qzstd::PrinterInfo* printer, std::uint8_t* value);
APPPRINTERSDK_API int AppPrinterSdk_SetTimedClear(qzstd::PrinterInfo* printer, std::uint8_t* value);
APPPRINTERSDK_API int AppPrinterSdk_SetSilentMode(qzstd::PrinterInfo* printer, std::uint8_t* value);
/// @}

/// @name Maintenance
/// @{
APPPRINTERSDK_API int AppPrinterSdk_SetAlignPage(qzstd::PrinterInfo* printer);  ///< prints an alignment page
APPPRINTERSDK_API int AppPrinterSdk_SetClean(qzstd::PrinterInfo* printer);      ///< cleans the heads
/// Sends `record->values`; the other members are not the library's.
APPPRINTERSDK_API int AppPrinterSdk_SetAlignCmd(qzstd::PrinterInfo* printer, AppComm::SetAdjust* record);
/// @}

/// @name Network
/// @{
APPPRINTERSDK_API int AppPrinterSdk_GetNetWork(qzstd::PrinterInfo* printer, AppPrinterSdk::NetworkSettings* settings);
APPPRINTERSDK_API int AppPrinterSdk_SetNetWork(qzstd::PrinterInfo* printer, AppPrinterSdk::NetworkSettings* settings);
/// Whether the printer can be reached over the network. The module passes 0 as `option`.
APPPRINTERSDK_API bool AppPrinterSdk_IsNetConnected(qzstd::PrinterInfo* printer, int option);
/// @}

/// @name Push scan
/// @{
/// Whether the USB printer supports push scanning. The third p is the library's own.
APPPRINTERSDK_API bool AppPrinterSdk_IsSuppportPushScan(qzstd::PrinterInfo* printer);
/// Registers this computer with the USB printer.
APPPRINTERSDK_API int AppPrinterSdk_RegisterPushScanUSB(qzstd::PrinterInfo* printer);
APPPRINTERSDK_API int AppPrinterSdk_GetPushScanPara(qzstd::PrinterInfo* printer, AppPrinterSdk::PushScanPara* parameters);
/// @}

/// @name Firmware transfer
/// Start begins one; progress tells how far it is, until `current` has reached `total`; exit ends it, complete or not. All
/// three are called on one thread: the last two name no printer.
/// @{
/// `firmware` names what to send, in the library's terms.
APPPRINTERSDK_API int AppPrinterSdk_UpgradeFwStart(qzstd::PrinterInfo* printer, std::wstring* firmware);
APPPRINTERSDK_API int AppPrinterSdk_UpgradeFwProgress(std::int32_t* current, std::int32_t* total);
APPPRINTERSDK_API void AppPrinterSdk_UpgradeFwExit();
/// @}
}
