#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "generator/sections.h"
#include "golden_lines.h"
#include "sections_records.h"

namespace generator::test {
namespace {

session::FormState ResultsRecord(int16_t problemType) {
  session::FormState form = MotorRecord();
  form.cmbType.listIndex = problemType;
  AddEveryInputType(form);
  AddOutput(form, "Energy", "i1", 1, "Res.Integral(zxEnergy, Cnt).Abs");
  AddOutput(form, "Field strength", "", std::nullopt, "LocalsES .E.Abs");
  return form;
}

TEST(WritePreSolve, FetchesOnlyTheProblemInputs) {
  StepWatchingEmitter out;
  WritePreSolve(ResultsRecord(0), out);
  EXPECT_TRUE(MatchesGolden(out.moduleLines, "pre_solve_every_type.txt"));
  EXPECT_TRUE(out.classLines.empty());
  EXPECT_TRUE(out.steps.empty());
}

TEST(WriteBuildContour, FetchesTheGeometricalInputsThenStepsOnce) {
  StepWatchingEmitter out;
  WriteBuildContour(ResultsRecord(0), out);
  EXPECT_TRUE(MatchesGolden(out.moduleLines, "build_contour_every_type.txt"));
  ASSERT_EQ(out.steps.size(), 1u);
  EXPECT_EQ(out.steps[0].second, out.moduleLines.size());
  EXPECT_EQ(out.progress, 1);
}

TEST(WriteResultNames, DeclaresEveryOutputThenStepsOnce) {
  StepWatchingEmitter out;
  WriteResultNames(ResultsRecord(0), out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "result_names_two_outputs.txt"));
  EXPECT_TRUE(out.moduleLines.empty());
  ASSERT_EQ(out.steps.size(), 1u);
  EXPECT_EQ(out.steps[0].first, out.classLines.size());
}

TEST(WriteCalculations, FillsTheResultPointByOutputPosition) {
  StepWatchingEmitter out;
  WriteCalculations(ResultsRecord(0), out);
  EXPECT_TRUE(MatchesGolden(out.moduleLines, "calculations_electrostatics.txt"));
  EXPECT_TRUE(out.steps.empty());
}

TEST(WriteCalculations, FieldPointSuffixKeepsItsBlanks) {
  const std::vector<std::pair<int16_t, std::string>> cases = {
      {1, " "}, {4, " "}, {5, "SA "}, {7, "TE"}};
  for (const auto& [position, suffix] : cases) {
    RecordingEmitter out;
    WriteCalculations(ResultsRecord(position), out);
    EXPECT_EQ(out.moduleLines[19], "    Dim Locals" + suffix + " As Zentrix.FieldPoint" + suffix);
    EXPECT_EQ(out.moduleLines[20],
              "    Set Locals" + suffix + " = Res.GetLocalValues(ZX.PointXY(0, 0))");
  }
}

TEST(ResultSections, WithoutInputsOrOutputsListNothing) {
  const session::FormState form = MotorRecord();
  RecordingEmitter preSolve;
  WritePreSolve(form, preSolve);
  EXPECT_EQ(preSolve.moduleLines[8], "    ''' Local variables for all input parameters");
  EXPECT_EQ(preSolve.moduleLines[9], "");
  EXPECT_EQ(preSolve.moduleLines[10], "    ''' ----------------------------------------");

  RecordingEmitter names;
  WriteResultNames(form, names);
  EXPECT_EQ(names.classLines[9], "    ''' Start output parameter names definition");
  EXPECT_EQ(names.classLines[10], "    ''' End output parameter names definition");

  RecordingEmitter calculations;
  WriteCalculations(form, calculations);
  EXPECT_EQ(calculations.moduleLines[8],
            "    ''' Local variables for all input postprocessor parameters");
  EXPECT_EQ(calculations.moduleLines[9], "");
  const auto start = std::find(calculations.moduleLines.begin(), calculations.moduleLines.end(),
                               "    ''' Start getting output parameter values");
  ASSERT_NE(start, calculations.moduleLines.end());
  EXPECT_EQ(*(start + 1), "    ''' End getting output parameter values");
}

TEST(WriteGetResult, IsTheSameWhateverTheRecord) {
  StepWatchingEmitter motor;
  WriteGetResult(ResultsRecord(3), motor);
  EXPECT_TRUE(MatchesGolden(motor.classLines, "get_result.txt"));
  EXPECT_TRUE(motor.steps.empty());
  RecordingEmitter coil;
  WriteGetResult(CoilRecord(), coil);
  EXPECT_EQ(coil.classLines, motor.classLines);
}

}  // namespace
}  // namespace generator::test
