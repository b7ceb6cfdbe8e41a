// A trace without its page: the requested data are on the graph, over the right axis.
#include "plot/trace_plot.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

#include "plot/gabor_plot.h"
#include "runtime/catalogue/sasw.h"
#include "support/session_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;

/// 16 lines of 1 Hz; the three phases of the pair are 10, 20 and 30 degrees times the line.
class TraceOnAGraph : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    m = AddMeasurement({.nLines = 16, .deltaT = 1.0 / 32.0});
    m.hw->triggerDelay = 0.0;
    SetupPairMeasArrays(pair, 16);
    for (std::size_t i = 0; i < 32; ++i) {
      pair.hPhase[i] = 10.0 * static_cast<double>(i);
      pair.enPhase[i] = 20.0 * static_cast<double>(i);
      pair.bbPhase[i] = 30.0 * static_cast<double>(i);
    }
  }
  TraceView View(DisplayType type) {
    TraceView view{sasw::DISPLAY_A, type, "Name of the Display"};
    GetInfoFromKey(m.key, view.records);
    view.dspChan = 1;
    view.pair = &pair;
    return view;
  }
  static std::vector<std::string> Legends() {
    std::vector<std::string> legends;
    for (const PlotModel& plot : Graph().plots) legends.push_back(plot.legend);
    return legends;
  }
  static const GraphModel& Graph() { return GraphOf(sasw::DISPLAY_A); }

  TestMeasurement m;
  PMeasInfo pair;
};

TEST_F(TraceOnAGraph, CurvesWhoseBoxIsOnAreDrawnAndWithNoneTheOneInUse) {
  TraceView view = View(DisplayType::TransferPhase);
  view.boxes = {1, 0, 1};
  PlotTrace(view);
  EXPECT_THAT(Legends(), ElementsAre("Original", "Backbone"));
  ASSERT_EQ(Graph().plots[1].y.size(), 16u);
  EXPECT_EQ(Graph().plots[1].y[3], 90.0);
  EXPECT_EQ(Graph().plots[1].x[3], 3.0);

  DeleteGraphPlot(sasw::DISPLAY_A);
  pair.phaseOption = kEnhancedPhase;
  PlotTrace(View(DisplayType::TransferPhase));
  EXPECT_THAT(Legends(), ElementsAre("Enhanced"));
}

TEST_F(TraceOnAGraph, AxesSayWhatTheyShow) {
  PlotTrace(View(DisplayType::TransferPhase));
  EXPECT_EQ(Graph().xAxis.label, "Frequency");
  EXPECT_EQ(Graph().xAxis.unit, "Hz");
  EXPECT_EQ(Graph().yAxis.label, "Phase");
  EXPECT_EQ(Graph().yAxis.unit, "degrees");
  DeleteGraphPlot(sasw::DISPLAY_A);
  PlotTrace(View(DisplayType::ImpulseResponse));
  EXPECT_EQ(Graph().xAxis.label, "Time");
  EXPECT_EQ(Graph().xAxis.unit, "sec");
  EXPECT_EQ(Graph().yAxis.label, "Name of the Display");
  EXPECT_EQ(Graph().plots.front().x.size(), 32u) << "a time record has twice the lines";
}

TEST_F(TraceOnAGraph, AxisThatDoesNotFollowTheCurvesHasTheLimitsOfTheView) {
  TraceLimits limits = {{2.0, 7.0}, {0.0, 0.0}};
  TraceView view = View(DisplayType::TransferPhase);
  view.limits = &limits;
  view.autoScaleX = view.autoScaleY = false;
  PlotTrace(view);
  EXPECT_EQ(Graph().xAxis.min, 2.0);
  EXPECT_EQ(Graph().xAxis.max, 7.0);
  EXPECT_EQ(Graph().yAxis.max, 160.0) << "equal limits: those of the curve, 0 to 150";
  EXPECT_EQ(limits.y.max, 160.0) << "and from now on";
  view.autoScaleX = true;
  ScaleTraceAxes(view);
  EXPECT_EQ(Graph().xAxis.min, 0.0);
  EXPECT_EQ(Graph().xAxis.max, 15.0);
  EXPECT_EQ(limits.x.max, 15.0) << "limits in force are those to begin from by hand";
}

