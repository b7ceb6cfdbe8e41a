// Representative curves from pair curves: global and array, both domains, all laws, all points, and unusual
// settings and data.
#include "signal/rep_curves.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "panels/cdisppnl.h"
#include "records/session.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/events.h"
#include "signal/plain_rep_curve.h"
#include "support/odd_numbers.h"
#include "support/rep_curve_fixture.h"

namespace sondera {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Pointwise;
using testing::Steps;
using testing::TestMeasurement;
using testing::Values;

class RepCurves : public testing::RepCurveTest {
 protected:
  /// Wide windows and a plain law, so that constant velocities come out as constants.
  static void UseWideWindows(int nPoints = 4) {
    CDispParam.nPointsG = CDispParam.nPointsA = nPoints;
    CDispParam.nSpanG = CDispParam.nSpanA = 2;
    CDispParam.incRatioG = CDispParam.incRatioA = 1.0;
    CDispParam.globalPolyOrder = CDispParam.arrayPolyOrder = 2;
  }

  /// Curves of 200 (channels 1, 2) and 180 (2, 3) over 10 to 50 Hz.
  void TwoConstantCurves() {
    m = Measurement("m1", {10, 20, 40});
    first = &Pair(m, 0, 1, Steps(10, 1, 41), std::vector<double>(41, 200.0), std::vector<double>(41, 2.0));
    second = &Pair(m, 1, 2, Steps(10, 1, 41), std::vector<double>(41, 180.0), std::vector<double>(41, 4.0));
  }

  /// Curve that falls with frequency, scattered.
  PMeasInfo& Scattered(int ref, int dsp, double firstFreq, int n, unsigned seed) {
    std::mt19937 random(seed);
    std::normal_distribution<double> scatter(0.0, 6.0);
    std::vector<double> f = Steps(firstFreq, 0.5, n), v, amp;
    for (double x : f) {
      v.push_back(150 + 1000 / (x + 5) + scatter(random));
      amp.push_back(1 + std::fabs(scatter(random)));
    }
    return Pair(m, ref, dsp, f, v, amp);
  }

