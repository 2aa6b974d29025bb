// The help file the build made, as the wizard shows it: every topic the wizard names is in
// the file and its contents, links, pictures and anchors resolve, the help file is found
// beside the program or installed, and the help window shows the topic of the page or
// dialog in view (Help or F1), in front, also when it was minimised, and usable while the
// dialog is open.
#include <QFile>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTreeWidget>
#include <QtTest>
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/chm/chm_archive.h"
#include "platform/chm/sitemap.h"
#include "wizard/help_browser.h"
#include "wizard_fixture.h"

using wizard_test::OnNextDialog;
using wizard_test::WizardFixture;

namespace {

const std::filesystem::path kBuiltHelp = EOW_HELP_DIR "/Bravant.chm";

// Every help reference the wizard opens: each page's, the two dialogs' and the preview's.
std::vector<std::string_view> NamedTopics() {
  std::vector<std::string_view> topics(wizard::kPageHelpTopics.begin(),
                                       wizard::kPageHelpTopics.end());
  topics.push_back(wizard::kInputDialogHelpTopic);
  topics.push_back(wizard::kCustomOutputHelpTopic);
  topics.push_back(wizard::kPreviewHelpTopic);
  return topics;
}

// Where the help window shows `reference` ("...chm::/HTML/X.htm#A" as chm:/HTML/X.htm#A).
QUrl UrlOf(std::string_view reference) {
  const auto parts = platform::SplitHelpReference(reference);
  return wizard::HelpBrowser::TopicUrl(parts->anchor.empty() ? parts->topic
                                                             : parts->topic + "#" + parts->anchor);
}

// The topics ("HTML/X.htm#A") of a contents or index file's entries, nested ones included.
void AddTopics(const std::vector<platform::SitemapEntry>& entries, std::vector<std::string>& topics) {
  for (const platform::SitemapEntry& entry : entries) {
    if (!entry.local.empty()) topics.push_back(entry.local);
    AddTopics(entry.children, topics);
  }
}
std::vector<std::string> ListedTopics(const platform::ChmArchive& archive, const char* extension) {
  std::vector<std::string> topics;
  const auto file = archive.FindByExtension(extension);
  if (file) AddTopics(platform::ReadSitemap(archive.Read(*file).value_or("")), topics);
  return topics;
}

// What a topic links to, the pictures it shows and the places it names.
struct TopicParts {
  QStringList links;
  QStringList pictures;
  QStringList anchors;
};
TopicParts PartsOf(const std::string& html) {
  QTextDocument document;
  document.setHtml(QString::fromStdString(html));
  TopicParts parts;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
      const QTextCharFormat format = fragment.fragment().charFormat();
      if (format.isImageFormat()) parts.pictures << format.toImageFormat().name();
      if (!format.anchorHref().isEmpty()) parts.links << format.anchorHref();
      parts.anchors << format.anchorNames();
    }
  }
  return parts;
}

QTextBrowser* Browser(wizard::HelpWindow& window) {
  return window.findChild<QTextBrowser*>("helpBrowser");
}

QTreeWidgetItem* ContentsEntry(wizard::HelpWindow& window, const QString& text) {
  return window.findChild<QTreeWidget*>("helpContents")
      ->findItems(text, Qt::MatchExactly | Qt::MatchRecursive)
      .value(0);
}

// Clicks the contents entry as the window system delivers a click: a window that a modal
// dialog blocks does not get it.
void ClickEntry(wizard::HelpWindow& window, const QString& text) {
  auto* tree = window.findChild<QTreeWidget*>("helpContents");
  const QRect entry = tree->visualItemRect(ContentsEntry(window, text));
  QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                    tree->viewport()->mapTo(&window, entry.center()));
}

}  // namespace

class HelpTest : public QObject {
  Q_OBJECT

