/// Real windows on a thread of their own: a parent and its child, both message-only, so that no display is needed.

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <vector>

#include "wnd/WindowThread.h"

namespace {

using namespace std::chrono_literals;

class WindowMessagesTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_NE(windows.parent(), nullptr);
    ASSERT_NE(windows.child(), nullptr);
  }

  /// Runs `forward` while the windows' thread is busy. True when it came back before the thread was let go.
  template <class Forward>
  bool returnsWhileBusy(Forward forward) {
    windows.makeBusy();
    auto returned = std::async(std::launch::async, forward);
    const bool atOnce = returned.wait_for(60s) == std::future_status::ready;
    EXPECT_EQ(windows.received(), 0U);
    windows.letGo();
    returned.get();
    return atOnce;
  }

  WindowThread windows;
  const ChildWindow window{windows.child()};
};

TEST_F(WindowMessagesTest, TheParentIsTheRealOne) { EXPECT_EQ(window.GetParentWnd(), windows.parent()); }

TEST_F(WindowMessagesTest, ThreadToParentReturnsWhileTheParentIsBusyAndBothMessagesArrive) {
  EXPECT_TRUE(returnsWhileBusy([&] {
    window.ThreadToParent(kFirst, 11, -22);
    window.ThreadToParent(kSecond, 0xFFFFFFFF00000001ULL, 0x7000000000000002LL);
  }));

  EXPECT_EQ(windows.await(2),
            (std::vector<Message>{{windows.parent(), kFirst, 11, -22, 0},
                                  {windows.parent(), kSecond, 0xFFFFFFFF00000001ULL, 0x7000000000000002LL, 0}}));
}

TEST_F(WindowMessagesTest, ThreadToParentTakesNoPartOfTheTwoSecondsThatTheParentIsBusy) {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  windows.makeBusy(2s);

  const auto before = Clock::now();
  window.ThreadToParent(kFirst, 1, 2);
  window.ThreadToParent(kSecond, 3, 4);
  const auto calls = Clock::now() - before;

  EXPECT_EQ(windows.await(2),
            (std::vector<Message>{{windows.parent(), kFirst, 1, 2, 0}, {windows.parent(), kSecond, 3, 4, 0}}));
  const auto all = Clock::now() - start;
  EXPECT_GE(all, 1900ms) << "the parent was not busy";
  EXPECT_LT(calls, all / 4);
}

TEST_F(WindowMessagesTest, ThreadToSelfReturnsWhileTheWindowIsBusyAndBothMessagesArrive) {
  EXPECT_TRUE(returnsWhileBusy([&] {
    window.ThreadToSelf(kFirst, 1, 2);
    window.ThreadToSelf(kSecond, 3, 4);
  }));

  EXPECT_EQ(windows.await(2), (std::vector<Message>{{windows.child(), kFirst, 1, 2, 0}, {windows.child(), kSecond, 3, 4, 0}}));
}

TEST_F(WindowMessagesTest, ForwardedMessagesAreHandledOnTheThreadOfTheWindow) {
  window.ThreadToParent(kFirst, 0, 0);
  window.ThreadToSelf(kSecond, 0, 0);
  for (const auto& message : windows.await(2)) EXPECT_EQ(message.thread, windows.id());
}

TEST_F(WindowMessagesTest, SendersReturnTheAnswerOfTheWindowProcedure) {
  EXPECT_EQ(window.SendSelfMsg(kFirst, 1, 2), kAnswer);
  EXPECT_EQ(window.SendParentMsg(kSecond, 3, 4), kAnswer);
  EXPECT_EQ(windows.await(2).size(), 2U);
}

TEST_F(WindowMessagesTest, QuestionsAreAnsweredByTheSystem) {
  EXPECT_TRUE(window.IsWindow());
  EXPECT_FALSE(window.IsVisible());
  EXPECT_TRUE(window.IsEnable());
  window.Disable();
  EXPECT_FALSE(window.IsEnable());
  window.Enable();
  EXPECT_TRUE(window.IsEnable());
}

TEST_F(WindowMessagesTest, MoveGivesTheWindowItsSize) {
  window.Move(RECT{10, 20, 300, 400});
  SIZE size{};
  window.GetClientSize(size);
  EXPECT_EQ(size.cx, 300);
  EXPECT_EQ(size.cy, 400);
}

TEST_F(WindowMessagesTest, NoHandleIsNoWindow) { EXPECT_FALSE(ChildWindow(nullptr).IsWindow()); }

}  // namespace
