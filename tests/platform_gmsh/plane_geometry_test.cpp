#include "platform/gmsh/plane_geometry.h"

#include <gtest/gtest.h>

#include <numbers>

namespace platform::gmsh_io {
namespace {

constexpr double kPi = std::numbers::pi;

TEST(PlaneGeometry, CircumcentreAndSweptAngleInBothDirections) {
  const auto centre = Circumcentre({3, 1}, {1, 3}, {-1, 1});
  ASSERT_TRUE(centre);
  EXPECT_NEAR(centre->x, 1, 1e-12);
  EXPECT_NEAR(centre->y, 1, 1e-12);
  EXPECT_FALSE(Circumcentre({0, 0}, {1, 1}, {2, 2}));

  EXPECT_DOUBLE_EQ(SweptAngle({1, 0}, {0.6, 0.8}, {0, 1}, {0, 0}), kPi / 2);
  EXPECT_DOUBLE_EQ(SweptAngle({0, 1}, {0.6, 0.8}, {1, 0}, {0, 0}), -kPi / 2);
  EXPECT_DOUBLE_EQ(SweptAngle({1, 0}, {0, 1}, {-1, 0}, {0, 0}), kPi);
  EXPECT_DOUBLE_EQ(SweptAngle({1, 0}, {0, -1}, {-1, 0}, {0, 0}), -kPi);
  EXPECT_DOUBLE_EQ(SweptAngle({1, 0}, {-1, 0}, {1, 0}, {0, 0}), -2 * kPi);
  EXPECT_NEAR(SweptAngle({1, 0}, {-0.5, 0.8660254}, {0, -1}, {0, 0}), 1.5 * kPi, 1e-12);
}

// A 4x4 square (curves 1-4 counter-clockwise from the origin) with a 1x1 square hole
// (curves 5-8 counter-clockwise); vertices 1-4 and 5-8.
std::vector<BoundaryCurve> SquareWithHole() {
  const Point2 outer[] = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};
  const Point2 inner[] = {{1, 1}, {2, 1}, {2, 2}, {1, 2}};
  std::vector<BoundaryCurve> curves;
  for (int i = 0; i < 4; ++i) curves.push_back({i + 1, (i + 1) % 4 + 1, {outer[i], outer[(i + 1) % 4]}});
  for (int i = 0; i < 4; ++i) curves.push_back({i + 5, (i + 1) % 4 + 5, {inner[i], inner[(i + 1) % 4]}});
  return curves;
}

TEST(PlaneGeometry, SurfaceSideFollowsTheLoopsWhicheverWayTheyAreListed) {
  const auto curves = SquareWithHole();
  using Sides = std::vector<bool>;
  // Outer loop counter-clockwise, hole counter-clockwise: the surface is right of the hole.
  EXPECT_EQ(SurfaceOnLeft({1, 2, 3, 4, 5, 6, 7, 8}, curves),
            (Sides{true, true, true, true, false, false, false, false}));
  // Outer loop listed clockwise (reversed curves) and the hole clockwise, hole first.
  EXPECT_EQ(SurfaceOnLeft({-8, -7, -6, -5, -4, -3, -2, -1}, curves),
            (Sides{false, false, false, false, true, true, true, true}));
  // The hole as a surface of its own, listed either way: it lies left of its curves.
  EXPECT_EQ(SurfaceOnLeft({5, 6, 7, 8}, curves), (Sides{true, true, true, true}));
  EXPECT_EQ(SurfaceOnLeft({-8, -7, -6, -5}, curves), (Sides{true, true, true, true}));
  // A loop that starts in the middle and mixes directions.
  EXPECT_EQ(SurfaceOnLeft({3, 4, 1, 2, -8, -7, -6, -5}, curves),
            (Sides{true, true, true, true, false, false, false, false}));
}

}  // namespace
}  // namespace platform::gmsh_io
