// Tests of the figures of a pair's curve.
#include "signal/pair_figures.h"

#include <cmath>

#include "support/session_fixture.h"

namespace sondera {
namespace {

class PairFiguresTest : public testing::SessionTest {
 protected:
  static constexpr int kLines = 8;

  testing::TestMeasurement Site(const std::string& id, const std::vector<double>& places, double unit = 1.0) {
    testing::MeasurementPlan plan;
    plan.measID = id;
    plan.nChannels = static_cast<int>(places.size());
    plan.nLines = kLines;
    plan.deltaT = 1.0 / 32.0;  // lines 2 Hz apart
    plan.lengthUnit = unit;
    const testing::TestMeasurement m = testing::AddMeasurement(plan);
    m.setup->recLoc = places;
    return m;
  }
  /// Included pair of channels 0 and 1 with a curve.
  static PMeasInfo& Pair(const testing::TestMeasurement& m, const std::vector<double>& wlen,
                         const std::vector<double>& vel) {
    PMeasInfo& pair = *MeasDB.pMeasList.append();
    SetupPairMeasArrays(pair, static_cast<int>(std::max<std::size_t>(wlen.size(), kLines)));
    pair.key = m.key;
    pair.dspChan = 1;
    pair.included = 1;
    pair.nDispPoints = static_cast<int>(wlen.size());
    for (std::size_t i = 0; i < wlen.size(); ++i) {
      pair.dispWlen[i] = wlen[i];
      pair.dispVel[i] = vel[i];
      pair.dispFreq[i] = vel[i] / wlen[i];
    }
    return pair;
  }
  /// Curve of one velocity at frequencies 2, 4, 6, ... Hz.
  static PMeasInfo& PairOnLines(const testing::TestMeasurement& m, int lines) {
    std::vector<double> wlen, vel(static_cast<std::size_t>(lines), 120.0);
    for (int i = 1; i <= lines; ++i) wlen.push_back(60.0 / i);
    return Pair(m, wlen, vel);
  }
  /// Averages with these coherences on lines 1, 2, 3, ...
  static void SetCoherence(const testing::TestMeasurement& m, const std::vector<double>& values) {
    const std::size_t row = 2 * kLines;
    for (std::size_t i = 0; i < values.size(); ++i) {
      m.raw->powerSpec[i + 1] = m.raw->crossSpecRe[i + 1] = 4.0;
      m.raw->powerSpec[row + i + 1] = 9.0;
      m.raw->crossSpecRe[row + i + 1] = 6.0 * std::sqrt(values[i]);
    }
  }
  static PairFigures Only() {
    const std::vector<PairFigures> all = FiguresOfIncludedPairs();
    EXPECT_EQ(all.size(), 1u);
    return all.empty() ? PairFigures{} : all.front();
  }
};

TEST_F(PairFiguresTest, BandReachAndDistances) {
  Pair(Site("shot", {8.0, 20.0}), {60.0, 20.0, 10.0}, {240.0, 200.0, 150.0});
  const PairFigures f = Only();
  EXPECT_EQ(f.label, "shot[1:2]");
  EXPECT_EQ(f.points, 3);
  EXPECT_EQ(f.freqFrom, 4.0);
  EXPECT_EQ(f.freqTo, 15.0);
  EXPECT_EQ(f.longest, 60.0);
  EXPECT_EQ(f.spacing, 12.0);
  EXPECT_EQ(f.srcToR1, 8.0);
}

TEST_F(PairFiguresTest, WavelengthsAreFarBeyondEitherDistance) {
  // Spacing 12: a note beyond 24, far beyond 36; source to first receiver 8: far beyond 24.
  Pair(Site("shot", {8.0, 20.0}), {36.5, 35.0, 25.0, 24.0, 23.0}, {200.0, 200.0, 200.0, 200.0, 200.0});
  EXPECT_EQ(Only().noted, 3);
  EXPECT_EQ(Only().far, 3);
  MeasDB.measSetupList.at(1)->recLoc = {-30.0, -42.0};
  EXPECT_EQ(Only().noted, 3);
  EXPECT_EQ(Only().far, 1) << "three spacings are 36";
  MeasDB.measSetupList.at(1)->recLoc = {-20.0, -8.0};
  EXPECT_EQ(Only().far, 3) << "the nearer receiver counts, whichever is the reference";
}

TEST_F(PairFiguresTest, PairsThatDoNotTakePartHaveNoFigures) {
  Pair(Site("shot", {8.0, 20.0}), {20.0}, {200.0}).included = 0;
  Pair(Site("shot", {8.0, 20.0}), {}, {});
  Pair(Site("shot", {8.0, 20.0}), {20.0}, {200.0}).key = 99;
  EXPECT_TRUE(FiguresOfIncludedPairs().empty());
}

TEST_F(PairFiguresTest, WindowShareIsThatOfTheCurveInUse) {
  PMeasInfo& pair = Pair(Site("shot", {8.0, 20.0}), {20.0}, {200.0});
  for (std::size_t i = 0; i < 2 * kLines; ++i) pair.irRe[i] = 2.0;
  pair.enIrRe[3] = 2.0;
  pair.bbIrRe[3] = pair.bbIrRe[4] = 2.0;
  pair.phaseOption = 1;
  EXPECT_DOUBLE_EQ(Only().windowShare, 1.0 / 16.0);
  pair.phaseOption = 2;
  EXPECT_DOUBLE_EQ(Only().windowShare, 2.0 / 16.0);
  pair.phaseOption = 0;
  EXPECT_EQ(Only().windowShare, -1.0) << "no window in use";
  pair.phaseOption = 1;
  std::fill(pair.irRe.begin(), pair.irRe.end(), 0.0);
  EXPECT_EQ(Only().windowShare, -1.0) << "no response";
}

TEST_F(PairFiguresTest, CoherenceCountsOnTheLinesOfTheCurveOnly) {
  const testing::TestMeasurement m = Site("shot", {8.0, 20.0});
  PairOnLines(m, 4);
  SetCoherence(m, {0.5, 0.79, 0.81, 0.95, 0.1, 0.1, 0.1});
  EXPECT_DOUBLE_EQ(Only().lowCoherence, 0.5);
}

TEST_F(PairFiguresTest, CoherenceOfASingleBlowOrOfATransferFunctionIsUnknown) {
  const testing::TestMeasurement m = Site("shot", {8.0, 20.0});
  PairOnLines(m, 4);
  EXPECT_EQ(Only().lowCoherence, -1.0) << "no auto spectra";
  SetCoherence(m, {1.0, 1.0, 1.0, 1.0});
  EXPECT_EQ(Only().lowCoherence, -1.0) << "1 by definition";
  SetCoherence(m, {1.0, 1.0, 0.999, 1.0});
  EXPECT_EQ(Only().lowCoherence, 0.0);
}

}  // namespace
}  // namespace sondera
