#pragma once
// The readers under test read files, so each fuzz input is written to a file of this
// process first (one per process, so parallel fuzzing jobs do not share it).
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

namespace fuzz {

// A folder of this process, created on first use and removed when the process ends
// normally: in shared memory where there is some, as a new file on disk costs the fuzzer
// more than the code under test does.
inline const std::filesystem::path& ProcessFolder() {
  struct Folder {
    std::filesystem::path path;
    Folder() {
      std::error_code error;
      const std::filesystem::path base = std::filesystem::is_directory("/dev/shm", error)
                                             ? std::filesystem::path("/dev/shm")
                                             : std::filesystem::temp_directory_path();
      path = base / ("eowizard-fuzz-" + std::to_string(::getpid()));
      std::filesystem::create_directories(path);
    }
    ~Folder() {
      std::error_code error;
      std::filesystem::remove_all(path, error);
    }
  };
  static const Folder folder;
  return folder.path;
}

inline void WriteBytes(const std::filesystem::path& file, const uint8_t* data, size_t size) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
}

inline std::string ReadBytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace fuzz
