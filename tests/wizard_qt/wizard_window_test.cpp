// The real wizard window, driven offscreen as a user drives it: what it shows of the
// form, and what its controls forward.
#include <QComboBox>
#include <QFileDialog>
#include <QImageReader>
#include <QLabel>
#include <QRadioButton>
#include <QtTest>

#include "../app/hostile_models.h"
#include "app/commands.h"
#include "app/services.h"
#include "app/window/wizard_host.h"
#include "wizard/model_read_window.h"
#include "wizard_fixture.h"

using platform::MsgAnswer;
using wizard_test::OnNextDialog;
using wizard_test::WizardFixture;

class WizardWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void buttonsFollowThePagesAndFinishClosesOnlyAfterAGeneration() {
    WizardFixture ui;
    ui.generationResult = false;
    ui.Connect();
    QCOMPARE(ui.window->windowTitle(), QString("Zentrix ExploringObject Wizard"));
    QVERIFY(!ui.Control("btnBack")->isEnabled());
    QVERIFY(!ui.Control("btnFinish")->isEnabled());
    QVERIFY(ui.Control<QPushButton>("btnNext")->isDefault());
    ui.GoToPage(2);
    ui.TypeAndLeave("edLocation", ui.Path("Kept.vbp"));
    ui.TypeAndLeave("edAuthor", "Someone");
    QVERIFY(ui.Control("btnFinish")->isEnabled());
    ui.GoToPage(5);  // the input list keeps Return for its editors
    QVERIFY(ui.Control("btnBack")->isEnabled());
    QVERIFY(!ui.Control<QPushButton>("btnNext")->isDefault());
    ui.GoToPage(7);
    QVERIFY(!ui.Control("btnNext")->isEnabled());
    QVERIFY(ui.Control<QPushButton>("btnFinish")->isDefault());
    QCOMPARE(ui.Control<QLabel>("lblFin1")->text(),
             QString("You have succesfully completed the Zentrix Bravant Exploring Object Wizard."));

    // A failed generation brings the same window back as it was.
    ui.Click("btnFinish");
    QCOMPARE(ui.generations, 1);
    QVERIFY(ui.window->isVisible());
    QCOMPARE(ui.Page(), 7);

    ui.generationResult = true;
    ui.Click("btnFinish");
    QVERIFY(ui.addIn.Form() == nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(ui.window.isNull());
  }

  void cancelAndEscapeAskBeforeClosingAndHelpShowsThePageTopic() {
    WizardFixture ui;
    ui.Connect();
    ui.Click("btnNext");
    QVERIFY(ui.Control<QLineEdit>("edFile")->text().endsWith("WizardSessions/Generation1.bvg"));
    ui.Click("btnHelp");
    QVERIFY(QString::fromStdString(ui.help.topics.at(0)).endsWith("/HTML/WizardSavingFile.htm"));

    ui.prompter.Answer(MsgAnswer::No);
    ui.Click("btnCancel");
    QVERIFY(ui.addIn.Form() != nullptr);
    ui.prompter.Answer(MsgAnswer::Yes);
    QTest::keyClick(ui.window, Qt::Key_Escape);
    QVERIFY(ui.addIn.Form() == nullptr);
  }

  void loadedSessionIsShownOnThePages() {
    WizardFixture ui;
    ui.Connect();
    ui.Click("btnNext");
    ui.prompter.Answer(MsgAnswer::Yes);
    ui.TypeAndLeave("edFile", EOW_EXAMPLES_DIR "/heater/Heater.bvg");
    QCOMPARE(ui.Control<QLineEdit>("edAuthor")->text(), QString("Example author"));
    QCOMPARE(ui.Control<QComboBox>("cmbType")->currentText(), QString("Heat Transfer"));
    QCOMPARE(ui.Control<QComboBox>("cmbClass")->currentIndex(), 1);
    QVERIFY(ui.Control<QRadioButton>("optModelLink")->isChecked());
  }

