// Cells, windows and windowed fits of the representative curves: rules one by one, the plain scan, and
// least-squares solutions by other ways.
#include "signal/rep_curve_fit.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>

#include "numeric/allocation_count.h"
#include "signal/plain_rep_curve.h"
#include "support/odd_numbers.h"

namespace sondera {
namespace {

using test::EigenValue;
using test::PlainCompact;
using test::PlainInput;
using test::PlainResult;
using test::QrValue;
using test::SuppressedFit;

constexpr double kUntouched = -77.0;

/// The program's function over the same input.
PlainResult Compact(const PlainInput& in, bool wavelength = false, double fill = kUntouched) {
  PlainResult out;
  const std::size_t size = static_cast<std::size_t>(std::max(in.nPts, 0)) + 1;
  out.x.assign(size, fill);
  out.v.assign(size, fill);
  out.sd.assign(size, fill);
  const int nIn = static_cast<int>(in.x.size()) - 1;
  out.counted =
      wavelength
          ? CompactDsp_w(out.x.data(), out.v.data(), out.sd.data(), in.xMin, in.xMax, in.nPts, in.nSpan,
                         in.polyOrder, nIn, in.x.data(), in.v.data(), in.mode, in.incRatio)
          : CompactDsp_f(out.x.data(), out.v.data(), out.sd.data(), in.xMin, in.xMax, in.nPts, in.nSpan,
                         in.polyOrder, nIn, in.x.data(), in.v.data(), in.mode, in.incRatio, in.grid.data());
  return out;
}

/// Points (x, v), with the unused element 0 put in front.
PlainInput Points(std::vector<double> x, std::vector<double> v) {
  PlainInput in;
  in.x = {0.0};
  in.v = {0.0};
  in.x.insert(in.x.end(), x.begin(), x.end());
  in.v.insert(in.v.end(), v.begin(), v.end());
  return in;
}

/// Points at first, first + step, ... with one value.
PlainInput Even(double first, double step, int n, double v) {
  std::vector<double> x, values(static_cast<std::size_t>(n), v);
  for (int i = 0; i < n; ++i) x.push_back(first + i * step);
  return Points(x, values);
}

// ---- cells ------------------------------------------------------------------------------------------

TEST(CompactDsp, LinearSpacingGivesEqualCellsWithCentresMidway) {
  PlainInput in = Even(10, 0.5, 81, 200);
  in.xMin = 10, in.xMax = 50, in.nPts = 8, in.incRatio = 1.0;
  const PlainResult out = Compact(in);
  for (int k = 1; k <= 8; ++k) EXPECT_DOUBLE_EQ(out.x[k], 10 + (k - 0.5) * 5);
}

TEST(CompactDsp, GeometricSpacingWidensEachCellByTheRatioAndFillsTheRange) {
  PlainInput in = Even(10, 0.5, 81, 200);
  in.xMin = 10, in.xMax = 50, in.nPts = 3, in.incRatio = 2.0;
  // Widths d, 2d, 4d with 7d = 40.
  const double d = 40.0 / 7.0;
  const PlainResult out = Compact(in);
  EXPECT_NEAR(out.x[1], 10 + d / 2, 1e-12);
  EXPECT_NEAR(out.x[2], 10 + d + d, 1e-12);
  EXPECT_NEAR(out.x[3], 10 + 3 * d + 2 * d, 1e-12);
}

TEST(CompactDsp, LogSpacingDividesTheLogarithmOfTheDifference) {
  PlainInput in = Even(10, 0.5, 201, 200);
  in.xMin = 10, in.xMax = 110, in.nPts = 4, in.incRatio = -1.0;
  // log10(100) / 4 = half a decade a cell: two decades from 10, though the range is little more than one.
  const PlainResult out = Compact(in);
  for (int k = 1; k <= 4; ++k) EXPECT_NEAR(out.x[k], std::pow(10.0, 1.0 + (k - 0.5) * 0.5), 1e-9);
  EXPECT_NEAR(out.v[1], 200, 1e-9);
  EXPECT_NEAR(out.v[2], 200, 1e-9);
}

TEST(CompactDsp, CellsOfTheLogSpacingBeyondTheRangeDropOut) {
  PlainInput in = Even(10, 0.5, 201, 200);
  in.xMin = 10, in.xMax = 110, in.nPts = 4, in.nSpan = 2, in.incRatio = -1.0;
  const PlainResult out = Compact(in, false, 0.0);
  EXPECT_GT(out.x[3], 110.0);
  EXPECT_EQ(out.v[3], 0.0);
  EXPECT_EQ(out.v[4], 0.0);
}

TEST(CompactDsp, GridCellsReachMidwayToTheNeighboursAndToTheLimitsAtTheEnds) {
  // One value per cell of the grid 20, 30, 50: borders 25 and 40. Deviations tell which points were met.
  PlainInput in = Points({10, 24, 25, 39, 40, 59}, {100, 300, 100, 300, 100, 300});
  in.xMin = 10, in.xMax = 60, in.nPts = 3, in.nSpan = 1, in.polyOrder = 1, in.mode = 2;
  in.grid = {0, 20, 30, 50};
  const PlainResult out = Compact(in);
  for (int k = 1; k <= 3; ++k) {
    EXPECT_EQ(out.x[k], in.grid[k]);
    EXPECT_DOUBLE_EQ(out.sd[k], 100.0) << k;  // one 100 and one 300
  }
  EXPECT_EQ(out.counted, 3);
}

TEST(CompactDsp, AGridOfOneCentreTakesTheWholeRangeAsItsCell) {
  PlainInput in = Points({10, 20, 30, 40}, {100, 300, 100, 300});
  in.xMin = 10, in.xMax = 40, in.nPts = 1, in.nSpan = 1, in.polyOrder = 1, in.mode = 2;
  in.grid = {0, 25};
  const PlainResult out = Compact(in);
  // The point at 40 is outside: [10, 40).
  const double mean = 500.0 / 3.0;
  EXPECT_DOUBLE_EQ(out.sd[1], std::sqrt((2 * 1e4 + 9e4) / 3.0 - mean * mean));
}

TEST(CompactDsp, TheLastCellIsHalfOpenSoThatThePointAtTheUpperLimitLiesInNone) {
  PlainInput in = Points({10, 15, 20, 25, 30}, {100, 100, 100, 100, 600});
  in.xMin = 10, in.xMax = 30, in.nPts = 2, in.nSpan = 1, in.polyOrder = 1;
  const PlainResult out = Compact(in);
  EXPECT_DOUBLE_EQ(out.sd[2], 5.0);    // 20 and 25 only
  EXPECT_NEAR(out.v[2], 200.0, 1e-9);  // but the window [15 - 5, 35) has it
}

// ---- windows ----------------------------------------------------------------------------------------

TEST(CompactDsp, AWindowAtTheLowerEndIsWidenedOnItsUpperSideOnly) {
  // Cell 1 of 10 over 0.1..100.1: centre 5.1, window [-19.9, 30.1), grown by 20 on its upper side to 50.1.
  PlainInput in = Points({-30.0, 2.0, 8.0, 50.0, 50.2}, {9000, 100, 100, 400, 7000});
  in.xMin = 0.1, in.xMax = 100.1, in.nPts = 10, in.nSpan = 2, in.polyOrder = 1;
  EXPECT_NEAR(Compact(in).v[1], 200.0, 1e-9);
}

TEST(CompactDsp, AWindowAtTheUpperEndIsWidenedOnItsLowerSideOnly) {
  // Last cell: centre 95.1, window [70.1, 120.1), lowered by 20 to 50.1.
  PlainInput in = Points({50.0, 50.2, 92.0, 98.0, 130.0}, {7000, 400, 100, 100, 9000});
  in.xMin = 0.1, in.xMax = 100.1, in.nPts = 10, in.nSpan = 2, in.polyOrder = 1;
  EXPECT_NEAR(Compact(in).v[10], 200.0, 1e-9);
  // Kept: the upper edge stays at 120.1, outside the range.
  in.x[5] = 115.0;
  EXPECT_NEAR(Compact(in).v[10], 9600.0 / 4.0, 1e-9);
}

TEST(CompactDsp, TheUpperLimitIsHeldAgainstTheEdgeThatTheLowerOneHasJustMoved) {
  // A window as wide as the range, around a centre below it: [-2, 8) grows by 12 and ends at the upper limit,
  // so that the lower edge stays at -2.
  PlainInput in = Points({-3.0, 1.0, 12.0, 19.0, 20.0}, {9000, 100, 200, 300, 9000});
  in.xMin = 10, in.xMax = 20, in.nPts = 1, in.nSpan = 1, in.polyOrder = 1, in.mode = 2;
  in.grid = {0, 3.0};
  EXPECT_NEAR(Compact(in).v[1], 200.0, 1e-9);
}

TEST(CompactDsp, BothLimitsActOnAWindowThatIsWiderThanTheRange) {
  // nSpan 0: a = -infinity, b = infinity; every point that counts is in the window.
  PlainInput in = Points({1.0, 12.0, 19.0, 4000.0}, {100, 200, 300, 400});
  in.xMin = 10, in.xMax = 20, in.nPts = 1, in.nSpan = 0, in.polyOrder = 1;
  EXPECT_NEAR(Compact(in).v[1], 250.0, 1e-9);
}

TEST(CompactDsp, InTheLogSpacingTheWindowIsCutAndGrownInLogTerms) {
  // Range 1..101, so 2 / 2 = one decade a cell; window (log10 101) / 2 = 1.00216 wide. Cell 1: centre 0.5,
  // window [-0.00108, 1.00108), grown to 1.00216: up to 10.0499.
  PlainInput in = Points({1.5, 9.0, 10.04, 10.06}, {100, 100, 400, 9000});
  in.xMin = 1, in.xMax = 101, in.nPts = 2, in.nSpan = 2, in.polyOrder = 1, in.incRatio = -1;
  EXPECT_NEAR(Compact(in).v[1], 200.0, 1e-9);
}

// ---- what counts ------------------------------------------------------------------------------------

TEST(CompactDsp, OverFrequencyAnEmptyWindowWritesNothingAndCounts) {
  PlainInput in = Even(40, 1, 11, 200);
  in.xMin = 10, in.xMax = 50, in.nPts = 4, in.nSpan = 40;
  const PlainResult out = Compact(in);
  EXPECT_EQ(out.v[1], kUntouched);
  EXPECT_EQ(out.sd[1], kUntouched);
  EXPECT_EQ(out.x[1], 15.0);
  EXPECT_EQ(out.counted, 4);
}

TEST(CompactDsp, OverWavelengthAnEmptyWindowWritesNothingAndDoesNotCount) {
  PlainInput in = Even(40, 1, 11, 200);
  in.xMin = 10, in.xMax = 50, in.nPts = 4, in.nSpan = 10, in.polyOrder = 1;
  const PlainResult out = Compact(in, true);
  EXPECT_EQ(out.v[1], kUntouched);
  EXPECT_EQ(out.sd[1], kUntouched);
  EXPECT_NEAR(out.v[4], 200.0, 1e-9);
  EXPECT_EQ(out.counted, 1);
}

TEST(CompactDsp, AWindowOfOnePointTakesThatPointWithDeviationZero) {
  // The point lies in the window of the second cell, off its centre.
  PlainInput in = Points({24.0}, {321.5});
  in.xMin = 10, in.xMax = 50, in.nPts = 4, in.nSpan = 10;
  const PlainResult out = Compact(in);
  EXPECT_EQ(out.v[2], 321.5);
  EXPECT_EQ(out.sd[2], 0.0);
  EXPECT_EQ(out.counted, 4);
}

TEST(CompactDsp, OverFrequencyTheOnePointOfAWindowNeedNotLieInTheCell) {
  // Cells of 1, windows of 10: the point at 24 lies in the windows of ten cells and in one of them.
  PlainInput in = Points({24.0}, {321.5});
  in.xMin = 10, in.xMax = 50, in.nPts = 40, in.nSpan = 4;
  const PlainResult out = Compact(in, false, 0.0);
  int taken = 0;
  for (int k = 1; k <= 40; ++k) taken += out.v[k] == 321.5;
  EXPECT_EQ(taken, 10);
}

TEST(CompactDsp, OverWavelengthAWindowOfOnePointIsRejected) {
  PlainInput in = Points({24.0}, {321.5});
  in.xMin = 10, in.xMax = 50, in.nPts = 4, in.nSpan = 10;
  const PlainResult out = Compact(in, true);
  EXPECT_EQ(out.v[2], 0.0);
  EXPECT_EQ(out.sd[2], kUntouched);
  EXPECT_EQ(out.counted, 0);
}

TEST(CompactDsp, ACellWithoutPointsOfItsOwnIsZeroAndNotCounted) {
  // Points at 12 and 38; cells of 10; one window over all. The cells in between hold none.
  PlainInput in = Points({12, 13, 18, 42, 43, 48}, {200, 200, 200, 200, 200, 200});
  in.xMin = 10, in.xMax = 50, in.nPts = 4, in.nSpan = 1, in.polyOrder = 1;
  const PlainResult out = Compact(in);
  EXPECT_NEAR(out.v[1], 200.0, 1e-9);
  EXPECT_EQ(out.v[2], 0.0);
  EXPECT_EQ(out.sd[2], kUntouched);
  EXPECT_EQ(out.v[3], 0.0);
  EXPECT_NEAR(out.v[4], 200.0, 1e-9);
  EXPECT_EQ(out.counted, 2);
}

TEST(CompactDsp, AnOutputIsNeverExtrapolated) {
  // Cell [10, 20), centre 15: all points above it, or all at or below it, reject it.
  PlainInput in = Points({15.5, 16, 17}, {200, 210, 220});
  in.xMin = 10, in.xMax = 20, in.nPts = 1, in.nSpan = 1;
  EXPECT_EQ(Compact(in).v[1], 0.0);
  in.x = {0, 12, 13, 15};  // the greatest equals the centre
  EXPECT_EQ(Compact(in).v[1], 0.0);
  EXPECT_EQ(Compact(in).counted, 0);
  in.x = {0, 15, 16, 17};  // the least equals the centre
  EXPECT_NEAR(Compact(in).v[1], 200.0, 1e-6);
}

TEST(CompactDsp, NegativeValuesDoNotCountAndZeroDoes) {
  PlainInput in = Points({11, 14, 16, 19}, {300, -1, 0, 300});
  in.xMin = 10, in.xMax = 20, in.nPts = 1, in.nSpan = 1, in.polyOrder = 1;
  EXPECT_NEAR(Compact(in).v[1], 200.0, 1e-9);
}

TEST(CompactDsp, TheDeviationIsNeverUnderFivePerCentOfTheMeanOfTheCell) {
  PlainInput in = Even(10, 1, 40, 200);
  in.xMin = 10, in.xMax = 50, in.nPts = 4, in.nSpan = 2;
  for (bool wavelength : {false, true})
    for (int k = 1; k <= 4; ++k) EXPECT_DOUBLE_EQ(Compact(in, wavelength).sd[k], 10.0);
  in.v[1] = 500;  // cell 1: 9 of 200 and one of 500
  EXPECT_DOUBLE_EQ(Compact(in).sd[1], 90.0);
}

TEST(CompactDsp, TheDeviationComesFromTheCellAndTheValueFromTheWindow) {
  // Cells of 10, one window over all; values 100 in the first cell and 300 elsewhere.
  PlainInput in = Even(10, 1, 40, 300);
  for (int i = 1; i <= 10; ++i) in.v[i] = 100;
  in.xMin = 10, in.xMax = 50, in.nPts = 4, in.nSpan = 1, in.polyOrder = 1;
  // Window of cell 1: centre 15, [-5, 35) grown by 15 to 50: all forty points.
  const PlainResult out = Compact(in);
  EXPECT_NEAR(out.v[1], 250.0, 1e-9);
  EXPECT_DOUBLE_EQ(out.sd[1], 5.0);
}

TEST(CompactDsp, TheAbscissaOfTheFitIsLogarithmic) {
  // v = 50 + 100 log10 x is met exactly by two terms, at any spacing.
  PlainInput in = Even(10, 1, 41, 0);
  for (int i = 1; i <= 41; ++i) in.v[i] = 50 + 100 * std::log10(in.x[i]);
  in.xMin = 10, in.xMax = 50, in.nPts = 6, in.nSpan = 2, in.polyOrder = 2;
  for (double ratio : {1.0, 1.2})
    for (bool wavelength : {false, true}) {
      in.incRatio = ratio;
      const PlainResult out = Compact(in, wavelength);
      for (int k = 1; k <= 6; ++k) EXPECT_NEAR(out.v[k], 50 + 100 * std::log10(out.x[k]), 1e-8);
    }
}

TEST(CompactDsp, AWindowOfFewPointsTakesAsManyTermsAsPoints) {
  // Two points, order 5: a straight line in log10 x through both.
  PlainInput in = Points({12, 18}, {100, 300});
  in.xMin = 10, in.xMax = 20, in.nPts = 1, in.nSpan = 1, in.polyOrder = 5;
  const double share = std::log10(15.0 / 12.0) / std::log10(18.0 / 12.0);
  EXPECT_NEAR(Compact(in).v[1], 100 + 200 * share, 1e-9);
}

TEST(CompactDsp, WithoutTermsTheValueIsZeroAndCounts) {
  PlainInput in = Even(10, 1, 41, 200);
  in.xMin = 10, in.xMax = 50, in.nPts = 4, in.nSpan = 2;
  for (int order : {0, -3}) {
    in.polyOrder = order;
    const PlainResult out = Compact(in);
    EXPECT_EQ(out.v[1], 0.0);
    EXPECT_EQ(out.counted, 4);
  }
}

TEST(CompactDsp, NoCellsAndNoPointsAreHarmless) {
  PlainInput in = Even(10, 1, 41, 200);
  in.xMin = 10, in.xMax = 50;
  for (int n : {0, -5}) {
    in.nPts = n;
    EXPECT_EQ(Compact(in).counted, 0);
    EXPECT_EQ(Compact(in, true).counted, 0);
  }
  in = Points({}, {});
  in.xMin = 10, in.xMax = 50, in.nPts = 5;
  EXPECT_EQ(Compact(in).counted, 5);
  EXPECT_EQ(Compact(in, true).counted, 0);
}

TEST(CompactDsp, ARangeOfOnePointGivesNoValue) {
  PlainInput in = Points({30}, {200});
  in.xMin = 30, in.xMax = 30, in.nPts = 5;
  for (double ratio : {1.0, -1.0, 1.07}) {
    in.incRatio = ratio;
    for (bool wavelength : {false, true})
      for (double v : Compact(in, wavelength, 0.0).v) EXPECT_EQ(v, 0.0);
  }
}

TEST(CompactDsp, TheModeDoesNotMatterOverWavelength) {
  PlainInput in = Even(10, 1, 41, 200);
  in.xMin = 10, in.xMax = 50, in.nPts = 5, in.nSpan = 2;
  const PlainResult one = Compact(in, true);
  in.mode = 2;
  EXPECT_EQ(one.x, Compact(in, true).x);
  EXPECT_EQ(one.v, Compact(in, true).v);
}

TEST(CompactDsp, AllocatesAsOftenForAThousandCellsAsForTen) {
  PlainInput in = Even(10, 0.1, 401, 200);
  std::vector<double> x(1001), v(1001), sd(1001);
  const auto allocations = [&](int nPts, bool wavelength) {
    const long before = test::AllocationCount();
    if (wavelength)
      CompactDsp_w(x.data(), v.data(), sd.data(), 10, 50, nPts, 10, 4, 401, in.x.data(), in.v.data(), 1, 1.0);
    else
      CompactDsp_f(x.data(), v.data(), sd.data(), 10, 50, nPts, 10, 4, 401, in.x.data(), in.v.data(), 1, 1.0,
                   nullptr);
    return test::AllocationCount() - before;
  };
  for (bool wavelength : {false, true}) {
    EXPECT_EQ(allocations(1000, wavelength), allocations(10, wavelength));
    EXPECT_GT(allocations(10, wavelength), 0);
  }
}

// ---- against the plain scan -------------------------------------------------------------------------

bool SameBits(const std::vector<double>& a, const std::vector<double>& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (std::bit_cast<std::uint64_t>(a[i]) != std::bit_cast<std::uint64_t>(b[i]) &&
        !(std::isnan(a[i]) && std::isnan(b[i])))
      return false;
  return true;
}

class RandomInput {
 public:
  explicit RandomInput(unsigned seed) : random_(seed) {}

