/// The main job: polling a printer's state.

#include "module/ModuleTest.h"

namespace {

using application::loadPrinters;
using application::printer;

constexpr const char* kGetState = "AppPrinterSdk_GetState";

class PollingTest : public ModuleTest {
 protected:
  PollingTest() {
    loadPrinters(printer("usb",
                         "connection='usb' name='Desk' interval='20' ctrl-port='yes' jobs='1' status='3' model='D 200' "
                         "serial='D-1' firmware='1.4' device-id='000102030405060708090a0b0c0d0e0f'",
                         "<supply color='black' percent='62'/><alert code='21'/>") +
                 printer("net", "connection='network' name='Hall' interval='20' address='192.0.2.10' jobs='2'") +
                 printer("idle", "connection='usb' interval='20'"));
  }
};

TEST_F(PollingTest, UsbPrinterIsReadAndItsWindowToldAgainAndAgain) {
  auto& task = stateTask(L"usb", 4711).repeating();
  EXPECT_EQ(Add(task.node()), 0);
  ASSERT_TRUE(task.notices().waitFor(3));

  for (const auto& notice : task.notices().all()) {
    EXPECT_EQ(notice.code, 4711);
    EXPECT_TRUE(notice.record.queried);
    EXPECT_EQ(notice.record.result, 0);
    EXPECT_EQ(notice.record.jobs, 1);
    EXPECT_EQ(notice.printer.model, L"D 200");
    EXPECT_EQ(notice.printer.serialNumber, L"D-1");
    EXPECT_EQ(notice.printer.firmwareVersion, L"1.4");
    EXPECT_EQ(notice.printer.deviceId[15], 0x0f);
    EXPECT_EQ(notice.printer.deviceStatus, 3);
    EXPECT_EQ(notice.printer.supplies, (std::vector<qzstd::Supply>{{L"black", 62}}));
    EXPECT_EQ(notice.printer.alerts, std::vector<std::int32_t>{21});
  }
  EXPECT_TRUE(task.node()->getUpdate());
}

TEST_F(PollingTest, NetworkPrinterIsReadAndItsAddressChecked) {
  auto& task = stateTask(L"net", 12).repeating();
  EXPECT_EQ(Add(task.node()), 0);
  ASSERT_TRUE(task.notices().waitFor(2));

  const auto notice = task.notices().all().back();
  EXPECT_EQ(notice.code, 12);
  EXPECT_TRUE(notice.record.queried);
  EXPECT_EQ(notice.record.jobs, 2);
  EXPECT_EQ(notice.printer.address, L"192.0.2.10");
  EXPECT_GE(begun("AppMgr_CheckIpChange", L"net"), 2U);
}

TEST_F(PollingTest, FailedReadIsTold) {
  loadPrinters(printer("usb", "connection='usb' ctrl-port='yes' jobs='1'",
                       "<call function='AppPrinterSdk_GetState'><fail code='-7'/></call>"));
  auto& task = stateTask(L"usb", 1);
  Add(task.node());
  ASSERT_TRUE(task.notices().waitFor(1));
  EXPECT_TRUE(task.notices().all().front().record.queried);
  EXPECT_EQ(task.notices().all().front().record.result, -7);
}

TEST_F(PollingTest, ObserverIsToldOfTheSameRunsWithItsOwnCode) {
  auto& first = stateTask(L"usb", 1).repeating();
  auto& second = stateTask(L"usb", 2).repeating();
  second.node()->getInfo()->name = L"Desk, seen from elsewhere";  // another name: it gets a copy of the state
  Add(first.node());
  ASSERT_TRUE(first.notices().waitFor(1));
  EXPECT_EQ(Add(second.node()), 0);
  ASSERT_TRUE(second.notices().waitFor(2));

  const auto notice = second.notices().all().back();
  EXPECT_EQ(notice.code, 2);
  EXPECT_TRUE(notice.record.queried);
  EXPECT_EQ(notice.record.jobs, 1);
  EXPECT_EQ(notice.printer.model, L"D 200");
  EXPECT_EQ(notice.printer.deviceStatus, 3);
  const auto runs = begun("AppMgr_GetPrintingJob", L"usb");
  EXPECT_LE(runs, first.notices().count() + 1) << "one may be under way; the second task has none of its own";
}

TEST_F(PollingTest, WindowThatRefusesIsNotToldAgainAndItsTaskIsReleased) {
  auto& task = stateTask(L"usb", 1, [](std::size_t number) { return number < 2; }).repeating();
  const std::weak_ptr<AppComm::Node> node = task.node();
  Add(task.node());
  ASSERT_TRUE(task.notices().waitFor(2));
  EXPECT_TRUE(task.waitUntilReleased());
  EXPECT_TRUE(node.expired());
  EXPECT_EQ(task.notices().count(), 2U);
}

TEST_F(PollingTest, OnceTaskRunsOnceAndIsReleased) {
  auto& task = stateTask(L"usb", 1);
  Add(task.node());
  ASSERT_TRUE(task.notices().waitFor(1));
  EXPECT_TRUE(task.waitUntilReleased());
  EXPECT_EQ(task.notices().count(), 1U);
  EXPECT_EQ(begun(kGetState, L"usb"), 1U);
}

TEST_F(PollingTest, IdlePrinterIsReadFromStartNpaUntilPauseNpa) {
  auto& task = stateTask(L"idle", 1).repeating();
  Add(task.node());
  ASSERT_TRUE(task.notices().waitFor(2));
  EXPECT_EQ(begun(kGetState, L"idle"), 0U);
  EXPECT_FALSE(task.notices().all().back().record.queried);

  EXPECT_EQ(StartNPA(task.node()), 0);
  ASSERT_TRUE(simulator::waitUntilEnded(kGetState, 2, application::kPatience, L"idle"));

  EXPECT_EQ(PauseNPA(task.node()), 0);
  ASSERT_TRUE(task.notices().waitForMore(1));  // of a run that may have begun before
  const auto reads = begun(kGetState, L"idle");
  ASSERT_TRUE(task.notices().waitForMore(3));
  EXPECT_EQ(begun(kGetState, L"idle"), reads);
  EXPECT_FALSE(task.notices().all().back().record.queried);
}

TEST_F(PollingTest, StopEndsEverythingAndALaterAddStartsAnew) {
  auto& usb = stateTask(L"usb", 1).repeating();
  auto& net = stateTask(L"net", 2).repeating();
  Add(usb.node());
  Add(net.node());
  ASSERT_TRUE(usb.notices().waitFor(1));
  ASSERT_TRUE(net.notices().waitFor(1));

  EXPECT_EQ(Stop(), 0);
  ASSERT_TRUE(threadsEnd());
  EXPECT_TRUE(usb.waitUntilReleased());
  EXPECT_TRUE(net.waitUntilReleased());
  const auto told = usb.notices().count();

  auto& again = stateTask(L"usb", 3).repeating();
  EXPECT_EQ(Add(again.node()), 0);
  ASSERT_TRUE(again.notices().waitFor(2));
  EXPECT_EQ(again.notices().all().back().printer.model, L"D 200");
  EXPECT_EQ(usb.notices().count(), told);
}

TEST_F(PollingTest, AddAfterStopIsServedWhileTheOldWorkerIsStillInACall) {
  loadPrinters(printer("usb", "connection='usb' interval='20' ctrl-port='yes' jobs='1'",
                       "<call function='AppPrinterSdk_GetState'><hang call='1'/></call>"));
  auto& old = stateTask(L"usb", 1).repeating();
  Add(old.node());
  ASSERT_TRUE(simulator::waitUntilBegun(kGetState, 1, application::kPatience));
  Stop();

  auto& later = stateTask(L"usb", 2).repeating();
  Add(later.node());
  EXPECT_TRUE(later.notices().waitFor(2));
  EXPECT_EQ(old.notices().count(), 0U);

  simulator::releaseCalls();
  EXPECT_TRUE(old.waitUntilReleased());
  EXPECT_EQ(old.notices().count(), 1U) << "the run that was under way is told";
}

TEST_F(PollingTest, ListThatWaitedRanAndRanIdleLeavesNoThread) {
  loadPrinters(printer("usb", "connection='usb' interval='5'"));
  auto& task = stateTask(L"usb", 1, [](std::size_t number) { return number < 3; }).repeating();
  Add(task.node());
  EXPECT_TRUE(task.notices().waitFor(3));
  EXPECT_TRUE(threadsEnd()) << "without Stop, after ten idle cycles";
}

/// How far apart the runs are.
struct Pace {
  const char* name;
  const char* printer;
  bool request;
};

class PacingTest : public ModuleTest, public testing::WithParamInterface<Pace> {};

TEST_P(PacingTest, RunsKeepTheIntervalBetweenThem) {
  using namespace std::chrono_literals;
  constexpr std::size_t kRuns = 5;
  loadPrinters(printer("p", std::string(GetParam().printer) + " interval='300'"));
  auto& task = stateTask(L"p", 1).repeating();
  if (GetParam().request) task.node()->setReqNPA();
  Add(task.node());
  ASSERT_TRUE(task.notices().waitFor(kRuns));

  std::vector<std::chrono::steady_clock::time_point> starts;
  for (const auto& call : simulator::calls()) {
    if (call.function == "AppMgr_GetPrintingJob") starts.push_back(call.start);
  }
  ASSERT_GE(starts.size(), kRuns);
  for (std::size_t i = 1; i < kRuns; ++i) EXPECT_GE(starts[i] - starts[i - 1], 299ms) << "run " << i;
}

INSTANTIATE_TEST_SUITE_P(Runs, PacingTest,
                         testing::Values(Pace{"ThatReadThePrinter", "connection='usb'", true},
                                         Pace{"ThatReadNothing", "connection='usb'", false}),
                         [](const auto& pace) { return pace.param.name; });

}  // namespace
