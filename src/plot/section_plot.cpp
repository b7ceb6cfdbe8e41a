// section_plot.cpp - see section_plot.h. Owns no state.
#include "plot/section_plot.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

#include "runtime/text_format.h"
#include "signal/section_contours.h"

namespace sondera {
namespace {

constexpr int kBaseLine = 0xC0C0C0, kCurve = 0xFF;
constexpr int kOnImage = 0xFFFFFF;  // pale colours get a dark edge, so that they are seen on all others
constexpr int kPointMarker = 14;    // small solid circle
constexpr int kContours = 8;

void SetUpAxes(const GraphControl& graph, const SectionLook& look) {
  for (const bool xAxis : {true, false}) {
    SetAxisLogarithmic(graph, xAxis, false);
    SetAxisPrefix(graph, xAxis, "", 1.0);
    SetAxisDivisions(graph, xAxis, 0);
    SetAxisAuto(graph, xAxis);
  }
  SetAxisLabel(graph, true, "Distance", look.unit);
  SetAxisLabel(graph, false,
               look.depthDivisor == 1 ? std::string("Wavelength")
                                      : "Pseudo-depth = wavelength / " + std::to_string(look.depthDivisor),
               look.unit);
  SetAxisReversed(graph, false, true);
}

std::vector<double> Divided(std::vector<double> wavelengths, int divisor) {
  for (double& w : wavelengths) w /= divisor;
  return wavelengths;
}

void WidenPoint(double& min, double& max) {
  if (min != max) return;
  min -= 1.0;
  max += 1.0;
}

bool IsOnLine(const SectionStation& s) {
  if (!s.valid || !std::isfinite(s.location)) return false;
  for (std::size_t i = 0; i < std::min(s.wlen.size(), s.vel.size()); ++i)
    if (PointCounts(s.wlen[i], s.vel[i])) return true;
  return false;
}

void NameStations(const GraphControl& graph, std::span<const SectionStation> stations) {
  std::vector<TopLabel> labels;
  for (const SectionStation& s : stations)
    if (IsOnLine(s)) labels.push_back({s.location, s.label});
  std::stable_sort(labels.begin(), labels.end(),
                   [](const TopLabel& a, const TopLabel& b) { return a.x < b.x; });
  SetTopLabels(graph, std::move(labels));
}

void MarkPoints(const GraphControl& graph, std::span<const SectionStation> stations, int divisor) {
  std::vector<double> x, y;
  for (const SectionStation& s : stations) {
    if (!IsOnLine(s)) continue;
    for (std::size_t i = 0; i < std::min(s.wlen.size(), s.vel.size()); ++i) {
      if (!PointCounts(s.wlen[i], s.vel[i])) continue;
      x.push_back(s.location);
      y.push_back(s.wlen[i] / divisor);
    }
  }
  PlotXY(graph, std::move(x), std::move(y),
         {.style = PlotStyle::Scatter, .marker = kPointMarker, .color = kOnImage, .inLegend = false},
         "Data points");
}

}  // namespace

std::vector<ColorLevel> SectionColorLevels(double low, double high, const ColorScale& colors) {
  std::vector<ColorLevel> levels;
  for (const SectionColor& entry :
       MakeTMGColorMap(low, high, {colors.lo, colors.int1, colors.int2, colors.hi}))
    levels.push_back({entry.level, entry.color});
  return levels;
}

IntensityModel SectionImage(const SectionGrid& grid, const SectionLook& look) {
  IntensityModel image;
  image.colorMap = look.colors;
  if (!look.colors.empty() && look.colors.front().level < look.colors.back().level)
    image.colorMap.push_back(
        {std::nextafter(look.colors.back().level, std::numeric_limits<double>::infinity()),
         kAboveSectionColor});
  image.label = "Phase Velocity";
  image.unit = look.unit + "/s";
  if (grid.Empty()) return image;
  image.columns = static_cast<int>(grid.gridX.size());
  image.rows = static_cast<int>(grid.gridY.size());
  image.z.reserve(grid.value.size());
  for (int i = 0; i < image.columns; ++i)
    for (int j = 0; j < image.rows; ++j) image.z.push_back(grid.At(i, j));
  image.xMin = grid.gridX.front();
  image.xMax = grid.gridX.back();
  image.yMin = grid.gridY.front() / look.depthDivisor;
  image.yMax = grid.gridY.back() / look.depthDivisor;
  WidenPoint(image.xMin, image.xMax);
  WidenPoint(image.yMin, image.yMax);
  return image;
}

std::vector<double> SectionContourLevels(const SectionGrid& grid) {
  double low = HUGE_VAL, high = -HUGE_VAL;
  for (const double v : grid.value) {
    if (std::isnan(v)) continue;
    low = std::min(low, v);
    high = std::max(high, v);
  }
  return low < high ? RoundLevels(low, high, kContours) : std::vector<double>();
}

void PlotSectionImage(const GraphControl& graph, const SectionGrid& grid,
                      std::span<const SectionStation> stations, const SectionLook& look,
                      const std::string& note) {
  DeleteGraphPlot(graph);
  SetUpAxes(graph, look);
  IntensityModel image = SectionImage(grid, look);
  SetAxisRange(graph, true, image.xMin, image.xMax);
  SetAxisRange(graph, false, image.yMin, image.yMax);
  PlotIntensity(graph, std::move(image));
  if (look.contours) {
    for (ContourLine& line : SectionContours(grid, SectionContourLevels(grid)))
      PlotXY(graph, std::move(line.x), Divided(std::move(line.y), look.depthDivisor),
             {.color = kOnImage, .inLegend = false}, FormatText("%g", line.level));
  }
  MarkPoints(graph, stations, look.depthDivisor);
  NameStations(graph, stations);
  SetGraphNote(graph, note);
}

void PlotSectionStack(const GraphControl& graph, const StackedSection& stack,
                      std::span<const SectionStation> stations, const SectionLook& look,
                      const std::string& note) {
  DeleteGraphPlot(graph);
  SetUpAxes(graph, look);
  const PlotLook base = {.color = kBaseLine, .inLegend = false};
  for (const StackedCurve& curve : stack.curves) {
    PlotXY(graph, {curve.baseX.begin(), curve.baseX.end()},
           Divided({curve.baseY.begin(), curve.baseY.end()}, look.depthDivisor), base);
    PlotXY(graph, curve.x, Divided(curve.y, look.depthDivisor), {.color = kCurve, .inLegend = false},
           stations[static_cast<std::size_t>(curve.station)].label);
  }
  NameStations(graph, stations);
  SetGraphNote(graph, note);
}

}  // namespace sondera
