// graphs.h - contents of a graph, without a toolkit: plots, axes, cursors, rectangles, an intensity map; and
// the events of the mouse over it.
//
// Plotting code fills these models by the functions below; a window only draws them; tests and exporters read
// them. Each GraphControl has one model. Each change increments the model's revision and is noted
// (ChangeKind::Graph, runtime/changes.h). A front end gets the model again at each event: plots are added and
// removed, and a reset empties the model.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "runtime/controls.h"

namespace sondera {

enum class PlotStyle : int { Line, Scatter, ConnectedPoints, Steps };
enum class LineDash : int { Solid, Dashed, Dotted, DashDotted };

inline constexpr int kNoMarker = -1;

/// How a curve is drawn. marker is an index into the marker shapes (catalogue/items.h, kMarkers) or kNoMarker, colour
/// 0xRRGGBB, width in pixels at scale 1.
struct PlotLook {
  PlotStyle style = PlotStyle::Line;
  int marker = kNoMarker;
  int color = 0;
  double width = 1.0;
  LineDash dash = LineDash::Solid;
  bool visible = true;
  bool inLegend = true;  ///< shown in the legend, if it has a text there
  int bandTo = 0;        ///< handle of another curve: the area between both is shaded; 0 for none
};

/// One curve. x and y have the same length; a point that is not finite makes a gap.
struct PlotModel : PlotLook {
  int handle = 0;
  std::vector<double> x, y;
  std::string legend;
};

/// Filled rectangle in axis units (a mask).
struct RectangleModel {
  int handle = 0;
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  int frameColor = 0, fillColor = 0;
  std::string label;      ///< text in it (number of jumps of a mask)
  bool selected = false;  ///< drawn with a mark (the picked mask)
};

/// Part of the graph between two ordinates, over the whole width, that is hatched.
struct HatchModel {
  int handle = 0;
  double y1 = 0, y2 = 0;
  std::string label;  ///< what it means
};

/// Short text to the right of a place.
struct NoteModel {
  int handle = 0;
  double x = 0, y = 0;
  std::string text;
};

/// Entry of a colour map: the colour from this level on; colours between entries are interpolated.
struct ColorLevel {
  double level = 0;
  int color = 0;
};

/// Intensity image, z[column * rows + row]; the true ranges of both axes are separate. A NaN cell has no
/// value and no colour.
struct IntensityModel {
  std::vector<double> z;
  int columns = 0, rows = 0;
  double xMin = 0, xMax = 0, yMin = 0, yMax = 0;
  std::vector<ColorLevel> colorMap;
  bool interpolate = true;  ///< colours change smoothly between cells
  std::string label, unit;  ///< of the value
};

struct AxisModel {
  bool autoScale = true;
  bool logarithmic = false;
  bool reversed = false;
  double min = 0.0, max = 0.0;  ///< with autoScale no meaning, see LimitsInForce
  std::string label;            ///< name of the quantity, without its unit
  std::string unit;             ///< "Hz"; a prefix is put before it
  std::string prefix;           ///< "k", "m" ... of the numbers at the ticks
  double factor = 1.0;          ///< numbers at the ticks are divided by it; limits, plots and cursors are not
  int divisions = 0;            ///< intervals between the ticks of a linear axis; 0: the front end chooses
};

struct CursorModel {
  double x = 0.0, y = 0.0;
  int plot = 0;   ///< handle of its plot, 0 for none
  int index = 0;  ///< point of that plot
  int color = 0;
};

/// Name above the frame at a place of the x axis.
struct TopLabel {
  double x = 0.0;
  std::string text;
};

struct GraphModel {
  std::string title;
  std::string note;  ///< line beneath a figure; a window has a field of its own for it
  std::vector<PlotModel> plots;
  std::vector<RectangleModel> rectangles;
  std::vector<TopLabel> topLabels;  ///< in ascending order; those without room are left out
  std::vector<HatchModel> hatchings;
  std::vector<NoteModel> sideNotes;
  std::optional<IntensityModel> intensity;
  AxisModel xAxis, yAxis;
  std::vector<CursorModel> cursors;
  int nextHandle = 1;
  int revision = 0;  ///< incremented at each change, including a reset
};

/// The model of a control; empty when nothing was drawn yet. The reference stays valid, the contents may
/// change.
const GraphModel& GraphOf(const GraphControl& c);
/// For front ends, which have the control without its type. Null for another kind.
const GraphModel* FindGraph(const Control& c);

// ---- plots, rectangles, image ---------------------------------------------------------------------------

/// Adds a curve; returns its handle (from 1).
int PlotXY(const GraphControl& c, std::vector<double> x, std::vector<double> y, const PlotLook& look,
           std::string legend = {});
int PlotXY(const GraphControl& c, std::vector<double> x, std::vector<double> y,
           PlotStyle style = PlotStyle::Line, int marker = kNoMarker, int color = 0, std::string legend = {});
int PlotRectangle(const GraphControl& c, double x1, double y1, double x2, double y2, int frameColor,
                  int fillColor, std::string label = {}, bool selected = false);
/// Marks one rectangle as the selected one; 0 marks none.
void SelectRectangle(const GraphControl& c, int handle);
void PlotIntensity(const GraphControl& c, IntensityModel image);
int PlotHatching(const GraphControl& c, double y1, double y2, std::string label);
int PlotNote(const GraphControl& c, double x, double y, std::string text);
/// Removes one plot, rectangle, hatching or note, or with handle -1 everything on the graph except its axes,
/// title and cursors. Cursors on a removed plot stay where they are, on no plot.
void DeleteGraphPlot(const GraphControl& c, int handle = -1);
void SetTopLabels(const GraphControl& c, std::vector<TopLabel> labels);
void SetGraphTitle(const GraphControl& c, std::string_view title);
void SetGraphNote(const GraphControl& c, std::string_view note);

// ---- axes -----------------------------------------------------------------------------------------------

/// Limits from now on; equal limits mean automatic.
void SetAxisRange(const GraphControl& c, bool xAxis, double min, double max);
void SetAxisAuto(const GraphControl& c, bool xAxis);
void SetAxisLabel(const GraphControl& c, bool xAxis, std::string_view label, std::string_view unit = {});
void SetAxisLogarithmic(const GraphControl& c, bool xAxis, bool logarithmic);
void SetAxisReversed(const GraphControl& c, bool xAxis, bool reversed);
/// Numbers at the ticks are divided by factor (above 0), and the prefix is put before the unit.
void SetAxisPrefix(const GraphControl& c, bool xAxis, std::string_view prefix, double factor);
void SetAxisDivisions(const GraphControl& c, bool xAxis, int divisions);

/// Limits for drawing an axis: finite, min below max, above 0 on a logarithmic axis.
struct AxisLimits {
  double min = 0.0, max = 0.0;
  bool known = false;  ///< false: the graph's contents give none; 0 to 1, or 1 to 10 on a logarithmic axis
};
struct GraphLimits {
  AxisLimits x, y;
};
/// Fixed limits where they can be drawn, else those of the visible contents: curves, rectangles, image.
/// Limits in the wrong order are exchanged; data of one value get 1 on each side, or half and twice on a
/// logarithmic axis.
GraphLimits LimitsInForce(const GraphModel& graph);
/// Upper x limit: of the axis when it is fixed, else of the curves; empty for a graph without a curve.
std::optional<double> UpperXLimit(const GraphControl& c);

// ---- cursors --------------------------------------------------------------------------------------------

/// Cursor numbers count from 1; a number above the count adds cursors.
void SetGraphCursor(const GraphControl& c, int cursor, double x, double y);
/// The same for a point (from 0) of a plot. False when there is no such point.
bool PutCursorOnPlot(const GraphControl& c, int cursor, int plot, int index);
CursorModel GetGraphCursor(const GraphControl& c, int cursor);
void SetCursorColor(const GraphControl& c, int cursor, int color);
void SetCursorCount(const GraphControl& c, int count);
/// Point of a plot (from 0) whose abscissa is nearest to x; -1 when none is finite.
int NearestPoint(const PlotModel& plot, double x);
/// After a redraw: each cursor keeps its x and gets plot, index and y of the nearest point of a plot. Without
/// such a plot it is on none and keeps its place.
void RenewCursors(const GraphControl& c, int plot);

// ---- events ---------------------------------------------------------------------------------------------

enum class MouseButton : int { None, Left, Right };

/// Place of a mouse event, in the units of the axes as drawn.
struct GraphPlace {
  double x = 0.0, y = 0.0;
  MouseButton button = MouseButton::None;
  int cursor = 0;                   ///< the cursor that is moved, from 1; 0 for none
  double fromX = 0.0, fromY = 0.0;  ///< of Event::Drag: where the button went down
};

/// Sends an event with its place. ValChanged: a cursor is moving; Commit: it has been released, or, without a
/// cursor, a click is complete; LeftClick, RightClick, LeftDoubleClick: at the place; Drag: from one place to
/// another, not on a cursor. The named cursor moves to the place before the callback runs; a number without a
/// cursor is refused with -1. Returns as SendEvent.
int SendGraphEvent(const GraphControl& c, Event event, const GraphPlace& place);
/// Place of the present event during a graph's callback; empty outside of SendGraphEvent.
std::optional<GraphPlace> PlaceOfEvent(const Control& c);

/// Empties all graphs.
void ResetGraphs();

}  // namespace sondera
