#include "AppWindow.h"

#include <thread>

namespace AppWnd {

CWnd::CWnd(const qzstd::Rect& rect) : m_rect(&rect) {}

void CWnd::ThreadToParent(unsigned msg, unsigned __int64 wParam, __int64 lParam) const {
  std::thread([this, msg, wParam, lParam] { SendParentMsg(msg, wParam, lParam); }).detach();
}

void CWnd::ThreadToSelf(unsigned msg, unsigned __int64 wParam, __int64 lParam) const {
  std::thread([this, msg, wParam, lParam] { SendSelfMsg(msg, wParam, lParam); }).detach();
}

void CWnd::Move() const {
  ::MoveWindow(GetWnd(), m_rect->x, m_rect->y, m_rect->width, m_rect->height, TRUE);
  ReDraw(true);
}

}  // namespace AppWnd
