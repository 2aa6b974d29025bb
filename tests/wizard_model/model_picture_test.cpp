#include "wizard/model/model_picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "../generator/converter_model.h"
#include "platform/posix/posix_file_system.h"
#include "vbrt/error.h"
#include "wizard/model/basic_files_picture.h"

namespace wizard {
namespace {

using generator::test::ConverterModel;
using generator::test::FakeBasicModel;
using testing::ElementsAre;
using testing::Optional;

std::vector<std::string> Texts(const Drawing& drawing) {
  std::vector<std::string> texts;
  for (const DrawnText& text : drawing.texts) texts.push_back(text.text);
  return texts;
}

Point2 Middle(const DrawnEdge& edge) {
  if (edge.radius > 0) return edge.trace[edge.trace.size() / 2];
  return {(edge.start.x + edge.end.x) / 2, (edge.start.y + edge.end.y) / 2};
}

TEST(ModelPictureTest, DrawsEdgesArcsVerticesBlocksAndLabels) {
  const Drawing drawing = ModelPicture(ConverterModel()).DrawNatural();
  // The frame's arc reaches y = 40 (as far as its drawn points go): the model is 40 by
  // 40, its longer side 760 pixels.
  EXPECT_NEAR(drawing.size.width, 880, 1e-9);
  EXPECT_NEAR(drawing.size.height, 880, 0.1);
  ASSERT_EQ(drawing.edges.size(), 10u);
  const DrawnEdge& first = drawing.edges[0];
  EXPECT_NEAR(first.start.x, 60, 1e-6);  // the model's y axis points up, the canvas's down
  EXPECT_NEAR(first.start.y, 820, 0.1);
  EXPECT_EQ(first.radius, 0);
  // Arcs stay arcs: centre, radius and the turn as seen, either way round.
  const DrawnEdge& frameArc = drawing.edges[2];
  EXPECT_NEAR(frameArc.radius, 380, 1e-6);
  EXPECT_NEAR(frameArc.startDegrees, 0, 1e-9);
  EXPECT_NEAR(frameArc.sweepDegrees, 143.1301, 1e-4);
  const DrawnEdge& cornerArc = drawing.edges[7];
  EXPECT_NEAR(cornerArc.startDegrees, 53.1301, 1e-4);
  EXPECT_NEAR(cornerArc.sweepDegrees, -53.1301, 1e-4);
  // The arrow in the middle of the bottom edge points along it, to the right.
  EXPECT_NEAR((*first.arrow)[0].x - (*first.arrow)[1].x, 13.5, 1e-9);
  EXPECT_EQ(first.stroke, "#333");

  ASSERT_EQ(drawing.areas.size(), 2u);
  EXPECT_EQ(drawing.areas[0].loops.size(), 2u);  // the steel around the coil's window
  EXPECT_NE(drawing.areas[0].fill, drawing.areas[1].fill);
  ASSERT_EQ(drawing.vertices.size(), 12u);
  EXPECT_EQ(drawing.vertices[0].outline, "");
  EXPECT_EQ(drawing.vertices[10].outline, "#c00");  // isolated: hollow
  EXPECT_THAT(Texts(drawing), ElementsAre("1: Ground", "2", "3: Shell", "4", "5", "6", "7", "8",
                                          "9", "10", "Origin", "Probe", "block 1: Steel",
                                          "block 2: Coil"));
  // Edge 1's number lies on its left, above it in the steel; the coil's name in the coil.
  EXPECT_LT(drawing.texts[0].at.y, first.start.y);
  const Point2 coil = drawing.texts.back().at;
  EXPECT_TRUE(coil.x > 250 && coil.x < 630 && coil.y > 573 && coil.y < 725);
}

TEST(ModelPictureTest, FitsAnyCanvasAndAClickPicksTheNearestEdge) {
  const ModelPicture picture(ConverterModel());
  for (const CanvasSize canvas : {CanvasSize{200, 100}, CanvasSize{300, 900}, CanvasSize{10, 10}}) {
    SCOPED_TRACE(testing::Message() << canvas.width << "x" << canvas.height);
    // Within the margins of 20, or in the middle of a canvas too small for them.
    const Drawing drawing = picture.Draw(canvas, 20, 2);
    const Point2 low{std::min(20.0, canvas.width / 2 - 1), std::min(20.0, canvas.height / 2 - 1)};
    const Point2 high{std::max(canvas.width - 20, canvas.width / 2 + 1),
                      std::max(canvas.height - 20, canvas.height / 2 + 1)};
    for (const DrawnEdge& edge : drawing.edges) {
      for (const Point2& p : edge.trace) {
        EXPECT_TRUE(p.x >= low.x - 1e-6 && p.x <= high.x + 1e-6 && p.y >= low.y - 1e-6 &&
                    p.y <= high.y + 1e-6)
            << p.x << ", " << p.y;
      }
    }
    EXPECT_EQ(drawing.edges[2].stroke, "#e8590c");  // the selected edge stands out
    EXPECT_GT(drawing.edges[2].strokeWidth, drawing.edges[1].strokeWidth);
  }
  const Drawing drawing = picture.Draw({400, 400}, 20);
  const Point2 bottom = Middle(drawing.edges[0]);
  const Point2 arc = Middle(drawing.edges[2]);
  const struct {
    Point2 at;
    std::optional<int> edge;
  } clicks[] = {
      {bottom, 0},
      {{bottom.x, bottom.y + 4}, 0},      // beside it, within reach
      {{bottom.x, bottom.y + 9}, std::nullopt},
      {arc, 2},                           // on the arc's curve, not its chord
      {{200, 200}, std::nullopt},         // inside the steel, far from every edge
  };
  for (const auto& click : clicks) {
    SCOPED_TRACE(testing::Message() << click.at.x << ", " << click.at.y);
    EXPECT_EQ(EdgeAt(drawing, click.at, 6), click.edge);
  }
  EXPECT_EQ(picture.EdgeText(2),
            "Edge 3: (40, 20) -> (4, 32)  arc   centre (20, 20)  angle 143.13 deg  "
            "label \"Shell\"  left block 1, right none");
}

// The sketch names what is labelled and nothing else, in the model's proportions within
// 640 x 480; and in every drawing the texts leave room for each other.
TEST(ModelPictureTest, SketchShowsNamesOnlyAndNoTextsOverlap) {
  const ModelPicture picture(ConverterModel());
  const Drawing sketch = picture.DrawSketch();
  EXPECT_EQ(sketch.size.width, 480);
  EXPECT_EQ(sketch.size.height, 480);
  EXPECT_THAT(Texts(sketch), ElementsAre("Ground", "Shell", "Origin", "Probe", "Steel", "Coil"));
  for (const DrawnEdge& edge : sketch.edges) EXPECT_FALSE(edge.arrow.has_value());

  FakeBasicModel wide;
  wide.AddEdge({0, 0}, {80, 20});
  const Drawing line = ModelPicture(wide).DrawSketch();
  EXPECT_EQ(line.size.width, 640);
  EXPECT_EQ(line.size.height, 196);  // 20 of 80 at the scale that fits 640, and the margins

  // The page's picture at the window's first size, where "10" once lay on "1: Ground".
  for (const Drawing& drawing : {sketch, picture.Draw({948, 258}, 28), picture.DrawNatural()}) {
    SCOPED_TRACE(testing::Message() << drawing.size.width << "x" << drawing.size.height);
    for (size_t i = 0; i < drawing.texts.size(); ++i) {
      const TextBox a = BoxOf(drawing.texts[i]);
      for (size_t j = i + 1; j < drawing.texts.size(); ++j) {
        const TextBox b = BoxOf(drawing.texts[j]);
        EXPECT_FALSE(a.low.x < b.high.x && b.low.x < a.high.x && a.low.y < b.high.y &&
                     b.low.y < a.high.y)
            << drawing.texts[i].text << " / " << drawing.texts[j].text;
      }
    }
  }
}

// The analysis application that the form holds: counts what it opens, and refuses a
// model as the real one refuses one it cannot convert.
class CountingApplication : public platform::AnalysisApplication {
 public:
  std::string ProductName() const override { return "Zentrix 5.2"; }
  std::unique_ptr<platform::BasicModel> OpenModel(std::string_view path) override {
    opened.emplace_back(path);
    if (path.ends_with("ellipse.geo")) {
      throw vbrt::VbError(1004, "Cannot read the basic model '" + std::string(path) +
                                    "': curve 1 is an elliptic arc");
    }
    return std::make_unique<FakeBasicModel>(ConverterModel());
  }
  std::vector<std::string> opened;
};

TEST(BasicFilesPictureTest, FollowsTheModelCaseAndPathAndTellsWhyAModelIsRefused) {
  platform::PosixFileSystem fs{platform::DriveMap{}};
  CountingApplication application;
  session::FormState form;
  BasicFilesPicture picture;
  const std::string refused =
      "This basic model cannot be converted into code:\n"
      "Cannot read the basic model 'ellipse.geo': curve 1 is an elliptic arc";
  const struct {
    bool code;
    const char* model;
    bool forget;
    bool drawn;
    std::string reason;
    size_t opened;  // how often the application was asked so far
  } steps[] = {
      {false, "frame.geo", false, false, "", 0},  // loaded from file: nothing to show
      {true, "frame.geo", false, true, "", 1},
      {true, "frame.geo", false, true, "", 1},    // unchanged: not read again
      {true, "frame.geo", true, true, "", 2},     // the page came into view again
      {true, "ellipse.geo", false, false, refused, 3},
      {false, "ellipse.geo", false, false, "", 3},
      {true, "", false, true, "", 4},             // opened as generation opens it
  };
  for (const auto& step : steps) {
    SCOPED_TRACE(testing::Message() << step.code << " " << step.model);
    form.SelectModelCase(step.code);
    form.edModel = step.model;
    if (step.forget) picture.Forget();
    picture.Update(form, &application, fs);
    EXPECT_EQ(picture.Picture() != nullptr, step.drawn);
    EXPECT_EQ(picture.Reason(), step.reason);
    EXPECT_EQ(application.opened.size(), step.opened);
  }

  EXPECT_EQ(picture.EdgeText(), "Click an edge to see its number, end points and label.");
  const CanvasSize canvas{300, 200};
  picture.Click(Middle(picture.Draw(canvas).edges[6]), canvas);
  EXPECT_THAT(picture.SelectedEdge(), Optional(6));
  EXPECT_EQ(picture.EdgeText(),
            "Edge 7: (10, 13) -> (28, 13)  line  left block 1, right block 2");
  picture.Click({1, 1}, canvas);
  EXPECT_EQ(picture.SelectedEdge(), std::nullopt);
}

}  // namespace
}  // namespace wizard
