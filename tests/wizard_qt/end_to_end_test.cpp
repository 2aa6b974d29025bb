// A session made only through the window's pages, with the mouse and the keyboard, is
// saved as the same session written by hand (plate_session.bvg), and generates the same
// files as that session file generated directly.
#include <QComboBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QtTest>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "generator/generator.h"
#include "session/session_file.h"
#include "wizard/model/page_checks.h"
#include "wizard/progress_window.h"
#include "wizard_fixture.h"

using platform::MsgAnswer;
using wizard_test::ClickCell;
using wizard_test::Field;
using wizard_test::OnNextDialog;
using wizard_test::WizardFixture;

namespace {

namespace fs = std::filesystem;

std::string ReadBytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

// The hand-written session with CR LF line ends and `project` for @PROJECT@.
std::string HandWrittenSession(const std::string& project) {
  std::istringstream in(ReadBytes(EOW_TEST_DIR "/wizard_qt/plate_session.bvg"));
  std::string text;
  for (std::string line; std::getline(in, line);) {
    if (const auto at = line.find("@PROJECT@"); at != std::string::npos)
      line.replace(at, 9, project);
    text += line + "\r\n";
  }
  return text;
}

// Every file under `folder` by its relative path, with its bytes.
std::map<std::string, std::string> FilesUnder(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file())
      files[fs::relative(entry.path(), folder).string()] = ReadBytes(entry.path());
  }
  return files;
}

// Types `text` over the in-place editor's selected text and presses Enter.
void EnterCell(QLineEdit& editor, const QString& text) {
  QTest::keyClicks(&editor, text);
  QTest::keyClick(&editor, Qt::Key_Return);
}

int RowWithText(const QTreeWidget& list, const QString& text) {
  for (int row = 0; row < list.topLevelItemCount(); ++row)
    if (list.topLevelItem(row)->text(0) == text) return row;
  return -1;
}

}  // namespace

class EndToEndTest : public QObject {
  Q_OBJECT

 private slots:
  void sessionMadeOnThePagesGeneratesAsTheSameSessionFile() {
    WizardFixture ui(true);
    ui.registry.AddFile(EOW_EXAMPLES_DIR "/registry/demo-host.reg");
    const fs::path out = ui.Path("out");
    fs::create_directories(out);
    const std::string project = (out / "Plate.vbp").string();
    ui.Connect();
    const std::string sessionFile = ui.addIn.Form()->State().edFile;

    ui.GoToPage(2);
    ui.TypeAndLeave("edLocation", project);
    ui.TypeAndLeave("edAuthor", "Tester");
    ui.GoToPage(3);
    auto* type = ui.Control<QComboBox>("cmbType");
    type->setFocus();
    QTest::keyClick(type, Qt::Key_Down);
    QTest::keyClick(type, Qt::Key_Down);
    ui.GoToPage(5);
    EnterInputs(ui);
    ui.GoToPage(6);
    ChooseOutputs(ui);
    ui.Click("btnFinish");
    QCOMPARE(ui.prompter.shown.back().text,
             std::string("Your ExploringObject project was succesfully created."));
    QCOMPARE(ui.prompter.Pending(), std::size_t{0});
    QCOMPARE(QString::fromStdString(ReadBytes(sessionFile)),
             QString::fromStdString(HandWrittenSession(project)));
    const auto fromPages = FilesUnder(out);
    QCOMPARE(fromPages.size(), std::size_t{6});  // the project's three files and their pristine copies

    fs::remove_all(out);
    fs::create_directories(out);
    const std::string handWritten = ui.Path("Hand.bvg");
    std::ofstream(handWritten, std::ios::binary) << HandWrittenSession(project);
    GenerateFromFile(ui, handWritten);
    QVERIFY(FilesUnder(out) == fromPages);
  }

