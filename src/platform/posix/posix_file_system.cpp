#include "platform/posix/posix_file_system.h"

#include <cctype>
#include <cstdlib>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "vbrt/error.h"

namespace platform {
namespace fs = std::filesystem;
namespace {

// Where a drive without a folder leads: under a regular file, so that nothing can
// exist there and nothing can be created there.
const fs::path kNowhere = "/dev/null/no-drive";

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

bool HasDrive(std::string_view path) {
  return path.size() >= 2 && std::isalpha(static_cast<unsigned char>(path[0])) && path[1] == ':';
}

char Upper(char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); }

// The parts of a path between its separators, "." dropped and ".." applied (never above
// the root).
std::vector<std::string> Segments(std::string_view rest) {
  std::vector<std::string> parts;
  std::string part;
  auto flush = [&] {
    if (part == "..") {
      if (!parts.empty()) parts.pop_back();
    } else if (!part.empty() && part != ".") {
      parts.push_back(part);
    }
    part.clear();
  };
  for (char c : rest) {
    if (IsSeparator(c)) {
      flush();
    } else {
      part += c;
    }
  }
  flush();
  return parts;
}

int NumberOf(const std::error_code& ec, int fallback) {
  if (ec == std::errc::no_such_file_or_directory) return fallback;
  if (ec == std::errc::permission_denied || ec == std::errc::operation_not_permitted ||
      ec == std::errc::read_only_file_system) {
    return vbrt::kPermissionDenied;
  }
  if (ec == std::errc::no_space_on_device) return vbrt::kDiskFull;
  return vbrt::kPathFileAccessError;
}

[[noreturn]] void Fail(int number, std::string_view what, std::string_view path) {
  throw vbrt::VbError(number, std::string(what) + " '" + std::string(path) + "'");
}

}  // namespace

DriveMap DriveMap::FromEnvironment() {
  DriveMap map;
  if (const char* prefix = std::getenv("WINEPREFIX"); prefix && *prefix) {
    map.prefix_ = fs::path(prefix) / "dosdevices";
  } else if (const char* home = std::getenv("HOME"); home && *home) {
    map.prefix_ = fs::path(home) / ".wine" / "dosdevices";
  }
  return map;
}

void DriveMap::Add(std::string_view mapping) {
  if (mapping.size() < 3 || !std::isalpha(static_cast<unsigned char>(mapping[0])) || mapping[1] != '=') {
    throw std::invalid_argument("drive mapping '" + std::string(mapping) +
                                "' is not of the form X=/folder");
  }
  Set(mapping[0], fs::absolute(fs::path(mapping.substr(2))));
}

void DriveMap::Set(char letter, fs::path folder) { explicit_[Upper(letter)] = std::move(folder); }

std::optional<fs::path> DriveMap::Folder(char letter) const {
  if (auto it = explicit_.find(Upper(letter)); it != explicit_.end()) return it->second;
  if (!prefix_) return std::nullopt;
  // Wine names the entries in lower case ("c:"); they are links to the drive's folder.
  const fs::path entry =
      *prefix_ / (std::string(1, static_cast<char>(std::tolower(Upper(letter)))) + ":");
  std::error_code ec;
  if (!fs::exists(entry, ec)) return std::nullopt;
  return entry;
}

PosixFileSystem::PosixFileSystem(DriveMap drives) : drives_(std::move(drives)) {}

fs::path PosixFileSystem::ToNative(std::string_view path) const {
  if (HasDrive(path)) {
    fs::path native = drives_.Folder(path[0]).value_or(kNowhere);
    for (const std::string& part : Segments(path.substr(2))) native /= part;
    return native;
  }
  std::string native(path);
  for (char& c : native) {
    if (c == '\\') c = '/';
  }
  return fs::path(native);
}

bool PosixFileSystem::FolderExists(std::string_view path) const {
  if (path.empty()) return false;
  std::error_code ec;
  return fs::is_directory(ToNative(path), ec);
}

bool PosixFileSystem::FileExists(std::string_view path) const {
  if (path.empty()) return false;
  std::error_code ec;
  return fs::is_regular_file(ToNative(path), ec);
}

bool PosixFileSystem::Exists(std::string_view path) const {
  if (path.empty()) return false;
  std::error_code ec;
  return fs::exists(ToNative(path), ec);
}

std::string PosixFileSystem::AbsolutePath(std::string_view path) const {
  if (HasDrive(path)) {
    // A drive path stays in drive form, with "\" between its parts.
    std::string result{Upper(path[0]), ':'};
    for (const std::string& part : Segments(path.substr(2))) result += "\\" + part;
    if (result.size() == 2) result += "\\";
    return result;
  }
  std::error_code ec;
  fs::path absolute = fs::absolute(ToNative(path), ec);
  if (ec) absolute = ToNative(path);
  std::string result = "/";
  for (const std::string& part : Segments(absolute.generic_string())) {
    if (result.size() > 1) result += "/";
    result += part;
  }
  return result;
}

void PosixFileSystem::CreateFolder(std::string_view path) {
  const fs::path native = ToNative(path);
  std::error_code ec;
  if (fs::exists(native, ec)) Fail(vbrt::kFileAlreadyExists, "File already exists:", path);
  if (!fs::create_directory(native, ec) || ec) {
    if (ec == std::errc::no_such_file_or_directory || ec == std::errc::not_a_directory) {
      Fail(vbrt::kPathNotFound, "Path not found:", path);
    }
    Fail(NumberOf(ec, vbrt::kPathNotFound), "Cannot create folder", path);
  }
}

void PosixFileSystem::CopyFile(std::string_view from, std::string_view to) {
  const fs::path source = ToNative(from);
  const fs::path target = ToNative(to);
  std::error_code ec;
  if (!fs::is_regular_file(source, ec)) Fail(vbrt::kFileNotFound, "File not found:", from);
  if (!fs::is_directory(target.parent_path().empty() ? fs::path(".") : target.parent_path(), ec)) {
    Fail(vbrt::kPathNotFound, "Path not found:", to);
  }
  if (!fs::copy_file(source, target, fs::copy_options::overwrite_existing, ec) || ec) {
    Fail(NumberOf(ec, vbrt::kPathNotFound), "Cannot copy to", to);
  }
}

void PosixFileSystem::DeleteFile(std::string_view path) {
  const fs::path native = ToNative(path);
  std::error_code ec;
  const fs::file_status status = fs::symlink_status(native, ec);
  if (!fs::exists(status)) Fail(vbrt::kFileNotFound, "File not found:", path);
  if (fs::is_directory(status)) Fail(vbrt::kPathFileAccessError, "Path/File access error:", path);
  if (!fs::remove(native, ec) || ec) Fail(NumberOf(ec, vbrt::kFileNotFound), "Cannot delete", path);
}

}  // namespace platform
