// BuildModel in the form that rebuilds the basic model's geometry and labels as code.
#include <cmath>
#include <cstdint>
#include <numbers>
#include <optional>
#include <string>
#include <utility>

#include "generator/printer.h"
#include "generator/sections.h"
#include "generator/solving_blocks.h"
#include "vbrt/error.h"
#include "vbrt/numbers.h"

namespace generator {
namespace {

using platform::BasicModel;
using platform::EdgeGeometry;
using platform::Point2;

// A failure of the application while the basic model is read. Kept apart from the
// run-time errors of the generator itself (counter overflow, division fault, emitter),
// which end generation instead of turning into the writer's false result.
struct ModelReadFailed {};

template <class Call>
auto Read(Call&& call) {
  try {
    return std::forward<Call>(call)();
  } catch (const vbrt::VbError&) {
    throw ModelReadFailed{};
  }
}

// Coordinates and angles are written as Single with the runtime's Str().
std::string Num(double value) { return vbrt::StrSingle(static_cast<float>(value)); }

// The angle written for an edge. With absolute values on both sides an arc of more than a
// quarter turn comes out as its supplement; generated models have always been built this
// way, so it is kept.
float ArcAngle(const EdgeGeometry& edge) {
  const Point2& a = edge.start;
  const Point2& b = edge.end;
  const Point2& c = edge.third;
  if (edge.angle == 0 || (a.x == b.x && a.y == b.y)) return 0;
  const double cross = std::fabs((a.y - c.y) * (b.x - c.x) - (a.x - c.x) * (b.y - c.y));
  const float dot =
      static_cast<float>(std::fabs((a.x - c.x) * (b.x - c.x) + (a.y - c.y) * (b.y - c.y)));
  if (cross == 0) return std::numbers::pi_v<float>;  // start, end and centre collinear
  if (dot == 0) vbrt::Raise(vbrt::kDivisionByZero);
  double angle = std::atan(cross / dot);
  if (angle < 0) angle += 6.2831853072;  // never with absolute values; part of the rule
  return static_cast<float>(angle);
}

std::string PointXY(const Point2& p) {
  std::string text = "ZX.PointXY(";
  text += Num(p.x);
  text += ", ";
  text += Num(p.y);
  text += ')';
  return text;
}

// Every edge is stamped with its number n in the opened model, so that the generated code
// can find it again with Edges.Flagged(n).
void PrintEdges(BasicModel& model, Printer& vb) {
  int16_t n = 0;
  const int count = Read([&] { return model.EdgeCount(); });
  for (int edge = 0; edge < count; ++edge) {
    n = vbrt::AddInteger(n, 1);
    const EdgeGeometry geometry = Read([&] {
      model.SetEdgeUserData(edge, n);
      return model.Edge(edge);
    });
    vb.Line("    Shps.AddEdge($start$, $end$, $angle$).Item(1).UserData = $n$",
            {{"start", PointXY(geometry.start)},
             {"end", PointXY(geometry.end)},
             {"angle", vbrt::StrSingle(ArcAngle(geometry))},
             {"n", std::to_string(n)}});
  }
}

void PrintIsolatedVertices(const BasicModel& model, Printer& vb) {
  vb.Print(R"(

    ''' Insert isolated vertices
)");
  const int count = Read([&] { return model.VertexCount(); });
  for (int vertex = 0; vertex < count; ++vertex) {
    if (!Read([&] { return model.VertexIsolated(vertex); })) continue;
    const Point2 p = Read([&] { return model.Vertex(vertex); });
    vb.Line("    Shps.AddVertexXY$x$,$y$", {{"x", Num(p.x)}, {"y", Num(p.y)}});
  }
}

void PrintVertexLabels(const BasicModel& model, Printer& vb) {
  vb.Print(R"(

    ''' Label vertices
    Mess.SetState "Labeling vertices", Cancel
)");
  const int count = Read([&] { return model.VertexCount(); });
  for (int vertex = 0; vertex < count; ++vertex) {
    const std::string label = Read([&] { return model.VertexLabel(vertex); });
    if (label.empty()) continue;
    const Point2 p = Read([&] { return model.Vertex(vertex); });
    vb.Line(R"(    Shps.Vertices.Nearest($point$).Item(1).Label = "$label$")",
            {{"point", PointXY(p)}, {"label", label}});
  }
}

void PrintEdgeLabels(const BasicModel& model, Printer& vb) {
  vb.Print(R"(
    ''' Label edges
    Mess.SetState "Labeling edges", Cancel
)");
  const int count = Read([&] { return model.EdgeCount(); });
  for (int edge = 0; edge < count; ++edge) {
    const std::string label = Read([&] { return model.EdgeLabel(edge); });
    if (label.empty()) continue;
    const long n = Read([&] { return model.EdgeUserData(edge); });
    vb.Line(R"(    Shps.Edges.Flagged($n$).Item(1).Label = "$label$")",
            {{"n", std::to_string(n)}, {"label", label}});
  }
}

// A block is labelled through the first edge of its boundary; which side of that edge it
// lies on is found by marking the block with user data 1 and looking at the left block.
void PrintBlockLabels(BasicModel& model, Printer& vb) {
  vb.Print(R"(
    ''' Label blocks
    Mess.SetState "Labeling blocks", Cancel
    Dim Edge As Zentrix.Edge
)");
  const int count = Read([&] { return model.BlockCount(); });
  Read([&] {
    for (int block = 0; block < count; ++block) model.SetBlockUserData(block, 0);
  });
  for (int block = 0; block < count; ++block) {
    const std::string label = Read([&] { return model.BlockLabel(block); });
    if (label.empty()) continue;
    long n = 0;
    bool onLeft = false;
    Read([&] {
      model.SetBlockUserData(block, 1);
      const int edge = model.BlockFirstBoundaryEdge(block);
      n = model.EdgeUserData(edge);
      const std::optional<int> left = model.EdgeLeftBlock(edge);
      onLeft = left.has_value() && model.BlockUserData(*left) == 1;
    });
    vb.Line("    Set Edge = Shps.Edges.Flagged($n$).Item(1)", {{"n", std::to_string(n)}});
    vb.Line(onLeft ? R"(    Edge.Left.Label = "$label$")" : R"(    Edge.Right.Label = "$label$")",
            {{"label", label}});
    Read([&] { model.SetBlockUserData(block, 0); });
  }
}

void PrintGeometryAndLabels(BasicModel& model, Printer& vb, Emitter& out) {
  out.StepProgress(1);
  PrintEdges(model, vb);
  PrintIsolatedVertices(model, vb);
  out.StepProgress(1);
  PrintVertexLabels(model, vb);
  vb.Line("");
  out.StepProgress(1);
  PrintEdgeLabels(model, vb);
  vb.Line("");
  out.StepProgress(1);
  PrintBlockLabels(model, vb);
}

// Closing on the way out of an error must not hide that error.
void CloseQuietly(BasicModel& model) noexcept {
  try {
    model.Close();
  } catch (...) {
  }
}

}  // namespace

bool WriteBuildModelGenerate(BasicModel& model, Emitter& out) {
  Printer vb(out, Printer::Target::Class);
  vb.Print(R"(
''' Build Zentrix problem model
Private Sub BuildModel()
    ''' Current ZX Model object
    Dim Mdl As Zentrix.Model
    ' Zentrix model shapes collection
    Dim Shps As Zentrix.Shapes
    ''' Current ZX Result object
    Dim Res As Zentrix.Result

    On Error GoTo ServerError

    ''' Delete old ZX Result document
    Set Res = Prb.Result
    If Not Res Is Nothing Then Res.Close
    Set Res = Nothing

    ''' Get Model object
    Set Mdl = Prb.Model

    ''' Get Shapes object
    Set Shps = Mdl.Shapes

    ''' Delete old model shapes
    Mess.SetState "Deleting old model", Cancel
    Shps.RemoveMesh
    Shps.Delete

    ''' ----------------------------------------
    ''' TODO: Modify these lines to build Zentrix model (Mdl) here

    ''' Build geometrical model (and enumerating all edges in UserData)
    Mess.SetState "Building new model", Cancel
)");
  try {
    PrintGeometryAndLabels(model, vb, out);
  } catch (const ModelReadFailed&) {
    // The stamps are only in the opened copy: closing without saving drops them.
    CloseQuietly(model);
    return false;
  } catch (...) {
    CloseQuietly(model);
    throw;
  }
  vb.Print(R"(

    ''' Building model end
    ''' ----------------------------------------

)");
  PrintBuildModelEnd(vb);
  PrintBuildModelServerError(vb);
  out.StepProgress(1);
  try {
    model.Close();
  } catch (const vbrt::VbError&) {
    return false;
  }
  return true;
}

}  // namespace generator
