#pragma once
// Generation from the window: the generator with the progress window.
#include "platform/file_system.h"
#include "platform/prompter.h"
#include "platform/registry.h"
#include "wizard/model/wizard_form.h"

namespace wizard {

// Runs the generator on a form's settings in its development environment (VBI) with its
// analysis application, showing a progress window while it works; after a run that merged
// the new code into files the user had changed, one message box names the merged files or
// the conflicts' files and lines. The services must outlive the runner.
GenerationRunner GenerationWithProgressWindow(platform::FileSystem& fs,
                                              const platform::Registry& registry,
                                              platform::Prompter& prompter);

}  // namespace wizard
