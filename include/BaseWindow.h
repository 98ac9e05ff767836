#pragma once

/// The window classes. Where `windows.h` has not come before, it comes in here, lean and without its `min` and `max`. The two
/// macros that say so are afterwards as they were, but what was left out stays out: `windows.h` is read once in each source
/// file. An application that wants all of it includes it first, or a header of the platform by its own name after this one.

#if !defined(WIN32_LEAN_AND_MEAN)
#define WIN32_LEAN_AND_MEAN
#define APPCOMM_MADE_LEAN
#endif
#if !defined(NOMINMAX)
#define NOMINMAX
#define APPCOMM_MADE_NOMINMAX
#endif
#include <windows.h>
#if defined(APPCOMM_MADE_LEAN)
#undef APPCOMM_MADE_LEAN
#undef WIN32_LEAN_AND_MEAN
#endif
#if defined(APPCOMM_MADE_NOMINMAX)
#undef APPCOMM_MADE_NOMINMAX
#undef NOMINMAX
#endif

#include <cstdint>

#include "Export.h"

/// Two overloads in neighbouring slots of the virtual table. Visual C++ gives a group of overloads its slots in the reverse
/// order of declaration, the other compilers in the order of declaration; the table is the same with all of them.
#if defined(_MSC_VER)
#define APPCOMM_VIRTUAL_PAIR(first, second) \
  second;                                   \
  first
#else
#define APPCOMM_VIRTUAL_PAIR(first, second) \
  first;                                    \
  second
#endif

namespace BaseWnd {

/// A thin wrapper around one window handle.
///
/// `Notice` is called on the module's threads, and the two senders may be called on any; every other member belongs to the
/// thread of the window. The wrapper does not own the window: this class destroys nothing. The virtual operations stand in the
/// order of the exported virtual table.
class APPCOMM_API BaseWindow {
 public:
  BaseWindow() = default;
  virtual ~BaseWindow();
  BaseWindow(const BaseWindow&) = delete;
  BaseWindow& operator=(const BaseWindow&) = delete;

  /// Does nothing here; derived classes destroy their window.
  virtual void Destroy();
  /// A task's result is ready. `code` is the one given to the task. False: no further results are wanted, and the task is
  /// dropped. Runs on a handler's thread, which waits for it: forward with `AppWnd::CWnd::ThreadToSelf` and return. An
  /// exception that leaves it ends the process, also the one of a `ThreadToSelf` that gets no thread.
  virtual bool Notice(long code) const;
  /// Sends a message to the parent window, or to the window itself, and waits for the answer, which is returned.
  virtual __int64 SendParentMsg(unsigned msg, unsigned __int64 wParam, __int64 lParam) const;
  virtual __int64 SendSelfMsg(unsigned msg, unsigned __int64 wParam, __int64 lParam) const;
  /// Shows the window, or does what the command of the system (`SW_SHOW`, …) says.
  APPCOMM_VIRTUAL_PAIR(virtual void Show() const, virtual void Show(int cmd) const);
  virtual void Hide() const;
  virtual bool IsVisible() const;
  virtual void Enable() const;
  virtual void Disable() const;
  virtual bool IsEnable() const;
  /// False for a null handle, without asking the system.
  virtual bool IsWindow() const;
  /// Pixels of the parent's client area. Ends with `ReDraw(true)`. Of a `RECT`, `right` and `bottom` are taken as width and
  /// height: callers hand in rectangles that hold a size there.
  APPCOMM_VIRTUAL_PAIR(virtual void Move(int x, int y, int width, int height) const, virtual void Move(const RECT& r) const);
  virtual void ReDraw(bool erase) const;
  virtual void GetClientRect(RECT& rect) const;
  virtual void GetClientSize(SIZE& size) const;

  /// The handle; null when there is no window. Setting it makes and destroys nothing. Any thread.
  HWND GetWnd() const;
  void SetWnd(HWND handle);
  /// Null when there is none.
  HWND GetParentWnd() const;

 private:
  HWND m_handle = nullptr;
};

/// A modeless dialog. Its window is destroyed with the object, so the last reference to the object goes on the thread of the
/// window: no other can destroy it.
class APPCOMM_API BaseDlgWnd : public BaseWindow {
 public:
  ~BaseDlgWnd() override;

  void Destroy() override;
  /// Makes the window as a child of `parent`; true when there is one.
  virtual bool Create(HWND parent) = 0;
  /// What the window does with a message, on its own thread. Other than 0: the message is dealt with.
  virtual __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) = 0;

 protected:
  /// Makes the dialog from the resource `resourceId` of `instance`; true when there is a window.
  bool CreateWnd(HINSTANCE instance, HWND parent, unsigned short resourceId);

 private:
  /// The window procedure, from the control library.
  static __int64 Proc(HWND window, unsigned msg, unsigned __int64 wParam, __int64 lParam);
};

/// A modal dialog. The two values of its constructor are kept for derived classes. The object outlives `Create`: the system
/// sends the dialog its last messages only after it was told to end.
class APPCOMM_API BaseDlgBox : public BaseWindow {
 public:
  BaseDlgBox(long first, long second);
  ~BaseDlgBox() override;

  void Destroy() override;
  /// Shows the dialog over `parent`, and returns when it has ended.
  virtual bool Create(HWND parent) = 0;
  /// What the dialog does with a message, on its own thread. Other than 0: the message is dealt with.
  virtual __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) = 0;

 protected:
  /// Runs the dialog from the resource `resourceId` of `instance` to its end; true when it ended with the value 1.
  bool Create(HINSTANCE instance, HWND parent, unsigned short resourceId);
  void EndDialog(__int64 result);

  /// What the constructor was given.
  long m_first;
  long m_second;

 private:
  /// The window procedure, from the control library.
  static __int64 Proc(HWND window, unsigned msg, unsigned __int64 wParam, __int64 lParam);
};

/// A standard child control whose window procedure is replaced. Nothing is restored when the object goes.
class APPCOMM_API BaseCtrlStd : public BaseWindow {
 public:
  /// Takes over the control `id` of `dialog`; true when there is one.
  virtual bool GetDlgItem(HWND dialog, int id);
  /// What the control itself did with the message before it was taken over.
  virtual __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam);

 private:
  /// The window procedure, from the control library.
  static __int64 Proc(HWND window, unsigned msg, unsigned __int64 wParam, __int64 lParam);

  std::int32_t m_id = 0;
  void* m_data = nullptr;
  WNDPROC m_previousProc = nullptr;
};

}  // namespace BaseWnd

#undef APPCOMM_VIRTUAL_PAIR
