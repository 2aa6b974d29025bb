#pragma once
// A basic model read once from the application and then answered from memory; the
// user-data values live only here, so they never reach the model file.
#include <optional>
#include <string>
#include <vector>

#include "platform/analysis_application.h"

namespace platform {

struct SnapshotEdge {
  EdgeGeometry geometry;
  std::string label;
  std::optional<int> leftBlock;
  std::optional<int> rightBlock;
};

struct SnapshotVertex {
  Point2 position;
  std::string label;
  bool isolated = false;
};

struct SnapshotBlock {
  std::string label;
  int firstBoundaryEdge = 0;
};

struct ModelContent {
  std::vector<SnapshotEdge> edges;
  std::vector<SnapshotVertex> vertices;
  std::vector<SnapshotBlock> blocks;
};

class SnapshotModel : public BasicModel {
 public:
  explicit SnapshotModel(ModelContent content);

  int EdgeCount() const override;
  EdgeGeometry Edge(int edge) const override;
  std::string EdgeLabel(int edge) const override;
  std::optional<int> EdgeLeftBlock(int edge) const override;
  std::optional<int> EdgeRightBlock(int edge) const override;
  long EdgeUserData(int edge) const override;
  void SetEdgeUserData(int edge, long value) override;

  int VertexCount() const override;
  Point2 Vertex(int vertex) const override;
  std::string VertexLabel(int vertex) const override;
  bool VertexIsolated(int vertex) const override;

  int BlockCount() const override;
  std::string BlockLabel(int block) const override;
  int BlockFirstBoundaryEdge(int block) const override;
  long BlockUserData(int block) const override;
  void SetBlockUserData(int block, long value) override;

  // The application let go of the file as soon as it was read; nothing is saved.
  void Close() override {}

 private:
  ModelContent content_;
  std::vector<long> edgeUserData_;
  std::vector<long> blockUserData_;
};

}  // namespace platform
