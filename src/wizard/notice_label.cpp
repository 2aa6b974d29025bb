#include "wizard/notice_label.h"

#include <QLayout>
#include <QStringList>

#include "wizard/qt_text.h"

namespace wizard {

QLabel* NewNoticeLabel(const QString& name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  // The colour of a warning, readable on the light and on the dark window colours.
  label->setStyleSheet("QLabel { color: #b04a00; }");
  label->hide();
  return label;
}

void ShowNotice(QLabel& label, const std::vector<std::string>& texts) {
  QStringList lines;
  for (const std::string& text : texts) {
    if (!text.empty()) lines << ToQt(text);
  }
  const QString shown = lines.join('\n');
  if (label.text() == shown && label.isHidden() == shown.isEmpty()) return;
  label.setText(shown);
  label.setVisible(!shown.isEmpty());
  // A dialog that the lines no longer fit grows by what they need.
  QWidget* window = label.window();
  if (QLayout* layout = window->layout(); layout != nullptr && layout->hasHeightForWidth()) {
    const int needed = layout->totalHeightForWidth(window->width());
    if (needed > window->height()) window->resize(window->width(), needed);
  }
}

}  // namespace wizard
