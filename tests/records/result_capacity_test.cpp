// Tests of the growth of the records that results go to.
#include "records/result_capacity.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <new>

#include "runtime/dialogs.h"
#include "support/limited_memory.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class RecordGrowth : public RunTest {};

/// The last element of every table of a record can be written for its counters.
void ExpectRoom(InvRecord& r) {
  for (auto table : kModelTables) {
    ASSERT_GE((r.*table).rowHi(), r.nEntries);
    ASSERT_GE((r.*table).colHi(), std::max(r.nLayers, r.maxLayers));
  }
  ASSERT_GE(r.resolution.colHi(), r.nLayers);
  ASSERT_GE(r.freq.rowHi(), r.nEntries);
  ASSERT_GE(r.freq.colHi(), r.nPoints);
  ASSERT_GE(r.vel.colHi(), r.nPoints * r.nCurves);
  ASSERT_GE(r.waveL.colHi(), r.nPoints * r.nCurves);
  ASSERT_GE(r.rms.hi(), r.nEntries);
  r.Vs(r.nEntries, r.nLayers) = r.freq(r.nEntries, r.nPoints) = r.vel(r.nEntries, r.nPoints * r.nCurves) =
      1.0;
}

TEST_F(RecordGrowth, NothingHappensWhileAllFits) {
  InvParam.nLayers = 50;
  InvParam.nEntries = 50;
  InvParam.nPoints = 200;
  InvParam.nCurves = 20;
  InvParam.Vs(3, 4) = 77.0;
  EXPECT_EQ(ShowRefusal(FS_UpdateINVarray()), 0);
  EXPECT_EQ(InvParam.Vs(3, 4), 77.0);
  EXPECT_EQ(InvParam.maxLayers, 50);
  EXPECT_EQ(InvParam.maxEntries, 50);
  EXPECT_EQ(InvParam.maxData, 4000);
}

TEST_F(RecordGrowth, EachCapacityRisesToOneMoreThanItsCounter) {
  SMPParam.nEntries = 60;
  EXPECT_EQ(ShowRefusal(FS_UpdateSMParray()), 0);
  EXPECT_EQ(SMPParam.maxEntries, 61);
  SMPParam.nPoints = 150;
  SMPParam.nCurves = 30;
  EXPECT_EQ(ShowRefusal(FS_UpdateSMParray()), 0);
  EXPECT_EQ(SMPParam.maxData, 4501);
  SMPParam.nLayers = 400;
  EXPECT_EQ(ShowRefusal(FS_UpdateSMParray()), 0);
  EXPECT_EQ(SMPParam.maxLayers, 401);
  ExpectRoom(SMPParam);
}

TEST_F(RecordGrowth, ContentsAreLostWhenACapacityRises) {
  InvParam.Vs(1, 1) = 300.0;
  InvParam.rms[1] = 2.0;
  InvParam.resolution(1, 1) = 0.9;
  InvParam.nEntries = 51;
  EXPECT_EQ(ShowRefusal(FS_UpdateINVarray()), 0);
  EXPECT_EQ(InvParam.Vs(1, 1), 0.0);
  EXPECT_EQ(InvParam.rms[1], 0.0);
  EXPECT_EQ(InvParam.resolution(1, 1), 0.0);
}

#ifndef SONDERA_CHECK_BOUNDS  // the sanitizers reserve memory of their own

