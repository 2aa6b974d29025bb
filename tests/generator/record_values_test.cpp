#include "generator/record_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../vbrt/raises.h"
#include "session/form_state.h"

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

TEST(RecordValues, MissingTextAndSixteenBitOverflowAreErrors) {
  session::FormState form;
  form.cmbType.listIndex = 9;  // one past the last problem type
  EXPECT_THAT([&] { DataExtension(form); }, RaisesError(vbrt::kResourceNotFound));
  form.cmbType.listIndex = -1;
  EXPECT_THAT([&] { ProblemTypeId(form); }, RaisesError(vbrt::kResourceNotFound));
  form.cmbType.listIndex = 32767 - 12040 + 1;
  EXPECT_THAT([&] { FieldPointSuffix(form); }, RaisesError(vbrt::kOverflow));
}

TEST(RecordValues, SketchExtensionIsNeverTakenFromTheFolder) {
  session::FormState form;
  form.edSketch = "C:\\pics.old\\motor";
  EXPECT_EQ(SketchExtension(form), "");
}

}  // namespace
}  // namespace generator::test
