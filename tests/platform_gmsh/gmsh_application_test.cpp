#include "platform/gmsh/gmsh_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>

#include "vbrt/compare.h"
#include "vbrt/error.h"

namespace platform::gmsh_io {
namespace {

using ::testing::HasSubstr;
namespace fs = std::filesystem;

// A rectangle with a semicircle on top and a hole bounded by a quarter arc and two
// lines; the hole is a block of its own. Points 4 and 8 are only arc centres.
constexpr char kModel[] = R"(
Point(1) = {0, 0, 0};
Point(2) = {4, 0, 0};
Point(3) = {4, 2, 0};
Point(4) = {2, 2, 0};
Point(5) = {0, 2, 0};
Point(6) = {10.25, -3.5, 0};
Point(7) = {2.5, 0.5, 0};
Point(8) = {1.5, 0.5, 0};
Point(9) = {1.5, 1.5, 0};
Point(10) = {0.5, 0.5, 0};
Line(1) = {1, 2};
Line(2) = {2, 3};
Circle(3) = {3, 4, 5};
Line(4) = {5, 1};
Circle(5) = {7, 8, 9};
Line(6) = {9, 10};
Line(7) = {10, 7};
Curve Loop(1) = {1, 2, 3, 4};
Curve Loop(2) = {5, 6, 7};
Plane Surface(1) = {1, 2};
Curve Loop(3) = {-7, -6, -5};
Plane Surface(2) = {3};
Physical Surface("iron") = {1};
Physical Surface("air") = {2};
Physical Curve("bottom") = {1};
Physical Curve("dome") = {3};
Physical Point("corner") = {1};
Physical Point("probe") = {6};
)";

class GmshApplicationTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    application_ = CreateGmshApplication().release();
    localeAfterStart_ = std::setlocale(LC_ALL, nullptr);
    localeBeforeStart_ = before;
  }
  static void TearDownTestSuite() { delete application_; }

  void SetUp() override {
    dir_ = fs::temp_directory_path() /
           ("eow_gmsh_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::create_directories(dir_);
  }
  void TearDown() override { fs::remove_all(dir_); }

  std::string Write(const std::string& name, const std::string& text) {
    const fs::path path = dir_ / name;
    std::ofstream(path) << text;
    return path.string();
  }

  std::string OpenError(const std::string& path) {
    try {
      application_->OpenModel(path);
    } catch (const vbrt::VbError& e) {
      return e.Description();
    }
    return "(opened)";
  }

  static AnalysisApplication* application_;
  static std::string localeBeforeStart_;
  static std::string localeAfterStart_;
  fs::path dir_;
};

AnalysisApplication* GmshApplicationTest::application_ = nullptr;
std::string GmshApplicationTest::localeBeforeStart_;
std::string GmshApplicationTest::localeAfterStart_;

TEST_F(GmshApplicationTest, ProductStringIsGmshsNameAndVersionAndPassesTheVersionCheck) {
  const std::string product = application_->ProductName();
  EXPECT_THAT(product, ::testing::MatchesRegex("Gmsh [0-9]+\\.[0-9]+\\.[0-9]+"));
  EXPECT_LT(vbrt::CompareBinary(product, "Zentrix 5.2"), 0);
  EXPECT_EQ(localeAfterStart_, localeBeforeStart_);  // Gmsh's start left the locale alone
}

TEST_F(GmshApplicationTest, ReadsEdgesInTagOrderWithSnappedCentresAndAngles) {
  const auto model = application_->OpenModel(Write("m.geo", kModel));
  ASSERT_EQ(model->EdgeCount(), 7);
  const EdgeGeometry bottom = model->Edge(0);
  EXPECT_EQ(bottom.start.x, 0);
  EXPECT_EQ(bottom.end.x, 4);
  EXPECT_EQ(bottom.angle, 0);
  EXPECT_EQ(model->Edge(3).start.y, 2);  // enumeration follows the tags

  const EdgeGeometry dome = model->Edge(2);
  EXPECT_EQ(dome.start.x, 4);
  EXPECT_EQ(dome.end.x, 0);
  EXPECT_EQ(dome.third.x, 2);  // exactly: the collinear rule of the angle needs it
  EXPECT_EQ(dome.third.y, 2);
  EXPECT_NEAR(std::abs(dome.angle), std::numbers::pi, 1e-9);

  const EdgeGeometry quarter = model->Edge(4);
  EXPECT_EQ(quarter.third.x, 1.5);
  EXPECT_EQ(quarter.third.y, 0.5);
  EXPECT_NEAR(quarter.angle, std::numbers::pi / 2, 1e-9);
  EXPECT_EQ(model->EdgeLabel(0), "bottom");
  EXPECT_EQ(model->EdgeLabel(2), "dome");
  EXPECT_EQ(model->EdgeLabel(1), "");
}

