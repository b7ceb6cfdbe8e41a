#include "signal/line_masks.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

#include "plain_auto_masking.h"
#include "records/session.h"
#include "support/pair_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Groups with a flat ridge and the given extremes: row, amplitude, velocity.
struct ExtremeRow {
  double loc, amp, vel;
};
WaveGroups Groups(int nF, double ridge, const std::vector<ExtremeRow>& rows) {
  WaveGroups g;
  g.peakV.assign(static_cast<std::size_t>(nF), ridge);
  for (const ExtremeRow& r : rows) {
    const auto at = static_cast<std::size_t>(++g.extremes.count);
    g.extremes.loc[at] = r.loc;
    g.extremes.amp[at] = r.amp;
    g.extremes.vel[at] = r.vel;
  }
  return g;
}
/// Positions of ones.
std::vector<int> Ones(const std::vector<int>& mask) {
  std::vector<int> ones;
  for (std::size_t i = 0; i < mask.size(); ++i)
    if (mask[i] == 1) ones.push_back(static_cast<int>(i));
  return ones;
}
std::vector<int> Range(int from, int to) {
  std::vector<int> r(static_cast<std::size_t>(to - from + 1));
  std::iota(r.begin(), r.end(), from);
  return r;
}

// ---- MakeGridMask

TEST(MakeGridMask, HasOneEntryMoreThanRows) {
  EXPECT_EQ(MakeGridMask(Groups(20, 95, {}), 20, 75).size(), 21u);
  EXPECT_EQ(MakeGridMask(WaveGroups{}, 20, 75).size(), 21u);
  EXPECT_EQ(MakeGridMask(WaveGroups{}, 0, 75).size(), 1u);
}

TEST(MakeGridMask, BandOfAPeakFasterThanTheSiteIsMaskedFromValleyToValley) {
  const WaveGroups g =
      Groups(20, 95, {{2, 99, 100}, {5, -94, -1e-5}, {8, 99, -3000}, {12, -94, -1e-5}, {16, 98, 100}});
  EXPECT_EQ(Ones(MakeGridMask(g, 20, 75)), Range(5, 12));
}

TEST(MakeGridMask, BandWithoutAValleyReachesTheEndsOfTheMap) {
  EXPECT_EQ(Ones(MakeGridMask(Groups(20, 95, {{8, 99, -3000}}), 20, 75)), Range(1, 19));
}

TEST(MakeGridMask, LastExtremeIsNotSeenFromBelow) {
  // A valley at the end of the table does not bound the band of the peak before it.
  const WaveGroups g = Groups(20, 95, {{8, 99, -3000}, {12, -94, -1e-5}});
  EXPECT_EQ(Ones(MakeGridMask(g, 20, 75)), Range(1, 19));
}

TEST(MakeGridMask, BandIsMaskedWhereTheRidgeOfTheRowBelowReachesTheThreshold) {
  WaveGroups g =
      Groups(20, 95, {{2, 99, 100}, {5, -94, -1e-5}, {8, 99, -3000}, {12, -94, -1e-5}, {16, 98, 100}});
  g.peakV[6] = 70.0;  // row 6 is below the threshold: as row 6 for that reason, not as row 7 of the band
  EXPECT_THAT(Ones(MakeGridMask(g, 20, 75)), ElementsAre(5, 6, 8, 9, 10, 11, 12));
}

TEST(MakeGridMask, LowerThirdOfBothFlanksOfAValleyIsMasked) {
  WaveGroups g = Groups(20, 99.9, {{2, 98, 100}, {8, -92, 1e-5}, {14, 95, 100}, {17, 94, 100}});
  // Limits: 92 + 6 / 3 on the left, 92 + 3 / 3 on the right.
  g.peakV = {99, 99, 98, 95, 94.1, 93.9, 93, 92.5, 92, 92.9, 93.1, 93.5, 94, 94.5, 95, 95, 95, 94, 95, 95};
  EXPECT_THAT(Ones(MakeGridMask(g, 20, 75)), ElementsAre(6, 7, 8, 9, 10)) << "one row above the ridge";
}

