#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

namespace bench {

enum class Notify { UnderLock, AfterUnlocking };

/// What one writes first instead of `std::async`: a thread, a mutex and condition variables. `run` hands a function over and
/// waits until it is done.
template <Notify notify>
class ParkedThread {
 public:
  ParkedThread() : m_thread(&ParkedThread::serve, this) {}
  ~ParkedThread() {
    change(m_asked, [this] { m_ending = true; });
    m_thread.join();
  }
  ParkedThread(const ParkedThread&) = delete;
  ParkedThread& operator=(const ParkedThread&) = delete;

  void run(std::function<void()> work) {
    change(m_asked, [&] {
      m_work = std::move(work);
      m_done = false;
    });
    std::unique_lock lock(m_mutex);
    while (!m_done) m_answered.wait(lock);
  }

 private:
  template <class Edit>
  void change(std::condition_variable& condition, Edit edit) {
    {
      const std::lock_guard lock(m_mutex);
      edit();
      if constexpr (notify == Notify::UnderLock) condition.notify_one();
    }
    if constexpr (notify == Notify::AfterUnlocking) condition.notify_one();
  }

  void serve() {
    while (auto work = next()) {
      work();
      work = nullptr;
      change(m_answered, [this] { m_done = true; });
    }
  }

  std::function<void()> next() {
    std::unique_lock lock(m_mutex);
    while (!m_work && !m_ending) m_asked.wait(lock);
    return std::exchange(m_work, nullptr);
  }

  std::mutex m_mutex;
  std::condition_variable m_asked;
  std::condition_variable m_answered;
  std::function<void()> m_work;
  bool m_done = true;
  bool m_ending = false;
  std::thread m_thread;  // last: it uses the others
};

}  // namespace bench
