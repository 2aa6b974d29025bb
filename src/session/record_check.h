#pragma once
// Problems in a session record that a later generation would run into: values the pages
// would have refused, and texts that would break the generated code.
#include <string>
#include <vector>

#include "session/form_state.h"

namespace session {

// One line per problem, naming the field and, for parameters, the row ("Input 2
// "Coil radius": ..."). Empty when the record is fit for generation. Changes nothing.
std::vector<std::string> CheckRecord(const FormState& form);

}  // namespace session
