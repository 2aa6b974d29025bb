// eowizard generate SESSION.bvg: generates the project of a saved wizard session, as the
// wizard's Finish button does, with the questions asked on the terminal.
#include <unistd.h>

#include <exception>
#include <iostream>
#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "app/commands.h"
#include "app/services.h"
#include "app/terminal_progress.h"
#include "generator/generator.h"
#include "platform/path_parts.h"
#include "platform/vbfiles/vb_files_environment.h"
#include "session/session_file.h"
#include "wizard/model/page_checks.h"

namespace app {
namespace {

struct GenerateOptions {
  ServiceOptions services;
  std::string session;
  std::string project;
};

int RunGenerate(const GenerateOptions& options) {
  Services services(options.services, std::cin, std::cout, StandardInputIsTerminal());
  wizard::PageChecks checks(services.fs, services.registry, services.prompter,
                            wizard::PageCheckOptions{.tellMissingFolder = true});
  session::FormState form;
  form.SetFieldHandlers(&checks);
  form.edFile = options.session;
  std::string message;
  if (!session::LoadSession(form, services.SessionIo(), options.session, message)) {
    std::cerr << "eowizard: "
              << (message.empty() ? session::IncompleteSessionMessage(options.session)
                                  : message)
              << "\n";
    return 1;
  }
  if (!options.project.empty()) {
    // The folder of a project named on the command line is made, as the wizard offers.
    checks.CreateFolderPath(services.fs.AbsolutePath(platform::ParentFolder(options.project)));
    form.SetText(session::TextField::Location, options.project);
  }
  if (form.theLocation.empty() || form.theName.empty()) {
    std::cerr << "eowizard: no project to generate: '" << form.edLocation
              << "' does not name a project file in an existing folder (see --project)\n";
    return 1;
  }

  // The analysis application is needed only to convert the basic model into code.
  std::unique_ptr<platform::AnalysisApplication> application;
  if (!form.optModelLink.value) {
    application = CreateAnalysisApplication("Converting the basic model into code");
  }

  platform::VbFilesEnvironment environment(services.fs, services.registry);
  TerminalProgress progress(std::cerr, ::isatty(STDERR_FILENO) == 1);
  generator::Generator generator(environment, application.get(), services.fs,
                                 services.registry, services.prompter, progress);
  if (!generator.Generate(form)) return 1;
  std::cout << "Files written:\n";
  for (const std::string& path : generator.WrittenFiles()) {
    std::cout << "  " << services.fs.ToNative(path).string() << "\n";
  }
  return 0;
}

}  // namespace

void AddGenerateCommand(CLI::App& cli, int& exitCode) {
  auto options = std::make_shared<GenerateOptions>();
  CLI::App* command = cli.add_subcommand(
      "generate", "Generate the exploring-object project of a wizard session (.bvg)");
  command->add_option("SESSION", options->session, "The session file")->required();
  command->add_option("--project", options->project,
                      "Generate the project at this .vbp path instead of the session's");
  AddServiceOptions(*command, options->services);
  command->callback([options, &exitCode] {
    try {
      exitCode = RunGenerate(*options);
    } catch (const std::exception& e) {
      std::cerr << "eowizard: " << e.what() << "\n";
      exitCode = 2;
    }
  });
}

}  // namespace app
