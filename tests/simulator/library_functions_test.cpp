#include "Support.h"

namespace simulator::test {
namespace {

using LibraryFunctions = SimulatorTest;

bool addressChanged(qzstd::PrinterInfo info) {
  bool changed = false;
  EXPECT_EQ(AppMgr_CheckIpChange(&info, &changed), success);
  return changed;
}

TEST_F(LibraryFunctions, AddressChangeIsToldOncePerChange) {
  holdTime();
  loadScenarioText(onePrinter("address='1'",
                              "<timeline><at ms='10'><address value='2'/></at><at ms='20'><address value='3'/></at>"
                              "</timeline>"));
  const auto info = newPrinterInfo(L"a");
  EXPECT_FALSE(addressChanged(info));
  advanceTime(10ms);
  EXPECT_TRUE(addressChanged(info));
  EXPECT_FALSE(addressChanged(info));
  advanceTime(10ms);
  EXPECT_TRUE(addressChanged(info));
  EXPECT_FALSE(addressChanged(info));
}

TEST_F(LibraryFunctions, FirstCheckComparesWithTheAddressAtTheLoad) {
  holdTime();
  loadScenarioText(onePrinter("address='1'", "<timeline><at ms='10'><address value='2'/></at></timeline>"));
  advanceTime(10ms);
  EXPECT_TRUE(addressChanged(newPrinterInfo(L"a")));
}

TEST_F(LibraryFunctions, FailedCheckLeavesTheChangeToTheNext) {
  holdTime();
  loadScenarioText(onePrinter("address='1'",
                              "<call function='AppMgr_CheckIpChange'><fail code='-4' call='1'/></call>"
                              "<timeline><at ms='10'><address value='2'/></at></timeline>"));
  advanceTime(10ms);
  auto info = newPrinterInfo(L"a");
  bool changed = true;
  EXPECT_EQ(AppMgr_CheckIpChange(&info, &changed), -4);
  EXPECT_FALSE(changed);
  EXPECT_TRUE(addressChanged(info));
}

TEST_F(LibraryFunctions, PushScanIsAsTheScenarioSays) {
  loadScenarioText(
      "<scenario><printer uid='a' manager-id='ma' connection='usb' push-scan='yes'/>"
      "<printer uid='b' manager-id='mb' connection='usb'/></scenario>");
  auto with = newPrinterInfo(L"a");
  auto without = newPrinterInfo(L"b");
  EXPECT_TRUE(AppPrinterSdk_IsSuppportPushScan(&with));
  EXPECT_FALSE(AppPrinterSdk_IsSuppportPushScan(&without));
}

TEST_F(LibraryFunctions, UnknownPrinterIsAnsweredWithACodeAndRecorded) {
  loadScenarioText(onePrinter("push-scan='yes'"));
  qzstd::PrinterInfo info;
  info.uid = L"ma";
  info.managerId = L"a";
  info.model = L"kept";
  bool changed = true;
  EXPECT_EQ(AppPrinterSdk_GetState(&info), unknownPrinter);
  EXPECT_FALSE(AppPrinterSdk_IsSuppportPushScan(&info));
  EXPECT_EQ(AppMgr_GetPrintingJob(L"a"), unknownPrinter);
  EXPECT_EQ(AppMgr_GetPrintingJob(L""), unknownPrinter);
  EXPECT_EQ(AppMgr_CheckIpChange(&info, &changed), unknownPrinter);
  EXPECT_FALSE(changed);
  EXPECT_EQ(info.model, L"kept");
  ASSERT_EQ(calls().size(), 5u);
  for (const CallRecord& call : calls()) EXPECT_EQ(call.printer, L"");
  EXPECT_EQ(calls()[0].result, unknownPrinter);
  EXPECT_EQ(calls()[1].result, 0);
}

TEST_F(LibraryFunctions, NullPointerIsAnsweredWithACodeAndRecorded) {
  loadScenarioText(onePrinter(""));
  auto info = newPrinterInfo(L"a");
  bool changed = true;
  EXPECT_EQ(AppPrinterSdk_GetState(nullptr), badArgument);
  EXPECT_FALSE(AppPrinterSdk_IsSuppportPushScan(nullptr));
  EXPECT_EQ(AppMgr_GetPrintingJob(nullptr), badArgument);
  EXPECT_EQ(AppMgr_CheckIpChange(nullptr, &changed), badArgument);
  EXPECT_FALSE(changed);
  EXPECT_EQ(AppMgr_CheckIpChange(&info, nullptr), badArgument);
  EXPECT_EQ(calls().size(), 5u);
}

}  // namespace
}  // namespace simulator::test
