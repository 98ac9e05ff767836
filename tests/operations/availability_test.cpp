#include "operations/Availability.h"

#include <optional>

#include "operations/OperationTest.h"

namespace {

class AvailabilityTest : public OperationTest {
 protected:
  AvailabilityTest() : OperationTest("none") {}
};

TEST_F(AvailabilityTest, FollowsJobsAndDeviceStatus) {
  struct Row {
    int status;
    int jobs;
    bool busy;
    std::optional<bool> statusOne;  // none: kept as the caller set it
    bool accepted;
  };
  const Row rows[] = {
      {0, 0, false, false, true},  {1, 0, false, true, false},  {2, 0, true, false, false},  {5, 0, true, false, false},
      {10, 0, true, false, false}, {11, 0, false, false, true}, {12, 0, true, false, false}, {-1, 0, true, false, false},
      {0, -1, false, false, true}, {1, -1, false, true, false}, {5, -2, true, false, false}, {11, -1, false, false, true},
      {0, 1, true, {}, false},     {1, 1, true, {}, false},     {5, 3, true, {}, false},     {11, 1, true, {}, false},
  };
  for (const auto& row : rows) {
    for (const bool busyBefore : {false, true}) {
      for (const bool statusOneBefore : {false, true}) {
        SCOPED_TRACE(testing::Message() << "status " << row.status << ", jobs " << row.jobs << ", before: busy " << busyBefore
                                        << ", statusOne " << statusOneBefore);
        printer->deviceStatus = row.status;
        libraries.jobs = row.jobs;
        bool busy = busyBefore;
        bool statusOne = statusOneBefore;

        const bool accepted = operations::acceptsChange(*printer, busy, statusOne);

        EXPECT_EQ(accepted, row.accepted);
        EXPECT_EQ(busy, row.busy);
        EXPECT_EQ(statusOne, row.statusOne.value_or(statusOneBefore));
      }
    }
  }
}

TEST_F(AvailabilityTest, AsksForTheJobsOfThePrinterAndNothingElse) {
  bool busy = false;
  bool statusOne = false;
  operations::acceptsChange(*printer, busy, statusOne);
  EXPECT_EQ(libraries.calls(), std::vector<std::string>{R"(AppMgr_GetPrintingJob("manager-id"))"});
}

TEST_F(AvailabilityTest, GoesByTheDeviceStatusFromBeforeTheJobsWereAsked) {
  printer->deviceStatus = 1;
  libraries.whileAskingJobs = [&] { printer->deviceStatus = 0; };
  bool busy = false;
  bool statusOne = false;

  EXPECT_FALSE(operations::acceptsChange(*printer, busy, statusOne));
  EXPECT_TRUE(statusOne);
}

}  // namespace
