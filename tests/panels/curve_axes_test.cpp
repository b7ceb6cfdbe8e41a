// Axis dialogs of the curve pages and of the traces: displayed values, the effect of OK, and invalid limits.
#include "panels/curve_axes.h"

#include <cmath>
#include <limits>

#include "app/script_fixture.h"
#include "panels/mscalepnl.h"
#include "records/session.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/dsp_mscale.h"
#include "runtime/catalogue/exd_scale.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/mscalepnl.h"
#include "runtime/catalogue/sasw.h"
#include "support/site_records.h"

namespace sondera {
namespace {

class AxisDialogs : public testing::ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    test::WriteSitePair(folder.File("H31.hyx"), 14.0, 30.0);
    ASSERT_EQ(Run("read hyx id=ID files=H31.hyx source=0 at=14,30\npair ID 1 2\nphase original\nmask 0 7\n"
                  "mask 48 500\ndisperse"),
              0)
        << err;
    SetCtrlVal(exdthd::EXDTYPE, 1);
    Commit(exdthd::REDRAW);
  }
  static void EnterX(double min, double max) {
    SetCtrlVal(dsp_mscale::DSP_XAUTO, 0);
    Commit(dsp_mscale::DSP_XAUTO);
    SetCtrlVal(dsp_mscale::DSP_XMIN, min);
    SetCtrlVal(dsp_mscale::DSP_XMAX, max);
  }
  static AxisLimits X() { return LimitsInForce(GraphOf(dispcurv::DISPGRAPH)).x; }
};

TEST_F(AxisDialogs, MenuAndDoubleClickFillTheDialogFromTheGraph) {
  EXPECT_EQ(Commit(mainmenu::DISP_CV_AXIS_ATTR_MENU), 0);
  EXPECT_TRUE(IsPanelShown(Panel::DSP_MSCALE));
  EXPECT_EQ(GetCtrlVal(dsp_mscale::DSP_XTYPE), 2);
  EXPECT_EQ(GetCtrlVal(dsp_mscale::DSP_XLINEARLOG), 0);
  EXPECT_EQ(GetCtrlVal(dsp_mscale::DSP_XMIN), X().min);
  EXPECT_EQ(GetCtrlVal(dsp_mscale::DSP_XMAX), X().max);
  EXPECT_TRUE(IsDimmed(dsp_mscale::DSP_XMIN));
  HidePanel(Panel::DSP_MSCALE);
  SendGraphEvent(dispcurv::DISPGRAPH, Event::LeftDoubleClick,
                 {.x = 10, .y = 100, .button = MouseButton::Left});
  EXPECT_TRUE(IsPanelShown(Panel::DSP_MSCALE));
  SendGraphEvent(exdthd::CURVES, Event::LeftDoubleClick, {.x = 10, .y = 100, .button = MouseButton::Left});
  EXPECT_TRUE(IsPanelShown(Panel::EXD_SCALE));
  EXPECT_EQ(GetCtrlVal(exd_scale::DSP_YMAX), GraphOf(exdthd::CURVES).yAxis.max);
}

TEST_F(AxisDialogs, OkTakesLimitsInEitherOrderAndDraws) {
  Commit(mainmenu::DISP_CV_AXIS_ATTR_MENU);
  EnterX(25.0, 5.0);
  EXPECT_FALSE(IsDimmed(dsp_mscale::DSP_XMIN));
  SetCtrlVal(dsp_mscale::DSP_XLINEARLOG, 1);
  EXPECT_EQ(Commit(dsp_mscale::OK), 0);
  EXPECT_FALSE(IsPanelShown(Panel::DSP_MSCALE));
  EXPECT_EQ(GraphOf(dispcurv::DISPGRAPH).xAxis.min, 5.0);
  EXPECT_EQ(GraphOf(dispcurv::DISPGRAPH).xAxis.max, 25.0);
  EXPECT_FALSE(GraphOf(dispcurv::DISPGRAPH).xAxis.logarithmic);
  Commit(dispcurv::REDRAW);
  EXPECT_EQ(GraphOf(dispcurv::DISPGRAPH).xAxis.max, 25.0) << "they stay until the axis is automatic again";
}

TEST_F(AxisDialogs, LimitsThatAreNoneBecomeAutomatic) {
  const AxisLimits before = X();
  const double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
  for (const auto& [min, max] : {std::pair{7.0, 7.0}, {nan, 5.0}, {1.0, inf}}) {
    Commit(mainmenu::DISP_CV_AXIS_ATTR_MENU);
    EnterX(min, max);
    EXPECT_EQ(Commit(dsp_mscale::OK), 0);
    EXPECT_EQ(session.dispAxis.xAutoScale, 1);
    EXPECT_EQ(X().min, before.min);
    EXPECT_EQ(X().max, before.max);
  }
}

