#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>

#include "platform/ThreadAnnotations.h"

namespace comm {

/// A counting semaphore. Posts add up: each one that no wait has taken yet lets one later wait return at once. Any thread.
class Semaphore {
 public:
  void post();
  void wait() NO_THREAD_SAFETY_ANALYSIS;  // the checker does not know std::unique_lock, which a wait needs

 private:
  std::mutex m_mutex;
  std::condition_variable m_condition;
  std::int32_t m_count GUARDED_BY(m_mutex) = 0;
};

}  // namespace comm
