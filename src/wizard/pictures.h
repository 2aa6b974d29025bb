#pragma once
// The pictures of the wizard, drawn in code so that they scale and need no files.
#include <QIcon>
#include <QPixmap>
#include <cstdint>
#include <optional>

#include "wizard/model/wizard_form.h"

namespace wizard {

// The picture at the left of page `page` (0 to 7), of the given size. The finish page's
// shows a project done, or a list still to be done.
QPixmap PagePicture(int page, QSize size, FinishPicture finish = FinishPicture::Done);

// The small icon of an output-list row: 1 a local quantity, 2 an integral quantity, 3 a
// custom expression; no icon for an unset or other number.
QIcon ListRowIcon(std::optional<int16_t> smallIcon);

}  // namespace wizard
