#pragma once
// Where the section writers put the generated text.
#include <string_view>

namespace generator {

class Emitter {
 public:
  virtual ~Emitter() = default;
  // Appends `text` as the new last line of the class module / the "Custom" module.
  // Nothing is added to the text; errors of the development environment propagate.
  virtual void AddClassLine(std::string_view text) = 0;
  virtual void AddModuleLine(std::string_view text) = 0;
  // Advances the progress bar by `step`; never fails.
  virtual void StepProgress(int step) = 0;
};

}  // namespace generator
