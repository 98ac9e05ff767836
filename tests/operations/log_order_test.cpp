// Whether an operation writes its outcome before or after it logs the library's answer: what can be seen of the outcome while
// the line is being written.

#include <any>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "operations/TableTest.h"

namespace {

using AppComm::DevParam;
using AppComm::FirmUp;
using AppComm::Node;
using AppComm::State;
using AppComm::Type;
using AppComm::WIFI;
using AppPrinterSdk::PushScanPara;

// What a run works on, made so that the library's answer changes it, and how the outcome shows in it.
struct Subject {
  std::any resource;
  std::function<std::string(Node& task)> shown;
};

// A preparation may also add answers that lead the run to the line.
using Prepare = Subject (*)(bool succeeds, qzstd::PrinterInfo& printer, AnsweringPrinter& libraries);

template <class Record>
Subject withFlag(bool Record::*flag, bool before) {
  const auto record = std::make_shared<Record>();
  record.get()->*flag = before;
  return {record, [record, flag](Node&) { return record.get()->*flag ? "true" : "false"; }};
}

// The flag is the request to read, so only a failing read changes it.
template <auto flag>
Subject requested(bool /*succeeds*/, qzstd::PrinterInfo& /*printer*/, AnsweringPrinter& /*libraries*/) {
  return withFlag(flag, true);
}

template <auto flag>
Subject opposite(bool succeeds, qzstd::PrinterInfo& /*printer*/, AnsweringPrinter& /*libraries*/) {
  return withFlag(flag, !succeeds);
}

Subject polledState(bool /*succeeds*/, qzstd::PrinterInfo& /*printer*/, AnsweringPrinter& libraries) {
  libraries.answers["AppPrinterSdk_IsSuppportPushScan"] = 1;
  const auto record = std::make_shared<State>(State{.result = 99});
  return {record, [record](Node& task) { return (task.getNPAFlag() ? "read " : "") + std::to_string(record->result); }};
}

Subject alarmState(bool /*succeeds*/, qzstd::PrinterInfo& printer, AnsweringPrinter& libraries) {
  libraries.answers["AppPrinterSdk_IsSuppportSuppliesAlarm"] = 1;
  printer.suppliesAlarmState = 7;
  return {{}, [&printer](Node&) { return std::to_string(printer.suppliesAlarmState); }};
}

Subject updatedTask(bool /*succeeds*/, qzstd::PrinterInfo& /*printer*/, AnsweringPrinter& /*libraries*/) {
  return {fresh<PushScanPara>(), [](Node& task) { return task.getUpdate() ? "updated" : ""; }};
}

// The printer reports 0 of 0, which ends the transfer.
Subject transfer(bool succeeds, qzstd::PrinterInfo& /*printer*/, AnsweringPrinter& /*libraries*/) {
  const auto record = std::make_shared<FirmUp>(FirmUp{.ok = !succeeds, .percent = 33});
  return {record, [record](Node&) {
            return std::string(record->done ? "done " : "") + (record->ok ? "ok " : "") + std::to_string(record->percent);
          }};
}

// The service has nothing to say: the texts that it gives are empty.
Subject versions(bool /*succeeds*/, qzstd::PrinterInfo& /*printer*/, AnsweringPrinter& libraries) {
  libraries.answers["AppSdk_TriggerFwUpgradeStart"] = 1;
  const auto record = std::make_shared<FirmUp>(FirmUp{.done = true, .versionText1 = L"old", .versionText2 = L"older"});
  return {record, [record](Node&) {
            return std::string(record->newFirmware ? "new" : "") + (record->versionText1 == L"old" ? " old" : "") +
                   (record->versionText2 == L"older" ? " older" : "");
          }};
}

Subject wifi(bool /*succeeds*/, qzstd::PrinterInfo& /*printer*/, AnsweringPrinter& /*libraries*/) {
  const auto record = std::make_shared<WIFI>(WIFI{.networks = std::vector<AppMgr::WifiNetwork>(1)});
  return {record, [record](Node&) {
            return std::string(record->finished ? "finished " : "") + (record->succeeded ? "succeeded" : "");
          }};
}

enum class Order { kOutcomeFirst, kLineFirst };
constexpr auto kOutcomeFirst = Order::kOutcomeFirst;
constexpr auto kLineFirst = Order::kLineFirst;

struct Row {
  Type type;
  const char* name;
  Order order;
  Prepare prepare;
  const char* function;  // whose answer decides
  int good;              // answers
  int bad;
  const char* line;  // its beginning; written once in a run
  const char* afterGood;
  const char* afterBad;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

constexpr Row readingOf(const char* name, Prepare prepare, const char* function, const char* line) {
  return {Type::GetDevParam, name, kOutcomeFirst, prepare, function, 0, -6, line, "true", "false"};
}

constexpr Row settingOf(Type type, const char* name, Prepare prepare, const char* function, const char* line) {
  return {type, name, kLineFirst, prepare, function, 0, -6, line, "true", "false"};
}

constexpr Row kRows[] = {
    {Type::State, "state", kOutcomeFirst, polledState, "AppPrinterSdk_GetState", 0, -6,
     "DBG get usb printer (push scan) state result: ", "read 0", "read -6"},
    {Type::GetAlarm, "getAlarm", kLineFirst, alarmState, "AppPrinterSdk_GetSuppliesAlarm", 0, -6,
     "DBG get supply alarm result: ", "160", "7"},
    readingOf("getSleepTime", requested<&DevParam::sleepTimeOk>, "AppPrinterSdk_GetSleepTime", "DBG GetSleepTime ret: "),
    readingOf("getSuppliesAlarm", requested<&DevParam::supplyAlarmOk>, "AppPrinterSdk_GetSuppliesAlarm",
              "DBG GetSuppliesAlarm ret: "),
    readingOf("getPaperAlarm", requested<&DevParam::paperAlarmOk>, "AppPrinterSdk_GetPaperAlarm", "DBG GetPaperAlarm ret: "),
    readingOf("getTimedClear", requested<&DevParam::timedClearOk>, "AppPrinterSdk_GetTimedClear", "DBG GetTimedClear ret: "),
    readingOf("getSilentMode", requested<&DevParam::silentModeOk>, "AppPrinterSdk_GetSilentMode", "DBG GetSilentMode ret: "),
    settingOf(Type::SetSupplyAlarm, "setSupplyAlarm", opposite<&DevParam::supplyAlarmOk>, "AppPrinterSdk_SetSuppliesAlarm",
              "DBG SetSuppliesAlarm ret: "),
    settingOf(Type::SetSleepTime, "setSleepTime", opposite<&DevParam::sleepTimeOk>, "AppPrinterSdk_SetSleepTime",
              "DBG SetSleepTime ret: "),
    settingOf(Type::SetPaperAlarm, "setPaperAlarm", opposite<&DevParam::paperAlarmOk>, "AppPrinterSdk_SetPaperAlarm",
              "DBG SetPaperAlarm ret: "),
    settingOf(Type::SetSilentMode, "setSilentMode", opposite<&DevParam::silentModeOk>, "AppPrinterSdk_SetSilentMode",
              "DBG SetSilentMode ret: "),
    settingOf(Type::SetTimedClear, "setTimedClear", opposite<&DevParam::timedClearOk>, "AppPrinterSdk_SetTimedClear",
              "DBG SetTimedClear ret: "),
    {Type::RegPushscan, "regPushscan", kOutcomeFirst, opposite<&State::pushScanRegistered>, "AppPrinterSdk_RegisterPushScanUSB",
     0, -6, "DBG register push scan result: ", "true", "false"},
    {Type::RegUpgrade, "regUpgrade", kOutcomeFirst, opposite<&State::upgradeRegistered>, "AppSdk_SetPrinterUpgradeInfo", 1, 0,
     "DBG register firmware upgrade (key: ) result: ", "true", "false"},
    {Type::GetPushscan, "getPushscan", kLineFirst, updatedTask, "AppPrinterSdk_GetPushScanPara", 0, -6,
     "DBG get push scan parameter result: ", "updated", ""},
    {Type::FirmNewCheck, "firmNewCheck", kLineFirst, versions, "AppSdk_TriggerFwUpgradeResult", 1, 0,
     "DBG get firmware version result: ", "new", " old older"},
    {Type::FirmUpgrade, "firmUpgrade", kLineFirst, transfer, "AppPrinterSdk_UpgradeFwProgress", 0, -6,
     "DBG firmware upgrade progress: ", "done ok 0", "done 33"},
    {Type::GetWifiList, "getWifiList", kLineFirst, wifi, "AppMgr_GetPrinterWifiResult", 0, -6,
     "DBG Get Wifi List result: ", "finished succeeded", "finished "},
    {Type::SetWifiList, "setWifiList", kLineFirst, wifi, "AppMgr_PrinterWifiConfigProgress", 0, -6,
     "DBG Set wifi progress, ret: ", "finished succeeded", "finished "},
};

class LogOrderTest : public TableTest<Row> {
 protected:
  struct Seen {
    std::string before;
    Texts atLine;
    std::string after;
  };

