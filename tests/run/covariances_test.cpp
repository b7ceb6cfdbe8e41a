// Tests of observation rows, covariances and misfit.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "run/observations.h"
#include "run/run_sizes.h"
#include "support/named_runs.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class ObservationsCovariance : public RunTest {
 protected:
  /// An inversion started on the present records.
  void StartInversion() {
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    ASSERT_EQ(FS_RetrieveSystemPM(kInversionRun, 0), 0);
    ASSERT_EQ(FS_GetStartMP(), 0);
  }
  void StartGlobal(int points = 4) {
    SetPlainLayers(3);
    SetGlobalCurve(points);
    StartInversion();
  }
  void StartArray() {
    SetPlainLayers(3);
    SetArrayCurves(3, 2, {100, 0, 0, 0, 120, 121});
    StartInversion();
  }
};

// --- Rows ---

TEST_F(ObservationsCovariance, GlobalRowsAreCopiesOfThePoints) {
  StartGlobal();
  ASSERT_EQ(FS_SetUpObsData(1), 0);
  EXPECT_EQ(run.observations.nObsRows, 4);
  EXPECT_EQ(run.observations.ldObs, 4);
  for (int i = 1; i <= 4; ++i) {
    EXPECT_EQ(run.observations.runVel[i], 100.0 + 10.0 * i);
    EXPECT_EQ(run.observations.runFreq[i], 10.0 * i);
    EXPECT_EQ(run.observations.runLambda[i], run.observations.globalLambda[i]);
    EXPECT_EQ(run.observations.runLambda2[i], run.observations.globalLambda[i]);
    EXPECT_EQ(run.observations.runAmp[i], 0.0);
  }
  EXPECT_EQ(run.update.GMatrix.rows(), 4);
  EXPECT_EQ(run.update.GMatrix.cols(), run.parameters.nModelParm);
}

TEST_F(ObservationsCovariance, EveryReceiverTypeOfAPointGetsItsCopy) {
  StartGlobal();
  run.observations.globalRecCount[2] = 3;
  ASSERT_EQ(FS_SetUpObsData(1), 0);
  EXPECT_EQ(run.observations.nObsRows, 4);
  EXPECT_EQ(run.observations.runVel[4 + 2], 120.0);
  EXPECT_EQ(run.observations.runVel[8 + 2], 120.0);
  EXPECT_EQ(run.observations.runVel[4 + 1], 0.0);
}

TEST_F(ObservationsCovariance, ArrayRowsHaveVelocityOverFrequencyAsWavelength) {
  StartArray();
  ASSERT_EQ(FS_SetUpObsData(2), 0);
  EXPECT_EQ(run.observations.nObsRows, 3);
  EXPECT_EQ(run.observations.ldObs, 3);
  EXPECT_EQ(run.observations.runVel[3], 121.0);
  EXPECT_EQ(run.observations.runFreq[3], 15.0);
  EXPECT_DOUBLE_EQ(run.observations.runLambda[3], 121.0 / 15.0);
  EXPECT_EQ(run.observations.runLambda2[3], run.observations.runLambda[3]);
}

TEST_F(ObservationsCovariance, PlaneWaveAnalysisAlwaysWorksOnTheGlobalPoints) {
  SetPlainLayers(3);
  SetGlobalCurve(5);
  SetArrayCurves(3, 2, {100, 0, 0, 0, 120, 121});
  StartInversion();
  for (const int analysis : {2, -2}) {
    run.switches.iAnalysis = analysis;
    ASSERT_EQ(FS_SetUpObsData(2), 0);
    EXPECT_EQ(run.observations.nObsRows, 5);
    EXPECT_EQ(run.observations.runVel[1], 110.0);
  }
  run.switches.iAnalysis = 3;
  ASSERT_EQ(FS_SetUpObsData(2), 0);
  EXPECT_EQ(run.observations.nObsRows, 3);
}

