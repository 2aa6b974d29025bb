#include "wizard/output_page_view.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTreeWidget>
#include <algorithm>

#include "wizard/list_view_rows.h"
#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "wizard/model/control_names.h"
#include "wizard/qt_text.h"

namespace wizard {
namespace {

QTreeWidget* List(const char* name, QAbstractItemView::SelectionMode selection) {
  auto* list = new QTreeWidget;
  list->setObjectName(name);
  list->setRootIsDecorated(false);
  list->setUniformRowHeights(true);
  list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list->setSelectionMode(selection);
  list->header()->setStretchLastSection(true);
  return list;
}

QLabel* Label(const char* name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  return label;
}

// Width of the widest of `texts` in `list`'s font.
int WidestText(const QTreeWidget& list, const std::vector<std::string>& texts) {
  const QFontMetrics metrics(list.font());
  int widest = 0;
  for (const std::string& text : texts) {
    widest = std::max(widest, metrics.horizontalAdvance(ToQt(text)));
  }
  return widest;
}

// What a list takes around its text: icon, item margins, frame and vertical scroll bar.
int ListExtras(const QTreeWidget& list) {
  return list.iconSize().width() + 24 + 2 * list.frameWidth() +
         list.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

// The button between the two lists.
constexpr int kAddButtonWidth = 36;

QPushButton* PageButton(const char* name) {
  auto* button = new QPushButton;
  button->setObjectName(name);
  button->setAutoDefault(false);
  return button;
}

}  // namespace

OutputPageView::OutputPageView(QWidget* parent) : QWidget(parent) {
  outputs_ = List(controls::lvOutput, QAbstractItemView::SingleSelection);
  outputs_->setHeaderLabels({ToQt(resources::LoadResString(resources::kColumnDescription)),
                             ToQt(resources::LoadResString(resources::kOutputValueColumn))});
  standard_ = List(controls::lvStandard, QAbstractItemView::ExtendedSelection);
  standard_->setHeaderHidden(true);

  // lvStandard is never narrower than the longest description any problem type offers;
  // lvOutput would like room for such a description and its expression side by side.
  const StandardTexts texts = OutputPage::AllStandardTexts();
  standard_->setMinimumWidth(WidestText(*standard_, texts.descriptions) + ListExtras(*standard_));
  standard_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // never needed then
  wantedOutputsWidth_ = WidestText(*outputs_, texts.descriptions) +
                        WidestText(*outputs_, texts.expressions) + 32 + ListExtras(*outputs_);

  auto* add = PageButton(controls::btnOutputStandard);
  add->setFixedWidth(kAddButtonWidth);
  auto* custom = PageButton(controls::btnOutputCustom);
  auto* edit = PageButton(controls::btnOutputEdit);
  auto* remove = PageButton(controls::btnOutputRemove);
  connect(add, &QPushButton::clicked, this,
          [this] { Do([](OutputPage& page) { page.AddStandardClicked(); }); });
  connect(custom, &QPushButton::clicked, this,
          [this] { Do([](OutputPage& page) { page.AddCustomClicked(); }); });
  connect(edit, &QPushButton::clicked, this,
          [this] { Do([](OutputPage& page) { page.EditClicked(); }); });
  connect(remove, &QPushButton::clicked, this,
          [this] { Do([](OutputPage& page) { page.RemoveClicked(); }); });
  connect(standard_, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
    const int row = standard_->indexOfTopLevelItem(item);
    Do([row](OutputPage& page) { page.StandardDoubleClicked(row); });
  });
  connect(outputs_, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
    const int row = outputs_->indexOfTopLevelItem(item);
    Do([row](OutputPage& page) { page.OutputDoubleClicked(row); });
  });
  connect(outputs_, &QTreeWidget::itemSelectionChanged, this,
          [this] { ForwardSelection(outputs_, &session::FormState::lvOutput); });
  connect(standard_, &QTreeWidget::itemSelectionChanged, this,
          [this] { ForwardSelection(standard_, &session::FormState::lvStandard); });

  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(Label(controls::lblOutput_List1), 0, 0);
  grid->addWidget(Label(controls::lblOutput_List2), 0, 2);
  grid->addWidget(outputs_, 1, 0);
  grid->addWidget(add, 1, 1, Qt::AlignVCenter);
  grid->addWidget(standard_, 1, 2);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {custom, edit, remove}) buttons->addWidget(button);
  buttons->addStretch();
  grid->addLayout(buttons, 2, 0);
  // lvStandard keeps the width of its longest description; lvOutput takes the rest.
  grid->setColumnStretch(0, 1);
}

void OutputPageView::Connect(FormForwarder forward) { forward_ = std::move(forward); }

void OutputPageView::Do(const std::function<void(OutputPage&)>& action) {
  if (!forward_) return;
  forward_([&action](WizardForm& form) { action(form.Outputs()); });
  dialog_.RunOpened(forward_, window());
}

void OutputPageView::ForwardSelection(QTreeWidget* view,
                                      session::ListView session::FormState::*list) {
  if (!forward_ || showing_) return;
  forward_([view, list](WizardForm& form) { TakeSelection(*view, form.State().*list); });
}

QSize OutputPageView::sizeHint() const {
  const QSize hint = QWidget::sizeHint();
  const int spacing = 2 * layout()->spacing();
  return {std::max(hint.width(), wantedOutputsWidth_ + kAddButtonWidth + spacing +
                                     standard_->minimumWidth()),
          hint.height()};
}

void OutputPageView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  SizeColumns();
}

void OutputPageView::SizeColumns() {
  // The description as wide as its longest text, as far as that leaves the expression a
  // fair share of the list; the expression takes the rest.
  const QAbstractItemView& view = *outputs_;  // where the column's hint is public
  const int fits = std::max(view.sizeHintForColumn(0), outputs_->header()->sectionSizeHint(0));
  outputs_->setColumnWidth(0, std::min(fits, outputs_->viewport()->width() * 3 / 5));
}

void OutputPageView::Show(WizardForm& form) {
  showing_ = true;
  ShowListRows(*outputs_, form.State().lvOutput);
  SizeColumns();
  ShowListRows(*standard_, form.State().lvStandard);
  dialog_.Show(form.Outputs().Dialog());
  showing_ = false;
}

}  // namespace wizard
