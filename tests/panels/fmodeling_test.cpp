// Tests of the settings of a forward run between the panel and the record.
#include <gtest/gtest.h>

#include <limits>

#include "panels/fmodeling_fixture.h"
#include "panels/fmodeling_records.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/session.h"
#include "records/settings_capacity.h"
#include "run/run_state.h"
#include "run/system_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"

namespace sondera {
namespace {

using namespace fmodeling;

constexpr const char* kThickness = "Invalid value of thickness !";
constexpr const char* kVelocity = "Invalid value of Vp, Vs or Poisson's Ratio !";
constexpr const char* kDensity = "Invalid value of mass density !";

using testing::ModelParameters;
using testing::PutLayer;

// ---- GetFModelParam_AS ------------------------------------------------------------------------------

class GetFModelParamAS : public ModelParameters {};

TEST_F(GetFModelParamAS, TakesTheRowsOfTheTableAsLayersAndTheRunItsOwnCopy) {
  PutLayers(3);
  SetCtrlVal(NLAYERS, 7);
  SetCtrlVal(ANALYSISTYPE, 4);
  SetCtrlVal(E3D_NSUBL, 12);
  SetCtrlVal(E3D_FDB, 2.5);
  ASSERT_EQ(GetFModelParam_AS(), 0);
  EXPECT_EQ(FModelParam.nLayers, 3);
  EXPECT_EQ(FModelParam.analysis, 4);
  EXPECT_EQ(FModelParam.nSubLayers, 12);
  EXPECT_EQ(FModelParam.fDispBulb, 2.5);
  EXPECT_EQ(run.switches.fDispBulb, 2.5);
  EXPECT_EQ(run.switches.iDispSource, 2);
  EXPECT_EQ(FModelParam.thickness[2], 3.5);
  EXPECT_EQ(FModelParam.Vs[1], 102.0);
  EXPECT_EQ(FModelParam.damping[0], 0.02);
}

TEST_F(GetFModelParamAS, AZeroThicknessAnywhereIsRefusedTheHalfSpaceIncluded) {
  for (int row = 1; row <= 3; ++row) {
    PutLayers(3);
    SetTableCellVal(SOILPROFILE, row, 1, 0.0);
    frontEnd.messages.clear();
    EXPECT_EQ(GetFModelParam_AS(), -1);
    EXPECT_EQ(OnlyMessage(), kThickness);
  }
  EXPECT_EQ(frontEnd.messageTitles.back(), session.appTitle);
}

TEST_F(GetFModelParamAS, TwoOfVpVsAndPoissonsRatioPass) {
  PutLayers(3);
  PutLayer(1, 1, 0, 100, 1.8, 0.3, 0.02);
  PutLayer(2, 1, 300, 100, 1.8, 0, 0.02);
  PutLayer(3, 1, 300, 0, 1.8, 0.3, 0.02);
  EXPECT_EQ(GetFModelParam_AS(), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(GetFModelParamAS, OneOrNoneOfVpVsAndPoissonsRatioIsRefused) {
  const double rows[4][3] = {{300, 0, 0}, {0, 100, 0}, {0, 0, 0.3}, {0, 0, 0}};
  for (const auto& row : rows) {
    PutLayers(3);
    PutLayer(2, 1, row[0], row[1], 1.8, row[2], 0.02);
    frontEnd.messages.clear();
    EXPECT_EQ(GetFModelParam_AS(), -1);
    EXPECT_EQ(OnlyMessage(), kVelocity);
  }
}

TEST_F(GetFModelParamAS, AZeroDensityIsRefused) {
  PutLayers(3);
  SetTableCellVal(SOILPROFILE, 3, 4, 0.0);
  EXPECT_EQ(GetFModelParam_AS(), -1);
  EXPECT_EQ(OnlyMessage(), kDensity);
}

TEST_F(GetFModelParamAS, ComplainsOfThicknessThenVelocityThenDensity) {
  PutLayers(2);
  PutLayer(1, 1, 0, 0, 0, 0, 0);
  PutLayer(2, 0, 0, 100, 1.8, 0.3, 0.02);
  EXPECT_EQ(GetFModelParam_AS(), -1);
  SetTableCellVal(SOILPROFILE, 2, 1, 1.0);
  EXPECT_EQ(GetFModelParam_AS(), -1);
  PutLayer(1, 1, 0, 100, 0, 0.3, 0);
  EXPECT_EQ(GetFModelParam_AS(), -1);
  const std::vector<std::string> order = {kThickness, kVelocity, kDensity};
  EXPECT_EQ(frontEnd.messages, order);
}

TEST_F(GetFModelParamAS, KeepsWhatItReadWhenItRefuses) {
  PutLayers(4);
  SetTableCellVal(SOILPROFILE, 4, 1, 0.0);
  EXPECT_EQ(GetFModelParam_AS(), -1);
  EXPECT_EQ(FModelParam.nLayers, 4);
  EXPECT_EQ(FModelParam.thickness[1], 2.5);
}

TEST_F(GetFModelParamAS, ManyThinLayersAndSmallDensitiesAreNoZeroProduct) {
  PutLayers(400);
  for (int row = 1; row <= 400; ++row) PutLayer(row, 0.1, 0, 15000, 0.0018, 0.3, 0.02);
  EXPECT_EQ(GetFModelParam_AS(), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(GetFModelParamAS, ATableBeyondTheCapacityFitsWithoutOverrun) {
  for (int rows : {50, 51, 100, 101, 400, 1000}) {
    InitializeFModel();
    PutLayers(rows);
    ASSERT_EQ(GetFModelParam_AS(), 0);
    EXPECT_EQ(FModelParam.nLayers, rows);
    EXPECT_EQ(FModelParam.capLayers, rows <= 50 ? 50 : std::max(100, rows));
    for (auto column : kLayerColumns)
      EXPECT_GE((FModelParam.*column).size(), static_cast<std::size_t>(FModelParam.capLayers));
    EXPECT_EQ(FModelParam.Vs[static_cast<std::size_t>(rows - 1)], 100.0 + rows);
  }
}

TEST_F(GetFModelParamAS, NegativeAndEndlessValuesPassToTheRunWhichRefusesThem) {
  PutLayers(2);
  PutLayer(1, -1, 0, -100, -1.8, 0.3, 0.02);
  SetTableCellVal(SOILPROFILE, 2, 1, std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(GetFModelParam_AS(), 0);
  EXPECT_EQ(FModelParam.thickness[0], -1.0);
}

TEST_F(GetFModelParamAS, AnEmptyTableIsNoLayers) {
  AdjustTableSize(SOILPROFILE, 0, "L");
  EXPECT_EQ(GetFModelParam_AS(), 0);
  EXPECT_EQ(FModelParam.nLayers, 0);
}

// ---- GetFModelParam_RD ------------------------------------------------------------------------------

class GetFModelParamRD : public ModelParameters {};

TEST_F(GetFModelParamRD, TakesReceiversAndPairsForArrayCurves) {
  SetFModelParam();
  SetCtrlVal(INCRATIO, -1.0);
  SetCtrlVal(NDISPPOINTS, 33);
  SetTableCellVal(RECEIVERLOC, 2, 1, 7.25);
  SetTableCellVal(DISPCURVINFO, 3, 1, 2.9);
  SetTableCellVal(DISPCURVINFO, 3, 2, 8.0);
  SetTableCellVal(DISPCURVINFO, 3, 3, 5.5);
  SetTableCellVal(DISPCURVINFO, 3, 4, 66.0);
  ASSERT_EQ(GetFModelParam_RD(), 0);
  EXPECT_EQ(FModelParam.incRatio, -1.0);
  EXPECT_EQ(FModelParam.nDispPoints, 33);
  EXPECT_EQ(FModelParam.recLoc[1], 7.25);
  EXPECT_EQ(FModelParam.pairRec1[2], 2);
  EXPECT_EQ(FModelParam.pairRec2[2], 8);
  EXPECT_EQ(FModelParam.pairMin[2], 5.5);
  EXPECT_EQ(FModelParam.pairMax[2], 66.0);
  EXPECT_EQ(FModelParam.nDispPointsG, 50);
}

TEST_F(GetFModelParamRD, SpacingRatiosOneAndMinusOneReachTheRecordAsTheyAre) {
  for (double ratio : {1.0, -1.0}) {
    SetCtrlVal(INCRATIO, ratio);
    ASSERT_EQ(GetFModelParam_RD(), 0);
    EXPECT_EQ(FModelParam.incRatio, ratio);
  }
}

TEST_F(GetFModelParamRD, TakesRangeAndReceiversForAGlobalCurve) {
  SetCtrlVal(GLOBAL_ARRAY, 1);
  SetCtrlVal(NDISPPOINTS, 12);
  SetCtrlVal(GLOBAL_REC_TYPE, 4);
  SetCtrlVal(R1_LOC, 3.0);
  SetCtrlVal(R2_LOC, 9.0);
  SetCtrlVal(XDOMAIN_TYPE, 2);
  SetCtrlVal(XMIN, 4.0);
  SetCtrlVal(XMAX, 44.0);
  ASSERT_EQ(GetFModelParam_RD(), 0);
  EXPECT_EQ(FModelParam.dispCurvType, 1);
  EXPECT_EQ(run.switches.iDispSource, 1);
  EXPECT_EQ(FModelParam.nDispPointsG, 12);
  EXPECT_EQ(FModelParam.nDispPoints, 50);
  EXPECT_EQ(FModelParam.GlobalRecType, 4);
  EXPECT_EQ(FModelParam.GlobalRec1Loc, 3.0);
  EXPECT_EQ(FModelParam.GlobalRec2Loc, 9.0);
  EXPECT_EQ(FModelParam.xDomainType, 2);
  EXPECT_EQ(FModelParam.xMinGlobal, 4.0);
  EXPECT_EQ(FModelParam.xMaxGlobal, 44.0);
}

TEST_F(GetFModelParamRD, LocationsOfAGlobalCurveCountWithFixedReceiversOnly) {
  SetCtrlVal(GLOBAL_ARRAY, 1);
  SetCtrlVal(R1_LOC, 3.0);
  ASSERT_EQ(GetFModelParam_RD(), 0);
  EXPECT_EQ(FModelParam.GlobalRec1Loc, 1.0);
}

TEST_F(GetFModelParamRD, StoredCurvesThatAreWantedHaveToBeThere) {
  FModelParam.DispCurvInfo = 2;
  EXPECT_EQ(GetFModelParam_RD(), -1);
  EXPECT_EQ(OnlyMessage(), "Array Rep. Disp. Curve is not available.");
  frontEnd.messages.clear();
  SetCtrlVal(GLOBAL_ARRAY, 1);
  EXPECT_EQ(GetFModelParam_RD(), -1);
  EXPECT_EQ(OnlyMessage(), "Global Rep. Disp. Curve is not available.");
  FModelParam.globalVel[49] = 1.0;
  EXPECT_EQ(GetFModelParam_RD(), 0);
  SetCtrlVal(GLOBAL_ARRAY, 2);
  FModelParam.vel[50 * 7 - 1] = -1.0;
  EXPECT_EQ(GetFModelParam_RD(), 0);
}

TEST_F(GetFModelParamRD, NobodyLooksForStoredCurvesWithInfoZeroOrOne) {
  for (int info : {0, 1}) {
    FModelParam.DispCurvInfo = info;
    EXPECT_EQ(GetFModelParam_RD(), 0);
  }
}

TEST_F(GetFModelParamRD, CountsThatNoRunTakesEndInAMessage) {
  const ModelRecord before = FModelParam;
  for (const IntControl* c : {&NDISPPOINTS, &NDISPCURVES, &NRECEIVERS})
    for (int n : {-1, 1000000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
      ResetControls();
      SetCtrlVal(*c, n);
      frontEnd.messages.clear();
      EXPECT_EQ(GetFModelParam_RD(), -1);
      EXPECT_NE(OnlyMessage().find(std::to_string(n)), std::string::npos);
      EXPECT_EQ(FModelParam.vel.size(), before.vel.size());
      EXPECT_EQ(FModelParam.nDispPoints, before.nDispPoints);
    }
  ResetControls();
  SetCtrlVal(GLOBAL_ARRAY, 1);
  SetCtrlVal(NDISPPOINTS, 2000000000);
  frontEnd.messages.clear();
  EXPECT_EQ(GetFModelParam_RD(), -1);
  EXPECT_EQ(OnlyMessage(),
            "The number of points of the global curve is 2000000000. It must be from 0 to 20000.");
}

TEST_F(GetFModelParamRD, GrowsTheRecordWithTheTables) {
  SetCtrlVal(NDISPPOINTS, 500);
  SetCtrlVal(NDISPCURVES, 45);
  Commit(NDISPCURVES);
  SetCtrlVal(NRECEIVERS, 46);
  Commit(NRECEIVERS);
  SetTableCellVal(RECEIVERLOC, 46, 1, 460.0);
  ASSERT_EQ(GetFModelParam_RD(), 0);
  EXPECT_EQ(FModelParam.recLoc[45], 460.0);
  EXPECT_EQ(FModelParam.pairRec1[44], 45);
  EXPECT_EQ(FModelParam.pairRec2[44], 46);
  EXPECT_GE(FModelParam.vel.size(), 500u * 45u);
  EXPECT_GE(FModelParam.wlen.size(), 500u * 45u);
  EXPECT_GE(FModelParam.freq.size(), 500u);
  EXPECT_EQ(FModelParam.capRec, 46);
  EXPECT_EQ(FModelParam.capPairs, 45);
}

TEST_F(GetFModelParamRD, StoredVelocitiesStayWithTheirPointAndCurve) {
  for (std::size_t p = 0; p < 50; ++p)
    for (std::size_t c = 0; c < 7; ++c) FModelParam.vel[p * 7 + c] = static_cast<double>(100 * p + c);
  SetCtrlVal(NDISPCURVES, 5);
  ASSERT_EQ(GetFModelParam_RD(), 0);
  for (std::size_t p = 0; p < 50; ++p)
    for (std::size_t c = 0; c < 5; ++c)
      EXPECT_EQ(FModelParam.vel[p * 5 + c], static_cast<double>(100 * p + c));
  SetCtrlVal(NDISPCURVES, 6);
  ASSERT_EQ(GetFModelParam_RD(), 0);
  EXPECT_EQ(FModelParam.vel[3 * 6 + 4], 304.0);
  EXPECT_EQ(FModelParam.vel[3 * 6 + 5], 0.0);
}

TEST_F(GetFModelParamRD, RowsThatTheTablesLackLeaveTheRecordsValues) {
  SetNumTableRows(RECEIVERLOC, 2);
  SetTableCellVal(RECEIVERLOC, 1, 1, 3.0);
  ASSERT_EQ(GetFModelParam_RD(), 0);
  EXPECT_EQ(FModelParam.recLoc[0], 3.0);
  EXPECT_EQ(FModelParam.recLoc[7], 64.0);
}

TEST_F(GetFModelParamRD, ReceiverNumbersOutOfTheRangeOfAnIntAreHeld) {
  SetTableCellVal(DISPCURVINFO, 1, 1, 1e300);
  SetTableCellVal(DISPCURVINFO, 1, 2, std::numeric_limits<double>::quiet_NaN());
  ASSERT_EQ(GetFModelParam_RD(), 0);
  EXPECT_EQ(FModelParam.pairRec1[0], std::numeric_limits<int>::max());
  EXPECT_EQ(FModelParam.pairRec2[0], 0);
}

// ---- SetFModelParam ---------------------------------------------------------------------------------

class SetFModelParamTest : public ModelParameters {};

TEST_F(SetFModelParamTest, WhatIsShownIsReadBackAsItWas) {
  ModelRecord& m = FModelParam;
  m.nLayers = 60;
  ReserveLayers(m, 60);
  for (std::size_t k = 0; k < 6; ++k)
    for (std::size_t l = 0; l < 60; ++l)
      (m.*kLayerColumns[k])[l] = 1.0 + 0.001 * static_cast<double>(10 * l + k);
  m.analysis = 2;
  m.GlobalRecType = 4;
  m.pairMax[6] = 3.25;
  const ModelRecord before = m;
  SetFModelParam();
  InitializeFModel();
  ASSERT_EQ(GetFModelParam_AS(), 0);
  ASSERT_EQ(GetFModelParam_RD(), 0);
  EXPECT_EQ(m.nLayers, 60);
  for (auto column : kLayerColumns)
    for (std::size_t l = 0; l < 60; ++l) EXPECT_EQ((m.*column)[l], (before.*column)[l]);
  EXPECT_EQ(m.analysis, 2);
  EXPECT_EQ(m.recLoc, before.recLoc);
  EXPECT_EQ(m.pairRec1, before.pairRec1);
  EXPECT_EQ(m.pairMax, before.pairMax);
  EXPECT_EQ(GetCtrlVal(NLAYERS), 60);
  EXPECT_EQ(GetCtrlVal(GLOBAL_REC_TYPE), 4);
}

TEST_F(SetFModelParamTest, LabelsRowsByTableAndNumber) {
  SetFModelParam();
  EXPECT_EQ(GetTableRowLabel(SOILPROFILE, 10), "L10");
  EXPECT_EQ(GetTableRowLabel(RECEIVERLOC, 1), "R1");
  EXPECT_EQ(GetTableRowLabel(DISPCURVINFO, 7), "D7");
}

TEST_F(SetFModelParamTest, ShowsTheGroupOfTheKindOfCurves) {
  FModelParam.dispCurvType = 1;
  FModelParam.nDispPointsG = 17;
  SetFModelParam();
  EXPECT_EQ(GetCtrlVal(GLOBAL_ARRAY), 1);
  EXPECT_EQ(GetCtrlVal(NDISPPOINTS), 17);
  for (const Control* c : {static_cast<const Control*>(&GLOBAL_REC_TYPE),
                           static_cast<const Control*>(&R1_LOC), static_cast<const Control*>(&XMAX)})
    EXPECT_TRUE(IsVisible(*c));
  EXPECT_FALSE(IsVisible(DISPCURVINFO));
  FModelParam.dispCurvType = 2;
  SetFModelParam();
  EXPECT_FALSE(IsVisible(XMAX));
  EXPECT_TRUE(IsVisible(RECEIVERLOC));
}

TEST_F(SetFModelParamTest, ARecordWithShortVectorsShowsZeros) {
  FModelParam.Vs.clear();
  FModelParam.nLayers = 3;
  SetFModelParam();
  EXPECT_EQ(GetNumTableRows(SOILPROFILE), 3);
  EXPECT_EQ(GetTableCellVal(SOILPROFILE, 3, 3), 0.0);
}

TEST_F(SetFModelParamTest, NegativeCountersShowNoRows) {
  FModelParam.nLayers = FModelParam.nReceivers = FModelParam.nDispCurves = -5;
  SetFModelParam();
  EXPECT_EQ(GetNumTableRows(SOILPROFILE), 0);
  EXPECT_EQ(GetNumTableRows(RECEIVERLOC), 0);
  EXPECT_EQ(GetNumTableRows(DISPCURVINFO), 0);
}

TEST_F(ModelParameters, AdjustTableSizeKeepsTheFirstRowsAndAddsZeroRows) {
  PutLayers(3);
  AdjustTableSize(SOILPROFILE, 5, "X");
  EXPECT_EQ(GetTableCellVal(SOILPROFILE, 3, 1), 3.5);
  EXPECT_EQ(GetTableCellVal(SOILPROFILE, 5, 1), 0.0);
  EXPECT_EQ(GetTableRowLabel(SOILPROFILE, 5), "X5");
  AdjustTableSize(SOILPROFILE, 2, "L");
  EXPECT_EQ(GetNumTableRows(SOILPROFILE), 2);
  EXPECT_EQ(GetTableRowLabel(SOILPROFILE, 1), "L1");
}

// ---- ResetFModel_D ----------------------------------------------------------------------------------

TEST_F(ModelParameters, ResetStartsAllRecordsAfreshWithoutStoredCurves) {
  FModelParam.nLayers = 3;
  FModelParam.Vs[0] = 5.0;
  TheoDispInfo.nLayers = 44;
  InvParam.nLayers = 9;
  InsertListItem(exdthd::ITERNO, -1, "INV 1", 1);
  ResetFModel_D();
  EXPECT_EQ(FModelParam.nLayers, 10);
  EXPECT_EQ(FModelParam.Vs[0], 0.0);
  EXPECT_EQ(FModelParam.DispCurvInfo, 0);
  EXPECT_EQ(FModelParam.dispCurvType, 2);
  EXPECT_EQ(FModelParam.nReceivers, 8);
  EXPECT_EQ(FModelParam.recLoc[7], 64.0);
  EXPECT_EQ(FModelParam.nDispPoints, 50);
  EXPECT_EQ(FModelParam.nDispPointsG, 50);
  EXPECT_EQ(TheoDispInfo.nLayers, 10);
  EXPECT_EQ(InvParam.nLayers, 0);
  EXPECT_EQ(GetNumListItems(exdthd::ITERNO), 0);
}

TEST_F(ModelParameters, ResetOfARecordWithoutReceiversKeepsItsVectorsAndTheOtherRecords) {
  FModelParam.nReceivers = 0;
  FModelParam.nLayers = 3;
  FModelParam.Vs[0] = 5.0;
  InvParam.nLayers = 9;
  ResetFModel_D();
  EXPECT_EQ(FModelParam.nLayers, 10);
  EXPECT_EQ(FModelParam.Vs[0], 5.0);
  EXPECT_EQ(FModelParam.recLoc[7], 64.0);
  EXPECT_EQ(InvParam.nLayers, 9);
}

TEST_F(ModelParameters, ResetOfAnEmptyRecordMakesItWhole) {
  FinalizeFModel();
  ResetFModel_D();
  for (auto column : kLayerColumns) EXPECT_EQ((FModelParam.*column).size(), 50u);
  EXPECT_EQ(FModelParam.vel.size(), 4000u);
  EXPECT_EQ(FModelParam.pairRec2[19], 21);
}

}  // namespace
}  // namespace sondera
