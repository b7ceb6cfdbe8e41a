// The spoken description of a graph, and its drawn limits.
#include "gui/graph_style.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "figure/symbols.h"

namespace sondera {
namespace {

GraphModel Curves() {
  GraphModel g;
  g.xAxis.label = "Wavelength";
  g.xAxis.unit = "m";
  g.xAxis.logarithmic = true;
  g.yAxis.label = "Phase Velocity";
  for (const char* legend : {"H21[1:2]", "H31[1:3]"}) {
    PlotModel plot;
    plot.x = {1, 90};
    plot.y = {0, 400};
    plot.legend = legend;
    g.plots.push_back(plot);
  }
  return g;
}

RectangleModel Mask(double from, double to, bool selected = false) {
  RectangleModel mask;
  mask.x1 = from;
  mask.x2 = to;
  mask.selected = selected;
  return mask;
}

TEST(SpokenLine, NamesAxesCurvesMasksAndMarkers) {
  GraphModel g = Curves();
  EXPECT_EQ(SpokenLine(g, LimitsInForce(g)),
            "Phase Velocity 0 to 400 over Wavelength 1 to 90, logarithmic; 2 curves: H21[1:2], H31[1:3]");
  g.xAxis.unit = "Hz";
  g.rectangles.push_back(Mask(20, 30));
  g.cursors = {{.x = 20}, {.x = 30}};
  EXPECT_EQ(SpokenLine(g, LimitsInForce(g)),
            "Phase Velocity 0 to 400 over Wavelength 1 to 90, logarithmic; 2 curves: H21[1:2], H31[1:3]; 1 "
            "mask 20 to 30 "
            "Hz; markers at 20, 30");
  g.rectangles.push_back(Mask(40.5, 51.25, true));
  g.cursors.pop_back();
  EXPECT_EQ(SpokenLine(g, LimitsInForce(g)),
            "Phase Velocity 0 to 400 over Wavelength 1 to 90, logarithmic; 2 curves: H21[1:2], H31[1:3]; 2 "
            "masks 20 to 30 "
            "Hz, 40.5 to 51.25 Hz (picked); marker at 20");
}

TEST(SpokenLine, NamesHatchingsAndNotes) {
  GraphModel g = Curves();
  g.hatchings.push_back({1, 15, 20, "not seen"});
  g.sideNotes = {{2, 1, 1, "R 0.90"}, {3, 1, 2, "R 0.54"}};
  EXPECT_EQ(
      SpokenLine(g, LimitsInForce(g)),
      "Phase Velocity 0 to 400 over Wavelength 1 to 90, logarithmic; 2 curves: H21[1:2], H31[1:3]; hatched "
      "15 to 20 (not seen); notes R 0.90, R 0.54");
}

TEST(SpokenLine, TellsWhatIsDrawnAndNothingElse) {
  GraphModel g = Curves();
  g.plots[1].visible = false;
  const GraphLimits zoomed = {{10, 20, true}, {100, 200, true}};
  EXPECT_EQ(SpokenLine(g, zoomed),
            "Phase Velocity 100 to 200 over Wavelength 10 to 20, logarithmic; 1 curve: H21[1:2]");
  g.plots.clear();
  EXPECT_EQ(SpokenLine(g, LimitsInForce(g)), "Phase Velocity over Wavelength, logarithmic; no curves");
  EXPECT_EQ(SpokenLine({}, LimitsInForce({})), "y over x; no curves");
}

TEST(SpokenLine, NamesTitleMapAndDirection) {
  GraphModel g;
  g.title = "INV 3";
  g.yAxis.label = "Depth";
  g.yAxis.reversed = true;
  g.xAxis.label = "Velocity";
  IntensityModel map;
  map.columns = map.rows = 2;
  map.z = {1, 2, 3, 4};
  map.xMax = 5;
  map.yMin = 1;
  map.yMax = 2;
  g.intensity = map;
  EXPECT_EQ(SpokenLine(g, LimitsInForce(g)),
            "Depth 1 to 2, reversed over Velocity 0 to 5; map of 2 by 2; title INV 3");
}

TEST(SpokenLine, OfManyCurvesStaysALine) {
  GraphModel g = Curves();
  for (int i = 0; i < 500; ++i) g.plots.push_back(g.plots[0]);
  EXPECT_LT(SpokenLine(g, LimitsInForce(g)).size(), 500u);
  EXPECT_NE(SpokenLine(g, LimitsInForce(g)).find("502 curves"), std::string::npos);
}

TEST(SafeLimits, CanAlwaysBeDrawn) {
  constexpr double huge = std::numeric_limits<double>::max();
  for (const double low : {-huge, -1.0, 0.0, 1e-300, 1.0, 1e17, huge}) {
    for (const double high : {-1.0, 1e-300, 1.0, std::nextafter(1.0, 2.0), 1e17, huge}) {
      if (low > high) continue;
      for (const bool logarithmic : {false, true}) {
        if (logarithmic && low <= 0.0) continue;
        const AxisLimits safe = SafeLimits({low, high, true}, logarithmic);
        EXPECT_LT(safe.min, safe.max);
        EXPECT_TRUE(std::isfinite(safe.max - safe.min));
        EXPECT_GE(safe.max - safe.min, 1e-13 * std::max(std::fabs(safe.min), std::fabs(safe.max)));
        EXPECT_TRUE(!logarithmic || safe.min > 0.0);
      }
    }
  }
  const AxisLimits rounding = SafeLimits({1.0 - 1e-12, 1.0 + 1e-12, true}, false);
  EXPECT_NEAR(rounding.min, 0.0, 1e-9) << "a coherence of 1 with its rounding is one value";
  const AxisLimits plain = SafeLimits({-180.0, 180.0, true}, false);
  EXPECT_EQ(plain.min, -180.0);
  EXPECT_EQ(plain.max, 180.0);
}

TEST(Zoom, KeepsThePlaceUnderTheMouse) {
  const AxisLimits whole = {1, 100, true};
  const AxisLimits linear = Zoomed(whole, whole, false, 0.25, 0.5);
  EXPECT_NEAR(linear.min + 0.25 * (linear.max - linear.min), 1 + 0.25 * 99, 1e-9);
  EXPECT_NEAR(linear.max - linear.min, 49.5, 1e-9);
  const AxisLimits log = Zoomed(whole, whole, true, 0.5, 0.5);
  EXPECT_NEAR(std::sqrt(log.min * log.max), 10.0, 1e-9);
}

TEST(Zoom, EndsAtTheWholeAndAtWhatADoubleTellsApart) {
  const AxisLimits whole = {0, 100, true};
  const AxisLimits out = Zoomed({40, 60, true}, whole, false, 0.5, 1000.0);
  EXPECT_EQ(out.min, 0.0);
  EXPECT_EQ(out.max, 100.0);
  AxisLimits in = whole;
  for (int i = 0; i < 500; ++i) in = Zoomed(in, whole, false, 0.7, 0.5);
  EXPECT_LT(in.min, in.max);
  EXPECT_NEAR(in.min, 70.0, 1e-3);
}

TEST(GraphStyle, PhasesOfAPairDifferInDash) {
  EXPECT_TRUE(DashLengths(LineDash::Solid).empty());
  EXPECT_NE(DashLengths(LineDash::Dashed)[0], DashLengths(LineDash::Dotted)[0]);
  EXPECT_EQ(DashLengths(LineDash::DashDotted).size(), 4u);
}

TEST(GraphStyle, LinesHaveNoSymbolAndPointsAlwaysOne) {
  EXPECT_EQ(SymbolNumber({.style = PlotStyle::Line, .marker = 0}), kNoMarker);
  EXPECT_EQ(SymbolNumber({.style = PlotStyle::Steps, .marker = 5}), kNoMarker);
  EXPECT_EQ(SymbolNumber({.style = PlotStyle::Scatter, .marker = 5}), 5);
  EXPECT_EQ(SymbolNumber({.style = PlotStyle::Scatter}), 18);
  EXPECT_FALSE(HasLine({.style = PlotStyle::Scatter}));
}

}  // namespace
}  // namespace sondera
