#include <limits>

#include "operations/FirmwareTest.h"

namespace {

using AppComm::FirmUp;

constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
constexpr auto kGreatest = std::numeric_limits<std::int32_t>::max();

const Texts kStart = {R"(AppPrinterSdk_UpgradeFwStart(printer-1, "firmware"))"};
constexpr const char* kAsksProgress = "AppPrinterSdk_UpgradeFwProgress(0, 0)";
const Texts kExit = {"AppPrinterSdk_UpgradeFwExit()"};
const Texts kNotice = {"notice 7"};

class FirmwareTransferTest : public FirmwareTest {
 protected:
  FirmwareTransferTest() : FirmwareTest("comm_thread_firmUpgrade", comm_thread_firmUpgrade) { record->firmware = L"firmware"; }

  static std::string progressLine(std::int32_t current, std::int32_t total) {
    return filled("DBG firmware upgrade progress: %d %d", {current, total});
  }
  static Texts goodPoll(std::int32_t current, std::int32_t total) {
    return {kAsksProgress, progressLine(current, total), "notice 7", "sleep 100000 us"};
  }
  static Texts failedPoll(std::int32_t current, std::int32_t total) { return {kAsksProgress, progressLine(current, total)}; }

  // A run whose one report is `report`, and a failed poll after it.
  Texts runReporting(std::int32_t sent, std::int32_t total) {
    libraries.progress = {{0, sent, total}, {-1, 0, 0}};
    return run();
  }
};

TEST_F(FirmwareTransferTest, CompleteTransferNotifiesItsLastProgressAndThenTheEnd) {
  libraries.progress = {{0, 0, 100}, {0, 50, 100}, {0, 100, 100}};
  EXPECT_EQ(run(), (WholeRun{{kStart, goodPoll(0, 100), goodPoll(50, 100), goodPoll(100, 100)}, kExit, kNotice}.entries()));
  EXPECT_EQ(shownFlags(*record), "done ok 85");
  EXPECT_TRUE(current->getUpdate());
  EXPECT_FALSE(current->getDelete());
}

TEST_F(FirmwareTransferTest, FlagsAndPercentAreInTheRecordBeforeEachNotice) {
  libraries.progress = {{0, 50, 100}, {0, 0, 100}, {0, 100, 100}};
  EXPECT_EQ(seen(shownFlags), (Texts{kStart[0] + ": 0", std::string(kAsksProgress) + ": 0", "notice 7: ok 42", "sleep: ok 42",
                                     std::string(kAsksProgress) + ": ok 42", "notice 7: ok 0", "sleep: ok 0",
                                     std::string(kAsksProgress) + ": ok 0", "notice 7: done ok 85", "sleep: done ok 85",
                                     kExit[0] + ": done ok 85", "notice 7: done ok 85"}));
}

TEST_F(FirmwareTransferTest, ResultOfTheStartIsIgnored) {
  for (const int result : {-1, 0, 1}) {
    SCOPED_TRACE(result);
    renew();
    record->firmware = L"firmware";
    libraries.startResult = result;
    libraries.progress = {{0, 1, 1}};
    EXPECT_EQ(run(), (WholeRun{{kStart, goodPoll(1, 1)}, kExit, kNotice}.entries()));
    EXPECT_TRUE(record->ok);
  }
}

TEST_F(FirmwareTransferTest, NamesTheFirmwareByTheAddressOfTheRecordsOwnText) {
  libraries.progress = {{0, 1, 1}};
  run();
  EXPECT_EQ(libraries.firmware, &record->firmware);
}

TEST_F(FirmwareTransferTest, NothingIsClearedSoADoneRecordIsOverWithoutAPoll) {
  record->done = true;
  record->ok = true;
  record->percent = 33;
  EXPECT_EQ(run(), (WholeRun{{kStart}, kExit, kNotice}.entries()));
  EXPECT_EQ(shownFlags(*record), "done ok 33");
}

TEST_F(FirmwareTransferTest, FailedPollEndsTheTransferWithoutAProgressNotice) {
  for (const int result : {-3, 1}) {
    SCOPED_TRACE(result);
    renew();
    record->firmware = L"firmware";
    libraries.progress = {{0, 50, 100}, {result, 60, 100}};
    EXPECT_EQ(run(), (WholeRun{{kStart, goodPoll(50, 100), failedPoll(60, 100)}, kExit, kNotice}.entries()));
    EXPECT_EQ(shownFlags(*record), "done 42");
  }
}

TEST_F(FirmwareTransferTest, FailedFirstPollNotifiesOnceOfTheEnd) {
  record->ok = true;
  record->percent = 7;
  libraries.progress = {{-1, 0, 0}};
  EXPECT_EQ(run(), (WholeRun{{kStart, failedPoll(0, 0)}, kExit, kNotice}.entries()));
  EXPECT_EQ(shownFlags(*record), "done 7");
}

TEST_F(FirmwareTransferTest, FailedPollTellsWhateverItReports) {
  libraries.progress = {{5, 100, 100}};
  EXPECT_EQ(run(), (WholeRun{{kStart, failedPoll(100, 100)}, kExit, kNotice}.entries()));
  EXPECT_EQ(shownFlags(*record), "done 0");
}

TEST_F(FirmwareTransferTest, IsDoneWhenCurrentHasReachedTotalAsSignedNumbers) {
  const struct {
    std::int32_t current;
    std::int32_t total;
    bool done;
  } rows[] = {
      {99, 100, false},  {100, 100, true},          {101, 100, true}, {0, 0, true},           {-1, 0, false},
      {0, -1, true},     {-2, -1, false},           {-1, -2, true},   {-1, kGreatest, false}, {kLeast, kGreatest, false},
      {1, kLeast, true}, {kGreatest, kLeast, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.current << " of " << row.total);
    renew();
    const auto entries = runReporting(row.current, row.total);
    EXPECT_EQ(libraries.polls, row.done ? 1U : 2U);
    EXPECT_EQ(record->ok, row.done);  // else the next poll has failed
    EXPECT_EQ(entries[3], "notice 7");
  }
}

TEST_F(FirmwareTransferTest, PercentFollowsEachReport) {
  const struct {
    std::int32_t current;
    std::int32_t total;
    std::int32_t percent;
  } rows[] = {{50, 100, 42}, {100, 100, 85}, {200, 100, 100},        {117, 100, 99},
              {0, 100, 0},   {-5, 100, 0},   {5, -100, 0},           {0, 0, 0},
              {5, 0, 0},     {-5, 0, 0},     {1334105, 1597168, 71}, {kGreatest, 1, 100}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.current << " of " << row.total);
    renew();
    record->percent = 55;
    runReporting(row.current, row.total);
    EXPECT_EQ(record->percent, row.percent);
  }
}

