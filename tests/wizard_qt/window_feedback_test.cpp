// What the window tells beside what is typed (why OK is off, what the code page cannot
// hold), what it does after a broken session file or a session that cannot be saved, and
// how its pages and pictures fit what they show.
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QtTest>
#include <filesystem>
#include <fstream>

#include "session/session_file.h"
#include "wizard/pictures.h"
#include "wizard/wizard_pages.h"
#include "wizard_fixture.h"

using platform::MsgAnswer;
using wizard_test::ClickCell;
using wizard_test::Field;
using wizard_test::OnNextDialog;
using wizard_test::RowTexts;
using wizard_test::Type;
using wizard_test::WizardFixture;

namespace {

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// The notice line's text, "" while it is hidden.
QString NoticeOf(const WizardFixture& ui, const char* label) {
  auto* notice = ui.Control<QLabel>(label);
  return notice->isVisible() ? notice->text() : QString();
}

}  // namespace

class WindowFeedbackTest : public QObject {
  Q_OBJECT

 private slots:
  void textTheCodePageCannotHoldIsToldBesideItsFieldAndPathsRefuseIt() {
    WizardFixture ui;
    ui.Connect();
    using session::FormState;
    const struct {
      int page;
      const char* field;
      std::string FormState::*record;
      QString typed;
      QString recorded;  // what the record holds afterwards: a refused path is not taken
      QString unheld;    // what the notice names, "" for no notice
    } cases[] = {
        {2, "edAuthor", &FormState::edAuthor, "José Müller 张伟", "José Müller 张伟", "\"张伟\""},
        {2, "edAuthor", &FormState::edAuthor, "José Müller", "José Müller", ""},
        {2, "edLocation", &FormState::edLocation, "/tmp/项目/Demo.vbp", "",
         "\"项目\": a path written with"},
        {4, "edSketch", &FormState::edSketch, "/tmp/草图.bmp", "", "\"草图\": a path written with"},
    };
    for (const auto& c : cases) {
      ui.GoToPage(c.page);
      auto* edit = ui.Control<QLineEdit>(c.field);
      edit->setFocus(Qt::MouseFocusReason);
      QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
      QTest::keyClick(edit, Qt::Key_Delete);
      Type(edit, c.typed);
      QCOMPARE(edit->text(), c.typed);  // shown as typed, taken or not
      QCOMPARE(QString::fromStdString(ui.addIn.Form()->State().*c.record), c.recorded);
      const QString notice = NoticeOf(ui, (std::string(c.field) + "Notice").c_str());
      QVERIFY2(c.unheld.isEmpty() ? notice.isEmpty() : notice.contains(c.unheld),
               qPrintable(notice));
      if (!notice.isEmpty()) QVERIFY(notice.startsWith("The code page WINDOWS-1252 cannot hold"));
    }
    QVERIFY(ui.prompter.shown.empty());  // told beside the field, never in a box

    // The list's cell editor tells it under the list while the cell is typed.
    ui.GoToPage(5);
    ui.prompter.Answer(MsgAnswer::Yes);
    ClickCell(*ui.Control<QTreeWidget>("lvInput"), 0, 3);
    Type(ui.Control<QLineEdit>("lvEdit"), "長さ");
    QVERIFY(NoticeOf(ui, "lvInputNotice").contains("\"長さ\""));
    QTest::keyClick(ui.Control<QLineEdit>("lvEdit"), Qt::Key_Escape);
    QVERIFY(NoticeOf(ui, "lvInputNotice").isEmpty());
  }

