#include "wizard/launch_notice.h"

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

#include "wizard/qt_text.h"

namespace wizard {

LaunchNotice::LaunchNotice(const std::string& caption, const std::string& text) {
  setObjectName("frmLaunch");
  setWindowTitle(ToQt(caption));
  auto* label = new QLabel(ToQt(text));
  label->setObjectName("lblLaunchText");
  label->setAlignment(Qt::AlignCenter);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(30, 24, 30, 24);
  layout->addWidget(label);
  setMinimumWidth(360);
}

void LaunchNotice::ShowNow() {
  show();
  raise();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  repaint();
}

}  // namespace wizard
