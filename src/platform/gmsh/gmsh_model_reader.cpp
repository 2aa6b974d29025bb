#include "platform/gmsh/gmsh_model_reader.h"

#include <gmsh.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <utility>

#include "platform/gmsh/plane_geometry.h"
#include "vbrt/error.h"

namespace platform::gmsh_io {
namespace {

using DimTag = std::pair<int, int>;

// Samples along an arc: enough for the side of a loop and the centre's direction.
constexpr int kArcSamples = 16;
// A point closer to a computed centre than this fraction of the radius is the centre.
constexpr double kCentreTolerance = 1e-6;
[[noreturn]] void Unsupported(const std::string& what) {
  throw vbrt::VbError(kModelError, what);
}

std::map<DimTag, std::string> ReadLabels() {
  std::map<DimTag, std::string> labels;
  gmsh::vectorpair groups;
  gmsh::model::getPhysicalGroups(groups);
  std::sort(groups.begin(), groups.end());
  for (const auto& [dim, tag] : groups) {
    std::string name;
    gmsh::model::getPhysicalName(dim, tag, name);
    if (name.empty()) continue;
    std::vector<int> entities;
    gmsh::model::getEntitiesForPhysicalGroup(dim, tag, entities);
    for (int entity : entities) labels.emplace(DimTag{dim, entity}, name);
  }
  return labels;
}

std::string LabelOf(const std::map<DimTag, std::string>& labels, int dim, int tag) {
  const auto it = labels.find({dim, tag});
  return it == labels.end() ? std::string() : it->second;
}

std::vector<Point2> Sample(int curveTag, const std::vector<double>& parameters) {
  std::vector<double> xyz;
  gmsh::model::getValue(1, curveTag, parameters, xyz);
  std::vector<Point2> points;
  for (size_t i = 0; i + 2 < xyz.size(); i += 3) points.push_back({xyz[i], xyz[i + 1]});
  return points;
}

// The point entities, searchable by position for snapping arc centres.
class PointTable {
 public:
  PointTable() {
    gmsh::vectorpair points;
    gmsh::model::getEntities(points, 0);
    for (const auto& [dim, tag] : points) {
      std::vector<double> xyz;
      gmsh::model::getValue(0, tag, {}, xyz);
      byTag_.emplace(tag, Point2{xyz.at(0), xyz.at(1)});
      byX_.push_back({xyz[0], tag});
    }
    std::sort(byX_.begin(), byX_.end());
  }

  const std::map<int, Point2>& ByTag() const { return byTag_; }
  Point2 At(int tag) const { return byTag_.at(tag); }

  // The tag of the point within `tolerance` of `p` nearest to it, or 0.
  int Near(Point2 p, double tolerance) const {
    auto it = std::lower_bound(byX_.begin(), byX_.end(), std::pair{p.x - tolerance, 0});
    int best = 0;
    double bestDistance = tolerance;
    for (; it != byX_.end() && it->first <= p.x + tolerance; ++it) {
      const Point2 q = byTag_.at(it->second);
      const double distance = std::hypot(q.x - p.x, q.y - p.y);
      if (distance <= bestDistance) {
        best = it->second;
        bestDistance = distance;
      }
    }
    return best;
  }

