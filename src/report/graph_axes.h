// graph_axes.h - ticks, numbers, grid, labels and frame of the graph in graph_state.h. For the engines of this
// folder.
#pragma once

namespace sondera {

/// A value as the library takes it. NaN, which makes a gap in a line, for what is no number or beyond 1e30.
float Plottable(double v);

/// Smallest and largest of the values that can be plotted; 0, 0 without one.
void RangeOf(const double* v, int n, double& min, double& max);

/// Whether the two limits of each axis are numbers and differ; a graph without is not drawn at all.
bool HasRange();

/// Puts the page's origin on the graph's corner, and back.
void EnterGraph();
void LeaveGraph();

/// Texts beside a graph.
struct GraphTexts {
  bool showX = true, showY = true, showTitle = true;
  bool depthDown = false;  ///< labels of x above the frame, smaller
};
void DrawLabels(const GraphTexts& texts);

/// Ticks and grid of a linear axis, its numbers only where it is shown.
void DrawLinearX(const GraphTexts& texts);
void DrawLinearY(const GraphTexts& texts);
/// The same of a logarithmic x axis: lines at 1 to 9 times each power of ten, numbers at the powers; at 2 and 5
/// times them, too, when there are fewer than two powers.
void DrawLogX(const GraphTexts& texts);

void DrawFrame();

}  // namespace sondera
