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

// Passes every message on and notes each question with the answer it got.
class NotedQuestions : public platform::Prompter {
 public:
  NotedQuestions(platform::Prompter& prompter, std::vector<AnsweredQuestion>& noted)
      : prompter_(prompter), noted_(noted) {}

  MsgAnswer Show(const Message& message) override {
    const MsgAnswer answer = prompter_.Show(message);
    if (message.buttons != MsgButtons::OK) {
      // Only the overwrite questions offer Merge or say which answer keeps the user's work.
      const bool aboutFile =
          message.buttons == MsgButtons::MergeYesNoCancel || message.keepsUserWork.has_value();
      noted_.push_back({message.text, answer, aboutFile});
    }
    return answer;
  }

 private:
  platform::Prompter& prompter_;
  std::vector<AnsweredQuestion>& noted_;
};

// Answers as --answer merge does; of the messages it is told, keeps a failure's.
class AssumedAnswers : public platform::Prompter {
 public:
  explicit AssumedAnswers(std::string& failure) : failure_(failure) {}

  MsgAnswer Show(const Message& message) override {
    if (message.buttons != MsgButtons::OK) {
      return platform::PolicyAnswer(message, MsgAnswer::Merge);
    }
    if (message.icon == MsgIcon::Critical) {
      if (!failure_.empty()) failure_ += "\n";
      failure_ += message.text;
    }
    return MsgAnswer::OK;
  }

 private:
  std::string& failure_;
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

}  // namespace

DryRunReport DryGeneration(session::FormState& form, const DryRunServices& services) {
  platform::VbFilesEnvironment environment(services.fs, services.registry, services.merger,
                                           platform::vbfiles::Saving::DryRun);
  DryRunReport report;
  NotedQuestions prompter(services.prompter, report.questions);
  generator::Generator generator(environment, services.application, services.fs,
                                 services.registry, prompter, services.progress);
  report.generated = generator.Generate(form);
  if (report.generated) {
    report.entries = generator::DryRunEntries(services.fs, services.fs.CreatedFolders(),
                                              generator.WrittenFiles(),
                                              environment.GetRegeneration()->Saved(),
                                              report.questions);
  }
  return report;
}

DryRunReport PreviewGeneration(const session::FormState& form, const platform::FileSystem& fs,
                               const platform::Registry& registry,
                               platform::AnalysisApplication* application,
                               const platform::TextMergerSource& merger) {
  session::FormState settings = form;  // the generation writes FilesFolder
  platform::DryRunFileSystem dry(fs);
  std::string failure;
  AssumedAnswers answers(failure);
  NoProgress progress;
  DryRunReport report;
  try {
    report = DryGeneration(settings, {dry, registry, answers, application, merger, progress});
  } catch (const vbrt::VbError& e) {
    failure = e.Description();
  } catch (const std::exception& e) {
    failure = e.what();
  }
  report.failure = std::move(failure);
  return report;
}

}  // namespace app
