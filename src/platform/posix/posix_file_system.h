#pragma once
// The file system on Linux: Windows-form paths are mapped to POSIX files.
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace platform {

// Which folder each drive letter stands for.
class DriveMap {
 public:
  // The drives of the Wine prefix ($WINEPREFIX, or ~/.wine): drive X is the prefix's
  // "dosdevices/x:" when that exists. Explicit mappings added later win.
  static DriveMap FromEnvironment();

  // Adds a mapping given as "X=/dir" (the letter in either case). Throws
  // std::invalid_argument naming the mapping when it is not of that form.
  void Add(std::string_view mapping);
  // Maps `letter` to `folder`, replacing an earlier mapping.
  void Set(char letter, std::filesystem::path folder);

  // The folder of drive `letter` (either case), or nullopt when the drive is unknown.
  std::optional<std::filesystem::path> Folder(char letter) const;

 private:
  std::optional<std::filesystem::path> prefix_;  // dosdevices folder of the Wine prefix
  std::map<char, std::filesystem::path> explicit_;  // keyed by the upper-case letter
};

// FileSystem through std::filesystem. "\" and "/" both separate; "X:\..." goes through
// the drive map; a drive without a mapping names a path that does not exist; a relative
// path is relative to the current folder. Failures throw vbrt::VbError with the runtime's
// numbers and a description that names the path.
class PosixFileSystem : public FileSystem {
 public:
  explicit PosixFileSystem(DriveMap drives);

  std::filesystem::path ToNative(std::string_view path) const override;
  bool FolderExists(std::string_view path) const override;
  bool FileExists(std::string_view path) const override;
  bool Exists(std::string_view path) const override;
  std::string AbsolutePath(std::string_view path) const override;
  void CreateFolder(std::string_view path) override;
  void CopyFile(std::string_view from, std::string_view to) override;
  void DeleteFile(std::string_view path) override;

 private:
  DriveMap drives_;
};

}  // namespace platform
