// Masks by the mouse on graph A, with the callbacks of the program: drawn, picked, moved and deleted.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "app/script/run.h"
#include "gui/graph_hand.h"
#include "gui/graph_view.h"
#include "records/measdb.h"
#include "runtime/catalogue/mscalepnl.h"
#include "runtime/catalogue/sasw.h"
#include "support/app_fixture.h"
#include "support/site_records.h"

namespace sondera {
namespace {

constexpr double kLine = 500.0 / 1024.0;  // Hz between two lines of the records
constexpr const char* kPair =
    "*sondera 2\n"
    "read tim id=site files=rec1.tim,rec2.tim,rec3.tim,rec4.tim,rec5.tim,rec6.tim source=0 "
    "at=10,14,22,30,42,54\n"
    "pair site 1 3\n";

class GraphMasks : public testing::AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    test::WriteSiteRecords(".");
    script::Source source = script::Source::OfText(kPair);
    ::testing::internal::CaptureStderr();
    const int status = script::Run("pair", {}).run(source);
    const std::string said = ::testing::internal::GetCapturedStderr();
    ASSERT_NE(status, 1) << said;
    SetCtrlVal(sasw::DISPATYPE, 3);
    Commit(sasw::DISPATYPE);
    Commit(sasw::MASKINGSHOW);
    view = std::make_unique<GraphView>();
    view->resize(900, 400);
    view->Bind(sasw::DISPLAY_A);
    view->show();
    test::DrawNow(*view);
  }
  void TearDown() override {
    view.reset();
    AppTest::TearDown();
  }
  void Drag(double from, double to) {
    test::DragOver(*view, test::PixelAt(*view, from, 40), test::PixelAt(*view, to, -40));
    test::DrawNow(*view);
  }
  /// Where the mouse is when it is on the pixel of a frequency.
  double Mouse(double frequency) const { return view->ValueAt(test::PixelAt(*view, frequency, 0)).x(); }
  void RightClick(double x) {
    QTest::mouseClick(view.get(), Qt::RightButton, {}, test::PixelAt(*view, x, 0));
    test::DrawNow(*view);
  }
  void Press(const ButtonControl& button) {
    EXPECT_EQ(Commit(button), 0);
    test::DrawNow(*view);
  }
  std::string Line() const { return view->accessibleDescription().toStdString(); }
  static double From() { return GetCtrlVal(sasw::MASKING_FREQINIT); }
  static double To() { return GetCtrlVal(sasw::MASKING_FREQFINAL); }

  /// A mask is drawn, seen, picked, moved by its marker, and deleted.
  void GoTheRoad(double from, double to, double elsewhere, double later) {
    Drag(from, to);
    EXPECT_NEAR(From(), Mouse(from), kLine);
    EXPECT_NEAR(To(), Mouse(to), kLine);
    Press(sasw::MASKINGNEW);
    ASSERT_EQ(GraphOf(sasw::DISPLAY_A).rectangles.size(), 1u);
    EXPECT_NE(Line().find("; 1 mask "), std::string::npos) << Line();
    const double first = GraphOf(sasw::DISPLAY_A).rectangles[0].x1;

    EXPECT_EQ(From(), 0.0) << "the fields are empty afterwards";
    RightClick(elsewhere);
    EXPECT_EQ(From(), 0.0) << "beside the mask nothing is picked";
    RightClick((from + to) / 2);
    EXPECT_EQ(From(), first);
    EXPECT_NEAR(To(), Mouse(to), kLine);
    ASSERT_EQ(GraphOf(sasw::DISPLAY_A).cursors.size(), 2u);
    EXPECT_NE(Line().find("(picked)"), std::string::npos) << Line();

    Drag(To(), later);  // the marker at its end
    EXPECT_NEAR(To(), Mouse(later), kLine);
    Press(sasw::MASKINGUPDATE);
    ASSERT_EQ(GraphOf(sasw::DISPLAY_A).rectangles.size(), 1u);
    EXPECT_NEAR(GraphOf(sasw::DISPLAY_A).rectangles[0].x2, Mouse(later), kLine);
    RightClick((from + to) / 2);
    Press(sasw::MASKINGDEL);
    EXPECT_TRUE(GraphOf(sasw::DISPLAY_A).rectangles.empty());
    EXPECT_EQ(Line().find("mask "), std::string::npos) << Line();
  }

  std::unique_ptr<GraphView> view;
};

TEST_F(GraphMasks, AreDrawnPickedMovedAndDeleted) {
  GoTheRoad(120, 200, 400, 260);
}

TEST_F(GraphMasks, DoTheSameInAZoomedGraph) {
  view->ShowPart(AxisLimits{10, 60, true}, {});
  GoTheRoad(20, 30, 50, 40);
  EXPECT_TRUE(view->IsZoomed()) << "drawing masks does not leave the zoom";
}

TEST_F(GraphMasks, DoTheSameAfterAResize) {
  view->resize(470, 230);
  test::DrawNow(*view);
  view->ShowPart(AxisLimits{0, 80, true}, {});
  GoTheRoad(20, 33, 70, 41);
}

TEST_F(GraphMasks, DoTheSameWithManualLimits) {
  Commit(sasw::ADJUSTSCALE);
  SetCtrlVal(mscalepnl::AUTOSCALE_X, 0);
  Commit(mscalepnl::AUTOSCALE_X);
  SetCtrlVal(mscalepnl::XMIN, 5.0);
  SetCtrlVal(mscalepnl::XMAX, 95.0);
  EXPECT_EQ(Commit(mscalepnl::OK), 0);
  test::DrawNow(*view);
  ASSERT_EQ(view->Shown().x.max, 95.0);
  GoTheRoad(20, 33, 70, 41);
}

}  // namespace
}  // namespace sondera
