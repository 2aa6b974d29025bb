#include "wizard/model/output_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/prompt/scripted_prompter.h"
#include "session/form_state.h"
#include "wizard_test_support.h"

namespace wizard {
namespace {

using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;
using testing::ElementsAre;
constexpr int16_t kElectrostatics = 0;
constexpr int16_t kMagnetostatics = 1;
constexpr int16_t kHeatTransfer = 2;

class OutputPageTest : public testing::Test {
 protected:
  OutputPageTest() { ShowPageFor(kMagnetostatics); }

  // What the wizard does when the page comes into view after a change of problem type.
  void ShowPageFor(int16_t type) {
    form_.cmbType.SetListIndex(type);
    page_.FillStandardOutputs();
    page_.SyncOutputs();
  }
  // Adds the standard rows of `keys` as the only ones selected.
  void AddStandard(std::initializer_list<const char*> keys) {
    for (int i = 0; i < form_.lvStandard.Count(); ++i) form_.lvStandard.SetSelected(i, false);
    for (const char* key : keys) form_.lvStandard.SetSelected(form_.lvStandard.FindKey(key), true);
    page_.AddStandardClicked();
  }
  void AddCustom(const std::string& name, const std::string& value) {
    page_.AddCustomClicked();
    page_.DialogEdited(OutputField::Name, name);
    page_.DialogEdited(OutputField::Value, value);
    page_.DialogAccept();
  }
  void Select(int row) {
    for (int i = 0; i < form_.lvOutput.Count(); ++i) form_.lvOutput.SetSelected(i, i == row);
  }
  // Each output row as "key|text|value|icon".
  std::vector<std::string> Outputs() const {
    std::vector<std::string> rows;
    for (int i = 0; i < form_.lvOutput.Count(); ++i) {
      const session::ListItem& item = form_.lvOutput.Item(i);
      rows.push_back(item.key + "|" + item.text + "|" + form_.lvOutput.SubItem(i, 1) + "|" +
                     (item.smallIcon ? std::to_string(*item.smallIcon) : "-"));
    }
    return rows;
  }
  void ExpectTold(const std::string& text) {
    test::ExpectTold(prompter_, text, MsgIcon::Exclamation);
  }

