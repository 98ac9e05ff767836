#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "PrinterInfo.h"
#include "Records.h"
#include "simulator/Export.h"
#include "simulator/Functions.h"

/// What the maker's functions do when their printers are simulated. The stand-in libraries only give these the maker's names;
/// docs/scenario.md tells what each does. A null pointer, a printer that the scenario does not know, or a job that the calling
/// thread has not started is answered with a code (SimulatedPrinters.h), never with a crash.
namespace simulator {

/// @name State
/// @{
SIMULATOR_API int getState(qzstd::PrinterInfo* printer);
SIMULATOR_API int getPrintingJob(const wchar_t* managerId);
/// True once for each change: when the address is another than when this printer was last asked, or, the first time, than when
/// the scenario was loaded. Failing calls answer false and leave the change to the next one.
SIMULATOR_API int checkIpChange(const qzstd::PrinterInfo* printer, bool* changed);
/// @}

/// @name Device parameters
/// `function` is the one that is called, of those for values of this width.
/// @{
SIMULATOR_API bool isSupportSuppliesAlarm(const qzstd::PrinterInfo* printer);
SIMULATOR_API int getSleepTime(const qzstd::PrinterInfo* printer, std::int32_t* value);
SIMULATOR_API int setSleepTime(const qzstd::PrinterInfo* printer, const std::int32_t* value);
SIMULATOR_API int getParameter(Function function, const qzstd::PrinterInfo* printer, std::uint8_t* value);
SIMULATOR_API int setParameter(Function function, const qzstd::PrinterInfo* printer, const std::uint8_t* value);
/// @}

/// @name Maintenance
/// @{
SIMULATOR_API int setAlignPage(const qzstd::PrinterInfo* printer);
SIMULATOR_API int setClean(const qzstd::PrinterInfo* printer);
SIMULATOR_API int setAlignCmd(const qzstd::PrinterInfo* printer, const AppComm::SetAdjust* record);
SIMULATOR_API bool printBmp(const wchar_t* managerId, const AppComm::QRCode* record);
/// @}

/// @name Network and push scan
/// @{
SIMULATOR_API int getNetWork(const qzstd::PrinterInfo* printer, AppPrinterSdk::NetworkSettings* settings);
SIMULATOR_API int setNetWork(const qzstd::PrinterInfo* printer, const AppPrinterSdk::NetworkSettings* settings);
SIMULATOR_API bool isNetConnected(const qzstd::PrinterInfo* printer);
SIMULATOR_API bool isSupportPushScan(const qzstd::PrinterInfo* printer);
SIMULATOR_API int registerPushScanUsb(const qzstd::PrinterInfo* printer);
SIMULATOR_API int getPushScanPara(const qzstd::PrinterInfo* printer, AppPrinterSdk::PushScanPara* parameters);
/// @}

/// @name Firmware transfer
/// The exit call of a complete transfer restarts the printer; of any other it drops what was sent.
/// @{
SIMULATOR_API int upgradeFwStart(const qzstd::PrinterInfo* printer, const std::wstring* firmware);
SIMULATOR_API int upgradeFwProgress(std::int32_t* current, std::int32_t* total);
SIMULATOR_API void upgradeFwExit();
/// @}

/// @name Upgrade service
/// @{
SIMULATOR_API bool setPrinterUpgradeInfo(const qzstd::PrinterInfo* printer);
SIMULATOR_API bool triggerFwUpgradeStart(const qzstd::PrinterInfo* printer);
/// Leaves `done` alone until the check has finished.
SIMULATOR_API bool triggerFwUpgradeProcess(bool* done);
/// The texts: the printer's version, the new version, notes, the printer's upgrade key.
SIMULATOR_API bool triggerFwUpgradeResult(bool* ok, std::wstring* fourTexts);
/// @}

/// @name Wireless networks
/// @{
SIMULATOR_API int getPrinterWifiStart(const qzstd::PrinterInfo* printer, std::int32_t* total);
SIMULATOR_API int getPrinterWifiProgress(std::int32_t* segment);
SIMULATOR_API int getPrinterWifiResult(std::vector<AppMgr::WifiNetwork>* networks);
SIMULATOR_API void getPrinterWifiExit();
SIMULATOR_API int printerWifiConfigStart(const qzstd::PrinterInfo* printer, const AppMgr::WifiNetwork* network,
                                         std::int32_t* total);
SIMULATOR_API int printerWifiConfigProgress(std::int32_t* segment);
SIMULATOR_API void printerWifiConfigExit();
/// @}

}  // namespace simulator
