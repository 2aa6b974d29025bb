#include "wizard/model/session_folder.h"

#include "platform/path_parts.h"
#include "vbrt/error.h"

namespace wizard {

using platform::JoinPath;

SessionsFolderChoice PrepareSessionsFolder(platform::FileSystem& fs, PageChecks& checks,
                                     std::string_view programFolder,
                                     std::string_view userDataFolder) {
  const std::string beside = JoinPath(programFolder, kSessionsFolderName);
  if (fs.FolderExists(beside)) return {beside, false, false};
  try {
    fs.CreateFolder(beside);
    return {beside, false, true};
  } catch (const vbrt::VbError&) {
    // An installed program's folder is not the user's to write: keep sessions per user.
  }
  const std::string perUser = JoinPath(userDataFolder, kSessionsFolderName);
  if (fs.FolderExists(perUser)) return {perUser, true, false};
  return {perUser, true, checks.CreateFolderPath(perUser)};
}

std::string DefaultSessionFile(const platform::FileSystem& fs, std::string_view folder) {
  for (long n = 1;; ++n) {
    std::string path = JoinPath(folder, "Generation" + std::to_string(n) + ".bvg");
    if (!fs.FileExists(path)) return path;
  }
}

std::string NumberedSessionFile(const platform::FileSystem& fs, std::string_view path) {
  const std::string extension = platform::ExtensionName(path);
  const std::string stem = JoinPath(platform::ParentFolder(path), platform::BaseName(path));
  for (long n = 2;; ++n) {
    std::string numbered = stem + " " + std::to_string(n);
    if (!extension.empty()) numbered += "." + extension;
    if (!fs.Exists(numbered)) return numbered;
  }
}

}  // namespace wizard
