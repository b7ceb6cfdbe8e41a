// graphs.cpp - graph models. Owns the models of all graph controls, and the place of the present event.
#include "runtime/graphs.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

namespace sondera {
namespace {

constexpr int kMostCursors = 16;

struct GraphState {
  std::unordered_map<ControlId, GraphModel> models;  // of nodes that do not move
  ControlId eventGraph = nullptr;
  GraphPlace eventPlace;
};
GraphState state;

GraphModel& ModelOf(const Control& c) {
  return state.models[&c];
}

AxisModel& AxisOf(GraphModel& g, bool xAxis) {
  return xAxis ? g.xAxis : g.yAxis;
}

void Changed(const Control& c, GraphModel& g) {
  ++g.revision;
  NoteChange({.kind = ChangeKind::Graph, .panel = c.panel, .control = &c});
}

/// Changes an axis by a function.
template <class Change>
void ChangeAxis(const GraphControl& c, bool xAxis, Change change) {
  GraphModel& g = ModelOf(c);
  change(AxisOf(g, xAxis));
  Changed(c, g);
}

CursorModel& CursorAt(GraphModel& g, int cursor) {
  const int number = std::clamp(cursor, 1, kMostCursors);
  if (number > static_cast<int>(g.cursors.size())) g.cursors.resize(static_cast<std::size_t>(number));
  return g.cursors[static_cast<std::size_t>(number - 1)];
}

const PlotModel* PlotAt(const GraphModel& g, int handle) {
  const auto found =
      std::find_if(g.plots.begin(), g.plots.end(), [=](const PlotModel& p) { return p.handle == handle; });
  return found == g.plots.end() ? nullptr : &*found;
}

void Sit(CursorModel& cursor, const PlotModel& plot, int index) {
  cursor.plot = plot.handle;
  cursor.index = index;
  cursor.y = plot.y[static_cast<std::size_t>(index)];
}

int PointCount(const PlotModel& plot) {
  return static_cast<int>(std::min(plot.x.size(), plot.y.size()));
}

}  // namespace

const GraphModel& GraphOf(const GraphControl& c) {
  return ModelOf(c);
}

const GraphModel* FindGraph(const Control& c) {
  return c.kind == ControlKind::Graph ? &ModelOf(c) : nullptr;
}

// ---- plots, rectangles, image ---------------------------------------------------------------------------

int PlotXY(const GraphControl& c, std::vector<double> x, std::vector<double> y, const PlotLook& look,
           std::string legend) {
  GraphModel& g = ModelOf(c);
  PlotModel plot;
  static_cast<PlotLook&>(plot) = look;
  plot.handle = g.nextHandle;
  plot.x = std::move(x);
  plot.y = std::move(y);
  plot.legend = std::move(legend);
  g.plots.push_back(std::move(plot));
  Changed(c, g);
  return g.nextHandle++;
}

int PlotXY(const GraphControl& c, std::vector<double> x, std::vector<double> y, PlotStyle style, int marker,
           int color, std::string legend) {
  return PlotXY(c, std::move(x), std::move(y), PlotLook{.style = style, .marker = marker, .color = color},
                std::move(legend));
}

int PlotRectangle(const GraphControl& c, double x1, double y1, double x2, double y2, int frameColor,
                  int fillColor, std::string label, bool selected) {
  GraphModel& g = ModelOf(c);
  g.rectangles.push_back({g.nextHandle, x1, y1, x2, y2, frameColor, fillColor, std::move(label), selected});
  Changed(c, g);
  return g.nextHandle++;
}

void SelectRectangle(const GraphControl& c, int handle) {
  GraphModel& g = ModelOf(c);
  for (RectangleModel& r : g.rectangles) r.selected = r.handle == handle;
  Changed(c, g);
}

void PlotIntensity(const GraphControl& c, IntensityModel image) {
  GraphModel& g = ModelOf(c);
  g.intensity = std::move(image);
  Changed(c, g);
}

int PlotHatching(const GraphControl& c, double y1, double y2, std::string label) {
  GraphModel& g = ModelOf(c);
  g.hatchings.push_back({g.nextHandle, y1, y2, std::move(label)});
  Changed(c, g);
  return g.nextHandle++;
}

int PlotNote(const GraphControl& c, double x, double y, std::string text) {
  GraphModel& g = ModelOf(c);
  g.sideNotes.push_back({g.nextHandle, x, y, std::move(text)});
  Changed(c, g);
  return g.nextHandle++;
}

void DeleteGraphPlot(const GraphControl& c, int handle) {
  GraphModel& g = ModelOf(c);
  const auto isGone = [=](const auto& drawn) { return handle == -1 || drawn.handle == handle; };
  std::erase_if(g.plots, isGone);
  std::erase_if(g.rectangles, isGone);
  std::erase_if(g.hatchings, isGone);
  std::erase_if(g.sideNotes, isGone);
  if (handle == -1) {
    g.topLabels.clear();
    g.note.clear();
    g.intensity.reset();
  }
  for (CursorModel& cursor : g.cursors)
    if (!PlotAt(g, cursor.plot)) cursor.plot = cursor.index = 0;
  Changed(c, g);
}

void SetTopLabels(const GraphControl& c, std::vector<TopLabel> labels) {
  GraphModel& g = ModelOf(c);
  g.topLabels = std::move(labels);
  Changed(c, g);
}

void SetGraphTitle(const GraphControl& c, std::string_view title) {
  GraphModel& g = ModelOf(c);
  g.title = title;
  Changed(c, g);
}

void SetGraphNote(const GraphControl& c, std::string_view note) {
  GraphModel& g = ModelOf(c);
  g.note = note;
  Changed(c, g);
}

// ---- axes -----------------------------------------------------------------------------------------------

void SetAxisRange(const GraphControl& c, bool xAxis, double min, double max) {
  ChangeAxis(c, xAxis, [=](AxisModel& axis) {
    axis.autoScale = min == max;
    axis.min = min;
    axis.max = max;
  });
}

void SetAxisAuto(const GraphControl& c, bool xAxis) {
  SetAxisRange(c, xAxis, 0.0, 0.0);
}

void SetAxisLabel(const GraphControl& c, bool xAxis, std::string_view label, std::string_view unit) {
  ChangeAxis(c, xAxis, [=](AxisModel& axis) {
    axis.label = label;
    axis.unit = unit;
  });
}

void SetAxisLogarithmic(const GraphControl& c, bool xAxis, bool logarithmic) {
  ChangeAxis(c, xAxis, [=](AxisModel& axis) { axis.logarithmic = logarithmic; });
}

void SetAxisReversed(const GraphControl& c, bool xAxis, bool reversed) {
  ChangeAxis(c, xAxis, [=](AxisModel& axis) { axis.reversed = reversed; });
}

void SetAxisPrefix(const GraphControl& c, bool xAxis, std::string_view prefix, double factor) {
  if (!(factor > 0.0)) return;
  ChangeAxis(c, xAxis, [=](AxisModel& axis) {
    axis.prefix = prefix;
    axis.factor = factor;
  });
}

void SetAxisDivisions(const GraphControl& c, bool xAxis, int divisions) {
  ChangeAxis(c, xAxis, [=](AxisModel& axis) { axis.divisions = std::max(divisions, 0); });
}

std::optional<double> UpperXLimit(const GraphControl& c) {
  const GraphModel& g = GraphOf(c);
  if (!g.xAxis.autoScale) return g.xAxis.max;
  if (g.plots.empty()) return std::nullopt;
  const AxisLimits limits = LimitsInForce(g).x;
  return limits.known ? std::optional(limits.max) : std::nullopt;
}

// ---- cursors --------------------------------------------------------------------------------------------

void SetGraphCursor(const GraphControl& c, int cursor, double x, double y) {
  GraphModel& g = ModelOf(c);
  CursorModel& m = CursorAt(g, cursor);
  m.x = x;
  m.y = y;
  m.plot = m.index = 0;
  Changed(c, g);
}

bool PutCursorOnPlot(const GraphControl& c, int cursor, int plot, int index) {
  GraphModel& g = ModelOf(c);
  const PlotModel* p = PlotAt(g, plot);
  if (!p || index < 0 || index >= PointCount(*p)) return false;
  CursorModel& m = CursorAt(g, cursor);
  m.x = p->x[static_cast<std::size_t>(index)];
  Sit(m, *p, index);
  Changed(c, g);
  return true;
}

CursorModel GetGraphCursor(const GraphControl& c, int cursor) {
  const GraphModel& g = GraphOf(c);
  if (cursor < 1 || cursor > static_cast<int>(g.cursors.size())) return {};
  return g.cursors[static_cast<std::size_t>(cursor - 1)];
}

void SetCursorColor(const GraphControl& c, int cursor, int color) {
  GraphModel& g = ModelOf(c);
  CursorAt(g, cursor).color = color;
  Changed(c, g);
}

void SetCursorCount(const GraphControl& c, int count) {
  GraphModel& g = ModelOf(c);
  g.cursors.resize(static_cast<std::size_t>(std::clamp(count, 0, kMostCursors)));
  Changed(c, g);
}

int NearestPoint(const PlotModel& plot, double x) {
  int nearest = -1;
  double distance = 0.0;
  for (int i = 0; i < PointCount(plot); ++i) {
    const double d = std::fabs(plot.x[static_cast<std::size_t>(i)] - x);
    if (!std::isfinite(d) || (nearest >= 0 && d >= distance)) continue;
    nearest = i;
    distance = d;
  }
  return nearest;
}

void RenewCursors(const GraphControl& c, int plot) {
  GraphModel& g = ModelOf(c);
  if (g.cursors.empty()) return;
  const PlotModel* p = PlotAt(g, plot);
  for (CursorModel& cursor : g.cursors) {
    const int index = p ? NearestPoint(*p, cursor.x) : -1;
    if (index >= 0)
      Sit(cursor, *p, index);
    else
      cursor.plot = cursor.index = 0;
  }
  Changed(c, g);
}

// ---- events ---------------------------------------------------------------------------------------------

int SendGraphEvent(const GraphControl& c, Event event, const GraphPlace& place) {
  if (!Answers(c)) return SendEvent(c, event);
  if (place.cursor < 0 || place.cursor > static_cast<int>(GraphOf(c).cursors.size())) return -1;
  const ChangeBatch batch;
  if (place.cursor > 0) SetGraphCursor(c, place.cursor, place.x, place.y);
  const ControlId formerGraph = std::exchange(state.eventGraph, &c);
  const GraphPlace formerPlace = std::exchange(state.eventPlace, place);
  const int result = SendEvent(c, event);  // throws only exceptions that it catches itself
  state.eventGraph = formerGraph;
  state.eventPlace = formerPlace;
  return result;
}

std::optional<GraphPlace> PlaceOfEvent(const Control& c) {
  return state.eventGraph == &c ? std::optional(state.eventPlace) : std::nullopt;
}

// The models keep their addresses, and their revisions continue, so that nobody confuses the empty graph with
// the old one.
void ResetGraphs() {
  const ChangeBatch batch;
  for (auto& [control, model] : state.models) {
    const int revision = model.revision;
    model = GraphModel{};
    model.revision = revision;
    Changed(*control, model);
  }
}

}  // namespace sondera
