#pragma once
// Problems in a session record that a later generation would run into: values the pages
// would have refused, and texts that would break the generated code.
#include <string>
#include <string_view>
#include <vector>

#include "session/form_state.h"

namespace session {

// One line per problem, naming the field and, for parameters, the row ("Input 2
// "Coil radius": ..."). Empty when the record is fit for generation. Changes nothing.
std::vector<std::string> CheckRecord(const FormState& form);

// For a project, model, data or sketch path: why it is not taken when it holds a control
// character (one that breaks a generated line, or a tab), which no file name can hold (a
// NUL would cut the name short where the files are opened): "The path holds the control
// character NUL (code 0), which no file name can hold, so it is not taken."; "" when it
// holds none.
std::string ControlCharacterPathRefusal(std::string_view path);

// The first of the record's project, model, data and sketch paths that holds a control
// character, as its session key and why: "PROJECT: The path holds ..."; "" when none does.
std::string RefusedPathField(const FormState& form);

// One line per line of a session file's bytes that the code page does not read as it was
// written: UTF-8 text (as an editor writes it), which the code page reads as other
// characters, naming those the code page cannot hold at all; and bytes the code page does
// not define, which are read as "?". "line 11 AUTHOR: ...". Empty when every line reads
// as written.
std::vector<std::string> CheckFileText(std::string_view file);

}  // namespace session
