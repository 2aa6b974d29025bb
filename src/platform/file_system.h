#pragma once
// The scripting file-system object and the runtime's file copy and delete.
//
// Paths keep the form the user typed or the record holds (Windows form with "\" and
// drive letters, or POSIX form); the adapter maps them to files.
#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // The file a path names: "\" and "/" separate, a drive "X:" maps to its folder.
  virtual std::filesystem::path ToNative(std::string_view path) const = 0;

  virtual bool FolderExists(std::string_view path) const = 0;
  // A regular file (or a link to one): a device, FIFO or socket is no file.
  virtual bool FileExists(std::string_view path) const = 0;
  // Anything at all at the path: a file, a folder, a device, a FIFO or a socket.
  virtual bool Exists(std::string_view path) const = 0;
  // GetAbsolutePathName: the path made absolute against the current folder, in the
  // form it was given (a drive path stays a drive path).
  virtual std::string AbsolutePath(std::string_view path) const = 0;

  // Each throws vbrt::VbError when the operation fails.
  virtual void CreateFolder(std::string_view path) = 0;  // one level; parent must exist
  virtual void CopyFile(std::string_view from, std::string_view to) = 0;  // replaces `to`
  virtual void DeleteFile(std::string_view path) = 0;
};

}  // namespace platform
