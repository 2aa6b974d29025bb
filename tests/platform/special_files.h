#pragma once
// Paths that name something other than a regular file: a device that never ends, a FIFO
// that nobody writes, a socket and a folder. Reading any of them as a file would hang or
// fail; the program must see at once that they are no files.
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "scratch_folder.h"

struct SpecialFile {
  const char* kind;
  std::filesystem::path path;
};

// One of each kind; the FIFO, socket and folder are made inside `scratch`.
inline std::vector<SpecialFile> SpecialFiles(const ScratchFolder& scratch) {
  const std::filesystem::path fifo = scratch.Path() / "fifo.bvg";
  const std::filesystem::path socket = scratch.Path() / "socket.bvg";
  const std::filesystem::path folder = scratch.Path() / "folder.bvg";
  EXPECT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  // A bound socket leaves its file behind when it is closed.
  const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, socket.c_str(), sizeof(address.sun_path) - 1);
  EXPECT_EQ(::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
  ::close(fd);
  std::filesystem::create_directories(folder);
  return {{"device", "/dev/zero"}, {"FIFO", fifo}, {"socket", socket}, {"folder", folder}};
}
