// eowizard-merge.so: three-way merge and diff of texts, loaded the first time a generation
// merges the user's changes or shows a diff, so that no other run pays for libgit2 and the
// libraries it needs.
#include "app/module_entries.h"
#include "platform/merge/libgit2_merger.h"

extern "C" platform::TextMerger* eowizard_text_merger() {
  static_assert(std::is_same_v<decltype(&eowizard_text_merger), app::MergeEntry>);
  return &platform::merge::Libgit2Merger();
}
