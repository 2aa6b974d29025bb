// The standard outputs: descriptions by problem type and their result expressions.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "resources/string_ids.h"
#include "resources/string_table.h"

namespace {

using namespace resources;

constexpr int kTypes = 9;

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

// The numbering that the output page and the generated code share.
TEST(StandardOutputs, NumbersOfDescriptionsAndExpressions) {
  EXPECT_EQ(LoadResString(IntegralDescription(1, 3)), "Magnetic flux");
  EXPECT_EQ(LoadResString(ExpressionOf(IntegralDescription(1, 3))),
            "Res.GetIntegral(zxGrad_n_ds, Cnt).Abs");
  EXPECT_EQ(LoadResString(ExpressionOf(LocalDescription(1, 0))), "Locals.Potential");
}

}  // namespace
