#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "vbrt/numbers.h"

namespace {

using vbrt::StrDouble;
using vbrt::StrSingle;

// More forms are pinned down by the Gmsh golden files (tests/golden/gmsh/numbers.txt),
// and the digits over the whole range by the test after this one.
TEST(StrSingle, FixedAndExponentForms) {
  const std::pair<float, const char*> cases[] = {
      {0.0f, " 0"}, {-0.0f, " 0"}, {2.0f, " 2"}, {-3.0f, "-3"}, {0.1f, " .1"},
      {9999999.0f, " 9999999"}, {15000000.0f, " 1.5E+07"}, {1e38f, " 1E+38"},
      {-0.000015f, "-1.5E-05"},
      {9999999.5f, " 1E+07"},  // rounding up to a new digit moves it into exponent form
  };
  for (const auto& [value, text] : cases) EXPECT_EQ(StrSingle(value), text) << value;
}

// The significant digits (no leading or trailing zeros) and the decimal exponent of a
// number written in fixed or exponent form: " 12.5" and "1.25e+01" both give {"125", 1}.
std::pair<std::string, int> Significand(std::string text) {
  text.erase(0, text.find_first_not_of(" -"));
  int exponent = 0;
  if (const auto e = text.find_first_of("Ee"); e != std::string::npos) {
    exponent = std::stoi(text.substr(e + 1));
    text.resize(e);
  }
  const auto point = text.find('.');
  const int integerDigits = static_cast<int>(point == std::string::npos ? text.size() : point);
  std::erase(text, '.');
  const auto first = text.find_first_not_of('0');
  if (first == std::string::npos) return {"", 0};
  const auto last = text.find_last_not_of('0');
  return {text.substr(first, last - first + 1), exponent + integerDigits - 1 - static_cast<int>(first)};
}

TEST(StrSingle, RoundsAsTheCLibraryDoesOverTheWholeRange) {
  std::vector<float> values;
  // Bit patterns spread over every exponent, and the floats next to powers of ten, where
  // the number of integer digits changes.
  for (std::uint32_t bits = 1; bits < 0x7F800000u - 40503u; bits += 40503u) {
    values.push_back(std::bit_cast<float>(bits));
  }
  for (int power = -38; power <= 38; ++power) {
    const auto near = static_cast<float>(std::stod("1e" + std::to_string(power)));
    values.push_back(std::nextafter(near, 0.0f));
    values.push_back(near);
    values.push_back(std::nextafter(near, 1e39f));
  }
  for (const float value : values) {
    char expected[32];
    std::snprintf(expected, sizeof expected, "%.6e", static_cast<double>(value));
    ASSERT_EQ(Significand(StrSingle(value)), Significand(expected)) << expected;
    ASSERT_EQ(StrSingle(-value), "-" + StrSingle(value).substr(1));
  }
}

TEST(StrDouble, FifteenSignificantDigits) {
  EXPECT_EQ(StrDouble(0.5), " .5");
  EXPECT_EQ(StrDouble(0.1 + 0.2), " .3");
  EXPECT_EQ(StrDouble(15000000), " 15000000");
  EXPECT_EQ(StrDouble(123456789012345), " 123456789012345");
  EXPECT_EQ(StrDouble(1e15), " 1E+15");
  EXPECT_EQ(StrDouble(1234567890123456), " 1.23456789012346E+15");
  EXPECT_EQ(StrDouble(-1e-5), "-1E-05");
  EXPECT_EQ(StrDouble(1e-300), " 1E-300");
  EXPECT_EQ(StrDouble(1.7976931348623157e308), " 1.79769313486232E+308");
}

TEST(StrInteger, BlankBeforeNonNegative) {
  EXPECT_EQ(vbrt::StrInteger(2), " 2");
  EXPECT_EQ(vbrt::StrInteger(0), " 0");
  EXPECT_EQ(vbrt::StrInteger(-3), "-3");
}

TEST(CStr, StandardTextWithTheLocaleSeparator) {
  const vbrt::NumberFormat point{".", ","};
  EXPECT_EQ(vbrt::CStr(1.5, point), "1.5");
  EXPECT_EQ(vbrt::CStr(1000, point), "1000");
  EXPECT_EQ(vbrt::CStr(-0.25, point), "-0.25");
  EXPECT_EQ(vbrt::CStr(0, point), "0");
  EXPECT_EQ(vbrt::CStr(1e-5, point), "1E-05");
  EXPECT_EQ(vbrt::CStr(1e15, point), "1E+15");
  EXPECT_EQ(vbrt::CStr(1.0 / 3, point), "0.333333333333333");

  const vbrt::NumberFormat comma{",", "."};
  EXPECT_EQ(vbrt::CStr(-0.25, comma), "-0,25");
  EXPECT_EQ(vbrt::CStr(1.5e20, comma), "1,5E+20");
}

}  // namespace
