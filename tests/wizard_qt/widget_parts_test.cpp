// The window's parts that stand alone: filter and caption conversion, the progress
// window, message boxes and help references.
#include <QLabel>
#include <QProgressBar>
#include <QtTest>

#include "platform/chm/chm_archive.h"
#include "vbrt/error.h"
#include "wizard/file_filter.h"
#include "wizard/progress_window.h"
#include "wizard/qt_text.h"

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
