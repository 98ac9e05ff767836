#include "simulator/controls/WindowText.h"

#include <algorithm>
#include <cstddef>

namespace controls {

__int64 answerText(std::wstring_view text, unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  if (msg == WM_GETTEXTLENGTH) return static_cast<__int64>(text.size());
  auto* units = reinterpret_cast<wchar_t*>(lParam);
  if (units == nullptr || wParam == 0) return 0;
  const std::size_t length = text.copy(units, std::min<std::size_t>(text.size(), wParam - 1));
  units[length] = L'\0';
  return static_cast<__int64>(length);
}

}  // namespace controls
