// Tests of the layers of a run: derived properties, layer at a depth, model vector.
#include "run/layer_table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "run/run_sizes.h"
#include "support/odd_numbers.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class LayerTable : public RunTest {
 protected:
  /// Layers of the run itself, made for the thicknesses.
  void MakeRun(const std::vector<double>& thickness) {
    SetPlainLayers(static_cast<int>(thickness.size()));
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    for (std::size_t i = 0; i < thickness.size(); ++i)
      run.ground.layerH[static_cast<int>(i) + 1] = thickness[i];
  }
};

TEST(DensityFromVs, RunsFromFiftyToHundredTwentyFivePoundsAndIsCapped) {
  EXPECT_NEAR(DensityFromVs(87.6 * std::pow(20.0, 0.35)), 50.0 / 32.2, 1e-14);
  EXPECT_NEAR(DensityFromVs(549.3 * std::pow(20.0, 0.2)), 125.0 / 32.2, 1e-14);
  EXPECT_NEAR(DensityFromVs(500.0), 2.329245219926101, 1e-14);
  EXPECT_EQ(DensityFromVs(5000.0), 3.881987577639751);
  EXPECT_EQ(DensityFromVs(1000.04), 3.881987577639751);
  EXPECT_LT(DensityFromVs(1000.03), 3.881987577639751);
}

TEST(PoissonFromVelocities, IsTheInverseOfVpFromPoisson) {
  for (const double nu : {-0.9, -0.3, 0.0, 0.1, 0.25, 0.3333, 0.45, 0.497})
    EXPECT_NEAR(PoissonFromVelocities(VpFromPoisson(150.0, nu), 150.0), nu, 1e-12) << nu;
  EXPECT_NEAR(VpFromPoisson(100.0, 0.25), 100.0 * std::sqrt(3.0), 1e-12);
  EXPECT_NEAR(PoissonFromVelocities(2.0, 1.0), 1.0 / 3.0, 1e-15);
}

TEST(PoissonFromVelocities, WithoutAShearWaveIsNotANumberAndTrapsNothing) {
  EXPECT_TRUE(std::isnan(PoissonFromVelocities(300.0, 0.0)));
  EXPECT_TRUE(std::isinf(VpFromPoisson(100.0, 0.5)));
}

TEST(GuardedVs, GoesWithTheGuardedRatio) {
  EXPECT_NEAR(PoissonFromVelocities(1500.0, GuardedVs(1500.0)), kGuardedNu, 1e-12);
}

TEST_F(LayerTable, DepthAtAnInterfaceBelongsToTheLayerBelow) {
  MakeRun({1.0, 2.0, 4.0});
  EXPECT_EQ(FS_GetLayerID(run.ground, 0.0), 1);
  EXPECT_EQ(FS_GetLayerID(run.ground, 0.999), 1);
  EXPECT_EQ(FS_GetLayerID(run.ground, 1.0), 2);
  EXPECT_EQ(FS_GetLayerID(run.ground, 3.0), 3);
}

TEST_F(LayerTable, DepthInTheHalfSpaceHoweverLargeGivesTheLastLayer) {
  MakeRun({1.0, 2.0, 4.0});
  for (const double depth : {3.0, 7.0, 100.0, 1e300, std::numeric_limits<double>::infinity(), kNaN})
    EXPECT_EQ(FS_GetLayerID(run.ground, depth), 3) << depth;
  EXPECT_EQ(FS_GetLayerID(run.ground, -1.0), 3);  // no layer contains a place above the surface
}

TEST_F(LayerTable, LayerOfZeroThicknessHoldsNoDepth) {
  MakeRun({1.0, 0.0, 2.0, 5.0});
  EXPECT_EQ(FS_GetLayerID(run.ground, 1.0), 3);
}

TEST_F(LayerTable, OneLayerHoldsEveryDepth) {
  MakeRun({3.0});
  EXPECT_EQ(FS_GetLayerID(run.ground, 0.0), 1);
  EXPECT_EQ(FS_GetLayerID(run.ground, 50.0), 1);
}

TEST_F(LayerTable, StratumIsFoundByItsTop) {
  FS_AllocateStrataPropLayer(run.strata, 3);
  run.strata.top[1] = 0.0;
  run.strata.top[2] = 2.0;
  run.strata.top[3] = 5.0;
  EXPECT_EQ(FS_GetStrataID(run.strata, 0.0), 1);
  EXPECT_EQ(FS_GetStrataID(run.strata, 2.0), 2);
  EXPECT_EQ(FS_GetStrataID(run.strata, 4.9), 2);
  EXPECT_EQ(FS_GetStrataID(run.strata, 5.0), 3);
  EXPECT_EQ(FS_GetStrataID(run.strata, 1e9), 3);
  FS_AllocateStrataPropLayer(run.strata, 0);
  EXPECT_EQ(FS_GetStrataID(run.strata, 1.0), 0);
}

