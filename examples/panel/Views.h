#pragma once

#include <string>
#include <utility>
#include <vector>

#include "AppWindow.h"
#include "common/Report.h"

namespace panel {

/// Names and values below each other. The window's text has a line for each.
class FieldList : public AppWnd::CWnd {
 public:
  explicit FieldList(const qzstd::Rect& rect) : CWnd(rect) {}

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

  void show(const examples::Fields& fields);

 private:
  std::vector<std::pair<std::wstring, std::wstring>> m_rows;
};

/// Lines below each other, in small letters. The window's text is the same.
class LineList : public AppWnd::CWnd {
 public:
  explicit LineList(const qzstd::Rect& rect) : CWnd(rect) {}

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

  void show(std::vector<std::wstring> lines);

 private:
  std::vector<std::wstring> m_lines;
};

/// What was said last, over several lines. The window's text is that.
class MessageView : public AppWnd::CWnd {
 public:
  explicit MessageView(const qzstd::Rect& rect) : CWnd(rect) {}

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

  void show(const std::wstring& text, COLORREF color);

 private:
  std::wstring m_text;
  COLORREF m_color = 0;
};

/// A bar that fills, with its percentage. The window's text is that.
class ProgressBar : public AppWnd::CWnd {
 public:
  explicit ProgressBar(const qzstd::Rect& rect) : CWnd(rect) {}

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

  void show(int percent);

 private:
  int m_percent = 0;
};

}  // namespace panel
