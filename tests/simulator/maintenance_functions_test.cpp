#include "Support.h"

namespace simulator::test {
namespace {

class MaintenanceFunctions : public SimulatorTest {
 protected:
  void load(const std::string& attributes, const std::string& children = "") {
    holdTime();
    loadScenarioText(onePrinter(attributes, children));
    info = newPrinterInfo(L"a");
  }

  bool print(const std::wstring& image) {
    AppComm::QRCode record;
    record.image = image;
    return AppSdk_PrintBmp(L"ma", &record);
  }

  qzstd::PrinterInfo info;
};

TEST_F(MaintenanceFunctions, PageIsOneMoreJobForItsTime) {
  load("jobs='2' page-time='500'");
  EXPECT_EQ(AppPrinterSdk_SetAlignPage(&info), success);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 3);
  advanceTime(499ms);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 3);
  advanceTime(1ms);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 2);
  EXPECT_EQ(contents(L"a").alignmentPages, 1u);
}

TEST_F(MaintenanceFunctions, EachPageAndImageIsAJobOfItsOwn) {
  load("page-time='500'");
  EXPECT_EQ(AppPrinterSdk_SetAlignPage(&info), success);
  advanceTime(300ms);
  EXPECT_TRUE(print(L"x"));
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 2);
  advanceTime(200ms);
  EXPECT_EQ(AppPrinterSdk_SetAlignPage(&info), success);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 2);
  advanceTime(300ms);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 1);
  advanceTime(200ms);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 0);
}

TEST_F(MaintenanceFunctions, PageTakesNoTimeByDefault) {
  load("");
  EXPECT_EQ(AppPrinterSdk_SetAlignPage(&info), success);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 0);
}

TEST_F(MaintenanceFunctions, ImagesAreKeptInTheirOrder) {
  load("");
  EXPECT_TRUE(print(L"one"));
  EXPECT_TRUE(print(L"two %s"));
  EXPECT_EQ(contents(L"a").images, (std::vector<std::wstring>{L"one", L"two %s"}));
}

TEST_F(MaintenanceFunctions, OldestImagesLeave) {
  load("");
  for (std::size_t i = 0; i <= imageCapacity; ++i) EXPECT_TRUE(print(std::to_wstring(i)));
  const auto images = contents(L"a").images;
  ASSERT_EQ(images.size(), imageCapacity);
  EXPECT_EQ(images.front(), L"1");
  EXPECT_EQ(images.back(), std::to_wstring(imageCapacity));
}

TEST_F(MaintenanceFunctions, CleaningShowsInTheStatusForItsTime) {
  load("status='11' clean-time='800'", "<timeline><at ms='400'><status value='5'/></at></timeline>");
  EXPECT_EQ(AppPrinterSdk_SetClean(&info), success);
  EXPECT_EQ(stateOf(L"a").deviceStatus, 3);
  advanceTime(799ms);
  EXPECT_EQ(stateOf(L"a").deviceStatus, 3);
  advanceTime(1ms);
  EXPECT_EQ(stateOf(L"a").deviceStatus, 5);
  EXPECT_EQ(contents(L"a").cleanings, 1u);
}

TEST_F(MaintenanceFunctions, CleaningTakesNoTimeByDefault) {
  load("status='11'");
  EXPECT_EQ(AppPrinterSdk_SetClean(&info), success);
  EXPECT_EQ(stateOf(L"a").deviceStatus, 11);
}

TEST_F(MaintenanceFunctions, AlignmentIsAsTheScenarioSaysUntilItIsSet) {
  load("", "<alignment values='0 -1 2147483647 -2147483648 4 5'/>");
  EXPECT_EQ(contents(L"a").alignment.corrections, (std::array<std::int32_t, 6>{0, -1, 2147483647, -2147483647 - 1, 4, 5}));
  AppComm::SetAdjust record;
  record.values.corrections = {6, 5, 4, 3, 2, 1};
  EXPECT_EQ(AppPrinterSdk_SetAlignCmd(&info, &record), success);
  EXPECT_EQ(contents(L"a").alignment.corrections, record.values.corrections);
}

TEST_F(MaintenanceFunctions, FailedCallsDoNothing) {
  load("page-time='500' clean-time='500'",
       callOf("AppPrinterSdk_SetAlignPage", "<fail code='1'/>") + callOf("AppPrinterSdk_SetClean", "<fail code='2'/>") +
           callOf("AppPrinterSdk_SetAlignCmd", "<fail code='3'/>") + callOf("AppSdk_PrintBmp", "<fail/>"));
  AppComm::SetAdjust record;
  record.values.corrections = {6, 5, 4, 3, 2, 1};
  EXPECT_EQ(AppPrinterSdk_SetAlignPage(&info), 1);
  EXPECT_EQ(AppPrinterSdk_SetClean(&info), 2);
  EXPECT_EQ(AppPrinterSdk_SetAlignCmd(&info, &record), 3);
  EXPECT_FALSE(print(L"x"));
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 0);
  EXPECT_EQ(stateOf(L"a").deviceStatus, 0);
  const PrinterContents after = contents(L"a");
  EXPECT_EQ(after.alignmentPages + after.cleanings + after.images.size(), 0u);
  EXPECT_EQ(after.alignment.corrections, (std::array<std::int32_t, 6>{}));
}

TEST_F(MaintenanceFunctions, GarbageSaysSuccessAndDoesNothing) {
  load("page-time='500' clean-time='500'", callOf("AppPrinterSdk_SetAlignPage", "<garbage/>") +
                                               callOf("AppPrinterSdk_SetClean", "<garbage/>") +
                                               callOf("AppPrinterSdk_SetAlignCmd", "<garbage/>"));
  AppComm::SetAdjust record;
  record.values.corrections = {6, 5, 4, 3, 2, 1};
  EXPECT_EQ(AppPrinterSdk_SetAlignPage(&info), success);
  EXPECT_EQ(AppPrinterSdk_SetClean(&info), success);
  EXPECT_EQ(AppPrinterSdk_SetAlignCmd(&info, &record), success);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 0);
  EXPECT_EQ(stateOf(L"a").deviceStatus, 0);
  EXPECT_EQ(contents(L"a").alignmentPages + contents(L"a").cleanings, 0u);
  EXPECT_EQ(contents(L"a").alignment.corrections, (std::array<std::int32_t, 6>{}));
}

TEST_F(MaintenanceFunctions, GarbagePrintsTheImageAndDeniesIt) {
  load("", callOf("AppSdk_PrintBmp", "<garbage/>"));
  EXPECT_FALSE(print(L"x"));
  EXPECT_EQ(contents(L"a").images, std::vector<std::wstring>{L"x"});
}

}  // namespace
}  // namespace simulator::test
