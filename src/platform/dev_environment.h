#pragma once
// The development environment's extensibility object model, as far as generation uses
// it: projects, their references and components, and the components' code modules.
//
// Objects returned by reference belong to the environment; they stay valid until their
// project is removed. Every operation may fail the way the object model fails: it then
// throws vbrt::VbError with a number and a description.
#include <string>
#include <string_view>

#include "platform/regeneration.h"

namespace platform {

// VBProjects.Add project types.
enum class ProjectType { StandardExe = 0, ActiveXExe = 1, ActiveXDll = 2, ActiveXControl = 3 };
// VBComponents.Add component kinds.
enum class ComponentKind { StdModule = 1, ClassModule = 2 };

class CodeModule {
 public:
  virtual ~CodeModule() = default;
  virtual int CountOfLines() const = 0;
  // Inserts `text` before line `line` (1-based; CountOfLines() + 1 appends). Like the
  // environment's editor, a line that leaves a string literal open gets its closing
  // double quote.
  virtual void InsertLines(int line, std::string_view text) = 0;
};

class VBComponent {
 public:
  virtual ~VBComponent() = default;
  virtual std::string Name() const = 0;
  virtual void SetName(std::string_view name) = 0;
  // Writes the component's file and remembers `path` as its file.
  virtual void SaveAs(std::string_view path) = 0;
  virtual CodeModule& GetCodeModule() = 0;
};

class VBComponents {
 public:
  virtual ~VBComponents() = default;
  // The component named `name`; throws when there is none.
  virtual VBComponent& Item(std::string_view name) = 0;
  virtual VBComponent& Add(ComponentKind kind) = 0;
};

class References {
 public:
  virtual ~References() = default;
  // Adds the type library `guid` ("{...}") of version major.minor.
  virtual void AddFromGuid(std::string_view guid, int major, int minor) = 0;
};

class VBProject {
 public:
  virtual ~VBProject() = default;
  virtual std::string Name() const = 0;
  virtual void SetName(std::string_view name) = 0;
  virtual std::string Description() const = 0;
  virtual void SetDescription(std::string_view description) = 0;
  virtual References& GetReferences() = 0;
  virtual VBComponents& GetVBComponents() = 0;
  // Writes the project file and remembers `path` as its file.
  virtual void SaveAs(std::string_view path) = 0;
};

class VBProjects {
 public:
  virtual ~VBProjects() = default;
  virtual int Count() const = 0;
  // A new project of `type`; an ActiveX DLL project holds the class "Class1".
  virtual VBProject& Add(ProjectType type, bool exclusive) = 0;
  // Closes `project` in the environment; its files stay as they are.
  virtual void Remove(VBProject& project) = 0;
};

// The environment's root object.
class DevEnvironment {
 public:
  virtual ~DevEnvironment() = default;
  virtual VBProjects& GetVBProjects() = 0;
  // Brings the window whose caption begins with `title` to the front; nothing when there
  // is no such window.
  virtual void ActivateWindow(std::string_view title) = 0;
  // What the environment keeps of generated files for merging them with the user's
  // changes later; nullptr when it keeps nothing (then there is nothing to merge).
  virtual Regeneration* GetRegeneration() { return nullptr; }
};

}  // namespace platform
