// Every result and every parameter that the module takes from a library, with the worst that can come: each is stored, logged
// and returned as it is. Numbers that steer an operation are tested with the other hostile values.

#include <algorithm>
#include <any>
#include <cstdint>
#include <limits>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "operations/Frame.h"
#include "operations/TableTest.h"

namespace {

using AppComm::DevParam;
using AppComm::FirmUp;
using AppComm::Maintain;
using AppComm::NetWork;
using AppComm::SetAdjust;
using AppComm::State;
using AppComm::Type;
using AppComm::WIFI;
using AppMgr::WifiNetwork;
using AppPrinterSdk::PushScanPara;

constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kNumbers[] = {kLeast, kLeast + 1, -1, 0, 1, 127, 128, 255, 256, kMost - 1, kMost};
constexpr std::int32_t kBytes[] = {0, 1, 2, 127, 128, 255};

// `line` with the number in the place of its `#`.
std::string withNumber(std::string line, std::int32_t number) {
  const auto place = line.find('#');
  return place == std::string::npos ? line : line.replace(place, 1, std::to_string(number));
}

// Jobs end with their first poll, parameters are what the test says.
class HostileAnswers : public AnsweringPrinter {
 public:
  using AnsweringPrinter::AnsweringPrinter;

  std::int32_t parameter = 0;

  int AppPrinterSdk_GetSleepTime(qzstd::PrinterInfo* printer, std::int32_t* value) override {
    *value = parameter;
    return AnsweringPrinter::AppPrinterSdk_GetSleepTime(printer, value);
  }
  int AppPrinterSdk_GetSuppliesAlarm(qzstd::PrinterInfo* printer, std::uint8_t* value) override {
    return AnsweringPrinter::AppPrinterSdk_GetSuppliesAlarm(printer, tell(value));
  }
  int AppPrinterSdk_GetPaperAlarm(qzstd::PrinterInfo* printer, std::uint8_t* value) override {
    return AnsweringPrinter::AppPrinterSdk_GetPaperAlarm(printer, tell(value));
  }
  int AppPrinterSdk_GetTimedClear(qzstd::PrinterInfo* printer, std::uint8_t* value) override {
    return AnsweringPrinter::AppPrinterSdk_GetTimedClear(printer, tell(value));
  }
  int AppPrinterSdk_GetSilentMode(qzstd::PrinterInfo* printer, std::uint8_t* value) override {
    return AnsweringPrinter::AppPrinterSdk_GetSilentMode(printer, tell(value));
  }

  int AppMgr_GetPrinterWifiResult(std::vector<WifiNetwork>* networks) override {
    networks->resize(1);
    return AnsweringPrinter::AppMgr_GetPrinterWifiResult(networks);
  }

 private:
  std::uint8_t* tell(std::uint8_t* value) const {
    *value = static_cast<std::uint8_t>(parameter);
    return value;
  }
};

class HostileAnswersTest : public OperationTestWith<HostileAnswers> {
 protected:
  HostileAnswersTest() : OperationTestWith("") {}

  bool requested = false;  // as `StartNPA` does it

  // The watch, which goes on for as long as somebody wants it, tells a window that wants no more.
  int run(Type operation, const std::any& resource) {
    type = operation;
    const auto current = task(7, resource, operation != Type::FirmUpCheck);
    if (requested) current->setReqNPA();
    return handlerRowOf(operation).handler(entryOf({current}));
  }

