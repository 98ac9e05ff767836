#include <optional>
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

  friend bool operator==(const Seen&, const Seen&) = default;
};

std::mutex g_mutex;
std::vector<Seen> g_seen;
std::vector<std::pair<bool, bool>> g_faults;  // failed, hung

void watch(const CallSight& sight) {
  const std::lock_guard lock(g_mutex);
  g_seen.push_back(
      {std::string(sight.function), std::wstring(sight.printer), sight.ends, sight.result, std::this_thread::get_id()});
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

TEST_F(CallWatchers, SeeNothingOnceTheyAreTakenAway) {
  loadScenarioText(onePrinter(""));
  watchCalls(nullptr);
  AppMgr_GetPrintingJob(L"ma");
  EXPECT_TRUE(seen().empty());
}

}  // namespace
}  // namespace simulator::test