 private:
  std::map<int, Point2> byTag_;
  std::vector<std::pair<double, int>> byX_;
};

struct CurveReading {
  SnapshotEdge edge;
  BoundaryCurve boundary;
  int centreTag = 0;
};

// The centre and swept angle of the circular arc `tag` and points along it, added to
// `reading`, whose end points are known.
void ReadArc(int tag, const PointTable& points, CurveReading& reading) {
  EdgeGeometry& g = reading.edge.geometry;
  std::vector<Point2>& line = reading.boundary.polyline;
  std::vector<double> low, high;
  gmsh::model::getParametrizationBounds(1, tag, low, high);
  std::vector<double> parameters;
  for (int i = 1; i < kArcSamples; ++i) {
    parameters.push_back(low.at(0) + (high.at(0) - low.at(0)) * i / kArcSamples);
  }
  const std::vector<Point2> samples = Sample(tag, parameters);
  const Point2 middle = samples.at(kArcSamples / 2 - 1);
  const auto centre =
      Circumcentre(samples.at(kArcSamples / 4 - 1), middle, samples.at(3 * kArcSamples / 4 - 1));
  if (!centre) Unsupported("curve " + std::to_string(tag) + " is a circle without curvature");
  const double radius = std::hypot(middle.x - centre->x, middle.y - centre->y);
  for (const Point2& p : samples) {
    if (std::fabs(std::hypot(p.x - centre->x, p.y - centre->y) - radius) > kCentreTolerance * radius) {
      Unsupported("curve " + std::to_string(tag) +
                  " is an elliptic arc; only straight lines and circular arcs can be converted");
    }
  }
  // The generated code draws an arc from its start to its end point: a closed one,
  // such as the rim of a disk, has to be split first.
  if (reading.boundary.startVertex == reading.boundary.endVertex) {
    Unsupported("curve " + std::to_string(tag) +
                " is a full circle; split it into arcs with different end points to convert it");
  }
  reading.centreTag = points.Near(*centre, kCentreTolerance * radius);
  g.third = reading.centreTag ? points.At(reading.centreTag) : *centre;
  // A half circle's centre is the middle of its chord. Taken exactly, it lets the
  // generated angle come out as the half turn it is instead of a rounding residue.
  const Point2 chordMiddle{(g.start.x + g.end.x) / 2, (g.start.y + g.end.y) / 2};
  if (!reading.centreTag &&
      std::hypot(chordMiddle.x - centre->x, chordMiddle.y - centre->y) <= kCentreTolerance * radius) {
    g.third = chordMiddle;
  }
  g.angle = SweptAngle(g.start, middle, g.end, g.third);
  line.insert(line.end(), samples.begin(), samples.end());
}

CurveReading ReadCurve(int tag, const PointTable& points) {
  std::string type;
  gmsh::model::getType(1, tag, type);
  // OpenCASCADE makes the rim of a disk an ellipse with equal radii: it is taken as the
  // circle it is.
  const bool arc = type == "Circle" || type == "Ellipse";
  if (type != "Line" && !arc) {
    Unsupported("curve " + std::to_string(tag) + " is a " + type +
                " curve; only straight lines and circular arcs can be converted");
  }
  gmsh::vectorpair ends;
  gmsh::model::getBoundary({{1, tag}}, ends, false, false);
  if (ends.empty()) Unsupported("curve " + std::to_string(tag) + " has no end point");
  CurveReading reading;
  reading.boundary.startVertex = std::abs(ends.front().second);
  reading.boundary.endVertex = std::abs(ends.back().second);
  EdgeGeometry& g = reading.edge.geometry;
  g.start = points.At(reading.boundary.startVertex);
  g.end = points.At(reading.boundary.endVertex);
  g.third = g.start;
  std::vector<Point2>& line = reading.boundary.polyline;
  line.push_back(g.start);
  if (arc) ReadArc(tag, points, reading);
  line.push_back(g.end);
  return reading;
}

// True when every loop of a surface boundary (signed curve numbers, as SurfaceOnLeft
// takes them) returns to the vertex it started from; Gmsh accepts a surface whose
// curve loop stays open.
bool LoopsClose(const std::vector<int>& boundary, const std::vector<BoundaryCurve>& curves) {
  bool open = false;
  int loopStart = 0;
  for (int entry : boundary) {
    const BoundaryCurve& curve = curves.at(std::abs(entry) - 1);
    if (!open) loopStart = entry > 0 ? curve.startVertex : curve.endVertex;
    open = (entry > 0 ? curve.endVertex : curve.startVertex) != loopStart;
  }
  return !open;
}

}  // namespace

ModelContent ReadCurrentModel() {
  const std::map<DimTag, std::string> labels = ReadLabels();
  const PointTable points;
  ModelContent content;

  gmsh::vectorpair curves;
  gmsh::model::getEntities(curves, 1);
  std::map<int, int> edgeOfCurve;
  std::vector<BoundaryCurve> boundaries;
  std::set<int> curveEnds, centres;
  for (const auto& [dim, tag] : curves) {
    CurveReading reading = ReadCurve(tag, points);
    reading.edge.label = LabelOf(labels, 1, tag);
    curveEnds.insert({reading.boundary.startVertex, reading.boundary.endVertex});
    if (reading.centreTag) centres.insert(reading.centreTag);
    edgeOfCurve.emplace(tag, static_cast<int>(content.edges.size()));
    content.edges.push_back(std::move(reading.edge));
    boundaries.push_back(std::move(reading.boundary));
  }

  for (const auto& [tag, position] : points.ByTag()) {
    const bool isolated = !curveEnds.contains(tag);
    if (isolated && centres.contains(tag)) continue;
    content.vertices.push_back({position, LabelOf(labels, 0, tag), isolated});
  }

  gmsh::vectorpair surfaces;
  gmsh::model::getEntities(surfaces, 2);
  for (const auto& [dim, tag] : surfaces) {
    std::string type;
    gmsh::model::getType(2, tag, type);
    if (type != "Plane") {
      Unsupported("surface " + std::to_string(tag) + " is a " + type +
                  " surface; only plane surfaces can be converted");
    }
    gmsh::vectorpair loop;
    gmsh::model::getBoundary({{2, tag}}, loop, false, true);
    if (loop.empty()) Unsupported("surface " + std::to_string(tag) + " has no boundary");
    std::vector<int> signedEdges;
    for (const auto& [curveDim, curve] : loop) {
      const int edge = edgeOfCurve.at(std::abs(curve)) + 1;
      signedEdges.push_back(curve < 0 ? -edge : edge);
    }
    if (!LoopsClose(signedEdges, boundaries)) {
      Unsupported("the boundary of surface " + std::to_string(tag) + " does not close");
    }
    const int block = static_cast<int>(content.blocks.size());
    const std::vector<bool> onLeft = SurfaceOnLeft(signedEdges, boundaries);
    for (size_t i = 0; i < signedEdges.size(); ++i) {
      SnapshotEdge& edge = content.edges[std::abs(signedEdges[i]) - 1];
      (onLeft[i] ? edge.leftBlock : edge.rightBlock) = block;
    }
    content.blocks.push_back({LabelOf(labels, 2, tag), std::abs(signedEdges.front()) - 1});
  }
  return content;
}

}  // namespace platform::gmsh_io
