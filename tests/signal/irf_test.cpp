// Impulse response filtration: windows, times by velocities, the filtered spectra against plain sums, and a
// pure delay.
#include "signal/irf.h"

#include <cmath>
#include <random>

#include "numeric/analysis.h"
#include "panels/irfsetpnl.h"
#include "panels/sasw_pair.h"
#include "plain_signal.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "support/signal_fixture.h"

namespace sondera {
namespace {

using testing::AddMeasurement;
using testing::Fold;
using testing::MeasurementPlan;
using testing::TestMeasurement;

// --- the window ---

std::vector<double> Window(int mode, const WindowFour& times, double deltaT, int count) {
  std::vector<double> w(count, 7.0);
  MakeIrfWindow(mode, times, deltaT, count, w.data());
  return w;
}

TEST(MakeIrfWindow, EqualsThePlainWindowForOrderedTimes) {
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    const int count = 100;
    int t[4];
    for (int& v : t) v = static_cast<int>(random() % 110);
    std::sort(t, t + 4);
    if (t[1] == t[2]) continue;  // where two tapers meet on one sample the order of writing decides
    const WindowFour times = {0, t[0] * 0.004, t[1] * 0.004, t[2] * 0.004, t[3] * 0.004};
    for (int mode : {kBandPass, kLowPass}) {
      const std::vector<double> expected = plain::Window(mode, t, count),
                                w = Window(mode, times, 0.004, count);
      for (int i = 0; i < count; ++i) ASSERT_NEAR(w[i], expected[i], 1e-14) << mode << " sample " << i;
    }
  }
}

TEST(MakeIrfWindow, BandPassRisesToOneAndFallsToZero) {
  const std::vector<double> w = Window(kBandPass, {0, 0.010, 0.020, 0.050, 0.070}, 0.001, 100);
  EXPECT_EQ(w[9], 0.0);
  EXPECT_EQ(w[10], 0.0);
  EXPECT_NEAR(w[15], 0.5, 1e-15);
  EXPECT_EQ(w[20], 1.0);
  EXPECT_EQ(w[50], 1.0);
  EXPECT_NEAR(w[60], 0.5, 1e-15);
  EXPECT_EQ(w[70], 0.0);
  EXPECT_EQ(w[99], 0.0);
}

TEST(MakeIrfWindow, EqualTimesGiveAStepOfOneSample) {
  const std::vector<double> w = Window(kBandPass, {0, 0.010, 0.010, 0.050, 0.050}, 0.001, 100);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(w[i], i >= 10 && i <= 50 ? 1.0 : 0.0) << i;
  const std::vector<double> low = Window(kLowPass, {0, 0.010, 0.010, 0.050, 0.050}, 0.001, 100);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(low[i], i <= 10 || i >= 50 ? 1.0 : 0.0) << i;
}

TEST(MakeIrfWindow, LowPassIsSymmetricOnTheCircularRecord) {
  const int count = 256;
  const double dt = 0.001, total = (count - 1) * dt, t1 = 0.0183, t2 = 0.0411;
  const std::vector<double> w = Window(kLowPass, {0, t1, t2, total - t2, total - t1}, dt, count);
  EXPECT_EQ(w[0], 1.0);
  EXPECT_EQ(w[count / 2], 0.0);
  for (int i = 0; i < count; ++i) EXPECT_NEAR(w[i], w[count - 1 - i], 1e-15) << i;
}

TEST(MakeIrfWindow, TaperOfTheFirstTwoTimesIsWrittenLastWhereWindowsOverlap) {
  const std::vector<double> w = Window(kBandPass, {0, 0.010, 0.040, 0.020, 0.030}, 0.001, 100);
  EXPECT_NEAR(w[25], 0.5, 1e-15);  // the rising taper alone; the falling one would have another slope
  EXPECT_NEAR(w[20], 0.5 * (1 - std::cos(std::acos(-1.0) / 3)), 1e-15);
  EXPECT_EQ(w[40], 1.0);
  EXPECT_EQ(w[41], 0.0);
}

TEST(MakeIrfWindow, SamplesOutsideTheRecordAreLeftOut) {
  const std::vector<double> w = Window(kBandPass, {0, -0.010, 0.010, 5.0, 1e300}, 0.001, 50);
  // int(-10 + 0.5) is -9: truncation, and so the half goes upward below zero, too
  EXPECT_NEAR(w[0], 0.5 * (1 + std::cos(std::acos(-1.0) * 10 / 19)), 1e-15);
  EXPECT_EQ(w[49], 1.0);
  Window(kLowPass, {0, NAN, -1e300, INFINITY, -INFINITY}, 0.001, 50);
  Window(kBandPass, {0, 0.0, 0.1, 0.2, 0.3}, 0.0, 50);
}

// --- CalcIRF ---

/// Two channels of noise, the second later by a whole number of samples, plus the pair.
class CalcIRFTest : public testing::SessionTest {
 protected:
  void Make(int nLines, int delay, const MeasurementPlan& base = {}) {
    MeasurementPlan plan = base;
    plan.nLines = nLines;
    m = AddMeasurement(plan);
    SelectPair(m, 0, 1);
    const int frame = 2 * nLines;
    std::mt19937 random(5);
    std::normal_distribution<double> normal;
    std::vector<std::vector<double>> record(2, std::vector<double>(frame));
    for (double& v : record[0]) v = normal(random);
    for (int i = 0; i < frame; ++i) record[1][i] = record[0][(i - delay + frame) % frame];
    ASSERT_EQ(Fold(record), 0);
    SetupPMeasDataNode(m.projID, m.measID, 0, 1, *m.hw, pair);
    ASSERT_NE(pair, nullptr);
  }
  TestMeasurement m;
  PMeasInfo* pair = nullptr;
};

TEST_F(CalcIRFTest, PureDelayGivesALinearPhaseThroughZeroInAllThreeCurves) {
  const int n = 512, delay = 50;  // 10 m in 50 ms: 200 m/s, inside both windows
  Make(n, delay);
  for (int i = 0; i < n; ++i) {
    const double lag = 360.0 * delay * i / (2.0 * n);
    if (i % 128 == 0 && i > 0) continue;  // whole quarter cycles: the real part is 0 or nearly so
    EXPECT_NEAR(pair->phaseOrig[i], lag, 1e-7) << i;
    EXPECT_NEAR(pair->phaseBB[i], lag, 1e-7) << i;
    EXPECT_NEAR(pair->phaseEn[i], lag, 1e-7) << i;
  }
  const double spacing = 10.0, f = 40 * m.hw->deltaF;
  EXPECT_NEAR(spacing * 360.0 / pair->phaseEn[40] * f, 200.0, 1e-6);
}

TEST_F(CalcIRFTest, ArrivalOutsideTheWindowIsTakenOut) {
  Make(512, 150);  // 10 m in 150 ms: 67 m/s, slower than the limit of the backbone window
  double largest = 0.0;
  for (int i = 0; i < 1024; ++i) largest = std::max(largest, pair->bbAmp[i]);
  EXPECT_LT(largest, 1e-9);
  EXPECT_NEAR(pair->enAmp[100], 1.0, 1e-9);
}

TEST_F(CalcIRFTest, TimesComeFromTheVelocitiesToFourFigures) {
  Make(512, 50);
  EXPECT_EQ(pair->irfMode, kBandPass);
  EXPECT_EQ(pair->bbT, (WindowFour{0, 0.01, 0.01053, 0.09091, 0.1}));
  EXPECT_EQ(pair->enT, (WindowFour{0, 0.004, 0.004167, 0.2857, 0.3333}));
}

TEST_F(CalcIRFTest, TimesOfEverySiteCategoryAscend) {
  Make(512, 50);
  for (int site : {0, 1, 2}) {
    SetSiteVelocities(site);
    ASSERT_EQ(CalcIRF(1, Panel::SASW), 0);
    for (std::size_t k = 1; k < 4; ++k) {
      EXPECT_LT(pair->bbT[k], pair->bbT[k + 1]) << site;
      EXPECT_LT(pair->enT[k], pair->enT[k + 1]) << site;
    }
  }
}

TEST_F(CalcIRFTest, VelocitiesAreDividedByTheLengthUnitOfTheMeasurement) {
  MeasurementPlan plan;
  plan.lengthUnit = 0.3048;  // feet: the same ground is 3.28 times as many feet per second
  Make(512, 50, plan);
  EXPECT_EQ(pair->bbT[4], 0.03048);
  EXPECT_EQ(pair->bbT[1], 0.003048);
  EXPECT_EQ(session.bbV[4], 100.0);  // the session's stay in metres
  session.lengthUnit = 0.01;         // and its unit has no effect
  ASSERT_EQ(CalcIRF(1, Panel::SASW), 0);
  EXPECT_EQ(pair->bbT[4], 0.03048);
}

TEST_F(CalcIRFTest, ResetAloneReplacesTimesThatAreSet) {
  Make(512, 50);
  pair->irfMode = kLowPass;
  pair->bbT = {0, 0.1, 0.2, 0.8, 0.9};
  pair->enT = {0, 0.1, 0.3, 0.7, 0.9};
  ASSERT_EQ(CalcIRF(0, Panel::SASW), 0);
  EXPECT_EQ(pair->irfMode, kLowPass);
  EXPECT_EQ(pair->bbT[2], 0.2);
  EXPECT_EQ(pair->enT[2], 0.3);
  pair->enT[4] = 0.0;  // not set: only this window, and the mode stays
  ASSERT_EQ(CalcIRF(0, Panel::SASW), 0);
  EXPECT_EQ(pair->irfMode, kLowPass);
  EXPECT_EQ(pair->bbT[2], 0.2);
  EXPECT_EQ(pair->enT[4], 0.3333);
  ASSERT_EQ(CalcIRF(1, Panel::SASW), 0);
  EXPECT_EQ(pair->irfMode, kBandPass);
  EXPECT_EQ(pair->bbT[4], 0.1);
}

TEST_F(CalcIRFTest, ZeroSpacingSwitchesToLowPassAtFractionsOfTheRecord) {
  MeasurementPlan plan;
  plan.spacing = 0.0;
  Make(64, 3, plan);
  const double total = 127 * 0.001;
  const WindowFour expected = {0, 0.4 * total, 0.45 * total, total, total};
  EXPECT_EQ(pair->irfMode, kLowPass);
  EXPECT_EQ(pair->bbT, expected);
  EXPECT_EQ(pair->enT, expected);
  EXPECT_NEAR(pair->bbIrRe[3], 1.0, 1e-12);  // the delay of three samples passes
  for (int i = 0; i < 64; ++i) EXPECT_NEAR(pair->phaseEn[i], 360.0 * 3 * i / 128, 1e-7);
}

TEST_F(CalcIRFTest, SpacingCountsWithoutItsSign) {
  Make(512, 50);
  const WindowFour bb = pair->bbT;
  std::swap(m.setup->recLoc[0], m.setup->recLoc[1]);
  ASSERT_EQ(CalcIRF(1, Panel::SASW), 0);
  EXPECT_EQ(pair->bbT, bb);
}

TEST_F(CalcIRFTest, NotANumberFromAFileMakesTheImpulseResponseAgain) {
  Make(64, 5);
  const std::vector<double> response = pair->irRe, enhanced = pair->enRe;
  pair->irRe.assign(pair->irRe.size(), std::nan(""));
  pair->irIm.assign(pair->irIm.size(), std::nan(""));
  ASSERT_EQ(CalcIRF(0, Panel::SASW), 0);
  EXPECT_EQ(pair->irRe, response);
  EXPECT_EQ(pair->enRe, enhanced);
  pair->irRe[0] = 4.0;  // any number is kept, even a wrong one
  ASSERT_EQ(CalcIRF(0, Panel::SASW), 0);
  EXPECT_EQ(pair->irRe[0], 4.0);
}

TEST_F(CalcIRFTest, FilteredSpectraEqualThePlainFormula) {
  const int n = 64, frame = 2 * n;
  Make(n, 9);
  std::mt19937 random(8);
  std::normal_distribution<double> normal;
  for (double& v : pair->irRe) v = normal(random);
  for (double& v : pair->irIm) v = normal(random);
  pair->bbT = {0, 0.003, 0.009, 0.060, 0.090};
  pair->enT = {0, 0.001, 0.004, 0.030, 0.110};
  ASSERT_EQ(CalcIRF(0, Panel::SASW), 0);
  const int bb[4] = {3, 9, 60, 90}, en[4] = {1, 4, 30, 110};
  const std::vector<double> wb = plain::Window(kBandPass, bb, frame),
                            we = plain::Window(kBandPass, en, frame);
  std::vector<plain::Cx> windowedB(frame), windowedE(frame);
  for (int i = 0; i < frame; ++i) {
    EXPECT_NEAR(pair->bbIrRe[i], pair->irRe[i] * wb[i], 1e-14);
    EXPECT_NEAR(pair->bbIrIm[i], pair->irIm[i] * wb[i], 1e-14);
    EXPECT_NEAR(pair->enIrIm[i], pair->irIm[i] * we[i], 1e-14);
    windowedB[i] = pair->irRe[i] * wb[i];  // the imaginary part is windowed but not transformed
    windowedE[i] = pair->irRe[i] * we[i];
  }
  const std::vector<plain::Cx> b = plain::Transform(windowedB), e = plain::Transform(windowedE);
  for (int i = 0; i < frame; ++i) {
    EXPECT_NEAR(pair->bbRe[i], b[i].real(), 1e-12);
    EXPECT_NEAR(pair->bbIm[i], b[i].imag(), 1e-12);
    EXPECT_NEAR(pair->bbAmp[i], std::abs(b[i]), 1e-12);
    EXPECT_NEAR(pair->enRe[i], e[i].real(), 1e-12);
    EXPECT_NEAR(pair->enAmp[i], std::abs(e[i]), 1e-12);
  }
  std::vector<plain::Cx> lower(b.begin(), b.begin() + n), lowerE(e.begin(), e.begin() + n);
  const plain::Unwrapped backbone = plain::UnWrapBackBone(lower), enhanced = plain::UnWrap(0, 1, lowerE, {});
  for (int i = 0; i < n; ++i) {
    EXPECT_NEAR(pair->phaseBB[i], backbone.unwrapped[i], 1e-8);
    EXPECT_NEAR(pair->phaseEn[i], enhanced.unwrapped[i], 1e-8);
  }
}

TEST_F(CalcIRFTest, SecondHalvesStayZeroForPhasesAndHoldTheUpperHalfForSpectra) {
  const int n = 64;
  Make(n, 9);
  for (int i = n; i < 2 * n; ++i)
    for (const auto* v :
         {&pair->hPhase, &pair->phaseOrig, &pair->bbPhase, &pair->phaseBB, &pair->enPhase, &pair->phaseEn})
      EXPECT_EQ((*v)[i], 0.0) << i;
  EXPECT_EQ(pair->enRe[n + 5], pair->enRe[n - 5]);
  EXPECT_EQ(pair->enIm[n + 5], -pair->enIm[n - 5]);
  EXPECT_NE(pair->enRe[n + 5], 0.0);
}

TEST_F(CalcIRFTest, SameInputGivesTheSameBytesAgain) {
  Make(128, 9);
  const PMeasInfo& p = *pair;
  std::vector<std::vector<double>> before;
  for (auto array : kPairArrays) before.push_back(p.*array);
  ASSERT_EQ(CalcIRF(0, Panel::SASW), 0);
  std::size_t k = 0;
  for (auto array : kPairArrays) EXPECT_EQ(p.*array, before[k++]);
}

TEST_F(CalcIRFTest, MasksActOnOriginalAndEnhancedCurvesOnly) {
  Make(512, 50);
  *MeasDB.maskingList.append() = {m.key, 0, 1, 0.0, 20.0, 2};
  ASSERT_EQ(CalcIRF(0, Panel::SASW), 0);
  const double lag = 360.0 * 50 * 100 / 1024;
  EXPECT_EQ(pair->maskFlag[10], 1);
  EXPECT_EQ(pair->maskFlag[100], 0);
  EXPECT_NEAR(pair->phaseOrig[100], lag + 360.0, 1e-7);  // at line 20.5 one cycle has passed, not two
  EXPECT_NEAR(pair->phaseEn[100], lag + 360.0, 1e-7);
  EXPECT_NEAR(pair->phaseBB[100], lag, 1e-7);
}

TEST_F(CalcIRFTest, AnotherPageTakesTheChannelsLastInForce) {
  Make(64, 9);
  session.refChan = 0;
  session.dspChan = 1;
  SelectPair(m, 1, 0);  // a pair without a record is on display
  pair->enT[4] = 0.0;
  EXPECT_EQ(CalcIRF(0, Panel::SASW), -1);
  EXPECT_EQ(pair->enT[4], 0.0);
  session.refChan = 0;
  session.dspChan = 1;
  EXPECT_EQ(CalcIRF(0, Panel::IRFSETPNL), 0);
  EXPECT_EQ(pair->enT[4], 0.3333);
}

TEST_F(CalcIRFTest, NoMeasurementOrPairOrRoomDoesNothing) {
  EXPECT_EQ(CalcIRF(1, Panel::SASW), -1);
  Make(64, 9);
  const std::vector<double> before = pair->enRe;
  m.hw->nLines = 128;
  SetupRawDataArrays(m.key);
  EXPECT_EQ(CalcIRF(1, Panel::SASW), -1);
  m.hw->nLines = 64;
  m.setup->recLoc.resize(1);
  EXPECT_EQ(CalcIRF(1, Panel::SASW), -1);
  EXPECT_EQ(pair->enRe, before);
}

// --- default velocities ---

class GetIRFVELTest : public testing::SessionTest {};

TEST_F(GetIRFVELTest, HoldsTheTableOfModesAndSites) {
  const double expected[6][8] = {
      {1250, 1200, 15, 7.5, 1000, 950, 110, 100},     {4000, 3950, 550, 500, 3000, 2950, 1550, 1500},
      {3000, 2950, 550, 500, 2000, 1950, 1050, 1000}, {15, 7.5, 5, 2.5, 350, 250, 10, 5},
      {500, 250, 10, 5, 1000, 500, 20, 10},           {500, 250, 100, 5, 1000, 500, 20, 10}};
  for (int mode : {0, 1}) {
    for (int site : {0, 1, 2}) {
      SetCtrlVal(irfsetpnl::IRFMODE, mode);
      SetCtrlVal(irfsetpnl::SITECAT, site);
      for (int k = 1; k <= 4; ++k) {
        EXPECT_EQ(GetIRFVEL(k, 0), expected[3 * mode + site][k - 1]);
        EXPECT_EQ(GetIRFVEL(k, 1), expected[3 * mode + site][k + 3]);
      }
    }
  }
}

TEST_F(GetIRFVELTest, AnyOtherCombinationIsZero) {
  EXPECT_EQ(GetIRFVEL(0, 0), 0.0);
  EXPECT_EQ(GetIRFVEL(5, 1), 0.0);
  EXPECT_EQ(GetIRFVEL(1, 2), 0.0);
  EXPECT_EQ(GetIRFVEL(1, -1), 0.0);
}

}  // namespace
}  // namespace sondera
