/// The four control functions. None validates its argument, none holds the registry lock and a list's `m_backendLock` at once,
/// and each releases its task last.

#include <utility>
#include <vector>

#include "AppCommunication.h"
#include "comm/CList.h"
#include "comm/HandlerTable.h"
#include "comm/Registry.h"
#include "comm/Worker.h"
#include "log/Log.h"
#include "platform/DetachedThread.h"

namespace {

using comm::CList;
using comm::CNode;
using comm::g_registry;
using comm::Task;

// Part of the log's format: readers of logs know these places by their numbers.
constexpr std::int32_t kAddEntry = 53;
constexpr std::int32_t kAddObserver = 68;
constexpr std::int32_t kAddToBackend = 76;
constexpr std::int32_t kAddCreateList = 94;
constexpr std::int32_t kAddLeave = 146;
constexpr std::int32_t kStopEntry = 151;
constexpr std::int32_t kStopLeave = 162;
constexpr std::int32_t kStartNpaEntry = 176;
constexpr std::int32_t kStartNpaPosted = 201;
constexpr std::int32_t kStartNpaLeave = 206;
constexpr std::int32_t kPauseNpaEntry = 219;
constexpr std::int32_t kPauseNpaLeave = 245;

std::shared_ptr<CList> findList(const std::wstring& uid) {
  const std::lock_guard registry(g_registry.lock);
  return g_registry.findLocked(uid);
}

void placeInList(CList& list, const Task& task) {
  std::shared_ptr<CNode> entry;  // outlives the lock: a worker that ends meanwhile leaves the last reference here
  const std::lock_guard backend(list.m_backendLock);
  entry = list.find(task->getType());
  // The lines are written under the lock: their order in the log is the order of the tasks in the list.
  if (entry != nullptr) {
    WriteLog(LOG_DEBUG, "Add", kAddObserver, L"put the node to oberver list.");
    entry->addObserver(task);
  } else {
    WriteLog(LOG_DEBUG, "Add", kAddToBackend, L"put the node to list backend.");
    list.m_idleCountdown.exchange(0);
    list.append(std::make_shared<CNode>(task));
  }
}

// Returns the list instead when another caller made it meanwhile, and null when this call did.
std::shared_ptr<CList> createListFor(const Task& task) {
  std::shared_ptr<CList> list;
  const std::lock_guard registry(g_registry.lock);
  if (auto existing = g_registry.findLocked(task->getUID())) return existing;

  list = std::make_shared<CList>(task->getUID(), static_cast<std::int32_t>(task->Interval()));
  comm::registerHandlers(list->m_handlers);
  list->append(std::make_shared<CNode>(task));
  g_registry.lists.push_back(list);
  list->m_running.exchange(true);
  list->m_idleCountdown.exchange(0);
  // A list whose thread cannot start stays registered: its tasks are kept, and Stop clears it away.
  platform::startDetached([list]() mutable { thread_list(std::move(list)); });
  return nullptr;
}

// Marks the first entry of the task's type and returns its list, null when there is none.
std::shared_ptr<CList> requestNPA(const AppComm::Node& task) {
  std::vector<Task> marked;  // outlives the lock, like the entry: either may be the last reference
  std::shared_ptr<CNode> entry;
  const std::lock_guard registry(g_registry.lock);
  for (const auto& list : g_registry.lists) {
    if (list->m_uid != task.getUID()) continue;
    entry = list->find(task.getType());
    if (entry == nullptr) continue;
    marked = entry->tasks();
    for (const auto& each : marked) each->setReqNPA();
    return list;
  }
  return nullptr;
}

std::vector<std::shared_ptr<CList>> listsOf(const std::wstring& uid) {
  std::vector<std::shared_ptr<CList>> lists;
  const std::lock_guard registry(g_registry.lock);
  for (const auto& list : g_registry.lists) {
    if (list->m_uid == uid) lists.push_back(list);
  }
  return lists;
}

// True when the list has an entry of this type, which is then no longer marked.
bool withdrawNPA(CList& list, AppComm::Type type) {
  std::vector<Task> marked;
  std::shared_ptr<CNode> entry;
  const std::lock_guard backend(list.m_backendLock);
  entry = list.find(type);
  if (entry == nullptr) return false;
  marked = entry->tasks();
  for (const auto& each : marked) each->resetReqNPA();
  return true;
}

}  // namespace

int Add(std::shared_ptr<AppComm::Node> node) {
  WriteLog(LOG_DEBUG, "Add", kAddEntry, L"comm add entry. uid: %ws.", node->getUID().c_str());
  auto list = findList(node->getUID());
  if (list == nullptr) {
    WriteLog(LOG_DEBUG, "Add", kAddCreateList, L"create list for this node.");
    list = createListFor(node);
  }
  if (list != nullptr) placeInList(*list, node);
  WriteLog(LOG_DEBUG, "Add", kAddLeave, L"comm add leave. put: %d", 1);
  list.reset();
  node.reset();
  return 0;
}

int Stop() {
  WriteLog(LOG_DEBUG, "Stop", kStopEntry, L"comm stop entry.");
  {
    std::list<std::shared_ptr<CList>> stopped;  // released after the lock: what they hold is the application's
    const std::lock_guard registry(g_registry.lock);
    for (const auto& list : g_registry.lists) {
      list->m_idleCountdown.exchange(0);
      list->m_running.exchange(false);
      list->m_wakeup.post();
    }
    stopped.swap(g_registry.lists);
  }
  WriteLog(LOG_DEBUG, "Stop", kStopLeave, L"comm stop leave.");
  return 0;
}

int StartNPA(std::shared_ptr<AppComm::Node> node) {
  WriteLog(LOG_DEBUG, "StartNPA", kStartNpaEntry, L"comm start NPA entry.");
  if (auto list = requestNPA(*node)) {
    list->m_wakeup.post();
    list.reset();
    WriteLog(LOG_DEBUG, "StartNPA", kStartNpaPosted, L"comm start set semaphore.");
  }
  WriteLog(LOG_DEBUG, "StartNPA", kStartNpaLeave, L"comm start NPA leave.");
  node.reset();
  return 0;
}

int PauseNPA(std::shared_ptr<AppComm::Node> node) {
  WriteLog(LOG_DEBUG, "PauseNPA", kPauseNpaEntry, L"comm pause NPA entry.");
  for (const auto& list : listsOf(node->getUID())) {
    if (withdrawNPA(*list, node->getType())) break;
  }
  WriteLog(LOG_DEBUG, "PauseNPA", kPauseNpaLeave, L"comm pause NPA leave.");
  node.reset();
  return 0;
}
