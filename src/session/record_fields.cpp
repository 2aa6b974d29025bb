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
      {"TYPE", list.SubItem(row, kInputType)},
      {"VARIABLE", list.SubItem(row, kInputVariable)},
      {"UNIT", list.SubItem(row, kInputUnit)},
      {"MIN", list.SubItem(row, kInputMin)},
      {"MAX", list.SubItem(row, kInputMax)},
      {"DEFAULT", list.SubItem(row, kInputDefault)},
  };
}

std::vector<Field> OutputFields(const FormState& form, int row) {
  const ListItem& item = form.lvOutput.Item(row);
  return {
      {"DESCRIPTION", item.text},
      {"KEY", item.key},
      {"ICON", item.smallIcon ? std::to_string(*item.smallIcon) : std::string()},
      {"VALUE", form.lvOutput.SubItem(row, kOutputValue)},
  };
}

}  // namespace session
