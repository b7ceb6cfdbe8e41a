// Tests of the graph models: notices, setters, styles, limits, cursors, events of the mouse.
#include "runtime/graphs.h"

#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/sasw.h"
#include "support/popup_recorder.h"

namespace sondera {
namespace {

using ::testing::ElementsAre;

class Graphs : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetGraphs();
    number = AddObserver([this](std::span<const Change> changes) {
      for (const Change& c : changes)
        if (c.kind == ChangeKind::Graph) changed.push_back(c.control);
    });
  }
  void TearDown() override {
    RemoveObserver(number);
    InstallCallback(kGraph, nullptr);
    ResetGraphs();
  }
  static constexpr const GraphControl& kGraph = dispcurv::DISPGRAPH;
  static const GraphModel& Model() { return GraphOf(kGraph); }
  int number = 0;
  std::vector<ControlId> changed;
};

TEST_F(Graphs, EachChangeIsNotedForItsGraphAndCounted) {
  const int plot = PlotXY(kGraph, {1, 2}, {3, 4});
  PlotRectangle(kGraph, 0, 1, 2, 3, 0, 0);
  PlotIntensity(kGraph, {});
  SetAxisLabel(kGraph, true, "Frequency", "Hz");
  SetAxisLogarithmic(kGraph, true, true);
  SetAxisReversed(kGraph, false, true);
  SetAxisPrefix(kGraph, true, "k", 1000.0);
  SetAxisDivisions(kGraph, true, 5);
  SetAxisRange(kGraph, true, 1, 2);
  SetGraphTitle(kGraph, "site");
  SetCursorCount(kGraph, 1);
  SetCursorColor(kGraph, 1, 0xFF);
  PutCursorOnPlot(kGraph, 1, plot, 1);
  RenewCursors(kGraph, plot);
  DeleteGraphPlot(kGraph);
  EXPECT_EQ(changed.size(), 15u);
  EXPECT_THAT(changed, ::testing::Each(&kGraph));
  EXPECT_EQ(Model().revision - 15, GraphOf(exdthd::CURVES).revision) << "both began at 0 or were reset alike";
  changed.clear();
  PlotXY(exdthd::CURVES, {1}, {1});
  EXPECT_THAT(changed, ElementsAre(&exdthd::CURVES));
}

TEST_F(Graphs, SettersReachTheModel) {
  SetAxisLabel(kGraph, false, "Phase Velocity", "m/s");
  SetAxisLogarithmic(kGraph, false, true);
  SetAxisReversed(kGraph, false, true);
  SetAxisPrefix(kGraph, false, "k", 1000.0);
  SetAxisPrefix(kGraph, false, "x", 0.0);
  SetAxisDivisions(kGraph, false, 7);
  SetGraphTitle(kGraph, "site");
  const AxisModel& axis = Model().yAxis;
  EXPECT_EQ(axis.label, "Phase Velocity");
  EXPECT_EQ(axis.unit, "m/s");
  EXPECT_TRUE(axis.logarithmic);
  EXPECT_TRUE(axis.reversed);
  EXPECT_EQ(axis.prefix, "k") << "a factor has to be above 0";
  EXPECT_EQ(axis.factor, 1000.0);
  EXPECT_EQ(axis.divisions, 7);
  EXPECT_EQ(Model().title, "site");
}

TEST_F(Graphs, AModelIsEmptiedInPlaceAndItsRevisionGoesOn) {
  PlotXY(kGraph, {1}, {1});
  const GraphModel& model = Model();
  const int revision = model.revision;
  changed.clear();
  ResetGraphs();
  EXPECT_TRUE(model.plots.empty());
  EXPECT_EQ(&model, &Model());
  EXPECT_GT(model.revision, revision);
  EXPECT_THAT(changed, ::testing::Contains(&kGraph));
}

