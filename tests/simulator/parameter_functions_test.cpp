#include <limits>

#include "Support.h"

namespace simulator::test {
namespace {

using ParameterFunctions = SimulatorTest;

/// What the five getters answer.
DeviceParameters read(std::wstring_view uid) {
  auto info = newPrinterInfo(uid);
  DeviceParameters values;
  EXPECT_EQ(AppPrinterSdk_GetSleepTime(&info, &values.sleepTime), success);
  EXPECT_EQ(AppPrinterSdk_GetSuppliesAlarm(&info, &values.suppliesAlarm), success);
  EXPECT_EQ(AppPrinterSdk_GetPaperAlarm(&info, &values.paperAlarm), success);
  EXPECT_EQ(AppPrinterSdk_GetSilentMode(&info, &values.silentMode), success);
  EXPECT_EQ(AppPrinterSdk_GetTimedClear(&info, &values.timedClear), success);
  return values;
}

void write(std::wstring_view uid, DeviceParameters values) {
  auto info = newPrinterInfo(uid);
  EXPECT_EQ(AppPrinterSdk_SetSleepTime(&info, &values.sleepTime), success);
  EXPECT_EQ(AppPrinterSdk_SetSuppliesAlarm(&info, &values.suppliesAlarm), success);
  EXPECT_EQ(AppPrinterSdk_SetPaperAlarm(&info, &values.paperAlarm), success);
  EXPECT_EQ(AppPrinterSdk_SetSilentMode(&info, &values.silentMode), success);
  EXPECT_EQ(AppPrinterSdk_SetTimedClear(&info, &values.timedClear), success);
}

TEST_F(ParameterFunctions, DefaultsAreAsDocumented) {
  loadScenarioText(onePrinter(""));
  EXPECT_EQ(read(L"a"), (DeviceParameters{10, 1, 1, 0, 0}));
}

TEST_F(ParameterFunctions, AreAsTheScenarioSays) {
  loadScenarioText(onePrinter(
      "", "<parameters sleep-time='-2147483648' supplies-alarm='2' paper-alarm='3' silent-mode='4' timed-clear='255'/>"));
  EXPECT_EQ(read(L"a"), (DeviceParameters{std::numeric_limits<std::int32_t>::min(), 2, 3, 4, 255}));
}

TEST_F(ParameterFunctions, WhatIsSetIsKeptPerPrinter) {
  loadScenarioText(twoPrinters(""));
  const DeviceParameters changed{70'000, 11, 12, 13, 14};
  write(L"a", changed);
  EXPECT_EQ(read(L"a"), changed);
  EXPECT_EQ(contents(L"a").parameters, changed);
  EXPECT_EQ(read(L"b"), DeviceParameters());
  EXPECT_EQ(contents(L"b").parameters, DeviceParameters());
}

TEST_F(ParameterFunctions, EachSetterChangesItsOwnAlone) {
  struct Case {
    int (*set)(qzstd::PrinterInfo*, std::uint8_t*);
    std::uint8_t DeviceParameters::*member;
  };
  for (const Case& c : {Case{AppPrinterSdk_SetSuppliesAlarm, &DeviceParameters::suppliesAlarm},
                        Case{AppPrinterSdk_SetPaperAlarm, &DeviceParameters::paperAlarm},
                        Case{AppPrinterSdk_SetSilentMode, &DeviceParameters::silentMode},
                        Case{AppPrinterSdk_SetTimedClear, &DeviceParameters::timedClear}}) {
    loadScenarioText(onePrinter(""));
    auto info = newPrinterInfo(L"a");
    std::uint8_t value = 77;
    EXPECT_EQ(c.set(&info, &value), success);
    DeviceParameters expected;
    expected.*c.member = 77;
    EXPECT_EQ(contents(L"a").parameters, expected);
  }
}

TEST_F(ParameterFunctions, FailedCallsChangeNothing) {
  loadScenarioText(onePrinter(
      "", callOf("AppPrinterSdk_SetSleepTime", "<fail code='5'/>") + callOf("AppPrinterSdk_GetSleepTime", "<fail code='6'/>")));
  auto info = newPrinterInfo(L"a");
  std::int32_t value = 99;
  EXPECT_EQ(AppPrinterSdk_SetSleepTime(&info, &value), 5);
  EXPECT_EQ(AppPrinterSdk_GetSleepTime(&info, &value), 6);
  EXPECT_EQ(value, 99);
  EXPECT_EQ(contents(L"a").parameters, DeviceParameters());
}

TEST_F(ParameterFunctions, GarbageIsReadAndNothingIsKept) {
  std::string calls;
  for (const std::string name : {"SleepTime", "SuppliesAlarm", "PaperAlarm", "SilentMode", "TimedClear"}) {
    calls += callOf("AppPrinterSdk_Get" + name, "<garbage/>") + callOf("AppPrinterSdk_Set" + name, "<garbage/>");
  }
  loadScenarioText(onePrinter("", calls));
  write(L"a", {1, 2, 3, 4, 5});
  EXPECT_EQ(contents(L"a").parameters, DeviceParameters());
  EXPECT_EQ(read(L"a"), (DeviceParameters{std::numeric_limits<std::int32_t>::min(), 255, 255, 255, 255}));
}

TEST_F(ParameterFunctions, PrinterHasASuppliesAlarmUnlessTheScenarioSaysNo) {
  for (const auto& [attribute, has] : {std::pair{"", true}, {"supplies-alarm='yes'", true}, {"supplies-alarm='no'", false}}) {
    loadScenarioText(onePrinter(attribute));
    auto info = newPrinterInfo(L"a");
    EXPECT_EQ(AppPrinterSdk_IsSuppportSuppliesAlarm(&info), has) << attribute;
  }
}

TEST_F(ParameterFunctions, StartAfreshWithEveryLoad) {
  loadScenarioText(onePrinter(""));
  write(L"a", {1, 2, 3, 4, 5});
  loadScenarioText(onePrinter(""));
  EXPECT_EQ(read(L"a"), DeviceParameters());
}

TEST_F(ParameterFunctions, UnknownPrinterHasNoContents) {
  loadScenarioText(onePrinter(""));
  EXPECT_THROW(contents(L"ma"), std::out_of_range);
}

}  // namespace
}  // namespace simulator::test
