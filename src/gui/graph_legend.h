// graph_legend.h - the legend of a graph, and the scale of its colours. No state.
#pragma once

#include <QRectF>
#include <QString>
#include <vector>

#include "figure/ticks.h"
#include "gui/graph_curves.h"

namespace sondera {

/// Layout of the curve names: in columns from the top. It contains every curve with a name.
struct LegendPlan {
  std::vector<const PlotModel*> rows;
  int rowsInColumn = 0;
  double rowHeight = 0.0, columnWidth = 0.0, width = 0.0, height = 0.0;  ///< pixels
  bool beside = false;  ///< too large for a corner of the graph
};
LegendPlan PlanLegend(const GraphModel& graph, const QFont& font, const QSize& size);

/// In the corner of the frame's area with the fewest points, or beside it.
void PaintLegend(QPainter& painter, const GraphModel& graph, const GraphFrame& frame);

/// Range and ticks of the colours of a map; no ticks for a map of one colour.
struct ColorBar {
  double low = 0.0, high = 0.0;
  std::vector<Tick> ticks;
  QString title;
};
ColorBar ColorBarOf(const IntensityModel& map, double height);

}  // namespace sondera
