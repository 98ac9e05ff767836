#include <limits>

#include "operations/DeviceParameterTest.h"
#include "operations/Handlers.h"

namespace {

constexpr const char* kAsksSupport = "AppPrinterSdk_IsSuppportSuppliesAlarm(printer-1)";
constexpr const char* kReadsAlarm = "AppPrinterSdk_GetSuppliesAlarm(printer-1, 1)";

class GetAlarmTest : public OperationTestWith<ParameterPrinter> {
 protected:
  GetAlarmTest() : OperationTestWith("comm_thread_getAlarm") { printer->suppliesAlarmState = 42; }

  int run(std::any resource = {}) { return comm_thread_getAlarm(entryOf({task(7, std::move(resource))})); }

  ParameterPrinter::Reading& alarm = libraries.readings[kSupplyAlarm];
};

TEST_F(GetAlarmTest, PrinterWithoutTheAlarmIsAt160AndIsNotRead) {
  libraries.hasSuppliesAlarm = false;
  alarm = {-3, 0};

  EXPECT_EQ(run(), 0);

  EXPECT_EQ(printer->suppliesAlarmState, 160);
  EXPECT_EQ(journal.entries(), Texts{kAsksSupport});
}

TEST_F(GetAlarmTest, AnAlarmOfZeroIs165AndAnyOther160) {
  struct Row {
    std::optional<int> written;
    const char* line;
    std::int32_t state;
  };
  const Row rows[] = {
      {0, "DBG get supply alarm result: 0, alarm: 0", 165},
      {1, "DBG get supply alarm result: 0, alarm: 1", 160},
      {2, "DBG get supply alarm result: 0, alarm: 2", 160},
      {255, "DBG get supply alarm result: 0, alarm: 255", 160},
      {std::nullopt, "DBG get supply alarm result: 0, alarm: 1", 160},
  };
  Texts expected;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.line);
    alarm = {0, row.written};
    for (const std::int32_t before : {42, 160, 165}) {
      printer->suppliesAlarmState = before;
      EXPECT_EQ(run(), 0);
      EXPECT_EQ(printer->suppliesAlarmState, row.state);
      expected.insert(expected.end(), {kAsksSupport, kReadsAlarm, row.line});
    }
  }
  EXPECT_EQ(journal.entries(), expected);
}

TEST_F(GetAlarmTest, AFailedReadGivesItsCodeAndLeavesTheState) {
  for (const int code : {1, -1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    for (const int left : {0, 1}) {
      for (const std::int32_t before : {42, 160, 165}) {
        SCOPED_TRACE(testing::Message() << "code " << code << ", alarm " << left << ", before " << before);
        alarm = {code, left};
        printer->suppliesAlarmState = before;

        EXPECT_EQ(run(), code);

        EXPECT_EQ(printer->suppliesAlarmState, before);
        EXPECT_EQ(journal.entries().back(),
                  "DBG get supply alarm result: " + std::to_string(code) + ", alarm: " + std::to_string(left));
      }
    }
  }
}

TEST_F(GetAlarmTest, TheStateIsWrittenAfterTheRead) {
  alarm.value = 0;
  std::int32_t during = 0;
  libraries.whileReadingOne = [&](Parameter) { during = printer->suppliesAlarmState; };
  run();
  EXPECT_EQ(during, 42);
}

TEST_F(GetAlarmTest, LooksAtNoResourceAndReadsIntoNoRecord) {
  const auto record = std::make_shared<AppComm::DevParam>();
  record->supplyAlarm = 9;
  alarm.value = 0;
  Texts expected;
  for (const auto& resource : {std::any(), std::any(record), std::any(5), std::any(std::make_shared<AppComm::State>())}) {
    printer->suppliesAlarmState = 42;
    EXPECT_EQ(run(resource), 0);
    EXPECT_EQ(printer->suppliesAlarmState, 165);
    expected.insert(expected.end(), {kAsksSupport, kReadsAlarm, "DBG get supply alarm result: 0, alarm: 0"});
  }
  EXPECT_EQ(journal.entries(), expected);
  EXPECT_EQ(record->supplyAlarm, 9);
  EXPECT_FALSE(record->supplyAlarmOk);
}

TEST_F(GetAlarmTest, NeedsNoWindow) {
  alarm.value = 0;
  EXPECT_EQ(comm_thread_getAlarm(entryOf({AppComm::Node::Instance(printer, nullptr, 7, AppComm::Type::GetAlarm)})), 0);
  EXPECT_EQ(printer->suppliesAlarmState, 165);
}

TEST_F(GetAlarmTest, AsksAPrinterThatPrints) {
  libraries.jobs = 1;
  printer->deviceStatus = 5;
  run();
  EXPECT_EQ(libraries.calls(), (Texts{kAsksSupport, kReadsAlarm}));
}

}  // namespace
