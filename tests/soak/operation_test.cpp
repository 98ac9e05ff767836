#include "model/Operation.h"

#include <gtest/gtest.h>

namespace soak::test {
namespace {

Surroundings of(Type type) { return {.printer = {}, .task = {.type = type, .selected = {true}}}; }

struct First {
  Type type;
  std::string_view call;
};

TEST(Operation, BeginsWithTheCallOfItsContract) {
  constexpr First firsts[] = {{Type::State, "AppMgr_GetPrintingJob"},
                              {Type::GetAlarm, "AppPrinterSdk_IsSuppportSuppliesAlarm"},
                              {Type::GetDevParam, "AppPrinterSdk_GetSleepTime"},
                              {Type::SetSupplyAlarm, "AppMgr_GetPrintingJob"},
                              {Type::SetSleepTime, "AppMgr_GetPrintingJob"},
                              {Type::SetPaperAlarm, "AppMgr_GetPrintingJob"},
                              {Type::SetSilentMode, "AppMgr_GetPrintingJob"},
                              {Type::SetTimedClear, "AppMgr_GetPrintingJob"},
                              {Type::GetPushscan, "AppPrinterSdk_GetPushScanPara"},
                              {Type::RegPushscan, "AppPrinterSdk_RegisterPushScanUSB"},
                              {Type::RegUpgrade, "AppSdk_SetPrinterUpgradeInfo"},
                              {Type::PrintAdjust, "AppMgr_GetPrintingJob"},
                              {Type::PrintClean, "AppMgr_GetPrintingJob"},
                              {Type::PrintQRcode, "AppMgr_GetPrintingJob"},
                              {Type::GetNetwork, "AppPrinterSdk_GetNetWork"},
                              {Type::SetNetwork, "AppMgr_GetPrintingJob"},
                              {Type::SetAdjust, "AppMgr_GetPrintingJob"},
                              {Type::FirmNewCheck, "AppSdk_TriggerFwUpgradeStart"},
                              {Type::FirmUpgrade, "AppPrinterSdk_UpgradeFwStart"},
                              {Type::FirmUpCheck, "AppPrinterSdk_GetState"},
                              {Type::GetWifiList, "AppPrinterSdk_IsNetConnected"},
                              {Type::SetWifiList, "AppMgr_PrinterWifiConfigStart"}};
  for (const First& first : firsts) {
    const Surroundings in = of(first.type);
    const Next next = nextOf({.record = newRecord(in.task)}, in);
    EXPECT_TRUE(next.calling(first.call)) << nameOf(first.type);
    EXPECT_FALSE(next.done) << nameOf(first.type);
  }
}

TEST(Operation, OfARecordOfAnotherTypeOnlyLooksAtIt) {
  Surroundings in = of(Type::SetNetwork);
  in.task.wrongRecord = true;
  EXPECT_TRUE(nextOf({}, in).ownRecord);
  EXPECT_FALSE(nextOf({}, in).calling("AppMgr_GetPrintingJob"));
  EXPECT_TRUE(nextOf({.refused = true}, in).done);
}

TEST(Operation, ThatChangesThePrinterIsOnlySentWhereTheContractLetsIt) {
  struct Case {
    Type type;
    std::int32_t jobs;
    std::int32_t status;
    bool sent;
  };
  constexpr Case cases[] = {{Type::PrintClean, 0, 0, true},  {Type::PrintClean, 0, 11, true}, {Type::PrintClean, 0, 1, false},
                            {Type::PrintClean, 0, 5, false}, {Type::PrintClean, 1, 0, false}, {Type::PrintClean, -1, 0, true},
                            {Type::PrintQRcode, 0, 5, true}, {Type::PrintQRcode, 0, 1, false}};
  for (const Case& one : cases) {
    Surroundings in = of(one.type);
    in.task.status = one.status;
    const Next next = nextOf({.function = "AppMgr_GetPrintingJob", .result = one.jobs, .jobs = one.jobs}, in);
    EXPECT_EQ(next.round, !one.sent) << nameOf(one.type) << " " << one.jobs << " " << one.status;
    EXPECT_EQ(next.calling(one.type == Type::PrintClean ? "AppPrinterSdk_SetClean" : "AppSdk_PrintBmp"), one.sent);
  }
}

struct StateCase {
  PrinterTraits printer;
  std::int32_t jobs;
  Progress::Npa npa;
  bool read;
};

TEST(Operation, StateIsReadWhereTheContractWantsIt) {
  using Npa = Progress::Npa;
  constexpr StateCase cases[] = {{{.network = true}, 0, Npa::no, false},
                                 {{.network = true}, 0, Npa::yes, true},
                                 {{.network = true}, 2, Npa::no, true},
                                 {{.ctrlPort = true}, 1, Npa::no, true},
                                 {{}, 1, Npa::yes, false},
                                 {{}, 0, Npa::yes, true},
                                 {{.ctrlPort = true}, -1, Npa::no, true}};
  for (const StateCase& one : cases) {
    Surroundings in = of(Type::State);
    in.printer = one.printer;
    const std::string_view last = one.printer.network ? "AppMgr_CheckIpChange" : "AppMgr_GetPrintingJob";
    const Next next = nextOf({.function = last, .jobs = one.jobs, .npa = one.npa}, in);
    EXPECT_EQ(next.calling("AppPrinterSdk_GetState"), one.read) << one.printer.network << one.printer.ctrlPort << one.jobs;
    EXPECT_EQ(next.round, !one.read);
  }
}

TEST(Operation, OfALongJobEndsWithAnExitAndALastNotice) {
  const Next over = nextOf({.function = "AppMgr_GetPrinterWifiExit", .exited = true}, of(Type::GetWifiList));
  EXPECT_TRUE(over.round);
  EXPECT_FALSE(over.done);
  Surroundings deleted = of(Type::GetWifiList);
  deleted.isDeleted = deleted.mayBeDeleted = true;
  const Next silent = nextOf({.function = "AppMgr_GetPrinterWifiExit", .exited = true}, deleted);
  EXPECT_FALSE(silent.round);
  EXPECT_TRUE(silent.done);
}

}  // namespace
}  // namespace soak::test