  // The actuator generated, a limit edited in the class, the same limit changed in the
  // session and generated again with Merge: one box names the file and the conflict's
  // lines, and no success message comes.
  void regenerationOverEditsEndsWithOneBoxAboutTheMerge() {
    WizardFixture ui(true);
    ui.registry.AddFile(EOW_EXAMPLES_DIR "/registry/demo-host.reg");
    const fs::path out = ui.Path("out");
    fs::create_directories(out);
    ui.Connect();
    ui.Click("btnNext");
    ui.prompter.Answer(MsgAnswer::Yes);  // load the session over the start-up settings
    ui.TypeAndLeave("edFile", EOW_EXAMPLES_DIR "/actuator/Actuator.bvg");
    ui.GoToPage(2);
    ui.TypeAndLeave("edLocation", (out / "Actuator.vbp").string());
    wizard::WizardForm& form = *ui.addIn.Form();
    const auto generate = wizard::GenerationWithProgressWindow(ui.fs, ui.registry, ui.prompter);
    QVERIFY(generate(form));

    const fs::path cls = out / "Actuator.cls";
    std::string text = ReadBytes(cls);
    text.replace(text.find("        Max = 5\r\n"), 17, "        Max = 4.5\r\n");
    std::ofstream(cls, std::ios::binary) << text;
    form.State().lvInput.SetSubItem(0, 5, "6");
    ui.prompter.shown.clear();

    // The preview from the finish page shows the conflict to come, asks nothing and
    // writes nothing; Finish afterwards asks as before.
    ui.GoToPage(7);
    const auto files = FilesUnder(out);
    auto ran = OnNextDialog([](QDialog& dialog) {
      auto* list = dialog.findChild<QTreeWidget*>("lvPreview");
      auto* text = dialog.findChild<QPlainTextEdit*>("txtPreview");
      QCOMPARE(list->topLevelItemCount(), 5);  // two copies, class, module and project file
      QVERIFY(text->toPlainText().contains("\n+<<<<<<< Actuator.cls as you changed it\n"));
      QCOMPARE(wizard_test::RowTexts(*list, 2),
               QStringList({"Actuator.cls", "merged with 1 conflict (lines 218-224)", "Merge"}));
      ClickCell(*list, 0, 0);
      QCOMPARE(text->toPlainText(), QString("A working copy of a basic file, copied as it is."));
      ClickCell(*list, 2, 0);
      dialog.activateWindow();
      QVERIFY(QTest::qWaitForWindowActive(&dialog));
      QTest::keyClick(&dialog, Qt::Key_F, Qt::ControlModifier);
      QCOMPARE(dialog.focusWidget()->objectName(), QString("edFind"));
      wizard_test::Type(dialog.focusWidget(), "Max = 6");
      QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
      QCOMPARE(text->textCursor().selectedText(), QString("Max = 6"));
    });
    ui.Click("btnPreview");
    QVERIFY(*ran);
    QCOMPARE(FilesUnder(out), files);
    QVERIFY(ui.prompter.shown.empty());
    for (MsgAnswer answer : {MsgAnswer::Yes, MsgAnswer::Yes, MsgAnswer::Merge, MsgAnswer::Yes})
      ui.prompter.Answer(answer);
    QVERIFY(generate(form));
    QCOMPARE(ui.prompter.shown[2].buttons, platform::MsgButtons::MergeYesNoCancel);
    QCOMPARE(ui.prompter.shown.size(), std::size_t{5});
    const platform::Message& report = ui.prompter.shown.back();
    QCOMPARE(report.icon, platform::MsgIcon::Exclamation);
    // The file as the record names it, which is how the questions named it too.
    QVERIFY2(report.text.ends_with("\n" + out.string() + "/Actuator.cls: lines 218-224"),
             report.text.c_str());
    QVERIFY(ReadBytes(cls).find(">>>>>>> Actuator.cls as generated now\r\n") != std::string::npos);
  }