  void focusGoesToThePagesFirstControlAfterStartNextAndBack() {
    WizardFixture ui;
    ui.Connect();
    auto focused = [] {
      return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    };
    QCOMPARE(focused(), QString("btnNext"));
    // Without a project the finish page begins with Help, as Finish is disabled.
    ui.GoToPage(7);
    QCOMPARE(focused(), QString("btnHelp"));
    for (int i = 0; i < 6; ++i) ui.Click("btnBack");  // to the session-file page: load one
    ui.prompter.Answer(MsgAnswer::Yes);
    ui.TypeAndLeave("edFile", EOW_EXAMPLES_DIR "/heater/Heater.bvg");
    ui.Click("btnBack");

    // Passing by the pages checks none of their fields: nothing is asked or told (the
    // prompter would fail the test), though the session file and the model exist.
    const char* const first[wizard::kPageCount] = {
        "btnNext", "edFile", "edLocation", "cmbType", "edModel", "lvInput", "btnOutputStandard",
        "btnFinish"};
    for (int page = 1; page < wizard::kPageCount; ++page) {
      ui.Click("btnNext");
      QCOMPARE(focused(), QString(first[page]));
    }
    for (int page = wizard::kPageCount - 2; page >= 0; --page) {
      ui.Click("btnBack");
      QCOMPARE(focused(), QString(first[page]));
    }
    // Next pressed with Enter, then typing: the text lands in the first field.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTest::keyClicks(QApplication::focusWidget(), "typed");
    QVERIFY(ui.Control<QLineEdit>("edFile")->text().endsWith("Heater.bvgtyped"));
    QVERIFY(ui.prompter.shown.size() == 1 && ui.prompter.Pending() == 0);  // the load's question
  }

  void basicFilesPageShowsTheConvertedModelOrWhyItIsRefused() {
    WizardFixture ui;
    ui.ShowConverterModel();
    QWidget* canvas = ui.Control("imgModel");
    auto* edge = ui.Control<QLabel>("lblModelEdge");
    auto* reason = ui.Control<QLabel>("lblModelReason");
    QVERIFY(canvas->isVisible() && !reason->isVisible());
    QCOMPARE(canvas->focusPolicy(), Qt::NoFocus);  // the page's tab order stays
    QCOMPARE(edge->text(), QString("Click an edge to see its number, end points and label."));
    ui.ClickEdge(2);
    QVERIFY2(edge->text().startsWith("Edge 3: (40, 20) -> (4, 32)  arc") &&
                 edge->text().contains("label \"Shell\""),
             qPrintable(edge->text()));
    // The picture grows with the window; clicks find the edges where they are now drawn.
    const QSize before = canvas->size();
    ui.window->resize(ui.window->width() + 200, ui.window->height() + 200);
    QTRY_VERIFY(canvas->width() > before.width() && canvas->height() > before.height());
    ui.ClickEdge(6);
    QCOMPARE(edge->text(),
             QString("Edge 7: (10, 13) -> (28, 13)  line  left block 1, right block 2"));

    // Read again when the page comes into view: now the model is refused, and why is said.
    ui.refusal = "curve 3 is an elliptic arc";
    ui.Click("btnBack");
    ui.Click("btnNext");
    QVERIFY(!canvas->isVisible() && reason->isVisible());
    QCOMPARE(reason->text(), QString("This basic model cannot be converted into code:\nCannot read "
                                     "the basic model 'examples/converter/Converter.geo': curve 3 "
                                     "is an elliptic arc"));
    // Loaded from file, the model is not converted: nothing to show, and no room kept for it.
    ui.refusal.clear();
    const int heightWithout = ui.window->height();
    ui.Click("btnBack");
    ui.Click("btnNext");
    QTRY_VERIFY(canvas->isVisible() && ui.window->height() > heightWithout);
    QTest::mouseClick(ui.Control<QRadioButton>("optModelLink"), Qt::LeftButton);
    QVERIFY(!canvas->isVisible() && !reason->isVisible());
    QCOMPARE(ui.window->height(), heightWithout);
    // The session's choice can be taken back.
    QTest::mouseClick(ui.Control<QRadioButton>("optModelCode"), Qt::LeftButton);
    QVERIFY(canvas->isVisible());
  }

