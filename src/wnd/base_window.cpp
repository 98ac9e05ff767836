#include "BaseWindow.h"

// API functions carry `::` throughout: the members hide them, and a call to oneself would compile.
namespace BaseWnd {

BaseWindow::~BaseWindow() = default;

void BaseWindow::Destroy() {}

bool BaseWindow::Notice(long /*code*/) const { return false; }

__int64 BaseWindow::SendParentMsg(unsigned msg, unsigned __int64 wParam, __int64 lParam) const {
  return ::SendMessageW(::GetParent(m_handle), msg, wParam, lParam);
}

__int64 BaseWindow::SendSelfMsg(unsigned msg, unsigned __int64 wParam, __int64 lParam) const {
  return ::SendMessageW(m_handle, msg, wParam, lParam);
}

void BaseWindow::Show() const { ::ShowWindow(m_handle, SW_SHOW); }
void BaseWindow::Show(int cmd) const { ::ShowWindow(m_handle, cmd); }
void BaseWindow::Hide() const { ::ShowWindow(m_handle, SW_HIDE); }
bool BaseWindow::IsVisible() const { return ::IsWindowVisible(m_handle) != 0; }
void BaseWindow::Enable() const { ::EnableWindow(m_handle, TRUE); }
void BaseWindow::Disable() const { ::EnableWindow(m_handle, FALSE); }
bool BaseWindow::IsEnable() const { return ::IsWindowEnabled(m_handle) != 0; }
bool BaseWindow::IsWindow() const { return m_handle != nullptr && ::IsWindow(m_handle) != 0; }

void BaseWindow::Move(int x, int y, int width, int height) const {
  ::MoveWindow(m_handle, x, y, width, height, TRUE);
  ReDraw(true);
}

void BaseWindow::Move(const RECT& r) const { Move(r.left, r.top, r.right, r.bottom); }

void BaseWindow::ReDraw(bool erase) const { ::InvalidateRect(m_handle, nullptr, erase); }

void BaseWindow::GetClientRect(RECT& rect) const { ::GetClientRect(m_handle, &rect); }

void BaseWindow::GetClientSize(SIZE& size) const {
  RECT rect{};
  ::GetClientRect(m_handle, &rect);
  size.cx = rect.right - rect.left;
  size.cy = rect.bottom - rect.top;
}

HWND BaseWindow::GetWnd() const { return m_handle; }
void BaseWindow::SetWnd(HWND handle) { m_handle = handle; }
HWND BaseWindow::GetParentWnd() const { return ::GetParent(m_handle); }

}  // namespace BaseWnd
