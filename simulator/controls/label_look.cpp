#include "simulator/controls/LabelLook.h"

#include <algorithm>

#include "simulator/controls/Drawing.h"
#include "simulator/controls/TextLayout.h"

namespace controls {
namespace {

constexpr int kPathPadding = 8;

COLORREF paleOn(COLORREF ground, COLORREF color, bool pale) { return mixed(color, ground, pale ? theme::kPaleShare : 0); }

HFONT fontOf(const LabelFace& face, bool bold = false) {
  return face.font != nullptr ? face.font : font(theme::kFontHeight, bold);
}

Fits fitsInto(HDC dc, int width, HFONT withFont) {
  return [=](const std::wstring& piece) { return textSize(dc, piece, withFont).cx <= width; };
}

// The parent, asked for the ground, may have chosen a color; the system's own stands for none.
COLORREF textColor(HDC dc) {
  const COLORREF chosen = ::GetTextColor(dc);
  return chosen == ::GetSysColor(COLOR_WINDOWTEXT) ? readableOn(::GetPixel(dc, 0, 0)) : chosen;
}

void drawTextLines(HDC dc, const RECT& area, const LabelFace& face, int lineHeight, COLORREF color) {
  const HFONT withFont = fontOf(face);
  RECT line{area.left, area.top, area.right, area.top + lineHeight};
  for (const auto& text : wrapped(face.text, area.bottom / lineHeight, fitsInto(dc, area.right, withFont))) {
    drawText(dc, line, text, color, DT_LEFT, withFont);
    ::OffsetRect(&line, 0, lineHeight);
  }
}

}  // namespace

void drawTextLabel(HDC dc, const RECT& area, const LabelFace& face, bool pale) {
  const int lineHeight = std::max<int>(1, textSize(dc, L"X", fontOf(face)).cy);
  const COLORREF color = paleOn(::GetPixel(dc, 0, 0), textColor(dc), pale);
  if (area.bottom >= 2 * lineHeight) {
    drawTextLines(dc, area, face, lineHeight, color);
  } else {
    drawText(dc, area, face.text, color, DT_LEFT, fontOf(face));
  }
}

void drawNumberLabel(HDC dc, const RECT& area, const LabelFace& face, bool pale) {
  const COLORREF ground = paleOn(::GetPixel(dc, 0, 0), face.background.value_or(theme::kAccent), pale);
  fillRound(dc, area, area.bottom / 2, ground, ground);
  drawText(dc, area, face.text, paleOn(ground, readableOn(ground), pale), DT_CENTER, fontOf(face, true));
}

void drawPathLabel(HDC dc, const RECT& area, const LabelFace& face, bool pale) {
  const COLORREF beneath = ::GetPixel(dc, 0, 0);
  const COLORREF ground = paleOn(beneath, face.background.value_or(theme::kSurface), pale);
  fillRound(dc, area, theme::kRadius, ground, paleOn(beneath, face.border.value_or(theme::kBorder), pale));
  RECT inner = area;
  ::InflateRect(&inner, -kPathPadding, 0);
  const HFONT withFont = fontOf(face);
  const auto path = shortenedPath(face.text, fitsInto(dc, inner.right - inner.left, withFont));
  drawText(dc, inner, path, paleOn(ground, readableOn(ground), pale), DT_LEFT, withFont);
}

}  // namespace controls
