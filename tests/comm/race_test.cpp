#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <random>
#include <thread>
#include <vector>

#include "AppCommunication.h"
#include "comm/Registry.h"
#include "comm/ScriptedHandlers.h"
#include "fakes/InMemoryWindows.h"
#include "support/ThreadCount.h"

using namespace std::chrono_literals;

namespace {

/// The scheduler on the real clock, with callers and workers that meet as often as possible.
class RaceTest : public testing::Test {
 protected:
  static constexpr int kCallers = 8;
  static constexpr int kPrinters = 20;
  static constexpr int kTypes = 6;
  static constexpr int kThreadsBefore = 1;  // the main thread

  void run(std::uint32_t seed, int callsPerCaller) {
    handlers.onAny([](comm::CNode& entry) {
      // 0 to 3 ms, by the task, so that runs end while calls are under way.
      std::this_thread::sleep_for(std::chrono::milliseconds(entry.current()->getCode() % 4));
      if (entry.current()->getCode() % 2 == 0) entry.current()->resetNPAFlag();
      for (std::size_t index = 0; const auto observer = entry.observer(index); ++index) observer->setUpdate();
      return 0;
    });
    std::vector<std::thread> callers;
    for (std::uint32_t caller = 0; caller < kCallers; ++caller) {
      callers.emplace_back([this, seed, caller, callsPerCaller] { call(seed + caller, callsPerCaller); });
    }
    for (auto& caller : callers) caller.join();
    end();
  }

  void call(std::uint32_t seed, int calls) {
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return std::uniform_int_distribution(0, limit - 1)(random); };
    for (int n = 0; n < calls; ++n) {
      auto task = makeTask(below(kPrinters), below(kTypes), below(100));
      const int choice = below(100);
      if (choice < 60) {
        if (below(2) == 0) task->setRepeat();
        keep(task);
        Add(std::move(task));
      } else if (choice < 75) {
        StartNPA(std::move(task));
      } else if (choice < 90) {
        PauseNPA(std::move(task));
      } else if (choice < 98) {
        deleteSome(below(5));
      } else {
        Stop();
      }
    }
  }

  std::shared_ptr<AppComm::Node> makeTask(int printer, int type, long code) {
    auto info = std::make_shared<qzstd::PrinterInfo>();
    info->uid = L"P" + std::to_wstring(printer);
    info->interval = printer % 3;  // back to back, or nearly
    return AppComm::Node::Instance(std::move(info), nullptr, code, static_cast<AppComm::Type>(type));
  }

  void keep(const std::shared_ptr<AppComm::Node>& task) {
    const std::lock_guard lock(m_mutex);
    m_tasks.push_back(task);
  }

  void deleteSome(int count) {
    const std::lock_guard lock(m_mutex);
    for (; count > 0 && !m_tasks.empty(); --count, m_tasks.pop_back()) m_tasks.back()->setDelete();
  }

  // Lists that Stop no longer reaches end when their tasks are deleted or done.
  void end() {
    deleteSome(static_cast<int>(m_tasks.size()));
    Stop();
    EXPECT_TRUE(support::waitForThreadCount(kThreadsBefore, std::chrono::steady_clock::now() + 50s)) << "lists are left";
    handlers.awaitNoLists();
    const std::lock_guard registry(comm::g_registry.lock);
    EXPECT_TRUE(comm::g_registry.lists.empty());
  }

  fakes::InMemoryWindows windows;  // the log is off
  fakes::Installed installed{windows};
  fakes::ScriptedHandlers handlers;
  std::mutex m_mutex;
  std::vector<std::shared_ptr<AppComm::Node>> m_tasks;
};

TEST_F(RaceTest, EightCallersOnTwentyPrintersLeaveNothing) {
  for (std::uint32_t round = 0; round < 3; ++round) run(20240307 + 100 * round, 150);
}

// A task of a type that is free is never lost while its list lives: what is added and not stopped runs, or stays queued.
TEST_F(RaceTest, EveryOnceTaskOfItsOwnListRunsExactlyOnce) {
  constexpr long kTasks = 200;
  std::vector<std::thread> callers;
  for (int caller = 0; caller < kCallers; ++caller) {
    callers.emplace_back([this, caller] {
      for (long n = 0; n < kTasks / kCallers; ++n) {
        auto info = std::make_shared<qzstd::PrinterInfo>();
        info->uid = L"own " + std::to_wstring(caller) + L" " + std::to_wstring(n);
        Add(AppComm::Node::Instance(std::move(info), nullptr, caller * 1000 + n, AppComm::Type::State));
      }
    });
  }
  for (auto& caller : callers) caller.join();

  auto runs = handlers.awaitRuns(kTasks);
  std::ranges::sort(runs);
  EXPECT_EQ(std::ranges::adjacent_find(runs), runs.end());
  EXPECT_EQ(runs.size(), static_cast<std::size_t>(kTasks));
  end();
}

}  // namespace
