#include "platform/model_snapshot.h"

#include <utility>

#include "vbrt/error.h"

namespace platform {
namespace {

// An index outside the collection is the automation interface's subscript error.
template <typename Items>
auto& At(Items& items, int index) {
  if (index < 0 || static_cast<size_t>(index) >= items.size()) {
    vbrt::Raise(vbrt::kSubscriptOutOfRange);
  }
  return items[index];
}

}  // namespace

SnapshotModel::SnapshotModel(ModelContent content)
    : content_(std::move(content)),
      edgeUserData_(content_.edges.size(), 0),
      blockUserData_(content_.blocks.size(), 0) {}

int SnapshotModel::EdgeCount() const { return static_cast<int>(content_.edges.size()); }
EdgeGeometry SnapshotModel::Edge(int edge) const { return At(content_.edges, edge).geometry; }
std::string SnapshotModel::EdgeLabel(int edge) const { return At(content_.edges, edge).label; }
std::optional<int> SnapshotModel::EdgeLeftBlock(int edge) const {
  return At(content_.edges, edge).leftBlock;
}
std::optional<int> SnapshotModel::EdgeRightBlock(int edge) const {
  return At(content_.edges, edge).rightBlock;
}
long SnapshotModel::EdgeUserData(int edge) const { return At(edgeUserData_, edge); }
void SnapshotModel::SetEdgeUserData(int edge, long value) { At(edgeUserData_, edge) = value; }

int SnapshotModel::VertexCount() const { return static_cast<int>(content_.vertices.size()); }
Point2 SnapshotModel::Vertex(int vertex) const { return At(content_.vertices, vertex).position; }
std::string SnapshotModel::VertexLabel(int vertex) const {
  return At(content_.vertices, vertex).label;
}
bool SnapshotModel::VertexIsolated(int vertex) const {
  return At(content_.vertices, vertex).isolated;
}

int SnapshotModel::BlockCount() const { return static_cast<int>(content_.blocks.size()); }
std::string SnapshotModel::BlockLabel(int block) const { return At(content_.blocks, block).label; }
int SnapshotModel::BlockFirstBoundaryEdge(int block) const {
  return At(content_.blocks, block).firstBoundaryEdge;
}
long SnapshotModel::BlockUserData(int block) const { return At(blockUserData_, block); }
void SnapshotModel::SetBlockUserData(int block, long value) { At(blockUserData_, block) = value; }

}  // namespace platform
