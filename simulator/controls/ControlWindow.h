#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "AppWindow.h"

/// What every control has in common: its window, how that notices mouse and keyboard, and how it is painted.
namespace controls {

/// How a control looks just now: bits of `CtrlWnd::m_flags`.
enum Flag : std::uint32_t {
  kHovered = 1,   ///< the mouse is over it
  kPressed = 2,   ///< a mouse button or a key holds it
  kFocused = 4,   ///< it has the keyboard
  kDisabled = 8,  ///< it takes neither
};

/// Makes the window of `control`, a visible child of `parent` that the Tab key stops at where `stops` says so. From its first
/// message to its last one the messages go to `control.RunProc`, and the control has the window's handle; not those that come
/// while the control is being destroyed. A control that has a window keeps it. False when there is no window.
bool newWindow(BaseWnd::BaseDlgWnd& control, HWND parent, const qzstd::Rect& rect, std::int32_t id, const std::wstring& text,
               bool stops);

/// The same for a window without a parent: over `place` on the screen, above the top window of `owner`, and shown without
/// taking the keyboard from where it is. It goes with that top window.
bool newPopup(BaseWnd::BaseDlgWnd& control, HWND owner, const RECT& place);

/// The window draws itself anew, where there is one.
void redraw(HWND window);

/// Follows the messages that change `flags`, redraws the window when they did, and takes the mouse while a button is held.
/// Whether the message means a click: the left button went up over the window that it went down on, or the key that pressed it
/// was let go (the space bar; Enter clicks as it goes down, once however long it is held).
bool follow(HWND window, std::uint32_t& flags, unsigned msg, unsigned __int64 wParam, __int64 lParam);

/// Tells the window's parent what happened, by `WM_COMMAND`.
void tellParent(HWND window, unsigned what);

/// The same for a control with a position, by `WM_VSCROLL` or `WM_HSCROLL`.
void tellScroll(HWND window, unsigned msg, unsigned what, std::int32_t position);

/// `WM_PAINT` and `WM_PRINTCLIENT`: `draw` is given the whole client area to draw on, at (0, 0), filled with the ground of the
/// parent. Through a bitmap, so that nothing flickers.
void paint(HWND window, unsigned msg, unsigned __int64 wParam, const std::function<void(HDC dc, const RECT& area)>& draw);

/// The place of a mouse message.
POINT mousePlace(__int64 lParam);

}  // namespace controls
