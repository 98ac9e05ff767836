#include "simulator/controls/Shapes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace controls {
namespace {

TEST(Shapes, DistanceToALineIsToItsNearestPart) {
  const Line corner{{0, 0}, {10, 0}, {10, 10}};
  EXPECT_DOUBLE_EQ(distanceToLine({5, 3}, corner), 3);
  EXPECT_DOUBLE_EQ(distanceToLine({12, 8}, corner), 2);
  EXPECT_DOUBLE_EQ(distanceToLine({-3, -4}, corner), 5) << "beyond its end";
}

TEST(Shapes, LineOfOnePointIsADot) { EXPECT_DOUBLE_EQ(distanceToLine({3, 4}, {{0, 0}}), 5); }

TEST(Shapes, LineWithoutPointsIsNowhere) { EXPECT_TRUE(std::isinf(distanceToLine({3, 4}, {}))); }

TEST(Shapes, BoxWithSquareCornersEndsAtItsSides) {
  EXPECT_DOUBLE_EQ(distanceToRound({0.5, 10}, 40, 20, 0), -0.5);
  EXPECT_DOUBLE_EQ(distanceToRound({41, 10}, 40, 20, 0), 1);
  EXPECT_DOUBLE_EQ(distanceToRound({20, 10}, 40, 20, 0), -10);
  EXPECT_DOUBLE_EQ(distanceToRound({-3, -4}, 40, 20, 0), 5);
}

TEST(Shapes, RoundCornerIsCutOff) {
  EXPECT_GT(distanceToRound({0.5, 0.5}, 40, 20, 6), 0.5) << "the corner's own pixel is outside";
  EXPECT_DOUBLE_EQ(distanceToRound({6, 0.5}, 40, 20, 6), -0.5) << "the side is where it was";
}

TEST(Shapes, RadiusIsAtMostHalfOfTheShorterSideAndAtLeastNothing) {
  EXPECT_DOUBLE_EQ(distanceToRound({1, 1}, 40, 20, 99), distanceToRound({1, 1}, 40, 20, 10));
  EXPECT_DOUBLE_EQ(distanceToRound({1, 1}, 40, 20, -5), distanceToRound({1, 1}, 40, 20, 0));
}

TEST(Shapes, CircleIsExact) {
  EXPECT_DOUBLE_EQ(distanceToEllipse({8, 4}, 16, 16), -4);
  EXPECT_DOUBLE_EQ(distanceToEllipse({8, -2}, 16, 16), 2);
  EXPECT_DOUBLE_EQ(distanceToEllipse({8, 8}, 16, 16), -8);
}

TEST(Shapes, EllipseEndsAtTheMiddleOfItsSides) {
  EXPECT_NEAR(distanceToEllipse({0, 5}, 30, 10), 0, 1e-9);
  EXPECT_NEAR(distanceToEllipse({15, 10}, 30, 10), 0, 1e-9);
  EXPECT_LT(distanceToEllipse({14, 5}, 30, 10), 0);
  EXPECT_GT(distanceToEllipse({1, 1}, 30, 10), 0);
}

TEST(Shapes, PixelAtTheEdgeIsCoveredByHalf) {
  EXPECT_EQ(coverage(0), 0.5);
  EXPECT_EQ(coverage(-0.5), 1);
  EXPECT_EQ(coverage(0.5), 0);
  EXPECT_EQ(coverage(-100), 1);
  EXPECT_EQ(coverage(100), 0);
}

}  // namespace
}  // namespace controls
