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
#include <QWindow>
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
  // A dialog of the wizard's, as far as the window manager is concerned, so that it is
  // told which window the help belongs to (see StandAbove); yet modeless, resizable and
  // with its own title-bar buttons where the window manager gives dialogs any.
  setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
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
    connect(tree, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
      if (item != nullptr && item->data(0, kTopicRole).isValid())
        browser_->setSource(item->data(0, kTopicRole).toUrl());
    });
  }
  connect(browser_, &QTextBrowser::sourceChanged, this, &HelpWindow::TopicShown);
  resize(QSettings(kSettingsOwner, kSettingsOwner).value(kSizeKey, kFirstSize).toSize());
}

bool HelpWindow::ShowTopic(platform::ChmArchive archive, const std::filesystem::path& file,
                           const platform::HelpReference& reference, QWidget* owner) {
  if (!archive.Read(reference.topic)) return false;
  if (browser_->Archive() == nullptr || file != file_) {
    file_ = file;
    browser_->Open(std::move(archive));
    FillLists();
  }
  StandAbove(owner);
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

void HelpWindow::StandAbove(QWidget* owner) {
  // A window that a modal dialog owns is not blocked by it, and window managers keep it
  // above its owner. They learn the owner when the window is mapped: a shown window
  // whose owner changes, or has closed, is mapped anew.
  QWindow* ownerWindow = owner != nullptr ? owner->window()->windowHandle() : nullptr;
  const bool ownerClosed = owned_ && owner_.isNull();
  if (ownerWindow == owner_ && !ownerClosed) return;
  if (isVisible()) hide();
  winId();
  windowHandle()->setTransientParent(ownerWindow);
  owner_ = ownerWindow;
  owned_ = ownerWindow != nullptr;
}

void HelpWindow::TopicShown(const QUrl& url) {
  const QString title = browser_->documentTitle();
  setWindowTitle(title.isEmpty() ? "Help" : title + " - Help");
  for (QTreeWidget* tree : {contents_, index_}) {
    const QSignalBlocker quiet(tree);
    tree->setCurrentItem(EntryOf(*tree, url));
  }
}

void HelpWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (isVisible()) QSettings(kSettingsOwner, kSettingsOwner).setValue(kSizeKey, size());
}

}  // namespace wizard
