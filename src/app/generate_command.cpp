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
#include "app/dry_run.h"
#include "app/module_loader.h"
#include "app/services.h"
#include "app/terminal_progress.h"
#include "generator/dry_run_report.h"
#include "generator/generator.h"
#include "generator/merge_report.h"
#include "platform/dry_run_file_system.h"
#include "platform/path_parts.h"
#include "platform/vbfiles/vb_files_environment.h"
#include "session/record_check.h"
#include "session/session_file.h"
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

bool HasConflicts(const std::vector<SavedFile>& saved) {
  return std::any_of(saved.begin(), saved.end(),
                     [](const SavedFile& file) { return !file.conflicts.empty(); });
}

// With `diff`, the merge module is loaded first: a run that cannot show the diffs
// shows nothing but why.
int ReportDryRun(const generator::DryRunReport& report, bool diff) {
  platform::TextMerger* merger = nullptr;
  try {
    if (diff) merger = &ModuleTextMerger("Showing the differences (--diff)");
  } catch (const ModuleError& e) {
    std::cerr << "eowizard: " << e.what() << "\n";
    return 1;
  }
  std::cout << "Dry run, nothing was written. The generation would leave:\n";
  for (const generator::DryRunEntry& entry : report.entries) {
    std::cout << "  " << entry.path << ": " << entry.outcome << "\n";
  }
  if (merger != nullptr) {
    const bool colour = ::isatty(STDOUT_FILENO) == 1;
    for (const generator::DryRunEntry& entry : report.entries) {
      if (entry.generated) std::cout << generator::DiffOf(*merger, entry, colour);
    }
  }
  return report.HasConflicts() ? kConflicts : 0;
}

int ReportWritten(const platform::FileSystem& fs, const std::vector<std::string>& written,
                  const std::vector<SavedFile>& saved) {
  std::cout << "Files written:\n";
  for (const std::string& path : written) {
    std::cout << "  " << fs.ToNative(path).string();
    const SavedFile* file = generator::SavedAs(saved, path);
    if (file != nullptr && file->choice == SaveChoice::Merge) {
      std::cout << (file->conflicts.empty() ? " (merged with your changes)"
                                            : " (merged with your changes, " +
                                                  generator::ConflictsText(file->conflicts) + ")");
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
    if (const std::string refusal = session::ControlCharacterPathRefusal(options.project);
        !refusal.empty()) {
      std::cerr << "eowizard: --project: " << refusal << "\n";
      return 1;
    }
    // The folder of a project named on the command line is made, as the wizard offers.
    checks.CreateFolderPath(fs.AbsolutePath(platform::ParentFolder(options.project)));
    form.SetText(session::TextField::Location, options.project);
  }
  // Refused before the folder checks below, which a path cut short at a NUL would mislead.
  if (const std::string refused = session::RefusedPathField(form); !refused.empty()) {
    std::cerr << "eowizard: " << refused << "\n";
    return 1;
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

  TerminalProgress progress(std::cerr, ::isatty(STDERR_FILENO) == 1);
  if (dry) {
    const generator::DryRunReport report = DryGeneration(
        form, {*dry, services.registry, services.prompter, application.get(), GenerationMerger,
               progress});
    return report.generated ? ReportDryRun(report, options.diff) : 1;
  }
  platform::VbFilesEnvironment environment(fs, services.registry, GenerationMerger);
  generator::Generator generator(environment, application.get(), fs, services.registry,
                                 services.prompter, progress);
  if (!generator.Generate(form)) return 1;
  return ReportWritten(fs, generator.WrittenFiles(), environment.GetRegeneration()->Saved());
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
