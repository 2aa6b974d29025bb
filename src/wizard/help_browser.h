#pragma once
// A text browser over one compiled help file: topics are addressed as chm:/<path inside
// the file>, so that links, pictures and style sheets resolve against the topic's own
// folder and are read from the same file.
#include <QTextBrowser>
#include <optional>
#include <string_view>

#include "platform/chm/chm_archive.h"

namespace wizard {

class HelpBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  explicit HelpBrowser(QWidget* parent = nullptr);

  // The address of a topic given by its path inside the help file, with an optional
  // "#anchor" ("HTML/Wizard.htm", "/HTML/WizardOutputs.htm#Custom").
  static QUrl TopicUrl(std::string_view pathAndAnchor);

  // Reads from `archive` from now on; the history is cleared.
  void Open(platform::ChmArchive archive);
  const platform::ChmArchive* Archive() const { return archive_ ? &*archive_ : nullptr; }

 protected:
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  std::optional<platform::ChmArchive> archive_;
};

}  // namespace wizard
