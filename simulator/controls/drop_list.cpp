#include "simulator/controls/DropList.h"

#include <algorithm>
#include <utility>

#include "simulator/controls/ControlWindow.h"

namespace controls {
namespace {

constexpr int kBorder = 1;
constexpr int kScrollWidth = 10;
constexpr int kPadding = 9;

bool isZero(const qzstd::Rect& rect) { return rect.x == 0 && rect.y == 0 && rect.width == 0 && rect.height == 0; }

}  // namespace

DropList::~DropList() { DropList::Destroy(); }

bool DropList::drop(HWND box, const RECT& place) {
  Destroy();
  m_box = box;
  m_hovered = kNoEntry;
  if (!newPopup(*this, box, place)) return false;
  makeScroll();
  showChoice();
  ::SetCapture(GetWnd());  // a press elsewhere is to be seen, too
  return true;
}

void DropList::Destroy() {
  const HWND window = GetWnd();
  if (window == nullptr) return;
  m_scroll.Destroy();
  SetWnd(nullptr);  // the messages of the end are nobody's
  ::DestroyWindow(window);
}

void DropList::showChoice() {
  if (GetWnd() == nullptr) return;
  m_hovered = kNoEntry;
  showFrom(firstShown(m_first, m_content.choice, shown(), m_content.count()));
}

__int64 DropList::RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  const HWND window = GetWnd();
  if (window == nullptr) return 0;
  switch (msg) {
    case WM_PAINT:
    case WM_PRINTCLIENT:
      controls::paint(window, msg, wParam, [this](HDC dc, const RECT& area) { draw(dc, area); });
      return 0;
    case WM_MOUSEACTIVATE:
      return MA_NOACTIVATE;
    case WM_MOUSEMOVE:
      moveMouse(mousePlace(lParam), lParam);
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
      press(msg, wParam, lParam);
      return 0;
    case WM_LBUTTONUP:
      hover(mousePlace(lParam));
      if (m_hovered != kNoEntry) tellBox(LBN_SELCHANGE);
      return 0;
    case WM_MOUSEWHEEL:
      toScroll(msg, wParam, lParam);
      return 0;
    case WM_VSCROLL:
      showFrom(m_scroll.GetPos());
      if (LOWORD(wParam) == SB_ENDSCROLL) ::SetCapture(window);
      return 0;
    case WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(lParam) != window && reinterpret_cast<HWND>(lParam) != m_scroll.GetWnd())
        tellBox(LBN_SELCANCEL);
      return 0;
    default:
      return ::DefWindowProcW(window, msg, wParam, lParam);
  }
}

int DropList::height() const {
  RECT area{};
  ::GetClientRect(GetWnd(), &area);
  return area.bottom - 2 * kBorder;
}

std::int32_t DropList::shown() const { return std::max(1, height() / m_content.itemHeight); }

std::int32_t DropList::entryAt(POINT place) const {
  RECT area{};
  ::GetClientRect(GetWnd(), &area);
  ::InflateRect(&area, -kBorder, -kBorder);
  if (!::PtInRect(&area, place) || isOnScroll(place)) return kNoEntry;
  const std::int32_t entry = m_first + (place.y - kBorder) / m_content.itemHeight;
  return entry < m_content.count() ? entry : kNoEntry;
}

bool DropList::isOnScroll(POINT place) const {
  const RECT bar{m_scrollRect.x, m_scrollRect.y, m_scrollRect.x + m_scrollRect.width, m_scrollRect.y + m_scrollRect.height};
  return m_scroll.GetWnd() != nullptr && ::PtInRect(&bar, place) != 0;
}

void DropList::makeScroll() {
  if (m_content.count() <= shown()) return;
  RECT area{};
  ::GetClientRect(GetWnd(), &area);
  const qzstd::Rect atEdge{area.right - kScrollWidth - 2, kBorder + 1, kScrollWidth, area.bottom - 2 * (kBorder + 1)};
  m_scrollRect = isZero(m_content.scrollRect) ? atEdge : m_content.scrollRect;
  m_scroll.Create(GetWnd());
}

void DropList::showFrom(std::int32_t first) {
  m_first = firstShown(first, kNoEntry, shown(), m_content.count());
  if (m_scroll.GetWnd() != nullptr) {
    const SCROLLINFO info{sizeof info, SIF_ALL, 0, m_content.count() - 1, static_cast<UINT>(shown()), m_first, 0};
    m_scroll.SendSelfMsg(SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
  }
  ReDraw(false);
}

void DropList::hover(POINT place) {
  const std::int32_t former = std::exchange(m_hovered, entryAt(place));
  if (former != m_hovered) ReDraw(false);
}

// The list has the mouse, also over its scroll bar, which therefore sees only what it is given.
void DropList::moveMouse(POINT place, __int64 lParam) {
  hover(place);
  toScroll(isOnScroll(place) ? WM_MOUSEMOVE : WM_MOUSELEAVE, 0, lParam);
}

void DropList::press(unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  const POINT place = mousePlace(lParam);
  RECT area{};
  ::GetClientRect(GetWnd(), &area);
  if (isOnScroll(place)) {
    toScroll(msg, wParam, lParam);
  } else if (::PtInRect(&area, place) != 0) {
    hover(place);
  } else {
    tellBox(LBN_SELCANCEL);
  }
}

// The last thing done for a message: the box destroys the list.
void DropList::tellBox(unsigned what) const {
  ::SendMessageW(m_box, WM_COMMAND, MAKEWPARAM(0, what), reinterpret_cast<LPARAM>(GetWnd()));
}

void DropList::toScroll(unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  if (m_scroll.GetWnd() == nullptr) return;
  const POINT place = mousePlace(lParam);
  const auto there = MAKELPARAM(place.x - m_scrollRect.x, place.y - m_scrollRect.y);
  m_scroll.SendSelfMsg(msg, wParam, msg == WM_MOUSEWHEEL ? lParam : static_cast<__int64>(there));
}

void DropList::draw(HDC dc, const RECT& area) const {
  fillRound(dc, area, 0, theme::kSurface, theme::kBorder);
  const bool isAtEdge = m_scroll.GetWnd() != nullptr && isZero(m_content.scrollRect);
  const int right = area.right - kBorder - (isAtEdge ? kScrollWidth + 2 : 0);
  int top = kBorder;
  ::IntersectClipRect(dc, kBorder, kBorder, area.right - kBorder, area.bottom - kBorder);
  for (std::int32_t entry = m_first; entry < m_content.count() && top < area.bottom; ++entry) {
    drawEntry(dc, {kBorder, top, right, top + m_content.itemHeight}, entry);
    top += m_content.itemHeight;
  }
  ::SelectClipRgn(dc, nullptr);
}

void DropList::drawEntry(HDC dc, const RECT& place, std::int32_t entry) const {
  const bool isChoice = entry == m_content.choice;
  if (isChoice)
    fill(dc, place, theme::kAccent);
  else if (entry == m_hovered)
    fill(dc, place, mixed(theme::kSurface, theme::kAccent, 14));
  const RECT text{place.left + kPadding - kBorder, place.top, place.right - kPadding, place.bottom};
  drawText(dc, text, m_content.entries[static_cast<std::size_t>(entry)], isChoice ? theme::kOnAccent : m_content.color);
}

}  // namespace controls
