#include "wizard/generation_runner.h"

#include "generator/generator.h"
#include "wizard/progress_window.h"

namespace wizard {

GenerationRunner GenerationWithProgressWindow(platform::FileSystem& fs,
                                              const platform::Registry& registry,
                                              platform::Prompter& prompter) {
  return [&fs, &registry, &prompter](WizardForm& form) {
    ProgressWindow progress;
    generator::Generator generator(*form.VBI, form.ZX(), fs, registry, prompter, progress);
    return generator.Generate(form.State());
  };
}

}  // namespace wizard
