// BuildModel's "Generate" form written from models that Gmsh reads in the program's
// sandboxed reader: the geometry, the labels and the classic number text, line by line
// against hand-written golden files.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <memory>
#include <string>

#include "generator/golden_lines.h"
#include "generator/sections.h"
#include "generator/test_support.h"
#include "app/commands.h"
#include "platform/sandbox/blocking_wait.h"

namespace platform::gmsh_io {
namespace {

using generator::test::MatchesGolden;
using generator::test::RecordingEmitter;

std::string ModelPath(const std::string& name) {
  return std::string(EOW_TEST_DIR) + "/platform_gmsh/models/" + name;
}

// Opens the model as the program does and writes the section as the driver would.
RecordingEmitter Generate(const std::string& model) {
  sandbox::BlockingWait wait;
  sandbox::SandboxedApplication application(
      app::ModelReaderCommand(EOWIZARD_EXE, "Reading a golden model"), {}, wait);
  const std::unique_ptr<BasicModel> opened = application.OpenModel(ModelPath(model));
  RecordingEmitter out;
  EXPECT_TRUE(generator::WriteBuildModelGenerate(*opened, out));
  EXPECT_TRUE(out.moduleLines.empty());
  EXPECT_EQ(out.progress, 5);
  return out;
}

// Straight edges, arcs below and above a quarter turn, a semicircle, a hole filled by an
// unlabelled block, labelled blocks on either side of their first boundary edge, labelled
// and isolated vertices, and arc centres that are no vertices.
TEST(BuildModelFromGmsh, BlocksHoleArcsAndLabels) {
  EXPECT_TRUE(MatchesGolden(Generate("blocks.geo").classLines, "blocks.txt", "gmsh"));
}

TEST(BuildModelFromGmsh, SinglePrecisionNumberForms) {
  EXPECT_TRUE(MatchesGolden(Generate("numbers.geo").classLines, "numbers.txt", "gmsh"));
}

// The model is read and the code (VB source) written with a decimal point whatever the
// user's locale, the reader's included, and the user's locale stays in place.
TEST(BuildModelFromGmsh, DecimalCommaLocaleChangesNothing) {
  const std::string saved = std::setlocale(LC_ALL, nullptr);
  if (!std::setlocale(LC_NUMERIC, "de_DE.UTF-8")) GTEST_SKIP() << "no de_DE locale";
  ::setenv("LC_NUMERIC", "de_DE.UTF-8", 1);
  const RecordingEmitter out = Generate("numbers.geo");
  ::unsetenv("LC_NUMERIC");
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "de_DE.UTF-8");
  std::setlocale(LC_ALL, saved.c_str());
  EXPECT_TRUE(MatchesGolden(out.classLines, "numbers.txt", "gmsh"));
}

}  // namespace
}  // namespace platform::gmsh_io
