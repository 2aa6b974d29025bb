// eowizard: generates exploring-object projects from wizard sessions.
#include <clocale>
#include <exception>
#include <iostream>

#include <CLI/CLI.hpp>

#include "app/commands.h"
#include "app/gui_main.h"
#include "vbrt/numbers.h"

int main(int argc, char** argv) {
  // The user's numeric locale is captured before any library can change it.
  vbrt::SetUserNumberFormat(vbrt::CaptureUserNumberFormat());

  CLI::App cli{"eowizard - exploring-object project wizard"};
  // Without a subcommand the wizard window opens.
  cli.require_subcommand(0, 1);
  cli.set_version_flag("--version", "eowizard " EOWIZARD_VERSION);
  std::string sessionFile;
  cli.add_option("--session", sessionFile, "Open the wizard with this session file loaded");
  int exitCode = 0;
  app::AddSessionCommands(cli, exitCode);
  app::AddModelCommands(cli, exitCode);
  app::AddGenerateCommand(cli, exitCode);
  try {
    cli.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    // --help and --version end well; any other mistake on the command line is a usage
    // error, exit code 2 as with other command-line tools.
    return cli.exit(e) == 0 ? 0 : 2;
  } catch (const std::exception& e) {
    std::cerr << "eowizard: " << e.what() << "\n";
    return 1;
  }
  if (cli.get_subcommands().empty()) return app::RunWizardWindow(argc, argv, sessionFile);
  return exitCode;
}
