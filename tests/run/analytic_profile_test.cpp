// Tests of the analytic starting profile: root search, stripping of layers, layering, shapes, hostile curves.
#include "run/analytic_profile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "forward/plane_wave.h"
#include "run/observations.h"
#include "run/run_sizes.h"
#include "support/named_runs.h"
#include "support/odd_numbers.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

/// Rayleigh velocity over shear-wave velocity, from Rayleigh's cubic by bisection.
double RayleighRatio(double nu) {
  const double a = (1.0 - 2.0 * nu) / (2.0 * (1.0 - nu));
  double low = 0.1, high = 1.0;  // x = (c / Vs)^2; the trivial root x = 0 is divided out
  for (int i = 0; i < 200; ++i) {
    const double x = 0.5 * (low + high);
    const double f = x * x * x - 8.0 * x * x + (24.0 - 16.0 * a) * x - 16.0 * (1.0 - a);
    (f < 0.0 ? low : high) = x;
  }
  return std::sqrt(low);
}

// --- root search ---

TEST(FindRootByHalving, EndsNextToTheRootFromBothSides) {
  for (double root : {1.03, 1.4142, 1.77, 1.99}) {
    const auto R = [&](double v) { return v - root; };
    double up = 1.0, down = 2.0;
    ASSERT_TRUE(FindRootByHalving(R, 0.9, 2.1, up, 0.1));
    ASSERT_TRUE(FindRootByHalving(R, 0.9, 2.1, down, -0.2));
    EXPECT_NEAR(up, root, 4e-5 * root);
    EXPECT_NEAR(down, root, 4e-5 * root);
  }
}

TEST(FindRootByHalving, TrialsComeInTheirOrder) {
  std::vector<double> trials;
  const auto R = [&](double v) {
    trials.push_back(v);
    return v - 1.1;
  };
  double v = 1.0;
  ASSERT_TRUE(FindRootByHalving(R, 0.5, 2.0, v, 0.125));
  const std::vector<double> first = {1.0,         // before
                                     1.125,       // change; half a step
                                     1.0625,      // none: forward again
                                     1.125,       // change
                                     1.09375,     // none: forward
                                     1.125,       // change
                                     1.109375,    // still changed
                                     1.1015625,   // still changed
                                     1.09765625,  // none: forward
                                     1.1015625};
  ASSERT_GT(trials.size(), first.size());
  for (std::size_t k = 0; k < first.size(); ++k) EXPECT_EQ(trials[k], first[k]) << k;
}

TEST(FindRootByHalving, ResultIsTwoStepsBeforeTheLastTrial) {
  double v = 1.0;
  const auto half = [](double x) { return x - 1.0625; };  // an exact 0 at the first halving, step 0.0625
  ASSERT_TRUE(FindRootByHalving(half, 0.5, 2.0, v, 0.125));
  EXPECT_EQ(v, 1.0625 - 0.125);
  v = 1.0;
  const auto quarter = [](double x) { return x - 1.03125; };
  ASSERT_TRUE(FindRootByHalving(quarter, 0.5, 2.0, v, 0.125));
  EXPECT_EQ(v, 1.03125 - 0.0625);
  v = 1.0;
  const auto atOnce = [](double x) { return x - 1.0; };  // 0 at the start: the first step is a root
  ASSERT_TRUE(FindRootByHalving(atOnce, 0.5, 2.0, v, 0.125));
  EXPECT_EQ(v, 1.125 - 0.25);
}

TEST(FindRootByHalving, LeavesTheRangeWithoutARoot) {
  int calls = 0;
  const auto positive = [&](double) {
    ++calls;
    return 1.0;
  };
  double v = 1.0;
  EXPECT_FALSE(FindRootByHalving(positive, 0.5, 1.5, v, 0.125));
  EXPECT_EQ(calls, 5);  // 1, 1.125, 1.25, 1.375 and 1.5 itself
  v = 1.0;
  EXPECT_FALSE(FindRootByHalving(positive, 0.5, 1.5, v, -0.125));
  v = 1.0;
  EXPECT_FALSE(FindRootByHalving([](double) { return kNaN; }, 0.5, 1.5, v, 0.125));
}

// --- stripping ---

