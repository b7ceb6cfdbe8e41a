// Tests of the empirical starting profile.
#include "run/empirical_profile.h"

#include <gtest/gtest.h>

#include <cmath>

#include "run/observations.h"
#include "run/run_sizes.h"
#include "support/named_runs.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

static_assert(kShearOverPhase == static_cast<double>(1.1f));

TEST(MeanShearVelocity, TakesTheMeanBetweenTopAndBottomTimesElevenTenths) {
  const std::vector<CurvePoint> curve = {{100, 1, 3}, {120, 1, 6}, {140, 1, 9}, {200, 1, 30}};
  EXPECT_NEAR(MeanShearVelocity(curve, 0.5, 1.5), 110.0000023841858, 1e-9);
  EXPECT_NEAR(MeanShearVelocity(curve, 0.5, 3.5), 120.0 * 1.100000023841858, 1e-9);
}

TEST(MeanShearVelocity, PointOnAnInterfaceCountsInBothLayers) {
  const std::vector<CurvePoint> curve = {{100, 1, 3}, {120, 1, 6}, {140, 1, 9}};
  EXPECT_NEAR(MeanShearVelocity(curve, 0.0, 2.0), 110.0 * kShearOverPhase, 1e-9);
  EXPECT_NEAR(MeanShearVelocity(curve, 2.0, 9.0), 130.0 * kShearOverPhase, 1e-9);
}

TEST(MeanShearVelocity, GroupWithoutPointsHasNoMean) {
  EXPECT_TRUE(std::isnan(MeanShearVelocity({{100, 1, 3}}, 5.0, 6.0)));
}

TEST(BoundsFromCurve, LayerEndsWhereTheVariationPassesTheMeanPerLayer) {
  // Differences from c(1): 0 0 10 30 30 90; half-sums 0 5 20 30 60, together 115, mean of three layers 38.33.
  const std::vector<CurvePoint> curve = {{100, 1, 3},  {100, 1, 6},  {110, 1, 9},
                                         {130, 1, 12}, {130, 1, 18}, {190, 1, 36}};
  const std::vector<double> H = BoundsFromCurve(curve, 3, 7.0);
  // 0 + 5 + 20 = 25; + 30 = 55 passes at w = 18, depth 6; then 60 passes at w = 36, depth 12.
  EXPECT_EQ(H, (std::vector<double>{6.0, 6.0, 7.0}));
}

TEST(BoundsFromCurve, FlatCurveIsOneLayer) {
  EXPECT_EQ(BoundsFromCurve({{100, 1, 3}, {100, 1, 6}, {100, 1, 9}}, 5, 2.5), std::vector<double>{2.5});
  EXPECT_EQ(BoundsFromCurve({{100, 1, 3}}, 5, 2.5), std::vector<double>{2.5});
}

TEST(BoundsFromCurve, NeverMakesMoreLayersThanWereGiven) {
  std::vector<CurvePoint> curve;
  for (int p = 1; p <= 60; ++p) curve.push_back({100.0 + (p % 7) * 13.0 + p, 1.0, 0.5 * p});
  for (int most = 1; most <= 20; ++most) {
    const std::vector<double> H = BoundsFromCurve(curve, most, 1.0);
    EXPECT_LE(static_cast<int>(H.size()), most);
    for (double h : H) EXPECT_GT(h, 0.0);
  }
}

TEST(BoundsFromCurve, EqualWavelengthsMakeNoEmptyLayer) {
  const std::vector<CurvePoint> curve = {{100, 1, 3}, {200, 1, 6}, {300, 1, 6}, {400, 1, 6}, {500, 1, 9}};
  for (double h : BoundsFromCurve(curve, 8, 1.0)) EXPECT_GT(h, 0.0);
}