  // What shows of the outcome of a new task's run.
  Seen runAnswering(bool succeeds) {
    libraries.answers = {{row().function, succeeds ? row().good : row().bad}};
    const auto subject = row().prepare(succeeds, *printer, libraries);
    const auto current = task(7, subject.resource);
    Seen seen{subject.shown(*current), {}, {}};
    whileLogging = [&] {
      if (journal.entries().back().starts_with(row().line)) seen.atLine.push_back(subject.shown(*current));
    };
    run(entryOf({current}));
    whileLogging = nullptr;
    seen.after = subject.shown(*current);
    return seen;
  }
};

TEST_P(LogOrderTest, TheOutcomeIsWrittenOnItsOwnSideOfTheLine) {
  bool changes = false;
  for (const bool succeeds : {true, false}) {
    SCOPED_TRACE(succeeds);

    const auto seen = runAnswering(succeeds);

    EXPECT_EQ(seen.after, succeeds ? row().afterGood : row().afterBad);
    EXPECT_EQ(seen.atLine, Texts{row().order == kOutcomeFirst ? seen.after : seen.before});
    changes = changes || seen.before != seen.after;
  }
  EXPECT_TRUE(changes) << "either order would do";
}

INSTANTIATE_TEST_SUITE_P(Operations, LogOrderTest, testing::ValuesIn(kRows), RowName());

}  // namespace
