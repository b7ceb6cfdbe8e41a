// Tests of the grid of a section: compared with the same steps in plain form, and lines with a known result.
#include "signal/section_grid.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>

#include "support/plain_kriging.h"
#include "support/section_lines.h"

namespace sondera {
namespace {

using test::MakeLine;
using test::SettingsOf;
using test::SmoothVelocity;

/// Makes the grid; the reason when it is refused.
std::string Why(const SectionSamples& samples, const GridSettings& settings, SectionGrid& grid) {
  Listener nobody;
  return DoKriging(samples, settings, nobody, grid).reason();
}

SectionGrid GridOf(const std::vector<SectionStation>& line, const GridSettings& settings) {
  SectionGrid grid;
  EXPECT_EQ(Why(CollectSamples(line), settings, grid), "");
  return grid;
}
SectionGrid GridOf(const std::vector<SectionStation>& line) {
  return GridOf(line, SettingsOf(line));
}

plain::PlainSamples PlainOf(const std::vector<SectionStation>& line) {
  plain::PlainSamples s;
  for (const SectionStation& station : line) {
    s.x.insert(s.x.end(), station.wlen.size(), station.location);
    s.y.insert(s.y.end(), station.wlen.begin(), station.wlen.end());
    s.z.insert(s.z.end(), station.vel.begin(), station.vel.end());
  }
  return s;
}

TEST(SectionGrid, IsThePlainImageNodeByNode) {
  for (bool logSpaced : {true, false}) {
    const auto line = MakeLine(9, 25, logSpaced, SmoothVelocity);
    const SectionGrid grid = GridOf(line);
    const std::vector<double> expected = plain::PlainImage(PlainOf(line), {0.0, 40.0, 1.0, 30.0}, 20, 10);
    ASSERT_EQ(grid.value.size(), 231u);
    ASSERT_EQ(expected.size(), 231u);
    for (std::size_t k = 0; k < expected.size(); ++k) {
      ASSERT_EQ(std::isnan(grid.value[k]), std::isnan(expected[k])) << k;
      if (!std::isnan(expected[k])) {
        EXPECT_NEAR(grid.value[k], expected[k], 1e-6 * expected[k]) << k;
      }
    }
  }
}

TEST(SectionGrid, NodesStandOnEvenStepsWithDistanceRunningFirst) {
  const SectionGrid grid = GridOf(MakeLine(9, 50, false, [](double x, double w) { return 1000.0 * x + w; }));
  EXPECT_EQ(grid.Nx(), 20);
  EXPECT_EQ(grid.Ny(), 10);
  EXPECT_EQ(grid.gridX.front(), 0.0);
  EXPECT_DOUBLE_EQ(grid.gridX[3], 6.0);
  EXPECT_EQ(grid.gridX.back(), 40.0);
  EXPECT_DOUBLE_EQ(grid.gridY[2], 6.8);
  EXPECT_EQ(grid.gridY.back(), 30.0);
  EXPECT_EQ(grid.At(3, 2), grid.value[2 * 21 + 3]);
  EXPECT_GT(grid.At(10, 2), grid.At(3, 2) + 5000.0);  // along the line, not down
}

TEST(SectionGrid, EmptyNodesAreCounted) {
  const struct {
    int stations, points;
    bool logSpaced;
    int empty;
  } cases[] = {{9, 25, true, 94}, {9, 50, true, 26}, {5, 25, true, 110}, {9, 50, false, 0}};
  for (const auto& c : cases) {
    const SectionGrid grid = GridOf(MakeLine(c.stations, c.points, c.logSpaced, SmoothVelocity));
    EXPECT_EQ(grid.nEmpty, c.empty) << c.stations << " " << c.points;
    int nan = 0;
    for (double v : grid.value) nan += std::isnan(v);
    EXPECT_EQ(nan, c.empty);
  }
}

double MeanErrorOnPlane(int stations, bool fill) {
  const auto plane = [](double x, double w) { return 100.0 + 2.0 * x + 4.0 * w; };
  const auto line = MakeLine(stations, 25, true, plane);
  GridSettings settings = SettingsOf(line);
  settings.fill = fill;
  const SectionGrid grid = GridOf(line, settings);
  double sum = 0.0;
  int count = 0;
  for (int j = 0; j <= 10; ++j) {
    for (int i = 0; i <= 20; ++i) {
      if (std::isnan(grid.At(i, j))) continue;
      const double truth =
          plane(grid.gridX[static_cast<std::size_t>(i)], grid.gridY[static_cast<std::size_t>(j)]);
      sum += std::fabs(grid.At(i, j) / truth - 1.0);
      ++count;
    }
  }
  return sum / count;
}

TEST(SectionGrid, FillLeavesNoNodeEmptyAndIsNearerToAPlane) {
  for (int stations : {5, 9}) {
    const auto line = MakeLine(stations, 25, true, SmoothVelocity);
    GridSettings settings = SettingsOf(line);
    settings.fill = true;
    EXPECT_EQ(GridOf(line, settings).nEmpty, 0);
    EXPECT_LT(MeanErrorOnPlane(stations, true), MeanErrorOnPlane(stations, false));
  }
  EXPECT_LT(MeanErrorOnPlane(9, true), 0.008);
  EXPECT_LT(MeanErrorOnPlane(9, false), 0.012);
}

TEST(SectionGrid, FewStationsGiveColumns) {
  // Between two of five stations a node sees one station only; more stations are better.
  EXPECT_GT(MeanErrorOnPlane(5, false), 2.0 * MeanErrorOnPlane(9, false));
  EXPECT_GT(MeanErrorOnPlane(9, false), 2.0 * MeanErrorOnPlane(17, false));
}

TEST(SectionGrid, OneStationGivesEqualColumnsAtOnce) {
  const auto line = MakeLine(1, 25, true, SmoothVelocity);
  for (bool fill : {false, true}) {
    GridSettings settings = SettingsOf(line);
    EXPECT_EQ(settings.limits.tmgDMin, settings.limits.tmgDMax);
    settings.fill = fill;
    const auto start = std::chrono::steady_clock::now();
    const SectionGrid grid = GridOf(line, settings);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));  // no hang
    for (int j = 0; j <= 10; ++j) {
      for (int i = 0; i <= 20; ++i) {
        EXPECT_EQ(std::isnan(grid.At(i, j)), std::isnan(grid.At(0, j)));
        if (!std::isnan(grid.At(0, j))) {
          EXPECT_EQ(grid.At(i, j), grid.At(0, j));
        }
      }
    }
    EXPECT_LT(grid.nEmpty, 231);
  }
}

