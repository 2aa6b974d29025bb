#pragma once
// A model's drawing (model_picture.h) on a Qt surface: the window's picture and the
// sketch bitmap are painted alike.
#include <QFont>
#include <QPainter>

#include "wizard/model/model_picture.h"

namespace wizard {

// Copies the drawing's shapes onto the painter, as the SVG writer copies them into text;
// the texts take `base`'s family at the drawing's size. The canvas is not cleared.
void PaintDrawing(QPainter& painter, const Drawing& drawing, const QFont& base);

}  // namespace wizard
