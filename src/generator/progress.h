#pragma once
// The progress window of one generation: a caption, a state line and a bar.
#include <string_view>

namespace generator {

class ProgressSink {
 public:
  virtual ~ProgressSink() = default;

  // Loads the window with its caption (it is not shown yet).
  virtual void Load(std::string_view caption) = 0;
  // Shows the window without modality.
  virtual void Show() = 0;
  // Unloads the window; it is gone until the next Load.
  virtual void Unload() = 0;
  virtual void Repaint() = 0;

  // The state line (lblState).
  virtual void SetState(std::string_view text) = 0;

  virtual void SetBarVisible(bool visible) = 0;
  virtual void SetMin(float min) = 0;
  virtual void SetMax(float max) = 0;
  virtual float Value() const = 0;
  // Throws vbrt::VbError(kInvalidPropertyValue) for a value outside min..max, as the
  // bar does.
  virtual void SetValue(float value) = 0;
};

}  // namespace generator
