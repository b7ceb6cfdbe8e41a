// disp_curv_plot.cpp - see disp_curv_plot.h. The counter of colours and the axis record are the session's.
#include "plot/disp_curv_plot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "numeric/scale_arithmetic.h"
#include "records/curve_labels.h"
#include "records/measdb.h"
#include "records/measurement_rules.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/graphs.h"

namespace sondera {
namespace {

constexpr int kColorNotGiven = -1, kBlue = 2;
constexpr int kGlobalMarker = 12, kGlobalColor = 2;
constexpr int kBackgroundColor = 12;  // composite curves drawn behind a representative one
/// Markers in the order in which curves get them: the first ones differ most.
constexpr std::array<int, 19> kMarkerOrder = {12, 9,  6, 10, 16, 8,  5, 17, 15, 1,
                                              0,  11, 7, 2,  14, 13, 4, 3,  18};
constexpr double kAxisMargin = 1.2;
constexpr double kLowestOnLogAxis = 1e-10;
constexpr std::array<const char*, 3> kQuantityNames = {"Phase Velocity", "Frequency", "Wavelength"};

std::size_t Quantity(int type) {
  return static_cast<std::size_t>(std::clamp(type, 0, 2));
}

/// Points of a pair's curve, limited to the arrays: a count from a file may be any number.
std::size_t PointCount(const PMeasInfo& pair) {
  const std::size_t room = std::min({pair.dispVel.size(), pair.dispFreq.size(), pair.dispWlen.size()});
  return std::min(static_cast<std::size_t>(std::max(pair.nDispPoints, 0)), room);
}

/// Markers of the pairs with a curve, in the order of the list. Pairs start with a solid circle: the first one is drawn
/// so, the next get markers that no other pair has, so that curves can be told apart without their colours. Whether a
/// curve is included changes none of them.
std::map<const PMeasInfo*, int> DrawnMarkers() {
  std::map<const PMeasInfo*, int> drawn;
  std::array<int, kMarkerOrder.size()> used = {};
  const auto take = [&](const PMeasInfo& pair, int marker) {
    drawn[&pair] = marker;
    if (marker >= 0 && marker < static_cast<int>(used.size())) ++used[static_cast<std::size_t>(marker)];
  };
  for (const PMeasInfo& pair : MeasDB.pMeasList)
    if (PointCount(pair) > 0 && pair.marker != kMarkerOrder[0]) take(pair, pair.marker);
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    if (PointCount(pair) == 0 || pair.marker != kMarkerOrder[0]) continue;
    const auto uses = [&](int marker) { return used[static_cast<std::size_t>(marker)]; };
    take(pair, *std::min_element(kMarkerOrder.begin(), kMarkerOrder.end(),
                                 [&](int a, int b) { return uses(a) < uses(b); }));
  }
  return drawn;
}

/// The curve of a pair; one without a colour is blue.
PageCurve CurveOf(const PMeasInfo& pair, std::string label, int marker) {
  const std::size_t n = PointCount(pair);
  return {
      std::move(label),
      {std::span<const double>(pair.dispVel.data(), n), {pair.dispFreq.data(), n}, {pair.dispWlen.data(), n}},
      marker,
      CurveColor(pair.color == kColorNotGiven ? kBlue : pair.color)};
}

/// The included curves of pairs; assigns colours to those without one.
std::vector<PageCurve> PairCurves(bool csw, const std::map<const PMeasInfo*, int>& markers) {
  std::vector<PageCurve> curves;
  for (PMeasInfo& pair : MeasDB.pMeasList) {
    std::string projID, measID;
    if (!IsPlotted(pair) || !GetIDfromKey(pair.key, projID, measID)) continue;
    if (pair.color == kColorNotGiven) pair.color = session.nextCurveColor++;
    curves.push_back(
        CurveOf(pair, DispCurveLabel(measID, pair.refChan, pair.dspChan, csw), markers.at(&pair)));
  }
  return curves;
}

PageCurve Representative(const DispInfo& d, std::string label, int marker, int color) {
  const int held = std::min({d.vel.size(), d.freq.size(), d.wlen.size()});
  const auto n = static_cast<std::size_t>(std::clamp(d.nPoints, 0, held));
  return {std::move(label),
          {std::span<const double>(d.vel.data(), n), {d.freq.data(), n}, {d.wlen.data(), n}},
          marker,
          CurveColor(color)};
}

/// Range of a quantity over the pair curves, with margin, on round numbers. Equal limits without a value.
AxisRange AutoRange(std::span<const PageCurve> curves, std::size_t quantity, bool linear) {
  std::vector<double> values;
  for (const PageCurve& c : curves)
    for (double v : c.columns[quantity])
      if (v != 0.0 && std::isfinite(v)) values.push_back(v);
  if (values.empty()) return {};
  const auto [low, high] = std::minmax_element(values.begin(), values.end());
  double min = *low;
  const double max = *high;
  if (!linear && min <= kLowestOnLogAxis) {
    for (double v : values)
      if (v > kLowestOnLogAxis && (min <= kLowestOnLogAxis || v < min)) min = v;
  }
  AxisRange range;
  CalcNiceMinMax(min / kAxisMargin, max * kAxisMargin, linear ? 0 : 1, &range.min, &range.max);
  if (linear) range.min = 0.0;
  return range;
}

/// Of velocity, frequency, wavelength, in the unit of length of the session.
std::string UnitOf(std::size_t quantity) {
  if (quantity == 1) return "Hz";
  const std::string length = LengthUnitText(session.lengthUnit);
  return quantity == 0 ? length + "/s" : length;
}

void SetUpAxis(const GraphControl& graph, std::span<const PageCurve> curves, bool xAxis, AxisRecord& record) {
  const std::size_t quantity = Quantity(xAxis ? record.xType : record.yType);
  const bool linear = (xAxis ? record.xLinear : record.yLinear) != 0;
  if ((xAxis ? record.xAutoScale : record.yAutoScale) != 0)
    record.range[quantity] = AutoRange(curves, quantity, linear);
  SetAxisLabel(graph, xAxis, kQuantityNames[quantity], UnitOf(quantity));
  SetAxisLogarithmic(graph, xAxis, !linear);
  SetAxisRange(graph, xAxis, record.range[quantity].min, record.range[quantity].max);
}

}  // namespace

