#include "wizard/model/input_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/prompt/scripted_prompter.h"
#include "session/form_state.h"
#include "vbrt/numbers.h"
#include "wizard_test_support.h"

namespace wizard {
namespace {

using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;
using test::ExpectTold;
using testing::ElementsAre;

class InputPageTest : public testing::Test {
 protected:
  InputPageTest() { lv_.Add(session::kNewInputText); }

  // Adds a parameter before "<new>" as the session reader leaves it: no key.
  int AddRow(const std::string& description, const std::string& variable,
             const std::string& min = "0", const std::string& max = "10",
             const std::string& def = "1", const std::string& type = "Geometrical") {
    const int row = lv_.Add(description, "", {}, lv_.Count() - 1);
    const std::vector<std::string> subs = {type, variable, "", min, max, def};
    for (int i = 0; i < 6; ++i) lv_.SetSubItem(row, i + 1, subs[static_cast<std::size_t>(i)]);
    return row;
  }
  // The row as text, sub-items included.
  std::vector<std::string> Row(int row) const {
    std::vector<std::string> cells{lv_.Item(row).text};
    for (int i = 1; i < 7; ++i) cells.push_back(lv_.SubItem(row, i));
    return cells;
  }
  // Opens the cell's editor afresh (dropping any refused edit still open), types, commits.
  bool Commit(int row, int column, const std::string& text) {
    page_.KeyEscape();
    page_.ClickCell(row, column);
    page_.EditorTextChanged(text);
    return page_.CommitCell();
  }
  // Refused numbers are told in a box without icon or title.
  void ExpectNotNumeric(const std::string& what) {
    ExpectTold(prompter_, "Validation error: Parameter " + what + " must be numeric.",
               MsgIcon::None, MsgButtons::OK, "");
  }

