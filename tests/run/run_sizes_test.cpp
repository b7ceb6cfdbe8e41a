// Tests of the sizes of a run: counts, numbering, zeros, refusals, and the named points in its life.
#include "run/run_sizes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "records/run_limits.h"
#include "support/odd_numbers.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class SystemModel : public RunTest {};

TEST_F(SystemModel, SizesOfARunFollowTheSettings) {
  SetPlainLayers(6);
  SetArrayCurves(4, 3, {90, 0, 0, 91, 92, 0, 0, 0, 0, 95, 96, 97});
  FModelParam.nDispPointsG = 17;
  FModelParam.GlobalRecType = 4;
  InvParam.MODELPARM = 3;
  const RunSizes s = FS_InitVars(FModelParam, InvParam.MODELPARM, run.course);
  EXPECT_EQ(s.nLayersCur, 6);
  EXPECT_EQ(s.recMax1, 4);
  EXPECT_EQ(s.recMax2, 6);
  EXPECT_EQ(s.nDispG, 17);
  EXPECT_EQ(s.nObs, 4 + 6);  // points of a curve, and one more per velocity
  EXPECT_EQ(s.nPoints, 4);
  EXPECT_EQ(s.nFiles, 1);
  EXPECT_EQ(s.nModel, 6 + 5);
  EXPECT_EQ(s.nRecLoc, 4);
}

TEST_F(SystemModel, ReceiverTypesOtherThanThreeAndFourHaveNoSetups) {
  for (const auto& [type, setups] : {std::pair{3, 3}, {4, 4}, {0, 0}, {1, 0}, {5, 0}}) {
    FModelParam.GlobalRecType = type;
    EXPECT_EQ(FS_InitVars(FModelParam, InvParam.MODELPARM, run.course).recMax1, setups) << type;
  }
}

TEST_F(SystemModel, CountsResetTheIterationCounterAndTheAmplitudeScale) {
  run.course.iPriorIter = 9;
  run.course.ampScale = 3.0;
  FS_InitVars(FModelParam, InvParam.MODELPARM, run.course);
  EXPECT_EQ(run.course.iPriorIter, 0);
  EXPECT_EQ(run.course.ampScale, 1.0);
}

TEST_F(SystemModel, NewRunNumbersTheModelLayerByLayerAndThicknessFirst) {
  SetPlainLayers(3);
  InvParam.MODELPARM = 3;
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  EXPECT_EQ(run.parameters.nModelParm, 5);
  const int expected[4][3] = {{1, 3, 0}, {2, 4, 5}, {0, 0, 0}, {0, 0, 0}};
  for (int q = 1; q <= 4; ++q)
    for (int l = 1; l <= 3; ++l)
      EXPECT_EQ(run.parameters.MapEntry(q, l), expected[q - 1][l - 1]) << q << ' ' << l;

  InvParam.MODELPARM = 1;
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  EXPECT_EQ(run.parameters.nModelParm, 3);
  EXPECT_EQ(run.parameters.MapEntry(1, 1), 0);
  EXPECT_EQ(run.parameters.MapEntry(2, 3), 3);

  InvParam.MODELPARM = 2;
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  EXPECT_EQ(run.parameters.nModelParm, 2);
  EXPECT_EQ(run.parameters.MapEntry(1, 3), 0);
}

TEST_F(SystemModel, EveryRunBeginsWithZeros) {
  SetPlainLayers(3);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  run.ground.layerVs[2] = run.observations.runVel[1] = run.receivers.rec1Loc[4] = run.parameters.rModel[1] =
      5.0;
  run.observations.iNoVelocity[1] = run.ground.iPoissonGiven[3] = 1;
  run.observations.nObsRows = run.observations.nDispPoints = 4;
  run.switches.cdMode = -1;
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  EXPECT_EQ(run.ground.layerVs[2], 0.0);
  EXPECT_EQ(run.observations.runVel[1], 0.0);
  EXPECT_EQ(run.receivers.rec1Loc[4], 0.0);
  EXPECT_EQ(run.parameters.rModel[1], 0.0);
  EXPECT_EQ(run.observations.iNoVelocity[1], 0);
  EXPECT_EQ(run.ground.iPoissonGiven[3], 0);
  EXPECT_EQ(run.observations.nObsRows, 0);
  EXPECT_EQ(run.observations.nDispPoints, 0);
  EXPECT_EQ(run.switches.cdMode, -1);  // a choice of the panel, not of the run
}

