#include <gtest/gtest.h>

#include "OperationRun.h"
#include "Records.h"
#include "console/Demo.h"

namespace {

using AppComm::FirmUp;
using AppComm::State;
using AppComm::Type;
using consoletest::linesOf;
using consoletest::OperationRun;
using examples::Outcome;
using Lines = std::vector<std::wstring>;

TEST(FirmwareRegisterTest, RegistrationTellsItsOwnFlagWithoutANotice) {
  const OperationRun<State> run({L"firmware", L"register"});
  EXPECT_EQ(run.operation->type(), Type::RegUpgrade);
  run.record->pushScanRegistered = true;
  EXPECT_EQ(linesOf(run.operation->report(run.printer)), (Lines{L"c, p: failed: the registration did not succeed"}));
  run.record->upgradeRegistered = true;
  EXPECT_EQ(run.operation->report(run.printer).outcome, Outcome::Succeeded);
}

TEST(FirmwareCheckTest, GoesOnUntilItIsDone) {
  const OperationRun<FirmUp> run({L"firmware", L"check"});
  EXPECT_EQ(run.operation->type(), Type::FirmNewCheck);
  EXPECT_TRUE(run.operation->repeats());
  run.record->ok = true;
  EXPECT_TRUE(run.operation->noticed());
  run.record->done = true;
  EXPECT_FALSE(run.operation->noticed());
  EXPECT_EQ(linesOf(run.operation->report(run.printer)), (Lines{L"new firmware: no", L"c, p: done"}));
  run.record->newFirmware = true;
  run.record->versionText1 = L"1.0";
  run.record->versionText2 = L"2.0";
  EXPECT_EQ(linesOf(run.operation->report(run.printer)),
            (Lines{L"new firmware: yes", L"version text 1: 1.0", L"version text 2: 2.0", L"c, p: done"}));
}

TEST(FirmwareCheckTest, FailedStartIsTheLastStep) {
  const OperationRun<FirmUp> run({L"firmware", L"check"});
  EXPECT_FALSE(run.operation->noticed());
  EXPECT_EQ(linesOf(run.operation->report(run.printer)),
            (Lines{L"c, p: failed: the check did not start: the upgrade service refused it, or did not answer"}));
}

TEST(FirmwareCheckTest, FailedStepIsTheLast) {
  const OperationRun<FirmUp> run({L"firmware", L"check"});
  run.record->ok = true;
  EXPECT_TRUE(run.operation->noticed());
  EXPECT_EQ(linesOf(run.operation->report(run.printer)), (Lines{L"c, p: failed: the check was not finished"}));
  run.record->ok = false;
  EXPECT_FALSE(run.operation->noticed());
  EXPECT_EQ(linesOf(run.operation->report(run.printer)), (Lines{L"c, p: failed: the check broke off"}));
  run.record->done = true;
  EXPECT_FALSE(run.operation->noticed());
  EXPECT_EQ(linesOf(run.operation->report(run.printer)), (Lines{L"c, p: failed: the check ended without a result"}));
}

TEST(FirmwareUpgradeTest, TellsHowFarItIs) {
  const OperationRun<FirmUp> run({L"firmware", L"upgrade", L"C:\\new firmware.bin"});
  EXPECT_EQ(run.operation->type(), Type::FirmUpgrade);
  EXPECT_EQ(run.record->firmware, L"C:\\new firmware.bin");
  run.record->ok = true;
  run.record->percent = 42;
  EXPECT_EQ(run.afterNotice().percent, 42);
  EXPECT_EQ(run.afterNotice().outcome, Outcome::Failed);
  run.record->done = true;
  run.record->percent = 85;
  EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"percent: 85", L"c, p: done"}));
}

TEST(FirmwareUpgradeTest, TransferWithoutAnyProgressMayNotHaveStarted) {
  const OperationRun<FirmUp> run({L"firmware", L"upgrade", L"f"});
  run.record->done = true;
  EXPECT_EQ(linesOf(run.afterNotice()),
            (Lines{L"percent: 0", L"c, p: failed: the transfer could not be started, or broke off at once"}));
}

TEST(FirmwareUpgradeTest, EndBelowACompleteTransferIsNoSuccess) {
  const OperationRun<FirmUp> run({L"firmware", L"upgrade", L"f"});
  run.record->done = true;
  run.record->ok = true;
  for (const auto percent : {0, 42, 83}) {
    run.record->percent = percent;
    EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"percent: " + std::to_wstring(percent),
                                                 L"c, p: failed: the transfer is said to be over, but not to be complete"}));
  }
  for (const auto percent : {84, 85, 100}) {
    run.record->percent = percent;
    EXPECT_EQ(run.afterNotice().outcome, Outcome::Succeeded);
  }
}

TEST(FirmwareUpgradeTest, BrokenTransferIsAFailure) {
  const OperationRun<FirmUp> run({L"firmware", L"upgrade", L"f"});
  run.record->ok = true;
  run.record->percent = 33;
  run.operation->noticed();
  run.record->ok = false;
  run.record->done = true;
  EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"percent: 33", L"c, p: failed: the transfer broke off"}));
}

class FirmwareWatchTest : public testing::Test {
 protected:
  void notice(bool answers) {
    run.record->ok = answers;
    EXPECT_TRUE(run.operation->noticed());
  }

  OperationRun<FirmUp> run{{L"firmware", L"watch"}};
};

TEST_F(FirmwareWatchTest, EndsWhenThePrinterHasBeenAwayAndIsBack) {
  EXPECT_EQ(run.operation->type(), Type::FirmUpCheck);
  notice(true);
  notice(false);
  notice(false);
  EXPECT_FALSE(run.record->done);
  EXPECT_EQ(linesOf(run.operation->report(run.printer)),
            (Lines{L"was away: yes", L"answers: no", L"c, p: failed: the printer does not answer"}));
  run.printer.firmwareVersion = L"2.0";
  notice(true);
  EXPECT_TRUE(run.record->done);
  EXPECT_EQ(linesOf(run.operation->report(run.printer)),
            (Lines{L"was away: yes", L"answers: yes", L"firmware: 2.0", L"c, p: done"}));
}

TEST_F(FirmwareWatchTest, TheLimitIsAnEndToo) {
  notice(true);
  EXPECT_TRUE(run.operation->endsAtLimit());
  EXPECT_FALSE(run.record->done);
  run.operation->end();
  EXPECT_TRUE(run.record->done);
  EXPECT_EQ(linesOf(run.operation->report(run.printer)),
            (Lines{L"was away: no", L"answers: yes", L"firmware: -", L"c, p: done"}));
}

TEST_F(FirmwareWatchTest, IsTheOnlyOneWhoseLimitIsAnEnd) {
  for (const auto& step : examples::demoSteps()) {
    const auto options = examples::parseOptions(step.arguments);
    if (!examples::isOperation(*options.command)) continue;
    EXPECT_EQ(options.command->newOperation(options.request)->endsAtLimit(),
              options.command->words == std::wstring(L"firmware watch"))
        << testing::PrintToString(step.arguments);
  }
}

}  // namespace
