// The graph beside the curves of the results page: profile with its band, resolution, errors; also for
// damaged or empty records.
#include "plot/profile_plot.h"

#include <gmock/gmock.h>

#include <cmath>

#include "figure/ticks.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ProfilePlot : public RunTest {
 protected:
  void SetUp() override {
    RunTest::SetUp();
    for (InvRecord* r : {&InvParam, &SMPParam}) {
      r->nLayers = 3;
      for (int entry = 0; entry <= 2; ++entry) {
        const double depth[] = {0.0, 2.0, 5.0, 6.5};
        for (int i = 0; i <= 3; ++i) r->depth(entry, i) = depth[i];
        for (int i = 0; i < 3; ++i) {
          r->H(entry, i) = i < 2 ? depth[i + 1] - depth[i] : 40.0;
          r->Vs(entry, i) = 100.0 * (i + 1) + entry;
        }
        r->rms[entry] = 8.0 / (entry + 1);
      }
    }
    InvParam.ufVs = 0.1;  // of the velocity of the entry before
  }
  static const GraphModel& Graph() { return GraphOf(exdthd::PROFILE); }
};

TEST_F(ProfilePlot, StairsHaveTwoPointsAtEachBoundaryWithDepthDownward) {
  PlotProfile(exdthd::PROFILE, 0, "m");
  ASSERT_EQ(Graph().plots.size(), 1u) << "the starting model has no band";
  EXPECT_THAT(Graph().plots[0].x, ElementsAre(100, 100, 100, 200, 200, 300, 300, 300));
  EXPECT_THAT(Graph().plots[0].y, ElementsAre(0, 0, 2, 2, 5, 5, 6.5, 6.5));
  EXPECT_EQ(Graph().plots[0].style, PlotStyle::Line);
  EXPECT_TRUE(Graph().yAxis.reversed);
  EXPECT_EQ(Graph().xAxis.label, "Shear Wave Velocity");
  EXPECT_EQ(Graph().xAxis.unit, "m/s");
  EXPECT_EQ(Graph().yAxis.label, "Depth");
  EXPECT_EQ(Graph().xAxis.min, 0.0);
  EXPECT_EQ(Graph().xAxis.max, 400.0) << "1.2 times 300 on the next hundred";
  EXPECT_EQ(Graph().yAxis.min, 0.0);
  EXPECT_EQ(Graph().yAxis.max, 8.0) << "1.1 times 6.5 on the next whole number";
}

TEST_F(ProfilePlot, BandIsTwoDeviationsThatTheResolutionLeaves) {
  InvParam.resolution(1, 0) = 1.0;
  InvParam.resolution(1, 1) = 0.75;
  InvParam.resolution(1, 2) = 0.0;
  PlotProfile(exdthd::PROFILE, 1, "m");
  ASSERT_EQ(Graph().plots.size(), 3u);
  const std::vector<double>&lower = Graph().plots[1].x, &upper = Graph().plots[2].x;
  // Deviation before: a tenth of 100, 200, 300; the share 1 - resolution of its square is left.
  const double left[] = {0.0, 20.0 * std::sqrt(0.25), 30.0};
  for (int layer = 0; layer < 3; ++layer) {
    const std::size_t point = layer == 0 ? 1 : 2 * static_cast<std::size_t>(layer) + 1;
    EXPECT_NEAR(upper[point], 100.0 * (layer + 1) + 1 + 2.0 * left[layer], 1e-9) << layer;
    EXPECT_NEAR(lower[point], 100.0 * (layer + 1) + 1 - 2.0 * left[layer], 1e-9) << layer;
  }
  EXPECT_EQ(Graph().plots[1].dash, LineDash::Dashed);
  EXPECT_EQ(Graph().plots[2].bandTo, Graph().plots[1].handle) << "the area between them is shaded";
  EXPECT_EQ(Graph().xAxis.max, 500.0) << "1.2 times the largest of the band, 361";
}

TEST_F(ProfilePlot, StartingProfilesHaveNoBand) {
  SMPParam.ufVs = 0.1;
  PlotProfile(exdthd::PROFILE, -2, "ft");
  ASSERT_EQ(Graph().plots.size(), 1u);
  EXPECT_EQ(Graph().plots[0].x.front(), 102.0);
  EXPECT_EQ(Graph().title, "SMP 2");
  EXPECT_EQ(Graph().xAxis.unit, "ft/s");
}

TEST_F(ProfilePlot, EndDepthThatIsNotSetBecomesThatOfHalfALayerMoreAndIsStored) {
  InvParam.depth(0, 3) = 0.0;
  PlotProfile(exdthd::PROFILE, 0, "m");
  EXPECT_EQ(InvParam.depth(0, 3), 5.0 + 0.5 * 3.0);
  EXPECT_EQ(Graph().plots[0].y.back(), 6.5);
}

