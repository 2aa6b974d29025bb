#include "wizard/pictures.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <cmath>
#include <numbers>

namespace wizard {
namespace {

// Each glyph is drawn in a 100 x 100 box centred in the picture.
void DrawStar(QPainter& p) {
  QPolygonF star;
  for (int i = 0; i < 10; ++i) {
    const double radius = i % 2 == 0 ? 34 : 14;
    const double angle = -std::numbers::pi / 2 + i * std::numbers::pi / 5;
    star << QPointF(50 + radius * std::cos(angle), 42 + radius * std::sin(angle));
  }
  p.drawPolygon(star);
  p.drawLine(QPointF(38, 70), QPointF(22, 98));
}

void DrawDocument(QPainter& p) {
  QPainterPath page;
  page.moveTo(22, 8);
  page.lineTo(62, 8);
  page.lineTo(80, 26);
  page.lineTo(80, 94);
  page.lineTo(22, 94);
  page.closeSubpath();
  p.drawPath(page);
  p.drawPolyline(QPolygonF({QPointF(62, 8), QPointF(62, 26), QPointF(80, 26)}));
  for (int y = 42; y <= 78; y += 12) p.drawLine(QPointF(32, y), QPointF(70, y));
}

void DrawFolder(QPainter& p) {
  QPainterPath folder;
  folder.moveTo(10, 26);
  folder.lineTo(38, 26);
  folder.lineTo(46, 36);
  folder.lineTo(90, 36);
  folder.lineTo(90, 84);
  folder.lineTo(10, 84);
  folder.closeSubpath();
  p.drawPath(folder);
  p.drawLine(QPointF(10, 46), QPointF(90, 46));
}

void DrawField(QPainter& p) {
  p.drawEllipse(QPointF(50, 50), 6, 6);
  for (int ring = 1; ring <= 3; ++ring) p.drawEllipse(QPointF(50, 50), 12.0 + 12 * ring, 8.0 + 9 * ring);
}

void DrawMesh(QPainter& p) {
  for (int i = 0; i <= 4; ++i) {
    p.drawLine(QPointF(10 + 20 * i, 10), QPointF(10 + 20 * i, 90));
    p.drawLine(QPointF(10, 10 + 20 * i), QPointF(90, 10 + 20 * i));
  }
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j)
      p.drawLine(QPointF(10 + 20 * i, 30 + 20 * j), QPointF(30 + 20 * i, 10 + 20 * j));
}

// A box with an arrow going into it (input) or coming out of it (output).
void DrawArrowBox(QPainter& p, bool into) {
  p.drawRect(QRectF(50, 22, 40, 56));
  const double tipX = into ? 62 : 10;
  const double tailX = into ? 10 : 72;
  p.drawLine(QPointF(tailX, 50), QPointF(tipX, 50));
  const double back = into ? tipX - 12 : tipX + 12;
  p.drawPolyline(QPolygonF({QPointF(back, 38), QPointF(tipX, 50), QPointF(back, 62)}));
}

void DrawCheck(QPainter& p) {
  p.drawEllipse(QPointF(50, 50), 38, 38);
  p.drawPolyline(QPolygonF({QPointF(30, 52), QPointF(45, 67), QPointF(72, 36)}));
}

// A clipboard with a list whose boxes are still empty: there is something left to do.
void DrawList(QPainter& p) {
  p.drawRoundedRect(QRectF(20, 12, 60, 84), 4, 4);
  p.drawRect(QRectF(38, 6, 24, 12));
  for (int y = 34; y <= 74; y += 20) {
    p.drawRect(QRectF(30, y - 6, 12, 12));
    p.drawLine(QPointF(50, y), QPointF(70, y));
  }
}

void DrawGlyph(QPainter& p, int page, FinishPicture finish) {
  switch (page) {
    case 0: DrawStar(p); break;
    case 1: DrawDocument(p); break;
    case 2: DrawFolder(p); break;
    case 3: DrawField(p); break;
    case 4: DrawMesh(p); break;
    case 5: DrawArrowBox(p, true); break;
    case 6: DrawArrowBox(p, false); break;
    default: finish == FinishPicture::Done ? DrawCheck(p) : DrawList(p); break;
  }
}

}  // namespace

QPixmap PagePicture(int page, QSize size, FinishPicture finish) {
  QPixmap picture(size);
  QPainter p(&picture);
  p.setRenderHint(QPainter::Antialiasing);
  QLinearGradient sky(0, 0, 0, size.height());
  sky.setColorAt(0, QColor(18, 52, 110));
  sky.setColorAt(1, QColor(24, 128, 140));
  p.fillRect(picture.rect(), sky);
  const double side = std::min(size.width(), size.height()) * 0.7;
  p.translate((size.width() - side) / 2, side * 0.45);
  p.scale(side / 100, side / 100);
  p.setPen(QPen(QColor(240, 246, 255), 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.setBrush(Qt::NoBrush);
  DrawGlyph(p, page, finish);
  return picture;
}

QIcon ListRowIcon(std::optional<int16_t> smallIcon) {
  struct Look {
    QColor colour;
    QChar letter;
  };
  Look look;
  switch (smallIcon.value_or(0)) {
    case 1: look = {QColor(40, 140, 70), 'p'}; break;
    case 2: look = {QColor(30, 90, 180), 'i'}; break;
    case 3: look = {QColor(210, 120, 20), 'c'}; break;
    default: return {};
  }
  QPixmap icon(16, 16);
  icon.fill(Qt::transparent);
  QPainter p(&icon);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(Qt::NoPen);
  p.setBrush(look.colour);
  p.drawRoundedRect(QRectF(1, 1, 14, 14), 3, 3);
  p.setPen(Qt::white);
  QFont font = p.font();
  font.setBold(true);
  font.setPixelSize(11);
  p.setFont(font);
  p.drawText(QRectF(0, 0, 16, 15), Qt::AlignCenter, QString(look.letter));
  return QIcon(icon);
}

}  // namespace wizard
