#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <future>
#include <set>
#include <system_error>
#include <thread>

#include "AppWindow.h"
#include "fakes/ThreadStartFault.h"
#include "support/PlainWindow.h"
#include "wnd/WindowCalls.h"

namespace {

using namespace std::chrono_literals;

using Window = support::PlainWindow;

constexpr qzstd::Rect kNowhere;

TEST(CWnd, NoticeAnswersFalse) { EXPECT_FALSE(Window(kNowhere).Notice(1)); }

TEST(CWnd, MovesToTheRectangleAsItIsNow) {
  qzstd::Rect rect{1, 2, 3, 4};
  OnWindow<Window> on(rect);
  on.window.Move();
  rect = {-10, 20, 300, 400};
  on.window.Move();
  EXPECT_EQ(on.platform.calls(), (Calls{"MoveWindow(1, 1, 2, 3, 4, 1)", "InvalidateRect(1, null, 1)",
                                        "MoveWindow(1, -10, 20, 300, 400, 1)", "InvalidateRect(1, null, 1)"}));
}

TEST(CWnd, OffersTheMovesOfItsBaseToo) {
  OnWindow<Window> on(kNowhere);
  on.window.Move(1, 2, 3, 4);
  on.window.Move(RECT{10, 20, 300, 400});
  EXPECT_EQ(on.platform.calls()[0], "MoveWindow(1, 1, 2, 3, 4, 1)");
  EXPECT_EQ(on.platform.calls()[2], "MoveWindow(1, 10, 20, 300, 400, 1)");
}

class RedrawnByTable : public Window {
 public:
  using Window::Window;
  void ReDraw(bool erase) const override { redraws.push_back(erase); }
  mutable std::vector<bool> redraws;
};

TEST(CWnd, MoveEndsInTheReDrawOfTheTable) {
  OnWindow<RedrawnByTable> on(kNowhere);
  on.window.Move();
  EXPECT_EQ(on.window.redraws, std::vector<bool>{true});
}

TEST(CWnd, DestructorDestroysTheWindow) {
  WindowCalls platform;
  const fakes::Installed installed(platform);
  platform.answer("IsWindow", 1);
  { Window(kNowhere).SetWnd(handle(1)); }
  EXPECT_EQ(platform.calls(), (Calls{"IsWindow(1)", "DestroyWindow(1)"}));
}

class Dialog : public AppWnd::CDlgWnd {
 public:
  using CDlgWnd::CDlgWnd;
  bool Create(HWND /*parent*/) override { return false; }
  __int64 RunProc(unsigned /*msg*/, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override { return 0; }
};

TEST(CDlgWnd, NoticeAnswersFalse) { EXPECT_FALSE(Dialog(kNowhere).Notice(1)); }

TEST(CDlgWnd, DestroyAndTheDestructorDestroyTheWindow) {
  WindowCalls platform;
  const fakes::Installed installed(platform);
  platform.answer("IsWindow", 1);
  {
    Dialog dialog(kNowhere);
    dialog.SetWnd(handle(1));
    dialog.Destroy();
    EXPECT_EQ(dialog.GetWnd(), nullptr);
    dialog.SetWnd(handle(2));
  }
  EXPECT_EQ(platform.calls(), (Calls{"IsWindow(1)", "DestroyWindow(1)", "IsWindow(2)", "DestroyWindow(2)"}));
}

// A receiver whose thread is busy: no message is answered before the test lets it.
class BusyReceiver : public WindowCalls {
 public:
  LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override {
    std::unique_lock lock(m_mutex);
    m_senders.push_back(std::this_thread::get_id());
    m_changed.notify_all();
    m_changed.wait(lock, [&] { return m_released; });
    WindowCalls::SendMessageW(window, message, wParam, lParam);
    ++m_answered;
    m_changed.notify_all();
    return 1;
  }

  void release() {
    const std::lock_guard lock(m_mutex);
    m_released = true;
    m_changed.notify_all();
  }

  /// The messages, sorted, once `count` are answered.
  Calls awaitMessages(std::size_t count) {
    {
      std::unique_lock lock(m_mutex);
      EXPECT_TRUE(m_changed.wait_for(lock, 20s, [&] { return m_answered >= count; })) << m_answered << " messages came";
    }
    auto messages = calls();
    messages.erase(
        std::remove_if(messages.begin(), messages.end(), [](const auto& call) { return call.rfind("SendMessageW", 0) != 0; }),
        messages.end());
    std::sort(messages.begin(), messages.end());
    return messages;
  }

  std::size_t answered() {
    const std::lock_guard lock(m_mutex);
    return m_answered;
  }