TEST_F(SystemModel, SizesGrowAndShrinkFromRunToRun) {
  for (const int layers : {1, 400, 10}) {
    SetPlainLayers(layers);
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0) << layers;
    EXPECT_EQ(run.ground.nLayersCur, layers);
    for (const auto* v :
         {&run.ground.layerH, &run.ground.layerVs, &run.ground.layerDamp, &run.parameters.uncVs})
      EXPECT_EQ(v->hi(), layers);
    EXPECT_EQ(run.parameters.corrLength.hi(), 4 * layers);
    EXPECT_EQ(run.parameters.ModelMap.hi(), 4 * layers);
  }
}

TEST_F(SystemModel, RoomForEveryPointOfEveryCurveEvenWhereNoVelocityIsStored) {
  SetPlainLayers(2);
  SetArrayCurves(30, 4, {});
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  EXPECT_GE(run.observations.arrayVel.hi(), 120);
  EXPECT_GE(run.observations.runVel.hi(), 120);
  EXPECT_EQ(run.observations.iArrayIndex.rowHi(), 4);
  EXPECT_EQ(run.observations.iArrayIndex.colHi(), 30);
  EXPECT_EQ(run.receivers.rec1Loc.hi(), 7);
}

struct Damage {
  const char* name;
  void (*spoil)(ModelRecord& m);
  const char* says;  // part of the message
};

class SystemModelRefusal : public RunTest, public ::testing::WithParamInterface<Damage> {};

