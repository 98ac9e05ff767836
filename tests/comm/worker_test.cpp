#include "comm/Worker.h"

#include "comm/SchedulerTest.h"

using namespace std::chrono_literals;
using fakes::withoutNPA;

namespace {

class WorkerTest : public SchedulerTest {
 protected:
  // Lets `count` idle cycles pass, from wait line `first` on, each one interval long.
  void passIdleCycles(std::size_t first, std::size_t count) {
    for (std::size_t nth = first; nth < first + count; ++nth) passWait(nth);
  }
};

TEST_F(WorkerTest, TwoRepeatingEntriesTakeTurns) {
  beginWith({repeatingTask(Type::State, 1), repeatingTask(Type::GetAlarm, 2)});

  for (std::size_t nth = 2; nth <= 5; ++nth) passWait(nth);
  awaitWait(6);

  EXPECT_EQ(handlers.runs(), (std::vector<long>{0, 1, 2, 1, 2}));
}

TEST_F(WorkerTest, OnceTaskAddedDuringARunIsNextAndTheOthersKeepTheirOrder) {
  constexpr long A = 1, B = 2, C = 3, X = 9;
  const auto once = onceTask(Type::PrintClean, X);
  handlers.on(Type::State, [&](auto&) {
    if (handlers.runs().size() == 2) Add(once);
    return 0;
  });

  beginWith({repeatingTask(Type::State, A), repeatingTask(Type::GetAlarm, B), repeatingTask(Type::GetDevParam, C)});
  for (std::size_t nth = 2; nth <= 8; ++nth) passWait(nth);
  awaitWait(9);

  EXPECT_EQ(handlers.runs(), (std::vector<long>{0, A, X, B, C, A, B, C}));
}

TEST_F(WorkerTest, OnceTaskIsGoneAfterItsRun) {
  std::weak_ptr<AppComm::Node> gone;
  {
    auto once = onceTask(Type::State, 1);
    gone = once;
    Add(std::move(once));
  }

  awaitWait(2);

  EXPECT_TRUE(gone.expired());
}

TEST_F(WorkerTest, WorkerMarksTheRunAndTheHandlerMayTakeTheMarkBack) {
  const auto task = repeatingTask(Type::State, 1);
  bool marked = false;
  handlers.onAny([&](comm::CNode& entry) {
    marked = entry.current()->getNPAFlag();
    return withoutNPA(entry);
  });

  Add(task);
  awaitWait(2);

  EXPECT_TRUE(marked);
  EXPECT_FALSE(task->getNPAFlag());
}

TEST_F(WorkerTest, ResultOfTheHandlerIsOnlyLogged) {
  handlers.onAny([](auto&) { return 42; });

  Add(repeatingTask(Type::State, 1));
  passWait(2);
  awaitWait(3);

  std::vector<std::wstring> messages;
  for (const auto& line : logging.lines().all()) {
    if (line.number == 163) messages.push_back(line.message);
  }
  EXPECT_EQ(messages, (std::vector<std::wstring>(2, L"Communication end, uid: P1, result: 42")));
}

TEST_F(WorkerTest, LogOfAWholeLifeHasTheContractsLines) {
  Add(onceTask(Type::State, 1, L"P1", 0));
  awaitLeave();

  std::vector<std::pair<int, std::wstring>> worker;
  for (const auto& line : logging.lines().all()) {
    if (line.function == "thread_list" && line.number != 54) worker.emplace_back(line.number, line.message);
  }
  EXPECT_EQ(worker, (std::vector<std::pair<int, std::wstring>>{{35, L"comm thread list enter, uid: P1"},
                                                               {161, L"Communication beg, uid: P1"},
                                                               {163, L"Communication end, uid: P1, result: 0"},
                                                               {240, L"comm thread list leave, uid: P1"}}));
}

TEST_F(WorkerTest, DeletedTaskLeavesAndItsFirstObserverTakesTheEntrysPlace) {
  const auto first = repeatingTask(Type::State, 1);
  beginWith({repeatingTask(Type::GetDevParam, 4), first, repeatingTask(Type::GetAlarm, 5), repeatingTask(Type::State, 2),
             repeatingTask(Type::State, 3)});

  first->setDelete();
  for (std::size_t nth = 2; nth <= 5; ++nth) passWait(nth);
  awaitWait(6);

  EXPECT_EQ(handlers.runs(), (std::vector<long>{0, 4, 2, 5, 4}));
}

TEST_F(WorkerTest, DeletedObserversLeaveAndTheOthersKeepTheirOrder) {
  std::vector<std::shared_ptr<AppComm::Node>> tasks;
  for (long code = 1; code <= 5; ++code) tasks.push_back(repeatingTask(Type::State, code));
  beginWith(tasks);
  tasks[1]->setDelete();
  tasks[3]->setDelete();
  std::vector<long> seen;
  handlers.onAny([&](comm::CNode& entry) {
    for (const auto& task : entry.tasks()) seen.push_back(task->getCode());
    return 0;
  });

  passWait(2);
  awaitWait(3);

  EXPECT_EQ(seen, (std::vector<long>{1, 3, 5}));
  EXPECT_EQ(tasks[1].use_count(), 1) << "the list has let go of it";
}

TEST_F(WorkerTest, DeletedObserversOfADeletedTaskDoNotTakeItsPlace) {
  std::vector<std::shared_ptr<AppComm::Node>> tasks;
  for (long code = 1; code <= 4; ++code) tasks.push_back(repeatingTask(Type::State, code));
  beginWith(tasks);

  for (const std::size_t index : {0, 1, 3}) tasks[index]->setDelete();
  passWait(2);
  awaitWait(3);

  EXPECT_EQ(handlers.runs(), (std::vector<long>{0, 3}));
  EXPECT_EQ(tasks[3].use_count(), 1) << "the list has let go of it";
}

TEST_F(WorkerTest, EntryWhoseTasksAreAllDeletedLeaves) {
  std::vector<std::shared_ptr<AppComm::Node>> tasks{repeatingTask(Type::State, 1), repeatingTask(Type::State, 2)};
  beginWith(tasks);

  for (const auto& task : tasks) task->setDelete();
  passWait(2);  // from here on the last NPA run is exactly one interval old, and the idle cycles follow at once

  awaitLeave();
  EXPECT_EQ(handlers.runs(), (std::vector<long>{0}));
}

TEST_F(WorkerTest, DeletedTaskWithNoObserversTakesItsEntryAlong) {
  const auto task = repeatingTask(Type::State, 1);
  beginWith({task, repeatingTask(Type::GetAlarm, 2)});

  task->setDelete();
  passWait(2);
  passWait(3);
  awaitWait(4);

  EXPECT_EQ(handlers.runs(), (std::vector<long>{0, 2, 2}));
  EXPECT_EQ(task.use_count(), 1) << "the list has let go of it";
}

TEST_F(WorkerTest, OnceObserversLeaveAfterAnyRunOfTheirEntry) {
  const auto once = onceTask(Type::State, 2);
  std::vector<std::size_t> observers;
  handlers.onAny([&](comm::CNode& entry) {
    observers.push_back(entry.tasks().size() - 1);
    return 2;  // nobody was notified: the run counts all the same
  });

  beginWith({repeatingTask(Type::State, 1), once, repeatingTask(Type::State, 3)});
  passWait(2);
  passWait(3);
  awaitWait(4);

  EXPECT_EQ(observers, (std::vector<std::size_t>{2, 1}));
  EXPECT_EQ(once.use_count(), 1) << "the list has let go of it";
}

TEST_F(WorkerTest, RepeatingObserverBecomesCurrentAfterAOnceTask) {
  beginWith({onceTask(Type::State, 1), repeatingTask(Type::State, 2)});
  passWait(2);
  passWait(3);
  awaitWait(4);

  EXPECT_EQ(handlers.runs(), (std::vector<long>{0, 1, 2}));
}

TEST_F(WorkerTest, OnceObserverThatComesAfterTheNoticeIsRemovedWithoutARun) {
  const auto late = onceTask(Type::State, 2);
  handlers.onAny([&](auto&) {
    if (handlers.runs().size() == 1) Add(late);  // as after the notice: this handler notifies no more
    return 0;
  });

  Add(onceTask(Type::State, 1));
  awaitWait(2);

  EXPECT_EQ(handlers.runs(), (std::vector<long>{1}));
  EXPECT_EQ(late.use_count(), 1);
  EXPECT_FALSE(late->getUpdate());
}

TEST_F(WorkerTest, EmptyListEndsAfterTenIdleCyclesOneIntervalApart) {
  handlers.onAny(withoutNPA);
  Add(onceTask(Type::State, 1));

  passIdleCycles(2, 10);

  awaitLeave();
  const auto all = waits();
  ASSERT_EQ(all.size(), 11U);
  for (std::size_t nth = 2; nth <= 11; ++nth) EXPECT_EQ(all[nth - 1].duration, 1000) << "wait " << nth;
  EXPECT_EQ(registeredLists(), 0U);
}

class AddInIdleCycleTest : public SchedulerTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(AddInIdleCycleTest, ResetsTheCountdown) {
  handlers.onAny(withoutNPA);
  const std::size_t cycle = GetParam();
  Add(onceTask(Type::State, 1));
  for (std::size_t nth = 2; nth < 2 + cycle - 1; ++nth) passWait(nth);
  const std::size_t last = 2 + cycle - 1;
  awaitWait(last);
  clock.awaitParked(1);

