#include "panel/Views.h"

#include <algorithm>

#include "panel/Ids.h"
#include "panel/Paint.h"

namespace panel {
namespace {

constexpr int kRow = 28;
constexpr int kSmallRow = 20;
constexpr int kNames = 190;  // the width of the names
constexpr int kMargin = 14;

bool createChild(AppWnd::CWnd& window, bool created) {
  if (!created) return false;
  ::SetWindowLongPtrW(window.GetWnd(), GWL_EXSTYLE, ::GetWindowLongPtrW(window.GetWnd(), GWL_EXSTYLE) & ~WS_EX_CONTROLPARENT);
  window.Move();
  window.Show();
  return true;
}

// "name: value", from the line that a terminal would get: the two never differ.
std::pair<std::wstring, std::wstring> rowOf(const std::wstring& line) {
  const auto colon = line.find(L": ");
  if (colon == std::wstring::npos) return {line, L""};
  return {line.substr(0, colon), line.substr(colon + 2)};
}

}  // namespace

bool FieldList::Create(HWND parent) { return createChild(*this, CreateWnd(::GetModuleHandleW(nullptr), parent, IDD_CHILD)); }

__int64 FieldList::RunProc(unsigned msg, unsigned __int64 /*wParam*/, __int64 /*lParam*/) {
  if (msg == WM_ERASEBKGND) return TRUE;
  if (msg != WM_PAINT) return FALSE;
  paintWindow(GetWnd(), [this](HDC dc, const RECT& area) {
    int top = 4;
    for (const auto& [name, value] : m_rows) {
      drawText(dc, {kMargin, top, kNames, top + kRow}, name, kPaleInk);
      drawText(dc, {kNames, top, area.right - kMargin, top + kRow}, value, kInk);
      top += kRow;
    }
  });
  return TRUE;
}

void FieldList::show(const examples::Fields& fields) {
  auto lines = examples::renderText(L"", L"", {.results = fields});
  lines.pop_back();  // what came of it
  std::wstring text;
  m_rows.clear();
  for (const auto& line : lines) {
    m_rows.push_back(rowOf(line));
    text += line + L"\n";
  }
  ::SetWindowTextW(GetWnd(), text.c_str());
  ReDraw(false);
}

bool LineList::Create(HWND parent) { return createChild(*this, CreateWnd(::GetModuleHandleW(nullptr), parent, IDD_CHILD)); }

__int64 LineList::RunProc(unsigned msg, unsigned __int64 /*wParam*/, __int64 /*lParam*/) {
  if (msg == WM_ERASEBKGND) return TRUE;
  if (msg != WM_PAINT) return FALSE;
  paintWindow(GetWnd(), [this](HDC dc, const RECT& area) {
    int top = 4;
    for (const auto& line : m_lines) {
      drawText(dc, {kMargin, top, area.right - kMargin, top + kSmallRow}, line, kInk, Font::Small);
      top += kSmallRow;
    }
  });
  return TRUE;
}

void LineList::show(std::vector<std::wstring> lines) {
  m_lines = std::move(lines);
  std::wstring text;
  for (const auto& line : m_lines) text += line + L"\n";
  ::SetWindowTextW(GetWnd(), text.c_str());
  ReDraw(false);
}

bool MessageView::Create(HWND parent) { return createChild(*this, CreateWnd(::GetModuleHandleW(nullptr), parent, IDD_CHILD)); }

__int64 MessageView::RunProc(unsigned msg, unsigned __int64 /*wParam*/, __int64 /*lParam*/) {
  if (msg == WM_ERASEBKGND) return TRUE;
  if (msg != WM_PAINT) return FALSE;
  paintWindow(GetWnd(), [this](HDC dc, const RECT& area) {
    drawRect(dc, area, kGround);
    drawParagraph(dc, area, m_text, m_color);
  });
  return TRUE;
}

void MessageView::show(const std::wstring& text, COLORREF color) {
  m_text = text;
  m_color = color;
  ::SetWindowTextW(GetWnd(), text.c_str());
  ReDraw(false);
}

bool ProgressBar::Create(HWND parent) { return createChild(*this, CreateWnd(::GetModuleHandleW(nullptr), parent, IDD_CHILD)); }

__int64 ProgressBar::RunProc(unsigned msg, unsigned __int64 /*wParam*/, __int64 /*lParam*/) {
  if (msg == WM_ERASEBKGND) return TRUE;
  if (msg != WM_PAINT) return FALSE;
  paintWindow(GetWnd(), [this](HDC dc, const RECT& area) {
    drawRect(dc, area, kGround);
    const RECT bar{0, 0, area.right - 60, area.bottom};
    drawBar(dc, bar, m_percent, kAccent);
    drawText(dc, {bar.right, 0, area.right, area.bottom}, std::to_wstring(m_percent) + L" %", kInk, Font::Bold, DT_RIGHT);
  });
  return TRUE;
}

void ProgressBar::show(int percent) {
  m_percent = percent;
  ::SetWindowTextW(GetWnd(), (std::to_wstring(percent) + L" %").c_str());
  ReDraw(false);
}

}  // namespace panel
