/// The part of an application that talks to printers, in a library of its own that comes and goes with the module.

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

#include "AppCommunication.h"
#include "common/AddedTasks.h"
#include "simulator/SimulatedPrinters.h"

namespace {

constexpr auto kPatience = std::chrono::seconds(30);
constexpr qzstd::Rect kNowhere;

examples::AddedTasks g_tasks;

/// Never shown: what it is told wakes whoever waits for it.
class Listener : public AppWnd::CWnd {
 public:
  Listener() : CWnd(kNowhere) {}

  bool Create(HWND /*parent*/) override { return false; }
  __int64 RunProc(unsigned /*msg*/, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override { return 0; }
  bool Notice(long /*code*/) const override {
    const std::lock_guard lock(m_mutex);
    m_isTold = true;
    m_changed.notify_all();
    return true;
  }
  bool waitForNotice() const {
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, kPatience, [this] { return m_isTold; });
  }

 private:
  mutable std::mutex m_mutex;
  mutable std::condition_variable m_changed;
  mutable bool m_isTold = false;
};

std::shared_ptr<Listener> g_listener;

}  // namespace

extern "C" __declspec(dllexport) bool watchPrinters() {
  g_listener = std::make_shared<Listener>();
  const auto printer = std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(L"usb-lab"));
  auto task = AppComm::Node::Instance(printer, g_listener, 1, AppComm::Type::State);
  task->setResource(std::make_shared<AppComm::State>());
  task->setRepeat();
  g_tasks.add(std::move(task));
  return g_listener->waitForNotice();
}

extern "C" __declspec(dllexport) void endTasks() { g_tasks.end(); }
extern "C" __declspec(dllexport) void dropObjects() { g_listener.reset(); }
