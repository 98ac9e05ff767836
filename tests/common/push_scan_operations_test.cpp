#include <gtest/gtest.h>

#include "OperationRun.h"
#include "Records.h"

namespace {

using AppComm::State;
using AppComm::Type;
using AppPrinterSdk::PushScanPara;
using consoletest::linesOf;
using consoletest::OperationRun;
using examples::Outcome;
using Lines = std::vector<std::wstring>;

TEST(PushScanOperationTest, RegistrationTellsItsOwnFlagWithoutANotice) {
  const OperationRun<State> run({L"pushscan", L"register"});
  EXPECT_EQ(run.operation->type(), Type::RegPushscan);
  run.record->upgradeRegistered = true;
  EXPECT_EQ(linesOf(run.operation->report(run.printer)), (Lines{L"c, p: failed: the registration did not succeed"}));
  run.record->pushScanRegistered = true;
  EXPECT_EQ(run.operation->report(run.printer).outcome, Outcome::Succeeded);
}

TEST(PushScanOperationTest, NoticeIsTheSuccess) {
  const OperationRun<PushScanPara> run({L"pushscan", L"get"});
  EXPECT_EQ(run.operation->type(), Type::GetPushscan);
  EXPECT_EQ(linesOf(run.operation->report(run.printer)),
            (Lines{L"c, p: failed: it did not succeed: the printer did not answer, or does not support it"}));
  *run.record = {300, 2, 1, 0};
  EXPECT_EQ(linesOf(run.afterNotice()),
            (Lines{L"resolution: 300", L"color mode: 2", L"file format: 1", L"paper size: 0", L"c, p: done"}));
}

}  // namespace
