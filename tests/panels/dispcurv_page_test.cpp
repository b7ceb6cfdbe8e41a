// The dispersion page: lists, colours, which curves are plotted, and the automatic ranges of its axes.
#include "panels/dispcurv_page.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <set>
#include <vector>

#include "plot/disp_curv_plot.h"
#include "records/session.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/graphs.h"
#include "support/session_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const GraphModel& Graph() {
  return GraphOf(dispcurv::DISPGRAPH);
}

std::vector<std::string> Legends() {
  std::vector<std::string> legends;
  for (const PlotModel& p : Graph().plots) legends.push_back(p.legend);
  return legends;
}

std::vector<int> Colors() {
  std::vector<int> colors;
  for (const PlotModel& p : Graph().plots) colors.push_back(p.color);
  return colors;
}

class DispCurvPage : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    m = AddMeasurement({.measID = "line 1", .nChannels = 30, .nLines = 16});
    session.curProjID = m.projID;
  }

  /// A pair with a curve of frequencies 10, 20, ... and these velocities.
  PMeasInfo& AddCurve(int refChan, int dspChan, const std::vector<double>& velocities, int included = 1) {
    PMeasInfo& pair = *MeasDB.pMeasList.append();
    SetupPairMeasArrays(pair, 16);
    pair.key = m.key;
    pair.refChan = refChan;
    pair.dspChan = dspChan;
    pair.included = included;
    pair.nDispPoints = static_cast<int>(velocities.size());
    for (std::size_t i = 0; i < velocities.size(); ++i) {
      pair.dispVel[i] = velocities[i];
      pair.dispFreq[i] = 10.0 * static_cast<double>(i + 1);
      pair.dispWlen[i] = pair.dispVel[i] / pair.dispFreq[i];
    }
    return pair;
  }

  static DispInfo& AddRepresentative(RecordList<DispInfo>& list, int key, int refChan, int dspChan, int n) {
    DispInfo& d = *list.append();
    SetupDispArrays(d, n);
    d.key = key;
    d.refChan = refChan;
    d.dspChan = dspChan;
    d.valid = 1;
    for (int i = 1; i <= n; ++i) {
      d.vel[i] = 100.0 + i;
      d.freq[i] = 5.0 * i;
      d.wlen[i] = d.vel[i] / d.freq[i];
    }
    return d;
  }

  TestMeasurement m;
};

TEST_F(DispCurvPage, SortsTheCurvesIntoTheirLists) {
  AddCurve(0, 1, {200.0, 180.0});
  AddCurve(0, 2, {200.0, 180.0}, 0);
  AddCurve(1, 2, {});
  AddCurve(1, 3, {}, 0);
  AddCurve(2, 3, {150.0});
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  EXPECT_THAT(LabelsOf(dispcurv::LIST_INCLUDED), ElementsAre("line 1[1:2]", "line 1[3:4]"));
  EXPECT_THAT(LabelsOf(dispcurv::LIST_EXCLUDED), ElementsAre("line 1[1:3]", "line 1[2:4]"));
  EXPECT_THAT(Legends(), ElementsAre("line 1[1:2]", "line 1[3:4]"));
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  EXPECT_EQ(GetNumListItems(dispcurv::LIST_INCLUDED), 2) << "a second draw starts afresh";
  EXPECT_EQ(Graph().plots.size(), 2u);
}

TEST_F(DispCurvPage, OtherFlagsGiveTheLabelsOfContinuousWaves) {
  AddCurve(0, 1, {200.0});
  AddCurve(0, 2, {200.0}, 0);
  EXPECT_EQ(DrawDispCurvPage(0), 0);
  EXPECT_THAT(LabelsOf(dispcurv::LIST_INCLUDED), ElementsAre("CSW-line 1[1:2]"));
  EXPECT_THAT(LabelsOf(dispcurv::LIST_EXCLUDED), ElementsAre("CSW-line 1[1:3]"));
}

TEST_F(DispCurvPage, PairsWithoutAPointLeaveThePageAsItWas) {
  PMeasInfo& pair = AddCurve(0, 1, {200.0, 180.0});
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  pair.included = 0;
  const int revision = Graph().revision;
  EXPECT_EQ(DrawDispCurvPage(1), -1);
  EXPECT_EQ(Graph().revision, revision);
  EXPECT_THAT(LabelsOf(dispcurv::LIST_INCLUDED), ElementsAre("line 1[1:2]"));
}

