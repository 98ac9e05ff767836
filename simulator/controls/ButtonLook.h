#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "AppWindow.h"
#include "simulator/controls/Icons.h"

/// How the buttons differ from each other, and how they are drawn.
namespace controls {

enum class Ground {
  kFace,     ///< filled and framed
  kFrame,    ///< framed
  kFilled,   ///< in the accent color
  kGradual,  ///< in two shades of it
  kQuiet,    ///< seen only while something happens to the button
  kNone,     ///< never seen
};

enum class Mark { kIcon, kBox, kRadio };

enum class OnClick { kNothing, kTurnOver, kSet };

struct ButtonLook {
  Ground ground = Ground::kFace;
  Mark mark = Mark::kIcon;
  Icon icon = Icon::kNone;
  Icon iconWhenOn = Icon::kNone;  ///< none: the same
  Icon iconAtEnd = Icon::kNone;   ///< behind the caption, at the right edge
  bool centered = true;           ///< else what it shows begins at the left edge
  bool accented = false;          ///< what it shows has the accent color
  bool bold = false;
  bool link = false;   ///< underlined while something happens to it
  bool entry = false;  ///< marked at the left edge while it is on
  bool round = false;  ///< its ends are half circles
  bool warns = false;  ///< red while something happens to it
  OnClick onClick = OnClick::kNothing;
};

/// What an application told a button.
struct ButtonFace {
  ButtonLook look;
  std::wstring text{};
  bool on = false;
  bool gray = false;
  std::optional<COLORREF> background{};
  std::optional<COLORREF> ink{};  ///< the color of the caption
};

/// Over the ground of the parent, which the area has. `flags` as in `Flag`.
void drawButton(HDC dc, const RECT& area, const ButtonFace& face, std::uint32_t flags);

}  // namespace controls
