#include "Records.h"
#include "operations/Handlers.h"
#include "operations/OperationTest.h"

namespace {

using AppComm::QRCode;

class ImagePrinter : public ScriptedPrinter {
 public:
  using ScriptedPrinter::ScriptedPrinter;

  bool printed = true;

  bool AppSdk_PrintBmp(const wchar_t* /*managerId*/, QRCode* /*record*/) override { return printed; }
};

class PrintQRcodeTest : public OperationTestWith<ImagePrinter> {
 protected:
  PrintQRcodeTest() : OperationTestWith("comm_thread_printQRcode") { record->image = L"an image"; }

  int run() { return comm_thread_printQRcode(entryOf({task(7, record)})); }

  const std::shared_ptr<QRCode> record = std::make_shared<QRCode>();
};

constexpr const char* kPrints = R"(AppSdk_PrintBmp("manager-id", "an image"))";
constexpr const char* kNoticeLine = "DBG  notice caller the result of print qrcode.";

TEST_F(PrintQRcodeTest, PrintFailedIsZeroWhenTheLibraryPrintedAndOneWhenNot) {
  for (const std::int32_t before : {0, 1, 99}) {
    record->printFailed = before;
    libraries.printed = true;
    run();
    EXPECT_EQ(record->printFailed, 0);

    record->printFailed = before;
    libraries.printed = false;
    run();
    EXPECT_EQ(record->printFailed, 1);
  }
}

TEST_F(PrintQRcodeTest, GoesByTheManagersNameForThePrinterAndNotItsUid) {
  printer->managerId = L"office-2";
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(libraries.calls(), (Texts{R"(AppMgr_GetPrintingJob("office-2"))", R"(AppSdk_PrintBmp("office-2", "an image"))"}));
}

TEST_F(PrintQRcodeTest, PrintsAtEveryStatusButOne) {
  Texts expected;
  for (const int status : {-1, 0, 2, 5, 10, 11, 12, 1000}) {
    printer->deviceStatus = status;
    record->busy = record->statusOne = true;

    EXPECT_EQ(run(), 0);

    EXPECT_FALSE(record->busy || record->statusOne) << status;
    expected.insert(expected.end(), {kAsksJobs, kPrints, kNoticeLine, "notice 7"});
  }
  EXPECT_EQ(journal.entries(), expected);
}

}  // namespace
