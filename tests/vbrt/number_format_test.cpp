#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

#include "vbrt/numbers.h"

namespace {

TEST(CaptureUserNumberFormat, ReadsADecimalCommaLocaleAndRestoresTheProcessLocale) {
  if (!std::setlocale(LC_NUMERIC, "de_DE.UTF-8")) GTEST_SKIP() << "de_DE.UTF-8 not installed";
  std::setlocale(LC_NUMERIC, "C");
  setenv("LC_ALL", "de_DE.UTF-8", 1);
  const vbrt::NumberFormat format = vbrt::CaptureUserNumberFormat();
  unsetenv("LC_ALL");
  EXPECT_EQ(format.decimal, ",");
  EXPECT_EQ(format.group, ".");
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");

  EXPECT_DOUBLE_EQ(vbrt::CDbl("1,5", format), 1.5);
  EXPECT_EQ(vbrt::CStr(1.5, format), "1,5");
  // The classic text of Str() does not follow the locale.
  EXPECT_EQ(vbrt::StrDouble(1.5), " 1.5");
}

TEST(CaptureUserNumberFormat, TheCLocaleStillHasAGroupSeparator) {
  setenv("LC_ALL", "C", 1);
  const vbrt::NumberFormat format = vbrt::CaptureUserNumberFormat();
  unsetenv("LC_ALL");
  EXPECT_EQ(format.decimal, ".");
  EXPECT_EQ(format.group, ",");
}

}  // namespace
