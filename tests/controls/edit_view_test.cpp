#include "simulator/controls/EditView.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using controls::Edges;

const Edges kTenEach{0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100};

TEST(EditView, ShiftKeepsTheCaretInSight) {
  struct Case {
    const char* what;
    int shift;
    std::size_t caret;
    int room;
    int result;
  };
  const Case cases[] = {
      {"all fits", 0, 10, 100, 0},
      {"all fits after text was erased", 30, 10, 100, 0},
      {"caret is seen: stays", 30, 5, 40, 30},
      {"caret right of it", 0, 6, 40, 20},
      {"caret at the end", 0, 10, 40, 60},
      {"caret left of it: some text before it, too", 50, 4, 40, 30},
      {"caret at the beginning", 50, 0, 40, 0},
      {"no room left unused", 90, 10, 40, 60},
      {"no room at all", 0, 5, 0, 50},
  };
  for (const auto& [what, shift, caret, room, result] : cases)
    EXPECT_EQ(controls::shiftedTo(shift, kTenEach, caret, room), result) << what;
}

TEST(EditView, EmptyLineIsNotShifted) { EXPECT_EQ(controls::shiftedTo(20, {0}, 0, 40), 0); }

TEST(EditView, ShiftNeverHidesTheCaret) {
  for (int room = 1; room < 120; ++room)
    for (int shift = 0; shift <= 100; ++shift)
      for (std::size_t caret = 0; caret < kTenEach.size(); ++caret) {
        const int place = kTenEach[caret] - controls::shiftedTo(shift, kTenEach, caret, room);
        ASSERT_TRUE(place >= 0 && place <= room) << room << " " << shift << " " << caret;
      }
}

TEST(EditView, NearestPlaceIsWhereOneClicks) {
  const std::pair<int, std::size_t> clicks[] = {
      {std::numeric_limits<int>::min(), 0}, {-5, 0}, {0, 0}, {4, 0}, {5, 1}, {14, 1}, {15, 2}, {96, 10}, {100, 10}, {500, 10},
      {std::numeric_limits<int>::max(), 10}};
  for (const auto& [x, place] : clicks) EXPECT_EQ(controls::nearestPlace(kTenEach, x), place) << x;
  EXPECT_EQ(controls::nearestPlace({0}, 7), 0U);
}

}  // namespace
