// data_deviation.h - how far the data can be trusted, taken from the data.
//
// What the best starting profile leaves over is more than the model: curves of several pairs of one site
// scatter by more than the 5 % that is assumed without a deviation. Callers: the run of an inversion, before
// its first update. Owns no state.
#pragma once

#include "numeric/offset_array.h"
#include "run/system_state.h"

namespace sondera {

inline constexpr double kLeastDeviation = 0.05;  ///< of the velocity

/// Root mean square of (computed - observed) / observed over the rows with both, at least kLeastDeviation.
double RelativeMisfit(const Observations& observations, const OffsetVector<double>& velocity);

/// Gives every observed velocity this part of itself as its deviation, in Cd, instead of the one it has.
/// The points of the run keep theirs.
void SetRelativeDeviation(Observations& observations, double part);

}  // namespace sondera
