// Pages 5 and 6 of the real window: the input list's cell editors sit on their cell and
// forward keys, the dialogs show the row they edit and forward their buttons, and the
// output lists forward clicks. Typing into editors and dialogs is driven end to end.
#include <QComboBox>
#include <QRadioButton>
#include <QtTest>

#include "wizard_fixture.h"

using platform::MsgAnswer;
using wizard_test::ClickCell;
using wizard_test::Field;
using wizard_test::OnNextDialog;
using wizard_test::RowTexts;
using wizard_test::WizardFixture;

namespace {

QRect Cell(const QTreeWidget& list, int row, int column) {
  return list.visualRect(list.model()->index(row, column));
}

void DoubleClickRow(QTreeWidget& list, int row) {
  ClickCell(list, row, 0);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, Cell(list, row, 0).center());
}

}  // namespace

class ParameterPagesTest : public QObject {
  Q_OBJECT

 private slots:
  void cellEditorsSitOnTheirCellAndForwardKeys() {
    WizardFixture ui;
    ui.Connect();
    ui.GoToPage(5);
    auto* list = ui.Control<QTreeWidget>("lvInput");
    auto* edit = ui.Control<QLineEdit>("lvEdit");
    auto* combo = ui.Control<QComboBox>("lvCombo");
    ui.prompter.Answer(MsgAnswer::Yes);
    ClickCell(*list, 0, 0);
    QCOMPARE(RowTexts(*list, 0), QStringList({"p1", "Geometrical", "p1", "", "0", "10", "1"}));
    QCOMPARE(list->topLevelItem(1)->text(0), QString("<new>"));
    QVERIFY(edit->isVisible() && edit->hasFocus());
    QCOMPARE(edit->geometry(), Cell(*list, 0, 0));

    QTest::keyClick(edit, Qt::Key_Return);
    QVERIFY(combo->isVisible() && !edit->isVisible());
    QCOMPARE(combo->geometry(), Cell(*list, 0, 1));
    QVERIFY(combo->width() >= combo->sizeHint().width());  // its longest type shows whole
    QTest::keyClick(combo, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(edit->geometry(), Cell(*list, 0, 0));
    QTest::keyClick(edit, Qt::Key_Escape);
    ClickCell(*list, 0, 1);
    QTest::keyClick(combo, Qt::Key_Down);
    QTest::keyClick(combo, Qt::Key_Escape);  // the type chosen is not stored
    QVERIFY(!combo->isVisible() && !edit->isVisible());
    QVERIFY(list->hasFocus());
    QCOMPARE(list->topLevelItem(0)->text(1), QString("Geometrical"));

    ClickCell(*list, 0, 4);
    QTest::keyClicks(edit, "abc");
    QTest::keyClick(edit, Qt::Key_Return);
    QVERIFY(edit->isVisible());  // refused
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, "5");
    ui.prompter.Answer(MsgAnswer::Yes);
    QTest::keyClick(edit, Qt::Key_Down);  // onto "<new>": asks and adds p2
    QCOMPARE(RowTexts(*list, 0), QStringList({"p1", "Geometrical", "p1", "", "5", "10", "5"}));
    QCOMPARE(list->topLevelItem(1)->text(0), QString("p2"));
    QCOMPARE(edit->geometry(), Cell(*list, 1, 4));
    QTest::keyClick(edit, Qt::Key_Up);
    QCOMPARE(edit->geometry(), Cell(*list, 0, 4));

    ClickCell(*list, 1, 3);  // leaving the page commits the open edit
    QTest::keyClicks(edit, "mm");
    ui.Click("btnNext");
    QCOMPARE(ui.Page(), 6);
    QCOMPARE(ui.addIn.Form()->State().lvInput.SubItem(1, 3), std::string("mm"));
  }

