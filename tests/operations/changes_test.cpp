// The operations that change the printer: what they send when it accepts changes, and how they hold back when it does not.

#include <limits>
#include <vector>

#include "operations/TableTest.h"

namespace {

using AppComm::DevParam;
using AppComm::Maintain;
using AppComm::NetWork;
using AppComm::QRCode;
using AppComm::SetAdjust;
using AppComm::Type;

// What a test needs of a record, whatever its type.
struct Record {
  std::any resource;
  bool* busy;
  bool* statusOne;
  std::function<std::vector<int>()> others;  // all other members
  const void* handedOver = nullptr;          // what the library must be given last; null: nothing that is in the record
};

template <class Kind>
Record recordOf(const std::shared_ptr<Kind>& record, std::vector<int> (*others)(const Kind&)) {
  return {record, &record->busy, &record->statusOne, [record, others] { return others(*record); }};
}

// One maker per record. `result` is what the member that the operation writes holds before: 0, or another value.

template <auto value>
Record parameter(bool result) {
  const auto record = std::make_shared<DevParam>(DevParam{.sleepTimeOk = result,
                                                          .supplyAlarmOk = result,
                                                          .paperAlarmOk = result,
                                                          .timedClearOk = result,
                                                          .silentModeOk = result,
                                                          .sleepTime = 30,
                                                          .supplyAlarm = 11,
                                                          .paperAlarm = 12,
                                                          .silentMode = 13,
                                                          .timedClear = 214});
  auto made = recordOf<DevParam>(record, [](const DevParam& of) {
    return std::vector<int>{of.sleepTimeOk, of.supplyAlarmOk, of.paperAlarmOk, of.timedClearOk, of.silentModeOk,
                            of.sleepTime,   of.supplyAlarm,   of.paperAlarm,   of.silentMode,   of.timedClear};
  });
  if constexpr (value != nullptr) made.handedOver = &(record.get()->*value);
  return made;
}

Record maintenance(bool result) {
  const auto record = std::make_shared<Maintain>(Maintain{.result = result ? 99 : 0});
  return recordOf<Maintain>(record, [](const Maintain& of) { return std::vector<int>{of.result}; });
}

Record alignment(bool result) {
  const auto record = std::make_shared<SetAdjust>(SetAdjust{.values = {{1, -2, 3, -4, 5, -6}}, .result = result ? 99 : 0});
  auto made = recordOf<SetAdjust>(record, [](const SetAdjust& of) {
    std::vector<int> members{of.result};
    members.insert(members.end(), of.values.corrections.begin(), of.values.corrections.end());
    return members;
  });
  made.handedOver = record.get();
  return made;
}

Record image(bool result) {
  const auto record = std::make_shared<QRCode>(QRCode{.image = L"a code", .printFailed = result ? 99 : 0});
  auto made = recordOf<QRCode>(record, [](const QRCode& of) {
    std::vector<int> members{of.printFailed};
    members.insert(members.end(), of.image.begin(), of.image.end());
    return members;
  });
  made.handedOver = record.get();
  return made;
}

Record network(bool result) {
  const auto record = std::make_shared<NetWork>(
      NetWork{.result = result ? 99 : 0, .settings = {true, {10, 0, 0, 7}, {255, 255, 0, 0}, {10, 0, 0, 1}, {10, 0, 0, 2}}});
  auto made = recordOf<NetWork>(record, [](const NetWork& of) {
    std::vector<int> members{of.result, of.settings.dhcp};
    for (const auto& address : {of.settings.address, of.settings.subnetMask, of.settings.gateway, of.settings.dnsServer}) {
      members.insert(members.end(), address.begin(), address.end());
    }
    return members;
  });
  made.handedOver = &record->settings;
  return made;
}

// How the library's answer shows in the record.
int asSuccess(int answer) { return answer == 0; }
int asResult(int answer) { return answer; }
int asFailure(int answer) { return answer == 0; }  // of a function that answers whether it succeeded

struct Row {
  Type type;
  const char* name;
  Record (*record)(bool result);
  std::size_t written;  // place among the other members of the one that the operation writes
  int (*shows)(int answer);
  const char* function;
  const char* arguments;
  const char* resultLine;  // up to the answer; null: none is written
  const char* noticeLine;
  bool anyStatusButOne = false;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

const Row kRows[] = {
    {Type::SetSupplyAlarm, "setSupplyAlarm", parameter<nullptr>, 1, asSuccess, "AppPrinterSdk_SetSuppliesAlarm",
     "(printer-1, 0)", "DBG SetSuppliesAlarm ret: ", "DBG  notice caller the result of set device supply alarm."},
    {Type::SetSleepTime, "setSleepTime", parameter<&DevParam::sleepTime>, 0, asSuccess, "AppPrinterSdk_SetSleepTime",
     "(printer-1, 30)", "DBG SetSleepTime ret: ", "DBG  notice caller the result of set device sleep time."},
    {Type::SetPaperAlarm, "setPaperAlarm", parameter<&DevParam::paperAlarm>, 2, asSuccess, "AppPrinterSdk_SetPaperAlarm",
     "(printer-1, 12)", "DBG SetPaperAlarm ret: ", "DBG  notice caller the result of set device paper alarm."},
    {Type::SetSilentMode, "setSilentMode", parameter<&DevParam::silentMode>, 4, asSuccess, "AppPrinterSdk_SetSilentMode",
     "(printer-1, 13)", "DBG SetSilentMode ret: ", "DBG  notice caller the result of set device silent mode."},
    {Type::SetTimedClear, "setTimedClear", parameter<&DevParam::timedClear>, 3, asSuccess, "AppPrinterSdk_SetTimedClear",
     "(printer-1, 214)", "DBG SetTimedClear ret: ", "DBG  notice caller the result of set device timed clear."},
    {Type::PrintAdjust, "printAdjust", maintenance, 0, asResult, "AppPrinterSdk_SetAlignPage", "(printer-1)", nullptr,
     "DBG  notice caller the result of send adjust cmd."},
    {Type::PrintClean, "printClean", maintenance, 0, asResult, "AppPrinterSdk_SetClean", "(printer-1)", nullptr,
     "DBG  notice caller the result of send clean cmd."},
    {Type::SetAdjust, "setAdjust", alignment, 0, asResult, "AppPrinterSdk_SetAlignCmd", "(printer-1, [1 -2 3 -4 5 -6])",
     nullptr, "DBG  notice caller the result of set adjust cmd."},
    {Type::PrintQRcode, "printQRcode", image, 0, asFailure, "AppSdk_PrintBmp", R"(("manager-id", "a code"))", nullptr,
     "DBG  notice caller the result of print qrcode.", true},
    {Type::SetNetwork, "setNetwork", network, 0, asResult, "AppPrinterSdk_SetNetWork", "(printer-1, [10 0 0 7])", nullptr,
     "DBG  notice caller the result of set device network."},
};

// What the operation finds out about the printer.
struct Finding {
  bool busy;
  bool statusOne;