 private slots:
  // Every topic the wizard names is listed once in the contents; every entry of the
  // contents and index, every link of a topic and every anchor it names lead to what is in
  // the file, and every picture is there.
  void everyNamedTopicIsListedAndEveryEntryLinkAndPictureResolves() {
    const auto archive = platform::ChmArchive::Open(kBuiltHelp);
    QVERIFY(archive.has_value());
    const std::vector<std::string> contents = ListedTopics(*archive, ".hhc");
    for (std::string_view named : NamedTopics()) {
      QVERIFY(platform::SplitHelpReference(named)->file == "/../../Help/" + kBuiltHelp.filename().string());
      const std::string listed = UrlOf(named).toString(QUrl::RemoveScheme).mid(1).toStdString();
      QVERIFY2(std::ranges::count(contents, listed) == 1, named.data());
    }
    std::vector<QUrl> targets;
    for (const char* list : {".hhc", ".hhk"}) {
      for (const std::string& entry : ListedTopics(*archive, list))
        targets.push_back(wizard::HelpBrowser::TopicUrl(entry));
    }
    const std::vector<QUrl> listed = targets;
    for (const QUrl& topic : listed) {
      const TopicParts parts = PartsOf(archive->Read(topic.path().toStdString()).value_or(""));
      for (const QString& picture : parts.pictures)
        QVERIFY2(archive->Read(topic.resolved(QUrl(picture)).path().toStdString()), qPrintable(picture));
      for (const QString& link : parts.links) targets.push_back(topic.resolved(QUrl(link)));
    }
    QVERIFY(targets.size() > listed.size());  // the topics lead to one another
    for (const QUrl& target : targets) {
      const auto html = archive->Read(target.path().toStdString());
      QVERIFY2(html.has_value(), qPrintable(target.toString()));
      if (target.hasFragment())
        QVERIFY2(PartsOf(*html).anchors.contains(target.fragment()), qPrintable(target.toString()));
    }
  }

