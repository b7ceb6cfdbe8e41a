// Inversions of curves of known ground: results compared with the ground, without noise and with it.
//
// Choices that affect the results. The prior factor of Vs is 0.5: an iteration may then change a layer by
// half its velocity, so the result becomes independent of a uniform start within a few iterations, and the
// deviations of the prior decide which layers count as resolved. Data deviations are 3 % of the velocities,
// equal to the noise. Density and Poisson's ratio are the true ones and stay.
//
// Kept: an update computes its prior deviation relative to its own start model, so several iterations
// together are damped less than the band of the last one suggests. With layers that the data resolve this
// does not show (six layers below: some 94 % of resolved layers within two deviations, nominally 95 %). With
// more layers the band is too narrow, and more so after more iterations: eight layers gave 93 % after three
// iterations and 81 % after ten.
#include <algorithm>
#include <cmath>
#include <iostream>

#include "panels/entry_lists.h"
#include "run/result_entries.h"
#include "run/sweep.h"
#include "support/run_case.h"

namespace sondera::testing {
namespace {

constexpr double kNoise = 0.03;
constexpr double kResolved = 0.8;

const std::vector<LayerRow> kEightLayers = {
    {1.0, 0.0, 110.0, 1.8, 0.33, 0.02}, {1.5, 0.0, 130.0, 1.8, 0.33, 0.02},
    {2.0, 0.0, 155.0, 1.8, 0.33, 0.02}, {2.5, 0.0, 180.0, 1.8, 0.33, 0.02},
    {3.5, 0.0, 210.0, 1.8, 0.33, 0.02}, {4.5, 0.0, 245.0, 1.8, 0.33, 0.02},
    {6.0, 0.0, 280.0, 1.8, 0.33, 0.02}, {8.0, 0.0, 330.0, 1.8, 0.33, 0.02}};

const std::vector<LayerRow> kSixLayers = {
    {1.0, 0.0, 110.0, 1.8, 0.33, 0.02}, {1.5, 0.0, 135.0, 1.8, 0.33, 0.02},
    {2.5, 0.0, 165.0, 1.8, 0.33, 0.02}, {4.0, 0.0, 205.0, 1.8, 0.33, 0.02},
    {6.5, 0.0, 255.0, 1.8, 0.33, 0.02}, {8.0, 0.0, 320.0, 1.8, 0.33, 0.02}};

/// A soft layer below a stiffer one.
const std::vector<LayerRow> kSoftLayer = {{1.0, 0.0, 180.0, 1.8, 0.33, 0.02},
                                          {2.0, 0.0, 140.0, 1.8, 0.33, 0.02},
                                          {4.0, 0.0, 200.0, 1.8, 0.33, 0.02},
                                          {7.0, 0.0, 250.0, 1.8, 0.33, 0.02},
                                          {8.0, 0.0, 320.0, 1.8, 0.33, 0.02}};

const std::vector<LayerRow> kThreeLayers = {{2.0, 0.0, 130.0, 1.8, 0.33, 0.02},
                                            {4.0, 0.0, 180.0, 1.8, 0.33, 0.02},
                                            {20.0, 0.0, 260.0, 1.8, 0.33, 0.02}};

struct Recovery {
  int resolved = 0;    ///< layers above kResolved
  double worst = 0.0;  ///< their largest relative distance from the truth
  double worstOfAll = 0.0;
};

class SyntheticRecovery : public RunCase {
 protected:
  void SetUp() override {
    RunCase::SetUp();
    InvParam.ufVs = 0.5;
    run.switches.ufVph = kNoise;
  }

  static Recovery Compare(const std::vector<LayerRow>& truth) {
    Recovery r;
    const int last = Listed() - 1;
    for (std::size_t l = 0; l < truth.size(); ++l) {
      const int i = static_cast<int>(l);
      const double off = std::fabs(InvParam.Vs(last, i) / truth[l].Vs - 1.0);
      r.worstOfAll = std::max(r.worstOfAll, off);
      if (InvParam.resolution(last, i) <= kResolved) continue;
      ++r.resolved;
      r.worst = std::max(r.worst, off);
    }
    return r;
  }

