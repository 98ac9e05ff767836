#pragma once

#include <optional>
#include <utility>

#include "wnd/WindowCalls.h"

/// A platform that keeps a dialog's user data, and sends it a message while it is destroyed or told to end.
class DialogPlatform : public WindowCalls {
 public:
  LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value) override {
    WindowCalls::SetWindowLongPtrW(window, index, value);
    return index == GWLP_USERDATA ? std::exchange(m_userData, value) : 0;
  }
  LONG_PTR GetWindowLongPtrW(HWND /*window*/, int index) override { return index == GWLP_USERDATA ? m_userData : 0; }
  BOOL DestroyWindow(HWND window) override {
    whileEnding = dialogProcedure(window, kDestroyed, 0, 0);
    return WindowCalls::DestroyWindow(window);
  }
  BOOL EndDialog(HWND window, INT_PTR result) override {
    whileEnding = dialogProcedure(window, kHidden, 0, 0);
    return WindowCalls::EndDialog(window, result);
  }

  // WM_DESTROY, and WM_WINDOWPOSCHANGING: a dialog box is hidden at once and destroyed when its loop comes round.
  static constexpr UINT kDestroyed = 2;
  static constexpr UINT kHidden = 0x46;

  /// What the dialog answered then.
  std::optional<INT_PTR> whileEnding;

 private:
  LONG_PTR m_userData = 0;
};
