#include "Support.h"

namespace simulator::test {
namespace {

using StateFunctions = SimulatorTest;

bool addressChanged(qzstd::PrinterInfo info) {
  bool changed = false;
  EXPECT_EQ(AppMgr_CheckIpChange(&info, &changed), success);
  return changed;
}

TEST_F(StateFunctions, AddressChangeIsToldOncePerChange) {
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

TEST_F(StateFunctions, FirstCheckComparesWithTheAddressAtTheLoad) {
  holdTime();
  loadScenarioText(onePrinter("address='1'", "<timeline><at ms='10'><address value='2'/></at></timeline>"));
  advanceTime(10ms);
  EXPECT_TRUE(addressChanged(newPrinterInfo(L"a")));
}

TEST_F(StateFunctions, FailedCheckLeavesTheChangeToTheNext) {
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

TEST_F(StateFunctions, RefusedCallsWriteNothingButNotChanged) {
  loadScenarioText(onePrinter(""));
  qzstd::PrinterInfo info;
  info.uid = L"ma";
  info.managerId = L"a";
  info.model = L"kept";
  bool changed = true;
  EXPECT_EQ(AppPrinterSdk_GetState(&info), unknownPrinter);
  EXPECT_EQ(info.model, L"kept");
  EXPECT_EQ(AppMgr_CheckIpChange(&info, &changed), unknownPrinter);
  EXPECT_FALSE(changed);
  changed = true;
  EXPECT_EQ(AppMgr_CheckIpChange(nullptr, &changed), badArgument);
  EXPECT_FALSE(changed);
}

}  // namespace
}  // namespace simulator::test
