// analysis_test.cpp - transforms against the plain sum, peaks against parabolas made by hand, inverses by
// residual.
#include "numeric/analysis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <random>
#include <vector>

#include "numeric/pi.h"
#include "support/odd_numbers.h"

namespace sondera {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Sequence {
  std::vector<double> re, im;
  explicit Sequence(int n) : re(n), im(n) {}
  int n() const { return static_cast<int>(re.size()); }
};

Sequence RandomSequence(int n, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> value(-1.0, 1.0);
  Sequence s(n);
  for (int i = 0; i < n; ++i) {
    s.re[i] = value(random);
    s.im[i] = value(random);
  }
  return s;
}

/// The defining sum, the angle reduced to one turn in integers.
Sequence PlainDFT(const Sequence& x) {
  const long n = x.n();
  Sequence out(x.n());
  for (long k = 0; k < n; ++k) {
    std::complex<double> sum;
    for (long i = 0; i < n; ++i) {
      const double angle = -kTwoPi * static_cast<double>(k * i % n) / static_cast<double>(n);
      sum += std::complex(x.re[i], x.im[i]) * std::complex(std::cos(angle), std::sin(angle));
    }
    out.re[k] = sum.real();
    out.im[k] = sum.imag();
  }
  return out;
}

double LargestDifference(const Sequence& a, const Sequence& b) {
  double largest = 0.0;
  for (int i = 0; i < a.n(); ++i)
    largest = std::max({largest, std::fabs(a.re[i] - b.re[i]), std::fabs(a.im[i] - b.im[i])});
  return largest;
}

void Transform(Sequence& s) {
  FFT(s.re.data(), s.im.data(), s.n());
}

TEST(FFT, EqualsThePlainSumForAnyLength) {
  for (int n : {1, 2, 3, 5, 8, 30, 97, 1000, 1024}) {
    Sequence x = RandomSequence(n, 100 + n);
    const Sequence expected = PlainDFT(x);
    Transform(x);
    EXPECT_LT(LargestDifference(x, expected), 20.0 * kEps * n) << "n = " << n;
  }
}

TEST(FFT, InverseGivesTheSequenceBack) {
  for (int n : {1, 2, 7, 30, 4096, 6000, 65536}) {
    const Sequence x = RandomSequence(n, 200 + n);
    Sequence y = x;
    Transform(y);
    InvFFT(y.re.data(), y.im.data(), n);
    EXPECT_LT(LargestDifference(x, y), 30.0 * kEps) << "n = " << n;
  }
}

TEST(FFT, ForwardIsNotNormalised) {
  Sequence x(6);
  std::fill(x.re.begin(), x.re.end(), 2.385);
  Transform(x);
  EXPECT_NEAR(x.re[0], 6 * 2.385, 1e-14);
  for (int k = 1; k < 6; ++k) EXPECT_NEAR(std::hypot(x.re[k], x.im[k]), 0.0, 1e-14);
}

TEST(FFT, CosineAtALineStandsInThatLineAndItsMirror) {
  const int n = 64, line = 5;
  Sequence x(n);
  for (int i = 0; i < n; ++i) x.re[i] = 1.7 * std::cos(kTwoPi * line * i / n + 0.4);
  Transform(x);
  for (int k = 0; k < n; ++k) {
    const double amplitude = k == line || k == n - line ? 1.7 * n / 2 : 0.0;
    EXPECT_NEAR(std::hypot(x.re[k], x.im[k]), amplitude, 1e-12) << "line " << k;
  }
  EXPECT_NEAR(std::atan2(x.im[line], x.re[line]), 0.4, 1e-13);
}

TEST(FFT, DelayedPulseHasALinearFallingPhase) {
  const int n = 30, delay = 1;
  Sequence x(n);
  x.re[delay] = 1.0;
  Transform(x);
  for (int k = 0; k < n / 2; ++k) EXPECT_NEAR(std::atan2(x.im[k], x.re[k]), -kTwoPi * k * delay / n, 1e-14);
}

TEST(FFT, KeepsTheEnergy) {
  Sequence x = RandomSequence(360, 7);
  double before = 0.0, after = 0.0;
  for (int i = 0; i < x.n(); ++i) before += x.re[i] * x.re[i] + x.im[i] * x.im[i];
  Transform(x);
  for (int i = 0; i < x.n(); ++i) after += x.re[i] * x.re[i] + x.im[i] * x.im[i];
  EXPECT_NEAR(after / x.n(), before, 1e-12);
}

TEST(FFT, LengthZeroOrLessDoesNothing) {
  double re = 3.25, im = -1.5;
  for (int n : {0, -1, std::numeric_limits<int>::min()}) {
    FFT(&re, &im, n);
    InvFFT(&re, &im, n);
  }
  FFT(nullptr, nullptr, 0);
  EXPECT_EQ(re, 3.25);
  EXPECT_EQ(im, -1.5);
}

// The same numbers must give the same bytes wherever the two arrays lie, so that reports can be repeated.
/// Zeros of such a length are not transformed at all: the plan too makes them zeros without a sign.
TEST(FFT, ZerosOfAPowerOfTwoStayTheBitsThatThePlanGives) {
  for (int n = 1; n <= 1 << 15; n *= 2) {
    FFTTable table = CreateFFTTable(n);
    const std::vector<dcomplex> zeros(static_cast<std::size_t>(n));
    std::vector<dcomplex> planned(zeros.size(), {1.0, 1.0});
    CxInvFFTEx(zeros.data(), planned.data(), table);
    Sequence x(n);
    FFT(x.re.data(), x.im.data(), n);
    InvFFT(x.re.data(), x.im.data(), n);
    for (int i = 0; i < n; ++i) {
      const dcomplex y = planned[static_cast<std::size_t>(i)];
      ASSERT_TRUE(y.re == 0.0 && !std::signbit(y.re) && y.im == 0.0 && !std::signbit(y.im)) << n << " " << i;
      ASSERT_TRUE(x.re[i] == 0.0 && !std::signbit(x.re[i]) && x.im[i] == 0.0 && !std::signbit(x.im[i])) << n;
    }
    DestroyFFTTable(table);
  }
}

TEST(FFT, DoesNotDependOnWhereTheArraysLie) {
  for (int n : {16, 1024, 3000}) {
    const Sequence x = RandomSequence(n, 300 + n);
    Sequence expected = x;
    Transform(expected);
    for (int gap : {0, 1, 3, 64, 1025}) {
      for (bool imaginaryFirst : {false, true}) {
        std::vector<double> block(2 * n + gap + 1);
        double* re = block.data() + (imaginaryFirst ? n + gap : 0) + 1;
        double* im = block.data() + (imaginaryFirst ? 0 : n + gap) + 1;
        std::copy(x.re.begin(), x.re.end(), re);
        std::copy(x.im.begin(), x.im.end(), im);
        FFT(re, im, n);
        EXPECT_TRUE(std::equal(re, re + n, expected.re.begin())) << n << " " << gap;
        EXPECT_TRUE(std::equal(im, im + n, expected.im.begin())) << n << " " << gap;
      }
    }
  }
}

TEST(FFT, WorksOnAfterReleaseAndAfterManyLengths) {
  const Sequence x = RandomSequence(48, 9);
  Sequence before = x, after = x;
  Transform(before);
  for (int n = 1; n <= 150; ++n) {  // more lengths than are kept
    Sequence other = RandomSequence(n, n);
    Transform(other);
  }
  ReleaseFFTPlans();
  Transform(after);
  EXPECT_EQ(after.re, before.re);
  EXPECT_EQ(after.im, before.im);
}

TEST(FFT, NotANumberReachesEveryLine) {
  Sequence x = RandomSequence(8, 4);
  x.re[3] = kNaN;
  Transform(x);
  for (int k = 0; k < x.n(); ++k) EXPECT_TRUE(std::isnan(x.re[k] + x.im[k]));
}

TEST(CxInvFFTEx, EqualsInvFFTAndKeepsItsInput) {
  for (int n : {1, 2, 30, 1024}) {
    Sequence s = RandomSequence(n, 400 + n);
    std::vector<dcomplex> x(n), y(n, dcomplex{kNaN, kNaN});
    for (int i = 0; i < n; ++i) x[i] = {s.re[i], s.im[i]};
    FFTTable table = CreateFFTTable(n);
    EXPECT_EQ(table.n(), n);
    CxInvFFTEx(x.data(), y.data(), table);
    for (int i = 0; i < n; ++i) {
      EXPECT_EQ(x[i].re, s.re[i]);
      EXPECT_EQ(x[i].im, s.im[i]);
    }
    InvFFT(s.re.data(), s.im.data(), n);
    for (int i = 0; i < n; ++i) {
      EXPECT_NEAR(y[i].re, s.re[i], 4 * kEps) << "n = " << n;
      EXPECT_NEAR(y[i].im, s.im[i], 4 * kEps) << "n = " << n;
    }
    DestroyFFTTable(table);
    EXPECT_EQ(table.n(), 0);
  }
}

TEST(CxInvFFTEx, OneLineGivesATurningPointerOfHeightOneOverN) {
  const int n = 16;
  std::vector<dcomplex> x(n), y(n);
  x[3] = {1.0, 0.0};
  CxInvFFTEx(x.data(), y.data(), CreateFFTTable(n));
  for (int i = 0; i < n; ++i) {
    EXPECT_NEAR(y[i].re, std::cos(kTwoPi * 3 * i / n) / n, 1e-16);
    EXPECT_NEAR(y[i].im, std::sin(kTwoPi * 3 * i / n) / n, 1e-16);
  }
}

TEST(CxInvFFTEx, TableOutlivesTheReleaseOfThePlans) {
  std::vector<dcomplex> x(4, dcomplex{2.0, 0.0}), y(4);
  const FFTTable table = CreateFFTTable(4);
  ReleaseFFTPlans();
  CxInvFFTEx(x.data(), y.data(), table);
  EXPECT_NEAR(y[0].re, 2.0, 1e-15);
  EXPECT_NEAR(y[1].re, 0.0, 1e-15);
}

TEST(CxInvFFTEx, EmptyTableDoesNothing) {
  dcomplex x{1.0, 2.0}, y{3.0, 4.0};
  CxInvFFTEx(&x, &y, CreateFFTTable(0));
  CxInvFFTEx(&x, &y, CreateFFTTable(-5));
  EXPECT_EQ(y.re, 3.0);
  EXPECT_EQ(y.im, 4.0);
}

TEST(CxMul, MultipliesAndMayOverwriteItsOperands) {
  double re = 2.0, im = -3.0;
  CxMul(re, im, 0.5, 4.0, &re, &im);
  EXPECT_EQ(re, 13.0);
  EXPECT_EQ(im, 6.5);
}

TEST(CxDiv, UndoesTheProduct) {
  double re = 13.0, im = 6.5;
  CxDiv(re, im, 0.5, 4.0, &re, &im);
  EXPECT_NEAR(re, 2.0, 1e-15);
  EXPECT_NEAR(im, -3.0, 1e-15);
}

TEST(CxDiv, ByZeroIsNotFinite) {
  double re = 0.0, im = 0.0;
  CxDiv(1.0, 2.0, 0.0, 0.0, &re, &im);
  EXPECT_FALSE(std::isfinite(re));
  EXPECT_FALSE(std::isfinite(im));
}

struct Extremes {
  double max = -77.0;
  int maxIndex = -77;
  double min = -77.0;
  int minIndex = -77;
};

Extremes ExtremesOf(const std::vector<double>& x) {
  Extremes e;
  MaxMin1D(x.data(), static_cast<int>(x.size()), &e.max, &e.maxIndex, &e.min, &e.minIndex);
  return e;
}

TEST(MaxMin1D, FirstOccurrenceWins) {
  const Extremes e = ExtremesOf({1.5, 4.25, -2.0, 4.25, -2.0});
  EXPECT_EQ(e.max, 4.25);
  EXPECT_EQ(e.maxIndex, 1);
  EXPECT_EQ(e.min, -2.0);
  EXPECT_EQ(e.minIndex, 2);
}

TEST(MaxMin1D, ConstantAndSingleValuesAreTheirOwnExtremes) {
  for (const std::vector<double>& x : {std::vector<double>{3.5}, std::vector<double>{3.5, 3.5, 3.5}}) {
    const Extremes e = ExtremesOf(x);
    EXPECT_EQ(e.max, 3.5);
    EXPECT_EQ(e.maxIndex, 0);
    EXPECT_EQ(e.min, 3.5);
    EXPECT_EQ(e.minIndex, 0);
  }
}

TEST(MaxMin1D, PassesOverNotANumbers) {
  const Extremes e = ExtremesOf({kNaN, 2.0, kNaN, -1.0, kInf});
  EXPECT_EQ(e.max, kInf);
  EXPECT_EQ(e.maxIndex, 4);
  EXPECT_EQ(e.min, -1.0);
  EXPECT_EQ(e.minIndex, 3);
  EXPECT_EQ(ExtremesOf({kNaN, kNaN}).maxIndex, 0);
}

TEST(MaxMin1D, EmptySequenceLeavesTheResultsAlone) {
  const Extremes e = ExtremesOf({});
  EXPECT_EQ(e.max, -77.0);
  EXPECT_EQ(e.minIndex, -77);
}

Peaks PeaksOf(const std::vector<double>& x, double threshold, int width, int polarity = 0) {
  return PeakDetector(x.data(), static_cast<int>(x.size()), threshold, width, polarity);
}

TEST(PeakDetector, FindsTheVertexOfAParabolaBetweenSamples) {
  for (int width : {3, 4, 5, 7}) {
    for (double vertex : {6.0, 6.3, 6.5, 6.9}) {
      std::vector<double> x(14);
      for (int i = 0; i < 14; ++i) x[i] = 5.0 - 0.35 * (i - vertex) * (i - vertex);
      const Peaks peaks = PeaksOf(x, 0.0, width);
      ASSERT_EQ(peaks.count(), 1) << width << " " << vertex;
      EXPECT_NEAR(peaks.locations[0], vertex, 1e-12);
      EXPECT_NEAR(peaks.amplitudes[0], 5.0, 1e-12);
      EXPECT_NEAR(peaks.secondDerivatives[0], -0.7, 1e-12);
    }
  }
}

// 0 1 2 1 0, three points wide: the run about the tip fits 2 - u^2 with slope 0, and its left neighbour is
// straight.
TEST(PeakDetector, ThreePointsPassThroughTheSamples) {
  const Peaks peaks = PeaksOf({0, 1, 2, 1, 0}, 0.5, 3);
  EXPECT_THAT(peaks.locations, ElementsAre(DoubleNear(2.0, 1e-15)));
  EXPECT_THAT(peaks.amplitudes, ElementsAre(DoubleNear(2.0, 1e-15)));
  EXPECT_THAT(peaks.secondDerivatives, ElementsAre(DoubleNear(-2.0, 1e-15)));
}

// Single spike, five points wide: sum y = 1, sum u y = 0, sum u^2 y = 0 about the spike; bend = -(10/5) / 14
// = -1/7 and level = 1/5 + 2/7 = 17/35.
TEST(PeakDetector, FivePointsSmoothASpike) {
  const Peaks peaks = PeaksOf({0, 0, 0, 0, 1, 0, 0, 0, 0}, 0.1, 5);
  EXPECT_THAT(peaks.locations, ElementsAre(DoubleNear(4.0, 1e-15)));
  EXPECT_THAT(peaks.amplitudes, ElementsAre(DoubleNear(17.0 / 35.0, 1e-15)));
  EXPECT_THAT(peaks.secondDerivatives, ElementsAre(DoubleNear(-2.0 / 7.0, 1e-15)));
}

// A plateau of three: the slope falls from 0.5 over its left shoulder to exactly 0 on its middle, where the
// fit is flat; the shoulder's parabola through 0, 1, 1 has its vertex half a sample on.
TEST(PeakDetector, PlateauIsOnePeakOnItsLeftShoulder) {
  const Peaks peaks = PeaksOf({0, 0, 1, 1, 1, 0, 0}, 0.5, 3);
  EXPECT_THAT(peaks.locations, ElementsAre(DoubleNear(2.5, 1e-15)));
  EXPECT_THAT(peaks.amplitudes, ElementsAre(DoubleNear(1.125, 1e-15)));
  EXPECT_THAT(peaks.secondDerivatives, ElementsAre(DoubleNear(-1.0, 1e-15)));
}

// 0 1 1 0: both shoulders have their vertex at 1.5; the earlier run is taken, with the same result.
TEST(PeakDetector, PlateauOfTwoLiesBetweenItsPoints) {
  const Peaks peaks = PeaksOf({0, 1, 1, 0}, 0.5, 3);
  EXPECT_THAT(peaks.locations, ElementsAre(DoubleNear(1.5, 1e-15)));
}

// Slopes 0.95 and -0.05 about points 1 and 2; the first parabola's vertex is 9.5 away, the second's 0.026.
TEST(PeakDetector, TakesTheParabolaWithTheNearerVertex) {
  const Peaks peaks = PeaksOf({0, 1, 1.9, 0.9}, 0.0, 3);
  ASSERT_EQ(peaks.count(), 1);
  EXPECT_NEAR(peaks.locations[0], 2.0 - 0.05 / 1.9, 1e-14);
  EXPECT_NEAR(peaks.secondDerivatives[0], -1.9, 1e-14);
}

// About point 1 the fit of 0, 0.2, 1 opens upward; only the one about point 2 can carry the peak.
TEST(PeakDetector, SkipsAParabolaThatOpensUpward) {
  const Peaks peaks = PeaksOf({0, 0.2, 1, 0}, 0.0, 3);
  ASSERT_EQ(peaks.count(), 1);
  EXPECT_NEAR(peaks.locations[0], 2.0 - 0.1 / 1.8, 1e-14);
}

TEST(PeakDetector, KeepsPeaksAtOrAboveTheThreshold) {
  const std::vector<double> x{0, 1, 2, 1, 0, 1.5, 3, 1.5, 0};
  EXPECT_EQ(PeaksOf(x, 1.9, 3).count(), 2);
  EXPECT_EQ(PeaksOf(x, 2.0, 3).count(), 2);
  EXPECT_THAT(PeaksOf(x, 2.1, 3).locations, ElementsAre(DoubleNear(6.0, 1e-15)));
  EXPECT_THAT(PeaksOf(x, 3.5, 3).locations, IsEmpty());
}

TEST(PeakDetector, FindsNothingAtTheEnds) {
  EXPECT_EQ(PeaksOf({5, 1, 0, 1, 5}, 0.0, 3).count(), 0);           // highest at the ends
  EXPECT_EQ(PeaksOf({0, 5, 0, 0, 0, 0, 0, 0}, 0.0, 5).count(), 0);  // within the first two points
  EXPECT_EQ(PeaksOf({0, 0, 0, 0, 0, 0, 5, 0}, 0.0, 5).count(), 0);
  EXPECT_EQ(PeaksOf({1, 2, 3, 4, 5, 6}, 0.0, 3).count(), 0);
  EXPECT_EQ(PeaksOf({6, 5, 4, 3, 2, 1}, 0.0, 3).count(), 0);
}

TEST(PeakDetector, ShortSequencesAndNarrowWidthsHaveNoPeaks) {
  EXPECT_EQ(PeaksOf({0, 1, 0}, 0.0, 3).count(), 0);  // one run only: no neighbour to fall to
  EXPECT_EQ(PeaksOf({0, 1}, 0.0, 3).count(), 0);
  EXPECT_EQ(PeaksOf({}, 0.0, 3).count(), 0);
  EXPECT_EQ(PeaksOf({0, 1, 0, 1, 0}, 0.0, 2).count(), 0);
  EXPECT_EQ(PeaksOf({0, 1, 0, 1, 0}, 0.0, 0).count(), 0);
  EXPECT_EQ(PeaksOf({0, 1, 0, 1, 0}, 0.0, -3).count(), 0);
}

TEST(PeakDetector, ConstantSequenceHasNoPeaks) {
  EXPECT_EQ(PeaksOf(std::vector<double>(20, 4.5), 0.0, 5).count(), 0);
}

TEST(PeakDetector, NotANumbersHideOnlyTheirOwnSurroundings) {
  std::vector<double> x{0, 1, 2, 1, 0, kNaN, 0, 1, 3, 1, 0};
  EXPECT_THAT(PeaksOf(x, 0.5, 3).locations, ElementsAre(DoubleNear(2.0, 1e-15), DoubleNear(8.0, 1e-15)));
}

TEST(PeakDetector, LocationsAscendOnNoise) {
  for (int width : {3, 4, 5, 9}) {
    const Sequence noise = RandomSequence(4000, 17 + width);
    const Peaks peaks = PeaksOf(noise.re, -10.0, width);
    EXPECT_GT(peaks.count(), 100);
    EXPECT_TRUE(std::is_sorted(peaks.locations.begin(), peaks.locations.end()));
    EXPECT_EQ(peaks.amplitudes.size(), peaks.locations.size());
    EXPECT_EQ(peaks.secondDerivatives.size(), peaks.locations.size());
    for (double d : peaks.secondDerivatives) EXPECT_LT(d, 0.0);
    EXPECT_GE(peaks.locations.front(), 0.5 * (width - 1));
    EXPECT_LE(peaks.locations.back(), 3999 - 0.5 * (width - 1));
  }
}

// The fit by its normal equations, solved by determinants, without the centring that the real one uses.
TEST(PeakDetector, AgreesWithAFitByTheNormalEquations) {
  const int width = 6;
  const Sequence noise = RandomSequence(60, 23);
  const Peaks peaks = PeaksOf(noise.re, -10.0, width);
  ASSERT_GT(peaks.count(), 3);
  for (int p = 0; p < peaks.count(); ++p) {
    bool matched = false;
    for (int run = 0; run + width <= 60; ++run) {
      long double s[5] = {}, t[3] = {};
      for (int i = 0; i < width; ++i) {
        const long double u = i + 1;
        for (int k = 0; k < 5; ++k) s[k] += std::pow(u, static_cast<long double>(k));
        for (int k = 0; k < 3; ++k) t[k] += std::pow(u, static_cast<long double>(k)) * noise.re[run + i];
      }
      auto det = [](long double a, long double b, long double c, long double d, long double e, long double f,
                    long double g, long double h, long double i) {
        return a * (e * i - f * h) - b * (d * i - f * g) + c * (d * h - e * g);
      };
      const long double whole = det(s[0], s[1], s[2], s[1], s[2], s[3], s[2], s[3], s[4]);
      const long double c0 = det(t[0], s[1], s[2], t[1], s[2], s[3], t[2], s[3], s[4]) / whole;
      const long double c1 = det(s[0], t[0], s[2], s[1], t[1], s[3], s[2], t[2], s[4]) / whole;
      const long double c2 = det(s[0], s[1], t[0], s[1], s[2], t[1], s[2], s[3], t[2]) / whole;
      const long double vertex = -c1 / (2 * c2);
      matched = matched || (std::fabs(run - 1 + vertex - peaks.locations[p]) < 1e-9 &&
                            std::fabs(c0 + c1 * vertex / 2 - peaks.amplitudes[p]) < 1e-10 &&
                            std::fabs(2 * c2 - peaks.secondDerivatives[p]) < 1e-10);
    }
    EXPECT_TRUE(matched) << "peak at " << peaks.locations[p];
  }
}

TEST(PeakDetector, OtherPolarityFindsValleys) {
  const Peaks valleys = PeaksOf({3, 2, 1, 2, 3, 2.5, 2, 2.5, 3}, 1.5, 3, 1);
  EXPECT_THAT(valleys.locations, ElementsAre(DoubleNear(2.0, 1e-15)));
  EXPECT_THAT(valleys.amplitudes, ElementsAre(DoubleNear(1.0, 1e-15)));
  EXPECT_THAT(valleys.secondDerivatives, ElementsAre(DoubleNear(2.0, 1e-15)));
}

TEST(Variance, IsTheMeanSquaredDeviation) {
  const std::vector<double> x{2.0, 4.0, 4.0, 4.0, 5.0, 5.0, 7.0, 9.0};
  double mean = 0.0, variance = 0.0;
  Variance(x.data(), 8, &mean, &variance);
  EXPECT_EQ(mean, 5.0);
  EXPECT_EQ(variance, 4.0);
}

TEST(Variance, LargeOffsetDoesNotDrownIt) {
  const std::vector<double> x{1e9 + 4, 1e9 + 7, 1e9 + 13, 1e9 + 16};
  double mean = 0.0, variance = 0.0;
  Variance(x.data(), 4, &mean, &variance);
  EXPECT_EQ(mean, 1e9 + 10);
  EXPECT_EQ(variance, 22.5);
}

TEST(Variance, OneValueHasNoneAndNoValuesGiveZeros) {
  const double x = 3.75;
  double mean = -1.0, variance = -1.0;
  Variance(&x, 1, &mean, &variance);
  EXPECT_EQ(mean, 3.75);
  EXPECT_EQ(variance, 0.0);
  Variance(&x, 0, &mean, &variance);
  EXPECT_EQ(mean, 0.0);
  EXPECT_EQ(variance, 0.0);
}

/// |A B - I| / (n |A| |B| eps) in the largest row sums: of order 1 for a good inverse, however bad the
/// matrix.
double InverseResidual(const std::vector<double>& a, const std::vector<double>& b, int n) {
  double rest = 0.0, normA = 0.0, normB = 0.0;
  for (int i = 0; i < n; ++i) {
    double rowRest = 0.0, rowA = 0.0, rowB = 0.0;
    for (int j = 0; j < n; ++j) {
      double sum = i == j ? -1.0 : 0.0;
      for (int k = 0; k < n; ++k) sum += a[i * n + k] * b[k * n + j];
      rowRest += std::fabs(sum);
      rowA += std::fabs(a[i * n + j]);
      rowB += std::fabs(b[i * n + j]);
    }
    rest = std::max(rest, rowRest);
    normA = std::max(normA, rowA);
    normB = std::max(normB, rowB);
  }
  return rest / (n * normA * normB * kEps);
}

TEST(GenInvMatrix, ResidualIsSmallForRandomMatrices) {
  for (int n : {1, 2, 3, 10, 60}) {
    const Sequence s = RandomSequence(n * n, 500 + n);
    std::vector<double> inverse(n * n);
    EXPECT_EQ(GenInvMatrix(s.re.data(), n, 0, inverse.data()), 0);
    EXPECT_LT(InverseResidual(s.re, inverse, n), 30.0) << "n = " << n;
  }
}

TEST(GenInvMatrix, ResidualIsSmallForHilbertMatrices) {
  for (int n : {3, 6, 10}) {
    std::vector<double> a(n * n), inverse(n * n);
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j) a[i * n + j] = 1.0 / (i + j + 1);
    EXPECT_EQ(GenInvMatrix(a.data(), n, 0, inverse.data()), 0);
    EXPECT_LT(InverseResidual(a, inverse, n), 30.0) << "n = " << n;
  }
}