TEST_F(AxisDialogs, ALogarithmicAxisFromZeroIsStillDrawn) {
  Commit(mainmenu::DISP_CV_AXIS_ATTR_MENU);
  SetCtrlVal(dsp_mscale::DSP_XLINEARLOG, 0);
  EnterX(0.0, 30.0);
  Commit(dsp_mscale::OK);
  EXPECT_GT(X().min, 0.0);
  EXPECT_LT(X().min, X().max);
}

TEST_F(AxisDialogs, CancelChangesNothing) {
  const int revision = GraphOf(dispcurv::DISPGRAPH).revision;
  Commit(mainmenu::DISP_CV_AXIS_ATTR_MENU);
  EnterX(5.0, 25.0);
  EXPECT_EQ(Commit(dsp_mscale::CANCEL), 0);
  EXPECT_FALSE(IsPanelShown(Panel::DSP_MSCALE));
  EXPECT_EQ(session.dispAxis.xAutoScale, 1);
  EXPECT_EQ(GraphOf(dispcurv::DISPGRAPH).revision, revision);
}

TEST_F(AxisDialogs, AnotherQuantityShowsItsOwnLimits) {
  Commit(mainmenu::DISP_CV_AXIS_ATTR_MENU);
  EnterX(5.0, 25.0);
  Commit(dsp_mscale::OK);
  Commit(mainmenu::DISP_CV_AXIS_ATTR_MENU);
  SetCtrlVal(dsp_mscale::DSP_XTYPE, 1);
  Commit(dsp_mscale::DSP_XTYPE);
  EXPECT_NE(GetCtrlVal(dsp_mscale::DSP_XMAX), 25.0);
  SetCtrlVal(dsp_mscale::DSP_XMIN, 10.0);
  SetCtrlVal(dsp_mscale::DSP_XMAX, 90.0);
  Commit(dsp_mscale::OK);
  EXPECT_EQ(GraphOf(dispcurv::DISPGRAPH).xAxis.label, "Frequency");
  EXPECT_EQ(GraphOf(dispcurv::DISPGRAPH).xAxis.max, 90.0);
  EXPECT_EQ(session.dispAxis.range[2].max, 25.0) << "the wavelengths keep theirs";
}

TEST_F(AxisDialogs, ThePagesHaveRecordsOfTheirOwn) {
  const double disp = GraphOf(dispcurv::DISPGRAPH).yAxis.max;
  OpenResultAxes();
  SetCtrlVal(exd_scale::DSP_YAUTO, 0);
  SetCtrlVal(exd_scale::DSP_YMIN, 10.0);
  SetCtrlVal(exd_scale::DSP_YMAX, 1234.0);
  EXPECT_EQ(Commit(exd_scale::OK), 0);
  EXPECT_EQ(GraphOf(exdthd::CURVES).yAxis.max, 1234.0);
  Commit(dispcurv::REDRAW);
  EXPECT_EQ(GraphOf(dispcurv::DISPGRAPH).yAxis.max, disp);
  OpenResultAxes();
  EXPECT_EQ(Commit(exd_scale::CANCEL), 0);
  EXPECT_FALSE(IsPanelShown(Panel::EXD_SCALE));
}

// ---- traces -----------------------------------------------------------------------------------------------

TEST_F(AxisDialogs, TracesShowTheLimitsInForceAndTakeNewOnes) {
  EXPECT_EQ(Commit(sasw::ADJUSTSCALE), 0);
  EXPECT_TRUE(IsPanelShown(Panel::MSCALEPNL));
  EXPECT_EQ(GetCtrlVal(mscalepnl::CURXMAX), "500");
  EXPECT_EQ(GetCtrlVal(mscalepnl::XMAX), 500.0);
  EXPECT_TRUE(IsDimmed(mscalepnl::XMAX));
  SetCtrlVal(mscalepnl::AUTOSCALE_X, 0);
  Commit(mscalepnl::AUTOSCALE_X);
  EXPECT_FALSE(IsDimmed(mscalepnl::XMAX));
  EXPECT_TRUE(IsDimmed(mscalepnl::YMAX));
  SetCtrlVal(mscalepnl::XMIN, 80.0);
  SetCtrlVal(mscalepnl::XMAX, 20.0);
  EXPECT_EQ(Commit(mscalepnl::OK), 0);
  EXPECT_FALSE(IsPanelShown(Panel::MSCALEPNL));
  EXPECT_EQ(GraphOf(sasw::DISPLAY_A).xAxis.min, 20.0);
  EXPECT_EQ(GraphOf(sasw::DISPLAY_A).xAxis.max, 80.0);
  EXPECT_EQ(GetCtrlVal(sasw::AUTOSCALE_X), 0) << "one flag with the page";
  EXPECT_NE(GraphOf(sasw::DISPLAY_B).xAxis.max, 80.0) << "trace B has its own";
  SetCtrlVal(sasw::AUTOSCALE_X, 1);
  Commit(sasw::AUTOSCALE_X);
  EXPECT_EQ(GraphOf(sasw::DISPLAY_A).xAxis.max, 500.0);
}

