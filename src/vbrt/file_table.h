#pragma once
// The run-time file table: files opened under a number with Open ... As #n.
#include <filesystem>
#include <map>
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

  // Opens `path` under `number` (Output replaces the file). Throws VbError:
  // kBadFileNameOrNumber outside 1..511, kFileAlreadyOpen when the number is taken,
  // kFileNotFound / kPathNotFound / kPermissionDenied / kPathFileAccessError when the
  // file cannot be opened.
  void Open(int number, const std::filesystem::path& path, Mode mode);

  // Line Input #: the next line without its end (CR LF, CR or LF). Throws
  // kInputPastEndOfFile at the end of the file, kBadFileMode on an Output file.
  std::string LineInput(int number);
  // EOF(n): true when no byte is left to read.
  bool Eof(int number);

  // Print #n, text: writes the bytes and CR LF. Throws kDiskFull / kDeviceIoError when
  // the bytes cannot be written.
  void PrintLine(int number, std::string_view bytes);

  // Close #n: flushes and frees the number; a number that is not open is left alone.
  // A failed flush throws (kDiskFull / kDeviceIoError) and leaves the number taken,
  // as any failure does.
  void Close(int number);

  bool IsOpen(int number) const;

 private:
  struct Entry;
  Entry& Get(int number);
  std::map<int, std::unique_ptr<Entry>> entries_;
};

}  // namespace vbrt
