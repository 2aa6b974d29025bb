#include "platform/vbfiles/vb_files_environment.h"

#include <algorithm>
#include <cctype>
#include <list>
#include <variant>

#include "platform/path_parts.h"
#include "platform/vbfiles/code_lines.h"
#include "platform/vbfiles/project_files.h"
#include "vbrt/codepage.h"
#include "vbrt/error.h"

namespace platform {
namespace {

using Failures = std::map<std::string, std::pair<int, std::string>, std::less<>>;

constexpr int kInvalidArgument = 5;  // "Invalid procedure call or argument"

// Where the analysis application installs its type library when the registry does not
// say otherwise.
constexpr std::string_view kAnalysisLibraryGuid = "{C0E82B4F-2FCB-11D3-BEC8-0080AD0EBF00}";
constexpr std::string_view kAnalysisLibraryPath = "C:\\Program Files\\Zentrix\\Zentrix.tlb";
constexpr std::string_view kAnalysisLibraryDescription = "Zentrix 5.2 Type Library";

void Check(const Failures& failures, std::string_view operation) {
  if (failures.empty()) return;  // the usual case, on every generated line
  const auto it = failures.find(operation);
  if (it != failures.end()) throw vbrt::VbError(it->second.first, it->second.second);
}

// Equal but for letter case and the kind of path separator.
bool SameText(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    if ((x == '\\' || x == '/') && (y == '\\' || y == '/')) return true;
    return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
  });
}

std::string RegistryText(const Registry& registry, const std::string& key) {
  const RegistryValue value = registry.QueryRegValue(RegistryRoot::ClassesRoot, key, "");
  const auto* text = std::get_if<std::string>(&value);
  return text ? *text : std::string();
}

// Saves `parts`, one after the other, as the file at `path` in the ANSI code page.
void WriteAnsi(vbfiles::FileStore& store, std::string_view path,
               std::vector<std::string_view> parts) {
  // Generated code is mostly plain ASCII: such a part is written as it is, without a copy.
  std::vector<std::string> converted;
  converted.reserve(parts.size());
  for (std::string_view& part : parts) {
    if (!vbrt::IsCodePageNeutral(part)) part = converted.emplace_back(vbrt::ToAnsi(part));
  }
  store.Save(path, parts);
}

class FilesCodeModule : public CodeModule {
 public:
  explicit FilesCodeModule(const Failures& failures) : failures_(failures) {}

  int CountOfLines() const override {
    Check(failures_, "CodeModule.CountOfLines");
    return lines_.Count();
  }

  void InsertLines(int line, std::string_view text) override {
    Check(failures_, "CodeModule.InsertLines");
    if (line < 1 || line > CountOfLines() + 1) {
      throw vbrt::VbError(kInvalidArgument, "Invalid procedure call or argument");
    }
    lines_.Insert(line - 1, text);
  }

  std::vector<std::string_view> Pieces() const { return lines_.Pieces(); }

 private:
  const Failures& failures_;
  vbfiles::CodeLines lines_;
};

class FilesComponent : public VBComponent {
 public:
  FilesComponent(vbfiles::FileStore& store, const Failures& failures, ComponentKind kind,
                 std::string name)
      : store_(store), failures_(failures), kind_(kind), name_(std::move(name)), code_(failures) {}

  std::string Name() const override { return name_; }
  void SetName(std::string_view name) override {
    Check(failures_, "VBComponent.Name");
    name_ = name;
  }
  void SaveAs(std::string_view path) override {
    Check(failures_, "VBComponent.SaveAs");
    const std::string header = kind_ == ComponentKind::ClassModule
                                   ? vbfiles::ClassFileHeader(name_)
                                   : vbfiles::ModuleFileHeader(name_);
    std::vector<std::string_view> parts = code_.Pieces();
    parts.insert(parts.begin(), header);
    WriteAnsi(store_, path, std::move(parts));
    file_ = path;
  }
  CodeModule& GetCodeModule() override { return code_; }

  ComponentKind Kind() const { return kind_; }
  const std::string& File() const { return file_; }

 private:
  vbfiles::FileStore& store_;
  const Failures& failures_;
  ComponentKind kind_;
  std::string name_;
  std::string file_;  // "" until saved
  FilesCodeModule code_;
};

class FilesProject : public VBProject, VBComponents, References {
 public:
  FilesProject(vbfiles::FileStore& store, const Registry& registry, const Failures& failures)
      : store_(store), registry_(registry), failures_(failures) {
    components_.emplace_back(store_, failures_, ComponentKind::ClassModule, "Class1");
  }

