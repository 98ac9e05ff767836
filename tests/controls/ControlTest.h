#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "AppWindow.h"

/// What a window draws: row by row, as 0x00RRGGBB.
using Pixels = std::vector<std::uint32_t>;

/// A color of the platform as the pictures have it.
std::uint32_t asPixel(COLORREF color);
std::wstring textOf(HWND window);
/// In the client area of its parent, or of its owner.
RECT placeOf(HWND window);

/// A window to put controls into. Its thread is the test's own: messages are sent, and handled at once.
class ControlTest : public testing::Test {
 protected:
  struct Command {
    WORD id = 0;
    WORD what = 0;
    HWND control = nullptr;

    friend bool operator==(const Command&, const Command&) = default;
  };

  ControlTest();
  ~ControlTest() override;

  HWND parent() const { return m_parent; }
  /// What the controls told the window, since the last call.
  std::vector<Command> takeCommands() { return std::exchange(m_commands, {}); }
  std::vector<std::pair<UINT, WPARAM>> takeScrolls() { return std::exchange(m_scrolls, {}); }

  void moveMouse(HWND window, int x, int y);
  void press(HWND window, int x, int y);
  void release(HWND window, int x, int y);
  void click(HWND window, int x = 5, int y = 5);
  /// A key, with what it types where it types something.
  void key(HWND window, unsigned virtualKey);
  void type(HWND window, const std::wstring& text);

  /// What the window draws, without a screen. With a margin around it of pixels that are `kUntouched` unless the window draws
  /// outside its area.
  static constexpr std::uint32_t kUntouched = 0xfe01fd;
  Pixels picture(HWND window, int margin = 0);
  std::set<std::uint32_t> colors(HWND window);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT msg, WPARAM wParam, LPARAM lParam);

  HWND m_parent = nullptr;
  std::vector<Command> m_commands;
  std::vector<std::pair<UINT, WPARAM>> m_scrolls;
};
