#include "platform/sandbox/reader_pipe.h"

#include <charconv>
#include <system_error>
#include <utility>

namespace platform::sandbox {
namespace {

// True when `frame` is a frame of its own length header.
constexpr bool FrameIsWhole(std::string_view frame) {
  const std::size_t lineEnd = frame.find('\n');
  std::size_t length = 0;
  for (std::size_t i = 0; i < lineEnd; ++i) length = length * 10 + (frame[i] - '0');
  return lineEnd != std::string_view::npos && length == frame.size() - lineEnd - 1;
}
static_assert(FrameIsWhole(ForbiddenFrame(Forbidden::File)) &&
              FrameIsWhole(ForbiddenFrame(Forbidden::Connection)) && FrameIsWhole(kMemoryFrame));

// Composes a payload field by field.
class PayloadWriter {
 public:
  PayloadWriter& Word(std::string_view word) { return Field(word); }
  PayloadWriter& Integer(long long value) { return Field(std::to_string(value)); }
  PayloadWriter& Block(std::optional<int> block) { return block ? Integer(*block) : Field("-"); }
  PayloadWriter& Number(double value) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return Field(std::string_view(digits, static_cast<std::size_t>(end - digits)));
  }
  PayloadWriter& Text(std::string_view text) {
    Separate();
    payload_ += std::to_string(text.size());
    payload_ += ':';
    payload_ += text;
    return *this;
  }
  PayloadWriter& EndLine() {
    payload_ += '\n';
    lineStart_ = true;
    return *this;
  }
  std::string Frame() && {
    std::string frame = std::to_string(payload_.size()) + '\n';
    return frame + payload_;
  }

 private:
  PayloadWriter& Field(std::string_view text) {
    Separate();
    payload_ += text;
    return *this;
  }
  void Separate() {
    if (!lineStart_) payload_ += ' ';
    lineStart_ = false;
  }

  std::string payload_;
  bool lineStart_ = true;
};

[[noreturn]] void Malformed(std::string_view what) {
  throw PipeFormError("the model reader's answer is not in its form: " + std::string(what));
}

// Reads a payload field by field; each field must be followed by its separator, a blank
// or, at the end of its line, a line feed.
class PayloadReader {
 public:
  explicit PayloadReader(std::string_view payload) : rest_(payload) {}

  std::string_view Word() {
    const std::string_view word = rest_.substr(0, rest_.find_first_of(" \n"));
    rest_.remove_prefix(word.size());
    Separator();
    return word;
  }
  template <typename T>
  T Integer() {
    const T value = Digits<T>();
    Separator();
    return value;
  }
  std::optional<int> Block() {
    if (rest_.starts_with("-")) {
      rest_.remove_prefix(1);
      Separator();
      return std::nullopt;
    }
    return Integer<int>();
  }
  double Number() {
    const double value = Digits<double>();
    Separator();
    return value;
  }
  std::string Text() {
    const auto length = Digits<std::size_t>();
    if (!rest_.starts_with(":") || rest_.size() - 1 < length) Malformed("a text is cut short");
    std::string text(rest_.substr(1, length));
    rest_.remove_prefix(1 + length);
    Separator();
    return text;
  }
  void EndLine() {
    if (last_ != '\n') Malformed("a line goes on");
    last_ = 0;
  }
  void EndPayload() {
    if (!rest_.empty()) Malformed("more follows the end");
  }
  void Expect(std::string_view word) {
    if (Word() != word) Malformed("'" + std::string(word) + "' was expected");
  }

 private:
  template <typename T>
  T Digits() {
    T value{};
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
    if (error != std::errc()) Malformed("a number was expected");
    rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
    return value;
  }
  void Separator() {
    if (last_ == '\n') Malformed("a line ends early");
    if (rest_.empty() || (rest_.front() != ' ' && rest_.front() != '\n')) {
      Malformed("a field is cut short");
    }
    last_ = rest_.front();
    rest_.remove_prefix(1);
  }

  std::string_view rest_;
  char last_ = 0;  // the separator after the field read last; 0 after EndLine
};

}  // namespace

std::string GreetingFrame(bool ready, std::string_view text) {
  return std::move(PayloadWriter().Word(ready ? "ready" : "unavailable").Text(text).EndLine())
      .Frame();
}

std::string ReadRequestFrame(std::uint64_t memoryLimit, std::string_view path) {
  return std::move(PayloadWriter()
                       .Word("read")
                       .Integer(static_cast<long long>(memoryLimit))
                       .Text(path)
                       .EndLine())
      .Frame();
}

