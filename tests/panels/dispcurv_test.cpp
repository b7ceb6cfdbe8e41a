// The DISPCURV page without its drawing: the two lists, rings and graph events.
#include "panels/dispcurv.h"

#include <gmock/gmock.h>

#include "records/curve_labels.h"
#include "records/session.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"
#include "support/session_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CurveLists : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    m = AddMeasurement({.measID = "shot", .nChannels = 4, .nLines = 16});
    session.curProjID = m.projID;
    RedrawHandlers handlers;
    handlers.dispCurvPlot = [this](int flag) {
      drawn.push_back(flag);
      return result;
    };
    InstallRedrawHandlers(std::move(handlers));
  }

  PMeasInfo& AddPair(int refChan, int dspChan, int included) {
    PMeasInfo& pair = *MeasDB.pMeasList.append();
    SetupPairMeasArrays(pair, 16);
    pair.key = m.key;
    pair.refChan = refChan;
    pair.dspChan = dspChan;
    pair.included = included;
    InsertListItem(included ? dispcurv::LIST_INCLUDED : dispcurv::LIST_EXCLUDED, -1,
                   DispCurveLabel("shot", refChan, dspChan), MeasDB.pMeasList.count() - 1);
    return pair;
  }

  static int Send(Callback callback, const Control& control, Event event = Event::Commit) {
    return callback(control.panel, &control, event, 0);
  }

  TestMeasurement m;
  std::vector<int> drawn;
  int result = 0;
};

using DispersionPage = CurveLists;

// --- lists ---

TEST_F(DispersionPage, ButtonsMoveTheCurveAndSetItsFlagWithoutADraw) {
  PMeasInfo& first = AddPair(0, 1, 1);
  PMeasInfo& second = AddPair(0, 2, 1);
  SetCtrlIndex(dispcurv::LIST_INCLUDED, 1);
  EXPECT_EQ(Send(ExludeDispCurveCallback, dispcurv::EXCLUDE), 0);
  EXPECT_EQ(first.included, 1);
  EXPECT_EQ(second.included, 0);
  EXPECT_THAT(LabelsOf(dispcurv::LIST_INCLUDED), ElementsAre("shot[1:2]"));
  EXPECT_THAT(LabelsOf(dispcurv::LIST_EXCLUDED), ElementsAre("shot[1:3]"));
  EXPECT_EQ(Send(IncludeDispCurveCallback, dispcurv::INCLUDE), 0);
  EXPECT_EQ(second.included, 1);
  EXPECT_THAT(LabelsOf(dispcurv::LIST_INCLUDED), ElementsAre("shot[1:2]", "shot[1:3]"));
  EXPECT_THAT(LabelsOf(dispcurv::LIST_EXCLUDED), IsEmpty());
  EXPECT_THAT(drawn, IsEmpty());
}

TEST_F(DispersionPage, DoubleClicksDoTheSame) {
  PMeasInfo& pair = AddPair(0, 1, 1);
  EXPECT_EQ(Send(IncludedDispCurveListCallback, dispcurv::LIST_INCLUDED, Event::LeftDoubleClick), 0);
  EXPECT_EQ(pair.included, 0);
  EXPECT_THAT(LabelsOf(dispcurv::LIST_EXCLUDED), ElementsAre("shot[1:2]"));
  EXPECT_EQ(Send(ExcludedDispCurveListCallback, dispcurv::LIST_EXCLUDED, Event::LeftClick), 0);
  EXPECT_EQ(pair.included, 0) << "one click only chooses";
  EXPECT_EQ(Send(ExcludedDispCurveListCallback, dispcurv::LIST_EXCLUDED, Event::LeftDoubleClick), 0);
  EXPECT_EQ(pair.included, 1);
  EXPECT_THAT(LabelsOf(dispcurv::LIST_INCLUDED), ElementsAre("shot[1:2]"));
}

TEST_F(DispersionPage, EmptyListsRefuse) {
  EXPECT_EQ(Send(IncludeDispCurveCallback, dispcurv::INCLUDE), -1);
  EXPECT_EQ(Send(ExludeDispCurveCallback, dispcurv::EXCLUDE), -1);
  EXPECT_EQ(Send(ExcludedDispCurveListCallback, dispcurv::LIST_EXCLUDED, Event::LeftDoubleClick), -1);
  EXPECT_EQ(Send(IncludedDispCurveListCallback, dispcurv::LIST_INCLUDED, Event::LeftDoubleClick), -1);
  EXPECT_EQ(Send(IncludedDispCurveListCallback, dispcurv::LIST_INCLUDED, Event::ValChanged), -1);
  EXPECT_EQ(Send(DispCurveColorCallback, dispcurv::COLOR), -1);
  EXPECT_EQ(Send(DispCurveMarkerCallback, dispcurv::MARKER), -1);
}

TEST_F(DispersionPage, LabelOfNoPairStaysWhereItIs) {
  InsertListItem(dispcurv::LIST_EXCLUDED, -1, "gone[1:2]", 0);
  EXPECT_EQ(Send(IncludeDispCurveCallback, dispcurv::INCLUDE), -1);
  EXPECT_THAT(LabelsOf(dispcurv::LIST_EXCLUDED), ElementsAre("gone[1:2]"));
}

