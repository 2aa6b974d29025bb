#pragma once
// Writes a block of generated text line by line, splicing in values at marked places.
//
// A block is written in the source as a raw string that reads like the code it
// produces:
//
//   out.Print(R"(
//   Private Sub Class_Initialize()
//       theName = "$name$"
//   End Sub
//   )", {{"name", project}});
//
// The newline right after R"( and the one before )" are not lines of their own; every
// other newline ends one line, so an empty line in the block is an empty generated line.
// `$name$` is replaced by the value given for `name`; inserted values are not scanned
// again. A literal `$` is written `$$` (`Left$$(s, 1)` gives `Left$(s, 1)`). A marker
// without a value is a programming error (std::logic_error).
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "generator/emitter.h"

namespace generator {

using Vars = std::initializer_list<std::pair<std::string_view, std::string_view>>;

class Printer {
 public:
  enum class Target { Class, Module };
  Printer(Emitter& out, Target target) : out_(out), target_(target) {}

  void Print(std::string_view block, Vars vars = {});
  // One line, with the same substitution.
  void Line(std::string_view line, Vars vars = {});

 private:
  Emitter& out_;
  Target target_;
  std::string substituted_;  // the last line with its values, reused from line to line
};

}  // namespace generator
