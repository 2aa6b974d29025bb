#pragma once
// Three-way merge and unified diff of texts by lines, for regenerating over the user's
// changes and for showing what a generation would change. Texts are bytes: each line keeps
// its own line end (a CR before the LF stays part of the line).
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/regeneration.h"

namespace platform {

// The words after the conflict markers, which say whose lines follow.
struct MergeLabels {
  std::string yours;     // after "<<<<<<<": the user's lines
  std::string previous;  // after "|||||||": the lines both started from
  std::string current;   // after ">>>>>>>" (the lines before it, after "=======")
};

// A merged text, left where the merger made it (the texts are megabytes): `text` stays
// valid as long as `bytes` lives.
struct MergedText {
  std::string_view text;
  std::shared_ptr<const void> bytes;
  std::vector<MergeConflict> conflicts;  // in the order they stand in `text`
};

class TextMerger {
 public:
  virtual ~TextMerger() = default;

  // Merges the changes from `previous` to `yours` with those from `previous` to `current`.
  // Where both changed the same lines, the result holds a conflict in the diff3 style:
  // "<<<<<<< yours", the user's lines, "||||||| previous", the lines of `previous`,
  // "=======", the lines of `current`, ">>>>>>> current". Marker lines end like the texts'
  // lines (CR LF for texts with CR LF). Throws vbrt::VbError when the merge fails.
  virtual MergedText MergeLines(std::string_view previous, std::string_view yours,
                                std::string_view current, const MergeLabels& labels) = 0;

  // The unified diff (three lines of context) from `before` to `after` under the headers
  // "--- beforeLabel" and "+++ afterLabel"; "" when they are equal. With `colour`, headers
  // are bold, hunk heads cyan, removed lines red and added lines green (ANSI escapes).
  // Throws vbrt::VbError when the comparison fails.
  virtual std::string UnifiedDiff(std::string_view before, std::string_view after,
                                  std::string_view beforeLabel, std::string_view afterLabel,
                                  bool colour) = 0;
};

// Gives the merger, making it ready on the first call (which may load its library); the
// merger lives until the program ends. Throws std::runtime_error with a text for the user
// when it cannot be made ready.
using TextMergerSource = std::function<TextMerger&()>;

}  // namespace platform
