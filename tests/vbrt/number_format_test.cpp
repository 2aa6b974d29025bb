#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <optional>
#include <string>

#include "vbrt/numbers.h"

namespace {

// Sets an environment variable for the lifetime of the object.
class ScopedEnv {
 public:
  ScopedEnv(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    setenv(name, value, 1);
  }
  ~ScopedEnv() {
    if (old_) setenv(name_, old_->c_str(), 1);
    else unsetenv(name_);
  }

 private:
  const char* name_;
  std::optional<std::string> old_;
};

TEST(CaptureUserNumberFormat, ReadsADecimalCommaLocaleAndRestoresTheProcessLocale) {
  ScopedEnv all("LC_ALL", "de_DE.UTF-8");
  ScopedEnv numeric("LC_NUMERIC", "de_DE.UTF-8");
  if (!std::setlocale(LC_NUMERIC, "de_DE.UTF-8")) GTEST_SKIP() << "de_DE.UTF-8 not installed";
  std::setlocale(LC_NUMERIC, "C");

  const vbrt::NumberFormat format = vbrt::CaptureUserNumberFormat();
  EXPECT_EQ(format.decimal, ",");
  EXPECT_EQ(format.group, ".");
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");

  EXPECT_DOUBLE_EQ(vbrt::CDbl("1,5", format), 1.5);
  EXPECT_EQ(vbrt::CStr(1.5, format), "1,5");
  // The classic text of Str() does not follow the locale.
  EXPECT_EQ(vbrt::StrDouble(1.5), " 1.5");
}

TEST(CaptureUserNumberFormat, TheCLocaleStillHasAGroupSeparator) {
  ScopedEnv all("LC_ALL", "C");
  const vbrt::NumberFormat format = vbrt::CaptureUserNumberFormat();
  EXPECT_EQ(format.decimal, ".");
  EXPECT_EQ(format.group, ",");
}

TEST(UserNumberFormat, DefaultArgumentsFollowTheSetFormat) {
  const vbrt::NumberFormat saved = vbrt::UserNumberFormat();
  vbrt::SetUserNumberFormat({",", "."});
  EXPECT_EQ(vbrt::CStr(0.5), "0,5");
  EXPECT_TRUE(vbrt::IsNumeric("2,5"));
  vbrt::SetUserNumberFormat(saved);
  EXPECT_EQ(vbrt::CStr(0.5), "0.5");
}

}  // namespace
