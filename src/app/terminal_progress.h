#pragma once
// The progress window on a terminal: the state line and a bar of the value against the
// maximum, redrawn in place on one line.
#include <iosfwd>
#include <string>

#include "generator/progress.h"

namespace app {

class TerminalProgress : public generator::ProgressSink {
 public:
  // Draws on `out`. Without `interactive` (not a terminal) only the state lines are
  // written, one per line, so that a log stays readable.
  TerminalProgress(std::ostream& out, bool interactive);

  void Load(std::string_view caption) override;
  void Show() override;
  void Unload() override;
  void Repaint() override;
  void SetState(std::string_view text) override;
  void SetBarVisible(bool visible) override;
  void SetMin(float min) override { min_ = min; }
  void SetMax(float max) override { max_ = max; }
  float Value() const override { return value_; }
  void SetValue(float value) override;

 private:
  void Draw();
  void EndLine();

  std::ostream& out_;
  bool interactive_;
  bool shown_ = false;
  bool barVisible_ = true;
  bool lineOpen_ = false;  // a redrawable line is on the screen
  std::string caption_;
  std::string state_;
  float min_ = 0;
  float max_ = 100;
  float value_ = 0;
};

}  // namespace app
