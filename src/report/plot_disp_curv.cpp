// plot_disp_curv.cpp - see plot_disp_curv.h.
#include "report/plot_disp_curv.h"

#include <algorithm>
#include <cmath>

#include "plot_ps/plot_ps.h"
#include "report/graph_axes.h"
#include "report/graph_state.h"

namespace sondera {
namespace {

/// Position of a value along an axis: 0 at its beginning, 1 at its end. Not finite if the axis cannot show
/// it.
double PartOfAxis(double v, double min, double max, bool logarithmic) {
  if (!logarithmic) return (v - min) / (max - min);
  return v > 0.0 ? (std::log10(v) - std::log10(min)) / (std::log10(max) - std::log10(min)) : std::nan("");
}

bool OnAxis(double part) {
  constexpr double kSlack = 1e-9;
  return part >= -kSlack && part <= 1.0 + kSlack;
}

void DrawPoints(const double* x, const double* y, int n, bool logarithmic, CurveMark mark) {
  constexpr float kWidth = 0.5f;
  ps_line_width(kWidth);
  for (int i = 0; i < n; ++i) {
    const double partX = PartOfAxis(x[i], graph.axMinX, graph.axMaxX, logarithmic);
    const double partY = PartOfAxis(y[i], graph.axMinY, graph.axMaxY, false);
    if (!OnAxis(partX) || !OnAxis(partY) || !(y[i] > 0.0)) continue;
    DrawMark(static_cast<float>(partX * graph.axLenX), static_cast<float>(partY * graph.axLenY), mark);
  }
}

void DrawLegend(CurveMark mark, const LegendRow& row) {
  constexpr float kTextRight = 0.22f, kTextDown = 0.075f, kHeight = 0.25f;
  if (row.text.empty()) return;
  DrawMark(row.x, row.y, mark);
  ps_gray(0.0f);
  ps_size(kHeight);
  ps_writea(row.x + kTextRight, row.y - kTextDown, row.text, 0.0f);
}

void PlotCurve(const double* x, const double* y, int n, bool keepX, bool keepY, bool logarithmic, Axes axes,
               CurveMark mark, const LegendRow& legend) {
  if (!keepX) RangeOf(x, n, graph.axMinX, graph.axMaxX);
  if (!keepY) RangeOf(y, n, graph.axMinY, graph.axMaxY);
  if (!HasRange() || (logarithmic && !(graph.axMinX > 0.0 && graph.axMaxX > 0.0))) return;
  EnterGraph();
  if (axes == Axes::drawn) {
    const GraphTexts all;
    DrawLabels(all);
    logarithmic ? DrawLogX(all) : DrawLinearX(all);
    DrawLinearY(all);
    DrawFrame();
  }
  DrawPoints(x, y, n, logarithmic, mark);
  DrawLegend(mark, legend);
  LeaveGraph();
}

}  // namespace

LegendRow RowOfCurve(int c, int count, float x, const std::string& label) {
  constexpr float kFirstRow = 7.8f, kRowHeight = 0.3f;
  constexpr int kRows = 26;  // the last one is at 0.3
  if (c > kRows) return {};
  const bool more = c == kRows && count > kRows;
  return {x, kFirstRow - kRowHeight * static_cast<float>(c - 1), more ? "..." : label};
}

void PlotGraf_DispCurv_Log(const double* x, const double* y, int n, bool keepX, bool keepY, Axes axes,
                           CurveMark mark, const LegendRow& legend) {
  PlotCurve(x, y, n, keepX, keepY, true, axes, mark, legend);
}

void PlotGraf_DispCurv_Lin(const double* x, const double* y, int n, bool keepX, bool keepY, Axes axes,
                           CurveMark mark, const LegendRow& legend) {
  PlotCurve(x, y, n, keepX, keepY, false, axes, mark, legend);
}

}  // namespace sondera
