/// What goes wrong in a worker, or in a handler that its helper thread runs, ends the process: there is nobody to be told. Only
/// what goes wrong in the timer's task does not, and leaves the worker asleep until it is woken.

#include <atomic>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <thread>

#include "comm/SchedulerFaultTest.h"
#include "comm/Worker.h"
#include "fakes/ThreadStartFault.h"

namespace {

using fakes::Step;
using fakes::StepFault;

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

class WorkerFaultDeathTest : public SchedulerFaultTest {
 protected:
  // A list with one task, whose worker is still to come. That will begin with a wait, from which it is woken at once.
  std::shared_ptr<comm::CList> listWithoutWorker() {
    const fakes::ThreadStartFault fault;
    EXPECT_THROW(Add(onceTask(Type::State, L"P1", kWaitsFirst)), std::system_error);
    auto list = registeredLists().at(0);
    list->m_wakeup.post();
    return list;
  }

  // A worker's life with a wait and a run, in which it takes the nth such step in vain. Returns how many it has taken in all,
  // which it does only when there is no nth.
  std::size_t work(Step step, std::size_t nth) {
    handlers.onAny([](auto&) { return Stop(); });
    const auto list = listWithoutWorker();
    std::size_t steps = 0;
    std::thread([&] {
      const StepFault fault(step, nth);
      thread_list(list);
      steps = fault.steps();
    }).join();
    return steps;
  }

 private:
  static constexpr std::int32_t kWaitsFirst = 900'000;  // ms: a new list's last run is less long ago, its last NPA run longer
};

TEST_F(WorkerFaultDeathTest, EachAllocationOfAWorkerEndsTheProcess) {
  const auto steps = work(Step::allocation, kNever);
  EXPECT_GE(steps, 6U) << "the timer's callback, its job and its future, the helper's thread, the handler, the exit's entries";
  for (std::size_t nth = 1; nth <= steps; ++nth) EXPECT_DEATH(work(Step::allocation, nth), "bad_alloc") << nth;
}

TEST_F(WorkerFaultDeathTest, EachLockOfAWorkerEndsTheProcess) {
  const auto steps = work(Step::lock, kNever);
  EXPECT_GE(steps, 20U) << "the semaphore, the timer, the list, the registry; the rest are entries and their queue";
  for (std::size_t nth = 1; nth <= steps; ++nth) EXPECT_DEATH(work(Step::lock, nth), "system_error.*\n.*deadlock") << nth;
}

TEST_F(WorkerFaultDeathTest, HelperThreadThatCannotStartEndsTheProcess) {
  EXPECT_DEATH(
      {
        const auto list = listWithoutWorker();
        std::thread([&] {
          const fakes::ThreadStartFault fault;
          thread_list(list);
        }).join();
      },
      "system_error.*\n.*temporarily unavailable");
}

TEST_F(WorkerFaultDeathTest, WindowThatThrowsWhenItIsToldEndsTheProcess) {
  struct Throws : support::PlainWindow {
    bool Notice(long /*code*/) const override { throw std::runtime_error("the window is gone"); }
  };
  EXPECT_DEATH(
      {
        const auto info = std::make_shared<qzstd::PrinterInfo>();
        Add(AppComm::Node::Instance(info, std::make_shared<Throws>(), 1, Type::State));
        handlers.awaitNoLists();
      },
      "the window is gone");
}

// Nothing promises the end in these two, but to go on with such a task would be worse.
TEST_F(WorkerFaultDeathTest, AddOfNoTaskEndsTheProcess) { EXPECT_DEATH(Add(nullptr), ""); }

TEST_F(WorkerFaultDeathTest, TaskWithoutTheWindowThatIsToldEndsTheProcess) {
  EXPECT_DEATH(
      {
        Add(AppComm::Node::Instance(std::make_shared<qzstd::PrinterInfo>(), nullptr, 1, Type::State));
        handlers.awaitNoLists();
      },
      "");
}

TEST_F(WorkerFaultDeathTest, TypeFarBeyondTheTableEndsTheProcess) {
  for (const int type : {-1, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
    EXPECT_DEATH(
        {
          Add(onceTask(static_cast<Type>(type)));
          handlers.awaitNoLists();
        },
        "bad_function_call")
        << type;
  }
}

class WorkerFaults : public SchedulerFaultTest {
 protected:
  WorkerFaults() {
    handlers.on(Type::GetAlarm, [](auto&) { return 0; });
  }

  Task repeatingTask(Type type, const std::wstring& uid, std::int32_t interval) {
    auto task = onceTask(type, uid, interval);
    task->setRepeat();
    return task;
  }
};

// The task takes the timer's mutex, and when the time is over the semaphore's.
TEST_F(WorkerFaults, EachLockOfTheTimersTaskLeavesTheWorkerAsleepUntilItIsWoken) {
  constexpr std::int32_t kInterval = 50;  // ms
  constexpr std::size_t kOtherRuns = 5;
  for (std::size_t nth = 1; nth <= 2; ++nth) {
    SCOPED_TRACE(testing::Message() << "lock " << nth << " fails");
    const auto before = handlers.runs().size();
    std::optional<StepFault> fault;  // the helper thread's
    std::atomic<const StepFault*> made{nullptr};
    std::atomic<int> runs{0};
    handlers.on(Type::State, [&](auto&) {
      if (++runs == 1) {
        made.store(&fault.emplace(Step::lock, nth));
        made.notify_all();
      } else {
        fault.reset();
      }
      runs.notify_all();
      return 0;
    });
    const auto task = repeatingTask(Type::State, L"P1", kInterval);
    Add(task);
    made.wait(nullptr);
    made.load()->awaitHappened();

    Add(repeatingTask(Type::GetAlarm, L"P2", kInterval));
    handlers.awaitRuns(before + 1 + kOtherRuns);
    EXPECT_EQ(runs, 1) << "as often as another worker has woken by itself, nobody has woken this one";

    StartNPA(task);
    runs.wait(1);
    Stop();
    handlers.awaitNoLists();
  }
}

}  // namespace
