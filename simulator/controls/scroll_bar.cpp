#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

#include "Controls.h"
#include "simulator/controls/ControlWindow.h"
#include "simulator/controls/Drawing.h"
#include "simulator/controls/ThumbGeometry.h"

namespace {

constexpr int kNotchesPerPage = 4;

std::int32_t bounded(std::int64_t number) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(number, 0, std::numeric_limits<std::int32_t>::max()));
}

bool isPress(unsigned msg) { return msg == WM_LBUTTONDOWN || msg == WM_LBUTTONDBLCLK; }

void redrawIfThere(const AppWnd::Scroll& bar) {
  if (bar.GetWnd() != nullptr) bar.ReDraw(false);
}

}  // namespace

namespace AppWnd {

struct Scroll::State {
  explicit State(int length) : barLength(length) {}

  int thumbSize() const { return controls::thumbSize(range, barLength); }
  int thumbPlace() const { return controls::thumbPlace(range.position, range.last(), barLength - thumbSize()); }
  bool isOnThumb(int y) const { return y >= thumbPlace() && y < thumbPlace() + thumbSize(); }

  void set(const SCROLLINFO& info);
  void get(SCROLLINFO& info) const;
  std::optional<__int64> answer(unsigned msg, unsigned __int64 wParam, __int64 lParam);

  bool moveTo(std::int64_t position);
  bool press(int y);
  bool drag(int y);
  bool turnWheel(int delta);
  void draw(HDC dc, const RECT& area, std::uint32_t flags) const;

