#include "Controls.h"
#include "controls/ControlTest.h"

namespace {

using AppWnd::Slider;

constexpr int kThumb = 18;

class Slide : public ControlTest {
 protected:
  using Told = std::vector<std::pair<UINT, WPARAM>>;

  void SetUp() override {
    ASSERT_TRUE(slider.Create(parent()));
    window = slider.GetWnd();
  }

  static std::pair<UINT, WPARAM> told(unsigned what, WORD position) { return {WM_HSCROLL, MAKEWPARAM(what, position)}; }

  // The thumb moves by two pixels for each position.
  const qzstd::Rect rect{10, 20, 200 + kThumb, 30};
  Slider slider{9, rect};
  HWND window = nullptr;
};

TEST_F(Slide, BeginsAtZeroAndEnabled) {
  EXPECT_EQ(slider.GetPos(), 0);
  EXPECT_TRUE(slider.GetEnable());
  EXPECT_FALSE(slider.GetMove());
  EXPECT_EQ(::GetDlgCtrlID(window), 9);
}

TEST_F(Slide, PositionOutsideIsTheNearerEnd) {
  const std::pair<std::int32_t, std::int32_t> positions[] = {{50, 50},   {0, 0},         {100, 100},      {-1, 0},
                                                             {101, 100}, {INT32_MIN, 0}, {INT32_MAX, 100}};
  for (const auto& [given, taken] : positions) {
    slider.SetPos(given);
    EXPECT_EQ(slider.GetPos(), taken);
  }
  EXPECT_TRUE(takeScrolls().empty());
}

TEST_F(Slide, KeysMoveItAndAreTold) {
  struct Case {
    unsigned key;
    std::int32_t after;
  };
  const Case cases[] = {{VK_LEFT, 49},  {VK_RIGHT, 51}, {VK_UP, 51},  {VK_DOWN, 49},
                        {VK_PRIOR, 60}, {VK_NEXT, 40},  {VK_HOME, 0}, {VK_END, 100}};
  for (const auto& [virtualKey, after] : cases) {
    slider.SetPos(50);
    key(window, virtualKey);
    EXPECT_EQ(slider.GetPos(), after);
    EXPECT_EQ(takeScrolls(), (Told{told(SB_THUMBPOSITION, static_cast<WORD>(after))}));
  }
}

TEST_F(Slide, KeyThatMovesNothingIsNotTold) {
  key(window, VK_LEFT);
  key(window, VK_SPACE);
  key(window, VK_TAB);
  EXPECT_TRUE(takeScrolls().empty());
}

TEST_F(Slide, DraggedThumbIsTold) {
  press(window, 5, 15);
  EXPECT_TRUE(slider.GetMove());
  EXPECT_EQ(::GetFocus(), window);
  moveMouse(window, 105, 15);
  moveMouse(window, 105, 15);
  moveMouse(window, 5000, 15);
  release(window, 5000, 15);
  EXPECT_FALSE(slider.GetMove());
  moveMouse(window, 5, 15);
  EXPECT_EQ(takeScrolls(), (Told{told(SB_THUMBTRACK, 50), told(SB_THUMBTRACK, 100), told(SB_ENDSCROLL, 100)}));
}

TEST_F(Slide, ThumbComesToAPressBesideIt) {
  press(window, 100 + kThumb / 2, 15);
  EXPECT_EQ(slider.GetPos(), 50);
  EXPECT_TRUE(slider.GetMove());
  moveMouse(window, 102 + kThumb / 2, 15);
  release(window, 102 + kThumb / 2, 15);
  EXPECT_EQ(takeScrolls(), (Told{told(SB_THUMBTRACK, 50), told(SB_THUMBTRACK, 51), told(SB_ENDSCROLL, 51)}));
}

TEST_F(Slide, PressOnTheThumbMovesNothing) {
  for (std::int32_t position = 0; position <= 100; ++position) {
    slider.SetPos(position);
    click(window, 2 * position, 15);
    click(window, 2 * position + kThumb - 1, 15);
    ASSERT_EQ(slider.GetPos(), position);
  }
}

TEST_F(Slide, NarrowSliderKeepsItsPositionWhenThumbIsHeld) {
  slider.Move(0, 0, 30 + kThumb, 30);
  slider.SetPos(50);
  const int place = 15;
  click(window, place + 3, 15);
  EXPECT_EQ(slider.GetPos(), 50);
  slider.SetPos(49);
  click(window, place + 3, 15);
  EXPECT_EQ(slider.GetPos(), 49) << "which has the same pixel";
}

TEST_F(Slide, LostMouseLetsGo) {
  press(window, 5, 15);
  ::SetCapture(parent());
  ::ReleaseCapture();
  EXPECT_FALSE(slider.GetMove());
  EXPECT_EQ(takeScrolls(), (Told{told(SB_ENDSCROLL, 0)}));
}

TEST_F(Slide, DisabledTakesNothing) {
  slider.Disable();
  EXPECT_FALSE(slider.GetEnable());
  click(window, 100, 15);
  key(window, VK_RIGHT);
  EXPECT_EQ(slider.GetPos(), 0);
  EXPECT_FALSE(slider.GetMove());
  EXPECT_TRUE(takeScrolls().empty());
}

TEST_F(Slide, DisabledWhileItIsHeldLetsGo) {
  press(window, 5, 15);
  slider.Disable();
  EXPECT_FALSE(slider.GetMove());
  moveMouse(window, 105, 15);
  EXPECT_EQ(slider.GetPos(), 0);
}

TEST_F(Slide, DialogsLeaveItTheArrowKeys) { EXPECT_EQ(slider.SendSelfMsg(WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS); }

TEST_F(Slide, EachStateLooksDifferent) {
  std::set<std::vector<std::uint32_t>> pictures{picture(window)};
  moveMouse(window, 5, 15);
  pictures.insert(picture(window));
  ::SetFocus(window);
  pictures.insert(picture(window));
  press(window, 5, 15);
  pictures.insert(picture(window));
  release(window, 5, 15);
  slider.SetPos(60);
  pictures.insert(picture(window));
  slider.Disable();
  pictures.insert(picture(window));
  EXPECT_EQ(pictures.size(), 6U);
}

TEST_F(Slide, ParentMayDestroyItWhenItIsTold) {
  static HWND victim = nullptr;
  victim = window;
  const auto destroying = [](HWND on, UINT msg, WPARAM wParam, LPARAM lParam) -> LRESULT {
    if (msg == WM_HSCROLL) ::DestroyWindow(victim);
    return ::DefWindowProcW(on, msg, wParam, lParam);
  };
  ::SetWindowLongPtrW(parent(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(destroying)));
  press(window, 100, 15);
  EXPECT_EQ(slider.GetWnd(), nullptr);
  EXPECT_FALSE(slider.GetMove()) << "the window went with the mouse held";
}

TEST_F(ControlTest, SliderKeepsWhatItIsToldWithoutAWindow) {
  const qzstd::Rect rect{10, 20, 218, 30};
  Slider slider(9, rect);
  const auto callAll = [&slider](std::int32_t position) {
    slider.SetPos(position);
    EXPECT_EQ(slider.GetPos(), position);
    EXPECT_FALSE(slider.GetMove());
    for (const unsigned msg : {WM_PAINT, WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP, WM_KEYDOWN})
      EXPECT_EQ(slider.RunProc(msg, 0, 0), 0);
    slider.Destroy();
  };
  callAll(30);
  ASSERT_TRUE(slider.Create(parent()));
  EXPECT_EQ(slider.GetPos(), 30);
  slider.Disable();
  slider.Destroy();
  EXPECT_FALSE(slider.GetEnable());
  callAll(40);
  ASSERT_TRUE(slider.Create(parent()));
  EXPECT_EQ(slider.GetPos(), 40);
  EXPECT_FALSE(slider.IsEnable());
}

}  // namespace