class EmpiricalProfile : public RunTest {
 protected:
  /// Curve of 4 points at the depths 1, 2, 4, 10 (wavelengths three times as long), three layers to 3 and 6.
  void Prepare(int shape = kOnGivenLayers) {
    SetLayers({{3.0, 0.0, 100.0, 2.0, 0.3, 0.01},
               {3.0, 0.0, 100.0, 2.0, 0.3, 0.02},
               {50.0, 0.0, 100.0, 2.0, 0.3, 0.03}});
    SetGlobalCurve(4);
    const double c[] = {100, 120, 160, 240}, depth[] = {1, 2, 4, 10};
    for (std::size_t k = 0; k < 4; ++k) {
      FModelParam.globalVel[k] = c[k];
      FModelParam.globalWlen[k] = 3.0 * depth[k];
      FModelParam.globalFreq[k] = c[k] / FModelParam.globalWlen[k];
    }
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, kEmpiricalProfile), 0);
    run.switches.iProfileShape = shape;
  }
};

TEST_F(EmpiricalProfile, EachLayerGetsTheMeanOfItsPoints) {
  Prepare();
  ASSERT_EQ(FS_GetStartMP(), 0);
  EXPECT_NEAR(run.ground.layerVs[1], 110.0 * kShearOverPhase, 1e-9);
  EXPECT_NEAR(run.ground.layerVs[2], 160.0 * kShearOverPhase, 1e-9);
  EXPECT_NEAR(run.ground.layerVs[3], 240.0 * kShearOverPhase, 1e-9) << "all the rest";
  for (int l = 1; l <= 3; ++l) {
    EXPECT_NEAR(run.ground.layerVp[l], run.ground.layerVs[l] * std::sqrt(3.5), 1e-9);
    EXPECT_NEAR(run.ground.layerDamp[l], 0.01 * l, 1e-15);
  }
  EXPECT_EQ(run.ground.layerH[2], 3.0);
}

TEST_F(EmpiricalProfile, WavelengthsStayAsTheyWere) {
  Prepare();
  ASSERT_EQ(FS_GetStartMP(), 0);
  const double w[] = {3, 6, 12, 30};
  for (int i = 1; i <= 4; ++i) EXPECT_EQ(run.observations.runLambda[i], w[i - 1]);
}

TEST_F(EmpiricalProfile, LayerWithoutAPointHasNoVelocity) {
  Prepare();
  FModelParam.globalWlen[2] = 33.0;
  ASSERT_EQ(FS_GetStartMP(), 0);
  EXPECT_TRUE(std::isnan(run.ground.layerVs[2]));
  EXPECT_NEAR(run.ground.layerVs[3], 200.0 * kShearOverPhase, 1e-9);
}

TEST_F(EmpiricalProfile, CurveWithoutVelocitiesIsRefusedWithOneMessage) {
  Prepare();
  std::fill(FModelParam.globalVel.begin(), FModelParam.globalVel.end(), 0.0);
  EXPECT_EQ(FS_GetStartMP(), -1);
  EXPECT_EQ(OnlyMessage(), "A starting profile needs a global dispersion curve.");
}

TEST_F(EmpiricalProfile, BoundsFromTheCurveReplaceTheLayers) {
  Prepare();
  ASSERT_EQ(ShowRefusal(FS_ReadLayerProp()), 0);
  ASSERT_EQ(FS_GetStartMP(), 0);
  ASSERT_EQ(ShowRefusal(FS_ReadLayerProp()), 0);  // the given layers again
  run.switches.iProfileShape = kBoundsFromCurve;
  ASSERT_EQ(ShowRefusal(FS_EmpPrePrf()), 0);
  // Half-sums 10, 40, 100 of 150, mean 50: passed at the fourth point only, depth 10.
  ASSERT_EQ(run.ground.nLayersCur, 2);
  EXPECT_EQ(run.ground.layerH[1], 10.0);
  EXPECT_EQ(run.ground.layerH[2], 50.0);
  EXPECT_NEAR(run.ground.layerVs[1], 155.0 * kShearOverPhase, 1e-9);
  EXPECT_NEAR(run.ground.layerVs[2], 240.0 * kShearOverPhase, 1e-9);
  EXPECT_EQ(run.ground.layerDamp[1], 0.02) << "the given layer at depth 5";
  EXPECT_EQ(run.ground.layerDamp[2], 0.03);
  EXPECT_EQ(TheoDispInfo.nLayers, 2);
  EXPECT_EQ(run.strata.nStrata, 0);
}

}  // namespace
}  // namespace sondera::testing
