#include "operations/Registration.h"

#include <optional>

#include "operations/Handlers.h"
#include "operations/LongOperationTest.h"

namespace {

using AppComm::State;

// Answers both registrations.
class Registrar : public PolledPrinter {
 public:
  using PolledPrinter::PolledPrinter;

  bool registered = true;
  int pushScanResult = 0;

  bool AppSdk_SetPrinterUpgradeInfo(qzstd::PrinterInfo* /*printer*/) override { return registered; }
  int AppPrinterSdk_RegisterPushScanUSB(qzstd::PrinterInfo* /*printer*/) override { return pushScanResult; }
};

// One of the two registrations, and how the printer accepts and rejects it.
struct Row {
  const char* name;
  int (*handler)(std::shared_ptr<comm::CNode>);
  bool State::*flag;
  const char* call;
  const char* accepted;
  const char* rejected;
};

const Row kUpgrade = {"comm_thread_regUpgrade",
                      comm_thread_regUpgrade,
                      &State::upgradeRegistered,
                      "AppSdk_SetPrinterUpgradeInfo(printer-1)",
                      "DBG register firmware upgrade (key: the key) result: 1",
                      "DBG register firmware upgrade (key: the key) result: 0"};
const Row kPushScan = {"comm_thread_regPushscan",          comm_thread_regPushscan,
                       &State::pushScanRegistered,         "AppPrinterSdk_RegisterPushScanUSB(printer-1)",
                       "DBG register push scan result: 0", "DBG register push scan result: -5"};

// The members that a registration may write, the true ones by name, and the others.
std::string shown(const State& state) {
  return std::string(state.queried ? "queried " : "") + (state.busy ? "busy " : "") +
         (state.pushScanRegistered ? "pushScan " : "") + (state.upgradeRegistered ? "upgrade " : "") +
         (state.ipChanged ? "ipChanged " : "") + std::to_string(state.jobs) + ' ' + std::to_string(state.result);
}

class RegistrationTest : public OperationTestWith<Registrar>, public testing::WithParamInterface<const Row*> {
 protected:
  RegistrationTest() : OperationTestWith(GetParam()->name) { printer->upgradeKey = L"the key"; }

  void answer(bool accepted) {
    libraries.registered = accepted;
    libraries.pushScanResult = accepted ? 0 : -5;
  }
  int run(const std::vector<std::shared_ptr<AppComm::Node>>& observers = {}) {
    std::vector<std::shared_ptr<AppComm::Node>> tasks{current};
    tasks.insert(tasks.end(), observers.begin(), observers.end());
    return row.handler(entryOf(tasks));
  }

