#include "signal/wave_groups.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "panels/sasw_pair.h"
#include "plain_auto_masking.h"
#include "records/session.h"
#include "signal/gabor.h"
#include "support/odd_numbers.h"
#include "support/pair_fixture.h"

namespace sondera::testing {
namespace {

/// A map whose ridge is given, at given columns; the floor is -100 dB, so a value of v is scaled to 100 + v
/// as long as one value is 0.
struct MapOfRidge {
  MapOfRidge(int rows, int columns)
      : nF(rows), nT(columns), cells(static_cast<std::size_t>(rows * columns), -100.0) {}
  void Put(int row, int column, double value) { cells[static_cast<std::size_t>(row * nT + column)] = value; }
  int nF, nT;
  std::vector<double> cells;
};

/// A smooth bump of height `top` about row `at`, over a ridge of 0 at column c.
double Bump(int row, double at, double top, double width) {
  const double u = (row - at) / width;
  return top * std::exp(-u * u);
}

class WaveGroupTest : public SessionTest {
 protected:
  /// Map of two bumps: rows 12 and 30 at -1 and 0 dB over a ridge of -40 dB, at columns 10 and 20.
  static MapOfRidge TwoGroups() {
    MapOfRidge map(50, 50);
    for (int f = 0; f < 50; ++f)
      map.Put(f, f < 21 ? 10 : 20, -40.0 + Bump(f, 12, 39.0, 5) + Bump(f, 30, 40.0, 5));
    return map;
  }
  static WaveGroups Identify(const MapOfRidge& map, double threshold, double spacing = 10.0,
                             double tFinal = 0.49) {
    WaveGroups groups;
    IdentifyWaveGroup(map.nF, map.nT, 0.0, tFinal, map.cells.data(), threshold, spacing, groups);
    return groups;
  }
};

// ---- IdentifyWaveGroup

TEST_F(WaveGroupTest, FindsBothGroupsAndTheValleyBetweenThem) {
  const WaveGroups groups = Identify(TwoGroups(), 10.0);
  EXPECT_EQ(groups.nPeaks, 2);
  EXPECT_EQ(groups.nValleys, 1);
  const ExtremeTable& e = groups.extremes;
  ASSERT_EQ(e.count, 3);
  EXPECT_EQ(e.loc[1], 12.0);
  EXPECT_NEAR(e.amp[1], 99.0, 1e-3);
  EXPECT_LT(e.curv[1], 0.0);
  EXPECT_NEAR(e.vel[1], 10.0 / (10 * 0.01), 1e-9);
  EXPECT_EQ(e.loc[2], 21.0);
  EXPECT_NEAR(e.amp[2], -(60.0 + Bump(21, 12, 39.0, 5) + Bump(21, 30, 40.0, 5)), 1e-3);
  EXPECT_EQ(e.vel[2], 1e-5);
  EXPECT_EQ(e.loc[3], 30.0);
  EXPECT_EQ(e.amp[3], 100.0);
  EXPECT_NEAR(e.vel[3], 10.0 / (20 * 0.01), 1e-9);
}

TEST_F(WaveGroupTest, MapIsScaledAndTurned) {
  MapOfRidge map(3, 4);
  map.Put(1, 2, 0.0);
  map.Put(2, 0, -50.0);
  const WaveGroups groups = Identify(map, 20.0);
  ASSERT_EQ(groups.Z.size(), 12u);
  EXPECT_EQ(groups.Z[2 * 3 + 1], 100.0);
  EXPECT_EQ(groups.Z[0 * 3 + 2], 50.0);
  EXPECT_EQ(groups.Z[3 * 3 + 0], 20.0);
  EXPECT_THAT(groups.peakV, ::testing::ElementsAre(20.0, 100.0, 50.0));
}

TEST_F(WaveGroupTest, RowWithAFlatLineHasItsRidgeBehindTheLastColumn) {
  MapOfRidge map(3, 4);
  map.Put(1, 2, 0.0);
  EXPECT_THAT(Identify(map, 20.0).peakT, ::testing::ElementsAre(4.0, 2.0, 4.0));
}

TEST_F(WaveGroupTest, GroupsFasterOrSlowerThanTheSiteAllowsAreRejected) {
  const double spacing = 10.0, first = 10.0 * 0.01, second = 20.0 * 0.01;  // delays of the two groups
  session.smV = {0, spacing / first, 0, 0, spacing / second};
  ExtremeTable e = Identify(TwoGroups(), 10.0).extremes;
  EXPECT_EQ(e.vel[1], -100.0) << "as fast as the fastest";
  EXPECT_EQ(e.vel[3], 50.0) << "as slow as the slowest passes";
  session.smV = {0, 100.1, 0, 0, 50.1};
  e = Identify(TwoGroups(), 10.0).extremes;
  EXPECT_EQ(e.vel[1], 100.0);
  EXPECT_EQ(e.vel[3], -50.0);
}

TEST_F(WaveGroupTest, PeakAtColumnZeroIsInfinitelyFastAndRejected) {
  for (double spacing : {10.0, 0.0}) {
    MapOfRidge map(50, 50);
    for (int f = 0; f < 50; ++f) map.Put(f, 0, -40.0 + Bump(f, 25, 40.0, 5));
    const ExtremeTable e = Identify(map, 10.0, spacing).extremes;
    ASSERT_GE(e.count, 1);
    EXPECT_EQ(e.vel[1], -std::numeric_limits<double>::infinity());
  }
}

TEST_F(WaveGroupTest, TakesTheTenHighestPeaksAndTheTenDeepestValleys) {
  MapOfRidge map(50, 50);
  for (int f = 0; f < 50; ++f) {
    const bool peak = f % 4 == 2;
    map.Put(f, 10, peak ? -0.5 * (f % 9) : (f % 4 == 0 ? -60.0 + f : -20.0));
  }
  const WaveGroups groups = Identify(map, 0.0);
  EXPECT_EQ(groups.nPeaks, 10);
  EXPECT_EQ(groups.nValleys, 10);
  EXPECT_EQ(groups.extremes.count, 20);
  for (int e = 2; e <= 20; ++e) EXPECT_LE(groups.extremes.Loc(e - 1), groups.extremes.Loc(e));
}

TEST_F(WaveGroupTest, ValleyMustBeFiveBelowAHundred) {
  for (double depth : {4.0, 6.0}) {
    MapOfRidge map(50, 50);
    for (int f = 0; f < 50; ++f) map.Put(f, 10, f >= 24 && f <= 26 ? -depth : 0.0);
    EXPECT_EQ(Identify(map, 10.0).nValleys, depth > 5.0 ? 1 : 0) << depth;
  }
}

TEST_F(WaveGroupTest, RowsAreReadAsLongAsTheColumnsTheyAreSaidToHave) {
  // A stored map has rows of 50 columns; with a row length of 25, its second half row counts as a row.
  MapOfRidge map(50, 50);
  map.Put(0, 30, 0.0);
  WaveGroups groups;
  IdentifyWaveGroup(50, 25, 0.0, 0.24, map.cells.data(), 10.0, 10.0, groups);
  EXPECT_EQ(groups.peakV[0], 10.0);
  EXPECT_EQ(groups.peakV[1], 100.0);
  EXPECT_EQ(groups.peakT[1], 5.0);
}

TEST_F(WaveGroupTest, SizesOutsideAMapFindNothing) {
  const std::vector<double> cells(2500, 0.0);
  for (const auto& [nF, nT] : {std::pair{0, 50}, {50, 0}, {-1, -1}, {51, 50}, {50, 51}}) {
    WaveGroups groups;
    groups.nPeaks = 3;
    groups.extremes.count = 7;
    IdentifyWaveGroup(nF, nT, 0.0, 0.1, cells.data(), 75.0, 10.0, groups);
    EXPECT_EQ(groups.nPeaks, 0);
    EXPECT_EQ(groups.extremes.count, 0);
    EXPECT_TRUE(groups.peakV.empty());
  }
}

TEST_F(WaveGroupTest, EqualsThePlainStepsOnRandomMaps) {
  std::mt19937 random(17);
  std::uniform_real_distribution<double> part(0.0, 1.0);
  int extremes = 0;
  for (int k = 0; k < 400; ++k) {
    const int nF = 6 + k % 45, nT = 2 + k % 49;
    std::vector<double> cells(2500);
    double level = -40.0;
    for (double& v : cells) {
      level += 6.0 * (part(random) - 0.5);
      v = k % 3 ? level : -90.0 * part(random);
      if (k % 5 == 0 && part(random) < 0.1) v = kNoEnergy;
      if (k % 11 == 0 && part(random) < 0.05) v = 0.0;
    }
    const double threshold = k % 4 ? 80.0 * part(random) : 75.0;
    const double spacing = 50.0 * part(random), tFinal = 0.05 + part(random);
    WaveGroups groups;
    IdentifyWaveGroup(nF, nT, 0.0, tFinal, cells.data(), threshold, spacing, groups);
    const plain::Ridge plain = plain::WaveGroup(nF, nT, 0.0, tFinal, cells.data(), threshold, spacing,
                                                session.smV[1], session.smV[4]);
    ASSERT_EQ(groups.Z, plain.Z) << k;
    EXPECT_EQ(groups.peakV, plain.peakV);
    EXPECT_EQ(groups.peakT, plain.peakT);
    ASSERT_EQ(groups.extremes.count, plain.extremes.n);
    EXPECT_EQ(groups.nPeaks + groups.nValleys, plain.extremes.n);
    for (int e = 1; e <= plain.extremes.n; ++e) {
      EXPECT_EQ(groups.extremes.Loc(e), plain.extremes.loc[e]);
      EXPECT_EQ(groups.extremes.Amp(e), plain.extremes.amp[e]);
      EXPECT_EQ(groups.extremes.curv[static_cast<std::size_t>(e)], plain.extremes.curv[e]);
      if (std::fabs(plain.extremes.vel[e]) < 1e300)
        EXPECT_EQ(groups.extremes.Vel(e), plain.extremes.vel[e]);
      else
        EXPECT_EQ(groups.extremes.Vel(e), -std::numeric_limits<double>::infinity());
    }
    extremes += plain.extremes.n;
  }
  EXPECT_GT(extremes, 2000);
}

class WaveGroupOfAPair : public PairTest {};

TEST_F(WaveGroupOfAPair, WithoutAMapTheOneOfThePairOnDisplayIsMade) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  pair.phaseOption = 1;
  WaveGroups groups;
  IdentifyWaveGroup(50, 50, 0.0, 0.2046, Panel::SASW, 75.0, 10.0, groups);
  ASSERT_TRUE(pair.gabor);
  EXPECT_EQ(groups.peakV.size(), 50u);
  EXPECT_GT(*std::max_element(groups.peakV.begin(), groups.peakV.end()), 99.999);
  MeasDB.pMeasList.clear();
  IdentifyWaveGroup(50, 50, 0.0, 0.2046, Panel::SASW, 75.0, 10.0, groups);
  EXPECT_TRUE(groups.peakV.empty());
}

TEST_F(WaveGroupOfAPair, TwoGroupRecordGivesTwoPeaksWithTheirVelocities) {
  // Bands about 100 and 300 Hz, 60 dB above what lies between them, arriving after 0.05 and 0.08 s.
  PMeasInfo& pair = MakePair([](double f) {
    return (0.001 + Bump(static_cast<int>(f), 100, 1.0, 40)) * Delay(f, 0.05) +
           Bump(static_cast<int>(f), 300, 1.0, 40) * Delay(f, 0.08);
  });
  pair.phaseOption = 0;
  pair.finalTime = 0.147;
  pair.finalFreq = 490.0;
  CalcGabor(Panel::SASW);
  WaveGroups groups;
  IdentifyWaveGroup(50, 50, 0.0, 0.147, pair.gaborMap(0).data(), 75.0, 10.0, groups);
  EXPECT_EQ(groups.nPeaks, 2);
  ASSERT_EQ(groups.extremes.count, 2 + groups.nValleys);
  const ExtremeTable& e = groups.extremes;
  const int first = e.PeakFrom(1, e.count), second = e.PeakFrom(first + 1, e.count);
  ASSERT_GT(second, 0);
  EXPECT_NEAR(e.Loc(first), 10.0, 1.0);
  EXPECT_NEAR(e.Loc(second), 30.0, 1.0);
  EXPECT_NEAR(e.Vel(first), 10.0 / 0.05, 10.0);
  EXPECT_NEAR(e.Vel(second), 10.0 / 0.08, 5.0);
}

// ---- IdentifyBGNoise

class BackgroundNoiseTest : public PairTest {
 protected:
  NoiseTable Found(const PMeasInfo& pair) {
    NoiseTable noise;
    IdentifyBGNoise(*m.hw, *m.setup, pair, noise);
    return noise;
  }
};

TEST_F(BackgroundNoiseTest, LateSineIsFoundAtItsLine) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  for (int i = 0; i < 1024; ++i) {
    // Window of 10 m: open to 10 / 35 s, closed from 10 / 30 s on.
    pair.irRe[static_cast<std::size_t>(i)] =
        i >= 400 && i < 912 ? std::sin(2 * M_PI * 100 * i / 1024.0) : 0.0;
  }
  const NoiseTable noise = Found(pair);
  ASSERT_GE(noise.count, 1);
  EXPECT_EQ(noise.loc[static_cast<std::size_t>(noise.count)], 100.0) << "the strongest stands last";
  EXPECT_NEAR(noise.amp[static_cast<std::size_t>(noise.count)], 256.0, 50.0);
}

