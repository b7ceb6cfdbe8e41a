// graph_json.cpp - see graph_json.h.
#include "app/script/graph_json.h"

#include <algorithm>
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

std::string_view DashName(LineDash dash) {
  switch (dash) {
    case LineDash::Solid:
      return "solid";
    case LineDash::Dashed:
      return "dashed";
    case LineDash::Dotted:
      return "dotted";
    case LineDash::DashDotted:
      break;
  }
  return "dash dotted";
}

ordered_json PlotJson(const PlotModel& p) {
  ordered_json plot = {{"x", p.x},
                       {"y", p.y},
                       {"style", StyleName(p.style)},
                       {"marker", p.marker},
                       {"color", ColorText(p.color)},
                       {"width", p.width},
                       {"dash", DashName(p.dash)},
                       {"legend", p.inLegend ? p.legend : std::string()},
                       {"visible", p.visible}};
  if (p.bandTo != 0) plot["band_to"] = p.bandTo;
  return plot;
}

ordered_json RectangleJson(const RectangleModel& r) {
  return {{"x1", r.x1}, {"y1", r.y1},       {"x2", r.x2},
          {"y2", r.y2}, {"label", r.label}, {"selected", r.selected}};
}

ordered_json HatchJson(const HatchModel& h) {
  return {{"y1", h.y1}, {"y2", h.y2}, {"label", h.label}};
}

ordered_json NoteJson(const NoteModel& n) {
  return {{"x", n.x}, {"y", n.y}, {"text", n.text}};
}

ordered_json CursorJson(const CursorModel& c) {
  return {{"x", c.x}, {"y", c.y}, {"plot", c.plot}, {"index", c.index}, {"color", ColorText(c.color)}};
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
  return {
      {"z", columns},         {"ranges", {{"x", {image.xMin, image.xMax}}, {"y", {image.yMin, image.yMax}}}},
      {"levels", levels},     {"interpolate", image.interpolate},
      {"label", image.label}, {"unit", image.unit}};
}

/// Limits are null where the graph has none.
ordered_json AxisJson(const AxisModel& axis, const AxisLimits& limits) {
  return {{"min", limits.known ? ordered_json(limits.min) : ordered_json(nullptr)},
          {"max", limits.known ? ordered_json(limits.max) : ordered_json(nullptr)},
          {"log", axis.logarithmic},
          {"reversed", axis.reversed},
          {"label", axis.label},
          {"unit", axis.unit},
          {"prefix", axis.prefix},
          {"factor", axis.factor},
          {"divisions", axis.divisions}};
}

}  // namespace

std::string GraphJson(const GraphModel& g) {
  ordered_json graph = {{"title", g.title}};
  for (const char* key : {"plots", "rectangles", "cursors"}) graph[key] = ordered_json::array();
  for (const PlotModel& p : g.plots) graph["plots"].push_back(PlotJson(p));
  for (const RectangleModel& r : g.rectangles) graph["rectangles"].push_back(RectangleJson(r));
  for (const CursorModel& c : g.cursors) graph["cursors"].push_back(CursorJson(c));
  if (!g.note.empty()) graph["note"] = g.note;
  for (const TopLabel& label : g.topLabels)
    graph["top_labels"].push_back({{"x", label.x}, {"text", label.text}});
  for (const HatchModel& h : g.hatchings) graph["hatchings"].push_back(HatchJson(h));
  for (const NoteModel& n : g.sideNotes) graph["side_notes"].push_back(NoteJson(n));
  const GraphLimits limits = LimitsInForce(g);
  graph["axes"] = {{"x", AxisJson(g.xAxis, limits.x)}, {"y", AxisJson(g.yAxis, limits.y)}};
  graph["intensity"] = g.intensity ? IntensityJson(*g.intensity) : ordered_json(nullptr);
  return graph.dump(-1, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace sondera::script
