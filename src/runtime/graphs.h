// graphs.h - what is on a graph, without a toolkit: plots, axes, cursors, rectangles, an intensity map.
//
// Plotting code fills these models; a window draws them and has no opinion on what is in them; tests and exporters
// read them. One model stands behind each GraphControl.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "runtime/controls.h"

namespace sondera {

enum class PlotStyle : int { Line, Scatter, ConnectedPoints, Steps };

/// One curve. marker is an index into the marker shapes, colour 0xRRGGBB.
struct PlotModel {
  int handle = 0;
  std::vector<double> x, y;
  PlotStyle style = PlotStyle::Line;
  int marker = 0;
  int color = 0;
  std::string legend;
};

/// Filled rectangle in axis units (a mask).
struct RectangleModel {
  int handle = 0;
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  int frameColor = 0, fillColor = 0;
};

/// Entry of a colour map: from this level on, this colour; colours between entries are blended.
struct ColorLevel {
  double level = 0;
  int color = 0;
};

/// Intensity image, z[column * rows + row]; the true ranges of both axes are given beside it.
struct IntensityModel {
  std::vector<double> z;
  int columns = 0, rows = 0;
  double xMin = 0, xMax = 0, yMin = 0, yMax = 0;
  std::vector<ColorLevel> colorMap;
};

struct AxisModel {
  bool autoScale = true;
  bool logarithmic = false;
  bool reversed = false;
  double min = 0.0, max = 0.0;  ///< limits in force; with autoScale those of the data
  std::string label;
};

struct CursorModel {
  double x = 0.0, y = 0.0;
  int plot = 0;   ///< handle of the plot it sits on, 0 for none
  int index = 0;  ///< point of that plot
  int color = 0;
};

struct GraphModel {
  std::vector<PlotModel> plots;
  std::vector<RectangleModel> rectangles;
  std::optional<IntensityModel> intensity;
  AxisModel xAxis, yAxis;
  std::vector<CursorModel> cursors;
  int nextHandle = 1;
  int revision = 0;  ///< counts up on each change that should be drawn
};

/// The model behind a control; made empty when first asked for.
GraphModel& GraphOf(const GraphControl& c);
/// For front ends, which have the control without its type. Null for another kind.
GraphModel* FindGraph(const Control& c);

/// Adds a curve; returns its handle (from 1).
int PlotXY(const GraphControl& c, std::vector<double> x, std::vector<double> y,
           PlotStyle style = PlotStyle::Line, int marker = 0, int color = 0, std::string legend = {});
int PlotRectangle(const GraphControl& c, double x1, double y1, double x2, double y2, int frameColor,
                  int fillColor);
void PlotIntensity(const GraphControl& c, IntensityModel image);
/// Removes one plot or rectangle, or with handle -1 everything on the graph but its axes.
void DeleteGraphPlot(const GraphControl& c, int handle = -1);
/// Limits from now on; equal limits mean automatic.
void SetAxisRange(const GraphControl& c, bool xAxis, double min, double max);
void SetAxisAuto(const GraphControl& c, bool xAxis);
/// Cursor numbers count from 1; a number above the count adds cursors.
void SetGraphCursor(const GraphControl& c, int cursor, double x, double y);
CursorModel GetGraphCursor(const GraphControl& c, int cursor);
void SetCursorCount(const GraphControl& c, int count);
/// Upper x limit: of the axis when it is fixed, else of the data; empty for a graph with nothing on it.
std::optional<double> UpperXLimit(const GraphControl& c);

/// Empties all graphs.
void ResetGraphs();

}  // namespace sondera
