#pragma once
// The entries of the string table as generated from strings.tsv at build time.
#include <span>
#include <string_view>

namespace resources {

struct StringEntry {
  int number;
  std::string_view text;
};

// Every entry, in rising number order.
std::span<const StringEntry> StringEntries();

}  // namespace resources
