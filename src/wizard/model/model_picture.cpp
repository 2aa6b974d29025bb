#include "wizard/model/model_picture.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <map>
#include <numbers>
#include <utility>

namespace wizard {
namespace {

constexpr double kNaturalLongerSide = 760;
constexpr double kNaturalMargin = 60;
constexpr double kSketchMargin = 24;
constexpr int kArcSteps = 32;
// Between an edge and the box of its number: near, or farther where near is taken.
constexpr double kNumberGaps[] = {4, 14, 28};
constexpr double kVertexLabelOffset = 7;  // right of and above the vertex
// Where along its edge a number may go, by preference: the middle first. Each place is
// tried on the edge's left, then on its right, near the edge and then farther.
constexpr double kNumberPlaces[] = {0.5, 0.35, 0.65, 0.2, 0.8, 0.05, 0.95};
// Heights above and below the baseline, in font sizes, and how much wider than common
// sans-serif faces set them the widths of EmWidth are taken (bold ones wider still).
constexpr double kAscent = 0.95;
constexpr double kWidthAllowance = 1.08;
constexpr double kBoldWidth = 1.1;
constexpr double kDescent = 0.25;
constexpr double kArrowHalfLength = 6.75;
constexpr double kArrowHalfWidth = 5.4;

const char* const kShades[] = {"#f4c28a", "#9fc9eb", "#b5dba0", "#e7a6b8",
                               "#d2bfe6", "#f2e394", "#9fd9d0", "#d9b99b"};
const char* const kUnlabelledShade = "#e4e4e4";
const char* const kEdgeColour = "#333";
const char* const kSelectedEdgeColour = "#e8590c";
constexpr double kEdgeWidth = 1.5;
constexpr double kSelectedEdgeWidth = 3;
const char* const kEdgeNumberColour = "#225";
const char* const kVertexLabelColour = "#a00";
const char* const kBlockLabelColour = "#000";
const char* const kIsolatedOutline = "#c00";
constexpr double kVertexRadius = 3.5;
constexpr double kIsolatedOutlineWidth = 2;

Point2 Plus(Point2 a, Point2 b) { return {a.x + b.x, a.y + b.y}; }
Point2 Minus(Point2 a, Point2 b) { return {a.x - b.x, a.y - b.y}; }
Point2 Times(Point2 a, double k) { return {a.x * k, a.y * k}; }

// Points from the edge's start to its end; an arc turns by its angle about its centre.
std::vector<Point2> Trace(const platform::EdgeGeometry& g) {
  if (g.angle == 0) return {g.start, g.end};
  std::vector<Point2> points;
  const Point2 radius = Minus(g.start, g.third);
  for (int i = 0; i <= kArcSteps; ++i) {
    const double t = g.angle * i / kArcSteps;
    points.push_back({g.third.x + radius.x * std::cos(t) - radius.y * std::sin(t),
                      g.third.y + radius.x * std::sin(t) + radius.y * std::cos(t)});
  }
  // The ends exactly as the model gives them, so that the edges of a block meet.
  points.front() = g.start;
  points.back() = g.end;
  return points;
}

// The closed loops around a block, from its edges oriented so that the block lies on
// their left; edges that do not close a loop end one where they stop.
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

double DistanceToSegment(Point2 p, Point2 a, Point2 b) {
  const Point2 d = Minus(b, a);
  const double length2 = d.x * d.x + d.y * d.y;
  const double t =
      length2 > 0 ? std::clamp(((p.x - a.x) * d.x + (p.y - a.y) * d.y) / length2, 0.0, 1.0) : 0;
  return std::hypot(p.x - a.x - t * d.x, p.y - a.y - t * d.y);
}

double DistanceToLoops(Point2 p, const std::vector<std::vector<Point2>>& loops) {
  double best = std::numeric_limits<double>::max();
  for (const auto& loop : loops) {
    for (size_t i = 0, j = loop.size() - 1; i < loop.size(); j = i++) {
      best = std::min(best, DistanceToSegment(p, loop[j], loop[i]));
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

// Model coordinates to canvas pixels, y pointing down.
class Frame {
 public:
  Frame(Point2 low, Point2 high, double scale, CanvasSize canvas)
      : low_(low), high_(high), scale_(scale),
        left_((canvas.width - (high.x - low.x) * scale) / 2),
        top_((canvas.height - (high.y - low.y) * scale) / 2) {}
  Point2 operator()(Point2 p) const {
    return {left_ + (p.x - low_.x) * scale_, top_ + (high_.y - p.y) * scale_};
  }
  double Scale() const { return scale_; }

 private:
  Point2 low_;
  Point2 high_;
  double scale_;
  double left_;
  double top_;
};

double Degrees(double radians) { return radians * 180 / std::numbers::pi; }

// The unit vector from `from` to `to`; none for a point.
Point2 Direction(Point2 from, Point2 to) {
  const Point2 d = Minus(to, from);
  return Times(d, 1 / std::max(std::hypot(d.x, d.y), 1e-9));
}

// The point a fraction `t` of the way along a polyline, and the direction there.
std::pair<Point2, Point2> AlongTrace(const std::vector<Point2>& trace, double t) {
  double length = 0;
  for (size_t i = 1; i < trace.size(); ++i)
    length += std::hypot(trace[i].x - trace[i - 1].x, trace[i].y - trace[i - 1].y);
  double left = length * t;
  for (size_t i = 1; i < trace.size(); ++i) {
    const double piece = std::hypot(trace[i].x - trace[i - 1].x, trace[i].y - trace[i - 1].y);
    if (left <= piece || i + 1 == trace.size()) {
      const double k = piece > 0 ? std::min(left / piece, 1.0) : 0;
      return {Plus(trace[i - 1], Times(Minus(trace[i], trace[i - 1]), k)),
              Direction(trace[i - 1], trace[i])};
    }
    left -= piece;
  }
  return {trace.front(), {1, 0}};
}

DrawnEdge DrawEdge(const platform::EdgeGeometry& g, const std::vector<Point2>& trace,
                   const Frame& frame, bool selected, bool directed) {
  DrawnEdge edge;
  edge.start = frame(g.start);
  edge.end = frame(g.end);
  for (const Point2& p : trace) edge.trace.push_back(frame(p));
  if (g.angle != 0) {
    edge.centre = frame(g.third);
    edge.radius = std::hypot(g.start.x - g.third.x, g.start.y - g.third.y) * frame.Scale();
    // The canvas shows the model the right way up, so the model's angles hold on it.
    edge.startDegrees = Degrees(std::atan2(g.start.y - g.third.y, g.start.x - g.third.x));
    edge.sweepDegrees = Degrees(g.angle);
  }
  if (directed) {
    Point2 middle, direction;
    if (g.angle != 0) {
      const size_t k = edge.trace.size() / 2;
      middle = edge.trace[k];
      direction = Direction(edge.trace[k - 1], edge.trace[k + 1]);
    } else {
      middle = Times(Plus(edge.start, edge.end), 0.5);
      direction = Direction(edge.start, edge.end);
    }
    const Point2 across{-direction.y, direction.x};
    const Point2 back = Minus(middle, Times(direction, kArrowHalfLength));
    edge.arrow = {{Plus(middle, Times(direction, kArrowHalfLength)),
                   Plus(back, Times(across, kArrowHalfWidth)),
                   Minus(back, Times(across, kArrowHalfWidth))}};
  }
  edge.stroke = selected ? kSelectedEdgeColour : kEdgeColour;
  edge.strokeWidth = selected ? kSelectedEdgeWidth : kEdgeWidth;
  return edge;
}

// The width of a character in common sans-serif faces, in font sizes, by its kind; a
// character beyond ASCII is taken as wide as the widest.
double EmWidth(char c) {
  if (static_cast<unsigned char>(c) >= 0x80) return 1;
  if (std::string_view(" .,:;'!|iIjl").find(c) != std::string_view::npos) return 0.33;
  if (std::string_view("frt()[]-/").find(c) != std::string_view::npos) return 0.45;
  if (std::string_view("mwMW").find(c) != std::string_view::npos) return 0.95;
  if (c >= 'A' && c <= 'Z') return 0.75;
  return 0.64;
}

double Overlap(const TextBox& a, const TextBox& b) {
  const double width = std::min(a.high.x, b.high.x) - std::max(a.low.x, b.low.x);
  const double height = std::min(a.high.y, b.high.y) - std::max(a.low.y, b.low.y);
  return width > 0 && height > 0 ? width * height : 0;
}

// How much of `box` lies on other texts or off the canvas.
double Crowding(const TextBox& box, const std::vector<TextBox>& taken, CanvasSize canvas) {
  double crowding = 0;
  for (const TextBox& other : taken) crowding += Overlap(box, other);
  const TextBox whole{{0, 0}, {canvas.width, canvas.height}};
  const double area = (box.high.x - box.low.x) * (box.high.y - box.low.y);
  return crowding + area - Overlap(box, whole);
}

// Whether the segments ab and cd cross.
bool Cross(Point2 a, Point2 b, Point2 c, Point2 d) {
  const auto side = [](Point2 p, Point2 q, Point2 r) {
    return (q.x - p.x) * (r.y - p.y) - (q.y - p.y) * (r.x - p.x);
  };
  return side(a, b, c) * side(a, b, d) < 0 && side(c, d, a) * side(c, d, b) < 0;
}

// Whether the way from `from` to `to` crosses an edge other than edge `self`: a number
// beyond another edge would read as that edge's.
bool CrossesAnotherEdge(Point2 from, Point2 to, const std::vector<DrawnEdge>& edges, size_t self) {
  for (size_t e = 0; e < edges.size(); ++e) {
    const std::vector<Point2>& trace = edges[e].trace;
    for (size_t i = 1; e != self && i < trace.size(); ++i) {
      if (Cross(from, to, trace[i - 1], trace[i])) return true;
    }
  }
  return false;
}

// Puts the centred `text` of edge `self` beside it, on its side of every other edge, clear
// of the edge and of the boxes already `taken`: by preference near its middle and on its
// left, else at the first of the other places where it is clear, else where it is least
// in the way.
void PlaceBeside(DrawnText& text, const std::vector<DrawnEdge>& edges, size_t self,
                 const std::vector<TextBox>& taken, CanvasSize canvas) {
  constexpr double kBeyondAnotherEdge = 1e9;
  const std::vector<Point2>& trace = edges[self].trace;
  text.at = {0, 0};
  const TextBox size = BoxOf(text);
  const double halfWidth = (size.high.x - size.low.x) / 2;
  const double halfHeight = (size.high.y - size.low.y) / 2;
  std::optional<Point2> best;
  double bestCrowding = 0;
  for (const double gap : kNumberGaps) {
    for (const double side : {1.0, -1.0}) {
      for (const double t : kNumberPlaces) {
        const auto [point, direction] = AlongTrace(trace, t);
        const Point2 left = Times({direction.y, -direction.x}, side);
        const double distance = gap + std::abs(left.x) * halfWidth + std::abs(left.y) * halfHeight;
        text.at = Plus(point, Times(left, distance));
        const double crowding =
            Crowding(BoxOf(text), taken, canvas) +
            (CrossesAnotherEdge(point, text.at, edges, self) ? kBeyondAnotherEdge : 0);
        if (crowding == 0) return;
        if (!best || crowding < bestCrowding) {
          best = text.at;
          bestCrowding = crowding;
        }
      }
    }
  }
  text.at = *best;
}

std::string PointText(Point2 p) { return fmt::format("({}, {})", p.x, p.y); }

std::string BlockText(std::optional<int> block) {
  return block ? fmt::format("block {}", *block + 1) : std::string("none");
}

}  // namespace

ModelPicture::ModelPicture(const platform::BasicModel& model) {
  const int edgeCount = model.EdgeCount();
  for (int e = 0; e < edgeCount; ++e) {
    Edge edge{model.Edge(e), {}, model.EdgeLabel(e), model.EdgeLeftBlock(e),
              model.EdgeRightBlock(e)};
    edge.trace = Trace(edge.geometry);
    edges_.push_back(std::move(edge));
  }
  const int vertexCount = model.VertexCount();
  for (int v = 0; v < vertexCount; ++v) {
    vertices_.push_back({model.Vertex(v), model.VertexLabel(v), model.VertexIsolated(v)});
  }

  std::map<std::string, const char*> shades;
  const int blockCount = model.BlockCount();
  for (int b = 0; b < blockCount; ++b) {
    std::vector<std::vector<Point2>> pieces;
    for (const Edge& edge : edges_) {
      if (edge.left == b) pieces.push_back(edge.trace);
      if (edge.right == b) pieces.emplace_back(edge.trace.rbegin(), edge.trace.rend());
    }
    if (pieces.empty()) continue;  // a block without edges has nothing to draw
    Block block;
    const std::string label = model.BlockLabel(b);
    block.text = fmt::format("block {}{}", b + 1, label.empty() ? "" : ": " + label);
    block.label = label;
    block.loops = BlockLoops(pieces);
    block.labelAt = LabelPlace(block.loops);
    if (label.empty()) {
      block.fill = kUnlabelledShade;
    } else {
      const char* next = kShades[shades.size() % std::size(kShades)];
      block.fill = shades.try_emplace(label, next).first->second;
    }
    blocks_.push_back(std::move(block));
  }

  low_ = {std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
  high_ = {std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest()};
  auto include = [&](Point2 p) {
    low_ = {std::min(low_.x, p.x), std::min(low_.y, p.y)};
    high_ = {std::max(high_.x, p.x), std::max(high_.y, p.y)};
  };
  for (const Edge& edge : edges_) std::for_each(edge.trace.begin(), edge.trace.end(), include);
  for (const Vertex& vertex : vertices_) include(vertex.at);
  if (edges_.empty() && vertices_.empty()) low_ = high_ = {0, 0};
}

Drawing ModelPicture::DrawNatural() const {
  const double extent = std::max(high_.x - low_.x, high_.y - low_.y);
  const double scale = extent > 0 ? kNaturalLongerSide / extent : 1;
  return Draw({(high_.x - low_.x) * scale + 2 * kNaturalMargin,
               (high_.y - low_.y) * scale + 2 * kNaturalMargin},
              kNaturalMargin);
}

Drawing ModelPicture::Draw(CanvasSize canvas, double margin, std::optional<int> selected) const {
  return Lay(canvas, margin, true, selected);
}

Drawing ModelPicture::DrawSketch() const {
  const double width = high_.x - low_.x;
  const double height = high_.y - low_.y;
  double scale = std::numeric_limits<double>::max();
  if (width > 0) scale = (kSketchWidth - 2 * kSketchMargin) / width;
  if (height > 0) scale = std::min(scale, (kSketchHeight - 2 * kSketchMargin) / height);
  const CanvasSize canvas =
      scale == std::numeric_limits<double>::max()
          ? CanvasSize{kSketchWidth, kSketchHeight}
          : CanvasSize{std::round(width * scale + 2 * kSketchMargin),
                       std::round(height * scale + 2 * kSketchMargin)};
  return Lay(canvas, kSketchMargin, false, std::nullopt);
}

Drawing ModelPicture::Lay(CanvasSize canvas, double margin, bool numbered,
                          std::optional<int> selected) const {
  // The largest scale at which the model fits between the margins; a model without
  // extent in one direction (a single line) is fitted in the other.
  double scale = std::numeric_limits<double>::max();
  const auto fit = [&](double room, double extent) {
    if (extent > 0) scale = std::min(scale, std::max(room - 2 * margin, 1.0) / extent);
  };
  fit(canvas.width, high_.x - low_.x);
  fit(canvas.height, high_.y - low_.y);
  if (scale == std::numeric_limits<double>::max()) scale = 1;
  const Frame frame(low_, high_, scale, canvas);

  Drawing drawing;
  drawing.size = canvas;
  for (const Block& block : blocks_) {
    DrawnArea area{{}, block.fill};
    for (const auto& loop : block.loops) {
      area.loops.emplace_back();
      for (const Point2& p : loop) area.loops.back().push_back(frame(p));
    }
    drawing.areas.push_back(std::move(area));
  }
  for (size_t e = 0; e < edges_.size(); ++e) {
    drawing.edges.push_back(DrawEdge(edges_[e].geometry, edges_[e].trace, frame,
                                     selected == static_cast<int>(e), numbered));
  }

  // The names of blocks and vertices stay where they belong; the edges' texts find room
  // around them and around each other.
  std::vector<DrawnText> vertexTexts;
  for (const Vertex& vertex : vertices_) {
    const Point2 at = frame(vertex.at);
    drawing.vertices.push_back(vertex.isolated
                                   ? DrawnVertex{at, kVertexRadius, "#fff", kIsolatedOutline,
                                                 kIsolatedOutlineWidth}
                                   : DrawnVertex{at, kVertexRadius, kEdgeColour, "", 0});
    if (vertex.label.empty()) continue;
    vertexTexts.push_back({{at.x + kVertexLabelOffset, at.y - kVertexLabelOffset},
                           vertex.label, kVertexLabelColour, false, false});
  }
  std::vector<DrawnText> blockTexts;
  for (const Block& block : blocks_) {
    const std::string& text = numbered ? block.text : block.label;
    if (!text.empty())
      blockTexts.push_back({frame(block.labelAt), text, kBlockLabelColour, true, true});
  }
  std::vector<TextBox> taken;
  for (const auto* texts : {&vertexTexts, &blockTexts}) {
    for (const DrawnText& text : *texts) taken.push_back(BoxOf(text));
  }
  for (size_t e = 0; e < edges_.size(); ++e) {
    const std::string& label = edges_[e].label;
    const std::string number = fmt::format("{}{}", e + 1, label.empty() ? "" : ": " + label);
    DrawnText text{{}, numbered ? number : label, kEdgeNumberColour, false, true};
    if (text.text.empty()) continue;
    PlaceBeside(text, drawing.edges, e, taken, canvas);
    taken.push_back(BoxOf(text));
    drawing.texts.push_back(std::move(text));
  }
  drawing.texts.insert(drawing.texts.end(), vertexTexts.begin(), vertexTexts.end());
  drawing.texts.insert(drawing.texts.end(), blockTexts.begin(), blockTexts.end());
  return drawing;
}

std::string ModelPicture::EdgeText(int edge) const {
  const Edge& e = edges_.at(static_cast<size_t>(edge));
  return fmt::format("Edge {}: {}", edge + 1, EdgeSummary(e.geometry, e.label, e.left, e.right));
}

TextBox BoxOf(const DrawnText& text) {
  double ems = 0;
  for (const char c : text.text) {
    // Characters, not bytes: a label may be written in any script.
    if ((c & 0xC0) != 0x80) ems += EmWidth(c);
  }
  const double font = Drawing::kFontPixels;
  const double halo = Drawing::kHaloWidth / 2;
  const double width = ems * font * kWidthAllowance * (text.bold ? kBoldWidth : 1);
  if (text.centred) {
    // Centred on `at` as the renderers centre it: half its width either side, and its
    // letters about the middle.
    const double half = (kAscent + kDescent) * font / 2;
    return {{text.at.x - width / 2 - halo, text.at.y - half - halo},
            {text.at.x + width / 2 + halo, text.at.y + half + halo}};
  }
  return {{text.at.x - halo, text.at.y - kAscent * font - halo},
          {text.at.x + width + halo, text.at.y + kDescent * font + halo}};
}

std::optional<int> EdgeAt(const Drawing& drawing, Point2 at, double tolerance) {
  std::optional<int> nearest;
  double best = tolerance;
  for (size_t e = 0; e < drawing.edges.size(); ++e) {
    const std::vector<Point2>& trace = drawing.edges[e].trace;
    for (size_t i = 1; i < trace.size(); ++i) {
      const double distance = DistanceToSegment(at, trace[i - 1], trace[i]);
      if (distance < best || (!nearest && distance == best)) {
        best = distance;
        nearest = static_cast<int>(e);
      }
    }
  }
  return nearest;
}

std::string EdgeSummary(const platform::EdgeGeometry& geometry, const std::string& label,
                        std::optional<int> left, std::optional<int> right) {
  std::string shape = "line";
  if (geometry.angle != 0) {
    shape = fmt::format("arc   centre {}  angle {:.6g} deg", PointText(geometry.third),
                        Degrees(geometry.angle));
  }
  return fmt::format("{} -> {}  {}{}  left {}, right {}", PointText(geometry.start),
                     PointText(geometry.end), shape,
                     label.empty() ? "" : fmt::format("  label \"{}\"", label), BlockText(left),
                     BlockText(right));
}

}  // namespace wizard
