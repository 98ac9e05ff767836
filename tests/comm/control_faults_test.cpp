/// Each step of a control function fails once, one after the other: the exception leaves the function, nothing is half done
/// beyond what the order of the steps makes so, and the next call works.

#include <set>
#include <system_error>

#include "comm/SchedulerFaultTest.h"
#include "fakes/ThreadStartFault.h"
#include "support/PrivateMember.h"
#include "support/ThrownCode.h"

namespace {
struct WakeupCount : support::PrivateMember<WakeupCount, std::int32_t comm::Semaphore::*> {};
}  // namespace

template struct support::Expose<WakeupCount, &comm::Semaphore::m_count>;

namespace {

using fakes::Step;

constexpr int kTaskTypes = 22;

std::size_t entriesOf(const comm::CList& list) {
  std::size_t count = 0;
  while (list.entry(count) != nullptr) ++count;
  return count;
}

class ControlFaultTest : public SchedulerFaultTest, public testing::WithParamInterface<Step> {
 protected:
  std::size_t failEachStep(const std::function<void()>& operation, const std::function<void()>& settle) {
    return failEach(GetParam(), operation, settle);
  }
  // What the parameter picks: a number of allocations, or of locks.
  static std::size_t steps(std::size_t allocations, std::size_t locks) {
    return GetParam() == Step::allocation ? allocations : locks;
  }

  // The list whose worker is in a run that waits for its leave.
  std::shared_ptr<comm::CList> busyList(const std::wstring& uid = L"P1") {
    holdRuns();
    const auto before = handlers.runs().size();
    Add(onceTask(Type::SetWifiList, uid));
    handlers.awaitRuns(before + 1);
    return registeredLists().back();
  }

