#include "simulator/controls/ControlWindow.h"

#include "controls/ControlTest.h"
#include "simulator/controls/Drawing.h"

namespace {

class Plain : public AppWnd::CtrlWnd {
 public:
  using CtrlWnd::CtrlWnd;

  bool Create(HWND parent) override { return controls::newWindow(*this, parent, rect(), 7, L"caption", true); }
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override {
    messages.push_back(msg);
    if (controls::follow(GetWnd(), m_flags, msg, wParam, lParam)) controls::tellParent(GetWnd(), BN_CLICKED);
    if (msg == WM_PAINT || msg == WM_PRINTCLIENT) {
      controls::paint(GetWnd(), msg, wParam,
                      [](HDC dc, const RECT& area) { controls::fillRound(dc, area, 0, RGB(1, 2, 3), RGB(4, 5, 6)); });
      return 0;
    }
    return ::DefWindowProcW(GetWnd(), msg, wParam, lParam);
  }

  std::uint32_t flags() const { return m_flags; }

  std::vector<unsigned> messages;
};

class ControlWindow : public ControlTest {
 protected:
  void SetUp() override { ASSERT_TRUE(control->Create(parent())); }

  const qzstd::Rect rect{10, 20, 100, 30};
  std::unique_ptr<Plain> control = std::make_unique<Plain>(rect);
};

TEST_F(ControlWindow, IsAVisibleChildAtItsRectangle) {
  const RECT place = placeOf(control->GetWnd());
  EXPECT_EQ((std::vector<LONG>{place.left, place.top, place.right, place.bottom}), (std::vector<LONG>{10, 20, 110, 50}));
  EXPECT_EQ(control->GetParentWnd(), parent());
  EXPECT_TRUE(control->IsVisible());
  EXPECT_EQ(::GetDlgCtrlID(control->GetWnd()), 7);
}

TEST_F(ControlWindow, GivesTheFirstMessageToTheControlToo) {
  ASSERT_FALSE(control->messages.empty());
  EXPECT_EQ(control->messages.front(), unsigned{WM_NCCREATE});
}

TEST_F(ControlWindow, ControlLetsGoOfAWindowThatItsParentTookAlong) {
  ::DestroyWindow(parent());
  EXPECT_EQ(control->GetWnd(), nullptr);
  EXPECT_EQ(control->messages.back(), unsigned{WM_NCDESTROY});
}

TEST_F(ControlWindow, GoesWithTheControl) {
  const HWND window = control->GetWnd();
  control.reset();
  EXPECT_FALSE(::IsWindow(window));
}

TEST_F(ControlWindow, ClickIsToldToTheParent) {
  click(control->GetWnd());
  EXPECT_EQ(takeCommands(), (std::vector<Command>{{7, BN_CLICKED, control->GetWnd()}}));
}

TEST_F(ControlWindow, ButtonLetGoElsewhereIsNoClick) {
  press(control->GetWnd(), 5, 5);
  EXPECT_EQ(control->flags() & controls::kPressed, controls::kPressed);
  EXPECT_EQ(::GetCapture(), control->GetWnd());
  release(control->GetWnd(), -5, 5);
  EXPECT_EQ(control->flags() & controls::kPressed, 0U);
  EXPECT_EQ(::GetCapture(), nullptr);
  EXPECT_TRUE(takeCommands().empty());
}

TEST_F(ControlWindow, ButtonThatWentDownElsewhereIsNoClick) {
  release(control->GetWnd(), 5, 5);
  EXPECT_TRUE(takeCommands().empty());
}

TEST_F(ControlWindow, SpaceAndEnterClick) {
  key(control->GetWnd(), VK_SPACE);
  EXPECT_EQ(takeCommands().size(), 1U);
  key(control->GetWnd(), VK_RETURN);
  EXPECT_EQ(takeCommands().size(), 1U);
  key(control->GetWnd(), VK_TAB);
  EXPECT_TRUE(takeCommands().empty());
}

TEST_F(ControlWindow, EnterThatIsHeldClicksOnce) {
  constexpr LPARAM kRepeated = (1 << 30) | 1;
  ::SendMessageW(control->GetWnd(), WM_KEYDOWN, VK_RETURN, 1);
  for (int i = 0; i < 3; ++i) ::SendMessageW(control->GetWnd(), WM_KEYDOWN, VK_RETURN, kRepeated);
  EXPECT_EQ(takeCommands().size(), 1U);
}

TEST_F(ControlWindow, ControlThatHasAWindowKeepsIt) {
  const HWND window = control->GetWnd();
  EXPECT_TRUE(control->Create(parent()));
  EXPECT_EQ(control->GetWnd(), window);
  EXPECT_EQ(::FindWindowExW(parent(), window, nullptr, nullptr), nullptr) << "a second window";
}

TEST_F(ControlWindow, OtherSizeDrawsItAllAnew) {
  ::ValidateRect(control->GetWnd(), nullptr);
  ::SetWindowPos(control->GetWnd(), nullptr, 0, 0, 120, 30, SWP_NOMOVE | SWP_NOZORDER);
  RECT changed{};
  ::GetUpdateRect(control->GetWnd(), &changed, FALSE);
  EXPECT_EQ(changed.left, 0);
  EXPECT_EQ(changed.right, 120);
}

TEST_F(ControlWindow, NoWindowRedrawsNoOther) {
  ::ValidateRect(control->GetWnd(), nullptr);
  controls::redraw(nullptr);
  EXPECT_FALSE(::GetUpdateRect(control->GetWnd(), nullptr, FALSE));
  controls::redraw(control->GetWnd());
  EXPECT_TRUE(::GetUpdateRect(control->GetWnd(), nullptr, FALSE));
}

TEST_F(ControlWindow, DisabledTakesNeitherMouseNorKeys) {
  control->Disable();
  click(control->GetWnd());
  moveMouse(control->GetWnd(), 5, 5);
  key(control->GetWnd(), VK_SPACE);
  key(control->GetWnd(), VK_RETURN);
  EXPECT_TRUE(takeCommands().empty());
  EXPECT_EQ(control->flags(), std::uint32_t{controls::kDisabled});
  control->Enable();
  click(control->GetWnd());
  EXPECT_EQ(takeCommands().size(), 1U);
}

TEST_F(ControlWindow, MouseThatComesAndGoesIsSeen) {
  moveMouse(control->GetWnd(), 5, 5);
  EXPECT_EQ(control->flags(), std::uint32_t{controls::kHovered});
  ::SendMessageW(control->GetWnd(), WM_MOUSELEAVE, 0, 0);
  EXPECT_EQ(control->flags(), 0U);
}

TEST_F(ControlWindow, KeyboardThatComesAndGoesIsSeen) {
  ::SetFocus(control->GetWnd());
  EXPECT_EQ(control->flags(), std::uint32_t{controls::kFocused});
  ::SetFocus(parent());
  EXPECT_EQ(control->flags(), 0U);
}

TEST_F(ControlWindow, IsPaintedToItsEdges) {
  const auto pixels = picture(control->GetWnd());
  ASSERT_EQ(pixels.size(), 3000U);
  EXPECT_EQ(pixels[0], 0x040506U);
  EXPECT_EQ(pixels[101], 0x010203U);
}

}  // namespace
