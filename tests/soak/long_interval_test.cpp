/// Lists whose interval is beyond the ten minutes that a new list takes to have passed since its last check.

#include "Story.h"

namespace soak::test {
namespace {

constexpr int kInterval = 600'500;

class LongInterval : public Story {};

TEST_F(LongInterval, PutsTheFirstRunOffByWhatIsBeyondTenMinutes) {
  add(1, repeating(Type::State, kInterval));
  at(501);
  unreadState(1);
}

TEST_F(LongInterval, AllowsNoFirstRunBeforeThat) {
  add(1, repeating(Type::State, kInterval));
  at(499);
  refused(callOf(kJobs), "its turn comes no earlier than");
}

TEST_F(LongInterval, AllowsNoFirstRunAtOnceWhereAFirstOneWasWokenAndTheNextWasNot) {
  add(1, repeating(Type::State, kInterval));
  startNpa();
  pauseNpa();
  unreadState(1);
  at(10);
  refused(callOf(kJobs), "its turn comes no earlier than");
}

TEST_F(LongInterval, HasTheFirstWaitEndedByAWakeUp) {
  add(1, repeating(Type::State, kInterval));
  startNpa();
  ticks(30);
  refused({.what = What::tick}, "list 1 was woken and does not run its next entry");
}

TEST_F(LongInterval, HasTheFirstWaitEndedByStop) {
  add(1, repeating(Type::State, kInterval));
  stop();
  released(1);
}

TEST_F(LongInterval, OfLessThanZeroIsNoPause) {
  add(1, repeating(Type::State, -5));
  unreadState(1);
  unreadState(1);
}

}  // namespace
}  // namespace soak::test
