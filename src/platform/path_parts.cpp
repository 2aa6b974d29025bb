#include "platform/path_parts.h"

#include <cctype>

namespace platform {
namespace {

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

bool HasDrive(std::string_view path) {
  return path.size() >= 2 && std::isalpha(static_cast<unsigned char>(path[0])) && path[1] == ':';
}

// Length of the path's root: "X:" or "X:\" for a drive, the leading separators
// otherwise ("\", "/", "\\"), 0 for a relative path.
std::size_t RootLength(std::string_view path) {
  std::size_t n = 0;
  if (HasDrive(path)) n = 2;
  while (n < path.size() && IsSeparator(path[n])) ++n;
  return n;
}

// The path without separators at its end, its root kept whole.
std::string_view TrimEnd(std::string_view path) {
  const std::size_t root = RootLength(path);
  while (path.size() > root && IsSeparator(path.back())) path.remove_suffix(1);
  return path;
}

// Position just after the last separator beyond the root (the start of the file name).
std::size_t NameStart(std::string_view trimmed) {
  const std::size_t root = RootLength(trimmed);
  for (std::size_t i = trimmed.size(); i > root; --i) {
    if (IsSeparator(trimmed[i - 1])) return i;
  }
  return root;
}

// The separator `path` is written with: its last one; without any, "\" for a drive.
char SeparatorOf(std::string_view path) {
  const std::size_t last = path.find_last_of("\\/");
  if (last != std::string_view::npos) return path[last];
  return HasDrive(path) ? '\\' : '/';
}

}  // namespace

std::string FileName(std::string_view path) {
  const std::string_view trimmed = TrimEnd(path);
  return std::string(trimmed.substr(NameStart(trimmed)));
}

std::string BaseName(std::string_view path) {
  const std::string name = FileName(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string::npos ? name : name.substr(0, dot);
}

std::string ExtensionName(std::string_view path) {
  const std::string name = FileName(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

std::string ParentFolder(std::string_view path) {
  const std::string_view trimmed = TrimEnd(path);
  const std::size_t start = NameStart(trimmed);
  if (start == trimmed.size()) return {};  // a root or nothing: no parent
  const std::size_t root = RootLength(trimmed);
  std::size_t end = start;
  while (end > root && IsSeparator(trimmed[end - 1])) --end;
  return std::string(trimmed.substr(0, end));
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && !IsSeparator(path.back())) path += SeparatorOf(folder);
  path += name;
  return path;
}

}  // namespace platform