  session::FormState form_;
  platform::ScriptedPrompter prompter_;
  OutputPage page_{form_, prompter_};
};

TEST_F(OutputPageTest, StandardListOffersGeometricIntegralsThenTheTypesOwn) {
  const session::ListView& standard = form_.lvStandard;
  ASSERT_EQ(standard.Count(), 4 + 17 + 5);
  std::vector<std::string> keys;
  for (const session::ListItem& item : standard.Items()) {
    keys.push_back(item.key);
    EXPECT_FALSE(item.selected);
    EXPECT_EQ(item.smallIcon, item.key[0] == 'i' ? 2 : 1) << item.key;
  }
  EXPECT_THAT(std::vector<std::string>(keys.begin(), keys.begin() + 6),
              ElementsAre("i1900", "i1901", "i1902", "i1903", "i0", "i1"));
  EXPECT_EQ(keys.back(), "p4");
  EXPECT_EQ(standard.Item(0).text, "Contour length");
  EXPECT_EQ(standard.Item(standard.FindKey("i3")).text, "Magnetic flux");
  EXPECT_EQ(standard.Item(standard.FindKey("p0")).text, "Potential");

  ShowPageFor(kHeatTransfer);
  EXPECT_EQ(standard.Count(), 4 + 10 + 4);
  EXPECT_EQ(standard.Item(standard.FindKey("p0")).text, "Temperature");

  form_.cmbType.SetListIndex(-1);
  page_.FillStandardOutputs();
  EXPECT_EQ(standard.Count(), 4);
}

TEST_F(OutputPageTest, ExpressionNumbersFollowTheKey) {
  EXPECT_EQ(OutputPage::ExpressionNumber(1, "i3"), 2203);
  EXPECT_EQ(OutputPage::ExpressionNumber(1, "p0"), 2250);
  EXPECT_EQ(OutputPage::ExpressionNumber(0, "i1900"), 3900);
  EXPECT_EQ(OutputPage::ExpressionNumber(8, "i1903"), 3903);
  for (const char* notStandard : {"", "i", "x1", "p1a", "Removing"}) {
    EXPECT_EQ(OutputPage::ExpressionNumber(1, notStandard), std::nullopt) << notStandard;
  }
}

TEST_F(OutputPageTest, AddStandardCopiesTheSelectedRowsWithTheirExpressions) {
  page_.AddStandardClicked();
  ExpectTold("Nothing's selected.");
  EXPECT_EQ(form_.lvOutput.Count(), 0);

  AddStandard({"p0", "i3", "i1901"});  // added in list order, not in selection order
  EXPECT_THAT(Outputs(),
              ElementsAre("i1901|Surface area|Res.GetIntegral(zxSurface, Cnt).Abs|2",
                          "i3|Magnetic flux|Res.GetIntegral(zxGrad_n_ds, Cnt).Abs|2",
                          "p0|Potential|Locals.Potential|1"));

  page_.StandardDoubleClicked(form_.lvStandard.FindKey("p2"));
  EXPECT_EQ(form_.lvStandard.FirstSelected(), form_.lvStandard.FindKey("p2"));
  EXPECT_EQ(Outputs().back(), "p2|Flux density|Locals.Grad.R|1");
  EXPECT_TRUE(prompter_.shown.empty());
}

TEST_F(OutputPageTest, AQuantityAddedTwiceIsRefusedWithTheListsError) {
  AddStandard({"i3"});
  const std::vector<std::string> before = Outputs();
  AddStandard({"i3"});
  ExpectTold("Key is not unique in collection");
  AddStandard({"i1900", "i3", "p0"});
  ExpectTold("Key is not unique in collection");
  EXPECT_EQ(Outputs(), before);
}

TEST_F(OutputPageTest, SwitchingProblemTypeDropsAndRenamesStandardRows) {
  AddStandard({"i3", "i13", "p0", "i1902"});
  AddCustom("Ratio", "Res.GetIntegral(zxGrad_n_ds, Cnt).Abs / 2");
  form_.lvOutput.SetSubItem(3, 1, "Locals.Potential * 2");  // shows that values stay

  ShowPageFor(kHeatTransfer);
  EXPECT_THAT(Outputs(),
              ElementsAre("i1902|Volume|Res.GetIntegral(zxVolume, Cnt).Abs|2",
                          "i3|Surface integral of grad(T)|Res.GetIntegral(zxGrad_n_ds, Cnt).Abs|2",
                          "p0|Temperature|Locals.Potential * 2|1",
                          "|Ratio|Res.GetIntegral(zxGrad_n_ds, Cnt).Abs / 2|3"));

  ShowPageFor(kMagnetostatics);
  EXPECT_THAT(Outputs(),
              ElementsAre("i1902|Volume|Res.GetIntegral(zxVolume, Cnt).Abs|2",
                          "i3|Magnetic flux|Res.GetIntegral(zxGrad_n_ds, Cnt).Abs|2",
                          "p0|Potential|Locals.Potential * 2|1",
                          "|Ratio|Res.GetIntegral(zxGrad_n_ds, Cnt).Abs / 2|3"));

  // The expression a row was added with is not refreshed for the new type.
  ShowPageFor(kElectrostatics);
  EXPECT_EQ(Outputs()[1],
            "i3|Surface integral of strength|Res.GetIntegral(zxGrad_n_ds, Cnt).Abs|2");
  EXPECT_EQ(Outputs()[2], "p0|Voltage|Locals.Potential * 2|1");
}

TEST_F(OutputPageTest, CustomOutputsTakeAnyText) {
  page_.AddCustomClicked();
  const OutputDialog& dialog = page_.Dialog();
  ASSERT_TRUE(dialog.shown);
  EXPECT_EQ(dialog.editIndex, -1);
  EXPECT_EQ(dialog.edName, "New out parameter");
  EXPECT_EQ(dialog.edValue, "0");
  EXPECT_TRUE(dialog.nameSelected);
  page_.DialogAccept();
  AddCustom("", "");
  EXPECT_THAT(Outputs(), ElementsAre("|New out parameter|0|3", "|||3"));
  EXPECT_FALSE(page_.Dialog().shown);

  page_.AddCustomClicked();
  page_.DialogEdited(OutputField::Name, "Dropped");
  page_.DialogCancel();
  EXPECT_EQ(form_.lvOutput.Count(), 2);
  EXPECT_TRUE(prompter_.shown.empty());
}

TEST_F(OutputPageTest, EditingAStandardRowTurnsItIntoACustomRowOnlyWhenChanged) {
  AddStandard({"i3", "p0"});
  page_.EditClicked();
  ExpectTold("No parameter selected.");
  page_.OutputDoubleClicked(-1);
  page_.OutputDoubleClicked(2);
  EXPECT_FALSE(page_.Dialog().shown);

  const std::vector<std::string> before = Outputs();
  page_.OutputDoubleClicked(0);
  EXPECT_EQ(page_.Dialog().editIndex, 0);
  EXPECT_EQ(page_.Dialog().edName, "Magnetic flux");
  EXPECT_EQ(page_.Dialog().edValue, "Res.GetIntegral(zxGrad_n_ds, Cnt).Abs");
  page_.DialogAccept();
  EXPECT_EQ(Outputs(), before);

  page_.EditClicked();
  page_.DialogEdited(OutputField::Value, "Res.GetIntegral(zxGrad_n_ds, Cnt).Abs * 2");
  page_.DialogAccept();
  EXPECT_THAT(Outputs(), ElementsAre("p0|Potential|Locals.Potential|1",
                                     "|Magnetic flux|Res.GetIntegral(zxGrad_n_ds, Cnt).Abs * 2|3"));

  // Now custom, it survives a change of type untouched.
  ShowPageFor(kHeatTransfer);
  EXPECT_EQ(Outputs()[1], "|Magnetic flux|Res.GetIntegral(zxGrad_n_ds, Cnt).Abs * 2|3");
  EXPECT_TRUE(prompter_.shown.empty());
}

TEST_F(OutputPageTest, RemoveAsksUnderTheWizardsTitle) {
  page_.RemoveClicked();
  ExpectTold("No parameter selected.");

  AddStandard({"i3", "p0"});
  Select(1);
  prompter_.Answer(MsgAnswer::No);
  page_.RemoveClicked();
  test::ExpectTold(prompter_, "Are you sure to remove 'Potential' parameter ?", MsgIcon::None,
                   MsgButtons::YesNo);
  EXPECT_EQ(form_.lvOutput.Count(), 2);

  prompter_.Answer(MsgAnswer::Yes);
  page_.RemoveClicked();
  prompter_.shown.clear();
  EXPECT_THAT(Outputs(), ElementsAre("i3|Magnetic flux|Res.GetIntegral(zxGrad_n_ds, Cnt).Abs|2"));

  // A row already keyed "Removing" blocks the removal of another; the user is told.
  AddCustom("Other", "1");
  form_.lvOutput.SetKey(0, "Removing");
  Select(1);
  prompter_.Answer(MsgAnswer::Yes);
  page_.RemoveClicked();
  prompter_.shown.erase(prompter_.shown.begin());
  ExpectTold("Key is not unique in collection");
  EXPECT_EQ(form_.lvOutput.Count(), 2);
}

}  // namespace
}  // namespace wizard
