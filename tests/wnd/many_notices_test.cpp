/// Notices from many handlers, all forwarded to one window.

#include <gtest/gtest.h>

#include <set>

#include "support/ThreadCount.h"
#include "wnd/WindowThread.h"

namespace {

using namespace std::chrono_literals;

constexpr int kHandlers = 8;
constexpr int kNotices = 10'000;
constexpr std::size_t kMostInFlight = 64;  // senders; a process has only so many threads

DWORD handleCount() {
  DWORD count = 0;
  ::GetProcessHandleCount(::GetCurrentProcess(), &count);
  return count;
}

/// Forwards each notice, once there is room.
class Forwarder : public ChildWindow {
 public:
  explicit Forwarder(WindowThread& windows) : ChildWindow(windows.child()), m_windows(windows) {}

  bool Notice(long code) const override {
    std::unique_lock lock(m_mutex);
    m_roomMade.wait(lock, [&] { return m_sent - m_windows.received() < kMostInFlight; });
    ++m_sent;
    lock.unlock();
    ThreadToSelf(kFirst, static_cast<WPARAM>(code), 0);
    return true;
  }

  __int64 SendSelfMsg(unsigned msg, unsigned __int64 wParam, __int64 lParam) const override {
    const auto answer = ChildWindow::SendSelfMsg(msg, wParam, lParam);
    const std::lock_guard lock(m_mutex);
    m_roomMade.notify_all();
    return answer;
  }

 private:
  WindowThread& m_windows;
  mutable std::mutex m_mutex;
  mutable std::condition_variable m_roomMade;
  mutable std::size_t m_sent = 0;  // guarded by m_mutex
};

TEST(ManyNotices, AllArriveAndNoThreadAndNoHandleIsLeft) {
  WindowThread windows;
  const Forwarder window(windows);
  window.Notice(0);  // what the platform makes once is there from now on
  windows.await(1);
  ASSERT_TRUE(support::waitForThreadCount(2, std::chrono::steady_clock::now() + 20s));
  const DWORD handles = handleCount();

  std::vector<std::thread> handlers;
  for (int handler = 0; handler < kHandlers; ++handler) {
    handlers.emplace_back([&window, handler] {
      for (int notice = handler; notice < kNotices; notice += kHandlers) window.Notice(1 + notice);
    });
  }
  for (auto& handler : handlers) handler.join();

  std::set<WPARAM> codes;
  for (const auto& message : windows.await(1 + kNotices)) codes.insert(message.wParam);
  EXPECT_EQ(codes.size(), 1U + kNotices);
  EXPECT_EQ(windows.received(), 1U + kNotices);
  EXPECT_TRUE(support::waitForThreadCount(2, std::chrono::steady_clock::now() + 20s)) << support::threadCount() << " threads";
  EXPECT_LE(handleCount(), handles);
}

}  // namespace
