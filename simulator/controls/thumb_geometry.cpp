#include "simulator/controls/ThumbGeometry.h"

#include <algorithm>

namespace controls {
namespace {

constexpr int kLeastThumb = 24;

// Rounded, of numbers of which two may have a product that needs 64 bits.
int share(std::int64_t whole, std::int64_t part, std::int64_t of) { return static_cast<int>((whole * part + of / 2) / of); }

}  // namespace

ScrollRange valid(ScrollRange range) {
  range.length = std::max(range.length, 0);
  range.page = std::clamp(range.page, 0, range.length);
  range.position = std::clamp(range.position, 0, range.last());
  return range;
}

int thumbSize(const ScrollRange& range, int barLength) {
  if (range.last() == 0) return barLength;
  return std::min(barLength, std::max(kLeastThumb, share(barLength, range.page, range.length)));
}

int thumbPlace(std::int32_t position, std::int32_t last, int way) {
  if (last <= 0 || way <= 0) return 0;
  return share(way, std::clamp(position, 0, last), last);
}

std::int32_t thumbPosition(int place, std::int32_t last, int way) {
  if (last <= 0 || way <= 0) return 0;
  return share(last, std::clamp(place, 0, way), way);
}

}  // namespace controls
