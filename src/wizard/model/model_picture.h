#pragma once
// The picture of a basic model as generation converts it into code: the blocks shaded by
// label, the edges with their direction and number (arcs as arcs), the vertices (isolated
// ones hollow) and the labels. It is the one drawing behind `eowizard model show --svg`
// and the basic-files page: ModelPicture reads the model once, Draw lays it out on a
// canvas of any size as plain shapes, and a renderer (SVG text, a painter on the window)
// only copies those shapes onto its surface.
//
// Canvas coordinates are pixels with y pointing down; colours are "#rgb" or "#rrggbb".
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "platform/analysis_application.h"

namespace wizard {

using platform::Point2;

struct CanvasSize {
  double width = 0;
  double height = 0;
};

// A block's area: a point inside an odd number of its loops is inside the block.
struct DrawnArea {
  std::vector<std::vector<Point2>> loops;  // each one closes back to its first point
  std::string fill;
};

struct DrawnEdge {
  Point2 start;
  Point2 end;
  // An arc (radius > 0) turns about `centre`; its start and its turn are angles as seen
  // on the canvas, in degrees, 0 pointing right and counter-clockwise positive.
  Point2 centre;
  double radius = 0;
  double startDegrees = 0;
  double sweepDegrees = 0;
  std::vector<Point2> trace;  // the edge as a polyline from start to end
  // The head in its middle, filled in `stroke`: tip, two barbs. None in a sketch.
  std::optional<std::array<Point2, 3>> arrow;
  std::string stroke;
  double strokeWidth = 0;
};

struct DrawnVertex {
  Point2 at;
  double radius = 0;
  std::string fill;
  std::string outline;  // "" = none
  double outlineWidth = 0;
};

struct DrawnText {
  Point2 at;
  std::string text;
  std::string colour;
  bool bold = false;
  bool centred = false;  // centred on `at`; otherwise it begins at `at` on its baseline
};

// Drawn in this order on a white canvas: areas, edges with their arrows, vertices, texts.
// Texts are kFontPixels high and lie on a white halo kHaloWidth wide, so that they read
// over the lines; no two of them overlap where the canvas leaves room.
struct Drawing {
  static constexpr double kFontPixels = 12;
  static constexpr double kHaloWidth = 3;

  CanvasSize size;
  std::vector<DrawnArea> areas;
  std::vector<DrawnEdge> edges;  // edge n (numbered from 1) at n - 1
  std::vector<DrawnVertex> vertices;
  std::vector<DrawnText> texts;
};

class ModelPicture {
 public:
  // Reads the model's edges, vertices and blocks; throws vbrt::VbError when the model
  // fails to answer.
  explicit ModelPicture(const platform::BasicModel& model);

  // The picture at its own size: the model's longer side takes 760 pixels, with margins
  // of 60 around the model.
  Drawing DrawNatural() const;
  // The picture fitted into `canvas` and centred, at least `margin` pixels from its
  // sides; the `selected` edge (0-based) stands out.
  Drawing Draw(CanvasSize canvas, double margin,
               std::optional<int> selected = std::nullopt) const;
  // The model as a sketch for the host: the blocks shaded by label, the edges, and the
  // labels of blocks, edges and vertices by their names, without numbers, directions or
  // a selection. The canvas has the model's aspect ratio within kSketchWidth by
  // kSketchHeight pixels.
  static constexpr double kSketchWidth = 640;
  static constexpr double kSketchHeight = 480;
  Drawing DrawSketch() const;

  int EdgeCount() const { return static_cast<int>(edges_.size()); }
  // "Edge 3: " and the edge as the model listing shows it (EdgeSummary).
  std::string EdgeText(int edge) const;

 private:
  struct Edge {
    platform::EdgeGeometry geometry;
    std::vector<Point2> trace;  // model coordinates
    std::string label;
    std::optional<int> left;
    std::optional<int> right;
  };
  struct Vertex {
    Point2 at;
    std::string label;
    bool isolated = false;
  };
  struct Block {
    std::string text;   // "block 2: Coil"
    std::string label;  // "Coil"; "" when unlabelled
    std::vector<std::vector<Point2>> loops;
    Point2 labelAt;
    std::string fill;
  };

  Drawing Lay(CanvasSize canvas, double margin, bool numbered, std::optional<int> selected) const;

  std::vector<Edge> edges_;
  std::vector<Vertex> vertices_;
  std::vector<Block> blocks_;
  Point2 low_;   // the corners of the box around every edge and vertex
  Point2 high_;
};

// The room a text takes on the canvas, halo included, as a box from its upper left to its
// lower right corner; a little wider than common sans-serif faces set it.
struct TextBox {
  Point2 low;
  Point2 high;
};
TextBox BoxOf(const DrawnText& text);

// The edge (0-based) whose line passes nearest to `at`, within `tolerance` pixels; none
// when no edge passes that close.
std::optional<int> EdgeAt(const Drawing& drawing, Point2 at, double tolerance);

// An edge as the model listing shows it: end points, the shape (an arc with its centre
// and angle), the label and the blocks on either side, as in `(40, 20) -> (4, 32)  arc
// centre (20, 20)  angle 143.13 deg  label "Shell"  left block 1, right none`.
std::string EdgeSummary(const platform::EdgeGeometry& geometry, const std::string& label,
                        std::optional<int> left, std::optional<int> right);

}  // namespace wizard
