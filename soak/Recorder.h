#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <vector>

#include "model/Event.h"

/// Takes down events on whatever thread they happen, and gives them out in their order.
///
/// Each thread writes into a queue of its own, from which one other thread takes and to which it hands nothing back. What
/// orders events is one relaxed counter: it agrees with everything that is ordered otherwise. Neither orders any thread after
/// another but the taker, so that they hide no missing synchronisation from a sanitizer.
namespace soak {

class Recorder {
 public:
  /// Lives until the process is gone, as threads of the module may end late.
  static Recorder& instance();

  /// On the thread of the event, which fills in all but thread, number and time.
  void record(Event event);
  /// From now on the calling thread may be one of a list of this printer: its end is an event.
  void belongsTo(PrinterId printer);
  /// The printer of the calling thread, `kNoPrinter` without one.
  PrinterId printerOfThread() const;

  /// Waits, a limited time, while whoever judges events is far behind. Only where the module holds no lock.
  void waitForRoom();

  /// The events that follow the last one taken out, as far as they are there. One thread takes.
  std::vector<Event> take();

  /// All events up to this one have been judged.
  void judged(std::uint64_t number);

  /// Forgets the threads that have ended; one thread, after the last event was taken.
  void forgetEnded();

 private:
  struct Queue;
  struct Slot;

  Recorder() = default;
  static Slot& slot();
  Queue& newQueue();
  void collect();

  std::atomic<Queue*> m_new{nullptr};  ///< a chain of those that the taker does not know yet

  // The taker's.
  std::vector<std::unique_ptr<Queue>> m_queues;
  std::vector<Event> m_early;  // a heap: the lowest number first
  std::uint64_t m_taken = 0;
};

}  // namespace soak
