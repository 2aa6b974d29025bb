#include "app/terminal_progress.h"

#include <algorithm>
#include <cmath>
#include <ostream>

#include "vbrt/error.h"

namespace app {
namespace {
constexpr int kBarWidth = 30;
}

TerminalProgress::TerminalProgress(std::ostream& out, bool interactive)
    : out_(out), interactive_(interactive) {}

void TerminalProgress::Load(std::string_view caption) {
  caption_ = caption;
  state_.clear();
  barVisible_ = true;
  min_ = 0;
  max_ = 100;
  value_ = 0;
}

void TerminalProgress::Show() {
  if (shown_) return;
  shown_ = true;
  out_ << caption_ << "\n";
}

void TerminalProgress::Unload() {
  EndLine();
  shown_ = false;
}

void TerminalProgress::Repaint() { Draw(); }

void TerminalProgress::SetState(std::string_view text) {
  if (state_ == text) return;
  state_ = text;
  if (!shown_) return;
  if (interactive_) {
    EndLine();
    Draw();
  } else {
    out_ << state_ << "\n";
  }
}

void TerminalProgress::SetBarVisible(bool visible) {
  barVisible_ = visible;
  Draw();
}

void TerminalProgress::SetValue(float value) {
  if (value < min_ || value > max_) vbrt::Raise(vbrt::kInvalidPropertyValue);
  value_ = value;
  Draw();
}

void TerminalProgress::Draw() {
  if (!shown_ || !interactive_) return;
  out_ << "\r" << state_;
  if (barVisible_) {
    const float span = max_ - min_;
    const float share = span > 0 ? (value_ - min_) / span : 0;
    const int filled = std::clamp(static_cast<int>(std::lround(share * kBarWidth)), 0, kBarWidth);
    out_ << " [" << std::string(filled, '#') << std::string(kBarWidth - filled, ' ') << "] "
         << value_ << "/" << max_;
  }
  out_ << "\x1b[K" << std::flush;
  lineOpen_ = true;
}

void TerminalProgress::EndLine() {
  if (lineOpen_) out_ << "\n";
  lineOpen_ = false;
}

}  // namespace app
