#include <thread>

#include "Support.h"

namespace simulator::test {
namespace {

using CallRecords = SimulatorTest;

TEST_F(CallRecords, EveryCallIsRecordedInOrder) {
  holdTime();
  loadScenarioText(onePrinter("jobs='3'", "<call function='AppPrinterSdk_GetState'><fail code='-8' call='2'/></call>"));
  auto info = newPrinterInfo(L"a");
  bool changed = false;
  AppPrinterSdk_GetState(&info);
  advanceTime(5ms);
  AppMgr_GetPrintingJob(L"ma");
  AppMgr_CheckIpChange(&info, &changed);
  AppPrinterSdk_IsSuppportPushScan(&info);
  AppPrinterSdk_GetState(&info);

  const auto record = calls();
  ASSERT_EQ(record.size(), 5u);
  const char* const functions[] = {"AppPrinterSdk_GetState", "AppMgr_GetPrintingJob", "AppMgr_CheckIpChange",
                                   "AppPrinterSdk_IsSuppportPushScan", "AppPrinterSdk_GetState"};
  const int results[] = {0, 3, 0, 0, -8};
  for (std::size_t i = 0; i < record.size(); ++i) {
    EXPECT_EQ(record[i].function, functions[i]);
    EXPECT_EQ(record[i].printer, L"a");
    EXPECT_EQ(record[i].result, results[i]);
    EXPECT_EQ(record[i].end, record[i].start);
  }
  EXPECT_EQ(record[1].start - record[0].start, 5ms);
}

TEST_F(CallRecords, TimesAreOnTheSteadyClock) {
  loadScenarioText(onePrinter(""));
  const auto before = std::chrono::steady_clock::now();
  AppMgr_GetPrintingJob(L"ma");
  const auto after = std::chrono::steady_clock::now();
  EXPECT_LE(before, calls().at(0).start);
  EXPECT_LE(calls().at(0).start, *calls().at(0).end);
  EXPECT_LE(*calls().at(0).end, after);
}

TEST_F(CallRecords, CallUnderWayHasNoEnd) {
  loadScenarioText(withCall("AppPrinterSdk_GetState", "<hang/>"));
  auto read = readStateElsewhere(L"a");
  ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit));
  EXPECT_FALSE(calls().at(0).end);
  EXPECT_FALSE(calls().at(0).result);
  releaseCalls();
  EXPECT_EQ(read.get(), success);
  EXPECT_EQ(calls().at(0).result, success);
}

TEST_F(CallRecords, AreForgottenWithTheScenario) {
  loadScenarioText(onePrinter(""));
  AppMgr_GetPrintingJob(L"ma");
  reset();
  EXPECT_TRUE(calls().empty());
}

TEST_F(CallRecords, OldestLeaveTheRecordButAreStillCounted) {
  loadScenarioText(withCall("AppPrinterSdk_GetState", "<hang/>"));
  auto read = readStateElsewhere(L"a");
  ASSERT_TRUE(waitUntilBegun("AppPrinterSdk_GetState", 1, limit));
  for (std::size_t i = 0; i < recordCapacity; ++i) AppMgr_GetPrintingJob(L"ma");
  releaseCalls();  // its entry has left the record
  EXPECT_EQ(read.get(), success);
  EXPECT_EQ(calls().size(), recordCapacity);
  EXPECT_EQ(calls().front().function, "AppMgr_GetPrintingJob");
  EXPECT_TRUE(calls().back().end);
  EXPECT_TRUE(waitUntilEnded("AppPrinterSdk_GetState", 1, limit));
  EXPECT_TRUE(waitUntilEnded("AppMgr_GetPrintingJob", recordCapacity, limit));
}

TEST_F(CallRecords, WaitGivesUpAtItsLimit) {
  loadScenarioText(onePrinter(""));
  EXPECT_FALSE(waitUntilBegun("AppMgr_GetPrintingJob", 1, 1ms));
  AppMgr_GetPrintingJob(L"ma");
  EXPECT_TRUE(waitUntilBegun("AppMgr_GetPrintingJob", 1, 0ms));
  EXPECT_FALSE(waitUntilBegun("AppMgr_GetPrintingJob", 2, 1ms));
  EXPECT_FALSE(waitUntilEnded("AppMgr_GetPrintingJob", 1, 1ms, L"other"));
}

TEST_F(CallRecords, WaitIsInRealTimeAlsoWhileTimeIsHeld) {
  holdTime();
  loadScenarioText(onePrinter(""));
  EXPECT_FALSE(waitUntilBegun("AppMgr_GetPrintingJob", 1, 1ms));
}

TEST_F(CallRecords, WaitMayBeginBeforeTheScenarioIsLoaded) {
  auto waited = std::async(std::launch::async, [] { return waitUntilEnded("AppMgr_GetPrintingJob", 2, limit); });
  loadScenarioText(onePrinter(""));
  AppMgr_GetPrintingJob(L"ma");
  AppMgr_GetPrintingJob(L"ma");
  EXPECT_TRUE(waited.get());
}

TEST_F(CallRecords, WaitForAFunctionThatIsNotSimulatedIsAnError) {
  EXPECT_THROW(waitUntilBegun("AppMgr_GetPrintingJobs", 1, limit), std::invalid_argument);
  EXPECT_THROW(waitUntilEnded("", 1, limit), std::invalid_argument);
}

TEST_F(CallRecords, ManyThreadsLoseNoCall) {
  loadScenarioText(onePrinter("", "<call latency-min='0' latency-max='1'/>"));
  constexpr std::size_t threads = 8;
  constexpr std::size_t rounds = 50;
  std::vector<std::thread> all;
  for (std::size_t i = 0; i < threads; ++i) {
    all.emplace_back([] {
      auto info = newPrinterInfo(L"a");
      for (std::size_t round = 0; round < rounds; ++round) {
        bool changed = false;
        AppPrinterSdk_GetState(&info);
        AppMgr_CheckIpChange(&info, &changed);
        if (round % 10 == 0) releaseCalls();
        calls();
      }
    });
  }
  EXPECT_TRUE(waitUntilEnded("AppMgr_CheckIpChange", threads * rounds, limit));
  for (std::thread& thread : all) thread.join();
  const auto record = calls();
  EXPECT_EQ(record.size(), 2 * threads * rounds);
  for (const CallRecord& call : record) EXPECT_EQ(call.result, success);
}

TEST_F(CallRecords, ScenariosMayChangeUnderRunningCalls) {
  std::thread caller([] {
    auto info = qzstd::PrinterInfo{};
    info.uid = L"a";
    for (int i = 0; i < 300; ++i) AppPrinterSdk_GetState(&info);
  });
  for (int i = 0; i < 100; ++i) loadScenarioText(withCall("AppPrinterSdk_GetState", "<hang call='2'/>"));
  loadScenarioText(onePrinter(""));
  caller.join();
  for (const CallRecord& call : calls()) EXPECT_EQ(call.result, success);
}

}  // namespace
}  // namespace simulator::test
