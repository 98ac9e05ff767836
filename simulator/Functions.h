#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace simulator {

/// The maker's functions that are simulated. A new one is a row here and a function in LibraryFunctions.h.
enum class Function : std::size_t { getState, isSupportPushScan, getPrintingJob, checkIpChange };

/// What a function returns, which decides how it can fail.
enum class Answer {
  code,   ///< 0 for success: fails with any other code
  count,  ///< 0 or more: fails with a negative count
  flag,   ///< yes or no: fails with no
};

struct FunctionRow {
  Function function;
  std::string_view name;
  Answer answer;
};

inline constexpr std::array functionTable{
    FunctionRow{Function::getState, "AppPrinterSdk_GetState", Answer::code},
    FunctionRow{Function::isSupportPushScan, "AppPrinterSdk_IsSuppportPushScan", Answer::flag},
    FunctionRow{Function::getPrintingJob, "AppMgr_GetPrintingJob", Answer::count},
    FunctionRow{Function::checkIpChange, "AppMgr_CheckIpChange", Answer::code},
};
inline constexpr std::size_t functionCount = functionTable.size();

constexpr std::size_t indexOf(Function function) { return static_cast<std::size_t>(function); }
constexpr const FunctionRow& rowOf(Function function) { return functionTable[indexOf(function)]; }

static_assert(functionCount == 4 &&
              std::ranges::all_of(functionTable, [](const FunctionRow& row) { return &row == &rowOf(row.function); }));

constexpr const FunctionRow* findFunction(std::string_view name) {
  const auto row = std::ranges::find(functionTable, name, &FunctionRow::name);
  return row == functionTable.end() ? nullptr : &*row;
}

}  // namespace simulator
