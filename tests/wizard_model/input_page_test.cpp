#include "wizard/model/input_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/prompt/scripted_prompter.h"
#include "session/form_state.h"
#include "vbrt/numbers.h"

namespace wizard {
namespace {

using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;
using testing::ElementsAre;

constexpr const char* kTitle = "Zentrix Bravant ExploringObject Wizard";

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
  // The one message shown since the last call; cleared afterwards.
  platform::Message Told() {
    EXPECT_EQ(prompter_.shown.size(), 1u);
    platform::Message message = prompter_.shown.empty() ? platform::Message{} : prompter_.shown[0];
    prompter_.shown.clear();
    return message;
  }
  void ExpectValidationError(const std::string& reason) {
    const platform::Message message = Told();
    EXPECT_EQ(message.text, "Validation error: " + reason);
    EXPECT_EQ(message.icon, MsgIcon::Exclamation);
    EXPECT_EQ(message.buttons, MsgButtons::OK);
    EXPECT_EQ(message.title, kTitle);
  }
  void ExpectPlainBox(const std::string& text) {
    const platform::Message message = Told();
    EXPECT_EQ(message.text, text);
    EXPECT_EQ(message.icon, MsgIcon::None);
    EXPECT_EQ(message.buttons, MsgButtons::OK);
    EXPECT_EQ(message.title, "");
  }

