#pragma once
// The texts of the files that the development environment saves for a project and its
// components, and how a code line is stored when it is inserted. Texts are UTF-8 with
// CR LF line ends; the environment converts them to the ANSI code page when it writes.
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace platform::vbfiles {

// The line as the environment's editor stores it: a string literal that the line leaves
// open (an odd number of double quotes before any comment) gets a closing double quote.
// A "'" outside a string, or a leading "Rem", starts a comment.
std::string CloseOpenLiteral(std::string_view line);

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
// The .cls of a public, creatable class named `name` holding `lines`.
std::string ClassFileText(std::string_view name, const std::vector<std::string>& lines);
// The .bas of a standard module named `name` holding `lines`.
std::string ModuleFileText(std::string_view name, const std::vector<std::string>& lines);

// Replaces `target` with `bytes` through a temporary file beside it and a rename, so that
// the target never holds a half-written file. Throws vbrt::VbError naming the target.
void ReplaceFile(const std::filesystem::path& target, std::string_view bytes);

}  // namespace platform::vbfiles
