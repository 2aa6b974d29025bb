#include "wizard/browse_dialog.h"

#include <QFileDialog>

#include "wizard/file_filter.h"
#include "wizard/qt_text.h"

namespace wizard {

namespace {

std::optional<std::string> AskFile(QWidget* parent, const FileDialogSetup& setup,
                                   const platform::FileSystem& fs, QFileDialog::AcceptMode mode) {
  QFileDialog dialog(parent);
  dialog.setAcceptMode(mode);
  dialog.setFileMode(setup.fileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialog.setNameFilter(ToQt(QtFileFilter(setup.filter)));
  if (!setup.initialFolder.empty())
    dialog.setDirectory(QString::fromStdString(fs.ToNative(setup.initialFolder).string()));
  if (!setup.fileName.empty())
    dialog.selectFile(QString::fromStdString(fs.ToNative(setup.fileName).filename().string()));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return FromQt(dialog.selectedFiles().first());
}

}  // namespace

std::optional<std::string> AskOpenFile(QWidget* parent, const FileDialogSetup& setup,
                                       const platform::FileSystem& fs) {
  return AskFile(parent, setup, fs, QFileDialog::AcceptOpen);
}

std::optional<std::string> AskSaveFile(QWidget* parent, const FileDialogSetup& setup,
                                       const platform::FileSystem& fs) {
  return AskFile(parent, setup, fs, QFileDialog::AcceptSave);
}

}  // namespace wizard
