#include <algorithm>
#include <array>
#include <chrono>
#include <memory>

#include "Controls.h"
#include "controls/ControlTest.h"
#include "simulator/controls/Drawing.h"

namespace {

using AppWnd::ComBox;

constexpr int kItemHeight = 20;

std::uint32_t pixel(COLORREF color) {
  return (std::uint32_t{GetRValue(color)} << 16) | (std::uint32_t{GetGValue(color)} << 8) | std::uint32_t{GetBValue(color)};
}

class Box : public ControlTest {
 protected:
  void SetUp() override {
    append({L"Plain", L"Thick", L"Thin", L"Envelope"});
    box->SetWndItem(kItemHeight);
    ASSERT_TRUE(box->Create(parent()));
    window = box->GetWnd();
    ::SetFocus(window);
  }

  void append(const std::vector<std::wstring>& entries) {
    for (const auto& entry : entries) box->Append({entry});
  }
  void appendNumbers(int last) {
    for (int number = 1; number <= last; ++number) box->Append({std::to_wstring(number)});
  }

  // The dropped list; null when it is shut.
  HWND list() const {
    static HWND found;
    found = nullptr;
    const auto see = [](HWND each, LPARAM owner) -> BOOL {
      if (::GetWindow(each, GW_OWNER) != reinterpret_cast<HWND>(owner)) return TRUE;
      found = each;
      return FALSE;
    };
    ::EnumThreadWindows(::GetCurrentThreadId(), see, reinterpret_cast<LPARAM>(parent()));
    return found;
  }
  HWND drop() {
    press(window, 5, 5);
    release(window, 5, 5);
    return list();
  }
  RECT placeOf(HWND of) const {
    RECT place{};
    ::GetWindowRect(of, &place);
    ::MapWindowPoints(nullptr, parent(), reinterpret_cast<POINT*>(&place), 2);
    return place;
  }
  void clickEntry(int entry) { click(list(), 10, entry * kItemHeight + 5); }
  std::wstring windowText() const {
    std::array<wchar_t, 50> units{};
    ::GetWindowTextW(window, units.data(), static_cast<int>(units.size()));
    return units.data();
  }
  std::vector<Command> once() const { return {{9, CBN_SELCHANGE, window}}; }

  const qzstd::Rect rect{10, 20, 160, 32};
  std::unique_ptr<ComBox> box = std::make_unique<ComBox>(9, rect);
  HWND window = nullptr;
};

TEST_F(Box, HasNoChoiceAtFirst) {
  EXPECT_EQ(box->GetCurSel(), -1);
  EXPECT_EQ(windowText(), L"");
}

TEST_F(Box, ProgramsChoiceIsNotTold) {
  box->SetCurSel(2);
  EXPECT_EQ(box->GetCurSel(), 2);
  EXPECT_EQ(windowText(), L"Thin");
  EXPECT_EQ(box->SendSelfMsg(WM_GETTEXTLENGTH, 0, 0), 4);
  EXPECT_TRUE(takeCommands().empty());
}

TEST_F(Box, IndexThatThereIsNotChoosesNone) {
  for (const std::int32_t index : {-1, 4, -2, INT32_MAX, INT32_MIN}) {
    box->SetCurSel(0);
    box->SetCurSel(index);
    EXPECT_EQ(box->GetCurSel(), -1) << index;
  }
}

TEST_F(Box, ItsTextIsNotForOthersToSet) {
  box->SetCurSel(0);
  EXPECT_EQ(box->SendSelfMsg(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"other")), CB_ERR);
  EXPECT_EQ(windowText(), L"Plain");
}

TEST_F(Box, ClearForgetsEntriesAndChoice) {
  box->SetCurSel(1);
  drop();
  box->Clear();
  EXPECT_EQ(box->GetCurSel(), -1);
  EXPECT_EQ(list(), nullptr);
  box->SetCurSel(0);
  EXPECT_EQ(box->GetCurSel(), -1);
  EXPECT_EQ(drop(), nullptr) << "nothing to drop";
}

TEST_F(Box, KeysChooseAndAreTold) {
  struct Case {
    unsigned key;
    std::int32_t before;
    std::int32_t after;
  };
  const Case cases[] = {{VK_DOWN, -1, 0}, {VK_DOWN, 1, 2}, {VK_UP, 1, 0},   {VK_RIGHT, 1, 2}, {VK_LEFT, 1, 0},
                        {VK_END, 0, 3},   {VK_HOME, 3, 0}, {VK_NEXT, 0, 3}, {VK_PRIOR, 3, 0}};
  for (const auto& [virtualKey, before, after] : cases) {
    box->SetCurSel(before);
    key(window, virtualKey);
    EXPECT_EQ(box->GetCurSel(), after) << virtualKey;
    EXPECT_EQ(takeCommands(), once()) << virtualKey;
  }
}

