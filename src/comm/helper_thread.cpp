#include "comm/HelperThread.h"

namespace comm {

HelperThread::~HelperThread() { join(); }

void HelperThread::join() {
  if (!m_thread.joinable()) return;
  {
    const std::lock_guard lock(m_mutex);
    m_ending = true;
  }
  m_changed.notify_one();
  m_thread.join();
}

void HelperThread::start(std::shared_ptr<Job> job) {
  if (!m_thread.joinable()) m_thread = std::thread(&HelperThread::runJobs, this);
  {
    std::unique_lock lock(m_mutex);
    while (!m_idle) m_done.wait(lock);  // a job whose future was dropped
    m_job = std::move(job);
    m_idle = false;
  }
  m_changed.notify_one();
}

void HelperThread::waitUntilIdle() {
  std::unique_lock lock(m_mutex);
  while (!m_idle) m_done.wait(lock);
}

std::shared_ptr<HelperThread::Job> HelperThread::nextJob() {
  std::unique_lock lock(m_mutex);
  while (m_job == nullptr && !m_ending) m_changed.wait(lock);
  return std::move(m_job);
}

void HelperThread::runJobs() {
  while (auto job = nextJob()) {
    job->run();
    job.reset();
    {
      const std::lock_guard lock(m_mutex);
      m_idle = true;
    }
    m_done.notify_one();
  }
}

}  // namespace comm