  session::ListView lv_{session::kInputColumns};
  platform::ScriptedPrompter prompter_;
  InputPage page_{lv_, prompter_};
};

TEST_F(InputPageTest, DescriptionChecksInOrder) {
  AddRow("Width", "w");
  AddRow("Height", "h");
  AddRow("12", "n");  // as a hand-written session may hold it
  page_.ClickCell(0, kColDescription);
  std::string message;
  EXPECT_TRUE(page_.ValidateDescription("Width", message));  // unchanged
  EXPECT_FALSE(page_.ValidateDescription("", message));
  EXPECT_EQ(message, "Parameter description cann't be empty.");
  for (const char* number : {"12", "1.5", "1e3"}) {
    EXPECT_FALSE(page_.ValidateDescription(number, message)) << number;
    EXPECT_EQ(message, "Parameter description cann't be numeric.") << number;
  }
  for (const char* taken : {"Height", "<new>"}) {
    EXPECT_FALSE(page_.ValidateDescription(taken, message)) << taken;
    EXPECT_EQ(message, "Parameter description must be unique.") << taken;
  }
  EXPECT_TRUE(page_.ValidateDescription("height", message));
  EXPECT_TRUE(prompter_.shown.empty());
}

TEST_F(InputPageTest, VariableChecksLookAtTheFirstCharacterOnly) {
  AddRow("Width", "w");
  AddRow("Height", "h");
  AddRow("Odd", "9q");
  page_.ClickCell(0, kColVariable);
  std::string message;
  EXPECT_TRUE(page_.ValidateVariable("w", message));
  EXPECT_FALSE(page_.ValidateVariable("", message));
  EXPECT_EQ(message, "Parameter variable name cann't be empty.");
  for (const char* bad : {"9x", "_a", " x", "9q"}) {
    EXPECT_FALSE(page_.ValidateVariable(bad, message)) << bad;
    EXPECT_EQ(message, "Invalid parameter variable name.") << bad;
  }
  EXPECT_FALSE(page_.ValidateVariable("h", message));
  EXPECT_EQ(message, "Parameter variable name must be unique.");
  for (const char* good : {"x 9", "a-b", "H", "Z", "z"}) {
    EXPECT_TRUE(page_.ValidateVariable(good, message)) << good;
  }
}

TEST_F(InputPageTest, RefusedTextEditsTellAndKeepTheEditorOpen) {
  AddRow("Width", "w");
  AddRow("Height", "h");
  EXPECT_FALSE(Commit(0, kColDescription, "Height"));
  ExpectValidationError("Parameter description must be unique.");
  EXPECT_FALSE(Commit(0, kColDescription, "<new>"));
  ExpectValidationError("Parameter description must be unique.");
  EXPECT_FALSE(Commit(0, kColVariable, "9x"));
  ExpectValidationError("Invalid parameter variable name.");
  EXPECT_TRUE(page_.Editor().open);
  EXPECT_EQ(page_.Editor().text, "9x");
  EXPECT_THAT(Row(0), ElementsAre("Width", "Geometrical", "w", "", "0", "10", "1"));
}

TEST_F(InputPageTest, TextColumnsStoreWhatPasses) {
  AddRow("Width", "w");
  EXPECT_TRUE(Commit(0, kColDescription, "Gap"));
  EXPECT_TRUE(Commit(0, kColVariable, "x 9"));
  EXPECT_TRUE(Commit(0, kColUnit, "12 anything"));
  EXPECT_THAT(Row(0), ElementsAre("Gap", "Geometrical", "x 9", "12 anything", "0", "10", "1"));
  EXPECT_TRUE(prompter_.shown.empty());
}

TEST_F(InputPageTest, UnchangedTextCommitsSilentlyEvenWhenDuplicated) {
  AddRow("Same", "v");
  AddRow("Same", "v");
  EXPECT_TRUE(Commit(1, kColDescription, "Same"));
  EXPECT_TRUE(Commit(1, kColVariable, "v"));
  EXPECT_TRUE(prompter_.shown.empty());
}

TEST_F(InputPageTest, LimitsStayOrderedInFavourOfTheEditedValue) {
  AddRow("A", "a", "0", "3", "1");
  EXPECT_TRUE(Commit(0, kColMin, "5"));
  EXPECT_THAT(Row(0), ElementsAre("A", "Geometrical", "a", "", "5", "5", "5"));

  AddRow("B", "b", "1", "10", "1");
  EXPECT_TRUE(Commit(1, kColMax, "0.5"));
  EXPECT_THAT(Row(1), ElementsAre("B", "Geometrical", "b", "", "0.5", "0.5", "0.5"));

  AddRow("C", "c", "0", "10", "1");
  EXPECT_TRUE(Commit(2, kColDefault, "20"));
  EXPECT_THAT(Row(2), ElementsAre("C", "Geometrical", "c", "", "0", "20", "20"));
  EXPECT_TRUE(Commit(2, kColDefault, "-1"));
  EXPECT_THAT(Row(2), ElementsAre("C", "Geometrical", "c", "", "-1", "20", "-1"));

  // A neighbour without a number cannot be compared and is kept as it stands.
  AddRow("D", "d", "0", "", "1");
  EXPECT_TRUE(Commit(3, kColMin, "4"));
  EXPECT_THAT(Row(3), ElementsAre("D", "Geometrical", "d", "", "4", "", "4"));
  EXPECT_TRUE(prompter_.shown.empty());
}

TEST_F(InputPageTest, NumbersAreWrittenBackInStandardForm) {
  AddRow("A", "a");
  EXPECT_TRUE(Commit(0, kColDefault, "1.50"));
  EXPECT_EQ(lv_.SubItem(0, 6), "1.5");
  EXPECT_TRUE(Commit(0, kColMax, "1e3"));
  EXPECT_EQ(lv_.SubItem(0, 5), "1000");

  const vbrt::NumberFormat saved = vbrt::UserNumberFormat();
  vbrt::SetUserNumberFormat({",", "."});
  EXPECT_TRUE(Commit(0, kColDefault, "2,50"));
  const std::string stored = lv_.SubItem(0, 6);
  EXPECT_FALSE(Commit(0, kColMin, "1,5,0"));
  vbrt::SetUserNumberFormat(saved);
  EXPECT_EQ(stored, "2,5");
  ExpectPlainBox("Validation error: Parameter minimum must be numeric.");
}

TEST_F(InputPageTest, NonNumericLimitsAreRefusedInAPlainBox) {
  AddRow("A", "a");
  EXPECT_FALSE(Commit(0, kColMin, "abc"));
  ExpectPlainBox("Validation error: Parameter minimum must be numeric.");
  EXPECT_FALSE(Commit(0, kColMax, ""));
  ExpectPlainBox("Validation error: Parameter maximum must be numeric.");
  EXPECT_FALSE(Commit(0, kColDefault, "1x"));
  ExpectPlainBox("Validation error: Parameter default value must be numeric.");
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
  const platform::Message question = Told();
  EXPECT_EQ(question.text, "Add new parameter ?");
  EXPECT_EQ(question.buttons, MsgButtons::YesNo);
  EXPECT_EQ(question.icon, MsgIcon::Question);

  prompter_.Answer(MsgAnswer::Yes);
  page_.ClickCell(0, kColUnit);
  prompter_.shown.clear();
  ASSERT_EQ(lv_.Count(), 2);
  EXPECT_THAT(Row(0), ElementsAre("p1", "Geometrical", "p1", "", "0", "10", "1"));
  EXPECT_EQ(lv_.Item(1).text, "<new>");
  EXPECT_TRUE(lv_.Item(1).subItems.empty());
  EXPECT_TRUE(page_.Editor().open);
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
  EXPECT_EQ(page_.Editor().column, kColDescription);
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
}

TEST_F(InputPageTest, UpAndDownCommitAndMoveInTheSameColumn) {
  AddRow("A", "a");
  AddRow("B", "b");
  page_.ClickCell(1, kColMin);
  page_.EditorTextChanged("2");
  page_.KeyUp();
  EXPECT_EQ(lv_.SubItem(1, 4), "2");
  EXPECT_EQ(page_.Editor().row, 0);
  page_.KeyUp();
  EXPECT_EQ(page_.Editor().row, 0);
  EXPECT_EQ(page_.Editor().column, kColMin);

  page_.EditorTextChanged("x");
  page_.KeyDown();
  prompter_.shown.clear();
  EXPECT_EQ(page_.Editor().row, 0);

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
  EXPECT_EQ(lv_.Count(), 4);
  EXPECT_EQ(lv_.Item(2).text, "p1");
}

TEST_F(InputPageTest, EscapeStoresNothing) {
  AddRow("A", "a");
  page_.ClickCell(0, kColDescription);
  page_.EditorTextChanged("Z");
  page_.KeyEscape();
  EXPECT_FALSE(page_.Editor().open);
  EXPECT_EQ(lv_.Item(0).text, "A");
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
  page_.KeyEscape();
  page_.ClickCell(1, kColType);
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
  EXPECT_EQ(page_.Editor().row, 1);
  EXPECT_EQ(page_.Editor().text, "b");

  page_.EditorTextChanged("a");  // refused; the click still goes through
  page_.ClickCell(0, kColDescription);
  ExpectValidationError("Parameter variable name must be unique.");
  EXPECT_EQ(lv_.SubItem(1, 2), "b");
  EXPECT_EQ(page_.Editor().row, 0);
}

TEST_F(InputPageTest, EditAndRemoveNeedASelectedParameter) {
  AddRow("Width", "w");
  for (const bool placeholderSelected : {false, true}) {
    lv_.SetSelected(1, placeholderSelected);
    page_.EditClicked();
    page_.RemoveClicked();
    for (const platform::Message& message : prompter_.shown) {
      EXPECT_EQ(message.text, "No parameter selected.");
      EXPECT_EQ(message.icon, MsgIcon::Exclamation);
      EXPECT_EQ(message.title, kTitle);
    }
    EXPECT_EQ(prompter_.shown.size(), 2u);
    prompter_.shown.clear();
  }
  EXPECT_FALSE(page_.Dialog().shown);
  EXPECT_EQ(lv_.Count(), 2);
}

TEST_F(InputPageTest, RemoveAsksFirst) {
  AddRow("Width", "w");
  lv_.SetSelected(0, true);
  prompter_.Answer(MsgAnswer::No);
  page_.RemoveClicked();
  EXPECT_EQ(lv_.Count(), 2);
  const platform::Message question = Told();
  EXPECT_EQ(question.text, "Are you sure to remove 'Width' parameter ?");
  EXPECT_EQ(question.buttons, MsgButtons::YesNo);
  EXPECT_EQ(question.icon, MsgIcon::None);
  EXPECT_EQ(question.title, "");
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
  const InputDialog& dialog = page_.Dialog();
  EXPECT_EQ(dialog.edName, "Width");
  EXPECT_EQ(dialog.typeOption, -1);  // "Problem" is not offered here
  EXPECT_TRUE(dialog.okEnabled);
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
}

TEST_F(InputPageTest, DialogRefusesNonNumericLimitsAndCancelChangesNothing) {
  AddRow("Width", "w");
  lv_.SetSelected(0, true);
  page_.EditClicked();
  page_.DialogEdited(InputField::Max, "ten");
  EXPECT_FALSE(page_.DialogAccept());
  ExpectPlainBox("Validation error: Parameter maximum must be numeric.");
  EXPECT_TRUE(page_.Dialog().shown);
  page_.DialogCancel();
  EXPECT_FALSE(page_.Dialog().shown);
  EXPECT_THAT(Row(0), ElementsAre("Width", "Geometrical", "w", "", "0", "10", "1"));
}

}  // namespace
}  // namespace wizard