  void inputDialogShowsTheRowAndForwardsItsButtons() {
    WizardFixture ui;
    ui.Connect();
    ui.GoToPage(5);
    auto* list = ui.Control<QTreeWidget>("lvInput");
    auto ran = OnNextDialog([&](QDialog& dialog) {
      QCOMPARE(dialog.windowTitle(), QString("Input parameter"));
      auto* ok = dialog.findChild<QPushButton*>("btnOK");
      QTest::keyClicks(Field(dialog, "edName"), "Coil current");
      QVERIFY(!ok->isEnabled());
      QTest::keyClicks(Field(dialog, "edVariable"), "current");
      QVERIFY(ok->isEnabled());
      QTest::mouseClick(dialog.findChild<QRadioButton*>("optPhys"), Qt::LeftButton);
      QTest::keyClicks(Field(dialog, "edMax"), "20");
      QTest::keyClick(&dialog, Qt::Key_Return);  // OK is the default button
    });
    ui.Click("btnInputAdd");
    QVERIFY(*ran);
    QCOMPARE(RowTexts(*list, 0),
             QStringList({"Coil current", "Physical", "current", "", "0", "20", "1"}));

    ClickCell(*list, 0, 0);
    QTest::keyClick(ui.Control<QLineEdit>("lvEdit"), Qt::Key_Escape);
    ran = OnNextDialog([&](QDialog& dialog) {
      QCOMPARE(Field(dialog, "edMax")->text(), QString("20"));
      QVERIFY(dialog.findChild<QRadioButton*>("optPhys")->isChecked());
      QTest::keyClicks(Field(dialog, "edName"), " changed");
      QTest::mouseClick(dialog.findChild<QPushButton*>("btnHelp"), Qt::LeftButton);
      QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    ui.Click("btnInputEdit");
    QVERIFY(*ran);
    QCOMPARE(list->topLevelItem(0)->text(0), QString("Coil current"));
    QVERIFY(QString::fromStdString(ui.help.topics.back()).endsWith("/HTML/WizardInputs.htm#Dialog"));

    ui.prompter.Answer(MsgAnswer::Yes);
    ui.Click("btnInputRemove");
    QCOMPARE(list->topLevelItemCount(), 1);
  }

  void outputListsShowAndForward() {
    WizardFixture ui;
    ui.Connect();
    ui.GoToPage(6);
    auto* standard = ui.Control<QTreeWidget>("lvStandard");
    auto* outputs = ui.Control<QTreeWidget>("lvOutput");
    QCOMPARE(standard->topLevelItem(0)->text(0), QString("Contour length"));
    QVERIFY(!standard->topLevelItem(0)->icon(0).isNull());
    DoubleClickRow(*standard, 1);
    QCOMPARE(RowTexts(*outputs, 0),
             QStringList({"Surface area", "Res.GetIntegral(zxSurface, Cnt).Abs"}));

    auto ran = OnNextDialog([&](QDialog& dialog) {
      QCOMPARE(dialog.windowTitle(), QString("Custom output parameter"));
      QCOMPARE(Field(dialog, "edName")->text(), QString("Surface area"));
      QTest::keyClicks(Field(dialog, "edValue"), " * 2");
      QTest::mouseClick(dialog.findChild<QPushButton*>("btnOK"), Qt::LeftButton);
    });
    DoubleClickRow(*outputs, 0);
    QVERIFY(*ran);
    QCOMPARE(RowTexts(*outputs, 0),
             QStringList({"Surface area", "Res.GetIntegral(zxSurface, Cnt).Abs * 2"}));

    ran = OnNextDialog([&](QDialog& dialog) {
      QCOMPARE(Field(dialog, "edName")->selectedText(), QString("New out parameter"));
      QTest::mouseClick(dialog.findChild<QPushButton*>("btnHelp"), Qt::LeftButton);
    });
    ui.Click("btnOutputCustom");
    QVERIFY(*ran);
    QVERIFY(QString::fromStdString(ui.help.topics.back())
                .endsWith("/../../Help/Bravant.chm::/HTML/WizardOutputs.htm#Custom"));

    ClickCell(*outputs, 0, 0);
    ui.prompter.Answer(MsgAnswer::Yes);
    ui.Click("btnOutputRemove");
    QCOMPARE(outputs->topLevelItemCount(), 0);
  }
};

int RunParameterPagesTests(int argc, char** argv) {
  ParameterPagesTest test;
  return QTest::qExec(&test, argc, argv);
}

#include "parameter_pages_test.moc"
