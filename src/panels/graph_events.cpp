// graph_events.cpp - see graph_events.h. Owns no state: markers are cursors of the graph models.
#include "panels/graph_events.h"

#include <algorithm>
#include <cmath>

#include "panels/curve_axes.h"
#include "panels/mscalepnl.h"
#include "panels/sasw_masking.h"
#include "panels/sasw_traces.h"
#include "panels/trace_windows.h"
#include "records/session.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kTimeTrace = 0, kImpulseResponse = 9;  // the display types over time

int CursorCount(const GraphControl& graph) {
  return static_cast<int>(GraphOf(graph).cursors.size());
}

/// Window of a graph, -1 for another graph.
int WindowOf(Panel panel, ControlId graph) {
  for (const int window : {kWindowA, kWindowB})
    if (&ControlsOfWindow(panel, window).graph == graph) return window;
  return -1;
}

/// Whether masks can be drawn and picked on this graph now.
bool TakesMasks(Panel panel, int window) {
  const int type = GetCtrlVal(sasw::DISPATYPE);
  return panel == Panel::SASW && window == kWindowA && SelectedWindow(panel) != kWindowB &&
         type != kTimeTrace && type != kImpulseResponse;
}

void PutMarker(const GraphControl& graph, int marker, double x) {
  const PlotModel* curve = CurveInUse(graph);
  const int point = curve ? NearestPoint(*curve, x) : -1;
  if (point >= 0) {
    PutCursorOnPlot(graph, marker, curve->handle, point);
    return;
  }
  const AxisLimits axis = LimitsInForce(GraphOf(graph)).x;
  SetGraphCursor(graph, marker, std::clamp(x, axis.min, axis.max), GetGraphCursor(graph, marker).y);
}

void ShowReadOuts(const WindowControls& window) {
  const CursorModel one = GetGraphCursor(window.graph, 1), two = GetGraphCursor(window.graph, 2);
  const int count = CursorCount(window.graph);
  const auto place = [](const char* format, const CursorModel& c) {
    return FormatText(format, CoordinateText(c.x).c_str(), CoordinateText(c.y).c_str());
  };
  SetCtrlVal(window.marker1, count > 0 ? place("(X1, Y1)=%s,%s", one) : "");
  SetCtrlVal(window.marker2, count > 1 ? place("(X2, Y2)=%s,%s", two) : "");
  SetCtrlVal(window.deltaX, count > 1 ? FormatText("X2-X1=%s", CoordinateText(two.x - one.x).c_str()) : "");
}

void WriteMaskEnds(const GraphControl& graph) {
  const double a = GetGraphCursor(graph, 1).x, b = GetGraphCursor(graph, 2).x;
  SetCtrlVal(sasw::MASKING_FREQINIT, std::min(a, b));
  SetCtrlVal(sasw::MASKING_FREQFINAL, std::max(a, b));
}

void MoveMarker(Panel panel, int window, const GraphPlace& place) {
  const WindowControls controls = ControlsOfWindow(panel, window);
  PutMarker(controls.graph, place.cursor, place.x);
  ShowReadOuts(controls);
  if (TakesMasks(panel, window) && CursorCount(controls.graph) == 2) WriteMaskEnds(controls.graph);
}

void DragMask(Panel panel, int window, const GraphPlace& place) {
  const WindowControls controls = ControlsOfWindow(panel, window);
  if (CursorCount(controls.graph) != 2) TurnOnDualMarkers(window);
  PutMarker(controls.graph, 1, place.fromX);
  PutMarker(controls.graph, 2, place.x);
  ShowReadOuts(controls);
  WriteMaskEnds(controls.graph);
}

void PickMask(Panel panel, int window, double freq) {
  const WindowControls controls = ControlsOfWindow(panel, window);
  if (PickMaskOnGraph(freq) != 0) return;
  int picked = 0;
  for (const RectangleModel& mask : GraphOf(controls.graph).rectangles)
    if (mask.x1 == session.selMask.freqInit && mask.x2 == session.selMask.freqFinal) picked = mask.handle;
  SelectRectangle(controls.graph, picked);
  for (const int w : Windows(SelectedWindow(panel))) ShowReadOuts(ControlsOfWindow(panel, w));
}

/// Position on the axis at a given share of its length.
double ShareOfAxis(const GraphModel& graph, double share) {
  const AxisLimits axis = LimitsInForce(graph).x;
  if (graph.xAxis.logarithmic) return axis.min * std::pow(axis.max / axis.min, share);
  return axis.min + share * (axis.max - axis.min);
}

void SetMarkers(const WindowControls& window, int count) {
  const int before = CursorCount(window.graph);
  SetCursorCount(window.graph, count);
  for (int marker = 1; marker <= count; ++marker) {
    SetCursorColor(window.graph, marker, MarkerColor(marker));
    if (marker > before) PutMarker(window.graph, marker, ShareOfAxis(GraphOf(window.graph), marker / 3.0));
  }
  ShowReadOuts(window);
}

}  // namespace

int DisplayCallback(Panel panel, ControlId control, Event event, long) {
  const int window = WindowOf(panel, control);
  const std::optional<GraphPlace> place = PlaceOfEvent(*control);
  if (window < 0 || !place) return 0;
  const bool moved = (event == Event::ValChanged || event == Event::Commit) && place->cursor > 0;
  if (moved) MoveMarker(panel, window, *place);
  if (event == Event::Drag && TakesMasks(panel, window)) DragMask(panel, window, *place);
  if (event == Event::RightClick && TakesMasks(panel, window)) PickMask(panel, window, place->x);
  if (event == Event::LeftDoubleClick) AdjustScale(panel, window);
  return 0;
}

int MarkersOnOffCallback(Panel panel, ControlId control, Event event, long data) {
  if (event != Event::Commit) return 0;
  const int count = std::clamp(GetCtrlVal(MarkerCount(panel)), 0, 2);
  for (const int w : Windows(SelectedWindow(panel))) SetMarkers(ControlsOfWindow(panel, w), count);
  return TraceSettingCallback(panel, control, event, data);
}

void RenewMarkers(int page) {
  const Panel panel = page == 1 ? Panel::SASW : Panel::MEASPANEL;
  for (const int window : {kWindowA, kWindowB}) {
    const WindowControls controls = ControlsOfWindow(panel, window);
    if (CursorCount(controls.graph) == 0) continue;
    const PlotModel* curve = CurveInUse(controls.graph);
    RenewCursors(controls.graph, curve ? curve->handle : 0);
    ShowReadOuts(controls);
  }
}

int SetupEXDTHDCallback(Panel, ControlId control, Event event, long) {
  if (event == Event::LeftDoubleClick && control == &exdthd::CURVES) OpenResultAxes();
  if (event == Event::Commit)
    SetCtrlVal(exdthd::COORD, ClickText(static_cast<const GraphControl&>(*control)));
  return 0;
}

std::string ClickText(const GraphControl& graph) {
  const std::optional<GraphPlace> place = PlaceOfEvent(graph);
  if (place && place->cursor == 0) SetGraphCursor(graph, 1, place->x, place->y);
  const CursorModel cursor = GetGraphCursor(graph, 1);
  return FormatText("(%s, %s)", CoordinateText(cursor.x).c_str(), CoordinateText(cursor.y).c_str());
}

std::string CoordinateText(double value) {
  const double size = std::fabs(value);
  if (size >= 1.0) return FormatText("%.2lf", value);
  return FormatText(size >= 0.0001 || size == 0.0 ? "%.4lf" : "%.4le", value);
}

}  // namespace sondera