  // Each model read in the sandbox as the window reads it: the refusal is told in place of
  // the picture and the wizard stays as it was. A long read brings up the busy notice
  // while the window goes on handling its events; its Cancel ends the read.
  void hostileModelsAreRefusedOnTheBasicFilesPage() {
    WizardFixture ui;
    wizard::WindowModelReadWait wait;
    platform::sandbox::SandboxedApplication sandboxed(
        app::ModelReaderCommand(EOWIZARD_EXE, "The window test"),
        {std::chrono::seconds(hostile::kHostileTimeLimit)}, wait);
    ui.openModel = [&](std::string_view path) { return sandboxed.OpenModel(path); };
    ui.Connect();
    ui.Click("btnNext");
    ui.prompter.Answer(MsgAnswer::Yes);
    ui.TypeAndLeave("edFile", EOW_EXAMPLES_DIR "/converter/Converter.bvg");
    ui.GoToPage(4);
    QWidget* canvas = ui.Control("imgModel");
    auto* reason = ui.Control<QLabel>("lblModelReason");
    QVERIFY(canvas->isVisible());

    QString notice;  // the busy notice's text, as a timer of the waiting window finds it
    QTimer probe;
    QObject::connect(&probe, &QTimer::timeout, [&] {
      if (QWidget* modal = QApplication::activeModalWidget(); modal && modal->isVisible()) {
        notice = modal->findChild<QLabel*>("lblModelRead")->text();
      }
    });
    probe.start(20);
    const std::filesystem::path folder = ui.Path("hostile");
    std::filesystem::create_directories(folder);
    for (const hostile::HostileModel& model : hostile::HostileModels(folder)) {
      QVERIFY(QTest::qWaitForWindowActive(ui.window));  // a notice gives the keyboard back
      notice.clear();
      ui.TypeAndLeave("edModel", model.path);
      QVERIFY(ui.addIn.Form() != nullptr && ui.window->isVisible());
      if (model.message.empty()) {
        QVERIFY2(canvas->isVisible(), qPrintable(reason->text()));
        continue;
      }
      QVERIFY2(reason->isVisible() && reason->text().contains(QString::fromStdString(model.message)),
               qPrintable(reason->text()));
      if (model.path.ends_with("loop.geo")) {
        QVERIFY2(notice.startsWith(QString::fromStdString("Reading the basic model '" + model.path)),
                 qPrintable(notice));
        QVERIFY(QTest::qWaitForWindowActive(ui.window));
        wizard_test::OnNextDialog([](QDialog& dialog) {
          QTest::mouseClick(dialog.findChild<QPushButton*>("btnCancel"), Qt::LeftButton);
        });
        ui.TypeAndLeave("edModel", model.path);
        QVERIFY2(reason->text().endsWith("' was cancelled; it was not read"),
                 qPrintable(reason->text()));
      }
    }
    for (const std::filesystem::path& trace : hostile::Traces(folder)) {
      QVERIFY2(!std::filesystem::exists(trace), trace.c_str());
    }
  }

  void pageControlsForwardToTheForm() {
    WizardFixture ui;
    ui.Connect();
    ui.GoToPage(3);
    auto* type = ui.Control<QComboBox>("cmbType");
    type->setFocus();
    QTest::keyClick(type, Qt::Key_Down);
    QCOMPARE(ui.addIn.Form()->State().cmbType.listIndex, int16_t{1});

    ui.Click("btnNext");
    ui.TypeAndLeave("edModel", ui.Path("missing.mod"));
    QVERIFY(!ui.Control("optModelLink")->isEnabled());
    ui.TypeAndLeave("edModel", EOW_EXAMPLES_DIR "/heater/Heater.mod");
    QVERIFY(ui.Control("optModelLink")->isEnabled());
    QVERIFY(!ui.Control("optModelCode")->isEnabled());
    QTest::mouseClick(ui.Control<QRadioButton>("optModelCode"), Qt::LeftButton);
    QVERIFY(ui.Control<QRadioButton>("optModelLink")->isChecked());
  }

  // A project in a folder that does not exist: the question, and unless the folder is
  // created, the field says why there is no project; the finish page is not the first to.
  void missingProjectFolderIsAskedAboutAndToldBesideTheField() {
    const struct {
      MsgAnswer answer;
      bool created;
    } rows[] = {{MsgAnswer::No, false}, {MsgAnswer::Yes, true}};
    for (const auto& row : rows) {
      WizardFixture ui;
      ui.Connect();
      ui.GoToPage(2);
      const std::string folder = ui.Path("studies/new");
      ui.prompter.Answer(row.answer);
      ui.TypeAndLeave("edLocation", folder + "/Walker.vbp");
      QCOMPARE(ui.prompter.shown.at(0).text, "Folder '" + folder + "' does not exist. Create ?");
      auto* notice = ui.Control<QLabel>("edLocationNotice");
      QCOMPARE(notice->isVisible(), !row.created);
      if (!row.created) QCOMPARE(notice->text(), QString::fromStdString("Folder '" + folder + "' does not exist."));
      QCOMPARE(QDir(QString::fromStdString(folder)).exists(), row.created);
      QCOMPARE(ui.Control("btnFinish")->isEnabled(), row.created);
    }
  }

  // Without the host's library Finish tells how to make it found, and makes nothing.
  void finishWithoutTheHostLibraryMakesNothing() {
    WizardFixture ui(true);
    ui.Connect();
    ui.GoToPage(2);
    ui.TypeAndLeave("edLocation", ui.Path("Demo.vbp"));
    ui.GoToPage(7);
    ui.Click("btnFinish");
    QVERIFY(ui.window->isVisible());
    const platform::Message& told = ui.prompter.shown.back();
    QCOMPARE(told.icon, platform::MsgIcon::Critical);
    QVERIFY2(told.text.starts_with("Error: ZXBV library not found.\nRegister Bravant on this "
                                   "computer, or name a registry file"),
             told.text.c_str());
    QVERIFY(!QDir(QString::fromStdString(ui.Path("Demo_Files"))).exists());
  }

