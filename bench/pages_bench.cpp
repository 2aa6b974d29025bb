// How the parameter pages keep up with long lists: 5,000 input rows and 500 outputs.
#include <benchmark/benchmark.h>

#include <string>

#include "platform/prompter.h"
#include "session/form_state.h"
#include "wizard/model/input_page.h"
#include "wizard/model/output_page.h"

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

}  // namespace
