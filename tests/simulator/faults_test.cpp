#include <cstdlib>
#include <limits>
#include <thread>

#include "Support.h"

namespace simulator::test {
namespace {

class Faults : public SimulatorTest {
 protected:
  void load(const std::string& text) {
    holdTime();
    loadScenarioText(text);
  }

  /// The results of state reads, one after the other.
  std::vector<int> reads(int count) {
    auto info = newPrinterInfo(L"a");
    std::vector<int> results;
    for (int i = 0; i < count; ++i) results.push_back(AppPrinterSdk_GetState(&info));
    return results;
  }
};

TEST_F(Faults, FailHitsTheChosenCallsOnly) {
  struct Case {
    std::string selector;
    std::vector<int> results;
  };
  for (const Case& c : std::vector<Case>{{"", {-9, -9, -9, -9, -9}},
                                         {"call='3'", {0, 0, -9, 0, 0}},
                                         {"from-call='2'", {0, -9, -9, -9, -9}},
                                         {"from-call='2' calls='3'", {0, -9, -9, -9, 0}},
                                         {"calls='2'", {-9, -9, 0, 0, 0}}}) {
    load(withCall("AppPrinterSdk_GetState", "<fail code='-9' " + c.selector + "/>"));
    EXPECT_EQ(reads(5), c.results) << c.selector;
  }
}

TEST_F(Faults, FailInATimeSpanEndsWithIt) {
  load(withCall("AppPrinterSdk_GetState", "<fail code='7' from-ms='100' until-ms='200'/>"));
  EXPECT_EQ(reads(1), std::vector<int>{0});
  advanceTime(99ms);
  EXPECT_EQ(reads(1), std::vector<int>{0});
  advanceTime(1ms);
  EXPECT_EQ(reads(2), (std::vector<int>{7, 7}));
  advanceTime(99ms);
  EXPECT_EQ(reads(1), std::vector<int>{7});
  advanceTime(1ms);
  EXPECT_EQ(reads(1), std::vector<int>{0});
}

TEST_F(Faults, BothConditionsMustHold) {
  load(withCall("AppPrinterSdk_GetState", "<fail code='7' from-call='2' from-ms='100'/>"));
  EXPECT_EQ(reads(2), (std::vector<int>{0, 0}));
  advanceTime(100ms);
  EXPECT_EQ(reads(1), std::vector<int>{7});
}

TEST_F(Faults, FirstOfAKindThatHitsApplies) {
  load(withCall("AppPrinterSdk_GetState", "<fail code='1' call='2'/><fail code='2' calls='3'/>"));
  EXPECT_EQ(reads(4), (std::vector<int>{2, 1, 2, 0}));
}

TEST_F(Faults, PrintersOwnComeBeforeTheScenarios) {
  load(
      "<scenario><call function='AppPrinterSdk_GetState'><fail code='1' calls='2'/></call>"
      "<printer uid='a' manager-id='ma' connection='usb'>"
      "<call function='AppPrinterSdk_GetState'><fail code='2' call='2'/></call></printer></scenario>");
  EXPECT_EQ(reads(3), (std::vector<int>{1, 2, 0}));
}

TEST_F(Faults, CallsAreCountedPerPrinterAndFunction) {
  load(
      "<scenario><call function='AppPrinterSdk_GetState'><fail code='1' call='2'/></call>"
      "<printer uid='a' manager-id='ma' connection='usb'/><printer uid='b' manager-id='mb' connection='usb'/></scenario>");
  auto b = newPrinterInfo(L"b");
  EXPECT_EQ(AppPrinterSdk_GetState(&b), 0);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 0);
  EXPECT_EQ(reads(2), (std::vector<int>{0, 1}));
  EXPECT_EQ(AppPrinterSdk_GetState(&b), 1);
}

TEST_F(Faults, FailedReadLeavesTheState) {
  load(onePrinter("model='M'", "<call function='AppPrinterSdk_GetState'><fail code='-1'/></call>"));
  auto info = newPrinterInfo(L"a");
  EXPECT_EQ(AppPrinterSdk_GetState(&info), -1);
  EXPECT_EQ(info.model, L"");
}

TEST_F(Faults, GarbageStateIsHostileButValid) {
  load(withCall("AppPrinterSdk_GetState", "<garbage call='1'/>"));
  auto info = stateOf(L"a");
  EXPECT_EQ(info.model.size(), 100'000u);
  EXPECT_NE(info.serialNumber.find(L"%s%n"), std::wstring::npos);
  EXPECT_NE(info.firmwareVersion.find(L'\0'), std::wstring::npos);
  EXPECT_EQ(info.deviceStatus, std::numeric_limits<std::int32_t>::min());
  ASSERT_EQ(info.supplies.size(), 10'000u);
  EXPECT_LT(info.supplies[0].percent, 0);
  EXPECT_GT(info.supplies[3].percent, 100);
  EXPECT_EQ(info.alerts.size(), 10'000u);

  ASSERT_EQ(AppPrinterSdk_GetState(&info), success);
  EXPECT_EQ(info.model, L"");
  EXPECT_TRUE(info.supplies.empty() && info.alerts.empty());
}

TEST_F(Faults, GarbageOfJobsAndAddress) {
  load(onePrinter("", callOf("AppMgr_GetPrintingJob", "<garbage/>") + callOf("AppMgr_CheckIpChange", "<garbage/>")));
  auto info = newPrinterInfo(L"a");
  bool changed = false;
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(AppMgr_CheckIpChange(&info, &changed), success);
  EXPECT_TRUE(changed);
}

TEST_F(Faults, ScenariosFaultsCountForEachJobsPrinter) {
  load("<scenario>" + callOf("AppMgr_GetPrinterWifiProgress", "<fail code='-6' call='2'/>") +
       twoPrinters("").substr(std::string("<scenario>").size()));
  for (const auto* uid : {L"a", L"b"}) {
    auto info = newPrinterInfo(uid);
    std::int32_t number = 0;
    EXPECT_EQ(AppMgr_GetPrinterWifiStart(&info, &number), success);
    EXPECT_EQ(AppMgr_GetPrinterWifiProgress(&number), success);
    EXPECT_EQ(AppMgr_GetPrinterWifiProgress(&number), -6);
  }
}

TEST_F(Faults, FailComesBeforeTheRestart) {
  load(onePrinter("",
                  "<firmware size='1' rate='1000'/><call function='AppPrinterSdk_GetState'><fail code='9' call='1'/></call>"));
  auto info = newPrinterInfo(L"a");
  std::wstring firmware;
  EXPECT_EQ(AppPrinterSdk_UpgradeFwStart(&info, &firmware), success);
  advanceTime(1ms);
  AppPrinterSdk_UpgradeFwExit();
  EXPECT_EQ(reads(2), (std::vector<int>{9, unreachable}));
}

TEST_F(Faults, CallThatOutlastsTheRestartIsAnswered) {
  load(onePrinter("", "<firmware size='1' rate='1000' restart='10'/>" + callOf("AppPrinterSdk_GetState", "<hang ms='10'/>")));
  auto info = newPrinterInfo(L"a");
  std::wstring firmware;
  EXPECT_EQ(AppPrinterSdk_UpgradeFwStart(&info, &firmware), success);
  advanceTime(1ms);
  AppPrinterSdk_UpgradeFwExit();
  auto read = readStateElsewhere(L"a");
  ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit));
  advanceTime(10ms);
  EXPECT_EQ(read.get(), success);
}

// Waiting. Time is held, so that nothing ends before the test says so.

TEST_F(Faults, HangLastsItsTimeAndThenAnswers) {
  load(withCall("AppPrinterSdk_GetState", "<hang ms='5000' call='1'/>"));
  auto read = readStateElsewhere(L"a");
  ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit));
  advanceTime(4999ms);
  EXPECT_FALSE(calls().at(0).end);
  advanceTime(1ms);
  ASSERT_TRUE(waitUntilEnded("AppPrinterSdk_GetState", 1, limit));
  EXPECT_EQ(read.get(), success);
  EXPECT_EQ(*calls().at(0).end - calls().at(0).start, 5000ms);
}