  // "Create sketch file now": what it says when there is no model to draw, and the
  // converter's sketch saved as a bitmap beside the model or where the user says, which
  // then becomes the sketch file.
  void createSketchFileNowSavesTheModelAsABitmap() {
    {
      WizardFixture ui;
      ui.Connect();
      ui.GoToPage(4);
      ui.Click("btnCreateSketch");
      QCOMPARE(ui.prompter.shown.back().text,
               std::string("There is no basic model to draw a sketch of: name the basic model "
                           "file first."));
    }
    WizardFixture converter;
    converter.ShowConverterModel();
    converter.refusal = "curve 3 is an elliptic arc";
    converter.Click("btnCreateSketch");
    QCOMPARE(QString::fromStdString(converter.prompter.shown.back().text),
             QString("A sketch cannot be drawn of the basic model "
                     "'examples\\converter\\Converter.geo': Cannot read the basic model "
                     "'examples/converter/Converter.geo': curve 3 is an elliptic arc"));
    converter.refusal.clear();

    const QString sketch = QString::fromStdString(converter.Path("Converter sketch.bmp"));
    QFile(sketch).open(QIODevice::WriteOnly);  // there already: replaced on Yes
    converter.prompter.Answer(MsgAnswer::Yes);
    QString proposed;
    auto ran = OnNextDialog([&](QDialog& dialog) {
      auto& files = static_cast<QFileDialog&>(dialog);
      proposed = files.selectedFiles().value(0);
      files.selectFile(sketch);
      QMetaObject::invokeMethod(&files, "accept");
    });
    converter.Click("btnCreateSketch");
    QVERIFY(*ran);
    QCOMPARE(proposed, QDir::current().absoluteFilePath("examples/converter/Converter.bmp"));
    QCOMPARE(converter.Control<QLineEdit>("edSketch")->text(), sketch);
    QCOMPARE(converter.addIn.Form()->State().theSketch, sketch.toStdString());
    QImageReader reader(sketch);
    QCOMPARE(reader.format(), QByteArray("bmp"));
    const QImage image = reader.read();
    QCOMPARE(image.size(), QSize(480, 480));  // the model is as high as it is wide
    // The steel and the coil in their shades: the middle of the steel above the coil, and
    // the coil's window left of its name.
    QCOMPARE(image.pixelColor(160, 270).name(), QString("#f4c28a"));
    QCOMPARE(image.pixelColor(140, 340).name(), QString("#9fc9eb"));
    QCOMPARE(image.pixelColor(3, 3).name(), QString("#ffffff"));
  }

  // The window's host, as `eowizard [options] --session FILE` starts it: the session's
  // Windows paths lead to files only through the --drive mapping.
  void sharedOptionsReachTheWindow() {
    const struct {
      std::vector<std::string> drives;
      std::vector<std::string> notices;
    } rows[] = {
        {{"C=" EOW_EXAMPLES_DIR "/coil/drive_c"}, {}},
        {{},
         {"Folder 'C:\\Models\\Coil' does not exist. Create ?",  // answered No
          "Model file 'C:\\Models\\Coil\\coil.mod' does not exist.",
          "Data file 'C:\\Models\\Coil\\coil.dms' does not exist."}},
    };
    for (const auto& row : rows) {
      app::ServiceOptions options;
      options.drives = row.drives;
      app::SharedServices services(options);
      int argc = 0;
      const app::WindowStart start{argc, nullptr, EOW_EXAMPLES_DIR "/coil/Coil.bvg",
                                   services.fs, services.registry, std::nullopt,
                                   [](platform::ModelReadWait&) {
                                     static const wizard_test::ModelOpener kNoModels;
                                     return std::make_unique<wizard_test::FakeAnalysis>(kNoModels);
                                   },
                                   platform::merge::Libgit2Merger};
      platform::ScriptedPrompter boxes;
      if (row.drives.empty()) boxes.Answer(platform::MsgAnswer::No);
      app::WizardHost host(start, boxes);
      QVERIFY(host.Connect());
      std::vector<std::string> shown;
      for (const platform::Message& message : boxes.shown) shown.push_back(message.text);
      QCOMPARE(shown, row.notices);
      QCOMPARE(host.AddIn().Form()->State().edAuthor, std::string("Design group"));
      host.Disconnect();
    }
  }
};

int RunWizardWindowTests(int argc, char** argv) {
  WizardWindowTest test;
  return QTest::qExec(&test, argc, argv);
}

#include "wizard_window_test.moc"
