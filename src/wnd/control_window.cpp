#include "AppWindow.h"

namespace AppWnd {

CtrlWnd::CtrlWnd(const qzstd::Rect& rect) : m_rect(&rect) {}

void CtrlWnd::Move() const { Move(*m_rect); }

void CtrlWnd::Move(const qzstd::Rect& rect) const {
  ::MoveWindow(GetWnd(), rect.x, rect.y, rect.width, rect.height, TRUE);
  ReDraw(true);
}

void CtrlWnd::Move(int dy) const { Move(qzstd::Rect{m_rect->x, m_rect->y - dy, m_rect->width, m_rect->height}); }

}  // namespace AppWnd
