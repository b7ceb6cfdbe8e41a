// Tests of the set-up of a run: switches by kind, receivers, points with and without data, refusals.
#include "run/observations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "forward/sublayers.h"
#include "forward/waveform_lines.h"
#include "records/mesh_depth.h"
#include "run/run_sizes.h"
#include "runtime/catalogue/fmodeling.h"
#include "support/named_runs.h"
#include "support/odd_numbers.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class Observations : public RunTest {
 protected:
  void SetUp() override {
    RunTest::SetUp();
    SetPlainLayers(4);
  }

  /// Everything up to and with FS_GetStartMP. 0 or -1.
  int Start(int kind) {
    if (FS_AllocMemoryBlocks() < 0 || FS_RetrieveSystemPM(kind, 0) < 0) return -1;
    return FS_GetStartMP();
  }

  /// Requests points in a range instead of stored curves.
  void WithoutData(double ratio) {
    for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
      m->DispCurvInfo = 0;
      m->incRatio = ratio;
    }
  }
};

// --- Switches ---

TEST_F(Observations, SwitchesOfAForwardRun) {
  SetGlobalCurve(5);
  run.switches.dVs = 0.5;
  run.switches.alphaDepth = 0.4;
  run.switches.iDumpMatrices = 1;
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, 2), 0);
  EXPECT_EQ(run.switches.iInvScheme, 0);
  EXPECT_EQ(run.switches.iHaveData, 1);
  EXPECT_EQ(run.switches.preliminaryProfileType, 2);
  EXPECT_EQ(run.switches.iProfileShape, 1);
  EXPECT_EQ(run.switches.nSubLayers, 16);
  EXPECT_EQ(run.switches.fDispBulb, 1.75);
  EXPECT_EQ(run.switches.iDispSource, 1);
  EXPECT_EQ(run.switches.epsConverge, 1e-5);
  EXPECT_EQ(run.switches.wlTolerance, 0.2);
  EXPECT_EQ(run.switches.iUseAmplitude, 0);
  EXPECT_EQ(run.switches.stackOn, 0);
  EXPECT_EQ(run.switches.iAnalysis, -3);
  EXPECT_EQ(run.course.runTitle, "3-D");
  // Not set by a forward run:
  EXPECT_EQ(run.switches.dVs, 0.5);
  EXPECT_EQ(run.switches.alphaDepth, 0.4);
  EXPECT_EQ(run.switches.iDumpMatrices, 1);
}

TEST_F(Observations, ForwardRunHasDataWhereCurvesAreStored) {
  SetGlobalCurve(5);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  for (const auto& [info, have] : {std::pair{0, 0}, {1, 1}, {2, 1}}) {
    FModelParam.DispCurvInfo = info;
    ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, 0), 0);
    EXPECT_EQ(run.switches.iHaveData, have) << info;
  }
}

TEST_F(Observations, SwitchesOfAnInversion) {
  SetArrayCurves(3, 2, {100, 101, 102, 103, 104, 105});
  FModelParam.analysis = TheoDispInfo.analysis = 4;
  FModelParam.dispCurvType = 1;  // the curve type of an inversion is that of the run's own record
  run.switches.iDumpMatrices = 1;
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_RetrieveSystemPM(kInversionRun, 0), 0);
  EXPECT_EQ(run.switches.iInvScheme, 1);
  EXPECT_EQ(run.switches.iHaveData, 1);
  EXPECT_EQ(run.switches.iDispSource, 2);
  EXPECT_EQ(run.switches.dThickness, 6e-6);
  EXPECT_EQ(run.switches.dVs, 6e-6);
  EXPECT_EQ(run.switches.dVp, 6e-6);
  EXPECT_EQ(run.switches.dDensity, 6e-6);
  EXPECT_EQ(run.switches.alphaDepth, 0.53);
  EXPECT_EQ(run.switches.iDumpMatrices, 0);
  EXPECT_EQ(run.switches.wlTolerance, 0.01);
  EXPECT_EQ(run.switches.iAnalysis, 4);
  EXPECT_TRUE(run.switches.iMeshGraded);
  EXPECT_EQ(run.course.runTitle, "Enhanced3-D Inversion");
}

TEST_F(Observations, SwitchesOfAWaveformRun) {
  SetGlobalCurve(5);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_RetrieveSystemPM(kWaveformRun, 2), 0);
  EXPECT_EQ(run.switches.iInvScheme, 0);
  EXPECT_EQ(run.switches.iHaveData, 0);
  EXPECT_EQ(run.switches.preliminaryProfileType, 0);
  EXPECT_EQ(run.switches.wlTolerance, 0.01);
  EXPECT_EQ(run.switches.stackOn, 1);
}

