#pragma once
// Where the wizard keeps its session files, and the name it proposes for a new one.
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "wizard/model/page_checks.h"

namespace wizard {

inline constexpr std::string_view kSessionsFolderName = "WizardSessions";

// Where the sessions folder ended up.
struct SessionsFolderChoice {
  std::string path;
  // True when the program folder could not take it and the per-user folder did.
  bool fellBack = false;
  // True when this call created the folder.
  bool created = false;
};

// Makes sure the sessions folder exists: "WizardSessions" in `programFolder`, created
// (one level) when missing. When it cannot be created there, "WizardSessions" in
// `userDataFolder` is used instead, created with every missing parent by `checks`. If
// even that fails, its path is still returned: saving a session there tells the user.
SessionsFolderChoice PrepareSessionsFolder(platform::FileSystem& fs, PageChecks& checks,
                                     std::string_view programFolder,
                                     std::string_view userDataFolder);

// The full path of "Generation<n>.bvg" in `folder` for the first n = 1, 2, 3, ... whose
// file does not exist there. Nothing is written.
std::string DefaultSessionFile(const platform::FileSystem& fs, std::string_view folder);

// The path of "<name> <n>.<extension>" beside `path` ("<folder>\<name>.<extension>") for
// the first n = 2, 3, ... at which nothing exists: where a session goes that must not
// replace the file at `path`. Nothing is written.
std::string NumberedSessionFile(const platform::FileSystem& fs, std::string_view path);

}  // namespace wizard
