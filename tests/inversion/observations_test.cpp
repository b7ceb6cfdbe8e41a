// Tests of the set-up of a run: switches by kind, receivers, points with and without data, refusals.
#include "inversion/observations.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "forward/system_model.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

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

  /// Wishes points in a range instead of stored curves.
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
  run.dVs = 0.5;
  run.alphaDepth = 0.4;
  run.iDumpMatrices = 1;
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, 2), 0);
  EXPECT_EQ(run.iInvScheme, 0);
  EXPECT_EQ(run.iHaveData, 1);
  EXPECT_EQ(run.preliminaryProfileType, 2);
  EXPECT_EQ(run.iProfileShape, 1);
  EXPECT_EQ(run.nSubLayers, 16);
  EXPECT_EQ(run.fDispBulb, 1.75);
  EXPECT_EQ(run.iDispSource, 1);
  EXPECT_EQ(run.epsConverge, 1e-5);
  EXPECT_EQ(run.wlTolerance, 0.2);
  EXPECT_EQ(run.iUseAmplitude, 0);
  EXPECT_EQ(run.stackOn, 0);
  EXPECT_EQ(run.iAnalysis, -3);
  EXPECT_EQ(run.runTitle, "3-D");
  // Not set by a forward run:
  EXPECT_EQ(run.dVs, 0.5);
  EXPECT_EQ(run.alphaDepth, 0.4);
  EXPECT_EQ(run.iDumpMatrices, 1);
}

TEST_F(Observations, ForwardRunHasDataWhereCurvesAreStored) {
  SetGlobalCurve(5);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  for (const auto& [info, have] : {std::pair{0, 0}, {1, 1}, {2, 1}}) {
    FModelParam.DispCurvInfo = info;
    ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, 0), 0);
    EXPECT_EQ(run.iHaveData, have) << info;
  }
}

TEST_F(Observations, SwitchesOfAnInversion) {
  SetArrayCurves(3, 2, {100, 101, 102, 103, 104, 105});
  FModelParam.analysis = TheoDispInfo.analysis = 4;
  FModelParam.dispCurvType = 1;  // the curve type of an inversion is that of the run's own record
  run.iDumpMatrices = 1;
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_RetrieveSystemPM(kInversionRun, 0), 0);
  EXPECT_EQ(run.iInvScheme, 1);
  EXPECT_EQ(run.iHaveData, 1);
  EXPECT_EQ(run.iDispSource, 2);
  EXPECT_EQ(run.dThickness, 6e-6);
  EXPECT_EQ(run.dVs, 6e-6);
  EXPECT_EQ(run.dVp, 6e-6);
  EXPECT_EQ(run.dDensity, 6e-6);
  EXPECT_EQ(run.alphaDepth, 0.53);
  EXPECT_EQ(run.iDumpMatrices, 0);
  EXPECT_EQ(run.wlTolerance, 0.01);
  EXPECT_EQ(run.iAnalysis, 4);
  EXPECT_TRUE(run.iMeshGraded);
  EXPECT_EQ(run.runTitle, "Enhanced3-D Inversion");
}

TEST_F(Observations, SwitchesOfAWaveformRun) {
  SetGlobalCurve(5);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_RetrieveSystemPM(kWaveformRun, 2), 0);
  EXPECT_EQ(run.iInvScheme, 0);
  EXPECT_EQ(run.iHaveData, 0);
  EXPECT_EQ(run.preliminaryProfileType, 0);
  EXPECT_EQ(run.wlTolerance, 0.01);
  EXPECT_EQ(run.stackOn, 1);
}

TEST_F(Observations, NoSublayersInTheRecordGiveSixteen) {
  for (const int kind : {kForwardRun, kInversionRun, kWaveformRun}) {
    SetGlobalCurve(5);
    FModelParam.nSubLayers = TheoDispInfo.nSubLayers = 0;
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    ASSERT_EQ(FS_RetrieveSystemPM(kind, 0), 0);
    EXPECT_EQ(run.nSubLayers, 16);
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
    EXPECT_EQ(run.fDispBulb, factor) << kind;
  }
}