TEST_F(BackgroundNoiseTest, NothingRemovedGivesAnEmptyTable) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  for (std::size_t i = 0; i < 1024; ++i) pair.irRe[i] = i < 250 ? 1.0 : 0.0;
  EXPECT_EQ(Found(pair).count, 0);
}

TEST_F(BackgroundNoiseTest, EarlyArrivalsAreNotRemoved) {
  // The band-pass window would take out what comes before 10 / 2500 s; this one does not.
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  std::fill(pair.irRe.begin(), pair.irRe.end(), 0.0);
  pair.irRe[1] = 1.0;
  EXPECT_EQ(Found(pair).count, 0);
}

TEST_F(BackgroundNoiseTest, EqualsThePlainStepsOnRandomResponses) {
  std::mt19937 random(23);
  std::normal_distribution<double> normal;
  for (int k = 0; k < 60; ++k) {
    const int lines = k % 2 ? 512 : 300;  // 512 lines after padding, of which 300 count
    SetUp();
    PMeasInfo& pair =
        MakePair([](double f) { return Delay(f, 0.03); }, {.nLines = lines, .spacing = 2.0 + 0.4 * k});
    double level = 0.0;
    for (double& v : pair.irRe) v = level = (k % 3 ? 0.97 * level : 0.0) + normal(random);
    const double spacing = m.setup->recLoc[1] - m.setup->recLoc[0];
    const auto sample = [&](double v) {
      const double t = spacing / v, p = std::pow(10.0, 3 - std::floor(std::log10(t)));
      return static_cast<int>(std::trunc(0.5 + t * p) / p / m.hw->deltaT + 0.5);
    };
    const plain::Noise plain = plain::BackgroundNoise(pair.irRe, sample(35), sample(30), lines);
    const NoiseTable noise = Found(pair);
    ASSERT_EQ(noise.count, plain.n) << k;
    for (int j = 1; j <= plain.n; ++j) {
      const auto at = static_cast<std::size_t>(j);
      EXPECT_EQ(noise.loc[at], plain.loc[at]) << k << " " << j;
      EXPECT_NEAR(noise.amp[at], plain.amp[at], 1e-9 * plain.amp.back());
      EXPECT_NEAR(noise.curv[at], plain.curv[at], 1e-9 * plain.amp.back());
    }
  }
}

