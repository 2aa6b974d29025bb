#include "wizard/browse_dialog.h"

#include <QFileDialog>

#include "wizard/file_filter.h"
#include "wizard/qt_text.h"

namespace wizard {
namespace {

std::optional<std::string> Ask(QFileDialog& dialog, const FileDialogSetup& setup,
                               const platform::FileSystem& fs) {
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
  QFileDialog dialog(parent);
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(setup.fileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  return Ask(dialog, setup, fs);
}

std::optional<std::string> AskSaveFile(QWidget* parent, const FileDialogSetup& setup,
                                       const platform::FileSystem& fs) {
  QFileDialog dialog(parent);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  if (!setup.askBeforeReplacing) dialog.setOption(QFileDialog::DontConfirmOverwrite);
  // The extension of the filter's first pattern: "Windows bitmaps (*.bmp)" gives "bmp".
  const std::string filter = QtFileFilter(setup.filter);
  if (const auto star = filter.find("*."); star != std::string::npos) {
    const auto end = filter.find_first_of(" );", star);
    dialog.setDefaultSuffix(ToQt(filter.substr(star + 2, end - star - 2)));
  }
  return Ask(dialog, setup, fs);
}

}  // namespace wizard
