#pragma once
// What the basic-files page shows below its controls while "Convert basic model into
// code" is chosen: the picture of the model as generation will read it, or why it
// cannot be read, so that the user learns it before reaching Finish. A click on the
// picture picks the edge there and tells its number, end points and label.
#include <memory>
#include <optional>
#include <string>

#include "platform/analysis_application.h"
#include "platform/file_system.h"
#include "session/form_state.h"
#include "wizard/model/model_picture.h"

namespace wizard {

class BasicFilesPicture {
 public:
  // Follows the form: while optModelCode is selected, the model that edModel names is
  // opened through `application` as generation opens it and drawn, or the reason why it
  // cannot be is kept; otherwise nothing is shown. The model is read again only when the
  // path or the option changed since it was last read, or after Forget.
  void Update(const session::FormState& form, platform::AnalysisApplication* application,
              const platform::FileSystem& fs);
  // The next Update reads the model again (its file may have changed meanwhile).
  void Forget() { stale_ = true; }

  // The model's picture; nullptr when there is none to show.
  const ModelPicture* Picture() const { return picture_.get(); }
  // Why the model cannot be converted, under a heading; "" when there is nothing to tell.
  const std::string& Reason() const { return reason_; }

  // The picture on a canvas of that size, the selected edge standing out. Only while
  // there is a picture.
  Drawing Draw(CanvasSize canvas) const;
  // A click at `at` on a canvas of that size: the edge there becomes the selected one; a
  // click beside every edge selects none.
  void Click(Point2 at, CanvasSize canvas);
  std::optional<int> SelectedEdge() const { return selected_; }
  // The selected edge's number, end points and label; while none is selected, how to
  // pick one.
  std::string EdgeText() const;

 private:
  std::optional<std::string> readPath_;  // the model last read; none when none was
  bool stale_ = false;
  bool reading_ = false;  // a read is under way
  std::shared_ptr<const ModelPicture> picture_;  // shared with copies that views keep
  std::string reason_;
  std::optional<int> selected_;
};

}  // namespace wizard
