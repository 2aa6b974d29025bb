#include "wizard/message_box_prompter.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QMessageBox>
#include <QSpacerItem>
#include <QPushButton>

#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "wizard/qt_text.h"

namespace wizard {
namespace {

using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;

QMessageBox::Icon IconOf(MsgIcon icon) {
  switch (icon) {
    case MsgIcon::Critical: return QMessageBox::Critical;
    case MsgIcon::Question: return QMessageBox::Question;
    case MsgIcon::Exclamation: return QMessageBox::Warning;
    case MsgIcon::Information: return QMessageBox::Information;
    case MsgIcon::None: break;
  }
  return QMessageBox::NoIcon;
}

// What a title bar takes beside the title: the window's icon and its buttons.
constexpr int kTitleBarExtras = 160;

// The blank before a question's "?" does not break: "Overwrite ?" keeps its "?".
QString KeepQuestionMarks(QString text) {
  return text.replace(" ?", QString(QChar::Nbsp) + '?');
}

// A short message would make a box narrower than its title, which the window manager then
// cuts short: the box is made wide enough for the whole title.
void WidenForTitle(QMessageBox& box) {
  QFont font = box.font();
  font.setBold(true);  // title bars use a bold face more often than not
  const int width = QFontMetrics(font).horizontalAdvance(box.windowTitle()) + kTitleBarExtras;
  if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
    grid->addItem(new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Minimum),
                  grid->rowCount(), 0, 1, grid->columnCount());
  }
}

}  // namespace

MsgAnswer MessageBoxPrompter::Show(const platform::Message& message) {
  QMessageBox box(IconOf(message.icon),
                  message.title.empty() ? defaultTitle_ : ToQt(message.title),
                  KeepQuestionMarks(ToQt(message.text)), QMessageBox::NoButton,
                  QApplication::activeWindow());
  WidenForTitle(box);
  QPushButton* merge = nullptr;
  switch (message.buttons) {
    case MsgButtons::OK:
      box.setStandardButtons(QMessageBox::Ok);
      break;
    case MsgButtons::MergeYesNoCancel:
      // Merge first and the default: it is the answer that loses nothing.
      merge = box.addButton(ToQt(resources::LoadResString(resources::kMergeButton)),
                            QMessageBox::YesRole);
      box.addButton(QMessageBox::Yes);
      box.addButton(QMessageBox::No);
      box.addButton(QMessageBox::Cancel);
      box.setEscapeButton(QMessageBox::Cancel);
      box.setDefaultButton(merge);
      break;
    case MsgButtons::YesNo:
      box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
      box.setEscapeButton(QMessageBox::No);
      break;
    case MsgButtons::YesNoCancel:
      box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
      box.setEscapeButton(QMessageBox::Cancel);
      break;
  }
  if (message.buttons == MsgButtons::YesNo || message.buttons == MsgButtons::YesNoCancel) {
    box.setDefaultButton(QMessageBox::Yes);
  }
  const int pressed = box.exec();
  if (merge != nullptr && box.clickedButton() == merge) return MsgAnswer::Merge;
  switch (pressed) {
    case QMessageBox::Yes: return MsgAnswer::Yes;
    case QMessageBox::No: return MsgAnswer::No;
    case QMessageBox::Cancel: return MsgAnswer::Cancel;
    default: return MsgAnswer::OK;
  }
}

}  // namespace wizard
