// Bad and huge session files: the reader always ends with an answer and never crashes.
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "session/session_file.h"
#include "session_test_support.h"

namespace session::test {
namespace {

const std::string kUnchanged = "<message before the call>";

TEST_F(SessionFileTest, BinaryGarbageIsRefusedOrSkipped) {
  std::mt19937 random(20240601);
  for (int round = 0; round < 20; ++round) {
    std::string bytes(64 * 1024, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    if (round % 2 == 1) bytes = "[INPUT]\r\nDESCRIPTION=" + bytes;  // garbage inside a section
    vbrt::FileTable files;
    WriteBytes(Path("garbage.bvg"), bytes);
    FormState form;
    std::string message = kUnchanged;
    EXPECT_FALSE(LoadSession(form, {files, fs_}, Path("garbage.bvg"), message));
    EXPECT_TRUE(message == kUnchanged || message == "Error loading data from generation file")
        << message;
    EXPECT_EQ(form.lvInput.Item(form.lvInput.Count() - 1).text, "<new>");
  }
}

TEST_F(SessionFileTest, OneHugeLineIsSkipped) {
  FormState form;
  std::string message = kUnchanged;
  EXPECT_FALSE(LoadBytes(form, std::string(20 * 1024 * 1024, 'x'), message));
  EXPECT_EQ(message, kUnchanged);
  vbrt::FileTable files;
  WriteBytes(Path("long.bvg"), CrLf({"[GENERAL]", "AUTHOR=" + std::string(1 << 20, 'a'), "",
                                     "[END]"}));
  ASSERT_TRUE(LoadSession(form, {files, fs_}, Path("long.bvg"), message));
  EXPECT_EQ(form.edAuthor.size(), 1u << 20);
}

TEST_F(SessionFileTest, BytesOutsideTheCodePageBecomeQuestionMarks) {
  FormState form;
  std::string message;
  // 0x81 and 0x9D are undefined in the code page; 0xC3 0xA9 is UTF-8 read as two
  // code-page characters.
  ASSERT_TRUE(LoadBytes(form, CrLf({"[GENERAL]", "AUTHOR=\x81\xE9\x9D\xC3\xA9", "", "[END]"}),
                        message));
  EXPECT_EQ(form.edAuthor, "?é?Ã©");
  ASSERT_TRUE(Save(form, Path("out.bvg"), message));
  EXPECT_NE(ReadBytes(Path("out.bvg")).find("\r\nAUTHOR=?\xE9?\xC3\xA9\r\n"), std::string::npos);
}

// Large enough that a reader or writer slower than linear would run into the test's time
// limit, small enough to stay cheap under the sanitizers.
TEST_F(SessionFileTest, ATenMegabyteSessionLoadsAndSavesWhole) {
  std::string bytes;
  bytes.reserve(11 << 20);
  const int outputs = 20000;
  for (int i = 0; i < outputs; ++i) {
    bytes += "[OUTPUT]\r\nDESCRIPTION=Output " + std::to_string(i) + "\r\nKEY=k" +
             std::to_string(i) + "\r\nICON=3\r\nVALUE=Res.GetIntegral(zxEnergy, Cnt).Abs\r\n\r\n";
  }
  int inputs = 0;
  while (bytes.size() < (10u << 20)) {
    bytes += "[INPUT]\r\nDESCRIPTION=Input " + std::to_string(inputs++) +
             "\r\nTYPE=Geometrical\r\nVARIABLE=v\r\nUNIT=mm\r\nMIN=0\r\nMAX=10\r\nDEFAULT=1\r\n\r\n";
  }
  bytes += "[END]\r\n";
  FormState form;
  std::string message;
  ASSERT_TRUE(LoadBytes(form, bytes, message)) << message;
  EXPECT_EQ(form.lvOutput.Count(), outputs);
  EXPECT_EQ(form.InputCount(), inputs);
  ASSERT_TRUE(Save(form, Path("out.bvg"), message)) << message;
  EXPECT_GT(std::filesystem::file_size(Path("out.bvg")), 10u << 20);
}

TEST_F(SessionFileTest, UnwritableTargetsFailWithTheOpenMessage) {
  // Root may write anywhere a file can exist, so the targets below cannot exist at all.
  WriteBytes(Path("file"), "a regular file");
  std::string message;
  for (const std::string& path : {Path("file/x.bvg"), std::string("/proc/eowizard.bvg")}) {
    vbrt::FileTable files;
    EXPECT_FALSE(SaveSession(FormState(), {files, fs_}, path, message)) << path;
    EXPECT_EQ(message, "Error: Cann't open generation file '" + path + "' for writing");
  }
}

}  // namespace
}  // namespace session::test
