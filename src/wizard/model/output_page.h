#pragma once
// The output parameters page without its widgets: the standard quantities that the chosen
// problem type offers (lvStandard), the chosen outputs (lvOutput), their buttons and the
// "Custom output parameter" dialog. The view shows the lists and Dialog() and forwards
// clicks and typing here.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/prompter.h"
#include "session/form_state.h"

namespace wizard {

// Small icons of the output lists.
inline constexpr int16_t kLocalOutputIcon = 1;
inline constexpr int16_t kIntegralOutputIcon = 2;
inline constexpr int16_t kCustomOutputIcon = 3;

// Help topic of dlgOutput, relative to the program folder.
inline constexpr std::string_view kCustomOutputHelpTopic =
    "/../../Help/Bravant.chm::/HTML/WizardOutputs.htm#Custom";

// The texts that the standard outputs show, over every problem type.
struct StandardTexts {
  std::vector<std::string> descriptions;
  std::vector<std::string> expressions;  // the result expressions, in the same order
};

// The fields of dlgOutput that the user types into.
enum class OutputField { Name, Value };

// dlgOutput while it is shown.
struct OutputDialog {
  bool shown = false;
  int editIndex = -1;         // row of lvOutput being edited; -1 = a new output
  std::string edName;
  std::string edValue;
  bool nameSelected = false;  // the name's text is selected, ready to be typed over
  std::string notice;         // characters of the fields the code page cannot hold, told
};

class OutputPage {
 public:
  // Not owned; both must outlive the page.
  OutputPage(session::FormState& form, platform::Prompter& prompter);

  const OutputDialog& Dialog() const { return dialog_; }

  // The string number of the result expression of standard key `key` ("i3", "p0",
  // "i1900") under problem type `type`; nullopt for a key that is no standard key.
  static std::optional<int> ExpressionNumber(int type, std::string_view key);
  // The texts of the standard outputs of every problem type of cmbType's list (a view
  // sizes its lists for them).
  static StandardTexts AllStandardTexts();

  // Refills lvStandard for the problem type selected in cmbType: the geometric
  // integrals, then the type's integrals "i0".."i49", then its local quantities
  // "p0".."p49", as far as the string table holds non-empty texts; unselected.
  void FillStandardOutputs();
  // Brings lvOutput in line with lvStandard: a standard row takes the text the current
  // type gives its key, or goes when the type does not offer it. Expressions and custom
  // rows stay as they are.
  void SyncOutputs();

  // "<": appends every selected standard quantity, in list order, with its expression.
  // With nothing selected the user is told "Nothing's selected.". A quantity already in
  // lvOutput makes the list view refuse it: the user is told the list's error and
  // nothing is added.
  void AddStandardClicked();
  // A double-click on row `row` of lvStandard: that row alone is selected and added.
  void StandardDoubleClicked(int row);
  // "Add custom": dlgOutput opens for a new output, "New out parameter" = "0".
  void AddCustomClicked();
  // "Edit": dlgOutput opens on the first selected output, or the user is told
  // "No parameter selected.".
  void EditClicked();
  // A double-click on row `row` of lvOutput edits it; off the rows it does nothing.
  void OutputDoubleClicked(int row);
  // "Remove": removes the first selected output after the user confirms.
  void RemoveClicked();

  void DialogEdited(OutputField field, std::string text);
  // OK: an edited output left as it was stays; otherwise the edited row (if any) goes
  // and the dialog's name and value are appended as a custom output without key.
  void DialogAccept();
  // Cancel: the dialog closes, nothing changes.
  void DialogCancel();

 private:
  // Calls offer(description number, key letter, key number, icon) for every standard
  // output that problem type `type` may offer, in list order.
  template <typename Offer>
  static void ForEachStandard(int type, Offer offer);
  void OpenDialog(int index, std::string name, std::string value);
  void Tell(const std::string& text);

  session::FormState& form_;
  platform::Prompter& prompter_;
  std::string appTitle_;
  OutputDialog dialog_;
};

}  // namespace wizard
