#pragma once
// Compiled help files (.chm): the topics and pictures stored inside them.
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct chmFile;

namespace platform {

// A help reference "<file>.chm::/<path inside>#<anchor>" split at its first "::" and at
// the "#" after it.
struct HelpReference {
  std::string file;    // the help file's path, as given
  std::string topic;   // the object's path inside the file, starting with "/"
  std::string anchor;  // the named place inside the topic; "" = its top
};

// Splits `reference`; nullopt when it has no "::" or no topic after it. A topic without a
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

  // The path of the first stored file whose name ends in `extension` (".hhc" for the
  // contents, ".hhk" for the index; letter case ignored), in the archive's own order;
  // nullopt when there is none.
  std::optional<std::string> FindByExtension(std::string_view extension) const;

 private:
  struct Closer {
    void operator()(chmFile* file) const;
  };
  explicit ChmArchive(chmFile* file) : file_(file) {}
  std::unique_ptr<chmFile, Closer> file_;
};

}  // namespace platform
