// Tests of the contour lines: on fields whose lines are known.
#include "signal/section_contours.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace sondera {
namespace {

template <class Field>
SectionGrid GridOf(int nx, int ny, Field field) {
  SectionGrid grid;
  for (int i = 0; i <= nx; ++i) grid.gridX.push_back(2.0 * i);
  for (int j = 0; j <= ny; ++j) grid.gridY.push_back(1.0 + j);
  for (double y : grid.gridY)
    for (double x : grid.gridX) grid.value.push_back(field(x, y));
  return grid;
}

TEST(RoundLevels, AreMultiplesOfOneTwoOrFive) {
  EXPECT_EQ(RoundLevels(150.0, 350.0, 8), (std::vector<double>{200.0, 250.0, 300.0}));
  EXPECT_EQ(RoundLevels(100.0, 200.0, 4), (std::vector<double>{120.0, 140.0, 160.0, 180.0}));  // no ends
  EXPECT_EQ(RoundLevels(-3.0, 3.0, 5), (std::vector<double>{-2.0, -1.0, 0.0, 1.0, 2.0}));
  EXPECT_TRUE(RoundLevels(5.0, 5.0, 8).empty());
  EXPECT_TRUE(RoundLevels(5.0, std::numeric_limits<double>::quiet_NaN(), 8).empty());
  EXPECT_TRUE(RoundLevels(0.0, HUGE_VAL, 8).empty());
  EXPECT_LT(RoundLevels(1e-300, 2e-300, 8).size(), 20u);
  EXPECT_LT(RoundLevels(1e15, 1e15 + 1.0, 8).size(), 1001u);
}

TEST(SectionContours, APlaneHasOneStraightLineAcross) {
  const auto lines =
      SectionContours(GridOf(10, 6, [](double x, double y) { return 3.0 * x + 2.0 * y; }), {29.0});
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].level, 29.0);
  for (std::size_t k = 0; k < lines[0].x.size(); ++k)
    EXPECT_NEAR(3.0 * lines[0].x[k] + 2.0 * lines[0].y[k], 29.0, 1e-12);
  EXPECT_NEAR(std::fabs(lines[0].y.front() - lines[0].y.back()), 6.0, 1e-12);  // from edge to edge
}

TEST(SectionContours, AHillHasClosedLines) {
  const auto hill = [](double x, double y) { return std::hypot(x - 10.0, y - 6.0); };
  const auto lines = SectionContours(GridOf(10, 10, hill), {2.0, 4.0});
  ASSERT_EQ(lines.size(), 2u);
  for (const ContourLine& line : lines) {
    EXPECT_EQ(line.x.front(), line.x.back());
    EXPECT_EQ(line.y.front(), line.y.back());
    double area = 0.0;  // of the polygon: below that of the circle, by less than the grid's coarseness
    for (std::size_t k = 0; k + 1 < line.x.size(); ++k)
      area += 0.5 * (line.x[k] * line.y[k + 1] - line.x[k + 1] * line.y[k]);
    EXPECT_NEAR(std::fabs(area), 3.14159 * line.level * line.level, 0.25 * 3.14159 * line.level * line.level);
  }
}

TEST(SectionContours, ASaddleIsCutByTheMeanOfItsNodes) {
  for (double middle : {+1.0, -1.0}) {
    SectionGrid grid;
    grid.gridX = {0.0, 1.0};
    grid.gridY = {0.0, 1.0};
    grid.value = {2.0 + middle, -2.0, -2.0, 2.0 + middle};  // (0,0) and (1,1) are high
    const auto lines = SectionContours(grid, {0.0});
    ASSERT_EQ(lines.size(), 2u);
    for (const ContourLine& line : lines) {
      ASSERT_EQ(line.x.size(), 2u);
      // A line cuts off the corner that its two edges share: a low one with a high middle, else a high one.
      const double cx = line.x[0] == 0.0 || line.x[1] == 0.0 ? 0.0 : 1.0;
      const double cy = line.y[0] == 0.0 || line.y[1] == 0.0 ? 0.0 : 1.0;
      EXPECT_EQ(cx == cy, middle < 0.0);
    }
  }
}

TEST(SectionContours, ALineEndsAtAHole) {
  SectionGrid grid = GridOf(10, 6, [](double x, double) { return x; });
  const auto whole = SectionContours(grid, {9.0});
  ASSERT_EQ(whole.size(), 1u);
  EXPECT_EQ(whole[0].x.size(), 7u);
  grid.value[3 * 11 + 4] = std::numeric_limits<double>::quiet_NaN();  // left of the line, in the middle
  const auto cut = SectionContours(grid, {9.0});
  ASSERT_EQ(cut.size(), 2u);
  EXPECT_EQ(cut[0].x.size() + cut[1].x.size(), 6u);
}

TEST(SectionContours, NothingGivesNothing) {
  EXPECT_TRUE(SectionContours({}, {1.0}).empty());
  const SectionGrid flat = GridOf(3, 3, [](double, double) { return 5.0; });
  EXPECT_TRUE(SectionContours(flat, {5.0}).empty());
  EXPECT_TRUE(SectionContours(flat, {std::numeric_limits<double>::quiet_NaN()}).empty());
}

}  // namespace
}  // namespace sondera
