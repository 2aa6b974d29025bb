#include "wizard/chm_help_viewer.h"

namespace wizard {

ChmHelpViewer::ChmHelpViewer(const platform::FileSystem& fs,
                             std::vector<std::filesystem::path> otherFolders)
    : fs_(fs), otherFolders_(std::move(otherFolders)) {}

void ChmHelpViewer::ShowTopic(std::string_view fileAndTopic) {
  const auto reference = platform::SplitHelpReference(fileAndTopic);
  if (!reference) return;
  const std::filesystem::path named = fs_.ToNative(reference->file);
  std::vector<std::filesystem::path> candidates{named};
  for (const std::filesystem::path& folder : otherFolders_)
    candidates.push_back(folder / named.filename());
  for (const std::filesystem::path& file : candidates) {
    auto archive = platform::ChmArchive::Open(file);
    if (!archive) continue;
    if (!window_) window_ = std::make_unique<HelpWindow>();
    window_->ShowTopic(std::move(*archive), file, *reference);
    return;
  }
}

}  // namespace wizard
