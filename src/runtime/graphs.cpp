// graphs.cpp - graph models. Owns the models of all graph controls.
#include "runtime/graphs.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace sondera {
namespace {

std::unordered_map<ControlId, GraphModel> graphs;

CursorModel& CursorAt(GraphModel& g, int cursor) {
  if (cursor > static_cast<int>(g.cursors.size())) g.cursors.resize(static_cast<std::size_t>(cursor));
  return g.cursors[static_cast<std::size_t>(std::max(cursor, 1) - 1)];
}

}  // namespace

GraphModel& GraphOf(const GraphControl& c) {
  return graphs[&c];
}

GraphModel* FindGraph(const Control& c) {
  return c.kind == ControlKind::Graph ? &graphs[&c] : nullptr;
}

int PlotXY(const GraphControl& c, std::vector<double> x, std::vector<double> y, PlotStyle style, int marker,
           int color, std::string legend) {
  GraphModel& g = GraphOf(c);
  g.plots.push_back({g.nextHandle, std::move(x), std::move(y), style, marker, color, std::move(legend)});
  ++g.revision;
  return g.nextHandle++;
}

int PlotRectangle(const GraphControl& c, double x1, double y1, double x2, double y2, int frameColor,
                  int fillColor) {
  GraphModel& g = GraphOf(c);
  g.rectangles.push_back({g.nextHandle, x1, y1, x2, y2, frameColor, fillColor});
  ++g.revision;
  return g.nextHandle++;
}

void PlotIntensity(const GraphControl& c, IntensityModel image) {
  GraphModel& g = GraphOf(c);
  g.intensity = std::move(image);
  ++g.revision;
}

void DeleteGraphPlot(const GraphControl& c, int handle) {
  GraphModel& g = GraphOf(c);
  if (handle == -1) {
    g.plots.clear();
    g.rectangles.clear();
    g.intensity.reset();
  } else {
    std::erase_if(g.plots, [=](const PlotModel& p) { return p.handle == handle; });
    std::erase_if(g.rectangles, [=](const RectangleModel& r) { return r.handle == handle; });
  }
  ++g.revision;
}

void SetAxisRange(const GraphControl& c, bool xAxis, double min, double max) {
  GraphModel& g = GraphOf(c);
  AxisModel& axis = xAxis ? g.xAxis : g.yAxis;
  axis.autoScale = min == max;
  axis.min = min;
  axis.max = max;
  ++g.revision;
}

void SetAxisAuto(const GraphControl& c, bool xAxis) {
  SetAxisRange(c, xAxis, 0.0, 0.0);
}

void SetGraphCursor(const GraphControl& c, int cursor, double x, double y) {
  CursorModel& m = CursorAt(GraphOf(c), cursor);
  m.x = x;
  m.y = y;
  ++GraphOf(c).revision;
}

CursorModel GetGraphCursor(const GraphControl& c, int cursor) {
  const GraphModel& g = GraphOf(c);
  if (cursor < 1 || cursor > static_cast<int>(g.cursors.size())) return {};
  return g.cursors[static_cast<std::size_t>(cursor - 1)];
}

void SetCursorCount(const GraphControl& c, int count) {
  GraphModel& g = GraphOf(c);
  g.cursors.resize(static_cast<std::size_t>(std::clamp(count, 0, 16)));
  ++g.revision;
}

std::optional<double> UpperXLimit(const GraphControl& c) {
  const GraphModel& g = GraphOf(c);
  if (!g.xAxis.autoScale) return g.xAxis.max;
  std::optional<double> limit;
  for (const PlotModel& p : g.plots)
    for (double x : p.x) limit = limit ? std::max(*limit, x) : x;
  return limit;
}

void ResetGraphs() {
  graphs.clear();
}

}  // namespace sondera
