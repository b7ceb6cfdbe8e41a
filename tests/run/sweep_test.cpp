// Tests of the sweeps: plane waves and point load, both domains, with and without data, doubts and halts.
#include "run/sweep.h"

#include <gtest/gtest.h>

#include <cmath>

#include "forward/plane_wave.h"
#include "run/observations.h"
#include "run/receiver_setups.h"
#include "run/run_sizes.h"
#include "run/sampled_curve.h"
#include "run/sweep_solvers.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/events.h"
#include "support/named_runs.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class Sweep : public RunTest {
 protected:
  /// Settings of a run without data on a uniform ground of two layers.
  void SetRange(int dispCurvType, int xDomainType, double min, double max, int n, double ratio = -1.0) {
    SetLayers({{2.0, 0.0, 150.0, 2.0, 0.3, 0.02}, {20.0, 0.0, 150.0, 2.0, 0.3, 0.02}});
    FModelParam.dispCurvType = dispCurvType;
    FModelParam.DispCurvInfo = 0;
    FModelParam.xDomainType = xDomainType;
    FModelParam.xMinGlobal = min;
    FModelParam.xMaxGlobal = max;
    FModelParam.nDispPointsG = FModelParam.nDispPoints = n;
    FModelParam.incRatio = ratio;
    FModelParam.nSubLayers = 6;
  }
  void SetPairs(int n, double min, double max) {
    FModelParam.nDispCurves = n;
    FModelParam.nReceivers = n + 1;
    for (int c = 0; c < n; ++c) {
      FModelParam.pairMin[static_cast<std::size_t>(c)] = min;
      FModelParam.pairMax[static_cast<std::size_t>(c)] = max;
    }
  }
  /// Everything before the solvers.
  void Start(int analysis) {
    FModelParam.analysis = analysis;
    ASSERT_EQ(ResetTheoDispInfo(), 0);
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, 0), 0);
    ASSERT_EQ(FS_GetStartMP(), 0);
    ASSERT_EQ(FS_SetUpObsData(run.switches.iDispSource), 0);
    if (run.switches.iDispSource == 1) FS_SearchReceivers(run.observations, run.receivers);
  }

  OffsetVector<double> vel, amp;
  // Rayleigh velocity over Vs for a Poisson's ratio of 0.3: root of the cubic of the half-space.
  static constexpr double kRayleigh = 0.927413;
};

TEST_F(Sweep, UniformGroundHasOneVelocityAtAllWavelengths) {
  SetRange(1, 1, 1.0, 50.0, 8);
  Start(2);
  ASSERT_EQ(FS_rWave3D_F(vel, amp), 0);
  for (int i = 1; i <= 8; ++i) {
    EXPECT_NEAR(vel[i], 150.0 * kRayleigh, 150.0 * 2e-6);
    EXPECT_DOUBLE_EQ(run.observations.runFreq[i], vel[i] / run.observations.runLambda[i]);
    EXPECT_DOUBLE_EQ(run.observations.globalVel[i], vel[i]);
    EXPECT_EQ(run.observations.iNoVelocity[i], 0);
  }
  EXPECT_EQ(SweepReport(), "");
}

TEST_F(Sweep, FrequencyDomainFindsThePointsOfTheCurve) {
  SetRange(1, 2, 5.0, 60.0, 9);
  FModelParam.Vs[1] = 300.0;
  Start(2);
  ASSERT_EQ(FS_rWave3D_F(vel, amp), 0);
  Listener nobody;
  SweepSolvers solvers(PartsOfSweep(run), run.observations.nDispPoints, nobody);
  for (int i = 1; i <= 9; ++i) {
    double again = 0.0;
    ASSERT_TRUE(solvers.PlaneWave(vel[i] / run.observations.runFreq[i], again));
    EXPECT_NEAR(vel[i], again, 1e-3 * again) << run.observations.runFreq[i];
    EXPECT_NEAR(run.observations.runLambda[i] * run.observations.runFreq[i], vel[i], 1e-9 * vel[i]);
  }
  EXPECT_GT(vel[1], vel[9]);
}

