#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "../vbrt/raises.h"
#include "fake_basic_model.h"
#include "generator/sections.h"
#include "golden_lines.h"
#include "test_support.h"

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

TEST(BuildModelGenerate, RebuildsGeometryAndLabelsWithClassicNumberText) {
  FakeBasicModel model = SmallModel();
  RecordingEmitter out;
  EXPECT_TRUE(WriteBuildModelGenerate(model, out));
  EXPECT_TRUE(MatchesGolden(out.classLines, "buildmodel_generate.txt"));
  EXPECT_TRUE(out.moduleLines.empty());
  // One step before the edges, before each of the three label groups, and at the end;
  // the edges themselves do not advance the bar.
  EXPECT_EQ(out.steps, (std::vector<std::size_t>{32, 42, 48, 53, out.classLines.size()}));
  EXPECT_EQ(model.closeCount, 1);
  EXPECT_EQ(model.edges[4].userData, 5);
  for (const FakeBlock& block : model.blocks) EXPECT_EQ(block.userData, 0);

  FakeBasicModel empty;
  RecordingEmitter emptyOut;
  EXPECT_TRUE(WriteBuildModelGenerate(empty, emptyOut));
  EXPECT_TRUE(MatchesGolden(emptyOut.classLines, "buildmodel_generate_empty.txt"));
  EXPECT_EQ(emptyOut.progress, 5);
}

// Once the application fails, writing stops (a failing Close comes after the whole text),
// the model is closed all the same and the result is false.
TEST(BuildModelGenerate, FailingApplicationClosesTheModelAndReportsFalse) {
  for (const std::string accessor : {"EdgeCount", "Edge", "SetEdgeUserData", "VertexIsolated",
                                     "VertexLabel", "EdgeLabel", "SetBlockUserData",
                                     "BlockFirstBoundaryEdge", "EdgeLeftBlock", "Close"}) {
    SCOPED_TRACE(accessor);
    FakeBasicModel model = SmallModel();
    model.failingAccessor = accessor;
    RecordingEmitter out;
    EXPECT_FALSE(WriteBuildModelGenerate(model, out));
    EXPECT_EQ(model.closeCount, 1);
    if (accessor == "Close") {
      EXPECT_TRUE(MatchesGolden(out.classLines, "buildmodel_generate.txt"));
    } else {
      EXPECT_EQ(std::ranges::count(out.classLines, "    ''' Building model end"), 0);
    }
  }
}

// Faults of the classic runtime end the conversion; the model is closed all the same.
TEST(BuildModelGenerate, CounterOverflowAndQuarterTurnArcAreRuntimeFaults) {
  FakeBasicModel many;
  many.edges.resize(32768);
  RecordingEmitter out;
  EXPECT_THAT([&] { WriteBuildModelGenerate(many, out); },
              RaisesError(vbrt::kOverflow));
  EXPECT_EQ(out.classLines.back(),
            "    Shps.AddEdge(ZX.PointXY( 0,  0), ZX.PointXY( 0,  0),  0)"
            ".Item(1).UserData = 32767");
  EXPECT_EQ(many.closeCount, 1);

  FakeBasicModel quarter;
  quarter.AddEdge({1, 0}, {0, 1}, {0, 0}, 1.5708);
  EXPECT_THAT([&] { WriteBuildModelGenerate(quarter, out); },
              RaisesError(vbrt::kDivisionByZero));
  EXPECT_EQ(quarter.closeCount, 1);
}

}  // namespace
}  // namespace generator::test