TEST_F(Observations, NoSublayersInTheRecordGiveSixteen) {
  for (const int kind : {kForwardRun, kInversionRun, kWaveformRun}) {
    SetGlobalCurve(5);
    FModelParam.nSubLayers = TheoDispInfo.nSubLayers = 0;
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    ASSERT_EQ(FS_RetrieveSystemPM(kind, 0), 0);
    EXPECT_EQ(run.switches.nSubLayers, 16);
    EXPECT_EQ(FModelParam.nSubLayers, 0);
  }
}

TEST_F(Observations, NoDepthFactorInTheRecordGivesFourAndInAWaveformRunLess) {
  SetGlobalCurve(5);
  FModelParam.fDispBulb = TheoDispInfo.fDispBulb = 0.0;
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  for (const auto& [kind, factor] :
       {std::pair{kForwardRun, 4.0}, {kInversionRun, 4.0}, {kWaveformRun, 1.7}}) {
    ASSERT_EQ(FS_RetrieveSystemPM(kind, 0), 0);
    EXPECT_EQ(run.switches.fDispBulb, factor) << kind;
  }
}

TEST_F(Observations, FirstDepthOfTheMeshIsOneNumberOnPanelRecordRunAndSolver) {
  for (const double depth : {GetCtrlVal(fmodeling::E3D_FDB), FirstModel().fDispBulb, Switches().fDispBulb,
                             MeshSettings().fDispBulb, WaveformSite().fDispBulb})
    EXPECT_EQ(depth, kFirstMeshDepth);
  EXPECT_EQ(kFirstMeshDepth, 1.75);
}

TEST_F(Observations, ArrayCurvesWithoutDataAreWantedOverFrequency) {
  SetArrayCurves(3, 2, {});
  FModelParam.xDomainType = 1;
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, 0), 0);
  EXPECT_EQ(run.switches.xDomain, 1);
  FModelParam.DispCurvInfo = 0;
  ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, 0), 0);
  EXPECT_EQ(run.switches.xDomain, 2);
  EXPECT_EQ(FModelParam.xDomainType, 1);
}

TEST_F(Observations, TitlesNameAnalysisAndKind) {
  SetGlobalCurve(5);
  const char* forward[] = {"2-D", "3-D", "Enhanced 3-D"};
  const char* inverse[] = {"2-D Inversion", "3-D Inversion", "Enhanced3-D Inversion"};
  for (int a = 2; a <= 4; ++a) {
    FModelParam.analysis = TheoDispInfo.analysis = a;
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, 0), 0);
    EXPECT_EQ(run.course.runTitle, forward[a - 2]);
    ASSERT_EQ(FS_RetrieveSystemPM(kInversionRun, 0), 0);
    EXPECT_EQ(run.course.runTitle, inverse[a - 2]);
  }
}

TEST_F(Observations, KindThatDoesNotExistIsRefused) {
  EXPECT_EQ(FS_RetrieveSystemPM(0, 0), -1);
  EXPECT_EQ(FS_RetrieveSystemPM(4, 0), -1);
}

// --- Receivers ---

TEST_F(Observations, ReceiversAtMultiplesOfTheWavelengthHaveNoLocations) {
  SetGlobalCurve(5);
  ASSERT_EQ(Start(kForwardRun), 0);
  EXPECT_EQ(run.receivers.nRecSetups, 3);
  for (const double x : run.receivers.rec1Loc) EXPECT_EQ(x, 0.0);
  for (int i = 1; i <= 5; ++i) {
    EXPECT_EQ(run.observations.globalRecCount[i], 1);
    EXPECT_EQ(run.observations.globalRecType[i], 3);
  }
}

TEST_F(Observations, FixedReceiversAreTheFourthSetup) {
  SetGlobalCurve(5);
  FModelParam.GlobalRecType = 4;
  FModelParam.GlobalRec1Loc = 2.5;
  FModelParam.GlobalRec2Loc = 6.0;
  ASSERT_EQ(Start(kForwardRun), 0);
  EXPECT_EQ(run.receivers.nRecSetups, 4);
  EXPECT_EQ(run.receivers.rec1Loc[4], 2.5);
  EXPECT_EQ(run.receivers.rec2Loc[4], 6.0);
  EXPECT_EQ(run.observations.globalRecType[5], 4);
}

