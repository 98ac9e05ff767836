/// What an edit draws.

#include <algorithm>

#include "controls/EditTest.h"
#include "simulator/controls/Drawing.h"

namespace {

TEST_F(MadeEdit, MoreOfALongTextIsSeenWhenTheEditGrows) {
  edit.SetWstr(std::wstring(30, L'm'));
  const auto narrow = picture(window);
  edit.Move(0, 0, 560, 32);
  const auto wide = picture(window);
  const auto inked = [](const Pixels& pixels) {
    return std::count_if(pixels.begin(), pixels.end(), [](std::uint32_t color) { return (color & 0xff) < 0x80; });
  };
  EXPECT_GT(inked(wide), inked(narrow) * 2);
}

TEST_F(MadeEdit, EachStateLooksDifferent) {
  std::set<Pixels> pictures{picture(window)};
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
  EXPECT_TRUE(colors(window).contains(asPixel(RGB(0, 120, 0))));
  edit.SetDisable();
  EXPECT_FALSE(colors(window).contains(asPixel(RGB(0, 120, 0))));
}

TEST_F(MadeEdit, SelectionIsSeenWhileTheKeyboardIsThere) {
  edit.SetFocus();
  type(window, {kCtrlA});
  const auto accents = [this] {
    const auto pixels = picture(window);
    return std::count(pixels.begin(), pixels.end(), asPixel(controls::theme::kAccent));
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

}  // namespace
