#include "app/dry_run.h"

#include <exception>

#include "generator/generator.h"
#include "platform/prompt/console_prompter.h"
#include "platform/vbfiles/vb_files_environment.h"
#include "vbrt/error.h"

namespace app {
namespace {

using generator::AnsweredQuestion;
using generator::DryRunReport;
using platform::Message;
using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;

// Answers as --answer merge does and notes every question; of the messages it is told,
// keeps those of a failure.
class AssumedAnswers : public platform::Prompter {
 public:
  explicit AssumedAnswers(DryRunReport& report) : report_(report) {}

  MsgAnswer Show(const Message& message) override {
    if (message.buttons == MsgButtons::OK) {
      if (message.icon == MsgIcon::Critical) {
        if (!report_.failure.empty()) report_.failure += "\n";
        report_.failure += message.text;
      }
      return MsgAnswer::OK;
    }
    const MsgAnswer answer = platform::PolicyAnswer(message, MsgAnswer::Merge);
    // Only the overwrite questions offer Merge or say which answer keeps the user's work.
    const bool aboutFile =
        message.buttons == MsgButtons::MergeYesNoCancel || message.keepsUserWork.has_value();
    report_.questions.push_back({message.text, answer, aboutFile});
    return answer;
  }

 private:
  DryRunReport& report_;
};

class NoProgress : public generator::ProgressSink {
 public:
  void Load(std::string_view) override {}
  void Show() override {}
  void Unload() override {}
  void Repaint() override {}
  void SetState(std::string_view) override {}
  void SetBarVisible(bool) override {}
  void SetMin(float) override {}
  void SetMax(float) override {}
  float Value() const override { return 0; }
  void SetValue(float) override {}
};

// Each file that existed was asked about, in the order the files are saved.
void NoteQuestionsBesideFiles(DryRunReport& report) {
  auto question = report.questions.begin();
  for (generator::DryRunEntry& entry : report.entries) {
    if (!entry.generated || entry.choice == platform::SaveChoice::Create) continue;
    while (question != report.questions.end() && !question->aboutFile) ++question;
    if (question == report.questions.end()) return;
    entry.question = *question++;
  }
}

}  // namespace

DryRunReport DryGeneration(session::FormState& form, const DryRunServices& services) {
  platform::VbFilesEnvironment environment(services.fs, services.registry, services.merger,
                                           platform::vbfiles::Saving::DryRun);
  generator::Generator generator(environment, services.application, services.fs,
                                 services.registry, services.prompter, services.progress);
  DryRunReport report;
  report.generated = generator.Generate(form);
  if (report.generated) {
    report.entries = generator::DryRunEntries(services.fs, services.fs.CreatedFolders(),
                                              generator.WrittenFiles(),
                                              environment.GetRegeneration()->Saved());
  }
  return report;
}

DryRunReport PreviewGeneration(const session::FormState& form, const platform::FileSystem& fs,
                               const platform::Registry& registry,
                               platform::AnalysisApplication* application,
                               const platform::TextMergerSource& merger) {
  session::FormState settings = form;  // the generation writes FilesFolder
  platform::DryRunFileSystem dry(fs);
  DryRunReport noted;
  AssumedAnswers answers(noted);
  NoProgress progress;
  DryRunReport report;
  try {
    report = DryGeneration(settings, {dry, registry, answers, application, merger, progress});
  } catch (const vbrt::VbError& e) {
    noted.failure = e.Description();
  } catch (const std::exception& e) {
    noted.failure = e.what();
  }
  report.questions = std::move(noted.questions);
  report.failure = std::move(noted.failure);
  if (report.generated) NoteQuestionsBesideFiles(report);
  return report;
}

}  // namespace app
