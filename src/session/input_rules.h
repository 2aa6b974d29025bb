#pragma once
// The rules an input parameter's description and variable keep: the input page refuses
// an edit that breaks them, and the check of a session record reports a row that does.
#include <string_view>

namespace session {

// Why `text` cannot be a parameter's description, as the string number of the refusal:
// it is empty, a number, or `taken` by another row (the "<new>" row counts); 0 when it can.
int DescriptionRefusal(std::string_view text, bool taken);

// Why `text` cannot be a parameter's variable: it is empty, does not begin with an ASCII
// letter (only the first character is looked at), or is `taken` by another row; 0 when
// it can.
int VariableRefusal(std::string_view text, bool taken);

}  // namespace session
