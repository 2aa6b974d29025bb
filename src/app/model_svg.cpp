// The drawing form of the model preview.
#include <fmt/format.h>
#include <fmt/ostream.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "app/model_preview.h"

namespace app {
namespace {

using platform::Point2;

constexpr double kDrawingSize = 760;  // pixels for the longer side of the model
constexpr double kMargin = 60;
constexpr int kArcSteps = 32;
const char* const kShades[] = {"#f4c28a", "#9fc9eb", "#b5dba0", "#e7a6b8",
                               "#d2bfe6", "#f2e394", "#9fd9d0", "#d9b99b"};
const char* const kUnlabelledShade = "#e4e4e4";

// Points from the edge's start to its end; an arc turns by its angle about its centre.
std::vector<Point2> Trace(const platform::EdgeGeometry& g) {
  if (g.angle == 0) return {g.start, g.end};
  std::vector<Point2> points;
  const double dx = g.start.x - g.third.x;
  const double dy = g.start.y - g.third.y;
  for (int i = 0; i <= kArcSteps; ++i) {
    const double t = g.angle * i / kArcSteps;
    points.push_back({g.third.x + dx * std::cos(t) - dy * std::sin(t),
                      g.third.y + dx * std::sin(t) + dy * std::cos(t)});
  }
  points.back() = g.end;
  return points;
}

std::string Escape(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default: out += c;
    }
  }
  return out;
}

// Model coordinates to pixels, y pointing down.
class View {
 public:
  explicit View(const std::vector<Point2>& points) {
    for (const Point2& p : points) {
      minX_ = std::min(minX_, p.x);
      maxX_ = std::max(maxX_, p.x);
      minY_ = std::min(minY_, p.y);
      maxY_ = std::max(maxY_, p.y);
    }
    if (points.empty()) minX_ = maxX_ = minY_ = maxY_ = 0;
    const double extent = std::max(maxX_ - minX_, maxY_ - minY_);
    scale_ = extent > 0 ? kDrawingSize / extent : 1;
  }
  double Width() const { return (maxX_ - minX_) * scale_ + 2 * kMargin; }
  double Height() const { return (maxY_ - minY_) * scale_ + 2 * kMargin; }
  Point2 operator()(Point2 p) const {
    return {kMargin + (p.x - minX_) * scale_, kMargin + (maxY_ - p.y) * scale_};
  }

 private:
  double minX_ = std::numeric_limits<double>::max();
  double maxX_ = std::numeric_limits<double>::lowest();
  double minY_ = std::numeric_limits<double>::max();
  double maxY_ = std::numeric_limits<double>::lowest();
  double scale_ = 1;
};

// The closed loops around a block, in pixels, from its edges oriented so that the block
// lies on their left; edges that do not close a loop end one where they stop.
std::vector<std::vector<Point2>> BlockLoops(const std::vector<std::vector<Point2>>& pieces) {
  std::vector<std::vector<Point2>> loops;
  std::vector<bool> used(pieces.size());
  for (size_t first = 0; first < pieces.size(); ++first) {
    if (used[first]) continue;
    std::vector<Point2> loop;
    for (size_t at = first; at < pieces.size();) {
      used[at] = true;
      loop.insert(loop.end(), pieces[at].begin(), pieces[at].end() - 1);
      const Point2 end = pieces[at].back();
      at = pieces.size();
      for (size_t next = 0; next < pieces.size(); ++next) {
        if (!used[next] && pieces[next].front().x == end.x && pieces[next].front().y == end.y) {
          at = next;
          break;
        }
      }
    }
    loops.push_back(std::move(loop));
  }
  return loops;
}

bool Inside(Point2 p, const std::vector<std::vector<Point2>>& loops) {
  bool inside = false;
  for (const auto& loop : loops) {
    for (size_t i = 0, j = loop.size() - 1; i < loop.size(); j = i++) {
      const Point2 a = loop[i], b = loop[j];
      if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) {
        inside = !inside;
      }
    }
  }
  return inside;
}