TEST_F(BackgroundNoiseTest, PeakBeyondTheLastLineLeavesItsPlaceInTheCount) {
  // 300 lines live in 512: lines 300 to 511 of the removed energy belong to no frequency line.
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); }, {.nLines = 300});
  for (int i = 0; i < 1024; ++i)
    pair.irRe[static_cast<std::size_t>(i)] =
        std::sin(2 * M_PI * 100 * i / 1024.0) + std::sin(2 * M_PI * 400 * i / 1024.0);
  for (std::size_t i = 0; i < 400; ++i) pair.irRe[i] = 0.0;
  const NoiseTable noise = Found(pair);
  ASSERT_GE(noise.count, 2);
  EXPECT_EQ(noise.loc[1], 0.0) << "entries of zero come first";
  EXPECT_EQ(noise.amp[1], 0.0);
  EXPECT_EQ(noise.loc[static_cast<std::size_t>(noise.count)], 100.0);
}

TEST_F(BackgroundNoiseTest, HostileResponsesEndQuietly) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
  std::fill(pair.irRe.begin(), pair.irRe.end(), kNaN);
  EXPECT_EQ(Found(pair).count, 0);
  pair.irfMode = 1;
  std::fill(pair.irRe.begin(), pair.irRe.end(), 1.0);
  m.setup->recLoc.clear();
  EXPECT_EQ(Found(pair).count, 0) << "no locations: a window that lets all pass";
  m.hw->nLines = 40000;
  EXPECT_EQ(Found(pair).count, 0);
}