TEST_F(TraceOnAGraph, CurvesWithoutANumberLeaveTheRangeAndOneValueGetsOneOnEitherSide) {
  SetAxisRange(sasw::DISPLAY_A, false, -3.0, 3.0);
  std::fill(pair.hAmp.begin(), pair.hAmp.end(), NAN);
  PlotTrace(View(DisplayType::TransferAmplitude));
  EXPECT_EQ(Graph().yAxis.min, -3.0);
  EXPECT_EQ(Graph().yAxis.max, 3.0);
  DeleteGraphPlot(sasw::DISPLAY_A);
  std::fill(pair.hAmp.begin(), pair.hAmp.end(), 0.5);
  pair.hAmp[12] = INFINITY;
  PlotTrace(View(DisplayType::TransferAmplitude));
  EXPECT_EQ(Graph().yAxis.min, -0.5);
  EXPECT_EQ(Graph().yAxis.max, 1.5);
}

TEST_F(TraceOnAGraph, LogarithmicOrdinatesLeaveOutWhatHasNoLogarithm) {
  for (std::size_t i = 0; i < pair.hAmp.size(); ++i) pair.hAmp[i] = static_cast<double>(i) - 12.0;
  TraceView view = View(DisplayType::TransferAmplitude);
  view.logarithmic = true;
  PlotTrace(view);
  EXPECT_TRUE(Graph().yAxis.logarithmic);
  const std::vector<double>& y = Graph().plots.at(0).y;
  for (std::size_t i = 0; i < y.size(); ++i) EXPECT_EQ(std::isfinite(y[i]), i > 12) << i;
  EXPECT_EQ(Graph().yAxis.min, 1.0);
  EXPECT_EQ(Graph().yAxis.max, 4.0) << "above 3";
  DeleteGraphPlot(sasw::DISPLAY_A);
  std::fill(pair.hAmp.begin(), pair.hAmp.end(), 0.0);
  PlotTrace(view);
  EXPECT_GT(LimitsInForce(Graph()).y.min, 0.0) << "with nothing to show there are limits still";
  view.type = DisplayType::TransferPhase;
  PlotTrace(view);
  EXPECT_FALSE(Graph().yAxis.logarithmic) << "a phase stays linear";
}

TEST_F(TraceOnAGraph, ThreePhasesDifferInTheirDash) {
  TraceView view = View(DisplayType::TransferPhase);
  view.boxes = {1, 1, 1};
  PlotTrace(view);
  ASSERT_EQ(Graph().plots.size(), 3u);
  EXPECT_EQ(Graph().plots[0].dash, LineDash::Solid);
  EXPECT_EQ(Graph().plots[1].dash, LineDash::Dashed);
  EXPECT_EQ(Graph().plots[2].dash, LineDash::Dotted);
}

TEST_F(TraceOnAGraph, AMapAfterALogarithmicDisplayHasPlainAxes) {
  SetAxisLogarithmic(sasw::DISPLAY_A, false, true);
  SetAxisPrefix(sasw::DISPLAY_A, true, "k", 1000.0);
  pair.finalFreq = 16.0;
  pair.finalTime = 0.5;
  PlotGaborMap(sasw::DISPLAY_A, pair);
  EXPECT_FALSE(Graph().yAxis.logarithmic);
  EXPECT_EQ(Graph().xAxis.factor, 1.0);
  EXPECT_EQ(Graph().xAxis.max, 16.0);
}

TEST_F(TraceOnAGraph, WithoutAPairThereIsNoCurveOfIt) {
  TraceView view = View(DisplayType::TransferAmplitude);
  view.pair = nullptr;
  PlotTrace(view);
  EXPECT_TRUE(Graph().plots.empty());
}

TEST_F(TraceOnAGraph, GaborColoursStandAtTheThresholdAndItsThirds) {
  const std::vector<ColorLevel> map = MakeGaborColorMap(70.0);
  ASSERT_EQ(map.size(), 4u);
  EXPECT_EQ(map[0].level, 70.0);
  EXPECT_EQ(map[1].level, 80.0);
  EXPECT_EQ(map[2].level, 90.0);
  EXPECT_EQ(map[3].level, 100.0);
}

}  // namespace
}  // namespace sondera::testing
