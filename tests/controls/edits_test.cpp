/// The text of an edit: what is typed, who is told, and what the edit keeps.

#include <array>
#include <initializer_list>

#include "controls/EditTest.h"

namespace {

using AppWnd::EditAlarm;
using AppWnd::EditBase;
using AppWnd::EditCIP;
using AppWnd::EditCPwd;

TEST_F(MadeEdit, ShowsTheTextItWasMadeWith) {
  EXPECT_EQ(edit.GetWstr(), L"abcd");
  EXPECT_EQ(textOf(edit.GetWnd()), L"abcd");
  EXPECT_EQ(edit.SendSelfMsg(WM_GETTEXTLENGTH, 0, 0), 4);
  EXPECT_EQ(selectionOf(edit), Selection(4, 4));
}

TEST_F(MadeEdit, WindowTextIsCutToTheCallersRoom) {
  std::array<wchar_t, 4> units{L'-', L'-', L'-', L'-'};
  EXPECT_EQ(edit.SendSelfMsg(WM_GETTEXT, 3, reinterpret_cast<LPARAM>(units.data())), 2);
  EXPECT_EQ(std::wstring(units.data(), 4), std::wstring(L"ab\0-", 4));
  EXPECT_EQ(edit.SendSelfMsg(WM_GETTEXT, 0, reinterpret_cast<LPARAM>(units.data())), 0);
  EXPECT_EQ(edit.SendSelfMsg(WM_GETTEXT, 3, 0), 0);
}

TEST_F(MadeEdit, SettingTheWindowsTextSetsTheEdits) {
  ::SetWindowTextW(window, L"new");
  EXPECT_EQ(edit.GetWstr(), L"new");
  edit.SendSelfMsg(WM_SETTEXT, 0, 0);
  EXPECT_EQ(edit.GetWstr(), L"");
}

TEST_F(MadeEdit, TypedTextIsTold) {
  type(window, L"e");
  EXPECT_EQ(edit.GetWstr(), L"abcde");
  EXPECT_EQ(takeCommands(), (std::vector<Command>{{0, EN_CHANGE, window}}));
}

TEST_F(MadeEdit, ProgramsTextIsNotTold) {
  edit.SetWstr(L"new");
  ::SetWindowTextW(window, L"newer");
  edit.SetCaretPos(1);
  edit.SetFocus();
  edit.SetDisable();
  edit.SetEnable();
  EXPECT_TRUE(takeCommands().empty());
}

TEST_F(MadeEdit, KeyThatChangesNothingIsNotTold) {
  key(window, VK_DELETE);
  key(window, VK_LEFT);
  key(window, VK_F5);
  type(window, L"\r\t\x1b");
  edit.SetCaretPos(0);
  type(window, L"\b");
  EXPECT_EQ(edit.GetWstr(), L"abcd");
  EXPECT_TRUE(takeCommands().empty());
}

TEST_F(MadeEdit, BackspaceAndDeleteErase) {
  type(window, L"\b");
  EXPECT_EQ(edit.GetWstr(), L"abc");
  key(window, VK_HOME);
  key(window, VK_DELETE);
  EXPECT_EQ(edit.GetWstr(), L"bc");
  EXPECT_EQ(told(), (std::vector<WORD>{EN_CHANGE, EN_CHANGE}));
}

TEST_F(MadeEdit, TypedHalvesOfACharacterAreOneChange) {
  type(window, L"\xd83d\xde00");
  EXPECT_EQ(edit.GetWstr(), L"abcd\xd83d\xde00");
  EXPECT_EQ(told(), (std::vector<WORD>{EN_CHANGE}));
  key(window, VK_LEFT);
  EXPECT_EQ(selectionOf(edit), Selection(4, 4));
}

TEST_F(MadeEdit, KeyboardThatComesAndGoesIsTold) {
  ::SetFocus(window);
  EXPECT_EQ(takeCommands(), (std::vector<Command>{{0, EN_SETFOCUS, window}}));
  ::SetFocus(parent());
  EXPECT_EQ(takeCommands(), (std::vector<Command>{{0, EN_KILLFOCUS, window}}));
}

TEST_F(MadeEdit, SpaceBarIsText) {
  click(window, 2, 10);
  edit.SetCaretPos(0);
  ::SendMessageW(window, WM_KEYDOWN, VK_SPACE, 1);
  type(window, L" ");
  moveMouse(window, 150, 10);
  EXPECT_EQ(edit.GetWstr(), L" abcd");
  EXPECT_EQ(selectionOf(edit), Selection(1, 1));
}

TEST_F(MadeEdit, DialogsLeaveItItsKeysButTab) {
  const auto code = edit.SendSelfMsg(WM_GETDLGCODE, 0, 0);
  EXPECT_EQ(code & (DLGC_WANTARROWS | DLGC_WANTCHARS), DLGC_WANTARROWS | DLGC_WANTCHARS);
  EXPECT_EQ(code & (DLGC_WANTTAB | DLGC_WANTALLKEYS), 0);
}

TEST_F(MadeEdit, DisabledTakesNothing) {
  edit.SetDisable();
  EXPECT_FALSE(edit.IsEnable());
  click(window, 2, 10);
  type(window, {L'x', kCtrlA, kCtrlX});
  key(window, VK_HOME);
  EXPECT_EQ(edit.GetWstr(), L"abcd");
  EXPECT_EQ(selectionOf(edit), Selection(4, 4));
  EXPECT_NE(::GetFocus(), window);
  EXPECT_TRUE(takeCommands().empty());
  edit.SetEnable();
  type(window, L"e");
  EXPECT_EQ(edit.GetWstr(), L"abcde");
}

TEST_F(MadeEdit, ParentMayDestroyItWhenItIsTold) {
  static HWND victim = nullptr;
  victim = window;
  const auto destroying = [](HWND on, UINT msg, WPARAM wParam, LPARAM lParam) -> LRESULT {
    if (msg == WM_COMMAND) ::DestroyWindow(victim);
    return ::DefWindowProcW(on, msg, wParam, lParam);
  };
  ::SetWindowLongPtrW(parent(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(destroying)));
  click(window, 2, 10);
  EXPECT_EQ(edit.GetWnd(), nullptr);
  EXPECT_FALSE(::IsWindow(victim));
  ASSERT_TRUE(edit.Create(parent()));
  victim = edit.GetWnd();
  type(victim, L"x");
  EXPECT_EQ(edit.GetWnd(), nullptr);
}

TEST_F(Edits, KeepsWhatItWasToldBeforeThereIsAWindow) {
  edit.SetWstr(L"told");
  edit.SetCaretPos(2);
  edit.SetColor(RGB(0, 120, 0));
  edit.HideCaret();
  edit.SetFocus();
  ASSERT_TRUE(edit.Create(parent()));
  EXPECT_EQ(edit.GetWstr(), L"told");
  EXPECT_EQ(selectionOf(edit), Selection(2, 2));
  EXPECT_EQ(::GetFocus(), edit.GetWnd());
  EXPECT_EQ(caret().hwndCaret, edit.GetWnd());
  EXPECT_FALSE(isCaretSeen(edit));
  edit.SetWstr(longText());
  EXPECT_TRUE(colors(edit.GetWnd()).contains(asPixel(RGB(0, 120, 0))));
}

TEST_F(Edits, KeepsWhatItWasToldWhenTheWindowIsGone) {
  edit.SetDisable();
  ASSERT_TRUE(edit.Create(parent()));
  EXPECT_FALSE(edit.IsEnable());
  type(edit.GetWnd(), L"x");
  edit.Destroy();
  edit.SetWstr(L"later");
  EXPECT_EQ(edit.GetWstr(), L"later");
  ASSERT_TRUE(edit.Create(parent()));
  EXPECT_FALSE(edit.IsEnable());
  EXPECT_EQ(textOf(edit.GetWnd()), L"later");
}

TEST_F(Edits, EveryMemberMayBeCalledWithoutAWindow) {
  EditCIP address(rect, nullptr);
  EditCPwd password(rect, nullptr);
  EditAlarm alarm(rect, nullptr);
  const auto callAll = [&] {
    for (EditBase* each : std::initializer_list<EditBase*>{&edit, &address, &password, &alarm}) {
      each->CreateCaret();
      each->ShowCaret();
      each->HideCaret();
      each->DestroyCaret();
      each->SetWstr(L"12");
      each->SetCaretPos(1);
      each->SetColor(RGB(1, 2, 3));
      each->SetDisable();
      each->SetEnable();
      each->SetFocus();
      EXPECT_EQ(each->GetWstr(), L"12");
      for (const unsigned msg : {WM_PAINT, WM_CHAR, WM_KEYDOWN, WM_LBUTTONDOWN, WM_SETFOCUS, WM_KILLFOCUS, WM_PASTE, WM_SIZE})
        EXPECT_EQ(each->RunProc(msg, 0, 0), 0);
      each->Destroy();
    }
    address.SetIpValid(true);
    EXPECT_TRUE(address.GetIpValid());
    password.Clear();
    EXPECT_EQ(password.GetWstr(), L"");
  };
  callAll();
  for (EditBase* each : std::initializer_list<EditBase*>{&edit, &address, &password, &alarm}) {
    ASSERT_TRUE(each->Create(parent()));
    each->Destroy();
  }
  callAll();
  EXPECT_EQ(caret().hwndCaret, nullptr);
}

}  // namespace