TEST_F(DispersionPage, OnlyTheCurrentProjectIsMeant) {
  AddPair(0, 1, 1);
  session.curProjID = "another";
  EXPECT_EQ(PairOfLabel("shot[1:2]"), nullptr);
}

TEST_F(DispersionPage, ChoosingACurveShowsItsColourAndMarker) {
  AddPair(0, 1, 1);
  PMeasInfo& pair = AddPair(0, 2, 1);
  pair.color = 4;
  pair.marker = 9;
  SetCtrlIndex(dispcurv::LIST_INCLUDED, 1);
  for (Event e : {Event::ValChanged, Event::LeftClick}) {
    SetCtrlIndex(dispcurv::COLOR, 0);
    SetCtrlIndex(dispcurv::MARKER, 0);
    EXPECT_EQ(Send(IncludedDispCurveListCallback, dispcurv::LIST_INCLUDED, e), 0);
    EXPECT_EQ(GetCtrlIndex(dispcurv::COLOR), 4);
    EXPECT_EQ(GetCtrlIndex(dispcurv::MARKER), 9);
  }
  pair.color = 20;
  EXPECT_EQ(Send(IncludedDispCurveListCallback, dispcurv::LIST_INCLUDED, Event::ValChanged), 0);
  EXPECT_EQ(GetCtrlIndex(dispcurv::COLOR), 2) << "in turn, as it is drawn";
  pair.color = -1;
  EXPECT_EQ(Send(IncludedDispCurveListCallback, dispcurv::LIST_INCLUDED, Event::ValChanged), 0);
  EXPECT_EQ(GetCtrlIndex(dispcurv::COLOR), 2) << "a curve without a colour changes nothing";
}

TEST_F(DispersionPage, RingsStoreTheirPositionInTheChosenCurve) {
  PMeasInfo& first = AddPair(0, 1, 1);
  PMeasInfo& second = AddPair(0, 2, 1);
  SetCtrlIndex(dispcurv::LIST_INCLUDED, 1);
  SetCtrlIndex(dispcurv::COLOR, 6);
  SetCtrlIndex(dispcurv::MARKER, 3);
  EXPECT_EQ(Send(DispCurveColorCallback, dispcurv::COLOR), 0);
  EXPECT_EQ(Send(DispCurveMarkerCallback, dispcurv::MARKER), 0);
  EXPECT_EQ(second.color, 6);
  EXPECT_EQ(second.marker, 3);
  EXPECT_EQ(first.color, -1);
  EXPECT_EQ(first.marker, 12);
  EXPECT_THAT(drawn, IsEmpty());
}

// --- graph ---

TEST_F(DispersionPage, TypeAndRedrawDrawThePlainLabels) {
  result = -1;
  EXPECT_EQ(Send(SetDispCurveTypeCallback, dispcurv::DISPCURVTYPE), -1);
  result = 0;
  EXPECT_EQ(Send(RedrawDispCurvCallback, dispcurv::REDRAW), 0);
  EXPECT_THAT(drawn, ElementsAre(1, 1));
  EXPECT_EQ(Send(RedrawDispCurvCallback, dispcurv::REDRAW, Event::LeftClick), 0);
  EXPECT_EQ(drawn.size(), 2u);
}

TEST_F(DispersionPage, CommitOnTheGraphShowsTheCursor) {
  SetGraphCursor(dispcurv::DISPGRAPH, 1, 12.345, 0.0625);
  EXPECT_EQ(Send(SetupDispCurveCallback, dispcurv::DISPGRAPH), 0);
  EXPECT_EQ(GetCtrlVal(dispcurv::COORD), "(12.35, 0.0625)");
  SetGraphCursor(dispcurv::DISPGRAPH, 1, -3e-6, 0.0);
  EXPECT_EQ(Send(SetupDispCurveCallback, dispcurv::DISPGRAPH), 0);
  EXPECT_EQ(GetCtrlVal(dispcurv::COORD), "(-3.0000e-06, 0.0000)");
}

TEST_F(DispersionPage, DoubleClickOnTheGraphOpensTheAxisAttributes) {
  EXPECT_EQ(Send(SetupDispCurveCallback, dispcurv::DISPGRAPH, Event::LeftClick), 0);
  EXPECT_FALSE(IsPanelShown(Panel::DSP_MSCALE));
  EXPECT_EQ(Send(SetupDispCurveCallback, dispcurv::DISPGRAPH, Event::LeftDoubleClick), 0);
  EXPECT_TRUE(IsPanelShown(Panel::DSP_MSCALE));
  EXPECT_EQ(GetCtrlVal(dispcurv::COORD), "");
}

TEST_F(DispersionPage, MovesOfCurvesDoNothing) {
  AddPair(0, 1, 1);
  AddPair(0, 2, 1);
  SetCtrlIndex(dispcurv::LIST_INCLUDED, 1);
  for (Callback move : {DispCurveMoveUpCallback, DispCurveMoveDownCallback, DispCurveMoveTopCallback,
                        DispCurveMoveBottomCallback})
    EXPECT_EQ(Send(move, dispcurv::LIST_INCLUDED), 0);
  EXPECT_THAT(LabelsOf(dispcurv::LIST_INCLUDED), ElementsAre("shot[1:2]", "shot[1:3]"));
  EXPECT_EQ(GetCtrlIndex(dispcurv::LIST_INCLUDED), 1);
  EXPECT_THAT(drawn, IsEmpty());
}

}  // namespace
}  // namespace sondera::testing
