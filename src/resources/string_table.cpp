#include "resources/string_table.h"

#include <unordered_map>

#include "resources/string_table_data.h"
#include "vbrt/error.h"

namespace resources {
namespace {

const std::unordered_map<int, std::string_view>& Index() {
  static const std::unordered_map<int, std::string_view> index = [] {
    std::unordered_map<int, std::string_view> map;
    for (const StringEntry& entry : StringEntries()) map.emplace(entry.number, entry.text);
    return map;
  }();
  return index;
}

}  // namespace

std::optional<std::string_view> FindString(int number) {
  const auto& index = Index();
  const auto it = index.find(number);
  if (it == index.end()) return std::nullopt;
  return it->second;
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
