#pragma once

/// What the maker's SDK library promises. Declarations only: the library, or its stand-in, is linked. Each function answers
/// whether it succeeded.

#include <string>

#include "PrinterInfo.h"
#include "Records.h"

#if !defined(APPSDK_API)
#define APPSDK_API
#endif

extern "C" {

/// Prints `record->image`. `managerId` is the printer's `PrinterInfo::managerId`.
APPSDK_API bool AppSdk_PrintBmp(const wchar_t* managerId, AppComm::QRCode* record);

/// Registers the printer with the upgrade service, under its `PrinterInfo::upgradeKey`.
APPSDK_API bool AppSdk_SetPrinterUpgradeInfo(qzstd::PrinterInfo* printer);

/// @name Asking the upgrade service for new firmware
/// Start begins the check; process sets `done` once it has finished; then result tells. All three are called on one thread: the
/// later two name no printer.
/// @{
APPSDK_API bool AppSdk_TriggerFwUpgradeStart(qzstd::PrinterInfo* printer);
APPSDK_API bool AppSdk_TriggerFwUpgradeProcess(bool* done);
/// Writes whether the check went well to `ok`. `fourTexts` points to four empty strings, which it fills.
APPSDK_API bool AppSdk_TriggerFwUpgradeResult(bool* ok, std::wstring* fourTexts);
/// @}
}
