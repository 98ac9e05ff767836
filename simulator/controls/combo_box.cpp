#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <utility>

#include "Controls.h"
#include "simulator/controls/ControlWindow.h"
#include "simulator/controls/Drawing.h"
#include "simulator/controls/DropList.h"
#include "simulator/controls/EditDrawing.h"
#include "simulator/controls/ListChoice.h"
#include "simulator/controls/WindowText.h"

namespace {

using controls::kNoEntry;

constexpr std::int32_t kMostShown = 8;
constexpr std::int32_t kToTheEnd = 1 << 20;
constexpr int kArrowRoom = 30;

struct KeyStep {
  unsigned virtualKey;
  std::int32_t step;
};
constexpr std::array kKeySteps{
    KeyStep{VK_UP, -1},
    KeyStep{VK_DOWN, 1},
    KeyStep{VK_LEFT, -1},
    KeyStep{VK_RIGHT, 1},
    KeyStep{VK_PRIOR, -kMostShown},
    KeyStep{VK_NEXT, kMostShown},
    KeyStep{VK_HOME, -kToTheEnd},
    KeyStep{VK_END, kToTheEnd},
};

std::int32_t stepOf(unsigned __int64 virtualKey) {
  const auto key = std::find_if(kKeySteps.begin(), kKeySteps.end(),
                                [virtualKey](const KeyStep& each) { return each.virtualKey == virtualKey; });
  return key == kKeySteps.end() ? 0 : key->step;
}

// With an upper half of zero the pointer is taken as a letter.
wchar_t smallLetter(wchar_t letter) {
  const auto lowered = reinterpret_cast<ULONG_PTR>(::CharLowerW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(letter))));
  return static_cast<wchar_t>(lowered);
}

std::chrono::milliseconds messageTime() { return std::chrono::milliseconds(static_cast<std::uint32_t>(::GetMessageTime())); }

RECT onScreen(HWND from, const qzstd::Rect& rect) {
  POINT corner{rect.x, rect.y};
  ::ClientToScreen(from, &corner);
  return {corner.x, corner.y, corner.x + rect.width, corner.y + rect.height};
}

// Below the box, or above it where the screen ends too soon.
RECT besideBox(HWND box, int height) {
  RECT place{};
  ::GetWindowRect(box, &place);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  ::GetMonitorInfoW(::MonitorFromWindow(box, MONITOR_DEFAULTTONEAREST), &monitor);
  const bool isBelow = place.bottom + height <= monitor.rcWork.bottom || place.top - height < monitor.rcWork.top;
  const LONG top = isBelow ? place.bottom : place.top - height;
  return {place.left, top, place.right, top + height};
}

// Takes the keys that otherwise belong to the dialog, while the list is dropped.
bool isForList(__int64 lParam) {
  const auto* message = reinterpret_cast<const MSG*>(lParam);
  return message != nullptr && message->message == WM_KEYDOWN && (message->wParam == VK_RETURN || message->wParam == VK_ESCAPE);
}

// What presses the box drops its list, which then has the mouse and the keys.
bool changesLook(unsigned msg) {
  return msg != WM_KEYDOWN && msg != WM_KEYUP && msg != WM_LBUTTONDOWN && msg != WM_LBUTTONDBLCLK;
}

}  // namespace

namespace AppWnd {

struct ComBox::State {
  std::wstring_view chosenText() const;
  bool choose(std::int32_t index);
  void toggle(HWND window);
  void dropAgain(HWND window);
  void shut(HWND window);
  void redraw(HWND window);

  bool key(HWND window, unsigned __int64 virtualKey);
  bool letter(HWND window, wchar_t unit);
  bool listTold(HWND window, unsigned what);
  std::optional<__int64> answer(unsigned msg, unsigned __int64 wParam, __int64 lParam) const;
  void draw(HDC dc, const RECT& area, std::uint32_t flags) const;

