#pragma once
// A wizard connected as main() connects it, with its window offscreen, files in a
// temporary folder, message boxes answered from a script and generation recorded.
#include <QCoreApplication>
#include <QDir>
#include <QPointer>
#include <QStackedWidget>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "platform/posix/posix_file_system.h"
#include "platform/prompt/scripted_prompter.h"
#include "platform/regfile/registry_files.h"
#include "platform/vbfiles/vb_files_environment.h"
#include "vbrt/error.h"
#include "wizard/model/wizard_connection.h"
#include "wizard/wizard_view.h"

namespace wizard_test {

class FakeAnalysis : public platform::AnalysisApplication {
 public:
  std::string ProductName() const override { return "Zentrix 5.2"; }
  std::unique_ptr<platform::BasicModel> OpenModel(std::string_view) override {
    throw vbrt::VbError(vbrt::kFileNotFound, "File not found");
  }
};

class RecordingHelp : public platform::HelpViewer {
 public:
  std::vector<std::string> topics;
  void ShowTopic(std::string_view fileAndTopic) override { topics.emplace_back(fileAndTopic); }
};

class WizardFixture {
 public:
  // Generation succeeds or fails as `generationResult` says, unless `generate` is given.
  explicit WizardFixture(wizard::GenerationRunner generate = {})
      : services_{fs,
                  registry,
                  prompter,
                  help,
                  Path("program"),
                  Path("user"),
                  [] { return std::make_unique<FakeAnalysis>(); },
                  generate ? std::move(generate) : [this](wizard::WizardForm&) {
                    ++generations;
                    return generationResult;
                  }},
        addIn([this] { return MakeForm(); }, prompter) {
    QDir().mkpath(QString::fromStdString(Path("program")));
  }

  // Connects the add-in; the window is shown and active afterwards.
  void Connect() {
    addIn.AddinInstance_OnConnection(&environment);
    QVERIFY(window != nullptr);
    QVERIFY(QTest::qWaitForWindowExposed(window));
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
  }

  // A path inside the temporary folder.
  std::string Path(const std::string& name) const {
    return QDir(dir.path()).filePath(QString::fromStdString(name)).toStdString();
  }

  template <typename Widget = QWidget>
  Widget* Control(const char* name) const {
    return window->findChild<Widget*>(name);
  }

  void Click(const char* button) { QTest::mouseClick(Control<QPushButton>(button), Qt::LeftButton); }

  // Types `text` into the empty field and leaves it with Tab, as a user does.
  void TypeAndLeave(const char* field, const std::string& text) {
    auto* edit = Control<QLineEdit>(field);
    edit->setFocus(Qt::MouseFocusReason);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, QString::fromStdString(text));
    QTest::keyClick(edit, Qt::Key_Tab);
  }

  int Page() const { return window->findChild<QStackedWidget*>()->currentIndex(); }

  // Lets the event loop delete what the wizard closed.
  static void DeleteLater() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  QTemporaryDir dir;
  platform::PosixFileSystem fs{platform::DriveMap{}};
  platform::RegistryFiles registry;
  platform::ScriptedPrompter prompter;
  RecordingHelp help;
  platform::VbFilesEnvironment environment{fs, registry};
  bool generationResult = true;
  int generations = 0;
  QPointer<wizard::WizardWindow> window;

 private:
  std::unique_ptr<wizard::WizardForm> MakeForm() {
    auto form = std::make_unique<wizard::WizardForm>(services_);
    auto view = std::make_unique<wizard::QtWizardView>(*form, fs);
    window = view->Window();
    form->AttachView(std::move(view));
    return form;
  }

  wizard::FormServices services_;

 public:
  wizard::Wizard addIn;
};

}  // namespace wizard_test
