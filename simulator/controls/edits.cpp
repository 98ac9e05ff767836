#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "Controls.h"
#include "simulator/controls/Clipboard.h"
#include "simulator/controls/ControlWindow.h"
#include "simulator/controls/Drawing.h"
#include "simulator/controls/EditDrawing.h"
#include "simulator/controls/EditText.h"
#include "simulator/controls/Ipv4Text.h"
#include "simulator/controls/WindowText.h"

namespace {

// What the keys of Ctrl arrive as, whatever the keyboard's language.
enum ControlCharacter : wchar_t { kCtrlA = 0x01, kBackspace = 0x08, kCtrlC = 0x03, kCtrlV = 0x16, kCtrlX = 0x18 };

enum class Outcome { Nothing, Moved, Changed };

Outcome changed(bool isChanged) { return isChanged ? Outcome::Changed : Outcome::Nothing; }

bool isHeld(int virtualKey) { return ::GetKeyState(virtualKey) < 0; }

bool isDigit(wchar_t unit) { return unit >= L'0' && unit <= L'9'; }
bool isDigitOrDot(wchar_t unit) { return isDigit(unit) || unit == L'.'; }

// While there is one, the keyboard moves because the program says so: the parent is not told of it.
class ProgramMovesKeyboard {
 public:
  ProgramMovesKeyboard() { ++s_count; }
  ~ProgramMovesKeyboard() { --s_count; }
  ProgramMovesKeyboard(const ProgramMovesKeyboard&) = delete;
  ProgramMovesKeyboard& operator=(const ProgramMovesKeyboard&) = delete;

  static bool now() { return s_count != 0; }

 private:
  static inline thread_local int s_count = 0;
};

// The thread's caret may be another window's: that one must not be touched.
bool ownsCaret(HWND window) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  return window != nullptr && ::GetGUIThreadInfo(::GetCurrentThreadId(), &info) != 0 && info.hwndCaret == window;
}

RECT clientArea(HWND window) {
  RECT area{};
  ::GetClientRect(window, &area);
  return area;
}

}  // namespace

namespace AppWnd {

struct EditBase::Kind {
  controls::EditRules rules;
  bool (*isValid)(std::wstring_view text) = nullptr;  // null: every text
  bool isSecret = false;
};

struct EditBase::State {
  explicit State(const Kind& which) : kind(which), text(which.rules) {}

  bool isValid() const { return toldValid.value_or(kind.isValid == nullptr || kind.isValid(text.view())); }

  void set(std::wstring_view units);
  void refresh(HWND window);
  void makeCaret(HWND window);
  void keyboard(HWND window, bool comes);
  void draw(HDC dc, const RECT& area, std::uint32_t flags) const;
  std::optional<__int64> answer(HWND window, unsigned msg, unsigned __int64 wParam, __int64 lParam);

  bool act(HWND window, unsigned msg, unsigned __int64 wParam, __int64 lParam, std::uint32_t flags);
  Outcome key(unsigned __int64 virtualKey);
  Outcome character(HWND window, wchar_t unit);
  Outcome clipboard(HWND window, unsigned msg);
  Outcome mouse(HWND window, unsigned msg, unsigned __int64 wParam, __int64 lParam, std::uint32_t flags);
  void tell(HWND window, Outcome outcome);

