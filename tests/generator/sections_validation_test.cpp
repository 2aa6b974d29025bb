#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "generator/sections.h"
#include "golden_lines.h"
#include "sections_records.h"
#include "vbrt/error.h"
#include "vbrt/numbers.h"

namespace generator::test {
namespace {

// Minima around the positivity threshold of geometrical inputs, and the same minimum 0
// on a row of another type.
session::FormState LimitsRecord() {
  session::FormState form = MotorRecord();
  AddInput(form, "Gap", "Geometrical", "g", "mm", "0", "10", "1");
  AddInput(form, "Depth", "Geometrical", "d", "mm", "-5", "-1", "-2");
  AddInput(form, "Tiny", "Geometrical", "t", "mm", "1E-45", "1", "0.5");
  AddInput(form, "Edge", "Geometrical", "e", "mm", "1E-44", "1", "0.5");
  AddInput(form, "Current", "Physical", "I", "A", "-5", "100", "10");
  AddInput(form, "Radius", "Postprocess", "r", "mm", "0", "50", "5");
  return form;
}

std::vector<std::string> MinLinesOf(const session::FormState& form) {
  RecordingEmitter out;
  WritePrmMin(form, out);
  return {out.classLines.begin() + 9, out.classLines.end() - 5};
}

TEST(WritePrmMin, ForcesNonPositiveGeometricalMinimaToZero) {
  RecordingEmitter out;
  WritePrmMin(LimitsRecord(), out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "prm_min_limits.txt"));
}

TEST(WritePrmMax, CopiesEveryMaximumAsItStands) {
  RecordingEmitter out;
  WritePrmMax(LimitsRecord(), out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "prm_max_limits.txt"));
}

TEST(WritePrmMinMax, WithoutInputsTheSelectHasNoCase) {
  RecordingEmitter out;
  WritePrmMin(MotorRecord(), out);
  WritePrmMax(MotorRecord(), out);
  std::vector<std::string> min = ReadGoldenLines("prm_min_limits.txt");
  min.erase(min.begin() + 9, min.end() - 5);
  std::vector<std::string> max = ReadGoldenLines("prm_max_limits.txt");
  max.erase(max.begin() + 9, max.end() - 6);
  min.insert(min.end(), max.begin(), max.end());
  EXPECT_EQ(out.classLines, min);
}

TEST(WritePrmMin, NonNumericMinimumFailsOnlyOnAGeometricalRow) {
  session::FormState physical = MotorRecord();
  AddInput(physical, "Current", "Physical", "I", "A", "abc");
  EXPECT_EQ(MinLinesOf(physical)[1], "        Min = abc");

  session::FormState geometrical = MotorRecord();
  AddInput(geometrical, "Gap", "Geometrical", "g", "mm", "abc");
  RecordingEmitter out;
  try {
    WritePrmMin(geometrical, out);
    FAIL() << "no error";
  } catch (const vbrt::VbError& error) {
    EXPECT_EQ(error.Number(), vbrt::kTypeMismatch);
  }
}

TEST(WritePrmMin, ReadsMinimaWithTheUserDecimalSeparator) {
  const vbrt::NumberFormat saved = vbrt::UserNumberFormat();
  vbrt::SetUserNumberFormat({",", "."});
  session::FormState form = MotorRecord();
  AddInput(form, "Gap", "Geometrical", "g", "mm", "0,5");
  AddInput(form, "Depth", "Geometrical", "d", "mm", "-0,5");
  const std::vector<std::string> lines = MinLinesOf(form);
  vbrt::SetUserNumberFormat(saved);
  EXPECT_EQ(lines[1], "        Min = 0,5");
  EXPECT_EQ(lines[5], "        Min = 0");
}

TEST(WriteValidateAndGetMinMax, AreFixedTexts) {
  StepWatchingEmitter validate;
  WriteValidate(LimitsRecord(), validate);
  EXPECT_TRUE(MatchesGolden(validate.classLines, "validate.txt"));
  StepWatchingEmitter minMax;
  WriteGetMinMax(LimitsRecord(), minMax);
  EXPECT_TRUE(MatchesGolden(minMax.classLines, "get_min_max.txt"));
  EXPECT_TRUE(validate.steps.empty());
  EXPECT_TRUE(minMax.steps.empty());
}

TEST(WriteDescriptiveProperties, AuthorUnescapedAndSketchByItsExtension) {
  session::FormState form = MotorRecord();
  form.edAuthor = "Jo \"Doc\" Smith";
  form.edSketch = "C:\\pics\\motor.bmp";
  StepWatchingEmitter out;
  WriteDescriptiveProperties(form, out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "descriptive_properties_sketch.txt"));
  EXPECT_TRUE(out.steps.empty());
}

TEST(WriteDescriptiveProperties, EmptySketchGivesAnEmptyPath) {
  session::FormState form = MotorRecord();
  form.edAuthor = "Jo \"Doc\" Smith";
  RecordingEmitter out;
  WriteDescriptiveProperties(form, out);
  std::vector<std::string> expected = ReadGoldenLines("descriptive_properties_sketch.txt");
  expected[20] = R"(    ExploringObject_Sketch = "")";
  EXPECT_EQ(out.classLines, expected);
}

}  // namespace
}  // namespace generator::test
