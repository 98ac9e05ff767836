#pragma once

#include <cstdint>
#include <string>

namespace qzstd {

/// A rectangle by its corner and its size, in pixels of the parent's client area.
struct Rect {
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
};

/// A caption as the control classes take it.
struct Text {
  std::wstring text;
};

}  // namespace qzstd