class AnalyticProfile : public RunTest {
 protected:
  /// Run on layers of one ground, ready for FS_PropLayer of an analytic profile.
  void StartRun(const std::vector<LayerRow>& layers, double ratio = 0.5) {
    SetLayers(layers);
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    ASSERT_EQ(ShowRefusal(FS_ReadLayerProp()), 0);
    run.switches.preliminaryProfileType = kAnalyticProfile;
    run.switches.iProfileShape = kOnGivenLayers;
    run.switches.alphaDepth = ratio;
  }
  void StartPlain(int n, double nu = 0.3, double ratio = 0.5) {
    std::vector<LayerRow> rows(static_cast<std::size_t>(n), LayerRow{1.5, 0.0, 180.0, 1.8, nu, 0.02});
    rows.back().thickness = 1000.0;
    StartRun(rows, ratio);
  }
  /// Puts a curve into the rows of the run.
  void Observe(const std::vector<CurvePoint>& curve) {
    const int n = static_cast<int>(curve.size());
    run.observations.runVel = run.observations.runFreq = run.observations.runLambda =
        OffsetVector<double>(1, n);
    run.observations.nObsRows = n;
    for (int i = 1; i <= n; ++i) {
      run.observations.runVel[i] = curve[static_cast<std::size_t>(i - 1)].c;
      run.observations.runFreq[i] = curve[static_cast<std::size_t>(i - 1)].f;
      run.observations.runLambda[i] = curve[static_cast<std::size_t>(i - 1)].w;
    }
  }
  static std::vector<CurvePoint> CurveOf(const std::vector<double>& c, double w = 1.0, double growth = 1.2) {
    std::vector<CurvePoint> curve;
    for (double velocity : c) {
      curve.push_back({velocity, velocity / w, w});
      w *= growth;
    }
    return curve;
  }
  /// Fundamental plane-wave curve of a ground.
  static std::vector<CurvePoint> PlaneWaveCurve(const std::vector<double>& H, const std::vector<double>& Vs,
                                                int points, double w = 1.0, double growth = 1.2) {
    const int n = static_cast<int>(Vs.size()), one = 1;
    LayerStack ground(n);
    for (int l = 1; l <= n; ++l) {
      ground.H[l] = H[static_cast<std::size_t>(l - 1)];
      ground.Vs[l] = Vs[static_cast<std::size_t>(l - 1)];
      ground.rho[l] = 1.8;
      ground.nu[l] = 0.3;
    }
    std::vector<CurvePoint> curve;
    for (int p = 0; p < points; ++p, w *= growth) {
      const double L[] = {0.0, w};
      double c[] = {0.0, 0.0};
      FS_SASW2D(&n, ground.H.shifted(), ground.Vs.shifted(), nullptr, nullptr, ground.rho.shifted(), nullptr,
                ground.nu.shifted(), &one, L, c);
      curve.push_back({c[1], c[1] / w, w});
    }
    return curve;
  }
  bool LayersAreFinite() const {
    for (int l = 1; l <= run.ground.nLayersCur; ++l) {
      for (double x :
           {run.ground.layerVs[l], run.ground.layerVp[l], run.ground.layerRho[l], run.ground.layerG[l]})
        if (!std::isfinite(x) || !(x > 0.0)) return false;
    }
    return true;
  }
};

TEST_F(AnalyticProfile, HomogeneousHalfSpaceGivesItsVelocityInAllLayers) {
  for (double nu : {0.0, 0.2, 0.3333, 0.45, 0.49}) {
    for (double ratio : {0.35, 0.5, 0.65}) {
      StartPlain(8, nu, ratio);
      Observe(CurveOf(std::vector<double>(20, 237.0 * RayleighRatio(nu))));
      ASSERT_EQ(FS_AnalPrePrf(), 0);
      for (int l = 1; l <= 8; ++l) EXPECT_NEAR(run.ground.layerVs[l], 237.0, 237.0 * 1e-4) << nu << " " << l;
    }
  }
}

TEST_F(AnalyticProfile, RatioOfAHalfSpaceIsThatOfRayleighsEquation) {
  EXPECT_NEAR(RayleighRatio(0.25), std::sqrt(2.0 - 2.0 / std::sqrt(3.0)), 1e-12);  // in closed form
  EXPECT_NEAR(RayleighRatio(0.5), 0.955313, 1e-6);
}

