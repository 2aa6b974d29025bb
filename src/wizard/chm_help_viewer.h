#pragma once
// Help through compiled help files: the HelpViewer of the window front end.
#include <filesystem>
#include <memory>
#include <vector>

#include "platform/file_system.h"
#include "platform/help_viewer.h"
#include "wizard/help_window.h"

namespace wizard {

class ChmHelpViewer : public platform::HelpViewer {
 public:
  // Help file paths are mapped to files through `fs`, which must outlive the viewer. A
  // help file that cannot be opened where its reference puts it is looked for, under its
  // own name, in each of `otherFolders` in turn (the installed copy).
  explicit ChmHelpViewer(const platform::FileSystem& fs,
                         std::vector<std::filesystem::path> otherFolders = {});

  // Opens the help window on the topic, in front; a missing file or topic does nothing.
  void ShowTopic(std::string_view fileAndTopic) override;

  // The help window; nullptr until a topic has been shown.
  HelpWindow* Window() const { return window_.get(); }

 private:
  const platform::FileSystem& fs_;
  std::vector<std::filesystem::path> otherFolders_;
  std::unique_ptr<HelpWindow> window_;
};

}  // namespace wizard
