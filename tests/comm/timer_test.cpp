#include "comm/Timer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <memory>
#include <optional>
#include <stdexcept>
#include <thread>

#include "comm/HelperThread.h"
#include "comm/Semaphore.h"
#include "fakes/ScriptedClock.h"
#include "fakes/ThreadStartFault.h"
#include "support/PrivateMember.h"

using namespace std::chrono_literals;

namespace {

struct TimerMutex : support::PrivateMember<TimerMutex, std::mutex comm::Timer::*> {};
struct TimerActive : support::PrivateMember<TimerActive, std::atomic<bool> comm::Timer::*> {};

}  // namespace

template struct support::Expose<TimerMutex, &comm::Timer::m_mutex>;
template struct support::Expose<TimerActive, &comm::Timer::active>;

namespace {

class TimerTest : public testing::Test {
 protected:
  std::mutex& mutexOf(comm::Timer& of) { return of.*privateMember(TimerMutex()); }

  fakes::ScriptedClock clock;
  comm::HelperThread helper;
  comm::Timer timer{&helper};
  comm::Semaphore fired;
};

TEST_F(TimerTest, CallsBackWhenThePeriodHasPassedAndNotBefore) {
  std::atomic<int> calls{0};
  timer.start(1000ms, [&] {
    ++calls;
    fired.post();
  });
  clock.awaitParked(1);

  clock.advance(999ms);
  EXPECT_EQ(calls, 0);
  clock.advance(1ms);
  fired.wait();

  timer.stop();
  EXPECT_EQ(calls, 1);
}

TEST_F(TimerTest, GoesOnEachPeriodUntilItIsStopped) {
  std::atomic<int> calls{0};
  timer.start(1000ms, [&] { ++calls; });
  for (std::size_t round = 1; round <= 3; ++round) {
    clock.awaitParkings(round);
    clock.advance(1000ms);
  }
  clock.awaitParkings(4);

  timer.stop();

  EXPECT_EQ(calls, 3);
}

TEST_F(TimerTest, StartWhileRunningDropsTheCallback) {
  timer.start(1000ms, [] {});
  auto held = std::make_shared<int>(1);
  const std::weak_ptr<int> dropped = held;

  timer.start(1ms, [held = std::move(held)] {});

  EXPECT_TRUE(dropped.expired());
  clock.awaitParked(1);
  EXPECT_EQ(clock.parkings(), 1U);
  timer.stop();
}

TEST_F(TimerTest, StopLetsTheCallbackGo) {
  auto held = std::make_shared<int>(1);
  const std::weak_ptr<int> watched = held;
  timer.start(1000ms, [held = std::move(held)] {});

  timer.stop();

  EXPECT_TRUE(watched.expired());
}

TEST_F(TimerTest, StopWithoutAStartDoesNothing) {
  timer.stop();
  timer.start(1000ms, [] {});
  timer.stop();
  timer.stop();
}

TEST_F(TimerTest, MarkedRunningWithoutATaskIsTheNoStateError) {
  timer.*privateMember(TimerActive()) = true;

  try {
    timer.stop();
    ADD_FAILURE() << "stop returned";
  } catch (const std::future_error& error) {
    EXPECT_EQ(error.code(), std::future_errc::no_state);
  }
}

TEST_F(TimerTest, CallbackRunsUnderTheTimersMutex) {
  comm::Semaphore probed;
  timer.start(1000ms, [&] {
    fired.post();
    probed.wait();
  });
  clock.awaitParked(1);
  clock.advance(1000ms);
  fired.wait();

  EXPECT_FALSE(mutexOf(timer).try_lock());

  probed.post();
  timer.stop();
}

// What the callback throws ends the task; stop neither reports it nor waits for ever.
TEST_F(TimerTest, ExceptionOfTheCallbackStaysInTheFuture) {
  timer.start(1000ms, []() -> void { throw std::runtime_error("no"); });
  clock.awaitParked(1);
  clock.advance(1000ms);

  EXPECT_NO_THROW(timer.stop());

  timer.start(1000ms, nullptr);  // an empty one throws bad_function_call there
  clock.awaitParked(1);
  clock.advance(1000ms);
  EXPECT_NO_THROW(timer.stop());
}

TEST_F(TimerTest, WakeThatIsNoTimeOutStartsAFreshPeriod) {
  std::atomic<int> calls{0};
  timer.start(1000ms, [&] {
    ++calls;
    fired.post();
  });
  clock.awaitParked(1);
  clock.advance(600ms);

  clock.wakeParked();

  clock.awaitParkings(2);
  clock.advance(999ms);
  EXPECT_EQ(calls, 0);
  clock.advance(1ms);
  fired.wait();
  timer.stop();
}

TEST_F(TimerTest, FailureToStartLeavesItStopped) {
  {
    const fakes::ThreadStartFault fault;
    EXPECT_THROW(timer.start(1000ms, [] {}), std::system_error);
  }
  EXPECT_NO_THROW(timer.stop()) << "there is nothing to stop";
  timer.start(1000ms, [] {});
  clock.awaitParked(1);
  timer.stop();
}

// A stop may take the mutex between the task's first test and its wait. With the mutex held here both stand before it, in
// either order, so that over the rounds each comes first often.
TEST_F(TimerTest, StopBetweenTheTestAndTheWaitIsNotLost) {
  for (int round = 0; round < 300; ++round) {
    std::unique_lock held(mutexOf(timer));
    timer.start(1h, [] {});
    std::latch stopping(1);
    std::thread stopper([&] {
      stopping.count_down();
      timer.stop();
    });
    stopping.wait();
    std::this_thread::yield();
    held.unlock();
    stopper.join();
  }
}

}  // namespace
