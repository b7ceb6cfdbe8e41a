// Tests of the model records: first values, sizes, release.
#include "records/model_records.h"

#include <gtest/gtest.h>

namespace sondera {
namespace {

TEST(InitializeFModel, GivesTheFirstValuesOfEveryField) {
  InitializeFModel();
  const ModelRecord& m = FModelParam;
  EXPECT_EQ(m.capLayers, 50);
  EXPECT_EQ(m.capPairs, 20);
  EXPECT_EQ(m.capRec, 16);
  EXPECT_EQ(m.capPoints, 200);
  EXPECT_EQ(m.capCurve, 4000);
  EXPECT_EQ(m.analysis, 3);
  EXPECT_EQ(m.nSubLayers, 16);
  EXPECT_EQ(m.fDispBulb, 1.75);
  EXPECT_EQ(m.nLayers, 10);
  EXPECT_EQ(m.dispCurvType, 2);
  EXPECT_EQ(m.DispCurvInfo, 1);
  EXPECT_EQ(m.incRatio, 1.07);
  EXPECT_EQ(m.nDispPointsG, 50);
  EXPECT_EQ(m.GlobalRecType, 3);
  EXPECT_EQ(m.GlobalRec1Loc, 1.0);
  EXPECT_EQ(m.GlobalRec2Loc, 2.0);
  EXPECT_EQ(m.xDomainType, 1);
  EXPECT_EQ(m.xMinGlobal, 1.0);
  EXPECT_EQ(m.xMaxGlobal, 100.0);
  EXPECT_EQ(m.nReceivers, 8);
  EXPECT_EQ(m.nDispPoints, 50);
  EXPECT_EQ(m.nDispCurves, 7);
  EXPECT_EQ(m.closingWord1, 2);
  EXPECT_EQ(m.closingWord2, 12);
}

TEST(InitializeFModel, SizesEveryVectorByItsCapacity) {
  InitializeFModel();
  for (auto column : kLayerColumns) EXPECT_EQ((FModelParam.*column).size(), 50u);
  for (auto column : kGlobalColumns) EXPECT_EQ((FModelParam.*column).size(), 200u);
  EXPECT_EQ(FModelParam.freq.size(), 200u);
  EXPECT_EQ(FModelParam.vel.size(), 4000u);
  EXPECT_EQ(FModelParam.wlen.size(), 4000u);
  EXPECT_EQ(FModelParam.pairMin.size(), 20u);
  EXPECT_EQ(FModelParam.pairMax.size(), 20u);
}

TEST(InitializeFModel, PutsSixteenReceiversAtDoublingDistancesFromHalf) {
  InitializeFModel();
  ASSERT_EQ(FModelParam.recLoc.size(), 16u);
  EXPECT_EQ(FModelParam.recLoc.front(), 0.5);
  for (std::size_t i = 1; i < 16; ++i) EXPECT_EQ(FModelParam.recLoc[i], 2.0 * FModelParam.recLoc[i - 1]);
}

TEST(InitializeFModel, PairsNeighbouringReceivers) {
  InitializeFModel();
  ASSERT_EQ(FModelParam.pairRec1.size(), 20u);
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(FModelParam.pairRec1[static_cast<std::size_t>(i)], i + 1);
    EXPECT_EQ(FModelParam.pairRec2[static_cast<std::size_t>(i)], i + 2);
  }
}

TEST(InitializeTheoDispInfo, DiffersInTheCurveTypeAndTheClosingWordsOnly) {
  InitializeFModel();
  InitializeTheoDispInfo();
  EXPECT_EQ(TheoDispInfo.dispCurvType, 1);
  EXPECT_EQ(TheoDispInfo.closingWord1, 0);
  EXPECT_EQ(TheoDispInfo.closingWord2, 11);
  EXPECT_EQ(TheoDispInfo.capCurve, FModelParam.capCurve);
  EXPECT_EQ(TheoDispInfo.incRatio, FModelParam.incRatio);
  EXPECT_EQ(TheoDispInfo.nDispCurves, FModelParam.nDispCurves);
  EXPECT_EQ(TheoDispInfo.recLoc, FModelParam.recLoc);
  EXPECT_EQ(TheoDispInfo.pairRec2, FModelParam.pairRec2);
}

TEST(AllocateModelRecord, HoldsTheCountersWhereTheyExceedTheCapacities) {
  ModelRecord m;
  m.capLayers = 3;
  m.nLayers = 5;
  m.capPoints = 4;
  m.nDispPoints = 6;
  m.nDispCurves = 7;
  m.capCurve = 2;
  m.capPairs = -1;
  AllocateModelRecord(m);
  EXPECT_EQ(m.Vs.size(), 5u);
  EXPECT_EQ(m.freq.size(), 6u);
  EXPECT_EQ(m.globalVel.size(), 4u);
  EXPECT_EQ(m.vel.size(), 42u);
  EXPECT_EQ(m.pairRec1.size(), 7u);
  EXPECT_TRUE(m.recLoc.empty());
}

TEST(FinalizeFModel, LeavesEmptyRecords) {
  InitializeFModel();
  InitializeTheoDispInfo();
  FinalizeFModel();
  FinalizeTheoDispInfo();
  EXPECT_EQ(FModelParam.capLayers, 0);
  EXPECT_TRUE(FModelParam.Vs.empty());
  EXPECT_TRUE(TheoDispInfo.vel.empty());
}

}  // namespace
}  // namespace sondera