  double Real(double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(random_); }
  int Int(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(random_); }

  /// Curves that ascend or descend, or points at random, with values that scatter and now and then do not
  /// count.
  PlainInput Next() {
    PlainInput in;
    in.x = in.v = {0.0};
    const int nIn = Int(0, Int(0, 1) ? 30 : 400), curves = Int(1, 5), shape = Int(0, 2);
    const double least = Real(0.2, 20), most = least * Real(1.01, 30);
    in.xMin = most, in.xMax = least;
    for (int i = 0; i < nIn; ++i) {
      const double along = static_cast<double>(i % (nIn / curves + 1)) / (nIn / curves + 1);
      double x = shape == 0 ? Real(least, most) : least + (shape == 1 ? along : 1 - along) * (most - least);
      if (shape != 0 && Int(0, 3) == 0) x = std::round(x);
      in.x.push_back(x);
      in.v.push_back(Int(0, 30) == 0   ? Real(-50, 0)
                     : Int(0, 40) == 0 ? 0.0
                                       : 150 + 40 * std::sin(x) + Real(-30, 30));
      in.xMin = std::min(in.xMin, x);
      in.xMax = std::max(in.xMax, x);
    }
    in.nPts = Int(1, 60);
    in.nSpan = Int(0, 3) ? Int(1, 60) : Int(1, 4);
    in.polyOrder = Int(1, 7);
    const double ratios[] = {1.0, -1.0, 1.07, 1.13, 0.9, 1.5};
    in.incRatio = ratios[Int(0, 5)];
    in.mode = Int(1, 2);
    in.grid = {0.0};
    for (int k = 0; k < in.nPts; ++k) in.grid.push_back(Real(in.xMin, std::max(in.xMin, in.xMax)));
    std::sort(in.grid.begin() + 1, in.grid.end());
    return in;
  }

