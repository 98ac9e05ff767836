#include "comm/ScriptedHandlers.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <utility>

#include "comm/HandlerTable.h"

namespace fakes {
namespace {

constexpr int kTaskTypes = 22;
std::atomic<ScriptedHandlers*> g_handlers{nullptr};

}  // namespace

class ScriptedHandlers::ListLife {
 public:
  explicit ListLife(ScriptedHandlers& handlers) : m_handlers(handlers) {
    const std::lock_guard lock(m_handlers.m_mutex);
    ++m_handlers.m_lists;
  }
  ~ListLife() {
    const std::lock_guard lock(m_handlers.m_mutex);
    --m_handlers.m_lists;
    m_handlers.m_changed.notify_all();
  }
  ListLife(const ListLife&) = delete;
  ListLife& operator=(const ListLife&) = delete;

  int run(comm::CNode& entry) { return m_handlers.run(entry); }

 private:
  ScriptedHandlers& m_handlers;
};

ScriptedHandlers::ScriptedHandlers() { g_handlers.store(this); }
ScriptedHandlers::~ScriptedHandlers() { g_handlers.store(nullptr); }

void ScriptedHandlers::on(AppComm::Type type, Action action) {
  const std::lock_guard lock(m_mutex);
  m_actions[type] = std::move(action);
}

void ScriptedHandlers::onAny(Action action) {
  const std::lock_guard lock(m_mutex);
  m_anyAction = std::move(action);
}

std::vector<long> ScriptedHandlers::runs() {
  const std::lock_guard lock(m_mutex);
  return m_runs;
}

std::vector<long> ScriptedHandlers::awaitRuns(std::size_t count) {
  std::unique_lock lock(m_mutex);
  EXPECT_TRUE(m_changed.wait_for(lock, std::chrono::seconds(20), [&] { return m_runs.size() >= count; }))
      << m_runs.size() << " runs have begun, not " << count;
  return m_runs;
}

void ScriptedHandlers::awaitNoLists() {
  std::unique_lock lock(m_mutex);
  EXPECT_TRUE(m_changed.wait_for(lock, std::chrono::seconds(20), [&] { return m_lists == 0; })) << m_lists << " lists are left";
}

int ScriptedHandlers::run(comm::CNode& entry) {
  Action action;
  {
    const std::lock_guard lock(m_mutex);
    m_runs.push_back(entry.current()->getCode());
    m_changed.notify_all();
    const auto found = m_actions.find(entry.type());
    action = found != m_actions.end() ? found->second : m_anyAction;
  }
  return action ? action(entry) : 0;
}

int withoutNPA(comm::CNode& entry) {
  entry.current()->resetNPAFlag();
  return 0;
}

}  // namespace fakes

void comm::registerHandlers(std::unordered_map<int, Handler>& handlers) {
  const auto life = std::make_shared<fakes::ScriptedHandlers::ListLife>(*fakes::g_handlers.load());
  for (int type = 0; type < fakes::kTaskTypes; ++type) {
    handlers[type] = [life](std::shared_ptr<CNode> entry) { return life->run(*entry); };
  }
}
