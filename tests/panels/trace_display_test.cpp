#include "panels/trace_display.h"

#include <algorithm>

#include "panels/sasw_pair.h"
#include "panels/sasw_traces.h"
#include "plot/gabor_plot.h"
#include "records/session.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/redraw.h"
#include "signal/gabor.h"
#include "support/pair_fixture.h"

namespace sondera::testing {
namespace {

class GaborDisplay : public PairTest {
 protected:
  PMeasInfo& PairOnA() {
    PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); });
    SetCtrlVal(sasw::DISPATYPE, 10);
    SetCtrlVal(measpanel::DISPATYPE, 10);
    return pair;
  }
  static const GraphModel& GraphA() { return GraphOf(sasw::DISPLAY_A); }
};

TEST_F(GaborDisplay, ShowsTheScaledMapWithFrequencyAlongXAndTimeAlongY) {
  PMeasInfo& pair = PairOnA();
  pair.freqDiv = 20;
  pair.timeDiv = 30;
  pair.cntThreshold = 60.0;
  CalcGaborMaps(Panel::SASW);
  EXPECT_EQ(DrawTraces(1), 0);
  const auto& image = GraphA().intensity;
  ASSERT_TRUE(image);
  EXPECT_EQ(image->columns, 20);
  EXPECT_EQ(image->rows, 30);
  EXPECT_EQ(image->xMin, 0.0);
  EXPECT_EQ(image->xMax, 500.0);
  EXPECT_EQ(image->yMin, 0.0);
  EXPECT_EQ(image->yMax, pair.finalTime);
  ASSERT_EQ(image->z.size(), 600u);
  EXPECT_GE(*std::min_element(image->z.begin(), image->z.end()), 60.0);
  EXPECT_NEAR(*std::max_element(image->z.begin(), image->z.end()), 100.0, 1e-9);
  // The delay of 0.03 s lies at the same place of each column.
  const int row = static_cast<int>(0.03 / pair.finalTime * 29 + 0.5);
  for (int column = 2; column < 18; ++column) {
    const auto first = image->z.begin() + column * 30;
    EXPECT_EQ(std::max_element(first, first + 30) - first, row) << column;
  }
  ASSERT_EQ(image->colorMap.size(), 4u);
  EXPECT_EQ(image->colorMap.front().level, 60.0);
  EXPECT_EQ(GraphA().xAxis.max, 500.0);
  EXPECT_EQ(GraphA().xAxis.label, "Frequency");
  EXPECT_EQ(GraphA().xAxis.unit, "Hz");
  EXPECT_EQ(GraphA().yAxis.label, "Time");
  EXPECT_EQ(GraphA().yAxis.unit, "sec");
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(GaborDisplay, ShowsTheMapOfThePhaseInUse) {
  PMeasInfo& pair = PairOnA();
  pair.gaborMap(0).fill(-10.0);
  pair.gaborMap(2)[3 * kGaborDivisions + 7] = 20.0;
  pair.freqDiv = pair.timeDiv = 50;
  pair.phaseOption = 2;
  EXPECT_EQ(GaborImage(pair).z[3 * 50 + 7], 100.0);
  pair.phaseOption = 0;
  EXPECT_THAT(GaborImage(pair).z, ::testing::Each(75.0)) << "flat";
}

TEST_F(GaborDisplay, PairWithoutMapsIsFlat) {
  PMeasInfo& pair = PairOnA();
  EXPECT_EQ(DrawTraces(1), 0);
  ASSERT_TRUE(GraphA().intensity);
  EXPECT_THAT(GraphA().intensity->z, ::testing::Each(75.0));
  EXPECT_FALSE(pair.gabor) << "looking makes no maps";
  pair.timeDiv = 0;
  pair.freqDiv = 900;
  EXPECT_EQ(DrawTraces(1), 0);
  EXPECT_TRUE(GraphA().intensity->z.empty());
}

TEST_F(GaborDisplay, WithoutAPairRecordItAsksForTheSpectrumOnceAndShowsZeros) {
  LayTransfer([](double f) { return Delay(f, 0.03); });
  SetCtrlVal(sasw::DISPATYPE, 10);
  RedrawHandlers handlers;
  handlers.doPlotting = DrawTraces;
  InstallRedrawHandlers(handlers);
  EXPECT_EQ(DisplayATypeCallback(Panel::SASW, &sasw::DISPATYPE, Event::Commit, 0), -2);
  InstallRedrawHandlers({});
  EXPECT_EQ(OnlyMessage(), "Calcualte Gabor spectrum, first.");
  EXPECT_EQ(frontEnd.messageTitles.front(), session.appTitle);
  EXPECT_FALSE(GraphA().intensity);
  ASSERT_EQ(GraphA().plots.size(), 1u);
  EXPECT_THAT(GraphA().plots[0].y, ::testing::Each(0.0));
  MeasDB.pMeasList.clear();
  EXPECT_EQ(DrawTraces(1), -2);
  EXPECT_TRUE(MeasDB.pMeasList.empty()) << "looking makes no record";
  EXPECT_EQ(frontEnd.messages.size(), 1u) << "a redraw says nothing";
}

TEST_F(GaborDisplay, OnTheMeasurementPageItAsksForTheMaskingModeOnceAndShowsZeros) {
  PairOnA();
  CalcGaborMaps(Panel::SASW);
  EXPECT_EQ(DrawTraces(0), 0);
  EXPECT_TRUE(frontEnd.messages.empty()) << "a redraw says nothing";
  DisplayATypeCallback(Panel::MEASPANEL, &measpanel::DISPATYPE, Event::Commit, 0);
  EXPECT_EQ(OnlyMessage(), "Turn on the masking mode, first.");
  const GraphModel& graph = GraphOf(measpanel::DISPLAY_A);
  EXPECT_FALSE(graph.intensity);
  ASSERT_EQ(graph.plots.size(), 1u);
  ASSERT_EQ(graph.plots[0].y.size(), 512u);
  EXPECT_THAT(graph.plots[0].y, ::testing::Each(0.0));
  EXPECT_EQ(graph.plots[0].x.back(), 511 * m.hw->deltaF);
}

TEST_F(GaborDisplay, GivesWayToTheNextDisplay) {
  PairOnA();
  CalcGaborMaps(Panel::SASW);
  DrawTraces(1);
  SetCtrlVal(sasw::DISPATYPE, 4);
  EXPECT_EQ(DrawTraces(1), 0);
  EXPECT_FALSE(GraphA().intensity);
  EXPECT_FALSE(GraphA().plots.empty());
}

}  // namespace
}  // namespace sondera::testing
