/// One table for each operation: how far it is, and what may come next.

#include "model/Operation.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace soak::test {
namespace {

using Npa = Progress::Npa;

struct Step {
  Progress from;
  std::string_view next;  // as `textOf` has it
};

std::string textOf(const Next& next) {
  std::string text;
  const auto add = [&text](std::string_view part) { text += (text.empty() ? "" : ", ") + std::string(part); };
  for (const std::string_view call : next.calls) {
    if (!call.empty()) add(call);
  }
  if (next.round) add("round");
  if (next.ownNotice) add("own notice");
  if (next.readsNpa) add("request");
  if (next.ownRecord) add("record");
  if (next.done) add("done");
  return next.pause.count() == 0 ? text : text + " after " + std::to_string(next.pause.count()) + " ms";
}

void expectSteps(const Surroundings& in, std::initializer_list<Step> steps) {
  int row = 0;
  for (const Step& step : steps) {
    EXPECT_EQ(textOf(nextOf(step.from, in)), step.next)
        << nameOf(in.task.type) << ", row " << ++row << " after \"" << step.from.function << "\"";
  }
}

Surroundings of(Type type) { return {.printer = {}, .task = {.type = type}}; }
Surroundings maybeDeleted(Type type) { return {.printer = {}, .task = {.type = type}, .mayBeDeleted = true}; }
Surroundings deleted(Type type) { return {.printer = {}, .task = {.type = type}, .mayBeDeleted = true, .isDeleted = true}; }

constexpr std::string_view kJobs = "AppMgr_GetPrintingJob";
constexpr std::string_view kState = "AppPrinterSdk_GetState";

TEST(Operation, OfARecordOfAnotherTypeOnlyLooksAtIt) {
  for (int type = 0; type <= static_cast<int>(Type::SetWifiList); ++type) {
    Surroundings in = of(static_cast<Type>(type));
    in.task.wrongRecord = true;
    if (in.task.type == Type::GetAlarm) continue;  // it has none
    expectSteps(in, {{{}, "record"}, {{.refused = true}, "done"}});
  }
}

TEST(Operation, StateOfAUsbPrinter) {
  constexpr std::string_view scan = "AppPrinterSdk_IsSuppportPushScan";
  Surroundings in = of(Type::State);
  expectSteps(in, {{{}, kJobs},
                   {{.function = kJobs}, "request"},
                   {{.function = kJobs, .npa = Npa::yes}, kState},
                   {{.function = kJobs, .npa = Npa::no}, scan},
                   {{.function = scan, .result = 1, .npa = Npa::no}, kState},
                   {{.function = scan, .result = 0, .npa = Npa::no}, "round"},
                   {{.function = kState, .result = -3}, "round"},
                   {{.function = kState, .afterRound = true}, "done"},
                   {{.function = kJobs, .jobs = 1}, "round"},
                   {{.function = kJobs, .jobs = -1}, "round"}});
  in.printer.ctrlPort = true;
  expectSteps(in, {{{.function = kJobs, .jobs = 1}, kState},
                   {{.function = kJobs, .jobs = -1}, kState},
                   {{.function = kJobs, .jobs = 0}, "request"}});
}

TEST(Operation, StateOfANetworkPrinter) {
  constexpr std::string_view address = "AppMgr_CheckIpChange";
  Surroundings in = of(Type::State);
  in.printer.network = true;
  expectSteps(in, {{{}, kJobs},
                   {{.function = kJobs, .jobs = 1}, address},
                   {{.function = address}, "request"},
                   {{.function = address, .npa = Npa::yes}, kState},
                   {{.function = address, .npa = Npa::no}, "round"},
                   {{.function = address, .jobs = 1, .npa = Npa::no}, kState},
                   {{.function = address, .jobs = -1, .npa = Npa::no}, "round"},
                   {{.function = kState, .npa = Npa::no}, "round"},
                   {{.function = address, .afterRound = true, .npa = Npa::no}, "done"}});
}

TEST(Operation, GetAlarm) {
  constexpr std::string_view supported = "AppPrinterSdk_IsSuppportSuppliesAlarm", alarm = "AppPrinterSdk_GetSuppliesAlarm";
  expectSteps(of(Type::GetAlarm), {{{}, supported},
                                   {{.function = supported, .result = 0}, "done"},
                                   {{.function = supported, .result = 1}, alarm},
                                   {{.function = alarm, .result = 0}, "done"},
                                   {{.function = alarm, .result = -3}, "done"}});
}

Progress reading(std::string_view last, const Selection& selected) { return {.function = last, .record = {selected}}; }

TEST(Operation, GetDevParam) {
  constexpr std::string_view sleep = "AppPrinterSdk_GetSleepTime", supplies = "AppPrinterSdk_GetSuppliesAlarm",
                             paper = "AppPrinterSdk_GetPaperAlarm", timed = "AppPrinterSdk_GetTimedClear",
                             silent = "AppPrinterSdk_GetSilentMode";
  constexpr Selection all{true, true, true, true, true};
  expectSteps(of(Type::GetDevParam),
              {{reading("", {}), "round"},
               {reading("", all), sleep},
               {reading(sleep, all), "AppPrinterSdk_GetSuppliesAlarm after 1000 ms"},
               {reading(supplies, all), "AppPrinterSdk_GetPaperAlarm after 1000 ms"},
               {reading(paper, all), "AppPrinterSdk_GetTimedClear after 1000 ms"},
               {reading(timed, all), "AppPrinterSdk_GetSilentMode after 1000 ms"},
               {reading(silent, all), "round"},
               {reading("", {false, false, true}), paper},
               {reading(paper, {false, false, true}), "round"},
               {reading(sleep, {true, false, false, true, false}), timed},
               {reading(supplies, {true, true, false, true, false}), timed},
               {reading(sleep, {true, false, false, true, true}), "AppPrinterSdk_GetTimedClear after 1000 ms"},
               {reading(sleep, {true, false, true}), "AppPrinterSdk_GetPaperAlarm after 1000 ms"},
               {reading(timed, {true, true, true, true, false}), "round"},
               {reading(sleep, {false, false, false, true, false}), timed},
               {{.function = silent, .afterRound = true, .record = {all}}, "done"},
               {{.afterRound = true}, "done"}});
}

struct Change {
  Type type;
  std::string_view call;
};

constexpr Change kChanges[] = {{Type::SetSupplyAlarm, "AppPrinterSdk_SetSuppliesAlarm"},
                               {Type::SetSleepTime, "AppPrinterSdk_SetSleepTime"},
                               {Type::SetPaperAlarm, "AppPrinterSdk_SetPaperAlarm"},
                               {Type::SetSilentMode, "AppPrinterSdk_SetSilentMode"},
                               {Type::SetTimedClear, "AppPrinterSdk_SetTimedClear"},
                               {Type::PrintAdjust, "AppPrinterSdk_SetAlignPage"},
                               {Type::PrintClean, "AppPrinterSdk_SetClean"},
                               {Type::SetNetwork, "AppPrinterSdk_SetNetWork"},
                               {Type::SetAdjust, "AppPrinterSdk_SetAlignCmd"},
                               {Type::PrintQRcode, "AppSdk_PrintBmp"}};

TEST(Operation, ThatChangesThePrinterIsSentWhereNoJobAndNoStatusForbidIt) {
  for (const Change& change : kChanges) {
    Surroundings in = of(change.type);
    for (const std::int32_t status : {0, 11}) {
      in.task.status = status;
      expectSteps(in, {{{}, kJobs},
                       {{.function = kJobs, .jobs = 0}, change.call},
                       {{.function = kJobs, .jobs = -1}, change.call},
                       {{.function = kJobs, .jobs = 1}, "round"},
                       {{.function = change.call, .result = -3}, "round"},
                       {{.function = change.call, .afterRound = true}, "done"},
                       {{.function = kJobs, .jobs = 1, .afterRound = true}, "done"}});
    }
    in.task.status = 1;
    expectSteps(in, {{{.function = kJobs}, "round"}, {{.function = kJobs, .jobs = 1}, "round"}});
    in.task.status = 5;
    expectSteps(in, {{{.function = kJobs}, change.type == Type::PrintQRcode ? change.call : "round"}});
  }
}

TEST(Operation, RegPushscanAndRegUpgrade) {
  constexpr Change registrations[] = {{Type::RegPushscan, "AppPrinterSdk_RegisterPushScanUSB"},
                                      {Type::RegUpgrade, "AppSdk_SetPrinterUpgradeInfo"}};
  for (const Change& one : registrations) {
    expectSteps(of(one.type),
                {{{}, one.call}, {{.function = one.call, .result = 0}, "done"}, {{.function = one.call, .result = 1}, "done"}});
  }
}

TEST(Operation, GetPushscan) {
  constexpr std::string_view read = "AppPrinterSdk_GetPushScanPara";
  expectSteps(of(Type::GetPushscan), {{{}, read},
                                      {{.function = read, .result = 0}, "own notice"},
                                      {{.function = read, .result = -3}, "done"},
                                      {{.function = read, .result = 0, .afterRound = true}, "done"}});
}

TEST(Operation, GetNetwork) {
  constexpr std::string_view read = "AppPrinterSdk_GetNetWork";
  expectSteps(of(Type::GetNetwork), {{{}, read},
                                     {{.function = read, .result = 0}, "round"},
                                     {{.function = read, .result = -3}, "round"},
                                     {{.function = read, .afterRound = true}, "done"}});
}

Progress checking(std::string_view last, bool triggered, bool ok, bool done, bool afterRound = false) {
  return {.function = last, .afterRound = afterRound, .record = {.triggered = triggered, .ok = ok, .done = done}};
}

TEST(Operation, FirmNewCheck) {
  constexpr std::string_view start = "AppSdk_TriggerFwUpgradeStart", process = "AppSdk_TriggerFwUpgradeProcess",
                             result = "AppSdk_TriggerFwUpgradeResult";
  expectSteps(of(Type::FirmNewCheck), {{checking("", false, false, false), start},
                                       {checking(start, true, true, false), "round"},
                                       {checking(start, true, false, false), "round"},
                                       {checking(start, true, true, false, true), "done"},
                                       {checking("", true, true, false), process},
                                       {checking("", true, true, true), process},
                                       {checking("", true, false, false), "round"},
                                       {checking("", true, false, false, true), "done"},
                                       {checking(process, true, true, false), "round"},
                                       {checking(process, true, false, true), "round"},
                                       {checking(process, true, true, true), result},
                                       {checking(result, true, true, true), "round"},
                                       {checking(result, true, false, true), "round"},
                                       {checking(result, true, true, true, true), "done"}});
}

TEST(Operation, FirmUpgrade) {
  constexpr std::string_view start = "AppPrinterSdk_UpgradeFwStart", progress = "AppPrinterSdk_UpgradeFwProgress",
                             exit = "AppPrinterSdk_UpgradeFwExit";
  constexpr RecordFields done{.done = true};
  const Progress told{.function = progress, .afterRound = true};
  const Progress sent{.function = progress, .afterRound = true, .record = done};
  expectSteps(of(Type::FirmUpgrade), {{{}, start},
                                      {{.function = start, .result = -3}, progress},
                                      {{.function = start, .record = done}, exit},
                                      {{.function = progress}, "round"},
                                      {{.function = progress, .record = done}, "round"},
                                      {{.function = progress, .result = -3, .record = done}, exit},
                                      {told, "AppPrinterSdk_UpgradeFwProgress after 100 ms"},
                                      {sent, "AppPrinterSdk_UpgradeFwExit after 100 ms"},
                                      {{.function = exit, .exited = true}, "round"},
                                      {{.function = exit, .afterRound = true, .exited = true}, "done"}});
  expectSteps(maybeDeleted(Type::FirmUpgrade),
              {{{.function = start}, "AppPrinterSdk_UpgradeFwProgress, AppPrinterSdk_UpgradeFwExit"},
               {{.function = progress}, "round"},
               {told, "AppPrinterSdk_UpgradeFwProgress, AppPrinterSdk_UpgradeFwExit after 100 ms"},
               {{.function = exit, .exited = true}, "round, done"}});
  expectSteps(deleted(Type::FirmUpgrade), {{{}, start},
                                           {{.function = start}, exit},
                                           {{.function = progress}, "round"},
                                           {told, "AppPrinterSdk_UpgradeFwExit after 100 ms"},
                                           {{.function = exit, .exited = true}, "done"}});
}

TEST(Operation, FirmUpCheck) {
  const Progress told{.function = kState, .afterRound = true};
  expectSteps(of(Type::FirmUpCheck),
              {{{}, kState}, {{.function = kState, .result = -3}, "round"}, {told, "AppPrinterSdk_GetState after 50 ms"}});
  expectSteps(maybeDeleted(Type::FirmUpCheck), {{{}, "AppPrinterSdk_GetState, done"},
                                                {{.function = kState}, "round"},
                                                {told, "AppPrinterSdk_GetState, done after 50 ms"}});
  expectSteps(deleted(Type::FirmUpCheck), {{{}, "done"}, {{.function = kState}, "round"}, {told, "done after 50 ms"}});
}

TEST(Operation, GetWifiList) {
  constexpr std::string_view connected = "AppPrinterSdk_IsNetConnected", start = "AppMgr_GetPrinterWifiStart",
                             progress = "AppMgr_GetPrinterWifiProgress", result = "AppMgr_GetPrinterWifiResult",
                             exit = "AppMgr_GetPrinterWifiExit";
  const Progress told{.function = progress, .afterRound = true};
  expectSteps(of(Type::GetWifiList), {{{}, connected},
                                      {{.function = connected, .result = 1}, "round"},
                                      {{.function = connected, .result = 1, .afterRound = true}, "done"},
                                      {{.function = connected, .result = 0}, start},
                                      {{.function = start, .result = -3}, progress},
                                      {{.function = progress}, "round"},
                                      {{.function = progress, .over = true}, result},
                                      {told, "AppMgr_GetPrinterWifiProgress after 500 ms"},
                                      {{.function = result, .result = -3, .over = true}, exit},
                                      {{.function = exit, .exited = true, .over = true}, "round"},
                                      {{.function = exit, .afterRound = true, .exited = true}, "done"}});
  expectSteps(maybeDeleted(Type::GetWifiList),
              {{{.function = start}, "AppMgr_GetPrinterWifiProgress, AppMgr_GetPrinterWifiExit"},
               {told, "AppMgr_GetPrinterWifiProgress, AppMgr_GetPrinterWifiExit after 500 ms"},
               {{.function = exit, .exited = true}, "round, done"}});
  expectSteps(deleted(Type::GetWifiList), {{{}, connected},
                                           {{.function = connected, .result = 0}, start},
                                           {{.function = start}, exit},
                                           {{.function = progress, .over = true}, result},
                                           {{.function = progress}, "round"},
                                           {told, "AppMgr_GetPrinterWifiExit after 500 ms"},
                                           {{.function = exit, .exited = true}, "done"}});
}

TEST(Operation, SetWifiList) {
  constexpr std::string_view start = "AppMgr_PrinterWifiConfigStart", progress = "AppMgr_PrinterWifiConfigProgress",
                             exit = "AppMgr_PrinterWifiConfigExit";
  const Progress told{.function = progress, .afterRound = true};
  expectSteps(of(Type::SetWifiList), {{{}, start},
                                      {{.function = start, .result = -3}, progress},
                                      {{.function = progress, .result = -3}, "round"},
                                      {{.function = progress, .over = true}, exit},
                                      {told, "AppMgr_PrinterWifiConfigProgress after 500 ms"},
                                      {{.function = exit, .exited = true, .over = true}, "round"},
                                      {{.function = exit, .afterRound = true, .exited = true}, "done"}});
  expectSteps(maybeDeleted(Type::SetWifiList),
              {{{.function = start}, "AppMgr_PrinterWifiConfigProgress, AppMgr_PrinterWifiConfigExit"},
               {told, "AppMgr_PrinterWifiConfigProgress, AppMgr_PrinterWifiConfigExit after 500 ms"},
               {{.function = exit, .exited = true}, "round, done"}});
  expectSteps(deleted(Type::SetWifiList), {{{.function = start}, exit},
                                           {{.function = progress}, "round"},
                                           {told, "AppMgr_PrinterWifiConfigExit after 500 ms"},
                                           {{.function = exit, .exited = true}, "done"}});
}

}  // namespace
}  // namespace soak::test
