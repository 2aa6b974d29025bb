#pragma once
// Below the basic-files page's controls: the picture of the model converted into code,
// scaled to the room the window leaves it, with the clicked edge's number, end points and
// label under it; for a model that cannot be converted, the reason instead. It shows the
// form's BasicFilesPicture and forwards clicks to it. The picture takes no focus, so the
// page's tab order stays as it is.
#include <QWidget>

#include "wizard/form_forwarder.h"

class QLabel;

namespace wizard {

class ModelPictureView : public QWidget {
  Q_OBJECT

 public:
  explicit ModelPictureView(QWidget* parent = nullptr);

  // From now on clicks on the picture go through `forward`.
  void Connect(FormForwarder forward);
  // Shows the form's picture, or its reason, or nothing. When the picture goes, the
  // window gives up the height it grew for it.
  void Show(WizardForm& form);

 private:
  class Canvas;

  FormForwarder forward_;
  Canvas* canvas_;  // imgModel
  QLabel* edge_;    // lblModelEdge: the clicked edge
  QLabel* reason_;  // lblModelReason
  int heightWithout_ = 0;  // the window's height before the picture came
};

}  // namespace wizard
