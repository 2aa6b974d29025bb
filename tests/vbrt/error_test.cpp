#include <gtest/gtest.h>

#include "vbrt/error.h"

namespace {

std::string DescriptionOf(int number) {
  try {
    vbrt::Raise(number);
  } catch (const vbrt::VbError& error) {
    EXPECT_EQ(error.Number(), number);
    EXPECT_STREQ(error.what(), error.Description().c_str());
    return error.Description();
  }
  return "not raised";
}

TEST(Raise, StandardDescriptions) {
  EXPECT_EQ(DescriptionOf(vbrt::kOverflow), "Overflow");
  EXPECT_EQ(DescriptionOf(vbrt::kTypeMismatch), "Type mismatch");
  EXPECT_EQ(DescriptionOf(vbrt::kPathFileAccessError), "Path/File access error");
  EXPECT_EQ(DescriptionOf(12345), "Application-defined or object-defined error");
}

}  // namespace