TEST_F(Observations, ArrayCurvesWithoutDataAreWantedOverFrequency) {
  SetArrayCurves(3, 2, {});
  FModelParam.xDomainType = 1;
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, 0), 0);
  EXPECT_EQ(run.xDomain, 1);
  FModelParam.DispCurvInfo = 0;
  ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, 0), 0);
  EXPECT_EQ(run.xDomain, 2);
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
    EXPECT_EQ(run.runTitle, forward[a - 2]);
    ASSERT_EQ(FS_RetrieveSystemPM(kInversionRun, 0), 0);
    EXPECT_EQ(run.runTitle, inverse[a - 2]);
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
  EXPECT_EQ(run.nRecSetups, 3);
  for (const double x : run.rec1Loc) EXPECT_EQ(x, 0.0);
  for (int i = 1; i <= 5; ++i) {
    EXPECT_EQ(run.globalRecCount[i], 1);
    EXPECT_EQ(run.globalRecType[i], 3);
  }
}

TEST_F(Observations, FixedReceiversAreTheFourthSetup) {
  SetGlobalCurve(5);
  FModelParam.GlobalRecType = 4;
  FModelParam.GlobalRec1Loc = 2.5;
  FModelParam.GlobalRec2Loc = 6.0;
  ASSERT_EQ(Start(kForwardRun), 0);
  EXPECT_EQ(run.nRecSetups, 4);
  EXPECT_EQ(run.rec1Loc[4], 2.5);
  EXPECT_EQ(run.rec2Loc[4], 6.0);
  EXPECT_EQ(run.globalRecType[5], 4);
}

TEST_F(Observations, EachArrayCurveHasItsPairFromTheFourthSetupOn) {
  SetArrayCurves(2, 3, {100, 100, 100, 100, 100, 100});
  for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
    m->pairRec1 = {1, 2, 1};
    m->pairRec2 = {2, 3, 4};
  }
  for (const int kind : {kForwardRun, kInversionRun}) {
    ASSERT_EQ(Start(kind), 0);
    EXPECT_EQ(run.nRecSetups, 6);
    const double first[] = {1.0, 2.0, 1.0}, second[] = {2.0, 4.0, 8.0};
    for (int c = 0; c < 3; ++c) {
      EXPECT_EQ(run.rec1Loc[4 + c], first[c]);
      EXPECT_EQ(run.rec2Loc[4 + c], second[c]);
    }
    EXPECT_EQ(run.rec1Loc[3], 0.0);
  }
}

// --- Global curve ---

TEST_F(Observations, GlobalCurveWithDataIsTakenAsItStands) {
  SetGlobalCurve(6);
  FModelParam.globalWlen[2] = 99.0;  // the stored column, not velocity over frequency
  ASSERT_EQ(Start(kForwardRun), 0);
  EXPECT_EQ(run.nDispPoints, 6);
  EXPECT_EQ(run.nObs, 0);
  EXPECT_EQ(run.globalVel[6], 160.0);
  EXPECT_EQ(run.globalFreq[6], 60.0);
  EXPECT_EQ(run.globalLambda[3], 99.0);
  for (const double d : run.globalDev) EXPECT_EQ(d, 0.0);
}

TEST_F(Observations, InversionTakesItsPointsFromTheRecordOfTheRun) {
  SetGlobalCurve(6);
  FModelParam.globalVel[0] = 1.0;
  ASSERT_EQ(Start(kInversionRun), 0);
  EXPECT_EQ(run.globalVel[1], 110.0);
}

