#include <limits>

#include "Records.h"
#include "operations/Handlers.h"
#include "operations/OperationTest.h"

namespace {

using AppComm::NetWork;
using AppPrinterSdk::Ipv4Address;
using AppPrinterSdk::NetworkSettings;

class NetworkPrinter : public ScriptedPrinter {
 public:
  using ScriptedPrinter::ScriptedPrinter;

  int result = 0;
  Ipv4Address address{192, 168, 0, 9};  ///< what a get answers
  NetworkSettings* given = nullptr;

  int AppPrinterSdk_GetNetWork(qzstd::PrinterInfo* /*printer*/, NetworkSettings* settings) override {
    given = settings;
    settings->address = address;
    return result;
  }
};

class NetworkTest : public OperationTestWith<NetworkPrinter> {
 protected:
  explicit NetworkTest(const char* function) : OperationTestWith(function) { record->settings.address = {10, 0, 0, 7}; }

  const std::shared_ptr<NetWork> record = std::make_shared<NetWork>();
  const std::shared_ptr<AppComm::Node> current = task(7, record);
};

class GetNetworkTest : public NetworkTest {
 protected:
  GetNetworkTest() : NetworkTest("comm_thread_getNetwork") {}

  int run() { return comm_thread_getNetwork(entryOf({current})); }
};

const Texts kGets{"AppPrinterSdk_GetNetWork(printer-1, [10 0 0 7])", "DBG  notice caller the result of get device network.",
                  "notice 7"};

TEST_F(GetNetworkTest, FillsTheSettingsAndRecordsTheResult) {
  record->result = 99;
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(journal.entries(), kGets);
  EXPECT_EQ(record->result, 0);
  EXPECT_EQ(record->settings.address, (Ipv4Address{192, 168, 0, 9}));
  EXPECT_EQ(libraries.given, &record->settings);
}

TEST_F(GetNetworkTest, AFailureIsRecordedAndNotified) {
  for (const int code : {1, -5, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    libraries.result = code;
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(record->result, code);
    EXPECT_EQ(journal.entries().back(), "notice 7");
  }
}

TEST_F(GetNetworkTest, IsPerformedOnAPrinterThatPrintsOrIsUnsuitableAndLeavesTheFlags) {
  libraries.jobs = 1;
  Texts expected;
  for (const int status : {0, 1, 5, 11}) {
    for (const bool flag : {false, true}) {
      SCOPED_TRACE(testing::Message() << "status " << status << ", flags " << flag);
      printer->deviceStatus = status;
      record->busy = record->statusOne = flag;
      record->settings.address = {10, 0, 0, 7};

      EXPECT_EQ(run(), 0);

      EXPECT_EQ(record->busy, flag);
      EXPECT_EQ(record->statusOne, flag);
      expected.insert(expected.end(), kGets.begin(), kGets.end());
    }
  }
  EXPECT_EQ(journal.entries(), expected);
}

class SetNetworkTest : public NetworkTest {
 protected:
  SetNetworkTest() : NetworkTest("comm_thread_setNetwork") {}
};

TEST_F(SetNetworkTest, ARefusedSetLeavesResultAndSettingsAndNotifies) {
  record->result = 99;
  libraries.jobs = 1;

  EXPECT_EQ(comm_thread_setNetwork(entryOf({current})), 0);

  EXPECT_EQ(journal.entries(), (Texts{kAsksJobs, "DBG  notice caller the result of set device network.", "notice 7"}));
  EXPECT_TRUE(record->busy);
  EXPECT_EQ(record->result, 99);
  EXPECT_EQ(record->settings.address, (Ipv4Address{10, 0, 0, 7}));
}

}  // namespace
