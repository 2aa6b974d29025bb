#include "wizard/help_browser.h"

#include "wizard/qt_text.h"

namespace wizard {
namespace {
constexpr const char* kScheme = "chm";
}  // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent) {
  setObjectName("helpBrowser");
  setOpenLinks(true);
}

QUrl HelpBrowser::TopicUrl(std::string_view pathAndAnchor) {
  QUrl root;
  root.setScheme(kScheme);
  root.setPath("/");
  return root.resolved(QUrl(ToQt(pathAndAnchor)));
}

void HelpBrowser::Open(platform::ChmArchive archive) {
  archive_ = std::move(archive);
  clearHistory();
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  if (name.scheme() != kScheme || !archive_) return QTextBrowser::loadResource(type, name);
  const auto bytes = archive_->Read(FromQt(name.path()));
  if (!bytes) return {};
  return QByteArray(bytes->data(), static_cast<qsizetype>(bytes->size()));
}

}  // namespace wizard
