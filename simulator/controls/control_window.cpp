#include "simulator/controls/ControlWindow.h"

#include <windowsx.h>

#include "simulator/controls/Drawing.h"
#include "simulator/controls/Gdi.h"

namespace controls {
namespace {

constexpr const wchar_t* kClass = L"AppCommunicationControl";
constexpr LPARAM kKeyWasDown = 1 << 30;  // in the second value of a key's message

// The controls' code is in the module, or in a program that is linked with it: the class belongs to whichever it is.
HINSTANCE ownModule() {
  HMODULE module = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ownModule), &module);
  return module;
}

BaseWnd::BaseDlgWnd* controlOf(HWND window, UINT msg, LPARAM lParam) {
  if (msg != WM_NCCREATE) return reinterpret_cast<BaseWnd::BaseDlgWnd*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  auto* control = static_cast<BaseWnd::BaseDlgWnd*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
  ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(control));
  control->SetWnd(window);
  return control;
}

LRESULT CALLBACK procedure(HWND window, UINT msg, WPARAM wParam, LPARAM lParam) {
  auto* control = controlOf(window, msg, lParam);
  // A control whose destructor destroys the window has let go of the handle and has no `RunProc` any more.
  if (control == nullptr || control->GetWnd() != window) return ::DefWindowProcW(window, msg, wParam, lParam);
  if (msg != WM_NCDESTROY) return control->RunProc(msg, wParam, lParam);
  const LRESULT answer = control->RunProc(msg, wParam, lParam);
  ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  control->SetWnd(nullptr);  // the parent may have gone, and this window with it
  return answer;
}

bool registerClass() {
  WNDCLASSW windowClass{};
  windowClass.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = ownModule();
  windowClass.hCursor = ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  windowClass.lpszClassName = kClass;
  // A module that was unloaded and loaded again finds its own class, with the same procedure at the same address.
  return ::RegisterClassW(&windowClass) != 0 || ::GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

bool isClassThere() {
  static const bool registered = registerClass();
  return registered;
}

std::uint32_t flagsAfter(std::uint32_t flags, unsigned msg, unsigned __int64 wParam) {
  const bool takesInput = (flags & kDisabled) == 0;
  switch (msg) {
    case WM_MOUSEMOVE:
      return takesInput ? flags | kHovered : flags;
    case WM_MOUSELEAVE:
      return flags & ~kHovered;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      return takesInput ? flags | kPressed : flags;
    case WM_KEYDOWN:
      return takesInput && wParam == VK_SPACE ? flags | kPressed : flags;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
      return flags & ~kPressed;
    case WM_KEYUP:
      return wParam == VK_SPACE ? flags & ~kPressed : flags;
    case WM_SETFOCUS:
      return flags | kFocused;
    case WM_KILLFOCUS:
      return flags & ~(kFocused | kPressed);
    case WM_ENABLE:
      return wParam != 0 ? flags & ~kDisabled : (flags | kDisabled) & ~(kHovered | kPressed);
    default:
      return flags;
  }
}

bool isOver(HWND window, __int64 lParam) {
  RECT area{};
  ::GetClientRect(window, &area);
  return ::PtInRect(&area, mousePlace(lParam)) != 0;
}

bool isClick(HWND window, std::uint32_t before, unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  if (msg == WM_LBUTTONUP) return (before & kPressed) != 0 && isOver(window, lParam);
  if (msg == WM_KEYUP) return (before & kPressed) != 0 && wParam == VK_SPACE;
  const bool repeated = (lParam & kKeyWasDown) != 0;
  return msg == WM_KEYDOWN && wParam == VK_RETURN && !repeated && (before & kDisabled) == 0;
}

void askForLeave(HWND window) {
  TRACKMOUSEEVENT event{sizeof event, TME_LEAVE, window, 0};
  ::TrackMouseEvent(&event);
}

void paintOn(HWND window, HDC target, const std::function<void(HDC dc, const RECT& area)>& draw) {
  RECT area{};
  ::GetClientRect(window, &area);
  const Gdi<HBITMAP> bitmap(::CreateCompatibleBitmap(target, area.right, area.bottom));
  const GdiContext memory(::CreateCompatibleDC(target));
  const Selected selected(memory.get(), bitmap.get());
  const auto ground = reinterpret_cast<HBRUSH>(::SendMessageW(
      ::GetParent(window), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(memory.get()), reinterpret_cast<LPARAM>(window)));
  if (ground == nullptr) {
    fill(memory.get(), area, theme::kGround);
  } else {
    ::FillRect(memory.get(), &area, ground);
  }
  draw(memory.get(), area);
  ::BitBlt(target, 0, 0, area.right, area.bottom, memory.get(), 0, 0, SRCCOPY);
}

}  // namespace

bool newWindow(BaseWnd::BaseDlgWnd& control, HWND parent, const qzstd::Rect& rect, std::int32_t id, const std::wstring& text,
               bool stops) {
  if (control.IsWindow()) return true;
  if (!isClassThere()) return false;
  const DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | (stops ? WS_TABSTOP : 0);
  return ::CreateWindowExW(0, kClass, text.c_str(), style, rect.x, rect.y, rect.width, rect.height, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ownModule(), &control) != nullptr;
}

bool newPopup(BaseWnd::BaseDlgWnd& control, HWND owner, const RECT& place) {
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  if (!isClassThere() ||
      ::CreateWindowExW(WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW, kClass, L"", WS_POPUP | WS_CLIPCHILDREN, place.left, place.top,
                        width, height, ::GetAncestor(owner, GA_ROOT), nullptr, ownModule(), &control) == nullptr)
    return false;
  ::ShowWindow(control.GetWnd(), SW_SHOWNOACTIVATE);
  return true;
}

// No window would mean all windows.
void redraw(HWND window) {
  if (window != nullptr) ::InvalidateRect(window, nullptr, FALSE);
}

bool follow(HWND window, std::uint32_t& flags, unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  const std::uint32_t before = flags;
  const bool click = isClick(window, before, msg, wParam, lParam);
  flags = flagsAfter(before, msg, wParam);
  if (msg == WM_MOUSEMOVE && (before & kHovered) == 0) askForLeave(window);
  if ((flags & ~before & kPressed) != 0 && msg != WM_KEYDOWN) ::SetCapture(window);
  if (msg == WM_LBUTTONUP && ::GetCapture() == window) ::ReleaseCapture();
  if (flags != before) redraw(window);
  return click;
}

void tellParent(HWND window, unsigned what) {
  const auto id = static_cast<WORD>(::GetDlgCtrlID(window));
  ::SendMessageW(::GetParent(window), WM_COMMAND, MAKEWPARAM(id, what), reinterpret_cast<LPARAM>(window));
}

void tellScroll(HWND window, unsigned msg, unsigned what, std::int32_t position) {
  const auto word = static_cast<WORD>(position);  // as with the system's scroll bars, who has more asks for it
  ::SendMessageW(::GetParent(window), msg, MAKEWPARAM(what, word), reinterpret_cast<LPARAM>(window));
}

void paint(HWND window, unsigned msg, unsigned __int64 wParam, const std::function<void(HDC dc, const RECT& area)>& draw) {
  if (msg == WM_PAINT) {
    PAINTSTRUCT painting{};
    const HDC screen = ::BeginPaint(window, &painting);
    paintOn(window, screen, draw);
    ::EndPaint(window, &painting);
  } else {
    paintOn(window, reinterpret_cast<HDC>(wParam), draw);
  }
}

POINT mousePlace(__int64 lParam) { return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}; }

}  // namespace controls