  const Kind kind;
  controls::EditText text;
  std::optional<bool> toldValid;  // until the text changes
  int shift = 0;
  COLORREF color = controls::theme::kText;
  bool isEnabled = true;
  bool isCaretHidden = false;
  bool isDragging = false;     // the mouse button that is held began a selection
  bool wantsKeyboard = false;  // as soon as there is a window
};

Outcome EditBase::State::key(unsigned __int64 virtualKey) {
  const bool selecting = isHeld(VK_SHIFT);
  switch (virtualKey) {
    case VK_LEFT:
      text.moveLeft(selecting);
      return Outcome::Moved;
    case VK_RIGHT:
      text.moveRight(selecting);
      return Outcome::Moved;
    case VK_HOME:
      text.moveTo(0, selecting);
      return Outcome::Moved;
    case VK_END:
      text.moveTo(text.view().size(), selecting);
      return Outcome::Moved;
    case VK_DELETE:
      return changed(text.eraseRight());
    default:
      return Outcome::Nothing;
  }
}

Outcome EditBase::State::character(HWND window, wchar_t unit) {
  switch (unit) {
    case kBackspace:
      return changed(text.eraseLeft());
    case kCtrlA:
      text.select(0, text.view().size());
      return Outcome::Moved;
    case kCtrlC:
      return clipboard(window, WM_COPY);
    case kCtrlV:
      return clipboard(window, WM_PASTE);
    case kCtrlX:
      return clipboard(window, WM_CUT);
    default:
      return changed(text.type(unit));
  }
}

Outcome EditBase::State::clipboard(HWND window, unsigned msg) {
  if (msg == WM_CLEAR) return changed(text.eraseSelection());
  if (msg == WM_PASTE) {
    const auto pasted = controls::copiedText(window);
    return changed(text.paste({pasted.data(), pasted.size()}));
  }
  const bool copied = !kind.isSecret && text.hasSelection() && controls::copyText(window, text.selection());
  return changed(msg == WM_CUT && copied && text.eraseSelection());  // what was not copied is not lost either
}

Outcome EditBase::State::mouse(HWND window, unsigned msg, unsigned __int64 wParam, __int64 lParam, std::uint32_t flags) {
  if (msg != WM_MOUSEMOVE) isDragging = msg == WM_LBUTTONDOWN;
  if (msg == WM_LBUTTONDBLCLK) {
    text.select(0, text.view().size());
    return Outcome::Moved;
  }
  if (!isDragging || (flags & controls::kPressed) == 0) return Outcome::Nothing;
  const int x = controls::mousePlace(lParam).x - controls::textArea(clientArea(window)).left + shift;
  const auto place = controls::nearestPlace(controls::edgesOf(text.view(), kind.isSecret), x);
  text.moveTo(place, msg == WM_MOUSEMOVE || (wParam & MK_SHIFT) != 0);
  return Outcome::Moved;
}

// The last thing done for a message: the parent may have destroyed the edit.
void EditBase::State::tell(HWND window, Outcome outcome) {
  if (outcome == Outcome::Nothing) return;
  if (outcome == Outcome::Changed) toldValid.reset();
  refresh(window);
  if (outcome == Outcome::Changed) controls::tellParent(window, EN_CHANGE);
}

// What a person does with the text. False for other messages.
bool EditBase::State::act(HWND window, unsigned msg, unsigned __int64 wParam, __int64 lParam, std::uint32_t flags) {
  const auto told = [&](auto&& act) {
    if (isEnabled) tell(window, act());
    return true;
  };
  switch (msg) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
      return told([&] { return mouse(window, msg, wParam, lParam, flags); });
    case WM_KEYDOWN:
      return told([&] { return key(wParam); });
    case WM_CHAR:
      return told([&] { return character(window, static_cast<wchar_t>(wParam)); });
    case WM_CUT:
    case WM_COPY:
    case WM_PASTE:
    case WM_CLEAR:
      return told([&] { return clipboard(window, msg); });
    default:
      return false;
  }
}

// What can be asked of an edit, and what it can be told, by messages. None: it is another message.
std::optional<__int64> EditBase::State::answer(HWND window, unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  switch (msg) {
    case WM_SETTEXT:
      set(lParam == 0 ? std::wstring_view() : reinterpret_cast<const wchar_t*>(lParam));
      refresh(window);
      return TRUE;
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
      return controls::answerText(kind.isSecret ? std::wstring_view() : text.view(), msg, wParam, lParam);
    case EM_GETSEL:
      if (wParam != 0) *reinterpret_cast<DWORD*>(wParam) = static_cast<DWORD>(text.selectionBegin());
      if (lParam != 0) *reinterpret_cast<DWORD*>(lParam) = static_cast<DWORD>(text.selectionEnd());
      return MAKELRESULT(text.selectionBegin(), text.selectionEnd());
    case EM_SETSEL:  // a dialog sends it when Tab comes to the edit; an end of -1 is the text's
      text.select(static_cast<std::size_t>(wParam), static_cast<std::size_t>(lParam));
      refresh(window);
      return 0;
    case WM_SETCURSOR:
      if (LOWORD(lParam) != HTCLIENT) return std::nullopt;
      ::SetCursor(::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_IBEAM)));
      return TRUE;
    default:
      return std::nullopt;
  }
}

void EditBase::State::set(std::wstring_view units) {
  if (units != text.view()) toldValid.reset();
  text.set(units);
}

// Keeps the caret in sight, and the system's caret where the text's is.
void EditBase::State::refresh(HWND window) {
  if (window == nullptr) return;
  const RECT place = controls::textArea(clientArea(window));
  const auto edges = controls::edgesOf(text.view(), kind.isSecret);
  shift = controls::shiftedTo(shift, edges, text.caret(), std::max(0L, place.right - place.left));
  const RECT caret = controls::caretArea(place, edges[text.caret()] - shift);
  if (ownsCaret(window)) ::SetCaretPos(caret.left, caret.top);
  ::InvalidateRect(window, nullptr, FALSE);
}

void EditBase::State::makeCaret(HWND window) {
  const RECT caret = controls::caretArea({}, 0);
  ::CreateCaret(window, nullptr, caret.right - caret.left, caret.bottom - caret.top);
  refresh(window);
  if (!isCaretHidden) ::ShowCaret(window);
}

void EditBase::State::keyboard(HWND window, bool comes) {
  if (comes) {
    makeCaret(window);
  } else if (ownsCaret(window)) {
    ::DestroyCaret();
  }
  if (!ProgramMovesKeyboard::now()) controls::tellParent(window, comes ? EN_SETFOCUS : EN_KILLFOCUS);
}

void EditBase::State::draw(HDC dc, const RECT& area, std::uint32_t flags) const {
  controls::drawEdit(dc, area,
                     {text.view(), kind.isSecret, text.selectionBegin(), text.selectionEnd(), shift, color, !isValid(), flags});
}

