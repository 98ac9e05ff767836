#include "console/Progress.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using examples::renderBar;

TEST(ProgressTest, PercentageIsABar) {
  EXPECT_EQ(renderBar(L"firmware upgrade", 0, 0ms, 79),
            L"firmware upgrade  [........................................] 0 %, 0.0 s");
  EXPECT_EQ(renderBar(L"firmware upgrade", 42, 1999ms, 79),
            L"firmware upgrade  [################........................] 42 %, 1.9 s");
  EXPECT_EQ(renderBar(L"firmware upgrade", 100, 60s, 79),
            L"firmware upgrade  [########################################] 100 %, 60.0 s");
}

TEST(ProgressTest, BarIsNeverLongerThanItsFrame) {
  EXPECT_EQ(renderBar(L"x", -5, 0ms, 79), L"x  [........................................] -5 %, 0.0 s");
  EXPECT_EQ(renderBar(L"x", 2147483647, 0ms, 79), L"x  [########################################] 2147483647 %, 0.0 s");
}

TEST(ProgressTest, NarrowWindowHasAShorterBarOrNone) {
  EXPECT_EQ(renderBar(L"x", 50, 0ms, 27), L"x  [#####.....] 50 %, 0.0 s");
  EXPECT_EQ(renderBar(L"x", 50, 0ms, 26), L"x  50 %, 0.0 s");
  for (std::size_t width = 1; width < 100; ++width) {
    EXPECT_LE(renderBar(L"firmware upgrade", 50, 100h, width).size(), width);
    EXPECT_LE(renderBar(L"wifi list", {}, 100h, width).size(), width);
  }
}

TEST(ProgressTest, WithoutAPercentageThereIsTheTime) {
  EXPECT_EQ(renderBar(L"wifi list", {}, 1500ms, 79), L"wifi list  1.5 s");
}

TEST(ProgressTest, LineHasNoBar) {
  EXPECT_EQ(examples::renderProgress(L"firmware upgrade", 42, 1999ms), L"firmware upgrade  42 %, 1.9 s");
  EXPECT_EQ(examples::renderProgress(L"wifi list", {}, 1500ms), L"wifi list  1.5 s");
}

}  // namespace