int CurveColor(int index) {
  constexpr int count = static_cast<int>(kCurveColors.size());
  return kCurveColors[static_cast<std::size_t>(((index % count) + count) % count)];
}

bool IsPlotted(const PMeasInfo& pair) {
  return pair.included == 1 && PointCount(pair) > 0;
}

std::size_t CountIncludedPoints() {
  std::size_t count = 0;
  for (const PMeasInfo& pair : MeasDB.pMeasList)
    if (pair.included == 1) count += PointCount(pair);
  return count;
}

PageCurves GatherCurves(bool csw) {
  PageCurves curves;
  const std::map<const PMeasInfo*, int> markers = DrawnMarkers();
  curves.composite = PairCurves(csw, markers);
  for (const DispInfo& d : MeasDB.gDispList)
    curves.global.push_back(Representative(d, d.label, kGlobalMarker, kGlobalColor));
  for (const DispInfo& d : MeasDB.aDispList) {
    PMeasInfo* pair = nullptr;
    std::string projID, measID;
    if (CheckifIncluded(d.key, d.refChan, d.dspChan, pair) != 1 || !GetIDfromKey(d.key, projID, measID))
      continue;
    const auto marker = markers.find(pair);
    curves.array.push_back(Representative(d, DispCurveLabel(measID, d.refChan, d.dspChan, csw),
                                          marker == markers.end() ? pair->marker : marker->second,
                                          pair->color));
  }
  return curves;
}

void SetUpCurveAxes(const GraphControl& graph, std::span<const PageCurve> curves, AxisRecord& axes) {
  SetUpAxis(graph, curves, true, axes);
  SetUpAxis(graph, curves, false, axes);
}

void AddPageCurves(const GraphControl& graph, std::span<const PageCurve> curves, const AxisRecord& axes,
                   PlotStyle style, bool behind) {
  const std::size_t x = Quantity(axes.xType), y = Quantity(axes.yType);
  for (const PageCurve& c : curves)
    PlotXY(graph, {c.columns[x].begin(), c.columns[x].end()}, {c.columns[y].begin(), c.columns[y].end()},
           style, c.marker, behind ? CurveColor(kBackgroundColor) : c.color, c.label);
}

void PlotDispCurves(const GraphControl& graph, const PageCurves& curves, int type, AxisRecord& axes) {
  DeleteGraphPlot(graph);
  SetUpCurveAxes(graph, curves.composite, axes);
  using namespace curve_type;
  if (type == kComposite) AddPageCurves(graph, curves.composite, axes, PlotStyle::Scatter);
  if (type == kCompositeGlobal || type == kCompositeArray)
    AddPageCurves(graph, curves.composite, axes, PlotStyle::Scatter, true);
  if (type == kGlobal || type == kCompositeGlobal)
    AddPageCurves(graph, curves.global, axes, PlotStyle::ConnectedPoints);
  if (type == kArray || type == kCompositeArray)
    AddPageCurves(graph, curves.array, axes, PlotStyle::ConnectedPoints);
}

bool PlotPairCurve(const GraphControl& graph, const PMeasInfo* pair, const std::string& label,
                   const AxisRecord& page) {
  DeleteGraphPlot(graph);
  SetGraphTitle(graph, "");
  if (!pair || PointCount(*pair) == 0) return false;
  const PageCurve curve = CurveOf(*pair, "", pair->marker);  // the title names it; a legend would cover it
  AxisRecord axes = page;
  axes.xAutoScale = axes.yAutoScale = 1;
  SetUpCurveAxes(graph, std::span(&curve, 1), axes);
  // The small graph has no height for the name of the quantity.
  const std::string unit = GraphOf(graph).yAxis.unit;
  SetAxisLabel(graph, false, unit);
  AddPageCurves(graph, std::span(&curve, 1), axes, PlotStyle::Scatter);
  SetGraphTitle(graph, label);
  return true;
}

}  // namespace sondera