  bool accepts() const { return !busy && !statusOne; }
};

Finding findingOf(int jobs, int status, bool statusOneBefore, bool anyStatusButOne) {
  if (jobs > 0) return {true, statusOneBefore};
  if (status == 1) return {false, true};
  const bool settled = status == 0 || status == 11;
  return {!settled && !anyStatusButOne, false};
}

class ChangeTest : public TableTest<Row> {
 protected:
  // Runs the operation, with the record as the caller's members have it, and returns what it did.
  Texts entriesOfRun(int jobs, int status, int answer) {
    libraries.answers = {{"AppMgr_GetPrintingJob", jobs}, {row().function, answer}};
    printer->deviceStatus = status;
    const auto before = static_cast<std::ptrdiff_t>(journal.entries().size());
    EXPECT_EQ(run(entryOf({task(7, record.resource)})), 0);
    const auto entries = journal.entries();
    return {entries.begin() + before, entries.end()};
  }

  // The same when the printer accepts changes. An answer that a function cannot give is as good as true.
  Texts entriesOfRun(int answer) { return entriesOfRun(0, 0, answer); }

  static Texts sent(int answer) {
    Texts entries{kAsksJobs, std::string(row().function) + row().arguments};
    if (row().resultLine != nullptr) entries.push_back(row().resultLine + std::to_string(answer) + '.');
    entries.insert(entries.end(), {row().noticeLine, "notice 7"});
    return entries;
  }
  static Texts refused() { return {kAsksJobs, row().noticeLine, "notice 7"}; }

