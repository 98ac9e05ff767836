#include <limits>
#include <vector>

#include "operations/DeviceParameterTest.h"
#include "operations/Handlers.h"

namespace {

using AppComm::DevParam;

constexpr const char* kPause = "sleep 1000000 us";
constexpr const char* kNoticeLine = "DBG  notice caller the result of get device parameter.";

// A request or the reads that fail: one bit per parameter.
using Selection = unsigned;

constexpr Selection bit(Parameter parameter) { return 1U << parameter; }
constexpr bool holds(Selection selection, Parameter parameter) { return (selection & bit(parameter)) != 0; }
constexpr Selection kAll = bit(kParameters) - 1;

constexpr std::array kOrder{kSleepTime, kSupplyAlarm, kPaperAlarm, kTimedClear, kSilentMode};

// After each read, which of the reads still to come make it wait; a timed clear read alone never does.
constexpr std::array<Selection, kParameters> kWaitsFor{
    bit(kSupplyAlarm) | bit(kPaperAlarm) | bit(kSilentMode),
    bit(kPaperAlarm) | bit(kSilentMode),
    bit(kSilentMode),
    bit(kSilentMode),
    0,
};

constexpr std::array kCalls{"AppPrinterSdk_GetSleepTime", "AppPrinterSdk_GetSuppliesAlarm", "AppPrinterSdk_GetPaperAlarm",
                            "AppPrinterSdk_GetTimedClear", "AppPrinterSdk_GetSilentMode"};
constexpr std::array kLines{"GetSleepTime ret: R, time: V", "GetSuppliesAlarm ret: R, supply alarm: V",
                            "GetPaperAlarm ret: R, paper alarm: V", "GetTimedClear ret: R, clear mode: V",
                            "GetSilentMode ret: R, silent mode: V"};

// What the record holds before, and what the reads leave in it.
constexpr std::array<int, kParameters> kBefore{600, 61, 62, 63, 64};
constexpr std::array<int, kParameters> kRead{70000, 71, 72, 73, 200};

std::string lineOf(Parameter parameter, int result, int value) {
  std::string line = kLines[parameter];
  line.replace(line.find('R'), 1, std::to_string(result));
  return "DBG " + line.replace(line.find('V'), 1, std::to_string(value));
}

std::vector<bool> flagsOf(const DevParam& record) {
  return {record.sleepTimeOk, record.supplyAlarmOk, record.paperAlarmOk, record.timedClearOk, record.silentModeOk};
}

std::vector<int> valuesOf(const DevParam& record) {
  return {record.sleepTime, record.supplyAlarm, record.paperAlarm, record.timedClear, record.silentMode};
}

class GetDevParamTest : public OperationTestWith<ParameterPrinter> {
 protected:
  GetDevParamTest() : OperationTestWith("comm_thread_getDevParam") {}

  // Runs a new task that requests these parameters, and returns what it did.
  Texts entriesOfRun(Selection requested) {
    *record = {.busy = record->busy,
               .statusOne = record->statusOne,
               .sleepTimeOk = holds(requested, kSleepTime),
               .supplyAlarmOk = holds(requested, kSupplyAlarm),
               .paperAlarmOk = holds(requested, kPaperAlarm),
               .timedClearOk = holds(requested, kTimedClear),
               .silentModeOk = holds(requested, kSilentMode),
               .sleepTime = kBefore[kSleepTime],
               .supplyAlarm = kBefore[kSupplyAlarm],
               .paperAlarm = kBefore[kPaperAlarm],
               .silentMode = kBefore[kSilentMode],
               .timedClear = kBefore[kTimedClear]};
    const auto before = static_cast<std::ptrdiff_t>(journal.entries().size());
    EXPECT_EQ(comm_thread_getDevParam(entryOf({task(7, record)})), 0);
    const auto entries = journal.entries();
    return {entries.begin() + before, entries.end()};
  }

  void script(Selection failing, int code = 9) {
    for (const auto parameter : kOrder)
      libraries.readings[parameter] = {holds(failing, parameter) ? code : 0, kRead[parameter]};
  }

  Texts callsAndPauses(Selection requested) {
    script(0);
    auto entries = entriesOfRun(requested);
    std::erase_if(entries, [](const std::string& entry) { return entry.starts_with("DBG ") || entry.starts_with("notice "); });
    for (auto& entry : entries) entry = entry.substr(0, entry.find('('));
    return entries;
  }

