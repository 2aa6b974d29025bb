#pragma once
// The platform services of one run, built from the options every command and the window
// share: --drive, --registry, --codepage and --answer.
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "platform/posix/posix_file_system.h"
#include "platform/prompt/console_prompter.h"
#include "platform/regfile/registry_files.h"
#include "session/session_file.h"
#include "vbrt/file_table.h"

// Only the files that add options include CLI11: each one builds its validators when
// the program starts.
namespace CLI {
class App;
}  // namespace CLI

namespace app {

struct ServiceOptions {
  std::vector<std::string> drives;         // "X=/dir", each maps a drive letter
  std::vector<std::string> registryFiles;  // registry files read after EOWIZARD_REGISTRY's
  std::string codePage;                    // iconv name of the ANSI code page; "" keeps it
  std::string answer;  // "yes", "no", "cancel", "merge" or "" (ask on a terminal)
};

// Adds the shared options to `command`; they fill `options` when it is parsed.
void AddServiceOptions(CLI::App& command, ServiceOptions& options);

// True when standard input is a terminal, so that questions can be asked there.
bool StandardInputIsTerminal();

// What the shared options make, for the commands and the window alike.
struct SharedServices {
  // Sets the code page, reads the drive map and the registry files. Throws
  // std::invalid_argument or std::runtime_error with a text for the user when an option
  // is wrong or a registry file cannot be read.
  explicit SharedServices(const ServiceOptions& options);

  platform::PosixFileSystem fs;
  platform::RegistryFiles registry;
  std::optional<platform::MsgAnswer> answer;  // --answer; none: questions are asked
};

// The services of one command run. Members refer to each other: neither copied nor moved.
class Services : public SharedServices {
 public:
  // The shared services; messages go to `messages`; questions are answered by --answer,
  // else asked on `in` when `inIsTerminal`, else answered Cancel with a note. Throws as
  // SharedServices does.
  Services(const ServiceOptions& options, std::istream& in, std::ostream& messages,
           bool inIsTerminal);
  Services(const Services&) = delete;
  Services& operator=(const Services&) = delete;

  platform::ConsolePrompter prompter;
  vbrt::FileTable files;

  session::SessionIo SessionIo() { return {files, fs}; }
};

}  // namespace app