  void inputDialogSaysWhyOkIsOffRefocusesARefusedLimitAndOrdersTheLimits() {
    WizardFixture ui;
    ui.Connect();
    ui.GoToPage(5);
    auto ran = OnNextDialog([&](QDialog& dialog) {
      auto* ok = dialog.findChild<QPushButton*>("btnOK");
      auto* status = dialog.findChild<QLabel*>("lblStatus");
      QCOMPARE(status->text(), QString("Parameter description cann't be empty."));
      Type(Field(dialog, "edName"), "Length 长度");
      Type(Field(dialog, "edVariable"), "9l");
      QVERIFY(!ok->isEnabled());
      QVERIFY(status->text().startsWith("Invalid parameter variable name.\nThe code page"));
      QTest::keyClick(Field(dialog, "edVariable"), Qt::Key_Backspace);
      QTest::keyClick(Field(dialog, "edVariable"), Qt::Key_Backspace);
      QTest::keyClicks(Field(dialog, "edVariable"), "l");
      QVERIFY(ok->isEnabled());
      QVERIFY(status->text().startsWith("The code page WINDOWS-1252 cannot hold \"长度\""));
      QTest::keyClicks(Field(dialog, "edMin"), "20");
      QTest::keyClicks(Field(dialog, "edMax"), "10");
      QTest::keyClicks(Field(dialog, "edValue"), "two");
      Field(dialog, "edName")->setFocus();
      QTest::mouseClick(ok, Qt::LeftButton);
      QCOMPARE(ui.prompter.shown.back().text,
               std::string("Validation error: Parameter default value must be numeric."));
      QCOMPARE(dialog.focusWidget(), Field(dialog, "edValue"));
      QCOMPARE(Field(dialog, "edValue")->selectedText(), QString("two"));
      QTest::keyClicks(Field(dialog, "edValue"), "2");
      QTest::mouseClick(ok, Qt::LeftButton);
    });
    ui.Click("btnInputAdd");
    QVERIFY(*ran);
    QCOMPARE(RowTexts(*ui.Control<QTreeWidget>("lvInput"), 0),
             QStringList({"Length 长度", "Geometrical", "l", "", "2", "10", "2"}));
  }

  void aBrokenSessionFileIsExplainedAndNotReplacedWithoutAsking() {
    WizardFixture ui;
    ui.Connect();
    const std::string broken = ui.Path("Broken.bvg");
    // Cut off after a whole section: the reader gives no message of its own.
    const std::string cut =
        "[GENERAL]\r\nAPPLICATION=Zentrix Bravant ExploringObject Wizard\r\nAUTHOR=cut\r\n\r\n";
    std::ofstream(broken, std::ios::binary) << cut;
    ui.GoToPage(1);
    ui.prompter.Answer(MsgAnswer::Yes);
    ui.TypeAndLeave("edFile", broken);
    QCOMPARE(ui.prompter.shown.back().text, session::IncompleteSessionMessage(broken));
    QCOMPARE(ui.Control<QLineEdit>("edAuthor")->text(), QString("cut"));  // what was read stays

    // Finish asks before it saves over the broken file: Cancel goes back, No saves beside it.
    ui.GoToPage(2);
    ui.TypeAndLeave("edLocation", ui.Path("Demo.vbp"));
    ui.GoToPage(7);
    ui.generationResult = false;
    ui.prompter.Answer(MsgAnswer::Cancel);
    ui.Click("btnFinish");
    QCOMPARE(ui.generations, 0);
    QVERIFY(ui.prompter.shown.back().text.starts_with("The session file '" + broken + "'"));
    ui.prompter.Answer(MsgAnswer::No);
    ui.Click("btnFinish");
    QCOMPARE(ui.generations, 1);
    const std::string beside = ui.Path("Broken 2.bvg");
    QCOMPARE(ui.Control<QLineEdit>("edFile")->text(), QString::fromStdString(beside));
    // Cancel saves there again, without a question, and the broken file stays as it was.
    ui.prompter.Answer(MsgAnswer::Yes);
    ui.Click("btnCancel");
    QVERIFY(ui.addIn.Form() == nullptr);
    QCOMPARE(ui.prompter.Pending(), 0u);
    QCOMPARE(ReadFile(broken), cut);
    QVERIFY(ReadFile(beside).ends_with("[END]\r\n"));
  }

