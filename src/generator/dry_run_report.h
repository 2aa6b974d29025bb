#pragma once
// What a dry run of a generation found, as the command line's dry run prints it and the
// window's preview shows it: every folder and file the generation would leave, what would
// become of each, and the text before and after.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "platform/prompter.h"
#include "platform/regeneration.h"
#include "platform/text_merger.h"

namespace generator {

// A question the run asked, and how it was answered.
struct AnsweredQuestion {
  std::string text;
  platform::MsgAnswer answer = platform::MsgAnswer::OK;
  bool aboutFile = false;  // whether to overwrite a project, class or module file
};

// One folder or file the generation would leave.
struct DryRunEntry {
  std::string path;     // as the user reads it (the native path)
  std::string outcome;  // "folder created", "copied", "created", "overwritten",
                        // "merged cleanly", "merged with N conflicts (lines ...)",
                        // "written under a new name"
  // A project, class or module file: its bytes on disk ("" when there is none) and the
  // bytes the generation would write, in the code page with CR LF (see Displayed).
  bool generated = false;
  platform::SaveChoice choice = platform::SaveChoice::Create;  // of a generated file
  std::string before = "";
  std::string after = "";
  std::vector<platform::MergeConflict> conflicts = {};
  // The question asked about this file, when one was asked.
  std::optional<AnsweredQuestion> question = std::nullopt;
};

struct DryRunReport {
  bool generated = false;
  std::string failure;                     // what the run told when it failed
  std::vector<AnsweredQuestion> questions;  // in the order they were asked
  std::vector<DryRunEntry> entries;         // folders made, then files in writing order

  bool HasConflicts() const;
};

// Code-page bytes with CR LF as the terminal shows text: UTF-8, lines ended by LF.
std::string Displayed(std::string_view bytes);

// "1 conflict (lines 224-230)", "2 conflicts (lines 196-202, 250-256)".
std::string ConflictsText(const std::vector<platform::MergeConflict>& conflicts);

// The entries of a completed dry run: the folders it would have made and the files it
// wrote (the copies first, then class, module and project file, as the generator lists
// them), with what its development environment kept of each saved file and the question
// asked about it. `questions` are the run's in the order asked: one about each saved file
// that existed, in the order the files were saved, among others. Paths are shown as `fs`
// maps them.
std::vector<DryRunEntry> DryRunEntries(const platform::FileSystem& fs,
                                       const std::vector<std::string>& createdFolders,
                                       const std::vector<std::string>& written,
                                       const std::vector<platform::SavedFile>& saved,
                                       const std::vector<AnsweredQuestion>& questions);

// The unified diff of a generated file from what is on disk to what the generation would
// write, both as displayed, under "--- <path> (on disk)" and "+++ <path> (after the
// generation)". Throws as TextMerger::UnifiedDiff does.
std::string DiffOf(platform::TextMerger& merger, const DryRunEntry& entry, bool colour);

}  // namespace generator
