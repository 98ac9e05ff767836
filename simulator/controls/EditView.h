#pragma once

#include <cstddef>
#include <vector>

/// Which part of a line of text is seen in an edit.
namespace controls {

/// Where each unit of a line begins, in pixels, and where the last one ends: one more than there are units, never falling.
using Edges = std::vector<int>;

/// How far the line is shifted to the left so that the caret is seen in `room` pixels: as far as now when that will do, and
/// never so far that room stays unused while text is hidden.
int shiftedTo(int shift, const Edges& edges, std::size_t caret, int room);

/// The place between two units that is nearest to `x` pixels from the line's beginning.
std::size_t nearestPlace(const Edges& edges, int x);

}  // namespace controls
