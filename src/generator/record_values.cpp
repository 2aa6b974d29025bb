#include "generator/record_values.h"

#include <utility>

#include "platform/path_parts.h"
#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "vbrt/numbers.h"

namespace generator {
namespace {


// The text of base + the selected position, a 16-bit sum as the wizard computes it.
std::string TextAt(int base, const session::ComboBox& list) {
  return resources::LoadResString(vbrt::AddInteger(static_cast<int16_t>(base), list.listIndex));
}

}  // namespace

std::string ProblemTypeId(const session::FormState& form) {
  return TextAt(resources::kTypeIdBase, form.cmbType);
}
std::string ProblemClassId(const session::FormState& form) {
  return TextAt(resources::kClassIdBase, form.cmbClass);
}
std::string CoordinatesId(const session::FormState& form) {
  return TextAt(resources::kCoordIdBase, form.cmbCoord);
}
std::string LengthUnitsId(const session::FormState& form) {
  return TextAt(resources::kUnitIdBase, form.cmbUnit);
}
std::string DataExtension(const session::FormState& form) {
  return TextAt(resources::kDataExtensionBase, form.cmbType);
}
std::string FieldPointSuffix(const session::FormState& form) {
  return TextAt(resources::kFieldPointSuffixBase, form.cmbType);
}
std::string LabelSuffix(const session::FormState& form) {
  return TextAt(resources::kLabelSuffixBase, form.cmbType);
}

std::string TypeCaption(InputType type) {
  return resources::LoadResString(resources::kInputTypeBase + static_cast<int>(type));
}

std::vector<InputRow> InputRows(const session::FormState& form) {
  const session::ListView& list = form.lvInput;
  std::vector<InputRow> rows;
  rows.reserve(static_cast<std::size_t>(form.InputCount()));
  for (int i = 0; i < form.InputCount(); ++i) {
    rows.push_back({list.Item(i).text, list.SubItem(i, session::kInputType),
                    list.SubItem(i, session::kInputVariable), list.SubItem(i, session::kInputUnit),
                    list.SubItem(i, session::kInputMin), list.SubItem(i, session::kInputMax),
                    list.SubItem(i, session::kInputDefault)});
  }
  return rows;
}

std::vector<InputRow> InputRowsOfType(const session::FormState& form, InputType type) {
  const std::string caption = TypeCaption(type);
  std::vector<InputRow> rows;
  for (const InputRow& row : InputRows(form)) {
    if (row.type == caption) rows.push_back(row);
  }
  return rows;
}

std::vector<OutputRow> OutputRows(const session::FormState& form) {
  const session::ListView& list = form.lvOutput;
  std::vector<OutputRow> rows;
  for (int i = 0; i < list.Count(); ++i) rows.push_back({list.Item(i).text, list.SubItem(i, 1)});
  return rows;
}

std::vector<std::string> HostTypeConstants(const session::FormState& form) {
  static constexpr std::pair<InputType, const char*> kConstants[] = {
      {InputType::Geometrical, "bvGeometrical"},
      {InputType::Physical, "bvPhysical"},
      {InputType::Postprocess, "bvPostprocess"},
      {InputType::Problem, "bvProblem"},
  };
  std::vector<std::string> constants;
  std::string current;  // an unknown caption keeps the constant of the row before
  for (const InputRow& row : InputRows(form)) {
    for (const auto& [type, constant] : kConstants) {
      if (row.type == TypeCaption(type)) current = constant;
    }
    constants.push_back(current);
  }
  return constants;
}

bool IsAsynchronous(const session::FormState& form) { return form.chkAsync.value != 0; }

bool IsLinked(const session::FormState& form) {
  return form.optModelLink.value || form.optDataLink.value;
}

std::string SketchExtension(const session::FormState& form) {
  return platform::ExtensionName(form.edSketch);
}

}  // namespace generator
