#include "wizard/help_window.h"

#include <QAbstractButton>
#include <QAction>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QTabWidget>
#include <QToolBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <utility>

#include "platform/chm/sitemap.h"
#include "wizard/help_browser.h"
#include "wizard/qt_text.h"

namespace wizard {
namespace {

// The window's size is kept in the user's settings of the program.
constexpr const char* kSettingsOwner = "eowizard";
constexpr const char* kSizeKey = "HelpWindow/size";
constexpr QSize kFirstSize(860, 600);

constexpr int kTopicRole = Qt::UserRole;

void Fill(QTreeWidget& tree, QTreeWidgetItem* parent,
          const std::vector<platform::SitemapEntry>& entries) {
  for (const platform::SitemapEntry& entry : entries) {
    auto* item = parent != nullptr ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(&tree);
    item->setText(0, ToQt(entry.name));
    item->setIcon(0, tree.style()->standardIcon(entry.children.empty() ? QStyle::SP_FileIcon
                                                                       : QStyle::SP_DirIcon));
    if (!entry.local.empty()) item->setData(0, kTopicRole, HelpBrowser::TopicUrl(entry.local));
    Fill(tree, item, entry.children);
  }
}

// The entry that leads to `url`; failing that, one that leads to the same topic.
QTreeWidgetItem* EntryOf(QTreeWidget& tree, const QUrl& url) {
  QTreeWidgetItem* sameTopic = nullptr;
  for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it) {
    const QUrl entry = (*it)->data(0, kTopicRole).toUrl();
    if (entry == url) return *it;
    if (sameTopic == nullptr && entry.adjusted(QUrl::RemoveFragment) ==
                                    url.adjusted(QUrl::RemoveFragment))
      sameTopic = *it;
  }
  return sameTopic;
}

QTreeWidget* SitemapTree(const char* name) {
  auto* tree = new QTreeWidget;
  tree->setObjectName(name);
  tree->setHeaderHidden(true);
  return tree;
}

}  // namespace

void PressOnF1(QWidget* window, QAbstractButton* help) {
  auto* key = new QShortcut(QKeySequence::HelpContents, window);
  QObject::connect(key, &QShortcut::activated, help, &QAbstractButton::click);
}

HelpWindow::HelpWindow() {
  // A window of its own, owned by no other: window managers minimise the windows a window
  // stands above, and the dialogs that stand above it, together with it, so minimising the
  // help would take the wizard and its dialog along. It is not blocked by the parameter
  // dialogs, which block only the wizard; Help brings it back to the front.
  setWindowFlag(Qt::Window);
  setObjectName("HelpWindow");
  setWindowTitle("Help");
  browser_ = new HelpBrowser;
  contents_ = SitemapTree("helpContents");
  index_ = SitemapTree("helpIndex");
  auto* lists = new QTabWidget;
  lists->addTab(contents_, "Contents");
  lists->addTab(index_, "Index");
  auto* splitter = new QSplitter;
  splitter->addWidget(lists);
  splitter->addWidget(browser_);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({270, kFirstSize.width() - 270});
  setCentralWidget(splitter);

  QToolBar* bar = addToolBar("Navigation");
  bar->setMovable(false);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  QAction* back = bar->addAction(style()->standardIcon(QStyle::SP_ArrowBack), "Back", browser_,
                                 &QTextBrowser::backward);
  QAction* forward = bar->addAction(style()->standardIcon(QStyle::SP_ArrowForward), "Forward",
                                    browser_, &QTextBrowser::forward);
  back->setObjectName("helpBack");
  forward->setObjectName("helpForward");
  back->setShortcut(QKeySequence::Back);
  forward->setShortcut(QKeySequence::Forward);
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

  for (QTreeWidget* tree : {contents_, index_}) {
    connect(tree, &QTreeWidget::currentItemChanged, this, [this, tree](QTreeWidgetItem* item) {
      if (item == nullptr || !item->data(0, kTopicRole).isValid()) return;
      followingIndex_ = tree == index_;
      browser_->setSource(item->data(0, kTopicRole).toUrl());
      followingIndex_ = false;
    });
  }
  connect(browser_, &QTextBrowser::sourceChanged, this, &HelpWindow::TopicShown);
  resize(QSettings(kSettingsOwner, kSettingsOwner).value(kSizeKey, kFirstSize).toSize());
}

bool HelpWindow::ShowTopic(platform::ChmArchive archive, const std::filesystem::path& file,
                           const platform::HelpReference& reference) {
  if (!archive.Read(reference.topic)) return false;
  if (browser_->Archive() == nullptr || file != file_) {
    file_ = file;
    browser_->Open(std::move(archive));
    FillLists();
  }
  setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
  show();
  raise();
  activateWindow();
  browser_->setSource(HelpBrowser::TopicUrl(
      reference.anchor.empty() ? reference.topic : reference.topic + "#" + reference.anchor));
  return true;
}

void HelpWindow::FillLists() {
  const platform::ChmArchive& archive = *browser_->Archive();
  for (auto [tree, extension] : {std::pair{contents_, ".hhc"}, std::pair{index_, ".hhk"}}) {
    const QSignalBlocker quiet(tree);
    tree->clear();
    const auto path = archive.FindByExtension(extension);
    const auto html = path ? archive.Read(*path) : std::nullopt;
    if (html) Fill(*tree, nullptr, platform::ReadSitemap(*html));
  }
  contents_->expandAll();
}

void HelpWindow::TopicShown(const QUrl& url) {
  const QString title = browser_->documentTitle();
  setWindowTitle(title.isEmpty() ? "Help" : title + " - Help");
  QTreeWidgetItem* chapter = EntryOf(*contents_, url);
  const QSignalBlocker quietContents(contents_);
  contents_->setCurrentItem(chapter);
  // Many index entries lead to the same topic: the one chosen there stays; otherwise only
  // the entry named as the contents name the topic stands out, if there is one.
  if (followingIndex_) return;
  const QSignalBlocker quietIndex(index_);
  QTreeWidgetItem* named = nullptr;
  for (QTreeWidgetItem* entry :
       index_->findItems(chapter != nullptr ? chapter->text(0) : title, Qt::MatchFixedString)) {
    if (entry->data(0, kTopicRole).toUrl().adjusted(QUrl::RemoveFragment) ==
        url.adjusted(QUrl::RemoveFragment))
      named = entry;
  }
  index_->setCurrentItem(named);
  if (named == nullptr) index_->clearSelection();
}

void HelpWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (isVisible()) QSettings(kSettingsOwner, kSettingsOwner).setValue(kSizeKey, size());
}

}  // namespace wizard
