// The curves of the results page: which are drawn, with which quantities, markers and colours.
#include "plot/results_plot.h"

#include <gmock/gmock.h>

#include "plot/disp_curv_plot.h"
#include "records/measdb.h"
#include "runtime/catalogue/exdthd.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ResultsPlot : public RunTest {
 protected:
  void SetUp() override {
    RunTest::SetUp();
    m = AddMeasurement({.measID = "line 1", .nChannels = 4, .nLines = 16});
    for (int c = 1; c <= 2; ++c) {
      PMeasInfo& pair = *MeasDB.pMeasList.append();
      SetupPairMeasArrays(pair, 16);
      pair.key = m.key;
      pair.dspChan = c;
      pair.included = 1;
      pair.nDispPoints = 2;
      for (std::size_t i = 0; i < 2; ++i) {
        pair.dispFreq[i] = 10.0 * static_cast<double>(i + 1);
        pair.dispVel[i] = 100.0 * c;
        pair.dispWlen[i] = pair.dispVel[i] / pair.dispFreq[i];
      }
      AddRepresentative(MeasDB.aDispList, m.key, c);
    }
    AddRepresentative(MeasDB.gDispList, 0, 1).label = "Global";
    SetGlobalCurve(3);
  }
  static DispInfo& AddRepresentative(RecordList<DispInfo>& list, int key, int dspChan) {
    DispInfo& d = *list.append();
    SetupDispArrays(d, 2);
    d.key = key;
    d.dspChan = dspChan;
    d.valid = 1;
    for (int i = 1; i <= 2; ++i) {
      d.freq[i] = 5.0 * i;
      d.vel[i] = 300.0;
      d.wlen[i] = d.vel[i] / d.freq[i];
    }
    return d;
  }
  void Draw(int exd, int thd, int array = theoretical::kAll) {
    GiveLooks(looks, TheoreticalCount(TheoDispInfo), nextMarker);
    PlotResults(exdthd::CURVES, TheoDispInfo, {exd, thd, array}, looks, axes);
  }
  static std::vector<std::string> Legends() {
    std::vector<std::string> legends;
    for (const PlotModel& p : Graph().plots) legends.push_back(p.legend);
    return legends;
  }
  static const GraphModel& Graph() { return GraphOf(exdthd::CURVES); }

  TestMeasurement m;
  AxisRecord axes;
  std::vector<CurveLook> looks;
  int nextMarker = 0;
};

TEST_F(ResultsPlot, ChoicesDecideWhatIsDrawn) {
  using namespace experimental;
  Draw(kNotDisplayed, theoretical::kNotDisplayed);
  EXPECT_THAT(Legends(), IsEmpty());
  Draw(kComposite, theoretical::kNotDisplayed);
  EXPECT_THAT(Legends(), ElementsAre("line 1[1:2]", "line 1[1:3]"));
  Draw(kCompositeGlobal, theoretical::kAll);
  EXPECT_THAT(Legends(), ElementsAre("line 1[1:2]", "line 1[1:3]", "Global", "Theoretical"));
  EXPECT_EQ(Graph().plots[0].color, 0xC0C0C0) << "behind the representative curve";
  EXPECT_EQ(Graph().plots[0].style, PlotStyle::Scatter);
  EXPECT_EQ(Graph().plots[3].style, PlotStyle::ConnectedPoints);
  Draw(kCompositeArray, theoretical::kNotDisplayed);
  EXPECT_EQ(Legends().size(), 4u);
  Draw(kGlobal, theoretical::kNotDisplayed);
  EXPECT_THAT(Legends(), ElementsAre("Global"));
  Draw(kArray, theoretical::kAll, 1);
  EXPECT_THAT(Legends(), ElementsAre("line 1[1:3]", "Theoretical")) << "the second included pair";
  Draw(kArray, theoretical::kNotDisplayed, 7);
  EXPECT_THAT(Legends(), IsEmpty());
}

