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
  cli.require_subcommand(1);
  int exitCode = 0;
  app::AddSessionCommands(cli, exitCode);
  try {
    cli.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return cli.exit(e);
  } catch (const std::exception& e) {
    std::cerr << "eowizard: " << e.what() << "\n";
    return 1;
  }
  return exitCode;
}