// Distances with a bordering row of ones: every diagonal element is 0, so nothing works without pivoting.
TEST(GenInvMatrix, ZeroDiagonalNeedsAndGetsPivoting) {
  const std::vector<double> a{0, 1, 2, 1, 1, 0, 1.5, 1, 2, 1.5, 0, 1, 1, 1, 1, 0};
  std::vector<double> inverse(16);
  EXPECT_EQ(GenInvMatrix(a.data(), 4, 0, inverse.data()), 0);
  EXPECT_LT(InverseResidual(a, inverse, 4), 10.0);
}

TEST(GenInvMatrix, RowsComeFirst) {
  const std::vector<double> a{1, 2, 0, 4};  // 1 2 / 0 4
  std::vector<double> inverse(4);
  GenInvMatrix(a.data(), 2, 0, inverse.data());
  EXPECT_THAT(inverse, ElementsAre(1.0, -0.5, 0.0, 0.25));
}

TEST(GenInvMatrix, MayOverwriteItsInput) {
  std::vector<double> a{0, 2, 4, 0};
  EXPECT_EQ(GenInvMatrix(a.data(), 2, 0, a.data()), 0);
  EXPECT_THAT(a, ElementsAre(0.0, 0.25, 0.5, 0.0));
}

TEST(GenInvMatrix, SingularMatrixGivesNoPlausibleNumbers) {
  for (const std::vector<double>& a :
       {std::vector<double>{1, 2, 2, 4}, std::vector<double>{0, 0, 0, 0},
        std::vector<double>{1, kNaN, kNaN, 1}, std::vector<double>{kInf, 1, 1, 1}}) {
    std::vector<double> inverse(4, 1.0);
    EXPECT_EQ(GenInvMatrix(a.data(), 2, 0, inverse.data()), -1);
    for (double v : inverse) EXPECT_TRUE(std::isnan(v));
  }
}

