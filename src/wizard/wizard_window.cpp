#include "wizard/wizard_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QStackedWidget>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

#include "wizard/browse_dialog.h"
#include "wizard/help_window.h"
#include "wizard/input_page_view.h"
#include "wizard/model/access_keys.h"
#include "wizard/model/control_names.h"
#include "wizard/model_picture_view.h"
#include "wizard/notice_label.h"
#include "wizard/output_page_view.h"
#include "wizard/qt_text.h"
#include "wizard/sketch_bitmap.h"
#include "wizard/wizard_pages.h"

namespace wizard {

using namespace controls;  // the control names

namespace {

using session::FormState;

struct ChoiceControl {
  Choice choice;
  const char* name;
  session::ComboBox FormState::*combo;
};
constexpr ChoiceControl kChoices[] = {
    {Choice::Type, cmbType, &FormState::cmbType},
    {Choice::Class, cmbClass, &FormState::cmbClass},
    {Choice::Coord, cmbCoord, &FormState::cmbCoord},
    {Choice::Unit, cmbUnit, &FormState::cmbUnit},
};

struct OptionControl {
  Option option;
  const char* name;
  session::OptionButton FormState::*button;
};
constexpr OptionControl kOptions[] = {
    {Option::ModelCode, optModelCode, &FormState::optModelCode},
    {Option::ModelLink, optModelLink, &FormState::optModelLink},
    {Option::DataCode, optDataCode, &FormState::optDataCode},
    {Option::DataLink, optDataLink, &FormState::optDataLink},
};

struct BrowseControl {
  Browse button;
  const char* name;
};
constexpr BrowseControl kBrowseButtons[] = {
    {Browse::File, btnFile}, {Browse::Location, btnLocation}, {Browse::Model, btnModel},
    {Browse::Data, btnData}, {Browse::Sketch, btnSketch},
};

Qt::CheckState CheckStateOf(int16_t value) {
  switch (value) {
    case 1: return Qt::Checked;
    case 2: return Qt::PartiallyChecked;
    default: return Qt::Unchecked;
  }
}

}  // namespace

WizardWindow::WizardWindow(WizardForm& form, const platform::FileSystem& fs)
    : form_(&form), fs_(fs) {
  setObjectName(frmWizard);
  setWindowIcon(QIcon::fromTheme("eowizard"));
  pages_ = new QStackedWidget;
  for (int page = 0; page < kPageCount; ++page) pages_->addWidget(BuildPage(page));
  auto* separator = new QFrame;
  separator->setFrameShape(QFrame::HLine);
  separator->setFrameShadow(QFrame::Sunken);
  auto* bar = new QWidget;
  BuildButtons(bar);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 8);
  layout->addWidget(pages_, 1);
  layout->addWidget(separator);
  layout->addWidget(bar);
  // Enter presses only the button the form makes the default, never the focused one.
  for (auto* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
  PressOnF1(this, findChild<QPushButton*>(btnHelp));
  PairLabelsWithFields(*this);
  ConnectFields();
  ApplyState();
  // As large as the pages ask (the output page: its longest texts whole), within the screen.
  QSize size = sizeHint().expandedTo(QSize(760, 500));
  if (const QScreen* screen = this->screen()) {
    size = size.boundedTo(screen->availableGeometry().size() * 9 / 10);
  }
  resize(size);
}

void WizardWindow::BuildButtons(QWidget* bar) {
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(10, 0, 10, 0);
  auto add = [&](const char* name, auto handler) {
    auto* button = new QPushButton;
    button->setObjectName(name);
    button->setMinimumWidth(90);
    connect(button, &QPushButton::clicked, this, [this, handler] { Forward(handler); });
    row->addWidget(button);
  };
  add(btnHelp, [](WizardForm& form) { form.Help(); });
  row->addStretch();
  add(btnCancel, [](WizardForm& form) { form.Cancel(); });
  row->addSpacing(12);
  add(btnBack, [](WizardForm& form) { form.Back(); });
  add(btnNext, [](WizardForm& form) { form.Next(); });
  row->addSpacing(12);
  add(btnPreview, [](WizardForm& form) { form.Preview(); });
  add(btnFinish, [](WizardForm& form) { form.Finish(); });
}

void WizardWindow::ConnectFields() {
  for (const auto& [field, name] : kFieldControls) {
    auto* edit = findChild<QLineEdit*>(name);
    edit->installEventFilter(this);
    // Shown again at once: a path the form does not take goes back to what it was, and
    // the field's notice line follows the text.
    connect(edit, &QLineEdit::textEdited, this, [this, field = field](const QString& text) {
      Forward([field, text = FromQt(text)](WizardForm& form) { form.TextEdited(field, text); });
    });
  }
  for (const ChoiceControl& control : kChoices) {
    connect(findChild<QComboBox*>(control.name), &QComboBox::activated, this,
            [this, choice = control.choice](int index) {
              Forward([=](WizardForm& form) { form.ChoiceChanged(choice, static_cast<int16_t>(index)); });
            });
  }
  for (const OptionControl& control : kOptions) {
    connect(findChild<QRadioButton*>(control.name), &QRadioButton::clicked, this,
            [this, option = control.option] {
              Forward([=](WizardForm& form) { form.OptionChosen(option); });
            });
  }
  for (const BrowseControl& control : kBrowseButtons) {
    connect(findChild<QPushButton*>(control.name), &QPushButton::clicked, this,
            [this, button = control.button] { Browse(button); });
  }
  connect(findChild<QPushButton*>(btnCreateSketch), &QPushButton::clicked, this,
          &WizardWindow::CreateSketch);
  connect(findChild<QCheckBox*>(chkAsync), &QCheckBox::clicked, this, [this](bool checked) {
    Forward([=](WizardForm& form) { form.AsyncChanged(checked); });
  });
  const FormForwarder forward = [this](const FormAction& action) { Forward(action); };
  findChild<InputPageView*>()->Connect(forward);
  findChild<OutputPageView*>()->Connect(forward);
  findChild<ModelPictureView*>()->Connect(forward);
}

template <typename Action>
void WizardWindow::Forward(Action action) {
  if (form_ == nullptr) return;
  action(*form_);
  // Cancel and Finish may have unloaded the form, and Detach cleared form_ then.
  if (form_ != nullptr) ApplyState();
}

void WizardWindow::Browse(wizard::Browse button) {
  if (form_ == nullptr) return;
  const std::optional<std::string> path = AskOpenFile(this, form_->BrowseSetup(button), fs_);
  if (path) Forward([&](WizardForm& form) { form.Browsed(button, *path); });
}

void WizardWindow::CreateSketch() {
  std::optional<Sketch> sketch;
  Forward([&](WizardForm& form) { sketch = form.DrawSketch(); });
  if (!sketch || form_ == nullptr) return;
  const std::optional<std::string> path = AskSaveFile(this, sketch->saveAs, fs_);
  if (path) Forward([&](WizardForm& form) { form.SaveSketch(*sketch, *path, WriteBitmap); });
}

void WizardWindow::FieldLeft(Field field) {
  Forward([=](WizardForm& form) { form.FieldLeft(field); });
}

bool WizardWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress && form_ != nullptr) {
    for (const auto& [field, name] : kFieldControls) {
      if (watched->objectName() == name) form_->FieldEntered(field);
    }
  }
  if (event->type() != QEvent::FocusOut) return QDialog::eventFilter(watched, event);
  // A message box or file dialog taking the focus is no leaving of the field.
  const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
  if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return false;
  for (const auto& [field, name] : kFieldControls) {
    if (watched->objectName() != name) continue;
    if (applying_) {
      // A page change hid the field: its check runs once the change is shown.
      QTimer::singleShot(0, this, [this, field = field] { FieldLeft(field); });
    } else {
      FieldLeft(field);
    }
  }
  return false;
}

