#include "comm/Worker.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <deque>
#include <list>
#include <vector>

#include "comm/Registry.h"
#include "log/Log.h"
#include "platform/Time.h"

namespace {

using comm::CList;
using comm::CNode;
using comm::g_registry;
using comm::Task;
using std::chrono::milliseconds;

constexpr std::int32_t IDLE_CYCLES = 10;

// Part of the log's format: readers of logs know these places by their numbers.
constexpr const char* kName = "thread_list";
constexpr std::int32_t kEnter = 35;
constexpr std::int32_t kWait = 54;
constexpr std::int32_t kRunBegins = 161;
constexpr std::int32_t kRunEnds = 163;
constexpr std::int32_t kLeave = 240;

// Whole milliseconds since then. Compared and logged as 32-bit values, as the application knows them from the log.
std::int32_t millisecondsSince(platform::Clock::time_point then) {
  return static_cast<std::int32_t>(std::chrono::duration_cast<milliseconds>(platform::now() - then).count());
}

// While NPA exchanges are recent the list paces itself by the last of them, otherwise by the last run of any kind.
std::int64_t waitBeforeRun(const CList& list) {
  const auto chkDuration = millisecondsSince(list.m_lastCheck);
  const auto npaDuration = millisecondsSince(list.m_lastNPA);
  const std::int64_t base = npaDuration > list.m_interval ? chkDuration : npaDuration;
  const std::int64_t duration = list.m_interval - base;
  WriteLog(LOG_DEBUG, kName, kWait, L"wait, uid: %ws, duration: %ld, chkDuration: %ld, npaDuration: %ld, interval: %ld.",
           list.m_uid.c_str(), static_cast<long>(static_cast<std::int32_t>(duration)), static_cast<long>(chkDuration),
           static_cast<long>(npaDuration), static_cast<long>(list.m_interval));
  return duration;
}

// A wake-up is not "run now": Stop and StartNPA end the wait only when a full interval has passed since the last NPA run.
void waitForTurn(const std::shared_ptr<CList>& list) {
  for (auto duration = waitBeforeRun(*list); duration > 0;
       duration = std::int64_t{list->m_interval} - millisecondsSince(list->m_lastNPA)) {
    list->m_waitTimer.start(milliseconds(duration), [list] { list->m_wakeup.post(); });
    list->m_wakeup.wait();
    list->m_waitTimer.stop();
  }
}

bool isDeleted(const AppComm::Node& task) { return task.getDelete(); }
bool isOnce(const AppComm::Node& task) { return task.getOnce(); }

void dropDeletedObservers(CList& list, CNode& entry) {
  for (std::size_t index = 0; Task observer = entry.observer(index);) {
    if (!observer->getDelete()) {
      ++index;
      continue;
    }
    const std::lock_guard backend(list.m_backendLock);
    entry.takeObserver(index);  // `observer` keeps it until the lock is let go
  }
}

// The current task is deleted: an observer takes over, or the entry leaves. True when it stays.
bool replaceDeletedTask(CList& list, CNode& entry, std::size_t index) {
  std::vector<Task> observers;  // released after the lock, like the others
  std::shared_ptr<CNode> left;
  Task former;
  const std::lock_guard backend(list.m_backendLock);
  observers = entry.takeObservers(isDeleted);
  former = entry.promoteObserver();
  if (former == nullptr) left = list.take(index);
  return former != nullptr;
}

void tidy(CList& list) {
  for (std::size_t index = 0; const auto entry = list.entry(index);) {
    if (!isDeleted(*entry->current())) {
      dropDeletedObservers(list, *entry);
      ++index;
    } else if (replaceDeletedTask(list, *entry, index)) {
      ++index;
    }
  }
}

// Add may have put the countdown to 0 since it was last looked at; counting on from there would never reach the end.
std::int32_t countDown(CList& list) {
  const auto before = list.m_idleCountdown.fetch_sub(1);
  auto belowZero = before - 1;
  if (belowZero < 0) list.m_idleCountdown.compare_exchange_strong(belowZero, 0);
  return before;
}

// True when there was nothing to run. The cycle then counts, and with the last one the list is no longer running.
bool passIdleCycle(CList& list) {
  if (list.empty() && list.m_idleCountdown.load() == 0) list.m_idleCountdown.exchange(IDLE_CYCLES);
  if (!list.empty()) return false;
  if (list.m_idleCountdown.load() < 1) return true;
  list.m_lastCheck = platform::now();
  if (countDown(list) == 1 && list.empty()) list.m_running.exchange(false);
  return true;
}

// A once task jumps the queue; those it passes keep their order.
void selectNext(CList& list) {
  for (std::size_t index = 0; const auto entry = list.entry(index); ++index) {
    if (!isOnce(*entry->current())) continue;
    list.moveToFront(index);
    return;
  }
}

// The run counts for every once task of the entry, notified or not; what repeats goes to the back.
void requeueFront(CList& list, CNode& entry) {
  std::vector<Task> observers;  // released after the lock, like the others
  std::shared_ptr<CNode> left;
  Task former;
  const std::lock_guard backend(list.m_backendLock);
  observers = entry.takeObservers(isOnce);
  if (isOnce(*entry.current())) {
    former = entry.promoteObserver();
    if (former == nullptr) {
      left = list.take(0);
      return;
    }
  }
  list.moveFrontToBack();
}

void runFront(CList& list) {
  const auto entry = list.entry(0);
  const auto task = entry->current();
  task->setNPAFlag();
  WriteLog(LOG_DEBUG, kName, kRunBegins, L"Communication beg, uid: %ws", list.m_uid.c_str());
  // Inserts an empty handler for an unknown type, which throws when it is run.
  auto& handler = list.m_handlers[static_cast<int>(task->getType())];
  const int result = list.m_helper.run([handler, entry] { return handler(entry); });
  WriteLog(LOG_DEBUG, kName, kRunEnds, L"Communication end, uid: %ws, result: %d", list.m_uid.c_str(), result);
  list.m_lastCheck = platform::now();
  if (task->getNPAFlag()) list.m_lastNPA = platform::now();
  requeueFront(list, *entry);
}

void leave(CList& list) {
  {
    std::deque<std::shared_ptr<CNode>> entries;  // both released after the lock: what they hold is the application's
    std::list<std::shared_ptr<CList>> lists;
    const std::lock_guard registry(g_registry.lock);
    list.swapAll(entries);
    lists = g_registry.takeLocked(list.m_uid);
  }
  list.m_helper.join();
  WriteLog(LOG_DEBUG, kName, kLeave, L"comm thread list leave, uid: %ws", list.m_uid.c_str());
}

}  // namespace

int thread_list(std::shared_ptr<comm::CList> list) {
  WriteLog(LOG_DEBUG, kName, kEnter, L"comm thread list enter, uid: %ws", list->m_uid.c_str());
  while (list->m_running.load()) {
    waitForTurn(list);
    if (!list->m_running.load()) break;
    tidy(*list);
    if (passIdleCycle(*list)) continue;
    selectNext(*list);
    runFront(*list);
  }
  leave(*list);
  list.reset();
  return 0;
}
