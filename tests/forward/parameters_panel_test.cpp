// Tests of the settings of a forward run between the panel and the record, and of the panel's buttons.
#include <gtest/gtest.h>

#include <limits>

#include "app/callbacks.h"
#include "forward/model_records.h"
#include "forward/parameter_room.h"
#include "forward/parameters.h"
#include "forward/parameters_panel.h"
#include "forward/system_state.h"
#include "inversion/inv_records.h"
#include "project/session.h"
#include "runtime/panels/exdthd.h"
#include "runtime/panels/fmodeling.h"
#include "runtime/panels/inversion.h"
#include "runtime/panels/mainmenu.h"
#include "support/session_fixture.h"

namespace sondera {
namespace {

using namespace fmodeling;

constexpr const char* kThickness = "Invalid value of thickness !";
constexpr const char* kVelocity = "Invalid value of Vp, Vs or Poisson's Ratio !";
constexpr const char* kDensity = "Invalid value of mass density !";

void PutLayer(int row, double h, double vp, double vs, double density, double nu, double damping) {
  const double values[] = {h, vp, vs, density, nu, damping};
  for (int k = 0; k < 6; ++k) SetTableCellVal(SOILPROFILE, row, k + 1, values[k]);
}

class ModelParameters : public testing::SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    InitializeFModel();
    InitializeTheoDispInfo();
    InitializeInvAnal();
    ResetRunState();
    InstallCallbacks();
  }
  /// A table of n good layers.
  static void PutLayers(int n) {
    AdjustTableSize(SOILPROFILE, n, "L");
    for (int row = 1; row <= n; ++row) PutLayer(row, 0.5 + row, 0.0, 100.0 + row, 1.8, 0.3, 0.02);
  }
};

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
  EXPECT_EQ(run.fDispBulb, 2.5);
  EXPECT_EQ(run.iDispSource, 2);
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
  EXPECT_EQ(run.iDispSource, 1);
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
    for (std::size_t c = 0; c < 7; ++c) FModelParam.vel[p * 7 + c] = 100.0 * p + c;
  SetCtrlVal(NDISPCURVES, 5);
  ASSERT_EQ(GetFModelParam_RD(), 0);
  for (std::size_t p = 0; p < 50; ++p)
    for (std::size_t c = 0; c < 5; ++c) EXPECT_EQ(FModelParam.vel[p * 5 + c], 100.0 * p + c);
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
  RoomForLayers(m, 60);
  for (std::size_t k = 0; k < 6; ++k)
    for (std::size_t l = 0; l < 60; ++l) (m.*kLayerColumns[k])[l] = 1.0 + 0.001 * (10.0 * l + k);
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

// ---- callbacks --------------------------------------------------------------------------------------

class ModelPanel : public ModelParameters {};

TEST_F(ModelPanel, OpensWithTheRecordsValuesFromMenuAndResultsPage) {
  FModelParam.nLayers = 4;
  EXPECT_EQ(Commit(exdthd::FMODELPARAM), 0);
  EXPECT_TRUE(IsPanelShown(Panel::FMODELING));
  EXPECT_EQ(GetNumTableRows(SOILPROFILE), 4);
  EXPECT_EQ(Commit(CLOSE), 0);
  EXPECT_FALSE(IsPanelShown(Panel::FMODELING));
  EXPECT_EQ(Commit(mainmenu::FMODEL_PARAM), 0);
  EXPECT_TRUE(IsPanelShown(Panel::FMODELING));
}

TEST_F(ModelPanel, TablesFollowTheirNumbers) {
  SetCtrlVal(NLAYERS, 400);
  EXPECT_EQ(Commit(NLAYERS), 0);
  EXPECT_EQ(GetNumTableRows(SOILPROFILE), 400);
  EXPECT_EQ(GetTableRowLabel(SOILPROFILE, 400), "L400");
  SetCtrlVal(NRECEIVERS, 3);
  EXPECT_EQ(Commit(NRECEIVERS), 0);
  EXPECT_EQ(GetNumTableRows(RECEIVERLOC), 3);
}

TEST_F(ModelPanel, NumbersThatCannotBeArePutBackWithAMessage) {
  for (const IntControl* c : {&NLAYERS, &NRECEIVERS, &NDISPCURVES})
    for (int n : {-3, 100000000}) {
      const int before = GetCtrlVal(*c);
      frontEnd.messages.clear();
      SetCtrlVal(*c, n);
      EXPECT_EQ(Commit(*c), -1);
      EXPECT_NE(OnlyMessage().find(std::to_string(n)), std::string::npos);
      EXPECT_EQ(GetCtrlVal(*c), before);
    }
}