// ---- RejectPeaksInNoise

/// Extremes at rows, positive heights peaks, negative ones valleys.
ExtremeTable Extremes(const std::vector<std::pair<double, double>>& rows) {
  ExtremeTable e;
  for (const auto& [loc, amp] : rows) {
    const auto at = static_cast<std::size_t>(++e.count);
    e.loc[at] = loc;
    e.amp[at] = amp;
    e.vel[at] = amp > 0 ? 100.0 : 1e-5;
  }
  return e;
}
NoiseTable NoiseAt(const std::vector<double>& lines) {
  NoiseTable noise;
  for (double line : lines) noise.loc[static_cast<std::size_t>(++noise.count)] = line;
  return noise;
}
std::vector<int> Rejected(const ExtremeTable& e) {
  std::vector<int> rejected;
  for (int k = 1; k <= e.count; ++k)
    if (e.Vel(k) < 0) rejected.push_back(k);
  return rejected;
}
// Rows of 10 Hz, lines of 1 Hz: line 100 is row 10.
std::vector<int> RejectedBy(const std::vector<double>& lines, ExtremeTable e, double finalFreq = 500.0) {
  RejectPeaksInNoise(NoiseAt(lines), 1.0, 10.0, finalFreq, e);
  return Rejected(e);
}

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(RejectPeaksInNoise, PeakIsRejectedByNoiseOnEitherFlank) {
  const ExtremeTable e = Extremes({{5, -80}, {10, 95}, {15, -80}, {20, 97}, {25, -80}});
  EXPECT_THAT(RejectedBy({80}, e), ElementsAre(2)) << "between the valley before and the peak";
  EXPECT_THAT(RejectedBy({120}, e), ElementsAre(2)) << "between the peak and the valley behind";
  EXPECT_THAT(RejectedBy({180}, e), ElementsAre(4));
  EXPECT_THAT(RejectedBy({240}, e), ElementsAre(4));
  EXPECT_THAT(RejectedBy({80, 180}, e), ElementsAre(2, 4));
  EXPECT_THAT(RejectedBy({300}, e), IsEmpty()) << "beyond the last extreme, which is a valley";
  EXPECT_THAT(RejectedBy({}, e), IsEmpty());
}

