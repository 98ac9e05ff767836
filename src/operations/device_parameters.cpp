#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

#include "AppPrinterSdk.h"
#include "Records.h"
#include "operations/Availability.h"
#include "operations/Frame.h"
#include "operations/Handlers.h"
#include "platform/Time.h"

namespace {

using namespace std::chrono_literals;
using AppComm::DevParam;
using AppComm::Type;
using ParameterRun = operations::Run<DevParam>;
using Flag = bool DevParam::*;

constexpr const wchar_t* kMismatch = L"resource type is NOT device parameter.";
constexpr auto kPause = 1000ms;

template <auto function, auto value>
int callWith(qzstd::PrinterInfo* printer, DevParam& record) {
  return function(printer, &(record.*value));
}

template <auto value>
int valueOf(const DevParam& record) {
  return record.*value;
}

struct Reading {
  Flag flag;
  int (*read)(qzstd::PrinterInfo*, DevParam&);
  int (*value)(const DevParam&);
  const wchar_t* resultText;     // takes the result and the value
  std::array<Flag, 3> pauseFor;  // the printer is given a rest when one of these is still to be read
};

// The timed clear mode is in no other parameter's `pauseFor`: unless the silent mode is to be read after it, its read follows
// the one before it at once.
constexpr std::array<Reading, 5> kReadings{{
    {&DevParam::sleepTimeOk,
     callWith<AppPrinterSdk_GetSleepTime, &DevParam::sleepTime>,
     valueOf<&DevParam::sleepTime>,
     L"GetSleepTime ret: %d, time: %d",
     {&DevParam::supplyAlarmOk, &DevParam::paperAlarmOk, &DevParam::silentModeOk}},
    {&DevParam::supplyAlarmOk,
     callWith<AppPrinterSdk_GetSuppliesAlarm, &DevParam::supplyAlarm>,
     valueOf<&DevParam::supplyAlarm>,
     L"GetSuppliesAlarm ret: %d, supply alarm: %d",
     {&DevParam::paperAlarmOk, &DevParam::silentModeOk}},
    {&DevParam::paperAlarmOk,
     callWith<AppPrinterSdk_GetPaperAlarm, &DevParam::paperAlarm>,
     valueOf<&DevParam::paperAlarm>,
     L"GetPaperAlarm ret: %d, paper alarm: %d",
     {&DevParam::silentModeOk}},
    {&DevParam::timedClearOk,
     callWith<AppPrinterSdk_GetTimedClear, &DevParam::timedClear>,
     valueOf<&DevParam::timedClear>,
     L"GetTimedClear ret: %d, clear mode: %d",
     {&DevParam::silentModeOk}},
    {&DevParam::silentModeOk,
     callWith<AppPrinterSdk_GetSilentMode, &DevParam::silentMode>,
     valueOf<&DevParam::silentMode>,
     L"GetSilentMode ret: %d, silent mode: %d",
     {}},
}};
static_assert(std::ranges::none_of(kReadings, [](const Reading& reading) { return reading.flag == nullptr; }));

int readSelected(const ParameterRun& run) {
  auto& record = run.record;
  const auto isSelected = [&record](Flag flag) { return flag != nullptr && record.*flag; };
  for (const auto& reading : kReadings) {
    if (!isSelected(reading.flag)) continue;
    const int result = reading.read(&run.printer, record);
    record.*reading.flag = result == 0;
    WriteLog(LOG_DEBUG, run.name, __LINE__, reading.resultText, result, reading.value(record));
    if (std::ranges::any_of(reading.pauseFor, isSelected)) platform::sleepFor(kPause);
  }
  return operations::finish(run, __LINE__, L" notice caller the result of get device parameter.");
}

struct Setting {
  Type type;
  int (*send)(qzstd::PrinterInfo*, DevParam&);
  Flag flag;
  const wchar_t* resultText;  // takes the result
  const wchar_t* noticeText;
  const wchar_t* mismatch = kMismatch;
};

// Whatever the record says, this alarm is only ever set to 0; the caller's value stays in the record.
int sendZeroSuppliesAlarm(qzstd::PrinterInfo* printer, DevParam& /*record*/) {
  std::uint8_t zero = 0;
  return AppPrinterSdk_SetSuppliesAlarm(printer, &zero);
}

constexpr std::array<Setting, 5> kSettings{{
    {Type::SetSupplyAlarm, sendZeroSuppliesAlarm, &DevParam::supplyAlarmOk, L"SetSuppliesAlarm ret: %d.",
     L" notice caller the result of set device supply alarm.",
     L"resource type is NOT device device parameter."},  // the doubled word is part of the text
    {Type::SetSleepTime, callWith<AppPrinterSdk_SetSleepTime, &DevParam::sleepTime>, &DevParam::sleepTimeOk,
     L"SetSleepTime ret: %d.", L" notice caller the result of set device sleep time."},
    {Type::SetPaperAlarm, callWith<AppPrinterSdk_SetPaperAlarm, &DevParam::paperAlarm>, &DevParam::paperAlarmOk,
     L"SetPaperAlarm ret: %d.", L" notice caller the result of set device paper alarm."},
    {Type::SetSilentMode, callWith<AppPrinterSdk_SetSilentMode, &DevParam::silentMode>, &DevParam::silentModeOk,
     L"SetSilentMode ret: %d.", L" notice caller the result of set device silent mode."},
    {Type::SetTimedClear, callWith<AppPrinterSdk_SetTimedClear, &DevParam::timedClear>, &DevParam::timedClearOk,
     L"SetTimedClear ret: %d.", L" notice caller the result of set device timed clear."},
}};

consteval const Setting& settingFor(Type type) { return *std::ranges::find(kSettings, type, &Setting::type); }

int set(std::shared_ptr<comm::CNode> entry, const char* name, const Setting& setting) {
  return operations::inFrame<DevParam>(std::move(entry), name, __LINE__, setting.mismatch, [&](const ParameterRun& run) {
    auto& record = run.record;
    if (operations::acceptsChange(run.printer, record.busy, record.statusOne)) {
      const int result = setting.send(&run.printer, record);
      WriteLog(LOG_DEBUG, run.name, __LINE__, setting.resultText, result);
      record.*setting.flag = result == 0;
    }
    return operations::finish(run, __LINE__, setting.noticeText);
  });
}

// The library's and the application's numbers: the alarm is on, or the printer has none; it is off.
constexpr std::int32_t kAlarmOnOrNone = 160;
constexpr std::int32_t kAlarmOff = 165;

int readAlarm(qzstd::PrinterInfo& printer, const char* name) {
  if (!AppPrinterSdk_IsSuppportSuppliesAlarm(&printer)) {
    printer.suppliesAlarmState = kAlarmOnOrNone;
    return operations::kDone;
  }
  std::uint8_t alarm = 1;
  const int result = AppPrinterSdk_GetSuppliesAlarm(&printer, &alarm);
  WriteLog(LOG_DEBUG, name, __LINE__, L"get supply alarm result: %d, alarm: %d", result, alarm);
  if (result == 0) printer.suppliesAlarmState = alarm != 0 ? kAlarmOnOrNone : kAlarmOff;
  return result;
}

}  // namespace

