// eowizard generate SESSION.bvg: generates the project of a saved wizard session, as the
// wizard's Finish button does, with the questions asked on the terminal.
#include <unistd.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include <CLI/CLI.hpp>

#include "app/commands.h"
#include "app/module_loader.h"
#include "app/services.h"
#include "app/terminal_progress.h"
#include "generator/generator.h"
#include "generator/merge_report.h"
#include "platform/dry_run_file_system.h"
#include "platform/path_parts.h"
#include "platform/vbfiles/vb_files_environment.h"
#include "session/session_file.h"
#include "vbrt/codepage.h"
#include "wizard/model/page_checks.h"

namespace app {
namespace {

using platform::SavedFile;
using platform::SaveChoice;

// The exit code of a run whose merges left conflicts in the files.
constexpr int kConflicts = 3;

struct GenerateOptions {
  ServiceOptions services;
  std::string session;
  std::string project;
  bool dryRun = false;
  bool diff = false;
  platform::sandbox::ReaderLimits modelLimits;
};

const SavedFile* SavedAs(const std::vector<SavedFile>& saved, const std::string& path) {
  const auto it = std::find_if(saved.begin(), saved.end(),
                               [&](const SavedFile& file) { return file.path == path; });
  return it == saved.end() ? nullptr : &*it;
}

bool HasConflicts(const std::vector<SavedFile>& saved) {
  return std::any_of(saved.begin(), saved.end(),
                     [](const SavedFile& file) { return !file.conflicts.empty(); });
}

std::string Conflicts(const SavedFile& file) {
  const std::size_t n = file.conflicts.size();
  return std::to_string(n) + (n == 1 ? " conflict" : " conflicts") + " (lines " +
         generator::ConflictLines(file.conflicts) + ")";
}

// What a dry run says a file would become.
std::string Outcome(const SavedFile* file) {
  if (file == nullptr) return "copied";
  switch (file->choice) {
    case SaveChoice::Create: return "created";
    case SaveChoice::Overwrite: return "overwritten";
    case SaveChoice::NewName: return "written under a new name";
    case SaveChoice::Merge:
      return file->conflicts.empty() ? "merged cleanly" : "merged with " + Conflicts(*file);
  }
  return "";
}

// Code-page bytes with CR LF as the terminal shows text: UTF-8, lines ended by LF.
std::string Displayed(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') continue;
    text += bytes[i];
  }
  return vbrt::FromAnsi(text);
}

// With `diff`, the merge module is loaded first: a run that cannot show the diffs
// shows nothing but why.
int ReportDryRun(const platform::FileSystem& fs, const platform::DryRunFileSystem& dry,
                 const std::vector<std::string>& written, const std::vector<SavedFile>& saved,
                 bool diff) {
  platform::TextMerger* merger = nullptr;
  try {
    if (diff) merger = &ModuleTextMerger("Showing the differences (--diff)");
  } catch (const ModuleError& e) {
    std::cerr << "eowizard: " << e.what() << "\n";
    return 1;
  }
  std::cout << "Dry run, nothing was written. The generation would leave:\n";
  for (const std::string& folder : dry.CreatedFolders()) {
    std::cout << "  " << fs.ToNative(folder).string() << ": folder created\n";
  }
  for (const std::string& path : written) {
    std::cout << "  " << fs.ToNative(path).string() << ": " << Outcome(SavedAs(saved, path)) << "\n";
  }
  if (merger != nullptr) {
    const bool colour = ::isatty(STDOUT_FILENO) == 1;
    for (const std::string& path : written) {
      const SavedFile* file = SavedAs(saved, path);
      if (file == nullptr) continue;
      const std::string name = fs.ToNative(path).string();
      std::cout << merger->UnifiedDiff(Displayed(file->before), Displayed(file->after),
                                       name + " (on disk)", name + " (after the generation)",
                                       colour);
    }
  }
  return HasConflicts(saved) ? kConflicts : 0;
}

int ReportWritten(const platform::FileSystem& fs, const std::vector<std::string>& written,
                  const std::vector<SavedFile>& saved) {
  std::cout << "Files written:\n";
  for (const std::string& path : written) {
    std::cout << "  " << fs.ToNative(path).string();
    if (const SavedFile* file = SavedAs(saved, path); file && file->choice == SaveChoice::Merge) {
      std::cout << (file->conflicts.empty() ? " (merged with your changes)"
                                            : " (merged with your changes, " + Conflicts(*file) + ")");
    }
    std::cout << "\n";
  }
  if (!HasConflicts(saved)) return 0;
  std::cerr << "eowizard: your changes and the new code conflict; the conflicting lines are "
               "marked with <<<<<<< and >>>>>>> in:\n";
  for (const SavedFile& file : saved) {
    if (file.conflicts.empty()) continue;
    std::cerr << "  " << fs.ToNative(file.path).string() << ": lines "
              << generator::ConflictLines(file.conflicts) << "\n";
  }
  return kConflicts;
}

int RunGenerate(const GenerateOptions& options) {
  Services services(options.services, std::cin, std::cout, StandardInputIsTerminal());
  // A dry run only pretends to make folders, copy and delete files.
  std::optional<platform::DryRunFileSystem> dry;
  if (options.dryRun) dry.emplace(services.fs);
  platform::FileSystem& fs = dry ? static_cast<platform::FileSystem&>(*dry) : services.fs;

  wizard::PageChecks checks(fs, services.registry, services.prompter,
                            wizard::PageCheckOptions{.tellMissingFolder = true});
  session::FormState form;
  form.SetFieldHandlers(&checks);
  form.edFile = options.session;
  std::string message;
  if (!session::LoadSession(form, services.SessionIo(), options.session, message)) {
    std::cerr << "eowizard: "
              << (message.empty() ? session::IncompleteSessionMessage(options.session)
                                  : message)
              << "\n";
    return 1;
  }
  if (!options.project.empty()) {
    // The folder of a project named on the command line is made, as the wizard offers.
    checks.CreateFolderPath(fs.AbsolutePath(platform::ParentFolder(options.project)));
    form.SetText(session::TextField::Location, options.project);
  }
  if (form.theLocation.empty() || form.theName.empty()) {
    std::cerr << "eowizard: no project to generate: '" << form.edLocation
              << "' does not name a project file in an existing folder (see --project)\n";
    return 1;
  }

  // The analysis application is needed only to convert the basic model into code.
  std::unique_ptr<platform::AnalysisApplication> application;
  if (!form.optModelLink.value) {
    application =
        CreateAnalysisApplication("Converting the basic model into code", options.modelLimits);
  }

  platform::VbFilesEnvironment environment(
      fs, services.registry, GenerationMerger,
      options.dryRun ? platform::vbfiles::Saving::DryRun : platform::vbfiles::Saving::ToDisk);
  TerminalProgress progress(std::cerr, ::isatty(STDERR_FILENO) == 1);
  generator::Generator generator(environment, application.get(), fs, services.registry,
                                 services.prompter, progress);
  if (!generator.Generate(form)) return 1;
  const std::vector<SavedFile>& saved = environment.GetRegeneration()->Saved();
  if (dry) return ReportDryRun(fs, *dry, generator.WrittenFiles(), saved, options.diff);
  return ReportWritten(fs, generator.WrittenFiles(), saved);
}

}  // namespace

void AddGenerateCommand(CLI::App& cli, int& exitCode) {
  auto options = std::make_shared<GenerateOptions>();
  CLI::App* command = cli.add_subcommand(
      "generate", "Generate the exploring-object project of a wizard session (.bvg)");
  command->add_option("SESSION", options->session, "The session file")->required();
  command->add_option("--project", options->project,
                      "Generate the project at this .vbp path instead of the session's");
  CLI::Option* dryRun = command->add_flag(
      "--dry-run", options->dryRun,
      "Generate in memory only and write nothing: print what each file would become");
  command
      ->add_flag("--diff", options->diff,
                 "With --dry-run: show how each project file would change (unified diff)")
      ->needs(dryRun);
  AddServiceOptions(*command, options->services);
  AddModelTimeLimitOption(*command, options->modelLimits);
  command->callback([options, &exitCode] {
    try {
      exitCode = RunGenerate(*options);
    } catch (const std::exception& e) {
      std::cerr << "eowizard: " << e.what() << "\n";
      exitCode = 2;
    }
  });
}

}  // namespace app
