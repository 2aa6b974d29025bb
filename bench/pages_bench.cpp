// How the parameter pages keep up with long lists: 5,000 input rows and 500 outputs; and
// how the finish page's preview of that generation opens beside the command line's dry run
// of the same session.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <QTreeWidget>
#include <sstream>
#include <string>

#include "app/dry_run.h"
#include "bench_files.h"
#include "hardening/generation_rig.h"
#include "platform/merge/libgit2_merger.h"
#include "platform/posix/posix_file_system.h"
#include "platform/prompt/console_prompter.h"

#include "platform/prompter.h"
#include "session/form_state.h"
#include "wizard/model/input_page.h"
#include "wizard/model/output_page.h"
#include "wizard/list_view_rows.h"
#include "wizard/preview_dialog.h"

namespace {

constexpr int kInputRows = 5000;
constexpr int kOutputRows = 500;
constexpr int16_t kMagnetostatics = 1;

// Says Yes to every question and nothing else.
class YesPrompter : public platform::Prompter {
 public:
  platform::MsgAnswer Show(const platform::Message& message) override {
    return message.buttons == platform::MsgButtons::OK ? platform::MsgAnswer::OK
                                                       : platform::MsgAnswer::Yes;
  }
};

// lvInput with "p1".."p<rows>" (description and variable alike) and its "<new>" row.
void FillInputs(session::ListView& list, int rows) {
  list.Clear();
  for (int i = 1; i <= rows; ++i) {
    const std::string name = "p" + std::to_string(i);
    const int row = list.Add(name);
    list.SetSubItem(row, 1, "Geometrical");
    list.SetSubItem(row, 2, name);
    list.SetSubItem(row, 4, "0");
    list.SetSubItem(row, 5, "10");
    list.SetSubItem(row, 6, "1");
  }
  list.Add(session::kNewInputText);
}

// Every standard quantity of the type, then custom rows up to `rows`.
void FillOutputs(session::FormState& form, wizard::OutputPage& page, int rows) {
  page.FillStandardOutputs();
  for (int i = 0; i < form.lvStandard.Count(); ++i) form.lvStandard.SetSelected(i, true);
  page.AddStandardClicked();
  while (form.lvOutput.Count() < rows) {
    const int row = form.lvOutput.Add("Custom " + std::to_string(form.lvOutput.Count()), "",
                                      wizard::kCustomOutputIcon);
    form.lvOutput.SetSubItem(row, 1, "Locals.Potential");
  }
}

void BM_FillStandardAndSyncOutputs(benchmark::State& state) {
  session::FormState form;
  YesPrompter prompter;
  wizard::OutputPage page(form, prompter);
  form.cmbType.SetListIndex(kMagnetostatics);
  FillOutputs(form, page, kOutputRows);
  for (auto _ : state) {
    page.FillStandardOutputs();
    page.SyncOutputs();
    benchmark::DoNotOptimize(form.lvOutput.Count());
  }
}
BENCHMARK(BM_FillStandardAndSyncOutputs);

void BM_NextParameterName(benchmark::State& state) {
  session::ListView list(session::kInputColumns);
  FillInputs(list, kInputRows);
  YesPrompter prompter;
  wizard::InputPage page(list, prompter);
  for (auto _ : state) benchmark::DoNotOptimize(page.NextParameterName());
}
BENCHMARK(BM_NextParameterName);

void BM_ValidateNewDescription(benchmark::State& state) {
  session::ListView list(session::kInputColumns);
  FillInputs(list, kInputRows);
  YesPrompter prompter;
  wizard::InputPage page(list, prompter);
  std::string message;
  for (auto _ : state) benchmark::DoNotOptimize(page.ValidateDescription("Air gap", message));
}
BENCHMARK(BM_ValidateNewDescription);

// One keystroke in the dialog's name or variable field.
void BM_DialogInputsValid(benchmark::State& state) {
  session::ListView list(session::kInputColumns);
  FillInputs(list, kInputRows);
  YesPrompter prompter;
  wizard::InputPage page(list, prompter);
  page.AddClicked();
  for (auto _ : state) benchmark::DoNotOptimize(page.DialogInputsValid("Air gap", "gap"));
}
BENCHMARK(BM_DialogInputsValid);

// Adding a parameter through "<new>" to a list that already holds 5,000.
void BM_AddThroughPlaceholder(benchmark::State& state) {
  session::ListView list(session::kInputColumns);
  YesPrompter prompter;
  wizard::InputPage page(list, prompter);
  for (auto _ : state) {
    state.PauseTiming();
    FillInputs(list, kInputRows);
    state.ResumeTiming();
    page.ClickCell(list.Count() - 1, wizard::kColDescription);
    page.KeyEscape();
  }
}
BENCHMARK(BM_AddThroughPlaceholder);

// The list widgets need an application; offscreen unless a display is chosen.
void EnsureApplication() {
  if (QApplication::instance() != nullptr) return;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static char name[] = "eow_pages_bench";
  static char* argv[] = {name, nullptr};
  static QApplication application(argc, argv);
}

// lvInput's widget filled from nothing, then shown again unchanged (what every keystroke
// in an editor costs).
void BM_ShowInputRows(benchmark::State& state) {
  EnsureApplication();
  session::ListView list(session::kInputColumns);
  FillInputs(list, kInputRows);
  QTreeWidget view;
  view.setColumnCount(session::kInputColumns);
  view.setUniformRowHeights(true);
  const bool fresh = state.range(0) == 1;
  for (auto _ : state) {
    if (fresh) {
      state.PauseTiming();
      view.clear();
      state.ResumeTiming();
    }
    wizard::ShowListRows(view, list);
  }
}
BENCHMARK(BM_ShowInputRows)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

void BM_ShowOutputRows(benchmark::State& state) {
  EnsureApplication();
  session::FormState form;
  YesPrompter prompter;
  wizard::OutputPage page(form, prompter);
  form.cmbType.SetListIndex(kMagnetostatics);
  FillOutputs(form, page, kOutputRows);
  QTreeWidget view;
  view.setColumnCount(2);
  view.setUniformRowHeights(true);
  for (auto _ : state) {
    state.PauseTiming();
    view.clear();
    state.ResumeTiming();
    wizard::ShowListRows(view, form.lvOutput);
  }
}
BENCHMARK(BM_ShowOutputRows)->Unit(benchmark::kMillisecond);

// The generation of generation_bench (5,000 inputs, 500 outputs, a model of 30,000 edges
// converted into code) into an empty project folder.
struct LargeGeneration {
  LargeGeneration() {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    record.theLocation = folder.string();
  }
  std::filesystem::path folder = bench::ScratchFolder() / "preview";
  session::FormState record = hardening::LargeRecord(kInputRows, kOutputRows);
  hardening::FixedApplication application{hardening::RingModel(30000)};
  hardening::HostRegistry registry;
  platform::PosixFileSystem files{platform::DriveMap{}};
};

LargeGeneration& TheLargeGeneration() {
  static LargeGeneration work;
  return work;
}

// `generate --dry-run --answer merge` without its printing: the generation in memory and
// the description of its files.
void BM_DryRunOfLargeSession(benchmark::State& state) {
  LargeGeneration& work = TheLargeGeneration();
  std::istringstream noInput;
  std::ostringstream told;
  for (auto _ : state) {
    session::FormState form = work.record;
    platform::DryRunFileSystem dry(work.files);
    platform::ConsolePrompter prompter(noInput, told, false, platform::MsgAnswer::Merge);
    hardening::QuietProgress progress;
    const generator::DryRunReport report = app::DryGeneration(
        form, {dry, work.registry, prompter, &work.application, platform::merge::Libgit2Merger,
               progress});
    if (!report.generated) state.SkipWithError("the dry run failed");
    told.str("");
  }
}
BENCHMARK(BM_DryRunOfLargeSession)->Unit(benchmark::kMillisecond)->UseRealTime();

// The Preview button's work: the same dry run from the window's settings, and the dialog
// made with its first file (the class, 77,000 lines) shown and coloured from its start.
void BM_PreviewOfLargeSession(benchmark::State& state) {
  EnsureApplication();
  LargeGeneration& work = TheLargeGeneration();
  int lines = 0;
  for (auto _ : state) {
    wizard::PreviewDialog dialog(
        app::PreviewGeneration(work.record, work.files, work.registry, &work.application,
                               platform::merge::Libgit2Merger),
        platform::merge::Libgit2Merger, [] {}, nullptr);
    const auto* text = dialog.findChild<QPlainTextEdit*>("txtPreview");
    if (text == nullptr || text->document()->isEmpty()) state.SkipWithError("the preview failed");
    lines = text->document()->blockCount();
  }
  state.counters["lines_at_open"] = lines;  // of the first file; the rest follows in steps
}
BENCHMARK(BM_PreviewOfLargeSession)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