TEST_F(DispCurvPage, WithoutPairsThePageIsEmptied) {
  AddCurve(0, 1, {200.0});
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  FreePMeasInfoList();
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  EXPECT_THAT(LabelsOf(dispcurv::LIST_INCLUDED), IsEmpty());
  EXPECT_TRUE(Graph().plots.empty());
  EXPECT_TRUE(Graph().xAxis.autoScale);
}

TEST_F(DispCurvPage, ColoursAreHandedOutOnceAndInOrder) {
  PMeasInfo& a = AddCurve(0, 1, {200.0});
  PMeasInfo& b = AddCurve(0, 2, {200.0}, 0);
  PMeasInfo& c = AddCurve(0, 3, {200.0});
  c.color = 7;
  PMeasInfo& d = AddCurve(0, 4, {200.0});
  PMeasInfo& e = AddCurve(0, 5, {});
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  EXPECT_EQ(a.color, 0);
  EXPECT_EQ(b.color, -1) << "not on display";
  EXPECT_EQ(c.color, 7);
  EXPECT_EQ(d.color, 1);
  EXPECT_EQ(e.color, -1) << "no curve";
  EXPECT_THAT(Colors(), ElementsAre(0xFF0000, 0x80, 0xFF00));
  b.included = 1;
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  EXPECT_EQ(a.color, 0);
  EXPECT_EQ(b.color, 2) << "the counter goes on over draws";
}

TEST_F(DispCurvPage, ColourCounterStartsAgainAtADrawOnceItIsAbove18) {
  for (int i = 1; i <= 21; ++i) AddCurve(0, i, {200.0});
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  EXPECT_EQ(MeasDB.pMeasList.at(21)->color, 20) << "not within a draw";
  EXPECT_EQ(Colors()[20], kCurveColors[2]) << "the table is used in turn";
  AddCurve(0, 22, {200.0});
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  EXPECT_EQ(MeasDB.pMeasList.at(22)->color, 0);
  session.nextCurveColor = 18;
  AddCurve(0, 23, {200.0});
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  EXPECT_EQ(MeasDB.pMeasList.at(23)->color, 18) << "18 itself is not above 18";
}

TEST_F(DispCurvPage, ColourTableIsThatOfTheRing) {
  EXPECT_THAT(kCurveColors,
              ElementsAre(0xFF0000, 0xFF00, 0xFF, 0xFFFF, 0xFF00FF, 0xFFFF00, 0x800000, 0x80, 0x8000, 0x8080,
                          0x800080, 0x808000, 0xC0C0C0, 0x808080, 0, 0xFFFFFF, 0xC0C0C0, 0xA0A0A0));
  EXPECT_EQ(GetNumListItems(dispcurv::COLOR), static_cast<int>(kCurveColors.size()));
  EXPECT_EQ(CurveColor(19), 0xFF00);
  EXPECT_EQ(CurveColor(-1), 0xA0A0A0);
}

TEST_F(DispCurvPage, MarkersTellCurvesApartWithoutColours) {
  PMeasInfo& chosen = AddCurve(0, 1, {200.0});
  chosen.marker = 9;
  AddCurve(0, 2, {200.0});
  PMeasInfo& third = AddCurve(0, 3, {200.0});
  for (int i = 4; i <= 19; ++i) AddCurve(0, i, {200.0});
  AddRepresentative(MeasDB.aDispList, m.key, 0, 3, 3);
  const auto markers = [](int type) {
    SetCtrlVal(dispcurv::DISPCURVTYPE, type);
    EXPECT_EQ(DrawDispCurvPage(1), 0);
    std::vector<int> drawn;
    for (const PlotModel& plot : Graph().plots) drawn.push_back(plot.marker);
    return drawn;
  };
  const std::vector<int> all = markers(0);
  ASSERT_EQ(all.size(), 19u);
  EXPECT_EQ(all[0], 9) << "the chosen one";
  EXPECT_EQ(all[1], 12);
  EXPECT_EQ(std::set<int>(all.begin(), all.end()).size(), 19u);
  EXPECT_EQ(third.marker, 12) << "the record keeps its own";
  EXPECT_EQ(markers(2), (std::vector<int>{all[2]})) << "the array curve has that of its pair";
  MeasDB.pMeasList.at(2)->included = 0;
  EXPECT_EQ(markers(0)[1], all[2]) << "the others keep theirs";
  AddCurve(0, 20, {200.0});
  const std::vector<int> more = markers(0);
  EXPECT_GE(*std::min_element(more.begin(), more.end()), 0);
  EXPECT_LE(*std::max_element(more.begin(), more.end()), 18);
}

