#pragma once
// The layout of the wizard's eight pages. Every control is named (QObject::objectName)
// as the form names it ("edFile", "cmbType", "lblFin1", ...), so that the window finds
// it by that name; captions and contents are filled in by the window.
#include <QWidget>

#include "wizard/model/wizard_form.h"

namespace wizard {

// The picture at the left of a page, drawn over the page's whole height; named
// "imgStep(<page>)".
class PictureStrip : public QWidget {
 public:
  explicit PictureStrip(int page);
  // The finish page's picture follows the form; other pages ignore this.
  void ShowFinish(FinishPicture finish);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int page_;
  FinishPicture finish_ = FinishPicture::Done;
};

// Page `page` (0 to 7): its picture at the left, its heading, explanatory text and
// controls at the right.
QWidget* BuildPage(int page);

// Gives each field label of the pages in `window` its field as buddy, so that the label's
// access key moves the focus there.
void PairLabelsWithFields(QWidget& window);

}  // namespace wizard
