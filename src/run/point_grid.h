// point_grid.h - evenly, logarithmically or progressively spaced points of a run without data.
#pragma once

#include "numeric/offset_array.h"

namespace sondera {

/// n points from min to max, [1..n]: evenly spaced for ratio 1, evenly in log10 for ratio -1, otherwise with
/// steps that grow by the ratio from one to the next. A single point is at min. Invalid values (a logarithm
/// of 0, a power without bound) give points that are not finite.
OffsetVector<double> PointGrid(double min, double max, double ratio, int n);

/// Whether all points are valid frequencies or wavelengths: finite and above 0.
bool PointsAreUsable(const OffsetVector<double>& points);

}  // namespace sondera
