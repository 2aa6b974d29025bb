#pragma once
// The entries of the string table as generated from strings.tsv at build time.
#include <string_view>
#include <vector>

namespace resources {

struct StringEntry {
  int number;
  std::string_view text;
};

// Every entry, in the order of the table file.
const std::vector<StringEntry>& StringEntries();

}  // namespace resources
