#include "simulator/controls/EditDrawing.h"

#include <algorithm>
#include <string>

#include "simulator/controls/ControlWindow.h"
#include "simulator/controls/Drawing.h"
#include "simulator/controls/EditText.h"
#include "simulator/controls/Gdi.h"

namespace controls {
namespace {

constexpr int kPadding = 9;
constexpr int kDot = 7;
constexpr int kDotPitch = 10;
constexpr int kCaretWidth = 1;
constexpr int kLineHeight = theme::kFontHeight + 5;

// Drawing within an area only, for as long as it lives.
class Clipped {
 public:
  Clipped(HDC dc, const RECT& area) : m_dc(dc), m_saved(::SaveDC(dc)) {
    ::IntersectClipRect(dc, area.left, area.top, area.right, area.bottom);
  }
  ~Clipped() { ::RestoreDC(m_dc, m_saved); }
  Clipped(const Clipped&) = delete;
  Clipped& operator=(const Clipped&) = delete;

 private:
  const HDC m_dc;
  const int m_saved;
};

// Unit by unit the same places as in the text itself.
std::wstring printable(std::wstring_view text) {
  std::wstring result(text);
  std::replace_if(
      result.begin(), result.end(), [](wchar_t unit) { return unit < L' ' || unit == 0x7f; }, L' ');
  return result;
}

Edges dotEdges(std::wstring_view text) {
  Edges edges{0};
  // The second half of a character has no dot of its own.
  for (const wchar_t unit : text) edges.push_back(edges.back() + (isLowHalf(unit) ? 0 : kDotPitch));
  return edges;
}

Edges letterEdges(std::wstring_view text) {
  const std::wstring line = printable(text);
  const GdiContext dc(::CreateCompatibleDC(nullptr));
  const Selected withFont(dc.get(), font());
  Edges edges(line.size() + 1, 0);
  SIZE size{};
  ::GetTextExtentExPointW(dc.get(), line.c_str(), static_cast<int>(line.size()), 0, nullptr, edges.data() + 1, &size);
  return edges;
}

COLORREF ink(const EditPicture& picture) {
  return (picture.flags & kDisabled) != 0 ? mixed(picture.color, theme::kGround, 45) : picture.color;
}

void drawLetters(HDC dc, const EditPicture& picture, const RECT& place, COLORREF color) {
  const std::wstring line = printable(picture.text);
  const Selected withFont(dc, font());
  ::SetBkMode(dc, TRANSPARENT);
  ::SetTextColor(dc, color);
  SIZE size{};
  ::GetTextExtentPoint32W(dc, L"X", 1, &size);
  ::TextOutW(dc, place.left - picture.shift, (place.top + place.bottom - size.cy) / 2, line.c_str(),
             static_cast<int>(line.size()));
}

void drawDots(HDC dc, const EditPicture& picture, const RECT& place, COLORREF color) {
  const int top = (place.top + place.bottom - kDot) / 2;
  int left = place.left - picture.shift + (kDotPitch - kDot) / 2;
  for (const wchar_t unit : picture.text) {
    if (isLowHalf(unit)) continue;
    if (left + kDot > place.left && left < place.right) fillEllipse(dc, {left, top, left + kDot, top + kDot}, color, color);
    left += kDotPitch;
  }
}

void drawLine(HDC dc, const EditPicture& picture, const RECT& place, COLORREF color) {
  (picture.asDots ? drawDots : drawLetters)(dc, picture, place, color);
}

void drawSelection(HDC dc, const EditPicture& picture, const RECT& place) {
  const Edges edges = edgesOf(picture.text, picture.asDots);
  const int begin = place.left - picture.shift;
  const int middle = (place.top + place.bottom) / 2;
  const RECT selected{begin + edges[picture.selectionBegin], middle - kLineHeight / 2, begin + edges[picture.selectionEnd],
                      middle + kLineHeight / 2};
  const Clipped clipped(dc, selected);
  fill(dc, selected, theme::kAccent);
  drawLine(dc, picture, place, theme::kOnAccent);
}

COLORREF frame(std::uint32_t flags, bool isWrong) {
  const COLORREF color = isWrong ? theme::kError : theme::kBorder;
  if ((flags & kDisabled) != 0) return mixed(color, theme::kGround, 60);
  if ((flags & kFocused) != 0) return theme::kAccent;
  return (flags & kHovered) != 0 ? mixed(color, theme::kText, 45) : color;
}

}  // namespace

RECT textArea(const RECT& area) {
  return {std::min(area.left + kPadding, area.right), area.top + 1, std::max(area.left, area.right - kPadding),
          area.bottom - 1};
}

RECT caretArea(const RECT& area, int place) {
  const int middle = (area.top + area.bottom) / 2;
  return {area.left + place, middle - kLineHeight / 2, area.left + place + kCaretWidth, middle + kLineHeight / 2};
}

Edges edgesOf(std::wstring_view text, bool asDots) { return asDots ? dotEdges(text) : letterEdges(text); }

void drawEdit(HDC dc, const RECT& area, const EditPicture& picture) {
  drawField(dc, area, picture.flags & ~kPressed, picture.isWrong);  // a mouse that selects presses nothing
  RECT place = textArea(area);
  const Clipped clipped(dc, {place.left, place.top, place.right + kCaretWidth, place.bottom});
  drawLine(dc, picture, place, ink(picture));
  const bool isSelected = picture.selectionBegin != picture.selectionEnd;
  if (isSelected && (picture.flags & kFocused) != 0) drawSelection(dc, picture, place);
}

void drawField(HDC dc, const RECT& area, std::uint32_t flags, bool isWrong) {
  const COLORREF pressed = mixed(theme::kSurface, theme::kAccent, (flags & kPressed) != 0 ? 8 : 0);
  fillRound(dc, area, theme::kRadius, (flags & kDisabled) != 0 ? theme::kGround : pressed, frame(flags, isWrong));
  if ((flags & kFocused) != 0 && (flags & kDisabled) == 0) drawFocus(dc, area, theme::kRadius);
}

}  // namespace controls
