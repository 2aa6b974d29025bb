#include "wizard/model/output_page.h"

#include <utility>

#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "session/code_page_notice.h"
#include "vbrt/error.h"

namespace wizard {
namespace {

using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;
using resources::LoadResString;

constexpr int kSubValue = 1;
// The key a row takes just before it is removed.
constexpr std::string_view kRemovingKey = "Removing";

bool IsStandard(const session::ListItem& item) {
  return item.smallIcon == kLocalOutputIcon || item.smallIcon == kIntegralOutputIcon;
}

void SelectOnly(session::ListView& list, int row) {
  for (int i = 0; i < list.Count(); ++i) list.SetSelected(i, i == row);
}

}  // namespace

OutputPage::OutputPage(session::FormState& form, platform::Prompter& prompter)
    : form_(form), prompter_(prompter), appTitle_(LoadResString(resources::kAppTitle)) {}

std::optional<int> OutputPage::ExpressionNumber(int type, std::string_view key) {
  if (key.size() < 2 || key.size() > 6 || (key[0] != 'i' && key[0] != 'p')) return std::nullopt;
  int n = 0;
  for (const char c : key.substr(1)) {
    if (c < '0' || c > '9') return std::nullopt;
    n = n * 10 + (c - '0');
  }
  if (key[0] == 'p') return resources::ExpressionOf(resources::LocalDescription(type, n));
  // The geometric integrals have one expression for every problem type.
  if (n >= resources::kGeometricIntegralFirst) return resources::ExpressionOf(n);
  return resources::ExpressionOf(resources::IntegralDescription(type, n));
}

template <typename Offer>
void OutputPage::ForEachStandard(int type, Offer offer) {
  for (int n = resources::kGeometricIntegralFirst;
       n < resources::kGeometricIntegralFirst + resources::kGeometricIntegralTries; ++n) {
    offer(n, 'i', n, kIntegralOutputIcon);
  }
  for (int n = 0; n < resources::kStandardTries; ++n) {
    offer(resources::IntegralDescription(type, n), 'i', n, kIntegralOutputIcon);
  }
  for (int n = 0; n < resources::kStandardTries; ++n) {
    offer(resources::LocalDescription(type, n), 'p', n, kLocalOutputIcon);
  }
}

void OutputPage::FillStandardOutputs() {
  session::ListView& standard = form_.lvStandard;
  standard.Clear();
  ForEachStandard(form_.cmbType.listIndex, [&](int number, char letter, int n, int16_t icon) {
    const auto text = resources::FindString(number);
    if (!text || text->empty()) return;
    standard.Add(std::string(*text), letter + std::to_string(n), icon);
  });
}

StandardTexts OutputPage::AllStandardTexts() {
  StandardTexts texts;
  const auto types = static_cast<int>(resources::ListFrom(resources::kTypeListBase).size());
  for (int type = 0; type < types; ++type) {
    ForEachStandard(type, [&](int number, char, int, int16_t) {
      const auto description = resources::FindString(number);
      if (!description || description->empty()) return;
      texts.descriptions.emplace_back(*description);
      const auto expression = resources::FindString(resources::ExpressionOf(number));
      texts.expressions.emplace_back(expression.value_or(""));
    });
  }
  return texts;
}

void OutputPage::SyncOutputs() {
  const session::ListView& standard = form_.lvStandard;
  session::ListView& outputs = form_.lvOutput;
  // Rebuilt rather than removed from row by row, so that a long list is walked once.
  session::ListView kept(outputs.Columns());
  for (const session::ListItem& item : outputs.Items()) {
    std::string text = item.text;
    if (IsStandard(item)) {
      const int offered = standard.FindKey(item.key);
      if (offered < 0) continue;
      text = standard.Item(offered).text;
    }
    const int row = kept.Add(std::move(text), item.key, item.smallIcon);
    for (std::size_t i = 0; i < item.subItems.size(); ++i) {
      kept.SetSubItem(row, static_cast<int>(i) + 1, item.subItems[i]);
    }
    kept.SetSelected(row, item.selected);
  }
  outputs = std::move(kept);
}

void OutputPage::AddStandardClicked() {
  const session::ListView& standard = form_.lvStandard;
  session::ListView& outputs = form_.lvOutput;
  const int type = form_.cmbType.listIndex;
  const int countBefore = outputs.Count();
  bool anySelected = false;
  try {
    for (const session::ListItem& item : standard.Items()) {
      if (!item.selected) continue;
      anySelected = true;
      const auto number = ExpressionNumber(type, item.key);
      std::string expression = number ? LoadResString(*number) : std::string();
      const int row = outputs.Add(item.text, item.key, item.smallIcon);
      outputs.SetSubItem(row, kSubValue, std::move(expression));
    }
  } catch (const vbrt::VbError& error) {
    // All or nothing: the rows this click added before the refusal go again.
    while (outputs.Count() > countBefore) outputs.Remove(outputs.Count() - 1);
    Tell(error.Description());
    return;
  }
  if (!anySelected) Tell(LoadResString(resources::kNothingSelected));
}

void OutputPage::StandardDoubleClicked(int row) {
  if (row < 0 || row >= form_.lvStandard.Count()) return;
  SelectOnly(form_.lvStandard, row);
  AddStandardClicked();
}

void OutputPage::AddCustomClicked() {
  OpenDialog(-1, LoadResString(resources::kNewOutputName), "0");
  dialog_.nameSelected = true;
}

void OutputPage::EditClicked() {
  const int row = form_.lvOutput.FirstSelected();
  if (row < 0) {
    Tell(LoadResString(resources::kNoParameterSelected));
    return;
  }
  OpenDialog(row, form_.lvOutput.Item(row).text, form_.lvOutput.SubItem(row, kSubValue));
}

void OutputPage::OutputDoubleClicked(int row) {
  if (row < 0 || row >= form_.lvOutput.Count()) return;
  SelectOnly(form_.lvOutput, row);
  EditClicked();
}

void OutputPage::RemoveClicked() {
  session::ListView& outputs = form_.lvOutput;
  const int row = outputs.FirstSelected();
  if (row < 0) {
    Tell(LoadResString(resources::kNoParameterSelected));
    return;
  }
  const std::string question = resources::Compose(
      resources::kRemoveQuestionBefore, outputs.Item(row).text, resources::kRemoveQuestionAfter);
  if (prompter_.Show({question, MsgButtons::YesNo, MsgIcon::None, appTitle_}) != MsgAnswer::Yes) {
    return;
  }
  try {
    outputs.SetKey(row, std::string(kRemovingKey));
    outputs.RemoveByKey(kRemovingKey);
  } catch (const vbrt::VbError& error) {
    Tell(error.Description());
  }
}

void OutputPage::OpenDialog(int index, std::string name, std::string value) {
  dialog_ = OutputDialog{};
  dialog_.shown = true;
  dialog_.editIndex = index;
  dialog_.edName = std::move(name);
  dialog_.edValue = std::move(value);
  dialog_.notice = session::CodePageWarning(dialog_.edName + dialog_.edValue);
}

void OutputPage::DialogEdited(OutputField field, std::string text) {
  if (!dialog_.shown) return;
  if (field == OutputField::Name) {
    dialog_.edName = std::move(text);
    dialog_.nameSelected = false;
  } else {
    dialog_.edValue = std::move(text);
  }
  dialog_.notice = session::CodePageWarning(dialog_.edName + dialog_.edValue);
}

void OutputPage::DialogAccept() {
  if (!dialog_.shown) return;
  session::ListView& outputs = form_.lvOutput;
  const int index = dialog_.editIndex;
  if (index >= 0 && index < outputs.Count()) {
    if (outputs.Item(index).text == dialog_.edName &&
        outputs.SubItem(index, kSubValue) == dialog_.edValue) {
      DialogCancel();
      return;
    }
    // A changed output is a custom one from now on, at the end of the list.
    outputs.Remove(index);
  }
  const int row = outputs.Add(dialog_.edName, "", kCustomOutputIcon);
  outputs.SetSubItem(row, kSubValue, dialog_.edValue);
  DialogCancel();
}

void OutputPage::DialogCancel() {
  dialog_.shown = false;
  dialog_.editIndex = -1;
}

void OutputPage::Tell(const std::string& text) {
  prompter_.Show({text, MsgButtons::OK, MsgIcon::Exclamation, appTitle_});
}

}  // namespace wizard