TEST_F(Sweep, ArrayCurvesWithoutDataWorkInTheFrequencyDomain) {
  SetRange(2, 1, 1.0, 100.0, 5, 1.0);
  SetPairs(2, 10.0, 50.0);
  FModelParam.pairMin[1] = 30.0;
  Start(2);
  EXPECT_EQ(run.switches.xDomain, 2);
  ASSERT_EQ(FS_rWave3D_F(vel, amp), 0);
  EXPECT_EQ(run.observations.nObs, 8);  // 10, 20, 30, 40, 50 Hz; the second pair has the last three
  EXPECT_EQ(run.observations.nObsRows, 8);
  for (int row = 1; row <= 8; ++row) {
    EXPECT_NEAR(vel[row], 150.0 * kRayleigh, 1e-3);
    EXPECT_DOUBLE_EQ(run.observations.runVel[row], vel[row]);
    EXPECT_DOUBLE_EQ(run.observations.arrayDev[row], 0.01);
  }
  EXPECT_EQ(run.observations.iArrayIndex(2, 1), 0);
  EXPECT_EQ(run.observations.iArrayIndex(2, 5), 8);
}

TEST_F(Sweep, FrequencyAboveTheSamplesIsExtrapolatedFromTheShortestWavelengths) {
  SampledCurve curve;
  for (int i = 1; i <= kSampledPoints; ++i) {
    curve.freq[i] = i;
    curve.vel[i] = 100.0 + 3.0 * i;
  }
  EXPECT_NEAR(VelocityAt(curve, 50.5), 251.5, 1e-9);
  EXPECT_NEAR(VelocityAt(curve, 105.0), 415.0, 1e-6);
  curve.vel[kSampledPoints - 9] = 0.0;  // sample 91 begins the window
  EXPECT_EQ(VelocityAt(curve, 105.0), 0.0);
  EXPECT_NEAR(VelocityAt(curve, 50.5), 251.5, 1e-9);
}

TEST_F(Sweep, WindowStandsFiveSamplesBeforeTheBracket) {
  SampledCurve curve;
  for (int i = 1; i <= kSampledPoints; ++i) {
    curve.freq[i] = i;
    curve.vel[i] = 100.0;
  }
  // A sample without root spoils exactly the windows that hold it: 15 .. 24 for the bracket at 20.
  curve.vel[14] = 0.0;
  EXPECT_EQ(VelocityAt(curve, 20.5), 100.0);
  EXPECT_EQ(VelocityAt(curve, 19.5), 0.0);
  curve.vel[14] = 100.0;
  curve.vel[25] = 0.0;
  EXPECT_EQ(VelocityAt(curve, 20.5), 100.0);
  EXPECT_EQ(VelocityAt(curve, 21.5), 0.0);
  // The first window begins at 1 for brackets up to 6.
  curve.vel[11] = 0.0;
  EXPECT_EQ(VelocityAt(curve, 6.5), 100.0);
  EXPECT_EQ(VelocityAt(curve, 7.5), 0.0);
}

TEST_F(Sweep, PointWithoutRootStoresZeroVelocityAndFrequency) {
  SetRange(1, 1, 1.0, 50.0, 2);
  Start(2);
  run.ground.layerVs[2] = run.ground.layerVs[1] = 0.0;
  ASSERT_EQ(FS_rWave3D_F(vel, amp), 0);
  EXPECT_EQ(vel[1], 0.0);
  EXPECT_EQ(run.observations.runFreq[1], 0.0);
  EXPECT_EQ(run.observations.iNoVelocity[1], 1);
  EXPECT_EQ(run.observations.iNoVelocity[2], 1);
  EXPECT_EQ(SweepReport(), "2 points without a result: 1, 2");
}