  // A list is registered before its thread starts: when that fails it stays, with its task and served by nobody, until Stop.
  // Returns how many such lists there were.
  static std::size_t clearUnservedListOf(const Task& task) {
    const auto lists = registeredLists();
    for (const auto& list : lists) {
      const auto entry = list->entry(0);
      EXPECT_TRUE(entry != nullptr && entry->current() == task);
      EXPECT_TRUE(list->m_running.load());
    }
    Stop();
    return lists.size();
  }
};

TEST_P(ControlFaultTest, AddForANewPrinter) {
  const auto task = onceTask(Type::State);
  std::size_t unserved = 0;
  const auto settle = [&] {
    unserved += clearUnservedListOf(task);
    expectToRunInAListOfItsOwn(task);
  };
  const auto failed = failEachStep([&] { Add(task); }, settle);
  awaitNotices(failed + 1);

  EXPECT_GE(failed, steps(3 + kTaskTypes, 5))
      << "the list, an entry and its place, the handlers; the registry twice, the test's handlers, the entries, the gate";
  EXPECT_EQ(unserved, steps(2, 1)) << "the gate and the thread's own";
}

TEST_P(ControlFaultTest, AddOfAnotherType) {
  const auto list = busyList();
  std::size_t added = 1;
  auto task = onceTask(Type::State);
  const auto settle = [&] {
    EXPECT_EQ(entriesOf(*list), 1U) << "only the one that runs";
    EXPECT_EQ(task.use_count(), 1);
    EXPECT_EQ(list->m_idleCountdown.load(), 0);
    expectUnlocked(*list);

    EXPECT_EQ(Add(task), 0);
    letRun(1);
    handlers.awaitRuns(++added);
    task = onceTask(added % 2 == 0 ? Type::GetAlarm : Type::State);
  };
  const auto failed = failEachStep([&] { Add(task); }, settle);
  letAllRun();
  awaitNotices(added + 1);

  EXPECT_GE(failed, steps(3, 4)) << "the entry and its queue; the registry, the list, its entries twice";
}

TEST_P(ControlFaultTest, AddOfAnObserver) {
  constexpr std::size_t kObservers = 200;  // enough for the queue to grow in each way that it can
  const auto list = busyList();
  Add(onceTask(Type::State));
  const auto entry = list->entry(1);
  std::size_t failed = 0;
  for (std::size_t observers = 0; observers < kObservers; ++observers) {
    const auto task = onceTask(Type::State);
    const auto settle = [&] {
      EXPECT_EQ(entry->tasks().size(), 1 + observers);
      EXPECT_EQ(task.use_count(), 1);
      expectUnlocked(*list);
    };
    failed += failEachStep([&] { Add(task); }, settle);
    EXPECT_EQ(entry->observer(observers), task);
  }
  letAllRun();
  awaitNotices(2 + kObservers);

  EXPECT_GE(failed, steps(kObservers / 40, kObservers * 4)) << "room for more; the registry, the list, its entries, the entry";
}

TEST_P(ControlFaultTest, StartNPA) {
  const auto list = busyList();
  const auto task = onceTask(Type::State);
  const auto observer = onceTask(Type::State);
  Add(task);
  Add(observer);
  const std::int32_t& wakeups = list->m_wakeup.*privateMember(WakeupCount());
  std::int32_t posted = 0;
  const auto settle = [&] {
    EXPECT_EQ(task->getReqNPA(), observer->getReqNPA()) << "all or none";
    EXPECT_EQ(wakeups, posted);
    expectUnlocked(*list);

    StartNPA(task);
    EXPECT_TRUE(task->getReqNPA() && observer->getReqNPA());
    EXPECT_EQ(wakeups, ++posted);
    PauseNPA(task);
  };
  const auto failed = failEachStep([&] { StartNPA(task); }, settle);

  EXPECT_GE(failed, steps(1, 4)) << "the tasks' copy; the registry, the list's entries, the entry, the semaphore";
}

TEST_P(ControlFaultTest, PauseNPA) {
  const auto list = busyList();
  const auto task = onceTask(Type::State);
  const auto observer = onceTask(Type::State);
  Add(task);
  Add(observer);
  StartNPA(task);
  const auto settle = [&] {
    EXPECT_TRUE(task->getReqNPA() && observer->getReqNPA());
    expectUnlocked(*list);

    PauseNPA(task);
    EXPECT_FALSE(task->getReqNPA() || observer->getReqNPA());
    StartNPA(task);
  };
  const auto failed = failEachStep([&] { PauseNPA(task); }, settle);

  EXPECT_GE(failed, steps(2, 4)) << "the lists and the tasks; the registry, the list, its entries, the entry";
}

TEST_P(ControlFaultTest, Stop) {
  std::vector<std::shared_ptr<comm::CList>> lists;
  const auto begin = [&] { lists = {busyList(L"P1"), busyList(L"P2")}; };
  begin();
  const auto settle = [&] {
    EXPECT_EQ(registeredLists(), lists) << "the registry is emptied last";
    for (const auto& list : lists) expectUnlocked(*list);

    EXPECT_EQ(Stop(), 0);
    EXPECT_TRUE(registeredLists().empty());
    for (const auto& list : lists) EXPECT_FALSE(list->m_running.load());
    lists.clear();
    letAllRun();
    handlers.awaitNoLists();
    begin();
  };
  const auto failed = failEachStep([] { Stop(); }, settle);
  EXPECT_TRUE(registeredLists().empty());

  EXPECT_EQ(failed, steps(0, 3)) << "nothing; the registry and two semaphores";
}

INSTANTIATE_TEST_SUITE_P(Steps, ControlFaultTest, testing::Values(Step::allocation, Step::lock),
                         [](const auto& step) { return step.param == Step::allocation ? "Allocation" : "Lock"; });

using ControlFaults = SchedulerFaultTest;

// The list's queue makes room only now and then.
TEST_F(ControlFaults, EachAllocationOfAnAddThatMakesTheQueueGrow) {
  holdRuns();
  Add(onceTask(Type::State));
  handlers.awaitRuns(1);
  const auto list = registeredLists().front();
  std::set<std::size_t> allocations;
  for (std::size_t runs = 1; runs <= 100; ++runs) {
    const auto task = onceTask(runs % 2 == 0 ? Type::State : Type::GetAlarm);
    allocations.insert(failEach(
        Step::allocation, [&] { Add(task); },
        [&] {
          EXPECT_EQ(entriesOf(*list), 1U);
          EXPECT_EQ(task.use_count(), 1);
        }));
    EXPECT_EQ(entriesOf(*list), 2U);
    letRun(1);
    handlers.awaitRuns(runs + 1);
  }
  EXPECT_GT(allocations.size(), 1U) << "none of them made room";
}

TEST_F(ControlFaults, StopClearsAListWhoseThreadCouldNotStartAndTheNextAddWorks) {
  const auto task = onceTask(Type::State);
  {
    const fakes::ThreadStartFault fault;
    EXPECT_EQ(support::thrownCode([&] { Add(task); }), std::errc::resource_unavailable_try_again);
  }
  EXPECT_EQ(Stop(), 0);
  expectToRunInAListOfItsOwn(task);
}

}  // namespace