TEST_F(Observations, EachArrayCurveHasItsPairFromTheFourthSetupOn) {
  SetArrayCurves(2, 3, {100, 100, 100, 100, 100, 100});
  for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
    m->pairRec1 = {1, 2, 1};
    m->pairRec2 = {2, 3, 4};
  }
  for (const int kind : {kForwardRun, kInversionRun}) {
    ASSERT_EQ(Start(kind), 0);
    EXPECT_EQ(run.receivers.nRecSetups, 6);
    const double first[] = {1.0, 2.0, 1.0}, second[] = {2.0, 4.0, 8.0};
    for (int c = 0; c < 3; ++c) {
      EXPECT_EQ(run.receivers.rec1Loc[4 + c], first[c]);
      EXPECT_EQ(run.receivers.rec2Loc[4 + c], second[c]);
    }
    EXPECT_EQ(run.receivers.rec1Loc[3], 0.0);
  }
}

// --- Global curve ---

TEST_F(Observations, GlobalCurveWithDataIsTakenAsItStands) {
  SetGlobalCurve(6);
  FModelParam.globalWlen[2] = 99.0;  // the stored column, not velocity over frequency
  ASSERT_EQ(Start(kForwardRun), 0);
  EXPECT_EQ(run.observations.nDispPoints, 6);
  EXPECT_EQ(run.observations.nObs, 0);
  EXPECT_EQ(run.observations.globalVel[6], 160.0);
  EXPECT_EQ(run.observations.globalFreq[6], 60.0);
  EXPECT_EQ(run.observations.globalLambda[3], 99.0);
  for (const double d : run.observations.globalDev) EXPECT_EQ(d, 0.0);
}

TEST_F(Observations, InversionTakesItsPointsFromTheRecordOfTheRun) {
  SetGlobalCurve(6);
  FModelParam.globalVel[0] = 1.0;
  ASSERT_EQ(Start(kInversionRun), 0);
  EXPECT_EQ(run.observations.globalVel[1], 110.0);
}

TEST_F(Observations, GridOfWavelengthsIsWrittenBackForTheDisplay) {
  SetGlobalCurve(4);
  WithoutData(1.0);
  FModelParam.xMinGlobal = 2.0;
  FModelParam.xMaxGlobal = 8.0;
  ASSERT_EQ(Start(kForwardRun), 0);
  for (int i = 1; i <= 4; ++i) {
    EXPECT_EQ(run.observations.globalLambda[i], 2.0 * i);
    EXPECT_EQ(run.observations.globalFreq[i], 0.0);
    EXPECT_EQ(run.observations.globalVel[i], 0.0);
    EXPECT_EQ(FModelParam.globalWlen[static_cast<std::size_t>(i - 1)], 2.0 * i);
    EXPECT_EQ(FModelParam.globalFreq[static_cast<std::size_t>(i - 1)], 0.0);
  }
}

TEST_F(Observations, GridOfFrequenciesLeavesWavelengthZero) {
  SetGlobalCurve(3);
  WithoutData(-1.0);
  FModelParam.xDomainType = 2;
  FModelParam.xMinGlobal = 1.0;
  FModelParam.xMaxGlobal = 100.0;
  ASSERT_EQ(Start(kForwardRun), 0);
  EXPECT_NEAR(run.observations.globalFreq[2], 10.0, 1e-12);
  EXPECT_EQ(run.observations.globalLambda[2], 0.0);
  EXPECT_NEAR(FModelParam.globalFreq[2], 100.0, 1e-10);
  EXPECT_EQ(FModelParam.globalWlen[2], 0.0);
}

TEST_F(Observations, WaveformRunWithStoredCurvesCopiesOneColumn) {
  SetGlobalCurve(3);
  ASSERT_EQ(Start(kWaveformRun), 0);
  EXPECT_EQ(run.observations.globalLambda[2], FModelParam.globalWlen[1]);
  EXPECT_EQ(run.observations.globalFreq[2], 0.0);
  FModelParam.xDomainType = 2;
  ASSERT_EQ(Start(kWaveformRun), 0);
  EXPECT_EQ(run.observations.globalLambda[2], 0.0);
  EXPECT_EQ(run.observations.globalFreq[2], 20.0);
}

// --- Array curves ---