TEST_F(Sweep, GroundWithoutVsEndsWithoutResultInTheFrequencyDomainToo) {
  SetRange(1, 2, 5.0, 50.0, 2);
  FModelParam.Vp[0] = 300.0;
  FModelParam.Vs[0] = 0.0;
  FModelParam.nu[0] = 0.0;
  Start(2);
  ASSERT_EQ(FS_rWave3D_F(vel, amp), 0);
  EXPECT_EQ(vel[1], 0.0);
  EXPECT_EQ(vel[2], 0.0);
  EXPECT_EQ(SweepReport(), "2 points without a result: 1, 2");
}

TEST_F(Sweep, ObservationWithoutFrequencyHasNoResult) {
  SetPlainLayers(3);
  SetGlobalCurve(2);
  FModelParam.globalFreq[0] = 0.0;
  Start(2);
  ASSERT_EQ(FS_rWave3D(vel, amp), 0);
  EXPECT_EQ(vel[1], 0.0);
  EXPECT_GT(vel[2], 0.0);
  EXPECT_EQ(run.observations.iNoVelocity[1], 1);
  EXPECT_EQ(run.observations.runLambda2[1], 0.0);
}

TEST_F(Sweep, PlaneWavesWithDataAreSolvedAtTheObservedWavelength) {
  SetPlainLayers(3);
  SetGlobalCurve(3);
  Start(2);
  ASSERT_EQ(FS_rWave3D(vel, amp), 0);
  for (int i = 1; i <= 3; ++i) {
    double c = 0.0;
    Listener nobody;
    SweepSolvers solvers(PartsOfSweep(run), 3, nobody);
    ASSERT_TRUE(solvers.PlaneWave(run.observations.runVel[i] / run.observations.runFreq[i], c));
    EXPECT_DOUBLE_EQ(vel[i], c);
    EXPECT_DOUBLE_EQ(run.observations.runLambda2[i], c / run.observations.runFreq[i]);
    EXPECT_DOUBLE_EQ(run.observations.runVel[i], 100.0 + 10.0 * i);
    EXPECT_DOUBLE_EQ(run.observations.runLambda[i], run.observations.globalLambda[i]);
  }
}

TEST_F(Sweep, UnphysicalPoissonsRatioIsReplacedOnlyInRunsWithData) {
  SetLayers({{2.0, 200.0, 150.0, 2.0, 0.0, 0.02}, {2.0, 400.0, 150.0, 2.0, 0.0, 0.02}});
  SetGlobalCurve(1);
  Start(2);
  ASSERT_EQ(FS_rWave3D(vel, amp), 0);
  EXPECT_DOUBLE_EQ(run.ground.layerNu[1], 0.497);
  EXPECT_DOUBLE_EQ(run.ground.layerVs[1], 200.0 * std::sqrt(0.005964214711729627));
  EXPECT_DOUBLE_EQ(run.ground.layerVs[2], 150.0);

  SetRange(1, 1, 1.0, 5.0, 1);
  SetLayers({{2.0, 200.0, 150.0, 2.0, 0.0, 0.02}, {2.0, 400.0, 150.0, 2.0, 0.0, 0.02}});
  Start(2);
  run.ground.layerVs[1] = 150.0;  // possible after an update of the model
  ASSERT_EQ(FS_rWave3D_F(vel, amp), 0);
  EXPECT_LT(run.ground.layerNu[1], 0.0);
  EXPECT_DOUBLE_EQ(run.ground.layerVs[1], 150.0);
}

TEST_F(Sweep, PointLoadOnUniformGroundIsNearTheRayleighVelocity) {
  for (int analysis : {3, 4}) {
    SetRange(1, 1, 4.0, 16.0, 2);
    Start(analysis);
    ASSERT_EQ(FS_rWave3D_F(vel, amp), 0);
    for (int i = 1; i <= 2; ++i) {
      EXPECT_NEAR(vel[i], 150.0 * kRayleigh, 8.0) << analysis;
      EXPECT_GT(amp[i], 0.0);
      EXPECT_LT(amp[i], 1.0);
      EXPECT_NEAR(run.observations.runVel[i], 150.0 * kRayleigh,
                  1e-3);  // the plane-wave seed becomes the observation
      EXPECT_DOUBLE_EQ(run.observations.runLambda2[i], vel[i] / run.observations.runFreq[i]);
    }
  }
}

