#include "resources/string_table.h"

#include <algorithm>

#include "resources/string_table_data.h"
#include "vbrt/error.h"

namespace resources {
std::optional<std::string_view> FindString(int number) {
  const auto entries = StringEntries();
  const auto it = std::lower_bound(
      entries.begin(), entries.end(), number,
      [](const StringEntry& entry, int wanted) { return entry.number < wanted; });
  if (it == entries.end() || it->number != number) return std::nullopt;
  return it->text;
}

std::string LoadResString(int number) {
  const auto text = FindString(number);
  if (!text) vbrt::Raise(vbrt::kResourceNotFound);
  return std::string(*text);
}

std::vector<std::string> ListFrom(int base, int tries) {
  std::vector<std::string> texts;
  for (int number = base; number < base + tries; ++number) {
    if (const auto text = FindString(number)) texts.emplace_back(*text);
  }
  return texts;
}

std::string Compose(int before, std::string_view value, int after) {
  std::string text = LoadResString(before);
  text += value;
  text += LoadResString(after);
  return text;
}

}  // namespace resources