TEST(SectionGrid, EqualVelocitiesStayExactlyEqual) {
  const SectionGrid grid = GridOf(MakeLine(9, 50, true, [](double, double) { return 173.1; }));
  int estimated = 0;
  for (double v : grid.value) {
    if (std::isnan(v)) continue;
    ++estimated;
    EXPECT_EQ(v, 173.1);
  }
  EXPECT_EQ(estimated, 231 - 26);
}

TEST(SectionGrid, TwoCurvesAtOnePlaceLeaveTheNodesAroundThemEmpty) {
  auto line = MakeLine(9, 50, false, SmoothVelocity);
  line.push_back(line[4]);
  line.back().label = "Again";
  for (double& v : line.back().vel) v += 7.0;
  const SectionGrid grid = GridOf(line);
  EXPECT_FALSE(grid.sameSamples.empty());
  EXPECT_TRUE(std::isnan(grid.At(10, 5)));  // at 20 m, where both are
  EXPECT_FALSE(std::isnan(grid.At(2, 5)));  // far away
  std::vector<int> station;
  const SectionSamples samples = CollectSamples(line, &station);
  const std::string text = SameSampleText(grid, line, samples, station);
  EXPECT_NE(text.find("Curves S5 and Again both have a point at distance 20, wavelength "), std::string::npos)
      << text;
  EXPECT_EQ(text.find("Curves", 3), std::string::npos) << "each pair of curves is told once: " << text;
}

