// The mouse on a graph: events and places that its callback gets. Runs at several scale factors.
#include "gui/graph_mouse.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "gui/graph_hand.h"
#include "gui/graph_view.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/control_lock.h"

namespace sondera {
namespace {

struct Heard {
  Event event;
  GraphPlace place;
};
std::vector<Heard> heard;

int Listen(Panel, ControlId control, Event event, long) {
  if (const auto place = PlaceOfEvent(*control)) heard.push_back({event, *place});
  return 0;
}

class GraphMouseTest : public ::testing::Test {
 protected:
  static constexpr const GraphControl& kGraph = sasw::DISPLAY_A;
  static constexpr double kLine = 100.0 / 512.0;  // between two points of the curve

  void SetUp() override {
    ResetGraphs();
    heard.clear();
    former_ = CallbackOf(kGraph);
    InstallCallback(kGraph, Listen);
    std::vector<double> x, y;
    for (int i = 0; i <= 512; ++i) x.push_back(i * kLine), y.push_back(std::sin(i * 0.05) * 180);
    PlotXY(kGraph, x, y);
    SetAxisLabel(kGraph, true, "Frequency", "Hz");
    SetAxisRange(kGraph, false, -180, 180);
    view = std::make_unique<GraphView>();
    view->resize(900, 420);
    view->Bind(kGraph);
    view->show();
    Draw();
  }
  void TearDown() override {
    view.reset();
    InstallCallback(kGraph, former_);
    ResetGraphs();
  }
  void Draw() { test::DrawNow(*view); }
  QPoint Pixel(double x, double y) const { return test::PixelAt(*view, x, y); }
  void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers keys = {}) {
    test::DragOver(*view, from, to, keys);
  }
  std::vector<Event> Events() const {
    std::vector<Event> events;
    for (const Heard& h : heard) events.push_back(h.event);
    return events;
  }

  std::unique_ptr<GraphView> view;

