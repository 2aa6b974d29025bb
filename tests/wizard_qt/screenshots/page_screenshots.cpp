// Saves a picture of every page of the wizard filled from the heater example, of the
// cell editors and dialogs of the parameter pages, of the basic-files page with the
// converter example's model picture and after its sketch was made, of what the window
// tells beside typed text, of the finish page without a project, of the preview of a
// generation, of message boxes, and of
// the progress and start-up windows into the build folder, for a person to look at.
// The help window is saved as the dialogs open it. The pages and dialogs are also saved
// reduced into screenshots/help: the help topics show copies of those (help/HTML/images).
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QSettings>
#include <QStandardPaths>
#include <QtTest>
#include <fstream>
#include <iterator>

#include "../wizard_fixture.h"
#include "generator/merge_report.h"
#include "wizard/generation_runner.h"
#include "wizard/launch_notice.h"
#include "wizard/message_box_prompter.h"
#include "wizard/progress_window.h"

using wizard_test::ClickCell;
using wizard_test::Field;
using wizard_test::OnNextDialog;
using wizard_test::Type;
using wizard_test::WizardFixture;

class PageScreenshots : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    // The help window opens at its first size, and keeps its size out of ~/.config.
    QStandardPaths::setTestModeEnabled(true);
    QSettings("eowizard", "eowizard").clear();
    QVERIFY(QDir().mkpath(EOW_SCREENSHOT_DIR "/help"));
  }

  void everyPageWithItsEditorsAndDialogs() {
    WizardFixture ui;
    ui.Connect();
    ui.Click("btnNext");
    ui.prompter.Answer(platform::MsgAnswer::Yes);
    ui.TypeAndLeave("edFile", "examples/heater/Heater.bvg");  // beside the working folder
    ui.Click("btnBack");
    for (int page = 0; page < wizard::kPageCount; ++page) {
      QCOMPARE(ui.Page(), page);
      Save(ui.window, QString("page%1.png").arg(page), kForHelp);
      if (page == 5) SaveInputEditors(ui);
      if (page == 6) SaveDialog(ui, "btnOutputCustom", "dlgOutput.png", kForHelp);
      ui.Click("btnNext");
    }
  }

  // The converter example, whose model is converted into code, with edge 3 clicked; and
  // the same page for a model that cannot be converted.
  void basicFilesPageWithTheModelPicture() {
    WizardFixture ui;
    ui.ShowConverterModel();
    ui.ClickEdge(2);
    QTest::qWait(50);  // the window grows to the picture's room
    Save(ui.window, "page4-model-picture.png");
    ui.window->resize(1000, 760);
    QTest::qWait(50);
    Save(ui.window, "page4-model-picture-large.png");
    ui.refusal = "curve 3 is a full circle; split it into arcs with different end points to "
                 "convert it";
    ui.Click("btnBack");
    ui.Click("btnNext");
    Save(ui.window, "page4-model-refused.png");
  }

  // The preview from the finish page of the actuator: without the host's library, its
  // first generation, and its regeneration over a limit the engineer edited that the
  // session changes too.
  void previewOfAFirstGenerationAndOfAMergeWithAConflict() {
    WizardFixture ui;
    ui.Connect();
    ui.Click("btnNext");
    ui.prompter.Answer(platform::MsgAnswer::Yes);
    ui.TypeAndLeave("edFile", EOW_EXAMPLES_DIR "/actuator/Actuator.bvg");
    ui.GoToPage(2);
    const std::string project = ui.Path("Actuator.vbp");
    ui.TypeAndLeave("edLocation", project);
    ui.GoToPage(7);
    SaveDialog(ui, "btnPreview", "dlgPreview-failed.png");
    ui.registry.AddFile(EOW_EXAMPLES_DIR "/registry/demo-host.reg");
    SaveDialog(ui, "btnPreview", "dlgPreview-first.png");

    wizard::WizardForm& form = *ui.addIn.Form();
    QVERIFY(wizard::GenerationWithProgressWindow(ui.fs, ui.registry, ui.prompter)(form));
    const std::string cls = ui.Path("Actuator.cls");
    std::ifstream in(cls, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    text.replace(text.find("        Max = 5\r\n"), 17, "        Max = 4.5\r\n");
    std::ofstream(cls, std::ios::binary) << text;
    form.State().lvInput.SetSubItem(0, 5, "6");
    SaveDialog(ui, "btnPreview", "dlgPreview.png", kForHelp);
  }

  // The converter's sketch made with "Create sketch file now": the page with the sketch
  // file in its field, and the bitmap itself.
  void basicFilesPageAfterASketchWasMade() {
    WizardFixture ui;
    ui.ShowConverterModel();
    const QString sketch = QDir(EOW_SCREENSHOT_DIR).filePath("Converter-sketch.bmp");
    QFile::remove(sketch);
    auto ran = OnNextDialog([&](QDialog& dialog) {
      static_cast<QFileDialog&>(dialog).selectFile(sketch);
      QMetaObject::invokeMethod(&dialog, "accept");
    });
    ui.Click("btnCreateSketch");
    QVERIFY(*ran);
    QVERIFY(QImage(sketch).save(QDir(EOW_SCREENSHOT_DIR).filePath("sketch.png")));
    Save(ui.window, "page4-sketch-made.png");
  }

  void textTheCodePageCannotHold() {
    WizardFixture ui;
    ui.Connect();
    ui.GoToPage(2);
    ui.TypeAndLeave("edAuthor", "José Müller 张伟");
    auto* location = ui.Control<QLineEdit>("edLocation");
    location->setFocus();
    Type(location, "/home/jose/项目/Demo.vbp", true);
    Save(ui.window, "page2-code-page.png");
  }

  void inputDialogWithItsReasonLine() {
    WizardFixture ui;
    ui.Connect();
    ui.GoToPage(5);
    auto ran = OnNextDialog([](QDialog& dialog) {
      Type(Field(dialog, "edName"), "Coil length 长度");
      Type(Field(dialog, "edVariable"), "1length");
      Save(&dialog, "dlgInput-reason.png");
    });
    ui.Click("btnInputAdd");
    QVERIFY(*ran);
  }

  void messageBoxes() {
    wizard::MessageBoxPrompter prompter("SondelW");
    const struct {
      const char* file;
      platform::Message message;
    } boxes[] = {
        {"msg-short.png",
         {"Nothing's selected.", platform::MsgButtons::OK, platform::MsgIcon::Exclamation,
          "Zentrix Bravant ExploringObject Wizard"}},
        {"msg-overwrite.png",
         {"Project file '/home/jose/projects/coil-actuator-2024/Demo.vbp' already exists. "
          "Overwrite ?",
          platform::MsgButtons::YesNoCancel, platform::MsgIcon::Exclamation,
          "Zentrix Bravant ExploringObject Wizard"}},
    };
    for (const auto& box : boxes) {
      auto ran = OnNextDialog([&](QDialog& dialog) {
        Save(&dialog, box.file);
        dialog.reject();
      });
      prompter.Show(box.message);
      QVERIFY(*ran);
    }
  }

  void finishPageWithoutProject() {
    WizardFixture ui;
    ui.Connect();
    ui.GoToPage(7);
    Save(ui.window, "page7-without-project.png");
  }

  // The question about a class file the engineer changed since it was generated, and the
  // message after a merge with conflicts.
  void mergeQuestionAndConflicts() {
    wizard::MessageBoxPrompter prompter("SondelW");
    auto ran = OnNextDialog([](QDialog& box) { Save(&box, "merge-question.png"); });
    prompter.Show({"Class module 'C:\\Models\\Actuator\\Actuator.cls' already exists. "
                   "Overwrite ?\nThe file was changed since it was generated: Merge keeps "
                   "those changes.",
                   platform::MsgButtons::MergeYesNoCancel, platform::MsgIcon::Exclamation,
                   "Zentrix Bravant ExploringObject Wizard"});
    QVERIFY(*ran);
    using platform::SaveChoice;
    const auto conflicts = generator::MergeOutcome(
        {{"C:\\Models\\Actuator\\Actuator.cls", SaveChoice::Merge, {{218, 224}, {301, 309}}},
         {"C:\\Models\\Actuator\\Actuator.bas", SaveChoice::Merge, {{40, 46}}}});
    ran = OnNextDialog([](QDialog& box) { Save(&box, "merge-conflicts.png"); });
    prompter.Show(conflicts.value());
    QVERIFY(*ran);
  }

  void helpWindowOpenedFromTheDialogs() {
    WizardFixture ui(false, wizard_test::Help::FromBuiltFile);
    ui.Connect();
    const struct {
      int page;
      const char* opens;
      Qt::Key key;  // F1, or none for the Help button
      const char* name;
    } dialogs[] = {{5, "btnInputAdd", Qt::Key_unknown, "help-input-dialog.png"},
                   {6, "btnOutputCustom", Qt::Key_F1, "help-custom-output.png"}};
    for (const auto& d : dialogs) {
      ui.GoToPage(d.page);
      auto ran = OnNextDialog([&](QDialog& dialog) {
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        if (d.key == Qt::Key_F1) {
          QTest::keyClick(&dialog, Qt::Key_F1);
        } else {
          QTest::mouseClick(dialog.findChild<QPushButton*>("btnHelp"), Qt::LeftButton);
        }
        QVERIFY(ui.builtHelp.Window() != nullptr);
        Save(ui.builtHelp.Window(), d.name);
      });
      ui.Click(d.opens);
      QVERIFY(*ran);
    }
  }

  void progressAndLaunchWindows() {
    wizard::ProgressWindow progress;
    progress.Load("Generating ExploringObject project");
    progress.SetState("Writing class module...");
    progress.SetMax(40);
    progress.SetValue(25);
    progress.Show();
    Save(&progress, "progress.png");
    wizard::LaunchNotice notice("Zentrix Bravant ExploringObject Wizard",
                                "Zentrix is starting... Please wait...");
    notice.ShowNow();
    Save(&notice, "launch.png");
  }

 private:
  static constexpr bool kForHelp = true;
  static constexpr double kHelpScale = 0.6;

  static void Save(QWidget* window, const QString& name, bool forHelp = false) {
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QTest::qWait(20);  // the lists lay out their rows and scroll bars a moment later
    const QPixmap picture = window->grab();
    QVERIFY(picture.save(QDir(EOW_SCREENSHOT_DIR).filePath(name)));
    if (forHelp) {
      QVERIFY(picture.scaledToWidth(qRound(picture.width() * kHelpScale), Qt::SmoothTransformation)
                  .save(QDir(EOW_SCREENSHOT_DIR "/help").filePath(name)));
    }
  }

  static void SaveDialog(WizardFixture& ui, const char* button, const QString& name,
                         bool forHelp = false) {
    auto ran = OnNextDialog([=](QDialog& dialog) { Save(&dialog, name, forHelp); });
    ui.Click(button);
    QVERIFY(*ran);
  }

  static void SaveInputEditors(WizardFixture& ui) {
    auto* list = ui.Control<QTreeWidget>("lvInput");
    ClickCell(*list, 1, 1);
    Save(ui.window, "page5-type-editor.png");
    QTest::keyClick(ui.Control<QComboBox>("lvCombo"), Qt::Key_Escape);
    ClickCell(*list, 2, 0);
    Save(ui.window, "page5-text-editor.png");
    QTest::keyClick(ui.Control<QLineEdit>("lvEdit"), Qt::Key_Escape);
    SaveDialog(ui, "btnInputEdit", "dlgInput.png", kForHelp);
  }
};

QTEST_MAIN(PageScreenshots)
#include "page_screenshots.moc"
