#include "Support.h"

namespace simulator::test {
namespace {

class Timeline : public SimulatorTest {
 protected:
  void load(const std::string& text) {
    holdTime();
    loadScenarioText(text);
  }
};

TEST_F(Timeline, StateReadFillsEveryStateMember) {
  load(onePrinter("model='M' serial='S' firmware='F' address='A' device-id='000102030405060708090a0b0c0d0EFF' status='-5'",
                  "<supply color='black' percent='5'/><supply color='cyan' percent='0'/><alert code='-4'/><alert code='3'/>"));
  qzstd::PrinterInfo info = stateOf(L"a");
  EXPECT_EQ(info.model, L"M");
  EXPECT_EQ(info.serialNumber, L"S");
  EXPECT_EQ(info.firmwareVersion, L"F");
  EXPECT_EQ(info.address, L"A");
  EXPECT_EQ(info.deviceId, (std::array<std::uint8_t, 16>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 255}));
  EXPECT_EQ(info.deviceStatus, -5);
  EXPECT_EQ(info.supplies, (std::vector<qzstd::Supply>{{L"black", 5}, {L"cyan", 0}}));
  EXPECT_EQ(info.alerts, (std::vector<std::int32_t>{-4, 3}));
}

TEST_F(Timeline, StateReadLeavesEverythingElse) {
  load(onePrinter("upgrade-key='K'"));
  qzstd::PrinterInfo info;
  info.uid = L"a";
  info.name = L"mine";
  info.interval = 7;
  info.suppliesAlarmState = 160;
  ASSERT_EQ(AppPrinterSdk_GetState(&info), success);
  EXPECT_EQ(info.name, L"mine");
  EXPECT_EQ(info.interval, 7);
  EXPECT_EQ(info.managerId, L"");
  EXPECT_EQ(info.suppliesAlarmState, 160);
  EXPECT_EQ(info.upgradeKey, L"");
}

TEST_F(Timeline, EachChangeHappensAtItsTime) {
  load(onePrinter("address='old' jobs='1'",
                  "<timeline><at ms='100'><jobs count='2'/><status value='11'/></at><at ms='200'><address value='new'/></at>"
                  "<at ms='300'><supply color='black' percent='4'/><alert code='9' active='yes'/></at>"
                  "<at ms='300'><alert code='8' active='no'/></at></timeline>"
                  "<supply color='black' percent='5'/><alert code='8'/>"));
  advanceTime(99ms);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 1);
  EXPECT_EQ(stateOf(L"a").deviceStatus, 0);
  advanceTime(1ms);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 2);
  EXPECT_EQ(stateOf(L"a").deviceStatus, 11);
  EXPECT_EQ(stateOf(L"a").address, L"old");
  advanceTime(199ms);
  EXPECT_EQ(stateOf(L"a").address, L"new");
  EXPECT_EQ(stateOf(L"a").supplies.at(0).percent, 5);
  EXPECT_EQ(stateOf(L"a").alerts, std::vector<std::int32_t>{8});
  advanceTime(1ms);
  EXPECT_EQ(stateOf(L"a").supplies.at(0).percent, 4);
  EXPECT_EQ(stateOf(L"a").alerts, std::vector<std::int32_t>{9});
  advanceTime(24h);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 2);
}

TEST_F(Timeline, StartsAfreshWithEveryLoad) {
  const std::string text = onePrinter("", "<timeline><at ms='100'><jobs count='2'/></at></timeline>");
  load(text);
  advanceTime(100ms);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 2);
  loadScenarioText(text);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 0);
}

TEST_F(Timeline, RealTimeMovesIt) {
  loadScenarioText(onePrinter("",
                              "<call function='AppMgr_GetPrintingJob' latency='20'/>"
                              "<timeline><at ms='20'><jobs count='2'/></at></timeline>"));
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 2);  // the answer is as of the end of the call
}

TEST_F(Timeline, TimeMovesByHandOnlyWhileHeld) { EXPECT_THROW(advanceTime(1ms), std::logic_error); }

}  // namespace
}  // namespace simulator::test