TEST_F(ObservationsCovariance, ForwardRunHasRowsAndNoDeviations) {
  SetPlainLayers(3);
  SetGlobalCurve(4);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, 0), 0);
  ASSERT_EQ(FS_GetStartMP(), 0);
  run.switches.ufVph = 0.05;
  ASSERT_EQ(FS_SetUpObsData(1), 0);
  EXPECT_EQ(run.observations.runVel[4], 140.0);
  for (int i = 1; i <= 4; ++i) {
    EXPECT_EQ(run.observations.Cd(i, i), 0.0);
    EXPECT_EQ(run.observations.globalDev[i], 0.0);
  }
  EXPECT_TRUE(run.update.GMatrix.empty());
}

TEST_F(ObservationsCovariance, MoreRowsThanTheRunHasAreRefused) {
  StartGlobal();
  run.observations.nDispPoints = 100000;
  EXPECT_EQ(FS_SetUpObsData(1), -1);
  run.observations.nObs = 100000;
  EXPECT_EQ(FS_SetUpObsData(2), -1);
}

// --- Data covariance ---

/// Deviation that a row gets: outer loop data deviation, cdMode, scheme.
TEST_F(ObservationsCovariance, GlobalDeviationsByModeAndScheme) {
  StartGlobal(1);
  run.switches.ufVph = 0.05;
  for (const double given : {0.0, 3.0}) {
    for (const int mode : {0, 1, -1}) {
      for (const int scheme : {1, 4}) {
        run.observations.globalDev[1] = given;
        run.switches.cdMode = mode;
        run.switches.iInvScheme = scheme;
        ASSERT_EQ(FS_SetUpObsData(1), 0);
        double expected = given == 0.0 || mode == 1 ? 0.05 * 110.0 : given;
        if (mode == -1 || scheme == 4) expected = 1.0;
        EXPECT_DOUBLE_EQ(run.observations.Cd(1, 1), expected * expected)
            << given << ' ' << mode << ' ' << scheme;
        EXPECT_DOUBLE_EQ(run.observations.globalDev[1], expected);
      }
    }
  }
}

TEST_F(ObservationsCovariance, ArrayDeviationsAskTheSecondTestOnlyWhereTheFirstFails) {
  StartArray();
  run.switches.ufVph = 0.05;
  for (const double given : {0.0, 3.0}) {
    for (const int mode : {0, 1, -1}) {
      for (const int scheme : {1, 4}) {
        run.observations.arrayDev[1] = given;
        run.switches.cdMode = mode;
        run.switches.iInvScheme = scheme;
        ASSERT_EQ(FS_SetUpObsData(2), 0);
        double expected = given;
        if (given == 0.0 || mode == 1) {
          expected = 0.05 * 100.0;
        } else if (mode == -1 || scheme == 4) {
          expected = 1.0;
        }
        EXPECT_DOUBLE_EQ(run.observations.Cd(1, 1), expected * expected)
            << given << ' ' << mode << ' ' << scheme;
        EXPECT_DOUBLE_EQ(run.observations.arrayDev[1], expected);
      }
    }
  }
}

TEST_F(ObservationsCovariance, DeviationMadeOnceStaysForTheNextPass) {
  StartArray();
  run.switches.ufVph = 0.05;
  ASSERT_EQ(FS_SetUpObsData(2), 0);
  run.switches.ufVph = 0.5;
  ASSERT_EQ(FS_SetUpObsData(2), 0);
  EXPECT_DOUBLE_EQ(run.observations.Cd(1, 1), 25.0);
}

TEST_F(ObservationsCovariance, NoFactorLeavesTheDeviationZero) {
  StartArray();  // ufVph is 0 until the panel of the inversion sets it
  ASSERT_EQ(FS_SetUpObsData(2), 0);
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(run.observations.Cd(i, i), 0.0);
}

