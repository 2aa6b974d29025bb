#include "wizard/file_filter.h"

#include <vector>

namespace wizard {
namespace {

std::vector<std::string> SplitAt(std::string_view text, char separator) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  while (true) {
    const auto end = text.find(separator, start);
    parts.emplace_back(text.substr(start, end - start));
    if (end == std::string_view::npos) return parts;
    start = end + 1;
  }
}

std::string QtPatterns(std::string_view patterns) {
  std::string joined;
  for (const auto& pattern : SplitAt(patterns, ';')) {
    if (pattern.empty()) continue;
    if (!joined.empty()) joined += ' ';
    joined += pattern == "*.*" ? "*" : pattern;
  }
  return joined;
}

std::string Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

}  // namespace

std::string QtFileFilter(std::string_view vbFilter) {
  const auto parts = SplitAt(vbFilter, '|');
  std::string result;
  for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
    const std::string description = Trimmed(parts[i]);
    const std::string patterns = QtPatterns(parts[i + 1]);
    const std::string shown = "(" + patterns + ")";
    if (!result.empty()) result += ";;";
    if (description.size() >= shown.size() &&
        description.compare(description.size() - shown.size(), shown.size(), shown) == 0) {
      result += description;
    } else {
      result += description.empty() ? shown : description + " " + shown;
    }
  }
  return result;
}

}  // namespace wizard