TEST_F(RecordGrowth, WhereMemoryRunsOutTheResultsThatAreThereStay) {
  InvParam.Vs(3, 4) = 77.0;
  InvParam.resolution(3, 4) = 0.5;
  InvParam.rms[3] = 2.5;
  enum { Grown, Unchanged, Spoilt };
  const int entries = InvParam.rms.hi(), layers = InvParam.Vs.colHi(), data = InvParam.vel.colHi();
  const auto grow = [&] {
    int end = Grown;
    try {
      if (ReserveEntry(InvParam, 100, 20000, 400, 500)) return int{Spoilt};
    } catch (const std::bad_alloc&) {
      const bool same = InvParam.rms.hi() == entries && InvParam.maxEntries == entries &&
                        InvParam.Vs.colHi() == layers && InvParam.depth.colHi() == layers &&
                        InvParam.vel.colHi() == data && InvParam.waveL.colHi() == data;
      end = same ? Unchanged : Spoilt;
    }
    const bool kept = InvParam.Vs(3, 4) == 77.0 && InvParam.resolution(3, 4) == 0.5 && InvParam.rms[3] == 2.5;
    return kept ? end : Spoilt;
  };
  // 470 MB in all: the first limit ends in the tables by layer, the last ones behind all.
  for (const int megabytes : {12, 50, 150, 250, 400})
    EXPECT_EQ(test::InLittleMemory(megabytes * 1000000LL, grow), Unchanged) << megabytes;
  EXPECT_EQ(test::InLittleMemory(800000000, grow), Grown);
}

#endif

TEST_F(RecordGrowth, TooManyPointsRaiseTheCapacityOfLayers) {
  InvParam.nPoints = 250;
  InvParam.nCurves = 1;
  EXPECT_EQ(ShowRefusal(FS_UpdateINVarray()), 0);
  EXPECT_EQ(InvParam.maxLayers, 251);
  EXPECT_EQ(InvParam.maxPoints, 200);
  ExpectRoom(InvParam);
}

TEST_F(RecordGrowth, PointsDoNotTakeAwayTheRoomOfLayers) {
  InvParam.nLayers = 400;
  InvParam.nPoints = 250;
  InvParam.nCurves = 1;
  EXPECT_EQ(ShowRefusal(FS_UpdateINVarray()), 0);
  EXPECT_EQ(InvParam.maxLayers, 251);
  ExpectRoom(InvParam);
  EXPECT_EQ(ShowRefusal(FS_UpdateINVarray()), 0);  // no second growth, no second loss
  EXPECT_EQ(InvParam.Vs(InvParam.nEntries, 400), 1.0);
}

TEST_F(RecordGrowth, CountersOfADamagedFileAreRefusedWithOneMessage) {
  constexpr int kMost = std::numeric_limits<int>::max();
  for (int InvRecord::*counter :
       {&InvRecord::nEntries, &InvRecord::nLayers, &InvRecord::nPoints, &InvRecord::nCurves}) {
    InitializeInvAnal();
    frontEnd.messages.clear();
    InvParam.nPoints = 100;
    InvParam.*counter = kMost;
    InvParam.Vs(1, 1) = 300.0;
    EXPECT_EQ(ShowRefusal(FS_UpdateINVarray()), -1);
    EXPECT_THAT(OnlyMessage(), ::testing::HasSubstr("too large"));
    EXPECT_EQ(InvParam.maxEntries, 50);
    EXPECT_EQ(InvParam.Vs(1, 1), 300.0);
  }
}

TEST_F(RecordGrowth, NegativeCountersDoNothing) {
  InvParam.nLayers = InvParam.nEntries = InvParam.nPoints = InvParam.nCurves = -9;
  EXPECT_EQ(ShowRefusal(FS_UpdateINVarray()), 0);
  EXPECT_EQ(InvParam.maxLayers, 50);
}

TEST_F(RecordGrowth, EmptyRecordGetsItsTables) {
  FinalizeInvAnal();
  InvParam.nEntries = 3;
  InvParam.nLayers = 2;
  InvParam.nPoints = 4;
  InvParam.nCurves = 2;
  EXPECT_EQ(ShowRefusal(FS_UpdateINVarray()), 0);
  ExpectRoom(InvParam);
}

TEST_F(RecordGrowth, RoomForAnEntryKeepsTheContents) {
  InvParam.Vs(50, 50) = 300.0;
  InvParam.vel(2, 4000) = 150.0;
  InvParam.rms[7] = 1.5;
  EXPECT_EQ(ShowRefusal(ReserveEntry(InvParam, 60, 80, 300, 20)), 0);
  EXPECT_EQ(InvParam.Vs(50, 50), 300.0);
  EXPECT_EQ(InvParam.vel(2, 4000), 150.0);
  EXPECT_EQ(InvParam.rms[7], 1.5);
  EXPECT_EQ(InvParam.maxEntries, 60);
  EXPECT_EQ(InvParam.maxLayers, 80);
  EXPECT_EQ(InvParam.maxPoints, 300);
  EXPECT_EQ(InvParam.maxData, 6000);
  InvParam.Vs(60, 80) = InvParam.vel(60, 6000) = InvParam.freq(60, 300) = InvParam.rms[60] = 1.0;
}

