#include "simulator/controls/EditView.h"

#include <algorithm>

namespace controls {

int shiftedTo(int shift, const Edges& edges, std::size_t caret, int room) {
  const int most = std::max(0, edges.back() - room);
  const int place = edges[caret];
  // At a caret left of what is seen some text before it is shown, too, so that one sees what Backspace would erase.
  if (place < shift) return std::clamp(place - room / 4, 0, most);
  return std::clamp(std::max(shift, place - room), 0, most);
}

std::size_t nearestPlace(const Edges& edges, int x) {
  const auto right = std::lower_bound(edges.begin(), edges.end(), x);
  if (right == edges.begin()) return 0;
  if (right == edges.end()) return edges.size() - 1;
  const bool leftIsNearer = x - *(right - 1) < *right - x;
  return static_cast<std::size_t>(right - edges.begin()) - (leftIsNearer ? 1 : 0);
}

}  // namespace controls
