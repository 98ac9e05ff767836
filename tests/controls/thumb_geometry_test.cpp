#include "simulator/controls/ThumbGeometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using controls::ScrollRange;

constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();

TEST(ThumbGeometry, ThumbIsThatPartOfTheBarThatIsSeen) {
  struct Case {
    const char* what;
    ScrollRange range;
    int bar;
    int size;
  };
  const Case cases[] = {
      {"half", {0, 100, 50, 0}, 200, 100},
      {"small, but to be held", {0, 10000, 1, 0}, 200, 24},
      {"never longer than the bar", {0, 10000, 1, 0}, 20, 20},
      {"all is seen", {0, 100, 100, 0}, 200, 200},
      {"nothing to scroll", {0, 0, 0, 0}, 200, 200},
      {"greatest numbers", {0, kMost, kMost / 2, 0}, 1000, 500},
      {"no bar", {0, 100, 50, 0}, 0, 0},
  };
  for (const auto& [what, range, bar, size] : cases) EXPECT_EQ(controls::thumbSize(range, bar), size) << what;
}

TEST(ThumbGeometry, PlaceAndPositionGoTogether) {
  struct Case {
    std::int32_t position;
    std::int32_t last;
    int way;
    int place;
  };
  const Case cases[] = {{0, 100, 300, 0},           {50, 100, 300, 150}, {100, 100, 300, 300}, {1, 2, 101, 51},
                        {kMost, kMost, 1000, 1000}, {3, 0, 300, 0},      {50, 100, 0, 0}};
  for (const auto& [position, last, way, place] : cases) {
    EXPECT_EQ(controls::thumbPlace(position, last, way), place);
  }
  EXPECT_EQ(controls::thumbPlace(101, 100, 300), 300);
  EXPECT_EQ(controls::thumbPlace(-1, 100, 300), 0);
}

TEST(ThumbGeometry, PositionIsTheNearestOne) {
  EXPECT_EQ(controls::thumbPosition(150, 100, 300), 50);
  EXPECT_EQ(controls::thumbPosition(151, 100, 300), 50);
  EXPECT_EQ(controls::thumbPosition(152, 100, 300), 51);
  EXPECT_EQ(controls::thumbPosition(-7, 100, 300), 0);
  EXPECT_EQ(controls::thumbPosition(999, 100, 300), 100);
  EXPECT_EQ(controls::thumbPosition(1000, kMost, 1000), kMost);
  EXPECT_EQ(controls::thumbPosition(5, 100, 0), 0);
  EXPECT_EQ(controls::thumbPosition(5, 0, 300), 0);
}

TEST(ThumbGeometry, EveryPositionIsFoundAgainWhereThereAreAsManyPixels) {
  for (std::int32_t position = 0; position <= 100; ++position)
    EXPECT_EQ(controls::thumbPosition(controls::thumbPlace(position, 100, 173), 100, 173), position);
}

TEST(ThumbGeometry, RangeIsPutRight) {
  const std::pair<ScrollRange, ScrollRange> ranges[] = {
      {{0, 100, 10, 50}, {0, 100, 10, 50}},
      {{0, 100, 10, 95}, {0, 100, 10, 90}},
      {{0, 100, 10, -1}, {0, 100, 10, 0}},
      {{0, 100, 200, 50}, {0, 100, 100, 0}},
      {{0, -5, 10, 50}, {0, 0, 0, 0}},
      {{0, 100, -10, 50}, {0, 100, 0, 50}},
      {{7, kMost, 0, kMost}, {7, kMost, 0, kMost}},
      {{0, kLeast, kLeast, kLeast}, {0, 0, 0, 0}},
  };
  for (const auto& [given, wanted] : ranges) {
    const auto range = controls::valid(given);
    EXPECT_EQ(range.first, wanted.first);
    EXPECT_EQ(range.length, wanted.length);
    EXPECT_EQ(range.page, wanted.page);
    EXPECT_EQ(range.position, wanted.position);
  }
}

}  // namespace
