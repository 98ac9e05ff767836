/// What a button draws in each of its states.

#include <algorithm>
#include <map>

#include "controls/ButtonTest.h"
#include "simulator/controls/Drawing.h"

namespace {

using AppWnd::BtnBase;

int distanceOf(std::uint32_t first, std::uint32_t second) {
  int distance = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    distance += std::abs(static_cast<int>(first >> shift & 0xff) - static_cast<int>(second >> shift & 0xff));
  }
  return distance;
}

int nearest(const Pixels& pixels, COLORREF color) {
  const auto wanted = asPixel(color);
  int distance = 3 * 256;
  for (const auto pixel : pixels) distance = std::min(distance, distanceOf(pixel, wanted));
  return distance;
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

// Those with a caption in a color of its own, and those that can be gray.

template <class Button>
class ColoredButton : public ButtonTest {};
using ColoredButtons = testing::Types<AppWnd::BtnLabel, AppWnd::BtnSet>;
TYPED_TEST_SUITE(ColoredButton, ColoredButtons);

TYPED_TEST(ColoredButton, CaptionHasTheColorThatWasSet) {
  constexpr COLORREF kColor = RGB(220, 0, 220);
  TypeParam button(this->kId, this->rect, &this->caption);
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
  TypeParam button(this->kId, this->rect, nullptr);
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
  TypeParam early(this->kId, this->rect, nullptr);
  early.SetGray(true);
  ASSERT_TRUE(early.Create(this->parent()));
  TypeParam later(this->kId, this->rect, nullptr);
  ASSERT_TRUE(later.Create(this->parent()));
  later.SetGray(true);
  EXPECT_EQ(this->pictureOf(early), this->pictureOf(later));
}

TEST_F(ButtonKinds, EachLooksDifferentFromTheOthers) {
  std::map<Pixels, std::string> looks;
  for (const auto& kind : kinds()) {
    const auto button = kind.make(rect, &caption);
    ASSERT_TRUE(button->Create(parent()));
    const auto [place, isNew] = looks.try_emplace(pictureOf(*button), kind.name);
    const bool isRefresh = std::string(kind.name) == "BtnRefreshState";  // as `BtnRefresh` until it is gray
    EXPECT_EQ(isNew, !isRefresh) << kind.name << " looks like " << place->second;
  }
}

}  // namespace
