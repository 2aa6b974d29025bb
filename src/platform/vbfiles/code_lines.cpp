#include "platform/vbfiles/code_lines.h"

#include <algorithm>
#include <cctype>

#include "vbrt/line_end.h"

namespace platform::vbfiles {
namespace {

constexpr std::string_view kCrLf = "\r\n";
// Large enough that a big module needs few blocks, small enough that a small one wastes
// little (and what a block does not use yet is never touched).
constexpr std::size_t kBlockSize = 256 * 1024;

bool StartsWithRem(std::string_view line) {
  std::size_t i = 0;
  while (i < line.size() && (line[i] == ' ' || line[i] == '\t')) ++i;
  if (line.size() - i < 3) return false;
  for (std::size_t k = 0; k < 3; ++k) {
    if (std::tolower(static_cast<unsigned char>(line[i + k])) != "rem"[k]) return false;
  }
  return line.size() == i + 3 || line[i + 3] == ' ' || line[i + 3] == '\t';
}

}  // namespace

bool LeavesLiteralOpen(std::string_view line) {
  // Most generated lines hold no string at all; they need no closer look.
  std::size_t open = line.find('"');
  if (open == std::string_view::npos || StartsWithRem(line)) return false;
  std::size_t code = 0;  // where the code after the last closed string resumes
  while (open != std::string_view::npos) {
    // A "'" in the code before the string starts a comment that runs to the line's end.
    if (line.substr(code, open - code).find('\'') != std::string_view::npos) return false;
    const std::size_t close = line.find('"', open + 1);
    if (close == std::string_view::npos) return true;
    code = close + 1;
    open = line.find('"', code);
  }
  return false;
}

void CodeLines::Insert(int index, std::string_view text) {
  if (index == Count()) {
    Append(text);
    return;
  }
  // Stored lines hold no CR or LF of their own, so line `index` starts after the
  // index-th CR LF.
  std::string code = Joined();
  std::size_t offset = 0;
  for (int line = 0; line < index; ++line) offset = code.find(kCrLf, offset) + kCrLf.size();
  CodeLines inserted;
  inserted.Append(text);
  code.insert(offset, inserted.Joined());
  blocks_.clear();
  blocks_.push_back(std::move(code));
  count_ += inserted.count_;
}

std::vector<std::string_view> CodeLines::Pieces() const {
  return {blocks_.begin(), blocks_.end()};
}

void CodeLines::Append(std::string_view text) {
  std::size_t start = 0;
  while (true) {
    const std::size_t end = start + vbrt::FindLineEnd(text.substr(start));
    AppendLine(text.substr(start, end - start));
    if (end == text.size()) break;
    start = end + (text.compare(end, 2, kCrLf) == 0 ? 2 : 1);
  }
}

void CodeLines::AppendLine(std::string_view line) {
  const bool closeLiteral = LeavesLiteralOpen(line);
  const std::size_t size = line.size() + (closeLiteral ? 1 : 0) + kCrLf.size();
  if (blocks_.empty() || blocks_.back().capacity() - blocks_.back().size() < size) {
    blocks_.emplace_back().reserve(std::max(kBlockSize, size));
  }
  std::string& block = blocks_.back();
  block += line;
  if (closeLiteral) block += '"';
  block += kCrLf;
  ++count_;
}

std::string CodeLines::Joined() const {
  std::string code;
  for (const std::string& block : blocks_) code += block;
  return code;
}

}  // namespace platform::vbfiles