// Outside the frame: there is no record, and no window is told. The answer is in the printer description.
int comm_thread_getAlarm(std::shared_ptr<comm::CNode> entry) {
  const auto task = entry->current();
  const auto printer = task->getInfo();
  const int result = readAlarm(*printer, __func__);
  entry.reset();
  return result;
}

int comm_thread_getDevParam(std::shared_ptr<comm::CNode> entry) {
  return operations::inFrame<DevParam>(std::move(entry), __func__, __LINE__, kMismatch, readSelected);
}

int comm_thread_setSupplyAlarm(std::shared_ptr<comm::CNode> entry) {
  return set(std::move(entry), __func__, settingFor(Type::SetSupplyAlarm));
}
int comm_thread_setSleepTime(std::shared_ptr<comm::CNode> entry) {
  return set(std::move(entry), __func__, settingFor(Type::SetSleepTime));
}
int comm_thread_setPaperAlarm(std::shared_ptr<comm::CNode> entry) {
  return set(std::move(entry), __func__, settingFor(Type::SetPaperAlarm));
}
int comm_thread_setSilentMode(std::shared_ptr<comm::CNode> entry) {
  return set(std::move(entry), __func__, settingFor(Type::SetSilentMode));
}
int comm_thread_setTimedClear(std::shared_ptr<comm::CNode> entry) {
  return set(std::move(entry), __func__, settingFor(Type::SetTimedClear));
}
