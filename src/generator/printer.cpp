#include "generator/printer.h"

#include <stdexcept>
#include <string>

namespace generator {
namespace {

// Writes `line` with its markers replaced into `result`.
void Substitute(std::string_view line, Vars vars, std::string& result) {
  result.clear();
  size_t pos = 0;
  while (pos < line.size()) {
    const size_t open = line.find('$', pos);
    if (open == std::string_view::npos) break;
    const size_t close = line.find('$', open + 1);
    if (close == std::string_view::npos) throw std::logic_error("unclosed $ marker in generated line");
    result.append(line.substr(pos, open - pos));
    const std::string_view name = line.substr(open + 1, close - open - 1);
    pos = close + 1;
    if (name.empty()) {  // "$$": a literal "$", as in Left$
      result.push_back('$');
      continue;
    }
    bool found = false;
    for (const auto& [varName, value] : vars) {
      if (varName == name) {
        result.append(value);
        found = true;
        break;
      }
    }
    if (!found) throw std::logic_error("no value for $" + std::string(name) + "$");
  }
  result.append(line.substr(pos));
}

}  // namespace

void Printer::Line(std::string_view line, Vars vars) {
  std::string_view text = line;
  if (line.find('$') != std::string_view::npos) {
    Substitute(line, vars, substituted_);
    text = substituted_;
  }
  if (target_ == Target::Class) {
    out_.AddClassLine(text);
  } else {
    out_.AddModuleLine(text);
  }
}

void Printer::Print(std::string_view block, Vars vars) {
  if (!block.empty() && block.front() == '\n') block.remove_prefix(1);
  if (!block.empty() && block.back() == '\n') block.remove_suffix(1);
  size_t start = 0;
  while (true) {
    const size_t end = block.find('\n', start);
    Line(block.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start),
         vars);
    if (end == std::string_view::npos) break;
    start = end + 1;
  }
}

}  // namespace generator
