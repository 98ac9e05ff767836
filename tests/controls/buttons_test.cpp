#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <ostream>

#include "Controls.h"
#include "controls/ControlTest.h"
#include "simulator/controls/Drawing.h"

namespace {

using AppWnd::BtnBase;
using Pixels = std::vector<std::uint32_t>;

constexpr std::int32_t kId = 42;

template <class Button>
std::unique_ptr<BtnBase> make(const qzstd::Rect& rect, const qzstd::Text* text) {
  return std::make_unique<Button>(kId, rect, text);
}

struct Kind {
  const char* name;
  std::unique_ptr<BtnBase> (*make)(const qzstd::Rect& rect, const qzstd::Text* text);
  bool clickTurnsOver = false;
  bool clickSets = false;
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }

#define KIND(Name) #Name, make < AppWnd::Name>
constexpr Kind kKinds[] = {
    {KIND(BtnBase)},
    {KIND(BtnAddPrinter)},
    {KIND(BtnBorder)},
    {KIND(BtnCfg)},
    {KIND(BtnCls)},
    {KIND(BtnExpand)},
    {KIND(BtnGradual)},
    {KIND(BtnLabel)},
    {KIND(BtnMin)},
    {KIND(BtnNew)},
    {KIND(BtnRefresh)},
    {KIND(BtnRefreshState)},
    {KIND(BtnReturn)},
    {KIND(BtnRoundArrow)},
    {KIND(BtnSet)},
    {KIND(BtnSetWifi)},
    {KIND(BtnCheck), true},
    {KIND(BtnRadio), false, true},
    {KIND(BtnRadioRound), false, true},
};
#undef KIND
static_assert(std::size(kKinds) == 19);

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

std::wstring textOf(HWND window) {
  wchar_t text[64]{};
  ::GetWindowTextW(window, text, 64);
  return text;
}

int distanceOf(std::uint32_t first, std::uint32_t second) {
  int distance = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    distance += std::abs(static_cast<int>(first >> shift & 0xff) - static_cast<int>(second >> shift & 0xff));
  }
  return distance;
}

std::uint32_t asPixel(COLORREF color) {
  return static_cast<std::uint32_t>(GetRValue(color) << 16 | GetGValue(color) << 8 | GetBValue(color));
}

int nearest(const Pixels& pixels, COLORREF color) {
  const auto wanted = asPixel(color);
  int distance = 3 * 256;
  for (const auto pixel : pixels) distance = std::min(distance, distanceOf(pixel, wanted));
  return distance;
}

class ButtonTest : public ControlTest {
 protected:
  Pixels pictureOf(BtnBase& button) { return picture(button.GetWnd()); }

  const qzstd::Rect rect{10, 20, 120, 32};
  const qzstd::Text caption{L"caption"};
};

class EachButton : public ButtonTest, public testing::WithParamInterface<Kind> {
 protected:
  std::unique_ptr<BtnBase> newButton(const qzstd::Text* text) { return GetParam().make(rect, text); }

  void SetUp() override { ASSERT_TRUE(button->Create(parent())); }

  const std::unique_ptr<BtnBase> button = newButton(&caption);
};

INSTANTIATE_TEST_SUITE_P(Buttons, EachButton, testing::ValuesIn(kKinds), [](const auto& kind) { return kind.param.name; });

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

TEST_P(EachButton, EachStateLooksDifferent) {
  const HWND window = button->GetWnd();
  std::map<Pixels, std::string> looks;
  const auto look = [&](const std::string& state) {
    const auto [place, isNew] = looks.try_emplace(pictureOf(*button), state);
    EXPECT_TRUE(isNew) << state << " looks like " << place->second;
  };
  look("at rest");
  moveMouse(window, 5, 5);
  look("under the mouse");
  ::SendMessageW(window, WM_KEYDOWN, VK_SPACE, 1);
  look("pressed");
  ::SendMessageW(window, WM_KEYUP, VK_SPACE, 1);
  ::SendMessageW(window, WM_MOUSELEAVE, 0, 0);
  ::SetFocus(window);
  look("with the keyboard");
  ::SetFocus(parent());
  button->SetClick(true);
  look("on");
  button->SetEnable(false);
  look("on and disabled");
  button->SetClick(false);
  look("disabled");
}

