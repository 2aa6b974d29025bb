#pragma once
// A file written beside the file it replaces and put in its place only once complete, so
// that a write that fails half-way never costs the old file.
#include <cstdio>
#include <filesystem>
#include <string_view>

namespace vbrt {

class ReplacingFile {
 public:
  // Starts replacing `target` (through a link: the file it leads to): the bytes go to the
  // temporary file "<target>.eow-tmp" beside it. A character device such as /dev/null is
  // no file to replace and is written directly. Throws std::system_error when the file to
  // write cannot be made.
  explicit ReplacingFile(const std::filesystem::path& target);
  // A replacement that was not committed is dropped: the target stays as it was and no
  // temporary file stays behind.
  ~ReplacingFile();
  ReplacingFile(const ReplacingFile&) = delete;
  ReplacingFile& operator=(const ReplacingFile&) = delete;

  // Throws std::system_error when the bytes cannot be written, and after a failed Commit.
  void Write(std::string_view bytes);
  // Puts the bytes written in the target's place, with the target's permissions. Throws
  // std::system_error when that fails; the replacement is dropped then.
  void Commit();

 private:
  void Drop() noexcept;

  std::filesystem::path target_;
  std::filesystem::path temp_;  // empty when the target is written directly
  std::FILE* file_ = nullptr;
};

}  // namespace vbrt
