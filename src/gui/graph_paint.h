// graph_paint.h - paints the contents of a graph: map, masks, bands, curves, markers, legend, colour bar.
// graph_view paints axes and grid. No state.
#pragma once

#include "gui/graph_curves.h"

namespace sondera {

/// Margins around the axes for title, legend and colour bar.
struct GraphMargins {
  int top = 0, right = 0;
  bool colorBar = false;
  bool legendBeside = false;
};
GraphMargins MarginsFor(const GraphModel& graph, const QFont& font, const QSize& size);

/// Map, masks, bands and curves, from bottom to top; cut at the area.
void PaintContent(QPainter& painter, const GraphModel& graph, const GraphFrame& frame);
/// Markers, legend, title and colour bar.
void PaintOver(QPainter& painter, const GraphModel& graph, const GraphFrame& frame);

}  // namespace sondera
