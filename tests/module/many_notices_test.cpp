/// Many notices on the scripted platform, under the sanitizers: the module's own lists and handlers, the printers' library
/// answers at once, and the windows are the test's.

#include <gtest/gtest.h>

#include <chrono>

#include "fakes/MakerLibraries.h"
#include "fakes/MessageWindows.h"
#include "module/ManyNotices.h"
#include "support/ThreadCount.h"

namespace {

using namespace manynotices;
using namespace std::chrono_literals;
using std::chrono::steady_clock;

class ReadyPrinters : public fakes::MakerLibraries {
 public:
  std::atomic<std::size_t> reads{0};

  void record(const std::string& /*call*/) override {}  // 20,000 of them
  int AppMgr_GetPrintingJob(const wchar_t* /*managerId*/) override { return 0; }
  int AppPrinterSdk_GetState(qzstd::PrinterInfo* /*printer*/) override {
    ++reads;
    return 0;
  }
};

class Receiver : public Forwarder {
 public:
  using Forwarder::Forwarder;

  bool Create(HWND parent) override { return CreateWnd(::GetModuleHandleW(nullptr), parent, 1); }
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override {
    if (msg != kForwarded) return FALSE;
    ++received;
    messages.emplace(wParam, lParam);
    return TRUE;
  }

  std::size_t received = 0;
  Messages messages;
};

TEST(ManyNotices, OfEightHandlersAllArriveAndNoThreadIsLeft) {
  fakes::MessageWindows windows;
  const fakes::Installed installed(windows);
  ReadyPrinters printers;
  const fakes::InstalledMaker installedPrinters(printers);
  const auto window = std::make_shared<Receiver>(kNoticesEach);
  ASSERT_TRUE(window->Create(nullptr));
  const int threads = support::threadCount();

  for (int number = 0; number < kPrinters; ++number) {
    qzstd::PrinterInfo printer;
    printer.uid = std::to_wstring(number);
    addTask(number, std::move(printer), window);
  }

  // As long as the window takes nothing, each notice has a sender of its own, up to the bound; then the handlers wait.
  ASSERT_TRUE(windows.awaitSent(kMostInFlight));
  EXPECT_TRUE(support::waitForThreadCount(threads + kPrinters * kThreadsOfAList + static_cast<int>(kMostInFlight),
                                          steady_clock::now() + 20s))
      << support::threadCount() << " threads";

  const auto deadline = steady_clock::now() + 35s;  // with the wait for the threads still within the test's own limit
  for (; window->received < kNotices && steady_clock::now() < deadline; windows.awaitAny()) windows.takeSent();

  EXPECT_EQ(window->received, kNotices);
  EXPECT_EQ(window->messages, allMessages());
  EXPECT_EQ(printers.reads, kNotices) << "each notice is of a run of its own";
  EXPECT_TRUE(support::waitForThreadCount(threads, steady_clock::now() + 20s)) << support::threadCount() << " threads";
  EXPECT_TRUE(window->awaitInFlight(0));
  EXPECT_EQ(windows.sent(), 0U);
  EXPECT_EQ(window.use_count(), 1) << "the module keeps no window";
}

}  // namespace
