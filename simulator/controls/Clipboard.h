#pragma once

#include <string_view>

#include "AppWindow.h"
#include "simulator/controls/WipedText.h"

/// Text in the system's clipboard.
namespace controls {

/// False, and the clipboard unchanged, when another program holds it or there is no memory.
bool copyText(HWND owner, std::wstring_view text);

/// Empty when there is no text, or another program holds the clipboard.
WipedText copiedText(HWND owner);

}  // namespace controls
