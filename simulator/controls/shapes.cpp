#include "simulator/controls/Shapes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace controls {
namespace {

double distanceToPart(Point place, Point from, Point to) {
  const Point along{to.x - from.x, to.y - from.y};
  const double length = along.x * along.x + along.y * along.y;
  const double share = length == 0 ? 0 : ((place.x - from.x) * along.x + (place.y - from.y) * along.y) / length;
  const double nearest = std::clamp(share, 0.0, 1.0);
  return std::hypot(place.x - from.x - nearest * along.x, place.y - from.y - nearest * along.y);
}

}  // namespace

double distanceToLine(Point place, const Line& line) {
  if (line.empty()) return std::numeric_limits<double>::infinity();
  double distance = distanceToPart(place, line.front(), line.front());
  for (std::size_t i = 1; i < line.size(); ++i) distance = std::min(distance, distanceToPart(place, line[i - 1], line[i]));
  return distance;
}

double distanceToRound(Point place, double width, double height, double radius) {
  const double corner = std::clamp(radius, 0.0, std::min(width, height) / 2);
  const double x = std::abs(place.x - width / 2) - width / 2 + corner;
  const double y = std::abs(place.y - height / 2) - height / 2 + corner;
  return std::hypot(std::max(x, 0.0), std::max(y, 0.0)) + std::min(std::max(x, y), 0.0) - corner;
}

double distanceToEllipse(Point place, double width, double height) {
  const double x = (place.x - width / 2) / (width / 2);
  const double y = (place.y - height / 2) / (height / 2);
  const double out = std::hypot(x, y);
  const double slope = std::hypot(x / (width / 2), y / (height / 2));
  return slope == 0 ? -std::min(width, height) / 2 : (out - 1) * out / slope;
}

double coverage(double distance) { return std::clamp(0.5 - distance, 0.0, 1.0); }

}  // namespace controls
