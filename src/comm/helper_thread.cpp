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

void HelperThread::start(std::unique_ptr<Job> job) {
  if (!m_thread.joinable()) m_thread = std::thread(&HelperThread::runJobs, this);
  {
    const std::lock_guard lock(m_mutex);
    m_job = std::move(job);
  }
  m_changed.notify_one();
}

std::unique_ptr<HelperThread::Job> HelperThread::nextJob() {
  std::unique_lock lock(m_mutex);
  while (m_job == nullptr && !m_ending) m_changed.wait(lock);
  return std::move(m_job);
}

void HelperThread::runJobs() {
  while (const auto job = nextJob()) job->run();
}

}  // namespace comm
