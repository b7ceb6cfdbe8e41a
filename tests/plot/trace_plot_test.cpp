// A trace without its page: what a view asks for is on the graph, over the right axis.
#include "plot/trace_plot.h"

#include <gmock/gmock.h>

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

TEST_F(TraceOnAGraph, AxisThatDoesNotFollowTheCurvesKeepsItsRange) {
  SetAxisRange(sasw::DISPLAY_A, true, 2.0, 7.0);
  TraceView view = View(DisplayType::TransferPhase);
  view.autoScaleX = false;
  PlotTrace(view);
  EXPECT_EQ(Graph().xAxis.min, 2.0);
  EXPECT_EQ(Graph().xAxis.max, 7.0);
  view.autoScaleX = true;
  ScaleTraceAxes(view);
  EXPECT_EQ(Graph().xAxis.min, 0.0);
  EXPECT_EQ(Graph().xAxis.max, 15.0);
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
