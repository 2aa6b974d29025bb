#pragma once
// The start-up notice (frmLaunch): a small window that says the analysis application is
// starting.
#include <QDialog>
#include <string>

class QLabel;

namespace wizard {

class LaunchNotice : public QDialog {
  Q_OBJECT

 public:
  LaunchNotice(const std::string& caption, const std::string& text);
  // Shows the notice and paints it before returning: the start that follows blocks the
  // event loop.
  void ShowNow();
};

}  // namespace wizard