EditBase::EditBase(const qzstd::Rect& rect, const qzstd::Text* text) : EditBase(rect, text, Kind{}) {}

EditBase::EditBase(const qzstd::Rect& rect, const qzstd::Text* text, const Kind& kind)
    : CtrlWnd(rect), m_state(std::make_unique<State>(kind)) {
  if (text != nullptr) m_state->set(text->text);
}

EditBase::~EditBase() = default;

bool EditBase::Create(HWND parent) {
  if (IsWindow()) return true;
  // The system keeps no text for the window: it would keep a password, too.
  m_flags = 0;
  if (!controls::newWindow(*this, parent, rect(), m_id, L"", true)) return false;
  if (!state().isEnabled) ::EnableWindow(GetWnd(), FALSE);
  state().refresh(GetWnd());
  if (std::exchange(state().wantsKeyboard, false)) SetFocus();
  return true;
}

__int64 EditBase::RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  const HWND window = GetWnd();
  if (window == nullptr) return 0;
  // Keys are text here: the space bar presses nothing.
  if (msg != WM_KEYDOWN && msg != WM_KEYUP) controls::follow(window, m_flags, msg, wParam, lParam);
  switch (msg) {
    case WM_PAINT:
    case WM_PRINTCLIENT:
      controls::paint(window, msg, wParam, [this](HDC dc, const RECT& area) { state().draw(dc, area, m_flags); });
      return 0;
    case WM_SIZE:
      state().refresh(window);
      return 0;
    case WM_ENABLE:
      state().isEnabled = wParam != 0;
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_HASSETSEL;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      state().keyboard(window, msg == WM_SETFOCUS);
      return 0;
    case WM_LBUTTONDOWN:
      if (state().isEnabled) ::SetFocus(window);  // by a person: unlike the member, it is told
      if (!::IsWindow(window)) return 0;
      break;
    default:
      break;
  }
  if (const auto answer = state().answer(window, msg, wParam, lParam)) return *answer;
  return state().act(window, msg, wParam, lParam, m_flags) ? 0 : ::DefWindowProcW(window, msg, wParam, lParam);
}

void EditBase::CreateCaret() {
  if (GetWnd() != nullptr) state().makeCaret(GetWnd());
}

void EditBase::DestroyCaret() {
  if (ownsCaret(GetWnd())) ::DestroyCaret();
}

// The system counts how often a caret was hidden; an edit's is hidden or not.
void EditBase::ShowCaret() {
  const bool wasHidden = std::exchange(state().isCaretHidden, false);
  if (wasHidden && ownsCaret(GetWnd())) ::ShowCaret(GetWnd());
}

void EditBase::HideCaret() {
  const bool wasHidden = std::exchange(state().isCaretHidden, true);
  if (!wasHidden && ownsCaret(GetWnd())) ::HideCaret(GetWnd());
}

void EditBase::SetCaretPos(std::int32_t index) {
  state().text.moveTo(static_cast<std::size_t>(std::max(0, index)), false);
  state().refresh(GetWnd());
}

std::wstring EditBase::GetWstr() const { return std::wstring(state().text.view()); }

void EditBase::SetWstr(const std::wstring& text) {
  state().set(text);
  state().refresh(GetWnd());
}

void EditBase::SetColor(COLORREF color) {
  state().color = color;
  state().refresh(GetWnd());
}

void EditBase::SetEnable() {
  state().isEnabled = true;
  if (GetWnd() != nullptr) ::EnableWindow(GetWnd(), TRUE);
}

void EditBase::SetDisable() {
  const ProgramMovesKeyboard program;  // away from an edit that has it
  state().isEnabled = false;
  if (GetWnd() != nullptr) ::EnableWindow(GetWnd(), FALSE);
}

void EditBase::SetFocus() {
  const ProgramMovesKeyboard program;
  state().wantsKeyboard = GetWnd() == nullptr;
  if (GetWnd() != nullptr) ::SetFocus(GetWnd());
}

EditAlarm::EditAlarm(const qzstd::Rect& rect, const qzstd::Text* text) : EditBase(rect, text, Kind{{isDigit, 3}}) {}
EditAlarm::~EditAlarm() = default;

EditCIP::EditCIP(const qzstd::Rect& rect, const qzstd::Text* text)
    : EditBase(rect, text, Kind{{isDigitOrDot, 15}, controls::isIpv4}) {}
EditCIP::~EditCIP() = default;

bool EditCIP::GetIpValid() const { return state().isValid(); }

void EditCIP::SetIpValid(bool valid) {
  state().toldValid = valid;
  state().refresh(GetWnd());
}

EditCPwd::EditCPwd(const qzstd::Rect& rect, const qzstd::Text* text)
    : EditBase(rect, text, Kind{.rules = {}, .isValid = nullptr, .isSecret = true}) {}
EditCPwd::~EditCPwd() = default;

void EditCPwd::Clear() {
  state().set({});
  state().refresh(GetWnd());
}

}  // namespace AppWnd
