#include "wizard/sketch_bitmap.h"

#include <QGuiApplication>
#include <QPainter>
#include <QSaveFile>
#include <cmath>
#include <stdexcept>

#include "wizard/drawing_painter.h"

namespace wizard {

QImage PaintedImage(const Drawing& drawing) {
  QImage image(static_cast<int>(std::lround(drawing.size.width)),
               static_cast<int>(std::lround(drawing.size.height)), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  PaintDrawing(painter, drawing, QGuiApplication::font());
  return image;
}

void WriteBitmap(const Drawing& drawing, const std::filesystem::path& file) {
  QSaveFile out(QString::fromStdString(file.string()));
  if (!out.open(QIODevice::WriteOnly)) throw std::runtime_error(out.errorString().toStdString());
  if (!PaintedImage(drawing).save(&out, "BMP")) {
    out.cancelWriting();
    throw std::runtime_error(out.error() != QFileDevice::NoError
                                 ? out.errorString().toStdString()
                                 : "the bitmap could not be written");
  }
  if (!out.commit()) throw std::runtime_error(out.errorString().toStdString());
}

}  // namespace wizard
