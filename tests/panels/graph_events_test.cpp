// Tests of the mouse on the graphs: markers and read-outs, a mask drawn by a drag, a mask picked by a right click.
#include "panels/graph_events.h"

#include "panels/dispcurv.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/measpanel.h"
#include "support/masking_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;

class GraphEvents : public Masks {
 protected:
  void SetUp() override {
    Masks::SetUp();
    for (const GraphControl* g : kGraphs) {
      former.push_back(CallbackOf(*g));
      InstallCallback(*g, DisplayCallback);
    }
    InstallCallback(dispcurv::DISPGRAPH, SetupDispCurveCallback);
    InstallCallback(exdthd::CURVES, SetupEXDTHDCallback);
    InstallCallback(sasw::MARKERS_ONOFF, MarkersOnOffCallback);
    SetCtrlVal(sasw::DISPATYPE, 3);
    DrawCurve(sasw::DISPLAY_A, 0.0, 0.5, 200, 2.0, "Original");
    DrawCurve(sasw::DISPLAY_A, 0.0, 0.5, 200, -3.0, "Enhanced");
  }
  void TearDown() override {
    for (std::size_t i = 0; i < former.size(); ++i) InstallCallback(*kGraphs[i], former[i]);
    for (const Control* c :
         std::vector<const Control*>{&dispcurv::DISPGRAPH, &exdthd::CURVES, &sasw::MARKERS_ONOFF})
      InstallCallback(*c, nullptr);
    Masks::TearDown();
  }
  static void Markers(int count) {
    SetCtrlVal(sasw::MARKERS_ONOFF, count);
    EXPECT_EQ(Commit(sasw::MARKERS_ONOFF), 0);
  }
  static int Move(int cursor, double x, const GraphControl& graph = sasw::DISPLAY_A) {
    return SendGraphEvent(graph, Event::ValChanged, {x, 0.0, MouseButton::Left, cursor});
  }
  static int Drag(double from, double to, const GraphControl& graph = sasw::DISPLAY_A) {
    return SendGraphEvent(graph, Event::Drag, {to, 5.0, MouseButton::Left, 0, from, -7.0});
  }
  static int RightClick(double x, const GraphControl& graph = sasw::DISPLAY_A) {
    return SendGraphEvent(graph, Event::RightClick, {x, 0.0, MouseButton::Right});
  }
  static std::vector<std::string> ReadOuts() {
    return {GetCtrlVal(sasw::DISPAMARKER1COORD), GetCtrlVal(sasw::DISPAMARKER2COORD),
            GetCtrlVal(sasw::DISPADELTAX)};
  }
  static constexpr const GraphControl* kGraphs[] = {&sasw::DISPLAY_A, &sasw::DISPLAY_B, &measpanel::DISPLAY_A,
                                                    &measpanel::DISPLAY_B};
  std::vector<Callback> former;
};

TEST_F(GraphEvents, MarkersStandOnTheCurveAtThirdsOfTheAxis) {
  SetAxisRange(sasw::DISPLAY_A, true, 0, 90);
  Markers(2);
  const auto& cursors = GraphOf(sasw::DISPLAY_A).cursors;
  ASSERT_EQ(cursors.size(), 2u);
  EXPECT_EQ(cursors[0].x, 30.0);
  EXPECT_EQ(cursors[0].y, -90.0) << "on the curve of the phase in use";
  EXPECT_EQ(cursors[1].x, 60.0);
  EXPECT_EQ(cursors[0].color, 0xFF00FF);
  EXPECT_EQ(cursors[1].color, 0xFF0000);
  EXPECT_THAT(ReadOuts(), ElementsAre("(X1, Y1)=30.00,-90.00", "(X2, Y2)=60.00,-180.00", "X2-X1=30.00"));
  EXPECT_EQ(session.display[0].markersOnOff, 2);
  Markers(1);
  EXPECT_THAT(ReadOuts(), ElementsAre("(X1, Y1)=30.00,-90.00", "", ""));
  Markers(0);
  EXPECT_THAT(ReadOuts(), ElementsAre("", "", ""));
  EXPECT_TRUE(GraphOf(sasw::DISPLAY_A).cursors.empty());
}

TEST_F(GraphEvents, AMovedMarkerWritesBothEndsOfTheMask) {
  Markers(2);
  SetFields(1, 2, 5);
  EXPECT_EQ(Move(1, 40.2), 0);
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_A, 1).x, 40.0) << "the nearest line";
  EXPECT_EQ(Move(2, 10.3), 0);
  EXPECT_THAT(Fields(), ElementsAre(10.5, 40.0, 5.0)) << "the smaller first";
  EXPECT_EQ(ReadOuts()[2], "X2-X1=-29.50");
}

TEST_F(GraphEvents, OneMarkerWritesNoMask) {
  Markers(1);
  Move(1, 40.0);
  EXPECT_THAT(Fields(), ElementsAre(0.0, 0.0, 0.0));
  EXPECT_EQ(ReadOuts()[0], "(X1, Y1)=40.00,-120.00");
}

