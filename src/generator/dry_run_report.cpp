#include "generator/dry_run_report.h"

#include <algorithm>
#include <map>

#include "generator/merge_report.h"
#include "vbrt/codepage.h"

namespace generator {
namespace {

using platform::SavedFile;
using platform::SaveChoice;

std::string Outcome(const SavedFile& file) {
  switch (file.choice) {
    case SaveChoice::Create: return "created";
    case SaveChoice::Overwrite: return "overwritten";
    case SaveChoice::NewName: return "written under a new name";
    case SaveChoice::Merge:
      return file.conflicts.empty() ? "merged cleanly"
                                    : "merged with " + ConflictsText(file.conflicts);
  }
  return "";
}

}  // namespace

bool DryRunReport::HasConflicts() const {
  return std::any_of(entries.begin(), entries.end(),
                     [](const DryRunEntry& entry) { return !entry.conflicts.empty(); });
}

std::string Displayed(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t from = 0; from < bytes.size();) {
    std::size_t cr = bytes.find("\r\n", from);
    if (cr == std::string_view::npos) cr = bytes.size();
    text.append(bytes.substr(from, cr - from));
    from = cr + 1;  // the LF after the CR, which stays
  }
  return vbrt::FromAnsi(text);
}

std::string ConflictsText(const std::vector<platform::MergeConflict>& conflicts) {
  const std::size_t n = conflicts.size();
  return std::to_string(n) + (n == 1 ? " conflict" : " conflicts") + " (lines " +
         ConflictLines(conflicts) + ")";
}

std::vector<DryRunEntry> DryRunEntries(const platform::FileSystem& fs,
                                       const std::vector<std::string>& createdFolders,
                                       const std::vector<std::string>& written,
                                       const std::vector<SavedFile>& saved,
                                       const std::vector<AnsweredQuestion>& questions) {
  std::map<std::string, const AnsweredQuestion*> askedAbout;
  auto question = questions.begin();
  for (const SavedFile& file : saved) {
    if (file.choice == SaveChoice::Create) continue;
    while (question != questions.end() && !question->aboutFile) ++question;
    if (question == questions.end()) break;
    askedAbout[file.path] = &*question++;
  }
  std::vector<DryRunEntry> entries;
  entries.reserve(createdFolders.size() + written.size());
  for (const std::string& folder : createdFolders) {
    entries.push_back({.path = fs.ToNative(folder).string(), .outcome = "folder created"});
  }
  for (const std::string& path : written) {
    DryRunEntry entry{.path = fs.ToNative(path).string(), .outcome = "copied"};
    if (const SavedFile* file = SavedAs(saved, path)) {
      entry.outcome = Outcome(*file);
      entry.generated = true;
      entry.choice = file->choice;
      entry.before = file->before;
      entry.after = file->after;
      entry.conflicts = file->conflicts;
      if (const auto asked = askedAbout.find(path); asked != askedAbout.end()) {
        entry.question = *asked->second;
      }
    }
    entries.push_back(std::move(entry));
  }
  return entries;
}

std::string DiffOf(platform::TextMerger& merger, const DryRunEntry& entry, bool colour) {
  return merger.UnifiedDiff(Displayed(entry.before), Displayed(entry.after),
                            entry.path + " (on disk)", entry.path + " (after the generation)",
                            colour);
}

}  // namespace generator
