/// How the list of a box drops, takes a choice and is shut.

#include <array>
#include <chrono>

#include "controls/ComboBoxTest.h"

namespace {

using AppWnd::ComBox;

TEST_F(Box, PressDropsTheListAndTheNextOneShutsIt) {
  EXPECT_NE(drop(), nullptr);
  EXPECT_TRUE(::IsWindowVisible(list()));
  EXPECT_EQ(drop(), nullptr);
  EXPECT_NE(drop(), nullptr);
}

TEST_F(Box, KeysDropTheListAndShutIt) {
  key(window, VK_F4);
  EXPECT_NE(list(), nullptr);
  key(window, VK_F4);
  EXPECT_EQ(list(), nullptr);
  type(window, L" ");
  EXPECT_NE(list(), nullptr);
  type(window, L" ");
  EXPECT_EQ(list(), nullptr);
  ::SendMessageW(window, WM_SYSKEYDOWN, VK_DOWN, 1 << 29);
  EXPECT_NE(list(), nullptr);
}

TEST_F(Box, EscapeAndEnterShutTheListAndKeepTheChoice) {
  for (const unsigned virtualKey : {VK_ESCAPE, VK_RETURN}) {
    box->SetCurSel(1);
    ASSERT_NE(drop(), nullptr);
    key(window, virtualKey);
    EXPECT_EQ(list(), nullptr);
    EXPECT_EQ(box->GetCurSel(), 1);
    key(window, virtualKey);
    EXPECT_EQ(list(), nullptr);
  }
  EXPECT_TRUE(takeCommands().empty());
}

TEST_F(Box, DialogsLeaveItEscapeAndEnterOnlyWhileTheListIsDropped) {
  const MSG escape{window, WM_KEYDOWN, VK_ESCAPE, 1, 0, {}};
  const MSG enter{window, WM_KEYDOWN, VK_RETURN, 1, 0, {}};
  const MSG tab{window, WM_KEYDOWN, VK_TAB, 1, 0, {}};
  const auto wants = [this](const MSG& message) {
    return (box->SendSelfMsg(WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message)) & DLGC_WANTMESSAGE) != 0;
  };
  EXPECT_FALSE(wants(escape));
  EXPECT_FALSE(wants(enter));
  drop();
  EXPECT_TRUE(wants(escape));
  EXPECT_TRUE(wants(enter));
  EXPECT_FALSE(wants(tab));
  EXPECT_EQ(box->SendSelfMsg(WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);
}

TEST_F(Box, ListTakesTheMouseButNotTheKeyboard) {
  drop();
  EXPECT_EQ(::GetCapture(), list());
  EXPECT_EQ(::GetFocus(), window);
  EXPECT_EQ(::SendMessageW(list(), WM_MOUSEACTIVATE, 0, 0), MA_NOACTIVATE);
  EXPECT_EQ(::GetWindow(list(), GW_OWNER), parent());
  EXPECT_NE(::GetWindowLongPtrW(list(), GWL_EXSTYLE) & WS_EX_NOACTIVATE, 0);
  EXPECT_EQ(::GetWindowLongPtrW(list(), GWL_STYLE) & WS_CHILD, 0);
}

TEST_F(Box, ClickedEntryIsChosenAndTold) {
  drop();
  clickEntry(2);
  EXPECT_EQ(box->GetCurSel(), 2);
  EXPECT_EQ(list(), nullptr);
  EXPECT_EQ(takeCommands(), once());
  EXPECT_EQ(::GetFocus(), window);
  EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(Box, ClickOnTheChosenEntryIsNotTold) {
  box->SetCurSel(2);
  drop();
  clickEntry(2);
  EXPECT_EQ(list(), nullptr);
  EXPECT_TRUE(takeCommands().empty());
}

TEST_F(Box, ButtonLetGoOverAnEntryChoosesAfterAPressOnTheBox) {
  press(window, 5, 5);
  release(list(), 10, 5);
  EXPECT_EQ(box->GetCurSel(), 0);
}

TEST_F(Box, ButtonLetGoOutsideTheListChoosesNothing) {
  press(window, 5, 5);
  release(list(), 10, -10);
  EXPECT_NE(list(), nullptr);
  EXPECT_EQ(box->GetCurSel(), -1);
}

TEST_F(Box, PressElsewhereShutsTheList) {
  for (const UINT button : {WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN}) {
    drop();
    moveMouse(list(), 10, 5);
    ::SendMessageW(list(), button, 0, MAKELPARAM(-20, -60));  // the list has the mouse
    EXPECT_EQ(list(), nullptr);
  }
  EXPECT_EQ(box->GetCurSel(), -1);
  EXPECT_TRUE(takeCommands().empty());
}

TEST_F(Box, WhatTakesTheMouseShutsTheList) {
  drop();
  ::SetCapture(parent());
  EXPECT_EQ(list(), nullptr);
  ::ReleaseCapture();
}

TEST_F(Box, KeyboardThatLeavesShutsTheList) {
  drop();
  ::SetFocus(parent());
  EXPECT_EQ(list(), nullptr);
}

TEST_F(Box, RealClickElsewhereShutsTheList) {
  ::UpdateWindow(parent());
  drop();
  RECT away{};
  ::GetWindowRect(parent(), &away);
  ::SetCursorPos(away.left + 400, away.top + 300);
  std::array<INPUT, 2> inputs{};
  inputs[0].type = inputs[1].type = INPUT_MOUSE;
  inputs[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
  inputs[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
  ASSERT_EQ(::SendInput(2, inputs.data(), sizeof inputs[0]), 2U);
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (list() != nullptr && std::chrono::steady_clock::now() < deadline) {
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
    for (MSG message; ::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0;) ::DispatchMessageW(&message);
  }
  EXPECT_EQ(list(), nullptr);
}

TEST_F(Box, ListGoesWithTheBox) {
  const std::pair<const char*, void (*)(std::unique_ptr<ComBox>&)> ends[] = {
      {"disabled", [](std::unique_ptr<ComBox>& of) { of->Disable(), of->Enable(); }},
      {"hidden", [](std::unique_ptr<ComBox>& of) { of->Hide(), of->Show(); }},
      {"moved", [](std::unique_ptr<ComBox>& of) { of->Move(0, 0, 100, 30), of->AppWnd::CtrlWnd::Move(); }},
      {"window destroyed", [](std::unique_ptr<ComBox>& of) { ::DestroyWindow(of->GetWnd()); }},
      {"box gone", [](std::unique_ptr<ComBox>& of) { of.reset(); }},
  };
  for (const auto& [what, end] : ends) {
    ASSERT_NE(drop(), nullptr) << what;
    end(box);
    EXPECT_EQ(list(), nullptr) << what;
    EXPECT_EQ(::GetCapture(), nullptr) << what;
    if (box == nullptr) break;
    if (box->GetWnd() == nullptr) {
      ASSERT_TRUE(box->Create(parent())) << what;
    }
    window = box->GetWnd();
  }
}

TEST_F(Box, ListGoesWithABoxThatHasNotTheKeyboard) {
  ::SetFocus(parent());
  key(window, VK_F4);
  ASSERT_NE(list(), nullptr);
  box->Hide();
  EXPECT_EQ(list(), nullptr);
  key(window, VK_F4);
  ASSERT_NE(list(), nullptr);
  ::DestroyWindow(window);
  EXPECT_EQ(list(), nullptr);
}

TEST_F(Box, ListGoesWithTheTopWindow) {
  drop();
  ::DestroyWindow(parent());
  EXPECT_EQ(list(), nullptr);
  EXPECT_EQ(box->GetWnd(), nullptr);
  box->Append({L"later"});
  EXPECT_EQ(box->GetCurSel(), -1);
}

TEST_F(Box, HoveredEntryIsSeen) {
  drop();
  const auto before = picture(list());
  moveMouse(list(), 10, 5);
  const auto over = picture(list());
  EXPECT_NE(over, before);
  moveMouse(list(), 10, kItemHeight + 5);
  EXPECT_NE(picture(list()), over);
  moveMouse(list(), -10, 5);
  EXPECT_EQ(picture(list()), before);
}

}  // namespace
