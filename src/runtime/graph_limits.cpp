// graph_limits.cpp - the limits that the axes of a graph are drawn with. See graphs.h, LimitsInForce. Owns no state.
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "runtime/graphs.h"

namespace sondera {
namespace {

/// Range of the added numbers that the axis can show.
struct Span {
  bool logarithmic = false;
  double low = std::numeric_limits<double>::infinity(), high = -low;

  bool shows(double value) const { return std::isfinite(value) && (!logarithmic || value > 0.0); }
  void add(double value) {
    if (!shows(value)) return;
    low = std::min(low, value);
    high = std::max(high, value);
  }
};

Span SpanOfContent(const GraphModel& g, bool x) {
  Span span{(x ? g.xAxis : g.yAxis).logarithmic};
  for (const PlotModel& p : g.plots) {
    if (!p.visible) continue;
    for (const double value : x ? p.x : p.y) span.add(value);
  }
  for (const RectangleModel& r : g.rectangles)
    for (const double value : {x ? r.x1 : r.y1, x ? r.x2 : r.y2}) span.add(value);
  if (g.intensity) {
    span.add(x ? g.intensity->xMin : g.intensity->yMin);
    span.add(x ? g.intensity->xMax : g.intensity->yMax);
  }
  return span;
}

AxisLimits LimitsOf(const GraphModel& g, bool x) {
  const AxisModel& axis = x ? g.xAxis : g.yAxis;
  const Span content = SpanOfContent(g, x);
  if (!axis.autoScale && content.shows(axis.min) && content.shows(axis.max) && axis.min != axis.max)
    return {std::min(axis.min, axis.max), std::max(axis.min, axis.max), true};
  if (content.low > content.high)
    return axis.logarithmic ? AxisLimits{1.0, 10.0, false} : AxisLimits{0.0, 1.0, false};
  if (content.low < content.high) return {content.low, content.high, true};
  if (axis.logarithmic) return {content.low / 2.0, content.low * 2.0, true};
  const double margin = std::max(1.0, std::fabs(content.low) * 1e-6);  // 1, or more where 1 has no effect
  return {content.low - margin, content.low + margin, true};
}

}  // namespace

GraphLimits LimitsInForce(const GraphModel& graph) {
  return {LimitsOf(graph, true), LimitsOf(graph, false)};
}

}  // namespace sondera
