// graph_painter.h - draws a graph model on a canvas: the same code draws figures, reports and the pictures of
// pages. No state.
#pragma once

#include "figure/canvas.h"
#include "runtime/graphs.h"

namespace sondera {

/// Sizes in points.
struct GraphStyle {
  double text = 8.0;     ///< size of numbers and legend; names of axes and the title are a little larger
  double line = 0.8;     ///< width of a curve of width 1
  double marker = 4.5;   ///< size of a marker
  bool legend = true;    ///< beside the graph, for curves that have a text for it
  bool numbersX = true;  ///< numbers and name of the x axis
  /// Minimum on either side of the frame, so that graphs below each other are aligned.
  double leftRoom = 0.0, rightRoom = 0.0;
};

/// Draws all contents of the graph except its cursors, on white: frame, grid, numbers, masks, image with its
/// scale, curves, legend. An empty graph has its axes. Parts that do not fit beside the frame are shortened
/// with dots or left out.
/// @return the frame within the axes
PixelArea DrawGraph(const GraphModel& graph, Canvas& canvas, const PixelArea& box,
                    const GraphStyle& style = {});

}  // namespace sondera
