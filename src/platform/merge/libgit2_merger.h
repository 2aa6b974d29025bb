#pragma once
// The text merger of this platform: libgit2's three-way merge (git_merge_file) and diff
// (git_patch_from_buffers). Compiled into the merge module only, so that no run that merges
// nothing loads libgit2 and the libraries it needs.
#include "platform/text_merger.h"

namespace platform::merge {

// The process's one libgit2 merger (libgit2 keeps process-wide state); usable as a
// TextMergerSource.
TextMerger& Libgit2Merger();

}  // namespace platform::merge
