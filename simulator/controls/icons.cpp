#include "simulator/controls/Icons.h"

#include <array>
#include <cmath>
#include <numbers>

namespace controls {
namespace {

constexpr Point kCenter{8, 8};

// Angles in degrees, from the right, clockwise as the screen has its y axis pointing down.
Point onCircle(Point center, double radius, double angle) {
  const double radians = angle * std::numbers::pi / 180;
  return {center.x + radius * std::cos(radians), center.y + radius * std::sin(radians)};
}

Line arc(Point center, double radius, double from, double to) {
  constexpr int kParts = 32;
  Line line;
  for (int i = 0; i <= kParts; ++i) line.push_back(onCircle(center, radius, from + (to - from) * i / kParts));
  return line;
}

std::vector<Line> gear() {
  std::vector<Line> lines{arc(kCenter, 5, 0, 360), arc(kCenter, 2, 0, 360)};
  for (int angle = 0; angle < 360; angle += 45) lines.push_back({onCircle(kCenter, 5.4, angle), onCircle(kCenter, 7, angle)});
  return lines;
}

std::vector<Line> waves() {
  constexpr Point kSource{8, 12.5};
  return {{kSource}, arc(kSource, 3.6, 226, 314), arc(kSource, 6.9, 226, 314), arc(kSource, 10.2, 226, 314)};
}

struct Drawing {
  Icon icon;
  std::vector<Line> lines;
};

std::array<Drawing, 12> drawings() {
  return {{
      {Icon::kNone, {}},
      {Icon::kPlus, {{{8, 2.5}, {8, 13.5}}, {{2.5, 8}, {13.5, 8}}}},
      {Icon::kGear, gear()},
      {Icon::kCross, {{{3.5, 3.5}, {12.5, 12.5}}, {{12.5, 3.5}, {3.5, 12.5}}}},
      {Icon::kDash, {{{3, 8}, {13, 8}}}},
      {Icon::kRefresh, {arc(kCenter, 5.5, 0, 315), {{12, 0.9}, {12, 4.1}, {8.8, 4.1}}}},
      {Icon::kWaves, waves()},
      {Icon::kArrowLeft, {{{13.5, 8}, {2.5, 8}}, {{7, 3.5}, {2.5, 8}, {7, 12.5}}}},
      {Icon::kArrowRightRound, {arc(kCenter, 7, 0, 360), {{4.5, 8}, {11.5, 8}}, {{8.5, 5}, {11.5, 8}, {8.5, 11}}}},
      {Icon::kChevronRight, {{{6, 3.5}, {10.5, 8}, {6, 12.5}}}},
      {Icon::kChevronDown, {{{3.5, 6}, {8, 10.5}, {12.5, 6}}}},
      {Icon::kTick, {{{3.5, 8.5}, {6.5, 11.5}, {12.5, 4.8}}}},
  }};
}

}  // namespace

const std::vector<Line>& iconLines(Icon icon) {
  // Never destroyed: a control may be drawn for the last time while the process ends.
  static const auto& all = *new std::array<Drawing, 12>(drawings());
  for (const auto& drawing : all) {
    if (drawing.icon == icon) return drawing.lines;
  }
  return all.front().lines;
}

}  // namespace controls