TEST(RejectPeaksInNoise, NoiseInFrontOfAFirstValleyRejectsThatValley) {
  const ExtremeTable e = Extremes({{5, -80}, {10, 95}, {15, -80}});
  EXPECT_THAT(RejectedBy({20}, e), ElementsAre(1));
}

TEST(RejectPeaksInNoise, NoiseInFrontOfAFirstPeakRejectsIt) {
  const ExtremeTable e = Extremes({{10, 95}, {15, -80}, {20, 90}, {25, -80}});
  EXPECT_THAT(RejectedBy({20}, e), ElementsAre(1));
  EXPECT_THAT(RejectedBy({0}, e), ElementsAre(1)) << "an entry of zero as well";
}

TEST(RejectPeaksInNoise, NoiseAboveALastPeakRejectsItAndEndsTheSearch) {
  const ExtremeTable e = Extremes({{10, 95}, {15, -80}, {20, 90}});
  EXPECT_THAT(RejectedBy({300}, e), ElementsAre(3));
  EXPECT_THAT(RejectedBy({300, 50}, e), ElementsAre(3)) << "the second entry is not looked at";
  EXPECT_THAT(RejectedBy({50, 300}, e), ElementsAre(1, 3));
  EXPECT_THAT(RejectedBy({300}, e, 290.0), IsEmpty()) << "beyond the map";
}

