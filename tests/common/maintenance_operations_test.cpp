#include <gtest/gtest.h>

#include "OperationRun.h"
#include "Records.h"

namespace {

using AppComm::Maintain;
using AppComm::QRCode;
using AppComm::SetAdjust;
using AppComm::Type;
using consoletest::linesOf;
using consoletest::OperationRun;
using examples::Outcome;
using Lines = std::vector<std::wstring>;
using Words = std::vector<std::wstring>;

TEST(MaintenanceOperationTest, PrintingAndCleaningTellTheirResult) {
  const std::pair<Words, Type> cases[] = {{{L"align", L"print"}, Type::PrintAdjust}, {{L"clean"}, Type::PrintClean}};
  for (const auto& [words, type] : cases) {
    const OperationRun<Maintain> run(words);
    EXPECT_EQ(run.operation->type(), type);
    EXPECT_NE(run.operation->preliminary().operation, nullptr);
    EXPECT_EQ(run.afterNotice().outcome, Outcome::Succeeded);
    run.record->result = -5;
    EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"c, p: failed: the printer library answered -5"}));
    run.record->busy = true;
    EXPECT_EQ(run.afterNotice().outcome, Outcome::Refused);
  }
}

TEST(MaintenanceOperationTest, AlignmentValuesAreSentInOrder) {
  const OperationRun<SetAdjust> run({L"align", L"values", L"1", L"-2", L"3", L"2147483647", L"-2147483648", L"6"});
  EXPECT_EQ(run.operation->type(), Type::SetAdjust);
  EXPECT_EQ(run.record->values.corrections, (std::array<std::int32_t, 6>{1, -2, 3, INT32_MAX, INT32_MIN, 6}));
  EXPECT_EQ(run.afterNotice().outcome, Outcome::Succeeded);
  run.record->statusOne = true;
  EXPECT_EQ(run.afterNotice().outcome, Outcome::Refused);
}

TEST(MaintenanceOperationTest, BadAlignmentValueIsNamed) {
  try {
    examples::parseOptions({L"align", L"values", L"1", L"2", L"x", L"4", L"5", L"6"});
    FAIL() << "taken";
  } catch (const examples::OptionsError& error) {
    EXPECT_STREQ(error.what(), "N3 is \"x\"; it takes a whole number from -2147483648 to 2147483647");
  }
}

TEST(MaintenanceOperationTest, QrCodeTakesItsTextAsItIs) {
  const OperationRun<QRCode> run({L"qr", L"\u5370 %s"});
  EXPECT_EQ(run.operation->type(), Type::PrintQRcode);
  EXPECT_EQ(run.record->image, L"\u5370 %s");
  EXPECT_EQ(run.afterNotice().outcome, Outcome::Succeeded);
  run.record->printFailed = 1;
  EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"c, p: failed: the image was sent and not printed"}));
  run.record->busy = true;
  EXPECT_EQ(run.afterNotice().outcome, Outcome::Refused);
}

}  // namespace
