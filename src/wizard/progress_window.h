#pragma once
// The progress window of a generation (frmProgress): the state line lblState and a bar.
#include <QDialog>

#include "generator/progress.h"

class QLabel;
class QProgressBar;

namespace wizard {

class ProgressWindow : public QDialog, public generator::ProgressSink {
  Q_OBJECT

 public:
  ProgressWindow();

  void Load(std::string_view caption) override;
  void Show() override;
  void Unload() override;
  // Lets the window paint now: the generation runs on the user-interface thread.
  void Repaint() override;
  void SetState(std::string_view text) override;
  void SetBarVisible(bool visible) override;
  void SetMin(float min) override;
  void SetMax(float max) override;
  float Value() const override { return value_; }
  void SetValue(float value) override;

 private:
  void ShowValue();

  QLabel* state_;
  QProgressBar* bar_;
  float min_ = 0;
  float max_ = 100;
  float value_ = 0;
};

}  // namespace wizard