double DistanceToLoops(Point2 p, const std::vector<std::vector<Point2>>& loops) {
  double best = std::numeric_limits<double>::max();
  for (const auto& loop : loops) {
    for (size_t i = 0, j = loop.size() - 1; i < loop.size(); j = i++) {
      const Point2 a = loop[j], b = loop[i];
      const double dx = b.x - a.x, dy = b.y - a.y;
      const double length2 = dx * dx + dy * dy;
      const double t =
          length2 > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length2, 0.0, 1.0) : 0;
      best = std::min(best, std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy));
    }
  }
  return best;
}

// The point of a grid over the block farthest from its boundary, where its label reads best.
Point2 LabelPlace(const std::vector<std::vector<Point2>>& loops) {
  Point2 low{std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
  Point2 high{std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest()};
  for (const auto& loop : loops) {
    for (const Point2& p : loop) {
      low = {std::min(low.x, p.x), std::min(low.y, p.y)};
      high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
  }
  constexpr int kGrid = 24;
  Point2 best = loops.front().front();
  double bestDistance = -1;
  for (int i = 1; i < kGrid; ++i) {
    for (int j = 1; j < kGrid; ++j) {
      const Point2 p{low.x + (high.x - low.x) * i / kGrid, low.y + (high.y - low.y) * j / kGrid};
      if (!Inside(p, loops)) continue;
      const double distance = DistanceToLoops(p, loops);
      if (distance > bestDistance) {
        best = p;
        bestDistance = distance;
      }
    }
  }
  return best;
}

std::string PathData(const std::vector<Point2>& points) {
  std::string d;
  for (size_t i = 0; i < points.size(); ++i) {
    d += fmt::format("{}{:.2f},{:.2f}", i == 0 ? "M" : " L", points[i].x, points[i].y);
  }
  return d;
}

// The edge drawn in two halves, so that the point between them carries the arrow that
// shows its direction; arcs as arcs (the page's y axis points down, so an arc that turns
// counter-clockwise takes the negative sweep).
std::string EdgePath(const platform::EdgeGeometry& g, const View& view) {
  const std::vector<Point2> trace = Trace(g);
  const Point2 start = view(g.start);
  const Point2 end = view(g.end);
  if (g.angle == 0) {
    return PathData({start, {(start.x + end.x) / 2, (start.y + end.y) / 2}, end});
  }
  const Point2 middle = view(trace[trace.size() / 2]);
  const Point2 centre = view(g.third);
  const double radius = std::hypot(start.x - centre.x, start.y - centre.y);
  const int sweep = g.angle > 0 ? 0 : 1;
  return fmt::format("M{:.2f},{:.2f} A{:.2f},{:.2f} 0 0 {} {:.2f},{:.2f} A{:.2f},{:.2f} 0 0 {} {:.2f},{:.2f}",
                     start.x, start.y, radius, radius, sweep, middle.x, middle.y, radius, radius,
                     sweep, end.x, end.y);
}

}  // namespace

void WriteModelSvg(std::ostream& out, const platform::BasicModel& model) {
  std::vector<std::vector<Point2>> traces;
  std::vector<Point2> all;
  for (int e = 0; e < model.EdgeCount(); ++e) {
    traces.push_back(Trace(model.Edge(e)));
    all.insert(all.end(), traces.back().begin(), traces.back().end());
  }
  for (int v = 0; v < model.VertexCount(); ++v) all.push_back(model.Vertex(v));
  const View view(all);
  for (auto& trace : traces) {
    for (Point2& p : trace) p = view(p);
  }

  fmt::print(out,
             "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0:.0f}\" height=\"{1:.0f}\" "
             "viewBox=\"0 0 {0:.0f} {1:.0f}\" font-family=\"sans-serif\" font-size=\"12\">\n"
             "<defs><marker id=\"arrow\" viewBox=\"0 0 10 10\" refX=\"5\" refY=\"5\" "
             "markerWidth=\"9\" markerHeight=\"9\" orient=\"auto\">"
             "<path d=\"M0,1 L10,5 L0,9 z\" fill=\"#333\"/></marker></defs>\n"
             "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n",
             view.Width(), view.Height());

  std::map<std::string, const char*> shades;
  std::vector<std::pair<Point2, std::string>> blockLabels;
  out << "<g stroke=\"none\" fill-rule=\"evenodd\">\n";
  for (int b = 0; b < model.BlockCount(); ++b) {
    std::vector<std::vector<Point2>> pieces;
    for (int e = 0; e < model.EdgeCount(); ++e) {
      if (model.EdgeLeftBlock(e) == b) pieces.push_back(traces[e]);
      if (model.EdgeRightBlock(e) == b) pieces.emplace_back(traces[e].rbegin(), traces[e].rend());
    }
    if (pieces.empty()) continue;
    const auto loops = BlockLoops(pieces);
    const std::string label = model.BlockLabel(b);
    const char* shade = kUnlabelledShade;
    if (!label.empty()) {
      shade = shades.try_emplace(label, kShades[shades.size() % std::size(kShades)]).first->second;
    }
    std::string d;
    for (const auto& loop : loops) d += PathData(loop) + " Z ";
    fmt::print(out, "<path d=\"{}\" fill=\"{}\"/>\n", d, shade);
    blockLabels.push_back({LabelPlace(loops), fmt::format("block {}{}", b + 1,
                                                          label.empty() ? "" : ": " + label)});
  }
  out << "</g>\n<g fill=\"none\" stroke=\"#333\" stroke-width=\"1.5\">\n";
  for (int e = 0; e < model.EdgeCount(); ++e) {
    fmt::print(out, "<path d=\"{}\" marker-mid=\"url(#arrow)\"/>\n", EdgePath(model.Edge(e), view));
  }
  out << "</g>\n<g fill=\"#333\">\n";
  for (int v = 0; v < model.VertexCount(); ++v) {
    const Point2 p = view(model.Vertex(v));
    fmt::print(out, "<circle cx=\"{:.2f}\" cy=\"{:.2f}\" r=\"3.5\"{}/>\n", p.x, p.y,
               model.VertexIsolated(v) ? " fill=\"white\" stroke=\"#c00\" stroke-width=\"2\"" : "");
  }
  out << "</g>\n<g stroke=\"white\" stroke-width=\"3\" paint-order=\"stroke\">\n";
  for (int e = 0; e < model.EdgeCount(); ++e) {
    // The number sits beside the middle of the edge, on its left.
    const auto& trace = traces[e];
    const size_t k = trace.size() / 2;
    const Point2 a = trace[trace.size() == 2 ? 0 : k - 1];
    const Point2 b = trace[trace.size() == 2 ? 1 : k + 1];
    const Point2 middle =
        trace.size() == 2 ? Point2{(a.x + b.x) / 2, (a.y + b.y) / 2} : trace[k];
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length = std::max(std::hypot(dx, dy), 1e-9);
    const Point2 at{middle.x + dy / length * 12, middle.y - dx / length * 12};
    const std::string label = model.EdgeLabel(e);
    fmt::print(out, "<text x=\"{:.2f}\" y=\"{:.2f}\" text-anchor=\"middle\" "
               "dominant-baseline=\"middle\" fill=\"#225\">{}{}</text>\n",
               at.x, at.y, e + 1, label.empty() ? "" : ": " + Escape(label));
  }
  for (int v = 0; v < model.VertexCount(); ++v) {
    if (model.VertexLabel(v).empty()) continue;
    const Point2 p = view(model.Vertex(v));
    fmt::print(out, "<text x=\"{:.2f}\" y=\"{:.2f}\" fill=\"#a00\">{}</text>\n", p.x + 7, p.y - 7,
               Escape(model.VertexLabel(v)));
  }
  for (const auto& [at, text] : blockLabels) {
    fmt::print(out, "<text x=\"{:.2f}\" y=\"{:.2f}\" text-anchor=\"middle\" "
               "dominant-baseline=\"middle\" font-weight=\"bold\">{}</text>\n",
               at.x, at.y, Escape(text));
  }
  out << "</g>\n</svg>\n";
}

}  // namespace app