  std::string Name() const override { return name_; }
  void SetName(std::string_view name) override {
    Check(failures_, "VBProject.Name");
    name_ = name;
  }
  std::string Description() const override { return description_; }
  void SetDescription(std::string_view description) override {
    Check(failures_, "VBProject.Description");
    description_ = description;
  }
  References& GetReferences() override { return *this; }
  VBComponents& GetVBComponents() override { return *this; }

  void SaveAs(std::string_view path) override {
    Check(failures_, "VBProject.SaveAs");
    vbfiles::ProjectFile file{name_, description_, references_, {}};
    const std::string folder = ParentFolder(path);
    // Components never saved have no file the project could name yet.
    for (const FilesComponent& component : components_) {
      if (component.File().empty()) continue;
      const bool beside = SameText(ParentFolder(component.File()), folder);
      file.components.push_back({component.Kind() == ComponentKind::ClassModule,
                                 component.Name(),
                                 beside ? FileName(component.File()) : component.File()});
    }
    WriteAnsi(store_, path, {vbfiles::ProjectFileText(file)});
  }

  // VBComponents
  VBComponent& Item(std::string_view name) override {
    Check(failures_, "VBComponents.Item");
    for (FilesComponent& component : components_) {
      if (SameText(component.Name(), name)) return component;
    }
    throw vbrt::VbError(vbrt::kSubscriptOutOfRange, "Subscript out of range");
  }
  VBComponent& Add(ComponentKind kind) override {
    Check(failures_, "VBComponents.Add");
    const bool isClass = kind == ComponentKind::ClassModule;
    int n = 1;
    const std::string base = isClass ? "Class" : "Module";
    while (HasComponent(base + std::to_string(n))) ++n;
    return components_.emplace_back(store_, failures_, kind, base + std::to_string(n));
  }

  // References
  void AddFromGuid(std::string_view guid, int major, int minor) override {
    Check(failures_, "References.AddFromGuid");
    vbfiles::TypeLibReference ref{std::string(guid), major, minor, "", ""};
    const std::string key =
        "TypeLib\\" + ref.guid + "\\" + std::to_string(major) + "." + std::to_string(minor);
    ref.description = RegistryText(registry_, key);
    ref.path = RegistryText(registry_, key + "\\0\\win32");
    if (SameText(guid, kAnalysisLibraryGuid)) {
      if (ref.description.empty()) ref.description = kAnalysisLibraryDescription;
      if (ref.path.empty()) ref.path = kAnalysisLibraryPath;
    }
    references_.push_back(std::move(ref));
  }

 private:
  bool HasComponent(const std::string& name) const {
    return std::any_of(components_.begin(), components_.end(),
                       [&](const FilesComponent& c) { return SameText(c.Name(), name); });
  }

  vbfiles::FileStore& store_;
  const Registry& registry_;
  const Failures& failures_;
  std::string name_ = "Project1";
  std::string description_;
  std::vector<vbfiles::TypeLibReference> references_;
  std::list<FilesComponent> components_;  // stable addresses for the references handed out
};

}  // namespace

class VbFilesEnvironment::Projects : public VBProjects {
 public:
  Projects(vbfiles::FileStore& store, const Registry& registry, const Failures& failures)
      : store_(store), registry_(registry), failures_(failures) {}

  int Count() const override { return static_cast<int>(projects_.size()); }

  VBProject& Add(ProjectType type, bool) override {
    Check(failures_, "VBProjects.Add");
    if (type != ProjectType::ActiveXDll) {
      throw vbrt::VbError(kInvalidArgument, "Only ActiveX DLL projects can be created here");
    }
    return *projects_.emplace_back(std::make_unique<FilesProject>(store_, registry_, failures_));
  }

  void Remove(VBProject& project) override {
    Check(failures_, "VBProjects.Remove");
    const auto it = std::find_if(projects_.begin(), projects_.end(),
                                 [&](const auto& p) { return p.get() == &project; });
    if (it == projects_.end()) throw vbrt::VbError(kInvalidArgument, "Invalid procedure call or argument");
    projects_.erase(it);
  }

 private:
  vbfiles::FileStore& store_;
  const Registry& registry_;
  const Failures& failures_;
  std::vector<std::unique_ptr<FilesProject>> projects_;
};

VbFilesEnvironment::VbFilesEnvironment(FileSystem& fs, const Registry& registry,
                                       TextMergerSource merger, vbfiles::Saving saving)
    : store_(fs, std::move(merger), saving), projects_(std::make_unique<Projects>(store_, registry, failures_)) {}

VbFilesEnvironment::~VbFilesEnvironment() = default;

VBProjects& VbFilesEnvironment::GetVBProjects() { return *projects_; }

void VbFilesEnvironment::FailOperation(std::string operation, int number, std::string description) {
  failures_[std::move(operation)] = {number, std::move(description)};
}

}  // namespace platform
