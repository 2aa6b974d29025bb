#include "generator/record_values.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sections_records.h"
#include "vbrt/error.h"

namespace generator::test {
namespace {

TEST(RecordValues, ProblemTypeTextsByPositionWithStressAndCurrentCrossed) {
  struct Expected {
    const char* id;
    const char* extension;
    const char* fieldPoint;
    const char* label;
  };
  const std::vector<Expected> table = {
      {"zxElectrostatics", "des", "ES ", "ES"},
      {"zxMagnetostatics", "dms", " ", "MS"},
      {"zxHeatTransfer", "dht", " ", "HT"},
      {"zxHeatTransferDynamic", "dht", " ", "HT"},
      {"zxStressAnalysis", "dcf", " ", "CF"},
      {"zxCurrentFlow", "dsa", "SA ", "SA"},
      {"zxTimeHarmonicMagnetics", "dhe", "HE ", "HE"},
      {"zxElectromagnetics", "dms", "TE", "MS"},
      {"zxTimeHarmonicElectrics", "dec", "EC", "EC"},
  };
  session::FormState form;
  for (int16_t position = 0; position < static_cast<int16_t>(table.size()); ++position) {
    SCOPED_TRACE(position);
    form.cmbType.listIndex = position;
    EXPECT_EQ(ProblemTypeId(form), table[position].id);
    EXPECT_EQ(DataExtension(form), table[position].extension);
    EXPECT_EQ(FieldPointSuffix(form), table[position].fieldPoint);
    EXPECT_EQ(LabelSuffix(form), table[position].label);
  }
}

TEST(RecordValues, ClassCoordinatesAndUnitsByPosition) {
  session::FormState form;
  form.cmbClass.listIndex = 1;
  form.cmbCoord.listIndex = 1;
  form.cmbUnit.listIndex = 3;
  EXPECT_EQ(ProblemClassId(form), "zxAxisymmetric");
  EXPECT_EQ(CoordinatesId(form), "zxPolar");
  EXPECT_EQ(LengthUnitsId(form), "zxKilometers");
}

int ErrorOf(std::string (*value)(const session::FormState&), const session::FormState& form) {
  try {
    value(form);
  } catch (const vbrt::VbError& error) {
    return error.Number();
  }
  return 0;
}

TEST(RecordValues, MissingTextAndSixteenBitOverflowAreErrors) {
  session::FormState form;
  form.cmbType.listIndex = 9;  // one past the last problem type
  EXPECT_EQ(ErrorOf(DataExtension, form), vbrt::kResourceNotFound);
  form.cmbType.listIndex = -1;
  EXPECT_EQ(ErrorOf(ProblemTypeId, form), vbrt::kResourceNotFound);
  form.cmbType.listIndex = 32767 - 12040 + 1;
  EXPECT_EQ(ErrorOf(FieldPointSuffix, form), vbrt::kOverflow);
}

TEST(RecordValues, InputRowsStopBeforeTheNewRow) {
  session::FormState form;
  EXPECT_TRUE(InputRows(form).empty());
  AddEveryInputType(form);
  const std::vector<InputRow> rows = InputRows(form);
  ASSERT_EQ(rows.size(), 6u);
  EXPECT_EQ(rows[5].description, "Frequency");
  EXPECT_EQ(rows[4].defaultValue, "1,5e");
  EXPECT_EQ(InputRowsOfType(form, InputType::Physical).size(), 1u);  // "physical" is not one
  EXPECT_EQ(HostTypeConstants(form),
            (std::vector<std::string>{"", "bvGeometrical", "bvPhysical", "bvPhysical",
                                      "bvPostprocess", "bvProblem"}));
}

TEST(RecordValues, SketchExtensionIsTheFileNamesLastExtension) {
  session::FormState form;
  EXPECT_EQ(SketchExtension(form), "");
  form.edSketch = "C:\\pics\\motor.bmp";
  EXPECT_EQ(SketchExtension(form), "bmp");
  form.edSketch = "C:\\pics.old\\motor";
  EXPECT_EQ(SketchExtension(form), "");
}

}  // namespace
}  // namespace generator::test
