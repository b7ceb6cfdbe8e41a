// graph_paint.h - paints what is on a graph: map, masks, bands, curves, markers, legend, colour bar. Axes and grid are
// graph_view's. No state.
#pragma once

#include "gui/graph_curves.h"

namespace sondera {

/// Room that a graph needs around its axes for title, legend and colour bar.
struct GraphRoom {
  int top = 0, right = 0;
  bool colorBar = false;
  bool legendBeside = false;
};
GraphRoom RoomFor(const GraphModel& graph, const QFont& font, const QSize& size);

/// Map, masks, bands and curves, from below to above; cut at the area.
void PaintContent(QPainter& painter, const GraphModel& graph, const GraphFrame& frame);
/// Markers, legend, title and colour bar.
void PaintOver(QPainter& painter, const GraphModel& graph, const GraphFrame& frame);

}  // namespace sondera