TEST_P(EachButton, DisabledIsPaler) {
  const auto contrast = [&] {
    const auto pixels = pictureOf(*button);
    const auto ground = pixels.front();  // the corner is round, so that the parent's ground is there
    int sum = 0;
    for (const auto pixel : pixels) sum += distanceOf(pixel, ground);
    return sum;
  };
  const int enabled = contrast();
  button->SetEnable(false);
  EXPECT_LT(contrast(), enabled * 3 / 4);
}

TEST_P(EachButton, DrawsNothingOutsideItsArea) {
  constexpr int kMargin = 8;
  button->SetText({L"A caption that is much too long for the button that it stands on"});
  ::SetFocus(button->GetWnd());
  const auto pixels = picture(button->GetWnd(), kMargin);
  const int width = rect.width + 2 * kMargin;
  const int height = rect.height + 2 * kMargin;
  for (int i = 0; i < width * height; ++i) {
    const int x = i % width - kMargin;
    const int y = i / width - kMargin;
    const bool inside = x >= 0 && x < rect.width && y >= 0 && y < rect.height;
    ASSERT_EQ(pixels[static_cast<std::size_t>(i)] == kUntouched, !inside) << x << ", " << y;
  }
}

TEST_P(EachButton, GroundThatWasSetIsThere) {
  constexpr COLORREF kColor = RGB(10, 200, 30);
  ASSERT_GT(nearest(pictureOf(*button), kColor), 100);
  button->SetBgColor(kColor);
  EXPECT_LT(nearest(pictureOf(*button), kColor), 12) << "a shade of it, where it has two";
}

TEST_P(EachButton, CaptionIsReadableOnDarkGroundsToo) {
  button->SetBgColor(RGB(20, 24, 30));
  const auto pixels = pictureOf(*button);
  Pixels middle;  // where there is neither a corner with the parent's light ground nor a box
  for (int y = 8; y < 24; ++y) {
    const auto row = pixels.begin() + y * rect.width;
    middle.insert(middle.end(), row + 40, row + 110);
  }
  EXPECT_LT(nearest(middle, RGB(255, 255, 255)), 90);
}

TEST_P(EachButton, CaptionIsTheWindowsText) {
  EXPECT_EQ(textOf(button->GetWnd()), L"caption");
  button->SetText({L"another"});
  EXPECT_EQ(textOf(button->GetWnd()), L"another");
}

