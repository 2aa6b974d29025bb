#pragma once
// The texts of the files that the development environment saves for a project and its
// components. Texts are UTF-8 with CR LF line ends; the environment converts them to the
// ANSI code page when it writes.
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace platform::vbfiles {

struct TypeLibReference {
  std::string guid;  // "{...}"
  int major = 0;
  int minor = 0;
  std::string path;
  std::string description;
};

struct ComponentEntry {
  bool isClass = false;  // a class module, else a standard module
  std::string name;
  std::string file;  // as the project file names it
};

struct ProjectFile {
  std::string name;
  std::string description;
  std::vector<TypeLibReference> references;
  std::vector<ComponentEntry> components;
};

// The .vbp of an ActiveX DLL project.
std::string ProjectFileText(const ProjectFile& project);
// What the .cls of a public, creatable class named `name` holds before its code (the
// class's lines, each ended by CR LF, follow it in the file).
std::string ClassFileHeader(std::string_view name);
// What the .bas of a standard module named `name` holds before its code.
std::string ModuleFileHeader(std::string_view name);

// Replaces `target` with the bytes of `parts`, one after the other, through a temporary
// file beside it and a rename, so that the target never holds a half-written file.
// Throws vbrt::VbError naming the target.
void ReplaceFile(const std::filesystem::path& target, std::span<const std::string_view> parts);

}  // namespace platform::vbfiles
