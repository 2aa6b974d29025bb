// The record's controls. What a fresh form saves as is checked byte-exact by the session
// file tests (an empty session); here what the file does not show.
#include "session/form_state.h"

#include <gtest/gtest.h>

#include "vbrt/error.h"

namespace session {
namespace {

// The choices' texts are the string table's lists (tests/resources).
TEST(FormStateTest, StartsAsAFreshWizard) {
  const FormState form;
  EXPECT_EQ(form.cmbType.items.size(), 9u);
  EXPECT_EQ(form.cmbUnit.items.size(), 8u);
  for (const OptionButton* option :
       {&form.optModelCode, &form.optModelLink, &form.optDataCode, &form.optDataLink}) {
    EXPECT_FALSE(option->enabled);
  }
  ASSERT_EQ(form.lvInput.Count(), 1);
  EXPECT_EQ(form.lvInput.Item(0).text, "<new>");
  EXPECT_EQ(form.InputCount(), 0);
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

TEST(FormStateTest, CaseOptionsAreExclusive) {
  FormState form;
  form.SelectModelCase(true);
  EXPECT_TRUE(form.optModelCode.value);
  EXPECT_FALSE(form.optModelLink.value);
  EXPECT_EQ(form.DataCase(), "Load");
  form.SelectDataCase(true);
  form.SelectModelCase(false);
  EXPECT_EQ(form.ModelCase(), "Load");
  EXPECT_EQ(form.DataCase(), "Generate");
}

}  // namespace
}  // namespace session
