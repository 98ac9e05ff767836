#include <limits>

#include "operations/WifiTest.h"

namespace {

constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
constexpr auto kGreatest = std::numeric_limits<std::int32_t>::max();

// What both operations have in common.
class WifiJobTest : public WifiTest, public testing::WithParamInterface<const Job*> {
 protected:
  WifiJobTest() : WifiTest(*GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Wifi, WifiJobTest, testing::Values(&kGet, &kSet),
                         [](const auto& row) { return row.param == &kGet ? std::string("Get") : std::string("Set"); });

TEST_P(WifiJobTest, NotifiesEveryPollAndOnceMoreAtTheEnd) {
  libraries.total = 3;
  libraries.progress = {{0, 0}, {0, 1}, {0, 2}, {0, 3}};
  EXPECT_EQ(run(), whole(libraries.progress).entries());
  EXPECT_EQ(shown(*record), "finished succeeded");
  EXPECT_TRUE(current->getUpdate());
  EXPECT_FALSE(current->getDelete());
}

TEST_P(WifiJobTest, ResultsOfTheStartAndOfThePollsBeforeTheLastAreLoggedAndNotTested) {
  libraries.startResult = -4;
  libraries.total = 2;
  libraries.progress = {{-1, 0}, {3, 1}, {0, 2}};
  EXPECT_EQ(run(), whole(libraries.progress).entries());
  EXPECT_EQ(shown(*record), "finished succeeded");
}

TEST_P(WifiJobTest, TotalOfNoneEndsAtTheFirstPoll) {
  for (const int startResult : {0, -1}) {
    SCOPED_TRACE(startResult);
    renew();
    libraries.startResult = startResult;
    EXPECT_EQ(run(), whole({{0, 0}}).entries());
  }
}

TEST_P(WifiJobTest, IsCompleteWhenTheSegmentHasReachedTheTotalAsSignedNumbers) {
  const struct {
    std::int32_t segment;
    std::int32_t total;
    bool complete;
  } rows[] = {{2, 3, false},      {3, 3, true},
              {4, 3, true},       {-1, 0, false},
              {0, -1, true},      {-2, -1, false},
              {-1, -2, true},     {-1, kGreatest, false},
              {kLeast, 0, false}, {kLeast, kGreatest, false},
              {1, kLeast, true},  {kGreatest, kLeast, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.segment << " of " << row.total);
    renew();
    libraries.total = row.total;
    libraries.progress = {{0, row.segment}};
    if (!row.complete) libraries.progress.push_back({0, row.total});
    EXPECT_EQ(run(), whole(libraries.progress).entries());
  }
}

TEST_P(WifiJobTest, GoesOnForAsManyPollsAsThePrinterNeeds) {
  libraries.total = 150;
  libraries.progress.clear();
  for (std::int32_t segment = 1; segment <= libraries.total; ++segment) libraries.progress.push_back({0, segment});
  run();
  EXPECT_EQ(libraries.polls, 150U);
}

TEST_P(WifiJobTest, DeletionEndsItWithThePollAndTheExitCallButWithoutTheLastNotice) {
  libraries.total = 3;
  libraries.progress = {{0, 0}, {0, 1}, {0, 2}, {0, 3}};
  expectDeletionToEndTheRun(whole(libraries.progress));
}

TEST_P(WifiJobTest, ATaskDeletedBeforeItsRunIsStartedAndExitedAndNotPolled) {
  current->setDelete();
  record->finished = record->succeeded = true;
  EXPECT_EQ(run(), joined(opening(), {job.exit}));
  EXPECT_EQ(shown(*record), "");
  EXPECT_FALSE(current->getUpdate());
}

TEST_P(WifiJobTest, ATaskDeletedDuringAPollIsNotFinished) {
  libraries.total = 2;
  libraries.progress = {{0, 1}};
  meanwhile = [this](const std::string& moment) {
    if (moment == "sleep") current->setDelete();
  };
  run();
  EXPECT_EQ(shown(*record), "");
}

TEST_P(WifiJobTest, ObserversAreToldWithEachNoticeAndTheirRecordsStay) {
  libraries.total = 1;
  libraries.progress = {{0, 0}, {0, 1}};
  const auto observed = std::make_shared<WIFI>();
  const auto refusing = task(9, {}, false);
  const Texts notices = {"notice 7", "notice 8", "notice 9"};
  const auto wanted = whole(libraries.progress);
  const auto polled = joined(joined(opening(), question({0, 0})), joined(notices, {"sleep 500000 us"}));

  EXPECT_EQ(run({task(8, observed), refusing}), joined(joined(polled, wanted.parts.back()), joined(wanted.exit, notices)));

  EXPECT_EQ(shown(*observed), "");
  EXPECT_TRUE(observed->networks.empty());
  EXPECT_TRUE(refusing->getDelete());
  EXPECT_FALSE(current->getDelete());
}

TEST_P(WifiJobTest, RecordIsWrittenFromScratchInEachRun) {
  for (int round = 0; round < 2; ++round) {
    libraries.polls = 0;
    libraries.total = 1;
    libraries.progress = {{0, 0}, {0, 1}};
    std::string atNotice;
    meanwhile = [&](const std::string& moment) { atNotice += moment == "notice 7" ? shown(*record) + "|" : ""; };
    run();
    EXPECT_EQ(atNotice, "|finished succeeded|");
  }
}

class SetWifiListTest : public WifiTest {
 protected:
  SetWifiListTest() : WifiTest(kSet) {}
};

TEST_F(SetWifiListTest, SendsTheFirstNetworkOfTheRecord) {
  record->networks = {network(L"chosen"), network(L"other")};
  EXPECT_EQ(run()[0], R"(AppMgr_PrinterWifiConfigStart(printer-1, "chosen", 0))");
  EXPECT_EQ(libraries.givenNetwork, record->networks.data());
  EXPECT_EQ(namesOf(record->networks), (std::vector<std::wstring>{L"chosen", L"other"}));
}

TEST_F(SetWifiListTest, WithoutANetworkPassesNull) {
  record->networks.reserve(1);  // storage without a network in it
  EXPECT_EQ(run()[0], "AppMgr_PrinterWifiConfigStart(printer-1, null, 0)");
  EXPECT_EQ(libraries.givenNetwork, nullptr);
}

TEST_F(SetWifiListTest, SucceedsWhenTheLastPollDoes) {
  for (const int result : {-1, 0, 1}) {
    SCOPED_TRACE(result);
    renew();
    libraries.total = 1;
    libraries.progress = {{0, 0}, {result, 1}};
    EXPECT_EQ(run(), whole(libraries.progress).entries());
    EXPECT_EQ(shown(*record), result == 0 ? "finished succeeded" : "finished ");
  }
}

TEST_F(SetWifiListTest, ConnectedIsLeftAsTheCallerSetIt) {
  for (const bool connected : {false, true}) {
    SCOPED_TRACE(connected);
    renew();
    record->connected = connected;
    libraries.connected = !connected;
    run();
    EXPECT_EQ(record->connected, connected);
  }
}

TEST_F(SetWifiListTest, FlagsAreClearedBeforeTheStartAndSetByTheLastPoll) {
  record->finished = record->succeeded = true;
  libraries.total = 1;
  libraries.progress = {{0, 0}, {0, 1}};
  const std::string progress = kSet.progress;
  EXPECT_EQ(seen(shown), (Texts{std::string(kSet.start) + ": ", progress + ": ", "notice 7: ", "sleep: ", progress + ": ",
                                std::string(kSet.exit) + ": finished succeeded", "notice 7: finished succeeded"}));
}

}  // namespace
