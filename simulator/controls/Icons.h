#pragma once

#include <vector>

#include "simulator/controls/Shapes.h"

/// The signs on the controls, as lines.
namespace controls {

enum class Icon {
  kNone,
  kPlus,
  kGear,
  kCross,
  kDash,
  kRefresh,
  kWaves,
  kArrowLeft,
  kArrowRightRound,
  kChevronRight,
  kChevronDown,
  kTick,
};

/// The lines of an icon, in a box of `kIconGrid` by `kIconGrid` with its upper left corner at (0, 0).
inline constexpr double kIconGrid = 16;
const std::vector<Line>& iconLines(Icon icon);

}  // namespace controls