TEST_F(Faults, HangCanEndInAFailure) {
  load(withCall("AppPrinterSdk_GetState", "<hang ms='10'/><fail code='-3'/>"));
  auto read = readStateElsewhere(L"a");
  ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit));
  advanceTime(10ms);
  EXPECT_EQ(read.get(), -3);
}

TEST_F(Faults, EndlessHangEndsByRelease) {
  load(withCall("AppPrinterSdk_GetState", "<hang call='1'/>"));
  auto read = readStateElsewhere(L"a");
  ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit));
  advanceTime(1h);
  EXPECT_FALSE(calls().at(0).end);
  releaseCalls();
  EXPECT_EQ(read.get(), success);
}

TEST_F(Faults, ReleaseIsForCallsUnderWayOnly) {
  load(withCall("AppPrinterSdk_GetState", "<hang ms='10'/>"));
  releaseCalls();
  auto read = readStateElsewhere(L"a");
  ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit));
  advanceTime(9ms);
  EXPECT_FALSE(calls().at(0).end);
  advanceTime(1ms);
  EXPECT_EQ(read.get(), success);
  EXPECT_EQ(*calls().at(0).end - calls().at(0).start, 10ms);
}

TEST_F(Faults, HangingPrintersDoNotHoldEachOtherUp) {
  load(
      "<scenario><call function='AppPrinterSdk_GetState'><hang call='1'/></call>"
      "<printer uid='a' manager-id='ma' connection='usb'><call function='AppPrinterSdk_GetState'><hang "
      "ms='10'/></call></printer>"
      "<printer uid='b' manager-id='mb' connection='usb'/></scenario>");
  auto a = readStateElsewhere(L"a");
  auto b = readStateElsewhere(L"b");
  ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit, L"a"));
  ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit, L"b"));
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 0);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"mb"), 0);
  advanceTime(10ms);
  ASSERT_TRUE(waitUntilEnded("AppPrinterSdk_GetState", 1, limit, L"a"));
  EXPECT_FALSE(waitUntilEnded("AppPrinterSdk_GetState", 1, 0ms, L"b"));
  releaseCalls();
  EXPECT_EQ(a.get(), success);
  EXPECT_EQ(b.get(), success);
}