TEST_F(Sweep, PointLoadWithDataOnArrayCurvesFillsEveryRow) {
  SetRange(2, 1, 0.0, 0.0, 2);
  SetArrayCurves(2, 2, {140.0, 0.0, 139.0, 141.0});
  FModelParam.freq = {20.0, 30.0};
  FModelParam.recLoc = {4.0, 8.0, 16.0};
  Start(3);
  ASSERT_EQ(FS_rWave3D(vel, amp), 0);
  EXPECT_EQ(run.observations.nObsRows, 3);
  for (int row = 1; row <= 3; ++row) {
    EXPECT_NEAR(vel[row], 150.0 * kRayleigh, 15.0) << row;
    EXPECT_DOUBLE_EQ(run.observations.runLambda2[row], vel[row] / run.observations.runFreq[row]);
  }
  EXPECT_EQ(run.receivers.recCfgOfPoint[1], 4);
  EXPECT_EQ(GetCtrlVal(exdthd::STATUSMSG).substr(0, 25), "F. Modeling: [F,D]=[2,2] ");
}

TEST_F(Sweep, ArrayCurvesWithoutDataGoThroughThePointLoadSolver) {
  SetRange(2, 1, 0.0, 0.0, 2, 1.0);
  SetPairs(2, 20.0, 30.0);
  for (std::size_t r = 0; r < 3; ++r) FModelParam.recLoc[r] = std::ldexp(4.0, static_cast<int>(r));
  Start(3);
  ASSERT_EQ(FS_rWave3D_F(vel, amp), 0);
  EXPECT_EQ(run.observations.nObsRows, 4);
  for (int row = 1; row <= 4; ++row) EXPECT_NEAR(vel[row], 150.0 * kRayleigh, 15.0) << row;
  EXPECT_EQ(GetCtrlVal(exdthd::STATUSMSG).substr(0, 27), "F. Modeling: [F,D]=(  2, 2)");
}

TEST_F(Sweep, PointThatThePointLoadSolverRefusesIsNamed) {
  SetPlainLayers(3);
  FModelParam.thickness[2] = 40.0;
  SetGlobalCurve(2);
  FModelParam.globalVel[1] = 0.0;
  FModelParam.nSubLayers = 6;
  Start(3);
  ASSERT_EQ(FS_rWave3D(vel, amp), 0);
  EXPECT_EQ(vel[2], 0.0);
  EXPECT_EQ(run.observations.iNoVelocity[1], 0);
  EXPECT_EQ(run.observations.iNoVelocity[2], 1);
  EXPECT_EQ(SweepReport(), "1 point without a result: 2");
}

TEST_F(Sweep, IncompleteModesKeepTheSeedAndAreNamed) {
  SetPlainLayers(3);
  FModelParam.thickness[2] = 40.0;
  SetGlobalCurve(2);
  FModelParam.globalVel[1] = 20.0 * 1e-150;  // stiffnesses of this wavelength are beyond a double
  FModelParam.nSubLayers = 6;
  Start(3);
  ASSERT_EQ(FS_rWave3D(vel, amp), 0);
  EXPECT_EQ(vel[2], 20.0 * 1e-150);
  EXPECT_EQ(run.observations.iNoVelocity[2], 0);
  EXPECT_EQ(SweepReport(), "1 point kept at the seed (incomplete modes): 2");
}

TEST_F(Sweep, TableThatEndsLessThanAWavelengthDownIsTold) {
  SetRange(1, 1, 4.0, 40.0, 2);  // 22 deep: enough for a wavelength of 4, not for one of 40
  FModelParam.nSubLayers = 8;
  Start(3);
  ASSERT_EQ(FS_rWave3D_F(vel, amp), 0);
  EXPECT_EQ(SweepReport(),
            "1 point over a table that ends less than a wavelength down (make its last layer thicker): 2");

  FModelParam.thickness[1] = 200.0;
  Start(3);
  ASSERT_EQ(FS_rWave3D_F(vel, amp), 0);
  EXPECT_EQ(SweepReport(), "");
}

