// The window's parts that stand alone: filter and caption conversion, the progress
// window, message boxes, the preview's text view and help references.
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QtTest>
#include <algorithm>

#include "platform/chm/chm_archive.h"
#include "vbrt/error.h"
#include "wizard/code_highlighter.h"
#include "wizard/code_view.h"
#include "wizard/file_filter.h"
#include "wizard/message_box_prompter.h"
#include "wizard/progress_window.h"
#include "wizard/qt_text.h"
#include "wizard_fixture.h"

class WidgetPartsTest : public QObject {
  Q_OBJECT

 private slots:
  void fileFiltersBecomeQtFilters() {
    const char* const cases[][2] = {
        {"Visual Basic Project (*.vbp)|*.vbp", "Visual Basic Project (*.vbp)"},
        {"All images |*.bmp;*.gif;*.jpg|Icons (*.ico)|*.ico|All files |*.*",
         "All images (*.bmp *.gif *.jpg);;Icons (*.ico);;All files (*)"},
        {"Models|*.mod|Broken", "Models (*.mod)"},  // a description without pattern is dropped
    };
    for (const auto& [vb, qt] : cases) QCOMPARE(wizard::QtFileFilter(vb), std::string(qt));
  }

  void labelCaptionsDropAccessKeys() {
    QCOMPARE(wizard::LabelText("Model, Data && Sketch"), QString("Model, Data & Sketch"));
    QCOMPARE(wizard::LabelText("&Name: •"), QString("Name: •"));
    QCOMPARE(wizard::LabelText("trailing &"), QString("trailing "));
  }

  void progressWindowShowsTheBarAndRefusesValuesOutside() {
    wizard::ProgressWindow progress;
    progress.Load("Generating ExploringObject project");
    progress.Show();
    progress.SetState("Writing...");
    progress.SetMin(10);
    progress.SetMax(30);
    progress.SetValue(20);
    QCOMPARE(progress.windowTitle(), QString("Generating ExploringObject project"));
    QCOMPARE(progress.findChild<QLabel*>("lblState")->text(), QString("Writing..."));
    auto* bar = progress.findChild<QProgressBar*>();
    QCOMPARE(bar->value(), (bar->maximum() - bar->minimum()) / 2);
    QVERIFY_THROWS_EXCEPTION(vbrt::VbError, progress.SetValue(31));
    QCOMPARE(progress.Value(), 20.0f);
    progress.Unload();
    QVERIFY(!progress.isVisible());
  }

  // A box is never narrower than its title, and a question keeps its " ?" on one line.
  void messageBoxesFitTheirTitleAndKeepTheirQuestionMark() {
    wizard::MessageBoxPrompter prompter("SondelW");
    const struct {
      std::string text;
      QString shown;
    } cases[] = {
        {"Nothing's selected.", "Nothing's selected."},
        {"Module '/home/ann/projects/a-rather-long-folder-name/Demo.bas' already exists. "
         "Overwrite ?",
         "Module '/home/ann/projects/a-rather-long-folder-name/Demo.bas' already exists. "
         "Overwrite\u00A0?"},
    };
    for (const auto& c : cases) {
      auto ran = wizard_test::OnNextDialog([&](QDialog& box) {
        QFont bold = box.font();
        bold.setBold(true);
        QVERIFY(box.width() > QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + 100);
        QCOMPARE(box.findChild<QLabel*>("qt_msgbox_label")->text(), c.shown);
      });
      prompter.Show({c.text, platform::MsgButtons::YesNo, platform::MsgIcon::Question,
                     "Zentrix Bravant ExploringObject Wizard"});
      QVERIFY(*ran);
    }
  }

  // The question about a file changed since it was generated: Merge, Yes, No and Cancel
  // from left to right; Enter merges, Escape cancels.
  void mergeQuestionOffersMergeFirstAndByDefault() {
    using platform::MsgAnswer;
    wizard::MessageBoxPrompter prompter("SondelW");
    const platform::Message question{
        "Module 'C:\\p\\A.bas' already exists. Overwrite ?\nThe file was changed since it was "
        "generated: Merge keeps those changes.",
        platform::MsgButtons::MergeYesNoCancel, platform::MsgIcon::Exclamation, "Wizard"};
    for (const auto& [key, answer] : {std::pair{Qt::Key_Return, MsgAnswer::Merge},
                                      std::pair{Qt::Key_Escape, MsgAnswer::Cancel}}) {
      QStringList captions;
      auto ran = wizard_test::OnNextDialog([&captions, key = key](QDialog& box) {
        auto buttons = box.findChildren<QPushButton*>();
        std::sort(buttons.begin(), buttons.end(),
                  [](QPushButton* a, QPushButton* b) { return a->x() < b->x(); });
        for (QPushButton* button : buttons) captions << button->text();
        QTest::keyClick(&box, key);
      });
      QCOMPARE(prompter.Show(question), answer);
      QVERIFY(*ran);
      QCOMPARE(captions, QStringList({"&Merge", "&Yes", "&No", "Cancel"}));
    }
  }

