#pragma once

#include "Controls.h"
#include "controls/ControlTest.h"

/// An edit with a text, and no window yet.
class Edits : public ControlTest {
 protected:
  using Selection = std::pair<DWORD, DWORD>;

  static constexpr wchar_t kCtrlA = 0x01;
  static constexpr wchar_t kCtrlC = 0x03;
  static constexpr wchar_t kCtrlV = 0x16;
  static constexpr wchar_t kCtrlX = 0x18;

  Selection selectionOf(const AppWnd::EditBase& of) const;
  GUITHREADINFO caret() const;
  /// On the screen. It does not blink meanwhile: that would take a message that nobody fetches.
  bool isCaretSeen(const AppWnd::EditBase& of) const;
  std::wstring clipboard() const;
  /// The codes of what the edits told, since the last call.
  std::vector<WORD> told();
  void keyWithShift(HWND window, unsigned virtualKey);
  /// Text that takes several times the edit's width.
  static std::wstring longText() { return std::wstring(100, L'm'); }

  const qzstd::Rect rect{10, 20, 160, 32};
  const qzstd::Text text{L"abcd"};
  AppWnd::EditBase edit{rect, &text};
};

/// With its window.
class MadeEdit : public Edits {
 protected:
  void SetUp() override {
    ASSERT_TRUE(edit.Create(parent()));
    window = edit.GetWnd();
  }

  HWND window = nullptr;
};