TEST_F(Sweep, ManyDoubtsAreCountedAndTheFirstOnesNamed) {
  sweepState = SweepState{};
  for (int i = 1; i <= 12; ++i) sweepState.noResult.push_back(std::to_string(i));
  sweepState.seedKept = {"(3,2)"};
  EXPECT_EQ(SweepReport(),
            "12 points without a result: 1, 2, 3, 4, 5, 6, 7, 8, ...; "
            "1 point kept at the seed (incomplete modes): (3,2)");
  sweepState = SweepState{};
}

TEST_F(Sweep, ProgressLinesHaveTheirFormats) {
  EXPECT_EQ(GlobalProgress(7, 12.5, 8.25, 103.125),
            "F. Modeling: [  7]   Freq=12.5000      WaveL=8.2500       Vel=103.1250    ");
  EXPECT_EQ(ArrayProgress(false, 7, 2, 12.5, 8.25, 103.125),
            "F. Modeling: [F,D]=(  7, 2)   Freq=12.5000      WaveL=8.2500       Vel=103.1250    ");
  EXPECT_EQ(ArrayProgress(true, 7, 2, 12.5, 8.25, 103.125),
            "F. Modeling: [F,D]=[7,2]   Freq=12.5000      WaveL=8.2500       Vel=103.1250    ");
  EXPECT_EQ(SlotProgress(7, 2, 12.5, 8.25, 103.125),
            "F. Modeling: [F,V]=[  7, 2]   Freq=12.5000      WaveL=8.2500       Vel=103.1250    ");
}

TEST_F(Sweep, HaltEndsASweepAtTheNextPollAndTakesTheRequestBack) {
  SetRange(1, 1, 1.0, 50.0, 8);
  Start(2);
  int polls = 0;
  frontEnd.onProcessEvents = [&polls] {
    if (++polls == 3) run.course.iHaltRequest = 1;
  };
  EXPECT_EQ(FS_rWave3D_F(vel, amp), -1);
  EXPECT_EQ(polls, 3);
  EXPECT_EQ(run.course.iHaltRequest, 0);
  EXPECT_GT(run.observations.runVel[2], 0.0);
  EXPECT_EQ(run.observations.runVel[4], 0.0);
}

TEST_F(Sweep, HaltEndsSamplingAndSweepsWithData) {
  SetRange(1, 2, 5.0, 60.0, 4);
  Start(2);
  frontEnd.onProcessEvents = [] { run.course.iHaltRequest = 1; };
  EXPECT_EQ(FS_rWave3D_F(vel, amp), -1);
  SetGlobalCurve(4);
  Start(3);
  int polls = 0;
  frontEnd.onProcessEvents = [&polls] {
    if (++polls == 2) run.course.iHaltRequest = 1;
  };
  EXPECT_EQ(FS_rWave3D(vel, amp), -1);
  EXPECT_EQ(polls, 2);
  EXPECT_EQ(run.course.iHaltRequest, 0);
}

TEST_F(Sweep, InterruptOfTheTerminalHaltsAndStaysForTheScript) {
  SetRange(1, 1, 1.0, 50.0, 8);
  Start(2);
  RequestInterrupt();
  EXPECT_EQ(FS_rWave3D_F(vel, amp), -1);
  EXPECT_TRUE(InterruptRequested());
  ClearInterrupt();
}

TEST_F(Sweep, FrequenciesThatMakeNoRangeEndInOneMessage) {
  SetRange(1, 2, 5.0, -4.0, 1, 1.0);
  Start(2);
  EXPECT_EQ(FS_rWave3D_F(vel, amp), -1);
  EXPECT_EQ(OnlyMessage(), "The frequencies from 5 to -4 Hz make no range. Both ends must be above 0.");
}

