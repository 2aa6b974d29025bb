#include "session/code_page_notice.h"

#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "vbrt/codepage.h"

namespace session {
namespace {

std::string Notice(std::string_view text, int ending) {
  const std::string unheld = vbrt::UnheldCharacters(text);
  if (unheld.empty()) return unheld;
  using resources::LoadResString;
  return LoadResString(resources::kUnheldBefore) + vbrt::AnsiCodePage() +
         LoadResString(resources::kUnheldMiddle) + unheld + LoadResString(ending);
}

}  // namespace

std::string CodePageWarning(std::string_view text) {
  return Notice(text, resources::kUnheldTextEnd);
}

std::string CodePagePathRefusal(std::string_view path) {
  return Notice(path, resources::kUnheldPathEnd);
}

}  // namespace session
