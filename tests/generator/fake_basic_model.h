#pragma once
// An in-memory basic model for generator tests: edges, vertices and blocks as plain data,
// user data that the code under test can stamp and the test can inspect afterwards, and
// a switch that makes one accessor fail the way the application fails.
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/analysis_application.h"
#include "vbrt/error.h"

namespace generator::test {

struct FakeEdge {
  platform::EdgeGeometry geometry;
  std::string label;
  std::optional<int> left;
  std::optional<int> right;
  long userData = 0;
};

struct FakeVertex {
  platform::Point2 point;
  std::string label;
  bool isolated = false;
};

struct FakeBlock {
  std::string label;
  int firstBoundaryEdge = 0;
  long userData = 0;
};

class FakeBasicModel : public platform::BasicModel {
 public:
  std::vector<FakeEdge> edges;
  std::vector<FakeVertex> vertices;
  std::vector<FakeBlock> blocks;
  int closeCount = 0;
  // The accessor named here ("Edge", "VertexLabel", "SetBlockUserData", "Close", ...)
  // throws vbrt::VbError on every call; "" lets every call succeed.
  std::string failingAccessor;

  // A straight edge (angle property 0) or an arc about `centre` with the given angle.
  int AddEdge(platform::Point2 start, platform::Point2 end, platform::Point2 centre = {},
              double angle = 0) {
    edges.push_back({{start, end, centre, angle}, "", std::nullopt, std::nullopt, 0});
    return static_cast<int>(edges.size()) - 1;
  }
  int AddVertex(platform::Point2 point, std::string label = "", bool isolated = false) {
    vertices.push_back({point, std::move(label), isolated});
    return static_cast<int>(vertices.size()) - 1;
  }
  int AddBlock(std::string label, int firstBoundaryEdge) {
    blocks.push_back({std::move(label), firstBoundaryEdge, 0});
    return static_cast<int>(blocks.size()) - 1;
  }

  int EdgeCount() const override { return Answer("EdgeCount", static_cast<int>(edges.size())); }
  platform::EdgeGeometry Edge(int edge) const override {
    return Answer("Edge", edges.at(edge).geometry);
  }
  std::string EdgeLabel(int edge) const override {
    return Answer("EdgeLabel", edges.at(edge).label);
  }
  std::optional<int> EdgeLeftBlock(int edge) const override {
    return Answer("EdgeLeftBlock", edges.at(edge).left);
  }
  std::optional<int> EdgeRightBlock(int edge) const override {
    return Answer("EdgeRightBlock", edges.at(edge).right);
  }
  long EdgeUserData(int edge) const override {
    return Answer("EdgeUserData", edges.at(edge).userData);
  }
  void SetEdgeUserData(int edge, long value) override {
    Check("SetEdgeUserData");
    edges.at(edge).userData = value;
  }

  int VertexCount() const override {
    return Answer("VertexCount", static_cast<int>(vertices.size()));
  }
  platform::Point2 Vertex(int vertex) const override {
    return Answer("Vertex", vertices.at(vertex).point);
  }
  std::string VertexLabel(int vertex) const override {
    return Answer("VertexLabel", vertices.at(vertex).label);
  }
  bool VertexIsolated(int vertex) const override {
    return Answer("VertexIsolated", vertices.at(vertex).isolated);
  }

  int BlockCount() const override { return Answer("BlockCount", static_cast<int>(blocks.size())); }
  std::string BlockLabel(int block) const override {
    return Answer("BlockLabel", blocks.at(block).label);
  }
  int BlockFirstBoundaryEdge(int block) const override {
    return Answer("BlockFirstBoundaryEdge", blocks.at(block).firstBoundaryEdge);
  }
  long BlockUserData(int block) const override {
    return Answer("BlockUserData", blocks.at(block).userData);
  }
  void SetBlockUserData(int block, long value) override {
    Check("SetBlockUserData");
    blocks.at(block).userData = value;
  }

  void Close() override {
    ++closeCount;
    Check("Close");
  }

 private:
  void Check(const char* accessor) const {
    if (failingAccessor == accessor) {
      throw vbrt::VbError(1004, std::string("Model cannot answer ") + accessor);
    }
  }
  template <class T>
  T Answer(const char* accessor, T value) const {
    Check(accessor);
    return value;
  }
};

}  // namespace generator::test
