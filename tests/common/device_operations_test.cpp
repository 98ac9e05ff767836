#include <gtest/gtest.h>

#include <atomic>

#include "OperationRun.h"
#include "Records.h"

namespace {

using AppComm::DevParam;
using AppComm::State;
using AppComm::Type;
using consoletest::linesOf;
using consoletest::OperationRun;
using examples::Outcome;
using Lines = std::vector<std::wstring>;

TEST(StateOperationTest, TellsWhatThePrinterSaid) {
  OperationRun<State> run({L"state"});
  EXPECT_EQ(run.operation->type(), Type::State);
  EXPECT_EQ(run.operation->preliminary().operation, nullptr);
  run.record->queried = true;
  run.record->jobs = 2;
  run.printer.deviceStatus = 3;
  run.printer.model = L"Desk";
  run.printer.supplies = {{L"black", 62}};
  run.printer.alerts = {21, 99};
  EXPECT_EQ(linesOf(run.afterNotice()),
            (Lines{L"device status: 3", L"jobs: 2", L"model: Desk", L"serial number: -", L"firmware: -", L"address: -",
                   L"address changed: no", L"supplies:", L"  color black, percent 62", L"alerts: 21, 99", L"c, p: done"}));
}

TEST(StateOperationTest, UnreadStateIsAFailure) {
  OperationRun<State> run({L"state"});
  run.record->jobs = 1;
  EXPECT_EQ(linesOf(run.afterNotice()),
            (Lines{L"jobs: 1", L"c, p: failed: the printer was not asked: it prints, and it has no control port"}));
  run.record->jobs = -3;
  EXPECT_EQ(linesOf(run.afterNotice()),
            (Lines{L"jobs: could not be read",
                   L"c, p: failed: the printer was not asked: its jobs could not be counted, and it has no control port"}));
  run.record->queried = true;
  run.record->result = -7;
  EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"c, p: failed: the printer library answered -7"}));
}

TEST(StateOperationTest, TaskThatWasDroppedWithoutARunHasFailed) {
  const OperationRun<State> run({L"state"});
  EXPECT_EQ(linesOf(run.operation->report(run.printer)),
            (Lines{L"c, p: failed: the module let the task go without running it; try again"}));
}

TEST(AlarmOperationTest, TellsThePrintersAlarmWithoutANotice) {
  const auto operation = examples::parseOptions({L"alarm"}).command->newOperation({});
  EXPECT_EQ(operation->type(), Type::GetAlarm);
  qzstd::PrinterInfo printer;
  EXPECT_EQ(linesOf(operation->report(printer)), (Lines{L"c, p: failed: the printer did not tell"}));
  printer.suppliesAlarmState = 165;
  EXPECT_EQ(linesOf(operation->report(printer)), (Lines{L"supplies alarm state: 165", L"c, p: done"}));
}

TEST(GetOperationTest, AsksForWhatIsNamed) {
  const OperationRun<DevParam> run({L"get", L"paper-alarm", L"sleep-time", L"paper-alarm"});
  EXPECT_EQ(run.operation->type(), Type::GetDevParam);
  EXPECT_TRUE(run.record->paperAlarmOk && run.record->sleepTimeOk);
  EXPECT_FALSE(run.record->supplyAlarmOk || run.record->timedClearOk || run.record->silentModeOk);
  run.record->sleepTime = -1;
  run.record->paperAlarm = 255;
  EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"paper alarm: 255", L"sleep time: -1", L"c, p: done"}));
}

TEST(GetOperationTest, AsksForAllWithoutAName) {
  const OperationRun<DevParam> run({L"get"});
  run.record->sleepTime = 1;
  run.record->supplyAlarm = 2;
  run.record->paperAlarm = 3;
  run.record->timedClear = 4;
  run.record->silentMode = 5;
  EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"sleep time: 1", L"supplies alarm: 2", L"paper alarm: 3", L"timed clear: 4",
                                               L"silent mode: 5", L"c, p: done"}));
}

TEST(GetOperationTest, WhatWasNotReadIsAFailureAndNoResult) {
  const OperationRun<DevParam> run({L"get", L"sleep-time", L"timed-clear", L"silent-mode"});
  run.record->timedClearOk = false;
  run.record->silentModeOk = false;
  EXPECT_EQ(linesOf(run.afterNotice()),
            (Lines{L"sleep time: 0", L"c, p: failed: the printer did not tell: timed clear, silent mode"}));
}

struct Setter {
  std::vector<std::wstring> words;
  Type type;
  bool DevParam::*ok;
  int (*value)(const DevParam&);
  int expected;
  std::wstring result;
};

const Setter kSetters[] = {
    {{L"set", L"sleep-time", L"-5"},
     Type::SetSleepTime,
     &DevParam::sleepTimeOk,
     [](const DevParam& r) { return r.sleepTime; },
     -5,
     L"sleep time: -5"},
    {{L"set", L"supplies-alarm"},
     Type::SetSupplyAlarm,
     &DevParam::supplyAlarmOk,
     [](const DevParam& r) { return int{r.supplyAlarm}; },
     0,
     L"supplies alarm: 0"},
    {{L"set", L"paper-alarm", L"7"},
     Type::SetPaperAlarm,
     &DevParam::paperAlarmOk,
     [](const DevParam& r) { return int{r.paperAlarm}; },
     7,
     L"paper alarm: 7"},
    {{L"set", L"timed-clear", L"8"},
     Type::SetTimedClear,
     &DevParam::timedClearOk,
     [](const DevParam& r) { return int{r.timedClear}; },
     8,
     L"timed clear: 8"},
    {{L"set", L"silent-mode", L"255"},
     Type::SetSilentMode,
     &DevParam::silentModeOk,
     [](const DevParam& r) { return int{r.silentMode}; },
     255,
     L"silent mode: 255"},
};

TEST(SetOperationTest, EachSendsItsOwnValue) {
  for (const auto& setter : kSetters) {
    SCOPED_TRACE(testing::PrintToString(setter.words));
    const OperationRun<DevParam> run(setter.words);
    EXPECT_EQ(run.operation->type(), setter.type);
    EXPECT_EQ(setter.value(*run.record), setter.expected);
    EXPECT_EQ(run.afterNotice().outcome, Outcome::Failed);
    (*run.record).*setter.ok = true;
    EXPECT_EQ(linesOf(run.afterNotice()), (Lines{setter.result, L"c, p: done"}));
  }
}

TEST(SetOperationTest, ReadsTheStateBeforeAndGoesOnWithoutIt) {
  for (const auto& setter : kSetters) {
    const OperationRun<DevParam> run(setter.words);
    const auto [first, required] = run.operation->preliminary();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->type(), Type::State);
    EXPECT_FALSE(required);
  }
}

TEST(SetOperationTest, RefusalTellsWhy) {
  OperationRun<DevParam> run({L"set", L"paper-alarm", L"1"});
  run.record->busy = true;
  run.printer.deviceStatus = 3;
  EXPECT_EQ(linesOf(run.afterNotice()),
            (Lines{L"c, p: refused: the printer is busy: it prints, or its device status (3) allows no changes"}));
  for (const auto status : {0, 1, 11}) {
    run.printer.deviceStatus = status;
    EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"c, p: refused: the printer is printing"}));
  }
  run.record->busy = false;
  run.record->statusOne = true;
  EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"c, p: refused: the printer's device status is 1, which allows no changes"}));
}

TEST(SetOperationTest, SuppliesAlarmTakesNoValue) {
  EXPECT_THROW(examples::parseOptions({L"set", L"supplies-alarm", L"0"}), examples::OptionsError);
}

}  // namespace
