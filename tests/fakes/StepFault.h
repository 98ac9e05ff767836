#pragma once

#include <atomic>
#include <cstddef>

namespace fakes {

/// What a thread does, besides calling the platform, that can fail.
enum class Step {
  allocation,  ///< `operator new`: throws `std::bad_alloc`. In programs that link `step_hooks`
  lock,        ///< `std::mutex::lock`: throws `std::system_error`. In programs that link `step_hooks`
  print,       ///< a bounded formatted print: returns -1
  copy,        ///< a bounded copy or concatenation: empties the buffer and returns an error
};

/// While one lives, the `nth` such step (1: the next) of the thread that made it fails, once; other threads go on unharmed. A
/// thread has one per kind of step at a time, and ends it itself; any thread may look at it. Host only.
class StepFault {
 public:
  StepFault(Step step, std::size_t nth);
  ~StepFault();
  StepFault(const StepFault&) = delete;
  StepFault& operator=(const StepFault&) = delete;

  /// The steps begun so far, the failed one included.
  std::size_t steps() const;
  bool happened() const { return steps() >= m_nth; }
  /// Waits until it has happened. There is no deadline but the program's watchdog.
  void awaitHappened() const;

 private:
  friend bool failsNow(Step step) noexcept;

  const Step m_step;
  const std::size_t m_nth;
  std::atomic<std::size_t> m_steps{0};
};

/// For what makes the steps fail: counts one of the calling thread, and is true when that is to fail.
bool failsNow(Step step) noexcept;

}  // namespace fakes
