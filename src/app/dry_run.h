#pragma once
// Generation in memory: the one path by which `generate --dry-run` and the window's
// preview run a generation that writes nothing (no session, no files folder, no copies,
// no pristine copies) and describe what it would leave.
#include "generator/dry_run_report.h"
#include "generator/progress.h"
#include "platform/analysis_application.h"
#include "platform/dry_run_file_system.h"
#include "platform/prompter.h"
#include "platform/registry.h"
#include "platform/text_merger.h"
#include "session/form_state.h"

namespace app {

// The services of a dry generation; the references must outlive the call.
struct DryRunServices {
  platform::DryRunFileSystem& fs;  // every change the run makes stays in here
  const platform::Registry& registry;
  platform::Prompter& prompter;  // asks the run's questions and tells its failure
  platform::AnalysisApplication* application;  // may be null: no model converted into code
  platform::TextMergerSource merger;           // asked for only when a file is merged
  generator::ProgressSink& progress;
};

// Generates the project of `form` (writing form.FilesFolder) in memory. The report notes
// every question and its answer; its entries are filled when the generation succeeded,
// each with the question asked about it. On failure the prompter was told why.
generator::DryRunReport DryGeneration(session::FormState& form, const DryRunServices& services);

// What Finish would do with the settings of `form`, which stays as it is: a dry generation
// over `fs` whose questions are answered as --answer merge answers them (Merge for a file
// changed since it was generated, Yes for one as generated, No for one nothing is known
// about, Yes to reuse the files folder). Each question is noted in the report and beside
// its file; a failure's message is the report's failure.
generator::DryRunReport PreviewGeneration(const session::FormState& form,
                                          const platform::FileSystem& fs,
                                          const platform::Registry& registry,
                                          platform::AnalysisApplication* application,
                                          const platform::TextMergerSource& merger);

}  // namespace app