TEST_F(Observations, GridOfWavelengthsIsWrittenBackForTheDisplay) {
  SetGlobalCurve(4);
  WithoutData(1.0);
  FModelParam.xMinGlobal = 2.0;
  FModelParam.xMaxGlobal = 8.0;
  ASSERT_EQ(Start(kForwardRun), 0);
  for (int i = 1; i <= 4; ++i) {
    EXPECT_EQ(run.globalLambda[i], 2.0 * i);
    EXPECT_EQ(run.globalFreq[i], 0.0);
    EXPECT_EQ(run.globalVel[i], 0.0);
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
  EXPECT_NEAR(run.globalFreq[2], 10.0, 1e-12);
  EXPECT_EQ(run.globalLambda[2], 0.0);
  EXPECT_NEAR(FModelParam.globalFreq[2], 100.0, 1e-10);
  EXPECT_EQ(FModelParam.globalWlen[2], 0.0);
}

TEST_F(Observations, WaveformRunWithStoredCurvesCopiesOneColumn) {
  SetGlobalCurve(3);
  ASSERT_EQ(Start(kWaveformRun), 0);
  EXPECT_EQ(run.globalLambda[2], FModelParam.globalWlen[1]);
  EXPECT_EQ(run.globalFreq[2], 0.0);
  FModelParam.xDomainType = 2;
  ASSERT_EQ(Start(kWaveformRun), 0);
  EXPECT_EQ(run.globalLambda[2], 0.0);
  EXPECT_EQ(run.globalFreq[2], 20.0);
}

// --- Array curves ---

TEST_F(Observations, PointWithoutVelocityYieldsNoObservationRow) {
  SetArrayCurves(3, 2, {100, 0, 0, 0, 120, 121});
  for (const int kind : {kForwardRun, kInversionRun}) {
    ASSERT_EQ(Start(kind), 0);
    EXPECT_EQ(run.nObs, 3);
    const double velocity[] = {100, 120, 121}, frequency[] = {5, 15, 15};
    for (int i = 1; i <= 3; ++i) {
      EXPECT_EQ(run.arrayVel[i], velocity[i - 1]);
      EXPECT_EQ(run.arrayFreq[i], frequency[i - 1]);
      EXPECT_EQ(run.arrayDev[i], 0.0);
    }
    EXPECT_EQ(run.iArrayIndex(1, 1), 1);
    EXPECT_EQ(run.iArrayIndex(2, 1), 0);
    EXPECT_EQ(run.iArrayIndex(1, 2), 0);
    EXPECT_EQ(run.iArrayIndex(1, 3), 2);
    EXPECT_EQ(run.iArrayIndex(2, 3), 3);
  }
}

TEST_F(Observations, ArrayCurvesAreOneItemWithReceiversAndPairs) {
  SetArrayCurves(3, 2, {100, 0, 0, 0, 120, 121});
  ASSERT_EQ(Start(kForwardRun), 0);
  ASSERT_FALSE(run.obsCurves.empty());
  ASSERT_EQ(run.obsCurves.head, run.obsCurves.tail);  // one item
  const ObsCurve& o = run.obsCurves.front();
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
  const ObsCurve& o = run.obsCurves.front();
  int rows = 0;
  for (int p = 1; p <= 10; ++p) {
    EXPECT_DOUBLE_EQ(o.freq[p], 10.0 * p);
    EXPECT_DOUBLE_EQ(FModelParam.freq[static_cast<std::size_t>(p - 1)], 10.0 * p);
    EXPECT_EQ(o.vel[o.At(p, 1)], p <= 4 ? 1.0 : 0.0) << p;  // the ends of a range are inside
    EXPECT_EQ(o.vel[o.At(p, 2)], p >= 3 ? 1.0 : 0.0) << p;
    rows += (p <= 4) + (p >= 3);
  }
  EXPECT_EQ(run.nObs, rows);
  for (int i = 1; i <= rows; ++i) EXPECT_EQ(run.arrayVel[i], 1.0);
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
  EXPECT_EQ(run.globalFreq[1], 10.0);  // plane-wave analysis would work on these points
  EXPECT_EQ(run.globalFreq[6], 40.0);
}

TEST_F(Observations, SecondRunForgetsThePointsOfTheFirst) {
  SetArrayCurves(3, 2, {100, 101, 102, 103, 104, 105});
  ASSERT_EQ(Start(kForwardRun), 0);
  EXPECT_EQ(run.nObs, 6);
  SetGlobalCurve(2);
  ASSERT_EQ(Start(kForwardRun), 0);
  EXPECT_EQ(run.nObs, 0);
  EXPECT_TRUE(run.obsCurves.empty());
  EXPECT_EQ(run.nDispPoints, 2);
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
  EXPECT_EQ(run.nObs, 1);
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
    EXPECT_EQ(run.nModelParm, layers);
  }
}

TEST_F(Observations, ArrayRunOfAPlaneWaveInversionHasNoPoints) {
  SetArrayCurves(3, 2, {100, 101, 102, 103, 104, 105});
  FModelParam.analysis = TheoDispInfo.analysis = 2;
  TheoDispInfo.nDispPointsG = 0;
  ASSERT_EQ(Start(kInversionRun), 0);
  ASSERT_EQ(FS_SetUpObsData(run.iDispSource), 0);
  EXPECT_EQ(run.nObsRows, 0);
}

}  // namespace
}  // namespace sondera::testing
