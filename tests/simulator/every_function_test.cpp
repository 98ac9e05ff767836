#include <algorithm>
#include <array>
#include <tuple>
#include <type_traits>

#include "Support.h"
#include "simulator/Functions.h"

/// What holds for every one of the maker's functions.
namespace simulator::test {
namespace {

/// One value of each kind that a function takes a pointer to.
struct Arguments {
  qzstd::PrinterInfo info;
  std::tuple<std::int32_t, std::uint8_t, bool, AppComm::SetAdjust, AppComm::QRCode, AppPrinterSdk::NetworkSettings,
             AppPrinterSdk::PushScanPara, AppMgr::WifiNetwork, std::vector<AppMgr::WifiNetwork>>
      values;
  std::array<std::wstring, 4> texts;

  template <typename Value>
  Value* at() {
    if constexpr (std::is_same_v<Value, const wchar_t>) {
      return info.managerId.c_str();
    } else if constexpr (std::is_same_v<Value, qzstd::PrinterInfo>) {
      return &info;
    } else if constexpr (std::is_same_v<Value, std::wstring>) {
      return texts.data();
    } else {
      return &std::get<Value>(values);
    }
  }
};

constexpr std::size_t noNull = 99;

/// What the function returned; nothing for one that returns nothing. The argument at `null` is a null pointer.
using Invoke = std::function<std::optional<int>(Arguments&, std::size_t null)>;

struct Row {
  std::string_view name;
  std::size_t pointers = 0;
  Invoke invoke;
  std::string_view starter{};      ///< what starts the job that the function is about
  std::size_t mayBeNull = noNull;  ///< this argument
};

std::ostream& operator<<(std::ostream& out, const Row& row) { return out << row.name; }

template <typename Result, typename... Value, std::size_t... place>
std::optional<int> invoke(Result (*function)(Value*...), Arguments& arguments, std::size_t null,
                          std::index_sequence<place...>) {
  if constexpr (std::is_void_v<Result>) {
    function((place == null ? nullptr : arguments.at<Value>())...);
    return std::nullopt;
  } else {
    return static_cast<int>(function((place == null ? nullptr : arguments.at<Value>())...));
  }
}

template <typename Result, typename... Value>
Row row(std::string_view name, Result (*function)(Value*...), std::string_view starter = {}, std::size_t mayBeNull = noNull) {
  return {name, sizeof...(Value),
          [function](Arguments& arguments, [[maybe_unused]] std::size_t null) {
            return test::invoke(function, arguments, null, std::index_sequence_for<Value...>());
          },
          starter, mayBeNull};
}

bool isNetConnected(qzstd::PrinterInfo* printer) { return AppPrinterSdk_IsNetConnected(printer, 0); }

constexpr std::string_view transfer = "AppPrinterSdk_UpgradeFwStart";
constexpr std::string_view wifiList = "AppMgr_GetPrinterWifiStart";
constexpr std::string_view wifiJoin = "AppMgr_PrinterWifiConfigStart";
constexpr std::string_view check = "AppSdk_TriggerFwUpgradeStart";

const std::vector<Row> rows{
    row("AppPrinterSdk_GetState", AppPrinterSdk_GetState),
    row("AppPrinterSdk_IsSuppportSuppliesAlarm", AppPrinterSdk_IsSuppportSuppliesAlarm),
    row("AppPrinterSdk_GetSleepTime", AppPrinterSdk_GetSleepTime),
    row("AppPrinterSdk_GetSuppliesAlarm", AppPrinterSdk_GetSuppliesAlarm),
    row("AppPrinterSdk_GetPaperAlarm", AppPrinterSdk_GetPaperAlarm),
    row("AppPrinterSdk_GetTimedClear", AppPrinterSdk_GetTimedClear),
    row("AppPrinterSdk_GetSilentMode", AppPrinterSdk_GetSilentMode),
    row("AppPrinterSdk_SetSleepTime", AppPrinterSdk_SetSleepTime),
    row("AppPrinterSdk_SetSuppliesAlarm", AppPrinterSdk_SetSuppliesAlarm),
    row("AppPrinterSdk_SetPaperAlarm", AppPrinterSdk_SetPaperAlarm),
    row("AppPrinterSdk_SetTimedClear", AppPrinterSdk_SetTimedClear),
    row("AppPrinterSdk_SetSilentMode", AppPrinterSdk_SetSilentMode),
    row("AppPrinterSdk_SetAlignPage", AppPrinterSdk_SetAlignPage),
    row("AppPrinterSdk_SetClean", AppPrinterSdk_SetClean),
    row("AppPrinterSdk_SetAlignCmd", AppPrinterSdk_SetAlignCmd),
    row("AppPrinterSdk_GetNetWork", AppPrinterSdk_GetNetWork),
    row("AppPrinterSdk_SetNetWork", AppPrinterSdk_SetNetWork),
    row("AppPrinterSdk_IsNetConnected", isNetConnected),
    row("AppPrinterSdk_IsSuppportPushScan", AppPrinterSdk_IsSuppportPushScan),
    row("AppPrinterSdk_RegisterPushScanUSB", AppPrinterSdk_RegisterPushScanUSB),
    row("AppPrinterSdk_GetPushScanPara", AppPrinterSdk_GetPushScanPara),
    row("AppPrinterSdk_UpgradeFwStart", AppPrinterSdk_UpgradeFwStart),
    row("AppPrinterSdk_UpgradeFwProgress", AppPrinterSdk_UpgradeFwProgress, transfer),
    row("AppPrinterSdk_UpgradeFwExit", AppPrinterSdk_UpgradeFwExit, transfer),
    row("AppMgr_GetPrintingJob", AppMgr_GetPrintingJob),
    row("AppMgr_CheckIpChange", AppMgr_CheckIpChange),
    row("AppMgr_GetPrinterWifiStart", AppMgr_GetPrinterWifiStart),
    row("AppMgr_GetPrinterWifiProgress", AppMgr_GetPrinterWifiProgress, wifiList),
    row("AppMgr_GetPrinterWifiResult", AppMgr_GetPrinterWifiResult, wifiList),
    row("AppMgr_GetPrinterWifiExit", AppMgr_GetPrinterWifiExit, wifiList),
    row("AppMgr_PrinterWifiConfigStart", AppMgr_PrinterWifiConfigStart, {}, 1),
    row("AppMgr_PrinterWifiConfigProgress", AppMgr_PrinterWifiConfigProgress, wifiJoin),
    row("AppMgr_PrinterWifiConfigExit", AppMgr_PrinterWifiConfigExit, wifiJoin),
    row("AppSdk_PrintBmp", AppSdk_PrintBmp),
    row("AppSdk_SetPrinterUpgradeInfo", AppSdk_SetPrinterUpgradeInfo),
    row("AppSdk_TriggerFwUpgradeStart", AppSdk_TriggerFwUpgradeStart),
    row("AppSdk_TriggerFwUpgradeProcess", AppSdk_TriggerFwUpgradeProcess, check),
    row("AppSdk_TriggerFwUpgradeResult", AppSdk_TriggerFwUpgradeResult, check),
};

const Row& rowNamed(std::string_view name) { return *std::ranges::find(rows, name, &Row::name); }

TEST(EveryFunctionTable, HasEveryFunction) {
  ASSERT_EQ(rows.size(), functionCount);
  for (std::size_t i = 0; i < functionCount; ++i) EXPECT_EQ(rows[i].name, functionTable[i].name);
}

class EveryFunction : public SimulatorTest, public testing::WithParamInterface<Row> {
 protected:
  EveryFunction() { holdTime(); }