TEST_F(Graphs, ACurveHasALook) {
  PlotXY(kGraph, {1}, {1},
         PlotLook{.width = 2.0, .dash = LineDash::Dashed, .visible = false, .inLegend = false}, "a");
  PlotXY(kGraph, {1}, {1});
  EXPECT_EQ(Model().plots[0].width, 2.0);
  EXPECT_EQ(Model().plots[0].dash, LineDash::Dashed);
  EXPECT_FALSE(Model().plots[0].visible);
  EXPECT_FALSE(Model().plots[0].inLegend);
  EXPECT_EQ(Model().plots[1].marker, kNoMarker) << "a line has no marker unless one is asked for";
  EXPECT_TRUE(Model().plots[1].visible);
}

TEST_F(Graphs, OneRectangleIsSelectedAtATime) {
  const int one = PlotRectangle(kGraph, 1, 180, 2, -180, 0, 0, "3", true);
  const int two = PlotRectangle(kGraph, 3, 180, 4, -180, 0, 0, "0");
  EXPECT_EQ(Model().rectangles[0].label, "3");
  EXPECT_TRUE(Model().rectangles[0].selected);
  SelectRectangle(kGraph, two);
  EXPECT_FALSE(Model().rectangles[0].selected);
  EXPECT_TRUE(Model().rectangles[1].selected);
  SelectRectangle(kGraph, 0);
  EXPECT_FALSE(Model().rectangles[1].selected);
  EXPECT_NE(one, two);
}

// ---- limits -----------------------------------------------------------------------------------------------

void ExpectLimits(const AxisLimits& limits, double min, double max, bool known = true) {
  EXPECT_EQ(limits.min, min);
  EXPECT_EQ(limits.max, max);
  EXPECT_EQ(limits.known, known);
}

TEST_F(Graphs, LimitsComeFromWhatIsVisible) {
  ExpectLimits(LimitsInForce(Model()).x, 0, 1, false);
  PlotXY(kGraph, {1, 2, NAN}, {-3, INFINITY, 4});
  PlotXY(kGraph, {-100, 100}, {0, 0}, PlotLook{.visible = false});
  PlotRectangle(kGraph, 0.5, 9, 1, -9, 0, 0);
  ExpectLimits(LimitsInForce(Model()).x, 0.5, 2);
  ExpectLimits(LimitsInForce(Model()).y, -9, 9);
  SetAxisRange(kGraph, true, 10, 20);
  ExpectLimits(LimitsInForce(Model()).x, 10, 20);
  SetAxisRange(kGraph, true, 20, 10);
  ExpectLimits(LimitsInForce(Model()).x, 10, 20);
  SetAxisRange(kGraph, true, NAN, 10);
  ExpectLimits(LimitsInForce(Model()).x, 0.5, 2);
}

TEST_F(Graphs, LimitsOfALogarithmicAxisAreAboveZero) {
  SetAxisLogarithmic(kGraph, true, true);
  ExpectLimits(LimitsInForce(Model()).x, 1, 10, false);
  PlotXY(kGraph, {0, -5, 2, 30}, {1, 1, 1, 1});
  ExpectLimits(LimitsInForce(Model()).x, 2, 30);
  SetAxisRange(kGraph, true, 0, 50);
  ExpectLimits(LimitsInForce(Model()).x, 2, 30);
  ExpectLimits(LimitsInForce(Model()).y, 0, 2);
}

TEST_F(Graphs, OneValueGetsRoomAroundIt) {
  PlotXY(kGraph, {5}, {1e17});
  ExpectLimits(LimitsInForce(Model()).x, 4, 6);
  const AxisLimits y = LimitsInForce(Model()).y;
  EXPECT_LT(y.min, 1e17);
  EXPECT_GT(y.max, 1e17);
  SetAxisLogarithmic(kGraph, true, true);
  ExpectLimits(LimitsInForce(Model()).x, 2.5, 10);
}

TEST_F(Graphs, TheUpperLimitIsThatInForce) {
  EXPECT_FALSE(UpperXLimit(kGraph));
  PlotRectangle(kGraph, 1, 1, 300, 2, 0, 0);
  EXPECT_FALSE(UpperXLimit(kGraph)) << "without a curve there is none";
  PlotXY(kGraph, {1, 80}, {1, 1});
  EXPECT_EQ(UpperXLimit(kGraph), LimitsInForce(Model()).x.max);
  SetAxisRange(kGraph, true, 0, 60);
  EXPECT_EQ(UpperXLimit(kGraph), 60.0);
}

