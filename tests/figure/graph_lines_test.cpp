// Pixels of curves and maps.
#include "figure/graph_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace sondera {
namespace {

constexpr PixelArea kArea = {50, 10, 650, 410};

PixelAxis Across(double min, double max, bool log = false) {
  return {min, max, log, kArea.left, kArea.right};
}
PixelAxis Upward(double min, double max, bool log = false) {
  return {min, max, log, kArea.bottom, kArea.top};
}

PlotModel Plot(std::vector<double> x, std::vector<double> y, PlotStyle style = PlotStyle::Line) {
  PlotModel plot;
  plot.style = style;
  plot.x = std::move(x);
  plot.y = std::move(y);
  return plot;
}

std::size_t CountPoints(const std::vector<PixelLine>& lines) {
  std::size_t count = 0;
  for (const PixelLine& line : lines) count += line.size();
  return count;
}

TEST(PixelAxis, GoesThereAndBack) {
  for (const PixelAxis& axis : {Across(-3, 7), Upward(0.1, 200, true), Upward(0, 1e-9)}) {
    for (const double share : {0.0, 0.1, 0.77, 1.0}) {
      const double pixel = axis.from + share * (axis.to - axis.from);
      EXPECT_NEAR(axis.PixelOf(axis.ValueAt(pixel)), pixel, 1e-6);
    }
  }
  EXPECT_TRUE(std::isnan(Upward(1, 10, true).PixelOf(0.0)));
  EXPECT_NEAR(Across(1, 100, true).PixelOf(10.0), 350.0, 1e-9);
}

TEST(Lines, HaveGapsWhereAPointIsNotFinite) {
  const PlotModel plot = Plot({0, 1, 2, 3, 4, 5}, {1, 2, NAN, 3, INFINITY, 4});
  const std::vector<PixelLine> lines = LinesOf(plot, Across(0, 5), Upward(0, 5), kArea, 1.0);
  ASSERT_EQ(lines.size(), 1u) << "single points draw no line";
  EXPECT_EQ(lines[0].size(), 2u);
  EXPECT_NEAR(lines[0][1].x, 170.0, 1e-9);
  EXPECT_TRUE(LinesOf(Plot({}, {}), Across(0, 1), Upward(0, 1), kArea, 1.0).empty());
  EXPECT_TRUE(LinesOf(Plot({1}, {1}), Across(0, 1), Upward(0, 1), kArea, 1.0).empty());
}

TEST(Lines, AreCutAtTheAreaHoweverFarTheyGo) {
  const PlotModel plot = Plot({-1e300, 0.5, 0.5, 1e308}, {0.5, 0.5, 1e300, -1e308});
  for (const PixelLine& line : LinesOf(plot, Across(0, 1), Upward(0, 1), kArea, 2.0)) {
    for (const PixelPoint& p : line) {
      EXPECT_GE(p.x, kArea.left - 2.001);
      EXPECT_LE(p.x, kArea.right + 2.001);
      EXPECT_GE(p.y, kArea.top - 2.001);
      EXPECT_LE(p.y, kArea.bottom + 2.001);
    }
  }
}

// Second method: where a line crosses the columns of pixels, computed from the values themselves.
TEST(Lines, OfRandomSegmentsPassWhereTheValuesDo) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> place(-1.0, 2.0);
  const PixelAxis x = Across(0, 1), y = Upward(0, 1);
  for (int trial = 0; trial < 500; ++trial) {
    const PlotModel plot = Plot({place(random), place(random)}, {place(random), place(random)});
    const std::vector<PixelLine> lines = LinesOf(plot, x, y, kArea, 0.0);
    int inside = 0;
    for (int i = 0; i <= 1000; ++i) {
      const double t = i / 1000.0;
      const double px = x.PixelOf(plot.x[0] + t * (plot.x[1] - plot.x[0]));
      const double py = y.PixelOf(plot.y[0] + t * (plot.y[1] - plot.y[0]));
      if (px < kArea.left || px > kArea.right || py < kArea.top || py > kArea.bottom) continue;
      ++inside;
      ASSERT_EQ(lines.size(), 1u);
      const PixelPoint &a = lines[0].front(), &b = lines[0].back();
      EXPECT_GE(px, std::min(a.x, b.x) - 1e-6);
      EXPECT_LE(px, std::max(a.x, b.x) + 1e-6);
      const double off = (b.x - a.x) * (py - a.y) - (b.y - a.y) * (px - a.x);
      EXPECT_NEAR(off / std::max(1.0, std::hypot(b.x - a.x, b.y - a.y)), 0.0, 1e-6);
    }
    EXPECT_LE(CountPoints(lines), 2u);
    EXPECT_TRUE(inside == 0 || !lines.empty());
  }
}

