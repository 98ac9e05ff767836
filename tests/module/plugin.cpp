/// An application's library that uses the module: when it is unloaded, the module goes with it.

#include "module/Plugin.h"

#include <condition_variable>
#include <mutex>

#include "common/AddedTasks.h"
#include "module/Application.h"
#include "simulator/SimulatedPrinters.h"
#include "support/PlainWindow.h"

namespace {

using application::kPatience;
using application::printer;

constexpr const char* kStateRead = "AppPrinterSdk_GetState";

examples::AddedTasks g_tasks;

class Window : public support::PlainWindow {
 public:
  bool Notice(long /*code*/) const override { return true; }
};

/// Tells a window that takes nothing but messages, which a process without a display can have too.
class MessageWindow : public support::PlainWindow {
 public:
  ~MessageWindow() override { ::DestroyWindow(m_window); }

  bool Notice(long /*code*/) const override {
    ThreadToSelf(WM_APP, 0, 0);
    return true;
  }
  __int64 SendSelfMsg(unsigned msg, unsigned __int64 wParam, __int64 lParam) const override {
    {
      const std::lock_guard lock(m_mutex);
      m_hasSender = true;
      m_changed.notify_all();
    }
    return ::SendMessageW(m_window, msg, wParam, lParam);
  }
  bool waitForSender() const {
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, kPatience, [this] { return m_hasSender; });
  }

 private:
  const HWND m_window =
      ::CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, ::GetModuleHandleW(nullptr), nullptr);
  mutable std::mutex m_mutex;
  mutable std::condition_variable m_changed;
  mutable bool m_hasSender = false;
};

std::shared_ptr<MessageWindow> g_messageWindow;

template <class Record>
void addOnce(const std::shared_ptr<qzstd::PrinterInfo>& info, AppComm::Type type) {
  auto task = AppComm::Node::Instance(info, std::make_shared<Window>(), 1, type);
  task->setResource(std::make_shared<Record>());
  g_tasks.add(std::move(task));
}

void addPolling(const std::wstring& uid) {
  application::StateTask task(uid, 1);
  g_tasks.add(task.repeating().node());
  StartNPA(task.node());
}

}  // namespace

extern "C" __declspec(dllexport) bool beginTasks() {
  application::loadPrinters(printer("polled", "connection='usb' interval='10' ctrl-port='yes'") +
                            printer("hangs", "connection='usb' interval='10' ctrl-port='yes'",
                                    "<call function='AppPrinterSdk_GetState'><hang/></call>"));
  addPolling(L"polled");
  addPolling(L"hangs");
  if (!simulator::waitUntilBegun(kStateRead, 1, kPatience, L"hangs")) return false;
  addPolling(L"hangs");  // with the task that is being served
  const auto info = std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(L"hangs"));
  addOnce<AppComm::DevParam>(info, AppComm::Type::GetDevParam);
  addOnce<AppComm::FirmUp>(info, AppComm::Type::FirmUpgrade);
  return simulator::waitUntilEnded(kStateRead, 2, kPatience, L"polled");
}

extern "C" __declspec(dllexport) bool beginTransfer() {
  application::loadPrinters(printer("updated", "connection='usb' interval='10'", "<firmware size='1000000' rate='1'/>"));
  addOnce<AppComm::FirmUp>(std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(L"updated")),
                           AppComm::Type::FirmUpgrade);
  return simulator::waitUntilBegun("AppPrinterSdk_UpgradeFwProgress", 2, kPatience, L"updated");
}

extern "C" __declspec(dllexport) void beginWait() {
  application::loadPrinters(printer("slow", "connection='usb' interval='1215000'"));
  addOnce<AppComm::DevParam>(std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(L"slow")),
                             AppComm::Type::GetDevParam);
}

extern "C" __declspec(dllexport) bool beginMessages() {
  application::loadPrinters(printer("polled", "connection='usb' interval='10'"));
  g_messageWindow = std::make_shared<MessageWindow>();
  const auto info = std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(L"polled"));
  auto task = AppComm::Node::Instance(info, g_messageWindow, 1, AppComm::Type::State);
  task->setResource(std::make_shared<AppComm::State>());
  g_tasks.add(std::move(task));
  return g_messageWindow->waitForSender();
}

extern "C" __declspec(dllexport) void dropObjects() { g_messageWindow.reset(); }

extern "C" __declspec(dllexport) void releaseCall() { simulator::releaseCalls(); }

extern "C" __declspec(dllexport) void endTasks() { g_tasks.end(); }
