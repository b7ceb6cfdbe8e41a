// plot_graf.cpp - see plot_graf.h.
#include "report/plot_graf.h"

#include <algorithm>
#include <cstddef>

#include "plot_ps/plot_ps.h"
#include "report/graph_axes.h"
#include "report/graph_state.h"
#include "report/sheet.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

/// Restores the range that a graph with depth downwards has swapped.
class RangeScope {
 public:
  explicit RangeScope(int mode) : restores_(mode == kDepthDown), before_(graph) {}
  ~RangeScope() {
    if (restores_) SetAxRange(before_.axMinX, before_.axMaxX, before_.axMinY, before_.axMaxY);
  }
  RangeScope(const RangeScope&) = delete;
  RangeScope& operator=(const RangeScope&) = delete;

 private:
  bool restores_;
  GraphState before_;
};

/// Range and direction of the axes. False when there is nothing to draw.
bool SetUpRange(const double* x, const double* y, int n, bool keepX, bool keepY, int mode) {
  if (!keepX) RangeOf(x, n, graph.axMinX, graph.axMaxX);
  if (!keepY) RangeOf(y, n, graph.axMinY, graph.axMaxY);
  if (!HasRange()) return false;
  if (mode == kDepthDown) std::swap(graph.axMinY, graph.axMaxY);
  return true;
}

/// User units: data minus the minimum of each axis.
bool UseDataUnits() {
  const double sx = graph.axLenX / (graph.axMaxX - graph.axMinX),
               sy = graph.axLenY / (graph.axMaxY - graph.axMinY);
  return ps_echel(Plottable(sx), Plottable(sy), 0.0f, 0.0f, 1.0f, 0.0f) == 1;
}

void DrawLine(const double* x, const double* y, int n) {
  if (!UseDataUnits() || n < 1) return;
  std::vector<float> xs(static_cast<std::size_t>(n)), ys(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) {
    xs[static_cast<std::size_t>(i)] = Plottable(x[i] - graph.axMinX);
    ys[static_cast<std::size_t>(i)] = Plottable(y[i] - graph.axMinY);
  }
  ps_polyline(xs.data(), ys.data(), n, 0, 0, 0.0f);
}

}  // namespace

void PlotGraf(const double* x, const double* y, int n, bool keepX, bool keepY, bool showX, bool showY,
              bool showTitle, int mode) {
  const RangeScope range(mode);
  if (!SetUpRange(x, y, n, keepX, keepY, mode)) return;
  EnterGraph();
  DrawLine(x, y, n);
  const GraphTexts texts = {showX, showY, showTitle, mode == kDepthDown};
  DrawLabels(texts);
  DrawLinearX(texts);
  DrawLinearY(texts);
  DrawFrame();
  LeaveGraph();
}

void AddLine(const double* x, const double* y, int n, bool keepX, bool keepY, int mode) {
  const RangeScope range(mode);
  if (!SetUpRange(x, y, n, keepX, keepY, mode)) return;
  EnterGraph();
  DrawLine(x, y, n);
  LeaveGraph();
}

void PlotMaskingBox(const double* x, const double* y, int n, const std::vector<double>& from,
                    const std::vector<double>& to, const std::vector<int>& markers, bool keepX, bool keepY) {
  constexpr double kTurn = 180.0, kNumberUp = 5.0, kNumberLeft = 0.01;
  constexpr float kMaskGrey = 0.8f, kNumberHeight = 0.2f, kLineWidth = 0.5f;
  if (!SetUpRange(x, y, n, keepX, keepY, kNormalGraph)) return;
  EnterGraph();
  ps_line_width(kLineWidth);
  const std::size_t count = std::min({from.size(), to.size(), markers.size()});
  for (std::size_t i = 0; i < count && UseDataUnits(); ++i) {
    const double begin = std::max(from[i], graph.axMinX), end = std::min(to[i], graph.axMaxX);
    if (!(begin < end)) continue;
    ps_gray(kMaskGrey);
    ps_rectangle(Plottable(begin - graph.axMinX), Plottable(-kTurn - graph.axMinY), Plottable(end - begin),
                 Plottable(2.0 * kTurn));
    ps_gray(0.0f);
    ps_writeah(Plottable(end - graph.axMinX - kNumberLeft * graph.axMaxX),
               Plottable(kTurn + kNumberUp - graph.axMinY), FormatText("%d", markers[i]), kNumberHeight);
  }
  LeaveGraph();
}

}  // namespace sondera