 private:
  // Page 5: one row through "<new>" and the editors, one through the dialog, one more
  // through "<new>" with the type list.
  static void EnterInputs(WizardFixture& ui) {
    auto* list = ui.Control<QTreeWidget>("lvInput");
    auto* edit = ui.Control<QLineEdit>("lvEdit");
    auto* combo = ui.Control<QComboBox>("lvCombo");
    ui.prompter.Answer(MsgAnswer::Yes);
    ClickCell(*list, 0, 0);
    EnterCell(*edit, "Plate thickness");
    QTest::keyClick(combo, Qt::Key_Return);
    for (const char* text : {"thickness", "mm", "1", "20", "4"}) EnterCell(*edit, text);
    QTest::keyClick(edit, Qt::Key_Escape);

    auto ran = OnNextDialog([](QDialog& dialog) {
      QTest::keyClicks(Field(dialog, "edName"), "Heater power");
      QTest::keyClicks(Field(dialog, "edVariable"), "power");
      QTest::mouseClick(dialog.findChild<QRadioButton*>("optPhys"), Qt::LeftButton);
      QTest::keyClicks(Field(dialog, "edUnit"), "W/m3");
      QTest::keyClicks(Field(dialog, "edMin"), "1000");
      QTest::keyClicks(Field(dialog, "edMax"), "1e6");
      QTest::keyClicks(Field(dialog, "edValue"), "50000");
      QTest::mouseClick(dialog.findChild<QPushButton*>("btnOK"), Qt::LeftButton);
    });
    ui.Click("btnInputAdd");
    QVERIFY(*ran);

    ui.prompter.Answer(MsgAnswer::Yes);
    ClickCell(*list, 2, 0);
    EnterCell(*edit, "Ambient temperature");
    for (int i = 0; i < 3; ++i) QTest::keyClick(combo, Qt::Key_Down);
    QTest::keyClick(combo, Qt::Key_Return);
    // Min 250 lifts Max and Default to 250 before they are typed.
    for (const char* text : {"ambient", "K", "250", "350", "293"}) EnterCell(*edit, text);
    QTest::keyClick(edit, Qt::Key_Escape);
  }

  // Page 6: two standard quantities and one custom output.
  static void ChooseOutputs(WizardFixture& ui) {
    auto* standard = ui.Control<QTreeWidget>("lvStandard");
    ClickCell(*standard, RowWithText(*standard, "Surface area"), 0);
    ClickCell(*standard, RowWithText(*standard, "Temperature"), 0, Qt::ControlModifier);
    ui.Click("btnOutputStandard");
    auto ran = OnNextDialog([](QDialog& dialog) {
      QTest::keyClicks(Field(dialog, "edName"), "Losses");
      Field(dialog, "edValue")->selectAll();
      QTest::keyClicks(Field(dialog, "edValue"), "Locals.Potential * 2");
      QTest::mouseClick(dialog.findChild<QPushButton*>("btnOK"), Qt::LeftButton);
    });
    ui.Click("btnOutputCustom");
    QVERIFY(*ran);
  }

  // What the command line's generate does: the session read from its file, generated in
  // a fresh development environment.
  static void GenerateFromFile(WizardFixture& ui, const std::string& path) {
    platform::ScriptedPrompter prompter;
    wizard::PageChecks checks(ui.fs, ui.registry, prompter);
    session::FormState form;
    form.SetFieldHandlers(&checks);
    form.edFile = path;
    vbrt::FileTable files;
    std::string message;
    QVERIFY2(session::LoadSession(form, {files, ui.fs}, path, message), message.c_str());
    platform::VbFilesEnvironment environment(ui.fs, ui.registry, platform::merge::Libgit2Merger);
    wizard::ProgressWindow progress;
    generator::Generator generator(environment, nullptr, ui.fs, ui.registry, prompter, progress);
    QVERIFY(generator.Generate(form));
  }
};

int RunEndToEndTests(int argc, char** argv) {
  EndToEndTest test;
  return QTest::qExec(&test, argc, argv);
}

#include "end_to_end_test.moc"