TEST(GenInvMatrix, SizeZeroDoesNothing) {
  EXPECT_EQ(GenInvMatrix(nullptr, 0, 0, nullptr), 0);
}

TEST(ScaledWindow, RectangleLeavesTheDataAlone) {
  double x[3] = {1.0, -2.0, 0.5};
  WindowConst constants{7.0, 7.0};
  EXPECT_EQ(ScaledWindow(x, 3, 0, &constants), 0);
  EXPECT_THAT(x, ElementsAre(1.0, -2.0, 0.5));
  EXPECT_EQ(constants.enbw, 1.0);
  EXPECT_EQ(constants.coherentGain, 1.0);
}

TEST(ScaledWindow, OtherTypesAreRefused) {
  double x = 1.0;
  WindowConst constants{7.0, 7.0};
  EXPECT_EQ(ScaledWindow(&x, 1, 1, &constants), -1);
  EXPECT_EQ(constants.enbw, 7.0);
}

// A sine of 2 V peak has 2 V^2 mean square, sqrt(2) V rms; with lines 0.25 Hz apart its density is 8 V^2/Hz.
TEST(SpectrumUnitConversion, GivesEveryUnitOfOneSine) {
  const struct {
    VoltUnit unit;
    double value;
    const char* text;
  } cases[] = {{VoltUnit::Vrms, std::sqrt(2.0), "Vrms"},
               {VoltUnit::Vpk, 2.0, "Vpk"},
               {VoltUnit::Vrms2, 2.0, "Vrms^2"},
               {VoltUnit::Vpk2, 4.0, "Vpk^2"},
               {VoltUnit::VrmsPerRootHz, std::sqrt(8.0), "Vrms/sqrt(Hz)"},
               {VoltUnit::VpkPerRootHz, 4.0, "Vpk/sqrt(Hz)"},
               {VoltUnit::Vrms2PerHz, 8.0, "Vrms^2/Hz"},
               {VoltUnit::Vpk2PerHz, 16.0, "Vpk^2/Hz"}};
  const double power = 2.0, amplitude = std::sqrt(2.0);
  for (const auto& c : cases) {
    double out = 0.0;
    std::string text;
    EXPECT_EQ(SpectrumUnitConversion(&power, 1, SpectrumKind::PowerVrms2, c.unit, 0.25, {}, &out, &text), 0);
    EXPECT_NEAR(out, c.value, 1e-14) << c.text;
    EXPECT_EQ(text, c.text);
    EXPECT_EQ(
        SpectrumUnitConversion(&amplitude, 1, SpectrumKind::AmplitudeVrms, c.unit, 0.25, {}, &out, nullptr),
        0);
    EXPECT_NEAR(out, c.value, 1e-14) << c.text;
  }
}

TEST(SpectrumUnitConversion, DensityNeedsALineSpacing) {
  const double power = 2.0;
  double out = -9.0;
  for (double df : {0.0, -1.0, kNaN})
    EXPECT_EQ(SpectrumUnitConversion(&power, 1, SpectrumKind::PowerVrms2, VoltUnit::Vrms2PerHz, df, {}, &out,
                                     nullptr),
              -1);
  EXPECT_EQ(out, -9.0);
}

TEST(SpectrumUnitConversion, NegativePowerHasNoAmplitude) {
  const double power = -1e-20;
  double out = -9.0;
  SpectrumUnitConversion(&power, 1, SpectrumKind::PowerVrms2, VoltUnit::Vrms, 0.0, {}, &out, nullptr);
  EXPECT_EQ(out, 0.0);
}

TEST(IsNotANumber, TellsNotANumbersOnly) {
  EXPECT_NE(IsNotANumber(kNaN), 0);
  EXPECT_NE(IsNotANumber(-kNaN), 0);
  EXPECT_EQ(IsNotANumber(kInf), 0);
  EXPECT_EQ(IsNotANumber(0.0), 0);
}

}  // namespace
}  // namespace sondera
