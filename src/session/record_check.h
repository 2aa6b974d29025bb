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

// One line per line of a session file's bytes that the code page does not read as it was
// written: UTF-8 text (as an editor writes it), which the code page reads as other
// characters, naming those the code page cannot hold at all; and bytes the code page does
// not define, which are read as "?". "line 11 AUTHOR: ...". Empty when every line reads
// as written.
std::vector<std::string> CheckFileText(std::string_view file);

}  // namespace session