 private:
  Callback former_ = nullptr;
};

TEST_F(GraphMouseTest, ADragOverTheGraphSendsBothEndsWithinALine) {
  Drag(Pixel(20, 50), Pixel(30, -50));
  ASSERT_FALSE(heard.empty());
  EXPECT_EQ(heard.front().event, Event::LeftClick);
  const Heard last = heard.back();
  EXPECT_EQ(last.event, Event::Drag);
  EXPECT_EQ(last.place.cursor, 0);
  EXPECT_NEAR(last.place.fromX, 20, kLine);
  EXPECT_NEAR(last.place.x, 30, kLine);
  for (const Event event : Events()) EXPECT_NE(event, Event::Commit) << "a drag is no click";
}

TEST_F(GraphMouseTest, ADragIsAsExactZoomedResizedAndOnALogarithmicAxis) {
  view->ShowPart(AxisLimits{15, 35, true}, {});
  Drag(Pixel(20, 50), Pixel(30, 50));
  EXPECT_NEAR(heard.back().place.x, 30, kLine / 3);
  view->resize(500, 300);
  Draw();
  Drag(Pixel(18, 50), Pixel(33, 50));
  EXPECT_NEAR(heard.back().place.fromX, 18, kLine / 2);
  EXPECT_NEAR(heard.back().place.x, 33, kLine / 2);
  SetAxisRange(kGraph, true, 1, 100);
  SetAxisLogarithmic(kGraph, true, true);
  Draw();
  Drag(Pixel(2, 50), Pixel(5, 50));
  EXPECT_NEAR(heard.back().place.fromX, 2, 0.03);
  EXPECT_NEAR(heard.back().place.x, 5, 0.06);
}

TEST_F(GraphMouseTest, ADragThatLeavesTheGraphEndsAtItsEdge) {
  Drag(Pixel(80, 0), Pixel(100, 0) + QPoint(200, 0));
  EXPECT_EQ(heard.back().event, Event::Drag);
  EXPECT_EQ(heard.back().place.x, 100.0);
}

TEST_F(GraphMouseTest, AMarkerUnderTheMouseMovesWithoutAJump) {
  SetGraphCursor(kGraph, 1, 25, 0);
  SetGraphCursor(kGraph, 2, 60, 0);
  Draw();
  const QPoint grip = Pixel(60, 40) + QPoint(3, 0);
  Drag(grip, grip + (Pixel(70, 40) - Pixel(60, 40)));
  ASSERT_GE(heard.size(), 3u);
  EXPECT_EQ(heard[1].event, Event::ValChanged);
  EXPECT_EQ(heard.back().event, Event::Commit);
  EXPECT_EQ(heard.back().place.cursor, 2);
  EXPECT_NEAR(heard.back().place.x, 70, kLine);
  EXPECT_NEAR(GetGraphCursor(kGraph, 2).x, 70, kLine);
  heard.clear();
  QTest::mouseClick(view.get(), Qt::LeftButton, {}, Pixel(25, 0) + QPoint(4, 0));
  EXPECT_NEAR(GetGraphCursor(kGraph, 1).x, 25, 1e-6) << "a click on a marker leaves it where it is";
}

TEST_F(GraphMouseTest, AClickIsAClickAndACommit) {
  QTest::mouseClick(view.get(), Qt::LeftButton, {}, Pixel(40, 10));
  EXPECT_EQ(Events(), (std::vector<Event>{Event::LeftClick, Event::Commit}));
  EXPECT_EQ(heard.back().place.cursor, 0);
  EXPECT_NEAR(heard.back().place.x, 40, kLine);
}

TEST_F(GraphMouseTest, RightAndDoubleClicksTellTheirPlace) {
  QTest::mouseClick(view.get(), Qt::RightButton, {}, Pixel(40, 10));
  EXPECT_EQ(Events(), (std::vector<Event>{Event::RightClick}));
  EXPECT_NEAR(heard.back().place.x, 40, kLine);
  heard.clear();
  QTest::mouseDClick(view.get(), Qt::LeftButton, {}, Pixel(10, 10));
  const std::vector<Event> events = Events();
  EXPECT_EQ(std::count(events.begin(), events.end(), Event::LeftDoubleClick), 1);
}

TEST_F(GraphMouseTest, NothingHappensBesideTheAxes) {
  QTest::mouseClick(view.get(), Qt::LeftButton, {}, QPoint(3, 3));
  QTest::mouseClick(view.get(), Qt::RightButton, {}, QPoint(3, 3));
  EXPECT_TRUE(heard.empty());
}

TEST_F(GraphMouseTest, CtrlDragAndCtrlZeroZoomTheViewAlone) {
  Drag(Pixel(20, 90), Pixel(40, -90), Qt::ControlModifier);
  EXPECT_TRUE(heard.empty());
  EXPECT_NEAR(view->Shown().x.min, 20, kLine);
  EXPECT_NEAR(view->Shown().x.max, 40, kLine);
  EXPECT_NEAR(view->Shown().y.max, 90, 2);
  EXPECT_EQ(UpperXLimit(kGraph), 100.0);
  QTest::keyClick(view.get(), Qt::Key_0, Qt::ControlModifier);
  EXPECT_FALSE(view->IsZoomed());
}

TEST_F(GraphMouseTest, CtrlWheelZoomsRoundTheMouse) {
  const QPoint at = Pixel(25, 0);
  const auto turn = [&](int delta, Qt::KeyboardModifiers keys) {
    QWheelEvent wheel(at, view->mapToGlobal(at), {}, {0, delta}, Qt::NoButton, keys, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(view.get(), &wheel);
    return wheel.isAccepted();
  };
  EXPECT_FALSE(turn(120, {})) << "without Ctrl the wheel scrolls the page";
  EXPECT_TRUE(turn(240, Qt::ControlModifier));
  EXPECT_NEAR(view->Shown().x.max - view->Shown().x.min, 64, 0.1);
  EXPECT_NEAR(view->ValueAt(at).x(), 25, kLine);
  turn(-2400, Qt::ControlModifier);
  EXPECT_FALSE(view->IsZoomed());
}

TEST_F(GraphMouseTest, ArrowKeysMoveAMarkerFromPointToPoint) {
  PutCursorOnPlot(kGraph, 1, GraphOf(kGraph).plots[0].handle, 100);
  Draw();
  QTest::keyClick(view.get(), Qt::Key_Right);
  ASSERT_EQ(Events(), (std::vector<Event>{Event::Commit}));
  EXPECT_EQ(heard.back().place.cursor, 1);
  EXPECT_EQ(heard.back().place.x, 101 * kLine);
}

TEST_F(GraphMouseTest, DuringARunTheViewZoomsAndNothingIsSent) {
  const ControlLock lock({&sasw::DISPLAY_B}, "title", "busy");
  Drag(Pixel(20, 50), Pixel(30, -50));
  QTest::mouseClick(view.get(), Qt::RightButton, {}, Pixel(40, 10));
  EXPECT_TRUE(heard.empty());
  Drag(Pixel(20, 90), Pixel(40, -90), Qt::ControlModifier);
  EXPECT_TRUE(view->IsZoomed());
}

}  // namespace
}  // namespace sondera
