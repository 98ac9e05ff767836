#pragma once

#include <functional>
#include <string>

#include "AppWindow.h"

/// What the panel draws itself: its ground, bars, and texts beside them.
namespace panel {

inline constexpr COLORREF kGround = RGB(247, 248, 250);
inline constexpr COLORREF kSurface = RGB(255, 255, 255);
inline constexpr COLORREF kLine = RGB(216, 221, 228);
inline constexpr COLORREF kInk = RGB(32, 36, 44);
inline constexpr COLORREF kPaleInk = RGB(96, 104, 116);
inline constexpr COLORREF kAccent = RGB(24, 98, 190);
inline constexpr COLORREF kGood = RGB(22, 120, 62);
inline constexpr COLORREF kWarning = RGB(160, 92, 0);
inline constexpr COLORREF kBad = RGB(184, 32, 40);

enum class Font { Plain, Bold, Small, Title };

HFONT fontOf(Font font);
/// The brush of the ground, for `WM_CTLCOLORSTATIC` and the like. Kept for the process.
HBRUSH groundBrush();

/// A window's `WM_PAINT`, through a bitmap, so that nothing flickers. `draw` gets a white ground.
void paintWindow(HWND window, const std::function<void(HDC dc, const RECT& area)>& draw);

void drawRect(HDC dc, const RECT& area, COLORREF color);
/// Its outermost pixels.
void drawFrame(HDC dc, const RECT& area, COLORREF color);
/// In one line, cut with dots; `format` as for `DrawTextW`.
void drawText(HDC dc, const RECT& area, const std::wstring& text, COLORREF color, Font font = Font::Plain,
              UINT format = DT_LEFT);
/// Over as many lines as there is room for.
void drawParagraph(HDC dc, const RECT& area, const std::wstring& text, COLORREF color);
/// `percent` of it in `color`; what lies outside 0 to 100 is taken as the nearer end.
void drawBar(HDC dc, const RECT& area, int percent, COLORREF color);

}  // namespace panel
