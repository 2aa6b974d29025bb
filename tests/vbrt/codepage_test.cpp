#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "vbrt/codepage.h"
#include "vbrt/compare.h"

namespace {

TEST(CodePage, Windows1252RoundTrip) {
  EXPECT_EQ(vbrt::AnsiCodePage(), "WINDOWS-1252");
  const std::string utf8 = "Grüße € – “x” ÿ";
  const std::string ansi = vbrt::ToAnsi(utf8);
  EXPECT_EQ(ansi, "Gr\xFC\xDF" "e \x80 \x96 \x93x\x94 \xFF");
  EXPECT_EQ(vbrt::FromAnsi(ansi), utf8);
  EXPECT_EQ(vbrt::ToAnsi(""), "");
}

TEST(CodePage, UnmappableCharactersAndInvalidBytesBecomeQuestionMarks) {
  EXPECT_EQ(vbrt::ToAnsi("aЖb"), "a?b");
  EXPECT_EQ(vbrt::ToAnsi("x\U0001F600y"), "x?y");
  EXPECT_EQ(vbrt::ToAnsi("a\xFF\xFE" "b"), "a??b");
  EXPECT_EQ(vbrt::ToAnsi("a\xC3"), "a?");           // cut off at the end
  EXPECT_EQ(vbrt::ToAnsi("\xED\xA0\x80"), "???");   // an encoded surrogate
  EXPECT_EQ(vbrt::FromAnsi("a\x81" "b\x8D"), "a?b?");
}

TEST(CodePage, NamesTheCharactersItCannotHoldOnceEach) {
  const struct {
    const char* codePage;
    std::string text;
    std::string unheld;
  } cases[] = {
      {"WINDOWS-1252", "José Müller 张伟", "张伟"},
      {"WINDOWS-1252", "长度 长度 ? €", "长度"},
      {"WINDOWS-1252", "Grüße € – “x” ÿ", ""},
      {"WINDOWS-1252", "aЖb\U0001F600Ж", "Ж\U0001F600"},
      {"WINDOWS-1252", "a\xFF" "b", "\uFFFD"},
      {"WINDOWS-1251", "Жé", "é"},
      {"UTF-8", "José 张伟", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    vbrt::SetAnsiCodePage(c.codePage);
    EXPECT_EQ(vbrt::UnheldCharacters(c.text), c.unheld);
  }
  vbrt::SetAnsiCodePage("WINDOWS-1252");
}

TEST(CodePage, LongTextsCutInsideCharactersAndFullOfRefusals) {
  std::string utf8;
  for (int i = 0; i < 200000; ++i) utf8 += "é\xE2\x82\xAC" "Ж";
  const std::string ansi = vbrt::ToAnsi(utf8);
  ASSERT_EQ(ansi.size(), 600000u);
  EXPECT_EQ(ansi.substr(0, 6), "\xE9\x80?\xE9\x80?");
  EXPECT_EQ(vbrt::FromAnsi(ansi).size(), 200000u * (2 + 3 + 1));
}

TEST(CodePage, SwitchingTheCodePage) {
  EXPECT_THROW(vbrt::SetAnsiCodePage("NO-SUCH-CODEPAGE"), std::invalid_argument);
  EXPECT_EQ(vbrt::AnsiCodePage(), "WINDOWS-1252");

  vbrt::SetAnsiCodePage("WINDOWS-1251");
  EXPECT_EQ(vbrt::ToAnsi("Жé"), "\xC6?");
  EXPECT_EQ(vbrt::FromAnsi("\xC6"), "Ж");
  vbrt::SetAnsiCodePage("WINDOWS-1252");
  EXPECT_EQ(vbrt::ToAnsi("é"), "\xE9");
}

TEST(CompareBinary, OrdersByAnsiCharacterCode) {
  EXPECT_EQ(vbrt::CompareBinary("abc", "abc"), 0);
  EXPECT_LT(vbrt::CompareBinary("ab", "abc"), 0);
  EXPECT_GT(vbrt::CompareBinary("b", "abc"), 0);
  EXPECT_LT(vbrt::CompareBinary("Z", "a"), 0);  // upper case first
  EXPECT_GT(vbrt::CompareBinary("5.2", "5.10"), 0);  // text order, not numeric
  // In UTF-8 "€" (E2 82 AC) sorts after "é" (C3 A9); in the code page 0x80 < 0xE9.
  EXPECT_LT(vbrt::CompareBinary("€", "é"), 0);
  EXPECT_GT(vbrt::CompareBinary("é", "z"), 0);
}

}  // namespace