TEST_F(LayerTable, SystemSetupFillsFreeParametersWithValueAndFactor) {
  MakeRun({1.0, 2.0, 4.0});
  std::fill(run.parameters.ModelMap.begin(), run.parameters.ModelMap.end(), 0);
  run.parameters.rModel = run.parameters.rModelPrior = run.parameters.UFModel = OffsetVector<double>(1, 4);
  for (int l = 1; l <= 3; ++l) {
    run.ground.layerVs[l] = 100.0 * l;
    run.ground.layerVp[l] = 300.0 * l;
    run.ground.layerRho[l] = 2.0 * l;
    run.parameters.uncH[l] = 0.1 * l;
    run.parameters.uncVs[l] = 0.2 * l;
    run.parameters.uncVp[l] = 0.3 * l;
    run.parameters.uncRho[l] = 0.4 * l;
  }
  run.parameters.MapEntry(kQuantityH, 1) = 1;
  run.parameters.MapEntry(kQuantityVs, 2) = 2;
  run.parameters.MapEntry(kQuantityVp, 3) = 3;
  run.parameters.MapEntry(kQuantityDensity, 1) = 4;
  FS_SystemSetup(run.ground, run.parameters);
  const double value[] = {1.0, 200.0, 900.0, 2.0}, factor[] = {0.1, 0.4, 0.9, 0.4};
  for (int p = 1; p <= 4; ++p) {
    EXPECT_EQ(run.parameters.rModel[p], value[p - 1]);
    EXPECT_EQ(run.parameters.rModelPrior[p], value[p - 1]);
    EXPECT_DOUBLE_EQ(run.parameters.UFModel[p], factor[p - 1]);
  }
}

TEST_F(LayerTable, SystemSetupLeavesEveryEntryAloneWhoseMapEntryIsZero) {
  MakeRun({1.0, 2.0});
  std::fill(run.parameters.ModelMap.begin(), run.parameters.ModelMap.end(), 0);
  run.parameters.rModel = run.parameters.rModelPrior = run.parameters.UFModel = OffsetVector<double>(1, 2);
  for (auto* v : {&run.parameters.rModel, &run.parameters.rModelPrior, &run.parameters.UFModel})
    std::fill(v->begin(), v->end(), -7.0);
  run.parameters.MapEntry(kQuantityVs, 1) = 2;
  run.ground.layerVs[1] = 90.0;
  FS_SystemSetup(run.ground, run.parameters);
  EXPECT_EQ(run.parameters.rModel[1], -7.0);
  EXPECT_EQ(run.parameters.rModelPrior[1], -7.0);
  EXPECT_EQ(run.parameters.UFModel[1], -7.0);
  EXPECT_EQ(run.parameters.rModel[2], 90.0);
}

TEST_F(LayerTable, SystemSetupWritesNothingBeyondTheModelVector) {
  MakeRun({1.0, 2.0});
  run.parameters.MapEntry(kQuantityVs, 1) = 1000;
  FS_SystemSetup(run.ground, run.parameters);
  EXPECT_EQ(run.parameters.rModel.hi(), 2);
}

TEST_F(LayerTable, PropertiesFollowFromVsWhereTheyAreDerived) {
  MakeRun({1.0, 2.0});
  run.ground.layerVs[1] = 500.0;
  run.ground.layerNu[1] = 0.25;
  run.ground.iPoissonGiven[1] = run.ground.iDensityDerived[1] = 1;
  run.ground.layerVs[2] = 100.0;
  run.ground.layerVp[2] = 200.0;
  run.ground.layerRho[2] = 1.5;
  DeriveLayerProperties(run.ground, false);
  EXPECT_NEAR(run.ground.layerRho[1], 2.329245219926101, 1e-13);
  EXPECT_NEAR(run.ground.layerG[1], 2.329245219926101 * 250000.0, 1e-7);
  EXPECT_NEAR(run.ground.layerVp[1], 500.0 * std::sqrt(3.0), 1e-10);
  EXPECT_NEAR(run.ground.layerE[1], 2.5 * run.ground.layerG[1], 1e-7);
  EXPECT_EQ(run.ground.layerRho[2], 1.5);
  EXPECT_EQ(run.ground.layerG[2], 15000.0);
  EXPECT_EQ(run.ground.layerVp[2], 200.0);
  EXPECT_NEAR(run.ground.layerNu[2], 1.0 / 3.0, 1e-15);
  EXPECT_NEAR(run.ground.layerE[2], 40000.0, 1e-9);
  EXPECT_EQ(run.ground.totalDepth, 3.0);
}

