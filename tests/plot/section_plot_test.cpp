// The section on a graph: sizes, ranges and colours of the image, contour lines, marks, names, and the stack.
#include "plot/section_plot.h"

#include <gtest/gtest.h>

#include <cmath>

#include "figure/graph_lines.h"
#include "figure/palette.h"
#include "plot/color_strip.h"
#include "runtime/catalogue/tmgrafpnl.h"
#include "support/section_lines.h"

namespace sondera {
namespace {

using test::MakeLine;
using test::SettingsOf;
using test::SmoothVelocity;
using tmgrafpnl::TOMOGRAF;

SectionLook Look(double low, double high) {
  return {SectionColorLevels(low, high, {}), 1, true, "m"};
}

SectionGrid GridOf(const std::vector<SectionStation>& line) {
  Listener nobody;
  SectionGrid grid;
  EXPECT_FALSE(DoKriging(CollectSamples(line), SettingsOf(line), nobody, grid));
  return grid;
}

class SectionPlot : public ::testing::Test {
 protected:
  void SetUp() override { ResetGraphs(); }
  void TearDown() override { ResetGraphs(); }
};

TEST_F(SectionPlot, TheImageHasANodeForEachValueAndTheTrueRanges) {
  const SectionGrid grid = GridOf(MakeLine(9, 25, true, SmoothVelocity));
  const IntensityModel image = SectionImage(grid, Look(150.0, 420.0));
  EXPECT_EQ(image.columns, 21);
  EXPECT_EQ(image.rows, 11);
  ASSERT_EQ(image.z.size(), 231u);
  EXPECT_EQ(image.xMin, 0.0);
  EXPECT_EQ(image.xMax, 40.0);
  EXPECT_DOUBLE_EQ(image.yMin, 1.0);
  EXPECT_DOUBLE_EQ(image.yMax, 30.0);
  for (int i = 0; i < 21; ++i) {
    for (int j = 0; j < 11; ++j) {
      const double z = image.z[static_cast<std::size_t>(i * 11 + j)];
      EXPECT_TRUE(z == grid.At(i, j) || (std::isnan(z) && std::isnan(grid.At(i, j))));
    }
  }
}

/// Pixels of an image, wavelength downward, 10 pixels between two nodes.
MapPixels PixelsOfImage(const IntensityModel& image) {
  const double width = 10.0 * (image.columns - 1), height = 10.0 * (image.rows - 1);
  return PixelsOf(image, {image.xMin, image.xMax, false, 0.0, width},
                  {image.yMin, image.yMax, false, 0.0, height}, {0.0, 0.0, width, height});
}

TEST_F(SectionPlot, ThePixelUnderANodeHasTheColourOfItsValueAndNoValueIsClear) {
  const auto line = MakeLine(9, 25, true, SmoothVelocity);
  const SectionGrid grid = GridOf(line);
  const SectionRanges r = FindSectionRanges(line, {});
  IntensityModel image = SectionImage(grid, Look(r.vMin, r.vMax));
  image.interpolate = false;
  const MapPixels pixels = PixelsOfImage(image);
  ASSERT_EQ(pixels.width, 200);
  const auto map = MakeTMGColorMap(r.vMin, r.vMax, kSectionColors);
  int clear = 0;
  for (int i = 1; i < 20; ++i) {
    for (int j = 1; j < 10; ++j) {
      const std::uint32_t pixel = pixels.pixels[static_cast<std::size_t>(10 * j * pixels.width + 10 * i)];
      const double value = grid.At(i, j);
      if (std::isnan(value)) {
        EXPECT_EQ(pixel >> 24, 0u) << i << " " << j;
        ++clear;
      } else {
        const int wanted = ColorOfVelocity(map, value);
        EXPECT_EQ(pixel >> 24, 0xFFu);
        for (const int shift : {0, 8, 16})  // a pixel stands half a pixel beside its node
          EXPECT_NEAR(static_cast<int>(pixel >> shift & 0xFF), wanted >> shift & 0xFF, 1) << i << " " << j;
      }
    }
  }
  EXPECT_GT(clear, 20);
}

TEST_F(SectionPlot, ColoursAreThoseOfTheFourLevelsAndBlendsBetween) {
  const IntensityModel image = SectionImage({}, Look(100.0, 400.0));
  const auto color = [&](double v) { return MapColor(image.colorMap, v, -1); };
  EXPECT_EQ(color(100.0), 0);
  EXPECT_EQ(color(200.0), 0xFF);
  EXPECT_EQ(color(300.0), 0xFF0000);
  EXPECT_EQ(color(400.0), 0xFFFF00);
  EXPECT_EQ(color(250.0), 0x800080);
  EXPECT_EQ(color(50.0), 0);
  EXPECT_EQ(color(401.0), 0xFFFF00);
  EXPECT_EQ(color(std::nan("")), -1);
  const auto map = MakeTMGColorMap(100.0, 400.0, kSectionColors);
  for (double v = 90.0; v < 420.0; v += 0.37) EXPECT_EQ(color(v), ColorOfVelocity(map, v)) << v;
}

TEST_F(SectionPlot, AboveTheHighestLevelTheColourIsFixed) {
  SectionLook look{SectionColorLevels(100.0, 400.0, {1, 2, 3, 0x00FF00}), 1, true, "m"};
  const IntensityModel image = SectionImage({}, look);
  EXPECT_EQ(MapColor(image.colorMap, 400.0, -1), 0x00FF00);
  EXPECT_EQ(MapColor(image.colorMap, 400.1, -1), kAboveSectionColor);
  look.colors = SectionColorLevels(100.0, 100.0, {});
  EXPECT_EQ(MapColor(SectionImage({}, look).colorMap, 500.0, -1), 0) << "one colour without a span";
}

TEST_F(SectionPlot, APlaneHasAContourLineForEachRoundLevelAndAMarkForEachPoint) {
  const auto line = MakeLine(9, 50, false, [](double x, double) { return 100.0 + 5.0 * x; });
  const SectionGrid grid = GridOf(line);
  PlotSectionImage(TOMOGRAF, grid, line, Look(100.0, 300.0), "note");
  const GraphModel& graph = GraphOf(TOMOGRAF);
  ASSERT_GT(graph.plots.size(), 3u);
  for (std::size_t k = 0; k + 1 < graph.plots.size(); ++k) {
    const PlotModel& contour = graph.plots[k];
    const double level = std::stod(contour.legend);
    EXPECT_NEAR(std::fmod(level, 5.0), 0.0, 1e-9);
    for (const double x : contour.x) EXPECT_NEAR(100.0 + 5.0 * x, level, 3.0) << level;
  }
  EXPECT_EQ(graph.plots.back().style, PlotStyle::Scatter);
  EXPECT_EQ(graph.plots.back().x.size(), 450u);
  ASSERT_EQ(graph.topLabels.size(), 9u);
  EXPECT_EQ(graph.topLabels[8].text, "S9");
  EXPECT_EQ(graph.topLabels[8].x, 40.0);
  EXPECT_EQ(graph.note, "note");
  EXPECT_EQ(graph.xAxis.label, "Distance");
  EXPECT_TRUE(graph.yAxis.reversed);
}

TEST_F(SectionPlot, APseudoDepthDividesTheVerticalAxisOnly) {
  const auto line = MakeLine(9, 50, false, SmoothVelocity);
  SectionLook look = Look(100.0, 300.0);
  look.depthDivisor = 3;
  PlotSectionImage(TOMOGRAF, GridOf(line), line, look, "");
  const GraphModel& graph = GraphOf(TOMOGRAF);
  EXPECT_DOUBLE_EQ(graph.intensity->yMax, 10.0);
  EXPECT_EQ(graph.intensity->xMax, 40.0);
  EXPECT_EQ(graph.yAxis.label, "Pseudo-depth = wavelength / 3");
  for (const PlotModel& plot : graph.plots)
    for (const double y : plot.y) EXPECT_LE(y, 10.0 + 1e-9);
}

TEST_F(SectionPlot, TheStackHasTheGreyLineFirstThenTheCurve) {
  const auto line = MakeLine(
      12, 10, false, [](double, double w) { return 100.0 + w; }, 55.0);
  PlotSectionStack(TOMOGRAF, StackCurves(line), line, Look(100.0, 130.0), "");
  const GraphModel& graph = GraphOf(TOMOGRAF);
  ASSERT_EQ(graph.plots.size(), 24u);
  for (std::size_t k = 0; k < 12; ++k) {
    const PlotModel &base = graph.plots[2 * k], &curve = graph.plots[2 * k + 1];
    EXPECT_EQ(base.color, 0xC0C0C0);
    EXPECT_EQ(curve.color, 0xFF);
    ASSERT_EQ(base.x.size(), 4u);
    EXPECT_EQ(base.x[0], curve.x.front());
    EXPECT_EQ(base.x[1], line[k].location);
    EXPECT_EQ(base.x[3], curve.x.back());
    EXPECT_NEAR(curve.x.back() - line[k].location, 6.875, 1e-9) << "1.5 of 55 m over 12";
  }
  const auto even = MakeLine(3, 10, false, [](double, double) { return 200.0; });
  PlotSectionStack(TOMOGRAF, StackCurves(even), even, Look(200.0, 200.0), "");
  for (const PlotModel& plot : graph.plots)
    for (const double x : plot.x) EXPECT_EQ(x, plot.x[0]) << "equal velocities are straight";
}

TEST_F(SectionPlot, OneStationIsDrawnOverAWidthOfItsOwn) {
  const auto line = MakeLine(1, 25, false, SmoothVelocity);
  PlotSectionImage(TOMOGRAF, GridOf(line), line, Look(100.0, 300.0), "");
  const GraphModel& graph = GraphOf(TOMOGRAF);
  EXPECT_EQ(graph.intensity->xMin, -1.0);
  EXPECT_EQ(graph.intensity->xMax, 1.0);
}

TEST_F(SectionPlot, TheStripHasTwoColumnsAndALevelForEachRow) {
  PlotColorStrip(tmgrafpnl::COLORSCALE, SectionColorLevels(100.0, 400.0, {}));
  const IntensityModel& strip = *GraphOf(tmgrafpnl::COLORSCALE).intensity;
  EXPECT_EQ(strip.columns, 2);
  EXPECT_EQ(strip.rows, 4);
  EXPECT_EQ(strip.z, (std::vector<double>{100, 200, 300, 400, 100, 200, 300, 400}));
  EXPECT_EQ(strip.yMax, 400.0);
}

}  // namespace
}  // namespace sondera
