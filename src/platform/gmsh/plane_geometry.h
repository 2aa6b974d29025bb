#pragma once
// Plane geometry used to turn sampled curves and surface boundaries into the edges,
// centres, angles and block sides that a basic model reports.
#include <optional>
#include <vector>

#include "platform/analysis_application.h"

namespace platform::gmsh_io {

// The centre of the circle through three points; nullopt when they are collinear.
std::optional<Point2> Circumcentre(Point2 a, Point2 b, Point2 c);

// The angle an arc about `centre` sweeps from `start` through `middle` to `end`, in
// radians: positive when it runs counter-clockwise, negative when clockwise. An arc
// whose start and end coincide is a full turn.
double SweptAngle(Point2 start, Point2 middle, Point2 end, Point2 centre);

// Twice the signed area of a closed polyline (the last point joins the first):
// positive when the polyline runs counter-clockwise.
double DoubleSignedArea(const std::vector<Point2>& ring);

// A curve as a surface boundary needs it: its end vertices and points along it from
// start to end.
struct BoundaryCurve {
  int startVertex = 0;
  int endVertex = 0;
  std::vector<Point2> polyline;
};

// For a surface bounded by `boundary`, a sequence of closed loops of signed curve
// numbers (+k: curve k-1 in its own direction, -k: reversed), tells for each entry
// whether the surface lies on the left of the curve's own direction. A loop ends where
// it returns to the vertex it started from. The loop enclosing the largest area is the
// outer one; the surface lies inside it and outside every other loop, whatever the
// direction in which a loop happens to be listed.
std::vector<bool> SurfaceOnLeft(const std::vector<int>& boundary,
                                const std::vector<BoundaryCurve>& curves);

}  // namespace platform::gmsh_io
