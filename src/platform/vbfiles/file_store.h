#pragma once
// Where the development environment's saves of project, class and module files go. The
// store writes each file (temporary file and rename), keeps a pristine copy of what a
// generation saved in the folder ".eowizard" beside it, merges a file the user changed
// since it was generated with the new text when the generation plans so (through a text
// merger it asks for only then), and in a dry run writes nothing at all.
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "platform/regeneration.h"
#include "platform/text_merger.h"

namespace platform::vbfiles {

enum class Saving { ToDisk, DryRun };

// The pristine copy of `file`: ".eowizard/<file name>" in the file's folder.
std::filesystem::path PristineCopyOf(const std::filesystem::path& file);

class FileStore : public Regeneration {
 public:
  // Paths are mapped to files through `fs`, which must outlive the store; `merger` is
  // asked for the merger the first time a file is planned for merging.
  FileStore(FileSystem& fs, TextMergerSource merger, Saving saving);

  // Saves the code-page bytes of `parts`, one after the other, as the file `path`. A file
  // planned for merging and every file of a dry run is not written; a planned file's
  // bytes are kept for Complete. Throws vbrt::VbError naming the file when it cannot be
  // written.
  void Save(std::string_view path, std::span<const std::string_view> parts);

  FileHistory History(std::string_view path) const override;
  // A plan to merge gets the merger first; what its source throws is thrown.
  void Plan(std::string_view path, SaveChoice choice) override;
  void Complete() override;
  void Abandon() override;
  bool DryRun() const override { return saving_ == Saving::DryRun; }
  const std::vector<SavedFile>& Saved() const override { return saved_; }

 private:
  struct Planned {
    std::string path;
    std::filesystem::path file;
    SaveChoice choice;
    std::string generated;  // the bytes of its last save
  };

  class Journal;  // what Complete has written, to put back when it fails

  Planned* Find(const std::filesystem::path& file);
  // Complete, one case each; each returns what Saved() tells of the file. A merge in a
  // dry run keeps the file's bytes and the merge's; a merge to disk writes the merge over
  // the file when it changes it, and keeps the pristine copy it read in `pristine`; any
  // other file of a dry run keeps its bytes and the generated ones.
  SavedFile MergeInDryRun(const Planned& plan);
  SavedFile MergeToDisk(const Planned& plan, Journal& journal,
                        std::optional<std::string>& pristine);
  static SavedFile SaveInDryRun(Planned& plan);

  FileSystem& fs_;
  TextMergerSource mergerSource_;
  TextMerger* merger_ = nullptr;  // once a file was planned for merging
  Saving saving_;
  std::vector<Planned> plans_;
  std::vector<SavedFile> saved_;
};

}  // namespace platform::vbfiles
