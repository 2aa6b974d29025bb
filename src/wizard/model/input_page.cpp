#include "wizard/model/input_page.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "session/code_page_notice.h"
#include "session/form_state.h"
#include "session/input_rules.h"
#include "vbrt/numbers.h"

namespace wizard {
namespace {

using platform::Message;
using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;
using resources::LoadResString;


// The dialog offers the first three types only; "Problem" is reachable through lvCombo.
constexpr int kDialogTypeOptions = 3;

int SubItemOf(int column) { return column - 1; }

// Where a limit column stands in Min <= Default <= Max.
int Rank(int column) {
  switch (column) {
    case kColMin: return 0;
    case kColDefault: return 1;
    default: return 2;
  }
}

int NotNumericMessage(int column) {
  switch (column) {
    case kColMin: return resources::kMinNotNumeric;
    case kColMax: return resources::kMaxNotNumeric;
    default: return resources::kDefaultNotNumeric;
  }
}

// n when `name` is "p" followed by n in plain decimal (no sign, no leading zero) and n
// does not exceed `limit`; 0 otherwise.
int DefaultNameNumber(std::string_view name, int limit) {
  if (name.size() < 2 || name.size() > 11 || name[0] != 'p' || name[1] == '0') return 0;
  long long n = 0;
  for (const char c : name.substr(1)) {
    if (c < '0' || c > '9') return 0;
    n = n * 10 + (c - '0');
  }
  return n <= limit ? static_cast<int>(n) : 0;
}

// True when there is no `refusal`; otherwise false with its text in `message`.
bool Passes(int refusal, std::string& message) {
  if (refusal == 0) return true;
  message = LoadResString(refusal);
  return false;
}

}  // namespace

InputPage::InputPage(session::ListView& lvInput, platform::Prompter& prompter)
    : lvInput_(lvInput),
      prompter_(prompter),
      appTitle_(LoadResString(resources::kAppTitle)),
      typeItems_(resources::ListFrom(resources::kInputTypeBase, resources::kInputTypeCount)) {}

bool InputPage::IsParameter(int row) const { return row >= 0 && row < lvInput_.Count() - 1; }

// --- Checks ---

bool InputPage::ValidateDescription(std::string_view text, std::string& message) const {
  return CheckDescription(text, editRow_, message);
}

bool InputPage::ValidateVariable(std::string_view text, std::string& message) const {
  return CheckVariable(text, editRow_, message);
}

bool InputPage::CheckDescription(std::string_view text, int row, std::string& message) const {
  if (row >= 0 && text == lvInput_.Item(row).text) return true;
  // The placeholder counts too, so "<new>" is never a description.
  const auto& items = lvInput_.Items();
  const bool taken = std::any_of(items.begin(), items.end(),
                                 [&](const session::ListItem& item) { return item.text == text; });
  return Passes(session::DescriptionRefusal(text, taken), message);
}

bool InputPage::CheckVariable(std::string_view text, int row, std::string& message) const {
  if (row >= 0 && text == lvInput_.SubItem(row, session::kInputVariable)) return true;
  bool taken = false;
  for (int i = 0; i < lvInput_.Count() && !taken; ++i) {
    taken = lvInput_.SubItem(i, session::kInputVariable) == text;
  }
  return Passes(session::VariableRefusal(text, taken), message);
}

std::string InputPage::NextParameterName() const {
  // Every row blocks at most two names, so one of the first 2 * rows + 1 is free.
  const int limit = 2 * lvInput_.Count() + 1;
  std::vector<bool> taken(static_cast<std::size_t>(limit) + 1, false);
  for (int i = 0; i < lvInput_.Count(); ++i) {
    taken[static_cast<std::size_t>(DefaultNameNumber(lvInput_.Item(i).text, limit))] = true;
    taken[static_cast<std::size_t>(DefaultNameNumber(lvInput_.SubItem(i, session::kInputVariable), limit))] =
        true;
  }
  int n = 1;
  while (taken[static_cast<std::size_t>(n)]) ++n;
  return "p" + std::to_string(n);
}

// --- In-place editing ---

bool InputPage::AskToAddAt(int row) {
  const Message question{LoadResString(resources::kAddParameterQuestion), MsgButtons::YesNo,
                         MsgIcon::Question, appTitle_};
  if (prompter_.Show(question) != MsgAnswer::Yes) return false;
  const std::string name = NextParameterName();
  lvInput_.Add(session::kNewInputText);
  lvInput_.SetText(row, name);
  lvInput_.SetSubItem(row, session::kInputType, typeItems_.front());
  lvInput_.SetSubItem(row, session::kInputVariable, name);
  lvInput_.SetSubItem(row, session::kInputUnit, "");
  lvInput_.SetSubItem(row, session::kInputMin, "0");
  lvInput_.SetSubItem(row, session::kInputMax, "10");
  lvInput_.SetSubItem(row, session::kInputDefault, "1");
  return true;
}

void InputPage::OpenEditor(int row, int column) {
  editRow_ = row;
  editor_.open = true;
  editor_.row = row;
  editor_.column = column;
  editor_.kind = column == kColType ? EditorKind::Combo : EditorKind::Edit;
  editor_.text = column == kColDescription ? lvInput_.Item(row).text
                                           : lvInput_.SubItem(row, SubItemOf(column));
  editor_.typeIndex = -1;
  if (editor_.kind == EditorKind::Combo) {
    // "Problem", "Postprocess", "Physical", "Geometrical": the list from its end.
    for (int i = static_cast<int>(typeItems_.size()) - 1; i >= 0; --i) {
      if (typeItems_[static_cast<std::size_t>(i)] == editor_.text) {
        editor_.typeIndex = i;
        break;
      }
    }
  }
}

void InputPage::MoveEditor(int row, int column) {
  if (!IsParameter(row) && !AskToAddAt(row)) row = editor_.row;
  OpenEditor(row, column);
}

void InputPage::CloseEditor() {
  editor_.open = false;
  editRow_ = -1;
}

void InputPage::ClickCell(int row, int column) {
  EditorLeft();
  if (row < 0 || row >= lvInput_.Count() || column < kColDescription || column > kColDefault) {
    return;
  }
  // The placeholder itself is never edited: it becomes a parameter first, or nothing opens.
  if (!IsParameter(row) && !AskToAddAt(row)) return;
  OpenEditor(row, column);
}

void InputPage::EditorTextChanged(std::string text) {
  if (!editor_.open || editor_.kind != EditorKind::Edit) return;
  editor_.text = std::move(text);
  editor_.notice = session::CodePageWarning(editor_.text);
}

void InputPage::TypeChosen(int index) {
  if (editor_.open && editor_.kind == EditorKind::Combo && index >= -1 &&
      index < static_cast<int>(typeItems_.size())) {
    editor_.typeIndex = index;
  }
}

bool InputPage::CommitCell() {
  if (!editor_.open) return false;
  const int row = editor_.row;
  std::string message;
  switch (editor_.column) {
    case kColDescription:
      if (!CheckDescription(editor_.text, row, message)) break;
      lvInput_.SetText(row, editor_.text);
      return true;
    case kColVariable:
      if (!CheckVariable(editor_.text, row, message)) break;
      SetVariable(row, editor_.text);
      return true;
    case kColUnit:
      lvInput_.SetSubItem(row, session::kInputUnit, editor_.text);
      return true;
    case kColType:
      // A cell whose text is none of the types keeps it until one is chosen.
      if (editor_.typeIndex >= 0) {
        lvInput_.SetSubItem(row, session::kInputType, typeItems_[static_cast<std::size_t>(editor_.typeIndex)]);
      }
      CloseEditor();
      return true;
    default:
      return CommitNumber(editor_.text);
  }
  TellValidationError(message);
  return false;
}

bool InputPage::CommitNumber(const std::string& text) {
  const int column = editor_.column;
  if (!vbrt::IsNumeric(text)) {
    prompter_.Show({LoadResString(NotNumericMessage(column)), MsgButtons::OK, MsgIcon::None, ""});
    return false;
  }
  const double value = vbrt::CDbl(text);
  StoreLimit(editor_.row, column, vbrt::CStr(value), value);
  return true;
}

void InputPage::StoreLimit(int row, int column, const std::string& text, double value) {
  for (const int other : {kColMin, kColMax, kColDefault}) {
    if (other == column) continue;
    const std::string& cell = lvInput_.SubItem(row, SubItemOf(other));
    // A cell without a number (a hand-edited session) cannot be compared; it stays.
    if (!vbrt::IsNumeric(cell)) continue;
    const double current = vbrt::CDbl(cell);
    const bool above = Rank(other) > Rank(column);
    if (above ? current < value : current > value) {
      lvInput_.SetSubItem(row, SubItemOf(other), vbrt::CStr(value));
    }
  }
  lvInput_.SetSubItem(row, SubItemOf(column), text);
}

void InputPage::SetVariable(int row, std::string variable) {
  // A row made by the dialog is keyed by its variable; it stays so.
  if (!lvInput_.Item(row).key.empty()) lvInput_.SetKey(row, variable);
  lvInput_.SetSubItem(row, session::kInputVariable, std::move(variable));
}

void InputPage::KeyEnter(bool shift) {
  if (!editor_.open) return;
  const int row = editor_.row;
  const int column = editor_.column;
  if (!CommitCell()) return;
  OpenEditor(row, std::clamp(column + (shift ? -1 : 1), int{kColDescription}, int{kColDefault}));
}

void InputPage::KeyEscape() { CloseEditor(); }

void InputPage::KeyUp() {
  if (!editor_.open || editor_.kind != EditorKind::Edit) return;
  if (!CommitCell()) return;
  MoveEditor(std::max(editor_.row - 1, 0), editor_.column);
}

void InputPage::KeyDown() {
  if (!editor_.open || editor_.kind != EditorKind::Edit) return;
  if (!CommitCell()) return;
  MoveEditor(std::min(editor_.row + 1, lvInput_.Count() - 1), editor_.column);
}

bool InputPage::EditorLeft() {
  if (!editor_.open) return false;
  const bool stored = CommitCell();
  CloseEditor();
  return stored;
}

// --- Buttons ---

void InputPage::AddClicked() {
  EditorLeft();
  OpenDialog(-1);
}

void InputPage::EditClicked() {
  EditorLeft();
  const int row = lvInput_.FirstSelected();
  if (!IsParameter(row)) {
    TellNoSelection();
    return;
  }
  OpenDialog(row);
}

void InputPage::RemoveClicked() {
  EditorLeft();
  const int row = lvInput_.FirstSelected();
  if (!IsParameter(row)) {
    TellNoSelection();
    return;
  }
  const Message question{resources::Compose(resources::kRemoveQuestionBefore,
                                            lvInput_.Item(row).text,
                                            resources::kRemoveQuestionAfter),
                         MsgButtons::YesNo, MsgIcon::None, ""};
  if (prompter_.Show(question) == MsgAnswer::Yes) lvInput_.Remove(row);
}

// --- dlgInput ---

void InputPage::OpenDialog(int row) {
  editRow_ = row;
  dialog_ = InputDialog{};
  dialog_.shown = true;
  if (row >= 0) {
    dialog_.edName = lvInput_.Item(row).text;
    dialog_.edVariable = lvInput_.SubItem(row, session::kInputVariable);
    dialog_.edUnit = lvInput_.SubItem(row, session::kInputUnit);
    dialog_.edMin = lvInput_.SubItem(row, session::kInputMin);
    dialog_.edMax = lvInput_.SubItem(row, session::kInputMax);
    dialog_.edValue = lvInput_.SubItem(row, session::kInputDefault);
    const std::string& type = lvInput_.SubItem(row, session::kInputType);
    const auto offered = typeItems_.begin() + kDialogTypeOptions;
    const auto found = std::find(typeItems_.begin(), offered, type);
    dialog_.typeOption = found == offered ? -1 : static_cast<int>(found - typeItems_.begin());
  }
  DialogChanged();
}

void InputPage::DialogEdited(InputField field, std::string text) {
  if (!dialog_.shown) return;
  switch (field) {
    case InputField::Name: dialog_.edName = std::move(text); break;
    case InputField::Variable: dialog_.edVariable = std::move(text); break;
    case InputField::Unit: dialog_.edUnit = std::move(text); break;
    case InputField::Min: dialog_.edMin = std::move(text); break;
    case InputField::Max: dialog_.edMax = std::move(text); break;
    case InputField::Value: dialog_.edValue = std::move(text); break;
  }
  DialogChanged();
}

void InputPage::DialogChanged() {
  dialog_.reason = DialogRefusal(dialog_.edName, dialog_.edVariable);
  dialog_.okEnabled = dialog_.reason.empty();
  dialog_.notice = session::CodePageWarning(dialog_.edName + dialog_.edVariable + dialog_.edUnit +
                                            dialog_.edMin + dialog_.edMax + dialog_.edValue);
  dialog_.focus.reset();
}

void InputPage::DialogTypeChosen(int option) {
  if (!dialog_.shown || option < 0 || option >= kDialogTypeOptions) return;
  dialog_.typeOption = option;
  dialog_.focus.reset();
}

bool InputPage::DialogInputsValid(std::string_view name, std::string_view variable) const {
  return DialogRefusal(name, variable).empty();
}

std::string InputPage::DialogRefusal(std::string_view name, std::string_view variable) const {
  std::string message;
  if (CheckDescription(name, editRow_, message) && CheckVariable(variable, editRow_, message)) {
    return {};
  }
  return message;
}

bool InputPage::NumberFieldsValid() {
  const std::tuple<const std::string*, int, InputField> fields[] = {
      {&dialog_.edMin, kColMin, InputField::Min},
      {&dialog_.edMax, kColMax, InputField::Max},
      {&dialog_.edValue, kColDefault, InputField::Value}};
  for (const auto& [text, column, field] : fields) {
    if (text->empty() || vbrt::IsNumeric(*text)) continue;
    prompter_.Show({LoadResString(NotNumericMessage(column)), MsgButtons::OK, MsgIcon::None, ""});
    dialog_.focus = field;
    return false;
  }
  return true;
}

bool InputPage::DialogAccept() {
  if (!dialog_.shown || !DialogInputsValid(dialog_.edName, dialog_.edVariable)) return false;
  if (!NumberFieldsValid()) return false;
  int row = editRow_;
  const std::string type =
      dialog_.typeOption >= 0 ? typeItems_[static_cast<std::size_t>(dialog_.typeOption)]
      : row >= 0             ? lvInput_.SubItem(row, session::kInputType)
                             : typeItems_.front();
  struct Limit {
    int column;
    std::string text;
    bool changed;  // differs from what the edited row held; always for a new row
  };
  Limit limits[] = {{kColMin, dialog_.edMin.empty() ? "0" : dialog_.edMin, true},
                    {kColMax, dialog_.edMax.empty() ? "10" : dialog_.edMax, true},
                    {kColDefault, dialog_.edValue.empty() ? "1" : dialog_.edValue, true}};
  for (Limit& limit : limits) {
    limit.changed = row < 0 || lvInput_.SubItem(row, SubItemOf(limit.column)) != limit.text;
  }
  if (row >= 0 && lvInput_.SubItem(row, session::kInputVariable) != dialog_.edVariable) {
    lvInput_.Remove(row);
    row = -1;
  }
  if (row < 0) {
    row = lvInput_.Add(dialog_.edName, dialog_.edVariable, {}, lvInput_.Count() - 1);
  } else {
    lvInput_.SetText(row, dialog_.edName);
  }
  lvInput_.SetSubItem(row, session::kInputType, type);
  lvInput_.SetSubItem(row, session::kInputVariable, dialog_.edVariable);
  lvInput_.SetSubItem(row, session::kInputUnit, dialog_.edUnit);
  // The limits are stored as if typed into their cells one after the other, Min, Max,
  // Default: the row leaves ordered. Those the user changed come last, so that a changed
  // value wins over one left as it was, as it does in the cells.
  for (const bool changed : {false, true}) {
    for (const Limit& limit : limits) {
      if (limit.changed == changed) {
        StoreLimit(row, limit.column, limit.text, vbrt::CDbl(limit.text));
      }
    }
  }
  DialogCancel();
  return true;
}

void InputPage::DialogCancel() {
  dialog_.shown = false;
  editRow_ = -1;
}

// --- Messages ---

void InputPage::TellValidationError(const std::string& message) {
  prompter_.Show({LoadResString(resources::kValidationErrorPrefix) + message, MsgButtons::OK,
                  MsgIcon::Exclamation, appTitle_});
}

void InputPage::TellNoSelection() {
  prompter_.Show({LoadResString(resources::kNoParameterSelected), MsgButtons::OK,
                  MsgIcon::Exclamation, appTitle_});
}

}  // namespace wizard
