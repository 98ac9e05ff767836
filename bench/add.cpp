/// `Add` of a task whose type its list does not have yet, while many printers are registered and this one is the last.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "AppCommunication.h"
#include "comm/CList.h"
#include "comm/Registry.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kTypes = 22;

std::wstring uidOf(int printer) { return L"NET/office/printer-" + std::to_wstring(100000 + printer); }

// Registered without workers: nothing takes the tasks out again behind the measurement's back.
class Printers {
 public:
  explicit Printers(int count) {
    const std::lock_guard lock(comm::g_registry.lock);
    for (int printer = 0; printer < count; ++printer) {
      comm::g_registry.lists.push_back(std::make_shared<comm::CList>(uidOf(printer), 1000));
    }
    m_last = comm::g_registry.lists.back();
  }
  ~Printers() {
    const std::lock_guard lock(comm::g_registry.lock);
    comm::g_registry.lists.clear();
  }
  Printers(const Printers&) = delete;
  Printers& operator=(const Printers&) = delete;

  comm::CList& last() { return *m_last; }

 private:
  std::shared_ptr<comm::CList> m_last;
};

std::vector<std::shared_ptr<AppComm::Node>> newTasks(int printers) {
  const auto printer = std::make_shared<qzstd::PrinterInfo>();
  printer->uid = uidOf(printers - 1);
  std::vector<std::shared_ptr<AppComm::Node>> tasks;
  for (int type = 0; type < kTypes; ++type) {
    tasks.push_back(AppComm::Node::Instance(printer, nullptr, 0, static_cast<AppComm::Type>(type)));
  }
  return tasks;
}

void setSecondsPerCall(benchmark::State& state, Clock::duration elapsed) {
  state.SetIterationTime(std::chrono::duration<double>(elapsed).count() / kTypes);
}

// One iteration is a task of each type into an empty list; the time is that of one of them.
void add(benchmark::State& state, int count) {
  Printers printers(count);
  const auto tasks = newTasks(count);
  for (auto _ : state) {
    std::deque<std::shared_ptr<comm::CNode>> entries;
    const auto begin = Clock::now();
    for (const auto& task : tasks) Add(task);
    setSecondsPerCall(state, Clock::now() - begin);
    printers.last().swapAll(entries);
    if (entries.size() != kTypes) std::abort();
  }
}

void walk(benchmark::State& state, int count) {
  const Printers printers(count);
  const auto tasks = newTasks(count);
  for (auto _ : state) {
    const auto begin = Clock::now();
    for (const auto& task : tasks) {
      const std::wstring& uid = task->getUID();
      const std::lock_guard lock(comm::g_registry.lock);
      for (const auto& list : comm::g_registry.lists) {
        if (list->m_uid != uid) continue;
        benchmark::DoNotOptimize(list.get());
        break;
      }
    }
    setSecondsPerCall(state, Clock::now() - begin);
  }
}

bool registerAll() {
  for (const int count : {1, 10, 100, 1000, 5000}) {
    const std::string number = std::to_string(count);
    benchmark::RegisterBenchmark(("walk_last_of_" + number).c_str(), walk, count)->UseManualTime();
    benchmark::RegisterBenchmark(("add_last_of_" + number).c_str(), add, count)->UseManualTime();
  }
  return true;
}

const bool g_registered = registerAll();

}  // namespace
