#include "wizard/help_window.h"

#include "wizard/qt_text.h"

namespace wizard {
namespace {
// Topics are addressed as chm:/<path inside the file>, so that relative links and
// pictures resolve against the topic's own folder.
constexpr const char* kScheme = "chm";
}  // namespace

HelpWindow::HelpWindow() {
  setObjectName("HelpWindow");
  setOpenLinks(true);
  resize(640, 520);
}

bool HelpWindow::ShowTopic(platform::ChmArchive archive, const std::string& topic) {
  if (!archive.Read(topic)) return false;
  archive_ = std::move(archive);
  QUrl url;
  url.setScheme(kScheme);
  url.setPath(ToQt(topic));
  setSource(url);
  setWindowTitle(documentTitle().isEmpty() ? url.fileName() : documentTitle());
  show();
  raise();
  activateWindow();
  return true;
}

QVariant HelpWindow::loadResource(int type, const QUrl& name) {
  if (name.scheme() != kScheme || !archive_) return QTextBrowser::loadResource(type, name);
  const auto bytes = archive_->Read(FromQt(name.path()));
  if (!bytes) return {};
  return QByteArray(bytes->data(), static_cast<qsizetype>(bytes->size()));
}

void ChmHelpViewer::ShowTopic(std::string_view fileAndTopic) {
  const auto reference = platform::SplitHelpReference(fileAndTopic);
  if (!reference) return;
  auto archive = platform::ChmArchive::Open(fs_.ToNative(reference->file));
  if (!archive) return;
  if (!window_) window_ = std::make_unique<HelpWindow>();
  window_->ShowTopic(std::move(*archive), reference->topic);
}

}  // namespace wizard
