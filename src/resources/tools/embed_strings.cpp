// Build-time tool: turns the string table (one "number<TAB>text" line each; empty lines
// and lines starting with '#' are comments) into a C++ source with one entry a line.
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: embed_strings TABLE.tsv OUTPUT.cpp\n";
    return 2;
  }
  std::ifstream in(argv[1], std::ios::binary);
  if (!in) {
    std::cerr << argv[1] << ": cannot open\n";
    return 1;
  }
  std::ostringstream body;
  std::map<long, std::string> entries;
  std::string line;
  int lineNo = 0;
  while (std::getline(in, line)) {
    ++lineNo;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    const size_t tab = line.find('\t');
    const std::string number = line.substr(0, tab);
    if (tab == std::string::npos || number.empty() ||
        number.find_first_not_of("0123456789") != std::string::npos) {
      std::cerr << argv[1] << ":" << lineNo << ": expected number<TAB>text\n";
      return 1;
    }
    const std::string text = line.substr(tab + 1);
    if (text.find(")eow\"") != std::string::npos) {
      std::cerr << argv[1] << ":" << lineNo << ": text contains the raw-string delimiter\n";
      return 1;
    }
    if (!entries.emplace(std::stol(number), text).second) {
      std::cerr << argv[1] << ":" << lineNo << ": number " << number << " twice\n";
      return 1;
    }
  }
  // In rising number order, so that a lookup is a binary search of constant data and the
  // program builds no index when it starts.
  for (const auto& [number, text] : entries) {
    body << "    {" << number << ", R\"eow(" << text << ")eow\"},\n";
  }
  std::ofstream out(argv[2], std::ios::binary);
  out << "// Generated from strings.tsv; do not edit.\n"
         "#include \"resources/string_table_data.h\"\n\n"
         "namespace resources {\n\n"
         "namespace {\n"
         "constexpr StringEntry kEntries[] = {\n"
      << body.str()
      << "};\n}  // namespace\n\n"
         "std::span<const StringEntry> StringEntries() { return kEntries; }\n\n"
         "}  // namespace resources\n";
  return out ? 0 : 1;
}