TEST_F(FirmwareTransferTest, TotalOfNoneGivesNoPercentAndEndsTheTransfer) {
  record->percent = 55;
  libraries.progress = {{0, 0, 0}};
  EXPECT_EQ(run(), (WholeRun{{kStart, goodPoll(0, 0)}, kExit, kNotice}.entries()));
  EXPECT_EQ(shownFlags(*record), "done ok 0");
}

TEST_F(FirmwareTransferTest, GoesOnForAsManyPollsAsThePrinterNeeds) {
  constexpr std::int32_t polls = 150;
  for (std::int32_t sent = 1; sent <= polls; ++sent) libraries.progress.push_back({0, sent, polls});
  EXPECT_EQ(run().size(), 4 * polls + 3U);
}

TEST_F(FirmwareTransferTest, DeletionEndsItWithThePollAndTheExitCallButWithoutTheLastNotice) {
  arrange = [this] {
    record->firmware = L"firmware";
    libraries.progress = {{0, 10, 100}, {0, 20, 100}, {0, 30, 100}, {0, 100, 100}};
  };
  expectDeletionToEndTheRun(
      {{kStart, goodPoll(10, 100), goodPoll(20, 100), goodPoll(30, 100), goodPoll(100, 100)}, kExit, kNotice});
}

TEST_F(FirmwareTransferTest, DeletionWithinAFailingPollStillCallsExit) {
  arrange = [this] {
    record->firmware = L"firmware";
    libraries.progress = {{-1, 10, 100}};
  };
  expectDeletionToEndTheRun({{kStart, failedPoll(10, 100)}, kExit, kNotice});
}

TEST_F(FirmwareTransferTest, ATaskDeletedBeforeItsRunIsStartedAndExitedAndNotPolled) {
  current->setDelete();
  EXPECT_EQ(run(), joined(kStart, kExit));
  EXPECT_EQ(shownFlags(*record), "0");
  EXPECT_FALSE(current->getUpdate());
}

TEST_F(FirmwareTransferTest, DoneThatIsSetInAPauseEndsItLikeACompleteOne) {
  libraries.progress = {{0, 10, 100}};
  meanwhile = [this](const std::string& moment) { record->done = record->done || moment == "sleep"; };
  EXPECT_EQ(run(), (WholeRun{{kStart, goodPoll(10, 100)}, kExit, kNotice}.entries()));
  EXPECT_EQ(shownFlags(*record), "done ok 8");
}

TEST_F(FirmwareTransferTest, EachPollDecidesAnewWhetherItIsDone) {
  libraries.progress = {{0, 10, 100}, {0, 100, 100}};
  meanwhile = [this](const std::string& moment) { record->done = moment == kAsksProgress || record->done; };
  run();
  EXPECT_EQ(libraries.polls, 2U);
}

TEST_F(FirmwareTransferTest, ObserversAreToldEachStepAndTheEnd) {
  libraries.progress = {{0, 50, 100}, {0, 100, 100}};
  const auto observed = std::make_shared<FirmUp>();
  const auto refusing = task(9, {}, false);
  const Texts notices = {"notice 7", "notice 8", "notice 9"};

  auto expected = kStart;
  for (const std::int32_t sent : {50, 100}) {
    expected = joined(joined(expected, failedPoll(sent, 100)), notices);
    expected.emplace_back("sleep 100000 us");
  }
  EXPECT_EQ(run({task(8, observed), refusing}), joined(joined(expected, kExit), notices));

  EXPECT_EQ(shownFlags(*observed), "0");
  EXPECT_TRUE(refusing->getDelete());
  EXPECT_FALSE(current->getDelete());
}

TEST_F(FirmwareTransferTest, LeavesWhatOtherOperationsWrite) {
  fillForeignMembers(*record);
  libraries.progress = {{0, 1, 1}};
  run();
  expectForeignMembers(*record);
}

}  // namespace
