// The text form of the model preview.
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <fmt/ranges.h>

#include <optional>
#include <string>
#include <vector>

#include "app/model_preview.h"
#include "wizard/model/model_picture.h"

namespace app {
namespace {

std::string Point(platform::Point2 p) { return fmt::format("({}, {})", p.x, p.y); }

std::string Label(const std::string& label) {
  return label.empty() ? std::string() : fmt::format("  label \"{}\"", label);
}

}  // namespace

void WriteModelListing(std::ostream& out, std::string_view file, const platform::BasicModel& model) {
  fmt::print(out, "Basic model {}\n", file);
  const int edges = model.EdgeCount();
  fmt::print(out, "\nEdges ({}), in the order the generator numbers them:\n", edges);
  std::vector<std::vector<int>> blockEdges(model.BlockCount());
  for (int e = 0; e < edges; ++e) {
    const auto left = model.EdgeLeftBlock(e);
    const auto right = model.EdgeRightBlock(e);
    fmt::print(out, "  {:>3}  {}\n", e + 1,
               wizard::EdgeSummary(model.Edge(e), model.EdgeLabel(e), left, right));
    if (left) blockEdges.at(*left).push_back(e + 1);
    if (right && right != left) blockEdges.at(*right).push_back(e + 1);
  }

  std::vector<int> isolated, labelled;
  for (int v = 0; v < model.VertexCount(); ++v) {
    if (model.VertexIsolated(v)) isolated.push_back(v);
    if (!model.VertexLabel(v).empty()) labelled.push_back(v);
  }
  fmt::print(out, "\nIsolated vertices ({}):\n", isolated.size());
  for (int v : isolated) fmt::print(out, "  {}{}\n", Point(model.Vertex(v)), Label(model.VertexLabel(v)));
  fmt::print(out, "\nLabelled vertices ({}):\n", labelled.size());
  for (int v : labelled) fmt::print(out, "  {}{}\n", Point(model.Vertex(v)), Label(model.VertexLabel(v)));

  fmt::print(out, "\nBlocks ({}):\n", model.BlockCount());
  for (int b = 0; b < model.BlockCount(); ++b) {
    const int first = model.BlockFirstBoundaryEdge(b);
    const char* side = model.EdgeLeftBlock(first) == b ? "left" : "right";
    fmt::print(out, "  {:>3}{}  first boundary edge {} (block on its {})  edges {}\n", b + 1,
               Label(model.BlockLabel(b)), first + 1, side, fmt::join(blockEdges[b], " "));
  }
}

}  // namespace app
