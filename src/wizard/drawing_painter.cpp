#include "wizard/drawing_painter.h"

#include <QFontMetricsF>
#include <QPainterPath>

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

}  // namespace

void PaintDrawing(QPainter& painter, const Drawing& drawing, const QFont& base) {
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

}  // namespace wizard
