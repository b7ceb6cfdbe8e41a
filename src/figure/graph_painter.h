// graph_painter.h - draws a graph model on a canvas: the one drawing behind figures, reports and the pictures of pages.
// No state.
#pragma once

#include "figure/canvas.h"
#include "runtime/graphs.h"

namespace sondera {

/// Sizes in points.
struct GraphStyle {
  double text = 8.0;      ///< size of numbers and legend; names of axes and the title are a little larger
  double line = 0.8;      ///< width of a curve of width 1
  double marker = 4.5;    ///< size of a marker
  bool legend = true;     ///< beside the graph, for curves that have a text for it
  bool numbersX = true;   ///< numbers and name of the x axis
  double leftRoom = 0.0;  ///< at least, left of the frame, so that graphs below one another stand in line
};

/// Draws all that is on the graph but its cursors, on white: frame, grid, numbers, masks, image with its scale, curves,
/// legend. A graph without anything has its axes. Whatever does not fit beside the frame is cut with dots or left out.
/// @return the frame within the axes
PixelArea DrawGraph(const GraphModel& graph, Canvas& canvas, const PixelArea& box,
                    const GraphStyle& style = {});

}  // namespace sondera
