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

}  // namespace resources
