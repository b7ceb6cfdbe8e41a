// graph_axes.h - ticks, numbers, grid, labels and frame of the graph in graph_state.h. For the plot functions
// of this folder.
#pragma once

namespace sondera {

/// A value for the library. NaN, which makes a gap in a line, if it is not finite or beyond 1e30.
float Plottable(double v);

/// Smallest and largest of the values that can be plotted; 0, 0 without one.
void RangeOf(const double* v, int n, double& min, double& max);

/// Whether the two limits of each axis are finite and differ; otherwise a graph is not drawn at all.
bool HasRange();

/// Moves the page's origin to the graph's corner, and back.
void EnterGraph();
void LeaveGraph();

/// Texts beside a graph.
struct GraphTexts {
  bool showX = true, showY = true, showTitle = true;
  bool depthDown = false;  ///< labels of x above the frame, smaller
};
void DrawLabels(const GraphTexts& texts);

/// Ticks and grid of a linear axis, with numbers only where it is shown.
void DrawLinearX(const GraphTexts& texts);
void DrawLinearY(const GraphTexts& texts);
/// The same for a logarithmic x axis: lines at 1 to 9 times each power of ten, numbers at the powers; also at
/// 2 and 5 times them when there are fewer than two powers.
void DrawLogX(const GraphTexts& texts);

void DrawFrame();

}  // namespace sondera