  bool wasLogged(const std::string& line) {
    return std::ranges::any_of(journal.entries(), [&](const auto& entry) { return entry.ends_with(line); });
  }
};

// A record where `member` says the opposite of the result.
template <class Record, auto member>
std::any opposite(std::int32_t result) {
  const auto record = std::make_shared<Record>();
  auto& value = record.get()->*member;
  if constexpr (std::is_same_v<decltype(value), bool&>) {
    value = result != 0;
  } else {
    value = ~result;
  }
  return record;
}

template <class Record, auto member>
bool tells(const std::any& resource, std::int32_t result) {
  const auto value = std::any_cast<std::shared_ptr<Record>>(resource).get()->*member;
  if constexpr (std::is_same_v<decltype(value), const bool>) {
    return value == (result == 0);
  } else {
    return value == result;
  }
}

template <auto flag>
std::any selecting(std::int32_t /*result*/) {
  const auto record = std::make_shared<DevParam>();
  record.get()->*flag = true;
  return record;
}

template <class Record>
std::any plain(std::int32_t /*result*/) {
  return std::make_shared<Record>();
}

bool tellsNothing(const std::any& /*resource*/, std::int32_t /*result*/) { return true; }

int itself(int result) { return result; }

struct ResultRow {
  const char* function;
  Type operation;
  std::any (*record)(std::int32_t result);
  bool (*tells)(const std::any& resource, std::int32_t result);
  const char* line = nullptr;
  int (*returned)(int result) = [](int) { return operations::kDone; };
};

template <auto flag>
constexpr ResultRow reading(const char* function, const char* line) {
  return {function, Type::GetDevParam, selecting<flag>, tells<DevParam, flag>, line};
}

template <auto flag>
constexpr ResultRow setting(const char* function, Type type, const char* line) {
  return {function, type, opposite<DevParam, flag>, tells<DevParam, flag>, line};
}

template <class Record>
constexpr ResultRow storing(const char* function, Type type) {
  return {function, type, opposite<Record, &Record::result>, tells<Record, &Record::result>};
}

constexpr ResultRow kResults[] = {
    reading<&DevParam::sleepTimeOk>("AppPrinterSdk_GetSleepTime", "GetSleepTime ret: #, time: 0"),
    reading<&DevParam::supplyAlarmOk>("AppPrinterSdk_GetSuppliesAlarm", "GetSuppliesAlarm ret: #, supply alarm: 0"),
    reading<&DevParam::paperAlarmOk>("AppPrinterSdk_GetPaperAlarm", "GetPaperAlarm ret: #, paper alarm: 0"),
    reading<&DevParam::timedClearOk>("AppPrinterSdk_GetTimedClear", "GetTimedClear ret: #, clear mode: 0"),
    reading<&DevParam::silentModeOk>("AppPrinterSdk_GetSilentMode", "GetSilentMode ret: #, silent mode: 0"),
    setting<&DevParam::supplyAlarmOk>("AppPrinterSdk_SetSuppliesAlarm", Type::SetSupplyAlarm, "SetSuppliesAlarm ret: #."),
    setting<&DevParam::sleepTimeOk>("AppPrinterSdk_SetSleepTime", Type::SetSleepTime, "SetSleepTime ret: #."),
    setting<&DevParam::paperAlarmOk>("AppPrinterSdk_SetPaperAlarm", Type::SetPaperAlarm, "SetPaperAlarm ret: #."),
    setting<&DevParam::silentModeOk>("AppPrinterSdk_SetSilentMode", Type::SetSilentMode, "SetSilentMode ret: #."),
    setting<&DevParam::timedClearOk>("AppPrinterSdk_SetTimedClear", Type::SetTimedClear, "SetTimedClear ret: #."),
    {"AppPrinterSdk_GetSuppliesAlarm", Type::GetAlarm, plain<State>, tellsNothing, "get supply alarm result: #, alarm: 0",
     itself},
    storing<Maintain>("AppPrinterSdk_SetAlignPage", Type::PrintAdjust),
    storing<Maintain>("AppPrinterSdk_SetClean", Type::PrintClean),
    storing<SetAdjust>("AppPrinterSdk_SetAlignCmd", Type::SetAdjust),
    storing<NetWork>("AppPrinterSdk_GetNetWork", Type::GetNetwork),
    storing<NetWork>("AppPrinterSdk_SetNetWork", Type::SetNetwork),
    {"AppPrinterSdk_GetState", Type::FirmUpCheck, opposite<FirmUp, &FirmUp::ok>, tells<FirmUp, &FirmUp::ok>},
    {"AppPrinterSdk_UpgradeFwProgress", Type::FirmUpgrade, opposite<FirmUp, &FirmUp::ok>, tells<FirmUp, &FirmUp::ok>,
     "firmware upgrade progress: 0 0"},
    {"AppPrinterSdk_RegisterPushScanUSB", Type::RegPushscan, opposite<State, &State::pushScanRegistered>,
     tells<State, &State::pushScanRegistered>, "register push scan result: #", [](int result) { return result == 0 ? 0 : 1; }},
    {"AppPrinterSdk_GetPushScanPara", Type::GetPushscan, plain<PushScanPara>, tellsNothing, "get push scan parameter result: #",
     itself},
    {"AppMgr_GetPrinterWifiStart", Type::GetWifiList, plain<WIFI>, tellsNothing, "Get printer wifi start, ret: #, total: 0"},
    {"AppMgr_GetPrinterWifiProgress", Type::GetWifiList, plain<WIFI>, tellsNothing, "Get Wifi progress, ret: #, segment: 0"},
    {"AppMgr_GetPrinterWifiResult", Type::GetWifiList, opposite<WIFI, &WIFI::succeeded>, tells<WIFI, &WIFI::succeeded>,
     "Get Wifi List result: #, wifi size: 1"},
    {"AppMgr_PrinterWifiConfigStart", Type::SetWifiList, plain<WIFI>, tellsNothing, "Set wifi by start, ret: #, total: 0."},
    {"AppMgr_PrinterWifiConfigProgress", Type::SetWifiList, opposite<WIFI, &WIFI::succeeded>, tells<WIFI, &WIFI::succeeded>,
     "Set wifi progress, ret: #, segment: 0."},
};

TEST_F(HostileAnswersTest, AnyResultIsStoredLoggedAndReturnedAsItIs) {
  for (const auto& row : kResults) {
    for (const auto result : kNumbers) {
      SCOPED_TRACE(testing::Message() << row.function << " in " << handlerRowOf(row.operation).name << ": " << result);
      libraries.answers = {{"AppPrinterSdk_IsSuppportSuppliesAlarm", 1}, {row.function, result}};
      const auto record = row.record(result);

      EXPECT_EQ(run(row.operation, record), row.returned(result));

      EXPECT_TRUE(row.tells(record, result));
      EXPECT_TRUE(row.line == nullptr || wasLogged(withNumber(row.line, result)));
    }
  }
}

TEST_F(HostileAnswersTest, NoFunctionWithAResultIsForgotten) {
  // The number of jobs steers operations. The other two's results are not used.
  std::set<std::string> known{"AppMgr_GetPrintingJob", "AppMgr_CheckIpChange", "AppPrinterSdk_UpgradeFwStart"};
  for (const auto& row : kResults) known.insert(row.function);

#define FAKES_MAKER_CALL(result, name, parameters, arguments, failure) \
  EXPECT_TRUE(!(std::is_same_v<result, int>) || known.contains(#name)) << #name;
#include "fakes/maker_calls.inc"
#undef FAKES_MAKER_CALL
}

struct StateWay {
  std::int32_t connectionKind;
  int jobs;
  bool requested;
  const char* line;
};

constexpr StateWay kStateWays[] = {
    {0, 1, false, "get usb printer (ctrl port) state result: #"}, {0, 0, true, "get usb printer (request) state result: #"},
    {0, 0, false, "get usb printer (push scan) state result: #"}, {1, 0, true, "get net printer (request) state result: #"},
    {1, 1, false, "get net printer (printing) state result: #"},
};

TEST_F(HostileAnswersTest, AnyResultOfAStateReadIsStoredAndLoggedAsItIs) {
  printer->hasCtrlPort = true;
  for (const auto& way : kStateWays) {
    for (const auto result : kNumbers) {
      SCOPED_TRACE(withNumber(way.line, result));
      printer->connectionKind = way.connectionKind;
      requested = way.requested;
      libraries.answers = {
          {"AppMgr_GetPrintingJob", way.jobs}, {"AppPrinterSdk_IsSuppportPushScan", 1}, {"AppPrinterSdk_GetState", result}};
      const auto record = std::make_shared<State>(State{.result = ~result});

      EXPECT_EQ(run(Type::State, record), 0);

      EXPECT_EQ(record->result, result);
      EXPECT_TRUE(wasLogged(withNumber(way.line, result)));
    }
  }
}

TEST_F(HostileAnswersTest, AnySleepTimeIsStoredAndLoggedAsItIs) {
  for (const auto value : kNumbers) {
    SCOPED_TRACE(value);
    libraries.parameter = value;
    const auto record = std::make_shared<DevParam>(DevParam{.sleepTimeOk = true});

    run(Type::GetDevParam, record);

    EXPECT_EQ(record->sleepTime, value);
    EXPECT_TRUE(wasLogged(withNumber("GetSleepTime ret: 0, time: #", value)));
  }
}

struct ByteRow {
  bool DevParam::*flag;
  std::uint8_t DevParam::*value;
  const char* line;
};

constexpr ByteRow kByteRows[] = {
    {&DevParam::supplyAlarmOk, &DevParam::supplyAlarm, "GetSuppliesAlarm ret: 0, supply alarm: #"},
    {&DevParam::paperAlarmOk, &DevParam::paperAlarm, "GetPaperAlarm ret: 0, paper alarm: #"},
    {&DevParam::timedClearOk, &DevParam::timedClear, "GetTimedClear ret: 0, clear mode: #"},
    {&DevParam::silentModeOk, &DevParam::silentMode, "GetSilentMode ret: 0, silent mode: #"},
};

TEST_F(HostileAnswersTest, AByteStaysAByte) {
  for (const auto& row : kByteRows) {
    for (const auto value : kBytes) {
      SCOPED_TRACE(withNumber(row.line, value));
      libraries.parameter = value;
      const auto record = std::make_shared<DevParam>();
      record.get()->*row.flag = true;

      run(Type::GetDevParam, record);

      EXPECT_EQ(record.get()->*row.value, value);
      EXPECT_TRUE(wasLogged(withNumber(row.line, value)));
    }
  }
}

TEST_F(HostileAnswersTest, AnyAlarmByteButZeroIsOn) {
  libraries.answers["AppPrinterSdk_IsSuppportSuppliesAlarm"] = 1;
  for (const auto value : kBytes) {
    SCOPED_TRACE(value);
    libraries.parameter = value;

    EXPECT_EQ(run(Type::GetAlarm, {}), 0);

    EXPECT_EQ(printer->suppliesAlarmState, value == 0 ? 165 : 160);
    EXPECT_TRUE(wasLogged(withNumber("get supply alarm result: 0, alarm: #", value)));
  }
}

}  // namespace
