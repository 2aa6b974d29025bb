#pragma once
// The run-time file table: files opened under a number with Open ... As #n.
#include <filesystem>
#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace vbrt {

// Every operation on a number that is not open throws VbError(kBadFileNameOrNumber),
// except Close and IsOpen.
class FileTable {
 public:
  enum class Mode { Input, Output };

  FileTable();
  ~FileTable();
  FileTable(const FileTable&) = delete;
  FileTable& operator=(const FileTable&) = delete;

  // Opens `path` under `number`. Output replaces the file only when it is closed: the
  // lines go to a temporary file beside it until then (a character device is written
  // directly). Throws VbError:
  // kBadFileNameOrNumber outside 1..511, kFileAlreadyOpen when the number is taken,
  // kFileNotFound / kPathNotFound / kPermissionDenied / kPathFileAccessError when the
  // file cannot be opened. Input opens regular files only, Output regular files and
  // character devices; anything else (a folder, a FIFO, a socket, a block device, and
  // for Input any device) is refused at once with kPathFileAccessError.
  void Open(int number, const std::filesystem::path& path, Mode mode);

  // Line Input #: the next line without its end (CR LF, CR or LF). The view stays valid
  // until the next operation on `number`. Throws kInputPastEndOfFile at the end of the
  // file, kBadFileMode on an Output file.
  std::string_view LineInput(int number);
  // EOF(n): true when no byte is left to read.
  bool Eof(int number);

  // Print #n, text: writes the bytes and CR LF. They reach the file in chunks, all of
  // them by Close; kDiskFull / kDeviceIoError when a chunk cannot be written.
  void PrintLine(int number, std::string_view bytes);

  // Close #n: flushes and frees the number, an Output file taking its target's place; a
  // number that is not open is left alone. A failed flush throws (kDiskFull /
  // kDeviceIoError) and leaves the number taken, as any failure does.
  void Close(int number);
  // Frees the number without finishing its file: the file an Output file was to replace
  // stays as it was. A number that is not open is left alone.
  void Discard(int number);

  bool IsOpen(int number) const;

  // File numbers run from 1 to this.
  static constexpr int kMaxNumber = 511;

 private:
  struct Entry;
  // The open file under `number`, or nullptr.
  Entry* Find(int number) const;
  Entry& Get(int number);
  // Indexed by the number itself: every line read looks its file up.
  std::array<std::unique_ptr<Entry>, kMaxNumber + 1> entries_;
};

}  // namespace vbrt
