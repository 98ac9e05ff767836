/// What the model takes the wake-ups to have done that nobody sees.

#include "Story.h"

namespace soak::test {
namespace {

class Pacing : public Story {};

// The worker wakes at 30, tidies its list and hands over; the handler's thread is stopped until long after the deletion.
TEST_F(Pacing, AllowsATurnThatAWakeUpBroughtForwardToShowItselfLate) {
  add(1, repeating(Type::State, 100));
  unreadState(1);
  at(30);
  startNpa();
  at(40);
  setDelete(1);
  at(150);
  call(kJobs);
}

TEST_F(Pacing, AllowsASelectionThatAWakeUpBroughtForwardToShowItselfLate) {
  add(1, repeating(Type::State, 100));
  add(2, repeating(Type::GetNetwork, 100));
  unreadState(1);
  at(30);
  startNpa();
  at(40);
  setOnce(1, true);
  at(150);
  call(kNetwork);
}

// The worker is stopped for 9 ms before its wait, so its timer goes off each millisecond, and for 15 ms after it.
TEST_F(Pacing, AllowsIdleCyclesThatATimerOfAShortPeriodSaves) {
  add(1, repeating(Type::State, 10));
  unreadState(1);
  setDelete(1);
  at(10.1);
  released(1);
  at(36);
  seen(endOf(kWorker));
}

TEST_F(Pacing, AllowsNoIdleCyclesInLessThanThePeriodsOfATimer) {
  add(1, repeating(Type::State, 10));
  unreadState(1);
  setDelete(1);
  at(10.1);
  released(1);
  at(27);
  refused(endOf(kWorker), "its ten idle cycles are over no earlier than");
}

}  // namespace
}  // namespace soak::test
