#pragma once
// The help window: a topic of the help file beside the file's contents and index, with
// back and forward. It remembers its size from one run to the next.
#include <QMainWindow>
#include <filesystem>

#include "platform/chm/chm_archive.h"

class QAbstractButton;
class QTreeWidget;

namespace wizard {

class HelpBrowser;

// F1 presses `help` while `window` (the window or dialog that holds it) is active: every
// page and dialog answers F1 as its Help button.
void PressOnF1(QWidget* window, QAbstractButton* help);

class HelpWindow : public QMainWindow {
  Q_OBJECT

 public:
  HelpWindow();

  // Shows `reference`'s topic, scrolled to its anchor, from `archive`, which was opened
  // from `file` (a file already shown keeps its history and lists), in front and at its
  // normal size, also when it was minimised. False, and nothing changes, when the file
  // has no such topic.
  bool ShowTopic(platform::ChmArchive archive, const std::filesystem::path& file,
                 const platform::HelpReference& reference);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FillLists();
  void TopicShown(const QUrl& url);

  std::filesystem::path file_;
  HelpBrowser* browser_ = nullptr;
  QTreeWidget* contents_ = nullptr;
  QTreeWidget* index_ = nullptr;
  bool followingIndex_ = false;  // an index entry was chosen: it stays the current one
};

}  // namespace wizard