TEST_F(AnalyticProfile, CurveOfTwoLayersGivesFasterGroundBelow) {
  StartPlain(12);
  Observe(PlaneWaveCurve({4.0, 100.0}, {150.0, 300.0}, 22));
  ASSERT_EQ(FS_AnalPrePrf(), 0);
  EXPECT_NEAR(run.ground.layerVs[1], 150.0, 1.5);
  EXPECT_GT(run.ground.layerVs[8], 1.4 * run.ground.layerVs[1]);
  EXPECT_GT(run.ground.layerVs[12], 250.0);
  for (int l = 2; l <= 12; ++l) EXPECT_GE(run.ground.layerVs[l], run.ground.layerVs[l - 1] * 0.99) << l;
  EXPECT_EQ(run.ground.nLayersCur, 12);
}

TEST_F(AnalyticProfile, FoundLayersReproduceThePointThatMadeTheLastOne) {
  // Second route: the plane-wave solver on the layers found so far, at the wavelength of the point.
  StartPlain(6);
  int compared = 0;
  for (double ratio : {0.35, 0.5, 0.65}) {
    const std::vector<CurvePoint> curve =
        PlaneWaveCurve({3.0, 5.0, 100.0}, {140.0, 200.0, 320.0}, 40, 1.0, 1.12);
    int before = 0;
    for (std::size_t cut = 2; cut <= curve.size(); ++cut) {
      LayerStack found(50);
      std::vector<CurvePoint> part(curve.begin(), curve.begin() + static_cast<std::ptrdiff_t>(cut));
      part.back() = curve.back();  // the end of the search, for the same range of trial velocities
      ASSERT_EQ(StripLayers(part, ratio, found), 0);
      const int n = found.n - 1, one = 1;
      if (n == before) continue;  // the point extended a layer or had no root
      before = n;
      const CurvePoint& p = part[cut - 2];
      const double L[] = {0.0, p.w};
      double c[] = {0.0, 0.0};
      FS_SASW2D(&n, found.H.shifted(), found.Vs.shifted(), nullptr, nullptr, found.rho.shifted(), nullptr,
                found.nu.shifted(), &one, L, c);
      EXPECT_NEAR(c[1], p.c, 1e-3 * p.c) << "ratio " << ratio << ", layers " << n;
      ++compared;
    }
  }
  EXPECT_GE(compared, 12);
}

TEST_F(AnalyticProfile, PointsStandForTheirRatioOfTheWavelength) {
  StartPlain(4, 0.3, 0.4);
  const std::vector<CurvePoint> curve = CurveOf({150.0, 165.0, 180.0, 200.0, 203.0, 230.0}, 1.0, 2.0);
  LayerStack found(9);
  ASSERT_EQ(StripLayers(curve, 0.4, found), 0);
  ASSERT_EQ(found.n, 5);
  const double H[] = {0.4, 0.4, 0.8, 4.8};  // to 0.4, 0.8, 1.6 and, with the fifth point, 6.4
  for (int l = 1; l <= 4; ++l) EXPECT_NEAR(found.H[l], H[l - 1], 1e-12);
  EXPECT_NEAR(found.Depth(4), 0.4 * curve[4].w, 1e-9) << "the last point only ends the walk";
  EXPECT_NEAR(found.H[found.n], 1e6 * found.Depth(found.n - 1), 1e-3);
}

TEST_F(AnalyticProfile, TwoPointsMakeOneLayerAndTheGroundBelowIsTheSame) {
  StartPlain(3);
  LayerStack found(5);
  ASSERT_EQ(StripLayers(CurveOf({150.0, 400.0}), 0.5, found), 0);
  ASSERT_EQ(found.n, 2);
  EXPECT_EQ(found.H[1], 0.5);
  EXPECT_EQ(found.Vs[2], found.Vs[1]);
}

TEST_F(AnalyticProfile, DeepLayerContinuesTheLastStepOfVelocity) {
  StartPlain(3);
  LayerStack found(9);
  ASSERT_EQ(StripLayers(CurveOf({150.0, 165.0, 180.0, 200.0}, 1.0, 2.0), 0.5, found), 0);
  ASSERT_EQ(found.n, 4);
  EXPECT_GT(found.Vs[3], found.Vs[2]);
  EXPECT_EQ(found.Vs[4], 2.0 * found.Vs[3] - found.Vs[2]);
}

