#include "AppWindow.h"

#include "platform/DetachedThread.h"

namespace AppWnd {
namespace {

using BaseWnd::BaseWindow;
using Sender = __int64 (BaseWindow::*)(unsigned msg, unsigned __int64 wParam, __int64 lParam) const;

// The message waits for the thread of the window, so it gets a thread of its own. Through the table: a derived class may have
// senders of its own.
void sendFromNewThread(const BaseWindow& window, Sender send, unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  platform::startDetached([&window, send, msg, wParam, lParam] { (window.*send)(msg, wParam, lParam); });
}

}  // namespace

CWnd::CWnd(const qzstd::Rect& rect) : m_rect(&rect) {}

void CWnd::ThreadToParent(unsigned msg, unsigned __int64 wParam, __int64 lParam) const {
  sendFromNewThread(*this, &BaseWindow::SendParentMsg, msg, wParam, lParam);
}

void CWnd::ThreadToSelf(unsigned msg, unsigned __int64 wParam, __int64 lParam) const {
  sendFromNewThread(*this, &BaseWindow::SendSelfMsg, msg, wParam, lParam);
}

void CWnd::Move() const {
  ::MoveWindow(GetWnd(), m_rect->x, m_rect->y, m_rect->width, m_rect->height, TRUE);
  ReDraw(true);
}

CDlgWnd::CDlgWnd(const qzstd::Rect& rect) : m_rect(&rect) {}

void CDlgWnd::ThreadToParent(unsigned msg, unsigned __int64 wParam, __int64 lParam) const {
  sendFromNewThread(*this, &BaseWindow::SendParentMsg, msg, wParam, lParam);
}

void CDlgWnd::ThreadToSelf(unsigned msg, unsigned __int64 wParam, __int64 lParam) const {
  sendFromNewThread(*this, &BaseWindow::SendSelfMsg, msg, wParam, lParam);
}

}  // namespace AppWnd
