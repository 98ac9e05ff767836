#include "BaseWindow.h"

#include <atomic>

// API functions carry `::` throughout: the members hide them, and a call to oneself would compile.
namespace BaseWnd {

BaseWindow::~BaseWindow() = default;

void BaseWindow::Destroy() {}

bool BaseWindow::Notice(long /*code*/) const { return false; }

__int64 BaseWindow::SendParentMsg(unsigned msg, unsigned __int64 wParam, __int64 lParam) const {
  return ::SendMessageW(::GetParent(GetWnd()), msg, wParam, lParam);
}

__int64 BaseWindow::SendSelfMsg(unsigned msg, unsigned __int64 wParam, __int64 lParam) const {
  return ::SendMessageW(GetWnd(), msg, wParam, lParam);
}

void BaseWindow::Show() const { ::ShowWindow(GetWnd(), SW_SHOW); }
void BaseWindow::Show(int cmd) const { ::ShowWindow(GetWnd(), cmd); }
void BaseWindow::Hide() const { ::ShowWindow(GetWnd(), SW_HIDE); }
bool BaseWindow::IsVisible() const { return ::IsWindowVisible(GetWnd()) != 0; }
void BaseWindow::Enable() const { ::EnableWindow(GetWnd(), TRUE); }
void BaseWindow::Disable() const { ::EnableWindow(GetWnd(), FALSE); }
bool BaseWindow::IsEnable() const { return ::IsWindowEnabled(GetWnd()) != 0; }
bool BaseWindow::IsWindow() const {
  const HWND handle = GetWnd();
  return handle != nullptr && ::IsWindow(handle) != 0;
}

void BaseWindow::Move(int x, int y, int width, int height) const {
  ::MoveWindow(GetWnd(), x, y, width, height, TRUE);
  ReDraw(true);
}

void BaseWindow::Move(const RECT& r) const { Move(r.left, r.top, r.right, r.bottom); }

void BaseWindow::ReDraw(bool erase) const { ::InvalidateRect(GetWnd(), nullptr, erase); }

void BaseWindow::GetClientRect(RECT& rect) const { ::GetClientRect(GetWnd(), &rect); }

void BaseWindow::GetClientSize(SIZE& size) const {
  RECT rect{};
  ::GetClientRect(GetWnd(), &rect);
  size.cx = rect.right - rect.left;
  size.cy = rect.bottom - rect.top;
}

// The window's thread may let go of the handle while senders on other threads read it. An atomic member would be another type
// at the border.
HWND BaseWindow::GetWnd() const { return std::atomic_ref(const_cast<HWND&>(m_handle)).load(); }
void BaseWindow::SetWnd(HWND handle) { std::atomic_ref(m_handle).store(handle); }
HWND BaseWindow::GetParentWnd() const { return ::GetParent(GetWnd()); }

}  // namespace BaseWnd
