// Tests of the data and the drawing of a section: points and ranges, stack, colours, tables.
#include "signal/section.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "support/odd_numbers.h"
#include "support/section_lines.h"

namespace sondera {
namespace {

using test::MakeLine;
using test::SettingsOf;
using test::SmoothVelocity;

TEST(SectionRanges, DistanceStartsAfreshAndWavelengthOnlyWidens) {
  auto line = MakeLine(9, 25, true, SmoothVelocity);
  const SectionRanges first = FindSectionRanges(line, {});
  EXPECT_EQ(first.dMin, 0.0);
  EXPECT_EQ(first.dMax, 40.0);
  EXPECT_EQ(first.wlMin, 1.0);
  EXPECT_DOUBLE_EQ(first.wlMax, 30.0);
  EXPECT_EQ(first.vMin, SmoothVelocity(0.0, 1.0));
  EXPECT_DOUBLE_EQ(first.vMax, SmoothVelocity(40.0, 30.0));
  line.front().valid = line.back().valid = false;
  for (SectionStation& s : line) s.wlen.erase(s.wlen.begin());
  for (SectionStation& s : line) s.vel.erase(s.vel.begin());
  const SectionRanges second = FindSectionRanges(line, first);
  EXPECT_EQ(second.dMin, 5.0);
  EXPECT_EQ(second.dMax, 35.0);
  EXPECT_EQ(second.wlMin, 1.0);
  EXPECT_EQ(second.wlMax, first.wlMax);
  EXPECT_GT(second.vMin, first.vMin);
}

TEST(SectionRanges, StartValuesStandWhereNothingIsIncluded) {
  auto line = MakeLine(2, 5, false, SmoothVelocity);
  line[0].valid = false;
  line[1].wlen.clear();
  const SectionRanges r = FindSectionRanges(line, {});
  EXPECT_EQ(r.dMin, 100000.0);
  EXPECT_EQ(r.dMax, 0.0);
  EXPECT_EQ(r.wlMin, 100000.0);
  EXPECT_EQ(r.wlMax, 0.0);
  EXPECT_EQ(r.vMin, 100000.0);
  EXPECT_EQ(r.vMax, 0.0);
  // Kept: the start values act like data, so a line left of 0 ends at 0.
  EXPECT_EQ(FindSectionRanges({{"west", -30.0, {5.0}, {100.0}, true}}, {}).dMax, 0.0);
}

TEST(SectionRanges, PointsThatAreNoneDoNotCount) {
  const std::vector<SectionStation> line = {
      {"A", 3.0, {1.0, kNaN, -2.0, 0.0, HUGE_VAL, 4.0, 5.0}, {100.0, 1.0, 2.0, 3.0, 4.0, kNaN, -6.0}, true},
      {"B", HUGE_VAL, {100.0}, {1000.0}, true},
      {"C", kNaN, {100.0}, {1000.0}, true},
      {"D", 9.0, {kNaN}, {1000.0}, true},
      {"E", 12.0, {7.0, 8.0}, {50.0}, true},
  };
  const SectionRanges r = FindSectionRanges(line, {});
  EXPECT_EQ(r.dMin, 3.0);
  EXPECT_EQ(r.dMax, 12.0);
  EXPECT_EQ(r.wlMin, 1.0);
  EXPECT_EQ(r.wlMax, 7.0);
  EXPECT_EQ(r.vMin, -6.0);
  EXPECT_EQ(r.vMax, 100.0);
  EXPECT_EQ(CollectSamples(line).z, (std::vector<double>{100.0, -6.0, 50.0}));
  EXPECT_EQ(SectionDataFault(line),
            "Left out of the section: 2 curves without a location, 6 points of 2 curves without a wavelength "
            "or velocity (the first is A).");
  EXPECT_EQ(SectionDataFault(MakeLine(3, 4, false, SmoothVelocity)), "");
}

TEST(SectionSamples, RunAlongTheLineAndDownEachCurve) {
  const std::vector<SectionStation> line = {{"B", 20.0, {3.0, 1.0, 2.0}, {33.0, 31.0, 32.0}, true},
                                            {"no", 15.0, {1.0}, {1.0}, false},
                                            {"A", 10.0, {5.0}, {25.0}, true}};
  std::vector<int> station;
  const SectionSamples s = CollectSamples(line, &station);
  EXPECT_EQ(s.x, (std::vector<double>{10.0, 20.0, 20.0, 20.0}));
  EXPECT_EQ(s.y[0], 5.0);
  for (std::size_t k = 0; k < 4; ++k) {
    EXPECT_EQ(s.z[k], (k == 0 ? 20.0 : 30.0) + s.y[k]);  // velocities went along
    EXPECT_EQ(station[k], k == 0 ? 2 : 0);
  }
}

TEST(SectionSettings, GridSizesOutOfRangeGetTheDefaultsWithOneSentence) {
  const auto settle = [](int nx, int ny) {
    std::string text = SettleGridSize(nx, ny);
    return std::tuple(nx, ny, text);
  };
  EXPECT_EQ(settle(0, 0), std::tuple(20, 10, ""));
  EXPECT_EQ(settle(1, 1), std::tuple(1, 1, ""));
  EXPECT_EQ(settle(500, 500), std::tuple(500, 500, ""));
  EXPECT_EQ(settle(501, 30), std::tuple(20, 30,
                                        "NX is 501. A section has 1 to 500 intervals each way; the "
                                        "defaults are taken."));
  EXPECT_EQ(settle(30, -1), std::tuple(30, 10,
                                       "NY is -1. A section has 1 to 500 intervals each way; the "
                                       "defaults are taken."));
}

// --- stack ---

double LargestOffset(const StackedSection& stack, const std::vector<SectionStation>& line) {
  double largest = 0.0;
  for (const StackedCurve& c : stack.curves)
    for (double x : c.x) largest = std::max(largest, x - line[static_cast<std::size_t>(c.station)].location);
  return largest;
}

TEST(StackCurves, OffsetsAreShareOfTheLineOrOfTheSpacing) {
  for (const auto& [stations, length, expected] :
       {std::tuple(9, 40.0, 6.0), {12, 55.0, 6.875}, {10, 40.0, 6.0}}) {
    const auto line = MakeLine(stations, 25, true, SmoothVelocity, length);
    const StackedSection stack = StackCurves(line);
    EXPECT_NEAR(LargestOffset(stack, line), expected, 1e-12) << stations;
    EXPECT_EQ(stack.curves.size(), static_cast<std::size_t>(stations));
    EXPECT_EQ(stack.dMin, 0.0);
    EXPECT_EQ(stack.dMax, length);
  }
}

TEST(StackCurves, TheBaseLineRunsFromThePointDownTheStationAndBack) {
  const std::vector<SectionStation> line = {{"A", 0.0, {9.0, 2.0, 5.0}, {300.0, 100.0, 200.0}, true},
                                            {"B", 10.0, {1.0, 4.0}, {100.0, 500.0}, true}};
  const StackedSection stack = StackCurves(line);
  ASSERT_EQ(stack.curves.size(), 2u);
  const StackedCurve& a = stack.curves[0];
  EXPECT_EQ(a.y, (std::vector<double>{2.0, 5.0, 9.0}));
  EXPECT_DOUBLE_EQ(stack.factor, 1.5 / 400.0);
  EXPECT_DOUBLE_EQ(a.x[2], 0.75);
  EXPECT_EQ(a.baseX, (std::array<double, 4>{a.x[0], 0.0, 0.0, a.x[2]}));
  EXPECT_EQ(a.baseY, (std::array<double, 4>{2.0, 2.0, 9.0, 9.0}));
  EXPECT_DOUBLE_EQ(stack.curves[1].x[1], 11.5);
}

TEST(StackCurves, EqualVelocitiesAndOneStationAreStraight) {
  const auto equal = MakeLine(9, 25, true, [](double, double) { return 200.0; });
  EXPECT_EQ(LargestOffset(StackCurves(equal), equal), 0.0);
  EXPECT_EQ(StackCurves(equal).factor, 0.0);
  const auto one = MakeLine(1, 25, true, SmoothVelocity);
  EXPECT_EQ(LargestOffset(StackCurves(one), one), 0.0);
}

TEST(StackCurves, NegativeVelocitiesAreLeftOutAndNothingGivesNoCurves) {
  std::vector<SectionStation> line = {{"A", 0.0, {1.0, 2.0}, {-5.0, 100.0}, true},
                                      {"B", 10.0, {1.0, 2.0}, {-5.0, -6.0}, true}};
  const StackedSection stack = StackCurves(line);
  ASSERT_EQ(stack.curves.size(), 1u);
  EXPECT_EQ(stack.curves[0].y, (std::vector<double>{2.0}));
  line[0].valid = line[1].valid = false;
  EXPECT_TRUE(StackCurves(line).curves.empty());
  EXPECT_TRUE(StackCurves({}).curves.empty());
}

// --- colours ---

TEST(SectionColors, LevelsAndBlends) {
  const auto map = MakeTMGColorMap(100.0, 400.0, kSectionColors);
  EXPECT_EQ(ColorOfVelocity(map, 100.0), 0);
  EXPECT_EQ(ColorOfVelocity(map, 200.0), 0xFF);
  EXPECT_EQ(ColorOfVelocity(map, 300.0), 0xFF0000);
  EXPECT_EQ(ColorOfVelocity(map, 400.0), 0xFFFF00);
  EXPECT_EQ(ColorOfVelocity(map, 250.0), 0x800080);
  EXPECT_EQ(ColorOfVelocity(map, 50.0), 0);
  EXPECT_EQ(ColorOfVelocity(map, 150.0), 0x80);
  EXPECT_EQ(ColorOfVelocity(map, kNaN), -1);
  const auto other = MakeTMGColorMap(100.0, 400.0, {0x111111, 0x222222, 0x333333, 0x444444});
  EXPECT_EQ(ColorOfVelocity(other, 50.0), 0x111111);
  EXPECT_EQ(ColorOfVelocity(other, 400.0), 0x444444);
  EXPECT_EQ(ColorOfVelocity(other, 400.1), 0xFFFF00);  // Kept: not the colour of the highest level
}

TEST(SectionColors, NoSpanIsOneColour) {
  for (double high : {100.0, 99.0, kNaN, HUGE_VAL}) {
    const auto map = MakeTMGColorMap(100.0, high, {0x010203, 0xFF, 0xFF0000, 0xFFFF00});
    for (double v : {0.0, 100.0, 1e9}) EXPECT_EQ(ColorOfVelocity(map, v), 0x010203) << high;
  }
}

TEST(SectionColors, LevelsShowOneDecimal) {
  const auto map = MakeTMGColorMap(100.0, 350.0, kSectionColors);
  EXPECT_EQ(ColorLevelText(map[1].level), "183.3");
  EXPECT_EQ(ColorLevelText(map[2].level), "266.7");
}

// --- tables ---

TEST(SectionTables, AGridLineForEachNodeAndNothingWhereNothingIs) {
  const auto line = MakeLine(9, 25, true, SmoothVelocity);
  SectionGrid grid;
  Listener nobody;
  ASSERT_FALSE(DoKriging(CollectSamples(line), SettingsOf(line), nobody, grid));
  std::istringstream csv(GridCsv(grid));
  std::string text;
  std::getline(csv, text);
  EXPECT_EQ(text, "distance,wavelength,velocity");
  int empty = 0;
  std::size_t k = 0;
  for (; std::getline(csv, text); ++k) {
    double x = 0, y = 0, v = 0;
    const int read = std::sscanf(text.c_str(), "%lf,%lf,%lf", &x, &y, &v);
    ASSERT_GE(read, 2) << text;
    EXPECT_NEAR(x, grid.gridX[k % 21], 1e-8);
    EXPECT_NEAR(y, grid.gridY[k / 21], 1e-8);
    if (read == 2) {
      ++empty;
      EXPECT_EQ(text.back(), ',');
      EXPECT_TRUE(std::isnan(grid.value[k]));
    } else {
      EXPECT_NEAR(v, grid.value[k], 1e-9 * v);
    }
  }
  EXPECT_EQ(k, 231u);
  EXPECT_EQ(empty, 94);
  EXPECT_EQ(EmptyNodeText(grid), "94 of 231 nodes have no value.");
  grid.nEmpty = 0;
  EXPECT_EQ(EmptyNodeText(grid), "");
}

TEST(SectionTables, PointsOfIncludedCurvesWithTheirStation) {
  EXPECT_EQ(PointsCsv({{"A", 1.5, {2.0, kNaN}, {300.0, 4.0}, true},
                       {"B", 1.0, {1.0}, {1.0}, false},
                       {"C, \"two\"", -2.25, {0.125}, {1234567.25}, true}}),
            "station,distance,wavelength,velocity\nA,1.5,2,300\n\"C, \"\"two\"\"\",-2.25,0.125,1234567.25\n");
}

}  // namespace
}  // namespace sondera
