#pragma once
// The generation driver: turns the wizard's record into an ActiveX DLL project in the
// development environment, saved as a project file, a class file and a module file in
// the project's folder, with a files folder of working copies of the basic files beside.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "generator/emitter.h"
#include "generator/progress.h"
#include "platform/analysis_application.h"
#include "platform/dev_environment.h"
#include "platform/file_system.h"
#include "platform/prompter.h"
#include "platform/regeneration.h"
#include "platform/registry.h"
#include "session/form_state.h"

namespace generator {

class Generator : public Emitter {
 public:
  // The services of one run; not owned, they must outlive the generator. `application`
  // may be null: then a record whose model is converted into code cannot be generated.
  Generator(platform::DevEnvironment& environment, platform::AnalysisApplication* application,
            platform::FileSystem& fs, const platform::Registry& registry,
            platform::Prompter& prompter, ProgressSink& progress);

  // Generates the project of `form` (writing form.FilesFolder). Asks before it reuses the
  // files folder or overwrites a project, class or module file, and tells the user the
  // outcome. True only when the whole project was generated and saved; on false no
  // project of this run stays in the environment and no file of it stays on disk except
  // the files folder and the basic files copied into it.
  //
  // Where the environment keeps pristine copies of generated files (GetRegeneration),
  // the question about a file the user changed since it was generated offers Merge too;
  // a run that merged, or a dry run, ends without the success message: the caller
  // reports from the environment's record of the saved files (see MergeOutcome).
  bool Generate(session::FormState& form);

  // The files the last Generate wrote: the copied basic files, then (when it succeeded)
  // the class, module and project file.
  const std::vector<std::string>& WrittenFiles() const { return run_.written; }

  // The GUID of the host's type library as the registry names it, "" when unregistered.
  std::string FindHostTypeLibrary() const;

  // Emitter: each line is appended to the class / module "Custom" of the project.
  void AddClassLine(std::string_view text) override;
  void AddModuleLine(std::string_view text) override;
  // Adds `step` to the progress bar; a refused value is ignored.
  void StepProgress(int step) override;

 private:
  // A file of the project: its path in the project's folder, written with the separator
  // of the folder's path, and how it is saved.
  struct PlannedFile {
    std::string path;
    platform::SaveChoice choice = platform::SaveChoice::Create;
  };
  // What one Generate call works with; each call starts from a fresh one.
  struct Run {
    session::FormState* form = nullptr;
    std::string title;
    std::string hostLibrary;  // the host's type library, found before anything is made
    PlannedFile project;
    PlannedFile classFile;
    PlannedFile module;
    platform::VBProject* vbProject = nullptr;
    platform::VBComponent* classComponent = nullptr;
    platform::VBComponent* moduleComponent = nullptr;
    std::unique_ptr<platform::BasicModel> model;  // open while the run holds it
    std::vector<std::string> saved;    // files saved by this run that were not the user's
    std::vector<std::string> written;  // what WrittenFiles gives
  };

  bool PrepareFilesFolder();
  bool ChooseFileName(const char* extension, int questionBefore, int questionAfter,
                      PlannedFile& file);
  platform::MsgAnswer AskOverwrite(const std::string& path, std::string question);
  void PlanSaves();
  bool Merges() const;
  void NoteSaved(const PlannedFile& file);
  void CopyBasicFiles();
  void CopyIfNeeded(const std::string& from, const std::string& to);
  int16_t CountGeometricalInputs() const;
  bool CreateProject();
  bool SetUpProgress();
  bool WriteSections();
  void SaveAll();
  // `base` + `extension` in the project's folder, and the files folder, both written with
  // the separator of the folder's path.
  std::string PathOf(const std::string& base, const char* extension) const;
  std::string FilesFolderPath() const;

  platform::MsgAnswer Ask(const std::string& text);
  void Tell(const std::string& text, platform::MsgIcon icon);
  // Ends a failed run after the progress window was shown: tells `message` (critical),
  // closes what this run opened, removes its project and the files it saved.
  bool Abandon(const std::string& message);

  platform::DevEnvironment& environment_;
  platform::AnalysisApplication* application_;
  platform::FileSystem& fs_;
  const platform::Registry& registry_;
  platform::Prompter& prompter_;
  ProgressSink& progress_;
  platform::Regeneration* regeneration_;  // nullptr: the environment keeps no copies
  Run run_;
};

}  // namespace generator
