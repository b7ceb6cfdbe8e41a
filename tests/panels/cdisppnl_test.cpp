// Callbacks of the panel "Representative Disp. Curve".
#include "panels/cdisppnl.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "records/session.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/events.h"
#include "runtime/redraw.h"
#include "signal/rep_curves.h"
#include "support/rep_curve_fixture.h"

namespace sondera {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace cdisppnl;
using testing::Steps;
using testing::TestMeasurement;
using testing::Values;

int layersSetUp = 0;
int globalCurvesThen = 0;
int SetUpLayers(Panel, ControlId, Event, long) {
  ++layersSetUp;
  globalCurvesThen = MeasDB.gDispList.count();
  return 0;
}

class RepCurvePanel : public testing::RepCurveTest {
 protected:
  void SetUp() override {
    RepCurveTest::SetUp();
    layersSetUp = globalCurvesThen = 0;
    m = Measurement("m1", {10, 20, 40});
    first = &Pair(m, 1, 2, Steps(10, 1, 41), std::vector<double>(41, 200.0));
    excluded = &Pair(m, 0, 2, {10}, {100});
    excluded->included = 0;
    last = &Pair(m, 0, 1, Steps(10, 1, 41), std::vector<double>(41, 180.0));
    RedrawHandlers handlers;
    handlers.dispCurvPlot = [this](int flag) {
      drawn.push_back(flag);
      return 0;
    };
    InstallRedrawHandlers(handlers);
    layersBefore = CallbackOf(inversion::AUTOSETUPSMP);
    InstallCallback(inversion::AUTOSETUPSMP, SetUpLayers);
  }
  void TearDown() override {
    InstallCallback(inversion::AUTOSETUPSMP, layersBefore);
    RepCurveTest::TearDown();
  }

  static int Open() {
    return SetupCompDispCurveCallback(Panel::DISPCURV, &dispcurv::COMPDISPCURV, Event::Commit, 0);
  }
  static int Calculate() { return CDispCalcCallback(Panel::CDISPPNL, &CALC, Event::Commit, 0); }
  static int CalculateAndUpdate() {
    return CDispCalcUpdateCallback(Panel::CDISPPNL, &UPDATE, Event::Commit, 0);
  }
  static int Select(int index) {
    SetCtrlIndex(ARRAY_DISPCURVELIST, index);
    return IndDispCurvListCallback(Panel::CDISPPNL, &ARRAY_DISPCURVELIST, Event::ValChanged, 0);
  }
  static int EnterOrder(int order) {
    SetCtrlVal(ARRAY_POLYORDER, order);
    return IndPolyOrderCallback(Panel::CDISPPNL, &ARRAY_POLYORDER, Event::Commit, 0);
  }

