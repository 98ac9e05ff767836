#pragma once

#include <vector>

/// Shapes by the distance to their edge, so that they can be drawn with smooth edges: the platform draws them with steps.
///
/// Places are in pixels, between the pixels: the center of the first pixel is (0.5, 0.5). Distances are negative inside.
namespace controls {

struct Point {
  double x = 0;
  double y = 0;
};

/// Through its points; a single one is a dot.
using Line = std::vector<Point>;

/// Endless when the line has no point.
double distanceToLine(Point place, const Line& line);

/// A box with round corners, its upper left corner at (0, 0). The radius is taken as 0 to half of the shorter side.
/// Both sides are above 0, here and below.
double distanceToRound(Point place, double width, double height, double radius);

/// An ellipse in a box with its upper left corner at (0, 0). Exact for a circle, close to it near the edge of others.
double distanceToEllipse(Point place, double width, double height);

/// How much of a pixel belongs to a shape whose edge is that far from the pixel's center: 0 to 1.
double coverage(double distance);

}  // namespace controls
