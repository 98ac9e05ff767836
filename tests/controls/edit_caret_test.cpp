/// Where the caret of an edit stands, what it selects, and what the mouse does to both.

#include "controls/EditTest.h"

namespace {

TEST_F(MadeEdit, KeysMoveTheCaret) {
  const std::pair<unsigned, DWORD> keys[] = {{VK_LEFT, 3}, {VK_HOME, 0}, {VK_RIGHT, 1}, {VK_END, 4}};
  for (const auto& [virtualKey, place] : keys) {
    key(window, virtualKey);
    EXPECT_EQ(selectionOf(edit), Selection(place, place));
  }
}

TEST_F(MadeEdit, KeysWithShiftSelect) {
  keyWithShift(window, VK_LEFT);
  EXPECT_EQ(selectionOf(edit), Selection(3, 4));
  keyWithShift(window, VK_HOME);
  EXPECT_EQ(selectionOf(edit), Selection(0, 4));
  keyWithShift(window, VK_RIGHT);
  EXPECT_EQ(selectionOf(edit), Selection(1, 4));
  edit.SetCaretPos(2);
  keyWithShift(window, VK_END);
  EXPECT_EQ(selectionOf(edit), Selection(2, 4));
}

TEST_F(MadeEdit, CaretPositionOutsideIsTheNearerEnd) {
  edit.SetCaretPos(99);
  EXPECT_EQ(selectionOf(edit), Selection(4, 4));
  edit.SetCaretPos(-1);
  EXPECT_EQ(selectionOf(edit), Selection(0, 0));
}

TEST_F(MadeEdit, CaretPositionSelectsNothing) {
  type(window, {kCtrlA});
  EXPECT_EQ(selectionOf(edit), Selection(0, 4));
  edit.SetCaretPos(2);
  EXPECT_EQ(selectionOf(edit), Selection(2, 2));
}

TEST_F(MadeEdit, TabInADialogSelectsAll) {
  edit.SetCaretPos(0);
  edit.SendSelfMsg(EM_SETSEL, 0, -1);
  EXPECT_EQ(selectionOf(edit), Selection(0, 4));
}

TEST_F(MadeEdit, ClickBringsTheKeyboardAndTheCaret) {
  click(window, 2, 10);
  EXPECT_EQ(::GetFocus(), window);
  EXPECT_EQ(selectionOf(edit), Selection(0, 0));
  EXPECT_EQ(told(), (std::vector<WORD>{EN_SETFOCUS}));
  click(window, 150, 10);
  EXPECT_EQ(selectionOf(edit), Selection(4, 4));
}

TEST_F(MadeEdit, DraggedMouseSelects) {
  press(window, 150, 10);
  moveMouse(window, 2, 10);
  release(window, 2, 10);
  moveMouse(window, 150, 10);
  EXPECT_EQ(selectionOf(edit), Selection(0, 4));
}

TEST_F(MadeEdit, ClickWithShiftSelects) {
  edit.SetCaretPos(0);
  ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, MAKELPARAM(150, 10));
  EXPECT_EQ(selectionOf(edit), Selection(0, 4));
}

TEST_F(MadeEdit, DoubleClickSelectsAllThoughTheHandIsNotStill) {
  click(window, 2, 10);
  ::SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(2, 10));
  moveMouse(window, 3, 10);
  EXPECT_EQ(selectionOf(edit), Selection(0, 4));
}

TEST_F(MadeEdit, CaretComesAndGoesWithTheKeyboard) {
  edit.SetFocus();
  EXPECT_EQ(caret().hwndCaret, window);
  ::SetFocus(parent());
  EXPECT_EQ(caret().hwndCaret, nullptr);
}

TEST_F(MadeEdit, CaretStandsWhereTheTextsDoes) {
  edit.SetFocus();
  const LONG atEnd = caret().rcCaret.left;
  key(window, VK_HOME);
  const LONG atBegin = caret().rcCaret.left;
  EXPECT_LT(atBegin, atEnd);
  click(window, static_cast<int>(atEnd), 10);
  EXPECT_EQ(caret().rcCaret.left, atEnd);
}

TEST_F(MadeEdit, CaretOfAnotherWindowIsLeftAlone) {
  ::CreateCaret(parent(), nullptr, 3, 10);
  edit.DestroyCaret();
  edit.SetCaretPos(1);
  EXPECT_EQ(caret().hwndCaret, parent());
  EXPECT_EQ(caret().rcCaret.left, 0);
  ::DestroyCaret();
}

TEST_F(MadeEdit, CaretIsMadeAndDestroyedOnRequest) {
  edit.CreateCaret();
  EXPECT_EQ(caret().hwndCaret, window);
  edit.DestroyCaret();
  EXPECT_EQ(caret().hwndCaret, nullptr);
}

TEST_F(MadeEdit, HiddenCaretIsShownAgainAtOnce) {
  edit.SetFocus();
  ASSERT_TRUE(isCaretSeen(edit));
  edit.HideCaret();
  edit.HideCaret();
  EXPECT_FALSE(isCaretSeen(edit));
  edit.ShowCaret();
  EXPECT_TRUE(isCaretSeen(edit));
}

TEST_F(MadeEdit, CaretOfALongTextStaysInSight) {
  edit.SetFocus();
  edit.SetWstr(longText());
  for (const unsigned virtualKey : {VK_END, VK_HOME, VK_END}) {
    key(window, virtualKey);
    EXPECT_GT(caret().rcCaret.left, 0);
    EXPECT_LT(caret().rcCaret.right, rect.width);
  }
  for (int count = 0; count < 100; ++count) {
    key(window, VK_LEFT);
    ASSERT_GT(caret().rcCaret.left, 0) << count;
  }
}

}  // namespace