void WizardWindow::reject() {
  Forward([](WizardForm& form) { form.Cancel(); });
}

void WizardWindow::FocusControl(std::string_view control) {
  if (auto* widget = findChild<QWidget*>(ToQt(control))) widget->setFocus(Qt::OtherFocusReason);
}

void WizardWindow::ApplyState() {
  if (form_ == nullptr) return;
  applying_ = true;
  ApplyCaptions();
  ApplyFields();
  ApplyLists();
  findChild<ModelPictureView*>()->Show(*form_);
  ApplyFinishPage();
  pages_->setCurrentIndex(form_->CurrentStep);
  ApplyButtons();
  applying_ = false;
}

void WizardWindow::ApplyCaptions() {
  for (const auto& [name, text] : form_->Captions()) {
    if (name == frmWizard) {
      setWindowTitle(ToQt(text));
    } else if (auto* label = findChild<QLabel*>(ToQt(name))) {
      // Only a label with a field shows an access key; the others show every "&".
      label->setText(label->buddy() != nullptr ? ToQt(WithAccessKey(text, AccessKeyOf(name)))
                                               : LabelText(text));
    } else if (auto* button = findChild<QAbstractButton*>(ToQt(name))) {
      button->setText(ToQt(WithAccessKey(text, AccessKeyOf(name))));
    }
  }
}

