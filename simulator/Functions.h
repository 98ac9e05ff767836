#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace simulator {

/// The maker's functions, all simulated, in the order of the headers. A new one is a row here and a function in
/// LibraryFunctions.h.
enum class Function : std::size_t {
  getState,
  isSupportSuppliesAlarm,
  getSleepTime,
  getSuppliesAlarm,
  getPaperAlarm,
  getTimedClear,
  getSilentMode,
  setSleepTime,
  setSuppliesAlarm,
  setPaperAlarm,
  setTimedClear,
  setSilentMode,
  setAlignPage,
  setClean,
  setAlignCmd,
  getNetWork,
  setNetWork,
  isNetConnected,
  isSupportPushScan,
  registerPushScanUsb,
  getPushScanPara,
  upgradeFwStart,
  upgradeFwProgress,
  upgradeFwExit,

  getPrintingJob,
  checkIpChange,
  getPrinterWifiStart,
  getPrinterWifiProgress,
  getPrinterWifiResult,
  getPrinterWifiExit,
  printerWifiConfigStart,
  printerWifiConfigProgress,
  printerWifiConfigExit,

  printBmp,
  setPrinterUpgradeInfo,
  triggerFwUpgradeStart,
  triggerFwUpgradeProcess,
  triggerFwUpgradeResult,
};

/// What a function returns, which decides how it can fail.
enum class Answer {
  code,     ///< 0 for success: fails with any other code
  count,    ///< 0 or more: fails with a negative count
  flag,     ///< yes or no: fails with no
  nothing,  ///< cannot fail, nor answer garbage
};

struct FunctionRow {
  Function function;
  std::string_view name;
  Answer answer;
};

inline constexpr std::array functionTable{
    FunctionRow{Function::getState, "AppPrinterSdk_GetState", Answer::code},
    FunctionRow{Function::isSupportSuppliesAlarm, "AppPrinterSdk_IsSuppportSuppliesAlarm", Answer::flag},
    FunctionRow{Function::getSleepTime, "AppPrinterSdk_GetSleepTime", Answer::code},
    FunctionRow{Function::getSuppliesAlarm, "AppPrinterSdk_GetSuppliesAlarm", Answer::code},
    FunctionRow{Function::getPaperAlarm, "AppPrinterSdk_GetPaperAlarm", Answer::code},
    FunctionRow{Function::getTimedClear, "AppPrinterSdk_GetTimedClear", Answer::code},
    FunctionRow{Function::getSilentMode, "AppPrinterSdk_GetSilentMode", Answer::code},
    FunctionRow{Function::setSleepTime, "AppPrinterSdk_SetSleepTime", Answer::code},
    FunctionRow{Function::setSuppliesAlarm, "AppPrinterSdk_SetSuppliesAlarm", Answer::code},
    FunctionRow{Function::setPaperAlarm, "AppPrinterSdk_SetPaperAlarm", Answer::code},
    FunctionRow{Function::setTimedClear, "AppPrinterSdk_SetTimedClear", Answer::code},
    FunctionRow{Function::setSilentMode, "AppPrinterSdk_SetSilentMode", Answer::code},
    FunctionRow{Function::setAlignPage, "AppPrinterSdk_SetAlignPage", Answer::code},
    FunctionRow{Function::setClean, "AppPrinterSdk_SetClean", Answer::code},
    FunctionRow{Function::setAlignCmd, "AppPrinterSdk_SetAlignCmd", Answer::code},
    FunctionRow{Function::getNetWork, "AppPrinterSdk_GetNetWork", Answer::code},
    FunctionRow{Function::setNetWork, "AppPrinterSdk_SetNetWork", Answer::code},
    FunctionRow{Function::isNetConnected, "AppPrinterSdk_IsNetConnected", Answer::flag},
    FunctionRow{Function::isSupportPushScan, "AppPrinterSdk_IsSuppportPushScan", Answer::flag},
    FunctionRow{Function::registerPushScanUsb, "AppPrinterSdk_RegisterPushScanUSB", Answer::code},
    FunctionRow{Function::getPushScanPara, "AppPrinterSdk_GetPushScanPara", Answer::code},
    FunctionRow{Function::upgradeFwStart, "AppPrinterSdk_UpgradeFwStart", Answer::code},
    FunctionRow{Function::upgradeFwProgress, "AppPrinterSdk_UpgradeFwProgress", Answer::code},
    FunctionRow{Function::upgradeFwExit, "AppPrinterSdk_UpgradeFwExit", Answer::nothing},
    FunctionRow{Function::getPrintingJob, "AppMgr_GetPrintingJob", Answer::count},
    FunctionRow{Function::checkIpChange, "AppMgr_CheckIpChange", Answer::code},
    FunctionRow{Function::getPrinterWifiStart, "AppMgr_GetPrinterWifiStart", Answer::code},
    FunctionRow{Function::getPrinterWifiProgress, "AppMgr_GetPrinterWifiProgress", Answer::code},
    FunctionRow{Function::getPrinterWifiResult, "AppMgr_GetPrinterWifiResult", Answer::code},
    FunctionRow{Function::getPrinterWifiExit, "AppMgr_GetPrinterWifiExit", Answer::nothing},
    FunctionRow{Function::printerWifiConfigStart, "AppMgr_PrinterWifiConfigStart", Answer::code},
    FunctionRow{Function::printerWifiConfigProgress, "AppMgr_PrinterWifiConfigProgress", Answer::code},
    FunctionRow{Function::printerWifiConfigExit, "AppMgr_PrinterWifiConfigExit", Answer::nothing},
    FunctionRow{Function::printBmp, "AppSdk_PrintBmp", Answer::flag},
    FunctionRow{Function::setPrinterUpgradeInfo, "AppSdk_SetPrinterUpgradeInfo", Answer::flag},
    FunctionRow{Function::triggerFwUpgradeStart, "AppSdk_TriggerFwUpgradeStart", Answer::flag},
    FunctionRow{Function::triggerFwUpgradeProcess, "AppSdk_TriggerFwUpgradeProcess", Answer::flag},
    FunctionRow{Function::triggerFwUpgradeResult, "AppSdk_TriggerFwUpgradeResult", Answer::flag},
};
inline constexpr std::size_t functionCount = functionTable.size();

constexpr std::size_t indexOf(Function function) { return static_cast<std::size_t>(function); }
constexpr const FunctionRow& rowOf(Function function) { return functionTable[indexOf(function)]; }

static_assert(functionCount == indexOf(Function::triggerFwUpgradeResult) + 1 &&
              std::ranges::all_of(functionTable, [](const FunctionRow& row) { return &row == &rowOf(row.function); }));

constexpr const FunctionRow* findFunction(std::string_view name) {
  const auto row = std::ranges::find(functionTable, name, &FunctionRow::name);
  return row == functionTable.end() ? nullptr : &*row;
}

}  // namespace simulator
