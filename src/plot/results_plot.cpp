// results_plot.cpp - see results_plot.h. Owns no state.
#include "plot/results_plot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>

#include "numeric/scale_arithmetic.h"
#include "plot/disp_curv_plot.h"
#include "records/kinds.h"
#include "records/selection.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kLastMarker = 18;
constexpr int kZeroColor = 0x808080;
constexpr double kResidualMargin = 1.1;

/// A theoretical curve with its own points: for an array curve, elements of a column at a fixed stride belong
/// to it.
struct OwnCurve {
  std::size_t number = 0;
  std::array<std::vector<double>, 3> columns;  // velocity, frequency, wavelength
  std::string label;
  CurveLook look;

  void Add(double velocity, double frequency, double wavelength) {
    if (!(velocity > 0.0)) return;  // no result there
    columns[0].push_back(velocity);
    columns[1].push_back(frequency);
    columns[2].push_back(wavelength);
  }
  PageCurve View() const {
    return {label, {columns[0], columns[1], columns[2]}, look.marker, CurveColor(look.color)};
  }
};

/// A count of a record, limited to its columns: a file may contain any number.
std::size_t Held(int count, std::initializer_list<const std::vector<double>*> columns) {
  std::size_t held = static_cast<std::size_t>(std::max(count, 0));
  for (const std::vector<double>* column : columns) held = std::min(held, column->size());
  return held;
}

OwnCurve GlobalCurveOf(const ModelRecord& r) {
  OwnCurve curve;
  curve.label = "Theoretical";
  const std::size_t n = Held(r.nDispPointsG, {&r.globalVel, &r.globalFreq, &r.globalWlen});
  for (std::size_t i = 0; i < n; ++i) curve.Add(r.globalVel[i], r.globalFreq[i], r.globalWlen[i]);
  return curve;
}

OwnCurve ArrayCurveOf(const ModelRecord& r, std::size_t number) {
  OwnCurve curve;
  curve.label = FormatText("Theoretical [%d:%d]", r.pairRec1[number], r.pairRec2[number]);
  const auto curves = static_cast<std::size_t>(r.nDispCurves);
  const std::size_t n = Held(r.nDispPoints, {&r.freq}), data = std::min(r.vel.size(), r.wlen.size());
  for (std::size_t p = 0; p < n && p * curves + number < data; ++p)
    curve.Add(r.vel[p * curves + number], r.freq[p], r.wlen[p * curves + number]);
  return curve;
}

std::vector<OwnCurve> TheoreticalCurves(const ModelRecord& r, const ResultsChoice& choice,
                                        const std::vector<CurveLook>& looks) {
  std::vector<OwnCurve> curves;
  if (choice.theoretical == theoretical::kNotDisplayed) return curves;
  const bool global = r.dispCurvType != kArrayCurves;
  for (int c = 0; c < TheoreticalCount(r); ++c) {
    const bool wanted = (choice.theoretical == theoretical::kAll || choice.theoretical == c) &&
                        (global || choice.array == theoretical::kAll || choice.array == c);
    if (!wanted) continue;
    OwnCurve curve = global ? GlobalCurveOf(r) : ArrayCurveOf(r, static_cast<std::size_t>(c));
    if (curve.columns[0].empty()) continue;
    curve.number = static_cast<std::size_t>(c);
    if (!looks.empty())
      curve.look = looks[static_cast<std::size_t>(c) < looks.size() ? static_cast<std::size_t>(c) : 0];
    curves.push_back(std::move(curve));
  }
  return curves;
}

/// The array curve of a number is that of the included pair with this number: array runs use them in that
/// order.
void KeepOneArrayCurve(PageCurves& curves, int number) {
  if (number == theoretical::kAll) return;
  const bool there = number >= 0 && static_cast<std::size_t>(number) < curves.composite.size();
  const std::string label = there ? curves.composite[static_cast<std::size_t>(number)].label : std::string();
  std::erase_if(curves.array, [&](const PageCurve& c) { return c.label != label; });
}

}  // namespace

int TheoreticalCount(const ModelRecord& r) {
  if (r.dispCurvType != kArrayCurves) return 1;
  const std::size_t pairs = std::min(r.pairRec1.size(), r.pairRec2.size());
  return static_cast<int>(std::min(static_cast<std::size_t>(std::max(r.nDispCurves, 0)), pairs));
}

