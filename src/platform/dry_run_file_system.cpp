#include "platform/dry_run_file_system.h"

#include "platform/path_parts.h"
#include "vbrt/error.h"

namespace platform {
namespace {

[[noreturn]] void Fail(int number, std::string_view what, std::string_view path) {
  throw vbrt::VbError(number, std::string(what) + " '" + std::string(path) + "'");
}

}  // namespace

std::filesystem::path DryRunFileSystem::ToNative(std::string_view path) const {
  return real_.ToNative(path);
}

bool DryRunFileSystem::FolderExists(std::string_view path) const {
  return folders_.contains(ToNative(path)) || real_.FolderExists(path);
}

bool DryRunFileSystem::FileExists(std::string_view path) const {
  const std::filesystem::path file = ToNative(path);
  if (deleted_.contains(file)) return false;
  return files_.contains(file) || real_.FileExists(path);
}

bool DryRunFileSystem::Exists(std::string_view path) const {
  const std::filesystem::path native = ToNative(path);
  if (folders_.contains(native) || files_.contains(native)) return true;
  return !deleted_.contains(native) && real_.Exists(path);
}

std::string DryRunFileSystem::AbsolutePath(std::string_view path) const {
  return real_.AbsolutePath(path);
}

void DryRunFileSystem::CreateFolder(std::string_view path) {
  if (Exists(path)) {
    Fail(vbrt::kFileAlreadyExists, "File already exists:", path);
  }
  const std::string parent = ParentFolder(path);
  if (!parent.empty() && !FolderExists(parent)) Fail(vbrt::kPathNotFound, "Path not found:", path);
  folders_.insert(ToNative(path));
  createdFolders_.emplace_back(path);
}

void DryRunFileSystem::CopyFile(std::string_view from, std::string_view to) {
  if (!FileExists(from)) Fail(vbrt::kFileNotFound, "File not found:", from);
  const std::string parent = ParentFolder(to);
  if (!parent.empty() && !FolderExists(parent)) Fail(vbrt::kPathNotFound, "Path not found:", to);
  const std::filesystem::path file = ToNative(to);
  deleted_.erase(file);
  files_.insert(file);
}

void DryRunFileSystem::DeleteFile(std::string_view path) {
  if (!FileExists(path)) Fail(vbrt::kFileNotFound, "File not found:", path);
  const std::filesystem::path file = ToNative(path);
  files_.erase(file);
  deleted_.insert(file);
}

}  // namespace platform
