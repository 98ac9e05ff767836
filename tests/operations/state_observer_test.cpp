#include <memory>
#include <string>
#include <vector>

#include "operations/StateTest.h"

namespace {

// A network printer that prints two jobs, has a new address and is read with result 23.
class StateObserverTest : public StateTest {
 protected:
  StateObserverTest() {
    printer->connectionKind = kNetwork;
    libraries.jobs = 2;
    libraries.stateResult = 23;
    libraries.addressChanged = true;
    libraries.whileReading = [](qzstd::PrinterInfo& read) { fill(read); };
  }

  static void fill(qzstd::PrinterInfo& read) {
    read.model = L"model";
    read.serialNumber = L"serial number";
    read.firmwareVersion = L"version";
    read.address = L"address";
    read.deviceId = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    read.deviceStatus = 11;
    read.supplies = {{L"black", 40}, {L"cyan", 5}};
    read.alerts = {3, 1};
  }

  static void expectNoState(const qzstd::PrinterInfo& info) {
    EXPECT_TRUE(info.model.empty() && info.serialNumber.empty() && info.firmwareVersion.empty() && info.address.empty());
    EXPECT_EQ(info.deviceId, (std::array<std::uint8_t, 16>{}));
    EXPECT_EQ(info.deviceStatus, 0);
    EXPECT_TRUE(info.supplies.empty() && info.alerts.empty());
  }
};

TEST_F(StateObserverTest, ReceivesTheFourFieldsOfTheRunAndNoOthers) {
  const auto observed = std::make_shared<State>();
  observed->busy = true;
  observed->pushScanRegistered = true;
  record->upgradeRegistered = true;

  EXPECT_EQ(runWith({task(8, observed)}), 0);

  EXPECT_TRUE(observed->queried);
  EXPECT_TRUE(observed->ipChanged);
  EXPECT_EQ(observed->jobs, 2);
  EXPECT_EQ(observed->result, 23);
  EXPECT_TRUE(observed->busy);
  EXPECT_TRUE(observed->pushScanRegistered);
  EXPECT_FALSE(observed->upgradeRegistered);
}

TEST_F(StateObserverTest, IsServedBeforeAnyWindowIsTold) {
  const auto observed = std::make_shared<State>();
  std::int32_t seen = 0;
  const auto window = std::make_shared<NoticeWindow>([&](long) {
    seen = observed->jobs;
    return true;
  });
  const auto first = AppComm::Node::Instance(printer, window, 1, Type::State);
  first->setResource(record);

  comm_thread_state(entryOf({first, task(8, observed)}));

  EXPECT_EQ(seen, 2);
}

TEST_F(StateObserverTest, OfTheSamePrinterNameIsGivenNoPrinterState) {
  const auto twin = newPrinter(L"printer-1");
  runWith({taskFor(twin, 8, std::make_shared<State>())});
  expectNoState(*twin);
}

TEST_F(StateObserverTest, OfAnotherPrinterNameIsGivenTheWholePrinterStateAndNothingElse) {
  for (const wchar_t* name : {L"", L"printer-2", L"printer", L"printer-12"}) {
    SCOPED_TRACE(testing::PrintToString(name));
    const auto other = newPrinter(L"printer-1");
    other->name = name;
    auto expected = *other;
    fill(expected);
    printer->interval = 1234;
    printer->suppliesAlarmState = 160;
    printer->upgradeKey = L"key";
    printer->hasCtrlPort = true;

    runWith({taskFor(other, 8, std::make_shared<State>())});

    EXPECT_EQ(other->model, expected.model);
    EXPECT_EQ(other->serialNumber, expected.serialNumber);
    EXPECT_EQ(other->firmwareVersion, expected.firmwareVersion);
    EXPECT_EQ(other->address, expected.address);
    EXPECT_EQ(other->deviceId, expected.deviceId);
    EXPECT_EQ(other->deviceStatus, expected.deviceStatus);
    EXPECT_EQ(other->supplies, expected.supplies);
    EXPECT_EQ(other->alerts, expected.alerts);
    EXPECT_EQ(other->name, name);
    EXPECT_EQ(other->uid, L"printer-1");
    EXPECT_EQ(other->interval, 0);
    EXPECT_EQ(other->connectionKind, kUsb);
    EXPECT_FALSE(other->hasCtrlPort);
    EXPECT_EQ(other->suppliesAlarmState, 0);
    EXPECT_TRUE(other->upgradeKey.empty());
  }
}

TEST_F(StateObserverTest, WithAnotherRecordIsNotUpdatedButItsWindowIsTold) {
  const auto other = newPrinter(L"printer-2");
  const auto count = std::make_shared<int>(5);
  const auto last = std::make_shared<State>();

  EXPECT_EQ(runWith({taskFor(other, 8, count), task(9, last), task(10, {})}), 0);

  EXPECT_EQ(*count, 5);
  expectNoState(*other);
  EXPECT_EQ(last->jobs, 2);
  const auto entries = journal.entries();
  EXPECT_EQ(Texts(entries.end() - 4, entries.end()), (Texts{"notice 7", "notice 8", "notice 9", "notice 10"}));
}

TEST_F(StateObserverTest, HasNoSayInTheRun) {
  const auto busy = std::make_shared<State>();
  busy->busy = true;
  const auto observer = task(8, busy);
  observer->setReqNPA();
  observer->setNPAFlag();
  libraries.jobs = 0;

  EXPECT_EQ(runWith({observer}), 0);

  EXPECT_EQ(libraries.calls(), (Texts{kAsksJobs, kChecksAddress}));
  EXPECT_TRUE(observer->getNPAFlag());
}

TEST_F(StateObserverTest, ThatRefusesIsTheOnlyOneMarkedDeleted) {
  const auto staying = task(8, std::make_shared<State>());
  const auto leaving = task(9, std::make_shared<State>(), false);

  runWith({staying, leaving});

  EXPECT_FALSE(current->getDelete());
  EXPECT_FALSE(staying->getDelete());
  EXPECT_TRUE(leaving->getDelete());
}

TEST_F(StateObserverTest, ThatJoinsDuringTheRunIsServed) {
  std::shared_ptr<comm::CNode> entry = entryOf({current});
  const auto observed = std::make_shared<State>();
  libraries.whileReading = [&](qzstd::PrinterInfo&) { entry->addObserver(task(8, observed)); };

  comm_thread_state(entry);

  EXPECT_EQ(observed->result, 23);
  EXPECT_EQ(journal.entries().back(), "notice 8");
}

}  // namespace
