#include <array>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "Support.h"

namespace simulator::test {
namespace {

struct Seen {
  std::string function;
  std::wstring printer;
  bool ends = false;
  std::optional<int> result;
  std::thread::id thread;
  std::array<std::int32_t, 2> told{};

  friend bool operator==(const Seen&, const Seen&) = default;
};

std::mutex g_mutex;
std::vector<Seen> g_seen;
std::vector<std::pair<bool, bool>> g_faults;  // failed, hung

void watch(const CallSight& sight) {
  const std::lock_guard lock(g_mutex);
  g_seen.push_back({std::string(sight.function), std::wstring(sight.printer), sight.ends, sight.result,
                    std::this_thread::get_id(), sight.told});
  g_faults.emplace_back(sight.failed, sight.hung);
}

std::vector<Seen> seen() {
  const std::lock_guard lock(g_mutex);
  return g_seen;
}

std::vector<std::pair<bool, bool>> faults() {
  const std::lock_guard lock(g_mutex);
  return g_faults;
}

class CallWatchers : public SimulatorTest {
 protected:
  CallWatchers() {
    g_seen.clear();
    g_faults.clear();
    watchCalls(watch);
  }
  ~CallWatchers() override { watchCalls(nullptr); }
};

TEST_F(CallWatchers, SeeEachCallBeginAndEndOnItsThread) {
  loadScenarioText(onePrinter("jobs='3'", callOf("AppPrinterSdk_GetState", "<fail code='-8'/>")));
  auto info = newPrinterInfo(L"a");
  AppMgr_GetPrintingJob(L"ma");
  AppPrinterSdk_GetState(&info);
  AppMgr_GetPrinterWifiExit();

  const auto here = std::this_thread::get_id();
  const std::vector<Seen> expected{{"AppMgr_GetPrintingJob", L"a", false, std::nullopt, here},
                                   {"AppMgr_GetPrintingJob", L"a", true, 3, here},
                                   {"AppPrinterSdk_GetState", L"a", false, std::nullopt, here},
                                   {"AppPrinterSdk_GetState", L"a", true, -8, here},
                                   {"AppMgr_GetPrinterWifiExit", L"", false, std::nullopt, here},
                                   {"AppMgr_GetPrinterWifiExit", L"", true, std::nullopt, here}};
  EXPECT_EQ(seen(), expected);
}

TEST_F(CallWatchers, SeeACallBeginBeforeItWaits) {
  loadScenarioText(withCall("AppPrinterSdk_GetState", "<hang/>"));
  auto read = readStateElsewhere(L"a");
  ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit));
  EXPECT_EQ(seen().size(), 1U);
  releaseCalls();
  EXPECT_EQ(read.get(), success);
  EXPECT_EQ(seen().size(), 2U);
}

TEST_F(CallWatchers, SeeWhatTheScenarioDidToACall) {
  loadScenarioText(onePrinter("", callOf("AppPrinterSdk_GetState", "<fail code='-8'/>") +
                                      callOf("AppPrinterSdk_IsSuppportPushScan", "<fail/><hang ms='1'/>")));
  auto info = newPrinterInfo(L"a");
  AppPrinterSdk_GetState(&info);
  AppPrinterSdk_IsSuppportPushScan(&info);
  AppMgr_GetPrintingJob(L"ma");

  const std::vector<std::pair<bool, bool>> expected{{false, false}, {true, false},  {false, false},
                                                    {true, true},   {false, false}, {false, false}};
  EXPECT_EQ(faults(), expected);
}

TEST_F(CallWatchers, SeeHowFarAJobIs) {
  holdTime();
  loadScenarioText(onePrinter("",
                              "<firmware size='1000' rate='250'/><wifi segments='5' segment-time='100'/>"
                              "<upgrade-service check-time='50'/>"));
  auto info = newPrinterInfo(L"a");
  std::wstring firmware;
  std::int32_t current = 0;
  std::int32_t total = 0;
  bool done = false;
  AppPrinterSdk_UpgradeFwStart(&info, &firmware);
  AppMgr_GetPrinterWifiStart(&info, &total);
  AppSdk_TriggerFwUpgradeStart(&info);
  advanceTime(2000ms);
  AppPrinterSdk_UpgradeFwProgress(&current, &total);
  AppMgr_GetPrinterWifiProgress(&current);
  AppSdk_TriggerFwUpgradeProcess(&done);

  std::map<std::string, std::array<std::int32_t, 2>> told;
  for (const Seen& call : seen()) {
    EXPECT_TRUE(call.ends || call.told == (std::array{0, 0})) << call.function;
    told[call.function] = call.told;
  }
  const decltype(told) expected{{"AppPrinterSdk_UpgradeFwStart", {0, 0}},  {"AppMgr_GetPrinterWifiStart", {5, 0}},
                                {"AppSdk_TriggerFwUpgradeStart", {0, 0}},  {"AppPrinterSdk_UpgradeFwProgress", {500, 1000}},
                                {"AppMgr_GetPrinterWifiProgress", {5, 0}}, {"AppSdk_TriggerFwUpgradeProcess", {1, 0}}};
  EXPECT_EQ(told, expected);
}

TEST_F(CallWatchers, SeeWhatAFailedCallHasLeftAsItWas) {
  loadScenarioText(withCall("AppPrinterSdk_UpgradeFwProgress", "<fail code='-8'/>"));
  std::int32_t current = 3;
  AppPrinterSdk_UpgradeFwProgress(&current, nullptr);
  ASSERT_EQ(seen().size(), 2U);
  EXPECT_EQ(seen().back().told, (std::array{3, 0}));
}

TEST_F(CallWatchers, SeeNothingOnceTheyAreTakenAway) {
  loadScenarioText(onePrinter(""));
  watchCalls(nullptr);
  AppMgr_GetPrintingJob(L"ma");
  EXPECT_TRUE(seen().empty());
}

}  // namespace
}  // namespace simulator::test
