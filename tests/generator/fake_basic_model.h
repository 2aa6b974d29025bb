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
  platform::EdgeGeometry Edge(int e) const override { return Answer("Edge", edges.at(e).geometry); }
  std::string EdgeLabel(int e) const override { return Answer("EdgeLabel", edges.at(e).label); }
  std::optional<int> EdgeLeftBlock(int e) const override {
    return Answer("EdgeLeftBlock", edges.at(e).left);
  }
  std::optional<int> EdgeRightBlock(int e) const override {
    return Answer("EdgeRightBlock", edges.at(e).right);
  }
  long EdgeUserData(int e) const override { return Answer("EdgeUserData", edges.at(e).userData); }
  void SetEdgeUserData(int e, long value) override {
    edges.at(e).userData = Answer("SetEdgeUserData", value);
  }

  int VertexCount() const override {
    return Answer("VertexCount", static_cast<int>(vertices.size()));
  }
  platform::Point2 Vertex(int v) const override { return Answer("Vertex", vertices.at(v).point); }
  std::string VertexLabel(int v) const override {
    return Answer("VertexLabel", vertices.at(v).label);
  }
  bool VertexIsolated(int v) const override {
    return Answer("VertexIsolated", vertices.at(v).isolated);
  }

  int BlockCount() const override { return Answer("BlockCount", static_cast<int>(blocks.size())); }
  std::string BlockLabel(int b) const override { return Answer("BlockLabel", blocks.at(b).label); }
  int BlockFirstBoundaryEdge(int b) const override {
    return Answer("BlockFirstBoundaryEdge", blocks.at(b).firstBoundaryEdge);
  }
  long BlockUserData(int b) const override {
    return Answer("BlockUserData", blocks.at(b).userData);
  }
  void SetBlockUserData(int b, long value) override {
    blocks.at(b).userData = Answer("SetBlockUserData", value);
  }

  void Close() override {
    ++closeCount;
    Answer("Close", 0);
  }

 private:
  // `value`, or the application's error when `accessor` is the failing one.
  template <class T>
  T Answer(const char* accessor, T value) const {
    if (failingAccessor == accessor) {
      throw vbrt::VbError(1004, std::string("Model cannot answer ") + accessor);
    }
    return value;
  }
};

}  // namespace generator::test