  PMeasInfo *first = nullptr, *excluded = nullptr, *last = nullptr;
  std::vector<int> drawn;
  Callback layersBefore = nullptr;
};

TEST_F(RepCurvePanel, TheButtonShowsThePanelWithChannelsCountedFromOne) {
  EXPECT_EQ(Open(), 0);
  EXPECT_TRUE(IsPanelShown(Panel::CDISPPNL));
  EXPECT_THAT(testing::LabelsOf(ARRAY_DISPCURVELIST), ElementsAre("m1[2:3]", "m1[1:2]"));
  Open();
  EXPECT_EQ(testing::LabelsOf(ARRAY_DISPCURVELIST).size(), 2u);  // the list is made again
}

TEST_F(RepCurvePanel, TheMenuItemShowsThePanelWithChannelsCountedFromZero) {
  EXPECT_EQ(CalcRepDispMenuCallback(Panel::MAINMENU, &mainmenu::CALC_REP_DISP_MENU, Event::Commit, 0), 0);
  EXPECT_TRUE(IsPanelShown(Panel::CDISPPNL));
  EXPECT_THAT(testing::LabelsOf(ARRAY_DISPCURVELIST), ElementsAre("m1[1:2]", "m1[0:1]"));
  EXPECT_EQ(EnterOrder(7), 0);
  EXPECT_EQ(first->polyOrderA, 7);
}

TEST_F(RepCurvePanel, AnAveragingLetsEventsInBeforeEachCurveUnderTheWaitCursor) {
  SetCtrlVal(GLOBAL_NPOINTS, 4);
  SetCtrlVal(GLOBAL_NSPAN, 2);
  SetCtrlVal(GLOBAL_INCRATIO, 1.0);
  SetCtrlVal(GLOBAL_POLYORDER, 2);
  int polls = 0;
  frontEnd.onProcessEvents = [&polls] {
    ++polls;
    EXPECT_TRUE(WaitCursorShown());
  };
  EXPECT_EQ(Calculate(), 0);
  EXPECT_EQ(MeasDB.aDispList.count(), 2);
  EXPECT_EQ(polls, 2);
  EXPECT_FALSE(WaitCursorShown());
}

TEST_F(RepCurvePanel, OpeningGivesPairsWithoutTermsTheDefaultAndShowsThoseOfTheFirst) {
  first->polyOrderA = 3;
  first->polyOrderB = 1;
  CDispParam.arrayPolyOrder = 6;
  Open();
  EXPECT_EQ(first->polyOrderA, 3);
  EXPECT_EQ(first->polyOrderB, 1);
  EXPECT_EQ(last->polyOrderA, 6);
  EXPECT_EQ(last->polyOrderB, 6);
  EXPECT_EQ(excluded->polyOrderA, 0);
  EXPECT_EQ(GetCtrlIndex(ARRAY_DISPCURVELIST), 0);
  EXPECT_EQ(GetCtrlVal(ARRAY_POLYORDER), 3);
}

TEST_F(RepCurvePanel, OpeningWithoutIncludedPairsShowsAnEmptyList) {
  first->included = last->included = 0;
  Open();
  EXPECT_THAT(testing::LabelsOf(ARRAY_DISPCURVELIST), IsEmpty());
  EXPECT_EQ(EnterOrder(7), 0);
  EXPECT_EQ(first->polyOrderA, 0);
}

TEST_F(RepCurvePanel, SelectingAPairShowsItsTermsAndEnteringStoresThem) {
  Open();
  Select(1);
  EXPECT_EQ(GetCtrlVal(ARRAY_POLYORDER), 5);
  EXPECT_EQ(EnterOrder(2), 0);
  EXPECT_EQ(last->polyOrderA, 2);
  EXPECT_EQ(last->polyOrderB, 5);
  EXPECT_EQ(first->polyOrderA, 5);
  Select(0);
  EXPECT_EQ(GetCtrlVal(ARRAY_POLYORDER), 5);
  Select(1);
  EXPECT_EQ(GetCtrlVal(ARRAY_POLYORDER), 2);
}

TEST_F(RepCurvePanel, TermsOutsideTheirLimitsAreRefused) {
  Open();
  for (int order : {0, -1, 65, 2000000000}) {
    frontEnd.messages.clear();
    EXPECT_EQ(EnterOrder(order), -1);
    EXPECT_EQ(OnlyMessage(), "The number of polynomial terms must be from 1 to 64.");
    EXPECT_EQ(first->polyOrderA, 5);
    EXPECT_EQ(GetCtrlVal(ARRAY_POLYORDER), 5);
  }
}

TEST_F(RepCurvePanel, APairThatIsGoneFromTheListOfPairsIsNotMistakenForAnother) {
  Open();
  MeasDB.pMeasList.remove(1);  // positions decrease: the first item now refers to `excluded`
  EXPECT_EQ(EnterOrder(7), 0);
  EXPECT_EQ(excluded->polyOrderA, 0);
  EXPECT_EQ(last->polyOrderA, 5);
  MeasDB.pMeasList.clear();
  EXPECT_EQ(EnterOrder(7), 0);
}

TEST_F(RepCurvePanel, CalculateTakesThePanelAveragesAndDraws) {
  SetCtrlVal(GLOBAL_NPOINTS, 4);
  SetCtrlVal(GLOBAL_NSPAN, 2);
  SetCtrlVal(GLOBAL_INCRATIO, 1.0);
  SetCtrlVal(GLOBAL_POLYORDER, 2);
  EXPECT_EQ(Calculate(), 0);
  EXPECT_EQ(CDispParam.nPointsA, 4);
  ASSERT_EQ(MeasDB.gDispList.count(), 1);
  EXPECT_EQ(Global().nPoints, 4);
  EXPECT_EQ(MeasDB.aDispList.count(), 2);
  EXPECT_THAT(drawn, ElementsAre(1));
  EXPECT_EQ(layersSetUp, 0);
}

TEST_F(RepCurvePanel, TheTakeAllBoxesActEachOnItsCurves) {
  SetCtrlVal(GDISP_TAKEALL, 1);
  Calculate();
  EXPECT_EQ(Global().nPoints, 82);
  EXPECT_EQ(Array(1).nPoints, 82);  // fitted on the frequencies of the global curve
  SetCtrlVal(ADISP_TAKEALL, 1);
  Calculate();
  EXPECT_EQ(Array(1).nPoints, 41);
}

TEST_F(RepCurvePanel, UpdateAlsoSetsUpTheLayersFromTheNewCurves) {
  EXPECT_EQ(CalculateAndUpdate(), 0);
  EXPECT_EQ(layersSetUp, 1);
  EXPECT_EQ(globalCurvesThen, 1);
  EXPECT_THAT(drawn, ElementsAre(1));
}

TEST_F(RepCurvePanel, AveragingAsksBeforeItReplacesTheCurvesOfALine) {
  Open();
  EXPECT_EQ(Calculate(), 0);
  EXPECT_EQ(Calculate(), 0);
  EXPECT_TRUE(frontEnd.questions.empty()) << "one curve or none";
  for (const char* label : {"A@10", "B@20"}) {
    DispInfo& station = *MeasDB.gDispList.append();
    SetupDispArrays(station, 3);
    station.label = label;
  }
  EXPECT_EQ(Calculate(), -1);
  ASSERT_EQ(frontEnd.questions.size(), 1u);
  EXPECT_EQ(frontEnd.questions[0], "Averaging replaces the 3 curves of the line by one. Go on ?");
  ASSERT_EQ(MeasDB.gDispList.count(), 3);
  EXPECT_EQ(MeasDB.gDispList.at(3)->label, "B@20");
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(Calculate(), 0);
  EXPECT_EQ(MeasDB.gDispList.count(), 1);
}

TEST_F(RepCurvePanel, UpdateWorksWithNobodyBehindTheLayers) {
  InstallCallback(inversion::AUTOSETUPSMP, nullptr);
  EXPECT_EQ(CalculateAndUpdate(), 0);
  EXPECT_EQ(MeasDB.gDispList.count(), 1);
}

TEST_F(RepCurvePanel, ARefusedSettingEndsBothButtons) {
  SetCtrlVal(GLOBAL_NPOINTS, 2000000000);
  EXPECT_EQ(Calculate(), -1);
  EXPECT_EQ(CalculateAndUpdate(), -1);
  EXPECT_EQ(frontEnd.messages.size(), 2u);
  EXPECT_EQ(layersSetUp, 0);
  EXPECT_THAT(drawn, IsEmpty());
  EXPECT_EQ(MeasDB.gDispList.count(), 0);
}

TEST_F(RepCurvePanel, CloseHidesThePanel) {
  Open();
  EXPECT_EQ(CDispCancelCallback(Panel::CDISPPNL, &CANCEL, Event::Commit, 0), 0);
  EXPECT_FALSE(IsPanelShown(Panel::CDISPPNL));
}

TEST_F(RepCurvePanel, TheRatioIsDimmedWhileItDoesNotAct) {
  const auto choose = [](int value) {
    SetCtrlVal(AVG_LINLOG, value);
    SwitchAvgLinLogCallback(Panel::CDISPPNL, &AVG_LINLOG, Event::Commit, 0);
    return IsDimmed(GLOBAL_INCRATIO);
  };
  EXPECT_FALSE(IsDimmed(GLOBAL_INCRATIO));
  EXPECT_TRUE(choose(0));
  EXPECT_FALSE(choose(1));
}

TEST_F(RepCurvePanel, OtherEventsDoNothing) {
  SetupCompDispCurveCallback(Panel::DISPCURV, &dispcurv::COMPDISPCURV, Event::LeftClick, 0);
  EXPECT_FALSE(IsPanelShown(Panel::CDISPPNL));
  CDispCalcCallback(Panel::CDISPPNL, &CALC, Event::LeftClick, 0);
  CDispCalcUpdateCallback(Panel::CDISPPNL, &UPDATE, Event::LeftClick, 0);
  EXPECT_EQ(MeasDB.gDispList.count(), 0);
  EXPECT_EQ(layersSetUp, 0);
  Open();
  CDispCancelCallback(Panel::CDISPPNL, &CANCEL, Event::LeftClick, 0);
  EXPECT_TRUE(IsPanelShown(Panel::CDISPPNL));
  SetCtrlVal(ARRAY_POLYORDER, 9);
  IndPolyOrderCallback(Panel::CDISPPNL, &ARRAY_POLYORDER, Event::GotFocus, 0);
  EXPECT_EQ(first->polyOrderA, 5);
  IndDispCurvListCallback(Panel::CDISPPNL, &ARRAY_DISPCURVELIST, Event::RightClick, 0);
  EXPECT_EQ(GetCtrlVal(ARRAY_POLYORDER), 9);
}

}  // namespace
}  // namespace sondera
