// Round numbers: the worked values of each rule, and extreme inputs.
#include "numeric/scale_arithmetic.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <random>
#include <string>

#include "support/odd_numbers.h"

namespace sondera {
namespace {

const double kNaN = std::nan("");

TEST(TruncToInt, CutsTowardsZeroAndHoldsTheLimits) {
  EXPECT_EQ(TruncToInt(2.999), 2);
  EXPECT_EQ(TruncToInt(-2.999), -2);
  EXPECT_EQ(TruncToInt(-0.5), 0);
  EXPECT_EQ(TruncToInt(1e300), INT_MAX);
  EXPECT_EQ(TruncToInt(-kInf), INT_MIN);
  EXPECT_EQ(TruncToInt(kNaN), 0);
}

TEST(NiceNumber, RoundsToSignificantFigures) {
  EXPECT_EQ(NiceNumber(12345, 2), 12000);
  EXPECT_EQ(NiceNumber(-0.0123, 1), -0.01);
  EXPECT_EQ(NiceNumber(0.0, 4), 0.0);
  EXPECT_EQ(NiceNumber(20.0 / 35.0, 4), 0.5714);
  EXPECT_EQ(NiceNumber(9.9999, 2), 10.0);
  EXPECT_EQ(NiceNumber(2.5, 1), 3.0);
  EXPECT_EQ(NiceNumber(-2.5, 1), -3.0);
}

TEST(NiceNumber, LeavesWhatCannotBeScaled) {
  EXPECT_EQ(NiceNumber(kInf, 3), kInf);
  EXPECT_TRUE(std::isnan(NiceNumber(kNaN, 3)));
  EXPECT_EQ(NiceNumber(5e-324, 4), 5e-324);
  EXPECT_NEAR(NiceNumber(1.2345e308, 2) / 1e308, 1.2, 1e-12);
}

TEST(NiceNumber, StaysWithinHalfAUnitOfTheLastFigure) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> exponent(-12.0, 12.0);
  for (int i = 0; i < 2000; ++i) {
    const double x = std::pow(10.0, exponent(random));
    for (int digits = 1; digits <= 7; ++digits) {
      const double unit = std::pow(10.0, std::floor(std::log10(x)) - digits + 1);
      EXPECT_LE(std::fabs(NiceNumber(x, digits) - x), 0.5 * unit * (1 + 1e-9)) << x << " to " << digits;
    }
  }
}

TEST(CalcPow, CountsWholeDecadesFromOneUp) {
  EXPECT_EQ(CalcPow(1), 0);
  EXPECT_EQ(CalcPow(9), 0);
  EXPECT_EQ(CalcPow(10), 1);
  EXPECT_EQ(CalcPow(12345), 4);
  EXPECT_EQ(CalcPow(1e200), 100);
  EXPECT_EQ(CalcPow(kInf), 100);
}

TEST(CalcPow, CountsTheDecadeUnderAPowerOfTenBelowOne) {
  EXPECT_EQ(CalcPow(0.05), -2);
  EXPECT_EQ(CalcPow(0.5), -1);
  EXPECT_EQ(CalcPow(0.1), -2);
}

TEST(CalcPow, EndsAlsoForZeroAndNegativeValues) {
  EXPECT_EQ(CalcPow(0.0), -100);
  EXPECT_EQ(CalcPow(-4.0), -100);
}

struct Limits {
  double min = -77.0, max = 77.0;
};
Limits Nice(double min, double max, int logFlag) {
  Limits limits;
  CalcNiceMinMax(min, max, logFlag, &limits.min, &limits.max);
  return limits;
}

TEST(CalcNiceMinMax, WidensAcrossZeroToWholeTens) {
  const Limits limits = Nice(-3, 7, 0);
  EXPECT_EQ(limits.max, 10);
  EXPECT_EQ(limits.min, -10);
}

TEST(CalcNiceMinMax, CutsAPositiveMinimumAndGoesOnePastTheMaximum) {
  const Limits limits = Nice(212, 340, 0);
  EXPECT_EQ(limits.min, 200);
  EXPECT_EQ(limits.max, 400);
}

TEST(CalcNiceMinMax, TakesANegativeMaximumToTheMultipleAboveIt) {
  const Limits limits = Nice(-340, -212, 0);
  EXPECT_EQ(limits.max, -200);
  EXPECT_EQ(limits.min, -400);
}

TEST(CalcNiceMinMax, ZeroMinimumGoesOneStepDown) {
  EXPECT_EQ(Nice(0, 7, 0).min, -1);
}

TEST(CalcNiceMinMax, LogarithmicMinimumKeepsOneFigure) {
  EXPECT_EQ(Nice(37.8, 900, 1).min, 30);
  EXPECT_NEAR(Nice(0.00456, 900, 1).min, 0.004, 1e-18);
  EXPECT_EQ(Nice(-5, 900, 1).min, -5);
}

TEST(CalcNiceMinMax, ReversedOrUndefinedRangeChangesNothing) {
  EXPECT_EQ(Nice(7, -3, 0).max, 77.0);
  EXPECT_EQ(Nice(7, -3, 0).min, -77.0);
  EXPECT_EQ(Nice(kNaN, 1, 0).max, 77.0);
}

TEST(CalcNiceMinMax, EqualLimitsStayFinite) {
  const Limits limits = Nice(5, 5, 0);
  EXPECT_EQ(limits.min, 5);
  EXPECT_EQ(limits.max, 5);
}

int Divisions(double min, double max, int logFlag) {
  int n = 0;
  EstimateNoDiv(min, max, logFlag, &n);
  return n;
}

TEST(EstimateNoDiv, TakesTheFirstWholeDivision) {
  EXPECT_EQ(Divisions(0, 12, 0), 4);
  EXPECT_EQ(Divisions(0, 10, 0), 5);
  EXPECT_EQ(Divisions(0, 7, 0), 7);
  EXPECT_EQ(Divisions(0, 11, 0), 5);
  EXPECT_EQ(Divisions(0, 0.3, 0), 5);
}

TEST(EstimateNoDiv, CountsDecadesOnALogarithmicAxis) {
  EXPECT_EQ(Divisions(2, 300, 1), 3);
  EXPECT_EQ(Divisions(0.5, 300, 1), 3);
  EXPECT_EQ(Divisions(0, 300, 1), 1);
}

TEST(GetUnitStr, PicksThePrefixBySize) {
  struct {
    double x;
    const char* text;
    double factor;
  } const cases[] = {{2e6, "M", 1000000}, {1e6, "k", 1000},     {-1500, "k", 1000},
                     {1000, "", 1},       {1, "", 1},           {0.5, "m", 0.001},
                     {0.001, "m", 0.001}, {0.0009, "u", 1e-06}, {0, "", 1}};
  for (const auto& c : cases) {
    std::string text = "?";
    double factor = 0;
    GetUnitStr(c.x, &text, &factor);
    EXPECT_EQ(text, c.text) << c.x;
    EXPECT_EQ(factor, c.factor) << c.x;
  }
}

}  // namespace
}  // namespace sondera
