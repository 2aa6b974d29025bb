#pragma once
// The sketch of a basic model as a Windows bitmap: what "Create sketch file now" and
// `eowizard model show --bmp` save.
#include <QImage>
#include <filesystem>

#include "wizard/model/model_picture.h"

namespace wizard {

// The drawing on a white image of its size, painted as the window paints the model.
QImage PaintedImage(const Drawing& drawing);

// Writes the painted drawing to `file` as a Windows bitmap, replacing it only once the
// whole bitmap is written. Throws std::runtime_error saying why it cannot be written. A
// BitmapWriter (wizard_form.h); needs a running QGuiApplication for the texts.
void WriteBitmap(const Drawing& drawing, const std::filesystem::path& file);

}  // namespace wizard
