#pragma once
// Texts of the generated project that depend on a choice in the record: the problem
// settings chosen by list position, the input types and the sketch's extension.
//
// A text chosen by position is the string-table text of base number + the selected
// position. The sum is 16-bit: its overflow throws vbrt::VbError(kOverflow); a number the
// table does not hold (also when nothing is selected, position -1) throws
// vbrt::VbError(kResourceNotFound).
#include <string>
#include <string_view>
#include <vector>

#include "session/form_state.h"

namespace generator {

// Analysis-application identifiers of the problem settings ("zxHeatTransfer", ...).
std::string ProblemTypeId(const session::FormState& form);    // cmbType
std::string ProblemClassId(const session::FormState& form);   // cmbClass
std::string CoordinatesId(const session::FormState& form);    // cmbCoord
std::string LengthUnitsId(const session::FormState& form);    // cmbUnit

// Extension of the basic data file for cmbType, without the dot ("des", "dht", ...).
// Stress Analysis and Current Flow have each other's extension; the copy and every
// reference to the data file use this one table so that they agree.
std::string DataExtension(const session::FormState& form);
// Suffix of the field-point variable and type for cmbType, blanks included ("ES ", " ").
std::string FieldPointSuffix(const session::FormState& form);
// Suffix of the label-content type for cmbType ("ES", "HT", ...); crossed like the
// data extension.
std::string LabelSuffix(const session::FormState& form);

// The type captions of input parameters, as the input list shows them.
enum class InputType { Geometrical = 0, Physical = 1, Postprocess = 2, Problem = 3 };
std::string TypeCaption(InputType type);

// One input parameter as the section writers read it from its lvInput row. The texts
// point into the form and stay valid while the list is not changed.
struct InputRow {
  std::string_view description;  // row text
  std::string_view type;         // sub-item 1, the type caption
  std::string_view variable;     // sub-item 2
  std::string_view unit;         // sub-item 3
  std::string_view min;          // sub-item 4
  std::string_view max;          // sub-item 5
  std::string_view defaultValue; // sub-item 6
};
// The input parameters: the rows of lvInput before the "<new>" row, in list order.
std::vector<InputRow> InputRows(const session::FormState& form);
// The rows whose type caption is exactly the caption of `type`.
std::vector<InputRow> InputRowsOfType(const session::FormState& form, InputType type);

// One output parameter: row text and sub-item 1 of its lvOutput row.
struct OutputRow {
  std::string_view description;
  std::string_view value;
};
std::vector<OutputRow> OutputRows(const session::FormState& form);

// The host constant of each input row's type ("bvGeometrical", ...), one per input row.
// A row whose caption is none of the four keeps the constant of the row before it, ""
// for the first row.
std::vector<std::string> HostTypeConstants(const session::FormState& form);

// Whether the asynchronous interface is implemented: chkAsync not clear (a grayed box
// counts as set, as any non-zero check-box value does).
bool IsAsynchronous(const session::FormState& form);
// Whether a basic file is taken from a file at run time: optModelLink or optDataLink set.
bool IsLinked(const session::FormState& form);

// Extension of the sketch file (after the last dot of its file name, without the dot),
// "" when there is none.
std::string SketchExtension(const session::FormState& form);

}  // namespace generator
