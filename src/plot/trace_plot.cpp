// trace_plot.cpp - fills the graph model of a trace. Owns no state.
#include "plot/trace_plot.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "numeric/scale_arithmetic.h"
#include "runtime/graphs.h"
#include "signal/spectra.h"

namespace sondera {
namespace {

constexpr int kColorOriginal = 0x0000FF, kColorEnhanced = 0xFF0000, kColorBackbone = 0x00A000;
constexpr std::size_t kLowBins = 9;  // of a trace of more than ten points: they do not set the scale

/// n abscissas; times count from the trigger, whose sample is a share of the whole record.
std::vector<double> Abscissas(const HWSetup& hw, bool time, int n) {
  const double step = time ? hw.deltaT : hw.deltaF;
  const double origin =
      time ? std::trunc(2.0 * FullTimeLines(hw.nLines) * hw.triggerDelay / 100.0 + 0.5) : 0.0;
  std::vector<double> x(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) x[static_cast<std::size_t>(i)] = (i - origin) * step;
  return x;
}

void AddTrace(const TraceView& view, const std::vector<double>& x, const std::vector<double>& y, int color,
              const char* legend) {
  const auto n = static_cast<std::ptrdiff_t>(std::min(x.size(), y.size()));
  PlotXY(view.graph, {x.begin(), x.begin() + n}, {y.begin(), y.begin() + n}, PlotStyle::Line, kNoMarker,
         color, legend);
}

/// Displays of a pair: the curves whose box is on; with none on, the one in use.
void PlotPairTraces(const TraceView& view, const PMeasInfo& p) {
  const HWSetup& hw = *view.records.hwSetup;
  struct Choice {
    int box;
    const std::vector<double>*phase, *amplitude, *impulse;
    int color;
    const char* legend;
  };
  const Choice choices[] = {
      {view.boxes.original, &p.hPhase, &p.hAmp, &p.irRe, kColorOriginal, "Original"},
      {view.boxes.enhanced, &p.enPhase, &p.enAmp, &p.enIrRe, kColorEnhanced, "Enhanced"},
      {view.boxes.backbone, &p.bbPhase, &p.bbAmp, &p.bbIrRe, kColorBackbone, "Backbone"},
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
    AddTrace(view, x, *y, choice.color, choice.legend);
  }
}

void PlotChannelTrace(const TraceView& view) {
  const HWSetup& hw = *view.records.hwSetup;
  const int n = IsOverTime(view.type) ? 2 * hw.nLines : hw.nLines;
  std::vector<double> y(2 * static_cast<std::size_t>(hw.nLines)), unused(y.size());
  if (CalcSpectralData(static_cast<int>(view.type), view.records.projID, view.records.measID, view.refChan,
                       view.dspChan, y.data(), unused.data()) < 0)
    return;
  AddTrace(view, Abscissas(hw, IsOverTime(view.type), n), y, kColorOriginal, "");
}

/// Unit of the ordinates; none for ratios.
std::string_view UnitOfType(DisplayType type) {
  switch (type) {
    case DisplayType::TimeTrace:
    case DisplayType::LinearAmplitude:
      return "V";
    case DisplayType::PowerSpectrum:
    case DisplayType::CrossAmplitude:
      return "V^2";
    default:
      return IsOfPhase(type) ? "degrees" : "";
  }
}

/// Divisions of an axis, and the prefix of its larger limit for units that take one.
void DivideAxis(const GraphControl& graph, bool xAxis, bool takesPrefix) {
  const GraphLimits limits = LimitsInForce(GraphOf(graph));
  const AxisLimits& axis = xAxis ? limits.x : limits.y;
  std::string prefix;
  double factor = 1.0;
  if (takesPrefix && axis.known)
    GetUnitStr(std::max(std::fabs(axis.min), std::fabs(axis.max)), &prefix, &factor);
  SetAxisPrefix(graph, xAxis, prefix, factor);
  int divisions = 0;
  EstimateNoDiv(axis.min / factor, axis.max / factor, 0, &divisions);
  SetAxisDivisions(graph, xAxis, divisions);
}

void LabelAxes(const TraceView& view) {
  const bool time = IsOverTime(view.type);
  const std::string_view unit = UnitOfType(view.type);
  SetAxisLabel(view.graph, true, time ? "Time" : "Frequency", time ? "sec" : "Hz");
  SetAxisLabel(view.graph, false, IsOfPhase(view.type) ? std::string("Phase") : view.typeLabel, unit);
  DivideAxis(view.graph, true, true);
  DivideAxis(view.graph, false, unit == "V");
}

}  // namespace

void ScaleTraceAxes(const TraceView& view) {
  const GraphModel& model = GraphOf(view.graph);
  double lo = INFINITY, hi = -INFINITY;
  for (const PlotModel& plot : model.plots) {
    for (std::size_t i = plot.y.size() > 10 ? kLowBins : 0; i < plot.y.size(); ++i) {
      if (!std::isfinite(plot.y[i])) continue;
      lo = std::min(lo, plot.y[i]);
      hi = std::max(hi, plot.y[i]);
    }
  }
  if (!model.plots.empty() && !model.plots.front().x.empty() && view.autoScaleX) {
    const std::vector<double>& x = model.plots.front().x;
    SetAxisRange(view.graph, true, NiceNumber(x.front(), 3), NiceNumber(x.back(), 3));
  }
  if (lo <= hi && view.autoScaleY) {
    double niceLo = lo, niceHi = hi;
    if (hi > lo) CalcNiceMinMax(lo, hi, 0, &niceLo, &niceHi);
    SetAxisRange(view.graph, false, niceLo, niceHi);
  }
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
