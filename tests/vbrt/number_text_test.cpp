#include <gtest/gtest.h>

#include <numbers>

#include "vbrt/numbers.h"

namespace {

using vbrt::StrDouble;
using vbrt::StrSingle;

TEST(StrSingle, BlankForNonNegativeAndNoLeadingZero) {
  EXPECT_EQ(StrSingle(0.0f), " 0");
  EXPECT_EQ(StrSingle(2.0f), " 2");
  EXPECT_EQ(StrSingle(1.5f), " 1.5");
  EXPECT_EQ(StrSingle(0.25f), " .25");
  EXPECT_EQ(StrSingle(-0.25f), "-.25");
  EXPECT_EQ(StrSingle(-3.0f), "-3");
  EXPECT_EQ(StrSingle(-0.0f), " 0");
}

TEST(StrSingle, SevenSignificantDigits) {
  EXPECT_EQ(StrSingle(1234567.8f), " 1234568");
  EXPECT_EQ(StrSingle(std::numbers::pi_v<float>), " 3.141593");
  EXPECT_EQ(StrSingle(0.1f), " .1");
  EXPECT_EQ(StrSingle(9999999.0f), " 9999999");
}

TEST(StrSingle, ExponentFormOutsideTheFixedRange) {
  EXPECT_EQ(StrSingle(15000000.0f), " 1.5E+07");
  EXPECT_EQ(StrSingle(12345678.0f), " 1.234568E+07");
  EXPECT_EQ(StrSingle(0.0001f), " .0001");
  EXPECT_EQ(StrSingle(0.00001f), " 1E-05");
  EXPECT_EQ(StrSingle(-0.000015f), "-1.5E-05");
  EXPECT_EQ(StrSingle(1e38f), " 1E+38");
  // Rounding up to a new digit moves the number into exponent form.
  EXPECT_EQ(StrSingle(9999999.5f), " 1E+07");
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
  EXPECT_EQ(vbrt::CStr(0.5, point), "0.5");
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
