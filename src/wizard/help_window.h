#pragma once
// Help topics of compiled help files, shown in a text browser window.
#include <QTextBrowser>
#include <memory>
#include <optional>

#include "platform/chm/chm_archive.h"
#include "platform/file_system.h"
#include "platform/help_viewer.h"

namespace wizard {

// A browser over one help file: links and pictures of a topic are read from the same
// file.
class HelpWindow : public QTextBrowser {
  Q_OBJECT

 public:
  HelpWindow();
  // Shows `topic` of `archive`; false (and nothing changes) when the file has no such
  // topic.
  bool ShowTopic(platform::ChmArchive archive, const std::string& topic);

 protected:
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  std::optional<platform::ChmArchive> archive_;
};

class ChmHelpViewer : public platform::HelpViewer {
 public:
  // Help file paths are mapped to files through `fs`, which must outlive the viewer.
  explicit ChmHelpViewer(const platform::FileSystem& fs) : fs_(fs) {}

  // Opens the help window on the topic; a missing file or topic does nothing.
  void ShowTopic(std::string_view fileAndTopic) override;

 private:
  const platform::FileSystem& fs_;
  std::unique_ptr<HelpWindow> window_;
};

}  // namespace wizard
