#include "wizard/preview_dialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <exception>
#include <utility>

#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "wizard/code_highlighter.h"
#include "wizard/code_view.h"
#include "wizard/help_window.h"
#include "wizard/model/access_keys.h"
#include "wizard/model/control_names.h"
#include "wizard/notice_label.h"
#include "wizard/qt_text.h"

namespace wizard {
namespace {

using generator::DryRunEntry;

QString Res(int number) { return ToQt(resources::LoadResString(number)); }

// A button's caption with its access key.
QString Caption(int number, std::string_view control) {
  return ToQt(WithAccessKey(resources::LoadResString(number), AccessKeyOf(control)));
}

QString AnswerText(platform::MsgAnswer answer) {
  return Res(resources::kPreviewAnswerBase + static_cast<int>(answer));
}

QLabel* Text(const char* name, const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName(name);
  label->setWordWrap(true);
  return label;
}

// Enter and Shift+Enter in the find field look for the next and the previous occurrence.
class FindField : public QLineEdit {
 public:
  explicit FindField(std::function<void(bool)> find) : find_(std::move(find)) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      find_(event->modifiers().testFlag(Qt::ShiftModifier));
      return;
    }
    QLineEdit::keyPressEvent(event);
  }

 private:
  std::function<void(bool)> find_;
};

// The project's folder with its separator, as the paths of the report begin with it: the
// list shows the paths below it.
QString ProjectFolder(const generator::DryRunReport& report) {
  for (auto entry = report.entries.rbegin(); entry != report.entries.rend(); ++entry) {
    if (!entry->generated) continue;
    const QString path = ToQt(entry->path);
    return path.left(path.lastIndexOf(u'/') + 1);
  }
  return {};
}

}  // namespace

PreviewDialog::PreviewDialog(generator::DryRunReport report, platform::TextMergerSource merger,
                             std::function<void()> help, QWidget* parent)
    : QDialog(parent), report_(std::move(report)), merger_(std::move(merger)) {
  setObjectName(controls::dlgPreview);
  setWindowTitle(Res(resources::kPreviewTitle));
  setWindowModality(Qt::WindowModal);  // the help window stays usable beside it
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(report_.generated ? BuildFiles() : BuildFailure(), 1);

  auto* buttons = new QDialogButtonBox;
  auto* close = buttons->addButton(Caption(resources::kPreviewClose, controls::btnClose),
                                   QDialogButtonBox::RejectRole);
  close->setObjectName(controls::btnClose);
  auto* helpButton = buttons->addButton(Caption(resources::kHelpButton, controls::btnHelp),
                                        QDialogButtonBox::HelpRole);
  helpButton->setObjectName(controls::btnHelp);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  connect(helpButton, &QPushButton::clicked, this, [help = std::move(help)] { help(); });
  PressOnF1(this, helpButton);
  for (auto* button : buttons->findChildren<QPushButton*>()) button->setAutoDefault(false);
  layout->addWidget(buttons);
  resize(report_.generated ? QSize(1140, 660) : QSize(560, 220));
}

QWidget* PreviewDialog::BuildFailure() {
  auto* failure = new QWidget;
  auto* row = new QHBoxLayout(failure);
  auto* icon = new QLabel;
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(32, 32));
  row->addWidget(icon, 0, Qt::AlignTop);
  auto* texts = new QVBoxLayout;
  texts->addWidget(Text("lblFailed", Res(resources::kPreviewFailed)));
  auto* message = Text("lblFailure", ToQt(report_.failure));
  message->setTextInteractionFlags(Qt::TextSelectableByMouse);
  texts->addWidget(message);
  texts->addStretch();
  row->addLayout(texts, 1);
  return failure;
}

