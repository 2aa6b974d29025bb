#include "vbrt/file_table.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>
#include <vector>

#include "vbrt/error.h"

namespace vbrt {
namespace {

constexpr int kMaxFileNumber = 511;
constexpr std::size_t kReadChunk = 64 * 1024;

// The error of a failed write; call right after the failing call, while errno holds
// its reason.
int WriteError() { return errno == ENOSPC ? kDiskFull : kDeviceIoError; }

// The runtime's reasons for a failed Open, found before the file is touched.
void CheckOpenable(const std::filesystem::path& path, FileTable::Mode mode) {
  namespace fs = std::filesystem;
  if (path.empty()) Raise(kPathFileAccessError);
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::none) Raise(kPermissionDenied);
  if (fs::is_directory(status)) Raise(kPathFileAccessError);
  if (fs::exists(status)) return;
  const fs::path folder = path.parent_path();
  if (!folder.empty() && !fs::is_directory(folder, error)) Raise(kPathNotFound);
  if (mode == FileTable::Mode::Input) Raise(kFileNotFound);
}

}  // namespace

struct FileTable::Entry {
  std::FILE* file = nullptr;
  Mode mode = Mode::Input;
  // Read-ahead for Input files: bytes [begin, end) of `buffer` are not consumed yet.
  std::vector<char> buffer;
  std::size_t begin = 0;
  std::size_t end = 0;

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
};

FileTable::FileTable() = default;
FileTable::~FileTable() = default;

void FileTable::Open(int number, const std::filesystem::path& path, Mode mode) {
  if (number < 1 || number > kMaxFileNumber) Raise(kBadFileNameOrNumber);
  if (entries_.count(number)) Raise(kFileAlreadyOpen);
  CheckOpenable(path, mode);
  auto entry = std::make_unique<Entry>();
  entry->mode = mode;
  entry->file = std::fopen(path.string().c_str(), mode == Mode::Input ? "rb" : "wb");
  if (!entry->file) Raise(mode == Mode::Input ? kPermissionDenied : kPathFileAccessError);
  if (mode == Mode::Input) entry->buffer.resize(kReadChunk);
  entries_[number] = std::move(entry);
}

FileTable::Entry& FileTable::Get(int number) {
  const auto it = entries_.find(number);
  if (it == entries_.end()) Raise(kBadFileNameOrNumber);
  return *it->second;
}

std::string FileTable::LineInput(int number) {
  Entry& entry = Get(number);
  if (entry.mode != Mode::Input) Raise(kBadFileMode);
  if (!entry.Fill()) Raise(kInputPastEndOfFile);
  std::string line;
  while (entry.Fill()) {
    const char* start = entry.buffer.data() + entry.begin;
    const char* stop = entry.buffer.data() + entry.end;
    const char* lineEnd = std::find_if(start, stop, [](char c) { return c == '\r' || c == '\n'; });
    line.append(start, lineEnd);
    entry.begin += lineEnd - start;
    if (lineEnd != stop) {
      ++entry.begin;
      if (*lineEnd == '\r' && entry.Fill() && entry.buffer[entry.begin] == '\n') ++entry.begin;
      return line;
    }
  }
  return line;  // the last line has no end
}

bool FileTable::Eof(int number) {
  Entry& entry = Get(number);
  if (entry.mode != Mode::Input) Raise(kBadFileMode);
  return !entry.Fill();
}

void FileTable::PrintLine(int number, std::string_view bytes) {
  Entry& entry = Get(number);
  if (entry.mode != Mode::Output) Raise(kBadFileMode);
  // An empty line may come without any storage behind it; fwrite must not see that.
  if ((!bytes.empty() && std::fwrite(bytes.data(), 1, bytes.size(), entry.file) != bytes.size()) ||
      std::fwrite("\r\n", 1, 2, entry.file) != 2) {
    Raise(WriteError());
  }
}

void FileTable::Close(int number) {
  const auto it = entries_.find(number);
  if (it == entries_.end()) return;  // closing a free number does nothing
  Entry& entry = *it->second;
  if (std::fflush(entry.file) != 0) Raise(WriteError());
  const int failure = std::fclose(std::exchange(entry.file, nullptr)) == 0 ? 0 : WriteError();
  entries_.erase(it);
  if (failure) Raise(failure);
}

bool FileTable::IsOpen(int number) const { return entries_.count(number) > 0; }

}  // namespace vbrt
