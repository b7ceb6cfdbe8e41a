// Tests of the points of a run without data.
#include <gtest/gtest.h>

#include <cmath>

#include "run/point_grid.h"

namespace sondera {
namespace {

TEST(PointGrid, RatioOneGivesEqualSteps) {
  const auto x = PointGrid(2.0, 10.0, 1.0, 5);
  for (int k = 1; k <= 5; ++k) EXPECT_DOUBLE_EQ(x[k], 2.0 * k);
}

TEST(PointGrid, RatioOneWithOnePointGivesTheMinimum) {
  const auto x = PointGrid(3.0, 10.0, 1.0, 1);
  ASSERT_EQ(x.size(), 1);
  EXPECT_EQ(x[1], 3.0);
}

TEST(PointGrid, OnePointIsTheMinimumForEveryRatio) {
  for (const double ratio : {1.0, -1.0, 1.07, 0.5})
    EXPECT_NEAR(PointGrid(3.0, 10.0, ratio, 1)[1], 3.0, 1e-14);
}

TEST(PointGrid, RatioMinusOneGivesEqualStepsOfTheLogarithm) {
  const auto x = PointGrid(0.5, 50.0, -1.0, 9);
  EXPECT_NEAR(x[1], 0.5, 1e-14);
  EXPECT_NEAR(x[9], 50.0, 1e-12);
  for (int k = 1; k < 9; ++k) EXPECT_NEAR(x[k + 1] / x[k], std::pow(100.0, 1.0 / 8.0), 1e-12);
}

TEST(PointGrid, AnyOtherRatioMultipliesTheStep) {
  for (const double ratio : {1.07, 0.8, 2.0}) {
    const auto x = PointGrid(1.0, 100.0, ratio, 20);
    EXPECT_EQ(x[1], 1.0);
    EXPECT_NEAR(x[20], 100.0, 1e-10);
    // Second route: steps added up one by one.
    double step = x[2] - x[1], sum = x[1];
    for (int k = 1; k < 20; ++k) {
      sum += step;
      step *= ratio;
      EXPECT_NEAR(x[k + 1], sum, 1e-9) << ratio << ' ' << k;
    }
  }
}

TEST(PointGrid, TwoPointsAreTheEnds) {
  for (const double ratio : {1.0, -1.0, 1.07}) {
    const auto x = PointGrid(4.0, 9.0, ratio, 2);
    EXPECT_NEAR(x[1], 4.0, 1e-13);
    EXPECT_NEAR(x[2], 9.0, 1e-13);
  }
}

TEST(PointGrid, NoPointsAreAnEmptyVector) {
  EXPECT_TRUE(PointGrid(1.0, 2.0, 1.0, 0).empty());
}

TEST(PointsAreUsable, OnlyWhenAllAreFiniteAndAboveZero) {
  EXPECT_TRUE(PointsAreUsable(PointGrid(1.0, 2.0, 1.0, 5)));
  EXPECT_TRUE(PointsAreUsable({}));
  EXPECT_FALSE(PointsAreUsable(PointGrid(0.0, 2.0, 1.0, 5)));
  EXPECT_FALSE(PointsAreUsable(PointGrid(1.0, 2.0, 1e300, 5)));
}

}  // namespace
}  // namespace sondera
