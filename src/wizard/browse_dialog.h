#pragma once
// The open-file dialog of the browse buttons, and the save-file dialog of a session
// that could not be saved where it was to go.
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
// The same as a save-file dialog, which asks before an existing file is replaced.
std::optional<std::string> AskSaveFile(QWidget* parent, const FileDialogSetup& setup,
                                       const platform::FileSystem& fs);

}  // namespace wizard
