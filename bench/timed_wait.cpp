/// A timed wait that a post ends early, and all that belongs to it: the clock that would have ended it is started before and
/// stopped after. How a list's worker waits for its turn.

#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <future>
#include <mutex>
#include <thread>
#include <utility>

#include "bench/PingPong.h"
#include "bench/WaitCount.h"
#include "comm/HelperThread.h"
#include "comm/Semaphore.h"
#include "comm/Timer.h"

namespace {

using namespace std::chrono_literals;

constexpr auto kWait = 60'000ms;  // never runs out

// Whoever ends the wait, as `Stop` or `StartNPA` on a thread of the application. The same, with the same cost, for all. It
// holds its post back until the wait has begun: a stop that came first would save the wait, and something else would be
// measured.
class Poster {
 public:
  explicit Poster(comm::Semaphore& semaphore) : m_semaphore(semaphore), m_thread(&Poster::serve, this) {}
  ~Poster() {
    m_word.set(2);
    m_thread.join();
  }
  Poster(const Poster&) = delete;
  Poster& operator=(const Poster&) = delete;

  // `waits`: the count of waits before the one to be ended. Does not wait for the post.
  void ask(std::uint64_t waits) {
    m_waits.store(waits, std::memory_order_relaxed);
    m_word.set(1);
  }

 private:
  void serve() {
    while (m_word.waitWhile(0) != 2) {
      m_word.set(0);
      bench::awaitCountOtherThan(m_waits.load(std::memory_order_relaxed));
      m_semaphore.post();
    }
  }

  comm::Semaphore& m_semaphore;
  platform::Word m_word;
  std::atomic<std::uint64_t> m_waits{0};
  std::thread m_thread;  // last: it uses the others
};

// `Timekeeper` has start(milliseconds, function) and stop(), and counts each wait when nothing can come before it any more.
template <class Timekeeper>
void endedByPost(benchmark::State& state, Timekeeper& timekeeper) {
  comm::Semaphore wakeup;
  Poster poster(wakeup);
  const auto before = bench::waitCount();
  for (auto _ : state) {
    const auto waits = bench::waitCount();
    timekeeper.start(kWait, [&wakeup] { wakeup.post(); });
    poster.ask(waits);
    wakeup.wait();
    timekeeper.stop();
  }
  const auto waits = bench::waitCount() - before;
  if (waits < static_cast<std::uint64_t>(state.iterations())) state.SkipWithError("not every timed wait took place");
}

void timer(benchmark::State& state) {
  comm::HelperThread helper;
  comm::Timer timer(&helper);
  endedByPost(state, timer);
}

// The wait itself, shared by the two that follow: until it is stopped, or the time has passed.
class StoppableWait {
 public:
  void begin() {
    const std::lock_guard lock(m_mutex);
    m_stopped = false;
  }
  bool runsOut(std::chrono::milliseconds period) {
    std::unique_lock lock(m_mutex);
    if (m_stopped) return false;
    bench::countWait();
    return !m_condition.wait_for(lock, period, [this] { return m_stopped; });
  }
  void stop() {
    {
      const std::lock_guard lock(m_mutex);
      m_stopped = true;
    }
    m_condition.notify_one();
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_condition;
  bool m_stopped = false;
};

class AsyncTimekeeper {
 public:
  void start(std::chrono::milliseconds period, std::function<void()> callback) {
    m_wait.begin();
    m_task = std::async(std::launch::async, [this, period, callback = std::move(callback)] {
      while (m_wait.runsOut(period)) callback();
    });
  }
  void stop() {
    m_wait.stop();
    m_task.wait();
  }

 private:
  StoppableWait m_wait;
  std::future<void> m_task;
};

// A thread of its own, parked in between; `stop` returns when the thread has let go of the callback.
class ParkedTimekeeper {
 public:
  ParkedTimekeeper() : m_thread(&ParkedTimekeeper::serve, this) {}
  ~ParkedTimekeeper() {
    change(m_started, [this] { m_ending = true; });
    m_thread.join();
  }
  ParkedTimekeeper(const ParkedTimekeeper&) = delete;
  ParkedTimekeeper& operator=(const ParkedTimekeeper&) = delete;

  void start(std::chrono::milliseconds period, std::function<void()> callback) {
    change(m_started, [&] {
      m_period = period;
      m_callback = std::move(callback);
      m_running = true;
    });
  }
  void stop() {
    change(m_stopping, [this] { m_running = false; });
    std::unique_lock lock(m_mutex);
    while (m_callback) m_stopped.wait(lock);
  }

 private:
  template <class Edit>
  void change(std::condition_variable& condition, Edit edit) {
    {
      const std::lock_guard lock(m_mutex);
      edit();
    }
    condition.notify_one();
  }

  void serve() {
    std::unique_lock lock(m_mutex);
    while (true) {
      while (!m_callback && !m_ending) m_started.wait(lock);
      if (m_ending) return;
      while (m_running) {
        bench::countWait();
        if (!m_stopping.wait_for(lock, m_period, [this] { return !m_running; })) m_callback();
      }
      m_callback = nullptr;
      m_stopped.notify_one();
    }
  }

  std::mutex m_mutex;
  std::condition_variable m_started;
  std::condition_variable m_stopping;
  std::condition_variable m_stopped;
  std::chrono::milliseconds m_period{0};
  std::function<void()> m_callback;
  bool m_running = false;
  bool m_ending = false;
  std::thread m_thread;  // last: it uses the others
};

// `stop` only cancels: the callback may still be under way when it returns. The wait has begun when `async_wait` returns.
class AsioTimekeeper {
 public:
  ~AsioTimekeeper() {
    m_work.reset();
    m_thread.join();
  }

  void start(std::chrono::milliseconds period, std::function<void()> callback) {
    m_timer.expires_after(period);
    m_timer.async_wait([callback = std::move(callback)](const asio::error_code& error) {
      if (!error) callback();
    });
    bench::countWait();
  }
  void stop() {
    if (m_timer.cancel() != 1) std::abort();  // nobody was waiting
  }

 private:
  asio::io_context m_context{1};
  asio::executor_work_guard<asio::io_context::executor_type> m_work = asio::make_work_guard(m_context);
  asio::steady_timer m_timer{m_context};
  std::thread m_thread{[this] { m_context.run(); }};
};

template <class Timekeeper>
void with(benchmark::State& state) {
  Timekeeper timekeeper;
  endedByPost(state, timekeeper);
}

BENCHMARK(bench::pingPong)->Name("ping_pong")->UseRealTime();
BENCHMARK(timer)->Name("timer")->UseRealTime();
BENCHMARK(with<AsyncTimekeeper>)->Name("std_async")->UseRealTime();
BENCHMARK(with<ParkedTimekeeper>)->Name("parked_thread")->UseRealTime();
BENCHMARK(with<AsioTimekeeper>)->Name("asio_steady_timer")->UseRealTime();

}  // namespace
