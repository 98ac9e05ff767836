#include "comm/HelperThread.h"

namespace comm {

HelperThread::~HelperThread() { join(); }

void HelperThread::join() {
  if (!m_thread.joinable()) return;
  waitUntilIdle();
  m_turn.set(ending);
  m_thread.join();
  m_turn.set(idle);
}

void HelperThread::start(std::shared_ptr<Job> job) {
  if (!m_thread.joinable()) m_thread = std::thread(&HelperThread::runJobs, this);
  waitUntilIdle();  // for a job whose future was dropped
  m_job = std::move(job);
  m_turn.set(given);
}

void HelperThread::runJobs() {
  while (m_turn.waitWhile(idle) != ending) {
    m_job->run();
    m_job.reset();
    m_turn.set(idle);
  }
}

}  // namespace comm