TEST_F(AnalyticProfile, DeepLayerHasAtLeastHalfTheVelocityAbove) {
  StartPlain(3);
  LayerStack found(9);
  ASSERT_EQ(StripLayers(CurveOf({300.0, 150.0, 100.0}, 1.0, 20.0), 0.5, found), 0);
  ASSERT_EQ(found.n, 3);
  ASSERT_LT(2.0 * found.Vs[2] - found.Vs[1], 0.5 * found.Vs[2]);
  EXPECT_EQ(found.Vs[3], 0.5 * found.Vs[2]);
}

TEST_F(AnalyticProfile, PointWithinFivePerCentExtendsTheLayer) {
  StartPlain(3);
  LayerStack found(9);
  ASSERT_EQ(StripLayers(CurveOf({200.0, 209.0, 191.0, 300.0}, 1.0, 2.0), 0.5, found), 0);
  ASSERT_EQ(found.n, 2);
  EXPECT_EQ(found.H[1], 2.0);
}

TEST_F(AnalyticProfile, ExactlyFivePerCentIsAnotherLayer) {
  StartPlain(3);
  for (double c : {0.95 * 200.0, 1.05 * 200.0}) {
    LayerStack found(9);
    ASSERT_EQ(StripLayers(CurveOf({200.0, c, 300.0}, 1.0, 2.0), 0.5, found), 0);
    EXPECT_EQ(found.n, 3) << c;
    EXPECT_EQ(found.H[1], 0.5);
  }
}

TEST_F(AnalyticProfile, VelocityOfReferenceIsThatOfThePointThatMadeTheLayer) {
  StartPlain(3);
  LayerStack found(9);  // 4 % from point to point, but the third is 8 % from the first
  ASSERT_EQ(StripLayers(CurveOf({200.0, 208.0, 216.0, 300.0}, 1.0, 2.0), 0.5, found), 0);
  EXPECT_EQ(found.n, 3);
  EXPECT_EQ(found.H[1], 1.0);
  EXPECT_EQ(found.H[2], 1.0);
}

TEST_F(AnalyticProfile, PointWithoutARootLeavesDepthAndReferenceAlone) {
  StartPlain(3);
  LayerStack found(9);
  // A thousandfold slower wave at the second point: no half-space in range carries it.
  ASSERT_EQ(StripLayers(CurveOf({200.0, 0.2, 208.0, 300.0}, 1.0, 2.0), 0.5, found), 0);
  ASSERT_EQ(found.n, 2);
  EXPECT_EQ(found.H[1], 2.0) << "the third point extends the first layer";
}

TEST_F(AnalyticProfile, PointsAtOneWavelengthMakeNoEmptyLayer) {
  StartPlain(3);
  std::vector<CurvePoint> curve = CurveOf({150.0, 180.0, 220.0, 260.0}, 1.0, 2.0);
  curve.insert(curve.begin() + 1, {165.0, 165.0, 1.0});
  LayerStack found(9);
  ASSERT_EQ(StripLayers(curve, 0.5, found), 0);
  for (int l = 1; l <= found.n; ++l) {
    EXPECT_GT(found.H[l], 0.0);
    EXPECT_TRUE(std::isfinite(found.Vs[l]));
  }
}

TEST_F(AnalyticProfile, PropertiesComeFromTheLayerAtTheMidDepth) {
  StartRun({{1.0, 0.0, 100.0, 1.7, 0.2, 0.01}, {100.0, 0.0, 100.0, 0.0, 0.4, 0.02}});
  LayerStack found(9);
  ASSERT_EQ(StripLayers(CurveOf({150.0, 165.0, 180.0, 200.0}, 3.0, 2.0), 0.5, found), 0);
  EXPECT_EQ(found.nu[1], 0.2) << "mid-depth 0.75";
  EXPECT_EQ(found.nu[2], 0.4) << "mid-depth 2.25";
  EXPECT_EQ(found.rho[1], 1.7);
  EXPECT_GT(found.rho[2], 0.0);
  EXPECT_NE(found.rho[2], found.rho[3]) << "derived from each velocity";
}

