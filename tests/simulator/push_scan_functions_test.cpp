#include <limits>

#include "Support.h"

namespace simulator::test {
namespace {

class PushScanFunctions : public SimulatorTest {
 protected:
  void load(const std::string& attributes, const std::string& children = "") {
    loadScenarioText(onePrinter(attributes, children));
    info = newPrinterInfo(L"a");
  }

  /// The four values, or the code of a failure alone.
  std::vector<int> parameters() {
    AppPrinterSdk::PushScanPara read{-1, -1, -1, -1};
    const int code = AppPrinterSdk_GetPushScanPara(&info, &read);
    if (code != success) {
      EXPECT_EQ(read.resolution, -1);
      return {code};
    }
    return {read.resolution, read.colorMode, read.fileFormat, read.paperSize};
  }

  qzstd::PrinterInfo info;
};

TEST_F(PushScanFunctions, SupportIsAsTheScenarioSays) {
  load("push-scan='yes'");
  EXPECT_TRUE(AppPrinterSdk_IsSuppportPushScan(&info));
  load("");
  EXPECT_FALSE(AppPrinterSdk_IsSuppportPushScan(&info));
}

TEST_F(PushScanFunctions, RegistrationIsKept) {
  load("push-scan='yes'");
  EXPECT_FALSE(contents(L"a").pushScanRegistered);
  EXPECT_EQ(AppPrinterSdk_RegisterPushScanUSB(&info), success);
  EXPECT_TRUE(contents(L"a").pushScanRegistered);
}

TEST_F(PushScanFunctions, PrinterWithoutItRefuses) {
  load("", "<push-scan resolution='600'/>");
  EXPECT_EQ(AppPrinterSdk_RegisterPushScanUSB(&info), notSupported);
  EXPECT_EQ(parameters(), std::vector{notSupported});
  EXPECT_FALSE(contents(L"a").pushScanRegistered);
}

TEST_F(PushScanFunctions, ParametersAreAsTheScenarioSays) {
  load("push-scan='yes'");
  EXPECT_EQ(parameters(), (std::vector{300, 2, 0, 0}));
  load("push-scan='yes'", "<push-scan resolution='600' color-mode='-1' file-format='2' paper-size='1'/>");
  EXPECT_EQ(parameters(), (std::vector{600, -1, 2, 1}));
}

TEST_F(PushScanFunctions, FailedCallsDoNothing) {
  load("push-scan='yes'", callOf("AppPrinterSdk_RegisterPushScanUSB", "<fail code='3'/>") +
                              callOf("AppPrinterSdk_GetPushScanPara", "<fail code='4'/>"));
  EXPECT_EQ(AppPrinterSdk_RegisterPushScanUSB(&info), 3);
  EXPECT_EQ(parameters(), std::vector{4});
  EXPECT_FALSE(contents(L"a").pushScanRegistered);
}

TEST_F(PushScanFunctions, GarbageSaysSuccessAlsoWithoutSupport) {
  load("", callOf("AppPrinterSdk_RegisterPushScanUSB", "<garbage/>") + callOf("AppPrinterSdk_GetPushScanPara", "<garbage/>"));
  EXPECT_EQ(AppPrinterSdk_RegisterPushScanUSB(&info), success);
  EXPECT_FALSE(contents(L"a").pushScanRegistered);
  using Int32 = std::numeric_limits<std::int32_t>;
  EXPECT_EQ(parameters(), (std::vector{Int32::min(), Int32::max(), -1, Int32::min()}));
}

}  // namespace
}  // namespace simulator::test