TEST_F(ResultsPlot, TheoreticalPointsAreThoseOfTheRunWithoutTheMissingOnes) {
  TheoDispInfo.globalVel = {150.0, 0.0, 170.0};
  TheoDispInfo.globalFreq = {30.0, 0.0, 10.0};
  TheoDispInfo.globalWlen = {5.0, 10.0, 17.0};
  Draw(experimental::kNotDisplayed, theoretical::kAll);
  ASSERT_EQ(Graph().plots.size(), 1u);
  EXPECT_THAT(Graph().plots[0].x, ElementsAre(5.0, 17.0));
  EXPECT_THAT(Graph().plots[0].y, ElementsAre(150.0, 170.0));
  TheoDispInfo.nDispPointsG = 1 << 30;
  Draw(experimental::kNotDisplayed, theoretical::kAll);
  EXPECT_EQ(Graph().plots[0].x.size(), 2u) << "a count beyond the columns";
}

TEST_F(ResultsPlot, ArrayCurvesAreColumnsOfTheTableAndCanBeChosenOneByOne) {
  SetArrayCurves(2, 2, {100.0, 200.0, 110.0, 0.0});
  for (int p = 0; p < 2; ++p)
    for (int c = 0; c < 2; ++c) {
      const auto at = static_cast<std::size_t>(2 * p + c);
      TheoDispInfo.wlen[at] = TheoDispInfo.vel[at] / TheoDispInfo.freq[static_cast<std::size_t>(p)];
    }
  TheoDispInfo.pairRec1 = {1, 2};
  TheoDispInfo.pairRec2 = {2, 4};
  axes.xType = 1;
  Draw(experimental::kNotDisplayed, theoretical::kAll);
  EXPECT_THAT(Legends(), ElementsAre("Theoretical [1:2]", "Theoretical [2:4]"));
  EXPECT_THAT(Graph().plots[0].y, ElementsAre(100.0, 110.0));
  EXPECT_THAT(Graph().plots[0].x, ElementsAre(5.0, 10.0)) << "frequency, as the axis record asks";
  EXPECT_THAT(Graph().plots[1].y, ElementsAre(200.0));
  Draw(experimental::kNotDisplayed, 1);
  EXPECT_THAT(Legends(), ElementsAre("Theoretical [2:4]"));
  Draw(experimental::kNotDisplayed, theoretical::kAll, 0);
  EXPECT_THAT(Legends(), ElementsAre("Theoretical [1:2]"));
}

TEST_F(ResultsPlot, LooksCountMarkersToEighteenAndKeepWhatIsThere) {
  GiveLooks(looks, 20, nextMarker);
  EXPECT_EQ(looks[18].marker, 18);
  EXPECT_EQ(looks[19].marker, 0) << "after 18 comes 0";
  EXPECT_EQ(looks[19].color, 1);
  EXPECT_EQ(nextMarker, 1);
  looks[0] = {7, 9};
  GiveLooks(looks, 1, nextMarker);
  GiveLooks(looks, 2, nextMarker);
  EXPECT_EQ(looks[0].marker, 7);
  EXPECT_EQ(looks[1].marker, 1) << "the counter goes on";
}

TEST_F(ResultsPlot, AxesFollowWhatIsDrawnAndManualOnesStay) {
  Draw(experimental::kComposite, theoretical::kNotDisplayed);
  EXPECT_TRUE(Graph().xAxis.logarithmic);
  EXPECT_FALSE(Graph().yAxis.logarithmic);
  EXPECT_EQ(Graph().xAxis.label, "Wavelength");
  EXPECT_EQ(Graph().yAxis.min, 0.0);
  EXPECT_EQ(Graph().yAxis.max, 300.0) << "1.2 times 200 on the next hundred";
  Draw(experimental::kGlobal, theoretical::kNotDisplayed);
  EXPECT_EQ(Graph().yAxis.max, 400.0) << "of 300";
  axes.yAutoScale = 0;
  axes.range[0] = {50.0, 250.0};
  Draw(experimental::kGlobal, theoretical::kNotDisplayed);
  EXPECT_EQ(Graph().yAxis.min, 50.0);
  EXPECT_EQ(Graph().yAxis.max, 250.0);
}

