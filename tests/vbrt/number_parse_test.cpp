#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "raises.h"
#include "vbrt/numbers.h"

namespace {

const vbrt::NumberFormat kPoint{".", ","};
const vbrt::NumberFormat kComma{",", "."};

TEST(IsNumeric, AcceptsTheRuntimeNumberForms) {
  for (const char* text : {"12", "1.5", "1e3", "1E+3", "2.5D-2", " 7 ", "\t-4", "+.5", "5.",
                           "1,000", "1,234,567.25", "&H1F", "&hff", "&O17", "007", "0"}) {
    EXPECT_TRUE(vbrt::IsNumeric(text, kPoint)) << text;
  }
}

TEST(IsNumeric, RejectsEverythingElse) {
  for (const char* text : {"", " ", "-", "+", ".", ",", ",5", "abc", "1a", "1.2.3", "1e",
                           "1e+", "--1", "1 2", "&H", "&HG", "&O8", "1.5,3", "p1", "<new>",
                           "- 1", "1E400"}) {
    EXPECT_FALSE(vbrt::IsNumeric(text, kPoint)) << text;
  }
}

TEST(CDbl, ConvertsUnderTheGivenFormat) {
  EXPECT_DOUBLE_EQ(vbrt::CDbl("1.5", kPoint), 1.5);
  EXPECT_DOUBLE_EQ(vbrt::CDbl("1e3", kPoint), 1000);
  EXPECT_DOUBLE_EQ(vbrt::CDbl(" -1,234.5 ", kPoint), -1234.5);
  EXPECT_DOUBLE_EQ(vbrt::CDbl("1,5", kComma), 1.5);
  EXPECT_DOUBLE_EQ(vbrt::CDbl("1.234,5", kComma), 1234.5);
  EXPECT_FALSE(vbrt::IsNumeric("1,2,3.4", kComma));
  EXPECT_DOUBLE_EQ(vbrt::CDbl("1e-400", kPoint), 0);
}

TEST(CDbl, HexAndOctalAreTwosComplementIntegers) {
  EXPECT_EQ(vbrt::CDbl("&H10", kPoint), 16);
  EXPECT_EQ(vbrt::CDbl("&O777", kPoint), 511);
  EXPECT_EQ(vbrt::CDbl("&HFFFF", kPoint), -1);
  EXPECT_EQ(vbrt::CDbl("&H10000", kPoint), 65536);
  EXPECT_EQ(vbrt::CDbl("&HFFFFFFFF", kPoint), -1);
  EXPECT_THAT([] { vbrt::CDbl("&H100000000", kPoint); }, RaisesError(vbrt::kOverflow));
}

TEST(CDbl, FailsWithTheRuntimeErrors) {
  EXPECT_THAT([] { vbrt::CDbl("abc", kPoint); }, RaisesError(vbrt::kTypeMismatch));
  EXPECT_THAT([] { vbrt::CDbl("", kPoint); }, RaisesError(vbrt::kTypeMismatch));
  EXPECT_THAT([] { vbrt::CDbl("1e309", kPoint); }, RaisesError(vbrt::kOverflow));
  EXPECT_THAT([] { vbrt::CDbl("-1e99999999999999", kPoint); }, RaisesError(vbrt::kOverflow));
}

TEST(CDbl, LongDigitRuns) {
  const std::string many = "0." + std::string(500, '0') + "1e501";
  EXPECT_DOUBLE_EQ(vbrt::CDbl(many, kPoint), 1);
}

TEST(CInt, RoundsHalfToEven) {
  EXPECT_EQ(vbrt::CInt(0.5), 0);
  EXPECT_EQ(vbrt::CInt(1.5), 2);
  EXPECT_EQ(vbrt::CInt(2.5), 2);
  EXPECT_EQ(vbrt::CInt(-2.5), -2);
  EXPECT_EQ(vbrt::CInt(-32768.5), -32768);
  EXPECT_EQ(vbrt::CInt(" -1 ", kPoint), -1);
  EXPECT_EQ(vbrt::CInt("&HFFFF", kPoint), -1);
}

TEST(CInt, OverflowAndTypeMismatch) {
  EXPECT_EQ(vbrt::CInt(32767.0), 32767);
  EXPECT_THAT([] { vbrt::CInt(32767.5); }, RaisesError(vbrt::kOverflow));
  EXPECT_THAT([] { vbrt::CInt(-32769.0); }, RaisesError(vbrt::kOverflow));
  EXPECT_THAT([] { vbrt::CInt(std::numeric_limits<double>::quiet_NaN()); },
              RaisesError(vbrt::kOverflow));
  EXPECT_THAT([] { vbrt::CInt("40000", kPoint); }, RaisesError(vbrt::kOverflow));
  EXPECT_THAT([] { vbrt::CInt("", kPoint); }, RaisesError(vbrt::kTypeMismatch));
  EXPECT_THAT([] { vbrt::CInt("x", kPoint); }, RaisesError(vbrt::kTypeMismatch));
}

TEST(AddInteger, OverflowIsAnError) {
  EXPECT_EQ(vbrt::AddInteger(32766, 1), 32767);
  EXPECT_EQ(vbrt::AddInteger(-32767, -1), -32768);
  EXPECT_THAT([] { vbrt::AddInteger(32767, 1); }, RaisesError(vbrt::kOverflow));
  EXPECT_THAT([] { vbrt::AddInteger(-32768, -1); }, RaisesError(vbrt::kOverflow));
}

}  // namespace