  /// Uniform start of the layers of the truth, plane waves at 45 wavelengths.
  void ExpectRecovery(const std::vector<LayerRow>& truth, double start, int leastResolved) {
    ClearEntryLists();
    SetLayers(Uniform(truth, start));
    SetCurveOf(truth, Wavelengths(1.0, 60.0, 45));
    ASSERT_EQ(RunIterations(10), 0) << Messages();
    const Recovery r = Compare(truth);
    std::cout << truth.size() << " layers from " << start << ": " << r.resolved << " resolved, worst "
              << 100.0 * r.worst << " %, worst of all " << 100.0 * r.worstOfAll << " %, rms "
              << InvParam.rms[Listed() - 1] << "\n";
    EXPECT_GE(r.resolved, leastResolved);
    EXPECT_LE(r.worst, 0.02);
  }

  // --- Array curves: two pairs of receivers at 4, 8 and 16 ---

  static constexpr int kFrequencies = 8;

  /// Velocities of the truth by the solver of the analysis under the settings of an inversion: the solver
  /// looks around the observed wavelength, so data and result are brought to agree by asking again.
  void SetArrayDataOf(const std::vector<LayerRow>& truth, int analysis) {
    SetLayers(truth);
    std::vector<double> frequency, velocity;
    for (int p = 0; p < kFrequencies; ++p) {
      frequency.push_back(9.0 * std::pow(60.0 / 9.0, p / (kFrequencies - 1.0)));
      double c = 150.0;  // where frequency and wavelength meet on the curve of plane waves
      for (int k = 0; k < 60; ++k) c = 0.5 * (c + PlaneWave(truth, c / frequency.back()));
      velocity.insert(velocity.end(), 2, c);
    }
    SetArrayCurves(kFrequencies, 2, velocity);
    for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
      m->recLoc = {4.0, 8.0, 16.0};
      std::copy(frequency.begin(), frequency.end(), m->freq.begin());
      m->nSubLayers = 8;
      m->fDispBulb = 2.0;
    }
    double apart = 1.0;
    for (int pass = 0; pass < 8 && apart > 1e-12; ++pass) {
      Prepare(analysis, kNoise);
      OffsetVector<double> vel, amp;
      ASSERT_EQ(FS_rWave3D(vel, amp), 0);
      apart = 0.0;
      for (int row = 1; row <= run.observations.nObsRows; ++row) {
        const std::size_t k = static_cast<std::size_t>(row - 1);
        ASSERT_GT(vel[row], 0.0) << row;
        apart = std::max(apart, std::fabs(vel[row] / TheoDispInfo.vel[k] - 1.0));
        TheoDispInfo.vel[k] = FModelParam.vel[k] = vel[row];
      }
    }
    ASSERT_LT(apart, 1e-9);
  }
};

TEST_F(SyntheticRecovery, PlaneWavesFindEightLayersFromAUniformStart) {
  for (const double start : {150.0, 200.0, 250.0}) ExpectRecovery(kEightLayers, start, 5);
}

TEST_F(SyntheticRecovery, PlaneWavesFindSixLayersFromAUniformStart) {
  for (const double start : {120.0, 200.0, 300.0}) ExpectRecovery(kSixLayers, start, 5);
}

TEST_F(SyntheticRecovery, PlaneWavesFindASoftLayerBelowAStiffOne) {
  for (const double start : {180.0, 220.0}) ExpectRecovery(kSoftLayer, start, 4);
}

TEST_F(SyntheticRecovery, PlaneWavesFindThicknessesToo) {
  // Vs and thickness of two layers over a half-space, from values some 15 to 20 % off.
  std::vector<LayerRow> start = kThreeLayers;
  const double thickness[] = {1.7, 4.7, 20.0}, Vs[] = {150.0, 160.0, 230.0};
  for (std::size_t l = 0; l < 3; ++l) {
    start[l].thickness = thickness[l];
    start[l].Vs = Vs[l];
  }
  SetLayers(start);
  SetCurveOf(kThreeLayers, Wavelengths(1.0, 40.0, 40));
  InvParam.MODELPARM = 3;
  InvParam.ufH = 0.5;
  ASSERT_EQ(RunIterations(10), 0) << Messages();
  const int last = Listed() - 1;
  for (int l = 0; l < 3; ++l) {
    const LayerRow& truth = kThreeLayers[static_cast<std::size_t>(l)];
    EXPECT_NEAR(InvParam.Vs(last, l), truth.Vs, 0.02 * truth.Vs) << l;
    EXPECT_NEAR(InvParam.H(last, l), truth.thickness, 0.03 * truth.thickness) << l;
  }
}

TEST_F(SyntheticRecovery, PointLoadFindsThreeLayersFromAUniformStart) {
  for (const int analysis : {3, 4}) {
    SetArrayDataOf(kThreeLayers, analysis);
    const std::vector<double> data = TheoDispInfo.vel;
    for (const double start : {150.0, 220.0}) {
      ClearEntryLists();
      TheoDispInfo.vel = FModelParam.vel = data;
      SetLayers(Uniform(kThreeLayers, start));
      ASSERT_EQ(RunIterations(6), 0) << Messages();
      const Recovery r = Compare(kThreeLayers);
      std::cout << "point load, analysis " << analysis << " from " << start << ": " << r.resolved
                << " resolved, worst " << 100.0 * r.worst << " %, rms " << InvParam.rms[Listed() - 1] << "\n";
      EXPECT_EQ(r.resolved, 3);
      EXPECT_LE(r.worst, 0.02);
    }
  }
}

TEST_F(SyntheticRecovery, TruthIsWithinTwoDeviationsInNineOfTenResolvedLayersUnderNoise) {
  constexpr int kSeeds = 50, kIterations = 5;
  const std::vector<double> L = Wavelengths(1.0, 60.0, 40);
  std::vector<double> exact;
  for (const double wavelength : L) exact.push_back(PlaneWave(kSixLayers, wavelength));
  int resolved = 0, within = 0;
  double worst = 0.0, meanRms = 0.0;
  for (unsigned seed = 1; seed <= kSeeds; ++seed) {
    ClearEntryLists();
    std::mt19937 random(seed);
    std::normal_distribution<double> noise(0.0, kNoise);
    std::vector<double> measured = exact;
    for (double& v : measured) v *= 1.0 + noise(random);
    SetLayers(Uniform(kSixLayers, 200.0));
    SetCurve(L, measured);
    ASSERT_EQ(RunIterations(kIterations), 0) << seed << ' ' << Messages();
    ASSERT_EQ(Listed(), kIterations + 1);
    meanRms += InvParam.rms[kIterations] / kSeeds;
    for (int l = 0; l < 6; ++l) {
      if (InvParam.resolution(kIterations, l) <= kResolved) continue;
      const double off = std::fabs(InvParam.Vs(kIterations, l) - kSixLayers[static_cast<std::size_t>(l)].Vs);
      const double deviations = off / PosteriorDeviation(kIterations, l);
      ++resolved;
      within += deviations <= 2.0;
      worst = std::max(worst, deviations);
    }
  }
  std::cout << "within two deviations: " << within << " of " << resolved
            << " resolved layers = " << 100.0 * within / resolved << " %, worst " << worst
            << " deviations, mean rms " << meanRms << "\n";
  EXPECT_GE(resolved, 200);
  EXPECT_GE(within, 0.9 * resolved);
  EXPECT_LT(within, resolved);  // a band that holds everything would be too wide
}

}  // namespace
}  // namespace sondera::testing
