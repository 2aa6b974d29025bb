#include "wizard/model_picture_view.h"

#include <QFontMetricsF>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>
#include <functional>

#include "wizard/model/basic_files_picture.h"
#include "wizard/qt_text.h"

namespace wizard {
namespace {

QPointF ToPoint(Point2 p) { return {p.x, p.y}; }

QColor Colour(const std::string& name) { return QColor(QString::fromStdString(name)); }

QPolygonF Polygon(const std::vector<Point2>& points) {
  QPolygonF polygon;
  for (const Point2& p : points) polygon << ToPoint(p);
  return polygon;
}

// Copies the drawing's shapes onto the painter, as the SVG writer copies them into text.
void Paint(QPainter& painter, const Drawing& drawing, const QFont& base) {
  painter.setRenderHint(QPainter::Antialiasing);
  for (const DrawnArea& area : drawing.areas) {
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (const auto& loop : area.loops) {
      path.addPolygon(Polygon(loop));
      path.closeSubpath();
    }
    painter.fillPath(path, Colour(area.fill));
  }
  for (const DrawnEdge& edge : drawing.edges) {
    QPainterPath path(ToPoint(edge.start));
    if (edge.radius > 0) {
      const double r = edge.radius;
      path.arcTo(QRectF(edge.centre.x - r, edge.centre.y - r, 2 * r, 2 * r), edge.startDegrees,
                 edge.sweepDegrees);
    } else {
      path.lineTo(ToPoint(edge.end));
    }
    const QColor colour = Colour(edge.stroke);
    painter.strokePath(path, QPen(colour, edge.strokeWidth, Qt::SolidLine, Qt::RoundCap));
    if (!edge.arrow) continue;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(Polygon({edge.arrow->begin(), edge.arrow->end()}));
  }
  for (const DrawnVertex& vertex : drawing.vertices) {
    painter.setPen(vertex.outline.empty() ? QPen(Qt::NoPen)
                                          : QPen(Colour(vertex.outline), vertex.outlineWidth));
    painter.setBrush(Colour(vertex.fill));
    painter.drawEllipse(ToPoint(vertex.at), vertex.radius, vertex.radius);
  }
  const QPen halo(Qt::white, Drawing::kHaloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  for (const DrawnText& text : drawing.texts) {
    QFont font = base;
    font.setPixelSize(static_cast<int>(Drawing::kFontPixels));
    font.setBold(text.bold);
    const QString words = ToQt(text.text);
    QPointF at = ToPoint(text.at);
    if (text.centred) {
      const QFontMetricsF metrics(font);
      at += QPointF(-metrics.horizontalAdvance(words) / 2,
                    (metrics.ascent() - metrics.descent()) / 2);
    }
    QPainterPath path;
    path.addText(at, font, words);
    painter.strokePath(path, halo);
    painter.fillPath(path, Colour(text.colour));
  }
}

}  // namespace

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
    if (shown_.Picture() != nullptr) Paint(painter, shown_.Draw(Size()), font());
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
  canvas_->setVisible(drawn);
  edge_->setVisible(drawn);
  reason_->setVisible(!picture.Reason().empty());
  if (drawn) {
    canvas_->Show(picture);
    edge_->setText(ToQt(picture.EdgeText()));
  }
  reason_->setText(ToQt(picture.Reason()));
}

}  // namespace wizard