TEST_F(DispCurvPage, CurveTypeDecidesWhatIsPlotted) {
  PMeasInfo& pair = AddCurve(0, 1, {200.0, 180.0});
  pair.color = 22;
  pair.marker = 5;
  AddCurve(0, 2, {200.0}, 0);
  AddRepresentative(MeasDB.gDispList, 0, 1, 1, 4).label = "Oysand";
  AddRepresentative(MeasDB.aDispList, m.key, 0, 1, 3);
  AddRepresentative(MeasDB.aDispList, m.key, 0, 2, 3);  // its pair is excluded
  const auto draw = [](int type) {
    SetCtrlVal(dispcurv::DISPCURVTYPE, type);
    EXPECT_EQ(DrawDispCurvPage(1), 0);
  };
  draw(0);
  EXPECT_THAT(Legends(), ElementsAre("line 1[1:2]"));
  EXPECT_THAT(Colors(), ElementsAre(0xFF00FF));
  EXPECT_EQ(Graph().plots[0].marker, 5);
  draw(1);
  EXPECT_THAT(Legends(), ElementsAre("Oysand"));
  EXPECT_THAT(Colors(), ElementsAre(0xFF));
  EXPECT_EQ(Graph().plots[0].marker, 12);
  EXPECT_EQ(Graph().plots[0].x.size(), 4u);
  draw(2);
  EXPECT_THAT(Legends(), ElementsAre("line 1[1:2]"));
  EXPECT_THAT(Colors(), ElementsAre(0xFF00FF)) << "the pair's colour modulo 18";
  EXPECT_EQ(Graph().plots[0].x.size(), 3u);
  draw(3);
  EXPECT_THAT(Legends(), ElementsAre("line 1[1:2]", "Oysand"));
  EXPECT_THAT(Colors(), ElementsAre(0xC0C0C0, 0xFF));
  draw(4);
  EXPECT_THAT(Legends(), ElementsAre("line 1[1:2]", "line 1[1:2]"));
  EXPECT_THAT(Colors(), ElementsAre(0xC0C0C0, 0xFF00FF));
  EXPECT_EQ(pair.color, 22) << "drawing in the background gives no new colour";
}

TEST_F(DispCurvPage, AxesShowTheQuantitiesOfTheAxisRecord) {
  AddCurve(0, 1, {200.0, 180.0});
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  EXPECT_EQ(Graph().xAxis.label, "Wavelength");
  EXPECT_TRUE(Graph().xAxis.logarithmic);
  EXPECT_EQ(Graph().yAxis.label, "Phase Velocity");
  EXPECT_FALSE(Graph().yAxis.logarithmic);
  EXPECT_THAT(Graph().plots[0].x, ElementsAre(20.0, 9.0));
  EXPECT_THAT(Graph().plots[0].y, ElementsAre(200.0, 180.0));
  session.dispAxis.xType = 1;
  session.dispAxis.xLinear = 1;
  session.dispAxis.yType = 2;
  session.dispAxis.yLinear = 0;
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  EXPECT_EQ(Graph().xAxis.label, "Frequency");
  EXPECT_FALSE(Graph().xAxis.logarithmic);
  EXPECT_EQ(Graph().yAxis.label, "Wavelength");
  EXPECT_TRUE(Graph().yAxis.logarithmic);
  EXPECT_THAT(Graph().plots[0].x, ElementsAre(10.0, 20.0));
  EXPECT_THAT(Graph().plots[0].y, ElementsAre(20.0, 9.0));
}

