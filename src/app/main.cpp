// eowizard: generates exploring-object projects from wizard sessions.
#include <clocale>
#include <exception>
#include <iostream>

#include <CLI/CLI.hpp>

#include "app/commands.h"
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
  app::ServiceOptions windowOptions;
  app::AddServiceOptions(cli, windowOptions);
  platform::sandbox::ReaderLimits windowModelLimits;
  app::AddModelTimeLimitOption(cli, windowModelLimits);
  // The options before a command are the window's: refused rather than dropped.
  cli.parse_complete_callback([&cli] {
    if (cli.get_subcommands().empty()) return;
    for (const CLI::Option* option : cli.get_options()) {
      if (option->count() > 0 && option != cli.get_help_ptr()) {
        throw CLI::ValidationError(option->get_name(),
                                   "an option before a command is the window's; a command "
                                   "takes its options after its name");
      }
    }
  });
  int exitCode = 0;
  app::AddSessionCommands(cli, exitCode);
  app::AddModelCommands(cli, exitCode);
  app::AddGenerateCommand(cli, exitCode);
  app::AddModelReaderCommand(cli, exitCode);
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
  if (cli.get_subcommands().empty()) {
    return app::RunWizardWindow(argc, argv, sessionFile, windowOptions, windowModelLimits);
  }
  return exitCode;
}
