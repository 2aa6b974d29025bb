#pragma once
// The command-line subcommands; each file registers its own.
#include <memory>
#include <string>
#include <string_view>

#include "app/services.h"
#include "platform/analysis_application.h"
#include "platform/text_merger.h"

namespace app {

// Each adds its subcommand(s) to `cli`; the callback sets the exit code in `exitCode`.
void AddSessionCommands(CLI::App& cli, int& exitCode);
void AddModelCommands(CLI::App& cli, int& exitCode);
void AddGenerateCommand(CLI::App& cli, int& exitCode);

// The analysis application of this platform, its module loaded on the first call;
// nullptr when it cannot be launched, after saying why on standard error. `need` names
// what needs it, for that message ("Converting the basic model into code").
std::unique_ptr<platform::AnalysisApplication> CreateAnalysisApplication(std::string_view need);

// The text merger of the merge module, the module loaded on the first call. Throws
// ModuleError when it cannot be loaded; `need` names what needs it, for that message
// ("Showing the differences (--diff)").
platform::TextMerger& ModuleTextMerger(std::string_view need);
// ModuleTextMerger for a generation that merges the user's changes: its TextMergerSource.
platform::TextMerger& GenerationMerger();

// eowizard without a command: the wizard window, the add-in's host. The shared options
// make the services as for the commands (a wrong one ends the run with exit code 2
// before any window opens); then the window module is loaded and the wizard runs until
// it closes. A non-empty `sessionFile` is loaded into the started wizard as if typed
// into the session-file field. Returns the exit code: 1 when there is no display, the
// window module cannot be loaded or the wizard could not start.
int RunWizardWindow(int& argc, char** argv, const std::string& sessionFile,
                    const ServiceOptions& options);

}  // namespace app
