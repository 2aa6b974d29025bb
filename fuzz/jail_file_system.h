#pragma once
// A file system that keeps every path inside one folder: drive letters, "." and ".." are
// dropped and the rest is taken relative to the root. Fuzzed sessions name arbitrary paths
// (/dev/zero as a basic model, / as the project folder); inside the jail they can neither
// read devices nor write beside the user's files.
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/posix/posix_file_system.h"

namespace hardening {

class JailFileSystem : public platform::FileSystem {
 public:
  explicit JailFileSystem(std::filesystem::path root)
      : root_(std::move(root)), posix_(platform::DriveMap{}) {}

  const std::filesystem::path& Root() const { return root_; }

  std::filesystem::path ToNative(std::string_view path) const override {
    std::filesystem::path native = root_;
    std::string part;
    const auto flush = [&] {
      const bool drive = part.size() == 2 && part[1] == ':';
      if (!part.empty() && part != "." && part != ".." && !drive) native /= part;
      part.clear();
    };
    for (const char c : path) {
      if (c == '\\' || c == '/') {
        flush();
      } else {
        part += c;
      }
    }
    flush();
    return native;
  }

  bool FolderExists(std::string_view path) const override {
    return posix_.FolderExists(Mapped(path));
  }
  bool FileExists(std::string_view path) const override { return posix_.FileExists(Mapped(path)); }
  bool Exists(std::string_view path) const override { return posix_.Exists(Mapped(path)); }
  std::string AbsolutePath(std::string_view path) const override { return std::string(path); }
  void CreateFolder(std::string_view path) override { posix_.CreateFolder(Mapped(path)); }
  void CopyFile(std::string_view from, std::string_view to) override {
    posix_.CopyFile(Mapped(from), Mapped(to));
  }
  void DeleteFile(std::string_view path) override { posix_.DeleteFile(Mapped(path)); }

 private:
  std::string Mapped(std::string_view path) const { return ToNative(path).string(); }

  std::filesystem::path root_;
  platform::PosixFileSystem posix_;
};

}  // namespace hardening
