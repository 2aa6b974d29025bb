#pragma once
// The code of one module as the development environment's editor holds it, and how a
// line is stored when it is inserted.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace platform::vbfiles {

// Whether the editor closes a string literal that `line` leaves open: an odd number of
// double quotes before any comment. A "'" outside a string, or a leading "Rem", starts a
// comment.
bool LeavesLiteralOpen(std::string_view line);

// The lines of a module, each ended by CR LF, exactly as they go into the module's file.
// They are kept in large blocks that are filled one after the other and never moved, so
// appending a line costs only its bytes, and the code of a large project takes memory
// proportional to its size. Inserting before the last line joins the blocks first: the
// development environment's users append almost always.
class CodeLines {
 public:
  int Count() const { return count_; }

  // Inserts the lines of `text` (split at CR LF, CR or LF) before line `index` (0-based;
  // Count() appends). A line that leaves a string literal open gets its closing double
  // quote. The caller checks `index`.
  void Insert(int index, std::string_view text);

  // Every line with its CR LF, in pieces that are written one after the other.
  std::vector<std::string_view> Pieces() const;

 private:
  void Append(std::string_view text);
  void AppendLine(std::string_view line);
  std::string Joined() const;

  std::vector<std::string> blocks_;
  int count_ = 0;
};

}  // namespace platform::vbfiles
