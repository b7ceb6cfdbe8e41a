// profile_plot.h - the graph beside the curves of the results page: the profile of an entry with its band,
// its resolution, or the RMS errors of all entries.
//
// Entries have the numbers of the lists of results: from 0 on in the first record, below 0 in that of the starting
// profiles. Each function empties the graph first; it stays empty for an entry that is not stored.
#pragma once

#include <string>
#include <vector>

#include "records/inv_records.h"
#include "runtime/graphs.h"

namespace sondera {

/// Shear-wave velocity to the right, depth downward, as steps of 2 layers + 2 points: at each boundary, the
/// surface and the end included, the velocity above it and below it. The limits of the band, two posterior
/// deviations on each side, are two more curves, with the area between them shaded; entry 0 and starting
/// profiles have none. Axes from 0 to 1.2 times the largest velocity of the band and 1.1 times the end depth,
/// on round numbers; nothing is drawn when either is 0. An end depth of 0 or less becomes the top of the
/// half-space plus half the layer above it, in the record too.
/// The resolution of each layer stands beside it as a number, where the entry has one.
/// @param length     unit of length: "m"
/// @param depthSeen  half the longest wavelength: the graph is hatched below it; 0: not known
void PlotProfile(const GraphControl& graph, int index, const std::string& length, double depthSeen = 0.0);

/// Resolution of Vs, 0 to 1, to the right against depth downward to 1.2 times the top of the half-space. Nothing is
/// drawn without a resolution above 0. Hatched as the profile is.
void PlotResolution(const GraphControl& graph, int index, const std::string& length, double depthSeen = 0.0);

/// The layers of a model as they are typed: Vs to the right, depth downward. The last layer is the half-space, shown as
/// deep as a quarter of all above it (one layer alone: as its thickness, or 1). The graph is empty where no layer has a
/// velocity above 0, or where a thickness is below 0.
void PlotModelLayers(const GraphControl& graph, const std::vector<double>& thickness,
                     const std::vector<double>& Vs, const std::string& length);

/// RMS error to the right against the number of the entry, 0 on top: entries 0 to `iterations`, or 1 to
/// `profiles` when the index is that of a starting profile. Entries that are not stored, and those after the
/// last one with an error, are left out; nothing is drawn when all errors are 0. The entry of the index is
/// emphasised.
void PlotRMSError(const GraphControl& graph, int index, int iterations, int profiles,
                  const std::string& length);

}  // namespace sondera
