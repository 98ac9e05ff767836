#include <optional>

#include "operations/FirmwareTest.h"

namespace {

using AppComm::FirmUp;

constexpr const char* kStarts = "AppSdk_TriggerFwUpgradeStart(printer-1)";
constexpr const char* kAsks = "AppSdk_TriggerFwUpgradeProcess(false)";
constexpr const char* kFetches = R"(AppSdk_TriggerFwUpgradeResult(true, ""))";
const Texts kNotice = {"DBG  notice caller the result of check new firmware.", "notice 7"};

// What the upgrade service answers.
class UpgradeService : public PolledPrinter {
 public:
  using PolledPrinter::PolledPrinter;

  bool started = true;
  bool answered = true;
  std::optional<bool> done;  // none: the call leaves the flag as it is
  bool available = true;
  std::optional<bool> succeeded;  // none: the call leaves the flag as it is
  std::vector<std::wstring> texts{L"one", L"two", L"three", L"four"};
  Texts given;  // the texts of the last block, before they were filled
  const bool* givenDone = nullptr;
  const bool* givenOk = nullptr;

  bool AppSdk_TriggerFwUpgradeStart(qzstd::PrinterInfo* /*printer*/) override { return started; }
  bool AppSdk_TriggerFwUpgradeProcess(bool* flag) override {
    givenDone = flag;
    if (done) *flag = *done;
    return answered;
  }
  bool AppSdk_TriggerFwUpgradeResult(bool* ok, std::wstring* fourTexts) override {
    givenOk = ok;
    given.clear();
    for (std::size_t index = 0; index < texts.size(); ++index) {
      given.emplace_back(fourTexts[index].begin(), fourTexts[index].end());
      fourTexts[index] = texts[index];
    }
    if (succeeded) *ok = *succeeded;
    return available;
  }
};

class FirmwareCheckTest : public LongOperationTest<FirmUp, UpgradeService> {
 protected:
  FirmwareCheckTest() : LongOperationTest("comm_thread_firmNewCheck", comm_thread_firmNewCheck) {}

  static Texts step(const Texts& work) { return joined(work, kNotice); }
  static std::string fetched(int available, int succeeded) {
    return filled("DBG get firmware version result: %d, succeed: %d", {available, succeeded});
  }

  void begin() {
    record->triggered = true;
    record->ok = true;
  }
};

TEST_F(FirmwareCheckTest, GoesOneStepPerRunUntilTheVersionsAreFetched) {
  EXPECT_EQ(run(), step({kStarts}));
  EXPECT_EQ(shownFlags(*record), "triggered ok 0");

  libraries.done = false;
  EXPECT_EQ(run(), step({kAsks}));
  EXPECT_EQ(run(), step({kAsks}));
  EXPECT_EQ(shownFlags(*record), "triggered ok 0");

  libraries.done = true;
  EXPECT_EQ(run(), step({kAsks, kFetches, fetched(1, 1)}));
  EXPECT_EQ(shownFlags(*record), "triggered done ok new 0");
  EXPECT_EQ(record->versionText1, L"one");
  EXPECT_EQ(record->versionText2, L"two");
}

TEST_F(FirmwareCheckTest, FirstRunFetchesOnlyIfTheCallerLeftDoneTrue) {
  record->done = true;
  EXPECT_EQ(run(), step({kStarts, kFetches, fetched(1, 1)}));
  EXPECT_EQ(shownFlags(*record), "triggered done ok new 0");
}

TEST_F(FirmwareCheckTest, TheStartKeepsWhatTheCallerLeftInTheRecord) {
  fillForeignMembers(*record);
  record->triggered = false;
  record->percent = 42;
  EXPECT_EQ(run(), step({kStarts}));
  expectForeignMembers(*record);
  EXPECT_EQ(record->percent, 42);
}

TEST_F(FirmwareCheckTest, AfterASuccessTheNextRunAsksAgainAndKeepsWhatWasFetched) {
  begin();
  libraries.done = true;
  run();

  libraries.done = false;
  EXPECT_EQ(run(), step({kAsks}));

  EXPECT_EQ(shownFlags(*record), "triggered ok new 0");
  EXPECT_EQ(record->versionText1, L"one");
  EXPECT_EQ(record->versionText2, L"two");
}

TEST_F(FirmwareCheckTest, AFailedStartIsFinal) {
  for (const bool doneBefore : {false, true}) {
    SCOPED_TRACE(doneBefore);
    renew();
    record->done = doneBefore;
    record->ok = true;
    libraries.started = false;
    EXPECT_EQ(run(), step({kStarts}));
    EXPECT_FALSE(record->ok);

    libraries.started = true;
    EXPECT_EQ(run(), kNotice);
    EXPECT_EQ(run(), kNotice);
    EXPECT_EQ(shownFlags(*record), doneBefore ? "triggered done 0" : "triggered 0");
  }
}

TEST_F(FirmwareCheckTest, AFailedQuestionIsFinalEvenIfItSaysDone) {
  for (const bool done : {false, true}) {
    SCOPED_TRACE(done);
    renew();
    begin();
    libraries.answered = false;
    libraries.done = done;
    EXPECT_EQ(run(), step({kAsks}));

    libraries.answered = true;
    EXPECT_EQ(run(), kNotice);
    EXPECT_EQ(run(), kNotice);
    EXPECT_EQ(shownFlags(*record), done ? "triggered done 0" : "triggered 0");
  }
}

TEST_F(FirmwareCheckTest, DoneIsClearedBeforeEachQuestion) {
  begin();
  record->done = true;
  EXPECT_EQ(run(), step({kAsks}));
  EXPECT_FALSE(record->done);
}

TEST_F(FirmwareCheckTest, TheOutcomeIsLoggedAndKeptAsTheResultCallLeavesIt) {
  const struct {
    bool available;
    std::optional<bool> succeeded;
    bool ok;
  } rows[] = {{true, {}, true},  {true, true, true},  {true, false, false},
              {false, {}, true}, {false, true, true}, {false, false, false}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << "available " << row.available << ", ok " << row.ok);
    renew();
    begin();
    record->versionText1 = L"old";
    libraries.done = true;
    libraries.available = row.available;
    libraries.succeeded = row.succeeded;

    EXPECT_EQ(run(), step({kAsks, kFetches, fetched(row.available, row.ok)}));

    EXPECT_EQ(record->ok, row.ok);
    EXPECT_EQ(record->newFirmware, row.available);
    EXPECT_EQ(record->versionText1, row.available ? L"one" : L"old");
  }
}