  void aSessionThatCannotBeSavedOffersASaveDialog() {
    WizardFixture ui;
    ui.Connect();
    ui.GoToPage(1);
    ui.TypeAndLeave("edFile", ui.Path(""));  // a folder: no session can be written there
    ui.prompter.shown.clear();                 // nor read from there
    const std::string chosen = ui.Path("Elsewhere.bvg");
    auto ran = OnNextDialog([&](QDialog& dialog) {
      auto& files = static_cast<QFileDialog&>(dialog);
      QCOMPARE(files.acceptMode(), QFileDialog::AcceptSave);
      QCOMPARE(files.directory().absolutePath(),
               QString::fromStdString(ui.Path("program/WizardSessions")));
      QCOMPARE(files.selectedFiles().value(0),
               QString::fromStdString(ui.Path("program/WizardSessions/Generation1.bvg")));
      files.selectFile(QString::fromStdString(chosen));
      dialog.accept();  // QFileDialog's own accept, which takes the file name typed
    });
    ui.prompter.Answer(MsgAnswer::Yes);  // exit
    ui.prompter.Answer(MsgAnswer::Yes);  // another session file
    ui.Click("btnCancel");
    QVERIFY(*ran);
    QVERIFY(ui.addIn.Form() == nullptr);
    QVERIFY(ui.prompter.shown[1].text.find("Click No to close the wizard without saving it.") !=
            std::string::npos);
    QVERIFY(ReadFile(chosen).ends_with("[END]\r\n"));
  }

  void outputListsShowTheirLongestTextsAtTheDefaultSize() {
    WizardFixture ui;
    ui.Connect();
    ui.GoToPage(3);
    auto* type = ui.Control<QComboBox>("cmbType");
    type->setFocus();
    QTest::keyClick(type, Qt::Key_End);  // Time-Harmonic Electrics: the longest descriptions
    ui.GoToPage(6);
    auto* standard = ui.Control<QTreeWidget>("lvStandard");
    auto* outputs = ui.Control<QTreeWidget>("lvOutput");
    const QFontMetrics metrics(standard->font());
    const int extras = standard->iconSize().width() + 8;
    for (int row = 0; row < standard->topLevelItemCount(); ++row) {
      const QString text = standard->topLevelItem(row)->text(0);
      QVERIFY2(standard->viewport()->width() >= metrics.horizontalAdvance(text) + extras,
               qPrintable(text));
    }
    const auto longest = standard->findItems("Reactive current through a given surface",
                                             Qt::MatchExactly);
    QCOMPARE(longest.size(), 1);
    longest[0]->setSelected(true);
    ui.Click("btnOutputStandard");
    const QString description = outputs->topLevelItem(0)->text(0);
    const QString expression = outputs->topLevelItem(0)->text(1);
    QVERIFY(outputs->columnWidth(0) >= metrics.horizontalAdvance(description) + extras);
    QVERIFY(outputs->viewport()->width() - outputs->columnWidth(0) >=
            metrics.horizontalAdvance(expression));
  }

  void finishPageWithoutAProjectDoesNotPictureADoneOne() {
    WizardFixture ui;
    ui.Connect();
    ui.GoToPage(7);
    auto* strip = ui.Control<wizard::PictureStrip>("imgStep(7)");
    const auto rgb = [](const QPixmap& pixmap) {
      return pixmap.toImage().convertToFormat(QImage::Format_RGB32);
    };
    const auto picture = [&](wizard::FinishPicture finish) {
      return rgb(wizard::PagePicture(7, strip->size(), finish));
    };
    const auto shown = [&] { return rgb(strip->grab()); };
    QCOMPARE(shown(), picture(wizard::FinishPicture::NotYet));
    while (ui.Page() > 2) ui.Click("btnBack");
    ui.TypeAndLeave("edLocation", ui.Path("Demo.vbp"));
    ui.GoToPage(7);
    QCOMPARE(shown(), picture(wizard::FinishPicture::Done));
  }
};

int RunWindowFeedbackTests(int argc, char** argv) {
  WindowFeedbackTest test;
  return QTest::qExec(&test, argc, argv);
}

#include "window_feedback_test.moc"
