#pragma once
// The window front end: eowizard without a subcommand.
#include <string>

namespace app {

// Acts as the host of the add-in: connects the wizard, which opens its window, and runs
// the event loop until the wizard closes. A non-empty `sessionFile` is loaded into the
// wizard once it has started, as if typed into the session-file field. Returns the
// program's exit code: 1 when the wizard could not start.
int RunWizardWindow(int argc, char** argv, const std::string& sessionFile);

}  // namespace app
