// The form in which a sandboxed reader hands a model back: every value comes back exactly,
// whatever bytes a label holds, and answers that are cut short or out of form are refused.
#include "platform/sandbox/reader_pipe.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "platform/model_snapshot.h"

namespace platform::sandbox {
namespace {

ModelContent Awkward() {
  ModelContent model;
  model.edges.push_back(
      {{{0.1, -0.0}, {1e-310, 123456789.123456789}, {-2.5e-7, 1e300}, -3.141592653589793},
       "a label\nwith 3:lines and  blanks",
       std::nullopt,
       7});
  model.edges.push_back({{{1, 2}, {3, 4}, {1, 2}, 0}, "", 0, std::nullopt});
  model.vertices.push_back({{std::numeric_limits<double>::max(), -1.0 / 3},
                            "Gr\xC3\xB6\xC3\x9F"
                            "e",
                            true});
  model.blocks.push_back({"12:", 1});
  return model;
}

TEST(ReaderPipeTest, ModelComesBackExactly) {
  const SnapshotModel sent(Awkward());
  const std::string frame = ModelFrame(sent);
  const auto payload = FirstPayload(frame);
  ASSERT_TRUE(payload);
  EXPECT_TRUE(frame.ends_with(*payload));
  const Answer answer = ParseAnswer(*payload);
  ASSERT_EQ(answer.kind, Answer::Kind::Model);
  const SnapshotModel got(answer.model);
  ASSERT_EQ(got.EdgeCount(), 2);
  for (int i = 0; i < 2; ++i) {
    const EdgeGeometry a = sent.Edge(i), b = got.Edge(i);
    for (const auto& [x, y] : {std::pair{a.start.x, b.start.x},
                               {a.start.y, b.start.y},
                               {a.end.x, b.end.x},
                               {a.end.y, b.end.y},
                               {a.third.x, b.third.x},
                               {a.third.y, b.third.y},
                               {a.angle, b.angle}}) {
      EXPECT_EQ(x, y);
      EXPECT_EQ(std::signbit(x), std::signbit(y));
    }
    EXPECT_EQ(got.EdgeLabel(i), sent.EdgeLabel(i));
    EXPECT_EQ(got.EdgeLeftBlock(i), sent.EdgeLeftBlock(i));
    EXPECT_EQ(got.EdgeRightBlock(i), sent.EdgeRightBlock(i));
  }
  EXPECT_EQ(got.Vertex(0).x, sent.Vertex(0).x);
  EXPECT_EQ(got.Vertex(0).y, sent.Vertex(0).y);
  EXPECT_EQ(got.VertexLabel(0), sent.VertexLabel(0));
  EXPECT_TRUE(got.VertexIsolated(0));
  EXPECT_EQ(got.BlockLabel(0), "12:");
  EXPECT_EQ(got.BlockFirstBoundaryEdge(0), 1);
}

TEST(ReaderPipeTest, AnswersOutOfFormAreRefused) {
  const std::string model = std::string(*FirstPayload(ModelFrame(SnapshotModel(Awkward()))));
  const std::string cases[] = {
      model.substr(0, model.size() - 1),  // the last line feed missing
      model.substr(0, model.size() / 2),  // cut in the middle
      model + "block 0 0:\n",             // more than announced
      "model 1 0 0\nedge 1 2 3\n",        // an edge cut short
      "model 99999999999 0 0\n",          // more items than bytes
      "error 440 20:too short\n",         // a text longer than what follows
      "forbidden everything\n",
      "memory now\n",
      "hello\n",
      "",
  };
  for (const std::string& payload : cases) {
    SCOPED_TRACE(payload);
    EXPECT_THROW(ParseAnswer(payload), PipeFormError);
  }
  EXPECT_FALSE(FirstPayload("12\nmodel 0"));
  EXPECT_THROW(FirstPayload("twelve\n"), PipeFormError);
  EXPECT_EQ(ParseAnswer(*FirstPayload(ForbiddenFrame(Forbidden::Connection))).forbidden,
            Forbidden::Connection);
  EXPECT_EQ(ParseAnswer(*FirstPayload(kMemoryFrame)).kind, Answer::Kind::Memory);
  const Answer error = ParseAnswer(*FirstPayload(ErrorFrame(440, "it\nfailed")));
  EXPECT_EQ(error.number, 440);
  EXPECT_EQ(error.description, "it\nfailed");
}

}  // namespace
}  // namespace platform::sandbox