TEST_P(SystemModelRefusal, EndsInOneMessageAndChangesNothing) {
  SetPlainLayers(3);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  run.ground.layerVs[1] = 7.0;
  GetParam().spoil(FModelParam);
  EXPECT_EQ(FS_AllocMemoryBlocks(), -1);
  EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr(GetParam().says));
  EXPECT_EQ(run.ground.nLayersCur, 3);
  EXPECT_EQ(run.ground.layerVs[1], 7.0);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, SystemModelRefusal,
    ::testing::Values(
        Damage{"NoLayers", [](ModelRecord& m) { m.nLayers = 0; }, "number of layers is 0"},
        Damage{"NegativeLayers", [](ModelRecord& m) { m.nLayers = -5; }, "number of layers is -5"},
        Damage{"TooManyLayers", [](ModelRecord& m) { m.nLayers = 2000000000; }, "from 1 to 1000"},
        Damage{"LayersBeyondCapacity", [](ModelRecord& m) { m.nLayers = 51; }, "has 50 entries"},
        Damage{"NegativeThickness", [](ModelRecord& m) { m.thickness[1] = -1.0; },
               "thickness of layer 2 is -1"},
        Damage{"NegativeVs", [](ModelRecord& m) { m.Vs[0] = -100.0; }, "S-wave velocity of layer 1 is -100"},
        Damage{"NaNVp", [](ModelRecord& m) { m.Vp[2] = kNaN; }, "P-wave velocity of layer 3"},
        Damage{"InfiniteThickness", [](ModelRecord& m) { m.thickness[2] = kInf; }, "thickness of layer 3"},
        Damage{"NegativeDensity", [](ModelRecord& m) { m.density[0] = -2.0; }, "density of layer 1"},
        Damage{"PoissonAboveHalf", [](ModelRecord& m) { m.nu[0] = 0.7; },
               "Poisson's ratio of layer 1 is 0.7"},
        Damage{"NegativeDamping", [](ModelRecord& m) { m.damping[0] = -0.1; }, "damping ratio of layer 1"},
        Damage{"UnknownAnalysis", [](ModelRecord& m) { m.analysis = 5; }, "analysis type is 5"},
        Damage{"AMillionSublayers", [](ModelRecord& m) { m.nSubLayers = 1000000; }, "sublayers is 1000000"},
        Damage{"HugeDepthFactor", [](ModelRecord& m) { m.fDispBulb = 1e9; },
               "depth factor of the mesh is 1e+09"},
        Damage{"NaNDepthFactor", [](ModelRecord& m) { m.fDispBulb = kNaN; }, "depth factor of the mesh"},
        Damage{"UnknownCurveType", [](ModelRecord& m) { m.dispCurvType = 3; }, "dispersion curves is 3"},
        Damage{"UnknownReceivers",
               [](ModelRecord& m) {
                 m.dispCurvType = 1;
                 m.GlobalRecType = 0;
               },
               "receiver type of the global curve is 0"},
        Damage{"TooManyPoints", [](ModelRecord& m) { m.nDispPoints = 1 << 30; },
               "points of the array curves"},
        Damage{"PointsBeyondCapacity", [](ModelRecord& m) { m.nDispPoints = 201; }, "frequencies has 200"},
        Damage{"CurvesBeyondCapacity", [](ModelRecord& m) { m.nDispCurves = 90; }, "velocities has 4000"},
        Damage{"NegativeCurves", [](ModelRecord& m) { m.nDispCurves = -3; }, "number of array curves is -3"},
        Damage{"TooManyGlobalPoints", [](ModelRecord& m) { m.nDispPointsG = 20001; },
               "points of the global curve"},
        Damage{"NegativeGlobalPoints", [](ModelRecord& m) { m.nDispPointsG = -1; },
               "points of the global curve"},
        Damage{"ReceiverThatIsNotThere", [](ModelRecord& m) { m.pairRec2[1] = 9; },
               "Receiver 2 of pair 2 is 9"},
        Damage{"ReceiverZero", [](ModelRecord& m) { m.pairRec1[0] = 0; }, "Receiver 1 of pair 1 is 0"},
        Damage{"NaNReceiver", [](ModelRecord& m) { m.recLoc[3] = kNaN; }, "location of receiver 4"}),
    [](const auto& one) { return one.param.name; });

TEST_F(SystemModel, RunOfLawfulButTogetherTooLargeCountsIsRefused) {
  SetPlainLayers(1000);
  SetArrayCurves(20000, 900, {});
  EXPECT_EQ(FS_AllocMemoryBlocks(), -1);
  EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("too large"));
}

TEST_F(SystemModel, LayerWithoutShearWaveIsTaken) {
  SetLayers({{2, 300, 0, 2, 0, 0.02}, {2, 0, 100, 2, 0.49, 0.02}, {0, 0, 0, 0, 0, 0}});
  EXPECT_EQ(FS_AllocMemoryBlocks(), 0);
}

TEST_F(SystemModel, PoissonHalfIsRefused) {
  SetLayers({{2, 300, 0, 2, 0, 0.02}, {2, 0, 100, 2, 0.5, 0.02}, {0, 0, 0, 0, 0, 0}});
  EXPECT_EQ(FS_AllocMemoryBlocks(), -1);
}

TEST_F(SystemModel, NamedPointsLeaveTheVectorsAlone) {
  SetPlainLayers(3);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  run.ground.layerVs[1] = 5.0;
  FS_AllocateObsData(10);
  FS_AllocatePropLayer(10);
  FS_DeAllocatePropLayer();
  FS_DeAllocateObsData();
  FS_DeAllocateRecSetup();
  FS_DeAllocateModelInfo();
  DeAllocatePropLayer();
  DeAllocateModelInfo();
  DeAllocateObsData();
  DeAllocateRecSetup();
  EXPECT_EQ(run.ground.layerVs[1], 5.0);
  EXPECT_EQ(run.ground.layerVs.hi(), 3);
}