  void helpFileIsFoundBesideTheProgramOrInstalled() {
    QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkpath("prefix/bin") && QDir(dir.path()).mkpath("Help") &&
            QDir(dir.path()).mkpath("prefix/share/eowizard/Help"));
    const QString named = dir.filePath("Help/Bravant.chm");  // <program>/../../Help
    const QString installed = dir.filePath("prefix/share/eowizard/Help/Bravant.chm");
    enum File { Missing, Broken, Real };
    const auto place = [](const QString& path, File file) {
      QFile::remove(path);
      if (file == Real) QVERIFY(QFile::copy(QString::fromStdString(kBuiltHelp.string()), path));
      if (file == Broken) {
        QFile broken(path);
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("no compiled help") > 0);
      }
    };
    struct Case {
      File besideProgram;
      File installedCopy;
      bool shown;
    };
    const Case cases[] = {
        {Real, Missing, true}, {Missing, Real, true},     {Broken, Real, true},
        {Broken, Missing, false}, {Missing, Missing, false},
    };
    platform::PosixFileSystem fs{platform::DriveMap{}};
    for (const Case& c : cases) {
      place(named, c.besideProgram);
      place(installed, c.installedCopy);
      wizard::ChmHelpViewer viewer(fs, {dir.filePath("prefix/share/eowizard/Help").toStdString()});
      viewer.ShowTopic(dir.filePath("prefix/bin").toStdString() + std::string(wizard::kPageHelpTopics[1]));
      QCOMPARE(viewer.Window() != nullptr && viewer.Window()->isVisible(), c.shown);
    }
    QVERIFY(!platform::ChmArchive::Open(named.toStdString()).has_value());  // the broken one
  }

  void helpWindowScrollsToAnchorsFollowsLinksAndKeepsItsHistory() {
    platform::PosixFileSystem fs{platform::DriveMap{}};
    wizard::ChmHelpViewer viewer(fs, {EOW_HELP_DIR});
    viewer.ShowTopic("/nowhere/Bravant.chm" + std::string(wizard::kCustomOutputHelpTopic).substr(
                                                  wizard::kCustomOutputHelpTopic.find("::")));
    wizard::HelpWindow& window = *viewer.Window();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTextBrowser* browser = Browser(window);
    QCOMPARE(browser->source(), UrlOf(wizard::kCustomOutputHelpTopic));
    QVERIFY(browser->verticalScrollBar()->value() > 0);  // at the dialog's section
    QCOMPARE(window.windowTitle(), QString("Output Parameters - Help"));
    auto* contents = window.findChild<QTreeWidget*>("helpContents");
    QCOMPARE(contents->currentItem()->text(0), QString("Custom output parameter"));
    QCOMPARE(contents->topLevelItem(0)->childCount(), 7);
    QVERIFY(window.findChild<QTreeWidget*>("helpIndex")->topLevelItemCount() > 20);

    contents->setCurrentItem(ContentsEntry(window, "Problem"));
    QCOMPARE(browser->source().path(), QString("/HTML/WizardProblemProperties.htm"));
    QVERIFY(!browser->document()->resource(QTextDocument::ImageResource, QUrl("images/page3.png")).isNull());
    browser->setFocus();
    QTest::keyClick(browser, Qt::Key_Tab);  // the first link: the basic data file
    QTest::keyClick(browser, Qt::Key_Return);
    QCOMPARE(browser->source().path(), QString("/HTML/WizardBasicFiles.htm"));
    QCOMPARE(contents->currentItem()->text(0), QString("Model, Data & Sketch"));

    auto* back = window.findChild<QAction*>("helpBack");
    auto* forward = window.findChild<QAction*>("helpForward");
    back->trigger();
    back->trigger();
    QCOMPARE(browser->source(), UrlOf(wizard::kCustomOutputHelpTopic));
    QVERIFY(!back->isEnabled());
    forward->trigger();
    QCOMPARE(browser->source().path(), QString("/HTML/WizardProblemProperties.htm"));

    // Of the index entries that lead to a topic, only the one named as the contents name
    // it stands out, or the one chosen in the index; none when no entry is so named.
    auto* index = window.findChild<QTreeWidget*>("helpIndex");
    const auto entry = [&](QTreeWidget* tree, const char* text) {
      return tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    };
    const struct {
      QTreeWidget* chosenIn;
      const char* entry;
      const char* indexShows;  // nullptr: nothing
    } steps[] = {
        {contents, "Input Parameters", "Input parameters"},
        {index, "Min and Max", "Min and Max"},
        {contents, "Model, Data & Sketch", nullptr},
    };
    for (const auto& step : steps) {
      step.chosenIn->setCurrentItem(entry(step.chosenIn, step.entry));
      QTreeWidgetItem* shown = index->currentItem();
      QCOMPARE(shown != nullptr ? shown->text(0) : QString(), QString(step.indexShows));
      QCOMPARE(index->selectedItems().size(), step.indexShows != nullptr ? 1 : 0);
    }
  }

  void helpWindowKeepsItsSizeForTheNextTime() {
    {
      wizard::HelpWindow first;
      first.show();
      QVERIFY(QTest::qWaitForWindowExposed(&first));
      first.resize(700, 450);
    }
    wizard::HelpWindow second;
    QCOMPARE(second.size(), QSize(700, 450));
  }

  void helpAndF1ShowTheTopicInViewInFrontOfItsDialog() {
    WizardFixture ui(false, wizard_test::Help::FromBuiltFile);
    ui.Connect();
    const auto shown = [&ui] {
      wizard::HelpWindow* window = ui.builtHelp.Window();
      return window != nullptr && window->isVisible() ? Browser(*window)->source() : QUrl();
    };
    for (int page = 0; page < wizard::kPageCount; ++page) {
      if (page > 0) ui.Click("btnNext");
      ui.window->activateWindow();
      QVERIFY(QTest::qWaitForWindowActive(ui.window));
      if (page % 2 == 0) {
        ui.Click("btnHelp");
      } else {
        QTest::keyClick(ui.window, Qt::Key_F1);
      }
      QCOMPARE(shown(), UrlOf(wizard::kPageHelpTopics[page]));
    }

    struct DialogCase {
      int page;
      const char* opens;
      std::string_view topic;
    };
    const DialogCase dialogs[] = {
        {5, "btnInputAdd", wizard::kInputDialogHelpTopic},
        {6, "btnOutputCustom", wizard::kCustomOutputHelpTopic},
        {7, "btnPreview", wizard::kPreviewHelpTopic},  // its failure here: no host library
    };
    while (ui.Page() > 2) ui.Click("btnBack");
    ui.TypeAndLeave("edLocation", ui.Path("Help.vbp"));  // Preview needs a project
    for (const DialogCase& c : dialogs) {
      while (ui.Page() > c.page) ui.Click("btnBack");
      ui.GoToPage(c.page);
      auto ran = OnNextDialog([&](QDialog& dialog) {
        for (bool byKey : {false, true}) {
          // A minimised help window comes back, in front.
          if (ui.builtHelp.Window() != nullptr) ui.builtHelp.Window()->showMinimized();
          dialog.activateWindow();
          QVERIFY(QTest::qWaitForWindowActive(&dialog));
          if (byKey) {
            QTest::keyClick(&dialog, Qt::Key_F1);
          } else {
            QTest::mouseClick(dialog.findChild<QPushButton*>("btnHelp"), Qt::LeftButton);
          }
          QCOMPARE(shown(), UrlOf(c.topic));
          wizard::HelpWindow& help = *ui.builtHelp.Window();
          QVERIFY(QTest::qWaitForWindowActive(&help));
          QVERIFY(!help.isMinimized() && !dialog.isMinimized() && !ui.window->isMinimized());
        }
        // Usable while the dialog is open: a click in the contents shows its topic.
        ClickEntry(*ui.builtHelp.Window(), "Problem");
        QCOMPARE(shown().path(), QString("/HTML/WizardProblemProperties.htm"));
      });
      // As a click does: the dialog opens over the wizard, not over the help window.
      ui.window->activateWindow();
      QVERIFY(QTest::qWaitForWindowActive(ui.window));
      ui.Click(c.opens);
      QVERIFY(*ran);
    }
  }
};

int RunHelpTests(int argc, char** argv) {
  HelpTest test;
  return QTest::qExec(&test, argc, argv);
}

#include "help_test.moc"