TEST_F(ObservationsCovariance, AmplitudesDoubleTheRowsOfArrayCurves) {
  StartArray();
  run.switches.iUseAmplitude = 1;
  run.switches.ufVph = 0.1;
  run.switches.cdMode = 0;
  for (int i = 1; i <= 3; ++i) run.observations.arrayAmp[i] = 2.0 * i;
  run.observations.arrayAmpDev[2] = 0.7;
  ASSERT_EQ(FS_SetUpObsData(2), 0);
  EXPECT_EQ(run.observations.nObsRows, 3);
  EXPECT_EQ(run.observations.ldObs, 6);
  EXPECT_EQ(run.observations.runAmp[3], 6.0);
  EXPECT_NEAR(run.observations.Cd(4, 4), 0.04, 1e-15);
  EXPECT_NEAR(run.observations.Cd(5, 5), 0.49, 1e-15);
  EXPECT_EQ(run.update.GMatrix.rows(), 6);
  run.switches.iInvScheme = 4;
  run.observations.arrayAmpDev[1] = 0.0;
  ASSERT_EQ(FS_SetUpObsData(2), 0);
  EXPECT_EQ(run.observations.Cd(4, 4),
            1.0);  // by the two tests in turn, unlike the velocities of array curves
  EXPECT_EQ(run.observations.Cd(1, 1), 1.0);
}

// --- Model covariance ---

TEST_F(ObservationsCovariance, FactorBelowOneIsARatioAndOneOrMoreADeviation) {
  SetPlainLayers(3);
  SetGlobalCurve(4);
  InvParam.MODELPARM = 1;
  InvParam.ufVs = 0.05;
  StartInversion();
  EXPECT_DOUBLE_EQ(run.parameters.Cm(2, 2), 0.05 * 120.0 * 0.05 * 120.0);
  run.parameters.rModel[2] = 200.0;  // follows the current model
  FS_Setup_Cm();
  EXPECT_DOUBLE_EQ(run.parameters.Cm(2, 2), 100.0);
  for (const double factor : {25.0, 1.0}) {
    for (double& u : run.parameters.UFModel) u = factor;
    FS_Setup_Cm();
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(run.parameters.Cm(i, i), factor * factor);
  }
}

TEST_F(ObservationsCovariance, CmIsDiagonalWithoutCorrelationLengths) {
  SetPlainLayers(4);
  SetGlobalCurve(4);
  InvParam.MODELPARM = 3;
  StartInversion();
  for (int i = 1; i <= run.parameters.nModelParm; ++i)
    for (int j = 1; j <= run.parameters.nModelParm; ++j) EXPECT_EQ(run.parameters.Cm(i, j) != 0.0, i == j);
}

TEST_F(ObservationsCovariance, NegativeFirstFactorOrSchemeFourClearAll) {
  StartGlobal();
  run.parameters.UFModel[1] = -0.1;
  FS_Setup_Cm();
  for (int i = 1; i <= run.parameters.nModelParm; ++i) EXPECT_EQ(run.parameters.Cm(i, i), 0.0);
  run.parameters.UFModel[1] = 0.1;
  FS_Setup_Cm();
  EXPECT_GT(run.parameters.Cm(1, 1), 0.0);
  run.switches.iInvScheme = 4;
  FS_Setup_Cm();
  for (int i = 1; i <= run.parameters.nModelParm; ++i) EXPECT_EQ(run.parameters.Cm(i, i), 0.0);
}

/// The covariance written out for two parameters, from the rule itself.
double PlainCm(int i, int j, const std::vector<double>& top,
               const std::vector<std::pair<int, int>>& parameter) {
  const auto deviation = [](int p) {
    const double u = run.parameters.UFModel[p];
    return u < 1.0 ? u * run.parameters.rModel[p] : std::abs(u);
  };
  if (i == j) return deviation(i) * deviation(i);
  const auto [li, qi] = parameter[static_cast<std::size_t>(std::min(i, j) - 1)];
  const auto [lj, qj] = parameter[static_cast<std::size_t>(std::max(i, j) - 1)];
  const double length = run.parameters.CorrLength(qi, li);
  if (qi != qj || length == 0.0) return 0.0;
  const auto mid = [&](int l) { return top[static_cast<std::size_t>(l - 1)] + run.ground.layerH[l] / 2.0; };
  const double x = 3.0 * (mid(lj) - mid(li)) / length;
  return deviation(i) * deviation(j) * std::exp(-x * x / 2.0);
}

