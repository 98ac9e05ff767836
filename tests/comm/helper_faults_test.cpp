/// Each step that the worker's helper thread and timer take fails once, one after the other: the exception reaches their owner,
/// nothing of the work is kept, and the next call works.

#include <chrono>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "comm/HelperThread.h"
#include "comm/SchedulerFaultTest.h"
#include "comm/Semaphore.h"
#include "comm/Timer.h"

namespace {

using comm::HelperThread;
using fakes::Step;
using fakes::StepFault;
using namespace std::chrono_literals;

using HelperFaults = SchedulerFaultTest;

TEST_F(HelperFaults, EachAllocationOfAFirstRun) {
  const auto held = std::make_shared<int>(7);
  std::optional<HelperThread> helper(std::in_place);
  int result = 0;
  const auto run = [&] { result = helper->run([held] { return *held; }); };
  const auto settle = [&] {
    EXPECT_EQ(result, 0);
    EXPECT_EQ(held.use_count(), 1);

    run();
    EXPECT_EQ(std::exchange(result, 0), 7);
    helper.emplace();
  };

  EXPECT_GE(failEach(Step::allocation, run, settle), 1U) << "the thread";
  EXPECT_EQ(result, 7);
}

TEST_F(HelperFaults, EachAllocationOfAFirstLaunch) {
  const auto held = std::make_shared<int>(7);
  std::optional<HelperThread> helper(std::in_place);
  int result = 0;
  const auto launch = [&] { result = helper->launch([held] { return *held; }).get(); };
  const auto settle = [&] {
    EXPECT_EQ(result, 0);
    EXPECT_EQ(held.use_count(), 1);

    launch();
    EXPECT_EQ(std::exchange(result, 0), 7);
    helper.emplace();
  };

  EXPECT_GE(failEach(Step::allocation, launch, settle), 3U) << "the job, its future, the thread";
  EXPECT_EQ(result, 7);
}

// So a run fails on the helper thread only where its work does.
TEST_F(HelperFaults, HelperThreadTakesNoStepBetweenTwoRuns) {
  for (const Step step : {Step::allocation, Step::lock}) {
    HelperThread helper;
    std::optional<StepFault> fault;  // the helper thread's
    std::size_t between = 0;
    std::size_t own = 0;
    std::vector<int> room;
    std::mutex mutex;
    helper.run([&] { fault.emplace(step, std::numeric_limits<std::size_t>::max()); });

    helper.run([&] {
      between = fault->steps();
      room.resize(1);
      const std::lock_guard lock(mutex);
      own = fault->steps() - between;
      fault.reset();
    });

    EXPECT_EQ(between, 0U);
    EXPECT_EQ(own, 1U) << "steps of that thread are counted";
  }
}

class TimerFaults : public SchedulerFaultTest {
 protected:
  struct Waiting {
    comm::HelperThread helper;
    comm::Timer timer{&helper};
  };

  void expectToFire() {
    comm::Semaphore fired;
    waiting->timer.start(1ms, [&] { fired.post(); });
    fired.wait();
    waiting->timer.stop();
  }

  std::optional<Waiting> waiting{std::in_place};
};

TEST_F(TimerFaults, EachAllocationOfAStartLeavesItStopped) {
  const auto held = std::make_shared<int>(7);
  const auto start = [&] { waiting->timer.start(1h, [held] {}); };
  const auto settle = [&] {
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_NO_THROW(waiting->timer.stop()) << "there is nothing to stop";

    expectToFire();
    waiting.emplace();
  };

  EXPECT_GE(failEach(Step::allocation, start, settle), 4U) << "the callback, the job, its future, the thread";
}

TEST_F(TimerFaults, StopThatFailsLeavesItRunningAndTheNextStopWorks) {
  const auto held = std::make_shared<int>(7);
  const auto start = [&] { waiting->timer.start(1h, [held] {}); };
  const auto settle = [&] {
    EXPECT_EQ(held.use_count(), 2);

    waiting->timer.stop();
    EXPECT_EQ(held.use_count(), 1);
    expectToFire();
    start();
  };
  start();

  EXPECT_EQ(failEach(
                Step::lock, [&] { waiting->timer.stop(); }, settle),
            1U)
      << "the timer's mutex";
}

}  // namespace