// --- layering ---

/// Travel time to a depth, counted from the surface each time.
double TravelTimeTo(double depth, const LayerStack& ground) {
  double time = 0.0, top = 0.0;
  for (int l = 1; l <= ground.n; ++l) {
    const double bottom = top + ground.H[l];
    if (depth > top) time += (std::min(depth, bottom) - top) / ground.Vs[l];
    top = bottom;
  }
  return time;
}

TEST_F(AnalyticProfile, GivenLayersGetTheTravelTimeMean) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> thickness(0.2, 4.0), velocity(80.0, 600.0);
  for (int trial = 0; trial < 50; ++trial) {
    const int n = 1 + trial % 12;
    std::vector<LayerRow> rows;
    for (int l = 0; l < n; ++l) rows.push_back({thickness(random), 0.0, 100.0, 1.8, 0.3, 0.02});
    StartRun(rows);
    LayerStack ground(10);
    ground.n = 1 + trial % 9;
    for (int l = 1; l <= ground.n; ++l) {
      ground.H[l] = thickness(random);
      ground.Vs[l] = velocity(random);
    }
    ground.H[ground.n] = 1e6;
    const LayerStack given = OnGivenLayering(run, ground);
    double top = 0.0;
    for (int l = 1; l <= n; ++l) {
      const double bottom = top + run.ground.layerH[l];
      const double expected =
          run.ground.layerH[l] / (TravelTimeTo(bottom, ground) - TravelTimeTo(top, ground));
      EXPECT_NEAR(given.Vs[l], expected, 1e-9 * expected);
      top = bottom;
    }
  }
}

TEST_F(AnalyticProfile, CrossedLayerIsSplit) {
  StartRun({{2.0, 0.0, 100.0, 1.8, 0.3, 0.02}, {3.0, 0.0, 100.0, 1.8, 0.3, 0.02}});
  LayerStack ground(3);
  ground.n = 2;
  ground.H[1] = 3.0;
  ground.Vs[1] = 100.0;
  ground.H[2] = 1e6;
  ground.Vs[2] = 400.0;
  const LayerStack given = OnGivenLayering(run, ground);
  EXPECT_NEAR(given.Vs[1], 100.0, 1e-12);
  EXPECT_NEAR(given.Vs[2], 3.0 / (1.0 / 100.0 + 2.0 / 400.0), 1e-10);
}

TEST_F(AnalyticProfile, LayersBelowAllThatWasFoundTakeTheVelocityAbove) {
  StartRun({{2.0, 0.0, 100.0, 1.8, 0.3, 0.02},
            {9.0, 0.0, 100.0, 1.8, 0.3, 0.02},
            {4.0, 0.0, 100.0, 1.8, 0.3, 0.02}});
  LayerStack ground(3);
  ground.n = 1;
  ground.H[1] = 3.0;
  ground.Vs[1] = 170.0;
  const LayerStack given = OnGivenLayering(run, ground);
  for (int l = 1; l <= 3; ++l) EXPECT_NEAR(given.Vs[l], 170.0, 1e-10);
}

TEST_F(AnalyticProfile, OneMoreLayerIsTheHalfSpaceThatTheRunDoesNotCount) {
  StartPlain(5);
  Observe(PlaneWaveCurve({3.0, 100.0}, {140.0, 320.0}, 20));
  LayerStack found(25);
  ASSERT_EQ(StripLayers(ObservedCurve(), 0.5, found), 0);
  const LayerStack given = OnGivenLayering(run, found);
  ASSERT_EQ(given.n, 6);
  EXPECT_NEAR(given.H[6], 100.0 * found.Depth(found.n - 1), 1e-9);
  EXPECT_EQ(given.Vs[6], found.Vs[found.n]);
  ASSERT_EQ(FS_AnalPrePrf(), 0);
  EXPECT_EQ(run.ground.nLayersCur, 5);
  EXPECT_EQ(run.ground.layerVs.hi(), 5);
  EXPECT_EQ(run.ground.layerH[5], 1000.0) << "thicknesses are those of the table";
  for (int l = 1; l <= 5; ++l) EXPECT_EQ(run.ground.layerVs[l], given.Vs[l]);
}

