#include "platform/merge/libgit2_merger.h"

#include <git2.h>

#include <memory>

#include "vbrt/error.h"

namespace platform::merge {
namespace {

constexpr int kLibraryError = 51;  // "Internal error"

[[noreturn]] void Fail(std::string_view what) {
  const git_error* error = git_error_last();
  throw vbrt::VbError(kLibraryError, std::string(what) + ": " +
                                         (error && error->message ? error->message : "unknown error"));
}

// libgit2's result of a merge, freed with it.
struct MergeResult : git_merge_file_result {
  MergeResult() : git_merge_file_result{} {}
  MergeResult(const MergeResult&) = delete;
  MergeResult& operator=(const MergeResult&) = delete;
  ~MergeResult() { git_merge_file_result_free(this); }
};

git_merge_file_input Input(std::string_view text) {
  git_merge_file_input input = GIT_MERGE_FILE_INPUT_INIT;
  input.ptr = text.data();
  input.size = text.size();
  return input;
}

// Whether `line` (without its LF) is `marker`, a blank and `label`, with
// or without a CR at its end.
bool IsMarker(std::string_view line, std::string_view marker, std::string_view label) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line.size() == marker.size() + 1 + label.size() && line.starts_with(marker) &&
         line[marker.size()] == ' ' && line.substr(marker.size() + 1) == label;
}

std::vector<MergeConflict> FindConflicts(std::string_view text, const MergeLabels& labels) {
  std::vector<MergeConflict> conflicts;
  int number = 0;
  bool open = false;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = text.find('\n', at);
    if (end == std::string_view::npos) end = text.size();
    const std::string_view line = text.substr(at, end - at);
    ++number;
    if (IsMarker(line, "<<<<<<<", labels.yours)) {
      conflicts.push_back({number, number});
      open = true;
    } else if (open && IsMarker(line, ">>>>>>>", labels.current)) {
      conflicts.back().last = number;
      open = false;
    }
    at = end + 1;
  }
  return conflicts;
}

struct DiffPrinter {
  bool colour;
  std::string out;

  void Add(std::string_view style, std::string_view text) {
    if (colour && !style.empty()) {
      out += style;
      out += text;
      out += "\x1b[0m";
    } else {
      out += text;
    }
  }

  static int Line(const git_diff_delta*, const git_diff_hunk*, const git_diff_line* line,
                  void* payload) {
    auto& self = *static_cast<DiffPrinter*>(payload);
    std::string_view content(line->content, line->content_len);
    const bool endsLine = content.ends_with('\n');
    if (endsLine) content.remove_suffix(1);
    switch (line->origin) {
      case GIT_DIFF_LINE_FILE_HDR:
        return 0;  // the caller's own headers stand instead
      case GIT_DIFF_LINE_HUNK_HDR:
        self.Add("\x1b[36m", content);
        break;
      case GIT_DIFF_LINE_ADDITION:
        self.Add("\x1b[32m", "+" + std::string(content));
        break;
      case GIT_DIFF_LINE_DELETION:
        self.Add("\x1b[31m", "-" + std::string(content));
        break;
      case GIT_DIFF_LINE_CONTEXT:
        self.Add("", " " + std::string(content));
        break;
      default:  // "\ No newline at end of file" and its kin
        self.Add("", content);
        break;
    }
    self.out += '\n';
    return 0;
  }
};

class Libgit2TextMerger : public TextMerger {
 public:
  // libgit2 keeps process-wide state (its allocator among it) that must be set up once.
  Libgit2TextMerger() { git_libgit2_init(); }

  MergedText MergeLines(std::string_view previous, std::string_view yours,
                        std::string_view current, const MergeLabels& labels) override;
  std::string UnifiedDiff(std::string_view before, std::string_view after,
                          std::string_view beforeLabel, std::string_view afterLabel,
                          bool colour) override;
};

MergedText Libgit2TextMerger::MergeLines(std::string_view previous, std::string_view yours,
                                         std::string_view current, const MergeLabels& labels) {
  const git_merge_file_input ancestor = Input(previous);
  const git_merge_file_input ours = Input(yours);
  const git_merge_file_input theirs = Input(current);
  git_merge_file_options options = GIT_MERGE_FILE_OPTIONS_INIT;
  options.flags = GIT_MERGE_FILE_STYLE_DIFF3;
  options.ancestor_label = labels.previous.c_str();
  options.our_label = labels.yours.c_str();
  options.their_label = labels.current.c_str();
  auto result = std::make_shared<MergeResult>();
  if (git_merge_file(result.get(), &ancestor, &ours, &theirs, &options) < 0) {
    // libgit2 has freed what it had made, without forgetting it.
    static_cast<git_merge_file_result&>(*result) = {};
    Fail("Merging failed");
  }
  // The merged text stays in libgit2's buffer: a copy would cost as much as a file's read.
  MergedText merged{{result->ptr, result->len}, result, {}};
  if (!result->automergeable) merged.conflicts = FindConflicts(merged.text, labels);
  return merged;
}

std::string Libgit2TextMerger::UnifiedDiff(std::string_view before, std::string_view after,
                                           std::string_view beforeLabel,
                                           std::string_view afterLabel, bool colour) {
  if (before == after) return "";
  git_diff_options options = GIT_DIFF_OPTIONS_INIT;
  options.flags = GIT_DIFF_FORCE_TEXT;
  git_patch* patch = nullptr;
  if (git_patch_from_buffers(&patch, before.data(), before.size(), nullptr, after.data(),
                             after.size(), nullptr, &options) < 0) {
    Fail("Comparing failed");
  }
  const std::unique_ptr<git_patch, void (*)(git_patch*)> owner(patch, git_patch_free);
  DiffPrinter printer{colour, {}};
  printer.Add("\x1b[1m", "--- " + std::string(beforeLabel));
  printer.out += '\n';
  printer.Add("\x1b[1m", "+++ " + std::string(afterLabel));
  printer.out += '\n';
  if (git_patch_print(patch, &DiffPrinter::Line, &printer) < 0) Fail("Comparing failed");
  return printer.out;
}

}  // namespace

TextMerger& Libgit2Merger() {
  static Libgit2TextMerger merger;
  return merger;
}

}  // namespace platform::merge
