// plot_disp_curv.h - graphs of dispersion curves: a marker at each point, x logarithmic or linear.
#pragma once

#include <string>

#include "report/draw_symbol.h"

namespace sondera {

/// Row of the legend; without a text there is none.
struct LegendRow {
  float x = 0.0f, y = 0.0f;  ///< of the marker, cm from the graph's corner
  std::string text;          ///< in the library's escaped form
};

/// Row of curve c (from 1) of `count` in a column of rows at x. If there are too many, the last row is "...",
/// and further curves have none.
LegendRow RowOfCurve(int c, int count, float x, const std::string& label);

/// Which parts of the axes are drawn with the curve.
enum class Axes { drawn, leftOut };

/// Markers at n points (index from 0) of x and y, with their row of the legend. Points that are not finite,
/// or lie outside the frame, are left out; so are values of y at or below 0, and of x on the logarithmic
/// axis.
/// An axis without keep gets its range from the data. With equal limits, or a logarithmic axis down to 0,
/// nothing is drawn.
void PlotGraf_DispCurv_Log(const double* x, const double* y, int n, bool keepX, bool keepY, Axes axes,
                           CurveMark mark, const LegendRow& legend);
void PlotGraf_DispCurv_Lin(const double* x, const double* y, int n, bool keepX, bool keepY, Axes axes,
                           CurveMark mark, const LegendRow& legend);

}  // namespace sondera