TEST_F(AnalyticProfile, LayersOfTheRunAreCompleted) {
  StartRun({{2.0, 0.0, 100.0, 0.0, 0.25, 0.01}, {50.0, 0.0, 100.0, 1.9, 0.4, 0.02}});
  Observe(PlaneWaveCurve({3.0, 100.0}, {140.0, 320.0}, 20));
  ASSERT_EQ(FS_AnalPrePrf(), 0);
  EXPECT_NEAR(run.ground.layerVp[1], run.ground.layerVs[1] * std::sqrt(3.0), 1e-9);
  EXPECT_NEAR(run.ground.layerVp[2], run.ground.layerVs[2] * std::sqrt(6.0), 1e-9);
  EXPECT_NEAR(run.ground.layerG[2], 1.9 * run.ground.layerVs[2] * run.ground.layerVs[2], 1e-6);
  EXPECT_NE(run.ground.layerRho[1], 0.0);
  EXPECT_EQ(run.ground.layerDamp[2], 0.02);
}

// --- shapes ---

TEST_F(AnalyticProfile, FoundLayersCanStandAsTheyAre) {
  StartPlain(4);
  Observe(PlaneWaveCurve({3.0, 100.0}, {140.0, 320.0}, 20));
  LayerStack found(25);
  ASSERT_EQ(StripLayers(ObservedCurve(), 0.5, found), 0);
  for (int shape : {kBoundsFromCurve, kAsFound}) {
    StartPlain(4);
    Observe(PlaneWaveCurve({3.0, 100.0}, {140.0, 320.0}, 20));
    run.switches.iProfileShape = shape;
    ASSERT_EQ(FS_AnalPrePrf(), 0);
    ASSERT_EQ(run.ground.nLayersCur, found.n);
    ASSERT_EQ(TheoDispInfo.nLayers, found.n);
    for (int l = 1; l <= found.n; ++l) {
      EXPECT_EQ(run.ground.layerH[l], found.H[l]);
      EXPECT_EQ(run.ground.layerVs[l], found.Vs[l]);
      EXPECT_EQ(run.ground.iPoissonGiven[l], 1);
      EXPECT_EQ(TheoDispInfo.Vs[static_cast<std::size_t>(l - 1)], found.Vs[l]);
    }
    EXPECT_EQ(run.ground.lastLayerH, found.H[found.n]);
    EXPECT_EQ(run.strata.nStrata, 0);
  }
}

TEST_F(AnalyticProfile, MergedLayersKeepThicknessAndTravelTime) {
  StartPlain(4);
  LayerStack found(40);
  ASSERT_EQ(StripLayers(PlaneWaveCurve({3.0, 4.0, 100.0}, {140.0, 250.0, 320.0}, 30, 1.0, 1.12), 0.5, found),
            0);
  ASSERT_GT(found.n, 6);
  for (int shape : {kMergedByHVs, kMergedByHOverVs}) {
    run.switches.iProfileShape = shape;
    const LayerStack merged = MergedLayers(run, found, shape);
    EXPECT_GE(merged.n, 2);
    EXPECT_LE(merged.n, found.n);
    const double depth = found.Depth(found.n - 1);
    EXPECT_NEAR(merged.Depth(merged.n - 1), depth, 1e-9);
    EXPECT_NEAR(TravelTimeTo(depth, merged), TravelTimeTo(depth, found), 1e-12);
    EXPECT_EQ(merged.H[merged.n], found.H[found.n]);
    EXPECT_NEAR(merged.Vs[merged.n], found.Vs[found.n], 1e-9);
  }
}

