#include <condition_variable>
#include <system_error>
#include <thread>

#include "comm/Registry.h"
#include "comm/SchedulerTest.h"
#include "fakes/ThreadStartFault.h"
#include "log/Log.h"
#include "support/PrivateMember.h"
#include "support/ThrownCode.h"

using namespace std::chrono_literals;
using fakes::withoutNPA;

namespace {
struct SemaphoreCount : support::PrivateMember<SemaphoreCount, std::int32_t comm::Semaphore::*> {};
}  // namespace

template struct support::Expose<SemaphoreCount, &comm::Semaphore::m_count>;

namespace {

class ControlFunctionsTest : public SchedulerTest {
 protected:
  // The lines of one function, as "number: message".
  std::vector<std::wstring> linesOf(std::string_view function) const {
    std::vector<std::wstring> all;
    for (const auto& line : logging.lines().all()) {
      if (line.function == function) all.push_back(std::to_wstring(line.number) + L": " + line.message);
    }
    return all;
  }

  std::shared_ptr<comm::CList> onlyList() {
    const std::lock_guard registry(comm::g_registry.lock);
    return comm::g_registry.lists.size() == 1 ? comm::g_registry.lists.front() : nullptr;
  }
};

using Lines = std::vector<std::wstring>;

TEST_F(ControlFunctionsTest, FirstAddCreatesListAndWorker) {
  EXPECT_EQ(Add(repeatingTask(Type::State, 1)), 0);

  EXPECT_EQ(linesOf("Add"),
            (Lines{L"53: comm add entry. uid: P1.", L"94: create list for this node.", L"146: comm add leave. put: 1"}));
  EXPECT_EQ(registeredLists(), 1U);
  awaitWait(2);
  EXPECT_EQ(count("thread_list", 35), 1U);
}

TEST_F(ControlFunctionsTest, AddOfAnotherTypeGoesToTheBackend) {
  Add(repeatingTask(Type::State, 1));
  Add(repeatingTask(Type::GetAlarm, 2));

  EXPECT_EQ(linesOf("Add").at(4), L"76: put the node to list backend.");
  passWait(2);
  awaitWait(3);
  EXPECT_EQ(registeredLists(), 1U);
  EXPECT_EQ(count("thread_list", 35), 1U) << "one worker";
}

TEST_F(ControlFunctionsTest, AddOfAQueuedTypeBecomesTheLastObserver) {
  Add(repeatingTask(Type::State, 1));
  Add(repeatingTask(Type::State, 2));
  Add(repeatingTask(Type::State, 3));

  EXPECT_EQ(linesOf("Add").at(4), L"68: put the node to oberver list.");
  const auto list = onlyList();
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->entry(1), nullptr) << "the backend has not grown";
  const auto tasks = list->entry(0)->tasks();
  ASSERT_EQ(tasks.size(), 3U);
  EXPECT_EQ(tasks.back()->getCode(), 3);
}

TEST_F(ControlFunctionsTest, AddLooksAtTheTypeOnly) {
  const auto first = repeatingTask(Type::State, 1);
  Add(first);
  awaitWait(2);
  clock.awaitParked(1);
  first->setDelete();

  Add(onceTask(Type::State, 2, L"P1", 5));

  EXPECT_EQ(count("Add", 68), 1U);
}

TEST_F(ControlFunctionsTest, AddForASecondPrinterMakesASecondListAndWorker) {
  Add(repeatingTask(Type::State, 1, L"P1"));
  Add(repeatingTask(Type::State, 2, L"P2"));

  awaitLine("thread_list", 35, 2);
  EXPECT_EQ(registeredLists(), 2U);
  awaitWait(4);
}

TEST_F(ControlFunctionsTest, TasksOfOnePrinterDescriptionShareAList) {
  const auto first = repeatingTask(Type::State, 1);
  const auto second = AppComm::Node::Instance(first->getInfo(), nullptr, 2, Type::GetAlarm);
  Add(first);
  Add(second);

  EXPECT_EQ(registeredLists(), 1U);
  awaitWait(2);
  EXPECT_EQ(count("thread_list", 35), 1U);
}

TEST_F(ControlFunctionsTest, UidsAreComparedWholeAndUnitByUnit) {
  for (const auto* uid : {L"P", L"P1", L"p1", L"P11", L""}) Add(repeatingTask(Type::State, 1, uid));

  EXPECT_EQ(registeredLists(), 5U);
}

TEST_F(ControlFunctionsTest, AListKeepsTheIntervalOfTheTaskThatMadeIt) {
  const auto first = repeatingTask(Type::State, 1, L"P1", 1000);
  Add(first);
  Add(repeatingTask(Type::GetAlarm, 2, L"P1", 5));
  first->getInfo()->interval = 7;

  EXPECT_EQ(awaitWait(2).interval, 1000);
}

