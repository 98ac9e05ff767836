#include "simulator/controls/Drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

#include "simulator/controls/Gdi.h"

namespace controls {
namespace {

constexpr COLORREF kGround = RGB(255, 255, 255);
constexpr COLORREF kInk = RGB(0, 0, 0);
constexpr int kSide = 40;

class DrawingTest : public testing::Test {
 protected:
  DrawingTest() {
    const RECT all{0, 0, kSide, kSide};
    fill(dc(), all, kGround);
  }

  HDC dc() const { return m_dc.get(); }
  COLORREF at(int x, int y) const { return ::GetPixel(dc(), x, y); }
  std::vector<COLORREF> all() const {
    std::vector<COLORREF> pixels;
    for (int i = 0; i < kSide * kSide; ++i) pixels.push_back(at(i % kSide, i / kSide));
    return pixels;
  }
  bool isUntouched() const {
    const auto pixels = all();
    return std::ranges::all_of(pixels, [](COLORREF pixel) { return pixel == kGround; });
  }

 private:
  static HBITMAP newBitmap(HDC dc) {
    BITMAPINFO description{{sizeof(BITMAPINFOHEADER), kSide, -kSide, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    void* bits = nullptr;
    return ::CreateDIBSection(dc, &description, DIB_RGB_COLORS, &bits, nullptr, 0);
  }

  const GdiContext m_dc{::CreateCompatibleDC(nullptr)};
  const Gdi<HBITMAP> m_bitmap{newBitmap(m_dc.get())};
  const Selected m_selected{m_dc.get(), m_bitmap.get()};
};

TEST_F(DrawingTest, RoundBoxHasItsFillingItsBorderAndSmoothCorners) {
  constexpr COLORREF kFilling = RGB(10, 120, 200);
  fillRound(dc(), {4, 4, 36, 36}, 8, kFilling, kInk);
  EXPECT_EQ(at(20, 20), kFilling);
  EXPECT_EQ(at(4, 20), kInk);
  EXPECT_EQ(at(20, 35), kInk);
  EXPECT_EQ(at(3, 20), kGround);
  EXPECT_EQ(at(20, 36), kGround);
  EXPECT_EQ(at(4, 4), kGround);
  const auto pixels = all();
  EXPECT_TRUE(std::ranges::any_of(pixels, [](COLORREF pixel) {
    return GetRValue(pixel) > 40 && GetRValue(pixel) < 215 && GetRValue(pixel) == GetBValue(pixel);
  })) << "no pixel between the border and the ground";
}

TEST_F(DrawingTest, GradualBoxGoesFromOneColorToTheOther) {
  fillRoundGradual(dc(), {0, 0, kSide, kSide}, 0, RGB(200, 0, 0), RGB(0, 0, 200));
  EXPECT_GT(GetRValue(at(20, 1)), 180);
  EXPECT_GT(GetBValue(at(20, kSide - 2)), 180);
  for (int y = 1; y < kSide; ++y) EXPECT_LE(GetRValue(at(20, y)), GetRValue(at(20, y - 1))) << y;
}

TEST_F(DrawingTest, FrameLeavesItsInsideAlone) {
  frameRound(dc(), {0, 0, kSide, kSide}, 0, kInk, 2);
  EXPECT_EQ(at(0, 20), kInk);
  EXPECT_EQ(at(1, 20), kInk);
  EXPECT_EQ(at(2, 20), kGround);
  EXPECT_EQ(at(20, 20), kGround);
}

TEST_F(DrawingTest, EllipseReachesItsAreasSides) {
  fillEllipse(dc(), {10, 10, 30, 30}, kInk, kInk);
  EXPECT_EQ(at(20, 20), kInk);
  EXPECT_LT(GetRValue(at(20, 10)), 80);
  EXPECT_EQ(at(20, 9), kGround);
  EXPECT_EQ(at(10, 10), kGround);
}

TEST_F(DrawingTest, StraightLinesAreCrispInAnyWidth) {
  const POINT points[] = {{5, 10}, {30, 10}};
  for (const int width : {1, 2, 3}) {
    fill(dc(), {0, 0, kSide, kSide}, kGround);
    drawLines(dc(), points, 2, kInk, width);
    int dark = 0;
    for (int y = 0; y < kSide; ++y) {
      EXPECT_TRUE(at(20, y) == kInk || at(20, y) == kGround) << width << ", " << y;
      dark += at(20, y) == kInk ? 1 : 0;
    }
    EXPECT_EQ(dark, width);
  }
}

TEST_F(DrawingTest, IconsDifferAndStayInTheirArea) {
  std::map<std::vector<COLORREF>, int> pictures;
  for (int icon = 0; icon <= static_cast<int>(Icon::kTick); ++icon) {
    fill(dc(), {0, 0, kSide, kSide}, kGround);
    drawIcon(dc(), {8, 8, 32, 32}, static_cast<Icon>(icon), kInk);
    EXPECT_TRUE(pictures.try_emplace(all(), icon).second) << icon;
    for (int i = 0; i < kSide; ++i) EXPECT_TRUE(at(i, 7) == kGround && at(i, 32) == kGround && at(7, i) == kGround) << icon;
  }
}

TEST_F(DrawingTest, AreaWithoutPixelsIsLeftAlone) {
  for (const RECT& area : {RECT{10, 10, 10, 30}, RECT{10, 10, 30, 10}, RECT{30, 30, 10, 10}}) {
    fillRound(dc(), area, 4, kInk, kInk);
    fillRoundGradual(dc(), area, 4, kInk, kInk);
    frameRound(dc(), area, 4, kInk);
    fillEllipse(dc(), area, kInk, kInk);
    drawIcon(dc(), area, Icon::kGear, kInk);
  }
  drawLines(dc(), nullptr, 0, kInk);
  EXPECT_TRUE(isUntouched());
}

TEST_F(DrawingTest, LongerTextsAreWider) {
  EXPECT_EQ(textSize(dc(), L"").cx, 0);
  EXPECT_GT(textSize(dc(), L"printers").cx, textSize(dc(), L"printer").cx);
  EXPECT_GT(textSize(dc(), L"printer", font(30)).cy, textSize(dc(), L"printer").cy);
}

TEST(Colors, TextIsDarkOnLightGroundsAndLightOnDarkOnes) {
  EXPECT_EQ(readableOn(theme::kGround), theme::kText);
  EXPECT_EQ(readableOn(theme::kSurface), theme::kText);
  EXPECT_EQ(readableOn(RGB(250, 220, 120)), theme::kText);
  EXPECT_EQ(readableOn(theme::kAccent), theme::kOnAccent);
  EXPECT_EQ(readableOn(theme::kError), theme::kOnAccent);
}

}  // namespace
}  // namespace controls
