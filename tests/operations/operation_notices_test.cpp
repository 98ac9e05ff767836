// Which windows are told when an operation ends, and what it leaves of the tasks' flags, for all operations in their shortest
// runs.

#include <algorithm>
#include <atomic>
#include <set>
#include <vector>

#include "operations/TableTest.h"

namespace {

using AppComm::Type;

// Makes the task's resource, and the libraries answer, so that the run is short.
using Prepare = std::any (*)(AnsweringPrinter& libraries);

template <class Record>
std::any plain(AnsweringPrinter& /*libraries*/) {
  return fresh<Record>();
}

std::any nothing(AnsweringPrinter& /*libraries*/) { return {}; }

template <class Record>
std::any failing(AnsweringPrinter& libraries) {
  libraries.answers = {{"AppPrinterSdk_GetPushScanPara", 5}, {"AppPrinterSdk_RegisterPushScanUSB", 5}};
  return fresh<Record>();
}

std::any registered(AnsweringPrinter& libraries) {
  libraries.answers["AppSdk_SetPrinterUpgradeInfo"] = 1;
  return fresh<AppComm::State>();
}

std::any supported(AnsweringPrinter& libraries) {
  libraries.answers["AppPrinterSdk_IsSuppportSuppliesAlarm"] = 1;
  return {};
}

std::any connected(AnsweringPrinter& libraries) {
  libraries.answers["AppPrinterSdk_IsNetConnected"] = 1;
  return fresh<AppComm::WIFI>();
}

std::any transferred(AnsweringPrinter& /*libraries*/) {
  const auto record = std::make_shared<AppComm::FirmUp>();
  record->done = true;
  return record;
}

std::any watchedOnce(AnsweringPrinter& libraries) {
  const auto record = std::make_shared<AppComm::FirmUp>();
  libraries.during = [record = record.get()](const std::string&) { std::atomic_ref(record->done).store(true); };
  return record;
}

struct Row {
  Type type;
  const char* name;
  Prepare prepare;
  const char* last;        // entry before the notices, or at all: the notice text if there is one
  std::size_t sleeps = 0;  // of 10 us, after the notices
  int result = 0;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

const Row kTelling[] = {
    {Type::State, "state", plain<AppComm::State>, "DBG  notice caller the state information has been captured."},
    {Type::GetDevParam, "getDevParam", plain<AppComm::DevParam>, "DBG  notice caller the result of get device parameter."},
    {Type::SetSupplyAlarm, "setSupplyAlarm", plain<AppComm::DevParam>,
     "DBG  notice caller the result of set device supply alarm."},
    {Type::SetSleepTime, "setSleepTime", plain<AppComm::DevParam>, "DBG  notice caller the result of set device sleep time."},
    {Type::SetPaperAlarm, "setPaperAlarm", plain<AppComm::DevParam>,
     "DBG  notice caller the result of set device paper alarm."},
    {Type::SetSilentMode, "setSilentMode", plain<AppComm::DevParam>,
     "DBG  notice caller the result of set device silent mode."},
    {Type::SetTimedClear, "setTimedClear", plain<AppComm::DevParam>,
     "DBG  notice caller the result of set device timed clear."},
    {Type::PrintAdjust, "printAdjust", plain<AppComm::Maintain>, "DBG  notice caller the result of send adjust cmd."},
    {Type::PrintClean, "printClean", plain<AppComm::Maintain>, "DBG  notice caller the result of send clean cmd."},
    {Type::PrintQRcode, "printQRcode", plain<AppComm::QRCode>, "DBG  notice caller the result of print qrcode."},
    {Type::GetNetwork, "getNetwork", plain<AppComm::NetWork>, "DBG  notice caller the result of get device network."},
    {Type::SetNetwork, "setNetwork", plain<AppComm::NetWork>, "DBG  notice caller the result of set device network."},
    {Type::SetAdjust, "setAdjust", plain<AppComm::SetAdjust>, "DBG  notice caller the result of set adjust cmd."},
    {Type::FirmNewCheck, "firmNewCheck", plain<AppComm::FirmUp>, "DBG  notice caller the result of check new firmware."},
    {Type::FirmUpgrade, "firmUpgrade", transferred, "AppPrinterSdk_UpgradeFwExit()"},
    {Type::FirmUpCheck, "firmUpCheck", watchedOnce, "AppPrinterSdk_GetState(printer-1)", 100},
    {Type::GetWifiList, "getWifiListConnected", connected, "AppPrinterSdk_IsNetConnected(printer-1, 0)"},
    {Type::GetWifiList, "getWifiList", plain<AppComm::WIFI>, "AppMgr_GetPrinterWifiExit()"},
    {Type::SetWifiList, "setWifiList", plain<AppComm::WIFI>, "AppMgr_PrinterWifiConfigExit()"},
};

const Row kSilent[] = {
    {Type::GetAlarm, "getAlarm", supported, "DBG get supply alarm result: 0, alarm: 1"},
    {Type::GetAlarm, "getAlarmUnsupported", nothing, "AppPrinterSdk_IsSuppportSuppliesAlarm(printer-1)"},
    {Type::GetPushscan, "getPushscanFailing", failing<AppPrinterSdk::PushScanPara>, "DBG get push scan parameter result: 5", 0,
     5},
    {Type::RegPushscan, "regPushscan", plain<AppComm::State>, "DBG register push scan result: 0"},
    {Type::RegPushscan, "regPushscanFailing", failing<AppComm::State>, "DBG register push scan result: 5", 0, 1},
    {Type::RegUpgrade, "regUpgrade", registered, "DBG register firmware upgrade (key: ) result: 1"},
    {Type::RegUpgrade, "regUpgradeFailing", plain<AppComm::State>, "DBG register firmware upgrade (key: ) result: 0", 0, 1},
};

// On success it tells its own task alone; more of that where this operation is tested.
const Row kOwn[] = {{Type::GetPushscan, "getPushscan", plain<AppPrinterSdk::PushScanPara>, nullptr}};

TEST(OperationNotices, AreTestedForEveryOperation) {
  std::set<Type> types;
  for (const auto& row : kTelling) types.insert(row.type);
  for (const auto& row : kSilent) types.insert(row.type);
  EXPECT_EQ(types.size(), operations::kTaskTypes);
}

// A task and two observers, all with the record that the run needs; the window between the others refuses.
class RunOfThree : public TableTest<Row> {
 protected:
  RunOfThree() { EXPECT_EQ(tasks.size(), 3U); }