TEST_F(GmshApplicationTest, ArcCentresAreNoVerticesAndIsolatedPointsAre) {
  const auto model = application_->OpenModel(Write("m.geo", kModel));
  ASSERT_EQ(model->VertexCount(), 8);
  int isolated = -1;
  for (int v = 0; v < model->VertexCount(); ++v) {
    if (model->VertexIsolated(v)) {
      EXPECT_EQ(isolated, -1);
      isolated = v;
    }
  }
  ASSERT_EQ(isolated, 4);
  EXPECT_EQ(model->Vertex(isolated).x, 10.25);
  EXPECT_EQ(model->VertexLabel(isolated), "probe");
  EXPECT_EQ(model->VertexLabel(0), "corner");
  EXPECT_EQ(model->VertexLabel(1), "");
}

TEST_F(GmshApplicationTest, BlocksAndTheSidesOfTheirEdges) {
  const auto model = application_->OpenModel(Write("m.geo", kModel));
  ASSERT_EQ(model->BlockCount(), 2);
  EXPECT_EQ(model->BlockLabel(0), "iron");
  EXPECT_EQ(model->BlockLabel(1), "air");
  EXPECT_EQ(model->BlockFirstBoundaryEdge(0), 0);
  EXPECT_EQ(model->BlockFirstBoundaryEdge(1), 6);
  // Outer boundary: the block is on the left of the counter-clockwise edges.
  EXPECT_EQ(model->EdgeLeftBlock(0), 0);
  EXPECT_EQ(model->EdgeRightBlock(0), std::nullopt);
  EXPECT_EQ(model->EdgeLeftBlock(2), 0);
  // The hole runs counter-clockwise: its own block on the left, the outer one right.
  for (int edge : {4, 5, 6}) {
    EXPECT_EQ(model->EdgeLeftBlock(edge), 1) << edge;
    EXPECT_EQ(model->EdgeRightBlock(edge), 0) << edge;
  }
}

TEST_F(GmshApplicationTest, UserDataStaysInTheOpenedModel) {
  const std::string path = Write("m.geo", kModel);
  const auto model = application_->OpenModel(path);
  model->SetEdgeUserData(6, 7);
  model->SetBlockUserData(1, 1);
  EXPECT_EQ(model->EdgeUserData(6), 7);
  EXPECT_EQ(model->BlockUserData(1), 1);
  EXPECT_EQ(model->EdgeUserData(0), 0);
  EXPECT_THROW(model->Edge(7), vbrt::VbError);
  model->Close();
  EXPECT_EQ(application_->OpenModel(path)->EdgeUserData(6), 0);
}

TEST_F(GmshApplicationTest, RepeatedOpensDoNotAccumulate) {
  const std::string path = Write("m.geo", kModel);
  for (int i = 0; i < 3; ++i) {
    const auto model = application_->OpenModel(path);
    EXPECT_EQ(model->EdgeCount(), 7);
    EXPECT_EQ(model->BlockCount(), 2);
  }
}

TEST_F(GmshApplicationTest, UnreadableFilesNameTheFileAndTheReason) {
  const std::string missing = (dir_ / "missing.geo").string();
  EXPECT_THAT(OpenError(missing), HasSubstr("'" + missing + "': the file does not exist"));

  const std::string broken = Write("broken.geo", "Point(1) = {0, 0\n");
  EXPECT_THAT(OpenError(broken), HasSubstr("'" + broken + "': "));
  EXPECT_THAT(OpenError(broken), HasSubstr("syntax error"));

  const std::string spline = Write("spline.geo",
                                   "Point(1) = {0, 0, 0}; Point(2) = {1, 1, 0}; Point(3) = {2, 0, 0};\n"
                                   "BSpline(1) = {1, 2, 3};\n");
  EXPECT_THAT(OpenError(spline), HasSubstr("curve 1 is a Nurb curve; only straight lines and "
                                           "circular arcs can be converted"));

  // A failed read leaves Gmsh able to read the next file.
  EXPECT_EQ(application_->OpenModel(Write("m.geo", kModel))->EdgeCount(), 7);
}

TEST_F(GmshApplicationTest, ReadsUnderADecimalCommaLocaleAndLeavesItInPlace) {
  const std::string saved = std::setlocale(LC_ALL, nullptr);
  if (!std::setlocale(LC_NUMERIC, "de_DE.UTF-8")) GTEST_SKIP() << "no de_DE locale";
  const auto model = application_->OpenModel(Write("m.geo", kModel));
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "de_DE.UTF-8");
  std::setlocale(LC_ALL, saved.c_str());
  EXPECT_EQ(model->Edge(4).start.y, 0.5);
}

}  // namespace
}  // namespace platform::gmsh_io
