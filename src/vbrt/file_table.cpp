#include "vbrt/file_table.h"

#include <cerrno>
#include <cstdio>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "vbrt/error.h"
#include "vbrt/line_end.h"
#include "vbrt/replacing_file.h"

namespace vbrt {
namespace {

constexpr std::size_t kReadChunk = 64 * 1024;
constexpr std::size_t kWriteChunk = 64 * 1024;

// The runtime's error of a failed write.
int WriteError(const std::system_error& failure) {
  return failure.code() == std::errc::no_space_on_device ? kDiskFull : kDeviceIoError;
}

// The runtime's reasons for a failed Open, found before the file is touched.
void CheckOpenable(const std::filesystem::path& path, FileTable::Mode mode) {
  namespace fs = std::filesystem;
  if (path.empty()) Raise(kPathFileAccessError);
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::none) Raise(kPermissionDenied);
  if (fs::is_regular_file(status)) return;
  // Only a regular file can be read to its end: a device may never end (/dev/zero) and a
  // FIFO waits for a writer. Output may go to a character device such as /dev/null, but
  // not into a FIFO (it waits for a reader), a socket or a disk.
  if (fs::is_character_file(status) && mode == FileTable::Mode::Output) return;
  if (fs::exists(status)) Raise(kPathFileAccessError);
  const fs::path folder = path.parent_path();
  if (!folder.empty() && !fs::is_directory(folder, error)) Raise(kPathNotFound);
  if (mode == FileTable::Mode::Input) Raise(kFileNotFound);
}

}  // namespace

struct FileTable::Entry {
  std::FILE* file = nullptr;  // an Input file
  std::optional<ReplacingFile> output;  // an Output file
  Mode mode = Mode::Input;
  // Read-ahead for Input files: bytes [begin, end) of `buffer` are not consumed yet.
  std::vector<char> buffer;
  std::size_t begin = 0;
  std::size_t end = 0;
  // A line that runs across reads, gathered here.
  std::string line;
  // Output files: printed lines not handed to the file yet. One write per chunk instead
  // of two per line keeps saving a large session quick.
  std::string pending;

  ~Entry() {
    if (file) std::fclose(file);
  }

  // True when at least one unread byte is in the buffer.
  bool Fill() {
    if (begin < end) return true;
    begin = 0;
    end = std::fread(buffer.data(), 1, buffer.size(), file);
    if (end == 0 && std::ferror(file)) Raise(kDeviceIoError);
    return end > 0;
  }

  void Flush() {
    if (pending.empty()) return;
    try {
      output->Write(pending);
    } catch (const std::system_error& failure) {
      Raise(WriteError(failure));
    }
    pending.clear();
  }
};

FileTable::FileTable() = default;
FileTable::~FileTable() = default;

void FileTable::Open(int number, const std::filesystem::path& path, Mode mode) {
  if (number < 1 || number > kMaxNumber) Raise(kBadFileNameOrNumber);
  if (Find(number)) Raise(kFileAlreadyOpen);
  CheckOpenable(path, mode);
  auto entry = std::make_unique<Entry>();
  entry->mode = mode;
  if (mode == Mode::Output) {
    try {
      entry->output.emplace(path);
    } catch (const std::system_error&) {
      Raise(kPathFileAccessError);
    }
  } else {
    entry->file = std::fopen(path.string().c_str(), "rb");
    if (!entry->file) Raise(kPermissionDenied);
    entry->buffer.resize(kReadChunk);
  }
  entries_[static_cast<std::size_t>(number)] = std::move(entry);
}

FileTable::Entry& FileTable::Get(int number) {
  Entry* entry = Find(number);
  if (!entry) Raise(kBadFileNameOrNumber);
  return *entry;
}

std::string_view FileTable::LineInput(int number) {
  Entry& entry = Get(number);
  if (entry.mode != Mode::Input) Raise(kBadFileMode);
  if (!entry.Fill()) Raise(kInputPastEndOfFile);
  const char* start = entry.buffer.data() + entry.begin;
  const char* stop = entry.buffer.data() + entry.end;
  const char* lineEnd = start + FindLineEnd({start, stop});
  // Most lines lie whole in the buffer, with their end: they are handed out in place. A
  // CR as the last byte needs the next read to see whether an LF follows it.
  if (lineEnd < stop - 1 || (lineEnd == stop - 1 && *lineEnd == '\n')) {
    entry.begin += lineEnd - start + 1;
    if (*lineEnd == '\r' && lineEnd[1] == '\n') ++entry.begin;
    return {start, lineEnd};
  }
  // Otherwise the pieces are gathered in the entry's own line.
  entry.line.clear();
  while (entry.Fill()) {
    start = entry.buffer.data() + entry.begin;
    stop = entry.buffer.data() + entry.end;
    lineEnd = start + FindLineEnd({start, stop});
    entry.line.append(start, lineEnd);
    entry.begin += lineEnd - start;
    if (lineEnd != stop) {
      ++entry.begin;
      if (*lineEnd == '\r' && entry.Fill() && entry.buffer[entry.begin] == '\n') ++entry.begin;
      break;
    }
  }
  return entry.line;  // the last line may have no end
}

bool FileTable::Eof(int number) {
  Entry& entry = Get(number);
  if (entry.mode != Mode::Input) Raise(kBadFileMode);
  return !entry.Fill();
}

void FileTable::PrintLine(int number, std::string_view bytes) {
  Entry& entry = Get(number);
  if (entry.mode != Mode::Output) Raise(kBadFileMode);
  entry.pending += bytes;
  entry.pending += "\r\n";
  if (entry.pending.size() >= kWriteChunk) entry.Flush();
}

void FileTable::Close(int number) {
  Entry* found = Find(number);
  if (!found) return;  // closing a free number does nothing
  Entry& entry = *found;
  if (entry.output) {
    entry.Flush();
    try {
      entry.output->Commit();
    } catch (const std::system_error& failure) {
      // The replacement is gone; the number stays taken, as after any failure.
      Raise(WriteError(failure));
    }
  }
  entries_[static_cast<std::size_t>(number)].reset();
}

void FileTable::Discard(int number) {
  if (Find(number)) entries_[static_cast<std::size_t>(number)].reset();
}

FileTable::Entry* FileTable::Find(int number) const {
  if (number < 1 || number > kMaxNumber) return nullptr;
  return entries_[static_cast<std::size_t>(number)].get();
}

bool FileTable::IsOpen(int number) const { return Find(number) != nullptr; }

}  // namespace vbrt