// --- The whole run on the records ---

using ForwardRun = Sweep;

TEST_F(ForwardRun, WithoutDataByWavelengthWritesAllFiles) {
  SetRange(1, 1, 2.0, 20.0, 3);
  FModelParam.analysis = 2;
  ASSERT_EQ(ResetTheoDispInfo(), 0);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_fModel(0, 0), 0);
  const std::string fdp = File(".fdp");
  EXPECT_EQ(fdp.substr(0, fdp.find('\n')), "Iteration no. :  0 (2-D) ... RMS error (Vel=0)");
  EXPECT_NE(fdp.find("\n    2.00000 "), std::string::npos) << fdp;
  EXPECT_NE(File(".fmp"), "");
  EXPECT_NE(File(".pfl"), "");
  EXPECT_EQ(File(".pcm"), "");
  EXPECT_NEAR(InvParam.vel(0, 2), 150.0 * kRayleigh, 1e-3);
  EXPECT_NEAR(InvParam.waveL(0, 2), 20.0, 1e-9);
  EXPECT_EQ(InvParam.nPoints, 3);
  EXPECT_EQ(InvParam.nLayers, 2);
  EXPECT_EQ(GetCtrlVal(exdthd::STATUSMSG).substr(0, 72),
            "End of Forward Modeling Analysis:     The computation time : [0hr 0min 0");
  EXPECT_EQ(GetCtrlVal(exdthd::STATUSMSG).find("point"), std::string::npos);
}

TEST_F(ForwardRun, WithoutDataByFrequencyShowsTheWantedFrequencies) {
  SetRange(1, 2, 10.0, 40.0, 3);
  FModelParam.analysis = 2;
  ASSERT_EQ(ResetTheoDispInfo(), 0);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_fModel(0, 0), 0);
  EXPECT_NEAR(TheoDispInfo.globalFreq[0], 10.0, 1e-9);
  EXPECT_NEAR(TheoDispInfo.globalFreq[1], 20.0, 1e-9);
  EXPECT_NEAR(TheoDispInfo.globalWlen[1], 150.0 * kRayleigh / 20.0, 1e-4);
}

TEST_F(ForwardRun, WithDataGivesTheMisfit) {
  SetPlainLayers(3);
  SetGlobalCurve(4);
  FModelParam.analysis = 2;
  ASSERT_EQ(ResetTheoDispInfo(), 0);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_fModel(0, -2), 0);
  double sum = 0.0;
  for (int i = 0; i < 4; ++i) sum += std::pow(SMPParam.vel(2, i) - (110.0 + 10.0 * i), 2.0);
  EXPECT_NEAR(GetCtrlVal(exdthd::RMSERROR), std::sqrt(sum / 4.0), 1e-9);
  EXPECT_GT(GetCtrlVal(exdthd::RMSERROR), 0.0);
  EXPECT_DOUBLE_EQ(SMPParam.rms[2], GetCtrlVal(exdthd::RMSERROR));
  EXPECT_NE(File(".fdp").find("Iteration no. : -2"), std::string::npos);
}

TEST_F(ForwardRun, PlaneWavesUnderArrayDataWorkOnTheGlobalPoints) {
  SetPlainLayers(3);
  SetArrayCurves(2, 2, {140.0, 0.0, 139.0, 141.0});
  FModelParam.nDispPointsG = 3;
  for (std::size_t i = 0; i < 3; ++i) {
    FModelParam.globalVel[i] = 100.0;
    FModelParam.globalFreq[i] = 10.0 + static_cast<double>(i);
    FModelParam.globalWlen[i] = 100.0 / FModelParam.globalFreq[i];
  }
  FModelParam.analysis = 2;
  ASSERT_EQ(ResetTheoDispInfo(), 0);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_fModel(0, 0), 0);
  EXPECT_EQ(InvParam.nPoints, 3);
  EXPECT_EQ(InvParam.nCurves, 1);
  EXPECT_GT(TheoDispInfo.globalVel[2], 0.0);
  EXPECT_EQ(TheoDispInfo.vel[0], 0.0);
  EXPECT_NE(File(".fdp").find("wavelength  freq(obs)"), std::string::npos);
}