TEST_F(FirmwareCheckTest, AnUnavailableResultLeavesWhatWasFetchedBefore) {
  begin();
  fillForeignMembers(*record);
  libraries.done = true;
  libraries.available = false;
  run();
  expectForeignMembers(*record);
}

TEST_F(FirmwareCheckTest, AnUnavailableResultIsAskedForAgain) {
  begin();
  libraries.done = true;
  libraries.available = false;
  run();
  EXPECT_EQ(run(), step({kAsks, kFetches, fetched(0, 1)}));
}

TEST_F(FirmwareCheckTest, AnOutcomeThatIsNotOkIsFinalEvenWithVersions) {
  begin();
  libraries.done = true;
  libraries.succeeded = false;
  run();
  EXPECT_EQ(run(), kNotice);
  EXPECT_EQ(shownFlags(*record), "triggered done new 0");
}

TEST_F(FirmwareCheckTest, FourEmptyTextsAreGivenToEachResultCall) {
  begin();
  libraries.done = true;
  for (int round = 0; round < 2; ++round) {
    run();
    EXPECT_EQ(libraries.given, Texts(4));
  }
}

TEST_F(FirmwareCheckTest, EmptyTextsOfAnAvailableResultReplaceTheOldOnes) {
  begin();
  record->versionText1 = record->versionText2 = L"old";
  libraries.done = true;
  libraries.texts.assign(4, L"");
  run();
  EXPECT_TRUE(record->newFirmware);
  EXPECT_TRUE(record->versionText1.empty() && record->versionText2.empty());
}

TEST_F(FirmwareCheckTest, FlagsAreSetInTheOrderOfTheSteps) {
  record->done = true;
  EXPECT_EQ(seen(shownFlags), (Texts{std::string(kStarts) + ": triggered done 0",
                                     std::string(kFetches) + ": triggered done ok 0", "notice 7: triggered done ok new 0"}));
  libraries.done = true;
  libraries.succeeded = false;
  EXPECT_EQ(seen(shownFlags), (Texts{std::string(kAsks) + ": triggered ok new 0",
                                     std::string(kFetches) + ": triggered done ok new 0", "notice 7: triggered done new 0"}));
}

TEST_F(FirmwareCheckTest, HandsOutTheRecordsOwnFlags) {
  begin();
  libraries.done = true;
  run();
  EXPECT_EQ(libraries.givenDone, &record->done);
  EXPECT_EQ(libraries.givenOk, &record->ok);
}

TEST_F(FirmwareCheckTest, ATaskDeletedDuringTheRunIsStillTold) {
  begin();
  libraries.done = true;
  meanwhile = [this](const std::string&) { current->setDelete(); };
  EXPECT_EQ(run(), step({kAsks, kFetches, fetched(1, 1)}));
}

TEST_F(FirmwareCheckTest, ObserversAreToldInEveryRunAndTheirRecordsStay) {
  libraries.started = false;
  const auto observed = std::make_shared<FirmUp>();
  const auto refusing = task(9, {}, false);
  const Texts notices = {"notice 8", "notice 9"};

  EXPECT_EQ(run({task(8, observed), refusing}), joined(step({kStarts}), notices));
  EXPECT_EQ(run({task(8, observed), refusing}), joined(kNotice, notices));

  EXPECT_EQ(shownFlags(*observed), "0");
  EXPECT_TRUE(refusing->getDelete());
  EXPECT_FALSE(current->getDelete());
}

TEST_F(FirmwareCheckTest, TheFetchLeavesPercentAndFirmware) {
  record->percent = 42;
  record->firmware = L"firmware";
  record->done = true;
  run();
  EXPECT_EQ(record->percent, 42);
  EXPECT_EQ(record->firmware, L"firmware");
}

}  // namespace
