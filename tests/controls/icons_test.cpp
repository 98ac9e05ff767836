#include "simulator/controls/Icons.h"

#include <gtest/gtest.h>

namespace controls {
namespace {

constexpr Icon kIcons[] = {Icon::kPlus,         Icon::kGear,        Icon::kCross,     Icon::kDash,
                           Icon::kRefresh,      Icon::kWaves,       Icon::kArrowLeft, Icon::kArrowRightRound,
                           Icon::kChevronRight, Icon::kChevronDown, Icon::kTick};
static_assert(std::size(kIcons) == static_cast<std::size_t>(Icon::kTick));

TEST(Icons, EachHasLinesWithinItsBox) {
  for (const Icon icon : kIcons) {
    SCOPED_TRACE(static_cast<int>(icon));
    EXPECT_FALSE(iconLines(icon).empty());
    for (const auto& line : iconLines(icon)) {
      EXPECT_FALSE(line.empty());
      for (const auto [x, y] : line) {
        EXPECT_TRUE(x >= 0.8 && x <= kIconGrid - 0.8 && y >= 0.8 && y <= kIconGrid - 0.8) << x << ", " << y;
      }
    }
  }
}

TEST(Icons, NoneHasNoLines) { EXPECT_TRUE(iconLines(Icon::kNone).empty()); }

TEST(Icons, EachIsItsOwn) {
  for (const Icon icon : kIcons) {
    for (const Icon other : kIcons) EXPECT_EQ(&iconLines(icon) == &iconLines(other), icon == other);
  }
}

}  // namespace
}  // namespace controls
