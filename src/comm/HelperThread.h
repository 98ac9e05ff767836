#pragma once

#include <condition_variable>
#include <exception>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <type_traits>
#include <utility>

#include "platform/ThreadAnnotations.h"

namespace comm {

/// One thread that runs one function after another for one owner, and is parked in between.
///
/// A list's worker owns it: the handler runs and the timer's task go through it, so nothing of a list outlives the list and no
/// thread is started per cycle. It is started by the first `launch`. All members are for the owner's thread.
class HelperThread {
 public:
  HelperThread() = default;
  ~HelperThread();
  HelperThread(const HelperThread&) = delete;
  HelperThread& operator=(const HelperThread&) = delete;

  /// Runs `work` on the helper thread, after the one that was launched before. What `work` returns or throws comes out of the
  /// future, whose `wait` and `get` wait for the thread. `work`, and what it holds, is destroyed before they return: an owner
  /// that keeps its own reference until then knows that the helper does not drop the last one. The future is a deferred one:
  /// dropped, it waits for nothing; it must not be waited for once the helper is gone. Throws `std::system_error` when the
  /// thread cannot be started.
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

  // These wait with std::unique_lock, which the checker does not know.
  void start(std::shared_ptr<Job> job) NO_THREAD_SAFETY_ANALYSIS;
  void waitUntilIdle() NO_THREAD_SAFETY_ANALYSIS;
  std::shared_ptr<Job> nextJob() NO_THREAD_SAFETY_ANALYSIS;
  void runJobs();

  std::thread m_thread;  // the owner's

  std::mutex m_mutex;
  std::condition_variable m_changed;  // for the thread: a job, or the end
  std::condition_variable m_done;     // for the owner
  std::shared_ptr<Job> m_job GUARDED_BY(m_mutex);
  bool m_idle GUARDED_BY(m_mutex) = true;  // no job is waiting or in hand
  bool m_ending GUARDED_BY(m_mutex) = false;
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
std::future<std::invoke_result_t<Work&>> HelperThread::launch(Work work) {
  auto job = std::make_shared<JobOf<Work>>(std::move(work));
  // Not a promise's future: where there is no futex, the library fulfils a promise under the lock that its waiter then needs,
  // which costs two more switches a run.
  auto future = std::async(std::launch::deferred, [this, job] {
    waitUntilIdle();
    return job->takeResult();
  });
  start(std::move(job));
  return future;
}

}  // namespace comm
