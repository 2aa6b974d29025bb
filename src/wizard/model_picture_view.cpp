#include "wizard/model_picture_view.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

#include "wizard/drawing_painter.h"
#include "wizard/model/basic_files_picture.h"
#include "wizard/qt_text.h"

namespace wizard {
// The picture itself: drawn at the canvas's size, clicks reported with that size.
class ModelPictureView::Canvas : public QWidget {
 public:
  explicit Canvas(std::function<void(Point2, CanvasSize)> clicked) : clicked_(std::move(clicked)) {
    setObjectName("imgModel");
    setFocusPolicy(Qt::NoFocus);
    // Room for a readable picture: the window grows to it when a picture comes.
    setMinimumSize(320, 260);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setCursor(Qt::PointingHandCursor);
  }

  void Show(const BasicFilesPicture& picture) {
    shown_ = picture;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    if (shown_.Picture() != nullptr) PaintDrawing(painter, shown_.Draw(Size()), font());
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }

  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton) {
      clicked_({event->position().x(), event->position().y()}, Size());
    }
  }

 private:
  CanvasSize Size() const { return {static_cast<double>(width()), static_cast<double>(height())}; }

  std::function<void(Point2, CanvasSize)> clicked_;
  BasicFilesPicture shown_;  // a copy: it shares the picture and outlives the form
};

ModelPictureView::ModelPictureView(QWidget* parent) : QWidget(parent) {
  canvas_ = new Canvas([this](Point2 at, CanvasSize size) {
    if (forward_) forward_([=](WizardForm& form) { form.Picture().Click(at, size); });
  });
  edge_ = new QLabel;
  edge_->setObjectName("lblModelEdge");
  reason_ = new QLabel;
  reason_->setObjectName("lblModelReason");
  for (QLabel* label : {edge_, reason_}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
  reason_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  // A long edge text takes a second line; the layout would not make room for it itself.
  edge_->setMinimumHeight(2 * edge_->fontMetrics().lineSpacing());
  edge_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 6, 0, 0);
  layout->addWidget(canvas_, 1);
  layout->addWidget(edge_);
  layout->addWidget(reason_, 1);
}

void ModelPictureView::Connect(FormForwarder forward) { forward_ = std::move(forward); }

void ModelPictureView::Show(WizardForm& form) {
  const BasicFilesPicture& picture = form.Picture();
  const bool drawn = picture.Picture() != nullptr;
  const bool wasDrawn = !canvas_->isHidden();
  if (drawn && !wasDrawn) heightWithout_ = window()->height();
  canvas_->setVisible(drawn);
  edge_->setVisible(drawn);
  reason_->setVisible(!picture.Reason().empty());
  if (drawn) {
    canvas_->Show(picture);
    edge_->setText(ToQt(picture.EdgeText()));
  }
  reason_->setText(ToQt(picture.Reason()));
  if (wasDrawn && !drawn && heightWithout_ > 0) {
    // The room the window grew for the picture goes with it. The layouts and the widgets
    // up to the window learn at once that the picture has gone: a nested layout and a
    // widget's place in its parent's layout keep the minimum last computed until told.
    QWidget* window = this->window();
    for (QLayout* layout : window->findChildren<QLayout*>()) layout->invalidate();
    for (QWidget* widget = this; !widget->isWindow(); widget = widget->parentWidget())
      widget->updateGeometry();
    window->layout()->activate();
    window->resize(window->width(), std::min(window->height(), heightWithout_));
  }
}

}  // namespace wizard
