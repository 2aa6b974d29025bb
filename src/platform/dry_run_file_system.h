#pragma once
// A file system that reads through another and only pretends to change it: folders made,
// files copied and files deleted are noted, and later questions see them, but nothing on
// disk changes. A dry run of a generation works on it.
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace platform {

class DryRunFileSystem : public FileSystem {
 public:
  // `real` is read, never changed; it must outlive this object.
  explicit DryRunFileSystem(const FileSystem& real) : real_(real) {}

  std::filesystem::path ToNative(std::string_view path) const override;
  bool FolderExists(std::string_view path) const override;
  bool FileExists(std::string_view path) const override;
  bool Exists(std::string_view path) const override;
  std::string AbsolutePath(std::string_view path) const override;

  // Fail as the real operations would where the noted state says so (an existing
  // folder, a missing source or parent folder, a missing file), with vbrt::VbError.
  void CreateFolder(std::string_view path) override;
  void CopyFile(std::string_view from, std::string_view to) override;
  void DeleteFile(std::string_view path) override;

  // The folders that would have been made, in the order they were asked for.
  const std::vector<std::string>& CreatedFolders() const { return createdFolders_; }

 private:
  const FileSystem& real_;
  std::vector<std::string> createdFolders_;
  std::set<std::filesystem::path> folders_;  // made
  std::set<std::filesystem::path> files_;    // copied
  std::set<std::filesystem::path> deleted_;
};

}  // namespace platform
