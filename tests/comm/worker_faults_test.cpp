/// What goes wrong in a worker, or in the helper thread that runs its handlers, ends the process: there is nobody to be told.

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
  EXPECT_GE(steps, 5U) << "a job and its future for the timer and for the run, the helper's thread";
  for (std::size_t nth = 1; nth <= steps; ++nth) EXPECT_DEATH(work(Step::allocation, nth), "bad_alloc") << nth;
}

TEST_F(WorkerFaultDeathTest, EachLockOfAWorkerEndsTheProcess) {
  const auto steps = work(Step::lock, kNever);
  EXPECT_GE(steps, 12U) << "the jobs and their ends, the semaphore, the timer, the lists, the entries, the registry";
  for (std::size_t nth = 1; nth <= steps; ++nth) EXPECT_DEATH(work(Step::lock, nth), "system_error.*\n.*deadlock") << nth;
}

// The helper locks once to tell that a run is over, and once more to wait for the next.
TEST_F(WorkerFaultDeathTest, EachLockOfTheHelperThreadEndsTheProcess) {
  for (std::size_t nth = 1; nth <= 2; ++nth) {
    EXPECT_DEATH(
        {
          std::optional<StepFault> fault;
          handlers.onAny([&](auto&) {
            fault.emplace(Step::lock, nth);
            return 0;
          });
          Add(onceTask(Type::State));
          handlers.awaitNoLists();
        },
        "system_error.*\n.*deadlock")
        << nth;
  }
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

}  // namespace
