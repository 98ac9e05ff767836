#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>

#include "Controls.h"
#include "simulator/controls/ControlWindow.h"
#include "simulator/controls/Drawing.h"
#include "simulator/controls/ThumbGeometry.h"

namespace {

constexpr std::int32_t kLast = 100;
constexpr int kThumb = 18;
constexpr int kTrack = 4;

struct KeyStep {
  unsigned virtualKey;
  std::int32_t step;
};
constexpr std::array kKeySteps{
    KeyStep{VK_LEFT, -1},  KeyStep{VK_RIGHT, 1},  KeyStep{VK_DOWN, -1},     KeyStep{VK_UP, 1},
    KeyStep{VK_NEXT, -10}, KeyStep{VK_PRIOR, 10}, KeyStep{VK_HOME, -kLast}, KeyStep{VK_END, kLast},
};

std::int32_t stepOf(unsigned __int64 virtualKey) {
  const auto key = std::find_if(kKeySteps.begin(), kKeySteps.end(),
                                [virtualKey](const KeyStep& each) { return each.virtualKey == virtualKey; });
  return key == kKeySteps.end() ? 0 : key->step;
}

bool isPress(unsigned msg) { return msg == WM_LBUTTONDOWN || msg == WM_LBUTTONDBLCLK; }

int widthOf(HWND window) {
  RECT area{};
  ::GetClientRect(window, &area);
  return area.right;
}

}  // namespace

namespace AppWnd {

struct Slider::State {
  int thumbPlace(int width) const { return controls::thumbPlace(position, kLast, width - kThumb); }
  bool moveTo(std::int32_t to);
  bool press(int x, int width);
  bool drag(int x, int width);
  void draw(HDC dc, const RECT& area, std::uint32_t flags) const;
  void drawThumb(HDC dc, const RECT& area, std::uint32_t flags) const;

  std::int32_t position = 0;
  std::optional<int> grip{};  // where the thumb is held, right of its left edge
};

bool Slider::State::moveTo(std::int32_t to) {
  const std::int32_t former = std::exchange(position, std::clamp(to, 0, kLast));
  return former != position;
}

// Beside the thumb, it comes to the mouse at once and is held there.
bool Slider::State::press(int x, int width) {
  const int place = thumbPlace(width);
  const bool isOnThumb = x >= place && x < place + kThumb;
  grip = isOnThumb ? x - place : kThumb / 2;
  return drag(x, width);
}

bool Slider::State::drag(int x, int width) {
  // A thumb that is held without being moved stays, though some other position may have the same pixel.
  return grip && x - *grip != thumbPlace(width) && moveTo(controls::thumbPosition(x - *grip, kLast, width - kThumb));
}

void Slider::State::draw(HDC dc, const RECT& area, std::uint32_t flags) const {
  using namespace controls;
  const int top = (area.bottom - kTrack) / 2;
  const int middle = thumbPlace(area.right) + kThumb / 2;
  const bool isDisabled = (flags & kDisabled) != 0;
  const COLORREF rest = mixed(theme::kBorder, theme::kGround, isDisabled ? 70 : 40);
  const COLORREF done = isDisabled ? mixed(theme::kAccent, theme::kGround, 65) : theme::kAccent;
  fillRound(dc, {area.left + kThumb / 2, top, area.right - kThumb / 2, top + kTrack}, kTrack / 2, rest, rest);
  fillRound(dc, {area.left + kThumb / 2, top, middle, top + kTrack}, kTrack / 2, done, done);
  drawThumb(dc, area, flags);
}

void Slider::State::drawThumb(HDC dc, const RECT& area, std::uint32_t flags) const {
  using namespace controls;
  const int left = thumbPlace(area.right);
  const int top = (area.bottom - kThumb) / 2;
  const RECT place{left, top, left + kThumb, top + kThumb};
  const bool isDisabled = (flags & kDisabled) != 0;
  const COLORREF border = isDisabled ? mixed(theme::kBorder, theme::kGround, 50) : theme::kAccent;
  const COLORREF hovered = mixed(theme::kSurface, theme::kAccent, 18);
  fillEllipse(dc, place, grip ? theme::kAccent : (flags & kHovered) != 0 ? hovered : theme::kSurface, border);
  const RECT dot{place.left + 5, place.top + 5, place.right - 5, place.bottom - 5};
  fillEllipse(dc, dot, grip ? theme::kOnAccent : border, grip ? theme::kOnAccent : border);
  if ((flags & kFocused) != 0 && !isDisabled) drawFocus(dc, place, kThumb / 2);
}

Slider::Slider(std::int32_t id, const qzstd::Rect& rect) : CtrlWnd(rect), m_state(std::make_unique<State>()) { m_id = id; }

Slider::~Slider() = default;

bool Slider::Create(HWND parent) {
  if (IsWindow()) return true;
  const bool isDisabled = !GetEnable();
  m_flags = 0;
  if (!controls::newWindow(*this, parent, rect(), m_id, L"", true)) return false;
  if (isDisabled) Disable();
  return true;
}

__int64 Slider::RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  const HWND window = GetWnd();
  if (window == nullptr) return 0;
  const auto tell = [this, window](unsigned what) {  // the last thing done: the parent may destroy the slider
    ReDraw(false);
    controls::tellScroll(window, WM_HSCROLL, what, m_state->position);
    return 0;
  };
  const int x = controls::mousePlace(lParam).x;
  const bool isLetGo = (msg == WM_LBUTTONUP || msg == WM_CAPTURECHANGED) && m_state->grip.has_value();
  if (isLetGo) m_state->grip.reset();
  // The space bar presses nothing here.
  if (msg != WM_KEYDOWN && msg != WM_KEYUP) controls::follow(window, m_flags, msg, wParam, lParam);
  if (isLetGo) return tell(SB_ENDSCROLL);
  if (isPress(msg) && (m_flags & controls::kPressed) != 0) {
    ::SetFocus(window);
    if (!::IsWindow(window)) return 0;
    return m_state->press(x, widthOf(window)) ? tell(SB_THUMBTRACK) : (ReDraw(false), 0);
  }
  switch (msg) {
    case WM_PAINT:
    case WM_PRINTCLIENT:
      controls::paint(window, msg, wParam, [this](HDC dc, const RECT& area) { m_state->draw(dc, area, m_flags); });
      return 0;
    case WM_SIZE:
      ReDraw(false);
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_MOUSEMOVE:
      return m_state->drag(x, widthOf(window)) ? tell(SB_THUMBTRACK) : 0;
    case WM_KEYDOWN:
      return GetEnable() && m_state->moveTo(m_state->position + stepOf(wParam)) ? tell(SB_THUMBPOSITION) : 0;
    case WM_NCDESTROY:
      m_state->grip.reset();
      break;
    default:
      break;
  }
  return ::DefWindowProcW(window, msg, wParam, lParam);
}

bool Slider::GetEnable() const { return (m_flags & controls::kDisabled) == 0; }
bool Slider::GetMove() const { return m_state->grip.has_value(); }
std::int32_t Slider::GetPos() const { return m_state->position; }

void Slider::SetPos(std::int32_t position) {
  if (m_state->moveTo(position) && GetWnd() != nullptr) ReDraw(false);
}

}  // namespace AppWnd
