// Must not compile with the lock annotations checked: `value` reads without the lock.

#include <mutex>

#include "platform/ThreadAnnotations.h"

namespace {

class Counter {
 public:
  void increment() {
    std::lock_guard lock(m_mutex);
    ++m_value;
  }

  int value() { return m_value; }

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
