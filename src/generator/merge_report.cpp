#include "generator/merge_report.h"

#include <algorithm>

#include "resources/string_ids.h"
#include "resources/string_table.h"

namespace generator {

using platform::SavedFile;
using platform::SaveChoice;
using resources::LoadResString;

const SavedFile* SavedAs(const std::vector<SavedFile>& saved, const std::string& path) {
  const auto it = std::find_if(saved.begin(), saved.end(),
                               [&](const SavedFile& file) { return file.path == path; });
  return it == saved.end() ? nullptr : &*it;
}

std::string ConflictLines(const std::vector<platform::MergeConflict>& conflicts) {
  std::string text;
  for (const platform::MergeConflict& conflict : conflicts) {
    if (!text.empty()) text += ", ";
    text += std::to_string(conflict.first) + "-" + std::to_string(conflict.last);
  }
  return text;
}

std::optional<platform::Message> MergeOutcome(const std::vector<SavedFile>& saved) {
  const auto merged = [](const SavedFile& file) { return file.choice == SaveChoice::Merge; };
  if (std::none_of(saved.begin(), saved.end(), merged)) return std::nullopt;
  const bool conflicts = std::any_of(saved.begin(), saved.end(), [](const SavedFile& file) {
    return !file.conflicts.empty();
  });
  std::string text = conflicts ? LoadResString(resources::kMergeConflictsIn)
                               : LoadResString(resources::kGenerationSucceeded) + "\n" +
                                     LoadResString(resources::kMergedInto);
  for (const SavedFile& file : saved) {
    if (conflicts && !file.conflicts.empty()) {
      text += "\n" + file.path + ": " + LoadResString(resources::kConflictLinesWord) + " " +
              ConflictLines(file.conflicts);
    } else if (!conflicts && merged(file)) {
      text += "\n" + file.path;
    }
  }
  return platform::Message{text, platform::MsgButtons::OK, platform::MsgIcon::Exclamation,
                           LoadResString(resources::kAppTitle)};
}

}  // namespace generator
