#pragma once
// A wizard connected as main() connects it, with its window offscreen, files in a
// temporary folder, message boxes answered from a script, generation recorded and the
// real preview; and
// the user's ways of driving its lists and dialogs.
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "../generator/converter_model.h"
#include "app/dry_run.h"
#include "platform/posix/posix_file_system.h"
#include "platform/prompt/scripted_prompter.h"
#include "platform/regfile/registry_files.h"
#include "platform/merge/libgit2_merger.h"
#include "platform/vbfiles/vb_files_environment.h"
#include "vbrt/error.h"
#include "wizard/chm_help_viewer.h"
#include "wizard/generation_runner.h"
#include "wizard/model/wizard_connection.h"
#include "wizard/preview_dialog.h"
#include "wizard/wizard_view.h"

namespace wizard_test {

// Opens a basic model for the fake analysis application; throws vbrt::VbError to refuse.
using ModelOpener = std::function<std::unique_ptr<platform::BasicModel>(std::string_view path)>;

// Types `text` into `widget` a character at a time, any character (keyClicks knows
// Latin-1 only); with `whole`, in one go, as an input method or a paste gives it.
inline void Type(QWidget* widget, const QString& text, bool whole = false) {
  if (whole) {
    QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, text, Qt::NoModifier);
    return;
  }
  for (const QChar c : text) {
    QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(c), Qt::NoModifier);
  }
}

class FakeAnalysis : public platform::AnalysisApplication {
 public:
  explicit FakeAnalysis(const ModelOpener& open) : open_(open) {}
  std::string ProductName() const override { return "Zentrix 5.2"; }
  std::unique_ptr<platform::BasicModel> OpenModel(std::string_view path) override {
    if (open_) return open_(path);
    throw vbrt::VbError(vbrt::kFileNotFound, "File not found");
  }

 private:
  const ModelOpener& open_;
};

class RecordingHelp : public platform::HelpViewer {
 public:
  std::vector<std::string> topics;
  void ShowTopic(std::string_view fileAndTopic) override { topics.emplace_back(fileAndTopic); }
};

// How the fixture's wizard shows help: topics recorded in `help`, or shown in the help
// window from the help file the build made (found as the installed copy would be).
enum class Help { Recorded, FromBuiltFile };

class WizardFixture {
 public:
  // Generation is recorded and succeeds or fails as `generationResult` says, or, with
  // `realGeneration`, runs the generator with its progress window.
  explicit WizardFixture(bool realGeneration = false, Help helpShown = Help::Recorded)
      : services{fs, registry, prompter,
                  helpShown == Help::Recorded ? static_cast<platform::HelpViewer&>(help)
                                              : builtHelp,
                  Path("program"), Path("user"),
                  [this] { return std::make_unique<FakeAnalysis>(openModel); },
                  [this, realGeneration](wizard::WizardForm& form) {
                    if (realGeneration)
                      return wizard::GenerationWithProgressWindow(fs, registry, prompter)(form);
                    ++generations;
                    return generationResult;
                  },
                  wizard::PreviewInDialog(
                      [this](wizard::WizardForm& form) {
                        return app::PreviewGeneration(form.State(), fs, registry, form.ZX(),
                                                      platform::merge::Libgit2Merger);
                      },
                      platform::merge::Libgit2Merger)},
        addIn([this] { return MakeForm(); }, prompter) {
    QDir().mkpath(QString::fromStdString(Path("program")));
    QDir::setCurrent(EOW_TEST_DIR "/..");  // the examples' relative paths start there
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

  // Types `text` into the emptied field and leaves it with Tab, as a user does.
  void TypeAndLeave(const char* field, const std::string& text) {
    auto* edit = Control<QLineEdit>(field);
    edit->setFocus(Qt::MouseFocusReason);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Delete);
    Type(edit, QString::fromStdString(text));
    QTest::keyClick(edit, Qt::Key_Tab);
  }

