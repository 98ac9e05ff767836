/// What the edits for a threshold, an address and a password do differently.

#include <array>

#include "controls/EditTest.h"
#include "simulator/controls/Clipboard.h"
#include "simulator/controls/Drawing.h"

namespace {

using AppWnd::EditAlarm;
using AppWnd::EditCIP;
using AppWnd::EditCPwd;

TEST_F(Edits, ThresholdTakesThreeDigits) {
  EditAlarm alarm(rect, nullptr);
  ASSERT_TRUE(alarm.Create(parent()));
  type(alarm.GetWnd(), L"a1-2.3 45");
  EXPECT_EQ(alarm.GetWstr(), L"123");
  EXPECT_EQ(takeCommands().size(), 3U);
}

TEST_F(Edits, ThresholdShowsWhateverAProgramSets) {
  EditAlarm alarm(rect, nullptr);
  alarm.SetWstr(L"none");
  EXPECT_EQ(alarm.GetWstr(), L"none");
}

TEST_F(Edits, AddressTakesDigitsAndDots) {
  EditCIP address(rect, nullptr);
  ASSERT_TRUE(address.Create(parent()));
  type(address.GetWnd(), L"a192,.168 .1.20");
  EXPECT_EQ(address.GetWstr(), L"192.168.1.20");
  EXPECT_TRUE(address.GetIpValid());
  type(address.GetWnd(), L".");
  EXPECT_FALSE(address.GetIpValid());
}

TEST_F(Edits, ValidityThatWasToldHoldsUntilTheTextChanges) {
  EditCIP address(rect, nullptr);
  ASSERT_TRUE(address.Create(parent()));
  address.SetWstr(L"10.0.0.1");
  address.SetIpValid(false);
  EXPECT_FALSE(address.GetIpValid());
  key(address.GetWnd(), VK_HOME);
  EXPECT_FALSE(address.GetIpValid());
  address.SetWstr(L"10.0.0.1");
  EXPECT_FALSE(address.GetIpValid()) << "the text is the same";
  address.SetWstr(L"10.0.0.2");
  EXPECT_TRUE(address.GetIpValid());
  address.SetIpValid(false);
  type(address.GetWnd(), L"3");
  EXPECT_TRUE(address.GetIpValid());
  address.SetWstr(L"");
  address.SetIpValid(true);
  EXPECT_TRUE(address.GetIpValid());
}

TEST_F(Edits, AddressIsFramedRedWhileItIsWrongAndTheKeyboardElsewhere) {
  EditCIP address(rect, nullptr);
  ASSERT_TRUE(address.Create(parent()));
  const auto isRed = [&] { return colors(address.GetWnd()).contains(asPixel(controls::theme::kError)); };
  EXPECT_TRUE(isRed());
  address.SetFocus();
  EXPECT_FALSE(isRed());
  ::SetFocus(parent());
  EXPECT_TRUE(isRed());
  address.SetWstr(L"10.0.0.1");
  EXPECT_FALSE(isRed());
  address.SetIpValid(false);
  EXPECT_TRUE(isRed());
}

class Password : public Edits {
 protected:
  void SetUp() override {
    ASSERT_TRUE(password.Create(parent()));
    window = password.GetWnd();
  }

  const qzstd::Text secret{L"secret"};
  EditCPwd password{rect, &secret};
  HWND window = nullptr;
};

TEST_F(Password, IsKeptForTheProgram) {
  EXPECT_EQ(password.GetWstr(), L"secret");
  type(window, L"s\b\b");
  EXPECT_EQ(password.GetWstr(), L"secre");
}

TEST_F(Password, IsNotTheWindowsText) {
  std::array<wchar_t, 50> units{};
  EXPECT_EQ(textOf(password.GetWnd()), L"");
  EXPECT_EQ(password.SendSelfMsg(WM_GETTEXTLENGTH, 0, 0), 0);
  EXPECT_EQ(::DefWindowProcW(window, WM_GETTEXT, units.size(), reinterpret_cast<LPARAM>(units.data())), 0);
  ::SetWindowTextW(window, L"other");
  EXPECT_EQ(password.GetWstr(), L"other");
  EXPECT_EQ(textOf(password.GetWnd()), L"");
  EXPECT_EQ(::DefWindowProcW(window, WM_GETTEXT, units.size(), reinterpret_cast<LPARAM>(units.data())), 0);
}

TEST_F(Password, IsNeitherCopiedNorCut) {
  ASSERT_TRUE(controls::copyText(parent(), L"before"));
  type(window, {kCtrlA, kCtrlC, kCtrlX});
  password.SendSelfMsg(WM_COPY, 0, 0);
  password.SendSelfMsg(WM_CUT, 0, 0);
  EXPECT_EQ(clipboard(), L"before");
  EXPECT_EQ(password.GetWstr(), L"secret");
}

TEST_F(Password, CanBePasted) {
  ASSERT_TRUE(controls::copyText(parent(), L"pasted"));
  type(window, {kCtrlA, kCtrlV});
  EXPECT_EQ(password.GetWstr(), L"pasted");
}

TEST_F(Password, LooksTheSameWhateverItIs) {
  const auto before = picture(window);
  password.SetWstr(L"MWMWMW");
  EXPECT_EQ(picture(window), before);
  password.SetWstr(L"MWMWM");
  EXPECT_NE(picture(window), before);
}

TEST_F(Password, CharacterOfTwoUnitsIsOneDot) {
  password.SetFocus();
  password.SetWstr(L"a");
  const auto one = picture(window);
  const LONG behindOne = caret().rcCaret.left;
  password.SetWstr(L"\xd83d\xde00");
  EXPECT_EQ(picture(window), one);
  EXPECT_EQ(caret().rcCaret.left, behindOne);
}

TEST_F(Password, ClearEmptiesIt) {
  password.Clear();
  EXPECT_EQ(password.GetWstr(), L"");
  EXPECT_TRUE(takeCommands().empty());
}

}  // namespace