  session::ListView lv_{session::kInputColumns};
  platform::ScriptedPrompter prompter_;
  InputPage page_{lv_, prompter_};
};

TEST_F(InputPageTest, DescriptionAndVariableChecks) {
  AddRow("Width", "w");
  AddRow("Height", "h");
  AddRow("Width", "w");  // a duplicate, as a hand-written session may hold it
  const struct {
    int column;
    const char* text;
    const char* error;  // "" = accepted
  } cases[] = {
      {kColDescription, "Width", ""},  // unchanged passes even though duplicated
      {kColDescription, "height", ""},
      {kColDescription, "", "Parameter description cann't be empty."},
      {kColDescription, "12", "Parameter description cann't be numeric."},
      {kColDescription, "Height", "Parameter description must be unique."},
      {kColDescription, "<new>", "Parameter description must be unique."},
      {kColVariable, "w", ""},
      {kColVariable, "", "Parameter variable name cann't be empty."},
      {kColVariable, "9x", "Invalid parameter variable name."},
      {kColVariable, "h", "Parameter variable name must be unique."},
      {kColVariable, "x 9", ""},  // only the first character is looked at
      {kColVariable, "Z", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " in column " + std::to_string(c.column));
    page_.ClickCell(0, c.column);
    std::string message;
    const bool ok = c.column == kColDescription ? page_.ValidateDescription(c.text, message)
                                                : page_.ValidateVariable(c.text, message);
    EXPECT_EQ(ok, *c.error == '\0');
    if (!ok) {
      EXPECT_EQ(message, c.error);
    }
    page_.KeyEscape();
  }
  EXPECT_TRUE(prompter_.shown.empty());
}

TEST_F(InputPageTest, TextEditsStoreWhatPassesAndRefusalsKeepTheEditorOpen) {
  AddRow("Width", "w");
  AddRow("Height", "h");
  EXPECT_FALSE(Commit(0, kColVariable, "9x"));
  ExpectTold(prompter_, "Validation error: Invalid parameter variable name.",
             MsgIcon::Exclamation);
  EXPECT_TRUE(page_.Editor().open);
  EXPECT_EQ(page_.Editor().text, "9x");
  EXPECT_THAT(Row(0), ElementsAre("Width", "Geometrical", "w", "", "0", "10", "1"));

  EXPECT_TRUE(Commit(0, kColDescription, "Gap"));
  EXPECT_TRUE(Commit(0, kColVariable, "x 9"));
  EXPECT_TRUE(Commit(0, kColUnit, "12 anything"));
  EXPECT_THAT(Row(0), ElementsAre("Gap", "Geometrical", "x 9", "12 anything", "0", "10", "1"));
  EXPECT_TRUE(prompter_.shown.empty());
}

TEST_F(InputPageTest, NumbersAreStoredInStandardFormAndKeepTheLimitsOrdered) {
  const struct {
    const char *min, *max, *def;
    int column;
    const char* typed;
    std::vector<std::string> limits;  // min, max, default afterwards
  } cases[] = {
      {"0", "3", "1", kColMin, "5", {"5", "5", "5"}},
      {"1", "10", "1", kColMax, "0.5", {"0.5", "0.5", "0.5"}},
      {"0", "10", "1", kColDefault, "20", {"0", "20", "20"}},
      {"0", "20", "20", kColDefault, "-1", {"-1", "20", "-1"}},
      // A neighbour without a number cannot be compared and is kept as it stands.
      {"0", "", "1", kColMin, "4", {"4", "", "4"}},
      {"0", "10", "1", kColMax, "1e3", {"0", "1000", "1"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.typed);
    const int row = AddRow("P" + std::to_string(lv_.Count()), "v", c.min, c.max, c.def);
    EXPECT_TRUE(Commit(row, c.column, c.typed));
    const std::vector<std::string> cells = Row(row);
    EXPECT_EQ(std::vector<std::string>(cells.begin() + 4, cells.end()), c.limits);
  }
  EXPECT_TRUE(prompter_.shown.empty());

  const vbrt::NumberFormat saved = vbrt::UserNumberFormat();
  vbrt::SetUserNumberFormat({",", "."});
  EXPECT_TRUE(Commit(0, kColDefault, "2,50"));
  const std::string stored = lv_.SubItem(0, 6);
  EXPECT_FALSE(Commit(0, kColMin, "1,5,0"));
  vbrt::SetUserNumberFormat(saved);
  EXPECT_EQ(stored, "2,5");
  ExpectNotNumeric("minimum");
}

TEST_F(InputPageTest, NonNumericLimitsAreRefusedWithTheEditorKept) {
  AddRow("A", "a");
  EXPECT_FALSE(Commit(0, kColMax, ""));
  ExpectNotNumeric("maximum");
  EXPECT_FALSE(Commit(0, kColDefault, "1x"));
  ExpectNotNumeric("default value");
  EXPECT_THAT(Row(0), ElementsAre("A", "Geometrical", "a", "", "0", "10", "1"));
  EXPECT_TRUE(page_.Editor().open);
}

TEST_F(InputPageTest, NextParameterNameSkipsDescriptionsAndVariables) {
  EXPECT_EQ(page_.NextParameterName(), "p1");
  AddRow("p1", "x");
  AddRow("y", "p2");
  AddRow("p01", "p4");  // "p01" is not "p1"
  EXPECT_EQ(page_.NextParameterName(), "p3");
  AddRow("p3", "z");
  EXPECT_EQ(page_.NextParameterName(), "p5");
}

TEST_F(InputPageTest, ClickingThePlaceholderAddsAParameterOnYes) {
  prompter_.Answer(MsgAnswer::No);
  page_.ClickCell(0, kColDescription);
  EXPECT_EQ(lv_.Count(), 1);
  EXPECT_FALSE(page_.Editor().open);
  ExpectTold(prompter_, "Add new parameter ?", MsgIcon::Question, MsgButtons::YesNo);

  prompter_.Answer(MsgAnswer::Yes);
  page_.ClickCell(0, kColUnit);
  ASSERT_EQ(lv_.Count(), 2);
  EXPECT_THAT(Row(0), ElementsAre("p1", "Geometrical", "p1", "", "0", "10", "1"));
  EXPECT_EQ(lv_.Item(1).text, "<new>");
  EXPECT_TRUE(lv_.Item(1).subItems.empty());
  EXPECT_EQ(page_.Editor().row, 0);
  EXPECT_EQ(page_.Editor().column, kColUnit);
}

TEST_F(InputPageTest, EnterMovesAlongTheRowWithinItsColumns) {
  AddRow("A", "a");
  page_.ClickCell(0, kColDescription);
  page_.EditorTextChanged("B");
  page_.KeyEnter(false);
  EXPECT_EQ(lv_.Item(0).text, "B");
  EXPECT_EQ(page_.Editor().column, kColType);
  EXPECT_EQ(page_.Editor().kind, EditorKind::Combo);
  page_.KeyEnter(true);
  page_.KeyEnter(true);
  EXPECT_EQ(page_.Editor().column, kColDescription);

  page_.ClickCell(0, kColDefault);
  page_.KeyEnter(false);
  EXPECT_EQ(page_.Editor().column, kColDefault);
  page_.EditorTextChanged("oops");
  page_.KeyEnter(true);
  prompter_.shown.clear();
  EXPECT_EQ(page_.Editor().column, kColDefault);
  EXPECT_EQ(page_.Editor().text, "oops");

  page_.KeyEscape();  // stores nothing
  EXPECT_FALSE(page_.Editor().open);
  EXPECT_EQ(lv_.SubItem(0, 6), "1");
}

TEST_F(InputPageTest, UpAndDownCommitAndMoveInTheSameColumn) {
  AddRow("A", "a");
  AddRow("B", "b");
  page_.ClickCell(1, kColMin);
  page_.EditorTextChanged("2");
  page_.KeyUp();
  EXPECT_EQ(lv_.SubItem(1, 4), "2");
  page_.KeyUp();
  EXPECT_EQ(page_.Editor().row, 0);
  EXPECT_EQ(page_.Editor().column, kColMin);

  page_.EditorTextChanged("0");
  page_.KeyDown();
  EXPECT_EQ(page_.Editor().row, 1);
  // Below the last parameter lies "<new>": the user is asked as for a click.
  prompter_.Answer(MsgAnswer::No);
  page_.KeyDown();
  EXPECT_EQ(page_.Editor().row, 1);
  EXPECT_EQ(lv_.Count(), 3);
  prompter_.Answer(MsgAnswer::Yes);
  page_.KeyDown();
  EXPECT_EQ(page_.Editor().row, 2);
  EXPECT_EQ(lv_.Item(2).text, "p1");
}

TEST_F(InputPageTest, TypeListSelectsTheCellsTypeAndStoresTheChoice) {
  AddRow("A", "a", "0", "10", "1", "Postprocess");
  AddRow("B", "b", "0", "10", "1", "Unknown");
  EXPECT_THAT(page_.TypeItems(), ElementsAre("Geometrical", "Physical", "Postprocess", "Problem"));
  page_.ClickCell(0, kColType);
  EXPECT_EQ(page_.Editor().typeIndex, 2);
  page_.TypeChosen(3);
  page_.KeyEnter(false);
  EXPECT_EQ(lv_.SubItem(0, 1), "Problem");
  EXPECT_EQ(page_.Editor().column, kColVariable);
  EXPECT_EQ(page_.Editor().kind, EditorKind::Edit);

  // A type the list does not know is kept until the user chooses one.
  page_.ClickCell(1, kColType);
  EXPECT_EQ(page_.Editor().typeIndex, -1);
  EXPECT_TRUE(page_.EditorLeft());
  EXPECT_EQ(lv_.SubItem(1, 1), "Unknown");
}

TEST_F(InputPageTest, ClickingElsewhereCommitsTheOpenEditFirst) {
  AddRow("A", "a");
  AddRow("B", "b");
  page_.ClickCell(0, kColUnit);
  page_.EditorTextChanged("mm");
  page_.ClickCell(1, kColVariable);
  EXPECT_EQ(lv_.SubItem(0, 3), "mm");
  EXPECT_EQ(page_.Editor().text, "b");

  page_.EditorTextChanged("a");  // refused; the click still goes through
  page_.ClickCell(0, kColDescription);
  ExpectTold(prompter_, "Validation error: Parameter variable name must be unique.",
             MsgIcon::Exclamation);
  EXPECT_EQ(lv_.SubItem(1, 2), "b");
  EXPECT_EQ(page_.Editor().row, 0);
}

TEST_F(InputPageTest, EditAndRemoveNeedASelectedParameterAndRemoveAsksFirst) {
  AddRow("Width", "w");
  for (const bool placeholderSelected : {false, true}) {
    lv_.SetSelected(1, placeholderSelected);
    page_.EditClicked();
    ExpectTold(prompter_, "No parameter selected.", MsgIcon::Exclamation);
    page_.RemoveClicked();
    ExpectTold(prompter_, "No parameter selected.", MsgIcon::Exclamation);
  }
  EXPECT_FALSE(page_.Dialog().shown);

  lv_.SetSelected(0, true);
  prompter_.Answer(MsgAnswer::No);
  page_.RemoveClicked();
  EXPECT_EQ(lv_.Count(), 2);
  ExpectTold(prompter_, "Are you sure to remove 'Width' parameter ?", MsgIcon::None,
             MsgButtons::YesNo, "");
  prompter_.Answer(MsgAnswer::Yes);
  page_.RemoveClicked();
  ASSERT_EQ(lv_.Count(), 1);
  EXPECT_EQ(lv_.Item(0).text, "<new>");
}

TEST_F(InputPageTest, DialogAddsNewParametersBeforeThePlaceholder) {
  AddRow("Width", "w");
  page_.AddClicked();
  ASSERT_TRUE(page_.Dialog().shown);
  EXPECT_FALSE(page_.Dialog().okEnabled);
  page_.DialogEdited(InputField::Name, "Gap");
  page_.DialogEdited(InputField::Variable, "w");
  EXPECT_FALSE(page_.Dialog().okEnabled);
  page_.DialogEdited(InputField::Variable, "g");
  EXPECT_TRUE(page_.Dialog().okEnabled);
  page_.DialogEdited(InputField::Name, "Width");
  EXPECT_FALSE(page_.Dialog().okEnabled);
  page_.DialogEdited(InputField::Name, "Gap");
  page_.DialogEdited(InputField::Unit, "mm");
  page_.DialogEdited(InputField::Max, "5");
  page_.DialogTypeChosen(1);
  EXPECT_TRUE(page_.DialogAccept());
  EXPECT_FALSE(page_.Dialog().shown);

  page_.AddClicked();
  page_.DialogEdited(InputField::Name, "Slot");
  page_.DialogEdited(InputField::Variable, "s");
  EXPECT_TRUE(page_.DialogAccept());

  ASSERT_EQ(lv_.Count(), 4);
  EXPECT_THAT(Row(1), ElementsAre("Gap", "Physical", "g", "mm", "0", "5", "1"));
  EXPECT_EQ(lv_.Item(1).key, "g");
  EXPECT_THAT(Row(2), ElementsAre("Slot", "Geometrical", "s", "", "0", "10", "1"));
  EXPECT_EQ(lv_.Item(3).text, "<new>");
  EXPECT_TRUE(prompter_.shown.empty());
}

TEST_F(InputPageTest, DialogEditsInPlaceOrMovesTheRowWhenTheVariableChanges) {
  AddRow("Width", "w", "0", "10", "1", "Problem");
  AddRow("Height", "h");
  lv_.SetSelected(0, true);
  page_.EditClicked();
  EXPECT_EQ(page_.Dialog().edName, "Width");
  EXPECT_EQ(page_.Dialog().typeOption, -1);  // "Problem" is not offered here
  page_.DialogEdited(InputField::Name, "Wide");
  page_.DialogEdited(InputField::Min, "");
  EXPECT_TRUE(page_.DialogAccept());
  EXPECT_THAT(Row(0), ElementsAre("Wide", "Problem", "w", "", "0", "10", "1"));

  page_.EditClicked();
  page_.DialogEdited(InputField::Variable, "x");
  page_.DialogTypeChosen(2);
  EXPECT_TRUE(page_.DialogAccept());
  ASSERT_EQ(lv_.Count(), 3);
  EXPECT_EQ(lv_.Item(0).text, "Height");
  EXPECT_THAT(Row(1), ElementsAre("Wide", "Postprocess", "x", "", "0", "10", "1"));
  EXPECT_EQ(lv_.Item(1).key, "x");

  // Its key follows a later change of the variable in place.
  EXPECT_TRUE(Commit(1, kColVariable, "y"));
  EXPECT_EQ(lv_.Item(1).key, "y");

  // Non-numeric limits are refused with the dialog kept; Cancel changes nothing.
  lv_.SetSelected(1, true);
  page_.EditClicked();
  page_.DialogEdited(InputField::Max, "ten");
  EXPECT_FALSE(page_.DialogAccept());
  ExpectNotNumeric("maximum");
  EXPECT_TRUE(page_.Dialog().shown);
  page_.DialogCancel();
  EXPECT_FALSE(page_.Dialog().shown);
  EXPECT_THAT(Row(1), ElementsAre("Wide", "Postprocess", "y", "", "0", "10", "1"));
}

// OK stores Min, then Max, then Default with the rule of the in-place editors (the limits
// left unchanged first), so the row leaves ordered whichever way it was edited and a
// changed value wins; values the rule does not move keep the text they were typed as.
TEST_F(InputPageTest, DialogLimitsLeaveTheRowOrdered) {
  const struct {
    std::vector<std::string> row;  // Min, Max, Default before; empty: a new parameter
    std::vector<std::string> typed;
    std::vector<std::string> stored;
  } cases[] = {
      {{}, {"20", "10", "2"}, {"2", "10", "2"}},
      {{}, {"3", "1", "2"}, {"1", "2", "2"}},
      {{}, {"5", "", ""}, {"1", "10", "1"}},  // the empty Default is 1, stored last
      {{}, {"1e3", "1e6", "5e4"}, {"1e3", "1e6", "5e4"}},
      {{"0", "10", "1"}, {"20", "10", "1"}, {"20", "20", "20"}},  // as typed into Min
      {{"0", "10", "1"}, {"0", "10", "-5"}, {"-5", "10", "-5"}},
      {{"20", "10", "2"}, {"20", "10", "2"}, {"2", "10", "2"}},  // a hand-made row
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.typed));
    if (c.row.empty()) {
      page_.AddClicked();
      page_.DialogEdited(InputField::Name, "Gap");
      page_.DialogEdited(InputField::Variable, "g");
    } else {
      AddRow("Gap", "g", c.row[0], c.row[1], c.row[2]);
      lv_.SetSelected(0, true);
      page_.EditClicked();
    }
    page_.DialogEdited(InputField::Min, c.typed[0]);
    page_.DialogEdited(InputField::Max, c.typed[1]);
    page_.DialogEdited(InputField::Value, c.typed[2]);
    ASSERT_TRUE(page_.DialogAccept());
    EXPECT_THAT(Row(0), ElementsAre("Gap", "Geometrical", "g", "", c.stored[0], c.stored[1],
                                    c.stored[2]));
    lv_.Remove(0);
  }
}

// Why OK is off is shown in the dialog, and so are characters the code page cannot hold.
TEST_F(InputPageTest, DialogTellsWhyOkIsOffAndWhatTheCodePageLoses) {
  AddRow("Width", "w");
  page_.AddClicked();
  const struct {
    InputField field;
    const char* text;
    const char* reason;
  } steps[] = {
      {InputField::Name, "", "Parameter description cann't be empty."},
      {InputField::Name, "Width", "Parameter description must be unique."},
      {InputField::Name, "Gap", "Parameter variable name cann't be empty."},
      {InputField::Variable, "9g", "Invalid parameter variable name."},
      {InputField::Variable, "w", "Parameter variable name must be unique."},
      {InputField::Variable, "g", ""},
  };
  EXPECT_EQ(page_.Dialog().reason, steps[0].reason);
  for (const auto& step : steps) {
    page_.DialogEdited(step.field, step.text);
    EXPECT_EQ(page_.Dialog().reason, step.reason) << step.text;
    EXPECT_EQ(page_.Dialog().okEnabled, *step.reason == '\0');
  }
  EXPECT_EQ(page_.Dialog().notice, "");
  page_.DialogEdited(InputField::Unit, "长度 m²");
  EXPECT_EQ(page_.Dialog().notice,
            "The code page WINDOWS-1252 cannot hold \"长度\": these characters would be written "
            "as \"?\" in the session file and the generated code.");

  // A refused limit takes the focus back; typing on lets it go.
  page_.DialogEdited(InputField::Value, "one");
  EXPECT_FALSE(page_.DialogAccept());
  EXPECT_EQ(page_.Dialog().focus, InputField::Value);
  page_.DialogEdited(InputField::Value, "1");
  EXPECT_EQ(page_.Dialog().focus, std::nullopt);

  // The cell editors tell the code page's losses the same way.
  page_.DialogCancel();
  page_.ClickCell(0, kColUnit);
  page_.EditorTextChanged("长度 m");
  EXPECT_EQ(page_.Editor().notice, page_.Dialog().notice);
  page_.EditorTextChanged("m");
  EXPECT_EQ(page_.Editor().notice, "");
}

}  // namespace
}  // namespace wizard
