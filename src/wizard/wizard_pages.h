#pragma once
// The layout of the wizard's eight pages. Every control is named (QObject::objectName)
// as the form names it ("edFile", "cmbType", "lblFin1", ...), so that the window finds
// it by that name; captions and contents are filled in by the window.
#include <QWidget>

namespace wizard {

// Page `page` (0 to 7): its picture at the left, its heading, explanatory text and
// controls at the right.
QWidget* BuildPage(int page);

}  // namespace wizard