TEST_F(ProfilePlot, WhatCannotBeDrawnEmptiesTheGraph) {
  PlotProfile(exdthd::PROFILE, 0, "m");
  for (const int index : {3000, -3000}) {
    PlotProfile(exdthd::PROFILE, index, "m");
    EXPECT_THAT(Graph().plots, IsEmpty()) << index;
  }
  for (int i = 0; i < 3; ++i) InvParam.Vs(0, i) = 0.0;
  PlotProfile(exdthd::PROFILE, 0, "m");
  EXPECT_THAT(Graph().plots, IsEmpty()) << "no velocity";
  for (int i = 0; i < 3; ++i) InvParam.Vs(0, i) = NAN;
  PlotProfile(exdthd::PROFILE, 0, "m");
  EXPECT_THAT(Graph().plots, IsEmpty()) << "no number";
  InvParam.nLayers = 1 << 30;
  PlotProfile(exdthd::PROFILE, 1, "m");
  PlotResolution(exdthd::PROFILE, 1, "m");
  InvParam = InvRecord{};
  PlotProfile(exdthd::PROFILE, 0, "m");
  PlotResolution(exdthd::PROFILE, 0, "m");
  PlotRMSError(exdthd::PROFILE, 0, 5, 5, "m");
  EXPECT_THAT(Graph().plots, IsEmpty()) << "no record";
}

TEST_F(ProfilePlot, ResolutionGoesFromZeroToOneAndDownToTheHalfSpace) {
  InvParam.resolution(2, 0) = 0.9;
  InvParam.resolution(2, 1) = 0.5;
  InvParam.resolution(2, 2) = 0.25;
  PlotResolution(exdthd::PROFILE, 2, "m");
  ASSERT_EQ(Graph().plots.size(), 1u);
  EXPECT_THAT(Graph().plots[0].x, ElementsAre(0.9, 0.9, 0.9, 0.5, 0.5, 0.25, 0.25, 0.25));
  EXPECT_EQ(Graph().xAxis.min, 0.0);
  EXPECT_EQ(Graph().xAxis.max, 1.0);
  EXPECT_EQ(Graph().xAxis.label, "Resolution of Vs");
  EXPECT_EQ(Graph().yAxis.max, 7.0) << "1.2 times 5 is 6, and the next number above it";
  EXPECT_TRUE(Graph().yAxis.reversed);
  PlotResolution(exdthd::PROFILE, 1, "m");
  EXPECT_THAT(Graph().plots, IsEmpty()) << "no resolution above 0";
}

TEST_F(ProfilePlot, ErrorsStandAgainstTheNumberOfTheEntryWithTheShownOneMarked) {
  PlotRMSError(exdthd::PROFILE, 1, 10, 7, "m");
  ASSERT_EQ(Graph().plots.size(), 2u);
  EXPECT_THAT(Graph().plots[0].x, ElementsAre(8.0, 4.0, 8.0 / 3.0));
  EXPECT_THAT(Graph().plots[0].y, ElementsAre(0, 1, 2)) << "entries that are not made yet are left out";
  EXPECT_THAT(Graph().plots[1].x, ElementsAre(4.0));
  EXPECT_TRUE(Graph().yAxis.reversed) << "entry 0 on top";
  EXPECT_EQ(Graph().yAxis.max, 10.0);
  EXPECT_EQ(Graph().xAxis.max, 10.0) << "1.2 times 8 on the next whole number";
  EXPECT_EQ(Graph().xAxis.label, "RMS Error");
  EXPECT_EQ(Graph().yAxis.label, "Iteration No.");
  EXPECT_EQ(TicksOf(Graph().yAxis, LimitsInForce(Graph()).y, 14).numbers.size(), 11u) << "whole numbers only";
  PlotRMSError(exdthd::PROFILE, -1, 10, 2, "m");
  EXPECT_THAT(Graph().plots[0].y, ElementsAre(1, 2)) << "starting profiles count from 1";
  for (int k = 0; k <= 2; ++k) InvParam.rms[k] = 0.0;
  PlotRMSError(exdthd::PROFILE, 0, 10, 2, "m");
  EXPECT_THAT(Graph().plots, IsEmpty());
}

TEST_F(ProfilePlot, AProfileAfterErrorsHasItsOwnAxesAgain) {
  PlotRMSError(exdthd::PROFILE, 1, 10, 7, "m");
  PlotProfile(exdthd::PROFILE, 1, "m");
  EXPECT_EQ(Graph().yAxis.label, "Depth");
  EXPECT_EQ(Graph().yAxis.divisions, 0);
  EXPECT_EQ(Graph().yAxis.max, 8.0);
}

