#include "wizard/input_page_view.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "wizard/list_view_rows.h"
#include "wizard/model/access_keys.h"
#include "wizard/model/control_names.h"
#include "wizard/notice_label.h"
#include "wizard/qt_text.h"

namespace wizard {
namespace {

// Headers of lvInput's seven columns and how wide each starts.
constexpr int kHeaderCaptions[] = {
    resources::kColumnDescription, resources::kColumnType, resources::kColumnVariable,
    resources::kColumnUnit,        resources::kColumnMin,  resources::kColumnMax,
    resources::kColumnDefault};
constexpr int kColumnWidths[] = {0, 90, 80, 50, 55, 55, 55};  // the first one stretches

// A focus change that a message box or the type list's popup makes is no leaving.
bool LeavesEditor(const QFocusEvent& event) {
  return event.reason() != Qt::ActiveWindowFocusReason && event.reason() != Qt::PopupFocusReason;
}

// A button of the page; one without a caption number takes the form's caption.
QPushButton* PageButton(const char* name, int caption = 0) {
  auto* button = new QPushButton(
      caption == 0 ? QString()
                   : ToQt(WithAccessKey(resources::LoadResString(caption), AccessKeyOf(name))));
  button->setObjectName(name);
  button->setAutoDefault(false);  // Enter belongs to the list's editors on this page
  return button;
}

}  // namespace

InputPageView::InputPageView(QWidget* parent) : QWidget(parent) {
  list_ = new QTreeWidget;
  list_->setObjectName(controls::lvInput);
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAllColumnsShowFocus(true);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  QStringList headers;
  for (int caption : kHeaderCaptions) headers << ToQt(resources::LoadResString(caption));
  list_->setHeaderLabels(headers);
  // The description takes the spare width; the other columns keep theirs.
  list_->header()->setStretchLastSection(false);
  list_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  for (int column = 1; column < headers.size(); ++column)
    list_->setColumnWidth(column, kColumnWidths[column]);
  // Rows tall enough for the type list to sit in a cell.
  list_->setStyleSheet("QTreeWidget::item { height: 22px; }");
  list_->viewport()->installEventFilter(this);

  edit_ = new QLineEdit(list_->viewport());
  edit_->setObjectName("lvEdit");
  edit_->setFrame(false);
  edit_->setStyleSheet("QLineEdit { border: 1px solid palette(highlight); background: palette(base); }");
  edit_->hide();
  edit_->installEventFilter(this);
  combo_ = new QComboBox(list_->viewport());
  combo_->setObjectName("lvCombo");
  combo_->hide();
  combo_->installEventFilter(this);

  connect(edit_, &QLineEdit::textEdited, this, [this](const QString& text) {
    Do([text = FromQt(text)](InputPage& page) { page.EditorTextChanged(text); });
  });
  connect(combo_, &QComboBox::activated, this,
          [this](int index) { Do([index](InputPage& page) { page.TypeChosen(index); }); });
  connect(list_, &QTreeWidget::itemSelectionChanged, this, [this] {
    if (forward_ && !showing_)
      forward_([this](WizardForm& form) { TakeSelection(*list_, form.State().lvInput); });
  });
  // The editor stays over its cell while the list scrolls or a column is resized.
  connect(list_->verticalScrollBar(), &QScrollBar::valueChanged, this, &InputPageView::PlaceEditor);
  connect(list_->horizontalScrollBar(), &QScrollBar::valueChanged, this,
          &InputPageView::PlaceEditor);
  connect(list_->header(), &QHeaderView::sectionResized, this, &InputPageView::PlaceEditor);

  auto* add = PageButton(controls::btnInputAdd, resources::kInputAddButton);
  auto* edit = PageButton(controls::btnInputEdit, resources::kInputEditButton);
  auto* remove = PageButton(controls::btnInputRemove);
  connect(add, &QPushButton::clicked, this, [this] { Do([](InputPage& page) { page.AddClicked(); }); });
  connect(edit, &QPushButton::clicked, this,
          [this] { Do([](InputPage& page) { page.EditClicked(); }); });
  connect(remove, &QPushButton::clicked, this,
          [this] { Do([](InputPage& page) { page.RemoveClicked(); }); });

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(add);
  buttons->addWidget(edit);
  buttons->addWidget(remove);
  notice_ = NewNoticeLabel("lvInputNotice");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(list_, 1);
  layout->addWidget(notice_);
  layout->addLayout(buttons);
}

void InputPageView::Connect(FormForwarder forward) { forward_ = std::move(forward); }

void InputPageView::Do(const std::function<void(InputPage&)>& action) {
  if (!forward_) return;
  forward_([&action](WizardForm& form) { action(form.Inputs()); });
  dialog_.RunOpened(forward_, window());
}

void InputPageView::Show(WizardForm& form) {
  showing_ = true;
  const InputPage& page = form.Inputs();
  if (combo_->count() == 0) {
    const QSignalBlocker quiet(combo_);
    for (const std::string& type : page.TypeItems()) combo_->addItem(ToQt(type));
    // The type list laid over a cell shows its longest type whole.
    list_->setColumnWidth(kColType - 1,
                          std::max(list_->columnWidth(kColType - 1), combo_->sizeHint().width()));
  }
  ShowListRows(*list_, form.State().lvInput);
  ShowEditor(page.Editor());
  ShowNotice(*notice_, {page.Editor().open ? page.Editor().notice : ""});
  dialog_.Show(page.Dialog());
  showing_ = false;
}

QWidget* InputPageView::OpenEditorWidget() const {
  if (!editor_.open) return nullptr;
  return editor_.kind == EditorKind::Combo ? static_cast<QWidget*>(combo_) : edit_;
}

void InputPageView::ShowEditor(const CellEditor& editor) {
  const bool moved = !editor_.open || editor.row != editor_.row ||
                     editor.column != editor_.column || editor.kind != editor_.kind;
  QWidget* before = OpenEditorWidget();
  editor_ = editor;
  QWidget* now = OpenEditorWidget();
  if (now == nullptr) {
    if (before != nullptr && before->hasFocus()) list_->setFocus(Qt::OtherFocusReason);
    edit_->hide();
    combo_->hide();
    return;
  }
  if (editor.kind == EditorKind::Edit) {
    const QString text = ToQt(editor.text);
    if (edit_->text() != text) edit_->setText(text);
  } else {
    const QSignalBlocker quiet(combo_);
    combo_->setCurrentIndex(editor.typeIndex);
  }
  if (moved) list_->scrollToItem(list_->topLevelItem(editor.row));
  PlaceEditor();
  now->show();
  now->raise();
  now->setFocus(Qt::OtherFocusReason);
  // The whole text is selected, ready to be typed over, and shown from its start.
  if (moved && now == edit_) edit_->setSelection(edit_->text().size(), -edit_->text().size());
  // Only one editor is on view; the other one goes after the focus has moved on.
  (now == edit_ ? static_cast<QWidget*>(combo_) : edit_)->hide();
}

void InputPageView::PlaceEditor() {
  QWidget* editor = OpenEditorWidget();
  if (editor == nullptr) return;
  const QModelIndex cell = list_->model()->index(editor_.row, editor_.column - 1);
  editor->setGeometry(list_->visualRect(cell));
}

bool InputPageView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == list_->viewport()) {
    if (event->type() == QEvent::MouseButtonRelease) {
      const auto& mouse = static_cast<const QMouseEvent&>(*event);
      if (mouse.button() == Qt::LeftButton) Clicked(mouse.position().toPoint());
    }
    return false;
  }
  if (watched != edit_ && watched != combo_) return QWidget::eventFilter(watched, event);
  switch (event->type()) {
    case QEvent::KeyPress:
      return EditorKey(static_cast<const QKeyEvent&>(*event),
                       watched == combo_ ? EditorKind::Combo : EditorKind::Edit);
    case QEvent::FocusOut:
      if (!showing_ && watched == OpenEditorWidget() &&
          LeavesEditor(static_cast<const QFocusEvent&>(*event))) {
        Do([](InputPage& page) { page.EditorLeft(); });
      }
      return false;
    default:
      return false;
  }
}

bool InputPageView::EditorKey(const QKeyEvent& key, EditorKind kind) {
  switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
      const bool shift = key.modifiers().testFlag(Qt::ShiftModifier);
      Do([shift](InputPage& page) { page.KeyEnter(shift); });
      return true;
    }
    case Qt::Key_Escape:
      Do([](InputPage& page) { page.KeyEscape(); });
      return true;
    case Qt::Key_Up:
      if (kind == EditorKind::Combo) return false;  // the type list moves its own selection
      Do([](InputPage& page) { page.KeyUp(); });
      return true;
    case Qt::Key_Down:
      if (kind == EditorKind::Combo) return false;
      Do([](InputPage& page) { page.KeyDown(); });
      return true;
    default:
      return false;
  }
}

void InputPageView::Clicked(QPoint position) {
  const QModelIndex cell = list_->indexAt(position);
  const int row = cell.isValid() ? cell.row() : -1;
  const int column = cell.isValid() ? cell.column() + 1 : 0;
  Do([row, column](InputPage& page) { page.ClickCell(row, column); });
}

}  // namespace wizard