TEST_F(AxisDialogs, DisplaysOverTimeHaveLimitsOfTheirOwn) {
  Commit(sasw::ADJUSTSCALE);
  SetCtrlVal(mscalepnl::AUTOSCALE_X, 0);
  SetCtrlVal(mscalepnl::XMIN, 20.0);
  SetCtrlVal(mscalepnl::XMAX, 80.0);
  Commit(mscalepnl::OK);
  SetCtrlVal(sasw::DISPATYPE, 9);
  Commit(sasw::DISPATYPE);
  EXPECT_LT(GraphOf(sasw::DISPLAY_A).xAxis.max, 20.0) << "equal limits: those of the curve, in seconds";
  SetCtrlVal(sasw::DISPATYPE, 4);
  Commit(sasw::DISPATYPE);
  EXPECT_EQ(GraphOf(sasw::DISPLAY_A).xAxis.max, 80.0);
}

TEST_F(AxisDialogs, ADoubleClickMeansItsGraphWhateverIsSelected) {
  SendGraphEvent(sasw::DISPLAY_B, Event::LeftDoubleClick, {.x = 1, .y = 1, .button = MouseButton::Left});
  EXPECT_TRUE(IsPanelShown(Panel::MSCALEPNL));
  SetCtrlVal(mscalepnl::AUTOSCALE_Y, 0);
  SetCtrlVal(mscalepnl::YMIN, -3.0);
  SetCtrlVal(mscalepnl::YMAX, 3.0);
  Commit(mscalepnl::OK);
  EXPECT_EQ(session.display[1].autoScaleY, 0);
  EXPECT_EQ(session.display[0].autoScaleY, 1);
  EXPECT_EQ(GetCtrlVal(sasw::AUTOSCALE_Y), 1) << "the page shows trace A";
}

TEST_F(AxisDialogs, BothTracesAreSetWhenBothAreSelectedAndEqualLimitsAreAutomatic) {
  SetCtrlVal(sasw::TRACE_ONOFF, 2);
  Commit(mainmenu::ADJUST_SCALE);
  SetCtrlVal(mscalepnl::AUTOSCALE_Y, 0);
  SetCtrlVal(mscalepnl::YMIN, -3.0);
  SetCtrlVal(mscalepnl::YMAX, 3.0);
  SetCtrlVal(mscalepnl::AUTOSCALE_X, 0);
  SetCtrlVal(mscalepnl::XMIN, 4.0);
  SetCtrlVal(mscalepnl::XMAX, 4.0);
  Commit(mscalepnl::OK);
  for (const DisplayRecord& record : session.display) {
    EXPECT_EQ(record.autoScaleY, 0);
    EXPECT_EQ(record.autoScaleX, 1);
  }
  EXPECT_EQ(Commit(measpanel::ADJUSTSCALE), 0);
  EXPECT_EQ(Commit(mscalepnl::CANCEL), 0);
  EXPECT_FALSE(IsPanelShown(Panel::MSCALEPNL));
}

TEST_F(AxisDialogs, LogarithmicOrdinatesAndVoltUnitsShowOnAmplitudesOnly) {
  const auto draw = [](int type, int log, int unit) -> const GraphModel& {
    SetCtrlVal(sasw::DISPATYPE, type);
    SetCtrlVal(sasw::LOG_LINEAR, log);
    SetCtrlVal(sasw::VOLT_UNIT, unit);
    Commit(sasw::LOG_LINEAR);
    return GraphOf(sasw::DISPLAY_A);
  };
  for (const int type : {2, 4, 5, 7}) EXPECT_TRUE(draw(type, 1, 0).yAxis.logarithmic) << type;
  for (const int type : {0, 1, 3, 6, 8, 9}) EXPECT_FALSE(draw(type, 1, 0).yAxis.logarithmic) << type;
  const GraphModel& log = draw(4, 1, 0);
  ASSERT_FALSE(log.plots.empty());
  for (const double y : log.plots[0].y) EXPECT_FALSE(y <= 0.0);
  EXPECT_GT(LimitsInForce(log).y.min, 0.0);

  const std::vector<double> rms = draw(2, 0, 0).plots.at(0).y;
  EXPECT_EQ(GraphOf(sasw::DISPLAY_A).yAxis.unit, "Vrms");
  const std::vector<double> peak = draw(2, 0, 1).plots.at(0).y;
  EXPECT_EQ(GraphOf(sasw::DISPLAY_A).yAxis.unit, "Vpk");
  for (std::size_t i = 0; i < rms.size(); ++i) EXPECT_DOUBLE_EQ(peak[i], std::sqrt(2.0) * rms[i]);
  EXPECT_EQ(draw(4, 0, 1).yAxis.unit, "") << "a ratio has no unit";
}

}  // namespace
}  // namespace sondera
