#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "generator/sections.h"
#include "golden_lines.h"
#include "test_support.h"

namespace generator {
namespace {

using test::MatchesGolden;
using test::RecordingEmitter;

FormState LoadForm(std::string model) {
  FormState form;
  form.SelectModelCase(false);
  form.edModel = std::move(model);
  return form;
}

TEST(SolvingSections, FixedSectionsMatchTheirText) {
  const FormState form;
  const struct {
    void (*write)(const FormState&, Emitter&);
    const char* golden;
  } sections[] = {
      {WriteSetInputValues, "solving_set_input_values.txt"},
      {WriteMeshModel, "solving_mesh_model.txt"},
      {WriteSaveModel, "solving_save_model.txt"},
      {WriteSolveProblem, "solving_solve_problem.txt"},
      {WriteClassTerminate, "solving_class_terminate.txt"},
  };
  for (const auto& section : sections) {
    RecordingEmitter out;
    section.write(form, out);
    EXPECT_TRUE(MatchesGolden(out.classLines, section.golden));
    EXPECT_TRUE(out.moduleLines.empty()) << section.golden;
    EXPECT_EQ(out.progress, 0) << section.golden;
  }
}

TEST(SolvingSections, LoadedModelIsRestoredFromTheBasicCopy) {
  RecordingEmitter out;
  WriteBuildModelLoad(LoadForm(R"(C:\Models\Coil\coil.mod)"), out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "solving_build_model_load.txt"));
  EXPECT_EQ(out.progress, 0);
}

TEST(SolvingSections, WithoutBasicModelNothingIsCopiedButTheModelStillLoads) {
  RecordingEmitter out;
  WriteBuildModelLoad(LoadForm(""), out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "solving_build_model_load_no_model.txt"));
}

}  // namespace
}  // namespace generator
