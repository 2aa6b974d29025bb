// The section writers, each compared with its golden text for a record that reaches the
// branches the whole-project goldens do not. The sections that do not depend on the record
// are checked as part of those.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "../vbrt/raises.h"
#include "generator/printer.h"
#include "generator/sections.h"
#include "golden_lines.h"
#include "test_support.h"
#include "vbrt/numbers.h"

namespace generator::test {
namespace {

// "Motor": Magnetostatics, plane-parallel, Cartesian, millimetres, asynchronous, both
// basic files linked, a data file, files folder without suffix.
FormState MotorRecord() {
  FormState form;
  form.theName = "Motor";
  form.FilesFolder = "\\Motor_Files";
  form.edAuthor = "Jo Smith";
  form.edData = "C:\\data\\motor.dms";
  form.chkAsync.value = 1;
  form.cmbType.listIndex = 1;
  form.cmbClass.listIndex = 0;
  form.cmbCoord.listIndex = 0;
  form.cmbUnit.listIndex = 1;
  form.SelectModelCase(false);
  form.SelectDataCase(false);
  return form;
}

// "Coil": Transient Heat Transfer, axisymmetric, polar, microns, synchronous, model and
// data built by code, no data file, the third files folder.
FormState CoilRecord() {
  FormState form;
  form.theName = "Coil";
  form.FilesFolder = "\\Coil_Files 3";
  form.cmbType.listIndex = 3;
  form.cmbClass.listIndex = 1;
  form.cmbCoord.listIndex = 1;
  form.cmbUnit.listIndex = 7;
  form.SelectModelCase(true);
  form.SelectDataCase(true);
  return form;
}

// One input of every type, an unknown caption first (no host constant yet) and one in
// the middle (keeps the constant before it), and a default that is no number.
FormState EveryTypeRecord() {
  FormState form = MotorRecord();
  AddInput(form, "Weird", "Other", "w", "", "1", "2", "3");
  AddInput(form, "Gap", "Geometrical", "g", "mm", "0", "10", "2.5");
  AddInput(form, "Current", "Physical", "I", "A", "-5", "100", "10");
  AddInput(form, "Turns", "physical", "n", "", "1", "500", "20");
  AddInput(form, "Radius", "Postprocess", "r", "mm", "0", "50", "1,5e");
  AddInput(form, "Frequency", "Problem", "f", "Hz", "1", "1000", "50");
  return form;
}

FormState ResultsRecord() {
  FormState form = EveryTypeRecord();
  form.cmbType.listIndex = 0;
  AddOutput(form, "Energy", "i1", 1, "Res.Integral(zxEnergy, Cnt).Abs");
  AddOutput(form, "Field strength", "", std::nullopt, "LocalsES .E.Abs");
  return form;
}

// Minima around the positivity threshold of geometrical inputs, and the same minimum 0
// on a row of another type.
FormState LimitsRecord() {
  FormState form = MotorRecord();
  AddInput(form, "Gap", "Geometrical", "g", "mm", "0", "10", "1");
  AddInput(form, "Depth", "Geometrical", "d", "mm", "-5", "-1", "-2");
  AddInput(form, "Tiny", "Geometrical", "t", "mm", "1E-45", "1", "0.5");
  AddInput(form, "Edge", "Geometrical", "e", "mm", "1E-44", "1", "0.5");
  AddInput(form, "Current", "Physical", "I", "A", "-5", "100", "10");
  AddInput(form, "Radius", "Postprocess", "r", "mm", "0", "50", "5");
  return form;
}

FormState LinkedModelRecord() {
  FormState form;
  form.chkAsync.value = 1;
  form.SelectModelCase(false);
  form.edModel = R"(C:\Models\Coil\coil.mod)";
  return form;
}

struct SectionCase {
  const char* classGolden;   // nullptr: the section writes no class line
  const char* moduleGolden;  // nullptr: no module line
  void (*write)(const FormState&, Emitter&);
  FormState (*record)();
  std::vector<std::size_t> steps;  // lines written when each progress step came
};

// `lines` match the golden file `name`, or are none when there is no name.
::testing::AssertionResult Matches(const std::vector<std::string>& lines, const char* name) {
  return name ? MatchesGolden(lines, name) : SameLines("nothing", {}, lines);
}

TEST(Sections, MatchTheirGoldenTextAndStepWhereTheyShould) {
  const SectionCase cases[] = {
      {"declarations_class_async.txt", "declarations_module.txt", WriteDeclarations, MotorRecord,
       {18}},
      {"init_linked_with_data.txt", nullptr, WriteInitialisation, MotorRecord, {}},
      {"init_by_code_without_data.txt", nullptr, WriteInitialisation, CoilRecord, {}},
      {"parameters_every_type.txt", nullptr, WriteParameters, EveryTypeRecord, {}},
      {nullptr, "modify_model_every_type.txt", WriteModifyModel, EveryTypeRecord, {}},
      {"init_labels_heat_transfer.txt", nullptr, WriteInitLabels,
       [] {
         FormState form = MotorRecord();
         form.cmbType.listIndex = 2;  // Heat Transfer
         return form;
       },
       {}},
      {nullptr, "set_label_every_type.txt", WriteSetLabel, EveryTypeRecord, {}},
      {nullptr, "pre_solve_every_type.txt", WritePreSolve, ResultsRecord, {}},
      {nullptr, "build_contour_every_type.txt", WriteBuildContour, ResultsRecord, {37}},
      {"result_names_two_outputs.txt", nullptr, WriteResultNames, ResultsRecord, {20}},
      {nullptr, "calculations_electrostatics.txt", WriteCalculations, ResultsRecord, {}},
      {"prm_min_limits.txt", nullptr, WritePrmMin, LimitsRecord, {}},
      {"prm_max_limits.txt", nullptr, WritePrmMax, LimitsRecord, {}},
      {"descriptive_properties_sketch.txt", nullptr, WriteDescriptiveProperties,
       [] {
         FormState form = MotorRecord();
         form.edAuthor = "Jo \"Doc\" Smith";
         form.edSketch = "C:\\pics\\motor.bmp";
         return form;
       },
       {}},
      {"async_load.txt", nullptr, WriteAsyncSolveAndLoaded, LinkedModelRecord, {}},
      {"solving_build_model_load.txt", nullptr, WriteBuildModelLoad, LinkedModelRecord, {}},
  };
  for (const SectionCase& c : cases) {
    SCOPED_TRACE(c.classGolden ? c.classGolden : c.moduleGolden);
    RecordingEmitter out;
    c.write(c.record(), out);
    EXPECT_TRUE(Matches(out.classLines, c.classGolden));
    EXPECT_TRUE(Matches(out.moduleLines, c.moduleGolden));
    EXPECT_EQ(out.steps, c.steps);
    EXPECT_EQ(out.progress, static_cast<int>(c.steps.size()));
  }
}

TEST(Sections, EitherLinkedFileMakesTheObjectExpectItsFolder) {
  FormState form = CoilRecord();
  form.SelectDataCase(false);
  RecordingEmitter out;
  WriteInitialisation(form, out);
  const std::vector<std::string> golden = ReadGoldenLines("init_linked_with_data.txt");
  EXPECT_EQ(out.classLines[31], "ResumeWorkFolder:");
  // The linked ending of the procedure, from its error label on.
  const std::vector<std::string> ending(golden.end() - 14, golden.end());
  EXPECT_EQ(std::vector<std::string>(out.classLines.end() - 14, out.classLines.end()), ending);
  EXPECT_EQ(out.classLines.size(), golden.size() - 4);  // without the data lines
}

// The lines of the minimum's Select Case.
std::vector<std::string> MinLinesOf(const FormState& form) {
  RecordingEmitter out;
  WritePrmMin(form, out);
  return {out.classLines.begin() + 9, out.classLines.end() - 5};
}

TEST(Sections, NonNumericMinimumFailsOnlyOnAGeometricalRow) {
  FormState physical = MotorRecord();
  AddInput(physical, "Current", "Physical", "I", "A", "abc");
  EXPECT_EQ(MinLinesOf(physical)[1], "        Min = abc");

  FormState geometrical = MotorRecord();
  AddInput(geometrical, "Gap", "Geometrical", "g", "mm", "abc");
  EXPECT_THAT([&] { MinLinesOf(geometrical); }, RaisesError(vbrt::kTypeMismatch));
}

TEST(Sections, MinimaAreReadWithTheUserDecimalSeparator) {
  const vbrt::NumberFormat saved = vbrt::UserNumberFormat();
  vbrt::SetUserNumberFormat({",", "."});
  FormState form = MotorRecord();
  AddInput(form, "Gap", "Geometrical", "g", "mm", "0,5");
  AddInput(form, "Depth", "Geometrical", "d", "mm", "-0,5");
  const std::vector<std::string> lines = MinLinesOf(form);
  vbrt::SetUserNumberFormat(saved);
  EXPECT_EQ(lines[1], "        Min = 0,5");
  EXPECT_EQ(lines[5], "        Min = 0");
}

// A literal "$" in a block is written "$$"; a value is never scanned for markers.
TEST(Sections, PrinterWritesDoubledDollarsAsOne) {
  RecordingEmitter out;
  Printer(out, Printer::Target::Module).Line("s = Left$$($v$, 1)", {{"v", "a$b$"}});
  EXPECT_EQ(out.moduleLines, std::vector<std::string>{"s = Left$(a$b$, 1)"});
}

}  // namespace
}  // namespace generator::test
