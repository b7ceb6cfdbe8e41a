// Tests of the completion of a layer from a velocity, and of the curve that starting profiles are made from.
#include "run/preliminary_profile.h"

#include <gtest/gtest.h>

#include <cmath>

#include "run/layer_stack.h"
#include "run/layer_table.h"
#include "run/observations.h"
#include "run/run_sizes.h"
#include "support/named_runs.h"
#include "support/odd_numbers.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class PropLayer : public RunTest {
 protected:
  /// Four layers that differ in all values that a completed layer copies.
  void SetUp() override {
    RunTest::SetUp();
    SetLayers({{1.0, 0.0, 100.0, 1.7, 0.20, 0.01},
               {2.0, 0.0, 120.0, 0.0, 0.25, 0.02},   // density from Vs
               {4.0, 400.0, 150.0, 1.9, 0.0, 0.03},  // Vp given: the ratio follows
               {10.0, 0.0, 200.0, 2.1, 0.35, 0.04}});
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    ASSERT_EQ(ShowRefusal(FS_ReadLayerProp()), 0);
    run.switches.iProfileShape = kOnGivenLayers;
  }
  LayerStack out{9};
};

TEST_F(PropLayer, GivenRatioGivesVpAndModuli) {
  FS_PropLayer(0.0, 1, 250.0, out.columns());
  EXPECT_EQ(out.Vs[1], 250.0);
  EXPECT_EQ(out.rho[1], 1.7);
  EXPECT_EQ(out.nu[1], 0.20);
  EXPECT_EQ(out.damp[1], 0.01);
  EXPECT_NEAR(out.Vp[1], 250.0 * std::sqrt(1.6 / 0.6), 1e-10);
  EXPECT_NEAR(out.G[1], 1.7 * 250.0 * 250.0, 1e-7);
  EXPECT_NEAR(out.E[1], 2.0 * 1.7 * 250.0 * 250.0 * 1.2, 1e-7);
}

TEST_F(PropLayer, DerivedDensityFollowsTheNewVelocity) {
  FS_PropLayer(0.0, 2, 500.0, out.columns());
  EXPECT_NEAR(out.rho[2], 2.329245219926101, 1e-13);
  FS_PropLayer(0.0, 2, 9000.0, out.columns());
  EXPECT_EQ(out.rho[2], 3.881987577639751) << "the cap";
}

TEST_F(PropLayer, GivenVpGivesTheRatio) {
  FS_PropLayer(0.0, 3, 200.0, out.columns());
  EXPECT_EQ(out.Vp[3], 400.0);
  EXPECT_NEAR(out.nu[3], 1.0 / 3.0, 1e-15);
  EXPECT_EQ(out.Vs[3], 200.0);
}

TEST_F(PropLayer, RatioBeyondThePhysicalRangeIsReplacedAndVsFollows) {
  for (double Vs : {390.0, 300.0}) {  // Vp / Vs below the square root of two
    FS_PropLayer(0.0, 3, Vs, out.columns());
    EXPECT_EQ(out.nu[3], 0.497);
    EXPECT_NEAR(out.Vs[3], 400.0 * std::sqrt(0.005964214711729627), 1e-12);
    EXPECT_NEAR(out.G[3], 1.9 * out.Vs[3] * out.Vs[3], 1e-9);
  }
  FS_PropLayer(0.0, 3, 450.0, out.columns());  // faster than the P wave: a ratio above one half
  EXPECT_EQ(out.nu[3], 0.497);
}

TEST_F(PropLayer, SourceIsTheLayerOfTheSameNumberHeldToTheLastOne) {
  for (int type : {0, kEmpiricalProfile}) {
    run.switches.preliminaryProfileType = type;
    FS_PropLayer(0.5, 3, 180.0, out.columns());
    EXPECT_EQ(out.damp[3], 0.03) << "the depth is not looked at";
    FS_PropLayer(0.5, 7, 180.0, out.columns());
    EXPECT_EQ(out.damp[7], 0.04);
  }
}

TEST_F(PropLayer, SourceOfAnAnalyticProfileIsTheLayerAtTheDepth) {
  run.switches.preliminaryProfileType = kAnalyticProfile;
  const double depths[] = {0.0, 0.99, 1.0, 2.9, 3.0, 6.5, 7.0, 16.9, 1e9},
               damping[] = {0.01, 0.01, 0.02, 0.02, 0.03, 0.03, 0.04, 0.04, 0.04};
  for (int k = 0; k < 9; ++k) {
    FS_PropLayer(depths[k], 1, 180.0, out.columns());
    EXPECT_EQ(out.damp[1], damping[k]) << depths[k];
  }
}

