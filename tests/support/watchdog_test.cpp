#include <gtest/gtest.h>

#include <string>

#include "support/Watchdog.h"

namespace {

using namespace std::chrono_literals;
using support::WatchdogClock;

constexpr WatchdogClock::time_point start{};

TEST(WatchedStepTest, IsOverdueExactlyWhenTheLimitIsReached) {
  const support::WatchedStep step(100ms, start);
  EXPECT_FALSE(step.overdue(start + 100ms - 1ns));
  EXPECT_TRUE(step.overdue(start + 100ms));
}

TEST(WatchedStepTest, EachStepHasTheWholeLimit) {
  support::WatchedStep step(100ms, start);
  step.enter("Suite.Second", start + 99ms);
  EXPECT_FALSE(step.overdue(start + 198ms));
  EXPECT_TRUE(step.overdue(start + 199ms));
}

TEST(WatchedStepTest, IsNamedAfterTheLastOneEntered) {
  support::WatchedStep step(100ms, start);
  EXPECT_STREQ(step.name(), "start of the program");
  step.enter("Suite.First", start);
  step.enter("A.B", start);
  EXPECT_STREQ(step.name(), "A.B");
}

TEST(WatchedStepTest, LongNameIsCut) {
  support::WatchedStep step(100ms, start);
  step.enter(std::string(1000, 'x'), start);
  EXPECT_EQ(step.name(), std::string(199, 'x'));
}

}  // namespace