TEST(MakeGridMask, AroundAValleyEverythingUpToNinetyIsMasked) {
  WaveGroups g = Groups(20, 99.9, {{2, 98, 100}, {8, -92, 1e-5}, {14, 95, 100}, {17, 94, 100}});
  g.peakV[3] = 90.0;
  g.peakV[10] = 85.0;
  g.peakV[18] = 85.0;  // not between the two peaks
  EXPECT_THAT(Ones(MakeGridMask(g, 20, 75)), ElementsAre(4, 11));
}

TEST(MakeGridMask, ValleyWithoutAPeakAboveTakesTheFlankOfTheValleyBefore) {
  // The search does not see the peak above the second valley; the valley ends where the first one ended.
  WaveGroups g = Groups(20, 99.9, {{2, 98, 100}, {5, -92, 1e-5}, {9, 98, 100}, {12, -80, 1e-5}});
  g.peakV[8] = 85.0;
  g.peakV[14] = 85.0;
  EXPECT_THAT(Ones(MakeGridMask(g, 20, 75)), ElementsAre(9)) << "row 14 is not reached";
}

TEST(MakeGridMask, FirstValleyWithoutAPeakAboveMasksNothing) {
  WaveGroups g = Groups(20, 99.9, {{5, -80, 1e-5}, {9, 98, 100}});
  g.peakV[5] = 80.0;
  EXPECT_THAT(Ones(MakeGridMask(g, 20, 75)), IsEmpty());
}

TEST(MakeGridMask, RejectedValleyIsPassedOver) {
  WaveGroups g = Groups(20, 99.9, {{2, 98, 100}, {8, -92, -1e-5}, {14, 95, 100}, {17, 94, 100}});
  g.peakV[10] = 85.0;
  EXPECT_THAT(Ones(MakeGridMask(g, 20, 75)), IsEmpty());
}

TEST(MakeGridMask, RowsAtTheThresholdOrBelowAreMasked) {
  WaveGroups g = Groups(20, 99.9, {});
  g.peakV[0] = 75.0;
  g.peakV[7] = 75.0;
  g.peakV[19] = 10.0;
  EXPECT_THAT(Ones(MakeGridMask(g, 20, 75)), ElementsAre(0, 7, 19));
}

TEST(MakeGridMask, EqualsThePlainStepsOnRandomRidges) {
  std::mt19937 random(41);
  std::uniform_real_distribution<double> part(0.0, 1.0);
  for (int k = 0; k < 3000; ++k) {
    const int nF = 2 + k % 49;
    WaveGroups g;
    plain::Extremes p;
    for (int f = 0; f < nF; ++f) g.peakV.push_back(75.0 + 25.0 * part(random));
    p.n = g.extremes.count = k % 21;
    p.loc = p.amp = p.curv = p.vel = std::vector<double>(21, 0.0);
    double row = 0.0;
    for (std::size_t at = 1; at <= static_cast<std::size_t>(p.n); ++at) {
      row += std::floor(1 + 4 * part(random));  // may run past the map
      const bool peak = part(random) < 0.5;
      p.loc[at] = row;
      p.amp[at] = (peak ? 1.0 : -1.0) * (75.0 + 25.0 * part(random));
      p.vel[at] = peak ? 100.0 * (part(random) - 0.5) : (part(random) < 0.1 ? -1e-5 : 1e-5);
      g.extremes.loc[at] = p.loc[at];
      g.extremes.amp[at] = p.amp[at];
      g.extremes.vel[at] = p.vel[at];
    }
    ASSERT_EQ(MakeGridMask(g, nF, 78.0), plain::GridMask(p, g.peakV, nF, 78.0)) << k;
  }
}

// ---- MakeLineMask

class LineMaskTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    hw.nLines = 100;
    hw.deltaF = 1.0;
    hw.freqSpan = 100.0;
    SetupPairMeasArrays(pair, 100);
    pair.key = 1;
    pair.refChan = 2;
    pair.dspChan = 3;
    std::fill(pair.hAmp.begin(), pair.hAmp.end(), 1.0);
    std::fill(pair.bbAmp.begin(), pair.bbAmp.end(), 1.0);
  }
  /// Grid of 11 rows, 5 Hz apart, so 0 to 50 Hz.
  std::vector<int> Lines(const std::vector<int>& rows) {
    std::vector<int> grid(12, 0);
    for (int r : rows) grid[static_cast<std::size_t>(r)] = 1;
    return Ones(MakeLineMask(grid, 11, 5.0, pair, hw));
  }
  static std::vector<int> With(std::vector<int> lines) {
    for (int i = 40; i <= 50; ++i) lines.push_back(i);  // the top fifth
    lines.push_back(99);                                // the last line
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    return lines;
  }
  HWSetup hw;
  PMeasInfo pair;
};

TEST_F(LineMaskTest, TopFifthOfTheMapAndTheLastLineAreAlwaysMasked) {
  EXPECT_EQ(Lines({}), With({}));
}

TEST_F(LineMaskTest, RunOfRowsMasksFromTheRowBeforeIt) {
  EXPECT_EQ(Lines({3, 4}), With(Range(10, 20)));
  EXPECT_EQ(Lines({0, 1}), With(Range(0, 5))) << "a run from the start";
  EXPECT_EQ(Lines({9, 10}), With(Range(40, 50))) << "a run to the end";
}

TEST_F(LineMaskTest, SingleLastRowMasksNothing) {
  hw.deltaF = 0.25;  // 100 lines end at 25 Hz, so the top fifth is out of the way
  EXPECT_THAT(
      Ones(MakeLineMask({0, 0, 0, 0, 1, 0}, 5, 6.0, pair, hw)),
      ElementsAre(76, 77, 78, 79, 80, 81, 82, 83, 84, 85, 86, 87, 88, 89, 90, 91, 92, 93, 94, 95, 96, 99));
}

TEST_F(LineMaskTest, LinesWithoutTransferFunctionAreMasked) {
  pair.hAmp[0] = 0.0;
  pair.hAmp[17] = 0.0;
  pair.hAmp[60] = -1.0;
  EXPECT_EQ(Lines({}), With({0, 17, 60}));
}

TEST_F(LineMaskTest, LineUnderAQuarterOfTheLargestBackboneAmplitudeIsMaskedWhateverTheMapSays) {
  pair.bbAmp[70] = 4.0;
  pair.bbAmp[80] = 0.999;
  std::fill(pair.bbAmp.begin(), pair.bbAmp.begin() + 5, 0.5);
  EXPECT_EQ(Lines({}), With({1, 2, 3, 4, 80})) << "line 0 is spared";
  pair.bbAmp[99] = 1000.0;
  EXPECT_EQ(Lines({}).size(), 99u);
}

TEST_F(LineMaskTest, EntriesBehindTheLinesDoNotCount) {
  pair.bbAmp[100] = 1e9;  // mirror half
  pair.hAmp[110] = 0.0;
  EXPECT_EQ(Lines({}), With({}));
}

TEST_F(LineMaskTest, RangesOutsideTheSpectrumAreCut) {
  EXPECT_EQ(Ones(MakeLineMask({1, 1, 1}, 2, 1e300, pair, hw)), Range(0, 99));
  EXPECT_EQ(Ones(MakeLineMask({1, 1, 1}, 2, -1e300, pair, hw)), std::vector<int>{99});
  hw.deltaF = 0.0;
  EXPECT_THAT(Ones(MakeLineMask({0, 0, 0}, 2, 1.0, pair, hw)), ElementsAre(99));
  hw.nLines = 0;
  EXPECT_TRUE(MakeLineMask({0, 0, 0}, 2, 1.0, pair, hw).empty());
}

