// fit_test.cpp - fits against an independent least-squares route, interpolation against Lagrange's formula,
// and the stated oddities.
#include "numeric/fit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include "numeric/allocation_count.h"
#include "numeric/plain_algebra.h"
#include "numeric/svd.h"
#include "support/popup_recorder.h"

namespace sondera {
namespace {

using namespace test;

TEST(Dpoly, GivesTheBasisOfPowers) {
  double p[7] = {-7.5, 0, 0, 0, 0, 0, -7.5};
  dpoly(-1.5, p, 5);
  EXPECT_THAT(p, testing::ElementsAre(-7.5, 1.0, -1.5, 2.25, -3.375, 5.0625, -7.5));
  dpoly(2.385, p, 1);
  EXPECT_EQ(p[1], 1.0);
  EXPECT_EQ(p[2], -1.5);
}

/// Points of a fit, counted from 0; the kernels get copies that count from 1.
struct Points {
  std::vector<double> x, y, sig;
};

struct Fit {
  std::vector<double> a, u, v, w;  // from 1
  double chisq = -1.0;
};

void BasisThatMustNotBeCalled(double, double*, int) {
  ADD_FAILURE() << "the basis argument was used";
}

std::vector<double> FromOne(const std::vector<double>& values) {
  std::vector<double> shifted(1, -7.5);
  shifted.insert(shifted.end(), values.begin(), values.end());
  return shifted;
}

Fit BySvdfit(const Points& points, int terms) {
  const int count = static_cast<int>(points.x.size());
  Fit fit{std::vector<double>(terms + 1), std::vector<double>(count * terms + 1),
          std::vector<double>(terms * terms + 1), std::vector<double>(terms + 1)};
  const std::vector<double> x = FromOne(points.x), y = FromOne(points.y), sig = FromOne(points.sig);
  svdfit(x.data(), y.data(), sig.data(), count, fit.a.data(), terms, fit.u.data(), fit.v.data(), fit.w.data(),
         &fit.chisq, BasisThatMustNotBeCalled);
  return fit;
}

/// Noisy points of a smooth curve over an abscissa range as log10 of wavelength has it.
Points NoisyPoints(int count, unsigned seed, bool weighted) {
  std::mt19937 engine(seed);
  std::uniform_real_distribution<double> place(-0.4, 1.3), noise(-5.0, 5.0), deviation(0.5, 3.0);
  Points points;
  for (int i = 0; i < count; ++i) {
    const double x = place(engine);
    points.x.push_back(x);
    points.y.push_back(180.0 + 40.0 * std::sin(2.0 * x) + noise(engine));
    points.sig.push_back(weighted ? deviation(engine) : 1.0);
  }
  return points;
}

double Misfit(const Points& points, const std::vector<double>& coefficients) {
  double sum = 0.0;
  for (std::size_t i = 0; i < points.x.size(); ++i) {
    double fit = 0.0;
    for (std::size_t k = coefficients.size(); k-- > 0;) fit = fit * points.x[i] + coefficients[k];
    sum += std::pow((points.y[i] - fit) / points.sig[i], 2);
  }
  return sum;
}

TEST(Svdfit, AgreesWithNormalEquationsInExtendedPrecision) {
  for (const bool weighted : {false, true}) {
    for (const int terms : {1, 2, 3, 4, 5}) {
      for (const int count : {6, 11, 80}) {
        const Points points = NoisyPoints(count, 10 * count + terms, weighted);
        const Fit fit = BySvdfit(points, terms);
        const std::vector<double> expected = PlainPolynomialFit(points.x, points.y, points.sig, terms);
        SCOPED_TRACE(testing::Message() << terms << " terms, " << count << " points, weighted " << weighted);
        for (int k = 1; k <= terms; ++k)
          EXPECT_NEAR(fit.a[k], expected[k - 1], 1e-9 * (1.0 + std::fabs(expected[k - 1])));
        EXPECT_NEAR(fit.chisq, Misfit(points, expected), 1e-9 * (1.0 + fit.chisq));
      }
    }
  }
}

TEST(Svdfit, RecoversAPolynomial) {
  Points points;
  for (int i = 0; i < 9; ++i) {
    const double x = -1.0 + 0.3 * i;
    points.x.push_back(x);
    points.y.push_back(2.385 - 1.5 * x + 0.25 * x * x);
    points.sig.push_back(0.125);
  }
  const Fit fit = BySvdfit(points, 3);
  EXPECT_NEAR(fit.a[1], 2.385, 1e-13);
  EXPECT_NEAR(fit.a[2], -1.5, 1e-13);
  EXPECT_NEAR(fit.a[3], 0.25, 1e-13);
  EXPECT_LT(fit.chisq, 1e-24);
}

TEST(Svdfit, OneTermIsTheWeightedMean) {
  const Fit fit = BySvdfit({{1.0, 2.0, 7.0}, {10.0, 20.0, 50.0}, {1.0, 0.5, 2.0}}, 1);
  EXPECT_NEAR(fit.a[1], (10.0 + 4.0 * 20.0 + 0.25 * 50.0) / 5.25, 1e-13);
}

TEST(Svdfit, OnePointAndOneTerm) {
  const Fit fit = BySvdfit({{4.5}, {2.385}, {1.0}}, 1);
  EXPECT_DOUBLE_EQ(fit.a[1], 2.385);
  EXPECT_NEAR(fit.chisq, 0.0, 1e-30);
}

TEST(Svdfit, EqualAbscissaeGiveTheSolutionOfLeastLength) {
  // Two terms, but x gives no information: a = mean * (1, x) / (1 + x^2).
  const Fit fit = BySvdfit({{2.0, 2.0, 2.0}, {9.0, 10.0, 11.0}, {1.0, 1.0, 1.0}}, 2);
  EXPECT_NEAR(fit.a[1], 2.0, 1e-13);
  EXPECT_NEAR(fit.a[2], 4.0, 1e-13);
  EXPECT_NEAR(fit.chisq, 2.0, 1e-13);
  EXPECT_EQ(std::min(fit.w[1], fit.w[2]), 0.0);
}

TEST(Svdfit, FewerPointsThanTermsStillPassThroughThem) {
  const Fit fit = BySvdfit({{0.5, 1.5}, {3.0, -1.0}, {1.0, 1.0}}, 4);
  EXPECT_NEAR(fit.chisq, 0.0, 1e-20);
}

TEST(Svdfit, LeavesTheFactorsForTheCovariance) {
  const Points points = NoisyPoints(30, 5, true);
  const Fit fit = BySvdfit(points, 2);
  std::vector<double> cvm(5);
  svdvar(fit.v.data(), 2, fit.w.data(), cvm.data());
  // Straight line: the closed formulas of the variances.
  double s = 0.0, sx = 0.0, sxx = 0.0;
  for (std::size_t i = 0; i < points.x.size(); ++i) {
    const double weight = 1.0 / (points.sig[i] * points.sig[i]);
    s += weight, sx += weight * points.x[i], sxx += weight * points.x[i] * points.x[i];
  }
  const double determinant = s * sxx - sx * sx;
  EXPECT_NEAR(cvm[1], sxx / determinant, 1e-12);
  EXPECT_NEAR(cvm[4], s / determinant, 1e-12);
  EXPECT_NEAR(cvm[2], -sx / determinant, 1e-12);
}

// Two points whose design matrix is diagonal to the last bit: (1, 0) and (1e-200, ratio). Its singular values
// are 1 and ratio.
Fit FitWithSecondValue(double ratio) {
  return BySvdfit({{0.0, ratio * 1e200}, {3.0, 5.0}, {1.0, 1e200}}, 2);
}

TEST(Svdfit, ValueAtTheThresholdStaysAndOneBelowGoes) {
  const double threshold = 1e-5;
  const Fit at = FitWithSecondValue(threshold);
  EXPECT_EQ(at.w[1], 1.0);
  EXPECT_EQ(at.w[2], threshold);
  EXPECT_DOUBLE_EQ(at.a[2] * 1e195, 2.0);  // (5 - 3) / x

  const Fit below = FitWithSecondValue(std::nextafter(threshold, 0.0));
  EXPECT_EQ(below.w[1], 1.0);
  EXPECT_EQ(below.w[2], 0.0);
  EXPECT_EQ(below.a[2], 0.0);
}

TEST(Svdfit, BasisArgumentMayBeNull) {
  double x[] = {0, 1, 2}, y[] = {0, 3, 5}, sig[] = {0, 1, 1}, a[3], u[5], v[5], w[3], chisq;
  svdfit(x, y, sig, 2, a, 2, u, v, w, &chisq, nullptr);
  EXPECT_NEAR(a[1], 1.0, 1e-14);
  EXPECT_NEAR(a[2], 2.0, 1e-14);
}

TEST(Svdfit, AllocatesNothing) {
  const Points points = NoisyPoints(5000, 3, false);
  const std::vector<double> x = FromOne(points.x), y = FromOne(points.y), sig = FromOne(points.sig);
  const int count = 5000, terms = 20;
  std::vector<double> a(terms + 1), u(count * terms + 1), v(terms * terms + 1), w(terms + 1);
  double chisq;
  const long before = AllocationCount();
  svdfit(x.data(), y.data(), sig.data(), count, a.data(), terms, u.data(), v.data(), w.data(), &chisq,
         nullptr);
  EXPECT_EQ(AllocationCount(), before);
  const std::vector<double> proof(3);  // the count does move
  EXPECT_GT(AllocationCount(), before);
}

TEST(Svdfit, TakesMoreTermsThanFitOnTheStack) {
  const int terms = 80;
  Points points;
  for (int i = 0; i < 200; ++i) {
    points.x.push_back(-1.0 + 0.01 * i);
    points.y.push_back(std::cos(points.x.back()));
    points.sig.push_back(1.0);
  }
  EXPECT_LT(BySvdfit(points, terms).chisq, 1e-6);
}

// --- FS_polyfit ---

struct Polyfit {
  std::vector<double> yfit, coef;
  double err = -1.0;
};

Polyfit ByPolyfit(const std::vector<double>& x, std::vector<double> y, int order, double beyond = 0.0,
                  double first = 0.0) {
  const int n = static_cast<int>(x.size());
  y.push_back(beyond);  // y[n] is read
  Polyfit fit{std::vector<double>(n + 1, -7.5), std::vector<double>(order + 1, -7.5)};
  fit.yfit[0] = first;
  FS_polyfit(x.data(), y.data(), n, order, fit.yfit.data(), fit.coef.data(), &fit.err);
  return fit;
}

TEST(FSPolyfit, CoefficientsAgreeWithTheSecondRoute) {
  for (const int order : {0, 1, 2, 3, 4}) {
    const Points points = NoisyPoints(25, 60 + order, false);
    const Polyfit fit = ByPolyfit(points.x, points.y, order);
    const std::vector<double> expected = PlainPolynomialFit(points.x, points.y, points.sig, order + 1);
    for (int k = 0; k <= order; ++k)
      EXPECT_NEAR(fit.coef[k], expected[k], 1e-8 * (1.0 + std::fabs(expected[k]))) << order << ' ' << k;
  }
}

TEST(FSPolyfit, EvaluatesTheFitWithTheCoefficientsInReverseOrder) {
  const std::vector<double> x = {-1.0, 0.0, 1.0, 2.0, 3.0};
  std::vector<double> y;
  for (const double xi : x) y.push_back(1.0 + 2.0 * xi + 5.0 * xi * xi);
  const Polyfit fit = ByPolyfit(x, y, 2);
  EXPECT_NEAR(fit.coef[0], 1.0, 1e-12);
  EXPECT_NEAR(fit.coef[1], 2.0, 1e-12);
  EXPECT_NEAR(fit.coef[2], 5.0, 1e-12);
  for (std::size_t i = 0; i < x.size(); ++i)
    EXPECT_NEAR(fit.yfit[i], 5.0 + 2.0 * x[i] + 1.0 * x[i] * x[i], 1e-11) << i;  // not y[i]
}

TEST(FSPolyfit, WritesOneElementMoreAndAddsToTheFirst) {
  const std::vector<double> x = {1.0, 2.0, 3.0}, y = {4.0, 4.0, 4.0};
  const Polyfit clean = ByPolyfit(x, y, 0), offset = ByPolyfit(x, y, 0, 0.0, 100.0);
  EXPECT_NEAR(clean.yfit[0], 4.0, 1e-14);
  EXPECT_NEAR(offset.yfit[0], 104.0, 1e-13);
  EXPECT_EQ(offset.yfit[1], clean.yfit[1]);
  EXPECT_EQ(clean.yfit[3], 0.0);  // yfit[n]
}

TEST(FSPolyfit, ErrorComparesOneElementOutOfStep) {
  const std::vector<double> x = {1.0, 2.0, 3.0, 4.0}, y = {1.0, 4.0, 2.0, 6.0};
  const Polyfit fit = ByPolyfit(x, y, 1, 20.0);
  double sum = 0.0;
  for (int i = 0; i < 4; ++i) sum += std::pow(fit.yfit[i] - (i < 3 ? y[i + 1] : 20.0), 2);
  EXPECT_DOUBLE_EQ(fit.err, std::sqrt(sum));
  EXPECT_NE(ByPolyfit(x, y, 1, 0.0).err, fit.err);  // the element after the last does count
}

TEST(FSPolyfit, OnePointOfOrderZero) {
  const Polyfit fit = ByPolyfit({3.0}, {2.5}, 0, 1.0);
  EXPECT_EQ(fit.coef[0], 2.5);
  EXPECT_EQ(fit.yfit[0], 2.5);
  EXPECT_EQ(fit.yfit[1], 0.0);
  EXPECT_EQ(fit.err, 1.5);
}

// --- FS_polint ---

double Lagrange(const std::vector<double>& xa, const std::vector<double>& ya, double x) {
  long double sum = 0.0L;
  for (std::size_t i = 0; i < xa.size(); ++i) {
    long double product = ya[i];
    for (std::size_t j = 0; j < xa.size(); ++j)
      if (j != i)
        product *= (static_cast<long double>(x) - xa[j]) / (static_cast<long double>(xa[i]) - xa[j]);
    sum += product;
  }
  return static_cast<double>(sum);
}

struct Value {
  double y = -7.5, dy = -7.5;
};

Value ByPolint(const std::vector<double>& xa, const std::vector<double>& ya, double x) {
  const std::vector<double> from1x = FromOne(xa), from1y = FromOne(ya);
  Value value;
  FS_polint(from1x.data(), from1y.data(), static_cast<int>(xa.size()), x, &value.y, &value.dy);
  return value;
}

TEST(FSPolint, AgreesWithLagrange) {
  std::mt19937 engine(11);
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  for (const int n : {2, 3, 5, 10}) {
    for (int round = 0; round < 50; ++round) {
      std::vector<double> xa, ya;
      for (int i = 0; i < n; ++i) {
        xa.push_back(2.0 * i + 0.8 * unit(engine));
        ya.push_back(100.0 * unit(engine));
      }
      if (round % 2 == 1) std::reverse(xa.begin(), xa.end());  // any order serves
      const double x = 1.0 + (n - 1) * (1.0 + 0.9 * unit(engine)) - 1.0;
      const double expected = Lagrange(xa, ya, x);
      EXPECT_NEAR(ByPolint(xa, ya, x).y, expected, 1e-10 * (100.0 + std::fabs(expected))) << n;
    }
  }
}

TEST(FSPolint, PassesThroughThePoints) {
  const std::vector<double> xa = {5.0, 10.0, 20.0, 40.0}, ya = {210.0, 190.0, 184.5, 183.25};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(ByPolint(xa, ya, xa[i]).y, ya[i]) << i;
}

TEST(FSPolint, ExtrapolatesAPolynomialOfItsOrder) {
  std::vector<double> xa, ya;
  for (int i = 0; i < 5; ++i) {
    xa.push_back(i);
    ya.push_back(std::pow(i - 1.5, 4));
  }
  EXPECT_NEAR(ByPolint(xa, ya, 7.0).y, std::pow(5.5, 4), 1e-9);
  EXPECT_NEAR(ByPolint(xa, ya, -2.0).y, std::pow(3.5, 4), 1e-9);
}

TEST(FSPolint, FirstOfEqualDistancesIsTheStart) {
  // Only dy leads from the start to the value, so dy shows where it began.
  const Value between = ByPolint({1.0, 3.0}, {10.0, 30.0}, 2.0);
  EXPECT_EQ(between.y, 20.0);
  EXPECT_EQ(between.dy, 10.0);  // from 10; from 30 it would be -10
  const Value nearSecond = ByPolint({1.0, 3.0}, {10.0, 30.0}, 2.5);
  EXPECT_EQ(nearSecond.y, 25.0);
  EXPECT_EQ(nearSecond.dy, -5.0);
}

TEST(FSPolint, ErrorIndicationIsTheLastCorrection) {
  const std::vector<double> xa = {1.0, 2.0, 4.0, 7.0}, ya = {3.0, -1.0, 2.385, 5.0};
  // Near the first point the path takes in the points in their order, so that dy is what the fourth one adds.
  const double x = 1.25;
  const Value all = ByPolint(xa, ya, x);
  EXPECT_NEAR(all.dy, Lagrange(xa, ya, x) - Lagrange({1.0, 2.0, 4.0}, {3.0, -1.0, 2.385}, x), 1e-13);
}

TEST(FSPolint, FromTheMiddleOfThreeThePointBeforeComesFirst) {
  const std::vector<double> xa = {1.0, 2.0, 4.0}, ya = {3.0, -1.0, 2.385};
  const Value all = ByPolint(xa, ya, 2.25);
  EXPECT_NEAR(all.dy, Lagrange(xa, ya, 2.25) - Lagrange({1.0, 2.0}, {3.0, -1.0}, 2.25), 1e-13);
}

TEST(FSPolint, SinglePointIsItsOwnValue) {
  const Value value = ByPolint({4.0}, {2.385}, 100.0);
  EXPECT_EQ(value.y, 2.385);
  EXPECT_EQ(value.dy, 0.0);
}

TEST(FSPolint, EqualAbscissaeTellAndGoOn) {
  PopupRecorder popups;
  const Value value = ByPolint({1.0, 2.0, 2.0, 3.0}, {10.0, 20.0, 21.0, 30.0}, 1.75);
  ASSERT_EQ(popups.shown.size(), 1u);
  EXPECT_EQ(popups.shown[0].first, "Sondera 2.0");
  EXPECT_EQ(popups.shown[0].second, "Numerical run-time error...\n");
  EXPECT_FALSE(std::isfinite(value.y));
}

TEST(FSPolint, EachEqualPairTells) {
  PopupRecorder popups;
  ByPolint({2.0, 2.0, 2.0}, {10.0, 20.0, 30.0}, 2.5);
  EXPECT_EQ(popups.shown.size(), 3u);
}

TEST(FSPolint, AllocatesNothingForASmallTable) {
  const std::vector<double> xa = {0, 1, 2, 3}, ya = {0, 5, 6, 7};
  double y, dy;
  const long before = AllocationCount();
  FS_polint(xa.data(), ya.data(), 3, 1.5, &y, &dy);
  EXPECT_EQ(AllocationCount(), before);
}

}  // namespace
}  // namespace sondera
