// filter_plot.cpp - see filter_plot.h. Owns no state.
#include "plot/filter_plot.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace sondera {
namespace {

constexpr int kResponseColor = 0x777777, kEnhancedColor = 0xD55E00, kBackboneColor = 0x009E73;
constexpr double kBehindLastCorner = 1.25, kOrdinateMargin = 1.1;

WindowFour Whole(WindowFour times, int mode, double total) {
  if (mode != kLowPass) return times;
  times[3] = total - times[2];
  times[4] = total - times[1];
  return times;
}

/// Adds the window; its handle.
int PlotWindow(const GraphControl& graph, const FilterPicture& p, const WindowFour& times,
               const std::vector<double>& axis, const PlotLook& look, const char* legend) {
  std::vector<double> window(axis.size());
  const double total = axis.back();
  MakeIrfWindow(p.mode, Whole(times, p.mode, total), p.deltaT, static_cast<int>(axis.size()), window.data());
  return PlotXY(graph, axis, std::move(window), look, legend);
}

}  // namespace

int OwnCorners(int mode) {
  return mode == kLowPass ? 2 : 4;
}

void PlotFilterWindows(const GraphControl& graph, const FilterPicture& p) {
  DeleteGraphPlot(graph);
  double largest = 0.0;
  for (const double v : p.response)
    if (std::isfinite(v)) largest = std::max(largest, std::fabs(v));
  if (p.response.size() < 2 || !(p.deltaT > 0.0) || !(largest > 0.0)) {
    SetCursorCount(graph, 0);
    return;
  }
  std::vector<double> axis(p.response.size()), share(axis.size());
  for (std::size_t i = 0; i < axis.size(); ++i) {
    axis[i] = static_cast<double>(i) * p.deltaT;
    share[i] = p.response[i] / largest;
  }
  const double total = axis.back();
  PlotXY(graph, axis, std::move(share), {.color = kResponseColor}, "Impulse response");
  const int backbone =
      PlotWindow(graph, p, p.backbone, axis,
                 {.color = kBackboneColor, .width = 1.5, .dash = LineDash::Dotted}, "Backbone");
  if (p.hasOther)
    PlotWindow(graph, p, p.other, axis, {.color = kEnhancedColor, .dash = LineDash::Dashed},
               "Enhanced, by velocities");
  const int enhanced =
      PlotWindow(graph, p, p.enhanced, axis, {.color = kEnhancedColor, .width = 1.5}, "Enhanced");
  SetAxisLabel(graph, true, "Time", "s");
  SetAxisLabel(graph, false, "Share of the peak");
  const double last = kBehindLastCorner * std::max(p.enhanced[4], p.backbone[4]);
  SetAxisRange(graph, true, 0.0, p.mode == kLowPass || !(last > 0.0) ? total : std::min(last, total));
  SetAxisRange(graph, false, -kOrdinateMargin, kOrdinateMargin);

  const int corners = OwnCorners(p.mode);
  SetCursorCount(graph, 2 * corners);
  for (int k = 1; k <= corners; ++k) {
    for (const bool ofEnhanced : {true, false}) {
      const int cursor = ofEnhanced ? k : corners + k;
      const double time = (ofEnhanced ? p.enhanced : p.backbone)[static_cast<std::size_t>(k)];
      const double at = time / p.deltaT + 0.5;
      const double end = static_cast<double>(axis.size() - 1);
      const int sample =
          at > 0.0 ? static_cast<int>(std::min(at, end)) : 0;  // a corner that is NaN: the start
      PutCursorOnPlot(graph, cursor, ofEnhanced ? enhanced : backbone, sample);
      SetCursorColor(graph, cursor, ofEnhanced ? kEnhancedColor : kBackboneColor);
    }
  }
}

}  // namespace sondera
