// Basic models that Gmsh cannot turn into code, generated through the whole driver: the
// user is told which file failed and why, no project stays in the environment, no
// project file on disk, and Gmsh still reads the next file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "generator/generation_fixture.h"
#include "hardening/generation_rig.h"
#include "platform/gmsh/gmsh_application.h"

namespace platform::gmsh_io {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

std::string ModelPath(const std::string& name) {
  return std::string(EOW_TEST_DIR) + "/platform_gmsh/models/" + name;
}

class GmshGenerationFailures : public generator::test::GenerationTest {
 protected:
  GmshGenerationFailures() {
    form_.theLocation = scratch_.Path().string();
    form_.edData.clear();
  }

  // Generates with `model` as the basic model converted into code.
  bool Generate(const std::string& model) {
    form_.edModel = model;
    return GenerationTest::Generate(form_, application_.get());
  }
  std::string LastMessage() const { return prompter_.shown.back().text; }

  // What every failed run must leave: a critical message and no project anywhere.
  void ExpectNothingGenerated() {
    EXPECT_EQ(prompter_.shown.back().icon, MsgIcon::Critical);
    EXPECT_EQ(environment_.GetVBProjects().Count(), 0);
    for (const auto& entry : fs::recursive_directory_iterator(scratch_.Path())) {
      const std::string extension = entry.path().extension().string();
      EXPECT_TRUE(extension != ".vbp" && extension != ".cls" && extension != ".bas")
          << entry.path();
    }
  }

  void ExpectCannotOpen(const std::string& model, const std::string& reason) {
    EXPECT_FALSE(Generate(model));
    EXPECT_THAT(LastMessage(),
                StartsWith("Error: The basic model '" + model + "' could not be opened: " +
                           "Cannot read the basic model '" + model + "': "));
    EXPECT_THAT(LastMessage(), HasSubstr(reason));
    ExpectNothingGenerated();
  }

  std::unique_ptr<AnalysisApplication> application_ = CreateGmshApplication();
  session::FormState form_ = hardening::LargeRecord(2, 1);
};

TEST_F(GmshGenerationFailures, MissingFile) {
  ExpectCannotOpen((scratch_.Path() / "gone.geo").string(), "the file does not exist");
}

// Bytes that are no model at all, and a model damaged in its middle: Gmsh's parser
// stops with the rest of the file still buffered, which must not spoil the next file.
TEST_F(GmshGenerationFailures, CorruptFilesAndTheSoundFileAfterThem) {
  std::string noise;
  unsigned state = 12345;
  for (int i = 0; i < 4000; ++i) {
    state = state * 1103515245u + 12345u;
    noise.push_back(static_cast<char>(state >> 16));
  }
  ExpectCannotOpen(scratch_.Write("noise.geo", noise).string(), "Too many errors");

  std::string damaged;
  for (int i = 1; i <= 600; ++i) {
    damaged += i == 300 ? "Point(300) = {0, 0\n"
                        : "Point(" + std::to_string(i) + ") = {" + std::to_string(i) + ", 0, 0};\n";
  }
  prompter_.Answer(MsgAnswer::Yes);  // the files folder of the run before is reused
  ExpectCannotOpen(scratch_.Write("damaged.geo", damaged).string(), "line 301: syntax error");

  prompter_.Answer(MsgAnswer::Yes);
  ASSERT_TRUE(Generate(ModelPath("blocks.geo"))) << LastMessage();
  EXPECT_EQ(environment_.GetVBProjects().Count(), 1);
}

// A surface whose curve loop does not return to its start.
TEST_F(GmshGenerationFailures, SurfaceWithAnOpenLoop) {
  const std::string model = scratch_
                                .Write("open.geo",
                                       "Point(1) = {0, 0, 0}; Point(2) = {1, 0, 0};\n"
                                       "Point(3) = {1, 1, 0}; Point(4) = {0, 1, 0};\n"
                                       "Line(1) = {1, 2}; Line(2) = {2, 3}; Line(3) = {3, 4};\n"
                                       "Curve Loop(1) = {1, 2, 3};\n"
                                       "Plane Surface(1) = {1};\n"
                                       "Physical Surface(\"Iron\") = {1};\n")
                                .string();
  ExpectCannotOpen(model, "the boundary of surface 1 does not close");
}

}  // namespace
}  // namespace platform::gmsh_io