void GiveLooks(std::vector<CurveLook>& looks, int count, int& nextMarker) {
  const auto wanted = static_cast<std::size_t>(std::max(count, 0));
  if (looks.size() > wanted) looks.resize(wanted);
  while (looks.size() < wanted) {
    if (nextMarker > kLastMarker) nextMarker = 0;
    looks.push_back({nextMarker++, static_cast<int>(looks.size() % kCurveColors.size())});
  }
}

void PlotResults(const GraphControl& graph, const ModelRecord& record, const ResultsChoice& choice,
                 const std::vector<CurveLook>& looks, AxisRecord& axes) {
  using namespace experimental;
  PageCurves measured = GatherCurves(false);
  KeepOneArrayCurve(measured, choice.array);
  const int type = choice.experimental;
  const bool behind = type == kCompositeGlobal || type == kCompositeArray;
  if (type != kComposite && !behind) measured.composite.clear();
  if (type != kGlobal && type != kCompositeGlobal) measured.global.clear();
  if (type != kArray && type != kCompositeArray) measured.array.clear();
  const std::vector<OwnCurve> computed = TheoreticalCurves(record, choice, looks);
  std::vector<PageCurve> views;
  for (const OwnCurve& curve : computed) views.push_back(curve.View());

  std::vector<PageCurve> drawn = views;
  for (const std::vector<PageCurve>* group : {&measured.composite, &measured.global, &measured.array})
    drawn.insert(drawn.end(), group->begin(), group->end());
  DeleteGraphPlot(graph);
  SetUpCurveAxes(graph, drawn, axes);
  AddPageCurves(graph, measured.composite, axes, PlotStyle::Scatter, behind);
  AddPageCurves(graph, measured.global, axes, PlotStyle::ConnectedPoints);
  AddPageCurves(graph, measured.array, axes, PlotStyle::ConnectedPoints);
  AddPageCurves(graph, views, axes, PlotStyle::ConnectedPoints);
}

void PlotResiduals(const GraphControl& graph, const GraphControl& curves, const ModelRecord& record,
                   const ResultsChoice& choice, const std::vector<CurveLook>& looks,
                   const std::vector<ReportCurve>& measured, const AxisRecord& axes) {
  DeleteGraphPlot(graph);
  const GraphModel& above = GraphOf(curves);
  const AxisLimits across = LimitsInForce(above).x;
  SetAxisLabel(graph, true, above.xAxis.label, above.xAxis.unit);
  SetAxisLogarithmic(graph, true, above.xAxis.logarithmic);
  if (across.known)
    SetAxisRange(graph, true, across.min, across.max);
  else
    SetAxisAuto(graph, true);
  SetAxisLabel(graph, false, "Residual", LengthUnitText(session.lengthUnit) + "/s");
  SetAxisAuto(graph, false);
  const auto over = static_cast<AxisQuantity>(axes.xType);
  if (over != AxisQuantity::Frequency && over != AxisQuantity::Wavelength) return;
  double largest = 0.0;
  int line = 0;
  for (const OwnCurve& curve : TheoreticalCurves(record, choice, looks)) {
    if (curve.number >= measured.size()) continue;
    const Residuals r = ResidualsOf(measured[curve.number],
                                    {curve.label, curve.columns[0], curve.columns[1], curve.columns[2]});
    if (r.difference.empty()) continue;
    for (const double d : r.difference)
      if (std::isfinite(d)) largest = std::max(largest, std::fabs(d));
    if (line == 0)
      line = PlotXY(graph, {across.min, across.max}, {0.0, 0.0},
                    {.color = kZeroColor, .dash = LineDash::Dashed, .inLegend = false});
    PlotXY(graph, over == AxisQuantity::Frequency ? r.freq : r.wlen, r.difference,
           {.style = PlotStyle::Scatter,
            .marker = curve.look.marker,
            .color = CurveColor(curve.look.color),
            .inLegend = false},
           curve.label);
  }
  if (line == 0) return;
  double low = 0.0, high = 1.0;
  if (largest > 0.0) CalcNiceMinMax(0.0, kResidualMargin * largest, 0, &low, &high);
  SetAxisRange(graph, false, -high, high);
}

}  // namespace sondera