  /// The threads that wait for their answer, once they are `count`.
  std::vector<std::thread::id> awaitSenders(std::size_t count) {
    std::unique_lock lock(m_mutex);
    EXPECT_TRUE(m_changed.wait_for(lock, 20s, [&] { return m_senders.size() >= count; }))
        << m_senders.size() << " threads came";
    return m_senders;
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  bool m_released = false;
  std::size_t m_answered = 0;
  std::vector<std::thread::id> m_senders;
};

template <class Window>
class ForwardingTest : public testing::Test {
 protected:
  ForwardingTest() {
    receiver.answer("GetParent", 2);
    window.SetWnd(handle(1));
  }
  ~ForwardingTest() override { receiver.release(); }

  /// Runs `forward` while no message is answered, then lets the receiver go. True when it came back before that.
  template <class Forward>
  bool returnsWhileBusy(Forward forward) {
    auto returned = std::async(std::launch::async, forward);
    const bool atOnce = returned.wait_for(20s) == std::future_status::ready;
    EXPECT_EQ(receiver.answered(), 0U);
    receiver.release();
    returned.get();
    return atOnce;
  }

  BusyReceiver receiver;
  const fakes::Installed installed{receiver};
  Window window{kNowhere};
};

using Forwarding = testing::Types<Window, Dialog>;
TYPED_TEST_SUITE(ForwardingTest, Forwarding);

TYPED_TEST(ForwardingTest, ThreadToParentReturnsWhileTheParentIsBusyAndBothMessagesArrive) {
  EXPECT_TRUE(this->returnsWhileBusy([&] {
    this->window.ThreadToParent(7, 1, -1);
    this->window.ThreadToParent(8, ~0ULL, 2);
  }));
  EXPECT_EQ(this->receiver.awaitMessages(2),
            (Calls{"SendMessageW(2, 7, 1, -1)", "SendMessageW(2, 8, 18446744073709551615, 2)"}));
}

TYPED_TEST(ForwardingTest, ThreadToSelfReturnsWhileTheWindowIsBusyAndBothMessagesArrive) {
  EXPECT_TRUE(this->returnsWhileBusy([&] {
    this->window.ThreadToSelf(7, 1, -1);
    this->window.ThreadToSelf(8, 3, 2);
  }));
  EXPECT_EQ(this->receiver.awaitMessages(2), (Calls{"SendMessageW(1, 7, 1, -1)", "SendMessageW(1, 8, 3, 2)"}));
}

TYPED_TEST(ForwardingTest, EachMessageIsSentOnAThreadOfItsOwn) {
  auto caller = std::async(std::launch::async, [&] {
    this->window.ThreadToParent(7, 0, 0);
    this->window.ThreadToSelf(8, 0, 0);
    return std::this_thread::get_id();
  });

  auto threads = this->receiver.awaitSenders(2);  // while none is answered: ids of threads that ended may come again
  this->receiver.release();
  threads.push_back(caller.get());

  EXPECT_EQ(std::set<std::thread::id>(threads.begin(), threads.end()).size(), 3U);
  this->receiver.awaitMessages(2);
}

// The senders of the table are the ones that the thread calls.
template <class Base>
class SendsItself : public Base {
 public:
  explicit SendsItself(const BusyReceiver& receiver) : Base(kNowhere), m_receiver(const_cast<BusyReceiver&>(receiver)) {}
  __int64 SendParentMsg(unsigned msg, unsigned __int64 wParam, __int64 lParam) const override {
    return m_receiver.SendMessageW(handle(100), msg, wParam, lParam);
  }
  __int64 SendSelfMsg(unsigned msg, unsigned __int64 wParam, __int64 lParam) const override {
    return m_receiver.SendMessageW(handle(101), msg, wParam, lParam);
  }

 private:
  BusyReceiver& m_receiver;
};

TYPED_TEST(ForwardingTest, GoesThroughTheSendersOfTheTable) {
  const SendsItself<TypeParam> overriding(this->receiver);
  this->receiver.release();
  overriding.ThreadToParent(7, 1, 2);
  overriding.ThreadToSelf(8, 3, 4);
  EXPECT_EQ(this->receiver.awaitMessages(2), (Calls{"SendMessageW(100, 7, 1, 2)", "SendMessageW(101, 8, 3, 4)"}));
}

TYPED_TEST(ForwardingTest, AThreadThatCannotBeStartedIsTheCallersError) {
  const fakes::ThreadStartFault fault;
  EXPECT_THROW(this->window.ThreadToParent(7, 1, 2), std::system_error);
  EXPECT_THROW(this->window.ThreadToSelf(7, 1, 2), std::system_error);
  EXPECT_TRUE(this->receiver.calls().empty());
}

}  // namespace
