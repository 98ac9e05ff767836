#include <array>

#include "Controls.h"
#include "controls/ControlTest.h"
#include "simulator/controls/Drawing.h"

namespace {

using AppWnd::Scroll;

constexpr int kLength = 200;
constexpr COLORREF kDown = RGB(1, 2, 3);
constexpr COLORREF kOver = RGB(4, 5, 6);
constexpr COLORREF kUp = RGB(7, 8, 9);
constexpr COLORREF kGround = RGB(10, 11, 12);

class ScrollBar : public ControlTest {
 protected:
  using Told = std::vector<std::pair<UINT, WPARAM>>;

  void SetUp() override {
    ASSERT_TRUE(scroll.Create(parent()));
    window = scroll.GetWnd();
  }

  static std::pair<UINT, WPARAM> told(unsigned what, WORD position) { return {WM_VSCROLL, MAKEWPARAM(what, position)}; }
  __int64 set(UINT mask, int least, int greatest, UINT page, int position) {
    const SCROLLINFO info{sizeof info, mask, least, greatest, page, position, 0};
    return scroll.SendSelfMsg(SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
  }
  // All of a thousand, of which half is seen: the thumb moves by a hundred pixels.
  void setHalf(int position) { set(SIF_ALL, 0, 999, 500, position); }
  std::uint32_t thumbColor() { return picture(window)[static_cast<std::size_t>(scroll.GetThumbPos() + 30) * 12 + 6]; }

  const qzstd::Rect rect{10, 20, 12, kLength};
  Scroll scroll{rect};
  HWND window = nullptr;
};

TEST_F(ScrollBar, BeginsAtTheTop) {
  EXPECT_EQ((std::array{scroll.GetMax(), scroll.GetPage(), scroll.GetPos()}), (std::array{100, 10, 0}));
  EXPECT_EQ(scroll.GetThumbPos(), 0);
  EXPECT_EQ(scroll.GetThumbSize(), 24);
}

TEST_F(ScrollBar, IsSetAsTheSystems) {
  EXPECT_EQ(set(SIF_ALL, 0, 999, 500, 250), 250);
  EXPECT_EQ((std::array{scroll.GetMax(), scroll.GetPage(), scroll.GetPos()}), (std::array{1000, 500, 250}));
  EXPECT_EQ(scroll.GetThumbSize(), 100);
  EXPECT_EQ(scroll.GetThumbPos(), 50);
  EXPECT_EQ(set(SIF_POS, 7, 7, 7, 100), 100);
  EXPECT_EQ((std::array{scroll.GetMax(), scroll.GetPage(), scroll.GetPos()}), (std::array{1000, 500, 100}));
  EXPECT_EQ(scroll.SendSelfMsg(SBM_SETPOS, 300, TRUE), 100);
  EXPECT_EQ(scroll.SendSelfMsg(SBM_GETPOS, 0, 0), 300);
  EXPECT_TRUE(takeScrolls().empty());
}

TEST_F(ScrollBar, TellsWhatItWasSetTo) {
  set(SIF_ALL, 5, 104, 20, 55);
  SCROLLINFO info{sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
  EXPECT_EQ(scroll.SendSelfMsg(SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(&info)), TRUE);
  EXPECT_EQ((std::array{info.nMin, info.nMax, static_cast<int>(info.nPage), info.nPos, info.nTrackPos}),
            (std::array{5, 104, 20, 55, 55}));
  EXPECT_EQ(scroll.GetPos(), 50) << "hidden above";
  EXPECT_EQ(scroll.SendSelfMsg(SBM_SETPOS, 15, TRUE), 55);
  EXPECT_EQ(scroll.GetPos(), 10);
}

TEST_F(ScrollBar, WhatMakesNoSenseIsPutRight) {
  set(SIF_ALL, 0, 99, 10, 95);
  EXPECT_EQ(scroll.GetPos(), 90);
  set(SIF_ALL, 0, -5, 10, 5);
  EXPECT_EQ((std::array{scroll.GetMax(), scroll.GetPage(), scroll.GetPos()}), (std::array{0, 0, 0}));
  set(SIF_ALL, INT32_MIN, INT32_MAX, UINT32_MAX, INT32_MAX);
  EXPECT_EQ(scroll.GetMax(), INT32_MAX);
  EXPECT_EQ(scroll.SendSelfMsg(SBM_SETSCROLLINFO, TRUE, 0), INT32_MIN);
  EXPECT_EQ(scroll.SendSelfMsg(SBM_GETSCROLLINFO, 0, 0), FALSE);
}

TEST_F(ScrollBar, DraggedThumbIsTold) {
  setHalf(0);
  press(window, 5, 10);
  EXPECT_EQ(::GetCapture(), window);
  moveMouse(window, 5, 60);
  moveMouse(window, 5, 60);
  EXPECT_EQ(scroll.GetPos(), 250);
  moveMouse(window, 5, 5000);
  release(window, 5, 5000);
  moveMouse(window, 5, 10);
  EXPECT_EQ(takeScrolls(), (Told{told(SB_THUMBTRACK, 250), told(SB_THUMBTRACK, 500), told(SB_ENDSCROLL, 500)}));
  EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(ScrollBar, ThumbIsHeldWhereItWasTaken) {
  setHalf(0);
  press(window, 5, 90);
  moveMouse(window, 5, 91);
  EXPECT_EQ(scroll.GetThumbPos(), 1);
}

TEST_F(ScrollBar, PressBesideTheThumbTurnsAPage) {
  set(SIF_ALL, 0, 999, 100, 500);
  click(window, 5, 190);
  click(window, 5, 5);
  click(window, 5, 5);
  EXPECT_EQ(takeScrolls(), (Told{told(SB_THUMBPOSITION, 600), told(SB_ENDSCROLL, 600), told(SB_THUMBPOSITION, 500),
                                 told(SB_ENDSCROLL, 500), told(SB_THUMBPOSITION, 400), told(SB_ENDSCROLL, 400)}));
}

TEST_F(ScrollBar, PressAtTheEndIsNoMove) {
  set(SIF_ALL, 0, 99, 100, 0);
  press(window, 5, 190);
  moveMouse(window, 5, 20);
  release(window, 5, 20);
  EXPECT_EQ(takeScrolls(), (Told{told(SB_ENDSCROLL, 0)}));
}

TEST_F(ScrollBar, LostMouseLetsGo) {
  setHalf(0);
  press(window, 5, 10);
  ::SetCapture(parent());
  ::ReleaseCapture();
  EXPECT_EQ(takeScrolls(), (Told{told(SB_ENDSCROLL, 0)}));
  moveMouse(window, 5, 60);
  EXPECT_TRUE(takeScrolls().empty());
}

TEST_F(ScrollBar, WheelMovesByPartsOfAPage) {
  setHalf(0);
  const auto turn = [this](int delta) { scroll.SendSelfMsg(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), 0); };
  turn(WHEEL_DELTA);
  turn(-WHEEL_DELTA);
  turn(-WHEEL_DELTA / 2);
  turn(-WHEEL_DELTA / 2);
  turn(2 * WHEEL_DELTA);
  EXPECT_EQ(takeScrolls(), (Told{told(SB_THUMBPOSITION, 125), told(SB_THUMBPOSITION, 250), told(SB_THUMBPOSITION, 0)}));
}

TEST_F(ScrollBar, PositionIsTheSystemsAlsoInTheMessage) {
  set(SIF_ALL, 5, 104, 20, 5);
  click(window, 5, 190);
  EXPECT_EQ(takeScrolls(), (Told{told(SB_THUMBPOSITION, 25), told(SB_ENDSCROLL, 25)}));
}

TEST_F(ScrollBar, ThumbGrowsWithTheBar) {
  setHalf(500);
  scroll.Move(0, 0, 12, 100);
  EXPECT_EQ(scroll.GetThumbSize(), 50);
  EXPECT_EQ(scroll.GetThumbPos(), 50);
}

TEST_F(ScrollBar, DisabledTakesNothing) {
  setHalf(0);
  scroll.Disable();
  press(window, 5, 10);
  moveMouse(window, 5, 60);
  release(window, 5, 60);
  click(window, 5, 190);
  scroll.SendSelfMsg(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
  EXPECT_EQ(scroll.GetPos(), 0);
  EXPECT_TRUE(takeScrolls().empty());
}

TEST_F(ScrollBar, HasTheColorsItWasTold) {
  setHalf(0);
  scroll.SetMouseDownColor(kDown);
  scroll.SetMouseMoveColor(kOver);
  scroll.SetMouseUpColor(kUp);
  scroll.SetBgColor(kGround);
  EXPECT_EQ(thumbColor(), asPixel(kUp));
  EXPECT_EQ(picture(window)[150 * 12 + 6], asPixel(kGround));
  moveMouse(window, 5, 10);
  EXPECT_EQ(thumbColor(), asPixel(kOver));
  moveMouse(window, 5, 150);
  EXPECT_EQ(thumbColor(), asPixel(kUp)) << "beside the thumb";
  press(window, 5, 10);
  EXPECT_EQ(thumbColor(), asPixel(kDown));
  release(window, 5, 10);
  EXPECT_EQ(thumbColor(), asPixel(kUp));
  scroll.Disable();
  const auto pale = thumbColor();
  EXPECT_NE(pale, asPixel(kUp));
  EXPECT_NE(pale, asPixel(kGround));
}

TEST_F(ScrollBar, HasNoThumbWhenAllIsSeen) {
  scroll.SetMouseUpColor(kUp);
  EXPECT_TRUE(colors(window).contains(asPixel(kUp)));
  set(SIF_ALL, 0, 99, 100, 0);
  EXPECT_FALSE(colors(window).contains(asPixel(kUp)));
  EXPECT_EQ(scroll.GetThumbSize(), kLength);
}

TEST_F(ScrollBar, ParentMayDestroyItWhenItIsTold) {
  static HWND victim = nullptr;
  victim = window;
  const auto destroying = [](HWND on, UINT msg, WPARAM wParam, LPARAM lParam) -> LRESULT {
    if (msg == WM_VSCROLL) ::DestroyWindow(victim);
    return ::DefWindowProcW(on, msg, wParam, lParam);
  };
  ::SetWindowLongPtrW(parent(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(destroying)));
  setHalf(0);
  press(window, 5, 10);
  moveMouse(window, 5, 60);
  EXPECT_EQ(scroll.GetWnd(), nullptr);
  EXPECT_EQ(scroll.GetPos(), 250);
}

TEST_F(ControlTest, ScrollBarKeepsWhatItIsToldWithoutAWindow) {
  const qzstd::Rect rect{10, 20, 12, kLength};
  Scroll scroll(rect);
  const auto callAll = [&scroll] {
    const SCROLLINFO info{sizeof info, SIF_ALL, 0, 999, 500, 250, 0};
    scroll.RunProc(SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
    scroll.SetBgColor(kGround);
    scroll.SetMouseDownColor(kDown);
    scroll.SetMouseMoveColor(kOver);
    scroll.SetMouseUpColor(kUp);
    EXPECT_EQ((std::array{scroll.GetMax(), scroll.GetPage(), scroll.GetPos()}), (std::array{1000, 500, 250}));
    EXPECT_EQ(scroll.GetThumbSize(), 100);
    EXPECT_EQ(scroll.GetThumbPos(), 50);
    for (const unsigned msg : {WM_PAINT, WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP, WM_MOUSEWHEEL})
      EXPECT_EQ(scroll.RunProc(msg, 0, 0), 0);
    scroll.Destroy();
  };
  callAll();
  ASSERT_TRUE(scroll.Create(parent()));
  EXPECT_TRUE(colors(scroll.GetWnd()).contains(asPixel(kUp)));
  scroll.Disable();
  press(scroll.GetWnd(), 5, 60);
  scroll.Destroy();
  callAll();
  ASSERT_TRUE(scroll.Create(parent()));
  EXPECT_FALSE(scroll.IsEnable());
}

}  // namespace
