/// Printers do not wait for one another, and nobody waits for the user interface.

#include <future>
#include <thread>

#include "module/ModuleTest.h"
#include "support/PlainWindow.h"

namespace {

using application::kPatience;
using application::loadPrinters;
using application::printer;

constexpr const char* kGetState = "AppPrinterSdk_GetState";
constexpr const char* kHangs = "<call function='AppPrinterSdk_GetState'><hang/></call>";
constexpr const char* kPrinting = "connection='usb' ctrl-port='yes' jobs='1' interval='10'";  // is read in every run

class ParallelTest : public ModuleTest {};

TEST_F(ParallelTest, PrinterThatHangsDoesNotDelayAnother) {
  loadPrinters(printer("hanging", kPrinting, kHangs) + printer("healthy", kPrinting));
  auto& hanging = stateTask(L"hanging", 1).repeating();
  auto& healthy = stateTask(L"healthy", 2).repeating();
  Add(hanging.node());
  ASSERT_TRUE(simulator::waitUntilBegun(kGetState, 1, kPatience, L"hanging"));

  Add(healthy.node());
  EXPECT_TRUE(healthy.notices().waitFor(10));
  EXPECT_EQ(hanging.notices().count(), 0U);

  simulator::releaseCalls();
  EXPECT_TRUE(hanging.notices().waitFor(1));
}

TEST_F(ParallelTest, EightPrintersAreReadAtTheSameTime) {
  constexpr int kPrinters = 8;
  std::string printers;
  for (int number = 1; number <= kPrinters; ++number) printers += printer("p" + std::to_string(number), kPrinting, kHangs);
  loadPrinters(printers);
  std::vector<application::StateTask*> tasks;
  for (int number = 1; number <= kPrinters; ++number) tasks.push_back(&stateTask(L"p" + std::to_wstring(number), number));
  for (const auto* task : tasks) Add(task->node());

  EXPECT_TRUE(simulator::waitUntilBegun(kGetState, kPrinters, kPatience));
  EXPECT_TRUE(std::ranges::none_of(simulator::calls(), [](const auto& call) { return call.function == kGetState && call.end; }))
      << "all of them are inside";
  simulator::releaseCalls();
  for (const auto* task : tasks) EXPECT_TRUE(task->notices().waitFor(1));
}

/// A thread of the user interface with a message-only window.
class UserInterface {
 public:
  static constexpr unsigned kResult = WM_APP + 1;
  using OnResult = std::function<void(unsigned __int64)>;

  explicit UserInterface(OnResult onResult) : m_onResult(std::move(onResult)), m_thread([this] { run(); }) {}
  ~UserInterface() {
    ::PostMessageW(window(), WM_CLOSE, 0, 0);
    m_thread.join();
  }
  UserInterface(const UserInterface&) = delete;
  UserInterface& operator=(const UserInterface&) = delete;

  HWND window() { return m_window.get(); }

 private:
  static LRESULT CALLBACK proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) ::PostQuitMessage(0);
    if (message != kResult) return ::DefWindowProcW(window, message, wParam, lParam);
    reinterpret_cast<UserInterface*>(::GetWindowLongPtrW(window, GWLP_USERDATA))->m_onResult(wParam);
    return 0;
  }

  void run() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = proc;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"AppCommModuleTest";
    ::RegisterClassW(&windowClass);
    const HWND made = ::CreateWindowExW(0, windowClass.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                        windowClass.hInstance, nullptr);
    ::SetWindowLongPtrW(made, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_made.set_value(made);
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
    ::UnregisterClassW(windowClass.lpszClassName, windowClass.hInstance);
  }

  const OnResult m_onResult;
  std::promise<HWND> m_made;
  std::shared_future<HWND> m_window{m_made.get_future()};
  std::thread m_thread;
};

/// Forwards its notices to a window of the system, as an application does.
class ForwardingWindow : public support::PlainWindow {
 public:
  explicit ForwardingWindow(HWND window) { SetWnd(window); }
  ~ForwardingWindow() override { SetWnd(nullptr); }  // the window is its thread's, which destroys it

  bool Notice(long code) const override {
    ThreadToSelf(UserInterface::kResult, static_cast<unsigned __int64>(code), 0);
    return true;
  }
};

TEST_F(ParallelTest, NoticeReachesTheUserInterfaceWhileTheWorkerGoesOn) {
  loadPrinters(printer("p", kPrinting));
  std::promise<std::thread::id> shownOn;
  std::promise<unsigned __int64> shown;
  std::promise<bool> workerWentOn;
  std::atomic<int> messages{0};
  UserInterface ui([&](unsigned __int64 code) {
    if (messages++ > 0) return;
    shownOn.set_value(std::this_thread::get_id());
    shown.set_value(code);
    // The worker makes further runs although this thread answers no message meanwhile.
    workerWentOn.set_value(simulator::waitUntilEnded(kGetState, begun(kGetState, L"p") + 3, kPatience));
  });
  const auto window = std::make_shared<ForwardingWindow>(ui.window());
  const auto task = AppComm::Node::Instance(std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(L"p")), window, 77,
                                            AppComm::Type::State);
  task->setResource(std::make_shared<AppComm::State>());
  task->setRepeat();
  Add(task);

  EXPECT_NE(shownOn.get_future().get(), std::this_thread::get_id());
  EXPECT_EQ(shown.get_future().get(), 77U);
  EXPECT_TRUE(workerWentOn.get_future().get());
  task->setDelete();
  Stop();
  // What is still under way refers to the window: all of its threads end before it goes.
  EXPECT_TRUE(support::waitForThreadCount(m_threadsBefore + 1, std::chrono::steady_clock::now() + kPatience));
  EXPECT_GE(messages, 3);
}

}  // namespace
