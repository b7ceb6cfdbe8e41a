// Tests of the panel of the inversion: the first use, settings in both directions, which controls are
// enabled, opening and closing.
#include <gtest/gtest.h>

#include <climits>

#include "panels/inversion.h"
#include "run/run_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/graphs.h"
#include "support/inv_fixture.h"

namespace sondera::testing {
namespace {

using namespace inversion;

// ---- first use -----------------------------------------------------------------------------------------

using SetInvParamsTest = InversionTest;

TEST_F(SetInvParamsTest, FirstUseSeedsEntryZeroFromTheGivenModel) {
  SetLayers({{2.0, 300.0, 150.0, 1800.0, 0.33, 0.02},
             {3.5, 410.0, 205.0, 1850.0, 0.34, 0.03},
             {4.0, 600.0, 300.0, 1900.0, 0.35, 0.04}});
  ASSERT_EQ(SetInvParams(), 0);
  const InvRecord& r = InvParam;
  ASSERT_EQ(r.nLayers, 3);
  EXPECT_EQ(r.H(0, 1), 3.5);
  EXPECT_EQ(r.Vp(0, 1), 410.0);
  EXPECT_EQ(r.Vs(0, 2), 300.0);
  EXPECT_EQ(r.density(0, 0), 1800.0);
  EXPECT_EQ(r.nu(0, 1), 0.34);
  EXPECT_EQ(r.damping(0, 2), 0.04);
  EXPECT_EQ(r.depth(0, 0), 0.0);
  EXPECT_EQ(r.depth(0, 1), 2.0);
  EXPECT_EQ(r.depth(0, 2), 5.5);
}

TEST_F(SetInvParamsTest, PlotsEndBelowTheHalfSpaceWhenItIsAtMostTwiceAsThickAsTheLayerAbove) {
  SetLayers({{2.0, 0, 150, 1800, 0.3, 0}, {3.5, 0, 200, 1800, 0.3, 0}, {7.0, 0, 300, 1800, 0.3, 0}});
  ASSERT_EQ(SetInvParams(), 0);
  EXPECT_EQ(InvParam.depth(0, 3), 5.5 + 7.0);
}

TEST_F(SetInvParamsTest, AThickerHalfSpaceIsPlottedAsThickAsTheLayerAbove) {
  SetLayers({{2.0, 0, 150, 1800, 0.3, 0}, {3.5, 0, 200, 1800, 0.3, 0}, {7.001, 0, 300, 1800, 0.3, 0}});
  ASSERT_EQ(SetInvParams(), 0);
  EXPECT_EQ(InvParam.depth(0, 3), 5.5 + 3.5);
  EXPECT_EQ(InvParam.H(0, 2), 7.001);  // the model itself stays
}

TEST_F(SetInvParamsTest, AHalfSpaceAloneEndsAtItsThickness) {
  SetLayers({{9.0, 0, 150, 1800, 0.3, 0}});
  ASSERT_EQ(SetInvParams(), 0);
  EXPECT_EQ(InvParam.depth(0, 0), 0.0);
  EXPECT_EQ(InvParam.depth(0, 1), 9.0);
}

TEST_F(SetInvParamsTest, FirstUseClearsMisfitAndProfileGraph) {
  SetCtrlVal(exdthd::RMSERROR, 3.7);
  PlotXY(exdthd::PROFILE, {1.0, 2.0}, {3.0, 4.0});
  SetPlainLayers(2);
  ASSERT_EQ(SetInvParams(), 0);
  EXPECT_EQ(GetCtrlVal(exdthd::RMSERROR), 0.0);
  EXPECT_TRUE(GraphOf(exdthd::PROFILE).plots.empty());
}

TEST_F(SetInvParamsTest, LaterUseLeavesResultsAndDisplay) {
  StoreProfile(InvParam, 0, {111.0, 222.0});
  SetCtrlVal(exdthd::RMSERROR, 3.7);
  PlotXY(exdthd::PROFILE, {1.0, 2.0}, {3.0, 4.0});
  SetPlainLayers(4);
  ASSERT_EQ(SetInvParams(), 0);
  EXPECT_EQ(InvParam.nLayers, 2);
  EXPECT_EQ(InvParam.Vs(0, 0), 111.0);
  EXPECT_EQ(GetCtrlVal(exdthd::RMSERROR), 3.7);
  EXPECT_EQ(GraphOf(exdthd::PROFILE).plots.size(), 1u);
}

TEST_F(SetInvParamsTest, FirstUseTakesMoreLayersThanTheRecordHeld) {
  SetPlainLayers(180);
  ASSERT_EQ(SetInvParams(), 0);
  EXPECT_EQ(InvParam.nLayers, 180);
  EXPECT_EQ(InvParam.Vs(0, 179), 100.0 + 20.0 * 179);
  EXPECT_EQ(InvParam.depth(0, 180), 360.0);
}

TEST_F(SetInvParamsTest, ACounterWithoutLayersBehindItSeedsWhatIsThere) {
  SetPlainLayers(2);
  FModelParam.nLayers = INT_MAX;
  FModelParam.Vs.resize(2);
  ASSERT_EQ(SetInvParams(), 0);
  EXPECT_EQ(InvParam.nLayers, 2);
  InitializeInvAnal();
  for (const int count : {0, -5}) {
    FModelParam.nLayers = count;
    ASSERT_EQ(SetInvParams(), 0);
    EXPECT_EQ(InvParam.nLayers, 0);
  }
}

TEST_F(SetInvParamsTest, ARecordThatAProjectDidNotHaveStartsAfresh) {
  InvParam = InvRecord{};
  SMPParam.nEntries = 4;
  SetPlainLayers(2);
  ASSERT_EQ(SetInvParams(), 0);
  EXPECT_EQ(InvParam.maxVs, 100000.0);
  EXPECT_EQ(InvParam.nLayers, 2);
  EXPECT_EQ(SMPParam.nEntries, 4);
  InvParam = SMPParam = InvRecord{};
  ASSERT_EQ(SetInvParams(), 0);
  EXPECT_EQ(SMPParam.alphaTo, 0.65);
}

// ---- settings ------------------------------------------------------------------------------------------

TEST_F(SetInvParamsTest, RecordsOverwriteTheDefaultsOfThePanel) {
  ASSERT_EQ(GetCtrlVal(UB_VS), 10000.0);
  ASSERT_EQ(GetCtrlVal(UF_H), 0.15);
  SetCtrlVal(ALPHA_POINT, 3);
  SetCtrlVal(NITER, 77);
  ASSERT_EQ(SetInvParams(), 0);
  EXPECT_EQ(GetCtrlVal(UB_VS), 100000.0);
  EXPECT_EQ(GetCtrlVal(UF_H), 0.2);
  EXPECT_EQ(GetCtrlVal(UF_VS), 0.05);
  EXPECT_EQ(GetCtrlVal(LB_H), 0.01);
  EXPECT_EQ(GetCtrlVal(UB_H), 50.0);
  EXPECT_EQ(GetCtrlVal(LB_VS), 10.0);
  EXPECT_EQ(GetCtrlVal(ALPHA_POINT), 10);
  EXPECT_EQ(GetCtrlVal(ALPHA_FROM), 0.35);
  EXPECT_EQ(GetCtrlVal(ALPHA_TO), 0.65);
  EXPECT_EQ(GetCtrlVal(NITER), 5);
  EXPECT_EQ(GetCtrlVal(MODELPARM), 1);
  EXPECT_EQ(GetCtrlVal(INV_SMP), 0);
}

TEST_F(SetInvParamsTest, FactorsGoToThePairThatIsLive) {
  SetCtrlVal(CM_COV, 1);
  InvParam.ufH = 0.02;
  InvParam.ufVs = 7.5;
  ASSERT_EQ(SetInvParams(), 0);
  EXPECT_EQ(GetCtrlVal(UF_H_REL), 0.02);
  EXPECT_EQ(GetCtrlVal(UF_VS_REL), 7.5);
  EXPECT_EQ(GetCtrlVal(UF_VS), 0.05);  // 7.5 here would be a deviation of 7.5 units on the way back
}

TEST_F(SetInvParamsTest, UnknownChoicesOfADamagedRecordLeaveTheSelections) {
  InvParam.MODELPARM = 99;
  InvParam.iSelected = -44;
  ASSERT_EQ(SetInvParams(), 0);
  EXPECT_EQ(GetCtrlVal(MODELPARM), 1);
  EXPECT_EQ(GetCtrlVal(INV_SMP), 0);
}

using GetInvParamsTest = InversionTest;

TEST_F(GetInvParamsTest, ReadsRatiosToStartingProfilesAndTheRestToIterations) {
  SetCtrlVal(ALPHA_POINT, 7);
  SetCtrlVal(ALPHA_FROM, 0.25);
  SetCtrlVal(ALPHA_TO, 0.75);
  InsertListItem(INV_SMP, -1, "SMP 2", -2);
  SetCtrlVal(INV_SMP, -2);
  SetCtrlVal(NITER, 9);
  SetCtrlVal(MODELPARM, 2);
  SetCtrlVal(UF_H, 0.11);
  SetCtrlVal(UF_VS, 0.06);
  SetCtrlVal(LB_H, 0.3);
  SetCtrlVal(UB_H, 33.0);
  SetCtrlVal(LB_VS, 70.0);
  SetCtrlVal(UB_VS, 900.0);
  ASSERT_EQ(GetInvParams(), 0);
  EXPECT_EQ(SMPParam.nEntries, 7);
  EXPECT_EQ(SMPParam.alphaFrom, 0.25);
  EXPECT_EQ(SMPParam.alphaTo, 0.75);
  EXPECT_EQ(InvParam.alphaFrom, 0.0);
  EXPECT_EQ(InvParam.iSelected, -2);
  EXPECT_EQ(InvParam.nEntries, 9);
  EXPECT_EQ(InvParam.MODELPARM, 2);
  EXPECT_EQ(InvParam.ufH, 0.11);
  EXPECT_EQ(InvParam.ufVs, 0.06);
  EXPECT_EQ(InvParam.minH, 0.3);
  EXPECT_EQ(InvParam.maxH, 33.0);
  EXPECT_EQ(InvParam.minVs, 70.0);
  EXPECT_EQ(InvParam.maxVs, 900.0);
}

TEST_F(GetInvParamsTest, WithTheSecondModelCovarianceReadsTheOtherPairOfFactors) {
  SetCtrlVal(CM_COV, 1);
  ASSERT_EQ(GetInvParams(), 0);
  EXPECT_EQ(InvParam.ufH, 0.01);
  EXPECT_EQ(InvParam.ufVs, 2.5);
}

TEST_F(GetInvParamsTest, NumbersBeyondTheTablesGrowThemOrAreRefused) {
  SetCtrlVal(NITER, 120);
  ASSERT_EQ(GetInvParams(), 0);
  EXPECT_EQ(InvParam.nEntries, 120);
  EXPECT_GE(InvParam.rms.hi(), 120);
  EXPECT_GT(InvParam.maxEntries, 120);  // the project file holds the misfits before the capacity
  SetCtrlVal(NITER, INT_MAX);
  SetCtrlVal(ALPHA_POINT, 50000000);
  EXPECT_EQ(GetInvParams(), -1);
  EXPECT_EQ(frontEnd.messages.size(), 2u);
  EXPECT_EQ(InvParam.nEntries, 120);
  EXPECT_EQ(SMPParam.nEntries, 10);
}

TEST_F(GetInvParamsTest, RoomForMoreEntriesKeepsTheStoredOnes) {
  StoreProfile(InvParam, 3, {123.0, 234.0});
  SetCtrlVal(NITER, 80);
  ASSERT_EQ(GetInvParams(), 0);
  EXPECT_EQ(InvParam.Vs(3, 1), 234.0);
}

// ---- opening and closing -------------------------------------------------------------------------------

using InvAnalPanel = InversionTest;

TEST_F(InvAnalPanel, OpensWithTheRecordsAndEmptyBoxes) {
  SetPlainLayers(2);
  SetCtrlVal(NITER, 44);
  SetCtrlVal(exdthd::STATUSMSG, "former");
  SetCtrlVal(exdthd::PROCESSMSG, "former");
  InsertListItem(exdthd::ITERNO, -1, "INV 0", 0);
  EXPECT_EQ(RunInvAnalCallback(Panel::EXDTHD, &exdthd::RUN_INVERSION, Event::Commit, 0), 0);
  EXPECT_TRUE(IsPanelShown(Panel::INVERSION));
  EXPECT_EQ(GetCtrlVal(NITER), 5);
  EXPECT_EQ(InvParam.nLayers, 2);
  EXPECT_EQ(GetCtrlVal(exdthd::STATUSMSG), "");
  EXPECT_EQ(GetCtrlVal(exdthd::PROCESSMSG), "");
  EXPECT_EQ(GetNumListItems(exdthd::ITERNO), 1);  // what was computed can still be looked at
}

TEST_F(InvAnalPanel, ButtonActsOnAPressAndMenuItemOnAnyEvent) {
  EXPECT_EQ(RunInvAnalCallback(Panel::EXDTHD, &exdthd::RUN_INVERSION, Event::GotFocus, 0), 0);
  EXPECT_FALSE(IsPanelShown(Panel::INVERSION));
  EXPECT_EQ(InvAnalysisParamCallback(Panel::MAINMENU, nullptr, Event::LeftClick, 0), 0);
  EXPECT_TRUE(IsPanelShown(Panel::INVERSION));
}

TEST_F(InvAnalPanel, CloseTakesTheSettingsOver) {
  DisplayPanel(Panel::INVERSION);
  SetCtrlVal(UB_VS, 800.0);
  EXPECT_EQ(InvAnalCloseCallback(Panel::INVERSION, &CLOSE, Event::LeftClick, 0), 0);
  EXPECT_TRUE(IsPanelShown(Panel::INVERSION));
  EXPECT_EQ(InvAnalCloseCallback(Panel::INVERSION, &CLOSE, Event::Commit, 0), 0);
  EXPECT_FALSE(IsPanelShown(Panel::INVERSION));
  EXPECT_EQ(InvParam.maxVs, 800.0);
}

TEST_F(InvAnalPanel, CloseDropsNoResultsThatAreListed) {
  InvParam.nEntries = 5;
  SMPParam.nEntries = 10;
  for (const int index : {-1, -2, -3, 0, 1, 2, 3, 4}) InsertListItem(exdthd::ITERNO, -1, "x", index);
  SetCtrlVal(NITER, 2);
  SetCtrlVal(ALPHA_POINT, 1);
  EXPECT_EQ(InvAnalCloseCallback(Panel::INVERSION, &CLOSE, Event::Commit, 0), 0);
  EXPECT_EQ(InvParam.nEntries, 4);
  EXPECT_EQ(SMPParam.nEntries, 3);
  SetCtrlVal(NITER, 8);
  EXPECT_EQ(InvAnalCloseCallback(Panel::INVERSION, &CLOSE, Event::Commit, 0), 0);
  EXPECT_EQ(InvParam.nEntries, 8);
}

TEST_F(InvAnalPanel, AListOfADamagedProjectBringsNoNumberOfEntries) {
  InsertListItem(exdthd::ITERNO, -1, "x", INT_MAX);
  InsertListItem(exdthd::ITERNO, -1, "x", INT_MIN);
  EXPECT_EQ(InvAnalCloseCallback(Panel::INVERSION, &CLOSE, Event::Commit, 0), 0);
  EXPECT_EQ(InvParam.nEntries, 5);
  EXPECT_EQ(SMPParam.nEntries, 10);
}

TEST_F(InvAnalPanel, OpenInvAnalWinShowsTheResultsPage) {
  SetCtrlVal(exdthd::FMDORINV, 1);
  EXPECT_EQ(OpenInvAnalWincallback(Panel::MAINMENU, nullptr, Event::Commit, 0), 0);
  EXPECT_TRUE(IsPanelShown(Panel::EXDTHD));
  EXPECT_EQ(GetCtrlVal(exdthd::FMDORINV), 2);
}

// ---- covariances ---------------------------------------------------------------------------------------

using DataCovMat = InversionTest;

TEST_F(DataCovMat, SetsTheModeAndMakesTheFactorLiveForOneOnly) {
  for (const int mode : {1, 0, 1, -1}) {
    SetCtrlVal(CD_COV, mode);
    EXPECT_EQ(DataCovMatCallback(Panel::INVERSION, &CD_COV, Event::Commit, 0), 0);
    EXPECT_EQ(run.switches.cdMode, mode);
    EXPECT_EQ(IsDimmed(UF_VPH), mode != 1) << mode;
  }
  SetCtrlVal(CD_COV, 1);
  EXPECT_EQ(DataCovMatCallback(Panel::INVERSION, &CD_COV, Event::GotFocus, 0), 0);
  EXPECT_EQ(run.switches.cdMode, -1);
}

using MParmCovMat = InversionTest;

TEST_F(MParmCovMat, FirstChoiceMakesTheRatiosLive) {
  for (const Control* c : {&UF_H, &UF_VS}) SetDimmed(*c, true);
  run.switches.cdMode = 1;
  SetCtrlVal(CD_COV, 1);
  EXPECT_EQ(MParmCovMatCallback(Panel::INVERSION, &CM_COV, Event::Commit, 0), 0);
  EXPECT_FALSE(IsDimmed(UF_H));
  EXPECT_FALSE(IsDimmed(UF_VS));
  EXPECT_TRUE(IsDimmed(UF_H_REL));
  EXPECT_TRUE(IsDimmed(UF_VS_REL));
  EXPECT_TRUE(IsDimmed(UF_VPH));
  EXPECT_EQ(run.switches.cdMode, 1);  // the data are not touched on the way back
  EXPECT_EQ(GetCtrlVal(CD_COV), 1);
}

TEST_F(MParmCovMat, SecondChoiceDoesTheReverseAndMakesTheDataUnweighted) {
  SetCtrlVal(CM_COV, 1);
  EXPECT_EQ(MParmCovMatCallback(Panel::INVERSION, &CM_COV, Event::GotFocus, 0), 0);
  EXPECT_EQ(run.switches.cdMode, 0);
  EXPECT_EQ(MParmCovMatCallback(Panel::INVERSION, &CM_COV, Event::Commit, 0), 0);
  EXPECT_TRUE(IsDimmed(UF_H));
  EXPECT_TRUE(IsDimmed(UF_VS));
  EXPECT_FALSE(IsDimmed(UF_H_REL));
  EXPECT_FALSE(IsDimmed(UF_VS_REL));
  EXPECT_FALSE(IsDimmed(UF_VPH));
  EXPECT_EQ(run.switches.cdMode, -1);
  EXPECT_EQ(GetCtrlVal(CD_COV), -1);
}

}  // namespace
}  // namespace sondera::testing
