/// What a button tells its window and what it keeps.

#include <utility>

#include "controls/ButtonTest.h"

namespace {

using AppWnd::BtnBase;

// What an application may tell any button.
struct Setter {
  const char* name;
  void (*set)(BtnBase& button);
};

constexpr Setter kSetters[] = {
    {"SetClick", [](BtnBase& button) { button.SetClick(true); }},
    {"SetEnable", [](BtnBase& button) { button.SetEnable(false); }},
    {"SetBgColor", [](BtnBase& button) { button.SetBgColor(RGB(10, 200, 30)); }},
    {"SetText", [](BtnBase& button) { button.SetText({L"another"}); }},
};

TEST_P(EachButton, ClickTellsTheParentWithItsIdentifier) {
  const std::vector<Command> told{{kId, BN_CLICKED, button->GetWnd()}};
  click(button->GetWnd());
  EXPECT_EQ(takeCommands(), told);
  key(button->GetWnd(), VK_SPACE);
  EXPECT_EQ(takeCommands(), told);
  key(button->GetWnd(), VK_RETURN);
  EXPECT_EQ(takeCommands(), told);
}

TEST_P(EachButton, ClickChangesWhetherItIsOnAsItsKindSays) {
  click(button->GetWnd());
  EXPECT_EQ(button->GetClick(), GetParam().clickTurnsOver || GetParam().clickSets);
  click(button->GetWnd());
  EXPECT_EQ(button->GetClick(), GetParam().clickSets);
  button->SetClick(true);
  click(button->GetWnd());
  EXPECT_EQ(button->GetClick(), !GetParam().clickTurnsOver);
}

TEST_P(EachButton, CaptionIsTheWindowsText) {
  EXPECT_EQ(textOf(button->GetWnd()), L"caption");
  button->SetText({L"another"});
  EXPECT_EQ(textOf(button->GetWnd()), L"another");
}

TEST_P(EachButton, EachChangeDrawsItAnew) {
  for (const auto& [name, set] : kSetters) {
    ::ValidateRect(button->GetWnd(), nullptr);
    set(*button);
    EXPECT_TRUE(::GetUpdateRect(button->GetWnd(), nullptr, FALSE)) << name;
  }
}

TEST_P(EachButton, KeepsWhatItWasToldBeforeItHadAWindow) {
  const auto early = newButton(nullptr);
  for (const auto& setter : kSetters) setter.set(*early);
  early->SetTop(77);
  EXPECT_TRUE(early->GetClick());
  EXPECT_FALSE(early->GetEnable());
  ASSERT_TRUE(early->Create(parent()));
  for (const auto& setter : kSetters) setter.set(*button);
  EXPECT_EQ(pictureOf(*early), pictureOf(*button));
  EXPECT_EQ(textOf(early->GetWnd()), L"another");
  EXPECT_FALSE(::IsWindowEnabled(early->GetWnd()));
  EXPECT_EQ(placeOf(early->GetWnd()).top, 77);
}

TEST_P(EachButton, KeepsWhatItWasToldWhenItsWindowIsGone) {
  const auto other = newButton(&caption);
  ASSERT_TRUE(other->Create(parent()));
  for (const auto& setter : kSetters) setter.set(*other);
  button->Destroy();
  for (const auto& setter : kSetters) setter.set(*button);
  button->SetTop(20);
  EXPECT_TRUE(button->GetClick());
  EXPECT_FALSE(button->GetEnable());
  ASSERT_TRUE(button->Create(parent()));
  EXPECT_EQ(pictureOf(*button), pictureOf(*other));
}

TEST_P(EachButton, NewWindowIsAtRestWhateverHappenedToTheFormer) {
  const auto before = pictureOf(*button);
  moveMouse(button->GetWnd(), 5, 5);
  ::SendMessageW(button->GetWnd(), WM_KEYDOWN, VK_SPACE, 1);
  button->Destroy();
  ASSERT_TRUE(button->Create(parent()));
  EXPECT_EQ(pictureOf(*button), before);
}

TEST_P(EachButton, MessagesWithoutAWindowAreHarmless) {
  const auto early = newButton(&caption);
  for (const unsigned msg : {WM_PAINT, WM_GETDLGCODE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_MOUSEMOVE, WM_SETTEXT, WM_ENABLE}) {
    early->RunProc(msg, 0, 0);
  }
  early->Destroy();
  EXPECT_EQ(early->GetWnd(), nullptr);
  ::ReleaseCapture();
}

TEST_P(EachButton, SystemsEnableAndTheButtonsAreOne) {
  button->Disable();
  EXPECT_FALSE(button->GetEnable());
  button->SetEnable(true);
  EXPECT_TRUE(button->IsEnable());
  click(button->GetWnd());
  EXPECT_EQ(takeCommands().size(), 1U);
  button->SetEnable(false);
  click(button->GetWnd());
  key(button->GetWnd(), VK_RETURN);
  EXPECT_TRUE(takeCommands().empty());
}

TEST_P(EachButton, MouseGivesItTheKeyboard) {
  press(button->GetWnd(), 5, 5);
  EXPECT_EQ(::GetFocus(), button->GetWnd());
  release(button->GetWnd(), -5, -5);
}

TEST_P(EachButton, SetTopMovesItUpOrDown) {
  button->SetTop(150);
  const RECT place = placeOf(button->GetWnd());
  EXPECT_EQ((std::vector<LONG>{place.left, place.top, place.right, place.bottom}), (std::vector<LONG>{10, 150, 130, 182}));
}

TEST_P(EachButton, TabGoesOnAndEnterIsTheButtonsInADialog) {
  const qzstd::Rect below{10, 60, 120, 32};
  const auto next = GetParam().make(below, &caption);
  ASSERT_TRUE(next->Create(parent()));
  ::SetWindowPos(button->GetWnd(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  ::SetFocus(button->GetWnd());
  MSG tab{button->GetWnd(), WM_KEYDOWN, VK_TAB, 1, 0, {}};
  EXPECT_TRUE(::IsDialogMessageW(parent(), &tab));
  EXPECT_EQ(::GetFocus(), next->GetWnd());
  takeCommands();
  MSG enter{next->GetWnd(), WM_KEYDOWN, VK_RETURN, 1, 0, {}};
  EXPECT_TRUE(::IsDialogMessageW(parent(), &enter));
  EXPECT_EQ(takeCommands(), (std::vector<Command>{{kId, BN_CLICKED, next->GetWnd()}}));
}

TEST_F(ButtonKinds, OwnWaysToSetTheCaptionSetIt) {
  AppWnd::BtnExpand expand(kId, rect, nullptr);
  ASSERT_TRUE(expand.Create(parent()));
  expand.SetText({L"part"});
  EXPECT_EQ(textOf(expand.GetWnd()), L"part");
  AppWnd::BtnLabel link(kId, rect, nullptr);
  ASSERT_TRUE(link.Create(parent()));
  link.Settx({L"link"});
  EXPECT_EQ(textOf(link.GetWnd()), L"link");
}

TEST_F(ButtonKinds, CheckBoxIsOnAlreadyWhenTheParentIsTold) {
  AppWnd::BtnCheck box(kId, rect, &caption);
  ASSERT_TRUE(box.Create(parent()));
  static AppWnd::BtnCheck* asked;
  static bool seen;
  asked = &box;
  seen = false;
  const auto askOnCommand = [](HWND window, UINT msg, WPARAM wParam, LPARAM lParam) -> LRESULT {
    if (msg == WM_COMMAND) seen = asked->GetClick();
    return ::DefWindowProcW(window, msg, wParam, lParam);
  };
  const WNDPROC replacement = askOnCommand;
  const auto former = ::SetWindowLongPtrW(parent(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(replacement));
  click(box.GetWnd());
  ::SetWindowLongPtrW(parent(), GWLP_WNDPROC, former);
  EXPECT_TRUE(seen);
}

// In memory that cannot be read any more once the button is gone.
struct LastButton {
  LastButton(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text& text)
      : memory(::VirtualAlloc(nullptr, sizeof(AppWnd::BtnCls), MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)),
        button(new (memory) AppWnd::BtnCls(id, rect, &text)) {}
  ~LastButton() { ::VirtualFree(memory, 0, MEM_RELEASE); }
  LastButton(const LastButton&) = delete;
  LastButton& operator=(const LastButton&) = delete;

  void destroy() {
    std::exchange(button, nullptr)->~BtnCls();
    DWORD former = 0;
    ::VirtualProtect(memory, sizeof(AppWnd::BtnCls), PAGE_NOACCESS, &former);
  }

  void* const memory;
  AppWnd::BtnCls* button;
};

TEST_F(ButtonKinds, ParentMayDestroyAButtonThatTellsItOfAClick) {
  static LastButton* last;
  LastButton button(kId, rect, caption);
  last = &button;
  ASSERT_TRUE(button.button->Create(parent()));
  const auto destroyOnCommand = [](HWND window, UINT msg, WPARAM wParam, LPARAM lParam) -> LRESULT {
    if (msg == WM_COMMAND) last->destroy();
    return ::DefWindowProcW(window, msg, wParam, lParam);
  };
  const WNDPROC replacement = destroyOnCommand;
  const auto former = ::SetWindowLongPtrW(parent(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(replacement));
  const HWND window = button.button->GetWnd();
  click(window);
  ::SetWindowLongPtrW(parent(), GWLP_WNDPROC, former);
  EXPECT_EQ(button.button, nullptr);
  EXPECT_FALSE(::IsWindow(window));
}

}  // namespace
