#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <memory>

#include "Controls.h"
#include "controls/ControlTest.h"
#include "simulator/controls/Clipboard.h"
#include "simulator/controls/Drawing.h"

namespace {

using AppWnd::EditAlarm;
using AppWnd::EditBase;
using AppWnd::EditCIP;
using AppWnd::EditCPwd;

constexpr wchar_t kCtrlA = 0x01;
constexpr wchar_t kCtrlC = 0x03;
constexpr wchar_t kCtrlV = 0x16;
constexpr wchar_t kCtrlX = 0x18;

// A color of the platform as the pictures have it.
std::uint32_t pixel(COLORREF color) {
  return (std::uint32_t{GetRValue(color)} << 16) | (std::uint32_t{GetGValue(color)} << 8) | std::uint32_t{GetBValue(color)};
}

// Holds Shift down for the thread's messages.
class HeldShift {
 public:
  HeldShift() { set(0x80); }
  ~HeldShift() { set(0); }

 private:
  static void set(BYTE state) {
    std::array<BYTE, 256> keys{};
    ::GetKeyboardState(keys.data());
    keys[VK_SHIFT] = state;
    ::SetKeyboardState(keys.data());
  }
};

class Edits : public ControlTest {
 protected:
  using Selection = std::pair<DWORD, DWORD>;

  Selection selectionOf(const EditBase& of) const {
    Selection result{};
    of.SendSelfMsg(EM_GETSEL, reinterpret_cast<WPARAM>(&result.first), reinterpret_cast<LPARAM>(&result.second));
    return result;
  }
  GUITHREADINFO caret() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    ::GetGUIThreadInfo(::GetCurrentThreadId(), &info);
    return info;
  }
  // On the screen. It does not blink meanwhile: that would take a message that nobody fetches.
  bool isCaretSeen(const EditBase& of) const {
    ::UpdateWindow(of.GetWnd());
    const RECT place = caret().rcCaret;
    const HDC screen = ::GetDC(of.GetWnd());
    const COLORREF color = ::GetPixel(screen, place.left, (place.top + place.bottom) / 2);
    ::ReleaseDC(of.GetWnd(), screen);
    return color != controls::theme::kSurface;
  }
  std::wstring windowText(const EditBase& of) const {
    std::array<wchar_t, 100> units{};
    const int length = ::GetWindowTextW(of.GetWnd(), units.data(), static_cast<int>(units.size()));
    return {units.data(), static_cast<std::size_t>(length)};
  }
  std::wstring clipboard() const {
    const auto units = controls::copiedText(parent());
    return {units.begin(), units.end()};
  }
  std::vector<WORD> told() {
    std::vector<WORD> result;
    for (const auto& command : takeCommands()) result.push_back(command.what);
    return result;
  }
  void keyWithShift(HWND window, unsigned virtualKey) {
    const HeldShift shift;
    key(window, virtualKey);
  }
  // Text that takes several times the edit's width.
  static std::wstring longText() { return std::wstring(100, L'm'); }

  const qzstd::Rect rect{10, 20, 160, 32};
  const qzstd::Text text{L"abcd"};
  EditBase edit{rect, &text};
};

class MadeEdit : public Edits {
 protected:
  void SetUp() override {
    ASSERT_TRUE(edit.Create(parent()));
    window = edit.GetWnd();
  }

  HWND window = nullptr;
};

TEST_F(MadeEdit, ShowsTheTextItWasMadeWith) {
  EXPECT_EQ(edit.GetWstr(), L"abcd");
  EXPECT_EQ(windowText(edit), L"abcd");
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

TEST_F(MadeEdit, BackspaceAndDeleteErase) {
  type(window, L"\b");
  EXPECT_EQ(edit.GetWstr(), L"abc");
  key(window, VK_HOME);
  key(window, VK_DELETE);
  EXPECT_EQ(edit.GetWstr(), L"bc");
  EXPECT_EQ(told(), (std::vector<WORD>{EN_CHANGE, EN_CHANGE}));
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

TEST_F(MadeEdit, TabInADialogSelectsAll) {
  edit.SetCaretPos(0);
  edit.SendSelfMsg(EM_SETSEL, 0, -1);
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

TEST_F(MadeEdit, MoreOfALongTextIsSeenWhenTheEditGrows) {
  edit.SetWstr(std::wstring(30, L'm'));
  const auto narrow = picture(window);
  edit.Move(0, 0, 560, 32);
  const auto wide = picture(window);
  const auto inked = [](const std::vector<std::uint32_t>& pixels) {
    return std::count_if(pixels.begin(), pixels.end(), [](std::uint32_t color) { return (color & 0xff) < 0x80; });
  };
  EXPECT_GT(inked(wide), inked(narrow) * 2);
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

TEST_F(MadeEdit, EachStateLooksDifferent) {
  std::set<std::vector<std::uint32_t>> pictures{picture(window)};
  moveMouse(window, 5, 5);
  pictures.insert(picture(window));
  edit.SetFocus();
  pictures.insert(picture(window));
  type(window, {kCtrlA});
  pictures.insert(picture(window));
  edit.SetDisable();
  pictures.insert(picture(window));
  EXPECT_EQ(pictures.size(), 5U);
}

TEST_F(MadeEdit, TextHasItsColorAndIsPaleWhenDisabled) {
  edit.SetWstr(longText());
  edit.SetColor(RGB(0, 120, 0));
  EXPECT_TRUE(colors(window).contains(pixel(RGB(0, 120, 0))));
  edit.SetDisable();
  EXPECT_FALSE(colors(window).contains(pixel(RGB(0, 120, 0))));
}

TEST_F(MadeEdit, SelectionIsSeenWhileTheKeyboardIsThere) {
  edit.SetFocus();
  type(window, {kCtrlA});
  const auto accents = [this] {
    const auto pixels = picture(window);
    return std::count(pixels.begin(), pixels.end(), pixel(controls::theme::kAccent));
  };
  const auto selected = accents();
  key(window, VK_END);
  EXPECT_GT(selected, accents() + 100);
}

TEST_F(MadeEdit, LongTextIsNotDrawnOverTheFrame) {
  edit.SetWstr(L"");
  const auto empty = picture(window);
  edit.SetWstr(longText());
  for (const unsigned virtualKey : {VK_HOME, VK_END}) {
    key(window, virtualKey);
    const auto full = picture(window);
    for (std::size_t row = 0; row < 32; ++row)
      for (const std::size_t column : {0, 1, 4, 7, 152, 155, 158, 159})
        ASSERT_EQ(full[row * 160 + column], empty[row * 160 + column]) << row << " " << column;
  }
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
  EXPECT_TRUE(colors(edit.GetWnd()).contains(pixel(RGB(0, 120, 0))));
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
  EXPECT_EQ(windowText(edit), L"later");
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
  const auto isRed = [&] { return colors(address.GetWnd()).contains(pixel(controls::theme::kError)); };
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
  EXPECT_EQ(windowText(password), L"");
  EXPECT_EQ(password.SendSelfMsg(WM_GETTEXTLENGTH, 0, 0), 0);
  EXPECT_EQ(::DefWindowProcW(window, WM_GETTEXT, units.size(), reinterpret_cast<LPARAM>(units.data())), 0);
  ::SetWindowTextW(window, L"other");
  EXPECT_EQ(password.GetWstr(), L"other");
  EXPECT_EQ(windowText(password), L"");
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
