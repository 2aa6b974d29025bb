#pragma once
// The file dialogs: the open-file dialog of the browse buttons, and the save dialog of
// the sketch tool and of a session that could not be saved where it was to go.
#include <QWidget>
#include <optional>
#include <string>

#include "platform/file_system.h"
#include "wizard/model/wizard_form.h"

namespace wizard {

// Opens the dialog as `setup` says (folders in the program's path form are mapped
// through `fs`); the chosen file's full path, or nullopt when the user cancelled.
std::optional<std::string> AskOpenFile(QWidget* parent, const FileDialogSetup& setup,
                                       const platform::FileSystem& fs);

// The save dialog, set up the same way; a name typed without extension takes the
// filter's first one. It asks before an existing file is replaced only when `setup` says so.
std::optional<std::string> AskSaveFile(QWidget* parent, const FileDialogSetup& setup,
                                       const platform::FileSystem& fs);

}  // namespace wizard