TEST_F(PropLayer, ProfileThatReplacesTheLayersTakesThemFromTheStrata) {
  KeepGivenLayersAsStrata(run.ground, run.strata);
  std::fill(run.ground.layerDamp.begin(), run.ground.layerDamp.end(),
            0.5);  // the layers are being overwritten
  for (int shape : {kBoundsFromCurve, kAsFound, kMergedByHVs, kMergedByHOverVs}) {
    run.switches.iProfileShape = shape;
    for (int type : {kEmpiricalProfile, kAnalyticProfile}) {
      run.switches.preliminaryProfileType = type;
      FS_PropLayer(2.0, 8, 180.0, out.columns());
      EXPECT_EQ(out.damp[8], 0.02);
      EXPECT_NEAR(out.rho[8], DensityFromVs(180.0), 1e-15);
      FS_PropLayer(4.0, 1, 200.0, out.columns());
      EXPECT_EQ(out.Vp[1], 400.0);
      EXPECT_NEAR(out.nu[1], 1.0 / 3.0, 1e-15);
      FS_PropLayer(1e6, 1, 200.0, out.columns());
      EXPECT_EQ(out.rho[1], 2.1);
    }
    run.switches.preliminaryProfileType = 0;
    FS_PropLayer(2.0, 1, 180.0, out.columns());
    EXPECT_EQ(out.damp[1], 0.5) << "layers as given have no strata";
  }
  run.switches.preliminaryProfileType = kAnalyticProfile;
  run.switches.iProfileShape = kOnGivenLayers;
  FS_PropLayer(2.0, 1, 180.0, out.columns());
  EXPECT_EQ(out.damp[1], 0.5);
}

TEST_F(PropLayer, WithoutStrataTheLayersStandIn) {
  run.switches.preliminaryProfileType = kAnalyticProfile;
  run.switches.iProfileShape = kAsFound;
  ASSERT_EQ(run.strata.nStrata, 0);
  FS_PropLayer(2.0, 1, 180.0, out.columns());
  EXPECT_EQ(out.damp[1], 0.02);
}

TEST_F(PropLayer, LayersBecomeStrataWithTheirTops) {
  KeepGivenLayersAsStrata(run.ground, run.strata);
  ASSERT_EQ(run.strata.nStrata, 4);
  const double tops[] = {0.0, 1.0, 3.0, 7.0};
  for (int l = 1; l <= 4; ++l) {
    EXPECT_EQ(run.strata.top[l], tops[l - 1]);
    EXPECT_EQ(FS_GetStrataID(run.strata, tops[l - 1]), l);
  }
}

// --- the observed curve ---

class ObservedPoints : public RunTest {
 protected:
  void SetRows(const std::vector<CurvePoint>& rows) {
    SetPlainLayers(2);
    SetGlobalCurve(static_cast<int>(rows.size()));
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    run.observations.nObsRows = static_cast<int>(rows.size());
    for (int i = 1; i <= run.observations.nObsRows; ++i) {
      run.observations.runVel[i] = rows[static_cast<std::size_t>(i - 1)].c;
      run.observations.runFreq[i] = rows[static_cast<std::size_t>(i - 1)].f;
      run.observations.runLambda[i] = rows[static_cast<std::size_t>(i - 1)].w;
    }
  }
};

TEST_F(ObservedPoints, StandInAscendingWavelength) {
  SetRows({{150, 10, 15}, {120, 40, 3}, {130, 20, 6.5}, {121, 40, 3}});
  const std::vector<CurvePoint> curve = ObservedCurve();
  ASSERT_EQ(curve.size(), 4u);
  const double c[] = {120, 121, 130, 150}, w[] = {3, 3, 6.5, 15};
  for (std::size_t k = 0; k < 4; ++k) {
    EXPECT_EQ(curve[k].c, c[k]) << "equal wavelengths keep their order";
    EXPECT_EQ(curve[k].w, w[k]);
  }
}

TEST_F(ObservedPoints, RowsThatAreNoWaveAreLeftOut) {
  SetRows({{0, 10, 15},
           {120, 40, 3},
           {-130, 20, 6.5},
           {121, 0, 3},
           {100, 5, 0},
           {kNaN, 1, 1},
           {1, kNaN, 1},
           {1, 1, kNaN},
           {kInf, 1, 1},
           {1, kInf, 1},
           {1, 1, kInf},
           {1, 1, -1}});
  const std::vector<CurvePoint> curve = ObservedCurve();
  ASSERT_EQ(curve.size(), 1u);
  EXPECT_EQ(curve[0].c, 120.0);
}

TEST_F(ObservedPoints, VelocitiesOfOneGroundLieWithinFourDecades) {
  EXPECT_TRUE(IsOneGround({}));
  EXPECT_TRUE(IsOneGround({{1.0, 1, 1}, {1e4, 1, 1}}));
  EXPECT_FALSE(IsOneGround({{1e4, 1, 1}, {0.99, 1, 1}}));
}

}  // namespace
}  // namespace sondera::testing