TEST_F(ObservationsCovariance, CorrelatedModelAgreesWithTheRuleWrittenOut) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> u(0.1, 3.0);
  SetPlainLayers(6);
  SetGlobalCurve(4);
  InvParam.MODELPARM = 3;
  StartInversion();
  std::vector<double> top{0.0};
  for (int l = 1; l <= 6; ++l) {
    run.ground.layerH[l] = u(random);
    top.push_back(top.back() + run.ground.layerH[l]);
    run.parameters.CorrLength(kQuantityVs, l) = l == 3 ? 0.0 : 4.0 * u(random);
    run.parameters.CorrLength(kQuantityH, l) = l % 2 == 0 ? 0.0 : 2.0 * u(random);
  }
  for (double& f : run.parameters.UFModel) f = u(random);
  std::vector<std::pair<int, int>> parameter;
  for (int l = 1; l <= 6; ++l) {
    if (l < 6) parameter.emplace_back(l, kQuantityH);
    parameter.emplace_back(l, kQuantityVs);
  }
  FS_Setup_Cm();
  int correlated = 0;
  for (int i = 1; i <= run.parameters.nModelParm; ++i) {
    for (int j = 1; j <= run.parameters.nModelParm; ++j) {
      const double expected = PlainCm(i, j, top, parameter);
      EXPECT_NEAR(run.parameters.Cm(i, j), expected, 1e-12 * (1.0 + expected)) << i << ' ' << j;
      correlated += i != j && expected != 0.0;
    }
  }
  EXPECT_GT(correlated, 10);
}

// --- Misfit ---

TEST_F(ObservationsCovariance, MisfitIsTheRootMeanSquareOverRowsWithAVelocity) {
  StartGlobal();
  ASSERT_EQ(FS_SetUpObsData(1), 0);
  OffsetVector<double> velocity(1, 4), amplitude(1, 4);
  velocity[1] = 113.0;  // observed 110
  velocity[2] = 0.0;    // no result: not counted
  velocity[3] = 126.0;  // observed 130
  velocity[4] = 140.0;
  double rmsVel = 0.0, rmsAmp = 0.0;
  FS_RMSerror(velocity, amplitude, rmsVel, rmsAmp);
  EXPECT_DOUBLE_EQ(rmsVel, std::sqrt(25.0 / 3.0));
  EXPECT_EQ(rmsAmp, 0.0);
}

TEST_F(ObservationsCovariance, MisfitWithoutAnyVelocityIsMinusOne) {
  StartGlobal();
  ASSERT_EQ(FS_SetUpObsData(1), 0);
  const OffsetVector<double> nothing(1, 4);
  double rmsVel = 5.0, rmsAmp = 5.0;
  FS_RMSerror(nothing, nothing, rmsVel, rmsAmp);
  EXPECT_EQ(rmsVel, -1.0);
  EXPECT_EQ(rmsAmp, -1.0);
  run.observations.nObsRows = 0;
  FS_RMSerror({}, {}, rmsVel, rmsAmp);
  EXPECT_EQ(rmsVel, -1.0);
}

TEST_F(ObservationsCovariance, AmplitudeMisfitIsOverTheAmplitudeScale) {
  StartArray();
  run.switches.iUseAmplitude = 1;
  for (int i = 1; i <= 3; ++i) run.observations.arrayAmp[i] = 1.0;
  ASSERT_EQ(FS_SetUpObsData(2), 0);
  OffsetVector<double> velocity(1, 3), amplitude(1, 3);
  for (int i = 1; i <= 3; ++i) {
    velocity[i] = run.observations.runVel[i];
    amplitude[i] = 3.0;
  }
  double rmsVel = 0.0, rmsAmp = 0.0;
  FS_RMSerror(velocity, amplitude, rmsVel, rmsAmp);
  EXPECT_EQ(rmsVel, 0.0);
  EXPECT_DOUBLE_EQ(rmsAmp, 2.0);
  run.course.ampScale = 4.0;
  FS_RMSerror(velocity, amplitude, rmsVel, rmsAmp);
  EXPECT_DOUBLE_EQ(rmsAmp, 0.5);
}

}  // namespace
}  // namespace sondera::testing
