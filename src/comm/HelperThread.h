#pragma once

#include <cstdint>
#include <exception>
#include <future>
#include <memory>
#include <optional>
#include <thread>
#include <type_traits>
#include <utility>

#include "platform/Word.h"

namespace comm {

/// One thread that runs one function after another for one owner, and is parked in between.
///
/// A list's worker owns it: the handler runs and the timer's task go through it, so nothing of a list outlives the list and no
/// thread is started per cycle. It is started when it is first needed. All members are for the owner's thread.
class HelperThread {
 public:
  HelperThread() = default;
  ~HelperThread();
  HelperThread(const HelperThread&) = delete;
  HelperThread& operator=(const HelperThread&) = delete;

  /// Runs `work` on the helper thread, after the one that was launched before, and waits for it. Returns what `work` returns
  /// and throws what it throws. `work`, and what it holds, is destroyed before that: an owner that keeps its own reference
  /// until then knows that the helper does not drop the last one. Throws `std::system_error` when the thread cannot be started.
  template <class Work>
  std::invoke_result_t<Work&> run(Work work);

  /// The same without the waiting: that is done by the future's `wait` and `get`, with what comes out of the work. The future
  /// is a deferred one: dropped, it waits for nothing; it must not be waited for once the helper is gone.
  template <class Work>
  std::future<std::invoke_result_t<Work&>> launch(Work work);

  /// Ends the thread, if it was ever started, once the work in hand is done.
  void join();

 private:
  class Job {
   public:
    virtual ~Job() = default;
    virtual void run() = 0;
  };
  template <class Work>
  class JobOf;

  enum Turn : std::uint32_t { idle, given, ending };

  void start(std::shared_ptr<Job> job);
  void waitUntilIdle() { m_turn.waitWhile(given); }
  void runJobs();

  std::thread m_thread;  // the owner's

  platform::Word m_turn;       // a `Turn`; every change wakes the other side
  std::shared_ptr<Job> m_job;  // the owner's while the turn is idle, the thread's while it is given
};

template <class Work>
class HelperThread::JobOf final : public Job {
 public:
  using Result = std::invoke_result_t<Work&>;

  explicit JobOf(Work work) : m_work(std::move(work)) {}

  void run() override {
    try {
      if constexpr (std::is_void_v<Result>) {
        consumeWork();
      } else {
        m_result.emplace(consumeWork());
      }
    } catch (...) {
      m_error = std::current_exception();
    }
  }

  Result takeResult() {
    if (m_error) std::rethrow_exception(m_error);
    if constexpr (!std::is_void_v<Result>) return std::move(*m_result);
  }

 private:
  Result consumeWork() {
    Work work = std::move(*m_work);
    m_work.reset();
    return work();
  }

  struct Nothing {};

  std::optional<Work> m_work;
  std::optional<std::conditional_t<std::is_void_v<Result>, Nothing, Result>> m_result;
  std::exception_ptr m_error;
};

template <class Work>
std::invoke_result_t<Work&> HelperThread::run(Work work) {
  JobOf<Work> job(std::move(work));
  start({std::shared_ptr<Job>(), &job});  // owns nothing: the job lives until it is done
  waitUntilIdle();
  return job.takeResult();
}

template <class Work>
std::future<std::invoke_result_t<Work&>> HelperThread::launch(Work work) {
  auto job = std::make_shared<JobOf<Work>>(std::move(work));
  auto future = std::async(std::launch::deferred, [this, job] {
    waitUntilIdle();
    return job->takeResult();
  });
  start(std::move(job));
  return future;
}

}  // namespace comm
