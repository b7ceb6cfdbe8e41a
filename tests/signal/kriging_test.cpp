// Tests of the kriging solver: compared with the textbook method, and general properties of kriging.
#include "signal/kriging.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "support/plain_kriging.h"

namespace sondera {
namespace {

using plain::PlainSamples;

Listener nobody;

constexpr double kLimits[4] = {0.0, 40.0, 1.0, 30.0};

PlainSamples RandomSamples(std::mt19937& random, int n, double spread = 200.0) {
  std::uniform_real_distribution<double> x(0.0, 40.0), y(1.0, 30.0), z(100.0, 100.0 + spread);
  PlainSamples s;
  for (int i = 0; i < n; ++i) {
    s.x.push_back(x(random));
    s.y.push_back(y(random));
    s.z.push_back(z(random));
  }
  return s;
}

double Fast(int model, const PlainSamples& s, double c0, double c, double a, double x0, double y0) {
  double value = -1.0;
  EXPECT_EQ(kriging(model, static_cast<int>(s.x.size()), s.z.data(), kLimits, s.x.data(), s.y.data(), c0, c,
                    a, x0, y0, &value),
            0);
  return value;
}

TEST(Variogram, HasTheThreeModels) {
  for (int model : {1, 2, 3})
    for (double h : {0.0, 0.7, 2.385, 6.1, 6.2, 100.0})
      EXPECT_NEAR(Variogram(model, h, 0.3, 2.1, 6.13), plain::PlainVariogram(model, h, 0.3, 2.1, 6.13), 1e-14)
          << model << " " << h;
  EXPECT_EQ(Variogram(kSpherical, 7.0, 0.3, 2.1, 6.13), 0.3 + 2.1);
  EXPECT_TRUE(std::isnan(Variogram(4, 1.0, 0.0, 1.0, 1.0)));
}

TEST(Kriging, IsTheTextbookFormulaOnRandomNeighbourhoods) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> x(0.0, 40.0), y(1.0, 30.0);
  std::uniform_int_distribution<int> size(3, 70);
  for (int round = 0; round < 200; ++round) {
    const PlainSamples s = RandomSamples(random, size(random));
    const double a = 0.5 + x(random), c = plain::PlainVariance(s.z), x0 = x(random), y0 = y(random);
    const double expected = plain::PlainKriging(2, s, 0.0, c, a, RangeOfPlace(a), x0, y0);
    EXPECT_NEAR(Fast(kExponential, s, 0.0, c, a, x0, y0), expected, 1e-9 * 200.0) << round;
  }
}

TEST(Kriging, IsTheTextbookFormulaForOtherModelsAndANugget) {
  std::mt19937 random(12);
  for (int round = 0; round < 40; ++round) {
    const PlainSamples s = RandomSamples(random, 12);
    for (int model : {1, 2, 3}) {
      const double a = model == kGaussian ? 5.3 : 14.7, c = plain::PlainVariance(s.z);
      const double expected = plain::PlainKriging(model, s, 0.4 * c, c, a, RangeOfPlace(a), 17.3, 11.9);
      EXPECT_NEAR(Fast(model, s, 0.4 * c, c, a, 17.3, 11.9), expected, 1e-7) << round << " " << model;
    }
  }
}

TEST(Kriging, IsTheCovarianceFormForWholeRanges) {
  std::mt19937 random(13);
  for (int round = 0; round < 40; ++round) {
    const PlainSamples s = RandomSamples(random, 25);
    for (double a : {3.0, 17.0, 40.0})
      EXPECT_NEAR(Fast(kExponential, s, 0.0, 1.0, a, 12.2, 8.1),
                  plain::CovarianceKriging(2, s, 1.0, a, 12.2, 8.1), 1e-9 * 200.0);
  }
}

TEST(Kriging, PassesThroughTheDataForWholeRangesOnly) {
  std::mt19937 random(14);
  const PlainSamples s = RandomSamples(random, 20);
  double largest = 0.0;
  for (std::size_t i = 0; i < s.x.size(); ++i) {
    EXPECT_NEAR(Fast(kExponential, s, 0.0, 1.0, 17.0, s.x[i], s.y[i]), s.z[i], 1e-9);
    // Kept: the correlations with the place use the range 17, the matrix uses 17.9. At a sample both agree
    // for this sample, but not for its neighbours.
    largest = std::max(largest, std::fabs(Fast(kExponential, s, 0.0, 1.0, 17.9, s.x[i], s.y[i]) - s.z[i]));
  }
  EXPECT_GT(largest, 1e-3);
  EXPECT_LT(largest, 5.0);
}

TEST(Kriging, RangeOfThePlaceIsWholeAndExactBelowOne) {
  EXPECT_EQ(RangeOfPlace(24.9), 24.0);
  EXPECT_EQ(RangeOfPlace(1.98), 1.0);
  EXPECT_EQ(RangeOfPlace(0.98), 0.98);
  EXPECT_EQ(RangeOfPlace(1e12 + 0.5), 1e12);
}

TEST(Kriging, ConstantFieldIsExact) {
  std::mt19937 random(15);
  PlainSamples s = RandomSamples(random, 30);
  s.z.assign(s.z.size(), 173.1);
  EXPECT_EQ(Fast(kExponential, s, 0.0, 0.0, 24.7, 3.3, 4.4), 173.1);  // no variance
  EXPECT_EQ(Fast(kExponential, s, 0.0, 1.0, 24.7, 3.3, 4.4), 173.1);  // also through the system
}

TEST(Kriging, SillAndNuggetCancel) {
  std::mt19937 random(16);
  const PlainSamples s = RandomSamples(random, 9);
  EXPECT_EQ(Fast(kExponential, s, 0.0, 1e-30, 20.0, 3.0, 4.0),
            Fast(kExponential, s, 5.0, 1e30, 20.0, 3.0, 4.0));
}

TEST(Kriging, ANegativeEstimateIsZero) {
  // A smooth model continues downward beside a steep fall.
  const PlainSamples s = {{10.0, 10.0, 10.0}, {10.0, 10.5, 11.0}, {1.0, 100.0, 199.0}};
  EXPECT_EQ(plain::PlainKriging(3, s, 0.0, 1.0, 12.0, 12.0, 10.0, 8.0), 0.0);
  EXPECT_EQ(Fast(kGaussian, s, 0.0, 1.0, 12.0, 10.0, 8.0), 0.0);
}

TEST(Kriging, TwoSamplesAtOnePlaceAreSingular) {
  PlainSamples s = {{1.0, 5.0, 20.0, 5.0}, {3.0, 9.0, 4.0, 9.0}, {100.0, 150.0, 200.0, 160.0}};
  double value = 42.0;
  EXPECT_EQ(kriging(2, 4, s.z.data(), kLimits, s.x.data(), s.y.data(), 0.0, 1.0, 24.0, 2.0, 2.0, &value), -1);
  s.y[3] += 1e-9;  // within 1e-9 of the diagonal
  EXPECT_EQ(kriging(2, 4, s.z.data(), kLimits, s.x.data(), s.y.data(), 0.0, 1.0, 24.0, 2.0, 2.0, &value), -1);
  EXPECT_EQ(value, 42.0);
  s.y[3] += 1e-6;
  EXPECT_EQ(kriging(2, 4, s.z.data(), kLimits, s.x.data(), s.y.data(), 0.0, 1.0, 24.0, 2.0, 2.0, &value), 0);

  KrigingSolver solver;
  double dual[4], level = 0.0;
  s.y[3] = s.y[1];
  EXPECT_EQ(solver.Solve(2, 4, s.x.data(), s.y.data(), s.z.data(), 24.0, 0.0, nobody, dual, &level),
            KrigingResult::kSamePlace);
  EXPECT_EQ(solver.first(), 1);
  EXPECT_EQ(solver.second(), 3);
}

TEST(Kriging, BadNumbersGiveNoValue) {
  double value = 42.0;
  const double x[] = {0.0, NAN, 2.0}, y[] = {1.0, 2.0, 3.0}, z[] = {1.0, 2.0, 3.0};
  EXPECT_EQ(kriging(2, 3, z, kLimits, x, y, 0.0, 1.0, 24.0, 2.0, 2.0, &value), -1);
  const double x2[] = {0.0, 1.0, 2.0}, z2[] = {1.0, HUGE_VAL, 3.0};
  EXPECT_EQ(kriging(2, 3, z2, kLimits, x2, y, 0.0, 1.0, 24.0, 2.0, 2.0, &value), -1);
  EXPECT_EQ(kriging(4, 3, z, kLimits, x2, y, 0.0, 1.0, 24.0, 2.0, 2.0, &value), -1);
  EXPECT_EQ(kriging(2, 0, z, kLimits, x2, y, 0.0, 1.0, 24.0, 2.0, 2.0, &value), -1);
  EXPECT_EQ(kriging(2, kMostKrigingSamples + 1, z, kLimits, x2, y, 0.0, 1.0, 24.0, 2.0, 2.0, &value), -1);
  EXPECT_EQ(value, 42.0);
}

TEST(KrigingSolver, OneSolutionServesAllPlaces) {
  std::mt19937 random(17);
  const PlainSamples s = RandomSamples(random, 41);  // no multiple of the panel
  KrigingSolver solver;
  std::vector<double> dual(41);
  double level = 0.0;
  ASSERT_EQ(solver.Solve(2, 41, s.x.data(), s.y.data(), s.z.data(), 20.4, 0.0, nobody, dual.data(), &level),
            KrigingResult::kDone);
  for (double x0 : {0.0, 7.7, 33.3})
    for (double y0 : {1.0, 12.1, 30.0})
      EXPECT_NEAR(DualValue(2, 41, s.x.data(), s.y.data(), dual.data(), level, 20.0, x0, y0),
                  plain::PlainKriging(2, s, 0.0, 1.0, 20.4, 20.0, x0, y0), 1e-9 * 200.0);
}

TEST(KrigingSolver, EverySizeAroundThePanelIsRight) {
  std::mt19937 random(18);
  KrigingSolver solver;
  for (int n : {1, 2, 3, 7, 8, 9, 10, 15, 16, 17, 33}) {
    const PlainSamples s = RandomSamples(random, n);
    std::vector<double> dual(static_cast<std::size_t>(n));
    double level = 0.0;
    ASSERT_EQ(solver.Solve(2, n, s.x.data(), s.y.data(), s.z.data(), 12.0, 0.0, nobody, dual.data(), &level),
              KrigingResult::kDone);
    EXPECT_NEAR(DualValue(2, n, s.x.data(), s.y.data(), dual.data(), level, 12.0, 9.0, 9.0),
                plain::PlainKriging(2, s, 0.0, 1.0, 12.0, 12.0, 9.0, 9.0), 1e-9 * 200.0)
        << n;
  }
}

TEST(KrigingSolver, AHaltEndsALargeSystem) {
  std::mt19937 random(19);
  const PlainSamples s = RandomSamples(random, 1500);
  KrigingSolver solver;
  std::vector<double> dual(1500, -1.0);
  double level = 0.0;
  struct : Listener {
    int asked = 0;
    bool Poll() override { return ++asked == 3; }
  } listener;
  EXPECT_EQ(
      solver.Solve(2, 1500, s.x.data(), s.y.data(), s.z.data(), 24.0, 0.0, listener, dual.data(), &level),
      KrigingResult::kHalted);
  EXPECT_EQ(listener.asked, 3);
  EXPECT_EQ(dual[0], -1.0);
}

}  // namespace
}  // namespace sondera
