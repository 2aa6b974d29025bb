#include "app/services.h"

#include <unistd.h>

#include <stdexcept>

#include <CLI/CLI.hpp>

#include "vbrt/codepage.h"

namespace app {
namespace {

platform::DriveMap DrivesOf(const ServiceOptions& options) {
  platform::DriveMap drives = platform::DriveMap::FromEnvironment();
  for (const std::string& mapping : options.drives) drives.Add(mapping);
  return drives;
}

platform::RegistryFiles RegistryOf(const ServiceOptions& options) {
  platform::RegistryFiles registry = platform::RegistryFiles::FromEnvironment();
  for (const std::string& file : options.registryFiles) registry.AddFile(file);
  return registry;
}

std::optional<platform::MsgAnswer> AnswerOf(const std::string& answer) {
  if (answer.empty()) return std::nullopt;
  if (answer == "yes") return platform::MsgAnswer::Yes;
  if (answer == "no") return platform::MsgAnswer::No;
  if (answer == "cancel") return platform::MsgAnswer::Cancel;
  if (answer == "merge") return platform::MsgAnswer::Merge;
  throw std::invalid_argument("--answer takes yes, no, cancel or merge, not '" + answer + "'");
}

// Applied before the other services are built, so that a wrong name stops the run first.
const ServiceOptions& WithCodePage(const ServiceOptions& options) {
  if (options.codePage.empty()) return options;
  try {
    vbrt::SetAnsiCodePage(options.codePage);
  } catch (const std::invalid_argument&) {
    throw std::invalid_argument("--codepage: the code page '" + options.codePage +
                                "' is unknown (see 'iconv --list' for the names)");
  }
  return options;
}

}  // namespace

void AddServiceOptions(CLI::App& command, ServiceOptions& options) {
  command
      .add_option("--drive", options.drives,
                  "Map a drive letter of Windows paths to a folder, as X=/dir (repeatable)")
      ->type_name("X=DIR");
  command
      .add_option("--registry", options.registryFiles,
                  "Read registry keys from this .reg export or hive file (repeatable; "
                  "EOWIZARD_REGISTRY names more, colon-separated)")
      ->type_name("FILE");
  command
      .add_option("--codepage", options.codePage,
                  "ANSI code page of session and generated files (iconv name; default "
                  "WINDOWS-1252)")
      ->type_name("NAME");
  command
      .add_option("--answer", options.answer,
                  "Answer every question so (otherwise questions are asked on a terminal); "
                  "merge merges files changed since they were generated, overwrites those "
                  "that were not and keeps other files under a new name")
      ->transform(CLI::IsMember({"yes", "no", "cancel", "merge"}, CLI::ignore_case));
}

bool StandardInputIsTerminal() { return ::isatty(STDIN_FILENO) == 1; }

SharedServices::SharedServices(const ServiceOptions& options)
    : fs(DrivesOf(WithCodePage(options))),
      registry(RegistryOf(options)),
      answer(AnswerOf(options.answer)) {}

Services::Services(const ServiceOptions& options, std::istream& in, std::ostream& messages,
                   bool inIsTerminal)
    : SharedServices(options), prompter(in, messages, inIsTerminal && !answer, answer) {}

}  // namespace app
