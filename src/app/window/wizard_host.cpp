#include "app/window/wizard_host.h"

#include <QApplication>
#include <iostream>

#include "app/dry_run.h"
#include "platform/posix/program_folder.h"
#include "wizard/generation_runner.h"
#include "wizard/preview_dialog.h"
#include "wizard/wizard_view.h"

namespace app {

AnsweredQuestions::AnsweredQuestions(platform::Prompter& boxes, platform::MsgAnswer answer)
    : boxes_(boxes), console_(std::cin, std::cerr, false, answer) {}

platform::MsgAnswer AnsweredQuestions::Show(const platform::Message& message) {
  return message.buttons == platform::MsgButtons::OK ? boxes_.Show(message)
                                                     : console_.Show(message);
}

WizardHost::WizardHost(const WindowStart& start, platform::Prompter& boxes)
    : start_(start),
      answered_(start.answer ? std::make_unique<AnsweredQuestions>(boxes, *start.answer)
                             : nullptr),
      prompter_(answered_ ? *answered_ : boxes),
      environment_(start.fs, start.registry, start.merger),
      // Help beside the program as the wizard names it, else the installed copy.
      help_(start.fs, {platform::InstalledDataFolder() / "Help"}),
      services_{start.fs,
                start.registry,
                prompter_,
                help_,
                platform::ProgramFolder().string(),
                platform::UserDataFolder().string(),
                [this] { return start_.createAnalysis(modelReadWait_); },
                wizard::GenerationWithProgressWindow(start.fs, start.registry, prompter_),
                wizard::PreviewInDialog(
                    [&start](wizard::WizardForm& form) {
                      return PreviewGeneration(form.State(), start.fs, start.registry,
                                               form.ZX(), start.merger);
                    },
                    start.merger)},
      addIn_(
          [this] {
            auto form = std::make_unique<wizard::WizardForm>(services_);
            auto view = std::make_unique<wizard::QtWizardView>(*form, start_.fs);
            QObject::connect(view->Window(), &QObject::destroyed, qApp,
                             &QCoreApplication::quit);
            form->AttachView(std::move(view));
            return form;
          },
          prompter_) {}

bool WizardHost::Connect() {
  addIn_.AddinInstance_OnConnection(&environment_);
  wizard::WizardForm* form = addIn_.Form();
  if (form == nullptr) return false;
  if (!start_.sessionFile.empty()) {
    form->TextEdited(wizard::Field::File, start_.sessionFile);
    form->FieldLeft(wizard::Field::File);
  }
  return true;
}

}  // namespace app
