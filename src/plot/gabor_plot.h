// gabor_plot.h - the display "Gabor Spectrum": the map of a pair as an intensity image, frequency along x and
// time along y.
#pragma once

#include <vector>

#include "records/measdb.h"
#include "runtime/graphs.h"

namespace sondera {

/// The session's four colours: at the threshold, at the two thirds between it and 100, and at 100.
std::vector<ColorLevel> MakeGaborColorMap(double threshold);

/// The map of the pair's phase option, scaled to 0..100 above the pair's threshold, with the four colours of
/// the session and the true ranges of both axes. A pair whose maps were never calculated gives a flat image.
IntensityModel GaborImage(const PMeasInfo& pair);

/// Puts the map of a pair on a graph.
void PlotGaborMap(const GraphControl& graph, const PMeasInfo& pair);

/// Replaces a map where none can be shown: zeros over the frequencies of the measurement.
void PlotNoGaborMap(const GraphControl& graph, const HWSetup& hw);

}  // namespace sondera