TEST_F(Box, KeyThatChangesNothingIsNotTold) {
  box->SetCurSel(3);
  key(window, VK_DOWN);
  key(window, VK_F5);
  type(window, L"zq\r\x1b");
  EXPECT_EQ(box->GetCurSel(), 3);
  EXPECT_TRUE(takeCommands().empty());
}

TEST_F(Box, FirstLettersChoose) {
  type(window, L"t");
  EXPECT_EQ(box->GetCurSel(), 1);
  type(window, L"HIN");
  EXPECT_EQ(box->GetCurSel(), 2);
  EXPECT_EQ(takeCommands().size(), 2U);
}

TEST_F(Box, LettersOfOtherLanguagesChooseToo) {
  append({L"\x00d6l", L"\x041f\x043b\x0430\x043d"});
  type(window, L"\x00f6");
  EXPECT_EQ(box->GetCurSel(), 4);
}

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

TEST_F(Box, ListIsBelowTheBoxAndAsHighAsItsEntries) {
  drop();
  const RECT place = placeOf(list());
  EXPECT_EQ(place.left, 10);
  EXPECT_EQ(place.right, 170);
  EXPECT_EQ(place.top, 52);
  EXPECT_EQ(place.bottom - place.top, 4 * kItemHeight + 2);
}

TEST_F(Box, ListShowsAtMostEightEntries) {
  appendNumbers(20);
  drop();
  const RECT place = placeOf(list());
  EXPECT_EQ(place.bottom - place.top, 8 * kItemHeight + 2);
}