TEST_F(ForwardRun, HaltSavesNothing) {
  SetRange(1, 1, 2.0, 20.0, 3);
  FModelParam.analysis = 2;
  ASSERT_EQ(ResetTheoDispInfo(), 0);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  frontEnd.onProcessEvents = [] { run.course.iHaltRequest = 1; };
  EXPECT_EQ(FS_fModel(0, 0), -1);
  EXPECT_TRUE(folder.Names().empty());
  EXPECT_EQ(InvParam.nPoints, 0);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(ForwardRun, LayerWithoutVsGivesNoVelocityAndSaysWhy) {
  SetLayers({{2.0, 0.0, 150.0, 2.0, 0.3, 0.02}, {2.0, 300.0, 0.0, 2.0, 0.0, 0.02}});
  SetGlobalCurve(2);
  FModelParam.analysis = 3;
  ASSERT_EQ(ResetTheoDispInfo(), 0);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  EXPECT_EQ(FS_fModel(0, 0), 0);
  EXPECT_EQ(GetCtrlVal(exdthd::RMSERROR), -1.0);
  EXPECT_NE(OnlyMessage().find("S-wave velocity 0 of layer 2"), std::string::npos) << OnlyMessage();
  EXPECT_NE(GetCtrlVal(exdthd::STATUSMSG).find("2 points without a result: 1, 2"), std::string::npos);
}

TEST_F(ForwardRun, HostileSettingsEndInOneMessage) {
  struct Case {
    const char* what;
    void (*spoil)();
  };
  const Case cases[] = {
      {"sublayers", [] { FModelParam.nSubLayers = 1000000; }},
      {"depth factor", [] { FModelParam.fDispBulb = 1e9; }},
      {"analysis", [] { FModelParam.analysis = 7; }},
      {"negative Vs", [] { FModelParam.Vs[0] = -150.0; }},
      {"negative thickness", [] { FModelParam.thickness[1] = -2.0; }},
      {"layers", [] { FModelParam.nLayers = 2000000000; }},
      {"points", [] { FModelParam.nDispPointsG = 2000000000; }},
      {"not a number", [] { FModelParam.nu[0] = std::nan(""); }},
      {"empty range", [] { FModelParam.xMinGlobal = 0.0; }},
      {"receiver type", [] { FModelParam.GlobalRecType = 9; }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    frontEnd.messages.clear();
    InitializeFModel();
    InitializeTheoDispInfo();
    SetRange(1, 1, 2.0, 20.0, 3);
    FModelParam.analysis = 3;
    c.spoil();
    EXPECT_TRUE(ResetTheoDispInfo() < 0 || FS_AllocMemoryBlocks() < 0 || FS_fModel(0, 0) < 0);
    EXPECT_EQ(frontEnd.messages.size(), 1u);
  }
}

TEST_F(ForwardRun, ExtremeButAllowedSettingsEndWithAResultOrAComplaint) {
  const double values[] = {1e-300, 1e-12, 1e12, 1e300};
  for (double v : values) {
    for (int analysis : {2, 3, 4}) {
      InitializeFModel();
      InitializeTheoDispInfo();
      SetRange(1, 1, 2.0, 20.0, 2);
      FModelParam.analysis = analysis;
      FModelParam.thickness[0] = v;
      FModelParam.Vs[1] = v;
      if (ResetTheoDispInfo() < 0 || FS_AllocMemoryBlocks() < 0 || FS_fModel(0, 0) < 0) continue;
      for (int i = 0; i < 2; ++i) EXPECT_TRUE(std::isfinite(InvParam.vel(0, i))) << v << ' ' << analysis;
    }
  }
}

}  // namespace
}  // namespace sondera::testing
