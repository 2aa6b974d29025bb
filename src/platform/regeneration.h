#pragma once
// What the development environment keeps of the files a generation saves, so that a later
// generation can merge its new text with what the user changed since: a pristine copy of
// each project, class and module file exactly as it was generated.
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// What is known about an existing project, class or module file.
enum class FileHistory {
  Unknown,      // no pristine copy of it is kept
  AsGenerated,  // it holds exactly what the last generation saved
  Edited,       // it was changed since it was generated
};

// How a generation saves one of its files.
enum class SaveChoice {
  Create,     // there was no file of that name
  Overwrite,  // the existing file is replaced (answered Yes)
  NewName,    // the existing file is kept and the next free name taken (answered No)
  Merge,      // the new text is merged with the user's changes (answered Merge)
};

// One conflict in a merged file: its lines, counted from 1, from the "<<<<<<<" line to
// the ">>>>>>>" line.
struct MergeConflict {
  int first = 0;
  int last = 0;
  bool operator==(const MergeConflict&) const = default;
};

struct SavedFile {
  std::string path;  // as the generation named it
  SaveChoice choice = SaveChoice::Create;
  std::vector<MergeConflict> conflicts = {};  // of a merged file
  // Kept by a dry run only: the file's bytes on disk ("" when there is none) and the
  // bytes the run would have written.
  std::string before = "";
  std::string after = "";
};

class Regeneration {
 public:
  virtual ~Regeneration() = default;

  // What is known about the file at `path` (which exists).
  virtual FileHistory History(std::string_view path) const = 0;
  // Says how the coming saves of `path` are meant; called once for each file of a run,
  // before its first save. The saves of a file to merge leave it untouched: Complete
  // merges and writes it. Throws std::runtime_error with a text for the user when a merge
  // cannot be made here (its library cannot be loaded); nothing was written then.
  virtual void Plan(std::string_view path, SaveChoice choice) = 0;
  // Ends a run whose saves all succeeded: merges and writes the files planned for
  // merging and keeps a pristine copy of what was generated for each planned file.
  // Throws vbrt::VbError when a file cannot be written; every file it had written is
  // then as it was before.
  virtual void Complete() = 0;
  // Ends a run that failed: its plans are dropped and nothing is written.
  virtual void Abandon() = 0;
  // True when saves write nothing at all (a dry run).
  virtual bool DryRun() const = 0;
  // The planned files of the last completed run, in the order they were planned.
  virtual const std::vector<SavedFile>& Saved() const = 0;
};

}  // namespace platform
