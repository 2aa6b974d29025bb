#pragma once
// What the user is told after a generation that merged the new text into files they had
// changed since the last generation.
#include <optional>
#include <string>
#include <vector>

#include "platform/prompter.h"
#include "platform/regeneration.h"

namespace generator {

// The saved file of `path` in a run's record of saved files; nullptr when the run saved
// no file of that path (a copy of a basic file).
const platform::SavedFile* SavedAs(const std::vector<platform::SavedFile>& saved,
                                   const std::string& path);

// The lines of each conflict, "196-202, 250-256".
std::string ConflictLines(const std::vector<platform::MergeConflict>& conflicts);

// The message box that ends a run that merged (it stands instead of the success message):
// the success text and the merged files, or, when any merge left conflicts, each file
// with conflicts and the lines of its conflicts. nullopt when the run merged nothing.
std::optional<platform::Message> MergeOutcome(const std::vector<platform::SavedFile>& saved);

}  // namespace generator
