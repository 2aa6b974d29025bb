#pragma once
// Files for the benchmarks: a scratch folder of the process and the plain reads and
// writes that the measured operations are compared with.
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

namespace bench {

// A folder of this process under the temporary folder, created on first use and removed
// when the program ends.
inline const std::filesystem::path& ScratchFolder() {
  struct Folder {
    std::filesystem::path path = std::filesystem::temp_directory_path() /
                                 ("eowizard-bench-" + std::to_string(::getpid()));
    Folder() { std::filesystem::create_directories(path); }
    ~Folder() {
      std::error_code error;
      std::filesystem::remove_all(path, error);
    }
  };
  static const Folder folder;
  return folder.path;
}

// The baseline of a write: the bytes to a new file through stdio, flushed and closed.
inline void PlainWrite(const std::filesystem::path& file, const std::string& bytes) {
  std::FILE* out = std::fopen(file.c_str(), "wb");
  std::fwrite(bytes.data(), 1, bytes.size(), out);
  std::fclose(out);
}

// The baseline of a read: the whole file through stdio in 64 KiB pieces.
inline std::string PlainRead(const std::filesystem::path& file) {
  std::string bytes;
  std::vector<char> chunk(64 * 1024);
  std::FILE* in = std::fopen(file.c_str(), "rb");
  for (std::size_t n; (n = std::fread(chunk.data(), 1, chunk.size(), in)) > 0;) {
    bytes.append(chunk.data(), n);
  }
  std::fclose(in);
  return bytes;
}

// The process's peak resident memory so far, in megabytes.
inline double PeakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

}  // namespace bench