  const Row& row = *GetParam();
  const std::shared_ptr<State> record = std::make_shared<State>();
  const std::shared_ptr<AppComm::Node> current = task(7, record);
};

INSTANTIATE_TEST_SUITE_P(Each, RegistrationTest, testing::Values(&kUpgrade, &kPushScan),
                         [](const auto& row) { return std::string(row.param == &kUpgrade ? "Upgrade" : "PushScan"); });

TEST_P(RegistrationTest, IsLoggedRecordedAndReturnedAndNobodyIsNotified) {
  for (const bool accepted : {true, false}) {
    SCOPED_TRACE(accepted);
    record.get()->*row.flag = !accepted;
    answer(accepted);
    const auto before = static_cast<std::ptrdiff_t>(journal.entries().size());

    EXPECT_EQ(run({task(8, std::make_shared<State>())}), accepted ? 0 : 1);

    const auto entries = journal.entries();
    EXPECT_EQ(Texts(entries.begin() + before, entries.end()), (Texts{row.call, accepted ? row.accepted : row.rejected}));
    EXPECT_EQ(record.get()->*row.flag, accepted);
  }
}

TEST_P(RegistrationTest, WritesNoOtherMemberOfTheRecord) {
  for (const bool others : {true, false}) {
    for (const bool accepted : {true, false}) {
      SCOPED_TRACE(testing::Message() << "others " << others << ", accepted " << accepted);
      *record = {others, others, others, others, others, 3, 23};
      auto expected = *record;
      expected.*row.flag = accepted;
      answer(accepted);
      run();
      EXPECT_EQ(shown(*record), shown(expected));
    }
  }
}

TEST_P(RegistrationTest, IsCopiedToObserversWithAStateRecordAndToNoOthers) {
  for (const bool accepted : {true, false}) {
    SCOPED_TRACE(accepted);
    answer(accepted);
    const auto first = std::make_shared<State>();
    const auto last = std::make_shared<State>();
    *first = {!accepted, !accepted, !accepted, !accepted, !accepted, 4, 9};
    *last = *first;
    const auto parameters = std::make_shared<AppComm::DevParam>();
    parameters->busy = parameters->statusOne = parameters->sleepTimeOk = parameters->supplyAlarmOk = !accepted;
    parameters->sleepTime = 5;
    auto expected = *first;
    expected.*row.flag = accepted;

    EXPECT_EQ(run({task(1, first), task(2, parameters), task(3, {}), task(4, last)}), accepted ? 0 : 1);

    EXPECT_EQ(shown(*first), shown(expected));
    EXPECT_EQ(shown(*last), shown(expected));
    EXPECT_EQ(parameters->busy && parameters->statusOne && parameters->sleepTimeOk && parameters->supplyAlarmOk, !accepted);
    EXPECT_EQ(parameters->sleepTime, 5);
  }
}

TEST_P(RegistrationTest, IsCopiedToAnObserverThatJoinsMeanwhile) {
  const auto late = std::make_shared<State>();
  const auto entry = entryOf({current});
  libraries.inCall = [&](const std::string&) { entry->addObserver(task(8, late)); };
  row.handler(entry);
  EXPECT_TRUE(late.get()->*row.flag);
}

TEST_P(RegistrationTest, MarksNoTaskUpdatedOrDeleted) {
  const auto observer = task(8, std::make_shared<State>(), false);
  for (const bool accepted : {true, false}) {
    answer(accepted);
    run({observer});
    for (const auto& each : {current, observer}) {
      EXPECT_FALSE(each->getUpdate());
      EXPECT_FALSE(each->getDelete());
    }
  }
}

TEST_P(RegistrationTest, RecordKeepsItsFlagUntilThePrinterHasAnswered) {
  for (const bool before : {true, false}) {
    SCOPED_TRACE(before);
    record.get()->*row.flag = before;
    answer(!before);
    std::optional<bool> seen;
    libraries.inCall = [&](const std::string&) { seen = record.get()->*row.flag; };
    run();
    EXPECT_EQ(seen, before);
  }
}

TEST_P(RegistrationTest, ServesARecordThatIsSharedWithItsObserver) {
  answer(false);
  record.get()->*row.flag = true;
  EXPECT_EQ(run({task(8, record)}), 1);
  EXPECT_FALSE(record.get()->*row.flag);
}

class UpgradeRegistrationTest : public OperationTestWith<Registrar> {
 protected:
  UpgradeRegistrationTest() : OperationTestWith("comm_thread_regUpgrade") {}
};

TEST_F(UpgradeRegistrationTest, LogsTheKeyThatThePrinterHasAfterTheCall) {
  printer->upgradeKey = L"old";
  libraries.inCall = [this](const std::string&) { printer->upgradeKey = L"new"; };
  comm_thread_regUpgrade(entryOf({task(7, std::make_shared<State>())}));
  EXPECT_EQ(journal.entries().back(), "DBG register firmware upgrade (key: new) result: 1");
}

TEST_F(UpgradeRegistrationTest, OfAPrinterWithoutAKeyIsMadeAllTheSame) {
  EXPECT_EQ(comm_thread_regUpgrade(entryOf({task(7, std::make_shared<State>())})), 0);
  EXPECT_EQ(journal.entries().back(), "DBG register firmware upgrade (key: ) result: 1");
}

class PushScanRegistrationTest : public OperationTestWith<Registrar> {
 protected:
  PushScanRegistrationTest() : OperationTestWith("comm_thread_regPushscan") {}
};

TEST_F(PushScanRegistrationTest, EveryResultButNoneIsAFailureAndReturnsOne) {
  for (const int result : {-1, 1, 2, 256}) {
    SCOPED_TRACE(result);
    const auto record = std::make_shared<State>();
    record->pushScanRegistered = true;
    libraries.pushScanResult = result;
    EXPECT_EQ(comm_thread_regPushscan(entryOf({task(7, record)})), 1);
    EXPECT_FALSE(record->pushScanRegistered);
    EXPECT_EQ(journal.entries().back(), filled("DBG register push scan result: %d", {result}));
  }
}

}  // namespace