TEST_F(ControlFunctionsTest, EveryReferenceIsLetGo) {
  const auto task = onceTask(Type::State, 1);
  Add(task);
  awaitWait(2);
  EXPECT_EQ(task.use_count(), 1);
  StartNPA(task);
  PauseNPA(task);
  EXPECT_EQ(task.use_count(), 1);
}

TEST_F(ControlFunctionsTest, StartNpaWithoutAListOrEntryLogsItsTwoLinesAndWakesNobody) {
  const Lines twoLines{L"176: comm start NPA entry.", L"206: comm start NPA leave."};
  EXPECT_EQ(StartNPA(onceTask(Type::State, 1)), 0);
  EXPECT_EQ(linesOf("StartNPA"), twoLines);

  handlers.onAny(withoutNPA);
  Add(repeatingTask(Type::State, 1));
  awaitWait(2);
  clock.awaitParked(1);
  const auto parkings = clock.parkings();
  StartNPA(onceTask(Type::GetAlarm, 2));

  EXPECT_EQ(count("StartNPA", 201), 0U);
  clock.advance(999ms);
  EXPECT_EQ(clock.parkings(), parkings);
  EXPECT_EQ(handlers.runs().size(), 1U);
}

TEST_F(ControlFunctionsTest, StartNpaMarksTheEntryAndItsObserversAndPostsOnce) {
  handlers.onAny(withoutNPA);
  const auto current = repeatingTask(Type::State, 1);
  const auto observer = repeatingTask(Type::State, 2);
  const auto other = repeatingTask(Type::GetAlarm, 3);
  beginWith({other, current, observer});

  StartNPA(onceTask(Type::State, 9));

  EXPECT_TRUE(current->getReqNPA());
  EXPECT_TRUE(observer->getReqNPA());
  EXPECT_FALSE(other->getReqNPA());
  EXPECT_EQ(linesOf("StartNPA"),
            (Lines{L"176: comm start NPA entry.", L"201: comm start set semaphore.", L"206: comm start NPA leave."}));
}

TEST_F(ControlFunctionsTest, StartNpaDoesNotReorderAndARunDoesNotClearTheRequest) {
  handlers.onAny([this](comm::CNode& entry) {
    clock.advance(1ms);
    return withoutNPA(entry);
  });
  const auto second = repeatingTask(Type::GetAlarm, 2);
  beginWith({repeatingTask(Type::State, 1), second});

  clock.awaitParked(1);
  const auto parkings = clock.parkings();
  StartNPA(second);
  clock.awaitParkings(parkings + 1);
  passWait(2);
  passWait(3);
  awaitWait(4);

  EXPECT_EQ(handlers.runs(), (std::vector<long>{0, 1, 2}));
  EXPECT_TRUE(second->getReqNPA());
}

TEST_F(ControlFunctionsTest, PauseNpaClearsTheSameMarksAndPostsNothing) {
  const auto current = repeatingTask(Type::State, 1);
  const auto observer = repeatingTask(Type::State, 2);
  const auto other = repeatingTask(Type::GetAlarm, 3);
  beginWith({other, current, observer});
  for (const auto& task : {current, observer, other}) task->setReqNPA();

  EXPECT_EQ(PauseNPA(onceTask(Type::State, 9)), 0);

  EXPECT_FALSE(current->getReqNPA());
  EXPECT_FALSE(observer->getReqNPA());
  EXPECT_TRUE(other->getReqNPA());
  EXPECT_EQ(linesOf("PauseNPA"), (Lines{L"219: comm pause NPA entry.", L"245: comm pause NPA leave."}));
}

// While the worker is busy a post would stay counted.
TEST_F(ControlFunctionsTest, PauseNpaPostsNothingAndStartNpaOnce) {
  const auto task = repeatingTask(Type::State, 1);
  std::vector<std::int32_t> counts;
  handlers.onAny([&](auto&) {
    const auto list = onlyList();
    for (const auto function : {PauseNPA, StartNPA}) {
      function(task);
      counts.push_back(list->m_wakeup.*privateMember(SemaphoreCount()));
    }
    return 0;
  });

  Add(task);
  awaitWait(2);

  EXPECT_EQ(counts, (std::vector<std::int32_t>{0, 1}));
}

TEST_F(ControlFunctionsTest, StopWithoutListsLogsEntryAndLeave) {
  EXPECT_EQ(Stop(), 0);

  EXPECT_EQ(linesOf("Stop"), (Lines{L"151: comm stop entry.", L"162: comm stop leave."}));
}

