#pragma once
// The record's fields under their session-file keys, with each value as the session
// writer writes it. The writer and every other view of a record (the command line's
// listings) take the keys and texts from here, so that they always agree.
#include <string>
#include <string_view>
#include <vector>

#include "session/form_state.h"

namespace session {

// The wizard's title (string 10092): the APPLICATION value and the preamble's third line.
std::string WizardTitle();

struct Field {
  std::string_view key;
  std::string value;
};

// The thirteen keys of "[GENERAL]" in written order. Integers are written in decimal
// ("-1" for an unselected list); MODELCASE/DATACASE are "Generate" or "Load".
std::vector<Field> GeneralFields(const FormState& form);
// DESCRIPTION, TYPE, VARIABLE, UNIT, MIN, MAX, DEFAULT of lvInput row `row` (0-based).
std::vector<Field> InputFields(const FormState& form, int row);
// DESCRIPTION, KEY, ICON, VALUE of lvOutput row `row`; ICON is "" while the icon is unset.
std::vector<Field> OutputFields(const FormState& form, int row);

}  // namespace session