TEST_F(AnalyticProfile, NeighboursOfOneClassBecomeOneLayer) {
  StartPlain(4);
  LayerStack found(6);
  found.n = 6;
  const double H[] = {1, 1, 1, 40, 40, 1e6}, Vs[] = {100, 100, 100, 400, 400, 500};
  for (int l = 1; l <= 6; ++l) {
    found.H[l] = H[l - 1];
    found.Vs[l] = Vs[l - 1];
  }
  // H Vs: 100 x 3, 16000 x 2. Deviation 7789, width 7789 / 0.339 / 1.71 = 13437: classes 0 and 1.
  const LayerStack merged = MergedLayers(run, found, kMergedByHVs);
  ASSERT_EQ(merged.n, 3);
  EXPECT_NEAR(merged.H[1], 3.0, 1e-12);
  EXPECT_NEAR(merged.Vs[1], 100.0, 1e-10);
  EXPECT_NEAR(merged.H[2], 80.0, 1e-12);
  EXPECT_NEAR(merged.Vs[2], 400.0, 1e-10);
  EXPECT_NEAR(merged.Vs[3], 500.0, 1e-10);
}

TEST_F(AnalyticProfile, LayersOfOneMeasureAreOneClass) {
  StartPlain(4);
  LayerStack found(3);
  found.n = 3;
  for (int l = 1; l <= 3; ++l) {
    found.H[l] = 2.0;
    found.Vs[l] = 150.0;
  }
  EXPECT_EQ(MergedLayers(run, found, kMergedByHVs).n, 2);
  EXPECT_EQ(MergedLayers(run, found, kMergedByHOverVs).n, 2);
}

// --- hostile curves ---

TEST_F(AnalyticProfile, CurveWithoutTwoPointsIsRefusedWithOneMessage) {
  StartPlain(4);
  const std::string text = "A starting profile needs a global dispersion curve of two points or more.";
  for (const auto& curve : {std::vector<CurvePoint>{}, std::vector<CurvePoint>{{150, 50, 3}},
                            std::vector<CurvePoint>(10, CurvePoint{0, 0, 0}),
                            std::vector<CurvePoint>(10, CurvePoint{kNaN, kNaN, kNaN}),
                            std::vector<CurvePoint>(10, CurvePoint{-150, 50, 3})}) {
    frontEnd.messages.clear();
    Observe(curve);
    EXPECT_EQ(FS_AnalPrePrf(), -1);
    EXPECT_EQ(OnlyMessage(), text);
  }
}

TEST_F(AnalyticProfile, OrderOfThePointsDoesNotMatter) {
  std::vector<CurvePoint> curve = PlaneWaveCurve({3.0, 100.0}, {140.0, 320.0}, 20);
  StartPlain(6);
  Observe(curve);
  ASSERT_EQ(FS_AnalPrePrf(), 0);
  const OffsetVector<double> ascending = run.ground.layerVs;
  std::reverse(curve.begin(), curve.end());
  StartPlain(6);
  Observe(curve);
  ASSERT_EQ(FS_AnalPrePrf(), 0);
  for (int l = 1; l <= 6; ++l) EXPECT_EQ(run.ground.layerVs[l], ascending[l]);
}

TEST_F(AnalyticProfile, FallingCurveEndsInAProfile) {
  StartPlain(10);
  Observe(CurveOf({400, 360, 320, 280, 240, 210, 190, 170, 150, 130}));
  ASSERT_EQ(FS_AnalPrePrf(), 0);
  EXPECT_TRUE(LayersAreFinite());
  EXPECT_LT(run.ground.layerVs[4], run.ground.layerVs[1]);
}

TEST_F(AnalyticProfile, CurveThatGivesNoLayerIsTold) {
  StartPlain(4);
  Observe({{150, 50, 1e-320}, {150, 40, 1e-320}});  // depths that equal 0 within rounding
  run.switches.alphaDepth = 1e-10;
  EXPECT_EQ(FS_AnalPrePrf(), -1);
  EXPECT_EQ(
      OnlyMessage(),
      "The global dispersion curve gives no layer of a starting profile for the Depth-to-WaveL ratio 1e-10.");
}

TEST_F(AnalyticProfile, RatioThatIsNoneIsRefused) {
  StartPlain(4);
  Observe(CurveOf({150, 160, 170}));
  for (double ratio : {0.0, -0.5, kNaN, kInf}) {
    frontEnd.messages.clear();
    run.switches.alphaDepth = ratio;
    EXPECT_EQ(FS_AnalPrePrf(), -1);
    EXPECT_TRUE(OnlyMessage().starts_with("The Depth-to-WaveL ratio is")) << OnlyMessage();
  }
}

