#pragma once

#include "BaseWindow.h"
#include "Geometry.h"

namespace AppWnd {

/// A window of the application: what tasks hold, and what is told of their results.
///
/// The object keeps the address of its rectangle, not a copy: the rectangle outlives the window, and the next `Move()` sees a
/// change to it. A task keeps this object alive, but not the system's window behind it.
class APPCOMM_API CWnd : public BaseWnd::BaseDlgWnd {
 public:
  explicit CWnd(const qzstd::Rect& rect);

  /// Send a message to the parent window, or to the window itself, from a new detached thread, so that the caller never waits
  /// for the thread of the user interface. The messages of several calls arrive in no fixed order. The object must live until
  /// the message has been sent. Throws `std::system_error` when the thread cannot be started.
  virtual void ThreadToParent(unsigned msg, unsigned __int64 wParam, __int64 lParam) const;
  virtual void ThreadToSelf(unsigned msg, unsigned __int64 wParam, __int64 lParam) const;

  using BaseWindow::Move;
  /// To the kept rectangle, then `ReDraw(true)`.
  void Move() const;

 private:
  const qzstd::Rect* m_rect;
};

}  // namespace AppWnd