  const std::shared_ptr<DevParam> record = std::make_shared<DevParam>();
};

TEST_F(GetDevParamTest, WithoutARequestReadsNothingAndStillNotifies) {
  EXPECT_EQ(entriesOfRun(0), (Texts{kNoticeLine, "notice 7"}));
}

TEST_F(GetDevParamTest, SleepTimeAndTimedClearAreReadWithoutAPause) {
  EXPECT_EQ(callsAndPauses(bit(kSleepTime) | bit(kTimedClear)),
            (Texts{"AppPrinterSdk_GetSleepTime", "AppPrinterSdk_GetTimedClear"}));
}

TEST_F(GetDevParamTest, SleepTimeAndSilentModeAreReadWithOnePause) {
  EXPECT_EQ(callsAndPauses(bit(kSleepTime) | bit(kSilentMode)),
            (Texts{"AppPrinterSdk_GetSleepTime", kPause, "AppPrinterSdk_GetSilentMode"}));
}

TEST_F(GetDevParamTest, AllFiveAreReadInTheirOrderWithFourPauses) {
  EXPECT_EQ(callsAndPauses(kAll), (Texts{"AppPrinterSdk_GetSleepTime", kPause, "AppPrinterSdk_GetSuppliesAlarm", kPause,
                                         "AppPrinterSdk_GetPaperAlarm", kPause, "AppPrinterSdk_GetTimedClear", kPause,
                                         "AppPrinterSdk_GetSilentMode"}));
}

TEST_F(GetDevParamTest, ATimedClearReadThatIsLastIsNotWaitedFor) {
  EXPECT_EQ(callsAndPauses(kAll & ~bit(kSilentMode)),
            (Texts{"AppPrinterSdk_GetSleepTime", kPause, "AppPrinterSdk_GetSuppliesAlarm", kPause,
                   "AppPrinterSdk_GetPaperAlarm", "AppPrinterSdk_GetTimedClear"}));
}

TEST_F(GetDevParamTest, AReadThatWritesNothingLogsTheValueOfTheRecord) {
  libraries.readings = {};
  libraries.readings[kPaperAlarm].result = -1;
  EXPECT_EQ(entriesOfRun(bit(kPaperAlarm)), (Texts{"AppPrinterSdk_GetPaperAlarm(printer-1, 62)",
                                                   "DBG GetPaperAlarm ret: -1, paper alarm: 62", kNoticeLine, "notice 7"}));
}

TEST_F(GetDevParamTest, EachReadIsGivenTheRecordsOwnValue) {
  entriesOfRun(kAll);
  const std::array<const void*, kParameters> members{&record->sleepTime, &record->supplyAlarm, &record->paperAlarm,
                                                     &record->timedClear, &record->silentMode};
  EXPECT_EQ(libraries.readInto, members);
}

TEST_F(GetDevParamTest, AFlagKeepsTheRequestUntilItsReadIsOver) {
  for (const Selection failing : {0U, kAll}) {
    SCOPED_TRACE(failing);
    script(failing);
    std::vector<bool> requested(kParameters, true);
    libraries.whileReadingOne = [&](Parameter parameter) {
      EXPECT_EQ(flagsOf(*record), requested) << parameter;
      requested[parameter] = failing == 0;  // from now on it is the outcome
    };

    entriesOfRun(kAll);

    EXPECT_EQ(flagsOf(*record), requested);
  }
}

TEST_F(GetDevParamTest, AsksNeitherForJobsNorForTheStatusAndLeavesTheirFlags) {
  libraries.jobs = 1;
  script(0);
  for (const bool flag : {false, true}) {
    for (const int status : {0, 1, 5, 11}) {
      SCOPED_TRACE(status);
      printer->deviceStatus = status;
      record->busy = record->statusOne = flag;

      EXPECT_EQ(entriesOfRun(bit(kTimedClear)),
                (Texts{"AppPrinterSdk_GetTimedClear(printer-1, 63)", lineOf(kTimedClear, 0, 73), kNoticeLine, "notice 7"}));

      EXPECT_EQ(record->busy, flag);
      EXPECT_EQ(record->statusOne, flag);
      EXPECT_TRUE(record->timedClearOk);
    }
  }
}

TEST_F(GetDevParamTest, TheResultsAreWrittenWhenTheWindowIsTold) {
  script(bit(kSilentMode));
  std::vector<bool> told;
  const auto looking = std::make_shared<NoticeWindow>([&](long) {
    told = flagsOf(*record);
    return true;
  });
  record->sleepTimeOk = record->silentModeOk = true;
  const auto current = AppComm::Node::Instance(printer, looking, 7, AppComm::Type::GetDevParam);
  current->setResource(record);

  comm_thread_getDevParam(entryOf({current}));

  EXPECT_EQ(told, (std::vector<bool>{true, false, false, false, false}));
}

// Which reads of a run fail, and with what.
struct Faults {
  const char* name;
  Selection failing;
  int code;
};

class GetDevParamSelectionTest : public GetDevParamTest, public testing::WithParamInterface<Faults> {
 protected:
  static Texts expectedEntries(Selection requested) {
    Texts entries;
    for (const auto parameter : kOrder) {
      if (!holds(requested, parameter)) continue;
      entries.push_back(std::string(kCalls[parameter]) + "(printer-1, " + std::to_string(kBefore[parameter]) + ')');
      entries.push_back(lineOf(parameter, holds(GetParam().failing, parameter) ? GetParam().code : 0, kRead[parameter]));
      if ((requested & kWaitsFor[parameter]) != 0) entries.emplace_back(kPause);
    }
    entries.insert(entries.end(), {kNoticeLine, "notice 7"});
    return entries;
  }
};

TEST_P(GetDevParamSelectionTest, EverySelectionIsReadInOrderWithItsPausesAndOutcomes) {
  script(GetParam().failing, GetParam().code);
  for (Selection requested = 0; requested <= kAll; ++requested) {
    SCOPED_TRACE(requested);

    EXPECT_EQ(entriesOfRun(requested), expectedEntries(requested));

    for (const auto parameter : kOrder) {
      SCOPED_TRACE(kCalls[parameter]);
      const bool read = holds(requested, parameter);
      EXPECT_EQ(flagsOf(*record)[parameter], read && !holds(GetParam().failing, parameter));
      EXPECT_EQ(valuesOf(*record)[parameter], read ? kRead[parameter] : kBefore[parameter]);
    }
  }
}

constexpr Faults kFaults[] = {{"none", 0, 0},
                              {"all", kAll, -1},
                              {"sleepTime", bit(kSleepTime), 1},
                              {"supplyAlarm", bit(kSupplyAlarm), std::numeric_limits<int>::min()},
                              {"paperAlarm", bit(kPaperAlarm), std::numeric_limits<int>::max()},
                              {"timedClear", bit(kTimedClear), -7},
                              {"silentMode", bit(kSilentMode), 2}};

INSTANTIATE_TEST_SUITE_P(Failing, GetDevParamSelectionTest, testing::ValuesIn(kFaults),
                         [](const auto& faults) { return std::string(faults.param.name); });

class SetSupplyAlarmTest : public OperationTestWith<ParameterPrinter> {
 protected:
  SetSupplyAlarmTest() : OperationTestWith("comm_thread_setSupplyAlarm") {}

  void run() { EXPECT_EQ(comm_thread_setSupplyAlarm(entryOf({task(7, record)})), 0); }

  const std::shared_ptr<DevParam> record = std::make_shared<DevParam>();
};

TEST_F(SetSupplyAlarmTest, SendsZeroWhateverTheRecordHolds) {
  for (const int value : {0, 1, 2, 255}) {
    SCOPED_TRACE(value);
    record->supplyAlarm = static_cast<std::uint8_t>(value);

    run();

    EXPECT_EQ(libraries.calls().back(), "AppPrinterSdk_SetSuppliesAlarm(printer-1, 0)");
    EXPECT_EQ(record->supplyAlarm, value);
  }
}

TEST_F(SetSupplyAlarmTest, SendsFromAByteOfItsOwn) {
  record->supplyAlarm = 1;
  libraries.whileSending = [](std::uint8_t& value) { value = 77; };

  run();
  run();

  EXPECT_NE(libraries.sentFrom, &record->supplyAlarm);
  EXPECT_EQ(record->supplyAlarm, 1);
  EXPECT_EQ(libraries.calls().back(), "AppPrinterSdk_SetSuppliesAlarm(printer-1, 0)");
}

}  // namespace
