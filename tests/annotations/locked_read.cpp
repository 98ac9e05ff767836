// The twin of unlocked_read.cpp that reads with the lock: it must compile.

#include <mutex>

#include "platform/ThreadAnnotations.h"

namespace {

class Counter {
 public:
  void increment() {
    std::lock_guard lock(m_mutex);
    ++m_value;
  }

  int value() {
    std::lock_guard lock(m_mutex);
    return m_value;
  }

 private:
  std::mutex m_mutex;
  int m_value GUARDED_BY(m_mutex) = 0;
};

}  // namespace

int countTwice() {
  Counter counter;
  counter.increment();
  counter.increment();
  return counter.value();
}
