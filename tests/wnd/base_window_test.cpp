#include <gtest/gtest.h>

#include <latch>
#include <thread>

#include "BaseWindow.h"
#include "wnd/WindowCalls.h"

namespace {

using BaseWnd::BaseWindow;

TEST(BaseWindow, EachOperationMakesItsCallWithItsArguments) {
  struct Row {
    const char* name;
    void (*act)(const BaseWindow&);
    Calls calls;
  };
  const Row rows[] = {
      {"Show", [](const BaseWindow& window) { window.Show(); }, {"ShowWindow(1, 5)"}},
      {"Show(cmd)", [](const BaseWindow& window) { window.Show(3); }, {"ShowWindow(1, 3)"}},
      {"Hide", [](const BaseWindow& window) { window.Hide(); }, {"ShowWindow(1, 0)"}},
      {"IsVisible", [](const BaseWindow& window) { window.IsVisible(); }, {"IsWindowVisible(1)"}},
      {"Enable", [](const BaseWindow& window) { window.Enable(); }, {"EnableWindow(1, 1)"}},
      {"Disable", [](const BaseWindow& window) { window.Disable(); }, {"EnableWindow(1, 0)"}},
      {"IsEnable", [](const BaseWindow& window) { window.IsEnable(); }, {"IsWindowEnabled(1)"}},
      {"IsWindow", [](const BaseWindow& window) { window.IsWindow(); }, {"IsWindow(1)"}},
      {"Move",
       [](const BaseWindow& window) { window.Move(-1, 2, 3, 4); },
       {"MoveWindow(1, -1, 2, 3, 4, 1)", "InvalidateRect(1, null, 1)"}},
      {"ReDraw(true)", [](const BaseWindow& window) { window.ReDraw(true); }, {"InvalidateRect(1, null, 1)"}},
      {"ReDraw(false)", [](const BaseWindow& window) { window.ReDraw(false); }, {"InvalidateRect(1, null, 0)"}},
      {"SendSelfMsg", [](const BaseWindow& window) { window.SendSelfMsg(7, 8, -9); }, {"SendMessageW(1, 7, 8, -9)"}},
      {"SendParentMsg",
       [](const BaseWindow& window) { window.SendParentMsg(7, 8, -9); },
       {"GetParent(1)", "SendMessageW(2, 7, 8, -9)"}},
      {"GetParentWnd", [](const BaseWindow& window) { window.GetParentWnd(); }, {"GetParent(1)"}},
      {"Notice", [](const BaseWindow& window) { window.Notice(1); }, {}},
      {"Destroy", [](const BaseWindow& window) { const_cast<BaseWindow&>(window).Destroy(); }, {}},
      {"GetWnd", [](const BaseWindow& window) { window.GetWnd(); }, {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    OnWindow<BaseWindow> on;
    on.platform.answer("GetParent", 2);
    row.act(on.window);
    EXPECT_EQ(on.platform.calls(), row.calls);
  }
}

TEST(BaseWindow, QuestionsAreTrueForEveryAnswerButZero) {
  const struct {
    const char* call;
    bool (BaseWindow::*ask)() const;
  } questions[] = {{"IsWindowVisible", &BaseWindow::IsVisible},
                   {"IsWindowEnabled", &BaseWindow::IsEnable},
                   {"IsWindow", &BaseWindow::IsWindow}};
  for (const auto& question : questions) {
    for (const int answer : {0, 1, 24, -1}) {
      SCOPED_TRACE(testing::Message() << question.call << " answers " << answer);
      OnWindow<BaseWindow> on;
      on.platform.answer(question.call, answer);
      EXPECT_EQ((on.window.*question.ask)(), answer != 0);
    }
  }
}

TEST(BaseWindow, SendersReturnTheWholeAnswer) {
  constexpr LRESULT kAnswer = -0x123456789ABCLL;
  OnWindow<BaseWindow> on;
  on.platform.answer("SendMessageW", kAnswer);
  EXPECT_EQ(on.window.SendSelfMsg(1, ~0ULL, 0), kAnswer);
  EXPECT_EQ(on.window.SendParentMsg(1, ~0ULL, 0), kAnswer);
  EXPECT_EQ(on.platform.calls()[0], "SendMessageW(1, 1, 18446744073709551615, 0)");
}

TEST(BaseWindow, WithoutAHandleIsNoWindowAndAsksNobody) {
  OnWindow<BaseWindow> on;
  on.platform.answer("IsWindow", 1);
  on.window.SetWnd(nullptr);
  EXPECT_FALSE(on.window.IsWindow());
  EXPECT_TRUE(on.platform.calls().empty());
}

TEST(BaseWindow, HasNoHandleAtFirstAndKeepsTheOneItIsGiven) {
  BaseWindow window;
  EXPECT_EQ(window.GetWnd(), nullptr);
  window.SetWnd(handle(9));
  EXPECT_EQ(window.GetWnd(), handle(9));
}

TEST(BaseWindow, NoticeAnswersFalse) { EXPECT_FALSE(BaseWindow().Notice(1)); }

TEST(BaseWindow, GetParentWndReturnsTheParent) {
  OnWindow<BaseWindow> on;
  on.platform.answer("GetParent", 2);
  EXPECT_EQ(on.window.GetParentWnd(), handle(2));
}

TEST(BaseWindow, MoveToARectangleTakesRightAndBottomAsWidthAndHeight) {
  OnWindow<BaseWindow> on;
  on.window.Move(RECT{10, 20, 300, 400});
  EXPECT_EQ(on.platform.calls(), (Calls{"MoveWindow(1, 10, 20, 300, 400, 1)", "InvalidateRect(1, null, 1)"}));
}

// What a derived class overrides, the base class calls.
class MovedByTable : public BaseWindow {
 public:
  using BaseWindow::Move;
  void Move(int x, int y, int width, int height) const override {
    moves.push_back("Move " + std::to_string(x) + ' ' + std::to_string(y) + ' ' + std::to_string(width) + ' ' +
                    std::to_string(height));
  }
  mutable Calls moves;
};

class RedrawnByTable : public BaseWindow {
 public:
  void ReDraw(bool erase) const override { redraws.push_back(erase); }
  mutable std::vector<bool> redraws;
};

TEST(BaseWindow, MoveToARectangleGoesThroughTheFourArgumentMoveOfTheTable) {
  OnWindow<MovedByTable> on;
  on.window.Move(RECT{10, 20, 300, 400});
  EXPECT_EQ(on.window.moves, Calls{"Move 10 20 300 400"});
  EXPECT_TRUE(on.platform.calls().empty());
}

TEST(BaseWindow, MoveEndsInTheReDrawOfTheTable) {
  OnWindow<RedrawnByTable> on;
  on.window.Move(RECT{1, 2, 3, 4});
  EXPECT_EQ(on.window.redraws, std::vector<bool>{true});
  EXPECT_EQ(on.platform.calls(), Calls{"MoveWindow(1, 1, 2, 3, 4, 1)"});
}

TEST(BaseWindow, GetClientRectFillsTheCallersRectangle) {
  OnWindow<BaseWindow> on;
  on.platform.answer("GetClientRect", 1);
  on.platform.clientRect = {1, 2, 30, 40};
  RECT rect{};
  on.window.GetClientRect(rect);
  EXPECT_EQ((std::vector<LONG>{rect.left, rect.top, rect.right, rect.bottom}), (std::vector<LONG>{1, 2, 30, 40}));
}

TEST(BaseWindow, GetClientSizeIsTheDifferenceOfTheCorners) {
  OnWindow<BaseWindow> on;
  on.platform.answer("GetClientRect", 1);
  on.platform.clientRect = {1, 2, 30, 40};
  SIZE size{};
  on.window.GetClientSize(size);
  EXPECT_EQ(size.cx, 29);
  EXPECT_EQ(size.cy, 38);
}

TEST(BaseWindow, GetClientSizeIsZeroWhenTheSystemCannotTell) {
  OnWindow<BaseWindow> on;
  SIZE size{5, 6};
  on.window.GetClientSize(size);
  EXPECT_EQ(size.cx, 0);
  EXPECT_EQ(size.cy, 0);
}

TEST(BaseWindow, DestroysNothing) {
  WindowCalls platform;
  const fakes::Installed installed(platform);
  {
    BaseWindow window;
    window.SetWnd(handle(1));
    window.Destroy();
    EXPECT_EQ(window.GetWnd(), handle(1));
  }
  EXPECT_TRUE(platform.calls().empty());
}

/// Notes nothing, so that no lock of the test puts the threads in an order.
class SilentWindow : public fakes::Windows {
 public:
  LRESULT SendMessageW(HWND /*window*/, UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/) override { return 0; }
  BOOL IsWindow(HWND /*window*/) override { return 1; }
};

// The thread of the window lets go of it while senders are under way. What they send then goes nowhere; but they may ask.
TEST(BaseWindow, HandleMayGoWhileOtherThreadsUseIt) {
  constexpr int kRounds = 20'000;
  SilentWindow platform;
  const fakes::Installed installed{platform};
  BaseWindow window;
  std::latch start(2);
  std::thread sender([&] {
    start.arrive_and_wait();
    for (int i = 0; i < kRounds; ++i) window.SendSelfMsg(7, 8, 9);
  });
  start.arrive_and_wait();
  for (int i = 0; i < kRounds; ++i) window.SetWnd(i % 2 == 0 ? handle(1) : nullptr);
  sender.join();
  EXPECT_EQ(window.GetWnd(), nullptr);
}

}  // namespace
