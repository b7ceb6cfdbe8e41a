// Tests of the inversion records: first values, sizes, release, the lists of entries.
#include "records/inv_records.h"

#include <gtest/gtest.h>

namespace sondera {
namespace {

void ExpectCommonFirstValues(const InvRecord& r) {
  EXPECT_EQ(r.maxLayers, 50);
  EXPECT_EQ(r.maxCurves, 20);
  EXPECT_EQ(r.maxPoints, 200);
  EXPECT_EQ(r.maxData, 4000);
  EXPECT_EQ(r.maxEntries, 50);
  EXPECT_EQ(r.nLayers, 0);
  EXPECT_EQ(r.nCurves, 0);
  EXPECT_EQ(r.nPoints, 0);
  EXPECT_EQ(r.ufH, 0.2);
  EXPECT_EQ(r.ufVs, 0.05);
  EXPECT_EQ(r.minH, 0.01);
  EXPECT_EQ(r.maxH, 50.0);
  EXPECT_EQ(r.minVs, 10.0);
  EXPECT_EQ(r.maxVs, 100000.0);
  EXPECT_EQ(r.MODELPARM, 1);
  EXPECT_EQ(r.iSelected, 0);
}

TEST(InitializeInvAnal, GivesTheFirstValuesOfIterations) {
  InitializeInvAnal();
  ExpectCommonFirstValues(InvParam);
  EXPECT_EQ(InvParam.reserved, 0);
  EXPECT_EQ(InvParam.nEntries, 5);
  EXPECT_EQ(InvParam.alphaFrom, 0.0);
  EXPECT_EQ(InvParam.alphaTo, 0.0);
}

TEST(InitializeInvAnal, GivesTheFirstValuesOfStartingProfiles) {
  InitializeInvAnal();
  ExpectCommonFirstValues(SMPParam);
  EXPECT_EQ(SMPParam.reserved, 20);
  EXPECT_EQ(SMPParam.nEntries, 10);
  EXPECT_EQ(SMPParam.alphaFrom, 0.35);
  EXPECT_EQ(SMPParam.alphaTo, 0.65);
}

TEST(InitializeInvAnal, MakesTablesFromEntryZeroToTheLast) {
  InitializeInvAnal();
  for (InvRecord* r : {&InvParam, &SMPParam}) {
    for (auto table : kModelTables) {
      EXPECT_EQ((r->*table).rowLo(), 0);
      EXPECT_EQ((r->*table).rowHi(), 50);
      EXPECT_EQ((r->*table).colLo(), 0);
      EXPECT_EQ((r->*table).colHi(), 50);
    }
    EXPECT_EQ(r->resolution.colHi(), 50);
    EXPECT_EQ(r->freq.colHi(), 200);
    EXPECT_EQ(r->vel.colHi(), 4000);
    EXPECT_EQ(r->waveL.rowHi(), 50);
    EXPECT_EQ(r->rms.lo(), 0);
    EXPECT_EQ(r->rms.hi(), 50);
  }
}

TEST(FinalizeInvAnal, LeavesEmptyRecords) {
  InitializeInvAnal();
  FinalizeInvAnal();
  EXPECT_EQ(InvParam.maxLayers, 0);
  EXPECT_TRUE(InvParam.Vs.empty());
  EXPECT_TRUE(SMPParam.vel.empty());
}

}  // namespace
}  // namespace sondera
