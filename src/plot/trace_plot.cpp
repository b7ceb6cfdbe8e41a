// trace_plot.cpp - fills the graph model of a trace. Owns no state.
#include "plot/trace_plot.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "numeric/scale_arithmetic.h"
#include "runtime/graphs.h"
#include "signal/spectra.h"

namespace sondera {
namespace {

constexpr int kColorOriginal = 0x0000FF, kColorEnhanced = 0xFF0000, kColorBackbone = 0x00A000;
constexpr std::size_t kLowBins = 9;  // of a trace of more than ten points: they do not affect the scale

/// n abscissas; times count from the trigger, whose sample is a share of the whole record.
std::vector<double> Abscissas(const HWSetup& hw, bool time, int n) {
  const double step = time ? hw.deltaT : hw.deltaF;
  const double origin =
      time ? std::trunc(2.0 * FullTimeLines(hw.nLines) * hw.triggerDelay / 100.0 + 0.5) : 0.0;
  std::vector<double> x(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) x[static_cast<std::size_t>(i)] = (i - origin) * step;
  return x;
}

bool IsLogarithmic(const TraceView& view) {
  return view.logarithmic && TakesLogOrdinate(view.type);
}

/// On a logarithmic axis ordinates of 0 or less are left out.
void AddTrace(const TraceView& view, const std::vector<double>& x, std::vector<double> y, int color,
              const char* legend, LineDash dash = LineDash::Solid) {
  const std::size_t n = std::min(x.size(), y.size());
  y.resize(n);
  if (IsLogarithmic(view)) {
    for (double& value : y)
      if (!(value > 0.0)) value = NAN;
  }
  PlotXY(view.graph, {x.begin(), x.begin() + static_cast<std::ptrdiff_t>(n)}, std::move(y),
         {.color = color, .dash = dash}, legend);
}

/// Displays of a pair: the curves whose box is on; with none on, the one in use.
void PlotPairTraces(const TraceView& view, const PMeasInfo& p) {
  const HWSetup& hw = *view.records.hwSetup;
  struct Choice {
    int box;
    const std::vector<double>*phase, *amplitude, *impulse;
    int color;
    const char* legend;
    LineDash dash;
  };
  const Choice choices[] = {
      {view.boxes.original, &p.hPhase, &p.hAmp, &p.irRe, kColorOriginal, "Original", LineDash::Solid},
      {view.boxes.enhanced, &p.enPhase, &p.enAmp, &p.enIrRe, kColorEnhanced, "Enhanced", LineDash::Dashed},
      {view.boxes.backbone, &p.bbPhase, &p.bbAmp, &p.bbIrRe, kColorBackbone, "Backbone", LineDash::Dotted},
  };
  const bool none = !choices[0].box && !choices[1].box && !choices[2].box;
  const bool time = view.type == DisplayType::ImpulseResponse;
  const std::vector<double> x = Abscissas(hw, time, time ? 2 * hw.nLines : hw.nLines);
  for (int k = 0; k < 3; ++k) {
    const Choice& choice = choices[k];
    if (!choice.box && !(none && k == std::clamp(p.phaseOption, 0, 2))) continue;
    const std::vector<double>* y = view.type == DisplayType::TransferPhase       ? choice.phase
                                   : view.type == DisplayType::TransferAmplitude ? choice.amplitude
                                                                                 : choice.impulse;
    AddTrace(view, x, *y, choice.color, choice.legend, choice.dash);
  }
}

void PlotChannelTrace(const TraceView& view) {
  const HWSetup& hw = *view.records.hwSetup;
  const int n = IsOverTime(view.type) ? 2 * hw.nLines : hw.nLines;
  std::vector<double> y(2 * static_cast<std::size_t>(hw.nLines)), unused(y.size());
  if (CalcSpectralData(static_cast<int>(view.type), view.records.projID, view.records.measID, view.refChan,
                       view.dspChan, y.data(), unused.data()) < 0)
    return;
  ConvertVolts(view.type, view.unit, hw.deltaF, y);
  AddTrace(view, Abscissas(hw, IsOverTime(view.type), n), std::move(y), kColorOriginal, "");
}

/// Unit of the ordinates; none for ratios.
std::string UnitOfOrdinates(const TraceView& view) {
  if (IsOfPhase(view.type)) return "degrees";
  std::vector<double> none;
  return ConvertVolts(view.type, view.unit, 1.0, none);
}

/// Divisions of an axis, and the prefix of its larger limit for units that take one.
void DivideAxis(const GraphControl& graph, bool xAxis, bool takesPrefix) {
  const GraphModel& model = GraphOf(graph);
  const GraphLimits limits = LimitsInForce(model);
  const AxisLimits& axis = xAxis ? limits.x : limits.y;
  std::string prefix;
  double factor = 1.0;
  if (takesPrefix && axis.known)
    GetUnitStr(std::max(std::fabs(axis.min), std::fabs(axis.max)), &prefix, &factor);
  SetAxisPrefix(graph, xAxis, prefix, factor);
  int divisions = 0;
  const bool logarithmic = (xAxis ? model.xAxis : model.yAxis).logarithmic;
  EstimateNoDiv(axis.min / factor, axis.max / factor, logarithmic ? 1 : 0, &divisions);
  SetAxisDivisions(graph, xAxis, divisions);
}

void LabelAxes(const TraceView& view) {
  const bool time = IsOverTime(view.type);
  const std::string unit = UnitOfOrdinates(view);
  SetAxisLabel(view.graph, true, time ? "Time" : "Frequency", time ? "sec" : "Hz");
  SetAxisLabel(view.graph, false, IsOfPhase(view.type) ? std::string("Phase") : view.typeLabel, unit);
  DivideAxis(view.graph, true, true);
  // A prefix before a square would be squared with it.
  DivideAxis(view.graph, false, unit.starts_with('V') && unit.find('^') == std::string::npos);
}

/// Range of the ordinates that determine the scale; equal to the present limits without a finite one.
AxisRange OrdinateRange(const TraceView& view) {
  const GraphModel& model = GraphOf(view.graph);
  double lo = INFINITY, hi = -INFINITY;
  for (const PlotModel& plot : model.plots) {
    for (std::size_t i = plot.y.size() > 10 ? kLowBins : 0; i < plot.y.size(); ++i) {
      if (!std::isfinite(plot.y[i])) continue;
      lo = std::min(lo, plot.y[i]);
      hi = std::max(hi, plot.y[i]);
    }
  }
  if (lo > hi) return {model.yAxis.min, model.yAxis.max};
  const bool logarithmic = IsLogarithmic(view);
  if (lo == hi) return logarithmic ? AxisRange{lo / 2.0, lo * 2.0} : AxisRange{lo - 1.0, lo + 1.0};
  AxisRange range{lo, hi};
  CalcNiceMinMax(lo, hi, logarithmic ? 1 : 0, &range.min, &range.max);
  return range;
}

AxisRange AbscissaRange(const TraceView& view) {
  const GraphModel& model = GraphOf(view.graph);
  if (model.plots.empty() || model.plots.front().x.empty()) return {model.xAxis.min, model.xAxis.max};
  const std::vector<double>& x = model.plots.front().x;
  return {NiceNumber(x.front(), 3), NiceNumber(x.back(), 3)};
}

/// Limits of one axis: those of the view unless it is automatic or they are equal.
void ScaleAxis(const TraceView& view, bool xAxis) {
  const bool automatic = xAxis ? view.autoScaleX : view.autoScaleY;
  AxisRange own;
  AxisRange& limits = !view.limits ? own : xAxis ? view.limits->x : view.limits->y;
  if (automatic || limits.min == limits.max) limits = xAxis ? AbscissaRange(view) : OrdinateRange(view);
  SetAxisRange(view.graph, xAxis, limits.min, limits.max);
}

}  // namespace

void ScaleTraceAxes(const TraceView& view) {
  SetAxisLogarithmic(view.graph, true, false);
  SetAxisLogarithmic(view.graph, false, IsLogarithmic(view));
  for (const bool xAxis : {true, false}) ScaleAxis(view, xAxis);
  LabelAxes(view);
}

void PlotTrace(const TraceView& view) {
  if (!IsOfPair(view.type))
    PlotChannelTrace(view);
  else if (view.pair)
    PlotPairTraces(view, *view.pair);
  ScaleTraceAxes(view);
}

}  // namespace sondera
