#include "wizard/browse_dialog.h"

#include <QFileDialog>

#include "wizard/file_filter.h"
#include "wizard/qt_text.h"

namespace wizard {

std::optional<std::string> AskOpenFile(QWidget* parent, const FileDialogSetup& setup,
                                       const platform::FileSystem& fs) {
  QFileDialog dialog(parent);
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(setup.fileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialog.setNameFilter(ToQt(QtFileFilter(setup.filter)));
  if (!setup.initialFolder.empty())
    dialog.setDirectory(QString::fromStdString(fs.ToNative(setup.initialFolder).string()));
  if (!setup.fileName.empty())
    dialog.selectFile(QString::fromStdString(fs.ToNative(setup.fileName).filename().string()));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return FromQt(dialog.selectedFiles().first());
}

}  // namespace wizard
