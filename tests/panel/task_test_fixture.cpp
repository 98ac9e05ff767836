#include <algorithm>
#include <chrono>
#include <utility>

#include "Records.h"
#include "TaskTest.h"
#include "comm/Registry.h"
#include "support/ThreadCount.h"

namespace paneltest {
namespace {

using namespace std::chrono_literals;
using AppComm::State;
using std::chrono::steady_clock;

constexpr auto kPatience = 20s;

class WatchedOperation : public examples::RecordOperation<State> {
 public:
  WatchedOperation(Kind kind, Steps& steps)
      : RecordOperation(kind.type, State{.busy = kind.isSkipped},
                        [&steps](const State& /*record*/, const qzstd::PrinterInfo& /*printer*/) {
                          ++steps.reports;
                          return examples::Report{};
                        }),
        m_repeats(kind.repeats),
        m_steps(steps) {}
  ~WatchedOperation() override { m_steps.gone(); }

  bool repeats() const override { return m_repeats; }

 protected:
  bool onNotice() override { return m_steps.noticed(); }

 private:
  const bool m_repeats;
  Steps& m_steps;
};

}  // namespace

void Gate::close() {
  const std::lock_guard lock(m_mutex);
  m_isClosed = true;
}

void Gate::open() {
  const std::lock_guard lock(m_mutex);
  m_isClosed = false;
  m_changed.notify_all();
}

void Gate::pass() {
  std::unique_lock lock(m_mutex);
  ++m_held;
  m_changed.notify_all();
  m_changed.wait(lock, [this] { return !m_isClosed; });
  --m_held;
}

bool Gate::awaitHeld() {
  std::unique_lock lock(m_mutex);
  return m_changed.wait_for(lock, kPatience, [this] { return m_isClosed && m_held > 0; });
}

int HeldPrinter::AppMgr_GetPrintingJob(const wchar_t* /*managerId*/) { return 0; }

int HeldPrinter::AppPrinterSdk_GetState(qzstd::PrinterInfo* /*printer*/) {
  m_gate.pass();
  return 0;
}

TaskTest::TaskTest() { EXPECT_TRUE(threadsLeft(0)) << "left by another test"; }

TaskTest::~TaskTest() {
  fault.reset();
  gate.open();
  endGate.open();
  if (task != nullptr) {
    task->cancel();
    EXPECT_TRUE(becomesFree());
    task.reset();
  }
  Stop();
  EXPECT_TRUE(eventually([] { return support::threadCount() == 1; })) << "a list or a sender is left";
}

std::shared_ptr<qzstd::PrinterInfo> TaskTest::newPrinter() {
  auto info = std::make_shared<qzstd::PrinterInfo>();
  info->uid = L"P1";
  info->interval = 1;
  return info;
}

std::unique_ptr<examples::Operation> TaskTest::newOperation(Kind kind) {
  return std::make_unique<WatchedOperation>(kind, steps);
}

std::unique_ptr<panel::Task> TaskTest::newTask(Kind kind, const std::shared_ptr<qzstd::PrinterInfo>& info) {
  return std::make_unique<panel::Task>(nullptr, newOperation(kind), info, [this](const examples::Report& report, bool isOver) {
    told.push_back({report, isOver, std::this_thread::get_id()});
  });
}

bool TaskTest::eventually(const std::function<bool()>& isSo) {
  for (const auto deadline = steady_clock::now() + kPatience; !isSo(); windows.awaitAny()) {
    if (steady_clock::now() >= deadline) return false;
    windows.takeSent();
    windows.takePosted();
  }
  return true;
}

bool TaskTest::threadsLeft(int count) { return support::waitForThreadCount(1 + count, steady_clock::now() + kPatience); }

std::weak_ptr<AppWnd::CWnd> TaskTest::listedWindow() {
  const std::lock_guard registry(comm::g_registry.lock);
  const auto entry = comm::g_registry.lists.size() == 1 ? comm::g_registry.lists.front()->entry(0) : nullptr;
  return entry == nullptr ? nullptr : entry->current()->getWnd();
}

std::size_t TaskTest::ends() const { return static_cast<std::size_t>(std::ranges::count_if(told, &Told::isOver)); }

}  // namespace paneltest