  // Loads the converter example, whose model is converted into code, and shows the
  // basic-files page. The model opens as the example's, or, while `refusal` is set, it
  // is refused as "Cannot read the basic model '<path>': <refusal>".
  void ShowConverterModel() {
    openModel = [this](std::string_view path) -> std::unique_ptr<platform::BasicModel> {
      if (!refusal.empty()) {
        throw vbrt::VbError(1004, "Cannot read the basic model '" + std::string(path) +
                                      "': " + refusal);
      }
      return std::make_unique<generator::test::FakeBasicModel>(generator::test::ConverterModel());
    };
    Connect();
    Click("btnNext");
    prompter.Answer(platform::MsgAnswer::Yes);
    TypeAndLeave("edFile", EOW_EXAMPLES_DIR "/converter/Converter.bvg");
    GoToPage(4);
  }

  // Clicks the middle of edge `edge` (0-based) where the form draws it in the picture.
  void ClickEdge(int edge) {
    QWidget* canvas = Control("imgModel");
    const wizard::Drawing drawing = addIn.Form()->Picture().Draw(
        {static_cast<double>(canvas->width()), static_cast<double>(canvas->height())});
    const wizard::DrawnEdge& drawn = drawing.edges.at(edge);
    const platform::Point2 at =
        drawn.radius > 0 ? drawn.trace[drawn.trace.size() / 2]
                         : platform::Point2{(drawn.start.x + drawn.end.x) / 2,
                                            (drawn.start.y + drawn.end.y) / 2};
    QTest::mouseClick(canvas, Qt::LeftButton, {}, QPoint(qRound(at.x), qRound(at.y)));
  }

  int Page() const { return window->findChild<QStackedWidget*>()->currentIndex(); }
  void GoToPage(int page) {
    while (Page() < page) Click("btnNext");
  }

  QTemporaryDir dir;
  platform::PosixFileSystem fs{platform::DriveMap{}};
  platform::RegistryFiles registry;
  platform::ScriptedPrompter prompter;
  RecordingHelp help;
  wizard::ChmHelpViewer builtHelp{fs, {EOW_HELP_DIR}};
  platform::VbFilesEnvironment environment{fs, registry, platform::merge::Libgit2Merger};
  ModelOpener openModel;  // none: every basic model is refused as not found
  std::string refusal;    // see ShowConverterModel
  bool generationResult = true;
  int generations = 0;
  QPointer<wizard::WizardWindow> window;
  wizard::FormServices services;
  wizard::Wizard addIn;

 private:
  std::unique_ptr<wizard::WizardForm> MakeForm() {
    auto form = std::make_unique<wizard::WizardForm>(services);
    auto view = std::make_unique<wizard::QtWizardView>(*form, fs);
    window = view->Window();
    form->AttachView(std::move(view));
    return form;
  }
};

// Clicks cell (row, column) of `list`, both counted from 0.
inline void ClickCell(QTreeWidget& list, int row, int column,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  list.scrollToItem(list.topLevelItem(row));
  QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers,
                    list.visualRect(list.model()->index(row, column)).center());
}

// The texts of every column of row `row`.
inline QStringList RowTexts(const QTreeWidget& list, int row) {
  QStringList texts;
  for (int column = 0; column < list.columnCount(); ++column)
    texts << list.topLevelItem(row)->text(column);
  return texts;
}

inline QLineEdit* Field(QDialog& dialog, const char* name) {
  return dialog.findChild<QLineEdit*>(name);
}

// Runs `steps` in the modal dialog that the next action opens; a dialog the steps leave
// open is cancelled. The flag tells whether the steps ran.
inline std::shared_ptr<bool> OnNextDialog(std::function<void(QDialog&)> steps, int tries = 400) {
  auto ran = std::make_shared<bool>(false);
  auto* poll = new QTimer(qApp);
  poll->setInterval(5);
  QObject::connect(poll, &QTimer::timeout, poll, [=]() mutable {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr && --tries > 0) return;
    poll->stop();
    poll->deleteLater();
    if (dialog == nullptr) return;
    *ran = true;
    steps(*dialog);
    if (dialog->isVisible()) dialog->reject();
  });
  poll->start();
  return ran;
}

}  // namespace wizard_test
