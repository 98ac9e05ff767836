#include "simulator/controls/Drawing.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <utility>

#include "simulator/controls/Gdi.h"
#include "simulator/controls/Shapes.h"

namespace controls {
namespace {

int mixedPart(int part, int other, int share) { return (part * (100 - share) + other * share) / 100; }

Gdi<HFONT> newFont(int height, bool bold) {
  LOGFONTW description{};
  description.lfHeight = -height;
  description.lfWeight = bold ? FW_SEMIBOLD : FW_NORMAL;
  description.lfQuality = CLEARTYPE_QUALITY;
  description.lfCharSet = DEFAULT_CHARSET;
  description.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
  ::lstrcpynW(description.lfFaceName, L"Segoe UI", LF_FACESIZE);  // the system's; where there is none, a similar one comes
  return Gdi<HFONT>(::CreateFontIndirectW(&description));
}

// The pixels of a part of a context: read, changed, written back.
class Pixels {
 public:
  Pixels(HDC dc, const RECT& area)
      : m_target(dc),
        m_area(area),
        m_memory(::CreateCompatibleDC(dc)),
        m_bitmap(newBitmap()),
        m_selected(memory(), m_bitmap.get()) {
    if (m_bits == nullptr) return;
    ::BitBlt(memory(), 0, 0, width(), height(), m_target, m_area.left, m_area.top, SRCCOPY);
    ::GdiFlush();
  }
  ~Pixels() {
    if (m_bits != nullptr) ::BitBlt(m_target, m_area.left, m_area.top, width(), height(), memory(), 0, 0, SRCCOPY);
  }
  Pixels(const Pixels&) = delete;
  Pixels& operator=(const Pixels&) = delete;

  // Both functions are called with the center of each pixel, counted from the area's corner.
  template <class Distance, class Color>
  void draw(Distance distance, Color color) {
    if (m_bits == nullptr) return;
    for (int y = 0; y < height(); ++y) {
      for (int x = 0; x < width(); ++x) {
        const Point center{x + 0.5, y + 0.5};
        const double share = coverage(distance(center));
        if (share > 0) blend(m_bits[std::ptrdiff_t{y} * width() + x], color(center), share);
      }
    }
  }

 private:
  HDC memory() const { return m_memory.get(); }
  int width() const { return m_area.right - m_area.left; }
  int height() const { return m_area.bottom - m_area.top; }

  Gdi<HBITMAP> newBitmap() {
    BITMAPINFO description{};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = width();
    description.bmiHeader.biHeight = -height();  // the first row is the upper one
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    Gdi<HBITMAP> bitmap(::CreateDIBSection(m_target, &description, DIB_RGB_COLORS, &bits, nullptr, 0));
    m_bits = static_cast<RGBQUAD*>(bits);
    return bitmap;
  }

  static void blend(RGBQUAD& pixel, COLORREF color, double share) {
    const auto part = [share](BYTE under, BYTE over) { return static_cast<BYTE>(std::lround(under + (over - under) * share)); };
    pixel.rgbRed = part(pixel.rgbRed, GetRValue(color));
    pixel.rgbGreen = part(pixel.rgbGreen, GetGValue(color));
    pixel.rgbBlue = part(pixel.rgbBlue, GetBValue(color));
  }

