#pragma once

#include "AppWindow.h"

namespace support {

/// The least that an application writes to have a window: no dialog, no messages, and the answer of the base to a notice.
class PlainWindow : public AppWnd::CWnd {
 public:
  static constexpr qzstd::Rect nowhere{};

  explicit PlainWindow(const qzstd::Rect& rect = nowhere) : CWnd(rect) {}
  bool Create(HWND /*parent*/) override { return false; }
  __int64 RunProc(unsigned /*msg*/, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override { return 0; }
};

}  // namespace support
