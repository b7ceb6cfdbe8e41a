// graph_curves.h - paints the curves of a graph, their symbols and their samples in a legend. No state.
#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QSize>

#include "figure/graph_lines.h"
#include "runtime/graphs.h"

class QPainter;
class QPalette;

namespace sondera {

/// Colours of a graph's surroundings, 0xRRGGBB.
struct GraphTheme {
  int background = 0xFFFFFF, text = 0x000000, grid = 0xE2E2E2, frame = 0x777777;
};
GraphTheme ThemeOf(const QPalette& palette);

/// Where and how a graph is painted. Pixels are those of the painter.
struct GraphFrame {
  PixelAxis x, y;
  PixelArea area;  ///< inside the axes
  GraphTheme theme;
  QSize size;                 ///< of the whole graph, axes and all
  QFont font;                 ///< of legend and markers
  bool vectorial = false;     ///< for a file without pixels
  bool colorBar = false;      ///< to the right of a map
  bool legendBeside = false;  ///< to the right of the area, else in the corner with the fewest points
};

QColor ToColor(int color);
/// The colour, mostly transparent: opacity 0 to 1.
QColor Faint(int color, double opacity);

QRectF ToRect(const PixelArea& area);

/// Line and points of a curve. Symbols of points at the area's edge extend beyond it.
void PaintCurve(QPainter& painter, const PlotModel& plot, const GraphFrame& frame);
/// The area between a curve and its bandTo curve.
void PaintBand(QPainter& painter, const GraphModel& graph, const PlotModel& plot, const GraphFrame& frame);
/// A small sample of the curve, for a legend.
void PaintSample(QPainter& painter, const QRectF& place, const PlotModel& plot, const GraphTheme& theme);

}  // namespace sondera