TEST_F(Box, ListIsAboveABoxAtTheEndOfTheScreen) {
  ::SetWindowPos(parent(), nullptr, 0, ::GetSystemMetrics(SM_CYSCREEN) - 60, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  drop();
  EXPECT_EQ(placeOf(list()).bottom, rect.y);
}

TEST_F(Box, ListIsWhereItWasTold) {
  box->SetWndRect({200, 30, 120, 70});
  drop();
  const RECT place = placeOf(list());
  EXPECT_EQ((std::array{place.left, place.top, place.right, place.bottom}), (std::array<LONG, 4>{200, 30, 320, 100}));
  box->SetWndRect({});
  EXPECT_EQ(placeOf(list()).left, 10) << "a dropped list moves";
}

TEST_F(Box, DroppedListGrowsWithItsEntries) {
  drop();
  append({L"more"});
  const RECT place = placeOf(list());
  EXPECT_EQ(place.bottom - place.top, 5 * kItemHeight + 2);
  box->SetWndItem(0);
  EXPECT_EQ(placeOf(list()).bottom - placeOf(list()).top, 5 * 1 + 2) << "at least one pixel";
}

class LongBox : public Box {
 protected:
  void SetUp() override {
    Box::SetUp();
    box->Clear();
    appendNumbers(20);
  }

  HWND scroll() const { return ::GetWindow(list(), GW_CHILD); }
  RECT scrollPlace() const {
    RECT place{};
    ::GetWindowRect(scroll(), &place);
    ::MapWindowPoints(nullptr, list(), reinterpret_cast<POINT*>(&place), 2);
    return place;
  }
  int firstShown() const { return static_cast<int>(::SendMessageW(scroll(), SBM_GETPOS, 0, 0)); }
};

TEST_F(Box, ListThatShowsAllHasNoScrollBar) {
  drop();
  EXPECT_EQ(::GetWindow(list(), GW_CHILD), nullptr);
}

TEST_F(LongBox, ScrollBarIsAtTheRightEdgeUnlessToldOtherwise) {
  drop();
  EXPECT_EQ(scrollPlace().right, 160 - 2);
  box->SetScrollRect({5, 10, 12, 100});
  const RECT place = scrollPlace();
  EXPECT_EQ((std::array{place.left, place.top, place.right, place.bottom}), (std::array<LONG, 4>{5, 10, 17, 110}));
}

TEST_F(LongBox, ChoiceIsInSightWhenTheListDrops) {
  box->SetCurSel(15);
  drop();
  EXPECT_EQ(firstShown(), 8);
  EXPECT_TRUE(colors(list()).contains(pixel(controls::theme::kAccent)));
}

TEST_F(LongBox, KeysKeepTheChoiceInSight) {
  drop();
  key(window, VK_END);
  EXPECT_EQ(firstShown(), 12);
  key(window, VK_HOME);
  EXPECT_EQ(firstShown(), 0);
}

TEST_F(LongBox, EntriesScrollUnderTheMouse) {
  drop();
  ::SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
  EXPECT_EQ(firstShown(), 2);
  clickEntry(1);
  EXPECT_EQ(box->GetCurSel(), 3);
}

TEST_F(LongBox, WheelOverAShutBoxChangesNothing) {
  box->SetCurSel(3);
  ::SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
  EXPECT_EQ(box->GetCurSel(), 3);
}

TEST_F(LongBox, ThumbCanBeDraggedThroughTheList) {
  drop();
  const RECT bar = scrollPlace();
  const HWND dropped = list();
  press(dropped, bar.left + 2, bar.top + 5);
  EXPECT_EQ(::GetCapture(), scroll());
  moveMouse(scroll(), 2, 500);
  EXPECT_EQ(firstShown(), 12);
  release(scroll(), 2, 500);
  EXPECT_EQ(list(), dropped);
  EXPECT_EQ(::GetCapture(), dropped) << "the mouse is the list's again";
  press(dropped, bar.left + 2, bar.top + 5);
  release(scroll(), 2, 5);
  EXPECT_EQ(firstShown(), 4) << "a page up";
  EXPECT_EQ(::GetCapture(), dropped);
  EXPECT_EQ(box->GetCurSel(), -1);
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

TEST_F(Box, DisabledTakesNothing) {
  box->Disable();
  key(window, VK_DOWN);
  type(window, L"t");
  EXPECT_EQ(drop(), nullptr);
  EXPECT_EQ(box->GetCurSel(), -1);
  EXPECT_TRUE(takeCommands().empty());
}

TEST_F(Box, EachStateLooksDifferent) {
  ::SetFocus(parent());
  box->SetCurSel(0);
  std::set<std::vector<std::uint32_t>> pictures{picture(window)};
  moveMouse(window, 5, 5);
  pictures.insert(picture(window));
  ::SetFocus(window);
  pictures.insert(picture(window));
  drop();
  pictures.insert(picture(window));
  box->Disable();
  pictures.insert(picture(window));
  EXPECT_EQ(pictures.size(), 5U);
}

TEST_F(Box, TextHasItsColorInTheBoxAndInTheList) {
  box->SetColor(RGB(0, 120, 0));
  box->SetCurSel(3);
  EXPECT_TRUE(colors(window).contains(pixel(RGB(0, 120, 0))));
  drop();
  EXPECT_TRUE(colors(list()).contains(pixel(RGB(0, 120, 0))));
  box->Disable();
  EXPECT_FALSE(colors(window).contains(pixel(RGB(0, 120, 0))));
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

TEST_F(Box, LongEntryStaysInItsPlace) {
  box->SetCurSel(-1);
  const auto empty = picture(window);
  box->Append({std::wstring(100, L'M')});
  box->SetCurSel(4);
  const auto full = picture(window);
  for (std::size_t row = 0; row < 32; ++row)
    for (const std::size_t column : {0, 3, 8, 132, 140, 150, 159})
      ASSERT_EQ(full[row * 160 + column], empty[row * 160 + column]) << row << " " << column;
}

TEST_F(Box, ParentMayDestroyItWhenItIsTold) {
  static std::unique_ptr<ComBox>* victim = nullptr;
  victim = &box;
  const auto destroying = [](HWND on, UINT msg, WPARAM wParam, LPARAM lParam) -> LRESULT {
    if (msg == WM_COMMAND) victim->reset();
    return ::DefWindowProcW(on, msg, wParam, lParam);
  };
  ::SetWindowLongPtrW(parent(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(destroying)));
  drop();
  clickEntry(1);
  EXPECT_EQ(box, nullptr);
  EXPECT_FALSE(::IsWindow(window));
  EXPECT_EQ(list(), nullptr);
}

TEST_F(ControlTest, BoxKeepsWhatItIsToldWithoutAWindow) {
  const qzstd::Rect rect{10, 20, 160, 32};
  ComBox box(9, rect);
  const auto callAll = [&box](std::int32_t count) {
    box.Append({L"one"});
    box.SetCurSel(count);
    box.SetColor(RGB(1, 2, 3));
    box.SetScrollRect({1, 2, 3, 4});
    box.SetWndItem(20);
    box.SetWndRect({1, 2, 3, 4});
    EXPECT_EQ(box.GetCurSel(), count);
    for (const unsigned msg :
         {WM_PAINT, WM_CHAR, WM_KEYDOWN, WM_LBUTTONDOWN, WM_KILLFOCUS, WM_COMMAND, WM_DESTROY, WM_MOUSEWHEEL})
      EXPECT_EQ(box.RunProc(msg, 0, 0), 0);
    box.Destroy();
  };
  callAll(0);
  ASSERT_TRUE(box.Create(parent()));
  EXPECT_EQ(box.GetCurSel(), 0);
  box.Disable();
  box.Destroy();
  callAll(1);
  ASSERT_TRUE(box.Create(parent()));
  EXPECT_EQ(box.GetCurSel(), 1);
  EXPECT_FALSE(box.IsEnable());
  box.Destroy();
  box.Clear();
  EXPECT_EQ(box.GetCurSel(), -1);
}

}  // namespace
