#pragma once
// The analysis application's automation interface, as far as the wizard uses it: the
// product string for the version check, and the basic model that generation reads.
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

// The number of every error about a model that cannot be read: the runtime's
// "Automation error", as an automation server's failure arrives.
constexpr int kModelError = 440;

struct Point2 {
  double x = 0;
  double y = 0;
};

// An edge as the application reports it: start and end point, the third point (the
// arc's centre; for a straight edge any point) and the edge's own angle property
// (exactly 0 for a straight edge). An arc's angle is in radians, positive when the arc
// turns counter-clockwise from start to end.
struct EdgeGeometry {
  Point2 start;
  Point2 end;
  Point2 third;
  double angle = 0;
};

// One opened basic model. Indices are 0-based and follow the application's enumeration
// order. Every accessor throws vbrt::VbError when the application fails to answer.
class BasicModel {
 public:
  virtual ~BasicModel() = default;

  virtual int EdgeCount() const = 0;
  virtual EdgeGeometry Edge(int edge) const = 0;
  virtual std::string EdgeLabel(int edge) const = 0;  // "" when unlabelled
  // The blocks on the edge's left and right side, if any.
  virtual std::optional<int> EdgeLeftBlock(int edge) const = 0;
  virtual std::optional<int> EdgeRightBlock(int edge) const = 0;
  virtual long EdgeUserData(int edge) const = 0;
  virtual void SetEdgeUserData(int edge, long value) = 0;

  virtual int VertexCount() const = 0;
  virtual Point2 Vertex(int vertex) const = 0;
  virtual std::string VertexLabel(int vertex) const = 0;
  // True for a vertex that is not an end of any edge.
  virtual bool VertexIsolated(int vertex) const = 0;

  virtual int BlockCount() const = 0;
  virtual std::string BlockLabel(int block) const = 0;
  // The first edge of the block's boundary as the application lists it.
  virtual int BlockFirstBoundaryEdge(int block) const = 0;
  virtual long BlockUserData(int block) const = 0;
  virtual void SetBlockUserData(int block, long value) = 0;

  // Closes the model in the application without saving it.
  virtual void Close() = 0;
};

class AnalysisApplication {
 public:
  virtual ~AnalysisApplication() = default;
  // The product-name string that carries the version, as in "Zentrix 5.2".
  virtual std::string ProductName() const = 0;
  // Opens the basic model file at `path`, a file-system path of this machine (the caller
  // maps the record's path first); throws vbrt::VbError with the application's reason
  // when it cannot be opened.
  virtual std::unique_ptr<BasicModel> OpenModel(std::string_view path) = 0;
};

}  // namespace platform
