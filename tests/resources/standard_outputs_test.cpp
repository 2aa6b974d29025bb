// The standard outputs: descriptions by problem type and their result expressions.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "resources/string_ids.h"
#include "resources/string_table.h"

namespace {

using namespace resources;

constexpr int kTypes = 9;

int CountPresent(int type, int (*description)(int, int)) {
  int count = 0;
  for (int n = 0; n < kStandardTries; ++n) count += FindString(description(type, n)) ? 1 : 0;
  return count;
}

TEST(StandardOutputs, CountsPerProblemType) {
  const int integrals[kTypes] = {14, 17, 10, 10, 3, 12, 22, 21, 20};
  const int locals[kTypes] = {6, 5, 4, 4, 10, 5, 11, 10, 11};
  for (int type = 0; type < kTypes; ++type) {
    EXPECT_EQ(CountPresent(type, IntegralDescription), integrals[type]) << "type " << type;
    EXPECT_EQ(CountPresent(type, LocalDescription), locals[type]) << "type " << type;
  }
}

// Over the whole blocks (descriptions 100..999 and 1900..1909), a description exists
// exactly when its expression does, so the output page never offers a row it cannot
// evaluate and no expression is orphaned.
TEST(StandardOutputs, EveryDescriptionHasItsExpressionAndViceVersa) {
  auto check = [](int description, bool local) {
    const auto text = FindString(description);
    const auto expression = FindString(ExpressionOf(description));
    ASSERT_EQ(text.has_value(), expression.has_value()) << description;
    if (!text) return;
    EXPECT_FALSE(text->empty()) << description;
    if (local) {
      EXPECT_THAT(std::string(*expression), ::testing::MatchesRegex("Locals[A-Z]*\\..+"))
          << description;
    } else {
      EXPECT_THAT(std::string(*expression),
                  ::testing::MatchesRegex("Res\\.GetIntegral\\(zx[A-Za-z0-9_]+, Cnt\\)\\.Abs"))
          << description;
    }
  };
  for (int type = 0; type < kTypes; ++type) {
    for (int n = 0; n < kStandardTries; ++n) {
      check(IntegralDescription(type, n), false);
      check(LocalDescription(type, n), true);
    }
  }
  for (int n = 0; n < kGeometricIntegralTries; ++n) check(kGeometricIntegralFirst + n, false);
  EXPECT_THAT(ListFrom(kGeometricIntegralFirst, kGeometricIntegralTries),
              ::testing::ElementsAre("Contour length", "Surface area", "Volume",
                                     "Cross section area"));
}

TEST(StandardOutputs, NumbersOfDescriptionsAndExpressions) {
  EXPECT_EQ(IntegralDescription(1, 3), 203);
  EXPECT_EQ(LoadResString(203), "Magnetic flux");
  EXPECT_EQ(LoadResString(ExpressionOf(203)), "Res.GetIntegral(zxGrad_n_ds, Cnt).Abs");
  EXPECT_EQ(LocalDescription(1, 0), 250);
  EXPECT_EQ(LoadResString(ExpressionOf(250)), "Locals.Potential");
  EXPECT_EQ(LoadResString(ExpressionOf(kGeometricIntegralFirst + 3)),
            "Res.GetIntegral(zxCrossSect, Cnt).Abs");
  // Misspellings stay as the table holds them.
  EXPECT_EQ(LoadResString(IntegralDescription(2, 2)), "Temperature defference");
  EXPECT_EQ(LoadResString(ExpressionOf(LocalDescription(4, 13))), "LocalsSA.StressVonMisas");
  EXPECT_EQ(LoadResString(ExpressionOf(IntegralDescription(4, 20))),
            "Res.GetIntegral(zxlengthen, Cnt).Abs");
}

}  // namespace