TEST_F(ProfilePlot, DepthsBelowHalfTheLongestWavelengthAreHatched) {
  PlotProfile(exdthd::PROFILE, 0, "m", 4.5);
  ASSERT_EQ(Graph().hatchings.size(), 1u);
  EXPECT_EQ(Graph().hatchings[0].y1, 4.5);
  EXPECT_EQ(Graph().hatchings[0].y2, Graph().yAxis.max);
  EXPECT_EQ(Graph().hatchings[0].label, "below half the longest wavelength");
  PlotProfile(exdthd::PROFILE, 0, "m", 8.0);
  EXPECT_THAT(Graph().hatchings, IsEmpty()) << "all of it was seen";
  PlotProfile(exdthd::PROFILE, 0, "m");
  EXPECT_THAT(Graph().hatchings, IsEmpty()) << "not known";
  InvParam.resolution(1, 0) = 0.5;
  PlotResolution(exdthd::PROFILE, 1, "m", 3.0);
  ASSERT_EQ(Graph().hatchings.size(), 1u);
  EXPECT_EQ(Graph().hatchings[0].y1, 3.0);
}

TEST_F(ProfilePlot, ResolutionStandsBesideTheMiddleOfEachLayer) {
  InvParam.resolution(1, 0) = 0.9;
  InvParam.resolution(1, 1) = 0.756;
  InvParam.resolution(1, 2) = 0.0;
  PlotProfile(exdthd::PROFILE, 1, "m");
  ASSERT_EQ(Graph().sideNotes.size(), 3u);
  EXPECT_EQ(Graph().sideNotes[0].text, "R 0.90");
  EXPECT_EQ(Graph().sideNotes[1].text, "R 0.76");
  EXPECT_EQ(Graph().sideNotes[2].text, "R 0.00");
  EXPECT_EQ(Graph().sideNotes[0].y, 1.0);
  EXPECT_EQ(Graph().sideNotes[1].y, 3.5);
  EXPECT_EQ(Graph().sideNotes[2].y, 5.75);
  // Right of the band: 201 and two deviations of 20, of which the resolution leaves the root of 0.244.
  EXPECT_NEAR(Graph().sideNotes[1].x, 201.0 + 40.0 * std::sqrt(1.0 - 0.756), 1e-9);
  PlotProfile(exdthd::PROFILE, 0, "m");
  EXPECT_THAT(Graph().sideNotes, IsEmpty()) << "the starting model has none";
  PlotProfile(exdthd::PROFILE, 2, "m");
  EXPECT_THAT(Graph().sideNotes, IsEmpty()) << "nothing is stored";
}

TEST_F(ProfilePlot, LayersOfATableAreStairsDownIntoTheHalfSpace) {
  const GraphControl& graph = fmodeling::PROFILE;
  PlotModelLayers(graph, {2.0, 6.0, 99.0}, {100.0, 250.0, 400.0}, "ft");
  ASSERT_EQ(GraphOf(graph).plots.size(), 1u);
  EXPECT_THAT(GraphOf(graph).plots[0].x, ElementsAre(100, 100, 100, 250, 250, 400, 400, 400));
  EXPECT_THAT(GraphOf(graph).plots[0].y, ElementsAre(0, 0, 2, 2, 8, 8, 10, 10));
  EXPECT_EQ(GraphOf(graph).yAxis.max, 10.0);
  EXPECT_TRUE(GraphOf(graph).yAxis.reversed);
  EXPECT_EQ(GraphOf(graph).xAxis.unit, "ft/s");
  PlotModelLayers(graph, {3.0}, {100.0}, "m");
  EXPECT_EQ(GraphOf(graph).yAxis.max, 3.0) << "one layer alone";
  PlotModelLayers(graph, {0.0}, {100.0}, "m");
  EXPECT_EQ(GraphOf(graph).yAxis.max, 1.0);
  for (const auto& [thickness, Vs] : {std::pair<std::vector<double>, std::vector<double>>{{}, {}},
                                      {{1, 1}, {0, 0}},
                                      {{-1, 1}, {1, 1}},
                                      {{NAN, 1}, {1, 1}},
                                      {{INFINITY, 1}, {1, 1}},
                                      {{1, 1}, {NAN, INFINITY}}}) {
    PlotModelLayers(graph, thickness, Vs, "m");
    EXPECT_THAT(GraphOf(graph).plots, IsEmpty());
  }
}

}  // namespace
}  // namespace sondera::testing
