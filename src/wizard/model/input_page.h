#pragma once
// The input parameters page without its widgets: the in-place cell editors of lvInput,
// the Add / Edit / Remove buttons and the "Input parameter" dialog. Every edit passes the
// same checks, so lvInput always keeps unique, well-formed parameters and its "<new>" row
// last. The view shows Editor() and Dialog() and forwards keys, clicks and typing here.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/prompter.h"
#include "session/list_view.h"

namespace wizard {

// Columns of lvInput as the editors number them (1 = the row text, n = sub-item n - 1).
enum InputColumn : int {
  kColDescription = 1,
  kColType = 2,
  kColVariable = 3,
  kColUnit = 4,
  kColMin = 5,
  kColMax = 6,
  kColDefault = 7,
};

enum class EditorKind { Edit, Combo };  // lvEdit (a text box) / lvCombo (the type list)

// The in-place editor laid over one cell of lvInput.
struct CellEditor {
  bool open = false;
  EditorKind kind = EditorKind::Edit;
  int row = -1;                // row of lvInput under the editor, from 0
  int column = kColDescription;
  std::string text;            // what lvEdit holds
  int typeIndex = -1;          // lvCombo's selection in TypeItems(); -1 = none
  std::string notice;          // characters of `text` the code page cannot hold, told
};

// Help topic of dlgInput, relative to the program folder: the dialog's section of the
// input page's topic.
inline constexpr std::string_view kInputDialogHelpTopic =
    "/../../Help/Bravant.chm::/HTML/WizardInputs.htm#Dialog";

// The fields of dlgInput that the user types into.
enum class InputField { Name, Variable, Unit, Min, Max, Value };

// dlgInput while it is shown.
struct InputDialog {
  bool shown = false;
  std::string edName, edVariable, edUnit, edMin, edMax, edValue;
  // The option of grpType: 0 optGeom, 1 optPhys, 2 optPost; -1 when the edited row has
  // a type the dialog does not offer ("Problem"), which OK then keeps.
  int typeOption = 0;
  bool okEnabled = false;
  // Why OK is disabled (the description or variable check's refusal), "" while enabled.
  std::string reason;
  // Characters of the fields that the code page cannot hold, told; "" when none.
  std::string notice;
  // The field to take the focus: the limit that OK refused as not numeric.
  std::optional<InputField> focus;
};

class InputPage {
 public:
  // Not owned; both must outlive the page. lvInput must end with its "<new>" row.
  InputPage(session::ListView& lvInput, platform::Prompter& prompter);

  // The type list's entries: "Geometrical", "Physical", "Postprocess", "Problem".
  const std::vector<std::string>& TypeItems() const { return typeItems_; }
  const CellEditor& Editor() const { return editor_; }
  const InputDialog& Dialog() const { return dialog_; }

  // --- Checks against the row being edited (by an editor or the dialog; none after Add) ---
  // True when `text` may become that row's description; otherwise false with the reason
  // (without the "Validation error: " prefix) in `message`.
  bool ValidateDescription(std::string_view text, std::string& message) const;
  // The same for the row's variable.
  bool ValidateVariable(std::string_view text, std::string& message) const;
  // The first of "p1", "p2", ... that no row has as its description or variable.
  std::string NextParameterName() const;

  // --- In-place editing ---
  // The user clicked cell (row, column) of lvInput. An open editor is committed and closed
  // first. A click on "<new>" asks whether to add a parameter and, on Yes, turns that row
  // into "pN" with the defaults and adds a new "<new>" below it. Then the cell's editor
  // opens (lvCombo for "Type", lvEdit otherwise). Clicks outside the cells only commit.
  void ClickCell(int row, int column);
  // The user typed into lvEdit / chose an entry of lvCombo. Characters the code page
  // cannot hold are told in Editor().notice.
  void EditorTextChanged(std::string text);
  void TypeChosen(int index);
  // Stores the open editor's text into its cell with the column's checks; a refusal is
  // told to the user and stores nothing. Numbers are stored in their standard form and
  // Min <= Default <= Max is restored in favour of the edited value (a limit cell that
  // holds no number is left as it stands). True when stored.
  bool CommitCell();
  // Enter: commit, then the editor moves to the next column (previous with Shift),
  // staying within columns 1 to 7. A refused commit leaves the editor where it is.
  void KeyEnter(bool shift);
  // Escape: closes the editor, storing nothing.
  void KeyEscape();
  // Up / Down in lvEdit: commit, then the same column one row up / down; the first row
  // stays put. Moving onto "<new>" asks as a click does; on No the editor stays.
  // The type list handles its own arrow keys, so these do nothing while it is open.
  void KeyUp();
  void KeyDown();
  // The editor lost the focus: commit (telling a refusal), then close. True when stored.
  bool EditorLeft();

  // --- Buttons ---
  // btnInputAdd: dlgInput opens empty for a new parameter.
  void AddClicked();
  // btnInputEdit: dlgInput opens filled from the first selected parameter, or the user is
  // told "No parameter selected.".
  void EditClicked();
  // btnInputRemove: removes the first selected parameter after the user confirms; "<new>"
  // is never removed.
  void RemoveClicked();

  // --- dlgInput ---
  // Typing into a field. Dialog().okEnabled and .reason follow the name and variable,
  // .notice the characters of all fields that the code page cannot hold.
  void DialogEdited(InputField field, std::string text);
  void DialogTypeChosen(int option);
  // Whether OK may be pressed for this name and variable: both pass the description and
  // variable checks against the row the dialog edits.
  bool DialogInputsValid(std::string_view name, std::string_view variable) const;
  // OK: a new parameter goes in before "<new>"; an edited one is updated in place, or,
  // when its variable changed, removed and added anew before "<new>". Rows made here carry
  // their variable as key; empty Min / Max / Default become "0" / "10" / "1". The limits
  // are stored one after the other with the in-place editors' ordering rule, in the order
  // Min, Max, Default, those left unchanged first: the row leaves ordered and a changed
  // value wins. A Min, Max or Default that is not numeric is told to the user, the dialog
  // stays open and Dialog().focus names that field. True when the dialog closed.
  bool DialogAccept();
  // Cancel: the dialog closes, nothing changes.
  void DialogCancel();

 private:
  bool IsParameter(int row) const;
  bool CheckDescription(std::string_view text, int row, std::string& message) const;
  bool CheckVariable(std::string_view text, int row, std::string& message) const;
  bool CommitNumber(const std::string& text);
  // Stores `text`, whose number is `value`, in limit column `column` of `row` and moves
  // the row's other limits so that Min <= Default <= Max holds, the stored value winning.
  void StoreLimit(int row, int column, const std::string& text, double value);
  // The description or variable check's refusal of the pair, "" when both pass.
  std::string DialogRefusal(std::string_view name, std::string_view variable) const;
  void DialogChanged();
  void SetVariable(int row, std::string variable);
  bool AskToAddAt(int row);
  void OpenEditor(int row, int column);
  void MoveEditor(int row, int column);
  void CloseEditor();
  void OpenDialog(int row);
  bool NumberFieldsValid();
  void TellValidationError(const std::string& message);
  void TellNoSelection();

  session::ListView& lvInput_;
  platform::Prompter& prompter_;
  std::string appTitle_;
  std::vector<std::string> typeItems_;
  int editRow_ = -1;  // the row being edited by the editor or the dialog; -1 = none
  CellEditor editor_;
  InputDialog dialog_;
};

}  // namespace wizard
