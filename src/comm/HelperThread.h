#pragma once

#include <condition_variable>
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

  /// Runs `work` on the helper thread; the one launched before must have completed. What `work` returns or throws comes out of
  /// the future. `work`, and what it holds, is destroyed before the future is ready: an owner that keeps its own reference
  /// until then knows that the helper does not drop the last one. Throws `std::system_error` when the thread cannot be started.
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

  void start(std::unique_ptr<Job> job);
  std::unique_ptr<Job> nextJob() NO_THREAD_SAFETY_ANALYSIS;  // waits with std::unique_lock, which the checker does not know
  void runJobs();

  std::thread m_thread;  // the owner's

  std::mutex m_mutex;
  std::condition_variable m_changed;
  std::unique_ptr<Job> m_job GUARDED_BY(m_mutex);
  bool m_ending GUARDED_BY(m_mutex) = false;
};

template <class Work>
class HelperThread::JobOf final : public Job {
 public:
  using Result = std::invoke_result_t<Work&>;

  explicit JobOf(Work work) : m_work(std::move(work)) {}

  std::future<Result> future() { return m_promise.get_future(); }

  void run() override {
    try {
      if constexpr (std::is_void_v<Result>) {
        consumeWork();
        m_promise.set_value();
      } else {
        m_promise.set_value(consumeWork());
      }
    } catch (...) {
      m_promise.set_exception(std::current_exception());
    }
  }

 private:
  Result consumeWork() {
    Work work = std::move(*m_work);
    m_work.reset();
    return work();
  }

  std::optional<Work> m_work;
  std::promise<Result> m_promise;
};

template <class Work>
std::future<std::invoke_result_t<Work&>> HelperThread::launch(Work work) {
  auto job = std::make_unique<JobOf<Work>>(std::move(work));
  auto future = job->future();
  start(std::move(job));
  return future;
}

}  // namespace comm