  void expectRun(int jobs, int status, bool busyBefore, bool statusOneBefore, bool result) {
    SCOPED_TRACE(testing::Message() << "jobs " << jobs << ", status " << status << ", before: busy " << busyBefore
                                    << ", statusOne " << statusOneBefore << ", result " << result);
    constexpr int kAnswer = 7;
    record = row().record(result);
    *record.busy = busyBefore;
    *record.statusOne = statusOneBefore;
    const auto finding = findingOf(jobs, status, statusOneBefore, row().anyStatusButOne);
    auto others = record.others();
    if (finding.accepts()) others[row().written] = row().shows(kAnswer);

    EXPECT_EQ(entriesOfRun(jobs, status, kAnswer), finding.accepts() ? sent(kAnswer) : refused());

    EXPECT_EQ(*record.busy, finding.busy);
    EXPECT_EQ(*record.statusOne, finding.statusOne);
    EXPECT_EQ(record.others(), others);
  }

  Record record = row().record(true);
};

TEST_P(ChangeTest, IsSentExactlyWhenJobsAndStatusAllowAndNotifiesAlways) {
  for (const int jobs : {-1, 0, 1}) {
    for (const int status : {0, 1, 5, 11, -1}) {
      for (const bool busyBefore : {false, true}) {
        for (const bool statusOneBefore : {false, true}) {
          for (const bool result : {false, true}) expectRun(jobs, status, busyBefore, statusOneBefore, result);
        }
      }
    }
  }
}

TEST_P(ChangeTest, JobInProgressIsBusyWhateverTheStatus) {
  for (const int status : {0, 1, 5, 11}) {
    SCOPED_TRACE(status);
    *record.busy = false;
    EXPECT_EQ(entriesOfRun(1, status, 0), refused());
    EXPECT_TRUE(*record.busy);
    EXPECT_FALSE(*record.statusOne);
  }
}

TEST_P(ChangeTest, StatusOneWithoutJobsIsToldApartFromBusy) {
  EXPECT_EQ(entriesOfRun(0, 1, 0), refused());
  EXPECT_TRUE(*record.statusOne);
  EXPECT_FALSE(*record.busy);
}

TEST_P(ChangeTest, StatusElevenWithoutJobsIsSent) {
  EXPECT_EQ(entriesOfRun(0, 11, 0), sent(0));
  EXPECT_FALSE(*record.busy);
}

TEST_P(ChangeTest, StatusFiveWithoutJobsIsBusyForAllButAnImage) {
  const bool isImage = row().type == Type::PrintQRcode;
  EXPECT_EQ(entriesOfRun(0, 5, 0), isImage ? sent(0) : refused());
  EXPECT_EQ(*record.busy, !isImage);
}

TEST_P(ChangeTest, RecordsAndLogsTheAnswer) {
  for (const int answer : {0, 1, -3, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    for (const bool result : {false, true}) {
      SCOPED_TRACE(testing::Message() << "answer " << answer << ", result before " << result);
      record = row().record(result);
      auto others = record.others();
      others[row().written] = row().shows(answer);

      EXPECT_EQ(entriesOfRun(answer), sent(answer));

      EXPECT_EQ(record.others(), others);
    }
  }
}

TEST_P(ChangeTest, HandsThePrinterAndTheRecordsOwnMemberOver) {
  entriesOfRun(0);
  if (record.handedOver != nullptr) {
    EXPECT_EQ(libraries.lastArgument, record.handedOver);
  }
  for (const auto* given : libraries.printers) EXPECT_EQ(given, printer.get());
  EXPECT_EQ(libraries.printers.size(), row().type == Type::PrintQRcode ? 0U : 1U);
}

TEST_P(ChangeTest, SendsWithItsFindingWrittenAndTheResultAsItWas) {
  for (const bool result : {false, true}) {
    record = row().record(result);
    *record.busy = true;
    *record.statusOne = true;
    const auto before = record.others();
    std::vector<int> during;
    bool refusedDuring = true;
    libraries.during = [&](const std::string& function) {
      if (function != row().function) return;
      during = record.others();
      refusedDuring = *record.busy || *record.statusOne;
    };

    entriesOfRun(result ? 7 : 0);

    EXPECT_EQ(during, before);
    EXPECT_FALSE(refusedDuring);
  }
}

TEST_P(ChangeTest, HasWrittenEverythingWhenItsWindowIsTold) {
  for (const int answer : {0, 7}) {
    std::vector<int> told;
    const auto looking = std::make_shared<NoticeWindow>([&](long) {
      told = record.others();
      return true;
    });
    libraries.answers[row().function] = answer;
    const auto current = AppComm::Node::Instance(printer, looking, 7, type);
    current->setResource(record.resource);

    run(entryOf({current}));

    EXPECT_EQ(told.at(row().written), row().shows(answer));
  }
}

INSTANTIATE_TEST_SUITE_P(Operations, ChangeTest, testing::ValuesIn(kRows), RowName());

}  // namespace
