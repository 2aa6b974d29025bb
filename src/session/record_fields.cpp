#include "session/record_fields.h"

#include "resources/string_ids.h"
#include "resources/string_table.h"

namespace session {

std::string WizardTitle() { return resources::LoadResString(resources::kAppTitle); }

std::vector<Field> GeneralFields(const FormState& form) {
  return {
      {"APPLICATION", WizardTitle()},
      {"PROJECT", form.edLocation},
      {"AUTHOR", form.edAuthor},
      {"ASYNCHRONOUS", std::to_string(form.chkAsync.value)},
      {"TYPE", std::to_string(form.cmbType.listIndex)},
      {"CLASS", std::to_string(form.cmbClass.listIndex)},
      {"COORDINATES", std::to_string(form.cmbCoord.listIndex)},
      {"UNITS", std::to_string(form.cmbUnit.listIndex)},
      {"MODEL", form.edModel},
      {"MODELCASE", form.ModelCase()},
      {"DATA", form.edData},
      {"DATACASE", form.DataCase()},
      {"SKETCH", form.edSketch},
  };
}

std::vector<Field> InputFields(const FormState& form, int row) {
  const ListView& list = form.lvInput;
  return {
      {"DESCRIPTION", list.Item(row).text},
      {"TYPE", list.SubItem(row, 1)},
      {"VARIABLE", list.SubItem(row, 2)},
      {"UNIT", list.SubItem(row, 3)},
      {"MIN", list.SubItem(row, 4)},
      {"MAX", list.SubItem(row, 5)},
      {"DEFAULT", list.SubItem(row, 6)},
  };
}

std::vector<Field> OutputFields(const FormState& form, int row) {
  const ListItem& item = form.lvOutput.Item(row);
  return {
      {"DESCRIPTION", item.text},
      {"KEY", item.key},
      {"ICON", item.smallIcon ? std::to_string(*item.smallIcon) : std::string()},
      {"VALUE", form.lvOutput.SubItem(row, 1)},
  };
}

}  // namespace session
