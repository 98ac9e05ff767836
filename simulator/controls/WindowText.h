#pragma once

#include <string_view>

#include "AppWindow.h"

namespace controls {

/// The answer to `WM_GETTEXT` and `WM_GETTEXTLENGTH` of a window whose text is `text`.
__int64 answerText(std::wstring_view text, unsigned msg, unsigned __int64 wParam, __int64 lParam);

}  // namespace controls