TEST_F(SystemModel, SetupsCountTheThreeBuiltInOnes) {
  SetPlainLayers(2);
  SetArrayCurves(3, 5, {});
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  FS_AllocateRecSetup(run.receivers, 5);
  EXPECT_EQ(run.receivers.nRecSetups, 8);
  FS_AllocateRecSetup(run.receivers, 0);
  EXPECT_EQ(run.receivers.nRecSetups, 3);
  FS_AllocateRecSetup(run.receivers, 1 << 30);  // held to what the run was sized for
  EXPECT_EQ(run.receivers.nRecSetups, 8);
}

TEST_F(SystemModel, ModelInfoStoresStrideAndCountWithoutAllocating) {
  SetPlainLayers(4);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  FS_AllocateModelInfo(run.parameters, 1, 3);
  EXPECT_EQ(run.parameters.modelMapStride, 3);
  FS_AllocateModelInfo(run.parameters, 2, 2);
  EXPECT_EQ(run.parameters.nModelParm, 2);
  FS_AllocateModelInfo(run.parameters, 1, 1000);
  EXPECT_EQ(run.parameters.modelMapStride, 4);
  FS_AllocateModelInfo(run.parameters, 2, 1000);
  EXPECT_EQ(run.parameters.nModelParm, 4);
}

TEST_F(SystemModel, ReleaseOfTheStrataLeavesTheFourthColumn) {
  FS_AllocateStrataPropLayer(run.strata, 3);
  run.strata.Vp[2] = 400.0;
  EXPECT_EQ(run.strata.damp.hi(), 3);
  EXPECT_EQ(run.strata.iDensityDerived.hi(), 3);
  FS_DeAllocateStrataPropLayer(run.strata);
  for (const auto* v : {&run.strata.top, &run.strata.H, &run.strata.Vs, &run.strata.G, &run.strata.E,
                        &run.strata.rho, &run.strata.nu, &run.strata.damp})
    EXPECT_TRUE(v->empty());
  EXPECT_TRUE(run.strata.iPoissonGiven.empty());
  EXPECT_TRUE(run.strata.iDensityDerived.empty());
  ASSERT_EQ(run.strata.Vp.hi(), 3);
  EXPECT_EQ(run.strata.Vp[2], 400.0);
  FS_AllocateStrataPropLayer(run.strata, 2);
  EXPECT_EQ(run.strata.Vp.hi(), 2);
  EXPECT_EQ(run.strata.Vp[2], 0.0);
}

TEST_F(SystemModel, StrataModelInfoHasFourEntriesPerStratum) {
  FS_AllocateStrataModelInfo(run.strata, 3);
  EXPECT_EQ(run.strata.modelMap.lo(), 1);
  EXPECT_EQ(run.strata.modelMap.hi(), 12);
  FS_DeAllocateStrataModelInfo(run.strata);
  EXPECT_TRUE(run.strata.modelMap.empty());
}

TEST(ColumnMatrix, StoresByColumnsFromOne) {
  ColumnMatrix m(3, 2);
  m(3, 2) = 7.0;
  m(1, 1) = 5.0;
  EXPECT_EQ(m.shifted()[1], 5.0);
  EXPECT_EQ(m.shifted()[(2 - 1) * 3 + 3], 7.0);
  EXPECT_EQ(m.view()(3, 2), 7.0);
  EXPECT_TRUE(ColumnMatrix(0, 4).empty());
}

TEST(DiagonalMatrix, IsZeroBesideTheDiagonal) {
  DiagonalMatrix d(3);
  d.diag(2) = 4.0;
  EXPECT_EQ(d(2, 2), 4.0);
  EXPECT_EQ(d(1, 2), 0.0);
  EXPECT_EQ(d.size(), 3);
}

}  // namespace
}  // namespace sondera::testing