std::string ModelFrame(const BasicModel& model) {
  PayloadWriter out;
  const int edges = model.EdgeCount();
  const int vertices = model.VertexCount();
  const int blocks = model.BlockCount();
  out.Word("model").Integer(edges).Integer(vertices).Integer(blocks).EndLine();
  for (int i = 0; i < edges; ++i) {
    const EdgeGeometry edge = model.Edge(i);
    out.Word("edge");
    for (const double value : {edge.start.x, edge.start.y, edge.end.x, edge.end.y, edge.third.x,
                               edge.third.y, edge.angle}) {
      out.Number(value);
    }
    out.Block(model.EdgeLeftBlock(i)).Block(model.EdgeRightBlock(i)).Text(model.EdgeLabel(i));
    out.EndLine();
  }
  for (int i = 0; i < vertices; ++i) {
    const Point2 at = model.Vertex(i);
    out.Word("vertex").Number(at.x).Number(at.y).Integer(model.VertexIsolated(i) ? 1 : 0);
    out.Text(model.VertexLabel(i)).EndLine();
  }
  for (int i = 0; i < blocks; ++i) {
    out.Word("block").Integer(model.BlockFirstBoundaryEdge(i)).Text(model.BlockLabel(i));
    out.EndLine();
  }
  return std::move(out).Frame();
}

std::string ErrorFrame(int number, std::string_view description) {
  return std::move(PayloadWriter().Word("error").Integer(number).Text(description).EndLine())
      .Frame();
}

std::optional<std::string_view> FirstPayload(std::string_view bytes) {
  const std::size_t lineEnd = bytes.find('\n');
  if (lineEnd == std::string_view::npos) {
    if (bytes.size() > 20) Malformed("no frame length");
    return std::nullopt;
  }
  std::size_t length = 0;
  const auto [end, error] = std::from_chars(bytes.data(), bytes.data() + lineEnd, length);
  if (error != std::errc() || end != bytes.data() + lineEnd) Malformed("no frame length");
  if (bytes.size() - lineEnd - 1 < length) return std::nullopt;
  return bytes.substr(lineEnd + 1, length);
}

Greeting ParseGreeting(std::string_view payload) {
  PayloadReader in(payload);
  Greeting greeting;
  const std::string_view word = in.Word();
  if (word != "ready" && word != "unavailable") Malformed("a greeting was expected");
  greeting.ready = word == "ready";
  greeting.text = in.Text();
  in.EndLine();
  in.EndPayload();
  return greeting;
}

ReadRequest ParseReadRequest(std::string_view payload) {
  PayloadReader in(payload);
  in.Expect("read");
  ReadRequest request;
  request.memoryLimit = in.Integer<std::uint64_t>();
  request.path = in.Text();
  in.EndLine();
  in.EndPayload();
  return request;
}

Answer ParseAnswer(std::string_view payload) {
  PayloadReader in(payload);
  Answer answer;
  const std::string_view kind = in.Word();
  if (kind == "model") {
    answer.kind = Answer::Kind::Model;
    const auto edges = in.Integer<std::size_t>();
    const auto vertices = in.Integer<std::size_t>();
    const auto blocks = in.Integer<std::size_t>();
    in.EndLine();
    // Each line takes at least a few bytes: counts beyond the payload are no model.
    if (edges + vertices + blocks > payload.size()) Malformed("more items than bytes");
    ModelContent& model = answer.model;
    model.edges.resize(edges);
    for (SnapshotEdge& edge : model.edges) {
      in.Expect("edge");
      for (double* value : {&edge.geometry.start.x, &edge.geometry.start.y, &edge.geometry.end.x,
                            &edge.geometry.end.y, &edge.geometry.third.x, &edge.geometry.third.y,
                            &edge.geometry.angle}) {
        *value = in.Number();
      }
      edge.leftBlock = in.Block();
      edge.rightBlock = in.Block();
      edge.label = in.Text();
      in.EndLine();
    }
    model.vertices.resize(vertices);
    for (SnapshotVertex& vertex : model.vertices) {
      in.Expect("vertex");
      vertex.position.x = in.Number();
      vertex.position.y = in.Number();
      vertex.isolated = in.Integer<int>() != 0;
      vertex.label = in.Text();
      in.EndLine();
    }
    model.blocks.resize(blocks);
    for (SnapshotBlock& block : model.blocks) {
      in.Expect("block");
      block.firstBoundaryEdge = in.Integer<int>();
      block.label = in.Text();
      in.EndLine();
    }
  } else if (kind == "error") {
    answer.kind = Answer::Kind::Error;
    answer.number = in.Integer<int>();
    answer.description = in.Text();
    in.EndLine();
  } else if (kind == "forbidden") {
    answer.kind = Answer::Kind::Forbidden;
    const std::string_view what = in.Word();
    in.EndLine();
    if (what == "file") {
      answer.forbidden = Forbidden::File;
    } else if (what == "connection") {
      answer.forbidden = Forbidden::Connection;
    } else {
      Malformed("an unknown forbidden call");
    }
  } else if (kind == "memory") {
    answer.kind = Answer::Kind::Memory;
    in.EndLine();
  } else {
    Malformed("an unknown answer");
  }
  in.EndPayload();
  return answer;
}

}  // namespace platform::sandbox