TEST_F(RecordGrowth, RoomForAnAbsurdEntryIsRefused) {
  EXPECT_EQ(ShowRefusal(ReserveEntry(InvParam, 2000000000, 10, 10, 1)), -1);
  EXPECT_EQ(ShowRefusal(ReserveEntry(InvParam, 1, 10, 2000000000, 2000000000)), -1);
  EXPECT_EQ(frontEnd.messages.size(), 2u);
  EXPECT_EQ(InvParam.maxEntries, 50);
}

TEST_F(RecordGrowth, TheoreticalArrayCurvesAreZeroedAndGrowByOneMore) {
  TheoDispInfo.dispCurvType = 2;
  TheoDispInfo.nDispPoints = 150;
  TheoDispInfo.nDispCurves = 30;
  TheoDispInfo.vel[5] = TheoDispInfo.wlen[5] = TheoDispInfo.freq[5] = 3.0;
  TheoDispInfo.globalVel[5] = 4.0;
  EXPECT_EQ(ShowRefusal(UpdateTheoDispArray()), 0);
  EXPECT_EQ(TheoDispInfo.capCurve, 4501);
  EXPECT_GE(TheoDispInfo.vel.size(), 4501u);
  EXPECT_GE(TheoDispInfo.wlen.size(), 4501u);
  EXPECT_EQ(TheoDispInfo.vel[5], 0.0);
  EXPECT_EQ(TheoDispInfo.wlen[5], 0.0);
  EXPECT_EQ(TheoDispInfo.freq[5], 0.0);
  EXPECT_EQ(TheoDispInfo.capPoints, 200);
  EXPECT_EQ(TheoDispInfo.globalVel[5], 4.0);
}

TEST_F(RecordGrowth, TheoreticalPointVectorDoublesOrTakesWhatItNeeds) {
  TheoDispInfo.dispCurvType = 2;
  TheoDispInfo.nDispCurves = 1;
  TheoDispInfo.nDispPoints = 250;
  EXPECT_EQ(ShowRefusal(UpdateTheoDispArray()), 0);
  EXPECT_EQ(TheoDispInfo.capPoints, 400);
  TheoDispInfo.nDispPoints = 1500;
  EXPECT_EQ(ShowRefusal(UpdateTheoDispArray()), 0);
  EXPECT_EQ(TheoDispInfo.capPoints, 1500);
  EXPECT_GE(TheoDispInfo.freq.size(), 1500u);
  EXPECT_GE(TheoDispInfo.globalVel.size(), 1500u);
}

TEST_F(RecordGrowth, TheoreticalGlobalCurveTakesOneMoreThanItsPoints) {
  TheoDispInfo.dispCurvType = 1;
  TheoDispInfo.nDispPointsG = 300;
  for (auto column : kGlobalColumns) (TheoDispInfo.*column)[3] = 8.0;
  TheoDispInfo.vel[3] = 9.0;
  EXPECT_EQ(ShowRefusal(UpdateTheoDispArray()), 0);
  EXPECT_EQ(TheoDispInfo.capPoints, 301);
  for (auto column : kGlobalColumns) {
    EXPECT_GE((TheoDispInfo.*column).size(), 301u);
    EXPECT_EQ((TheoDispInfo.*column)[3], 0.0);
  }
  EXPECT_EQ(TheoDispInfo.vel[3], 9.0);
}