TEST_F(Observations, PointWithoutVelocityYieldsNoObservationRow) {
  SetArrayCurves(3, 2, {100, 0, 0, 0, 120, 121});
  for (const int kind : {kForwardRun, kInversionRun}) {
    ASSERT_EQ(Start(kind), 0);
    EXPECT_EQ(run.observations.nObs, 3);
    const double velocity[] = {100, 120, 121}, frequency[] = {5, 15, 15};
    for (int i = 1; i <= 3; ++i) {
      EXPECT_EQ(run.observations.arrayVel[i], velocity[i - 1]);
      EXPECT_EQ(run.observations.arrayFreq[i], frequency[i - 1]);
      EXPECT_EQ(run.observations.arrayDev[i], 0.0);
    }
    EXPECT_EQ(run.observations.iArrayIndex(1, 1), 1);
    EXPECT_EQ(run.observations.iArrayIndex(2, 1), 0);
    EXPECT_EQ(run.observations.iArrayIndex(1, 2), 0);
    EXPECT_EQ(run.observations.iArrayIndex(1, 3), 2);
    EXPECT_EQ(run.observations.iArrayIndex(2, 3), 3);
  }
}

TEST_F(Observations, ArrayCurvesAreOneItemWithReceiversAndPairs) {
  SetArrayCurves(3, 2, {100, 0, 0, 0, 120, 121});
  ASSERT_EQ(Start(kForwardRun), 0);
  ASSERT_FALSE(run.observations.obsCurves.empty());
  ASSERT_EQ(run.observations.obsCurves.head, run.observations.obsCurves.tail);  // one item
  const ObsCurve& o = run.observations.obsCurves.front();
  EXPECT_EQ(o.nFreq, 3);
  EXPECT_EQ(o.nCurves, 2);
  EXPECT_EQ(o.nReceivers, 3);
  EXPECT_EQ(o.rec1[2], 2);
  EXPECT_EQ(o.rec2[2], 3);
  EXPECT_EQ(o.recLoc[3], 4.0);
  EXPECT_EQ(o.freq[3], 15.0);
  EXPECT_EQ(o.vel[o.At(3, 2)], 121.0);
  EXPECT_EQ(o.vel[o.At(1, 2)], 0.0);
  EXPECT_TRUE(o.amp.empty());
}

TEST_F(Observations, WithoutDataEveryFrequencyInsideTheRangeOfACurveIsMarked) {
  SetArrayCurves(10, 2, {});
  WithoutData(1.0);
  FModelParam.pairMin = {10.0, 30.0};
  FModelParam.pairMax = {40.0, 100.0};
  ASSERT_EQ(Start(kForwardRun), 0);
  const ObsCurve& o = run.observations.obsCurves.front();
  int rows = 0;
  for (int p = 1; p <= 10; ++p) {
    EXPECT_DOUBLE_EQ(o.freq[p], 10.0 * p);
    EXPECT_DOUBLE_EQ(FModelParam.freq[static_cast<std::size_t>(p - 1)], 10.0 * p);
    EXPECT_EQ(o.vel[o.At(p, 1)], p <= 4 ? 1.0 : 0.0) << p;  // the ends of a range are inside
    EXPECT_EQ(o.vel[o.At(p, 2)], p >= 3 ? 1.0 : 0.0) << p;
    rows += (p <= 4) + (p >= 3);
  }
  EXPECT_EQ(run.observations.nObs, rows);
  for (int i = 1; i <= rows; ++i) EXPECT_EQ(run.observations.arrayVel[i], 1.0);
  EXPECT_EQ(FModelParam.vel[0], 0.0);  // the marks stay in the run
}

TEST_F(Observations, StoredGlobalCurveSurvivesARunOnArrayCurvesWithoutData) {
  SetGlobalCurve(6);
  SetArrayCurves(10, 1, {});
  WithoutData(1.0);
  FModelParam.pairMin = {10.0};
  FModelParam.pairMax = {40.0};
  ASSERT_EQ(Start(kForwardRun), 0);
  EXPECT_EQ(FModelParam.globalFreq[5], 60.0);
  EXPECT_EQ(FModelParam.globalVel[5], 160.0);
  EXPECT_EQ(run.observations.globalFreq[1], 10.0);  // plane-wave analysis would work on these points
  EXPECT_EQ(run.observations.globalFreq[6], 40.0);
}

TEST_F(Observations, SecondRunForgetsThePointsOfTheFirst) {
  SetArrayCurves(3, 2, {100, 101, 102, 103, 104, 105});
  ASSERT_EQ(Start(kForwardRun), 0);
  EXPECT_EQ(run.observations.nObs, 6);
  SetGlobalCurve(2);
  ASSERT_EQ(Start(kForwardRun), 0);
  EXPECT_EQ(run.observations.nObs, 0);
  EXPECT_TRUE(run.observations.obsCurves.empty());
  EXPECT_EQ(run.observations.nDispPoints, 2);
}

// --- Hostile settings ---