  // The preview's text: what is coloured how, the lines' numbers beside a diff, and a long
  // text shown from its start and found in whole.
  void codeViewColoursNumbersAndShowsLongTextsInSteps() {
    wizard::CodeView view;
    using wizard::CodeText;
    const std::string diff =
        "--- a (on disk)\n+++ a (after the generation)\n@@ -7,3 +7,4 @@ Sub X()\n"
        "     Dim s As String ' why\n-    s = \"It\"\"s\"\n+<<<<<<< a as you changed it\n"
        "+    Rem gone\n \n";
    view.ShowText(diff, CodeText::UnifiedDiff);
    const struct {
      int line;
      int column;
      QColor foreground;
      QColor background;  // invalid: the line's own
    } colours[] = {
        {3, 5, QColor(0x00, 0x00, 0xa0), {}},                       // "Dim"
        {3, 23, QColor(0x00, 0x80, 0x00), {}},                      // the comment
        {3, 14, QColor(0x00, 0x00, 0xa0), {}},                      // "String"
        {4, 9, QColor(0xa3, 0x15, 0x15), QColor(0xfb, 0xdd, 0xdd)},  // the string, removed
        {5, 3, QColor(0x90, 0x40, 0x00), QColor(0xff, 0xe0, 0x99)},  // the conflict marker
        {6, 6, QColor(0x00, 0x80, 0x00), QColor(0xdd, 0xf8, 0xdd)},  // Rem, added
        {2, 0, QColor(0x00, 0x70, 0x90), {}},                       // the hunk head
    };
    for (const auto& c : colours) {
      const QTextBlock block = view.document()->findBlockByNumber(c.line);
      QTextCharFormat format;
      for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
        if (range.start <= c.column && c.column < range.start + range.length) format = range.format;
      }
      QCOMPARE(format.foreground().color(), c.foreground);
      if (c.background.isValid()) QCOMPARE(format.background().color(), c.background);
    }
    const QStringList labels = {"     ", "     ", "     ", " 7  7",
                                " 8   ", "    8", "    9", " 9 10"};
    for (int line = 0; line < labels.size(); ++line) QCOMPARE(view.LineLabel(line), labels[line]);

    std::string text;
    for (int i = 1; i <= 9000; ++i) text += "    x = " + std::to_string(i) + "\n";
    view.ShowText(text, CodeText::VisualBasic);
    QVERIFY(!view.Complete());
    QVERIFY(view.document()->blockCount() < 9000);
    QCOMPARE(view.LineLabel(8999), QString("9000"));
    QVERIFY(view.FindText("x = 8765"));
    QVERIFY(view.Complete());
    QCOMPARE(view.textCursor().blockNumber(), 8764);
    QVERIFY(!view.FindText("y ="));
  }

  void helpReferencesSplitIntoFileTopicAndAnchor() {
    struct Case {
      const char* reference;
      const char* file;
      const char* topic;  // nullptr: no reference
      const char* anchor;
    };
    const Case cases[] = {
        {"/p/../../Help/B.chm::/HTML/W.htm", "/p/../../Help/B.chm", "/HTML/W.htm", ""},
        {"/p/B.chm::/HTML/WizardOutputs.htm#Custom", "/p/B.chm", "/HTML/WizardOutputs.htm", "Custom"},
        {"B.chm::HTML/W.htm", "B.chm", "/HTML/W.htm", ""},
        {"B.chm", nullptr, nullptr, nullptr},
        {"B.chm::", nullptr, nullptr, nullptr},
        {"B.chm::#Custom", nullptr, nullptr, nullptr},
    };
    for (const Case& c : cases) {
      const auto reference = platform::SplitHelpReference(c.reference);
      QCOMPARE(reference.has_value(), c.topic != nullptr);
      if (!reference) continue;
      QCOMPARE(reference->file, std::string(c.file));
      QCOMPARE(reference->topic, std::string(c.topic));
      QCOMPARE(reference->anchor, std::string(c.anchor));
    }
  }
};

int RunWidgetPartsTests(int argc, char** argv) {
  WidgetPartsTest test;
  return QTest::qExec(&test, argc, argv);
}

#include "widget_parts_test.moc"