TEST_F(RecordGrowth, TheoreticalLayersFollowTheForwardModel) {
  TheoDispInfo.Vs[2] = 100.0;
  FModelParam.nLayers = 50;
  EXPECT_EQ(ShowRefusal(UpdateTheoDispArray()), 0);
  EXPECT_EQ(TheoDispInfo.Vs[2], 100.0);
  FModelParam.nLayers = 60;
  EXPECT_EQ(ShowRefusal(UpdateTheoDispArray()), 0);
  EXPECT_EQ(TheoDispInfo.capLayers, 61);
  for (auto column : kLayerColumns) EXPECT_EQ((TheoDispInfo.*column).size(), 61u);
}

TEST_F(RecordGrowth, TheoreticalPairsHaveRoomForThoseOfTheForwardModel) {
  FModelParam.nDispCurves = 35;
  FModelParam.nReceivers = 40;
  EXPECT_EQ(ShowRefusal(UpdateTheoDispArray()), 0);
  EXPECT_GE(TheoDispInfo.pairRec1.size(), 35u);
  EXPECT_GE(TheoDispInfo.pairMax.size(), 35u);
  EXPECT_GE(TheoDispInfo.recLoc.size(), 40u);
}

TEST_F(RecordGrowth, TheoreticalCurvesOfADamagedFileAreRefused) {
  const auto refused = [this](void (*spoil)()) {
    InitializeFModel();
    InitializeTheoDispInfo();
    frontEnd.messages.clear();
    spoil();
    return ShowRefusal(UpdateTheoDispArray()) == -1 && frontEnd.messages.size() == 1;
  };
  EXPECT_TRUE(refused([] { TheoDispInfo.nDispPointsG = 1 << 30; }));
  EXPECT_TRUE(refused([] { TheoDispInfo.nDispPoints = 1 << 30; }));
  EXPECT_TRUE(refused([] { TheoDispInfo.nDispCurves = 1 << 30; }));
  EXPECT_TRUE(refused([] { FModelParam.nLayers = 1 << 30; }));
  EXPECT_TRUE(refused([] { TheoDispInfo.nDispPoints = 20000, TheoDispInfo.nDispCurves = 1000; }));
}

TEST_F(RecordGrowth, CapacitiesThatNoRecordHasAreNotBelieved) {
  TheoDispInfo.dispCurvType = 2;
  TheoDispInfo.capCurve = TheoDispInfo.capPairs = std::numeric_limits<int>::max();
  EXPECT_EQ(ShowRefusal(UpdateTheoDispArray()), 0);
  EXPECT_LT(TheoDispInfo.vel.size(), 20000000u);
  EXPECT_LT(TheoDispInfo.pairMin.size(), 20000000u);
}

TEST_F(RecordGrowth, NegativeCountersOfTheoreticalCurvesDoNothing) {
  TheoDispInfo.dispCurvType = 2;
  TheoDispInfo.nDispPoints = TheoDispInfo.nDispCurves = -4;
  FModelParam.nLayers = -2;
  EXPECT_EQ(ShowRefusal(UpdateTheoDispArray()), 0);
  EXPECT_EQ(TheoDispInfo.capCurve, 4000);
}

TEST_F(RecordGrowth, MeasuredCurvesGoToTheRecordOfTheRun) {
  SetArrayCurves(3, 2, {100, 0, 110, 111, 0, 121});
  TheoDispInfo.vel.assign(4000, 0.0);
  TheoDispInfo.freq.assign(200, 0.0);
  ASSERT_EQ(ShowRefusal(UpdateTheoDispArray()), 0);
  CopyCurvesToTheoDispInfo();
  for (std::size_t k = 0; k < 6; ++k) EXPECT_EQ(TheoDispInfo.vel[k], FModelParam.vel[k]);
  EXPECT_EQ(TheoDispInfo.freq[2], 15.0);
  SetGlobalCurve(5);
  ASSERT_EQ(ShowRefusal(UpdateTheoDispArray()), 0);
  CopyCurvesToTheoDispInfo();
  EXPECT_EQ(TheoDispInfo.globalVel[4], 150.0);
  EXPECT_EQ(TheoDispInfo.globalFreq[4], 50.0);
  EXPECT_EQ(TheoDispInfo.globalWlen[4], 3.0);
}

}  // namespace
}  // namespace sondera::testing
