// filter_plot.h - the picture of the filter panel: the impulse response of a pair and the windows over it. Fills the graph
// model and draws nothing itself.
#pragma once

#include <span>

#include "runtime/graphs.h"
#include "signal/irf.h"

namespace sondera {

/// What the panel shows. Times in s, 1 to 4; of a low-pass window 1 and 2 count, and the others follow from them.
struct FilterPicture {
  std::span<const double> response;  ///< impulse response, from time 0 in steps of deltaT
  double deltaT = 0.0;               ///< s
  int mode = kBandPass;
  WindowFour enhanced{}, backbone{};
  WindowFour other{};  ///< a second enhanced window, where hasOther
  bool hasOther = false;
};

/// Corners of a window that stand for themselves: 4 of a band-pass, 2 of a low-pass.
int OwnCorners(int mode);

/// Response over its largest value, windows from 0 to 1, time from 0 to a little behind the last corner (low-pass: to the
/// end). Markers 1 to n are the corners of the enhanced window, n + 1 to 2 n those of the backbone window. Empty without
/// a response.
void PlotFilterWindows(const GraphControl& graph, const FilterPicture& picture);

}  // namespace sondera
