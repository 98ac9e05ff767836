#include <atomic>
#include <condition_variable>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <stdexcept>
#include <system_error>

#include "comm/Registry.h"
#include "comm/SchedulerTest.h"
#include "fakes/ThreadStartFault.h"

using namespace std::chrono_literals;
using fakes::withoutNPA;

namespace {

/// What a task may hold: its destructor needs the module's locks.
struct CallsTheModule {
  explicit CallsTheModule(std::shared_ptr<AppComm::Node> node) : task(std::move(node)) {}
  ~CallsTheModule() {
    StartNPA(task);
    PauseNPA(task);
    Add(task);
    ++calls();
  }
  static std::atomic<int>& calls() {
    static std::atomic<int> count{0};
    return count;
  }
  std::shared_ptr<AppComm::Node> task;
};

class LifetimeTest : public SchedulerTest {};
using LifetimeDeathTest = LifetimeTest;

TEST_F(LifetimeTest, AListThatWaitedRanAndEndedLeavesNothing) {
  handlers.onAny(withoutNPA);
  std::weak_ptr<comm::CList> watched;
  std::weak_ptr<AppComm::Node> task;
  {
    auto added = onceTask(Type::State, 1);
    task = added;
    Add(std::move(added));
    const std::lock_guard registry(comm::g_registry.lock);
    watched = comm::g_registry.lists.front();
  }
  for (std::size_t nth = 2; nth <= 11; ++nth) passWait(nth);
  awaitLeave();

  EXPECT_TRUE(support::waitForThreadCount(kThreadsBefore, std::chrono::steady_clock::now() + 20s));
  EXPECT_TRUE(watched.expired());
  EXPECT_TRUE(task.expired());
}

// Whoever sees the leave line may count on it: nothing of the application is held any more, and no helper thread is left.
TEST_F(LifetimeTest, EntriesAndTheHelperThreadAreGoneBeforeTheLeaveLine) {
  handlers.onAny(withoutNPA);
  const auto task = repeatingTask(Type::State, 1);
  beginWith({task});
  std::shared_ptr<comm::CList> list;
  {
    const std::lock_guard registry(comm::g_registry.lock);
    list = comm::g_registry.lists.front();
  }

  stopAndPassTheRest(1000ms);
  awaitLeave();

  EXPECT_TRUE(list->empty());
  EXPECT_EQ(task.use_count(), 1) << "the list has let go of it";
  EXPECT_TRUE(support::waitForThreadCount(kThreadsBefore, std::chrono::steady_clock::now() + 20s))
      << "the list still exists, its threads do not";
}

// What tasks hold is the application's: its destructors must not find the module's locks taken.
TEST_F(LifetimeTest, DestructorsOfTheApplicationMayCallTheModule) {
  CallsTheModule::calls() = 0;
  const auto holding = [this](std::shared_ptr<AppComm::Node> task) {
    task->setResource(std::make_shared<CallsTheModule>(onceTask(Type::GetNetwork, 7)));
    return task;
  };
  const auto deleted = [](std::shared_ptr<AppComm::Node> task) {
    task->setDelete();
    return task;
  };

  // Once task, once observer, deleted task without and with an observer, deleted observer; the last is still there at Stop.
  beginWith({holding(onceTask(Type::State, 1)), holding(onceTask(Type::State, 2)),
             deleted(holding(repeatingTask(Type::GetAlarm, 3))), deleted(holding(repeatingTask(Type::GetPushscan, 4))),
             repeatingTask(Type::GetPushscan, 5), repeatingTask(Type::GetDevParam, 6),
             deleted(holding(repeatingTask(Type::GetDevParam, 7))), holding(repeatingTask(Type::PrintClean, 8))});
  passWait(2);
  awaitWait(3);
  EXPECT_EQ(CallsTheModule::calls(), 5);
  stopAndPassTheRest(1000ms);
  awaitLeave();

  EXPECT_EQ(CallsTheModule::calls(), 6);
}

// Only a list without a worker is let go by Stop itself.
TEST_F(LifetimeTest, DestructorsOfAListWhoseThreadCouldNotStartMayCallTheModuleToo) {
  CallsTheModule::calls() = 0;
  {
    const auto task = onceTask(Type::State, 1);
    task->setResource(std::make_shared<CallsTheModule>(onceTask(Type::GetNetwork, 7, L"P2")));
    const fakes::ThreadStartFault fault;
    EXPECT_THROW(Add(task), std::system_error);
  }

  Stop();

  EXPECT_EQ(CallsTheModule::calls(), 1);
  handlers.awaitRuns(1);
}

TEST_F(LifetimeTest, EightPrintersRunAtTheSameTime) {
  std::mutex mutex;
  std::condition_variable changed;
  int inside = 0;
  handlers.onAny([&](auto&) {
    std::unique_lock lock(mutex);
    ++inside;
    changed.notify_all();
    EXPECT_TRUE(changed.wait_for(lock, 20s, [&] { return inside == 8; }));
    return 0;
  });

  for (int printer = 1; printer <= 8; ++printer) Add(onceTask(Type::State, printer, L"P" + std::to_wstring(printer)));

  {
    std::unique_lock lock(mutex);
    EXPECT_TRUE(changed.wait_for(lock, 20s, [&] { return inside == 8; }));
  }
  awaitLine("thread_list", 163, 8);
}

TEST_F(LifetimeDeathTest, ExceptionOfAHandlerEndsTheProcess) {
  EXPECT_DEATH(
      {
        handlers.onAny([](auto&) -> int { throw std::runtime_error("out of paper"); });
        Add(onceTask(Type::State, 1));
        awaitWait(2);
      },
      "out of paper");
}

TEST_F(LifetimeDeathTest, TypeWithoutAHandlerEndsTheProcessByTheBadFunctionCall) {
  EXPECT_DEATH(
      {
        Add(onceTask(static_cast<Type>(22), 1));
        awaitWait(2);
      },
      "bad_function_call");
}

TEST_F(LifetimeDeathTest, ProcessThatExitsWithoutStopInAWaitEndsAtOnce) {
  EXPECT_EXIT(
      {
        Add(repeatingTask(Type::State, 1));
        awaitWait(2);
        clock.awaitParked(1);
        std::exit(0);
      },
      testing::ExitedWithCode(0), "");
}

TEST_F(LifetimeDeathTest, ProcessThatExitsWithoutStopInAHandlerEndsAtOnce) {
  EXPECT_EXIT(
      {
        handlers.onAny([](auto&) {
          std::mutex mutex;
          std::unique_lock lock(mutex);
          std::condition_variable().wait(lock, [] { return false; });
          return 0;
        });
        Add(repeatingTask(Type::State, 1));
        handlers.awaitRuns(1);
        std::exit(0);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
