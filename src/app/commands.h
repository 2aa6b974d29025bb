#pragma once
// The command-line subcommands; each file registers its own.
#include <memory>
#include <string>
#include <string_view>

#include "app/services.h"
#include "platform/analysis_application.h"
#include "platform/model_read_wait.h"
#include "platform/sandbox/sandboxed_application.h"
#include "platform/text_merger.h"

namespace app {

// Each adds its subcommand(s) to `cli`; the callback sets the exit code in `exitCode`.
void AddSessionCommands(CLI::App& cli, int& exitCode);
void AddModelCommands(CLI::App& cli, int& exitCode);
void AddGenerateCommand(CLI::App& cli, int& exitCode);
// The hidden command that reads one basic model for the program (ModelReaderCommand).
inline constexpr const char* kModelReaderCommand = "internal-model-reader";
void AddModelReaderCommand(CLI::App& cli, int& exitCode);

// Adds --model-time-limit SECONDS to `command`; it sets `limits.time` when parsed.
void AddModelTimeLimitOption(CLI::App& command, platform::sandbox::ReaderLimits& limits);

// This program's file run as a basic model's reader: it loads the analysis module (`need`
// names what needs it, for the message when it cannot: "Converting the basic model into
// code"), starts the application and serves one sandboxed read.
platform::sandbox::ReaderCommand ModelReaderCommand(std::string program, std::string_view need);

// The analysis application of this platform: every basic model is read by a reader of its
// own (ModelReaderCommand), within `limits`, waited for through `wait` (nullptr: without
// doing anything else meanwhile). The first reader starts at once; nullptr when it cannot
// start the application, after saying why on standard error.
std::unique_ptr<platform::AnalysisApplication> CreateAnalysisApplication(
    std::string_view need, const platform::sandbox::ReaderLimits& limits,
    platform::ModelReadWait* wait = nullptr);

// The text merger of the merge module, the module loaded on the first call. Throws
// ModuleError when it cannot be loaded; `need` names what needs it, for that message
// ("Showing the differences (--diff)").
platform::TextMerger& ModuleTextMerger(std::string_view need);
// ModuleTextMerger for a generation that merges the user's changes: its TextMergerSource.
platform::TextMerger& GenerationMerger();

// eowizard without a command: the wizard window, the add-in's host. The shared options
// make the services as for the commands (a wrong one ends the run with exit code 2
// before any window opens); then the window module is loaded and the wizard runs until
// it closes; its basic models are read within `modelLimits`. A non-empty `sessionFile`
// is loaded into the started wizard as if typed into the session-file field. Returns the
// exit code: 1 when there is no display, the window module cannot be loaded or the wizard
// could not start.
int RunWizardWindow(int& argc, char** argv, const std::string& sessionFile,
                    const ServiceOptions& options,
                    const platform::sandbox::ReaderLimits& modelLimits);

}  // namespace app