TEST_P(EachButton, CaptionIsDrawnHoweverItWasSet) {
  const auto before = pictureOf(*button);
  ::SetWindowTextW(button->GetWnd(), L"another");
  const auto after = pictureOf(*button);
  EXPECT_NE(after, before);
  button->SetText({L"caption"});
  EXPECT_EQ(pictureOf(*button), before);
  button->SetText({L"another"});
  EXPECT_EQ(pictureOf(*button), after);
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
  RECT place{};
  ::GetWindowRect(early->GetWnd(), &place);
  ::MapWindowPoints(nullptr, parent(), reinterpret_cast<POINT*>(&place), 2);
  EXPECT_EQ(place.top, 77);
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

TEST_P(EachButton, DoesWithoutACaption) {
  const auto silent = newButton(nullptr);
  ASSERT_TRUE(silent->Create(parent()));
  EXPECT_EQ(textOf(silent->GetWnd()), L"");
  EXPECT_NE(pictureOf(*silent), pictureOf(*button));
}

TEST_P(EachButton, DrawsInAnyArea) {
  for (const int side : {0, 1, 2, 5, 11}) {
    ::SetWindowPos(button->GetWnd(), nullptr, 0, 0, side, side, SWP_NOMOVE | SWP_NOZORDER);
    ::SetFocus(button->GetWnd());
    EXPECT_EQ(pictureOf(*button).size(), static_cast<std::size_t>(side * side));
  }
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
  RECT place{};
  ::GetWindowRect(button->GetWnd(), &place);
  ::MapWindowPoints(nullptr, parent(), reinterpret_cast<POINT*>(&place), 2);
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

// Those with a caption in a color of its own, and those that can be gray.

template <class Button>
class ColoredButton : public ButtonTest {};
using ColoredButtons = testing::Types<AppWnd::BtnLabel, AppWnd::BtnSet>;
TYPED_TEST_SUITE(ColoredButton, ColoredButtons);

TYPED_TEST(ColoredButton, CaptionHasTheColorThatWasSet) {
  constexpr COLORREF kColor = RGB(220, 0, 220);
  TypeParam button(kId, this->rect, &this->caption);
  button.SetColor(RGB(1, 1, 1));
  ASSERT_TRUE(button.Create(this->parent()));
  ASSERT_GT(nearest(this->pictureOf(button), kColor), 150);
  ::ValidateRect(button.GetWnd(), nullptr);
  button.SetColor(kColor);
  EXPECT_TRUE(::GetUpdateRect(button.GetWnd(), nullptr, FALSE));
  EXPECT_LT(nearest(this->pictureOf(button), kColor), 60);
  button.Destroy();
  button.SetColor(0);
}

template <class Button>
class GrayButton : public ButtonTest {};
using GrayButtons = testing::Types<AppWnd::BtnRefreshState, AppWnd::BtnSetWifi>;
TYPED_TEST_SUITE(GrayButton, GrayButtons);

TYPED_TEST(GrayButton, LooksDifferentAndCanBePressed) {
  TypeParam button(kId, this->rect, nullptr);
  EXPECT_FALSE(button.GetGray());
  ASSERT_TRUE(button.Create(this->parent()));
  const auto colored = this->pictureOf(button);
  ::ValidateRect(button.GetWnd(), nullptr);
  button.SetGray(true);
  EXPECT_TRUE(::GetUpdateRect(button.GetWnd(), nullptr, FALSE));
  EXPECT_TRUE(button.GetGray());
  EXPECT_NE(this->pictureOf(button), colored);
  EXPECT_GT(nearest(this->pictureOf(button), controls::theme::kAccent), 60);
  this->click(button.GetWnd());
  EXPECT_EQ(this->takeCommands().size(), 1U);
  EXPECT_TRUE(button.GetGray());
}

TYPED_TEST(GrayButton, IsGrayFromTheStartWhenToldSo) {
  TypeParam early(kId, this->rect, nullptr);
  early.SetGray(true);
  ASSERT_TRUE(early.Create(this->parent()));
  TypeParam later(kId, this->rect, nullptr);
  ASSERT_TRUE(later.Create(this->parent()));
  later.SetGray(true);
  EXPECT_EQ(this->pictureOf(early), this->pictureOf(later));
}

class ButtonKinds : public ButtonTest {};

TEST_F(ButtonKinds, EachLooksDifferentFromTheOthers) {
  std::map<Pixels, std::string> looks;
  for (const auto& kind : kKinds) {
    const auto button = kind.make(rect, &caption);
    ASSERT_TRUE(button->Create(parent()));
    const auto [place, isNew] = looks.try_emplace(pictureOf(*button), kind.name);
    const bool isRefresh = std::string(kind.name) == "BtnRefreshState";  // as `BtnRefresh` until it is gray
    EXPECT_EQ(isNew, !isRefresh) << kind.name << " looks like " << place->second;
  }
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
  LastButton(const qzstd::Rect& rect, const qzstd::Text& text)
      : memory(::VirtualAlloc(nullptr, sizeof(AppWnd::BtnCls), MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)),
        button(new (memory) AppWnd::BtnCls(kId, rect, &text)) {}
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
  LastButton button(rect, caption);
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
