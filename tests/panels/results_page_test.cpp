// Tests of the results page: the halt, and the viewing of one entry.
#include <gtest/gtest.h>

#include <climits>

#include "panels/analresult.h"
#include "panels/inversion.h"
#include "project/export_tables.h"
#include "records/model_records.h"
#include "records/session.h"
#include "run/run_state.h"
#include "runtime/catalogue/analresult.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/events.h"
#include "support/inv_fixture.h"

namespace sondera::testing {
namespace {

using namespace exdthd;

class InvView : public InversionTest {
 protected:
  void SetUp() override {
    InversionTest::SetUp();
    SetPlainLayers(2);
    SetGlobalCurve(2);
    for (InvRecord* r : {&InvParam, &SMPParam}) {
      r->nPoints = 2;
      r->nCurves = 1;
      for (int entry = 0; entry <= 2; ++entry) {
        const double base = (r == &InvParam ? 100.0 : 500.0) + 10.0 * entry;
        StoreProfile(*r, entry, {base, base + 1.0});
        for (int p = 0; p < 2; ++p) {
          r->freq(entry, p) = 5.0 + p;
          r->vel(entry, p) = base + 0.5 * p;
          r->waveL(entry, p) = 20.0 - p;
        }
        r->rms[entry] = 0.25 + base;
      }
    }
  }
  static void Select(int index) {
    InsertListItem(ITERNO, -1, "entry", index);
    SetCtrlIndex(ITERNO, GetNumListItems(ITERNO) - 1);
  }
};

using HaltProcess = InvView;

TEST_F(HaltProcess, YesAsksForTheHaltAndNoTakesItBack) {
  frontEnd.confirmAnswers = {true, false};
  EXPECT_EQ(HaltProcessCallback(Panel::EXDTHD, &HALT, Event::Commit, 0), 0);
  EXPECT_EQ(run.course.iHaltRequest, 1);
  EXPECT_TRUE(PressHalted());
  EXPECT_EQ(HaltProcessCallback(Panel::EXDTHD, &HALT, Event::Commit, 0), 0);
  EXPECT_EQ(run.course.iHaltRequest, 0);
  EXPECT_FALSE(PressHalted());
  EXPECT_EQ(frontEnd.questions, std::vector<std::string>(2, "Do you want to halt the process ?"));
}

TEST_F(HaltProcess, NoLeavesAHaltThatHasEndedARun) {
  frontEnd.confirmAnswers = {false};
  NoteHalt();  // by the poll of a run, which reset the request
  HaltProcessCallback(Panel::EXDTHD, &HALT, Event::Commit, 0);
  EXPECT_TRUE(PressHalted());
}

TEST_F(HaltProcess, AsksUnderTheTitleOfTheProgram) {
  std::string title;
  FrontEnd asking;
  asking.confirm = [&title](std::string_view t, std::string_view) {
    title = t;
    return true;
  };
  const FrontEnd former = InstallFrontEnd(asking);
  HaltProcessCallback(Panel::EXDTHD, &HALT, Event::Commit, 0);
  InstallFrontEnd(former);
  EXPECT_EQ(title, session.appTitle);
}

TEST_F(HaltProcess, OtherEventsDoNotAsk) {
  EXPECT_EQ(HaltProcessCallback(Panel::EXDTHD, &HALT, Event::LeftClick, 0), 0);
  EXPECT_TRUE(frontEnd.questions.empty());
}

using InvAnalIterNo = InvView;

TEST_F(InvAnalIterNo, ShowsCurveModelMisfitGraphAndTable) {
  Select(2);
  EXPECT_EQ(InvAnalIterNoCallback(Panel::EXDTHD, &ITERNO, Event::Commit, 0), 0);
  EXPECT_EQ(TheoDispInfo.globalVel[1], 120.5);
  EXPECT_EQ(TheoDispInfo.globalWlen[0], 20.0);
  EXPECT_EQ(TheoDispInfo.Vs[1], 121.0);
  EXPECT_EQ(TheoDispInfo.Vs[0], 100.0);  // the surface layer is not moved
  EXPECT_EQ(GetCtrlVal(RMSERROR), 120.25);
  EXPECT_EQ(drawn, "curves profile 2 ");
  EXPECT_EQ(GetCtrlVal(analresult::RESULTS).substr(0, 9), "Layer No.");
}

TEST_F(InvAnalIterNo, BelowZeroShowsAStartingProfile) {
  Select(-1);
  EXPECT_EQ(InvAnalIterNoCallback(Panel::EXDTHD, &ITERNO, Event::Commit, 0), 0);
  EXPECT_EQ(TheoDispInfo.globalVel[0], 510.0);
  EXPECT_EQ(GetCtrlVal(RMSERROR), 510.25);
  EXPECT_EQ(drawn, "curves profile -1 ");
}

TEST_F(InvAnalIterNo, SideGraphFollowsPlotInv) {
  Select(1);
  SetCtrlVal(PLOT_INV, 1);
  InvAnalIterNoCallback(Panel::EXDTHD, &ITERNO, Event::Commit, 0);
  SetCtrlVal(PLOT_INV, 2);
  InvAnalIterNoCallback(Panel::EXDTHD, &ITERNO, Event::Commit, 0);
  EXPECT_EQ(drawn, "curves resolution 1 curves rms 1 ");
}

TEST_F(InvAnalIterNo, EntriesThatAreNotStoredChangeNothingButTheMisfit) {
  const std::vector<double> before = TheoDispInfo.globalVel;
  for (const int index : {51, -51, INT_MAX, INT_MIN}) {
    SetCtrlVal(RMSERROR, 1.0);
    Select(index);
    EXPECT_EQ(InvAnalIterNoCallback(Panel::EXDTHD, &ITERNO, Event::Commit, 0), 0);
    EXPECT_EQ(GetCtrlVal(RMSERROR), 0.0) << index;
  }
  EXPECT_EQ(TheoDispInfo.globalVel, before);
}

TEST_F(InvAnalIterNo, RecordsOfADamagedProjectAreShownWithoutHarm) {
  Select(1);
  for (const int bad : {-1, 201, INT_MAX}) {
    InvParam.nPoints = bad;
    InvParam.nLayers = bad;
    EXPECT_EQ(InvAnalIterNoCallback(Panel::EXDTHD, &ITERNO, Event::Commit, 0), 0) << bad;
  }
  InvParam = SMPParam = InvRecord{};
  EXPECT_EQ(InvAnalIterNoCallback(Panel::EXDTHD, &ITERNO, Event::Commit, 0), 0);
  Select(-1);
  EXPECT_EQ(InvAnalIterNoCallback(Panel::EXDTHD, &ITERNO, Event::Commit, 0), 0);
  EXPECT_EQ(GetCtrlVal(RMSERROR), 0.0);
}

using PlotInvResult = InvView;

TEST_F(PlotInvResult, DoesTheSameButForTheTable) {
  Select(2);
  SetCtrlVal(PLOT_INV, 1);
  ResetTextBox(analresult::RESULTS, "former");
  EXPECT_EQ(PlotInvResultCallback(Panel::EXDTHD, &PLOT_INV, Event::Commit, 0), 0);
  EXPECT_EQ(TheoDispInfo.globalVel[0], 120.0);
  EXPECT_EQ(GetCtrlVal(RMSERROR), 120.25);
  EXPECT_EQ(drawn, "curves resolution 2 ");
  EXPECT_EQ(GetCtrlVal(analresult::RESULTS), "former");
}

using ResultBox = InvView;

TEST_F(ResultBox, OpensOnTheTableOfTheModel) {
  SetCtrlIndex(analresult::SEL_RESULT, 2);
  EXPECT_EQ(ResultBoxCallback(Panel::EXDTHD, &RESULTBOX, Event::Commit, 0), 0);
  EXPECT_TRUE(IsPanelShown(Panel::ANALRESULT));
  EXPECT_EQ(GetCtrlIndex(analresult::SEL_RESULT), 0);
  EXPECT_EQ(GetCtrlVal(analresult::RESULTS).substr(0, 9), "Layer No.");
}

TEST_F(ResultBox, AnotherTableFillsTheBoxAndCloseHidesThePanel) {
  Select(1);
  ResultBoxCallback(Panel::EXDTHD, &RESULTBOX, Event::Commit, 0);
  SetCtrlIndex(analresult::SEL_RESULT, 1);
  EXPECT_EQ(ResultModelParamCallback(Panel::ANALRESULT, &analresult::SEL_RESULT, Event::Commit, 0), 0);
  EXPECT_NE(GetCtrlVal(analresult::RESULTS).find("Velocity"), std::string::npos);
  EXPECT_EQ(ResultBoxCloseCallback(Panel::ANALRESULT, &analresult::CLOSE, Event::Commit, 0), 0);
  EXPECT_FALSE(IsPanelShown(Panel::ANALRESULT));
}

TEST_F(ResultBox, GivesVs30AndTheClassesOfAnInvertedEntryOnly) {
  FModelParam.DispCurvInfo = 1;
  FModelParam.dispCurvType = 1;
  FModelParam.nDispPointsG = 2;
  FModelParam.globalWlen = {10.0, 80.0};
  for (int layer = 0; layer < 2; ++layer) InvParam.resolution(2, layer) = 0.5;  // seen deeper than 30 m
  Select(2);
  ResultBoxCallback(Panel::EXDTHD, &RESULTBOX, Event::Commit, 0);
  SetCtrlIndex(analresult::SEL_RESULT, kFigureTable);
  ResultModelParamCallback(Panel::ANALRESULT, &analresult::SEL_RESULT, Event::Commit, 0);
  const ProfileTable profile = ProfileOfEntry(2, {});
  ASSERT_FALSE(profile.figures.figures.empty());
  ASSERT_TRUE(profile.figures.figures[0].value.has_value()) << profile.figures.figures[0].reason;
  const std::string text = GetCtrlVal(analresult::RESULTS);
  EXPECT_EQ(text.find("Vs30: " + FigureDigits(*profile.figures.figures[0].value) + " m/s"), 0u) << text;
  EXPECT_NE(text.find("\n" + ClassText(profile.classes[3])), std::string::npos) << text;
  Select(-1);
  PutTextResultsInBox();
  EXPECT_EQ(GetCtrlVal(analresult::RESULTS),
            "Vs30 and site classes belong to the profile of an iteration.\n");
}

TEST_F(InvView, OtherEventsDoNothing) {
  Select(2);
  for (const Callback callback : {InvAnalIterNoCallback, PlotInvResultCallback, ResultBoxCallback,
                                  ResultModelParamCallback, ResultBoxCloseCallback})
    EXPECT_EQ(callback(Panel::EXDTHD, &ITERNO, Event::GotFocus, 0), 0);
  EXPECT_EQ(drawn, "");
  EXPECT_EQ(GetCtrlVal(analresult::RESULTS), "");
}

}  // namespace
}  // namespace sondera::testing