TEST_F(AnalyticProfile, VelocitiesOfNoGroundAreRefusedBeforeASearch) {
  StartPlain(4);
  Observe(CurveOf({1e-9, 100, 1e9}));  // steps of the smallest velocity would never reach the largest
  EXPECT_EQ(FS_AnalPrePrf(), -1);
  EXPECT_EQ(OnlyMessage(), "The velocities of the global dispersion curve are too far apart for one ground.");
}

TEST_F(AnalyticProfile, AnyCurveEndsInFiniteLayersOrInOneMessage) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> exponent(-8.0, 8.0), factor(0.3, 3.0);
  const double odd[] = {0.0, -1.0, kNaN, kInf, 1e300, 1e-300, 5e-324, 1e154};
  int made = 0;
  for (int trial = 0; trial < 2000; ++trial) {
    StartPlain(1 + trial % 20, trial % 3 == 0 ? 0.4999 : 0.3, std::pow(10.0, exponent(random) / 4.0));
    std::vector<CurvePoint> curve;
    const double scale = trial % 2 == 0 ? 150.0 : std::pow(10.0, exponent(random));
    for (int p = 0; p < 1 + trial % 40; ++p) {
      const double c = scale * factor(random);
      CurvePoint point{c, c / (1.0 + p), 1.0 + p};
      if (random() % 8 == 0) point.c = odd[random() % 8];
      if (random() % 8 == 0) point.f = odd[random() % 8];
      if (random() % 8 == 0) point.w = odd[random() % 8];
      curve.push_back(point);
    }
    Observe(curve);
    frontEnd.messages.clear();
    run.switches.iProfileShape = trial % 5;
    if (FS_AnalPrePrf() == 0) {
      ++made;
      EXPECT_TRUE(frontEnd.messages.empty());
      for (int l = 1; l <= run.ground.nLayersCur; ++l) {
        EXPECT_TRUE(std::isfinite(run.ground.layerVs[l]) && run.ground.layerVs[l] > 0.0)
            << "trial " << trial << " " << run.ground.layerVs[l] << " layer " << l << " shape "
            << run.switches.iProfileShape;
        EXPECT_TRUE(std::isfinite(run.ground.layerH[l])) << "trial " << trial;
      }
    } else {
      EXPECT_EQ(frontEnd.messages.size(), 1u) << "trial " << trial;
    }
  }
  EXPECT_GT(made, 250);
}

TEST_F(AnalyticProfile, NoisyCurveMakesAtMostOneLayerPerPoint) {
  StartPlain(10);
  std::vector<double> c;
  for (int p = 0; p < 1200; ++p) c.push_back(p % 2 == 0 ? 200.0 : 230.0);
  Observe(CurveOf(c, 0.5, 1.005));
  LayerStack found(1201);
  ASSERT_EQ(StripLayers(ObservedCurve(), 0.5, found), 0);
  EXPECT_LE(found.n, 1201);
  ASSERT_EQ(FS_AnalPrePrf(), 0);
  EXPECT_TRUE(LayersAreFinite());
}

TEST_F(AnalyticProfile, MoreLayersThanARunTakesAreRefusedInTheDormantShapes) {
  StartPlain(3);
  LayerStack many(1002);
  many.n = 1001;
  EXPECT_EQ(ShowRefusal(ReplaceRunLayers(run, many)), -1);
  EXPECT_EQ(OnlyMessage(), "The starting profile has 1001 layers. It must have 1 to 1000.");
  EXPECT_EQ(run.ground.nLayersCur, 3);
}

TEST_F(AnalyticProfile, HaltEndsTheWalkWithoutAMessage) {
  StartPlain(6);
  Observe(CurveOf({150, 180, 210, 240, 270, 300}));
  int polls = 0;
  frontEnd.onProcessEvents = [&polls] {
    if (++polls == 3) run.course.iHaltRequest = 1;
  };
  EXPECT_EQ(FS_AnalPrePrf(), -1);
  EXPECT_EQ(polls, 3);
  EXPECT_EQ(run.course.iHaltRequest, 0);
  EXPECT_TRUE(frontEnd.messages.empty());
  frontEnd.onProcessEvents = nullptr;
  EXPECT_EQ(FS_AnalPrePrf(), 0);
}

}  // namespace
}  // namespace sondera::testing
