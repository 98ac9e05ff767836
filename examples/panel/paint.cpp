#include "panel/Paint.h"

#include <algorithm>
#include <array>
#include <memory>
#include <type_traits>

namespace panel {
namespace {

struct Delete {
  void operator()(HGDIOBJ object) const { ::DeleteObject(object); }
};
using Brush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, Delete>;
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, Delete>;

struct DeleteDc {
  void operator()(HDC dc) const { ::DeleteDC(dc); }
};
using MemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteDc>;

class Painting {
 public:
  explicit Painting(HWND window) : m_window(window) { ::BeginPaint(window, &m_paint); }
  ~Painting() { ::EndPaint(m_window, &m_paint); }
  Painting(const Painting&) = delete;
  Painting& operator=(const Painting&) = delete;

  HDC dc() const { return m_paint.hdc; }

 private:
  const HWND m_window;
  PAINTSTRUCT m_paint{};
};

class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : m_dc(dc), m_former(::SelectObject(dc, object)) {}
  ~Selected() { ::SelectObject(m_dc, m_former); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  const HDC m_dc;
  const HGDIOBJ m_former;
};

HFONT newFont(int height, int weight) {
  return ::CreateFontW(-height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                       CLEARTYPE_QUALITY, VARIABLE_PITCH | FF_SWISS, L"Segoe UI");
}

void write(HDC dc, const RECT& area, const std::wstring& text, COLORREF color, Font font, UINT format) {
  const Selected selected(dc, fontOf(font));
  ::SetBkMode(dc, TRANSPARENT);
  ::SetTextColor(dc, color);
  RECT place = area;
  ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &place, format | DT_NOPREFIX | DT_END_ELLIPSIS);
}

}  // namespace

HFONT fontOf(Font font) {
  // For the process, in the order of the enumeration.
  static const std::array<HFONT, 4> fonts{newFont(15, FW_NORMAL), newFont(15, FW_BOLD), newFont(13, FW_NORMAL),
                                          newFont(22, FW_BOLD)};
  return fonts[static_cast<std::size_t>(font)];
}

HBRUSH groundBrush() {
  static const HBRUSH brush = ::CreateSolidBrush(kGround);
  return brush;
}

void paintWindow(HWND window, const std::function<void(HDC dc, const RECT& area)>& draw) {
  const Painting painting(window);
  RECT area{};
  ::GetClientRect(window, &area);
  const Bitmap bitmap(::CreateCompatibleBitmap(painting.dc(), area.right, area.bottom));
  const MemoryDc memory(::CreateCompatibleDC(painting.dc()));
  const Selected selected(memory.get(), bitmap.get());
  drawRect(memory.get(), area, kSurface);
  draw(memory.get(), area);
  ::BitBlt(painting.dc(), 0, 0, area.right, area.bottom, memory.get(), 0, 0, SRCCOPY);
}

void drawRect(HDC dc, const RECT& area, COLORREF color) {
  const Brush brush(::CreateSolidBrush(color));
  ::FillRect(dc, &area, brush.get());
}

void drawFrame(HDC dc, const RECT& area, COLORREF color) {
  const Brush brush(::CreateSolidBrush(color));
  ::FrameRect(dc, &area, brush.get());
}

void drawText(HDC dc, const RECT& area, const std::wstring& text, COLORREF color, Font font, UINT format) {
  write(dc, area, text, color, font, format | DT_SINGLELINE | DT_VCENTER);
}

void drawParagraph(HDC dc, const RECT& area, const std::wstring& text, COLORREF color) {
  write(dc, area, text, color, Font::Plain, DT_WORDBREAK | DT_EDITCONTROL);
}

void drawBar(HDC dc, const RECT& area, int percent, COLORREF color) {
  drawRect(dc, area, kLine);
  RECT filled = area;
  filled.right = filled.left + (area.right - area.left) * std::clamp(percent, 0, 100) / 100;
  drawRect(dc, filled, color);
}

}  // namespace panel
