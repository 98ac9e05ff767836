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

/// A window of the application as `CWnd` is, of a kind that no task holds: the control library supplies its `Destroy`.
class APPCOMM_API CDlgWnd : public BaseWnd::BaseDlgWnd {
 public:
  explicit CDlgWnd(const qzstd::Rect& rect);

  void Destroy() override;
  /// As those of `CWnd`.
  virtual void ThreadToParent(unsigned msg, unsigned __int64 wParam, __int64 lParam) const;
  virtual void ThreadToSelf(unsigned msg, unsigned __int64 wParam, __int64 lParam) const;

 protected:
  /// As it is now: the caller may have changed it.
  const qzstd::Rect& rect() const { return *m_rect; }

 private:
  const qzstd::Rect* m_rect;
};

/// What every control is: a child window at a rectangle. It keeps the rectangle's address, not a copy, as `CWnd` does. All
/// members belong to the thread of the window.
class APPCOMM_API CtrlWnd : public BaseWnd::BaseDlgWnd {
 public:
  explicit CtrlWnd(const qzstd::Rect& rect);

  using BaseWindow::Move;
  /// To the kept rectangle, to another one, or to the kept one `dy` pixels higher, as scrolling needs it; then `ReDraw(true)`.
  void Move() const;
  void Move(const qzstd::Rect& rect) const;
  void Move(int dy) const;

 protected:
  /// As it is now: the caller may have changed it.
  const qzstd::Rect& rect() const { return *m_rect; }

  // Set by the control library.
  std::int32_t m_id = 0;      ///< comes with what the control tells its parent
  std::uint32_t m_flags = 0;  ///< how the control looks just now: under the mouse, pressed, with the keyboard

 private:
  const qzstd::Rect* m_rect;
};

}  // namespace AppWnd