  const HDC m_target;
  const RECT m_area;
  RGBQUAD* m_bits = nullptr;  // none: there is no bitmap of an area without pixels
  const GdiContext m_memory;
  const Gdi<HBITMAP> m_bitmap;
  const Selected m_selected;
};

auto plain(COLORREF color) {
  return [color](Point) { return color; };
}

double widthOf(const RECT& area) { return area.right - area.left; }
double heightOf(const RECT& area) { return area.bottom - area.top; }

auto roundDistance(const RECT& area, int radius) {
  return
      [width = widthOf(area), height = heightOf(area), radius](Point at) { return distanceToRound(at, width, height, radius); };
}

// All lines as one shape: where they meet they are not darker.
void drawStrokes(HDC dc, const RECT& area, const std::vector<Line>& lines, double width, COLORREF color) {
  const auto distance = [&](Point at) {
    double nearest = std::numeric_limits<double>::infinity();
    for (const auto& line : lines) nearest = std::min(nearest, distanceToLine(at, line));
    return nearest - width / 2;
  };
  Pixels(dc, area).draw(distance, plain(color));
}

}  // namespace

COLORREF mixed(COLORREF color, COLORREF other, int share) {
  return RGB(mixedPart(GetRValue(color), GetRValue(other), share), mixedPart(GetGValue(color), GetGValue(other), share),
             mixedPart(GetBValue(color), GetBValue(other), share));
}

COLORREF readableOn(COLORREF ground) {
  constexpr int kMiddle = 140000;  // of 255,000; the weights are those of brightness as the eye has it
  const int brightness = 299 * GetRValue(ground) + 587 * GetGValue(ground) + 114 * GetBValue(ground);
  return brightness > kMiddle ? theme::kText : theme::kOnAccent;
}

HFONT font(int height, bool bold) {
  static thread_local std::map<std::pair<int, bool>, Gdi<HFONT>> fonts;
  auto& entry = fonts[{height, bold}];
  if (entry == nullptr) entry = newFont(height, bold);
  return entry.get();
}

void fill(HDC dc, const RECT& area, COLORREF color) {
  const Gdi<HBRUSH> brush(::CreateSolidBrush(color));
  ::FillRect(dc, &area, brush.get());
}

void fillRound(HDC dc, const RECT& area, int radius, COLORREF filling, COLORREF border) {
  const auto edge = roundDistance(area, radius);
  Pixels pixels(dc, area);
  pixels.draw(edge, plain(border));
  if (filling != border) pixels.draw([&](Point at) { return edge(at) + 1; }, plain(filling));
}

void fillRoundGradual(HDC dc, const RECT& area, int radius, COLORREF upper, COLORREF lower) {
  const auto color = [&](Point at) { return mixed(upper, lower, static_cast<int>(100 * at.y / heightOf(area))); };
  Pixels(dc, area).draw(roundDistance(area, radius), color);
}

void frameRound(HDC dc, const RECT& area, int radius, COLORREF border, int width) {
  const auto edge = roundDistance(area, radius);
  Pixels(dc, area).draw([&](Point at) { return std::abs(edge(at) + width / 2.0) - width / 2.0; }, plain(border));
}

void fillEllipse(HDC dc, const RECT& area, COLORREF filling, COLORREF border) {
  const auto edge = [&](Point at) { return distanceToEllipse(at, widthOf(area), heightOf(area)); };
  Pixels pixels(dc, area);
  pixels.draw(edge, plain(border));
  if (filling != border) pixels.draw([&](Point at) { return edge(at) + 1; }, plain(filling));
}

void drawIcon(HDC dc, const RECT& area, Icon icon, COLORREF color) {
  constexpr double kStroke = 1.6;
  const double scale = std::min(widthOf(area), heightOf(area)) / kIconGrid;
  const Point corner{(widthOf(area) - scale * kIconGrid) / 2, (heightOf(area) - scale * kIconGrid) / 2};
  auto lines = iconLines(icon);
  for (auto& line : lines) {
    for (auto& point : line) point = {corner.x + scale * point.x, corner.y + scale * point.y};
  }
  drawStrokes(dc, area, lines, std::max(1.4, kStroke * scale), color);
}

void drawLines(HDC dc, const POINT* points, int count, COLORREF color, int width) {
  if (count < 1) return;
  RECT area{points->x, points->y, points->x, points->y};
  for (int i = 0; i < count; ++i) {
    area = {std::min(area.left, points[i].x), std::min(area.top, points[i].y), std::max(area.right, points[i].x),
            std::max(area.bottom, points[i].y)};
  }
  ::InflateRect(&area, width + 1, width + 1);
  const double toCenter = width % 2 == 0 ? 0 : 0.5;  // an even width is crisp between two rows of pixels
  Line line;
  for (int i = 0; i < count; ++i) line.push_back({points[i].x - area.left + toCenter, points[i].y - area.top + toCenter});
  drawStrokes(dc, area, {line}, width, color);
}

void drawText(HDC dc, const RECT& area, const std::wstring& text, COLORREF color, UINT format, HFONT withFont) {
  const Selected selected(dc, withFont);
  ::SetBkMode(dc, TRANSPARENT);
  ::SetTextColor(dc, color);
  RECT place = area;
  ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &place,
              format | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

SIZE textSize(HDC dc, const std::wstring& text, HFONT withFont) {
  const Selected selected(dc, withFont);
  SIZE size{};
  ::GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
  return size;
}

void drawFocus(HDC dc, const RECT& area, int radius) {
  constexpr int kRing = 2;
  RECT inner = area;
  ::InflateRect(&inner, -kRing, -kRing);
  frameRound(dc, inner, radius - kRing, theme::kSurface);  // so that the ring is seen on a filling of its own color, too
  frameRound(dc, area, radius, theme::kAccent, kRing);
}

}  // namespace controls
