#pragma once
// Compares generated lines with a golden file under tests/golden/generator/sections/
// (or another folder under tests/golden/):
// one generated line per file line, the file ending with a newline after its last line
// (so a section that ends with two empty lines ends the file with three newlines).
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace generator::test {

// The lines of the LF text file at `path`, in the form described above.
inline std::vector<std::string> ReadLfLines(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot open golden file " + path);
  std::stringstream text;
  text << in.rdbuf();
  std::vector<std::string> lines;
  std::string all = text.str();
  if (all.empty()) return lines;
  all.pop_back();  // the newline after the last line
  size_t start = 0;
  while (true) {
    const size_t end = all.find('\n', start);
    lines.push_back(all.substr(start, end == std::string::npos ? std::string::npos : end - start));
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return lines;
}

inline std::vector<std::string> ReadGoldenLines(std::string_view name,
                                                std::string_view folder = "generator/sections") {
  return ReadLfLines(std::string(EOW_TEST_DIR) + "/golden/" + std::string(folder) + "/" +
                     std::string(name));
}

// Passes when `actual` equals the golden file line by line; otherwise names the first
// differing line with both texts (blanks made visible by the brackets).
inline ::testing::AssertionResult MatchesGolden(const std::vector<std::string>& actual,
                                                std::string_view name,
                                                std::string_view folder = "generator/sections") {
  const std::vector<std::string> expected = ReadGoldenLines(name, folder);
  const size_t common = std::min(expected.size(), actual.size());
  for (size_t i = 0; i < common; ++i) {
    if (expected[i] != actual[i]) {
      return ::testing::AssertionFailure()
             << name << " line " << i + 1 << ":\n  expected [" << expected[i]
             << "]\n  actual   [" << actual[i] << "]";
    }
  }
  if (expected.size() != actual.size()) {
    const bool missing = actual.size() < expected.size();
    return ::testing::AssertionFailure()
           << name << ": " << expected.size() << " lines expected, " << actual.size()
           << " generated; first " << (missing ? "missing" : "extra") << " line " << common + 1
           << " [" << (missing ? expected[common] : actual[common]) << "]";
  }
  return ::testing::AssertionSuccess();
}

}  // namespace generator::test