TEST_F(Observations, RangeThatGivesNoPointsIsRefusedWithOneMessage) {
  struct Range {
    double min, max, ratio;
  };
  for (const Range& r :
       {Range{0.0, 10.0, 1.0}, Range{0.0, 10.0, -1.0}, Range{-5.0, 10.0, -1.0}, Range{1.0, kNaN, 1.0},
        Range{1.0, 10.0, kNaN}, Range{1.0, 10.0, 1e200}, Range{10.0, 1e308, -3.0},
        Range{1.0, std::numeric_limits<double>::infinity(), 1.07}}) {
    SetGlobalCurve(50);
    WithoutData(r.ratio);
    FModelParam.xMinGlobal = r.min;
    FModelParam.xMaxGlobal = r.max;
    frontEnd.messages.clear();
    EXPECT_EQ(Start(kForwardRun), -1) << r.min << ' ' << r.max << ' ' << r.ratio;
    EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("gives no points"));
  }
}

TEST_F(Observations, PairWithoutARangeIsRefusedInARunWithoutData) {
  SetArrayCurves(10, 2, {});
  WithoutData(1.07);
  FModelParam.pairMin = {0.0, 10.0};
  FModelParam.pairMax = {0.0, 50.0};
  EXPECT_EQ(Start(kForwardRun), -1);
  EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("gives no points"));
}

TEST_F(Observations, MeasuredPointsThatAreNoNumbersAreRefused) {
  SetArrayCurves(3, 2, {100, kNaN, 0, 0, 0, 0});
  EXPECT_EQ(Start(kInversionRun), -1);
  EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("velocity of array curve 2 at point 1"));
  frontEnd.messages.clear();
  SetArrayCurves(3, 2, {100, 0, 0, 0, 0, 0});
  TheoDispInfo.freq[0] = 0.0;
  EXPECT_EQ(Start(kInversionRun), -1);
  EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("frequency of the array curves at point 1 is 0"));
  frontEnd.messages.clear();
  SetGlobalCurve(3);
  FModelParam.globalFreq[1] = kNaN;
  EXPECT_EQ(Start(kForwardRun), -1);
  EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("Point 2 of the global curve"));
}

TEST_F(Observations, FrequencyZeroWithoutAVelocityDoesNotMatter) {
  SetArrayCurves(3, 2, {0, 0, 100, 0, 0, 0});
  TheoDispInfo.freq[0] = 0.0;
  EXPECT_EQ(Start(kInversionRun), 0);
  EXPECT_EQ(run.observations.nObs, 1);
}

TEST_F(Observations, RecordLargerThanTheRunWasSizedForIsRefused) {
  SetArrayCurves(3, 2, {100, 101, 102, 103, 104, 105});
  SetGlobalCurve(3);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  SetGlobalCurve(300);
  ASSERT_EQ(FS_RetrieveSystemPM(kInversionRun, 0), 0);
  EXPECT_EQ(FS_GetStartMP(), -1);
  EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("300 points"));
  frontEnd.messages.clear();
  SetArrayCurves(300, 2, {100});
  TheoDispInfo.nDispPointsG = 0;
  ASSERT_EQ(FS_RetrieveSystemPM(kInversionRun, 0), 0);
  EXPECT_EQ(FS_GetStartMP(), -1);
  EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("2 array curves of 300 points"));
}

TEST_F(Observations, DamagedRecordOfTheRunIsRefusedBeforeItsFilesAreEmptied) {
  SetGlobalCurve(3);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  test::WriteWhole(Base() + ".fdp", "former");
  TheoDispInfo.nLayers = -1;
  EXPECT_EQ(FS_RetrieveSystemPM(kInversionRun, 0), -1);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_EQ(test::ReadWhole(Base() + ".fdp"), "former");
}

TEST_F(Observations, FourHundredLayersAndOneLayerGoThrough) {
  for (const int layers : {400, 1}) {
    SetPlainLayers(layers);
    SetGlobalCurve(3);
    EXPECT_EQ(Start(kInversionRun), 0) << layers;
    EXPECT_EQ(run.parameters.nModelParm, layers);
  }
}

TEST_F(Observations, ArrayRunOfAPlaneWaveInversionHasNoPoints) {
  SetArrayCurves(3, 2, {100, 101, 102, 103, 104, 105});
  FModelParam.analysis = TheoDispInfo.analysis = 2;
  TheoDispInfo.nDispPointsG = 0;
  ASSERT_EQ(Start(kInversionRun), 0);
  ASSERT_EQ(FS_SetUpObsData(run.switches.iDispSource), 0);
  EXPECT_EQ(run.observations.nObsRows, 0);
}

}  // namespace
}  // namespace sondera::testing