TEST(SectionGrid, ACurveWithAWavelengthTwiceIsNamed) {
  auto line = MakeLine(9, 50, false, SmoothVelocity);
  line[4].wlen[20] = line[4].wlen[21];
  const SectionGrid grid = GridOf(line);
  std::vector<int> station;
  const SectionSamples samples = CollectSamples(line, &station);
  EXPECT_EQ(SameSampleText(grid, line, samples, station).rfind("Curve S5 has two points at distance 20", 0),
            0u);
}

TEST(SectionGrid, AShortLineIsFinite) {
  // Extents below 2 in total: half of their diagonal is below 1 and can't be cut to a whole number.
  auto line = MakeLine(9, 25, false, SmoothVelocity, 1.0);
  for (SectionStation& s : line) {
    for (std::size_t i = 0; i < s.wlen.size(); ++i) {
      s.wlen[i] = 1.0 + static_cast<double>(i) / 24.0;
      s.vel[i] = 900.0 + 100.0 * s.location + 20.0 * s.wlen[i];
    }
  }
  const SectionGrid grid = GridOf(line);
  int estimated = 0;
  for (double v : grid.value) {
    EXPECT_FALSE(std::isinf(v));
    estimated += v > 800.0 && v < 1200.0;
  }
  EXPECT_EQ(estimated + grid.nEmpty, 231);
  EXPECT_GT(estimated, 200);
}

TEST(SectionGrid, TheCutRangeIsSeenAndSmall) {
  // For the correlations with the place a = 1.98 counts as 1: not the exact estimate, and within 1.7 % of it.
  const double length = 2.0 * 1.98 / std::sqrt(2.0);
  auto line = MakeLine(9, 25, false, SmoothVelocity, length);
  for (SectionStation& s : line)
    for (std::size_t i = 0; i < s.wlen.size(); ++i) {
      s.wlen[i] = 1.0 + length * static_cast<double>(i) / 24.0;
      s.vel[i] = 150.0 + 40.0 * s.location + 25.0 * s.wlen[i];
    }
  const SectionGrid grid = GridOf(line);
  const plain::PlainSamples all = PlainOf(line);
  double largest = 0.0;
  plain::PlainSamples around;
  for (int j = 0; j <= 10; ++j) {
    for (int i = 0; i <= 20; ++i) {
      const double x0 = grid.gridX[static_cast<std::size_t>(i)], y0 = grid.gridY[static_cast<std::size_t>(j)];
      plain::PlainSamplesAround(all, {0.0, length, 1.0, 1.0 + length}, x0, y0, around);
      if (around.x.size() < 3) continue;
      const double exact = plain::PlainKriging(2, around, 0.0, 1.0, 1.98, 1.98, x0, y0);
      largest = std::max(largest, std::fabs(grid.At(i, j) / exact - 1.0));
    }
  }
  EXPECT_GT(largest, 1e-5);
  EXPECT_LT(largest, 0.017);
}

TEST(SectionGrid, ANegativeEstimateIsZero) {
  const SectionGrid grid = GridOf(MakeLine(9, 50, false, [](double x, double) { return 20.0 * (x - 20.0); }));
  double least = HUGE_VAL;
  for (double v : grid.value) least = std::min(least, v);
  EXPECT_EQ(least, 0.0);
  EXPECT_GT(grid.At(20, 5), 300.0);
}

TEST(SectionGrid, WhatItWasMadeFromCanBeCompared) {
  auto line = MakeLine(3, 5, false, SmoothVelocity);
  const GridSettings settings = SettingsOf(line);
  const SectionSamples samples = CollectSamples(line);
  EXPECT_EQ(SettingsOf(line), settings);
  EXPECT_EQ(CollectSamples(line), samples);
  GridSettings other = settings;
  other.limits.tmgWlMax = 29.0;
  EXPECT_FALSE(other == settings);
  other = settings;
  other.fill = true;
  EXPECT_FALSE(other == settings);
  line[1].valid = false;
  EXPECT_FALSE(CollectSamples(line) == samples);
}