TEST_F(DispCurvPage, AutomaticRangesEndOnNiceNumbers) {
  AddCurve(0, 1, {230.0, 180.0, 0.0});  // wavelengths 23, 9, 0
  AddCurve(0, 2, {999.0}, 0);           // excluded: does not count
  AddRepresentative(MeasDB.gDispList, 0, 1, 1, 400);
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  // 23 * 1.2 = 27.6 above 9 / 1.2 = 7.5: the decade is 10
  EXPECT_EQ(Graph().xAxis.min, 7.0);
  EXPECT_EQ(Graph().xAxis.max, 30.0);
  EXPECT_FALSE(Graph().xAxis.autoScale);
  // 230 * 1.2 = 276 above 180 / 1.2 = 150: the decade is 100; a linear axis starts at 0
  EXPECT_EQ(Graph().yAxis.min, 0.0);
  EXPECT_EQ(Graph().yAxis.max, 300.0);
  EXPECT_EQ(session.dispAxis.range[2].max, 30.0);
  EXPECT_EQ(session.dispAxis.range[0].max, 300.0);
  EXPECT_EQ(session.dispAxis.range[1].max, 0.0) << "frequency is on no axis";
}

TEST_F(DispCurvPage, TinyMinimumOfALogAxisGivesWayToTheNextValue) {
  PMeasInfo& pair = AddCurve(0, 1, {100.0, 100.0, 100.0});
  pair.dispWlen[0] = 1e-10;
  pair.dispWlen[1] = 6.0;
  pair.dispWlen[2] = 2.4;
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  EXPECT_EQ(Graph().xAxis.min, 2.0) << "2.4 over 1.2";
  EXPECT_EQ(Graph().xAxis.max, 8.0) << "7.2 up by ones";
}

TEST_F(DispCurvPage, FixedRangesStand) {
  AddCurve(0, 1, {230.0, 180.0});
  session.dispAxis.xAutoScale = session.dispAxis.yAutoScale = 0;
  session.dispAxis.range[2] = {1.5, 77.0};
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  EXPECT_EQ(Graph().xAxis.min, 1.5);
  EXPECT_EQ(Graph().xAxis.max, 77.0);
  EXPECT_TRUE(Graph().yAxis.autoScale) << "equal limits are no range";
}

TEST_F(DispCurvPage, PlottedPointsLieWithinTheAutomaticRange) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> velocity(0.5, 4000.0);
  for (int round = 0; round < 50; ++round) {
    FreePMeasInfoList();
    for (int k = 1; k < 4; ++k) AddCurve(0, k, {velocity(random), velocity(random), velocity(random)});
    session.dispAxis.xType = round % 3;
    session.dispAxis.yType = (round / 3) % 3;
    session.dispAxis.xLinear = round % 2;
    ASSERT_EQ(DrawDispCurvPage(1), 0);
    for (const PlotModel& p : Graph().plots)
      for (std::size_t i = 0; i < p.x.size(); ++i) {
        EXPECT_LE(Graph().xAxis.min, p.x[i]);
        EXPECT_GE(Graph().xAxis.max, p.x[i]);
        EXPECT_LE(Graph().yAxis.min, p.y[i]);
        EXPECT_GE(Graph().yAxis.max, p.y[i]);
      }
  }
}

TEST_F(DispCurvPage, HostileRecordsDoNoHarm) {
  PMeasInfo& pair = AddCurve(0, 1, {200.0, 180.0});
  pair.nDispPoints = 2000000000;
  pair.dispVel[3] = std::nan("");
  pair.dispWlen[4] = std::numeric_limits<double>::infinity();
  pair.color = std::numeric_limits<int>::min();
  AddCurve(0, 2, {200.0}).nDispPoints = -5;
  AddCurve(0, 3, {200.0}).key = 4711;
  DispInfo& d = AddRepresentative(MeasDB.gDispList, 0, 1, 1, 2);
  d.nPoints = 1000;
  session.dispAxis.xType = 99;
  session.dispAxis.yType = -3;
  SetCtrlVal(dispcurv::DISPCURVTYPE, 3);
  EXPECT_EQ(DrawDispCurvPage(1), 0);
  ASSERT_EQ(Graph().plots.size(), 2u);
  EXPECT_EQ(Graph().plots[0].x.size(), 16u) << "no more than the arrays hold";
  EXPECT_EQ(Graph().plots[1].x.size(), 2u);
  EXPECT_THAT(LabelsOf(dispcurv::LIST_INCLUDED), ElementsAre("line 1[1:2]"));
}

}  // namespace
}  // namespace sondera::testing
