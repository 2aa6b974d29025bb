#pragma once
// Compiled help files (.chm): the topics and pictures stored inside them.
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct chmFile;

namespace platform {

// A help reference "<file>.chm::/<path inside>" split at its first "::".
struct HelpReference {
  std::string file;   // the help file's path, as given
  std::string topic;  // the object's path inside the file, starting with "/"
};

// Splits `reference`; nullopt when it has no "::" or nothing after it. A topic without a
// leading "/" gets one, as the help system resolves it from the file's root.
std::optional<HelpReference> SplitHelpReference(std::string_view reference);

// One opened help file; read-only.
class ChmArchive {
 public:
  // nullopt when the file is missing or is no compiled help file.
  static std::optional<ChmArchive> Open(const std::filesystem::path& file);

  // The bytes of the object at `path` ("/HTML/Wizard.htm"); nullopt when the file holds
  // no such object or it cannot be read.
  std::optional<std::string> Read(std::string_view path) const;

 private:
  struct Closer {
    void operator()(chmFile* file) const;
  };
  explicit ChmArchive(chmFile* file) : file_(file) {}
  std::unique_ptr<chmFile, Closer> file_;
};

}  // namespace platform