TEST(SectionGrid, OneByOneWorks) {
  const auto line = MakeLine(9, 50, false, SmoothVelocity);
  const SectionGrid grid = GridOf(line, SettingsOf(line, 1, 1));
  EXPECT_EQ(grid.value.size(), 4u);
  EXPECT_EQ(grid.gridX, (std::vector<double>{0.0, 40.0}));
}

TEST(SectionGrid, ASampleFarOutsideTheRangesDoesNotCount) {
  auto line = MakeLine(9, 50, false, SmoothVelocity);
  const GridSettings settings = SettingsOf(line);
  const SectionGrid before = GridOf(line, settings);
  line.push_back({"far", 41.0, {5.0, 6.0, 7.0}, {9999.0, 9999.0, 9999.0}, true});
  EXPECT_EQ(GridOf(line, settings).value, before.value);
}

// --- neighbourhoods ---

TEST(GetSamples, ASampleAtTheDistanceOfTheNodeCountsToTheLeft) {
  const SectionSamples s = {{10.0, 10.0, 10.0, 10.5}, {8.0, 10.0, 12.0, 10.0}, {1.0, 1.0, 1.0, 1.0}};
  GridSettings settings;
  settings.limits = {0.0, 40.0, 0.0, 40.0};
  Neighbourhood found;
  ASSERT_EQ(GetSamples(s, settings, 10.0, 10.0, found), 0);
  EXPECT_EQ(found.inQuadrant, (std::array<int, 4>{0, 1, 2, 1}));  // those at the wavelength to the lower ones
  EXPECT_EQ(found.sample, (std::vector<int>{0, 1, 2, 3}));
}

TEST(GetSamples, TheBoxGrowsBySixHundredthsOfTheExtentOnEachSide) {
  SectionSamples s = {{0.0}, {50.0}, {1.0}};
  GridSettings settings;
  settings.limits = {0.0, 100.0, 0.0, 100.0};
  Neighbourhood found;
  // 7.5 at first, then 13.5, 19.5 ...; with the second sample just inside or outside of 19.5.
  for (double second : {19.5, 19.6}) {
    s = {{50.0 - 19.5, 50.0 + second}, {50.0, 50.0}, {1.0, 1.0}};
    ASSERT_EQ(GetSamples(s, settings, 50.0, 50.0, found), 0);
    EXPECT_EQ(found.sample.size(), second == 19.5 ? 2u : 1u);
  }
}

TEST(GetSamples, NothingInsideTheLimitsLeavesTheFormerSamples) {
  const SectionSamples s = {{200.0}, {50.0}, {1.0}};
  GridSettings settings;
  settings.limits = {0.0, 100.0, 0.0, 100.0};
  Neighbourhood found;
  found.sample = {7, 8};
  EXPECT_EQ(GetSamples(s, settings, 50.0, 50.0, found), -1);
  EXPECT_EQ(found.sample, (std::vector<int>{7, 8}));
}

// --- refusals ---

TEST(SectionGrid, BadRangesAreRefusedWithOneSentence) {
  const SectionSamples samples = CollectSamples(MakeLine(3, 5, false, SmoothVelocity));
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const struct {
    SectionLimits limits;
    const char* why;
  } cases[] = {
      {{nan, 40.0, 1.0, 30.0}, "A limit of the section is not a finite number."},
      {{0.0, HUGE_VAL, 1.0, 30.0}, "A limit of the section is not a finite number."},
      {{40.0, 0.0, 1.0, 30.0}, "The distance range of the section, 40 to 0, is empty."},
      {{0.0, 40.0, 30.0, 1.0}, "The wavelength range of the section, 30 to 1, is empty."},
      {{-1e308, 1e308, 1.0, 30.0},
       "The ranges of the section, -1e+308 to 1e+308 and 1 to 30, are too large."},
  };
  for (const auto& c : cases) {
    SectionGrid grid;
    grid.nEmpty = 77;
    EXPECT_EQ(Why(samples, {c.limits, 20, 10, false}, grid), c.why);
    EXPECT_EQ(grid.nEmpty, 77);
  }
  SectionGrid grid;
  for (int n : {0, -1, 501})
    EXPECT_EQ(Why(samples, {{0.0, 40.0, 1.0, 30.0}, n, 10, false}, grid),
              "A section has 1 to 500 intervals each way, not " + std::to_string(n) + ".");
  EXPECT_EQ(Why({}, {{0.0, 40.0, 1.0, 30.0}, 20, 10, false}, grid), "No curve is included.");
}