  int runAll() { return run(entryOf(tasks)); }

  const std::any resource = row().prepare(libraries);
  const std::vector<std::shared_ptr<AppComm::Node>> tasks{task(7, resource), task(-8, resource, false), task(900, resource)};
};

class TellingOperationTest : public RunOfThree {};

TEST_P(TellingOperationTest, TellsTheTaskAndEveryObserverAndOnlyTheRefusingOneLeaves) {
  Texts expected{row().last, "notice 7", "notice -8", "notice 900"};
  expected.insert(expected.end(), row().sleeps, "sleep 10 us");

  EXPECT_EQ(runAll(), row().result);

  const auto entries = journal.entries();
  ASSERT_GE(entries.size(), expected.size());
  EXPECT_EQ(Texts(entries.end() - std::ssize(expected), entries.end()), expected);
  EXPECT_EQ(std::ranges::count_if(entries, [](const auto& entry) { return entry.starts_with("notice "); }), 3);
  for (const auto& each : tasks) EXPECT_TRUE(each->getUpdate());
  EXPECT_FALSE(tasks[0]->getDelete());
  EXPECT_TRUE(tasks[1]->getDelete());
  EXPECT_FALSE(tasks[2]->getDelete());
}

INSTANTIATE_TEST_SUITE_P(Operations, TellingOperationTest, testing::ValuesIn(kTelling), RowName());

class SilentOperationTest : public RunOfThree {};

TEST_P(SilentOperationTest, TellsNobodyAndMarksNoTask) {
  EXPECT_EQ(runAll(), row().result);

  ASSERT_FALSE(journal.entries().empty());
  EXPECT_EQ(journal.entries().back(), row().last);
  for (const auto& entry : journal.entries()) {
    EXPECT_FALSE(entry.starts_with("notice ") || entry.starts_with("DBG  notice")) << entry;
  }
  for (const auto& each : tasks) {
    EXPECT_FALSE(each->getUpdate());
    EXPECT_FALSE(each->getDelete());
  }
}

INSTANTIATE_TEST_SUITE_P(Operations, SilentOperationTest, testing::ValuesIn(kSilent), RowName());

class TaskFlagsTest : public RunOfThree {};

// The state poll says by its mark whether it read; all others leave the mark as the worker set it.
TEST_P(TaskFlagsTest, OfAnyOperationAreLeftAsTheWorkerAndTheCallerSetThem) {
  for (const bool set : {true, false}) {
    SCOPED_TRACE(set);
    for (const auto& each : tasks) {
      set ? each->setNPAFlag() : each->resetNPAFlag();
      set ? each->setReqNPA() : each->resetReqNPA();
      set ? each->setOnce() : each->setRepeat();
    }

    runAll();

    for (const auto& each : tasks) {
      EXPECT_EQ(each->getNPAFlag(), type == Type::State && each == tasks[0] ? each->getReqNPA() : set);
      EXPECT_EQ(each->getReqNPA(), set);
      EXPECT_EQ(each->getOnce(), set);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Telling, TaskFlagsTest, testing::ValuesIn(kTelling), RowName());
INSTANTIATE_TEST_SUITE_P(Silent, TaskFlagsTest, testing::ValuesIn(kSilent), RowName());
INSTANTIATE_TEST_SUITE_P(Own, TaskFlagsTest, testing::ValuesIn(kOwn), RowName());

class ReleaseTest : public TableTest<Row> {};

TEST_P(ReleaseTest, EveryReferenceIsReleasedOnReturn) {
  auto record = row().prepare(libraries);
  auto own = taskFor(newPrinter(L"printer-1"), 1, record);
  auto observer = taskFor(newPrinter(L"printer-1"), 2, std::move(record));
  auto entry = entryOf({own, observer});
  const std::weak_ptr<void> held[] = {
      entry, own, observer, own->getInfo(), own->getWnd(), observer->getInfo(), observer->getWnd()};
  own.reset();
  observer.reset();
  const auto released = [&] { return std::ranges::all_of(held, [](const auto& weak) { return weak.expired(); }); };

  // Asked within the full expression, where the call's own parameter still exists.
  const bool releasedOnReturn = (handlerRowOf(type).handler(std::move(entry)), released());

  EXPECT_TRUE(releasedOnReturn);
}

INSTANTIATE_TEST_SUITE_P(Telling, ReleaseTest, testing::ValuesIn(kTelling), RowName());
INSTANTIATE_TEST_SUITE_P(Silent, ReleaseTest, testing::ValuesIn(kSilent), RowName());
INSTANTIATE_TEST_SUITE_P(Own, ReleaseTest, testing::ValuesIn(kOwn), RowName());

}  // namespace