TEST_F(GraphEvents, ADragSwitchesBothMarkersOnAndNewMakesTheMask) {
  ASSERT_EQ(Drag(30.0, 20.0), 0);
  EXPECT_EQ(GetCtrlVal(sasw::MARKERS_ONOFF), 2);
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_A, 1).x, 30.0) << "where the button went down";
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_A, 2).x, 20.0);
  EXPECT_THAT(Fields(), ElementsAre(20.0, 30.0, 0.0));
  EXPECT_EQ(Commit(sasw::MASKINGNEW), 0);
  ASSERT_EQ(MaskList().size(), 1u);
  EXPECT_EQ(MaskList()[0], (PlainMask{m.key, 0, 2, 0, 20.0, 30.0}));
  EXPECT_TRUE(GraphOf(sasw::DISPLAY_A).cursors.empty());
}

TEST_F(GraphEvents, NoMaskIsDrawnElsewhere) {
  Drag(20.0, 30.0, sasw::DISPLAY_B);
  Drag(20.0, 30.0, measpanel::DISPLAY_A);
  EXPECT_THAT(Fields(), ElementsAre(0.0, 0.0, 0.0));
  SetCtrlVal(sasw::TRACE_ONOFF, 1);
  Drag(20.0, 30.0);
  SetCtrlVal(sasw::TRACE_ONOFF, 0);
  for (const int overTime : {0, 9}) {
    SetCtrlVal(sasw::DISPATYPE, overTime);
    Drag(20.0, 30.0);
  }
  EXPECT_THAT(Fields(), ElementsAre(0.0, 0.0, 0.0));
  EXPECT_TRUE(GraphOf(sasw::DISPLAY_A).cursors.empty());
}

TEST_F(GraphEvents, ARightClickPicksTheMaskUnderIt) {
  AddOwnMask(10.0, 20.0, 1);
  AddOwnMask(30.0, 45.0, 4);
  session.display[0].maskingOn = 1;
  DoPlotMasking(sasw::DISPLAY_A);
  EXPECT_EQ(RightClick(25.0), 0);
  EXPECT_THAT(Fields(), ElementsAre(0.0, 0.0, 0.0)) << "no mask there";
  EXPECT_EQ(RightClick(33.3, sasw::DISPLAY_B), 0);
  EXPECT_THAT(Fields(), ElementsAre(0.0, 0.0, 0.0)) << "not on graph B";
  EXPECT_EQ(RightClick(33.3), 0);
  EXPECT_THAT(Fields(), ElementsAre(30.0, 45.0, 4.0));
  EXPECT_EQ(ReadOuts()[2], "X2-X1=15.00");
  const auto& boxes = GraphOf(sasw::DISPLAY_A).rectangles;
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_EQ(boxes[1].label, "4");
  EXPECT_TRUE(boxes[1].selected);
  EXPECT_FALSE(boxes[0].selected);
  EXPECT_EQ(Commit(sasw::MASKINGDEL), 0);
  EXPECT_EQ(MaskList().size(), 1u);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(GraphEvents, ARedrawKeepsTheAbscissaAndRenewsTheOrdinate) {
  Markers(2);
  Move(1, 40.0);
  DeleteGraphPlot(sasw::DISPLAY_A);
  DrawCurve(sasw::DISPLAY_A, 0.0, 0.5, 200, 7.0, "Enhanced");
  RenewMarkers(1);
  EXPECT_EQ(ReadOuts()[0], "(X1, Y1)=40.00,280.00");
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_A, 1).plot, GraphOf(sasw::DISPLAY_A).plots[0].handle);
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_A, 1).index, 80);
}

TEST_F(GraphEvents, AMarkerWithoutACurveStaysOnTheAxis) {
  DeleteGraphPlot(sasw::DISPLAY_A);
  SetAxisRange(sasw::DISPLAY_A, true, 0, 50);
  Markers(2);
  Move(2, 70.0);
  EXPECT_EQ(GetGraphCursor(sasw::DISPLAY_A, 2).x, 50.0);
}

TEST_F(GraphEvents, AClickOnACurvePageShowsItsPlace) {
  EXPECT_EQ(SendGraphEvent(dispcurv::DISPGRAPH, Event::Commit, {12.345, 0.0625, MouseButton::Left}), 0);
  EXPECT_EQ(GetCtrlVal(dispcurv::COORD), "(12.35, 0.0625)");
  EXPECT_EQ(GetGraphCursor(dispcurv::DISPGRAPH, 1).x, 12.345);
  EXPECT_EQ(SendGraphEvent(exdthd::CURVES, Event::Commit, {-3e-6, 0.0, MouseButton::Left}), 0);
  EXPECT_EQ(GetCtrlVal(exdthd::COORD), "(-3.0000e-06, 0.0000)");
  EXPECT_EQ(SendGraphEvent(exdthd::CURVES, Event::LeftDoubleClick, {1, 1, MouseButton::Left}), 0);
  EXPECT_TRUE(IsPanelShown(Panel::EXD_SCALE));
}

}  // namespace
}  // namespace sondera::testing
