#pragma once
// The development environment on Linux: an in-memory set of projects whose SaveAs
// writes the files the environment itself writes for an ActiveX DLL project (.vbp, .cls,
// .bas), in the ANSI code page with CR LF, through a FileStore (which keeps the pristine
// copies of generated files, merges, and writes nothing in a dry run).
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dev_environment.h"
#include "platform/file_system.h"
#include "platform/registry.h"
#include "platform/text_merger.h"
#include "platform/vbfiles/file_store.h"

namespace platform {

class VbFilesEnvironment : public DevEnvironment {
 public:
  // Files are written through `fs`; the paths and descriptions of referenced type
  // libraries are looked up in `registry` (HKCR\TypeLib\{guid}\<major.minor>). Both must
  // outlive the environment. Files planned for merging are merged by the merger of
  // `merger`, asked for only then. With Saving::DryRun no save writes anything.
  VbFilesEnvironment(FileSystem& fs, const Registry& registry, TextMergerSource merger,
                     vbfiles::Saving saving = vbfiles::Saving::ToDisk);
  ~VbFilesEnvironment() override;

  VBProjects& GetVBProjects() override;
  // There are no windows to bring forward here.
  void ActivateWindow(std::string_view) override {}
  Regeneration* GetRegeneration() override { return &store_; }

  // Makes every later call of `operation` ("VBProjects.Add", "VBProject.SaveAs",
  // "VBComponent.SaveAs", "References.AddFromGuid", "CodeModule.InsertLines",
  // "VBComponents.Add", ...) fail with VbError(number, description), as a failing
  // environment would.
  void FailOperation(std::string operation, int number, std::string description);

  class Projects;

 private:
  std::map<std::string, std::pair<int, std::string>, std::less<>> failures_;
  vbfiles::FileStore store_;
  std::unique_ptr<Projects> projects_;
};

}  // namespace platform
