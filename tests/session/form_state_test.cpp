#include "session/form_state.h"

#include <gtest/gtest.h>

#include "session_test_support.h"
#include "vbrt/error.h"

namespace session {
namespace {

TEST(FormStateTest, StartsAsAFreshWizard) {
  const FormState form;
  EXPECT_EQ(form.cmbType.items.size(), 9u);
  EXPECT_EQ(form.cmbType.items[8], "Time-Harmonic Electrics");
  EXPECT_EQ(form.cmbClass.items, (std::vector<std::string>{"Plane Parallel", "Axisymmetric"}));
  EXPECT_EQ(form.cmbCoord.items, (std::vector<std::string>{"Cartesian", "Polar"}));
  ASSERT_EQ(form.cmbUnit.items.size(), 8u);
  EXPECT_EQ(form.cmbUnit.items[7], "Microns");
  for (const ComboBox* combo : {&form.cmbType, &form.cmbClass, &form.cmbCoord, &form.cmbUnit}) {
    EXPECT_EQ(combo->listIndex, 0);
  }
  EXPECT_EQ(form.cmbUnit.Text(), "Meters");
  EXPECT_EQ(form.ModelCase(), "Load");
  EXPECT_EQ(form.DataCase(), "Load");
  for (const OptionButton* option :
       {&form.optModelCode, &form.optModelLink, &form.optDataCode, &form.optDataLink}) {
    EXPECT_FALSE(option->enabled);
  }
  ASSERT_EQ(form.lvInput.Count(), 1);
  EXPECT_EQ(form.lvInput.Item(0).text, "<new>");
  EXPECT_EQ(form.InputCount(), 0);
  EXPECT_EQ(form.lvOutput.Count(), 0);
  EXPECT_EQ(form.chkAsync.value, 0);
  EXPECT_FALSE(form.btnFinishEnabled);
}

TEST(FormStateTest, ChoiceValuesAreRangeChecked) {
  FormState form;
  form.cmbClass.SetListIndex(-1);
  EXPECT_EQ(form.cmbClass.Text(), "");
  EXPECT_THROW(form.cmbClass.SetListIndex(2), vbrt::VbError);
  EXPECT_THROW(form.cmbClass.SetListIndex(-2), vbrt::VbError);
  EXPECT_EQ(form.cmbClass.listIndex, -1);
  form.chkAsync.SetValue(2);
  EXPECT_THROW(form.chkAsync.SetValue(3), vbrt::VbError);
  EXPECT_THROW(form.chkAsync.SetValue(-1), vbrt::VbError);
  EXPECT_EQ(form.chkAsync.value, 2);
}

TEST(FormStateTest, SetTextRunsTheFieldsHandlerAfterStoringTheText) {
  FormState form;
  form.SetText(TextField::Model, "before handlers");  // none set: just stores
  test::RecordingHandlers handlers;
  form.SetFieldHandlers(&handlers);
  form.SetText(TextField::Location, "C:\\p\\A.vbp");
  form.SetText(TextField::Model, "m.mod");
  form.SetText(TextField::Data, "d.dms");
  form.SetText(TextField::Sketch, "");
  using Call = std::pair<TextField, std::string>;
  EXPECT_EQ(handlers.calls, (std::vector<Call>{{TextField::Location, "C:\\p\\A.vbp"},
                                               {TextField::Model, "m.mod"},
                                               {TextField::Data, "d.dms"},
                                               {TextField::Sketch, ""}}));
  EXPECT_EQ(form.edData, "d.dms");
}

TEST(FormStateTest, CaseOptionsAreExclusive) {
  FormState form;
  form.SelectModelCase(true);
  EXPECT_TRUE(form.optModelCode.value);
  EXPECT_FALSE(form.optModelLink.value);
  EXPECT_EQ(form.ModelCase(), "Generate");
  EXPECT_EQ(form.DataCase(), "Load");
  form.SelectDataCase(true);
  form.SelectModelCase(false);
  EXPECT_EQ(form.ModelCase(), "Load");
  EXPECT_EQ(form.DataCase(), "Generate");
}

}  // namespace
}  // namespace session
