#include "generator/record_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "../vbrt/raises.h"
#include "session/form_state.h"

namespace generator::test {
namespace {

// The texts by position are data (strings.tsv), shown in the generated code's golden files.
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
