#include "platform/gmsh/gmsh_application.h"

#include <gmsh.h>

#include <algorithm>
#include <cctype>
#include <clocale>
#include <filesystem>
#include <string>

#include "platform/gmsh/gmsh_model_reader.h"
#include "vbrt/error.h"

namespace platform::gmsh_io {
namespace {

// Gmsh sets the whole process locale when it starts and parses numbers with the C
// library, so its calls run under the "C" numeric locale and the caller's locale is put
// back afterwards.
class CLocaleScope {
 public:
  CLocaleScope() : saved_(std::setlocale(LC_ALL, nullptr)) { std::setlocale(LC_NUMERIC, "C"); }
  ~CLocaleScope() { std::setlocale(LC_ALL, saved_.c_str()); }
  CLocaleScope(const CLocaleScope&) = delete;
  CLocaleScope& operator=(const CLocaleScope&) = delete;

 private:
  std::string saved_;
};

// Gmsh's state is global: started once and kept until the process ends (finalizing it
// among the other static destructors would risk their order).
void StartGmshOnce() {
  static const bool started = [] {
    const CLocaleScope locale;
    try {
      gmsh::initialize(0, nullptr, false);
      gmsh::option::setNumber("General.Terminal", 0);
      gmsh::option::setNumber("General.Verbosity", 0);
    } catch (const std::string& reason) {
      throw vbrt::VbError(kModelError, "Gmsh cannot start: " + reason);
    }
    return true;
  }();
  (void)started;
}

// Gmsh throws a parse error from inside its parser and leaves the rest of the file
// buffered there, so every later file would fail with it. With errors not thrown the
// parser reads to the end of the file; the last error it reported is the reason.
void MergeWholeFile(const std::string& path) {
  gmsh::option::setNumber("General.AbortOnError", 0);
  try {
    gmsh::merge(path);
  } catch (...) {
    gmsh::option::setNumber("General.AbortOnError", 2);
    throw;
  }
  gmsh::option::setNumber("General.AbortOnError", 2);
  std::string error;
  gmsh::logger::getLastError(error);
  if (!error.empty()) throw error;
}

std::string LowerExtension(const std::filesystem::path& path) {
  std::string extension = path.extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return extension;
}

[[noreturn]] void CannotRead(std::string_view path, const std::string& reason, int number) {
  throw vbrt::VbError(number, "Cannot read the basic model '" + std::string(path) + "': " + reason);
}

class GmshApplication : public AnalysisApplication {
 public:
  std::string ProductName() const override {
    std::string version;
    gmsh::option::getString("General.Version", version);
    return "Gmsh " + version;
  }

  std::unique_ptr<BasicModel> OpenModel(std::string_view path) override {
    const std::filesystem::path file(path);
    std::error_code error;
    // Gmsh opens a missing file as an empty model without complaint.
    if (!std::filesystem::exists(file, error)) {
      CannotRead(path, "the file does not exist", vbrt::kFileNotFound);
    }
    if (!std::filesystem::is_regular_file(file, error)) {
      CannotRead(path, "it is not a file", vbrt::kPathFileAccessError);
    }
    const CLocaleScope locale;
    try {
      gmsh::clear();
      const std::string extension = LowerExtension(file);
      // STEP files come without shared edges between faces unless sewn.
      if (extension == ".step" || extension == ".stp") {
        gmsh::option::setNumber("Geometry.OCCSewFaces", 1);
      }
      // open() would stay locked after a parse error and refuse every later file;
      // merging into the freshly cleared model does the same without that lock.
      MergeWholeFile(file.string());
      ModelContent content = ReadCurrentModel();
      gmsh::clear();
      return std::make_unique<SnapshotModel>(std::move(content));
    } catch (const std::string& reason) {
      gmsh::clear();
      CannotRead(path, reason, kModelError);
    } catch (const vbrt::VbError& unsupported) {
      gmsh::clear();
      CannotRead(path, unsupported.Description(), kModelError);
    }
  }
};

}  // namespace

std::unique_ptr<AnalysisApplication> CreateGmshApplication() {
  StartGmshOnce();
  return std::make_unique<GmshApplication>();
}

}  // namespace platform::gmsh_io
