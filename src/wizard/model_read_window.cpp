#include "wizard/model_read_window.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSocketNotifier>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>
#include <optional>

#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "wizard/model/model_read_notice.h"
#include "wizard/qt_text.h"

namespace wizard {
namespace {

// The busy notice (frmModelRead): the model's name and a Cancel button. It is modal, so
// that nothing but Cancel reaches the window that waits.
class BusyNotice : public QDialog {
 public:
  explicit BusyNotice(const ModelReadNotice& notice) : QDialog(QApplication::activeWindow()) {
    setObjectName("frmModelRead");
    setWindowTitle(ToQt(notice.Caption()));
    setWindowModality(Qt::ApplicationModal);
    auto* text = new QLabel(ToQt(notice.Text()));
    text->setObjectName("lblModelRead");
    text->setWordWrap(true);
    auto* buttons = new QDialogButtonBox;
    QPushButton* cancel = buttons->addButton(
        ToQt(resources::LoadResString(resources::kCancelButton)), QDialogButtonBox::RejectRole);
    cancel->setObjectName("btnCancel");
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 16, 20, 16);
    layout->addWidget(text);
    layout->addWidget(buttons);
    setMinimumWidth(420);
  }
};

}  // namespace

platform::ModelReadWait::Outcome WindowModelReadWait::Watch(int descriptor, Deadline deadline,
                                                            std::string_view model,
                                                            const std::function<bool()>& readable) {
  const ModelReadNotice notice(model);
  std::optional<Outcome> outcome;
  QEventLoop loop;
  const auto end = [&](Outcome how) {
    if (outcome) return;
    outcome = how;
    loop.quit();
  };

  QSocketNotifier socket(static_cast<qintptr>(descriptor), QSocketNotifier::Read);
  QObject::connect(&socket, &QSocketNotifier::activated, &loop, [&] {
    if (!outcome && readable()) end(Outcome::Done);
  });
  QTimer timeUp;
  timeUp.setSingleShot(true);
  timeUp.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timeUp, &QTimer::timeout, &loop, [&] { end(Outcome::TimeUp); });
  const auto left =
      std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
  timeUp.start(std::max<std::chrono::milliseconds>(left, std::chrono::milliseconds(0)));

  // Until the notice is up the window takes no input; its events wait for later.
  const QPointer<QWidget> active = QApplication::activeWindow();
  std::unique_ptr<BusyNotice> dialog;
  bool noticeUp = false;
  QTimer delay;
  delay.setSingleShot(true);
  QObject::connect(&delay, &QTimer::timeout, &loop, [&] {
    dialog = std::make_unique<BusyNotice>(notice);
    QObject::connect(dialog.get(), &QDialog::rejected, &loop, [&] { end(Outcome::Cancelled); });
    dialog->show();
    noticeUp = true;
    loop.quit();  // runs again, taking input now
  });
  if (notice.Offered()) delay.start(ModelReadNotice::kDelay);

  while (!outcome) {
    loop.exec(noticeUp ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
  }
  socket.setEnabled(false);
  if (dialog) {
    dialog.reset();
    if (active) active->activateWindow();  // the keyboard goes back where it was
  }
  return *outcome;
}

}  // namespace wizard