TEST_F(Faults, NewScenarioReleasesAndKeepsTheOldAnswers) {
  load(onePrinter("model='old'", "<call function='AppPrinterSdk_GetState'><hang/></call>"));
  auto info = newPrinterInfo(L"a");
  auto read = std::async(std::launch::async, [&] { return AppPrinterSdk_GetState(&info); });
  ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit));
  loadScenarioText(onePrinter("model='new'"));
  EXPECT_EQ(read.get(), success);
  EXPECT_EQ(info.model, L"old");
  EXPECT_TRUE(calls().empty());
}

TEST_F(Faults, ResetReleases) {
  load(withCall("AppPrinterSdk_GetState", "<hang/>"));
  auto read = readStateElsewhere(L"a");
  ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit));
  reset();
  EXPECT_EQ(read.get(), success);
}

TEST_F(Faults, HangRunsByTheRealClockToo) {
  loadScenarioText(withCall("AppPrinterSdk_GetState", "<hang ms='30'/>"));
  EXPECT_EQ(reads(1), std::vector<int>{0});
  EXPECT_GE(*calls().at(0).end - calls().at(0).start, 30ms);
}

TEST_F(Faults, HoldingTimeStopsAWaitThatHasBegun) {
  loadScenarioText(withCall("AppPrinterSdk_GetState", "<hang ms='3600000'/>"));
  auto read = readStateElsewhere(L"a");
  ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit));
  holdTime();
  advanceTime(1h);
  EXPECT_EQ(read.get(), success);
}

using FaultsDeathTest = Faults;

TEST_F(FaultsDeathTest, ProcessEndsWhileACallHangs) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        loadScenarioText(withCall("AppPrinterSdk_GetState", "<hang/>"));
        std::thread([info = newPrinterInfo(L"a")]() mutable { AppPrinterSdk_GetState(&info); }).detach();
        std::exit(waitUntilBegun("AppPrinterSdk_GetState", 1, limit) ? 7 : 1);
      },
      testing::ExitedWithCode(7), "");
}

// Latency.

TEST_F(Faults, NearestLatencyApplies) {
  struct Case {
    std::string scenario;
    std::string printer;
    std::chrono::milliseconds latency;
  };
  const std::string state = "<call function='AppPrinterSdk_GetState' latency='";
  for (const Case& c :
       std::vector<Case>{{"", "", 0ms},
                         {"<call latency='10'/>", "", 10ms},
                         {"<call latency='10'/>" + state + "20'/>", "", 20ms},
                         {"<call latency='10'/>" + state + "20'/>", "<call latency='30'/>", 30ms},
                         {"<call latency='10'/>" + state + "20'/>", "<call latency='30'/>" + state + "40'/>", 40ms},
                         {state + "20'/>", state.substr(0, state.find(" latency")) + "/>", 20ms}}) {
    load("<scenario>" + c.scenario + "<printer uid='a' manager-id='ma' connection='usb'>" + c.printer +
         "</printer></scenario>");
    auto read = readStateElsewhere(L"a");
    ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit));
    advanceTime(c.latency);
    EXPECT_EQ(read.get(), success);
    EXPECT_EQ(*calls().at(0).end - calls().at(0).start, c.latency);
    if (c.latency == 0ms) continue;
    read = readStateElsewhere(L"a");
    ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 2, limit));
    advanceTime(c.latency - 1ms);
    EXPECT_FALSE(calls().at(1).end);
    releaseCalls();
  }
}

}  // namespace
}  // namespace simulator::test
