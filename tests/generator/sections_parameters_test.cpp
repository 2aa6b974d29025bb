#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "generator/sections.h"
#include "golden_lines.h"
#include "sections_records.h"

namespace generator::test {
namespace {

session::FormState EveryTypeRecord() {
  session::FormState form = MotorRecord();
  AddEveryInputType(form);
  return form;
}

TEST(WriteParameters, DeclaresEveryInputWithTheConstantOfItsTypeCarriedOver) {
  RecordingEmitter out;
  WriteParameters(EveryTypeRecord(), out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "parameters_every_type.txt"));
  EXPECT_TRUE(out.moduleLines.empty());
}

TEST(WriteModifyModel, FetchesOnlyTheGeometricalInputs) {
  RecordingEmitter out;
  WriteModifyModel(EveryTypeRecord(), out);
  EXPECT_TRUE(MatchesGolden(out.moduleLines, "modify_model_every_type.txt"));
  EXPECT_TRUE(out.classLines.empty());
}

TEST(WriteInitLabels, CopiesTheBasicDataFileOfTheProblemType) {
  session::FormState form = MotorRecord();
  form.cmbType.listIndex = 2;  // Heat Transfer
  RecordingEmitter out;
  WriteInitLabels(form, out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "init_labels_heat_transfer.txt"));
}

TEST(WriteSetLabel, HasOneCaseForEachExactlyPhysicalInput) {
  RecordingEmitter out;
  WriteSetLabel(EveryTypeRecord(), out);
  EXPECT_TRUE(MatchesGolden(out.moduleLines, "set_label_every_type.txt"));
}

TEST(WriteSetLabel, StressAnalysisAndCurrentFlowHaveEachOthersLabelType) {
  for (const auto& [position, suffix] :
       std::vector<std::pair<int16_t, std::string>>{{4, "CF"}, {5, "SA"}, {2, "HT"}}) {
    session::FormState form = MotorRecord();
    form.cmbType.listIndex = position;
    RecordingEmitter out;
    WriteSetLabel(form, out);
    EXPECT_EQ(out.moduleLines[13], "    Dim LabCnt As Zentrix.LabelBlock" + suffix);
  }
}

TEST(ParameterSections, WithoutInputsDeclareAndFetchNothing) {
  const session::FormState form = MotorRecord();
  RecordingEmitter parameters;
  WriteParameters(form, parameters);
  EXPECT_EQ(parameters.classLines[7], "    ''' End input parameters definition");
  EXPECT_EQ(parameters.classLines.size(), 19u);

  RecordingEmitter modify;
  WriteModifyModel(form, modify);
  EXPECT_EQ(modify.moduleLines[12], "    ''' Local variables for all geometrical input parameters");
  EXPECT_EQ(modify.moduleLines[13], "");
  EXPECT_EQ(modify.moduleLines[14], "    ''' ----------------------------------------");

  RecordingEmitter label;
  WriteSetLabel(form, label);
  EXPECT_EQ(label.moduleLines[15], "    Select Case ParamName");
  EXPECT_EQ(label.moduleLines[16], "    End Select");
}

TEST(ParameterSections, MakeNoProgressStep) {
  const session::FormState form = EveryTypeRecord();
  RecordingEmitter out;
  WriteParameters(form, out);
  WriteModifyModel(form, out);
  WriteInitLabels(form, out);
  WriteSetLabel(form, out);
  EXPECT_EQ(out.progress, 0);
}

}  // namespace
}  // namespace generator::test
