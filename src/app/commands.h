#pragma once
// The command-line subcommands; each file registers its own.
#include <CLI/CLI.hpp>

namespace app {

// Each adds its subcommand(s) to `cli`; the callback sets the exit code in `exitCode`.
void AddSessionCommands(CLI::App& cli, int& exitCode);

}  // namespace app
