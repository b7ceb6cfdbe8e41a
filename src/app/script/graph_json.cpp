// graph_json.cpp - see graph_json.h.
#include "app/script/graph_json.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

#include "runtime/text_format.h"

namespace sondera::script {
namespace {

using nlohmann::ordered_json;

std::string ColorText(int color) {
  return FormatText("#%06x", static_cast<unsigned>(color) & 0xFFFFFFu);
}

std::string_view StyleName(PlotStyle style) {
  switch (style) {
    case PlotStyle::Line:
      return "line";
    case PlotStyle::Scatter:
      return "scatter";
    case PlotStyle::ConnectedPoints:
      return "connected points";
    case PlotStyle::Steps:
      break;
  }
  return "steps";
}

ordered_json PlotJson(const PlotModel& p) {
  return {{"x", p.x},           {"y", p.y},
          {"marker", p.marker}, {"style", StyleName(p.style)},
          {"legend", p.legend}, {"color", ColorText(p.color)}};
}

ordered_json RectangleJson(const RectangleModel& r) {
  return {{"x1", r.x1}, {"y1", r.y1}, {"x2", r.x2}, {"y2", r.y2}};
}

ordered_json IntensityJson(const IntensityModel& image) {
  ordered_json columns = ordered_json::array();
  const auto rows = static_cast<std::size_t>(std::max(image.rows, 0));
  for (std::size_t from = 0; rows > 0 && from + rows <= image.z.size(); from += rows)
    columns.push_back(std::vector<double>(image.z.begin() + static_cast<std::ptrdiff_t>(from),
                                          image.z.begin() + static_cast<std::ptrdiff_t>(from + rows)));
  ordered_json levels = ordered_json::array();
  for (const ColorLevel& level : image.colorMap)
    levels.push_back({{"level", level.level}, {"color", ColorText(level.color)}});
  return {{"z", columns},
          {"ranges", {{"x", {image.xMin, image.xMax}}, {"y", {image.yMin, image.yMax}}}},
          {"levels", levels}};
}

/// Grows by the finite numbers that it is given.
struct Range {
  double low = std::numeric_limits<double>::infinity(), high = -low;
  void add(double value) {
    if (!std::isfinite(value)) return;
    low = std::min(low, value);
    high = std::max(high, value);
  }
};

/// What all that is on the graph covers along one axis.
Range DataRange(const GraphModel& g, bool x) {
  Range range;
  for (const PlotModel& p : g.plots)
    for (const double value : x ? p.x : p.y) range.add(value);
  for (const RectangleModel& r : g.rectangles)
    for (const double value : {x ? r.x1 : r.y1, x ? r.x2 : r.y2}) range.add(value);
  if (g.intensity) {
    range.add(x ? g.intensity->xMin : g.intensity->yMin);
    range.add(x ? g.intensity->xMax : g.intensity->yMax);
  }
  return range;
}

ordered_json AxisJson(const GraphModel& g, bool x) {
  const AxisModel& axis = x ? g.xAxis : g.yAxis;
  const Range data = DataRange(g, x);
  return {{"min", axis.autoScale ? data.low : axis.min},
          {"max", axis.autoScale ? data.high : axis.max},
          {"log", axis.logarithmic},
          {"reversed", axis.reversed},
          {"label", axis.label}};
}

}  // namespace

std::string GraphJson(const GraphModel& g) {
  ordered_json graph;
  for (const char* key : {"plots", "rectangles", "cursors"}) graph[key] = ordered_json::array();
  for (const PlotModel& p : g.plots) graph["plots"].push_back(PlotJson(p));
  for (const RectangleModel& r : g.rectangles) graph["rectangles"].push_back(RectangleJson(r));
  for (const CursorModel& c : g.cursors) graph["cursors"].push_back({{"x", c.x}, {"y", c.y}});
  graph["axes"] = {{"x", AxisJson(g, true)}, {"y", AxisJson(g, false)}};
  graph["intensity"] = g.intensity ? IntensityJson(*g.intensity) : ordered_json(nullptr);
  return graph.dump(-1, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace sondera::script
