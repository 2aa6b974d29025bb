#include "wizard/progress_window.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <cmath>

#include "vbrt/error.h"
#include "wizard/qt_text.h"

namespace wizard {
namespace {
// The bar shows the value in this many steps, so that fractional steps still move it.
constexpr int kBarSteps = 1000;
}  // namespace

ProgressWindow::ProgressWindow() : state_(new QLabel), bar_(new QProgressBar) {
  setObjectName("frmProgress");
  state_->setObjectName("lblState");
  bar_->setObjectName("ProgressBar");
  bar_->setRange(0, kBarSteps);
  bar_->setTextVisible(false);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->addWidget(state_);
  layout->addWidget(bar_);
  setMinimumWidth(420);
}

void ProgressWindow::Load(std::string_view caption) {
  setWindowTitle(ToQt(caption));
  state_->clear();
  min_ = 0;
  max_ = 100;
  value_ = 0;
  bar_->setVisible(true);
  ShowValue();
}

void ProgressWindow::Show() {
  show();
  raise();
  Repaint();
}

void ProgressWindow::Unload() { hide(); }

void ProgressWindow::Repaint() {
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void ProgressWindow::SetState(std::string_view text) { state_->setText(ToQt(text)); }

void ProgressWindow::SetBarVisible(bool visible) { bar_->setVisible(visible); }

void ProgressWindow::SetMin(float min) {
  min_ = min;
  ShowValue();
}

void ProgressWindow::SetMax(float max) {
  max_ = max;
  ShowValue();
}

void ProgressWindow::SetValue(float value) {
  if (value < min_ || value > max_)
    throw vbrt::VbError(vbrt::kInvalidPropertyValue, "Invalid property value");
  value_ = value;
  ShowValue();
}

void ProgressWindow::ShowValue() {
  const float span = max_ - min_;
  const float share = span > 0 ? (value_ - min_) / span : 0;
  bar_->setValue(static_cast<int>(std::lround(std::clamp(share, 0.0f, 1.0f) * kBarSteps)));
}

}  // namespace wizard
