// gabor_plot.h - the display "Gabor Spectrum": the map of a pair as an intensity image, frequency along x and
// time along y.
#pragma once

#include "records/measdb.h"
#include "runtime/graphs.h"

namespace sondera {

/// The map of the pair's phase option, scaled to 0..100 above the pair's threshold, with the four colours of
/// the session and the true ranges of both axes. A pair whose maps were never made is flat.
IntensityModel GaborImage(const PMeasInfo& pair);

/// Puts the map on a graph of the masking page. 0; without a pair (null) it says "Calcualte Gabor spectrum,
/// first." and returns -2.
int PlotGaborMap(const GraphControl& graph, const PMeasInfo* pair);

/// The same display asked for on the measurement page: says "Turn on the masking mode, first." and plots
/// zeros over the frequencies of the measurement.
void PlotNoGaborMap(const GraphControl& graph, const HWSetup& hw);

}  // namespace sondera
