#include <gtest/gtest.h>

#include "AppWindow.h"
#include "wnd/WindowCalls.h"

namespace {

class Control : public AppWnd::CtrlWnd {
 public:
  using CtrlWnd::CtrlWnd;
  bool Create(HWND /*parent*/) override { return false; }
  __int64 RunProc(unsigned /*msg*/, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override { return 0; }
};

TEST(CtrlWnd, MovesToTheRectangleAsItIsNow) {
  qzstd::Rect rect{1, 2, 3, 4};
  OnWindow<Control> on(rect);
  on.window.Move();
  rect = {-10, 20, 300, 400};
  on.window.Move();
  EXPECT_EQ(on.platform.calls(), (Calls{"MoveWindow(1, 1, 2, 3, 4, 1)", "InvalidateRect(1, null, 1)",
                                        "MoveWindow(1, -10, 20, 300, 400, 1)", "InvalidateRect(1, null, 1)"}));
}

TEST(CtrlWnd, MovesToAnotherRectangleAndKeepsItsOwn) {
  const qzstd::Rect rect{1, 2, 3, 4};
  OnWindow<Control> on(rect);
  on.window.Move(qzstd::Rect{5, 6, 7, 8});
  on.window.Move();
  EXPECT_EQ(on.platform.calls(), (Calls{"MoveWindow(1, 5, 6, 7, 8, 1)", "InvalidateRect(1, null, 1)",
                                        "MoveWindow(1, 1, 2, 3, 4, 1)", "InvalidateRect(1, null, 1)"}));
}

TEST(CtrlWnd, ScrollsUpByTheOffset) {
  const qzstd::Rect rect{1, 20, 3, 4};
  OnWindow<Control> on(rect);
  on.window.Move(15);
  on.window.Move(-15);
  on.window.Move(0);
  EXPECT_EQ(on.platform.calls(),
            (Calls{"MoveWindow(1, 1, 5, 3, 4, 1)", "InvalidateRect(1, null, 1)", "MoveWindow(1, 1, 35, 3, 4, 1)",
                   "InvalidateRect(1, null, 1)", "MoveWindow(1, 1, 20, 3, 4, 1)", "InvalidateRect(1, null, 1)"}));
}

TEST(CtrlWnd, OffersTheMovesOfItsBaseToo) {
  const qzstd::Rect rect{1, 2, 3, 4};
  OnWindow<Control> on(rect);
  on.window.Move(1, 2, 3, 4);
  on.window.Move(RECT{10, 20, 300, 400});
  EXPECT_EQ(on.platform.calls()[0], "MoveWindow(1, 1, 2, 3, 4, 1)");
  EXPECT_EQ(on.platform.calls()[2], "MoveWindow(1, 10, 20, 300, 400, 1)");
}

class RedrawnByTable : public Control {
 public:
  using Control::Control;
  void ReDraw(bool erase) const override { redraws.push_back(erase); }
  mutable std::vector<bool> redraws;
};

TEST(CtrlWnd, EachMoveEndsInTheReDrawOfTheTable) {
  const qzstd::Rect rect{1, 2, 3, 4};
  OnWindow<RedrawnByTable> on(rect);
  on.window.Move();
  on.window.Move(rect);
  on.window.Move(1);
  EXPECT_EQ(on.window.redraws, std::vector<bool>(3, true));
}

TEST(CtrlWnd, NoticeAnswersFalse) { EXPECT_FALSE(Control(qzstd::Rect{}).Notice(1)); }

TEST(CtrlWnd, DestroyAndTheDestructorDestroyTheWindow) {
  WindowCalls platform;
  const fakes::Installed installed(platform);
  platform.answer("IsWindow", 1);
  const qzstd::Rect rect{};
  {
    Control control(rect);
    control.SetWnd(handle(1));
    control.Destroy();
    EXPECT_EQ(control.GetWnd(), nullptr);
    control.SetWnd(handle(2));
  }
  EXPECT_EQ(platform.calls(), (Calls{"IsWindow(1)", "DestroyWindow(1)", "IsWindow(2)", "DestroyWindow(2)"}));
}

}  // namespace
