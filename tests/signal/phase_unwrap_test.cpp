// Unwrapping: linear phases and saw-teeth whose answer is known, masks, the repair of runaway cycles, and
// random spectra against the plain steps.
#include "signal/phase_unwrap.h"

#include <climits>
#include <cmath>
#include <random>

#include "plain_signal.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/redraw.h"
#include "signal/signal_state.h"
#include "support/signal_fixture.h"

namespace sondera {
namespace {

using testing::AddMeasurement;
using testing::TestMeasurement;

/// Spectrum of given phases in degrees, arrays with an unused second half.
struct Lines {
  explicit Lines(const std::vector<double>& degrees) : n(static_cast<int>(degrees.size())) {
    for (auto* v : {&re, &im, &wrapped, &unwrapped}) v->assign(2 * n, 0.0);
    flag.assign(n, -1);
    for (int i = 0; i < n; ++i) {
      re[i] = std::cos(degrees[i] * std::acos(-1.0) / 180.0);
      im[i] = std::sin(degrees[i] * std::acos(-1.0) / 180.0);
    }
  }
  void UnWrapWith(const std::vector<CycleMask>& masks = {}) {
    UnWrapLines(n, re.data(), im.data(), masks, wrapped.data(), unwrapped.data(), flag.data());
  }
  void BackBone() { UnWrap_BackBone(n, re.data(), im.data(), wrapped.data(), unwrapped.data()); }
  std::vector<plain::Cx> Spectrum() const {
    std::vector<plain::Cx> s(n);
    for (int i = 0; i < n; ++i) s[i] = {re[i], im[i]};
    return s;
  }
  int n;
  std::vector<double> re, im, wrapped, unwrapped;
  std::vector<int> flag;
};

std::vector<double> Ramp(int n, double perLine, double first = 0.0) {
  std::vector<double> phase(n);
  for (int i = 0; i < n; ++i) phase[i] = first + perLine * i;
  return phase;
}

// --- UnWrap ---

TEST(UnWrap, FollowsACleanLinearPhaseExactly) {
  Lines lines(Ramp(400, -37.3));
  lines.UnWrapWith();
  for (int i = 0; i < lines.n; ++i) EXPECT_NEAR(lines.unwrapped[i], 37.3 * i, 1e-9);
}

TEST(UnWrap, SawToothOfOneCyclePerSevenLinesIsAStraightLineThroughZero) {
  Lines lines(Ramp(200, -360.0 / 7));
  lines.UnWrapWith();
  for (int i = 0; i < lines.n; ++i) EXPECT_NEAR(lines.unwrapped[i], 360.0 * i / 7, 1e-9);
}

TEST(UnWrap, SawToothTooSteepForTheThresholdLosesItsCycles) {
  Lines lines(Ramp(50, -72.0));  // steps back of 288 degrees are no jumps
  lines.UnWrapWith();
  for (int i = 0; i < lines.n; ++i) EXPECT_EQ(lines.unwrapped[i], -lines.wrapped[i]);
}

TEST(UnWrap, FirstLineBeyond150DegreesCountsAsZero) {
  for (double first : {151.0, -170.0, 180.0}) {
    Lines lines({first, 10.0, 20.0});
    lines.UnWrapWith();
    EXPECT_EQ(lines.wrapped[0], 0.0) << first;
    EXPECT_EQ(lines.unwrapped[0], 0.0) << first;
    EXPECT_NEAR(lines.unwrapped[1], -10.0, 1e-12) << first;
  }
  Lines kept({149.0, 140.0});
  kept.UnWrapWith();
  EXPECT_NEAR(kept.unwrapped[0], -149.0, 1e-12);
}

TEST(UnWrap, RealPartZeroIsPhaseZeroNotNinety) {
  Lines lines({10.0, 20.0, 30.0});
  lines.re[1] = 0.0;
  lines.im[1] = 2.385;
  lines.UnWrapWith();
  EXPECT_EQ(lines.wrapped[1], 0.0);
  EXPECT_EQ(lines.unwrapped[1], 0.0);
  lines.BackBone();
  EXPECT_EQ(lines.wrapped[1], 0.0);
}

TEST(UnWrap, MaskForcesAbsoluteCycleCount) {
  Lines lines(Ramp(40, -20.0));
  lines.UnWrapWith({{10, 20, 3}});
  EXPECT_NEAR(lines.unwrapped[9], 180.0, 1e-9);
  EXPECT_NEAR(lines.unwrapped[10], 0 * 360.0 - lines.wrapped[10], 1e-9);  // still the number before: none
  for (int i = 11; i <= 20; ++i) EXPECT_NEAR(lines.unwrapped[i], 3 * 360.0 - lines.wrapped[i], 1e-9) << i;
  EXPECT_NEAR(lines.unwrapped[21], 3 * 360.0 - lines.wrapped[21], 1e-9);  // counting continues from there
  for (int i = 0; i < lines.n; ++i) EXPECT_EQ(lines.flag[i], i >= 10 && i <= 20 ? 1 : 0);
}

TEST(UnWrap, FirstLineOfAMaskCarriesTheNumberOfTheMaskBefore) {
  Lines lines(Ramp(40, -5.0));
  lines.UnWrapWith({{5, 8, 2}, {20, 25, 7}});
  EXPECT_NEAR(lines.unwrapped[5], -lines.wrapped[5], 1e-9);
  EXPECT_NEAR(lines.unwrapped[8], 2 * 360.0 - lines.wrapped[8], 1e-9);
  EXPECT_NEAR(lines.unwrapped[15], 2 * 360.0 - lines.wrapped[15], 1e-9);
  EXPECT_NEAR(lines.unwrapped[20], 2 * 360.0 - lines.wrapped[20], 1e-9);
  EXPECT_NEAR(lines.unwrapped[21], 7 * 360.0 - lines.wrapped[21], 1e-9);
  EXPECT_NEAR(lines.unwrapped[30], 7 * 360.0 - lines.wrapped[30], 1e-9);
}

TEST(UnWrap, CyclesCountedBetweenTwoMasksAreThrownAwayAtTheSecond) {
  Lines lines(Ramp(60, -40.0));  // a wrap every nine lines
  lines.UnWrapWith({{2, 4, 1}, {40, 45, 2}});
  EXPECT_GT(lines.unwrapped[39], 3 * 360.0);
  EXPECT_NEAR(lines.unwrapped[41], 2 * 360.0 - lines.wrapped[41], 1e-9);
}

TEST(UnWrap, LaterMaskHoldsOnSharedLines) {
  Lines lines(Ramp(40, -5.0));
  lines.UnWrapWith({{10, 20, 1}, {15, 25, 4}});
  for (int i = 11; i <= 15; ++i) EXPECT_NEAR(lines.unwrapped[i], 360.0 - lines.wrapped[i], 1e-9) << i;
  for (int i = 16; i <= 25; ++i) EXPECT_NEAR(lines.unwrapped[i], 4 * 360.0 - lines.wrapped[i], 1e-9) << i;
  Lines reversed(Ramp(40, -5.0));
  reversed.UnWrapWith({{15, 25, 4}, {10, 20, 1}});
  for (int i = 11; i <= 21; ++i) EXPECT_NEAR(reversed.unwrapped[i], 360.0 - reversed.wrapped[i], 1e-9) << i;
  EXPECT_NEAR(reversed.unwrapped[22], 4 * 360.0 - reversed.wrapped[22], 1e-9);
}

TEST(UnWrap, MaskOfOneLineActsOnlyThroughTheNextMask) {
  Lines lines(Ramp(40, -5.0));
  lines.UnWrapWith({{10, 10, 3}, {20, 22, 5}});
  EXPECT_NEAR(lines.unwrapped[10], -lines.wrapped[10], 1e-9);
  EXPECT_NEAR(lines.unwrapped[12], -lines.wrapped[12], 1e-9);
  EXPECT_NEAR(lines.unwrapped[20], 3 * 360.0 - lines.wrapped[20], 1e-9);
  EXPECT_NEAR(lines.unwrapped[21], 5 * 360.0 - lines.wrapped[21], 1e-9);
}

TEST(UnWrap, MaskFromLineZeroPinsFromLineTwoOn) {
  Lines lines(Ramp(20, -5.0));
  lines.UnWrapWith({{0, 6, 2}});
  EXPECT_EQ(lines.flag[0], 1);
  EXPECT_EQ(lines.unwrapped[0], -lines.wrapped[0]);
  EXPECT_NEAR(lines.unwrapped[1], -lines.wrapped[1], 1e-9);
  EXPECT_NEAR(lines.unwrapped[2], 2 * 360.0 - lines.wrapped[2], 1e-9);
}

TEST(UnWrap, DownwardStepOf350DegreesTakesOneCycleOff) {
  std::vector<double> phase(20, 175.0);
  phase[0] = 0.0;
  for (int i = 10; i < 20; ++i) phase[i] = -175.0;
  Lines lines(phase);
  lines.UnWrapWith();
  EXPECT_NEAR(lines.unwrapped[9], -175.0, 1e-9);
  EXPECT_NEAR(lines.unwrapped[10], -360.0 + 175.0, 1e-9);
  EXPECT_NEAR(lines.unwrapped[19], -360.0 + 175.0, 1e-9);
}

TEST(UnWrap, FlagsAreRewrittenByEachRun) {
  Lines lines(Ramp(10, -5.0));
  lines.UnWrapWith({{3, 5, 1}});
  lines.UnWrapWith();
  EXPECT_EQ(lines.flag, std::vector<int>(10, 0));
}

TEST(UnWrap, SpareHalfOfTheArraysStaysUntouched) {
  Lines lines(Ramp(30, -50.0));
  lines.UnWrapWith({{3, 29, 1}});
  lines.BackBone();
  for (int i = lines.n; i < 2 * lines.n; ++i) {
    EXPECT_EQ(lines.wrapped[i], 0.0);
    EXPECT_EQ(lines.unwrapped[i], 0.0);
  }
}

TEST(UnWrap, LargestJumpNumberAndOneLineAndNoneAreHarmless) {
  Lines lines(Ramp(20, -50.0));
  lines.UnWrapWith({{1, 5, INT_MAX}});
  EXPECT_EQ(lines.unwrapped[3], INT_MAX * 360.0 - lines.wrapped[3]);
  Lines one({30.0});
  one.UnWrapWith({{0, 0, 4}});
  EXPECT_NEAR(one.unwrapped[0], -30.0, 1e-12);
  UnWrapLines(0, nullptr, nullptr, {}, nullptr, nullptr, nullptr);
}

// --- against the plain steps ---

/// A phase that mostly falls, with noise and jumps in places.
std::vector<double> WildPhase(int n, std::mt19937& random) {
  std::uniform_real_distribution<double> uniform(0.0, 1.0);
  std::normal_distribution<double> normal;
  const double slope = -80.0 * uniform(random);
  std::vector<double> phase(n);
  double level = 360.0 * uniform(random), noise = 0.0;
  for (int i = 0; i < n; ++i) {
    if (uniform(random) < 0.1) noise = uniform(random) < 0.5 ? 0.0 : 150.0;
    phase[i] = level + slope * i + noise * normal(random);
  }
  return phase;
}

TEST(UnWrap, EqualsThePlainStepsOnRandomSpectraAndMasks) {
  std::mt19937 random(20);
  for (int round = 0; round < 400; ++round) {
    const int n = 1 + static_cast<int>(random() % 150);
    Lines lines(WildPhase(n, random));
    if (round % 5 == 0) lines.re[random() % n] = 0.0;
    const double deltaF = 0.37;
    std::vector<plain::Mask> masks;
    MeasDB = MeasDatabase{};
    for (unsigned k = random() % 4; k > 0; --k) {
      const double f = deltaF * n * (static_cast<double>(random() % 1000) / 900.0 - 0.05);
      masks.push_back(
          {f, f + deltaF * static_cast<double>(random() % 30), static_cast<int>(random() % 9) - 2});
      *MeasDB.maskingList.append() = {
          1, 0, 1, masks.back().freqInit, masks.back().freqFinal, masks.back().jumpNo};
    }
    lines.UnWrapWith(CycleMasksOf(1, 0, 1, n, 0.0, deltaF));
    const plain::Unwrapped expected = plain::UnWrap(0.0, deltaF, lines.Spectrum(), masks);
    for (int i = 0; i < n; ++i) {
      ASSERT_NEAR(lines.unwrapped[i], expected.unwrapped[i], 1e-9) << round << " line " << i;
      ASSERT_NEAR(lines.wrapped[i], expected.wrapped[i], 1e-9);
      ASSERT_EQ(lines.flag[i], expected.maskFlag[i]);
    }
  }
}

TEST(UnWrap_BackBone, EqualsThePlainStepsOnRandomSpectra) {
  std::mt19937 random(21);
  for (int round = 0; round < 400; ++round) {
    const int n = 1 + static_cast<int>(random() % 200);
    Lines lines(WildPhase(n, random));
    lines.BackBone();
    const plain::Unwrapped expected = plain::UnWrapBackBone(lines.Spectrum());
    for (int i = 0; i < n; ++i)
      ASSERT_NEAR(lines.unwrapped[i], expected.unwrapped[i], 1e-9) << round << " line " << i;
  }
}

TEST(AdjustCycles, EqualsThePlainStepsOnRandomCurves) {
  std::mt19937 random(22);
  std::normal_distribution<double> normal;
  int changed = 0;
  for (int round = 0; round < 2000; ++round) {
    const int n = static_cast<int>(random() % 40);
    std::vector<double> wrapped(n), unwrapped(n);
    int cycles = 0;
    for (int i = 0; i < n; ++i) {
      wrapped[i] = 360.0 * static_cast<double>(random() % 1000) / 1000.0 - 180.0;
      if (random() % 4 == 0) cycles += static_cast<int>(random() % 5) - 2;
      unwrapped[i] = 360.0 * cycles - wrapped[i];
    }
    std::vector<double> expected = unwrapped;
    const std::vector<double> before = unwrapped;
    plain::AdjustCycles(expected, wrapped);
    AdjustCycles(n, unwrapped.data(), wrapped.data());
    ASSERT_EQ(unwrapped, expected) << round;
    if (unwrapped != before) ++changed;
  }
  EXPECT_GT(changed, 100);
}

// --- backbone ---

TEST(UnWrap_BackBone, FollowsACleanLinearPhase) {
  Lines lines(Ramp(300, -43.0));
  lines.BackBone();
  for (int i = 0; i < lines.n; ++i) EXPECT_NEAR(lines.unwrapped[i], 43.0 * i, 1e-9);
}

TEST(UnWrap_BackBone, SecondLineCountsFrom150Degrees) {
  Lines lines({-10.0, 145.0, 100.0, 60.0});
  lines.BackBone();
  EXPECT_NEAR(lines.unwrapped[1], 360.0 - 145.0, 1e-9);
  EXPECT_NEAR(lines.unwrapped[3], 360.0 - 60.0, 1e-9);
  Lines below({-10.0, 135.0, 100.0, 60.0});
  below.BackBone();
  EXPECT_NEAR(below.unwrapped[3], -60.0, 1e-9);
}

TEST(UnWrap_BackBone, DownwardStepLeavesTheCountAloneUntilTheSmoothingPassCarriesItAlong) {
  std::vector<double> phase(20, 175.0);
  phase[0] = 140.0;
  for (int i = 10; i < 20; ++i) phase[i] = -175.0;  // 350 degrees down
  std::vector<double> counted(20);                  // no count anywhere: minus the wrapped phase
  for (int i = 0; i < 20; ++i) counted[i] = -phase[i];
  AdjustCycles(20, counted.data(), phase.data());
  EXPECT_EQ(counted[10], 175.0);
  EXPECT_EQ(counted[19], 175.0);
  Lines lines(phase);
  lines.BackBone();
  EXPECT_NEAR(lines.unwrapped[9], -175.0, 1e-9);
  for (int i = 10; i < 20; ++i) EXPECT_NEAR(lines.unwrapped[i], 175.0 - 360.0, 1e-9) << i;
}

TEST(UnWrap_BackBone, SingleSpikeAcrossTheWrapShiftsNothingBehindIt) {
  std::vector<double> phase(20, -170.0);
  phase[0] = -100.0;
  phase[12] = 170.0;  // 340 degrees up, which counts, and down, which does not
  Lines lines(phase);
  lines.BackBone();
  EXPECT_NEAR(lines.unwrapped[12], 190.0, 1e-9);
  for (int i = 1; i < 20; ++i) {
    if (i == 12) continue;
    EXPECT_NEAR(lines.unwrapped[i], 170.0, 1e-9) << i;
  }
}

TEST(UnWrap_BackBone, ShortRecordsWork) {
  for (int n : {0, 1, 2, 3}) {
    Lines lines(Ramp(n, -40.0));
    lines.BackBone();
    for (int i = 0; i < n; ++i) EXPECT_NEAR(lines.unwrapped[i], 40.0 * i, 1e-9) << n;
  }
}

// --- AdjustCycles ---

/// A trend on which lines 4 and 5 are one cycle too high.
struct Runaway {
  std::vector<double> wrapped = {0, -50, -100, -130, -110, -100, 115, 60, 10, -40};
  std::vector<double> unwrapped = {0, 50, 100, 130, 500, 510, 245, 300, 350, 400};
  void Adjust() { AdjustCycles(10, unwrapped.data(), wrapped.data()); }
};

TEST(AdjustCycles, TakesBackAStretchAcrossATrueWrap) {
  Runaway r;
  r.Adjust();
  EXPECT_EQ(r.unwrapped, (std::vector<double>{0, 50, 100, 130, 140, 150, 245, 300, 350, 400}));
}

TEST(AdjustCycles, LongStepAfterMinus100StartsNoStretch) {
  Runaway r;
  r.wrapped[3] = -100;
  const std::vector<double> before = r.unwrapped;
  r.Adjust();
  EXPECT_EQ(r.unwrapped, before);
}

TEST(AdjustCycles, StretchAcrossARiseOf200DegreesStays) {
  Runaway r;
  r.wrapped[6] = 70;  // -130 to 70
  const std::vector<double> before = r.unwrapped;
  r.Adjust();
  EXPECT_EQ(r.unwrapped, before);
}

TEST(AdjustCycles, RiseOfExactly240DegreesStays) {
  Runaway r;
  r.wrapped[6] = 110;
  const std::vector<double> before = r.unwrapped;
  r.Adjust();
  EXPECT_EQ(r.unwrapped, before);
}

TEST(AdjustCycles, StretchOpenAtTheLastLineStays) {
  Runaway r;
  for (std::size_t i = 4; i < r.unwrapped.size(); ++i) r.unwrapped[i] = 500 + 10.0 * static_cast<double>(i);
  const std::vector<double> before = r.unwrapped;
  r.Adjust();
  EXPECT_EQ(r.unwrapped, before);
}

TEST(AdjustCycles, DownwardStretchIsMeasuredFromItsFirstLine) {
  Runaway r;
  r.wrapped[4] = -125;  // the stretch's own first line; the line before it would give a rise of 245 as well
  r.wrapped[3] = -179;
  r.unwrapped = {0, 50, 100, 130, -220, -210, 245, 300, 350, 400};
  r.wrapped[6] = 114;  // 239 degrees above line 4, 293 above line 3
  const std::vector<double> before = r.unwrapped;
  r.Adjust();
  EXPECT_EQ(r.unwrapped, before);
  r.wrapped[6] = 116;
  r.Adjust();
  EXPECT_EQ(r.unwrapped[4], 140);
  EXPECT_EQ(r.unwrapped[5], 150);
}

TEST(AdjustCycles, InfinitiesAndShortCurvesAreHarmless) {
  std::vector<double> wrapped(6, -130.0), unwrapped = {0, 0, INFINITY, -INFINITY, NAN, 5};
  AdjustCycles(6, unwrapped.data(), wrapped.data());
  EXPECT_EQ(unwrapped[5], 5.0);
  AdjustCycles(2, unwrapped.data(), wrapped.data());
  AdjustCycles(0, nullptr, nullptr);
}

// --- the two forms guided by a reference ---

TEST(UnWrap_Enhanced, TakesTheCyclesOfTheReference) {
  Lines lines({0, 0, 0, -30.0, 170.0, -160.0});
  std::vector<double> wrapped = {9, -12, -20, 0, 0, 0}, unwrapped(6, 7.0);
  const std::vector<double> flat(6, 0.0), ref = {0, 0, 0, 400, 560, 179};
  UnWrap_Enhanced(5, 1e9, -1e9, lines.re.data(), lines.im.data(), wrapped.data(), unwrapped.data(),
                  flat.data(), ref.data());
  EXPECT_EQ(unwrapped[0], 7.0);
  EXPECT_EQ(unwrapped[1], 12.0);
  EXPECT_EQ(unwrapped[2], 20.0);
  EXPECT_NEAR(unwrapped[3], 390.0, 1e-9);  // a step of 370 from line 2 that the reference confirms
  EXPECT_NEAR(unwrapped[4], 550.0, 1e-9);
  EXPECT_NEAR(unwrapped[5], 160.0 + 360.0 * 0, 1e-9);  // below 180: no cycle; 520 would be off the reference
}

TEST(UnWrap_Enhanced, RepairsAStepThatTheReferenceDoesNotConfirm) {
  Lines lines({0, 0, 0, 175.0, -175.0});
  std::vector<double> wrapped = {0, 0, 170.0, 0, 0}, unwrapped(5, 0.0);
  const std::vector<double> flat(5, 0.0), ref = {0, 0, 0, -100, -100};
  UnWrap_Enhanced(4, 0, 0, lines.re.data(), lines.im.data(), wrapped.data(), unwrapped.data(), flat.data(),
                  ref.data());
  EXPECT_NEAR(unwrapped[3], -175.0, 1e-9);
  EXPECT_NEAR(unwrapped[4], -185.0, 1e-9);  // 175 would be a step of 350
}

TEST(UnWrap_Enhanced2, TakesTheWholeCyclesOfBothReferencesAndStaysWith300DegreesOfTheSecond) {
  const std::vector<double> wrapped = {0, -20, -60, -100, 150, 100};
  const std::vector<double> a = {0, 0, 0, 300, 400, 0}, b = {0, 20, 60, 90, 210, 640};
  std::vector<double> unwrapped(7, 0.0);
  std::vector<double> bSpare = b;
  bSpare.push_back(0.0);
  UnWrap_Enhanced2(6, wrapped.data(), unwrapped.data(), a.data(), bSpare.data());
  EXPECT_EQ(unwrapped[1], 20.0);
  EXPECT_EQ(unwrapped[2], 60.0);
  EXPECT_EQ(unwrapped[3], 100.0);  // 460 at first: 400 above line 2, repaired
  EXPECT_EQ(unwrapped[4], 210.0);
  EXPECT_EQ(unwrapped[5], 620.0);  // 260 at first: no step, but 380 below the second reference
}

// --- masks as runs of lines ---

TEST(CycleMasks, RoundToTheNearestLineFromTheStartFrequencyAndStayInside) {
  MeasDB = MeasDatabase{};
  *MeasDB.maskingList.append() = {1, 0, 1, 10.24, 20.25, 3};
  *MeasDB.maskingList.append() = {1, 0, 1, -100.0, 2.0, 4};
  *MeasDB.maskingList.append() = {1, 0, 1, 30.0, 1e300, 5};
  *MeasDB.maskingList.append() = {1, 0, 1, 500.0, 600.0, 6};
  *MeasDB.maskingList.append() = {1, 0, 1, NAN, 3.0, 7};
  *MeasDB.maskingList.append() = {1, 0, 1, 20.0, 10.0, 8};
  const std::vector<CycleMask> masks = CycleMasksOf(1, 0, 1, 100, 2.0, 0.5);
  ASSERT_EQ(masks.size(), 4u);
  EXPECT_EQ(masks[0].lineInit, 16);
  EXPECT_EQ(masks[0].lineFinal, 37);
  EXPECT_EQ(masks[0].cycles, 3);
  EXPECT_EQ(masks[1].lineInit, 0);
  EXPECT_EQ(masks[1].lineFinal, 0);
  EXPECT_EQ(masks[2].lineInit, 56);
  EXPECT_EQ(masks[2].lineFinal, 99);
  EXPECT_EQ(masks[3].cycles, 7);
  EXPECT_TRUE(CycleMasksOf(1, 0, 1, 100, 0.0, 0.0).empty());
  EXPECT_TRUE(CycleMasksOf(1, 0, 1, 0, 0.0, 1.0).empty());
}

}  // namespace
}  // namespace sondera
