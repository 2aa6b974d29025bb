// What the Gmsh reader adds to the golden-file tests of the generated code, which already
// pin down the edges, arcs, vertices, labels and blocks read from the same kind of model.
#include "platform/gmsh/gmsh_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <numbers>
#include <string>

#include "../platform/scratch_folder.h"
#include "vbrt/compare.h"
#include "vbrt/error.h"

namespace platform::gmsh_io {
namespace {

const std::string kModel = std::string(EOW_TEST_DIR) + "/platform_gmsh/models/blocks.geo";

TEST(GmshApplicationTest, ProductStringIsGmshsNameAndVersionAndPassesTheVersionCheck) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  const auto application = CreateGmshApplication();
  EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);  // Gmsh's start left the locale alone
  const std::string product = application->ProductName();
  EXPECT_THAT(product, ::testing::MatchesRegex("Gmsh [0-9]+\\.[0-9]+\\.[0-9]+"));
  EXPECT_LT(vbrt::CompareBinary(product, "Zentrix 5.2"), 0);
}

TEST(GmshApplicationTest, EveryOpenStartsAfreshWithItsOwnUserData) {
  const auto application = CreateGmshApplication();
  const auto model = application->OpenModel(kModel);
  ASSERT_EQ(model->EdgeCount(), 14);
  model->SetEdgeUserData(13, 7);
  model->SetBlockUserData(1, 1);
  EXPECT_EQ(model->EdgeUserData(13), 7);
  EXPECT_EQ(model->BlockUserData(1), 1);
  EXPECT_EQ(model->EdgeUserData(0), 0);
  EXPECT_THROW(model->Edge(14), vbrt::VbError);
  model->Close();
  for (int i = 0; i < 2; ++i) {  // repeated opens do not accumulate
    const auto again = application->OpenModel(kModel);
    EXPECT_EQ(again->EdgeCount(), 14);
    EXPECT_EQ(again->BlockCount(), 5);
    EXPECT_EQ(again->EdgeUserData(13), 0);
  }
}

// What the reader cannot read, or cannot draw as edges, is named with the file. Gmsh's
// parser stops on a broken file with the rest still buffered, which must not spoil the next.
TEST(GmshApplicationTest, WhatCannotBeReadIsNamed) {
  std::string noise;
  unsigned state = 12345;
  for (int i = 0; i < 4000; ++i) {
    state = state * 1103515245u + 12345u;
    noise.push_back(static_cast<char>(state >> 16));
  }
  std::string damaged;
  for (int i = 1; i <= 600; ++i) {
    damaged += i == 300 ? "Point(300) = {0, 0\n"
                        : "Point(" + std::to_string(i) + ") = {" + std::to_string(i) + ", 0, 0};\n";
  }
  const struct {
    std::string geo;  // "" for a file that does not exist
    const char* reason;
  } cases[] = {
      {"", "the file does not exist"},
      {noise, "Too many errors"},
      {damaged, "line 301: syntax error"},
      {"Point(1) = {0, 0, 0}; Point(2) = {1, 0, 0};\nPoint(3) = {1, 1, 0}; Point(4) = {0, 1, 0};\n"
       "Line(1) = {1, 2}; Line(2) = {2, 3}; Line(3) = {3, 4};\nCurve Loop(1) = {1, 2, 3};\n"
       "Plane Surface(1) = {1};\nPhysical Surface(\"Iron\") = {1};\n",
       "the boundary of surface 1 does not close"},
      {"Point(1) = {0, 0, 0}; Point(2) = {1, 1, 0}; Point(3) = {2, 0, 0};\n"
       "BSpline(1) = {1, 2, 3};\n",
       "curve 1 is a Nurb curve; only straight lines and circular arcs can be converted"},
      // OpenCASCADE's disk rim: circular but closed.
      {"SetFactory(\"OpenCASCADE\");\nDisk(1) = {0, 0, 0, 1};\n",
       "curve 1 is a full circle; split it into arcs with different end points"},
      {"SetFactory(\"OpenCASCADE\");\nEllipse(1) = {0, 0, 0, 2, 1, 0, Pi / 2};\n",
       "curve 1 is an elliptic arc; only straight lines and circular arcs can be converted"},
  };
  ScratchFolder scratch;
  const auto application = CreateGmshApplication();
  int run = 0;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.reason);
    const std::string name = "model" + std::to_string(++run) + ".geo";
    const std::string file =
        c.geo.empty() ? (scratch.Path() / name).string() : scratch.Write(name, c.geo).string();
    try {
      application->OpenModel(file);
      ADD_FAILURE() << "opened";
    } catch (const vbrt::VbError& e) {
      EXPECT_THAT(e.Description(),
                  ::testing::AllOf(::testing::StartsWith("Cannot read the basic model '" + file),
                                   ::testing::HasSubstr(c.reason)));
    }
  }
  EXPECT_EQ(application->OpenModel(kModel)->EdgeCount(), 14);
}

TEST(GmshApplicationTest, OpenCascadeArcsAreArcsAboutTheirCentre) {
  // Half a disk: OpenCASCADE reports its arc as an ellipse with equal radii, and its
  // centre, which is no vertex, is the exact middle of the chord.
  ScratchFolder scratch;
  const std::string file = scratch
                               .Write("half.geo",
                                      "SetFactory(\"OpenCASCADE\");\nDisk(1) = {0, 0, 0, 1};\n"
                                      "Rectangle(2) = {-1, 0, 0, 2, 1};\n"
                                      "BooleanDifference{ Surface{1}; Delete; }{ Surface{2}; Delete; }\n")
                               .string();
  const auto model = CreateGmshApplication()->OpenModel(file);
  ASSERT_EQ(model->EdgeCount(), 2);
  const EdgeGeometry arc = model->Edge(1);
  EXPECT_EQ(arc.third.x, 0.0);
  EXPECT_EQ(arc.third.y, 0.0);
  EXPECT_NEAR(std::abs(arc.angle), std::numbers::pi, 1e-9);
}

}  // namespace
}  // namespace platform::gmsh_io
