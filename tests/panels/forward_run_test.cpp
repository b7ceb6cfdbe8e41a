// Tests of a forward run from the panel: settings, both ways to start, what is shown at the end.
#include <gtest/gtest.h>

#include "panels/forward_run.h"

#include "panels/fmodeling_records.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "runtime/catalogue/analresult.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/events.h"
#include "runtime/redraw.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class RunPanel : public RunTest {
 protected:
  void SetUp() override {
    RunTest::SetUp();
    SetLayers({{2.0, 0.0, 150.0, 2.0, 0.3, 0.02}, {20.0, 0.0, 150.0, 2.0, 0.3, 0.02}});
    FModelParam.analysis = 2;
    FModelParam.dispCurvType = 1;
    FModelParam.DispCurvInfo = 0;
    FModelParam.xDomainType = 1;
    FModelParam.xMinGlobal = 2.0;
    FModelParam.xMaxGlobal = 20.0;
    FModelParam.nDispPointsG = 3;
    FModelParam.incRatio = -1.0;
    SetFModelParam();
    SetCtrlVal(fmodeling::GLOBAL_ARRAY, 1);
    RedrawHandlers handlers;
    handlers.exdThdCurvPlot = [this] { drawn += "curves "; };
    handlers.drawProfile = [this](int entry) { drawn += "profile " + std::to_string(entry); };
    handlers.drawResolution = [this](int entry) { drawn += "resolution " + std::to_string(entry); };
    handlers.drawRMSerror = [this](int entry) { drawn += "rms " + std::to_string(entry); };
    InstallRedrawHandlers(handlers);
  }
  void TearDown() override {
    InstallRedrawHandlers({});
    RunTest::TearDown();
  }
  std::string drawn;
};

TEST_F(RunPanel, RunTakesTheSettingsFromThePanelAndShowsTheResult) {
  SetTableCellVal(fmodeling::SOILPROFILE, 1, 3, 300.0);
  SetTableCellVal(fmodeling::SOILPROFILE, 2, 3, 300.0);
  ASSERT_EQ(RunFModel(0, 0), 0);
  EXPECT_NEAR(InvParam.vel(0, 0), 300.0 * 0.927413, 1e-2);
  EXPECT_EQ(GetCtrlIndex(exdthd::THDTYPE), 1);
  EXPECT_EQ(GetCtrlIndex(exdthd::EXDTYPE), 4);
  EXPECT_EQ(GetCtrlIndex(exdthd::ARRAYDISPID), 0);
  EXPECT_TRUE(IsPanelShown(Panel::EXDTHD));
  EXPECT_EQ(drawn, "curves profile 0");
}

TEST_F(RunPanel, SideGraphFollowsItsSelector) {
  SetCtrlVal(exdthd::PLOT_INV, 1);
  ASSERT_EQ(RunFModel(0, -3), 0);
  EXPECT_EQ(drawn, "curves resolution -3");
  drawn.clear();
  SetCtrlVal(exdthd::PLOT_INV, 2);
  ASSERT_EQ(RunFModel(0, 0), 0);
  EXPECT_EQ(drawn, "curves rms 0");
}

TEST_F(RunPanel, ArrayCurvesSelectTheirItem) {
  FModelParam.dispCurvType = 2;
  FModelParam.nDispPoints = 3;
  FModelParam.nDispCurves = 2;
  FModelParam.incRatio = 1.0;
  for (std::size_t c = 0; c < 2; ++c) {
    FModelParam.pairMin[c] = 10.0;
    FModelParam.pairMax[c] = 30.0;
  }
  SetFModelParam();
  ASSERT_EQ(RunFModel(0, 0), 0);
  EXPECT_EQ(GetCtrlIndex(exdthd::EXDTYPE), 5);
  EXPECT_EQ(InvParam.nPoints, 3);
  EXPECT_EQ(InvParam.nCurves, 2);
  for (int k = 0; k < 6; ++k) EXPECT_NEAR(InvParam.vel(0, k), 150.0 * 0.927413, 1e-2);
}

TEST_F(RunPanel, SettingsThatAreRefusedEndTheRun) {
  SetTableCellVal(fmodeling::SOILPROFILE, 2, 1, 0.0);
  EXPECT_EQ(RunFModel(0, 0), -1);
  EXPECT_EQ(OnlyMessage(), "Invalid value of thickness !");
  EXPECT_EQ(drawn, "");
}

TEST_F(RunPanel, ButtonShowsTheKindOfRunAndFillsTheBox) {
  SetCtrlVal(exdthd::PROCESSMSG, "former");
  EXPECT_EQ(RunFModelCallback(Panel::EXDTHD, &exdthd::RUN_FMODEL, Event::Commit, 0), 0);
  EXPECT_EQ(GetCtrlVal(exdthd::PROCESSMSG), "F. Modeling Analysis: Global D.");
  EXPECT_EQ(GetCtrlVal(analresult::RESULTS).substr(0, 9), "Layer No.");
  EXPECT_FALSE(WaitCursorShown());
  FModelParam.dispCurvType = 2;
  SetTableCellVal(fmodeling::SOILPROFILE, 2, 1, 0.0);  // the kind is shown before the settings are read
  EXPECT_EQ(RunFModelCallback(Panel::EXDTHD, &exdthd::RUN_FMODEL, Event::Commit, 0), -1);
  EXPECT_EQ(GetCtrlVal(exdthd::PROCESSMSG), "F. Modeling Analysis: Array D.");
  EXPECT_FALSE(WaitCursorShown());
}

TEST_F(RunPanel, OtherEventsDoNothing) {
  EXPECT_EQ(RunFModelCallback(Panel::EXDTHD, &exdthd::RUN_FMODEL, Event::LeftClick, 0), 0);
  EXPECT_EQ(RunFModelingMenuCallback(Panel::EXDTHD, nullptr, Event::GotFocus, 0), 0);
  EXPECT_EQ(drawn, "");
}

TEST_F(RunPanel, MenuTakesTheListOfIterationsToItsOnlyItem) {
  InsertListItem(exdthd::ITERNO, -1, "INV 0", 0);
  InsertListItem(exdthd::ITERNO, -1, "INV 1", 1);
  SetCtrlVal(exdthd::ITERNO, 1);
  EXPECT_EQ(RunFModelingMenuCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), 0);
  EXPECT_EQ(GetCtrlVal(exdthd::ITERNO), 0);
}

TEST_F(RunPanel, HaltInTheMiddleShowsAndSavesNothing) {
  int polls = 0;
  frontEnd.onProcessEvents = [&polls] {
    if (++polls == 2) run.course.iHaltRequest = 1;
  };
  EXPECT_EQ(RunFModel(0, 0), -1);
  EXPECT_EQ(drawn, "");
  EXPECT_TRUE(folder.Names().empty());
  EXPECT_EQ(run.course.iHaltRequest, 0);
  frontEnd.onProcessEvents = nullptr;
  EXPECT_EQ(RunFModel(0, 0), 0);  // the next run is not affected
}

}  // namespace
}  // namespace sondera::testing