TEST_F(LayerTable, PropertiesAgreeWithElasticityForRandomLayers) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> vs(50.0, 900.0), nu(0.0, 0.49), rho(1.0, 3.0);
  MakeRun(std::vector<double>(200, 1.0));
  for (int l = 1; l <= 200; ++l) {
    run.ground.layerVs[l] = vs(random);
    run.ground.layerNu[l] = nu(random);
    run.ground.layerRho[l] = rho(random);
    run.ground.iPoissonGiven[l] = l % 2;
    // Second route: P-wave modulus lambda + 2 G by way of lambda.
    const double G = run.ground.layerRho[l] * run.ground.layerVs[l] * run.ground.layerVs[l];
    const double lambda = 2.0 * G * run.ground.layerNu[l] / (1.0 - 2.0 * run.ground.layerNu[l]);
    if (l % 2 == 0) run.ground.layerVp[l] = std::sqrt((lambda + 2.0 * G) / run.ground.layerRho[l]);
  }
  DeriveLayerProperties(run.ground, true);
  for (int l = 1; l <= 200; ++l) {
    const double G = run.ground.layerG[l], E = run.ground.layerE[l];
    const double M = run.ground.layerRho[l] * run.ground.layerVp[l] * run.ground.layerVp[l];
    EXPECT_NEAR(M, G * (4.0 * G - E) / (3.0 * G - E), 1e-9 * M) << l;
  }
}

TEST_F(LayerTable, GuardReplacesAnUnphysicalRatioAndPullsVs) {
  MakeRun({1.0, 1.0, 1.0});
  for (int l = 1; l <= 3; ++l) run.ground.layerRho[l] = 2.0;
  run.ground.layerVs[1] = 100.0, run.ground.layerVp[1] = 120.0;  // nu below 0
  run.ground.layerVs[2] = 200.0, run.ground.layerVp[2] = 100.0;  // nu above 0.5
  run.ground.layerVs[3] = 100.0, run.ground.layerVp[3] = 200.0;
  DeriveLayerProperties(run.ground, true);
  EXPECT_EQ(run.ground.layerNu[1], 0.497);
  EXPECT_DOUBLE_EQ(run.ground.layerVs[1], 120.0 * std::sqrt(0.005964214711729627));
  EXPECT_EQ(run.ground.layerNu[2], 0.497);
  EXPECT_DOUBLE_EQ(run.ground.layerVs[2], 100.0 * std::sqrt(0.005964214711729627));
  EXPECT_EQ(run.ground.layerVs[3], 100.0);
}

TEST_F(LayerTable, GuardLeavesTheShearModulusOfTheFormerVs) {
  MakeRun({1.0, 1.0});
  run.ground.layerRho[1] = 2.0;
  run.ground.layerVs[1] = 100.0;
  run.ground.layerVp[1] = 120.0;
  DeriveLayerProperties(run.ground, true);
  EXPECT_EQ(run.ground.layerG[1], 20000.0);
  EXPECT_DOUBLE_EQ(run.ground.layerE[1], 2.0 * 20000.0 * 1.497);
  DeriveLayerProperties(run.ground, true);  // the next solve has the guarded one
  EXPECT_DOUBLE_EQ(run.ground.layerG[1], 2.0 * run.ground.layerVs[1] * run.ground.layerVs[1]);
}

TEST_F(LayerTable, WithoutGuardAnUnphysicalRatioStays) {
  MakeRun({1.0, 1.0});
  run.ground.layerVs[1] = 100.0;
  run.ground.layerVp[1] = 120.0;
  DeriveLayerProperties(run.ground, false);
  EXPECT_LT(run.ground.layerNu[1], 0.0);
  EXPECT_EQ(run.ground.layerVs[1], 100.0);
}

TEST_F(LayerTable, GuardDoesNotTouchALayerWithoutShearWave) {
  MakeRun({1.0, 1.0});
  run.ground.layerVp[1] = 300.0;
  DeriveLayerProperties(run.ground, true);
  EXPECT_TRUE(std::isnan(run.ground.layerNu[1]));
  EXPECT_EQ(run.ground.layerVs[1], 0.0);
}

}  // namespace
}  // namespace sondera::testing
