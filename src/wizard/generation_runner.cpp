#include "wizard/generation_runner.h"

#include "generator/generator.h"
#include "generator/merge_report.h"
#include "wizard/progress_window.h"

namespace wizard {

GenerationRunner GenerationWithProgressWindow(platform::FileSystem& fs,
                                              const platform::Registry& registry,
                                              platform::Prompter& prompter) {
  return [&fs, &registry, &prompter](WizardForm& form) {
    bool generated = false;
    {
      ProgressWindow progress;
      generator::Generator generator(*form.VBI, form.ZX(), fs, registry, prompter, progress);
      generated = generator.Generate(form.State());
    }
    // A run that merged ends with the merged files or their conflicts instead of the
    // generator's success message.
    const platform::Regeneration* regeneration = form.VBI->GetRegeneration();
    if (generated && regeneration != nullptr) {
      if (const auto outcome = generator::MergeOutcome(regeneration->Saved())) {
        prompter.Show(*outcome);
      }
    }
    return generated;
  };
}

}  // namespace wizard
