#pragma once
// The command-line subcommands; each file registers its own.
#include <CLI/CLI.hpp>
#include <memory>

#include "platform/analysis_application.h"

namespace app {

// Each adds its subcommand(s) to `cli`; the callback sets the exit code in `exitCode`.
void AddSessionCommands(CLI::App& cli, int& exitCode);
void AddModelCommands(CLI::App& cli, int& exitCode);
void AddGenerateCommand(CLI::App& cli, int& exitCode);

// The analysis application of this platform; nullptr when it cannot be launched.
std::unique_ptr<platform::AnalysisApplication> CreateAnalysisApplication();

}  // namespace app
