#pragma once

#include <cstdint>

/// Where the thumb of a scroll bar or a slider is.
namespace controls {

/// What a scroll bar shows, in any unit. `first` is what the first position is called; the others count from 0.
struct ScrollRange {
  std::int32_t first = 0;
  std::int32_t length = 100;
  std::int32_t page = 10;
  std::int32_t position = 0;

  /// How far it can be scrolled: at least 0.
  std::int32_t last() const { return length > page ? length - page : 0; }
};

/// The range with what makes no sense put right: 0 <= page <= length, 0 <= position <= last().
ScrollRange valid(ScrollRange range);

/// The thumb's length on a bar of `barLength` pixels: that part of it that the page is of all, long enough to be held, and
/// never longer than the bar.
int thumbSize(const ScrollRange& range, int barLength);

/// Where the thumb begins when it can move by `way` pixels in all: 0 to `way` for a position of 0 to `last`.
int thumbPlace(std::int32_t position, std::int32_t last, int way);
/// The position that is nearest to a place; places outside are taken as the nearer end.
std::int32_t thumbPosition(int place, std::int32_t last, int way);

}  // namespace controls
