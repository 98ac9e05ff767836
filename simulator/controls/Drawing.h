#pragma once

#include <string>

#include "AppWindow.h"
#include "simulator/controls/Icons.h"

/// Drawing with the platform's own means, and the colors and measures that all controls share.
namespace controls {

namespace theme {
inline constexpr COLORREF kGround = RGB(247, 248, 250);
inline constexpr COLORREF kSurface = RGB(255, 255, 255);
inline constexpr COLORREF kText = RGB(32, 36, 44);
inline constexpr COLORREF kPaleText = RGB(112, 120, 132);  // still readable on the ground: contrast above 4
inline constexpr COLORREF kAccent = RGB(24, 98, 190);
inline constexpr COLORREF kOnAccent = RGB(255, 255, 255);
inline constexpr COLORREF kBorder = RGB(168, 176, 188);
inline constexpr COLORREF kError = RGB(184, 32, 40);
inline constexpr int kPaleShare = 52;  // percent of the ground in what is not enabled
inline constexpr int kRadius = 6;
inline constexpr int kFontHeight = 15;  // pixels of the character cell without what lies above it
}  // namespace theme

/// `share` percent of `other`, the rest of `color`.
COLORREF mixed(COLORREF color, COLORREF other, int share);

/// The text color, dark or light, that can be read on `ground`.
COLORREF readableOn(COLORREF ground);

/// A font of the application, made once and kept for the process. `height` in pixels.
HFONT font(int height = theme::kFontHeight, bool bold = false);

void fill(HDC dc, const RECT& area, COLORREF color);
/// With a border of one pixel in `border`, which may be the filling's own color. Edges are smooth, as of all that follows.
void fillRound(HDC dc, const RECT& area, int radius, COLORREF filling, COLORREF border);
/// From one color at the upper edge to another at the lower one.
void fillRoundGradual(HDC dc, const RECT& area, int radius, COLORREF upper, COLORREF lower);
/// The border alone, `width` pixels wide.
void frameRound(HDC dc, const RECT& area, int radius, COLORREF border, int width = 1);
void fillEllipse(HDC dc, const RECT& area, COLORREF filling, COLORREF border);
/// As large as fits, in the middle of the area.
void drawIcon(HDC dc, const RECT& area, Icon icon, COLORREF color);
/// Lines through the points, `width` pixels wide, both ends included.
void drawLines(HDC dc, const POINT* points, int count, COLORREF color, int width = 1);
/// In one line and cut with dots where it does not fit. `format` as for `DrawTextW`: `DT_CENTER`, …
void drawText(HDC dc, const RECT& area, const std::wstring& text, COLORREF color, UINT format = DT_LEFT,
              HFONT withFont = font());
/// Of a text in one line, in pixels.
SIZE textSize(HDC dc, const std::wstring& text, HFONT withFont = font());
/// Where the keyboard is.
void drawFocus(HDC dc, const RECT& area, int radius);

}  // namespace controls