  controls::ListContent content;
  qzstd::Rect listRect;  // in the parent; all zero: beside the box
  controls::LetterSearch search{smallLetter};
  controls::DropList list{content};
};

std::wstring_view ComBox::State::chosenText() const {
  return content.choice == kNoEntry ? std::wstring_view() : content.entries[static_cast<std::size_t>(content.choice)];
}

// Whether it is another one now.
bool ComBox::State::choose(std::int32_t index) {
  const bool isEntry = index >= 0 && index < content.count();
  const std::int32_t former = std::exchange(content.choice, isEntry ? index : kNoEntry);
  list.showChoice();
  return former != content.choice;
}

void ComBox::State::redraw(HWND window) {
  if (window != nullptr) ::InvalidateRect(window, nullptr, FALSE);
}

void ComBox::State::toggle(HWND window) {
  if (list.isDropped()) {
    shut(window);
  } else if (content.count() != 0) {
    const int height = std::min(kMostShown, content.count()) * content.itemHeight + 2;
    const bool isGiven = listRect.width != 0 || listRect.height != 0 || listRect.x != 0 || listRect.y != 0;
    list.drop(window, isGiven ? onScreen(::GetParent(window), listRect) : besideBox(window, height));
    redraw(window);
  }
}

// As the content, or the place, is another one now.
void ComBox::State::dropAgain(HWND window) {
  if (list.isDropped()) {
    shut(window);
    toggle(window);
  }
  redraw(window);
}

void ComBox::State::shut(HWND window) {
  list.Destroy();
  redraw(window);
}

// Whether the choice changed; so the next two.
bool ComBox::State::key(HWND window, unsigned __int64 virtualKey) {
  const bool isDropped = list.isDropped();
  if (virtualKey == VK_F4) toggle(window);
  if (isDropped && (virtualKey == VK_RETURN || virtualKey == VK_ESCAPE)) shut(window);
  const std::int32_t step = stepOf(virtualKey);
  return step != 0 && choose(controls::entryAfter(content.choice, step, content.count()));
}

bool ComBox::State::letter(HWND window, wchar_t unit) {
  if (unit == L' ' && !search.isUnderWay(messageTime())) {
    toggle(window);
    return false;
  }
  return unit >= L' ' && choose(search.type(unit, messageTime(), content.entries, content.choice));
}

bool ComBox::State::listTold(HWND window, unsigned what) {
  const std::int32_t clicked = list.clicked();
  shut(window);
  return what == LBN_SELCHANGE && choose(clicked);
}

// The text is the chosen entry's, and not for others to set. None: it is another message.
std::optional<__int64> ComBox::State::answer(unsigned msg, unsigned __int64 wParam, __int64 lParam) const {
  if (msg == WM_SETTEXT) return CB_ERR;
  if (msg != WM_GETTEXT && msg != WM_GETTEXTLENGTH) return std::nullopt;
  return controls::answerText(chosenText(), msg, wParam, lParam);
}

void ComBox::State::draw(HDC dc, const RECT& area, std::uint32_t flags) const {
  using namespace controls;
  const bool isDisabled = (flags & kDisabled) != 0;
  drawField(dc, area, flags | (list.isDropped() ? kPressed : 0U), false);
  RECT text = textArea(area);
  text.right = area.right - kArrowRoom;
  drawText(dc, text, std::wstring(chosenText()), isDisabled ? mixed(content.color, theme::kGround, 45) : content.color);
  const POINT middle{area.right - kArrowRoom / 2, (area.top + area.bottom) / 2};
  const int down = list.isDropped() ? -2 : 2;
  const std::array arrow{POINT{middle.x - 4, middle.y - down}, POINT{middle.x, middle.y + down},
                         POINT{middle.x + 4, middle.y - down}};
  drawLines(dc, arrow.data(), static_cast<int>(arrow.size()), isDisabled ? theme::kBorder : theme::kPaleText, 2);
}

ComBox::ComBox(std::int32_t id, const qzstd::Rect& rect) : CtrlWnd(rect), m_state(std::make_unique<State>()) { m_id = id; }

ComBox::~ComBox() { m_state->list.Destroy(); }

bool ComBox::Create(HWND parent) {
  if (IsWindow()) return true;
  const bool isDisabled = (m_flags & controls::kDisabled) != 0;
  m_flags = 0;
  if (!controls::newWindow(*this, parent, rect(), m_id, L"", true)) return false;
  if (isDisabled) Disable();
  return true;
}

__int64 ComBox::RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  const HWND window = GetWnd();
  if (window == nullptr) return 0;
  const auto tellWhen = [window](bool isChanged) {  // the last thing done: the parent may destroy the box
    if (!isChanged) return 0;
    ::InvalidateRect(window, nullptr, FALSE);
    controls::tellParent(window, CBN_SELCHANGE);
    return 0;
  };
  if (changesLook(msg)) controls::follow(window, m_flags, msg, wParam, lParam);
  const bool isEnabled = (m_flags & controls::kDisabled) == 0;
  switch (msg) {
    case WM_PAINT:
    case WM_PRINTCLIENT:
      controls::paint(window, msg, wParam, [this](HDC dc, const RECT& area) { m_state->draw(dc, area, m_flags); });
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS | DLGC_WANTCHARS | (m_state->list.isDropped() && isForList(lParam) ? DLGC_WANTMESSAGE : 0);
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      if (!isEnabled) return 0;
      ::SetFocus(window);
      if (::IsWindow(window)) m_state->toggle(window);
      return 0;
    case WM_KEYDOWN:
      return tellWhen(isEnabled && m_state->key(window, wParam));
    case WM_CHAR:
      return tellWhen(isEnabled && m_state->letter(window, static_cast<wchar_t>(wParam)));
    case WM_SYSKEYDOWN:
      if (!isEnabled || (wParam != VK_DOWN && wParam != VK_UP)) break;
      m_state->toggle(window);
      return 0;
    case WM_COMMAND:
      if (reinterpret_cast<HWND>(lParam) == m_state->list.GetWnd()) return tellWhen(m_state->listTold(window, HIWORD(wParam)));
      break;
    case WM_MOUSEWHEEL:  // a shut box leaves it to the page: a setting must not change because somebody scrolls past it
      if (!m_state->list.isDropped()) break;
      return m_state->list.SendSelfMsg(msg, wParam, lParam);
    case WM_KILLFOCUS:
    case WM_ENABLE:
    case WM_SHOWWINDOW:
    case WM_MOVE:
    case WM_SIZE:
    case WM_DESTROY:
      m_state->shut(window);
      return 0;
    default:
      break;
  }
  if (const auto answer = m_state->answer(msg, wParam, lParam)) return *answer;
  return ::DefWindowProcW(window, msg, wParam, lParam);
}

void ComBox::Append(const qzstd::Text& text) {
  m_state->content.entries.push_back(text.text);
  m_state->dropAgain(GetWnd());
}

void ComBox::Clear() {
  m_state->content.entries.clear();
  m_state->content.choice = kNoEntry;
  m_state->shut(GetWnd());
}

std::int32_t ComBox::GetCurSel() const { return m_state->content.choice; }

void ComBox::SetCurSel(std::int32_t index) {
  m_state->choose(index);
  m_state->redraw(GetWnd());
}

void ComBox::SetColor(COLORREF color) {
  m_state->content.color = color;
  m_state->dropAgain(GetWnd());
}

void ComBox::SetScrollRect(const qzstd::Rect& rect) {
  m_state->content.scrollRect = rect;
  m_state->dropAgain(GetWnd());
}

void ComBox::SetWndItem(std::int32_t height) {
  m_state->content.itemHeight = std::max(1, height);
  m_state->dropAgain(GetWnd());
}

void ComBox::SetWndRect(const qzstd::Rect& rect) {
  m_state->listRect = rect;
  m_state->dropAgain(GetWnd());
}

}  // namespace AppWnd