  PMeasInfo* first = nullptr;
  PMeasInfo* second = nullptr;
};

// ---- settings ---------------------------------------------------------------------------------------

TEST_F(RepCurves, SettingsStartWithTheirDefaults) {
  CDispParam.nPointsA = 7;
  SetupCDispParameter();
  EXPECT_EQ(CDispParam.avgDomain, 1);
  EXPECT_EQ(CDispParam.nPointsG, 50);
  EXPECT_EQ(CDispParam.nPointsA, 30);
  EXPECT_EQ(CDispParam.nSpanG, 40);
  EXPECT_EQ(CDispParam.nSpanA, 40);
  EXPECT_EQ(CDispParam.incRatioG, 1.07);
  EXPECT_EQ(CDispParam.incRatioA, 1.13);
  EXPECT_EQ(CDispParam.globalPolyOrder, 4);
  EXPECT_EQ(CDispParam.arrayPolyOrder, 5);
}

TEST_F(RepCurves, ThePanelStartsWithTheGlobalDefaults) {
  UpdateDispDlgPanel();
  EXPECT_EQ(CDispParam.avgDomain, 1);
  EXPECT_EQ(CDispParam.nPointsG, 50);
  EXPECT_EQ(CDispParam.nSpanG, 40);
  EXPECT_EQ(CDispParam.incRatioG, 1.07);
  EXPECT_EQ(CDispParam.globalPolyOrder, 4);
  EXPECT_EQ(CDispParam.arrayPolyOrder, 5);
}

TEST_F(RepCurves, AfterThePanelTheArraySettingsAreTheGlobalOnes) {
  using namespace cdisppnl;
  SetCtrlVal(AVGDOMAIN, 0);
  SetCtrlVal(GLOBAL_NPOINTS, 33);
  SetCtrlVal(GLOBAL_NSPAN, 12);
  SetCtrlVal(GLOBAL_INCRATIO, 1.21);
  SetCtrlVal(GLOBAL_POLYORDER, 3);
  SetCtrlVal(ARRAY_POLYORDER, 6);
  UpdateDispDlgPanel();
  EXPECT_EQ(CDispParam.avgDomain, 0);
  EXPECT_EQ(CDispParam.nPointsG, 33);
  EXPECT_EQ(CDispParam.nPointsA, 33);
  EXPECT_EQ(CDispParam.nSpanG, 12);
  EXPECT_EQ(CDispParam.nSpanA, 12);
  EXPECT_EQ(CDispParam.incRatioG, 1.21);
  EXPECT_EQ(CDispParam.incRatioA, 1.21);
  EXPECT_EQ(CDispParam.globalPolyOrder, 3);
  EXPECT_EQ(CDispParam.arrayPolyOrder, 6);
}

TEST_F(RepCurves, WithoutTheRatioTheSpacingIsLogarithmic) {
  SetCtrlVal(cdisppnl::AVG_LINLOG, 0);
  UpdateDispDlgPanel();
  EXPECT_EQ(CDispParam.incRatioG, -1.0);
  EXPECT_EQ(CDispParam.incRatioA, -1.0);
}

// ---- ranges -----------------------------------------------------------------------------------------

TEST_F(RepCurves, RangesAreThoseOfIncludedPointsWithAVelocity) {
  m = Measurement("m1", {10, 20, 40});
  Pair(m, 0, 1, {5, 10, 20, 90}, {0, 200, 160, -3});
  Pair(m, 0, 2, {1, 100}, {100, 100}).included = 0;
  double fMin = 0, fMax = 0, wMin = 0, wMax = 0;
  GetMinMaxDisp(fMin, fMax, wMin, wMax);
  EXPECT_EQ(fMin, 10);
  EXPECT_EQ(fMax, 20);
  EXPECT_EQ(wMin, 8);
  EXPECT_EQ(wMax, 20);
}

TEST_F(RepCurves, WithoutPointsTheRangesStandAtTheirStartValues) {
  double fMin = 0, fMax = 0, wMin = 0, wMax = 0;
  GetMinMaxDisp(fMin, fMax, wMin, wMax);
  EXPECT_EQ(fMin, 1e10);
  EXPECT_EQ(wMin, 1e10);
  EXPECT_EQ(fMax, -1);
  EXPECT_EQ(wMax, -1);
}

// ---- global curve -----------------------------------------------------------------------------------

TEST_F(RepCurves, TheGlobalCurveIsTheFitOverAllIncludedPoints) {
  TwoConstantCurves();
  UseWideWindows();
  EXPECT_EQ(PerformAveraging(0, 0), 0);
  ASSERT_EQ(MeasDB.gDispList.count(), 1);
  // Cells of 10 Hz; as many points of 200 as of 180 everywhere.
  EXPECT_THAT(Values(Global(), &DispInfo::freq), Pointwise(DoubleNear(1e-9), {45.0, 35.0, 25.0, 15.0}));
  EXPECT_THAT(Values(Global(), &DispInfo::vel), Pointwise(DoubleNear(1e-8), {190.0, 190.0, 190.0, 190.0}));
  EXPECT_THAT(Values(Global(), &DispInfo::wlen),
              Pointwise(DoubleNear(1e-8), {190.0 / 45, 190.0 / 35, 190.0 / 25, 190.0 / 15}));
  EXPECT_THAT(Values(Global(), &DispInfo::stat2), Pointwise(DoubleNear(1e-8), {10.0, 10.0, 10.0, 10.0}));
  EXPECT_THAT(Values(Global(), &DispInfo::stat1), ElementsAre(0, 0, 0, 0));
  EXPECT_THAT(Values(Global(), &DispInfo::stat3), ElementsAre(0, 0, 0, 0));
}

TEST_F(RepCurves, TheGlobalRecordIsLabelledByTheProject) {
  TwoConstantCurves();
  PerformAveraging(0, 0);
  EXPECT_EQ(Global().key, 0);
  EXPECT_EQ(Global().refChan, 1);
  EXPECT_EQ(Global().dspChan, 1);
  EXPECT_EQ(Global().valid, 1);
  EXPECT_EQ(Global().label, "Site");
  EXPECT_EQ(Global().wlenMax, 0.0);
}

TEST_F(RepCurves, ThereIsOneGlobalCurveAfterEachAveraging) {
  TwoConstantCurves();
  MeasDB.gDispList.append();
  MeasDB.gDispList.append();
  frontEnd.confirmAnswers = {true};
  PerformAveraging(0, 0);
  PerformAveraging(0, 0);
  EXPECT_EQ(MeasDB.gDispList.count(), 1);
}

TEST_F(RepCurves, TheStoredCurveIsInWavelengthOrderAndTheGridInFrequencyOrder) {
  m = Measurement("m1", {10, 20, 40});
  // Velocity rises steeply with frequency, so that wavelength does too over part of the range.
  Pair(m, 0, 1, {10, 20, 30, 40}, {100, 400, 330, 900});
  CDispParam.avgDomain = 1;
  OffsetVector<double> grid;
  ASSERT_EQ(AverageDispG(10, 40, 1, grid), 4);
  EXPECT_THAT(std::vector<double>(grid.begin(), grid.end()), ElementsAre(10, 20, 30, 40));
  EXPECT_THAT(Values(Global(), &DispInfo::wlen), ElementsAre(10, 11, 20, 22.5));
  EXPECT_THAT(Values(Global(), &DispInfo::freq), ElementsAre(10, 30, 20, 40));
  EXPECT_THAT(Values(Global(), &DispInfo::vel), ElementsAre(100, 330, 400, 900));
}

TEST_F(RepCurves, TakeAllHoldsEveryPointWithDeviationZeroSortedByWavelength) {
  TwoConstantCurves();
  EXPECT_EQ(PerformAveraging(1, 0), 0);
  EXPECT_EQ(Global().nPoints, 82);
  EXPECT_EQ(CDispParam.nPointsG, 82);  // where it stays
  const std::vector<double> w = Values(Global(), &DispInfo::wlen);
  EXPECT_TRUE(std::is_sorted(w.begin(), w.end()));
  for (double sd : Values(Global(), &DispInfo::stat2)) EXPECT_EQ(sd, 0.0);
  std::vector<double> v = Values(Global(), &DispInfo::vel);
  EXPECT_EQ(std::count(v.begin(), v.end(), 200.0), 41);
  EXPECT_EQ(std::count(v.begin(), v.end(), 180.0), 41);
}

TEST_F(RepCurves, TakeAllOverWavelengthHoldsTheSamePoints) {
  TwoConstantCurves();
  PerformAveraging(1, 0);
  const std::vector<double> w = Values(Global(), &DispInfo::wlen), v = Values(Global(), &DispInfo::vel);
  CDispParam.avgDomain = 0;
  PerformAveraging(1, 0);
  EXPECT_EQ(Values(Global(), &DispInfo::wlen), w);
  EXPECT_THAT(Values(Global(), &DispInfo::vel), ::testing::UnorderedElementsAreArray(v));
}

TEST_F(RepCurves, TheGlobalCurveKeepsNoRowsWithoutAVelocity) {
  m = Measurement("m1", {10, 20, 40});
  Pair(m, 0, 1, {10, 11, 12, 13, 14, 46, 47, 48, 49, 50}, std::vector<double>(10, 200.0));
  UseWideWindows(8);
  PerformAveraging(0, 0);
  EXPECT_EQ(Global().nPoints, 2);  // 8 cells of 5 Hz, six of them without a point
  for (double v : Values(Global(), &DispInfo::vel)) EXPECT_NEAR(v, 200, 1e-8);
}

TEST_F(RepCurves, ACellWithOnePointInAWindowOfOnePointTakesItWithDeviationZero) {
  m = Measurement("m1", {10, 20, 40});
  Pair(m, 0, 1, {10, 24, 50}, {210, 195, 170});
  UseWideWindows(4);
  CDispParam.nSpanG = 10;
  PerformAveraging(0, 0);
  const std::vector<double> f = Values(Global(), &DispInfo::freq);
  const auto at = std::find(f.begin(), f.end(), 25.0) - f.begin();
  ASSERT_LT(at, Global().nPoints);
  EXPECT_EQ(Values(Global(), &DispInfo::vel)[at], 195.0);
  EXPECT_EQ(Values(Global(), &DispInfo::stat2)[at], 0.0);
}

TEST_F(RepCurves, TheWavelengthDomainSpacesTheCellsInWavelength) {
  m = Measurement("m1", {10, 20, 40});
  std::vector<double> f, v;
  for (double w = 20; w >= 4; w -= 0.25) {
    v.push_back(160);
    f.push_back(160 / w);
  }
  Pair(m, 0, 1, f, v);
  UseWideWindows(4);
  CDispParam.avgDomain = 0;
  PerformAveraging(0, 0);
  EXPECT_THAT(Values(Global(), &DispInfo::wlen), Pointwise(DoubleNear(1e-9), {6.0, 10.0, 14.0, 18.0}));
  EXPECT_THAT(Values(Global(), &DispInfo::freq),
              Pointwise(DoubleNear(1e-6), {160.0 / 6, 160.0 / 10, 160.0 / 14, 160.0 / 18}));
}

TEST_F(RepCurves, AllSpacingLawsInBothDomainsAgreeWithThePlainForm) {
  m = Measurement("m1", {10, 20, 40, 60});
  Scattered(0, 1, 12, 90, 1);
  Scattered(1, 2, 8, 70, 2);
  Scattered(2, 3, 6, 50, 3);
  double fMin = 0, fMax = 0, wMin = 0, wMax = 0;
  GetMinMaxDisp(fMin, fMax, wMin, wMax);
  for (int domain : {1, 0})
    for (double ratio : {1.0, -1.0, 1.07}) {
      CDispParam.avgDomain = domain;
      CDispParam.incRatioG = ratio;
      ASSERT_EQ(PerformAveraging(0, 0), 0);
      test::PlainInput in;
      in.xMin = domain == 1 ? fMin : wMin;
      in.xMax = domain == 1 ? fMax : wMax;
      in.nPts = 50, in.nSpan = 40, in.polyOrder = 4, in.incRatio = ratio;
      in.x = in.v = {0.0};
      for (const PMeasInfo& pair : MeasDB.pMeasList)
        for (int i = 0; i < pair.nDispPoints; ++i) {
          in.x.push_back(domain == 1 ? pair.dispFreq[i] : pair.dispWlen[i]);
          in.v.push_back(pair.dispVel[i]);
        }
      const test::PlainResult plain = test::PlainCompact(in, domain == 0);
      std::vector<std::pair<double, std::pair<double, double>>> expected;
      for (int k = 1; k <= 50; ++k)
        if (plain.v[k] > 0)
          expected.push_back({domain == 1 ? plain.v[k] / plain.x[k] : plain.x[k], {plain.v[k], plain.sd[k]}});
      std::sort(expected.begin(), expected.end());
      ASSERT_GT(expected.size(), 20u);
      ASSERT_EQ(static_cast<std::size_t>(Global().nPoints), expected.size());
      for (int i = 1; i <= Global().nPoints; ++i) {
        EXPECT_EQ(Global().wlen[i], expected[i - 1].first);
        EXPECT_EQ(Global().vel[i], expected[i - 1].second.first);
        EXPECT_EQ(Global().stat2[i], expected[i - 1].second.second);
      }
    }
}

// ---- array curves -----------------------------------------------------------------------------------

TEST_F(RepCurves, ArrayCurvesHaveVelocityAmplitudeAndDeviationsOnTheGlobalFrequencies) {
  TwoConstantCurves();
  UseWideWindows();
  PerformAveraging(0, 0);
  ASSERT_EQ(MeasDB.aDispList.count(), 2);
  for (int c : {1, 2}) {
    const double v = c == 1 ? 200 : 180, amp = c == 1 ? 2 : 4;
    EXPECT_THAT(Values(Array(c), &DispInfo::freq), Pointwise(DoubleNear(1e-9), {15.0, 25.0, 35.0, 45.0}));
    EXPECT_THAT(Values(Array(c), &DispInfo::vel), ::testing::Each(DoubleNear(v, 1e-8)));
    EXPECT_THAT(Values(Array(c), &DispInfo::stat1), ::testing::Each(DoubleNear(amp, 1e-9)));
    EXPECT_THAT(Values(Array(c), &DispInfo::stat2), ::testing::Each(DoubleNear(0.05 * v, 1e-9)));
    EXPECT_THAT(Values(Array(c), &DispInfo::stat3), ::testing::Each(DoubleNear(0.05 * amp, 1e-9)));
    EXPECT_THAT(Values(Array(c), &DispInfo::wlen),
                Pointwise(DoubleNear(1e-8), {v / 15, v / 25, v / 35, v / 45}));
  }
  EXPECT_EQ(Array(1).label, "m1[1:2]");
  EXPECT_EQ(Array(2).label, "m1[2:3]");
  EXPECT_EQ(Array(1).valid, 1);
  EXPECT_EQ(Array(1).key, m.key);
  EXPECT_EQ(Array(2).refChan, 1);
  EXPECT_EQ(Array(2).dspChan, 2);
}

TEST_F(RepCurves, ArrayVectorsHoldAsManyEntriesAsTheGlobalGridHasRows) {
  TwoConstantCurves();
  UseWideWindows(7);
  CDispParam.nPointsA = 3;  // no matter
  PerformAveraging(0, 0);
  EXPECT_EQ(Array(1).freq.hi(), 7);
  EXPECT_EQ(Array(1).nPoints, 7);
}

TEST_F(RepCurves, ArrayCurvesKeepRowsOfVelocityZeroAndTheGlobalCurveDoesNot) {
  m = Measurement("m1", {10, 20, 40});
  Pair(m, 0, 1, Steps(10, 1, 20), std::vector<double>(20, 200.0));
  Pair(m, 1, 2, Steps(31, 1, 20), std::vector<double>(20, 180.0));
  UseWideWindows();
  PerformAveraging(0, 0);
  ASSERT_EQ(Global().nPoints, 4);
  EXPECT_EQ(Array(1).nPoints, 4);
  EXPECT_NEAR(Array(1).vel[2], 200, 1e-8);
  EXPECT_EQ(Array(1).vel[4], 0.0);
  EXPECT_EQ(Array(1).wlen[4], 0.0);
  EXPECT_EQ(Array(2).vel[1], 0.0);
  EXPECT_NEAR(Array(2).vel[4], 180, 1e-8);
}

TEST_F(RepCurves, ArrayRowsOfNegativeVelocityDropOut) {
  // A parabola through values that fall steeply and then stay flat dips below 0 between them.
  m = Measurement("m1", {10, 20, 40});
  PMeasInfo& pair = Pair(m, 0, 1, {10, 11, 12, 19, 20, 30}, {900, 300, 1, 1, 1, 300});
  UseWideWindows(2);
  CDispParam.nSpanG = CDispParam.nSpanA = 1;
  pair.polyOrderA = 3;
  OffsetVector<double> grid(1, 2);
  grid[1] = 15;
  grid[2] = 25;
  Listener none;
  AverageDisp(2, 10, 30, 0, grid, none);
  ASSERT_EQ(MeasDB.aDispList.count(), 1);
  ASSERT_EQ(Array(1).freq.hi(), 2);
  EXPECT_LT(Array(1).nPoints, 2);
  for (double v : Values(Array(1), &DispInfo::vel)) EXPECT_GE(v, 0.0);
}

TEST_F(RepCurves, TakeAllOfArraysCopiesTheCurveAndPairsAmplitudesByPointNumber) {
  m = Measurement("m1", {10, 20, 40});
  Pair(m, 0, 1, {12, 17, 31}, {250, 0, 190}, {5, 6, 7, 8, 9});
  Pair(m, 1, 2, {12, 17}, {150, 140});
  PerformAveraging(1, 1);
  EXPECT_EQ(CDispParam.nPointsA, 3);  // the largest curve
  EXPECT_THAT(Values(Array(1), &DispInfo::freq), ElementsAre(12, 17, 31));
  EXPECT_THAT(Values(Array(1), &DispInfo::vel), ElementsAre(250, 0, 190));
  EXPECT_THAT(Values(Array(1), &DispInfo::stat1), ElementsAre(5, 6, 7));
  EXPECT_THAT(Values(Array(1), &DispInfo::stat2), ElementsAre(0, 0, 0));
  EXPECT_THAT(Values(Array(1), &DispInfo::stat3), ElementsAre(0, 0, 0));
  EXPECT_THAT(Values(Array(1), &DispInfo::wlen), ElementsAre(250.0 / 12, 0, 190.0 / 31));
  EXPECT_EQ(Array(2).nPoints, 2);
}

TEST_F(RepCurves, ArrayFitsUseTheTermsOfThePairOrTheDefaultWithoutOne) {
  m = Measurement("m1", {10, 20, 40, 60});
  std::vector<double> f = Steps(10, 1, 41), v;
  for (double x : f) v.push_back(100 + 80 * std::pow(std::log10(x) - 1.3, 2));
  PMeasInfo& one = Pair(m, 0, 1, f, v);
  PMeasInfo& three = Pair(m, 1, 2, f, v);
  PMeasInfo& none = Pair(m, 2, 3, f, v);
  UseWideWindows();
  CDispParam.nSpanG = CDispParam.nSpanA = 1;
  CDispParam.arrayPolyOrder = 3;
  one.polyOrderA = 1;
  three.polyOrderA = 3;
  none.polyOrderA = 0;
  PerformAveraging(0, 0);
  DispInfo *a = nullptr, *b = nullptr, *c = nullptr;
  ASSERT_GT(GetADispFromKey(m.key, 0, 1, a), 0);
  ASSERT_GT(GetADispFromKey(m.key, 1, 2, b), 0);
  ASSERT_GT(GetADispFromKey(m.key, 2, 3, c), 0);
  const double exact = 100 + 80 * std::pow(std::log10(45.0) - 1.3, 2);
  EXPECT_NEAR(b->vel[4], exact, 1e-6);
  EXPECT_NEAR(c->vel[4], exact, 1e-6);
  EXPECT_GT(std::fabs(a->vel[4] - exact), 1.0);
  EXPECT_EQ(none.polyOrderA, 0);  // only read
}

TEST_F(RepCurves, ArrayRecordsAreKeptAndOverwritten) {
  TwoConstantCurves();
  UseWideWindows();
  PerformAveraging(0, 0);
  DispInfo* before = &Array(1);
  Array(1).wlenMax = 12.5;
  second->included = 0;
  std::fill(first->dispVel.begin(), first->dispVel.begin() + 41, 300.0);
  PerformAveraging(0, 0);
  ASSERT_EQ(MeasDB.aDispList.count(), 2);
  EXPECT_EQ(&Array(1), before);
  EXPECT_NEAR(Array(1).vel[1], 300.0, 1e-8);
  EXPECT_NEAR(Array(2).vel[1], 180.0, 1e-8);  // of the pair that left: as it was
}

TEST_F(RepCurves, InTheWavelengthDomainArrayCurvesStillStandOnTheFrequenciesOfTheGlobalOne) {
  TwoConstantCurves();
  UseWideWindows();
  CDispParam.avgDomain = 0;
  PerformAveraging(0, 0);
  std::vector<double> f = Values(Global(), &DispInfo::freq);
  std::sort(f.begin(), f.end());
  EXPECT_EQ(Values(Array(1), &DispInfo::freq), f);
}

// ---- searches and records ---------------------------------------------------------------------------

TEST_F(RepCurves, PairsComeByAbsoluteSpacing) {
  m = Measurement("m1", {10, 20, 50, 45});
  Pair(m, 0, 2, {10}, {200});  // 40
  Pair(m, 1, 0, {10}, {200});  // -10
  Pair(m, 2, 3, {10}, {200});  // -5
  Pair(m, 0, 3, {10}, {200}).included = 0;
  Pair(m, 1, 3, {}, {});  // no points
  PMeasInfo& stray = Pair(m, 1, 2, {10}, {200});
  stray.key = 99;  // no such measurement
  OffsetVector<int> index, chan1, chan2;
  OffsetVector<double> spacing;
  ASSERT_EQ(SearchChannels(index, chan1, chan2, spacing), 3);
  EXPECT_THAT(std::vector<int>(index.begin(), index.end()), ElementsAre(3, 2, 1));
  EXPECT_THAT(std::vector<int>(chan1.begin(), chan1.end()), ElementsAre(2, 1, 0));
  EXPECT_THAT(std::vector<int>(chan2.begin(), chan2.end()), ElementsAre(3, 0, 2));
  EXPECT_THAT(std::vector<double>(spacing.begin(), spacing.end()), ElementsAre(5, 10, 40));
}

TEST_F(RepCurves, EqualSpacingsComeInTheOrderOfTheHeapSort) {
  m = Measurement("m1", {10, 20, 30, 40});
  Pair(m, 0, 1, {10}, {200});
  Pair(m, 1, 2, {10}, {200});
  Pair(m, 2, 3, {10}, {200});
  OffsetVector<int> index, chan1, chan2;
  OffsetVector<double> spacing;
  SearchChannels(index, chan1, chan2, spacing);
  // Three equal keys: the top, 1, goes last; of the rest 3 (moved up from the end) goes before it.
  EXPECT_THAT(std::vector<int>(index.begin(), index.end()), ElementsAre(2, 3, 1));
}

TEST_F(RepCurves, APairWithoutReceiverLocationsHasSpacingZero) {
  m = Measurement("m1", {10, 20});
  Pair(m, 0, 1, {10}, {200});
  Pair(m, 1, 0, {10}, {200});
  OffsetVector<int> index, chan1, chan2;
  OffsetVector<double> spacing;
  MeasDB.measSetupList.clear();
  ASSERT_EQ(SearchChannels(index, chan1, chan2, spacing), 2);
  EXPECT_EQ(spacing[1], 0.0);
  EXPECT_EQ(spacing[2], 0.0);
}

TEST_F(RepCurves, APairOnChannelsThatItsMeasurementDoesNotHaveIsNotUsed) {
  m = Measurement("m1", {10, 20});
  Pair(m, 0, 1, {10}, {200});
  Pair(m, 5, 9, {10}, {200});
  OffsetVector<int> index, chan1, chan2;
  OffsetVector<double> spacing;
  ASSERT_EQ(SearchChannels(index, chan1, chan2, spacing), 1);
  EXPECT_EQ(index[1], 1);
}

TEST_F(RepCurves, ArrayRecordsAreFoundByKeyAndBothChannels) {
  m = Measurement("m1", {10, 20, 40});
  DispInfo *a = nullptr, *b = nullptr, *c = nullptr;
  InitArrayCDisp(a, 0, 1, m.key);
  EXPECT_EQ(a->nPoints, CDispParam.nPointsA);
  EXPECT_EQ(a->freq.hi(), CDispParam.nPointsA);
  EXPECT_EQ(a->wlenMax, 0.0);
  InitArrayCDisp(b, 1, 0, m.key);
  EXPECT_NE(a, b);
  InitArrayCDisp(c, 0, 1, m.key);
  EXPECT_EQ(a, c);
  EXPECT_EQ(MeasDB.aDispList.count(), 2);
  EXPECT_EQ(GetADispFromKey(m.key, 1, 0, c), 2);
  EXPECT_EQ(c, b);
  EXPECT_EQ(GetADispFromKey(m.key + 1, 1, 0, c), -1);
  EXPECT_EQ(c, b);
}

TEST_F(RepCurves, VectorsAreMadeForTheSizesOfTheSettings) {
  CDispParam.nPointsG = 9;
  CDispParam.nPointsA = 6;
  DispInfo d;
  AllocateGDispArray(d);
  EXPECT_EQ(d.stat3.hi(), 9);
  d.vel[9] = 1;
  ReAllocateGDispArray(d);
  EXPECT_EQ(d.vel[9], 0.0);
  AllocateADispArray(d);
  EXPECT_EQ(d.nPoints, 6);
  ReAllocateADispArray(d);
  EXPECT_EQ(d.freq.hi(), 6);
  FreeGDispSetupArrays(d);
  EXPECT_EQ(d.nPoints, 0);
  EXPECT_TRUE(d.freq.empty());
}

// ---- failures -------------------------------------------------------------------------------------------

TEST_F(RepCurves, WithoutIncludedCurvesTheOldCurvesStayAndNothingIsSaid) {
  TwoConstantCurves();
  UseWideWindows();
  PerformAveraging(0, 0);
  const int points = Global().nPoints;
  first->included = 0;
  second->nDispPoints = 0;
  EXPECT_EQ(PerformAveraging(0, 0), 0);
  EXPECT_EQ(Global().nPoints, points);
  EXPECT_EQ(MeasDB.aDispList.count(), 2);
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_FALSE(WaitCursorShown());
}

TEST_F(RepCurves, SettingsOutsideTheirLimitsGetOneMessageAndChangeNothing) {
  TwoConstantCurves();
  UseWideWindows();
  PerformAveraging(0, 0);
  const std::vector<double> before = Values(Global(), &DispInfo::vel);
  const CDispSettings good = CDispParam;
  const auto refused = [&](auto change, const char* text) {
    CDispParam = good;
    change(CDispParam);
    frontEnd.messages.clear();
    EXPECT_EQ(PerformAveraging(0, 0), -1) << text;
    ASSERT_EQ(frontEnd.messages.size(), 1u) << text;
    EXPECT_THAT(frontEnd.messages[0], HasSubstr(text));
    EXPECT_EQ(frontEnd.messageTitles.back(), session.appTitle);
    EXPECT_EQ(Values(Global(), &DispInfo::vel), before);
    EXPECT_FALSE(WaitCursorShown());
  };
  for (int n : {2000000000, 100001, 0, -5}) {
    refused([n](CDispSettings& p) { p.nPointsG = n; }, "number of points of the representative curve");
    refused([n](CDispSettings& p) { p.nPointsA = n; }, "number of points of an array curve");
    refused([n](CDispSettings& p) { p.globalPolyOrder = n; }, "polynomial terms of the global curve");
    refused([n](CDispSettings& p) { p.arrayPolyOrder = n; }, "polynomial terms of the array curves");
  }
  for (int n : {0, -5, std::numeric_limits<int>::min()}) {
    refused([n](CDispSettings& p) { p.nSpanG = n; }, "number of windows");
    refused([n](CDispSettings& p) { p.nSpanA = n; }, "number of windows");
  }
  for (double r : {0.0, -2.0, kNaN, kInf}) refused([r](CDispSettings& p) { p.incRatioG = r; }, "ratio");
  refused([](CDispSettings& p) { p.incRatioG = 10, p.nPointsG = 400; }, "ratio");
  second->polyOrderA = 1000000;
  refused([](CDispSettings&) {}, "polynomial terms of m1[2:3]");
}

TEST_F(RepCurves, SettingsThatTakeAllDoesNotUseAreNotTested) {
  TwoConstantCurves();
  CDispParam.nPointsG = 0;
  CDispParam.globalPolyOrder = -1;
  CDispParam.incRatioG = kNaN;
  CDispParam.nSpanG = CDispParam.nSpanA = 0;
  CDispParam.nPointsA = -3;
  EXPECT_EQ(PerformAveraging(1, 1), 0);
  EXPECT_EQ(Global().nPoints, 82);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(RepCurves, AHugeNumberOfWindowsIsAMatterOfTasteOnly) {
  TwoConstantCurves();
  CDispParam.nSpanG = CDispParam.nSpanA = 2000000000;
  EXPECT_EQ(PerformAveraging(0, 0), 0);
}

TEST_F(RepCurves, ACurveOfOnePointGivesNoGlobalCurve) {
  m = Measurement("m1", {10, 20});
  Pair(m, 0, 1, {25}, {200});
  for (int domain : {1, 0})
    for (double ratio : {1.0, -1.0, 1.07}) {
      CDispParam.avgDomain = domain;
      CDispParam.incRatioG = ratio;
      EXPECT_EQ(PerformAveraging(0, 0), 0);
      EXPECT_EQ(Global().nPoints, 0);
    }
  EXPECT_EQ(PerformAveraging(1, 1), 0);
  EXPECT_EQ(Global().nPoints, 1);
  EXPECT_EQ(Array(1).nPoints, 1);
}

TEST_F(RepCurves, OddVelocitiesAndFrequenciesNeitherCrashNorEnterTheGlobalCurve) {
  const double odd[] = {kNaN, kInf, -kInf, 0.0, -20.0};
  std::mt19937 random(5);
  for (int trial = 0; trial < 200; ++trial) {
    testing::ResetEverything();
    m = Measurement("m1", {10, 20, 40});
    PMeasInfo& a = Scattered(0, 1, 10, 60, trial);
    PMeasInfo& b = Scattered(1, 2, 5, 60, trial + 1000);
    for (PMeasInfo* pair : {&a, &b})
      for (int i = 0; i < 60; ++i) {
        if (random() % 10 == 0) pair->dispVel[i] = odd[random() % 5];
        if (random() % 40 == 0) pair->dispFreq[i] = odd[random() % 5];
        if (random() % 40 == 0) pair->dispWlen[i] = odd[random() % 5];
        if (random() % 40 == 0) pair->enAmp[i] = odd[random() % 5];
      }
    CDispParam.avgDomain = trial % 2;
    const double ratios[] = {1.0, -1.0, 1.07};
    CDispParam.incRatioG = ratios[trial % 3];
    ASSERT_EQ(PerformAveraging(trial % 5 == 0, trial % 7 == 0), 0);
    for (double v : Values(Global(), &DispInfo::vel)) ASSERT_GT(v, 0.0);
    for (int c = 1; c <= MeasDB.aDispList.count(); ++c)
      for (double v : Values(Array(c), &DispInfo::vel)) ASSERT_GE(v, 0.0);
  }
}

TEST_F(RepCurves, ACountOfPointsBeyondTheArraysIsHeldToThem) {
  TwoConstantCurves();
  first->nDispPoints = 2000000000;
  second->nDispPoints = -4;
  EXPECT_EQ(IncludedPoints(*first), static_cast<int>(first->dispVel.size()));
  EXPECT_EQ(IncludedPoints(*second), 0);
  EXPECT_EQ(PerformAveraging(0, 0), 0);
  first->dispVel.clear();
  EXPECT_EQ(IncludedPoints(*first), 0);
  EXPECT_EQ(PerformAveraging(0, 0), 0);
}

TEST_F(RepCurves, APairOfAnUnknownMeasurementEntersTheGlobalCurveOnly) {
  TwoConstantCurves();
  second->key = 77;
  UseWideWindows();
  PerformAveraging(0, 0);
  EXPECT_NEAR(Global().vel[1], 190.0, 1e-8);
  EXPECT_EQ(MeasDB.aDispList.count(), 1);
}

}  // namespace
}  // namespace sondera