TEST(SectionGrid, HostileStationsEndInOneSentenceOrInNoValue) {
  for (double bad : {1e308, 1e200}) {
    auto line = MakeLine(3, 5, false, SmoothVelocity);
    line[1].location = bad;
    SectionGrid grid;
    EXPECT_NE(Why(CollectSamples(line), SettingsOf(line), grid).find("too large"), std::string::npos);
    line = MakeLine(3, 5, false, SmoothVelocity);
    line[1].wlen[2] = bad;
    EXPECT_NE(Why(CollectSamples(line), SettingsOf(line), grid).find("too large"), std::string::npos);
  }
  auto line = MakeLine(9, 50, false, SmoothVelocity);
  line[4].vel[7] = 1e308;
  line[4].vel[8] = -1e308;
  for (double v : GridOf(line).value) EXPECT_FALSE(std::isinf(v));
}

TEST(SectionGrid, MorePointsAroundANodeThanAMatrixHoldsAreRefused) {
  SectionStation s;
  s.label = "long";
  for (int i = 0; i < 30000; ++i) {
    s.wlen.push_back(1.0 + 0.001 * i);
    s.vel.push_back(100.0 + i);
  }
  SectionGrid grid;
  const std::string why = Why(CollectSamples({s}), SettingsOf({s}), grid);
  EXPECT_NE(why.find("points lie around distance 0 and wavelength"), std::string::npos) << why;
  EXPECT_TRUE(grid.Empty());
}

TEST(SectionGrid, AHaltKeepsTheFormerGrid) {
  const SectionSamples samples = CollectSamples(MakeLine(100, 100, false, SmoothVelocity));
  SectionGrid grid;
  grid.nEmpty = 77;
  struct : Listener {
    int asked = 0;
    double told = -1.0;
    bool Poll() override { return ++asked == 2; }
    void Done(double share) override { told = share; }
  } listener;
  const Refusal refusal = DoKriging(samples, {{0.0, 40.0, 1.0, 30.0}, 200, 200, false}, listener, grid);
  EXPECT_TRUE(refusal);
  EXPECT_EQ(refusal.reason(), "");
  EXPECT_EQ(grid.nEmpty, 77);
  EXPECT_LT(listener.told, 1.0);
}

// --- read-out ---

TEST(GridVelocity, IsLinearBetweenNodesAndNothingOutside) {
  SectionGrid grid;
  grid.gridX = {0.0, 2.0, 4.0};
  grid.gridY = {1.0, 3.0};
  grid.value = {10.0, 20.0, std::numeric_limits<double>::quiet_NaN(), 30.0, 40.0, 50.0};
  EXPECT_EQ(GridVelocity(grid, 2.0, 1.0), 20.0);
  EXPECT_EQ(GridVelocity(grid, 4.0, 3.0), 50.0);
  EXPECT_DOUBLE_EQ(GridVelocity(grid, 0.5, 1.5),
                   0.75 * (0.75 * 10 + 0.25 * 20) + 0.25 * (0.75 * 30 + 0.25 * 40));
  EXPECT_TRUE(std::isnan(GridVelocity(grid, 3.0, 1.5)));  // beside the node without a value
  EXPECT_EQ(GridVelocity(grid, 3.0, 3.0), 45.0);          // its weight is 0 there
  EXPECT_TRUE(std::isnan(GridVelocity(grid, 4.1, 2.0)));
  EXPECT_TRUE(std::isnan(GridVelocity(grid, 1.0, 0.9)));
  EXPECT_TRUE(std::isnan(GridVelocity({}, 1.0, 1.0)));
}

}  // namespace
}  // namespace sondera
