#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "fake_basic_model.h"
#include "generator/sections.h"
#include "golden_lines.h"
#include "sections_records.h"
#include "vbrt/error.h"

namespace generator::test {
namespace {

// Edges, vertices and blocks chosen to exercise every number form and labelling rule.
FakeBasicModel SmallModel() {
  FakeBasicModel model;
  model.AddEdge({0, 0}, {1.5, 2});                                    // straight
  const int ground = model.AddEdge({1, 0}, {-1, 0}, {0, 0}, 3.14159);  // semicircle
  model.AddEdge({6, 1}, {4, 5}, {1, 1}, 0.9273);                       // less than a quarter
  const int wide = model.AddEdge({5, 0}, {-3, 4}, {0, 0}, 2.2143);     // more than a quarter
  const int far = model.AddEdge({0.25, -0.25}, {1234567.8, 0.00001});
  model.AddEdge({2, 2}, {2, 2}, {1, 1}, 6.2832);  // closed: start and end coincide
  model.edges[ground].label = "Ground";
  model.edges[far].label = "Far";
  model.edges[far].userData = 99;  // a stale stamp is overwritten

  model.AddVertex({0, 0});
  model.AddVertex({1.5, 2}, "Corner");
  model.AddVertex({0.25, -0.25}, "", true);
  model.AddVertex({-7, 3.5}, "Probe", true);

  const int iron = model.AddBlock("Iron", ground);
  const int unlabelled = model.AddBlock("", 0);
  const int air = model.AddBlock("Air", ground);
  const int coil = model.AddBlock("Coil", wide);
  model.edges[ground].left = iron;
  model.edges[ground].right = air;
  model.edges[wide].left = unlabelled;
  model.edges[wide].right = coil;
  // A stale mark on the unlabelled block must not make Coil look like the left block.
  model.blocks[unlabelled].userData = 1;
  return model;
}

FormState GenerateForm() {
  FormState form;
  form.SelectModelCase(true);
  return form;
}

TEST(BuildModelGenerate, RebuildsGeometryAndLabelsWithClassicNumberText) {
  FakeBasicModel model = SmallModel();
  StepWatchingEmitter out;
  EXPECT_TRUE(WriteBuildModelGenerate(GenerateForm(), model, out));
  EXPECT_TRUE(MatchesGolden(out.classLines, "buildmodel_generate.txt"));
  EXPECT_TRUE(out.moduleLines.empty());

  // One step before the edges, before each of the three label groups, and at the end;
  // the edges themselves do not advance the bar.
  std::vector<std::size_t> stepsAfterLine;
  for (const auto& step : out.steps) stepsAfterLine.push_back(step.first);
  EXPECT_EQ(stepsAfterLine, (std::vector<std::size_t>{32, 42, 48, 53, out.classLines.size()}));
  EXPECT_EQ(out.progress, 5);

  EXPECT_EQ(model.closeCount, 1);
  EXPECT_EQ(model.edges[4].userData, 5);
  for (const FakeBlock& block : model.blocks) EXPECT_EQ(block.userData, 0);
}

TEST(BuildModelGenerate, EmptyModelKeepsCommentAndStateLines) {
  FakeBasicModel model;
  RecordingEmitter out;
  EXPECT_TRUE(WriteBuildModelGenerate(GenerateForm(), model, out));
  EXPECT_TRUE(MatchesGolden(out.classLines, "buildmodel_generate_empty.txt"));
  EXPECT_EQ(out.progress, 5);
}

bool Contains(const std::vector<std::string>& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

TEST(BuildModelGenerate, FailingApplicationClosesTheModelAndReportsFalse) {
  for (const char* accessor : {"EdgeCount", "Edge", "SetEdgeUserData", "VertexIsolated",
                               "VertexLabel", "EdgeLabel", "SetBlockUserData",
                               "BlockFirstBoundaryEdge", "EdgeLeftBlock"}) {
    FakeBasicModel model = SmallModel();
    model.failingAccessor = accessor;
    RecordingEmitter out;
    EXPECT_FALSE(WriteBuildModelGenerate(GenerateForm(), model, out)) << accessor;
    EXPECT_EQ(model.closeCount, 1) << accessor;
    EXPECT_FALSE(Contains(out.classLines, "    ''' Building model end"))
        << accessor << ": writing went on after the failure";
  }
}

TEST(BuildModelGenerate, FailingCloseAfterTheWholeTextReportsFalse) {
  FakeBasicModel model = SmallModel();
  model.failingAccessor = "Close";
  RecordingEmitter out;
  EXPECT_FALSE(WriteBuildModelGenerate(GenerateForm(), model, out));
  EXPECT_TRUE(MatchesGolden(out.classLines, "buildmodel_generate.txt"));
}

TEST(BuildModelGenerate, EdgeCounterOverflowsAfter32767Edges) {
  FakeBasicModel model;
  model.edges.resize(32768);
  RecordingEmitter out;
  try {
    WriteBuildModelGenerate(GenerateForm(), model, out);
    FAIL() << "no overflow";
  } catch (const vbrt::VbError& error) {
    EXPECT_EQ(error.Number(), vbrt::kOverflow);
  }
  EXPECT_EQ(out.classLines.back(),
            "    Shps.AddEdge(ZX.PointXY( 0,  0), ZX.PointXY( 0,  0),  0)"
            ".Item(1).UserData = 32767");
  EXPECT_EQ(model.closeCount, 1);
}

TEST(BuildModelGenerate, ExactQuarterTurnArcIsADivisionFault) {
  FakeBasicModel model;
  model.AddEdge({1, 0}, {0, 1}, {0, 0}, 1.5708);
  RecordingEmitter out;
  try {
    WriteBuildModelGenerate(GenerateForm(), model, out);
    FAIL() << "no division fault";
  } catch (const vbrt::VbError& error) {
    EXPECT_EQ(error.Number(), vbrt::kDivisionByZero);
  }
  EXPECT_EQ(model.closeCount, 1);
}

}  // namespace
}  // namespace generator::test
