#pragma once

#include <algorithm>
#include <cstdint>

namespace operations {

/// How far a transfer is, 0 to 100; a complete one is 85, the rest is the printer's restart. Nonsense stays in these limits:
/// `total` 0 or a negative part is 0, far more done than there is is 100.
inline std::int32_t firmwarePercent(std::int32_t current, std::int32_t total) {
  constexpr float kComplete = 85.0F;
  constexpr float kMost = 100.0F;
  if (total == 0) return 0;
  // In single precision and in this order: other ways round differ by one here and there from what applications have shown.
  const float percent = static_cast<float>(current) * kComplete / static_cast<float>(total);
  return static_cast<std::int32_t>(std::clamp(percent, 0.0F, kMost));  // limited first: the conversion is always defined
}

}  // namespace operations