  Add(onceTask(Type::GetAlarm, 2));

  clock.advance(1000ms);
  handlers.awaitRuns(2);
  EXPECT_EQ(count("Add", 76), 1U);
  for (std::size_t nth = last + 1; nth <= last + 10; ++nth) passWait(nth);
  awaitLeave();
  EXPECT_EQ(waits().size(), last + 10) << "ten idle cycles after the second task, not fewer";
}

INSTANTIATE_TEST_SUITE_P(Cycles, AddInIdleCycleTest, testing::Range<std::size_t>(1, 11));

// Between the test of the countdown and the counting down, the worker reads the clock once: that is where Add comes in.
TEST_F(WorkerTest, AddBetweenTheTestAndTheCountingLeavesNoCountdownBelowZero) {
  handlers.onAny([this](comm::CNode& entry) {
    // To come: the end of the run (1), the wait (2, 3), the idle cycle (4).
    if (handlers.runs().size() == 1) clock.atReading(4, [this] { Add(onceTask(Type::GetAlarm, 2)); });
    return withoutNPA(entry);
  });

  Add(onceTask(Type::State, 1, L"P1", 0));

  EXPECT_EQ(handlers.awaitRuns(2), (std::vector<long>{1, 2}));
  awaitLeave();
  EXPECT_EQ(waits().size(), 13U) << "a wait per run, one for the disturbed idle cycle, ten for those that end the list";
}

// Add has found the list and not yet put the task there when the worker decides to end.
TEST_F(WorkerTest, ATaskThatAnEndingListTakesIsDroppedWithIt) {
  handlers.onAny(withoutNPA);
  const auto late = onceTask(Type::GetAlarm, 2);
  Add(onceTask(Type::State, 1));
  passIdleCycles(2, 9);
  awaitWait(11);
  clock.awaitParked(1);

  windows->beforeNextLine([&] {    // Add's entry line: before it looks for the list
    windows->beforeNextLine([&] {  // its "put" line: between the finding and the putting
      clock.advance(1000ms);
      awaitLeave();
    });
  });
  EXPECT_EQ(Add(late), 0);

  EXPECT_EQ(count("Add", 76), 1U);
  EXPECT_EQ(handlers.runs(), (std::vector<long>{1}));
  EXPECT_EQ(late.use_count(), 1) << "nobody holds it any more";
}

TEST_F(WorkerTest, StopDropsWhatIsQueuedWithoutMarkingItDeleted) {
  const auto task = repeatingTask(Type::State, 1);
  const auto queued = repeatingTask(Type::GetAlarm, 2);
  beginWith({task, queued});

  stopAndPassTheRest(1000ms);
  awaitLeave();

  EXPECT_FALSE(task->getDelete());
  EXPECT_FALSE(queued->getDelete());
  EXPECT_EQ(handlers.runs(), (std::vector<long>{0}));
}

TEST_F(WorkerTest, StopDuringARunLetsItFinish) {
  handlers.onAny([](comm::CNode& entry) {
    Stop();
    return withoutNPA(entry);
  });

  Add(repeatingTask(Type::State, 1));

  awaitLeave();
  EXPECT_EQ(count("thread_list", 163), 1U);
}

}  // namespace
