/// What is chosen in a box, who is told, and how the box itself is drawn. Its list has tests of its own.

#include "controls/ComboBoxTest.h"

namespace {

using AppWnd::ComBox;

TEST_F(Box, HasNoChoiceAtFirst) {
  EXPECT_EQ(box->GetCurSel(), -1);
  EXPECT_EQ(textOf(window), L"");
}

TEST_F(Box, ProgramsChoiceIsNotTold) {
  box->SetCurSel(2);
  EXPECT_EQ(box->GetCurSel(), 2);
  EXPECT_EQ(textOf(window), L"Thin");
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
  EXPECT_EQ(textOf(window), L"Plain");
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
  std::set<Pixels> pictures{picture(window)};
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
  EXPECT_TRUE(colors(window).contains(asPixel(RGB(0, 120, 0))));
  drop();
  EXPECT_TRUE(colors(list()).contains(asPixel(RGB(0, 120, 0))));
  box->Disable();
  EXPECT_FALSE(colors(window).contains(asPixel(RGB(0, 120, 0))));
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