TEST(Lines, OfAMillionPointsTakeAFewPointsForEachColumn) {
  std::mt19937 random(3);
  std::normal_distribution<double> noise(0.0, 1.0);
  PlotModel plot;
  for (int i = 0; i < 1000000; ++i) {
    plot.x.push_back(i);
    plot.y.push_back(noise(random));
  }
  const PixelAxis x = Across(0, 999999), y = Upward(-6, 6);
  const std::vector<PixelLine> lines = LinesOf(plot, x, y, kArea, 1.0);
  EXPECT_LE(CountPoints(lines), 6u * 602u);
  // Each column keeps its highest and its lowest value.
  std::vector<double> top(602, 1e9), bottom(602, -1e9), shownTop(top), shownBottom(bottom);
  for (std::size_t i = 0; i < plot.x.size(); ++i) {
    const auto column = static_cast<std::size_t>(x.PixelOf(plot.x[i]) - kArea.left);
    top[column] = std::min(top[column], y.PixelOf(plot.y[i]));
    bottom[column] = std::max(bottom[column], y.PixelOf(plot.y[i]));
  }
  for (const PixelPoint& p : lines.front()) {
    const auto column = static_cast<std::size_t>(p.x - kArea.left);
    shownTop[column] = std::min(shownTop[column], p.y);
    shownBottom[column] = std::max(shownBottom[column], p.y);
  }
  EXPECT_EQ(top, shownTop);
  EXPECT_EQ(bottom, shownBottom);
}

TEST(Lines, OfAMillionPointsToAndFroStayFew) {
  std::mt19937 random(4);
  std::uniform_real_distribution<double> place(0.0, 1.0);
  PlotModel plot;
  for (int i = 0; i < 1000000; ++i) {
    plot.x.push_back(place(random));
    plot.y.push_back(place(random));
  }
  EXPECT_LE(CountPoints(LinesOf(plot, Across(0, 1), Upward(0, 1), kArea, 1.0)), 50000u);
  plot.style = PlotStyle::Scatter;
  EXPECT_LE(PointsOf(plot, Across(0, 1), Upward(0, 1), kArea).size(), 301u * 201u);
}

TEST(Lines, OfStepsGoToTheRightFirst) {
  const std::vector<PixelLine> lines =
      LinesOf(Plot({0, 1, 2}, {1, 3, 2}, PlotStyle::Steps), Across(0, 2), Upward(0, 4), kArea, 1.0);
  ASSERT_EQ(lines.size(), 1u);
  ASSERT_EQ(lines[0].size(), 5u);
  EXPECT_EQ(lines[0][1].x, 350.0);
  EXPECT_EQ(lines[0][1].y, lines[0][0].y);
  EXPECT_EQ(lines[0][2].x, 350.0);
}

TEST(Points, OutsideOfTheAreaAreNotDrawn) {
  const PlotModel plot = Plot({0, 0.5, 1, 2, NAN}, {0, 0.5, 1, 0.5, 0.5}, PlotStyle::Scatter);
  EXPECT_EQ(PointsOf(plot, Across(0, 1), Upward(0, 1), kArea).size(), 3u);
  EXPECT_EQ(PointsOf(plot, Across(0.1, 1, true), Upward(0.1, 1, true), kArea).size(), 2u);
}

TEST(Bands, GoAlongOneCurveAndBackAlongTheOther) {
  const PixelLine outline =
      BandOutline(Plot({0, 1}, {1, 1}), Plot({0, 1}, {0, 0}), Across(0, 1), Upward(0, 2), kArea);
  ASSERT_EQ(outline.size(), 4u);
  EXPECT_EQ(outline[0].x, kArea.left);
  EXPECT_EQ(outline[2].x, kArea.right);
  EXPECT_EQ(outline[2].y, kArea.bottom);
  EXPECT_TRUE(BandOutline(Plot({0}, {1}), Plot({0, 1}, {0, 0}), Across(0, 1), Upward(0, 2), kArea).empty());
}

IntensityModel Map(std::vector<double> z, int columns, int rows) {
  IntensityModel map;
  map.z = std::move(z);
  map.columns = columns;
  map.rows = rows;
  map.xMax = map.yMax = 1.0;
  map.colorMap = {{0, 0x000000}, {255, 0xFFFFFF}};
  return map;
}

TEST(Map, HasTheValueOfEachPointAtItsPlace) {
  const MapPixels image = PixelsOf(Map({0, 102, 204, 255}, 2, 2), Across(0, 1), Upward(0, 1), kArea);
  ASSERT_EQ(image.width, 600);
  ASSERT_EQ(image.height, 400);
  const auto blue = [&](int column, int row) {
    return static_cast<int>(image.pixels[static_cast<std::size_t>(row * 600 + column)] & 0xFF);
  };
  EXPECT_NEAR(blue(0, 399), 0, 2);
  EXPECT_NEAR(blue(0, 0), 102, 2);
  EXPECT_NEAR(blue(599, 399), 204, 2);
  EXPECT_NEAR(blue(599, 0), 255, 2);
  EXPECT_NEAR(blue(300, 200), (0 + 102 + 204 + 255) / 4, 2) << "between the points values go over linearly";
}

TEST(Map, IsClearOutsideItsRangesAndWhereItHasNoValue) {
  const MapPixels image = PixelsOf(Map({0, 102, NAN, 255}, 2, 2), Across(-1, 1), Upward(0, 1), kArea);
  EXPECT_EQ(image.pixels[0] >> 24, 0u) << "left of the map";
  EXPECT_EQ(image.pixels[599] >> 24, 0xFFu);
  EXPECT_EQ(image.pixels[399 * 600 + 599] >> 24, 0u) << "no value there";
  EXPECT_TRUE(PixelsOf(Map({1, 2}, 2, 2), Across(0, 1), Upward(0, 1), kArea).pixels.empty())
      << "too few values";
  EXPECT_TRUE(PixelsOf(Map({}, -3, -2), Across(0, 1), Upward(0, 1), kArea).pixels.empty());
}

}  // namespace
}  // namespace sondera