TEST(RejectPeaksInNoise, RejectedPeakStaysRejected) {
  const ExtremeTable e = Extremes({{5, -80}, {10, 95}, {15, -80}});
  EXPECT_THAT(RejectedBy({80, 90, 100, 120}, e), ElementsAre(2));
  ExtremeTable none;
  RejectPeaksInNoise(NoiseAt({1, 2}), 1.0, 10.0, 500.0, none);
  EXPECT_EQ(none.count, 0);
}

TEST(RejectPeaksInNoise, EqualsThePlainStepsOnRandomTables) {
  std::mt19937 random(31);
  std::uniform_real_distribution<double> part(0.0, 1.0);
  for (int k = 0; k < 3000; ++k) {
    ExtremeTable e;
    plain::Extremes p;
    p.n = e.count = k % 21;
    p.loc = p.amp = p.curv = p.vel = std::vector<double>(21, 0.0);
    double row = 0.0;
    for (std::size_t at = 1; at <= static_cast<std::size_t>(p.n); ++at) {
      row += std::floor(1 + 3 * part(random));
      p.loc[at] = e.loc[at] = row;
      p.amp[at] = e.amp[at] = part(random) < 0.05 ? 0.0 : (part(random) < 0.5 ? 90.0 : -80.0);
      p.vel[at] = e.vel[at] = p.amp[at] > 0 ? 200.0 * (part(random) - 0.3) : 1e-5;
    }
    plain::Noise pn;
    NoiseTable n;
    pn.n = n.count = k % 11;
    pn.loc.assign(11, 0.0);
    for (std::size_t j = 1; j <= static_cast<std::size_t>(pn.n); ++j)
      pn.loc[j] = n.loc[j] = part(random) < 0.1 ? 0.0 : std::floor(500 * part(random));
    const double rowStep = 5.0 + 10.0 * part(random);
    RejectPeaksInNoise(n, 1.0, rowStep, 450.0, e);
    plain::RejectByNoise(pn, 1.0, rowStep, 450.0, p);
    for (std::size_t at = 1; at <= static_cast<std::size_t>(p.n); ++at) ASSERT_EQ(e.vel[at], p.vel[at]) << k;
  }
}

}  // namespace
}  // namespace sondera::testing
