#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

#include "Node.h"
#include "comm/CNode.h"
#include "comm/HelperThread.h"
#include "comm/Semaphore.h"
#include "comm/Timer.h"
#include "platform/ThreadAnnotations.h"
#include "platform/Time.h"

namespace comm {

/// Runs one task's operation: takes the entry, returns a code that is only logged.
using Handler = std::function<int(std::shared_ptr<CNode>)>;

/// One printer's communication list: its entries in run order, the handlers, and what paces the traffic.
///
/// Held by the registry, by its worker (`thread_list`) and, during a wait, by the timer's callback. `Add`, `Stop`, `StartNPA`
/// and `PauseNPA` reach into it from any thread; each member says what protects it. Only the worker removes or reorders
/// entries; others append.
class CList {
 public:
  /// A list that is neither registered nor running. The time stamps lie 600 s and 1200 s back, so that with an interval below
  /// ten minutes the first task runs at once.
  CList(const std::wstring& uid, const std::int32_t& interval);
  ~CList();
  CList(const CList&) = delete;
  CList& operator=(const CList&) = delete;

  /// The entry of this type, null when there is none.
  std::shared_ptr<CNode> find(AppComm::Type type) const;
  bool empty() const;
  /// The entry at `index`, null beyond the last.
  std::shared_ptr<CNode> entry(std::size_t index) const;
  void append(std::shared_ptr<CNode> entry);

  // For the worker.
  void moveToFront(std::size_t index);
  void moveFrontToBack() REQUIRES(m_backendLock);
  std::shared_ptr<CNode> take(std::size_t index) REQUIRES(m_backendLock);
  /// Exchanges all entries for those in `entries`, none as a rule, for release outside the locks.
  void swapAll(std::deque<std::shared_ptr<CNode>>& entries);

  std::atomic<bool> m_running{false};            ///< the worker goes on; set by `Add`, cleared by `Stop` and the idle end
  std::atomic<std::int32_t> m_idleCountdown{0};  ///< idle cycles left before the worker ends; 0: not counting

 private:
  std::deque<std::shared_ptr<CNode>> m_backend GUARDED_BY(m_latch);  // front runs next

 public:
  std::unordered_map<int, Handler> m_handlers;  ///< by `AppComm::Type`; complete before the worker starts, then the worker's
  std::mutex m_backendLock;                     ///< held to append, remove and requeue entries, and to edit observers
  Semaphore m_wakeup;                           ///< the worker sleeps on it
  Timer m_waitTimer;                            ///< the worker's; posts `m_wakeup` when a wait has run out
  const std::wstring m_uid;
  const std::int32_t m_interval;            ///< milliseconds
  platform::Clock::time_point m_lastCheck;  ///< the worker's: end of the last run, or the last idle cycle
  platform::Clock::time_point m_lastNPA;    ///< the worker's: end of the last run that kept its NPA mark
  HelperThread m_helper;                    ///< the worker's: runs the handlers and the timer's task

 private:
  // Makes single steps on m_backend safe for those who may not take m_backendLock. Innermost, held for the copy or the edit.
  mutable std::mutex m_latch;
};

}  // namespace comm
