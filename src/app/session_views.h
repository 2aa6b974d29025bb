#pragma once
// The ways the command line shows a session record: a readable listing and JSON with the
// session file's own key names.
#include <optional>
#include <ostream>
#include <string>

#include "session/form_state.h"

namespace app {

// The general fields (combo texts beside their indices), then the input and output
// tables, columns aligned.
void WriteSessionListing(std::ostream& out, const session::FormState& form);

// {"result", "message", the thirteen general keys, "INPUT": [...], "OUTPUT": [...]}.
// `message` null when the reader left it unchanged. Integers are JSON numbers; ICON is
// null while unset.
void WriteSessionJson(std::ostream& out, const session::FormState& form, bool result,
                      const std::optional<std::string>& message);

}  // namespace app
