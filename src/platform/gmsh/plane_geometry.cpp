#include "platform/gmsh/plane_geometry.h"

#include <cmath>
#include <cstdlib>
#include <numbers>

namespace platform::gmsh_io {
namespace {

double Cross(Point2 a, Point2 b) { return a.x * b.y - a.y * b.x; }
double Dot(Point2 a, Point2 b) { return a.x * b.x + a.y * b.y; }
Point2 Minus(Point2 a, Point2 b) { return {a.x - b.x, a.y - b.y}; }

}  // namespace

std::optional<Point2> Circumcentre(Point2 a, Point2 b, Point2 c) {
  const Point2 ab = Minus(b, a);
  const Point2 ac = Minus(c, a);
  const double d = 2 * Cross(ab, ac);
  if (d == 0) return std::nullopt;
  const double ab2 = Dot(ab, ab);
  const double ac2 = Dot(ac, ac);
  return Point2{a.x + (ac.y * ab2 - ab.y * ac2) / d, a.y + (ab.x * ac2 - ac.x * ab2) / d};
}

double SweptAngle(Point2 start, Point2 middle, Point2 end, Point2 centre) {
  const Point2 a = Minus(start, centre);
  const Point2 b = Minus(end, centre);
  // The middle lies less than a half turn from the start, so it gives the direction.
  const bool counterClockwise = Cross(a, Minus(middle, centre)) > 0;
  double angle = std::atan2(Cross(a, b), Dot(a, b));
  constexpr double kFullTurn = 2 * std::numbers::pi;
  if (counterClockwise && angle <= 0) angle += kFullTurn;
  if (!counterClockwise && angle >= 0) angle -= kFullTurn;
  return angle;
}

double DoubleSignedArea(const std::vector<Point2>& ring) {
  double sum = 0;
  for (size_t i = 0; i < ring.size(); ++i) sum += Cross(ring[i], ring[(i + 1) % ring.size()]);
  return sum;
}

std::vector<bool> SurfaceOnLeft(const std::vector<int>& boundary,
                                const std::vector<BoundaryCurve>& curves) {
  struct Loop {
    size_t first = 0;
    size_t end = 0;  // one past the last entry
    double area = 0;
  };
  std::vector<Loop> loops;
  std::vector<Point2> ring;
  int loopStart = 0;
  for (size_t i = 0; i < boundary.size(); ++i) {
    const BoundaryCurve& curve = curves.at(std::abs(boundary[i]) - 1);
    const bool forward = boundary[i] > 0;
    if (ring.empty()) {
      loops.push_back({i, i, 0});
      loopStart = forward ? curve.startVertex : curve.endVertex;
    }
    if (forward) {
      ring.insert(ring.end(), curve.polyline.begin(), curve.polyline.end());
    } else {
      ring.insert(ring.end(), curve.polyline.rbegin(), curve.polyline.rend());
    }
    const int reached = forward ? curve.endVertex : curve.startVertex;
    if (reached == loopStart || i + 1 == boundary.size()) {
      loops.back().end = i + 1;
      loops.back().area = DoubleSignedArea(ring);
      ring.clear();
    }
  }
  size_t outer = 0;
  for (size_t k = 1; k < loops.size(); ++k) {
    if (std::abs(loops[k].area) > std::abs(loops[outer].area)) outer = k;
  }
  std::vector<bool> onLeft(boundary.size());
  for (size_t k = 0; k < loops.size(); ++k) {
    const bool leftOfTravel = (k == outer) == (loops[k].area > 0);
    for (size_t i = loops[k].first; i < loops[k].end; ++i) {
      onLeft[i] = leftOfTravel == (boundary[i] > 0);
    }
  }
  return onLeft;
}

}  // namespace platform::gmsh_io
