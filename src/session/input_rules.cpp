#include "session/input_rules.h"

#include "resources/string_ids.h"
#include "vbrt/numbers.h"

namespace session {

int DescriptionRefusal(std::string_view text, bool taken) {
  if (text.empty()) return resources::kDescriptionEmpty;
  if (vbrt::IsNumeric(text)) return resources::kDescriptionNumeric;
  return taken ? resources::kDescriptionNotUnique : 0;
}

int VariableRefusal(std::string_view text, bool taken) {
  if (text.empty()) return resources::kVariableEmpty;
  const char first = text.front();
  if (!((first >= 'a' && first <= 'z') || (first >= 'A' && first <= 'Z'))) {
    return resources::kVariableInvalid;
  }
  return taken ? resources::kVariableNotUnique : 0;
}

}  // namespace session