  controls::ScrollRange range;
  int barLength;              // pixels
  bool isPressed = false;     // by the mouse, which is told when it lets go
  std::optional<int> grip{};  // where the thumb is held, below its upper edge
  bool isThumbHovered = false;
  int wheel = 0;  // what was turned and is not a whole notch yet
  COLORREF ground = controls::mixed(controls::theme::kGround, controls::theme::kBorder, 30);
  COLORREF down = controls::theme::kAccent;
  COLORREF hovered = controls::mixed(controls::theme::kBorder, controls::theme::kText, 45);
  COLORREF up = controls::theme::kBorder;
};

// As the system's: the last number of the range belongs to it.
void Scroll::State::set(const SCROLLINFO& info) {
  if ((info.fMask & SIF_RANGE) != 0) {
    range.first = info.nMin;
    range.length = bounded(std::int64_t{info.nMax} - info.nMin + 1);
  }
  if ((info.fMask & SIF_PAGE) != 0) range.page = bounded(info.nPage);
  if ((info.fMask & SIF_POS) != 0) range.position = bounded(std::int64_t{info.nPos} - range.first);
  range = controls::valid(range);
}

void Scroll::State::get(SCROLLINFO& info) const {
  if ((info.fMask & SIF_RANGE) != 0) {
    info.nMin = range.first;
    info.nMax = static_cast<int>(std::int64_t{range.first} + range.length - 1);
  }
  if ((info.fMask & SIF_PAGE) != 0) info.nPage = static_cast<UINT>(range.page);
  if ((info.fMask & SIF_POS) != 0) info.nPos = range.first + range.position;
  if ((info.fMask & SIF_TRACKPOS) != 0) info.nTrackPos = range.first + range.position;
}

// What the system's scroll bars answer. None: it is another message.
std::optional<__int64> Scroll::State::answer(unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  const std::int32_t before = range.first + range.position;
  switch (msg) {
    case SBM_SETSCROLLINFO:
      if (lParam != 0) set(*reinterpret_cast<const SCROLLINFO*>(lParam));
      return range.first + range.position;
    case SBM_GETSCROLLINFO:
      if (lParam != 0) get(*reinterpret_cast<SCROLLINFO*>(lParam));
      return lParam != 0;
    case SBM_SETPOS:
      moveTo(std::int64_t{static_cast<std::int32_t>(wParam)} - range.first);
      return before;
    case SBM_GETPOS:
      return before;
    default:
      return std::nullopt;
  }
}

bool Scroll::State::moveTo(std::int64_t position) {
  const std::int32_t former = std::exchange(range.position, std::min(bounded(position), range.last()));
  return former != range.position;
}

// On the thumb it is held from now on; beside it a page is turned. Whether it moved.
bool Scroll::State::press(int y) {
  isPressed = true;
  if (isOnThumb(y)) {
    grip = y - thumbPlace();
    return false;
  }
  return moveTo(std::int64_t{range.position} + (y < thumbPlace() ? -range.page : range.page));
}

bool Scroll::State::drag(int y) {
  isThumbHovered = isOnThumb(y);
  return grip && moveTo(controls::thumbPosition(y - *grip, range.last(), barLength - thumbSize()));
}

bool Scroll::State::turnWheel(int delta) {
  wheel += delta;
  const int notches = std::exchange(wheel, wheel % WHEEL_DELTA) / WHEEL_DELTA;
  return moveTo(range.position - std::int64_t{notches} * std::max(1, range.page / kNotchesPerPage));
}

void Scroll::State::draw(HDC dc, const RECT& area, std::uint32_t flags) const {
  const int radius = std::min(area.right, area.bottom) / 2;
  controls::fillRound(dc, area, radius, ground, ground);
  if (range.last() == 0) return;
  const COLORREF alive = grip ? down : isThumbHovered ? hovered : up;
  const COLORREF color = (flags & controls::kDisabled) != 0 ? controls::mixed(up, ground, 60) : alive;
  controls::fillRound(dc, {area.left + 1, thumbPlace(), area.right - 1, thumbPlace() + thumbSize()}, radius, color, color);
}

Scroll::Scroll(const qzstd::Rect& rect) : CtrlWnd(rect), m_state(std::make_unique<State>(rect.height)) {}

Scroll::~Scroll() = default;

bool Scroll::Create(HWND parent) {
  if (IsWindow()) return true;
  const bool isDisabled = (m_flags & controls::kDisabled) != 0;
  m_flags = 0;
  if (!controls::newWindow(*this, parent, rect(), m_id, L"", false)) return false;
  if (isDisabled) Disable();
  return true;
}

__int64 Scroll::RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  const HWND window = GetWnd();
  if (const auto answer = m_state->answer(msg, wParam, lParam)) {
    if (window != nullptr) ReDraw(false);
    return *answer;
  }
  if (window == nullptr) return 0;
  const auto tell = [this, window](unsigned what) {  // the last thing done: the parent may destroy the bar
    ReDraw(false);
    controls::tellScroll(window, WM_VSCROLL, what, m_state->range.first + m_state->range.position);
    return 0;
  };
  const int y = controls::mousePlace(lParam).y;
  const bool isLetGo = (msg == WM_LBUTTONUP || msg == WM_CAPTURECHANGED) && std::exchange(m_state->isPressed, false);
  controls::follow(window, m_flags, msg, wParam, lParam);
  if (isPress(msg) && (m_flags & controls::kPressed) != 0)
    return m_state->press(y) ? tell(SB_THUMBPOSITION) : (ReDraw(false), 0);
  if (isLetGo) {
    m_state->grip.reset();
    return tell(SB_ENDSCROLL);
  }
  switch (msg) {
    case WM_PAINT:
    case WM_PRINTCLIENT:
      controls::paint(window, msg, wParam, [this](HDC dc, const RECT& area) { m_state->draw(dc, area, m_flags); });
      return 0;
    case WM_SIZE:
      m_state->barLength = HIWORD(lParam);
      ReDraw(false);
      return 0;
    case WM_MOUSEMOVE:
      if (m_state->drag(y)) return tell(SB_THUMBTRACK);
      ReDraw(false);
      return 0;
    case WM_MOUSELEAVE:
      m_state->isThumbHovered = false;
      return 0;
    case WM_MOUSEWHEEL:
      return (m_flags & controls::kDisabled) == 0 && m_state->turnWheel(GET_WHEEL_DELTA_WPARAM(wParam)) ? tell(SB_THUMBPOSITION)
                                                                                                        : 0;
    case WM_NCDESTROY:
      m_state->isPressed = false;
      m_state->grip.reset();
      break;
    default:
      break;
  }
  return ::DefWindowProcW(window, msg, wParam, lParam);
}

std::int32_t Scroll::GetMax() const { return m_state->range.length; }
std::int32_t Scroll::GetPage() const { return m_state->range.page; }
std::int32_t Scroll::GetPos() const { return m_state->range.position; }
std::int32_t Scroll::GetThumbPos() const { return m_state->thumbPlace(); }
std::int32_t Scroll::GetThumbSize() const { return m_state->thumbSize(); }

void Scroll::SetBgColor(COLORREF color) {
  m_state->ground = color;
  redrawIfThere(*this);
}

void Scroll::SetMouseDownColor(COLORREF color) {
  m_state->down = color;
  redrawIfThere(*this);
}

void Scroll::SetMouseMoveColor(COLORREF color) {
  m_state->hovered = color;
  redrawIfThere(*this);
}

void Scroll::SetMouseUpColor(COLORREF color) {
  m_state->up = color;
  redrawIfThere(*this);
}

}  // namespace AppWnd