  /// A printer for which every function succeeds at once.
  void load(const std::string& faults) {
    loadScenarioText(
        onePrinter("push-scan='yes'",
                   "<call function='" + std::string(GetParam().name) + "'>" + faults +
                       "</call><upgrade-service check-time='0' new-version='3'/><wifi><access-point name='n'/></wifi>"));
    std::get<AppMgr::WifiNetwork>(m_arguments.values).name[0] = L'n';
    m_arguments.info = newPrinterInfo(L"a");
  }

  void startJob() {
    if (!GetParam().starter.empty()) rowNamed(GetParam().starter).invoke(m_arguments, noNull);
  }
  std::optional<int> invoke(std::size_t null = noNull) { return GetParam().invoke(m_arguments, null); }

  Answer kind() const { return findFunction(GetParam().name)->answer; }
  /// What this function answers in place of a code.
  std::optional<int> asAnswered(int code) const {
    if (kind() == Answer::nothing) return std::nullopt;
    return kind() == Answer::flag ? 0 : code;
  }
  std::optional<int> goodAnswer() const {
    if (kind() == Answer::nothing) return std::nullopt;
    return kind() == Answer::flag ? 1 : success;
  }

  Arguments m_arguments;
};

TEST_P(EveryFunction, SucceedsAndIsRecorded) {
  load("");
  startJob();
  EXPECT_EQ(invoke(), goodAnswer());
  const CallRecord last = calls().back();
  EXPECT_EQ(last.function, GetParam().name);
  EXPECT_EQ(last.printer, L"a");
  EXPECT_EQ(last.result, goodAnswer());
  EXPECT_TRUE(last.end);
}

TEST_P(EveryFunction, FailsInTheChosenCall) {
  if (kind() == Answer::nothing) {
    EXPECT_THROW(load("<fail code='-9'/>"), ScenarioError);
    EXPECT_THROW(load("<fail/>"), ScenarioError);
    return;
  }
  load(kind() == Answer::flag ? "<fail call='1'/>" : "<fail code='-9' call='1'/>");
  startJob();
  EXPECT_EQ(invoke(), asAnswered(-9));
  EXPECT_EQ(calls().back().result, asAnswered(-9));
  EXPECT_EQ(invoke(), goodAnswer());
}

TEST_P(EveryFunction, HangsForItsTimeAndThenAnswers) {
  load("<hang ms='5000'/>");
  auto called = std::async(std::launch::async, [this] {
    startJob();
    return invoke();
  });
  ASSERT_TRUE(waitUntilBegun(GetParam().name, 1, limit));
  advanceTime(4999ms);
  EXPECT_FALSE(calls().back().end);
  advanceTime(1ms);
  EXPECT_EQ(called.get(), goodAnswer());
  EXPECT_EQ(*calls().back().end - calls().back().start, 5000ms);
}

TEST_P(EveryFunction, AnswersGarbageThatItsKindAllows) {
  if (kind() == Answer::nothing) {
    EXPECT_THROW(load("<garbage/>"), ScenarioError);
    return;
  }
  load("<garbage call='1'/>");
  startJob();
  const int answered = *invoke();
  const bool liesInItsData = kind() == Answer::code || GetParam().starter == check;
  if (kind() == Answer::count) {
    EXPECT_LT(answered, 0);
  } else {
    EXPECT_EQ(answered, liesInItsData ? *goodAnswer() : 0);
  }
  EXPECT_EQ(invoke(), goodAnswer());
}

TEST_P(EveryFunction, AnswersUnknownPrintersAndMissingJobsWithACode) {
  load("<hang/>");  // for the printer's own calls only
  m_arguments.info.uid = L"ma";
  m_arguments.info.managerId = L"a";
  EXPECT_EQ(invoke(), asAnswered(GetParam().starter.empty() ? unknownPrinter : noJob));
  EXPECT_EQ(calls().back().printer, L"");
  EXPECT_EQ(calls().back().function, GetParam().name);
}

TEST_P(EveryFunction, GoesByTheIdOfItsLibrary) {
  if (!GetParam().starter.empty()) return;  // names no printer
  load("");
  const bool manager = GetParam().name.starts_with("AppMgr_") || GetParam().name == "AppSdk_PrintBmp";
  (manager ? m_arguments.info.uid : m_arguments.info.managerId) = L"another";
  EXPECT_EQ(invoke(), goodAnswer());
}

TEST_P(EveryFunction, AnswersNullPointersWithACode) {
  load("");
  for (std::size_t null = 0; null < GetParam().pointers; ++null) {
    if (null == GetParam().mayBeNull) continue;
    startJob();
    EXPECT_EQ(invoke(null), asAnswered(badArgument)) << null;
    EXPECT_EQ(calls().back().printer, L"");
  }
}

TEST_P(EveryFunction, DoesNotReachAPrinterThatRestarts) {
  load("");
  startJob();
  OtherThread upgrading;
  upgrading.does([info = m_arguments.info]() mutable {
    std::wstring firmware = L"2";
    AppPrinterSdk_UpgradeFwStart(&info, &firmware);
    advanceTime(4s);
    AppPrinterSdk_UpgradeFwExit();
  });
  if (!GetParam().starter.empty()) {  // names no printer
    EXPECT_EQ(invoke(), goodAnswer());
    return;
  }
  EXPECT_EQ(invoke(), asAnswered(unreachable));
  advanceTime(2999ms);
  EXPECT_EQ(invoke(), asAnswered(unreachable));
  EXPECT_EQ(calls().back().printer, L"a");
  advanceTime(1ms);
  EXPECT_EQ(invoke(), goodAnswer());
}

INSTANTIATE_TEST_SUITE_P(All, EveryFunction, testing::ValuesIn(rows),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace simulator::test
