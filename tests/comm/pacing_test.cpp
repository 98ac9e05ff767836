#include <limits>

#include "comm/SchedulerTest.h"

using namespace std::chrono_literals;
using fakes::withoutNPA;

namespace {

class PacingTest : public SchedulerTest {};

// What a new list does first: its time stamps lie 600 s and 1200 s back.
struct FirstWait {
  std::int32_t interval;
  long duration;
};

class FirstWaitTest : public SchedulerTest, public testing::WithParamInterface<FirstWait> {};

TEST_P(FirstWaitTest, IsTheIntervalMinusTenMinutesOrMinusTwentyFromTwentyMinutesOn) {
  const auto& [interval, duration] = GetParam();
  const auto start = clock.present();

  Add(onceTask(Type::State, 1, L"P1", interval));

  EXPECT_EQ(awaitWait(1), (Wait{duration, 600000, 1200000, interval}));
  if (duration > 0) {
    clock.awaitParked(1);
    EXPECT_TRUE(handlers.runs().empty());
    clock.advance(ms(duration - 1));
    EXPECT_TRUE(handlers.runs().empty());
    clock.advance(1ms);
  }
  handlers.awaitRuns(1);
  EXPECT_EQ(clock.present() - start, ms(duration > 0 ? duration : 0));
}

INSTANTIATE_TEST_SUITE_P(Intervals, FirstWaitTest,
                         testing::Values(FirstWait{-1, -600001}, FirstWait{0, -600000}, FirstWait{1000, -599000},
                                         FirstWait{599999, -1}, FirstWait{600000, 0}, FirstWait{1199999, 599999},
                                         FirstWait{1200000, 0}, FirstWait{1800000, 600000}),
                         [](const auto& test) {
                           const auto interval = test.param.interval;
                           return interval < 0 ? std::string("Negative") : std::to_string(interval);
                         });

TEST_F(PacingTest, NewListBelowTenMinutesLogsANegativeDurationAndRunsWithoutWaiting) {
  std::size_t parkings = 1;
  handlers.onAny([&](auto&) {
    parkings = clock.parkings();
    return 0;
  });

  Add(onceTask(Type::State, 1));

  EXPECT_LT(awaitWait(1).duration, 0);
  awaitWait(2);
  EXPECT_EQ(parkings, 0U);
}

TEST_F(PacingTest, RunsThatKeepTheMarkAreOneIntervalApart) {
  handlers.onAny([this](auto&) {
    clock.advance(10ms);
    return 0;
  });

  Add(repeatingTask(Type::State, 1));

  passWait(2);
  EXPECT_EQ(awaitWait(3), (Wait{1000, 0, 0, 1000}));
  EXPECT_EQ(waits()[1], (Wait{1000, 0, 0, 1000}));
  EXPECT_EQ(handlers.runs().size(), 2U);
}

TEST_F(PacingTest, RunsWithoutTheMarkArePacedByTheLastNpaRunUntilItIsOlderThanTheInterval) {
  int runs = 0;
  handlers.onAny([&](comm::CNode& entry) {
    clock.advance(10ms);
    return ++runs == 1 ? 0 : withoutNPA(entry);
  });

  Add(repeatingTask(Type::State, 1));
  passWait(2);
  EXPECT_EQ(awaitWait(3), (Wait{1000, 0, 1010, 1000})) << "older than the interval: the last run of any kind counts";
  passWait(3);
  EXPECT_EQ(awaitWait(4), (Wait{1000, 0, 2020, 1000}));
}

// Exactly one interval after an NPA run it still counts as recent.
TEST_F(PacingTest, NpaAgeEqualToTheIntervalStillPaces) {
  handlers.onAny([](auto&) { return 0; });
  Add(repeatingTask(Type::State, 1));
  awaitWait(2);
  clock.awaitParked(1);
  handlers.onAny([this](comm::CNode& entry) {
    if (handlers.runs().size() == 3) clock.advance(1ms);
    return withoutNPA(entry);
  });

  clock.advance(1000ms);

  EXPECT_EQ(awaitWait(3), (Wait{0, 0, 1000, 1000}));
  EXPECT_EQ(awaitWait(4), (Wait{1000, 0, 1001, 1000}));
}

TEST_F(PacingTest, TheTwoAgesAreTwoReadingsOfTheClock) {
  // The list's constructor reads twice, the worker's wait twice.
  clock.atReading(4, [this] { clock.advance(7ms); });

  Add(onceTask(Type::State, 1));

  EXPECT_EQ(awaitWait(1), (Wait{-599000, 600000, 1200007, 1000}));
}

TEST_F(PacingTest, CheckAgeIsReadFirst) {
  clock.atReading(3, [this] { clock.advance(7ms); });

  Add(onceTask(Type::State, 1));

  EXPECT_EQ(awaitWait(1), (Wait{-599007, 600007, 1200007, 1000}));
}

TEST_F(PacingTest, AgesAreCutToThirtyTwoBitsAndTheDurationIsNot) {
  constexpr std::int64_t kBeyond = 2147483648;  // 2^31 ms
  clock.atReading(3, [this] { clock.advance(ms(kBeyond - 600000)); });

  Add(onceTask(Type::State, 1, L"P1", 2000000000));

  // Ages: -2^31 and -2^31 + 600000. The duration, 2000000000 - the latter, is beyond 2^31: it waits, and its low half is
  // logged.
  const long npaDuration = -2147483648L + 600000L;
  EXPECT_EQ(awaitWait(1), (Wait{2000000000L - npaDuration - (1L << 32), -2147483648L, npaDuration, 2000000000L}));
  clock.awaitParked(1);
  EXPECT_TRUE(handlers.runs().empty());
  clock.advance(ms(2000000000 - npaDuration - 1));
  EXPECT_TRUE(handlers.runs().empty());
  clock.advance(1ms);
  handlers.awaitRuns(1);
}

TEST_F(PacingTest, AgesAreTruncatedTowardZero) {
  clock.atReading(3, [this] { clock.stepBack(600000ms + 500us); });

  Add(onceTask(Type::State, 1));

  EXPECT_EQ(awaitWait(1), (Wait{1000, 0, 599999, 1000})) << "half a millisecond below zero is zero";
}

TEST_F(PacingTest, AClockThatSteppedBackBehindTheLastRunMakesTheWaitLonger) {
  clock.atReading(3, [this] { clock.stepBack(600250ms); });

  Add(onceTask(Type::State, 1));

  EXPECT_EQ(awaitWait(1), (Wait{1250, -250, 599750, 1000}));
  clock.awaitParked(1);
  clock.advance(1249ms);
  EXPECT_TRUE(handlers.runs().empty());
  clock.advance(1ms);
  handlers.awaitRuns(1);
}

TEST_F(PacingTest, AClockThatStepsBackDuringAWaitMakesItLonger) {
  Add(repeatingTask(Type::State, 1));
  awaitWait(2);
  clock.awaitParked(1);

  clock.stepBack(5000ms);
  clock.advance(5999ms);
  EXPECT_EQ(handlers.runs().size(), 1U);
  clock.advance(1ms);

  handlers.awaitRuns(2);
}

TEST_F(PacingTest, AWaitThatEndsEarlyIsComputedAnewFromTheNpaAgeAndLogsNothing) {
  const auto task = repeatingTask(Type::State, 1);
  Add(task);
  awaitWait(2);
  clock.awaitParked(1);
  const auto parkings = clock.parkings();
  clock.advance(400ms);

  StartNPA(task);

  clock.awaitParkings(parkings + 1);
  clock.advance(599ms);
  EXPECT_EQ(handlers.runs().size(), 1U) << "a wake-up is not a run";
  clock.advance(1ms);
  handlers.awaitRuns(2);
  EXPECT_EQ(awaitWait(3), (Wait{1000, 0, 0, 1000}));
  EXPECT_EQ(waits().size(), 3U);
}

TEST_F(PacingTest, AWaitWithoutRecentNpaRunsEndsAtOnceWhenStartNpaWakesIt) {
  handlers.onAny(withoutNPA);
  const auto task = repeatingTask(Type::State, 1);
  Add(task);
  awaitWait(2);
  clock.awaitParked(1);
  const auto now = clock.present();

  StartNPA(task);

  handlers.awaitRuns(2);
  EXPECT_EQ(clock.present(), now);
}

TEST_F(PacingTest, StartNpaTwiceWhileTheWorkerIsBusyEndsTheNextTwoWaitsAtOnce) {
  const auto task = repeatingTask(Type::State, 1);
  handlers.onAny([&](comm::CNode& entry) {
    if (handlers.runs().size() == 1) {
      StartNPA(task);
      StartNPA(task);
    }
    return withoutNPA(entry);
  });

  Add(task);

  EXPECT_EQ(handlers.awaitRuns(3).size(), 3U) << "one after each of the two waits, and time stood still";
  EXPECT_EQ(awaitWait(4), (Wait{1000, 0, 1200000, 1000}));
  clock.awaitParked(1);
  EXPECT_EQ(handlers.runs().size(), 3U);
}

TEST_F(PacingTest, StopDuringAWaitWithARecentNpaRunWaitsOutTheInterval) {
  Add(repeatingTask(Type::State, 1));
  awaitWait(2);
  clock.awaitParked(1);
  const auto parkings = clock.parkings();
  clock.advance(300ms);

  Stop();

  clock.awaitParkings(parkings + 1);
  clock.advance(699ms);
  EXPECT_EQ(count("thread_list", 240), 0U);
  clock.advance(1ms);
  awaitLeave();
  EXPECT_EQ(handlers.runs().size(), 1U);
}

TEST_F(PacingTest, StopDuringAWaitWithAnOldNpaRunEndsItAtOnce) {
  handlers.onAny(withoutNPA);
  Add(repeatingTask(Type::State, 1));
  awaitWait(2);
  clock.awaitParked(1);

  Stop();

  awaitLeave();
  EXPECT_EQ(handlers.runs().size(), 1U);
}

class NoWaitTest : public SchedulerTest, public testing::WithParamInterface<std::int32_t> {};

TEST_P(NoWaitTest, CyclesRunBackToBackAndTheListEndsAfterTenIdleOnes) {
  Add(onceTask(Type::State, 1, L"P1", GetParam()));

  awaitLeave();
  EXPECT_EQ(waits().size(), 11U);
  EXPECT_EQ(clock.parkings(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Intervals, NoWaitTest, testing::Values(0, -1, std::numeric_limits<std::int32_t>::min()),
                         [](const auto& test) { return "Case" + std::to_string(test.index); });

}  // namespace
