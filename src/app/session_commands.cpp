// `eowizard session show|check|rewrite`: a session file read as the wizard reads it.
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>

#include <CLI/CLI.hpp>

#include "app/commands.h"
#include "app/services.h"
#include "app/session_views.h"
#include "session/form_state.h"
#include "session/record_check.h"
#include "session/session_file.h"
#include "wizard/model/page_checks.h"

namespace app {
namespace {

struct SessionOptions {
  ServiceOptions services;
  std::string file;
  std::string out;
  bool json = false;
};

// A record loaded the way the wizard loads one: the path fields run the pages' checks,
// whose notices go to standard error.
struct LoadedSession {
  explicit LoadedSession(const SessionOptions& options)
      : services(options.services, std::cin, std::cerr, StandardInputIsTerminal()),
        checks(services.fs, services.registry, services.prompter,
               wizard::PageCheckOptions{.tellMissingFolder = true}) {
    form.SetFieldHandlers(&checks);
    result = session::LoadSession(form, services.SessionIo(), options.file, message);
  }

  Services services;
  wizard::PageChecks checks;
  session::FormState form;
  std::string message;  // stays empty when the reader leaves it unchanged
  bool result = false;
};

// Tells why a load failed, in the reader's words and with what the reader cannot know.
void ReportFailedLoad(const LoadedSession& loaded, const std::string& path) {
  if (!loaded.message.empty()) {
    std::cerr << "eowizard: " << loaded.message << "\n";
  } else {
    std::cerr << "eowizard: " << session::IncompleteSessionMessage(path) << "\n";
  }
  const platform::FileSystem& fs = loaded.services.fs;
  if (fs.FolderExists(path)) {
    std::cerr << "eowizard: '" << path << "' is a folder, not a session file\n";
  } else if (!fs.Exists(path)) {
    std::cerr << "eowizard: there is no file '" << path << "'\n";
  } else if (!fs.FileExists(path)) {
    std::cerr << "eowizard: '" << path << "' is a device, FIFO or socket, not a session file\n";
  }
}

int Show(const SessionOptions& options) {
  const LoadedSession loaded(options);
  if (options.json) {
    WriteSessionJson(std::cout, loaded.form, loaded.result,
                     loaded.message.empty() ? std::nullopt
                                            : std::optional<std::string>(loaded.message));
    return loaded.result ? 0 : 1;
  }
  if (!loaded.result) {
    ReportFailedLoad(loaded, options.file);
    return 1;
  }
  std::cout << "Session file " << options.file << "\n\n";
  WriteSessionListing(std::cout, loaded.form);
  return 0;
}

// 0: fit for generation; 1: problems found; 2: the file cannot be read.
int Check(const SessionOptions& options) {
  const LoadedSession loaded(options);
  if (!loaded.result) {
    ReportFailedLoad(loaded, options.file);
    return 2;
  }
  std::vector<std::string> problems = session::CheckRecord(loaded.form);
  // What the reader's code page made of the file's own text, which the record no longer shows.
  std::ifstream file(loaded.services.fs.ToNative(options.file), std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  for (std::string& problem : session::CheckFileText(bytes)) problems.push_back(std::move(problem));
  for (const std::string& problem : problems) std::cout << problem << "\n";
  if (problems.empty()) {
    std::cout << options.file << ": no problems found\n";
    return 0;
  }
  std::cout << options.file << ": " << problems.size()
            << (problems.size() == 1 ? " problem\n" : " problems\n");
  return 1;
}

int Rewrite(const SessionOptions& options) {
  LoadedSession loaded(options);
  if (!loaded.result) {
    ReportFailedLoad(loaded, options.file);
    std::cerr << "eowizard: nothing written\n";
    return 1;
  }
  if (options.out.empty()) {
    std::cerr << "eowizard: the output path is empty: nothing written\n";
    return 1;
  }
  std::string message;
  if (!session::SaveSession(loaded.form, loaded.services.SessionIo(), options.out, message)) {
    std::cerr << "eowizard: " << message << "\n";
    return 1;
  }
  std::cout << "Wrote " << options.out << " (" << loaded.form.InputCount() << " input and "
            << loaded.form.lvOutput.Count() << " output parameters)\n";
  return 0;
}

// Runs a command; an option that the services refuse ends it with the reason.
template <typename Command>
int Run(Command command, const SessionOptions& options) {
  try {
    return command(options);
  } catch (const std::exception& e) {
    std::cerr << "eowizard: " << e.what() << "\n";
    return 2;
  }
}

}  // namespace

void AddSessionCommands(CLI::App& cli, int& exitCode) {
  CLI::App* session = cli.add_subcommand("session", "Read, check and rewrite session files (.bvg)");
  session->require_subcommand(1);
  auto options = std::make_shared<SessionOptions>();

  CLI::App* show = session->add_subcommand("show", "Show the settings a session file holds");
  show->add_option("FILE", options->file, "Session file")->required();
  show->add_flag("--json", options->json,
                 "Print JSON with the file's key names, also after a failed load");
  AddServiceOptions(*show, options->services);
  show->callback([options, &exitCode] { exitCode = Run(Show, *options); });

  CLI::App* check = session->add_subcommand(
      "check", "Report what a generation from the session file would stumble over "
               "(exit 1 when anything is found, 2 when the file cannot be read)");
  check->add_option("FILE", options->file, "Session file")->required();
  AddServiceOptions(*check, options->services);
  check->callback([options, &exitCode] { exitCode = Run(Check, *options); });

  CLI::App* rewrite = session->add_subcommand(
      "rewrite", "Load a session file and save it again, as the wizard does");
  rewrite->add_option("IN", options->file, "Session file to read")->required();
  rewrite->add_option("OUT", options->out, "Session file to write (replaced)")->required();
  AddServiceOptions(*rewrite, options->services);
  rewrite->callback([options, &exitCode] { exitCode = Run(Rewrite, *options); });
}

}  // namespace app