TEST_F(LineMaskTest, EqualsThePlainStepsOnRandomData) {
  std::mt19937 random(43);
  std::uniform_real_distribution<double> part(0.0, 1.0);
  for (int k = 0; k < 2000; ++k) {
    const int nF = 2 + k % 49, nL = 2 + k % 99;
    hw.nLines = nL;
    hw.deltaF = 0.3 + part(random);
    std::vector<int> grid(static_cast<std::size_t>(nF + 1));
    for (int& g : grid) g = part(random) < 0.3;
    for (std::size_t i = 0; i < 200 && i < pair.hAmp.size(); ++i) {
      pair.hAmp[i] = part(random) < 0.05 ? 0.0 : 1.0;
      pair.bbAmp[i] = std::pow(part(random), 0.3);
    }
    const double step = 4.0 * part(random);
    const std::vector<int> lines = MakeLineMask(grid, nF, step, pair, hw);
    ASSERT_EQ(lines, plain::LineMask(grid, nF, step, hw.deltaF, pair.hAmp, pair.bbAmp, nL)) << k;

    hw.freqSpan = nL * hw.deltaF;
    MeasDB.maskingList.clear();
    const auto masks = plain::Masks(lines, hw.deltaF, BandEnd(hw));
    ASSERT_EQ(AppendMasks(lines, pair, hw), static_cast<int>(masks.size()));
    int at = 0;
    for (const MaskingInfo& mask : MeasDB.maskingList) {
      const auto& p = masks[static_cast<std::size_t>(at++)];
      EXPECT_EQ(mask.freqInit, p.freqInit);
      EXPECT_EQ(mask.freqFinal, p.freqFinal);
      EXPECT_EQ(mask.lineInit, p.lineInit);
      EXPECT_EQ(mask.lineFinal, p.lineFinal);
    }
  }
}

// ---- AppendMasks

TEST_F(LineMaskTest, MaskCoversItsRunAndTheLineBefore) {
  std::vector<int> lines(100, 0);
  for (int i = 20; i <= 30; ++i) lines[static_cast<std::size_t>(i)] = 1;
  hw.deltaF = 0.5;
  EXPECT_EQ(AppendMasks(lines, pair, hw), 1);
  const MaskingInfo& mask = *MeasDB.maskingList.at(1);
  EXPECT_EQ(mask.key, 1);
  EXPECT_EQ(mask.refChan, 2);
  EXPECT_EQ(mask.dspChan, 3);
  EXPECT_EQ(mask.freqInit, 9.5);
  EXPECT_EQ(mask.freqFinal, 15.0);
  EXPECT_EQ(mask.jumpNo, 0);
  EXPECT_EQ(mask.lineInit, 19);
  EXPECT_EQ(mask.lineFinal, 30);
}

TEST_F(LineMaskTest, RunsAtBothEnds) {
  std::vector<int> lines(100, 0);
  lines[0] = lines[1] = lines[97] = lines[98] = lines[99] = 1;
  EXPECT_EQ(AppendMasks(lines, pair, hw), 2);
  EXPECT_EQ(MeasDB.maskingList.at(1)->freqInit, 0.0);
  EXPECT_EQ(MeasDB.maskingList.at(1)->freqFinal, 1.0);
  EXPECT_EQ(MeasDB.maskingList.at(2)->freqInit, 96.0);
  EXPECT_EQ(MeasDB.maskingList.at(2)->freqFinal, 99.0);
}

TEST_F(LineMaskTest, RunThatIsJustTheLastLineMakesNoMask) {
  std::vector<int> lines(100, 0);
  lines[99] = 1;
  EXPECT_EQ(AppendMasks(lines, pair, hw), 0);
}

TEST_F(LineMaskTest, UpperFrequencyOfAMaskNeverExceedsTheBandEnd) {
  std::vector<int> lines(100, 0);
  for (int i = 50; i <= 80; ++i) lines[static_cast<std::size_t>(i)] = 1;
  for (int i = 90; i <= 95; ++i) lines[static_cast<std::size_t>(i)] = 1;
  hw.freqSpan = -1.0;  // imported spectra: the band ends where they end
  hw.stopFreq = 60.0;
  EXPECT_EQ(AppendMasks(lines, pair, hw), 1) << "nothing of the second run lies within the band";
  EXPECT_EQ(MeasDB.maskingList.at(1)->freqFinal, 60.0);
  EXPECT_EQ(MeasDB.maskingList.at(1)->lineFinal, 80) << "of the run itself";
}

}  // namespace
}  // namespace sondera::testing