QWidget* PreviewDialog::BuildFiles() {
  auto* files = new QWidget;
  auto* layout = new QVBoxLayout(files);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(Text("lblIntro", Res(resources::kPreviewIntro)));
  if (!report_.questions.empty()) {
    QString asked;
    for (const generator::AnsweredQuestion& question : report_.questions) {
      asked += ToQt(question.text) + QStringLiteral("\n→ ") + AnswerText(question.answer) +
               QStringLiteral("\n\n");
    }
    auto* assumed = Text("lblAssumed", Res(resources::kPreviewAssumed));
    assumed->setToolTip(asked.trimmed());
    layout->addWidget(assumed);
  }

  list_ = new QTreeWidget;
  list_->setObjectName("lvPreview");
  list_->setRootIsDecorated(false);
  list_->setHeaderLabels({Res(resources::kPreviewFileColumn), Res(resources::kPreviewOutcomeColumn),
                          Res(resources::kPreviewAnswerColumn)});
  const QString folder = ProjectFolder(report_);
  auto* shownFolder = Text("lblFolder", folder);
  shownFolder->setTextInteractionFlags(Qt::TextSelectableByMouse);
  QFont bold = shownFolder->font();
  bold.setBold(true);
  shownFolder->setFont(bold);
  layout->addWidget(shownFolder);
  for (const DryRunEntry& entry : report_.entries) {
    QString path = ToQt(entry.path);
    if (!folder.isEmpty() && path.startsWith(folder)) path = path.mid(folder.size());
    auto* item = new QTreeWidgetItem(list_, {path, ToQt(entry.outcome),
                                             entry.question ? AnswerText(entry.question->answer)
                                                            : QString()});
    item->setToolTip(0, ToQt(entry.path));
    if (entry.question) item->setToolTip(2, ToQt(entry.question->text));
    if (!entry.conflicts.empty()) item->setForeground(1, QColor(0xb0, 0x30, 0x00));
  }
  list_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  connect(list_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    if (item != nullptr) ShowEntry(list_->indexOfTopLevelItem(item));
  });

  auto* shown = new QWidget;
  auto* right = new QVBoxLayout(shown);
  right->setContentsMargins(0, 0, 0, 0);
  text_ = new CodeView;
  text_->setObjectName("txtPreview");
  right->addWidget(text_, 1);
  auto* findRow = new QHBoxLayout;
  find_ = new FindField([this](bool backward) { Find(backward); });
  find_->setObjectName("edFind");
  auto* findLabel = new QLabel(Caption(resources::kPreviewFind, controls::lblFind));
  findLabel->setObjectName(controls::lblFind);
  findLabel->setBuddy(find_);
  notFound_ = NewNoticeLabel("lblNotFound");
  findRow->addWidget(findLabel);
  findRow->addWidget(find_, 1);
  findRow->addWidget(notFound_, 1);
  right->addLayout(findRow);
  auto* findKey = new QShortcut(QKeySequence::Find, this);
  connect(findKey, &QShortcut::activated, this, [this] {
    find_->setFocus(Qt::ShortcutFocusReason);
    find_->selectAll();
  });
  connect(new QShortcut(QKeySequence::FindNext, this), &QShortcut::activated, this,
          [this] { Find(false); });
  connect(new QShortcut(QKeySequence::FindPrevious, this), &QShortcut::activated, this,
          [this] { Find(true); });

  auto* splitter = new QSplitter;
  splitter->addWidget(list_);
  splitter->addWidget(shown);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({540, 600});
  layout->addWidget(splitter, 1);

  // The first generated file, else the first entry.
  int first = 0;
  for (std::size_t i = 0; i < report_.entries.size(); ++i) {
    if (report_.entries[i].generated) {
      first = static_cast<int>(i);
      break;
    }
  }
  if (!report_.entries.empty()) ShowEntry(first);
  return files;
}

void PreviewDialog::ShowEntry(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= report_.entries.size()) return;
  if (list_->currentItem() != list_->topLevelItem(index)) {
    list_->setCurrentItem(list_->topLevelItem(index));  // shows it through the signal
    return;
  }
  const DryRunEntry& entry = report_.entries[index];
  if (!entry.generated) {
    text_->ShowText(resources::LoadResString(entry.outcome == "copied" ? resources::kPreviewCopy
                                                                      : resources::kPreviewFolder),
                    CodeText::Plain);
  } else if (entry.choice == platform::SaveChoice::Create) {
    text_->ShowText(generator::Displayed(entry.after), CodeText::VisualBasic);
  } else {
    auto diff = diffs_.find(index);
    if (diff == diffs_.end()) {
      std::string text;
      try {
        text = generator::DiffOf(merger_(), entry, false);
      } catch (const std::exception& e) {
        text = e.what();
      }
      diff = diffs_.emplace(index, std::move(text)).first;
    }
    if (diff->second.empty()) {
      text_->ShowText(resources::LoadResString(resources::kPreviewUnchanged), CodeText::Plain);
    } else {
      text_->ShowText(diff->second, diff->second.starts_with("--- ") ? CodeText::UnifiedDiff
                                                                    : CodeText::Plain);
    }
  }
  notFound_->clear();
}

void PreviewDialog::Find(bool backward) {
  if (text_ == nullptr) return;
  const bool found = text_->FindText(find_->text(), backward);
  notFound_->setText(found || find_->text().isEmpty() ? QString()
                                                       : Res(resources::kPreviewNotFound));
}

PreviewRunner PreviewInDialog(DryRunSource dryRun, platform::TextMergerSource merger) {
  return [dryRun = std::move(dryRun), merger = std::move(merger)](WizardForm& form) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    PreviewDialog dialog(dryRun(form), merger, [&form] { form.Help(); },
                         QApplication::activeWindow());
    QApplication::restoreOverrideCursor();
    dialog.exec();
  };
}

}  // namespace wizard