 private:
  std::mt19937 random_;
};

void ExpectAsPlain(const PlainInput& in, int number) {
  for (bool wavelength : {false, true}) {
    const PlainResult fast = Compact(in, wavelength), plain = PlainCompact(in, wavelength, kUntouched);
    ASSERT_TRUE(SameBits(fast.x, plain.x)) << number;
    ASSERT_TRUE(SameBits(fast.v, plain.v)) << number;
    ASSERT_TRUE(SameBits(fast.sd, plain.sd)) << number;
    ASSERT_EQ(fast.counted, plain.counted) << number;
  }
}

TEST(CompactDsp, IsThePlainScanToTheBitOnRandomCurves) {
  RandomInput random(20240601);
  int fits = 0;
  for (int i = 0; i < 3000; ++i) {
    const PlainInput in = random.Next();
    ExpectAsPlain(in, i);
    if (HasFatalFailure()) return;
    const PlainResult plain = PlainCompact(in, false);
    fits += static_cast<int>(std::count(plain.fitted.begin(), plain.fitted.end(), true));
  }
  EXPECT_GT(fits, 20000);  // the inputs are such that much is fitted
}

TEST(CompactDsp, IsThePlainScanOnHostileNumbersToo) {
  RandomInput random(7);
  const double odd[] = {kNaN, kInf, -kInf, 0.0, -0.0, -3.0, 1e308, 5e-324};
  for (int i = 0; i < 1500; ++i) {
    PlainInput in = random.Next();
    for (std::size_t p = 1; p < in.x.size(); ++p) {
      if (random.Int(0, 25) == 0) in.x[p] = odd[random.Int(0, 7)];
      if (random.Int(0, 25) == 0) in.v[p] = odd[random.Int(0, 7)];
    }
    if (random.Int(0, 3) == 0) in.xMin = odd[random.Int(0, 7)];
    if (random.Int(0, 3) == 0) in.xMax = odd[random.Int(0, 7)];
    if (random.Int(0, 3) == 0) in.incRatio = odd[random.Int(0, 7)];
    if (random.Int(0, 3) == 0) in.nSpan = random.Int(-2, 0);
    if (random.Int(0, 3) == 0) in.polyOrder = random.Int(-2, 0);
    ExpectAsPlain(in, i);
    if (HasFatalFailure()) return;
  }
}

// ---- against other least-squares solutions ----------------------------------------------------------

TEST(CompactDsp, AgreesWithTheQrSolutionWhereNothingIsSuppressed) {
  // Windows over half the range or all of it, up to four terms: the singular values lie close together.
  RandomInput random(11);
  int compared = 0;
  for (int i = 0; i < 400; ++i) {
    PlainInput in = random.Next();
    in.nSpan = random.Int(1, 2);
    in.polyOrder = random.Int(1, 4);
    const PlainResult fast = Compact(in), plain = PlainCompact(in, false);
    for (int k = 1; k <= in.nPts; ++k) {
      if (!plain.fitted[k]) continue;
      const std::vector<double>&xs = plain.windowLogX[k], &ys = plain.windowV[k];
      if (std::isinf(*std::min_element(xs.begin(), xs.end()))) continue;  // a point at 0
      const int terms = std::min<int>(static_cast<int>(xs.size()), in.polyOrder);
      const double at = std::log10(fast.x[k]);
      const SuppressedFit other = EigenValue(xs, ys, terms, at);
      if (other.dropped > 0 || other.margin < 0.01) continue;
      ASSERT_NEAR(fast.v[k], QrValue(xs, ys, terms, at), 1e-9 * (1 + other.steepness)) << i << " " << k;
      ++compared;
    }
  }
  EXPECT_GT(compared, 4000);
}

TEST(CompactDsp, AgreesWithTheEigenvectorSolutionWhereDirectionsAreSuppressed) {
  // Narrow windows hardly determine the higher terms.
  RandomInput random(12);
  int compared = 0;
  for (int i = 0; i < 400; ++i) {
    const PlainInput in = random.Next();
    const PlainResult fast = Compact(in), plain = PlainCompact(in, false);
    for (int k = 1; k <= in.nPts; ++k) {
      if (!plain.fitted[k]) continue;
      const std::vector<double>&xs = plain.windowLogX[k], &ys = plain.windowV[k];
      if (std::isinf(*std::min_element(xs.begin(), xs.end()))) continue;  // a point at 0
      const int terms = std::min<int>(static_cast<int>(xs.size()), in.polyOrder);
      const SuppressedFit other = EigenValue(xs, ys, terms, std::log10(fast.x[k]));
      if (other.dropped == 0 || other.margin < 0.01) continue;
      ASSERT_NEAR(fast.v[k], other.value, 1e-8 * (1 + other.steepness)) << i << " " << k;
      ++compared;
    }
  }
  EXPECT_GT(compared, 1000);
}

}  // namespace
}  // namespace sondera
