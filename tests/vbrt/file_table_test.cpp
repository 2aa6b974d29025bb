#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "../platform/scratch_folder.h"
#include "../platform/special_files.h"
#include "raises.h"
#include "vbrt/file_table.h"

namespace {

namespace fs = std::filesystem;
using Mode = vbrt::FileTable::Mode;

class FileTableTest : public testing::Test {
 protected:
  ScratchFolder scratch_;
  const fs::path dir_ = scratch_.Path();
  vbrt::FileTable files_;
};

// CR, LF and CR LF end a line, wherever the read buffer of 64 KiB happens to end; a line
// end after the last line leaves no empty line.
TEST_F(FileTableTest, ReadsLinesWithAnyLineEnd) {
  const std::string first(64 * 1024 - 1, 'a');  // its line end crosses the first read
  // Bytes that share their low bits with CR or LF, at every place in an eight-byte word.
  const std::string lookalikes = "\x8D\x8A\x0C\x0E\x09\x0B\x1D\xCD\xEA";
  std::string mixed;
  std::vector<std::string> unbroken;
  for (std::size_t length = 0; length < 20; ++length) {
    unbroken.push_back(lookalikes.substr(0, length % 9) + std::string(length / 9, 'x'));
    mixed += unbroken.back() + (length % 3 == 0 ? "\r" : length % 3 == 1 ? "\n" : "\r\n");
  }
  const std::string huge(1024 * 1024, 'x');
  const struct {
    std::string bytes;
    std::vector<std::string> lines;
  } cases[] = {
      {"a\r\nb\nc\rd\r\n\r\nlast", {"a", "b", "c", "d", "", "last"}},
      {"x\r\n", {"x"}},
      {"", {}},
      {first + "\r\nb", {first, "b"}},
      {first + "\rb\r\n", {first, "b"}},
      {mixed, unbroken},
      {huge + "\r\n", {huge}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.bytes.substr(0, 20));
    files_.Open(1, scratch_.Write("in.txt", c.bytes), Mode::Input);
    std::vector<std::string> lines;
    while (!files_.Eof(1)) lines.emplace_back(files_.LineInput(1));
    EXPECT_EQ(lines, c.lines);
    EXPECT_THAT([&] { files_.LineInput(1); }, RaisesError(vbrt::kInputPastEndOfFile));
    files_.Close(1);
    EXPECT_FALSE(files_.IsOpen(1));
  }
}

TEST_F(FileTableTest, PrintLineWritesCrLf) {
  const fs::path path = dir_ / "out.txt";
  files_.Open(1, path, Mode::Output);
  files_.PrintLine(1, "one");
  files_.PrintLine(1, "");
  files_.PrintLine(1, "\xE9");
  files_.Close(1);
  EXPECT_EQ(ReadBytes(path), "one\r\n\r\n\xE9\r\n");

  files_.Open(1, path, Mode::Output);  // replaces
  files_.Close(1);
  EXPECT_EQ(ReadBytes(path), "");

  // Many lines reach the file in chunks, all of them and in order.
  std::string many;
  files_.Open(1, path, Mode::Output);
  for (int i = 0; i < 30000; ++i) {
    files_.PrintLine(1, std::to_string(i));
    many += std::to_string(i) + "\r\n";
  }
  files_.Close(1);
  EXPECT_EQ(ReadBytes(path), many);
}

TEST_F(FileTableTest, NumberStaysTakenUntilClosed) {
  const fs::path path = scratch_.Write("a.txt", "a");
  files_.Open(1, path, Mode::Input);
  EXPECT_THAT([&] { files_.Open(1, path, Mode::Input); }, RaisesError(vbrt::kFileAlreadyOpen));
  EXPECT_THAT([&] { files_.Open(1, dir_ / "other.txt", Mode::Output); },
              RaisesError(vbrt::kFileAlreadyOpen));
  files_.Open(2, path, Mode::Input);
  EXPECT_EQ(files_.LineInput(2), "a");
  files_.Close(1);
  files_.Open(1, path, Mode::Input);
  files_.Close(7);  // not open: nothing happens
}

TEST_F(FileTableTest, OpenFailuresGiveTheRuntimeErrors) {
  EXPECT_THAT([&] { files_.Open(1, dir_ / "missing.txt", Mode::Input); },
              RaisesError(vbrt::kFileNotFound));
  EXPECT_THAT([&] { files_.Open(1, dir_ / "no" / "x.txt", Mode::Input); },
              RaisesError(vbrt::kPathNotFound));
  EXPECT_THAT([&] { files_.Open(1, dir_ / "no" / "x.txt", Mode::Output); },
              RaisesError(vbrt::kPathNotFound));
  EXPECT_THAT([&] { files_.Open(0, dir_ / "x.txt", Mode::Output); },
              RaisesError(vbrt::kBadFileNameOrNumber));
  EXPECT_FALSE(files_.IsOpen(1));
}

// Nothing but a regular file is read, and output goes to files and character devices
// only: the rest is refused before it can hang (a FIFO waits, /dev/zero never ends).
TEST_F(FileTableTest, SpecialFilesAreRefusedAtOnce) {
  for (const SpecialFile& special : SpecialFiles(scratch_)) {
    SCOPED_TRACE(special.kind);
    EXPECT_THAT([&] { files_.Open(1, special.path, Mode::Input); },
                RaisesError(vbrt::kPathFileAccessError));
    if (std::string(special.kind) == "device") {
      files_.Open(1, special.path, Mode::Output);
      files_.Close(1);
    } else {
      EXPECT_THAT([&] { files_.Open(1, special.path, Mode::Output); },
                  RaisesError(vbrt::kPathFileAccessError));
    }
    EXPECT_FALSE(files_.IsOpen(1));
  }
}

TEST_F(FileTableTest, WrongModeAndFreeNumber) {
  files_.Open(1, dir_ / "out.txt", Mode::Output);
  EXPECT_THAT([&] { files_.LineInput(1); }, RaisesError(vbrt::kBadFileMode));
  files_.Open(2, scratch_.Write("in.txt", "x"), Mode::Input);
  EXPECT_THAT([&] { files_.PrintLine(2, "x"); }, RaisesError(vbrt::kBadFileMode));
  EXPECT_THAT([&] { files_.LineInput(3); }, RaisesError(vbrt::kBadFileNameOrNumber));
}

TEST_F(FileTableTest, FullDeviceFailsAndKeepsTheNumberUntilDiscarded) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
  files_.Open(1, "/dev/full", Mode::Output);
  files_.PrintLine(1, "buffered");  // may only fail when the buffer is flushed
  EXPECT_THAT([&] { files_.Close(1); }, RaisesError(vbrt::kDiskFull));
  EXPECT_TRUE(files_.IsOpen(1));
  EXPECT_THAT([&] { files_.PrintLine(1, std::string(1 << 20, 'x')); },
              RaisesError(vbrt::kDeviceIoError));
  EXPECT_TRUE(files_.IsOpen(1));
  files_.Discard(1);
  EXPECT_FALSE(files_.IsOpen(1));
}

}  // namespace
