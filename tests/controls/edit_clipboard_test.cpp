/// What an edit copies, cuts and pastes.

#include "controls/EditTest.h"
#include "simulator/controls/Clipboard.h"

namespace {

TEST_F(MadeEdit, CutAndPasteGoThroughTheClipboard) {
  type(window, {kCtrlA, kCtrlX});
  EXPECT_EQ(edit.GetWstr(), L"");
  EXPECT_EQ(clipboard(), L"abcd");
  type(window, {kCtrlV, kCtrlV});
  EXPECT_EQ(edit.GetWstr(), L"abcdabcd");
  EXPECT_EQ(told(), (std::vector<WORD>{EN_CHANGE, EN_CHANGE, EN_CHANGE}));
}

TEST_F(MadeEdit, CopyTakesTheSelectionAndLeavesTheText) {
  keyWithShift(window, VK_LEFT);
  type(window, {kCtrlC});
  EXPECT_EQ(clipboard(), L"d");
  EXPECT_EQ(edit.GetWstr(), L"abcd");
  EXPECT_EQ(selectionOf(edit), Selection(3, 4));
  EXPECT_TRUE(takeCommands().empty());
}

TEST_F(MadeEdit, CopyOfNothingLeavesTheClipboard) {
  ASSERT_TRUE(controls::copyText(parent(), L"before"));
  type(window, {kCtrlC, kCtrlX});
  EXPECT_EQ(clipboard(), L"before");
  EXPECT_EQ(edit.GetWstr(), L"abcd");
}

TEST_F(MadeEdit, CutKeepsWhatCannotBeCopied) {
  type(window, {kCtrlA});
  ASSERT_TRUE(::OpenClipboard(parent()));  // held, as by another program
  type(window, {kCtrlX});
  ::CloseClipboard();
  EXPECT_EQ(edit.GetWstr(), L"abcd");
}

TEST_F(MadeEdit, MessagesOfTheClipboardDoTheSame) {
  edit.SendSelfMsg(EM_SETSEL, 1, 3);
  edit.SendSelfMsg(WM_COPY, 0, 0);
  EXPECT_EQ(clipboard(), L"bc");
  edit.SendSelfMsg(WM_CLEAR, 0, 0);
  EXPECT_EQ(edit.GetWstr(), L"ad");
  edit.SendSelfMsg(WM_PASTE, 0, 0);
  EXPECT_EQ(edit.GetWstr(), L"abcd");
}

TEST_F(MadeEdit, PastedLineBreaksBecomeBlanks) {
  ASSERT_TRUE(controls::copyText(parent(), L"one\r\ntwo\nthree"));
  type(window, {kCtrlA, kCtrlV});
  EXPECT_EQ(edit.GetWstr(), L"one two three");
}

}  // namespace