TEST_F(ControlFunctionsTest, StopEndsEveryListAndEmptiesTheRegistry) {
  handlers.onAny(withoutNPA);
  Add(repeatingTask(Type::State, 1, L"P1"));
  Add(repeatingTask(Type::State, 2, L"P2"));
  std::list<std::shared_ptr<comm::CList>> lists;
  {
    const std::lock_guard registry(comm::g_registry.lock);
    lists = comm::g_registry.lists;
  }

  EXPECT_EQ(Stop(), 0);

  EXPECT_EQ(registeredLists(), 0U);
  for (const auto& list : lists) EXPECT_FALSE(list->m_running.load());
  lists.clear();
  awaitLeave(2);
}

TEST_F(ControlFunctionsTest, AddAfterStopMakesANewListWhileTheOldWorkerFinishes) {
  Add(repeatingTask(Type::State, 1));
  awaitWait(2);
  clock.awaitParked(1);

  Stop();
  Add(repeatingTask(Type::State, 2));

  EXPECT_EQ(count("Add", 94), 2U);
  awaitLine("thread_list", 35, 2);
  EXPECT_EQ(handlers.awaitRuns(2), (std::vector<long>{1, 2}));
  EXPECT_EQ(count("thread_list", 240), 0U) << "the old worker waits out its interval";
}

// A worker takes every list with its uid along; a list that is no longer registered goes on serving its own entries.
TEST_F(ControlFunctionsTest, AnOldWorkersEndUnregistersTheNewListWhichGoesOnServingItsEntries) {
  Add(repeatingTask(Type::State, 1));
  awaitWait(2);
  clock.awaitParked(1);
  Stop();
  Add(repeatingTask(Type::State, 2));
  awaitWait(3);
  awaitWait(4);
  clock.awaitParked(2);
  EXPECT_EQ(registeredLists(), 1U);

  clock.advance(1000ms);

  awaitLeave(1);
  EXPECT_EQ(registeredLists(), 0U);
  handlers.awaitRuns(3);
  Add(repeatingTask(Type::GetAlarm, 3));
  EXPECT_EQ(count("Add", 94), 3U) << "the next task makes yet another list";
}

TEST_F(ControlFunctionsTest, WhenTheThreadCannotStartTheExceptionLeavesAddAndTheListStaysRegistered) {
  {
    const fakes::ThreadStartFault fault;
    EXPECT_EQ(support::thrownCode([&] { Add(onceTask(Type::State, 1)); }), std::errc::resource_unavailable_try_again);
  }

  const auto list = onlyList();
  ASSERT_NE(list, nullptr);
  EXPECT_TRUE(list->m_running.load());
  EXPECT_EQ(Stop(), 0);
  EXPECT_EQ(registeredLists(), 0U);
}

TEST_F(ControlFunctionsTest, TasksOfAListWhoseThreadCouldNotStartAreQueuedThereAndNeverRun) {
  using Tasks = std::vector<std::shared_ptr<AppComm::Node>>;
  const auto first = onceTask(Type::State, 1);
  const auto second = onceTask(Type::GetAlarm, 2);
  const auto observer = onceTask(Type::State, 3);
  {
    const fakes::ThreadStartFault fault;
    EXPECT_THROW(Add(first), std::system_error);
  }
  const auto list = onlyList();
  ASSERT_NE(list, nullptr);

  EXPECT_EQ(Add(second), 0);
  EXPECT_EQ(Add(observer), 0);
  ASSERT_NE(list->entry(1), nullptr);
  EXPECT_EQ(list->entry(0)->tasks(), (Tasks{first, observer}));
  EXPECT_EQ(list->entry(1)->tasks(), (Tasks{second}));
  EXPECT_EQ(list->entry(2), nullptr);

  Add(onceTask(Type::State, 4, L"P2"));
  EXPECT_EQ(handlers.awaitRuns(1), std::vector<long>{4}) << "another printer is served";
  stopAndPassTheRest(1000ms);
  awaitLeave();
  EXPECT_EQ(count("thread_list", 35), 1U) << "the other printer's worker";
  EXPECT_EQ(handlers.runs(), std::vector<long>{4});
}

TEST_F(ControlFunctionsTest, TwoAddsAtOnceForANewPrinterMakeOneList) {
  for (int round = 0; round < 50; ++round) {
    const auto uid = L"R" + std::to_wstring(round);
    std::vector<std::thread> callers;
    for (const auto type : {Type::State, Type::GetAlarm, Type::GetDevParam}) {
      const auto task = onceTask(type, 1, uid);
      callers.emplace_back([task] { Add(task); });
    }
    for (auto& caller : callers) caller.join();
  }
  EXPECT_EQ(registeredLists(), 50U);
  handlers.awaitRuns(50);
}

TEST_F(ControlFunctionsTest, WithTheLogOffEverythingBehavesTheSame) {
  g_logMask = 0;
  const auto task = onceTask(Type::State, 1);

  Add(task);

  handlers.awaitRuns(1);
  EXPECT_EQ(registeredLists(), 1U);
  Stop();
  EXPECT_EQ(registeredLists(), 0U);
}

}  // namespace
