#include "app/gui_main.h"

#include <QApplication>
#include <clocale>
#include <cstdlib>
#include <iostream>
#include <exception>
#include <memory>
#include <optional>

#include "app/commands.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/program_folder.h"
#include "platform/regfile/registry_files.h"
#include "platform/vbfiles/vb_files_environment.h"
#include "wizard/generation_runner.h"
#include "wizard/chm_help_viewer.h"
#include "wizard/message_box_prompter.h"
#include "wizard/model/wizard_connection.h"
#include "wizard/wizard_view.h"

namespace app {
namespace {
// The server's project name: the title of a message box that names none.
constexpr const char* kDefaultMessageTitle = "SondelW";
}  // namespace

int RunWizardWindow(int argc, char** argv, const std::string& sessionFile) {
  // Without any display Qt would abort; say what to do instead.
  if (std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") == nullptr &&
      std::getenv("QT_QPA_PLATFORM") == nullptr) {
    std::cerr << "eowizard: no display to open the wizard window on; the subcommands work "
                 "without one (see eowizard --help)\n";
    return 1;
  }
  QApplication application(argc, argv);
  // Qt takes the user's locale for everything; numbers are converted with the format
  // captured at start-up, and the libraries expect the C locale's.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName("eowizard");
  // Finish hides the window while the generator works: only the wizard's closing ends.
  QApplication::setQuitOnLastWindowClosed(false);

  wizard::MessageBoxPrompter prompter(kDefaultMessageTitle);
  std::optional<platform::RegistryFiles> registry;
  try {
    registry = platform::RegistryFiles::FromEnvironment();
  } catch (const std::exception& e) {
    prompter.Show({e.what(), platform::MsgButtons::OK, platform::MsgIcon::Critical, ""});
    return 1;
  }
  platform::PosixFileSystem fs(platform::DriveMap::FromEnvironment());
  platform::VbFilesEnvironment environment(fs, *registry);
  // Help beside the program as the wizard names it, else the installed copy.
  wizard::ChmHelpViewer help(fs, {platform::InstalledDataFolder() / "Help"});
  wizard::FormServices services{
      fs,
      *registry,
      prompter,
      help,
      platform::ProgramFolder().string(),
      platform::UserDataFolder().string(),
      [] { return CreateAnalysisApplication(); },
      wizard::GenerationWithProgressWindow(fs, *registry, prompter)};

  wizard::Wizard addIn(
      [&] {
        auto form = std::make_unique<wizard::WizardForm>(services);
        auto view = std::make_unique<wizard::QtWizardView>(*form, fs);
        QObject::connect(view->Window(), &QObject::destroyed, &application,
                         &QCoreApplication::quit);
        form->AttachView(std::move(view));
        return form;
      },
      prompter);
  addIn.AddinInstance_OnConnection(&environment);
  wizard::WizardForm* form = addIn.Form();
  if (form == nullptr) return 1;  // the wizard told the user why
  if (!sessionFile.empty()) {
    form->TextEdited(wizard::Field::File, sessionFile);
    form->FieldLeft(wizard::Field::File);
  }
  QApplication::exec();
  addIn.AddinInstance_OnDisconnection();
  return 0;
}

}  // namespace app