// ---- cursors ----------------------------------------------------------------------------------------------

TEST_F(Graphs, CursorsKnowThePointThatTheySitOn) {
  const int first = PlotXY(kGraph, {1, 2, 3}, {10, 20, 30});
  EXPECT_TRUE(PutCursorOnPlot(kGraph, 1, first, 2));
  EXPECT_FALSE(PutCursorOnPlot(kGraph, 1, first, 3));
  EXPECT_FALSE(PutCursorOnPlot(kGraph, 1, 99, 0));
  CursorModel c = GetGraphCursor(kGraph, 1);
  EXPECT_EQ(c.plot, first);
  EXPECT_EQ(c.index, 2);
  EXPECT_EQ(c.x, 3.0);
  EXPECT_EQ(c.y, 30.0);
  DeleteGraphPlot(kGraph);
  EXPECT_EQ(GetGraphCursor(kGraph, 1).plot, 0) << "the plot is gone";
  EXPECT_EQ(GetGraphCursor(kGraph, 1).x, 3.0);
  const int second = PlotXY(kGraph, {0, 2.9, 5}, {7, 8, 9});
  RenewCursors(kGraph, second);
  c = GetGraphCursor(kGraph, 1);
  EXPECT_EQ(c.x, 3.0) << "kept";
  EXPECT_EQ(c.y, 8.0) << "renewed";
  EXPECT_EQ(c.plot, second);
  EXPECT_EQ(c.index, 1);
}

TEST_F(Graphs, TheNearestPointIsAFiniteOne) {
  PlotXY(kGraph, {NAN, 1, INFINITY, 2}, {0, 0, 0, 0});
  EXPECT_EQ(NearestPoint(Model().plots[0], 1.4), 1);
  EXPECT_EQ(NearestPoint(Model().plots[0], 1.6), 3);
  EXPECT_EQ(NearestPoint(Model().plots[0], NAN), -1);
}

// ---- events -----------------------------------------------------------------------------------------------

std::optional<GraphPlace> seenPlace;
double seenCursor = 0.0;
int See(Panel, ControlId control, Event, long) {
  seenPlace = PlaceOfEvent(*control);
  seenCursor = GetGraphCursor(dispcurv::DISPGRAPH, 1).x;
  return 0;
}

TEST_F(Graphs, AnEventHasItsPlaceButtonAndCursorBeforeItComes) {
  InstallCallback(kGraph, See);
  SetCursorCount(kGraph, 1);
  EXPECT_EQ(SendGraphEvent(kGraph, Event::ValChanged, {12.5, 80.0, MouseButton::Left, 1}), 0);
  ASSERT_TRUE(seenPlace);
  EXPECT_EQ(seenPlace->x, 12.5);
  EXPECT_EQ(seenPlace->y, 80.0);
  EXPECT_EQ(seenPlace->button, MouseButton::Left);
  EXPECT_EQ(seenPlace->cursor, 1);
  EXPECT_EQ(seenCursor, 12.5) << "the cursor stands there already";
  EXPECT_FALSE(PlaceOfEvent(kGraph)) << "afterwards there is none";
  EXPECT_EQ(SendEvent(kGraph, Event::Commit), 0);
  EXPECT_FALSE(seenPlace) << "a press without a place";
  EXPECT_EQ(SendGraphEvent(kGraph, Event::ValChanged, {1, 1, MouseButton::Left, 2}), -1);
}

TEST_F(Graphs, ALockedGraphKeepsItsCursor) {
  InstallCallback(kGraph, See);
  SetCursorCount(kGraph, 1);
  seenPlace.reset();
  const ControlLock lock({&exdthd::HALT}, "Sondera", "A run.");
  EXPECT_EQ(SendGraphEvent(kGraph, Event::ValChanged, {12.5, 80.0, MouseButton::Left, 1}), 0);
  EXPECT_FALSE(seenPlace);
  EXPECT_EQ(GetGraphCursor(kGraph, 1).x, 0.0);
}

}  // namespace
}  // namespace sondera