TEST_F(ModelPanel, RowsOfPairsComeFromTheRecordWhoseTableDoubles) {
  FModelParam.pairMin[1] = 2.5;
  SetCtrlVal(NDISPCURVES, 25);
  EXPECT_EQ(Commit(NDISPCURVES), 0);
  EXPECT_EQ(GetNumTableRows(DISPCURVINFO), 25);
  EXPECT_EQ(FModelParam.capPairs, 40);
  EXPECT_EQ(FModelParam.pairMax.size(), 40u);
  EXPECT_EQ(GetTableCellVal(DISPCURVINFO, 2, 3), 2.5);
  EXPECT_EQ(GetTableCellVal(DISPCURVINFO, 25, 1), 25.0);
  EXPECT_EQ(GetTableCellVal(DISPCURVINFO, 25, 2), 26.0);
  EXPECT_EQ(FModelParam.nDispCurves, 7);
}

TEST_F(ModelPanel, KindOfCurvesGoesToTheRecordAndItsValuesToThePanel) {
  FModelParam.nDispPointsG = 21;
  SetCtrlVal(GLOBAL_ARRAY, 1);
  EXPECT_EQ(Commit(GLOBAL_ARRAY), 0);
  EXPECT_EQ(FModelParam.dispCurvType, 1);
  EXPECT_EQ(GetCtrlVal(NDISPPOINTS), 21);
  EXPECT_TRUE(IsVisible(GLOBAL_REC_TYPE));
}

TEST_F(ModelPanel, UpdateTakesThePanelAndSetsTheUncertaintyByTheKindOfCurves) {
  PutLayers(3);
  EXPECT_EQ(Commit(UPDATE), 0);
  EXPECT_EQ(FModelParam.nLayers, 3);
  EXPECT_EQ(GetCtrlVal(inversion::UF_VS), 0.05);
  EXPECT_EQ(GetCtrlVal(inversion::UF_H), 0.2);
  SetCtrlVal(GLOBAL_ARRAY, 1);
  EXPECT_EQ(Commit(UPDATE), 0);
  EXPECT_EQ(GetCtrlVal(inversion::UF_VS), 0.005);
  EXPECT_EQ(GetCtrlVal(inversion::UF_H), 0.04);
}

TEST_F(ModelPanel, UpdateOfARefusedPanelLeavesTheUncertainty) {
  PutLayers(3);
  SetTableCellVal(SOILPROFILE, 1, 4, 0.0);
  SetCtrlVal(inversion::UF_VS, 0.77);
  EXPECT_EQ(Commit(UPDATE), -1);
  EXPECT_EQ(OnlyMessage(), kDensity);
  EXPECT_EQ(GetCtrlVal(inversion::UF_VS), 0.77);
}

TEST_F(ModelPanel, ReceiversOfAGlobalCurveGoToTheRecordAtOnce) {
  SetCtrlVal(R1_LOC, 5.0);
  SetCtrlVal(R2_LOC, 6.0);
  Commit(GLOBAL_REC_TYPE);
  EXPECT_EQ(FModelParam.GlobalRec1Loc, 1.0);
  SetCtrlVal(GLOBAL_REC_TYPE, 4);
  Commit(GLOBAL_REC_TYPE);
  EXPECT_EQ(FModelParam.GlobalRecType, 4);
  EXPECT_EQ(FModelParam.GlobalRec1Loc, 5.0);
  EXPECT_EQ(FModelParam.GlobalRec2Loc, 6.0);
}

TEST_F(ModelPanel, LabelsOfTheRangeFollowTheDomain) {
  SetCtrlVal(XDOMAIN_TYPE, 2);
  SetCtrlVal(XMIN, 2.0);
  Commit(XDOMAIN_TYPE);
  EXPECT_EQ(FModelParam.xDomainType, 2);
  EXPECT_EQ(FModelParam.xMinGlobal, 2.0);
  EXPECT_EQ(GetCtrlLabel(XMIN), "Min. Freq. : ");
  EXPECT_EQ(GetCtrlLabel(XMAX), "Max. Freq. : ");
  SetCtrlVal(XDOMAIN_TYPE, 1);
  Commit(XDOMAIN_TYPE);
  EXPECT_EQ(GetCtrlLabel(XMIN), "Min. WaveL : ");
  EXPECT_EQ(GetCtrlLabel(XMAX), "Max. WaveL : ");
}