void WizardWindow::ApplyFields() {
  const FormState& state = form_->State();
  for (const auto& [field, name] : kFieldControls) {
    auto* edit = findChild<QLineEdit*>(name);
    const QString text = ToQt(form_->FieldText(field));
    if (edit->text() != text) edit->setText(text);
    ShowNotice(*findChild<QLabel*>(QString(name) + "Notice"),
               {form_->FieldNotice(field)});
  }
  for (const ChoiceControl& control : kChoices) {
    auto* combo = findChild<QComboBox*>(control.name);
    const session::ComboBox& choice = state.*control.combo;
    const QSignalBlocker quiet(combo);
    QStringList items;
    for (const std::string& item : choice.items) items << ToQt(item);
    QStringList shown;
    for (int i = 0; i < combo->count(); ++i) shown << combo->itemText(i);
    if (shown != items) {
      combo->clear();
      combo->addItems(items);
    }
    combo->setCurrentIndex(choice.listIndex);
  }
  for (const OptionControl& control : kOptions) {
    auto* option = findChild<QRadioButton*>(control.name);
    option->setChecked((state.*control.button).value);
    option->setEnabled((state.*control.button).enabled);
  }
  findChild<QCheckBox*>(chkAsync)->setCheckState(CheckStateOf(state.chkAsync.value));
}

void WizardWindow::ApplyLists() {
  findChild<InputPageView*>()->Show(*form_);
  findChild<OutputPageView*>()->Show(*form_);
}

QAbstractButton* WizardWindow::ButtonOf(Button button) const {
  switch (button) {
    case Button::Back: return findChild<QPushButton*>(btnBack);
    case Button::Next: return findChild<QPushButton*>(btnNext);
    case Button::Finish: return findChild<QPushButton*>(btnFinish);
    case Button::None: break;
  }
  return nullptr;
}

void WizardWindow::ApplyButtons() {
  ButtonOf(Button::Back)->setEnabled(form_->BackEnabled());
  ButtonOf(Button::Next)->setEnabled(form_->NextEnabled());
  ButtonOf(Button::Finish)->setEnabled(form_->FinishEnabled());
  auto* preview = findChild<QPushButton*>(btnPreview);
  preview->setVisible(form_->PreviewVisible());
  preview->setEnabled(form_->PreviewEnabled());
  for (Button button : {Button::Back, Button::Next, Button::Finish})
    static_cast<QPushButton*>(ButtonOf(button))->setDefault(button == form_->DefaultButton());
  QWidget* previous = nullptr;
  for (const TabStop& stop : form_->TabOrder()) {
    auto* widget = findChild<QWidget*>(ToQt(stop.control));
    if (widget == nullptr) continue;
    if (previous != nullptr) setTabOrder(previous, widget);
    previous = widget;
  }
}

void WizardWindow::ApplyFinishPage() {
  findChild<QLabel*>("lblFin1")->setText(LabelText(form_->FinishText1()));
  findChild<QLabel*>("lblFin2")->setText(LabelText(form_->FinishText2()));
  const QStyle::StandardPixmap icon = form_->FinishIcon() == "Exclamation"
                                          ? QStyle::SP_MessageBoxWarning
                                          : QStyle::SP_MessageBoxInformation;
  findChild<QLabel*>("imgResult")->setPixmap(style()->standardIcon(icon).pixmap(32, 32));
  findChild<PictureStrip*>("imgStep(7)")->ShowFinish(form_->PictureOfFinish());
}

}  // namespace wizard