class ResidualsPlot : public ResultsPlot {
 protected:
  /// One measured curve at 10, 20 and 30 Hz; the computed one has 10, 30 and 40 Hz.
  void SetUp() override {
    ResultsPlot::SetUp();
    TheoDispInfo.nDispPointsG = 3;
    TheoDispInfo.globalFreq = {10, 30, 40};
    TheoDispInfo.globalVel = {210, 195, 150};
    TheoDispInfo.globalWlen = {21, 6.5, 3.75};
    Draw(experimental::kNotDisplayed, theoretical::kAll);
  }
  void DrawResiduals(int thd = theoretical::kAll) {
    PlotResiduals(exdthd::RESIDUALS, exdthd::CURVES, TheoDispInfo,
                  {experimental::kNotDisplayed, thd, theoretical::kAll}, looks, measured, axes);
  }
  std::vector<ReportCurve> measured = {{"", {200, 180, 200}, {10, 20, 30}, {20, 9, 200.0 / 30}}};
  const GraphModel& Shown = GraphOf(exdthd::RESIDUALS);
};

TEST_F(ResidualsPlot, AreComputedLessMeasuredAtTheFrequenciesOfBoth) {
  DrawResiduals();
  ASSERT_EQ(Shown.plots.size(), 2u);
  EXPECT_THAT(Shown.plots[0].y, ElementsAre(0, 0)) << "the line at 0";
  EXPECT_THAT(Shown.plots[1].y, ElementsAre(10, -5));
  EXPECT_THAT(Shown.plots[1].x, ElementsAre(20, 200.0 / 30)) << "wavelengths that were measured";
  EXPECT_EQ(Shown.plots[1].style, PlotStyle::Scatter);
  EXPECT_EQ(Shown.yAxis.max, -Shown.yAxis.min);
  EXPECT_GE(Shown.yAxis.max, 11.0);
  EXPECT_EQ(Shown.xAxis.label, GraphOf(exdthd::CURVES).xAxis.label);
  EXPECT_EQ(Shown.xAxis.logarithmic, GraphOf(exdthd::CURVES).xAxis.logarithmic);
  const AxisLimits above = LimitsInForce(GraphOf(exdthd::CURVES)).x;
  EXPECT_EQ(LimitsInForce(Shown).x.min, above.min);
  EXPECT_EQ(LimitsInForce(Shown).x.max, above.max);
}

TEST_F(ResidualsPlot, FollowTheAbscissaAndTheChoice) {
  axes.xType = 1;
  Draw(experimental::kNotDisplayed, theoretical::kAll);
  DrawResiduals();
  ASSERT_EQ(Shown.plots.size(), 2u);
  EXPECT_THAT(Shown.plots[1].x, ElementsAre(10, 30)) << "frequencies";
  axes.xType = 0;
  DrawResiduals();
  EXPECT_THAT(Shown.plots, IsEmpty()) << "nothing to see over velocities";
  axes.xType = 2;
  DrawResiduals(theoretical::kNotDisplayed);
  EXPECT_THAT(Shown.plots, IsEmpty());
  measured.clear();
  DrawResiduals();
  EXPECT_THAT(Shown.plots, IsEmpty()) << "nothing was measured";
  measured = {{"", {100}, {77}, {1}}};
  DrawResiduals();
  EXPECT_THAT(Shown.plots, IsEmpty()) << "no frequency in common";
  DeleteGraphPlot(exdthd::CURVES);
  SetAxisAuto(exdthd::CURVES, true);
  DrawResiduals();
  EXPECT_FALSE(LimitsInForce(Shown).x.known) << "no numbers below an empty graph";
}

}  // namespace
}  // namespace sondera::testing
