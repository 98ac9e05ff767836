#pragma once

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "BaseWindow.h"
#include "fakes/Windows.h"

/// Turns a number into a handle that no call looks behind.
template <class Handle = HWND>
Handle handle(std::uintptr_t number) {
  return reinterpret_cast<Handle>(number);
}

/// The window functions of the platform: each call is noted with its arguments, such as `ShowWindow(1, 5)`, and answers what
/// the test set for its name, 0 otherwise. Any thread may call.
class WindowCalls : public fakes::Windows {
 public:
  void answer(const std::string& name, LONG_PTR value);
  /// What `GetClientRect` puts into the rectangle.
  RECT clientRect{};

  std::vector<std::string> calls() const;

  // What the last call of that kind was given.
  DLGPROC dialogProcedure = nullptr;
  LPARAM dialogParameter = 0;

  LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  HWND GetParent(HWND window) override;
  BOOL ShowWindow(HWND window, int command) override;
  BOOL IsWindowVisible(HWND window) override;
  BOOL EnableWindow(HWND window, BOOL enable) override;
  BOOL IsWindowEnabled(HWND window) override;
  BOOL IsWindow(HWND window) override;
  BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint) override;
  BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase) override;
  BOOL GetClientRect(HWND window, RECT* rect) override;
  INT_PTR DialogBoxParamW(HINSTANCE instance, LPCWSTR resource, HWND parent, DLGPROC procedure, LPARAM parameter) override;
  BOOL EndDialog(HWND window, INT_PTR result) override;
  HWND CreateDialogParamW(HINSTANCE instance, LPCWSTR resource, HWND parent, DLGPROC procedure, LPARAM parameter) override;
  BOOL DestroyWindow(HWND window) override;
  HWND GetDlgItem(HWND dialog, int id) override;
  LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value) override;
  LRESULT CallWindowProcW(WNDPROC previous, HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  template <class... Arguments>
  LONG_PTR noted(const char* name, Arguments... arguments);

  mutable std::mutex m_mutex;
  std::vector<std::string> m_calls;
  std::map<std::string, LONG_PTR> m_answers;
};

/// A wrapper with the handle 1 on such a platform.
template <class Window>
struct OnWindow {
  template <class... Arguments>
  explicit OnWindow(Arguments&&... arguments) : window(arguments...) {
    window.SetWnd(handle(1));
  }

  WindowCalls platform;
  fakes::Installed installed{platform};
  Window window;  // goes first: its destructor asks the platform
};

using Calls = std::vector<std::string>;
