/// What the model accepts.

#include "Story.h"

namespace soak::test {
namespace {

class PrinterModelAccepts : public Story {
 protected:
  void beginAdd(TaskId task, const TaskTraits& traits) {
    seen({.what = What::addBegin, .thread = kCaller, .task = task, .traits = traits});
  }
  void endAdd(TaskId task) { seen({.what = What::addEnd, .thread = kCaller, .task = task}); }
};

TEST_F(PrinterModelAccepts, AOnceTaskThatRunsTellsItsWindowAndLeaves) {
  add(1, once(Type::GetNetwork, 100));
  network(1);
  released(1);
  EXPECT_EQ(m_model->runs(), 1U);
  at(1'000);
  seen(endOf(kHelper));
  expectRest();
}

TEST_F(PrinterModelAccepts, ObserversToldAfterTheTaskInTheirOrder) {
  add(1, repeating(Type::GetNetwork));
  add(2, repeating(Type::GetNetwork));
  add(3, repeating(Type::GetNetwork));
  for (int run = 0; run < 2; ++run) {
    network(1);
    notice(2);
    notice(3);
  }
  EXPECT_EQ(m_model->runs(), 2U);
}

TEST_F(PrinterModelAccepts, AnObserverThatJoinsDuringTheWalkAndIsTold) {
  add(1, repeating(Type::GetNetwork));
  call(kNetwork);
  seen(noticeTo(1));
  add(2, repeating(Type::GetNetwork));
  seen({.what = What::noticeEnd, .thread = kHelper, .task = 1, .value = 1});
  notice(2);
}

TEST_F(PrinterModelAccepts, AnObserverThatJoinsAfterTheNoticeAndWaitsForTheNextRun) {
  add(1, repeating(Type::GetNetwork));
  network(1);
  add(2, repeating(Type::GetNetwork));
  network(1);
  notice(2);
}

TEST_F(PrinterModelAccepts, AOnceObserverThatIsLostAfterTheNotice) {
  add(1, repeating(Type::GetNetwork));
  network(1);
  add(2, once(Type::GetNetwork));
  released(2);
  network(1);
}

TEST_F(PrinterModelAccepts, AOnceObserverThatComesAfterTheRunAndIsTold) {
  add(1, repeating(Type::GetNetwork));
  network(1);
  add(2, once(Type::GetNetwork));
  network(1);
  notice(2);
  released(2);
}

TEST_F(PrinterModelAccepts, ATaskAddedBeforeOrAfterTheEntryThatRanWentToTheBack) {
  add(1, repeating(Type::GetNetwork));
  network(1);
  add(2, repeating(Type::GetAlarm));  // in front of task 1 or behind it
  network(1);
  call("AppPrinterSdk_IsSuppportSuppliesAlarm");
  network(1);
}

TEST_F(PrinterModelAccepts, AnEntryWhoseTaskIsDeletedAndGoesOnWithTheFirstObserverInItsPlace) {
  add(1, repeating(Type::GetNetwork, 100));
  add(2, repeating(Type::GetNetwork));
  add(3, repeating(Type::GetAlarm));
  network(1);
  notice(2);
  at(20);
  setDelete(1);
  at(110);
  released(1);
  call("AppPrinterSdk_IsSuppportSuppliesAlarm");
  at(220);
  network(2);
}

TEST_F(PrinterModelAccepts, AnOnceTaskThatJumpsTheQueue) {
  add(1, repeating(Type::GetNetwork, 100));
  add(2, repeating(Type::GetAlarm));
  network(1);
  at(50);
  add(3, once(Type::SetNetwork));
  at(110);
  call(kJobs, 1);
  notice(3);
  released(3);
  at(220);
  call("AppPrinterSdk_IsSuppportSuppliesAlarm");
}

TEST_F(PrinterModelAccepts, AWakeUpThatShortensTheWaitOfAListWithoutNpaRuns) {
  add(1, repeating(Type::State, 100));
  unreadState(1);
  at(30);
  startNpa();
  at(31);
  call(kJobs);
  call(kRead);
  seen(noticeTo(1, 1));
}

TEST_F(PrinterModelAccepts, WakeUpsOfTheTimerThatALateWorkerFinds) {
  add(1, repeating(Type::State, 100));
  unreadState(1);
  at(350);  // the timer has gone off at 100, 200 and 300
  unreadState(1);
  unreadState(1);
  unreadState(1);
}

TEST_F(PrinterModelAccepts, WakeUpsOfTheTimerThatALateWorkerFindsAfterManyPunctualRuns) {
  add(1, repeating(Type::RegUpgrade, 100));
  for (int run = 0; run < 12; ++run) {
    at(run * 101);
    call("AppSdk_SetPrinterUpgradeInfo");
  }
  add(2, repeating(Type::State));
  at(2'900);
  setDelete(1);
  at(3'000);  // the timer has gone off many times
  released(1);
  unreadState(2);
  call(kJobs);
  at(3'150);
  call(kScan);
  notice(2);
  unreadState(2);  // by now the last run that kept its mark is certain to be long ago
}

TEST_F(PrinterModelAccepts, EitherOutcomeOfStartAndPauseAtOnce) {
  add(1, repeating(Type::State));
  seen({.what = What::startBegin, .thread = 2, .traits = {.type = Type::State}});
  seen({.what = What::pauseBegin, .thread = 3, .traits = {.type = Type::State}});
  seen({.what = What::startEnd, .thread = 2});
  seen({.what = What::pauseEnd, .thread = 3});
  call(kJobs);
  call(kRead);
  notice(1);
}

TEST_F(PrinterModelAccepts, PushScanObserversThatAreDroppedUntold) {
  add(1, repeating(Type::GetPushscan));
  add(2, repeating(Type::GetPushscan));
  call(kParameters);
  notice(1);
  released(2);
  call(kParameters, -5);
  call(kParameters);
  notice(1);
}

TEST_F(PrinterModelAccepts, ARecordOfAnotherTypeThatIsLookedAtAndNotTold) {
  auto traits = repeating(Type::State, 50);
  traits.wrongRecord = true;
  add(1, traits);
  seen({.what = What::recordCopied, .thread = kHelper, .task = 1});
  at(60);
  seen({.what = What::recordCopied, .thread = kHelper, .task = 1});
  EXPECT_EQ(m_model->runs(), 2U);
}

TEST_F(PrinterModelAccepts, EverythingThatIsQueuedDroppedByStop) {
  add(1, repeating(Type::GetNetwork, 100));
  add(2, once(Type::GetAlarm));
  call(kNetwork);
  stop();
  notice(1);
  released(1);
  released(2);
  seen(endOf(kHelper));
  expectRest();
}

TEST_F(PrinterModelAccepts, ANewListThatAnOldWorkerUnregistered) {
  endOldWorkerBesideANewList();
  add(3, repeating(Type::GetNetwork));  // the registry is empty: a third list
  runsOn(12);
  network(3);
  runsOn(kNewHelper);
  network(2);
  network(2);
}

TEST_F(PrinterModelAccepts, AListMadeAfterAnOldWorkerWasDoneWithTheRegistryAndBeforeItLetGoOfItsTasks) {
  add(1, repeating(Type::GetNetwork, 100));
  network(1);
  stop();
  add(2, repeating(Type::GetNetwork, 100));
  released(1);
  add(3, repeating(Type::GetNetwork, 100));
  runsOn(kNewHelper);
  network(2);
  notice(3);
}

TEST_F(PrinterModelAccepts, TwoListsThatRunTheSameAndShowOnlyLaterWhichIsWhich) {
  add(1, repeating(Type::State));
  stop();
  add(2, repeating(Type::State));
  add(3, once(Type::SetTimedClear));  // after the list of task 2 had chosen what it runs
  add(4, repeating(Type::State));     // after the first list's worker took that list out of the registry
  runsOn(kNewHelper);
  call(kJobs);
  runsOn(kHelper);
  unreadState(2);
  runsOn(kNewHelper);
  call(kScan);
  notice(4);
}

TEST_F(PrinterModelAccepts, ATaskThatIsPlacedInAListThatEnds) {
  add(1, once(Type::GetNetwork));
  network(1);
  released(1);
  beginAdd(2, once(Type::GetAlarm));
  released(2);
  endAdd(2);
  seen(endOf(kHelper));
  expectRest();
}

TEST_F(PrinterModelAccepts, AListThatWasNeverSeenToRun) {
  add(1, once(Type::GetNetwork));
  stop();
  released(1);
  expectRest();
}

TEST_F(PrinterModelAccepts, AStoppedListWithoutRunsThatTakesTheNextOneOutOfTheRegistry) {
  add(1, once(Type::GetNetwork, 100));
  setDelete(1);
  at(5);
  released(1);
  stop();
  add(2, repeating(Type::GetNetwork, 100));
  network(2);
  at(10);
  seen(endOf(kWorker));
  add(3, repeating(Type::GetAlarm));
  runsOn(kNewHelper);
  call("AppPrinterSdk_IsSuppportSuppliesAlarm");
}

TEST_F(PrinterModelAccepts, AWakeUpThatComesBetweenTheEndOfAPunctualWaitAndTheRun) {
  const auto print = [this] {
    call(kJobs, 1);
    notice(1);
  };
  add(1, repeating(Type::State, 50));
  for (int run = 0; run < 10; ++run) {
    at(run * 51);
    print();
  }
  at(509.3);  // the wait is over since 509.03
  startNpa();
  at(509.5);
  print();
  print();
}

// Its wait begins 9 ms after its stamps, with 1 ms left, and it comes 1.5 ms late to stop the timer.
TEST_F(PrinterModelAccepts, AWakeUpByATimerWhosePeriodWasShort) {
  add(1, repeating(Type::State, 10));
  unreadState(1);
  at(11.6);
  unreadState(1);
  unreadState(1);
}

TEST_F(PrinterModelAccepts, AWakeUpThatComesLongAfterTheTasksWereMarked) {
  add(1, repeating(Type::State, 1'000));
  beginStart(2);
  call(kJobs);
  call(kRead);  // it is marked
  notice(1);
  pauseNpa();
  at(1'005);
  call(kJobs);
  at(1'010);
  call(kScan);
  notice(1);
  endStart(2);
  call(kJobs);
}

TEST_F(PrinterModelAccepts, AnObserverThatIsNotYetMarkedWhereTheFirstTaskIs) {
  serveFirstOfTwoDuringAStart();
  unreadState(2);
  endStart();
  call(kJobs);
  call(kRead);
}

TEST_F(PrinterModelAccepts, ManyStopsWhoseListsAreSlowToEnd) {
  for (TaskId task = 1; task <= 20; ++task) {
    at(task * 50);
    add(task, once(Type::FirmUpCheck, 10'000));
    setDelete(task);
    at(task * 50 + 5);
    seen(releaseOf(task, kWorker + task));
    stop();
    if (task > 2) seen(endOf(kWorker + task - 2));
  }
  EXPECT_LT(m_model->mostStates(), 100U);
}

TEST_F(PrinterModelAccepts, AListThatEndsAnIntervalAfterAWatchThatShowedNothing) {
  add(1, once(Type::FirmUpCheck, 100));
  setDelete(1);
  released(1);  // by a tidy pass, or by a run: with the first it would end after ten intervals
  at(101);
  seen(endOf(kWorker));
  expectRest();
}

TEST_F(PrinterModelAccepts, AWatchThatWasDeletedBeforeItsLateFirstRun) {
  add(1, once(Type::FirmUpCheck, 10));
  at(10'000);
  seen({.what = What::deleteBegin, .thread = kCaller, .task = 1});
  seen({.what = What::onceBegin, .thread = 2, .task = 1, .value = 0});  // shows nothing, however often it has run
  startNpa();
  released(1);
  EXPECT_LT(m_model->mostStates(), 20U);
}

TEST_F(PrinterModelAccepts, AWatchThatEndsWhenItsTaskIsDeleted) {
  add(1, once(Type::FirmUpCheck));
  call(kRead);
  notice(1);
  at(100);
  call(kRead);
  setDelete(1);
  notice(1);
  released(1);
}

TEST_F(PrinterModelAccepts, ATransferWithoutALastNoticeForATaskThatRefused) {
  add(1, once(Type::FirmUpgrade));
  call("AppPrinterSdk_UpgradeFwStart");
  call("AppPrinterSdk_UpgradeFwProgress");
  notice(1, false);
  at(100);
  call("AppPrinterSdk_UpgradeFwExit");
  released(1);
}

}  // namespace
}  // namespace soak::test
