#pragma once

#include "AppWindow.h"

namespace bench {

/// A window that wants every notice and does nothing with it.
class BenchWindow : public AppWnd::CWnd {
 public:
  BenchWindow() : CWnd(nowhere) {}

  bool Create(HWND /*parent*/) override { return false; }
  __int64 RunProc(unsigned /*msg*/, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override { return 0; }
  bool Notice(long /*code*/) const override { return true; }

 private:
  static constexpr qzstd::Rect nowhere{};
};

}  // namespace bench