TEST_F(ModelPanel, EachApplyAllFillsItsColumn) {
  const ButtonControl* buttons[] = {&UPDATE_PROFILE1, &UPDATE_PROFILE2, &UPDATE_PROFILE3,
                                    &UPDATE_PROFILE4, &UPDATE_PROFILE5, &UPDATE_PROFILE6};
  AdjustTableSize(SOILPROFILE, 3, "L");
  for (int k = 0; k < 6; ++k) {
    SetTableCellVal(SOILPROFILE_DFLT, 1, k + 1, 10.0 + k);
    EXPECT_EQ(Commit(*buttons[k]), 0);
    for (int row = 1; row <= 3; ++row) {
      EXPECT_EQ(GetTableCellVal(SOILPROFILE, row, k + 1), 10.0 + k);
      if (k < 5) {
        EXPECT_EQ(GetTableCellVal(SOILPROFILE, row, k + 2), 0.0);
      }
    }
  }
}

TEST_F(ModelPanel, LayersAreInsertedBeforeARowAndDeleted) {
  PutLayers(3);
  SetCtrlVal(NLAYERS, 3);
  SetCtrlVal(EDITLAYERNO, 2);
  EXPECT_EQ(Commit(INSERTLAYER), 0);
  EXPECT_EQ(GetCtrlVal(NLAYERS), 4);
  EXPECT_EQ(GetTableCellVal(SOILPROFILE, 2, 1), 0.0);
  EXPECT_EQ(GetTableCellVal(SOILPROFILE, 3, 1), 2.5);
  EXPECT_EQ(GetTableRowLabel(SOILPROFILE, 4), "L4");
  EXPECT_EQ(Commit(DELETEROW), 0);
  EXPECT_EQ(GetCtrlVal(NLAYERS), 3);
  EXPECT_EQ(GetTableCellVal(SOILPROFILE, 2, 1), 2.5);
  EXPECT_EQ(Commit(CLEARROW), 0);
  for (int k = 1; k <= 6; ++k) EXPECT_EQ(GetTableCellVal(SOILPROFILE, 3, k), 0.0);
}

TEST_F(ModelPanel, ALayerThatIsNotThereIsNeitherDeletedNorMoved) {
  PutLayers(3);
  for (int row : {0, -1, 5, std::numeric_limits<int>::max()}) {
    SetCtrlVal(EDITLAYERNO, row);
    frontEnd.messages.clear();
    EXPECT_EQ(Commit(DELETEROW), -1);
    EXPECT_EQ(OnlyMessage(), "There is no layer " + std::to_string(row) + ".");
    EXPECT_EQ(Commit(INSERTLAYER), -1);
    EXPECT_EQ(GetNumTableRows(SOILPROFILE), 3);
  }
}

TEST_F(ModelPanel, LayeringNeedsADepthOrTheTable) {
  SetCtrlVal(MAXDEPTH, 0.0);
  SetCtrlVal(AUTOLAYERTYPE, 0);
  EXPECT_EQ(Commit(SETUPLAYERING), -1);
  EXPECT_EQ(OnlyMessage(), "Please fill in the required max. depth.");
}

long pressedWith = 0;
int RememberPress(Panel, ControlId, Event, long data) {
  pressedWith = data;
  return 0;
}

TEST_F(ModelPanel, LayeringAsksForLayersToTheDepthOfThePanel) {
  const Callback former = CallbackOf(inversion::AUTOSETUPSMP);
  InstallCallback(inversion::AUTOSETUPSMP, RememberPress);
  for (bool byDepth : {true, false}) {
    SetCtrlVal(MAXDEPTH, byDepth ? 10.0 : 0.0);
    SetCtrlVal(AUTOLAYERTYPE, byDepth ? 0 : 1);
    pressedWith = 0;
    EXPECT_EQ(Commit(SETUPLAYERING), 0);
    EXPECT_EQ(pressedWith, kDepthOfPanel);
  }
  InstallCallback(inversion::AUTOSETUPSMP, former);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(ModelPanel, ButtonsActOnAPressOnly) {
  for (const Control* c : ControlsOf(Panel::FMODELING)) {
    const Callback callback = CallbackOf(*c);
    if (callback) {
      EXPECT_EQ(SendEvent(*c, Event::GotFocus), 0);
    }
  }
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_TRUE(frontEnd.files.empty());
}

}  // namespace
}  // namespace sondera
