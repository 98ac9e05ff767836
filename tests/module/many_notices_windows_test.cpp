/// Many notices from the real module, with simulated printers, to a real window.

#include "module/ManyNotices.h"
#include "module/ModuleTest.h"
#include "support/HandleCount.h"
#include "support/Watchdog.h"
#include "wnd/WindowThread.h"

namespace {

using namespace manynotices;
using namespace std::chrono_literals;
using std::chrono::steady_clock;

/// The system closes the handles of a thread that nobody joins some time after its end, and announces it to no one.
bool waitForHandleCount(int atMost, steady_clock::time_point deadline) {
  while (support::handleCount() > atMost) {
    if (steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(2ms);
  }
  return true;
}

/// A wrapper of the child that leaves the window to the thread that made it.
class ForwardsToChild : public Forwarder {
 public:
  ForwardsToChild(const WindowThread& windows, int noticesEach) : Forwarder(noticesEach) { SetWnd(windows.child()); }
  ~ForwardsToChild() override { SetWnd(nullptr); }
};

class ManyNoticesTest : public ModuleTest {
 protected:
  // A mutex gets a handle when threads first meet at it, and keeps it. Fewer than one for each list, let alone each notice.
  static constexpr int kMutexHandles = kPrinters - 1;
  static constexpr int kThreads = 2;  // this one, and that of the windows

  ManyNoticesTest() {
    std::string printers;
    for (int number = 0; number < kPrinters; ++number) {
      printers += application::printer(std::to_string(number), "connection='usb' ctrl-port='yes'");
    }
    application::loadPrinters(printers);
  }

  static void addTasks(const std::shared_ptr<Forwarder>& window) {
    for (int number = 0; number < kPrinters; ++number) {
      addTask(number, simulator::newPrinterInfo(std::to_wstring(number)), window);
    }
  }
  /// In parts: starting a thread takes Wine a millisecond or more, so all of them may take longer than a step of a test should.
  static std::vector<Message> awaitAll(WindowThread& windows, std::size_t count) {
    constexpr std::size_t part = 1'000;
    for (std::size_t some = part; some < count && windows.await(some).size() >= some; some += part) {
      support::enterWatchedStep("ManyNoticesTest, with " + std::to_string(some) + " notices");
    }
    return windows.await(count);
  }
  static bool threadsAre(int count) { return support::waitForThreadCount(count, steady_clock::now() + application::kPatience); }
};

TEST_F(ManyNoticesTest, OfEightHandlersAllArriveAndNoThreadAndNoHandleIsLeft) {
  WindowThread windows;
  auto once = std::make_shared<ForwardsToChild>(windows, 1);
  addTasks(once);  // what the platform and the libraries make once is there from now on
  ASSERT_EQ(windows.await(kPrinters).size(), std::size_t{kPrinters});
  ASSERT_TRUE(threadsAre(kThreads)) << "the lists end by themselves";
  once.reset();
  const int handles = support::handleCount();
  ASSERT_GT(handles, 0);
  auto window = std::make_shared<ForwardsToChild>(windows, kNoticesEach);

  windows.makeBusy();
  addTasks(window);
  // As long as the window takes nothing, each notice has a sender of its own, up to the bound; then the handlers wait.
  EXPECT_TRUE(window->awaitInFlight(kMostInFlight));
  EXPECT_TRUE(threadsAre(kThreads + kPrinters * kThreadsOfAList + static_cast<int>(kMostInFlight)))
      << support::threadCount() << " threads";
  windows.letGo();

  Messages messages;
  const auto received = awaitAll(windows, kPrinters + kNotices);
  for (const auto& message : received) {
    EXPECT_EQ(message.id, kForwarded);
    messages.emplace(message.wParam, message.lParam);
  }
  EXPECT_EQ(received.size(), kPrinters + kNotices);
  EXPECT_EQ(messages, allMessages()) << "with those of the first time, which are among them";
  EXPECT_TRUE(threadsAre(kThreads)) << support::threadCount() << " threads";
  EXPECT_TRUE(window->awaitInFlight(0));
  EXPECT_EQ(windows.received(), kPrinters + kNotices) << "nothing comes later";
  EXPECT_EQ(window.use_count(), 1) << "the module keeps no window";
  window.reset();
  EXPECT_TRUE(waitForHandleCount(handles + kMutexHandles, steady_clock::now() + application::kPatience))
      << support::handleCount() << " handles, " << handles << " before";
}

}  // namespace
