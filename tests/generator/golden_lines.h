#pragma once
// Compares generated lines with a golden file under tests/golden/ (by default in
// generator/sections/): one generated line per file line, each file line ended by LF
// (so a section that ends with two empty lines ends the file with three newlines).
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "../platform/scratch_folder.h"

namespace generator::test {

// The lines of `text`, each ended by `end`; a rest after the last `end` is a line of its own.
inline std::vector<std::string> SplitLines(const std::string& text, std::string_view end) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t at; (at = text.find(end, start)) != std::string::npos; start = at + end.size()) {
    lines.push_back(text.substr(start, at - start));
  }
  if (start < text.size()) lines.push_back(text.substr(start));
  return lines;
}

inline std::vector<std::string> ReadGoldenLines(std::string_view name,
                                                std::string_view folder = "generator/sections") {
  return SplitLines(ReadBytes(std::string(EOW_TEST_DIR) + "/golden/" + std::string(folder) + "/" +
                              std::string(name)),
                    "\n");
}

// Passes when the lines are equal; otherwise names the first difference of `file` with
// both texts (blanks made visible by the brackets).
inline ::testing::AssertionResult SameLines(std::string_view file,
                                            const std::vector<std::string>& expected,
                                            const std::vector<std::string>& actual) {
  const auto [e, a] = std::ranges::mismatch(expected, actual);
  if (e == expected.end() && a == actual.end()) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << file << " line " << e - expected.begin() + 1 << " of " << expected.size()
         << " expected, " << actual.size() << " generated:\n  expected ["
         << (e == expected.end() ? "<none>" : *e) << "]\n  actual   ["
         << (a == actual.end() ? "<none>" : *a) << "]";
}

// Passes when `text` is the golden file's bytes; otherwise names the first line that differs
// (lines ended by LF).
inline ::testing::AssertionResult MatchesGoldenText(const std::string& text, std::string_view name,
                                                    std::string_view folder) {
  const std::string golden = ReadBytes(std::string(EOW_TEST_DIR) + "/golden/" +
                                       std::string(folder) + "/" + std::string(name));
  if (text == golden) return ::testing::AssertionSuccess();
  const ::testing::AssertionResult lines =
      SameLines(name, SplitLines(golden, "\n"), SplitLines(text, "\n"));
  if (!lines) return lines;
  return ::testing::AssertionFailure() << name << ": the line ends differ";
}

inline ::testing::AssertionResult MatchesGolden(const std::vector<std::string>& actual,
                                                std::string_view name,
                                                std::string_view folder = "generator/sections") {
  return SameLines(name, ReadGoldenLines(name, folder), actual);
}

}  // namespace generator::test
