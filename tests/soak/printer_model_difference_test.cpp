/// What the model finds, and how it is told.

#include "Story.h"

namespace soak::test {
namespace {

class PrinterModelFinds : public Story {};

TEST_F(PrinterModelFinds, AnEntryThatRunsOutOfTurn) {
  add(1, repeating(Type::GetNetwork));
  add(2, repeating(Type::GetAlarm));
  network(1);
  refused(callOf(kNetwork), "next is another run: list 1 is in the run of GetAlarm of task 2");
}

TEST_F(PrinterModelFinds, AOnceTaskThatDoesNotJumpTheQueue) {
  add(1, repeating(Type::GetNetwork, 100));
  add(2, repeating(Type::GetAlarm));
  network(1);
  at(50);
  add(3, once(Type::SetNetwork));
  at(110);
  refused(callOf(kAlarm), "next is another run: list 1 is in the run of SetNetwork of task 3");
}

TEST_F(PrinterModelFinds, ARunOfAnotherOperation) {
  add(1, once(Type::GetNetwork));
  refused(callOf(kAlarm), "a call of AppPrinterSdk_GetNetWork is due");
}

TEST_F(PrinterModelFinds, AnObserverThatIsNotTold) {
  add(1, repeating(Type::GetNetwork));
  add(2, repeating(Type::GetNetwork));
  network(1);
  refused(callOf(kNetwork), "a notice to task 2 is due");
}

TEST_F(PrinterModelFinds, AWindowThatIsToldOutOfTurn) {
  add(1, repeating(Type::GetNetwork));
  add(2, repeating(Type::GetNetwork));
  call(kNetwork);
  refused(noticeTo(2), "a notice to task 1 is due");
}

TEST_F(PrinterModelFinds, AWindowThatIsToldTwice) {
  add(1, repeating(Type::GetNetwork));
  network(1);
  refused(noticeTo(1), "all windows have been told");
}

TEST_F(PrinterModelFinds, ANoticeThatIsMissingAtTheEndOfARun) {
  add(1, once(Type::GetNetwork));
  call(kNetwork);
  refused(releaseOf(1), "task 1 should still be in list 1");
}

TEST_F(PrinterModelFinds, ALostObserver) {
  add(1, repeating(Type::GetNetwork));
  add(2, repeating(Type::GetNetwork));
  network(1);
  notice(2);
  refused(releaseOf(2), "task 2 should still be in list 1");
}

TEST_F(PrinterModelFinds, ATaskThatRunsAlthoughItIsDeleted) {
  add(1, repeating(Type::GetNetwork, 100));
  network(1);
  at(50);
  setDelete(1);
  at(110);
  refused(callOf(kNetwork), "list 1 may not run anything");
}

TEST_F(PrinterModelFinds, ATaskThatRunsAgainAfterItsWindowRefused) {
  add(1, repeating(Type::GetNetwork));
  call(kNetwork);
  notice(1, false);
  refused(callOf(kNetwork), "list 1 may not run anything");
}

TEST_F(PrinterModelFinds, ARunBeforeItsTurn) {
  add(1, repeating(Type::GetNetwork, 100));
  network(1);
  at(99);
  refused(callOf(kNetwork), "its turn comes no earlier than");
}

TEST_F(PrinterModelFinds, ARunBeforeItsTurnAfterRunsWithoutNpa) {
  add(1, repeating(Type::State, 100));
  unreadState(1);
  at(99);
  refused(callOf(kJobs), "its turn comes no earlier than");
}

TEST_F(PrinterModelFinds, ARunBeforeItsTurnWhereOnlyTheTurnTellsWhenTheNpaRunEnded) {
  add(1, repeating(Type::GetNetwork, 1'000));
  add(2, repeating(Type::State, 1'000));
  network(1);
  at(1'005);
  call(kJobs);
  at(1'010);
  call(kScan);
  notice(2);
  at(1'011);
  refused(callOf(kNetwork), "its turn comes no earlier than");
}

TEST_F(PrinterModelFinds, AWakeUpThatShortensTheWaitAfterANpaRun) {
  add(1, repeating(Type::GetNetwork, 100));
  add(2, repeating(Type::State, 100));
  network(1);
  startNpa();
  at(50);
  refused(callOf(kJobs), "its turn comes no earlier than");
}

TEST_F(PrinterModelFinds, OneWakeUpThatShortensTwoWaits) {
  add(1, repeating(Type::State, 100));
  unreadState(1);
  seen({.what = What::startBegin, .thread = kCaller, .traits = {.type = Type::State}});
  seen({.what = What::startEnd, .thread = kCaller});
  pauseNpa();
  at(10);
  unreadState(1);
  at(20);
  refused(callOf(kJobs), "its turn comes no earlier than");
}

TEST_F(PrinterModelFinds, MoreWakeUpsThanTheTimerOfAPunctualWorkerGives) {
  add(1, repeating(Type::State, 300));
  unreadState(1);
  at(390);
  unreadState(1);
  refused(callOf(kJobs), "its turn comes no earlier than");
}

TEST_F(PrinterModelFinds, AStateThatIsReadUnasked) {
  add(1, repeating(Type::State));
  call(kJobs);
  refused(callOf(kRead), "what the NPA request of task 1 leads to");
}

TEST_F(PrinterModelFinds, AStateThatIsNotReadAlthoughAskedFor) {
  add(1, repeating(Type::State));
  startNpa();
  call(kJobs);
  refused(callOf(kScan), "a call of AppPrinterSdk_GetState is due");
}

TEST_F(PrinterModelFinds, ARequestThatChangesWithoutACall) {
  add(1, repeating(Type::State));
  beginStart(2);
  pauseNpa();
  endStart(2);
  call(kJobs);
  call(kRead);  // so the start came last
  notice(1);
  call(kJobs);
  refused(callOf(kScan), "a call of AppPrinterSdk_GetState is due");
}

TEST_F(PrinterModelFinds, ARecordThatDoesNotSayWhetherTheStateWasRead) {
  add(1, repeating(Type::State));
  startNpa();
  call(kJobs);
  call(kRead);
  refused(noticeTo(1, 0), "`queried` true");
}

TEST_F(PrinterModelFinds, ATaskThatHasLeftAndIsHeld) {
  add(1, once(Type::GetNetwork));
  add(2, repeating(Type::GetAlarm));
  network(1);
  refused(callOf(kAlarm), "the module should have let go of it before the next run");
}

TEST_F(PrinterModelFinds, ATaskThatIsReleasedWhileItIsQueued) {
  add(1, repeating(Type::GetNetwork));
  add(2, repeating(Type::GetAlarm));
  network(1);
  refused(releaseOf(2), "task 2 should still be in list 1");
}

TEST_F(PrinterModelFinds, AListThatEndsBeforeItsIdleCycles) {
  add(1, repeating(Type::State, 3'000));
  unreadState(1);
  at(3'005);
  unreadState(1);
  at(4'500);
  setDelete(1);
  at(6'015);
  released(1);
  at(30'000);
  refused(endOf(kHelper), "its ten idle cycles are over no earlier than");
}

TEST_F(PrinterModelFinds, AWakeUpThatWasTakenDuringAWaitForAnNpaRun) {
  add(1, once(Type::GetNetwork, 1'000));
  add(2, repeating(Type::State, 1'000));
  startNpa();
  pauseNpa();
  network(1);
  released(1);
  at(1'005);
  unreadState(2);
  at(1'010);
  refused(callOf(kJobs), "its turn comes no earlier than");
}

TEST_F(PrinterModelFinds, AListThatEndsOneIdleCycleTooEarly) {
  add(1, repeating(Type::State, 3'000));
  unreadState(1);
  setDelete(1);
  at(3'001);
  released(1);
  at(27'900);  // after nine
  refused(endOf(kHelper), "its ten idle cycles are over no earlier than");
}

TEST_F(PrinterModelFinds, AListThatEndsWithTasks) {
  add(1, repeating(Type::GetNetwork));
  network(1);
  refused(endOf(kHelper), "list 1 may not end yet");
}

TEST_F(PrinterModelFinds, ARunOfAListThatWasStoppedLongAgo) {
  add(1, repeating(Type::GetNetwork, 10));
  network(1);
  stop();
  released(1);
  at(100);
  refused(callOf(kNetwork), "list 1 may not run anything");
}

TEST_F(PrinterModelFinds, TwoListsOfOnePrinter) {
  add(1, repeating(Type::GetNetwork));
  network(1);
  add(2, repeating(Type::GetAlarm));
  runsOn(kNewHelper);
  refused(callOf(kAlarm), "the printer has no list that could run anything");
}

TEST_F(PrinterModelFinds, ASecondListWhereNoOldWorkerIsLeft) {
  add(1, once(Type::GetNetwork, 100));
  setDelete(1);
  at(5);
  released(1);
  stop();
  seen(endOf(kWorker));
  add(2, repeating(Type::GetNetwork, 100));
  network(2);
  add(3, repeating(Type::GetAlarm));
  runsOn(kNewHelper);
  refused(callOf(kAlarm), "the printer has no list that could run anything");
}

TEST_F(PrinterModelFinds, ATaskThatAnotherListLetsGoOf) {
  add(1, repeating(Type::GetNetwork));
  seen(callOf(kNetwork));  // hangs
  stop();
  add(2, once(Type::GetNetwork));
  runsOn(kNewHelper);
  network(2);
  seen(releaseOf(2, kNewWorker));
  runsOn(kHelper);
  seen({.what = What::callEnd, .thread = kHelper, .function = kNetwork});
  notice(1);
  refused(releaseOf(1, kNewWorker), "which this is no thread of");
}

TEST_F(PrinterModelFinds, AWorkerThatEndsBeforeItsList) {
  add(1, once(Type::GetNetwork, 100));
  network(1);
  released(1);
  at(50);
  refused(endOf(kWorker), "its ten idle cycles are over no earlier than");
}

TEST_F(PrinterModelFinds, ATaskThatIsHeldAtTheEnd) {
  add(1, once(Type::GetNetwork));
  network(1);
  at(1'000);
  seen(endOf(kHelper));
  const auto left = m_model->atRest(Moment(2'000'000s));
  ASSERT_TRUE(left);
  EXPECT_NE(left->find("has not let go of these tasks: 1"), std::string::npos) << *left;
}

TEST_F(PrinterModelFinds, AListThatIsThereAtTheEnd) {
  add(1, once(Type::GetNetwork));
  network(1);
  released(1);
  const auto left = m_model->atRest(Moment(2'000'000s));
  ASSERT_TRUE(left);
  EXPECT_NE(left->find("list 1"), std::string::npos) << *left;
}

TEST_F(PrinterModelFinds, AnEventThatIsToldWithTheLastOnesAndWhatWasGoingOn) {
  add(1, once(Type::GetNetwork));
  const auto at = [](const std::string& text, std::string_view part) { return text.find(part); };
  const auto difference =
      m_model->see({.what = What::callBegin, .thread = kHelper, .function = kAlarm, .number = 3, .time = Moment(1'000'001s)});
  ASSERT_TRUE(difference);
  EXPECT_LT(at(*difference, "the module did:"), at(*difference, "it should have done"));
  EXPECT_LT(at(*difference, "it should have done"), at(*difference, "what the module may have been doing before"));
  EXPECT_LT(at(*difference, "what the module may have been doing before"), at(*difference, "the printer's last events:"));
  EXPECT_NE(at(*difference, "Add begins, task 1 (GetNetwork, once, interval 0)"), std::string::npos) << *difference;
}

}  // namespace
}  // namespace soak::test
