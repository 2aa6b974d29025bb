#include "session/form_state.h"

#include <utility>

#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "vbrt/error.h"

namespace session {
namespace {

// Fills the list as the wizard's load handler does, skipping numbers the table lacks, and
// selects the first item when there is one.
void Fill(ComboBox& combo, int base) {
  combo.items.clear();
  for (int number = base; number < base + resources::kListTries; ++number) {
    if (const auto text = resources::FindString(number)) combo.items.emplace_back(*text);
  }
  combo.listIndex = combo.items.empty() ? -1 : 0;
}

}  // namespace

void CheckBox::SetValue(int16_t newValue) {
  if (newValue < 0 || newValue > 2) vbrt::Raise(vbrt::kInvalidPropertyValue);
  value = newValue;
}

void ComboBox::SetListIndex(int16_t index) {
  if (index < -1 || index >= static_cast<int>(items.size())) {
    vbrt::Raise(vbrt::kInvalidPropertyValue);
  }
  listIndex = index;
}

std::string ComboBox::Text() const {
  return listIndex < 0 ? std::string() : items[static_cast<std::size_t>(listIndex)];
}

FormState::FormState() {
  Fill(cmbType, resources::kTypeListBase);
  Fill(cmbClass, resources::kClassListBase);
  Fill(cmbUnit, resources::kUnitListBase);
  Fill(cmbCoord, resources::kCoordListBase);
  // The "into code" options are never offered; the "from file" ones are enabled only
  // once a valid file is named.
  optModelCode = {false, false};
  optModelLink = {true, false};
  optDataCode = {false, false};
  optDataLink = {true, false};
  lvInput.Add(kNewInputText);
}

std::string FormState::*FormState::TextBox(TextField field) {
  static constexpr std::string FormState::*kBoxes[] = {
      &FormState::edFile,  &FormState::edLocation, &FormState::edAuthor,
      &FormState::edModel, &FormState::edData,     &FormState::edSketch};
  return kBoxes[static_cast<int>(field)];
}

void FormState::SetText(TextField field, std::string text) {
  Text(field) = std::move(text);
  if (handlers_ != nullptr) handlers_->TextSet(*this, field);
}

void FormState::SelectModelCase(bool code) {
  optModelCode.value = code;
  optModelLink.value = !code;
}

void FormState::SelectDataCase(bool code) {
  optDataCode.value = code;
  optDataLink.value = !code;
}

std::string FormState::ModelCase() const { return optModelCode.value ? "Generate" : "Load"; }

std::string FormState::DataCase() const { return optDataCode.value ? "Generate" : "Load"; }

int FormState::InputCount() const { return lvInput.Count() > 0 ? lvInput.Count() - 1 : 0; }

}  // namespace session
